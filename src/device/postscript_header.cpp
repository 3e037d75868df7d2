// The head of a PostScript file: comments, prolog, page set-up.
#include <string_view>
#include <utility>

#include "core/clock.h"
#include "device/device_table.h"
#include "device/postscript_driver.h"
#include "device/sheet.h"
#include "device/writers.h"

namespace quilla {
namespace {

// Procedures of the file, after which a primitive is a few numbers and a name: u, d, p polyline; e filled rectangle;
// f colour; clp clip; c character; sec sector; tri triangle; font, font2 fonts. Numbers are in 1/20 mm (cm). The
// vector gives codes 127 to 186 of a font to the accented letters.
constexpr std::string_view kProlog = R"(/cm {0.1417322835 mul} def /rgb {255 div} def /lc 1 string def
/u  { /y exch cm def /x exch cm def newpath  x y moveto } def
/d  { /y exch cm def /x exch cm def x y lineto } def
/p  { stroke } def
/e { /b exch rgb def /g exch rgb def
 /r exch rgb def /v exch cm def /w exch cm def /y exch cm def
 /x exch cm def gsave r g b setrgbcolor newpath x y moveto
 w y lineto w v lineto x v lineto closepath fill grestore } def
/f { /b exch rgb def /g exch rgb def
 /r exch rgb def r g b setrgbcolor } def
/clp {/v exch cm def /w exch cm def /y exch cm def
 /x exch cm def newpath x y moveto
 w y lineto w v lineto x v lineto closepath clip } def
/text { /c1 exch def /a exch def /y exch cm def /x exch cm def
 /Name exch def gsave x y moveto x y translate a rotate c1 0 gt
 { Name stringwidth 2 div neg exch 2 div neg exch rmoveto }
 {} ifelse Name show grestore } def /font { /h exch def
 /s exch def s findfont h scalefont setfont } def
/font2 { /h2 exch def /h1 exch def /s exch def s findfont
 [h2 0 0 h1 0 0] makefont setfont } def
/c { /a exch def /y exch cm def /x exch cm def /i exch def
 gsave x y moveto x y translate a rotate lc 0 i put lc
 stringwidth 2 div neg exch 2 div neg exch rmoveto lc show
 grestore } def
/sec { /b exch rgb def /g exch rgb def /r exch rgb def
 /a2 exch def /a exch def /r2 exch cm def /r1 exch cm def
 /y exch cm def /x exch cm def gsave r g b setrgbcolor newpath
 x y r1 a a2 arc x y r2 a2 a arcn closepath fill grestore } def
/tri { /y3 exch cm def /x3 exch cm def /y2 exch cm def
 /x2 exch cm def /y1 exch cm def /x1 exch cm def
 gsave newpath x1 y1 moveto
 x2 y2 lineto x3 y3 lineto closepath fill grestore } def
/Reencsmalldict 12 dict def
/ReEncodeSmall
{ Reencsmalldict begin
  /NewCodesAndNames exch def
  /NewFontName exch def
  /BaseFontName exch def
  /BaseFontDict
  BaseFontName findfont def
  /NewFont BaseFontDict
  maxlength dict def
  BaseFontDict
  { exch dup /FID ne
    { dup /Encoding eq
      { exch dup length array copy
        NewFont 3 1 roll put
      }
      { exch NewFont 3 1 roll put
      } ifelse
      }
      {pop pop} ifelse
    } forall
    NewFont
    /FontName NewFontName put
    NewCodesAndNames aload pop
    NewCodesAndNames
    length 2 idiv
    { NewFont /Encoding get
    3 1 roll put  } repeat
    NewFontName NewFont
    definefont pop end } def
 /GermanVec [ 8#177 /Adieresis
 8#200 /Odieresis 8#201 /Udieresis 8#202 /adieresis
 8#203 /odieresis 8#204 /udieresis 8#205 /germandbls
 8#206 /Aring     8#207 /Oslash    8#210 /AE
 8#211 /aring     8#212 /oslash    8#213 /ae
 8#214 /Ntilde    8#215 /ntilde    8#216 /Ccedilla
 8#217 /ccedilla  8#220 /Edieresis 8#221 /Idieresis
 8#222 /edieresis 8#223 /idieresis 8#224 /Aacute
 8#225 /Eacute    8#226 /Iacute    8#227 /Oacute
 8#230 /Uacute    8#231 /aacute    8#232 /eacute
 8#233 /iacute    8#234 /oacute    8#235 /uacute
 8#236 /Agrave    8#237 /Egrave    8#240 /Igrave
 8#241 /Ograve    8#242 /Ugrave    8#243 /agrave
 8#244 /egrave    8#245 /igrave    8#246 /ograve
 8#247 /ugrave      8#250 /Acircumflex 8#251 /Ecircumflex
 8#252 /Icircumflex 8#253 /Ocircumflex 8#254 /Ucircumflex
 8#255 /acircumflex 8#256 /ecircumflex 8#257 /icircumflex
 8#260 /ocircumflex 8#261 /ucircumflex 8#262 /Atilde
 8#263 /atilde 8#264 /Otilde 8#265 /otilde 8#266 /Yacute
 8#267 /yacute 8#270 /ydieresis
 8#271 /exclamdown 8#272 /questiondown ] def
)";

constexpr double kPointsPerUnit = 0.1417322835; // 1/20 mm
constexpr double kVersion = 11.5;
constexpr int kDefaultOriginX = 150, kDefaultOriginY = 200;

void putLine(PlotState* s, std::string_view text) {
  putText(s->device.plotOutput, text);
  putText(s->device.plotOutput, "\n");
}

void putLine(PlotState* s, const TextLine& line) { putLine(s, textOf(line)); }

// A number in a field of fixed width, padded on the left.
void addField(TextLine& line, int value, int width) {
  char field[kNumberTextSize];
  addText(line, {field, static_cast<std::size_t>(qqicha(value, field, width, false))});
}

void addField(TextLine& line, double value, int decimals, int width) {
  char field[kNumberTextSize];
  addText(line, {field, static_cast<std::size_t>(qqfcha(value, decimals, field, width))});
}

int truncated(double value) {
  constexpr double kLimit = 1e9;
  return static_cast<int>(value > kLimit ? kLimit : value < -kLimit ? -kLimit : value);
}

TextLine boundingBox(const PlotState* s) {
  const PageSetup& page = s->pageSetup;
  const double left = page.hardwareOriginSet ? 2.0 * page.hardwareOriginX : kDefaultOriginX;
  const double bottom = page.hardwareOriginSet ? 2.0 * page.hardwareOriginY : kDefaultOriginY;
  const double scale = static_cast<double>(s->device.deviceScale) * static_cast<double>(page.hardwareScale);
  double width = s->geometry.pageWidth * scale, height = s->geometry.pageHeight * scale;
  if (pageAcrossSheet(s)) std::swap(width, height);
  TextLine line;
  addText(line, "%%BoundingBox:");
  addInteger(line, truncated(left * kPointsPerUnit));
  addInteger(line, truncated(bottom * kPointsPerUnit));
  addInteger(line, truncated((width + left) * kPointsPerUnit + 1.0));
  addInteger(line, truncated((height + bottom) * kPointsPerUnit + 1.0));
  return line;
}

TextLine creator(const PlotState* s) {
  TextLine line;
  addText(line, "%%Creator: QUILLA  ");
  addField(line, kVersion, 1, 4);
  addText(line, pageAcrossSheet(s) ? " L" : " P");
  return line;
}

TextLine creationDate() {
  const ClockReading clock = readClock();
  char date[11], time[9];
  formatDate(clock, date);
  formatTime(clock, time);
  TextLine line;
  addText(line, "%%CreationDate: ");
  addText(line, date);
  addText(line, " , ");
  addText(line, time);
  return line;
}

// The bounding box counts twice the values of HWORIG, the translation once.
TextLine scaleLine(const PlotState* s) {
  const PageSetup& page = s->pageSetup;
  TextLine line;
  addField(line, page.hardwareOriginSet ? page.hardwareOriginX : kDefaultOriginX, 5);
  addText(line, " cm ");
  addField(line, page.hardwareOriginSet ? page.hardwareOriginY : kDefaultOriginY, 5);
  addText(line, " cm translate ");
  addField(line, static_cast<double>(page.hardwareScale), 6, 10);
  addField(line, static_cast<double>(page.hardwareScale), 6, 10);
  addText(line, " scale");
  return line;
}

// The page painted black, in the form of the header.
TextLine blackPage(const PlotState* s) {
  const int height = deviceRound(static_cast<float>(s->geometry.pageHeight) * s->device.deviceScale);
  const int width = deviceRound(static_cast<float>(s->geometry.pageWidth) * s->device.deviceScale);
  TextLine line;
  addText(line, pageAcrossSheet(s) ? "0 0" : "0");
  addInteger(line, height);
  addInteger(line, width);
  addText(line, pageAcrossSheet(s) ? " 0 0 0 e " : " 0 0 0 0 e ");
  return line;
}

} // namespace

bool psPaintsPage(const PlotState* s) {
  return s->deviceSetup.deviceNumber != kDevicePost && s->colorState.backgroundMode != kBackgroundReverse;
}

void psHeader(PlotState* s) {
  const bool eps = s->deviceSetup.deviceNumber == kDeviceEps, single = s->deviceSetup.psSinglePage != 0;
  putLine(s, eps ? "%!PS-Adobe-3.0 EPSF-3.0" : "%!PS-Adobe-2.0");
  putLine(s, boundingBox(s));
  putLine(s, creator(s));
  putLine(s, creationDate());
  if (s->deviceSetup.psInfoText) putLine(s, s->deviceSetup.psInfoText);
  if (!eps && !single) putLine(s, "%%Pages: (atend)");
  putLine(s, "%%EndComments");
  putLine(s, single ? "%%Page: 1 1\n2 setlinecap 2 setlinejoin" : "%%BeginProlog");
  putText(s->device.plotOutput, kProlog);
  if (!single && !eps) putLine(s, "%%EndProlog\n%%Page: 1 1\ninitgraphics");
  putLine(s, scaleLine(s));
  if (!single && eps) putLine(s, "%%EndProlog\n%%Page: 1 1");
  if (psPaintsPage(s)) {
    putLine(s, blackPage(s));
  } else if (!eps) {
    putLine(s, "erasepage");
  }
  if (!single) putLine(s, "2 setlinecap 2 setlinejoin");
}

} // namespace quilla
