#include "device/postscript_driver.h"

#include <cmath>
#include <cstring>
#include <string_view>

#include "device/device_table.h"
#include "device/ps_fonts.h"
#include "device/sheet.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr double kFontPoints = 0.28346456692913385; // points of 0.1 mm
constexpr int kLeastWidth = 5;                      // of a line, in device units
constexpr int kDotExtent = 2;                       // a dot is drawn as a line this far to both sides
constexpr float kFactorGrain = 1e-5F;               // a width factor this near to 1 is 1

// One integer and a blank, as a word.
void putIntegerWord(DeviceGroup& device, int value) {
  char word[kFixedTextSize];
  char* end = putInteger(word, value);
  *end++ = ' ';
  putWord(device, word, static_cast<int>(end - word));
}

void putPoint(DeviceGroup& device, int x, int y, const char* operation) {
  putIntegerWord(device, x);
  putIntegerWord(device, y);
  putWord(device, operation, 2);
}

void writePolyline(PlotState* s) {
  PostScriptWriter& ps = *s->device.postScript;
  if (ps.polyCount == 0) return;
  if (ps.polyCount == 2 && ps.polyX[0] == ps.polyX[1] && ps.polyY[0] == ps.polyY[1]) {
    ps.polyX[0] -= kDotExtent;
    ps.polyX[1] += kDotExtent;
  }
  DeviceGroup& device = s->device;
  putPoint(device, ps.polyX[0], ps.polyY[0], "u ");
  for (int i = 1; i < ps.polyCount; ++i) putPoint(device, ps.polyX[i], ps.polyY[i], "d ");
  putWord(device, "p ", 2);
}

// Appends the point; true if the polyline is full.
bool addPoint(PostScriptWriter& ps, int x, int y) {
  if (ps.polyCount == 0) {
    ps.polyX[0] = ps.polyLastX;
    ps.polyY[0] = ps.polyLastY;
    ps.polyCount = 1;
  }
  const int n = ps.polyCount;
  ps.polyX[n] = x;
  ps.polyY[n] = y;
  // The second point may equal the first: that is a dot.
  if (n > 1 && ps.polyX[n - 1] == x && ps.polyY[n - 1] == y) return false;
  ps.polyCount = n + 1;
  return ps.polyCount == kPsPolylineLimit;
}

void breakLine(PlotState* s) { psPolyline(s, 0.0F, 0.0F, kPsBreak); }

void putOperation(PlotState* s, const TextLine& line) {
  breakLine(s);
  qqtbuf(s, textOf(line));
}

} // namespace

void psPolyline(PlotState* s, float x, float y, int code) {
  PostScriptWriter& ps = *s->device.postScript;
  const int nextX = deviceRound(x), nextY = deviceRound(y);
  if (code == 2 && !addPoint(ps, nextX, nextY)) return;
  const int lastX = ps.polyCount > 0 ? ps.polyX[ps.polyCount - 1] : ps.polyLastX;
  const int lastY = ps.polyCount > 0 ? ps.polyY[ps.polyCount - 1] : ps.polyLastY;
  writePolyline(s);
  if (code == kPsBreak || code == kPsEnd) {
    ps.polyLastX = lastX;
    ps.polyLastY = lastY;
    ps.polyCount = 0;
  } else {
    ps.polyX[0] = nextX;
    ps.polyY[0] = nextY;
    ps.polyCount = 1;
  }
}

void psColor(PlotState* s, int r, int g, int b) {
  TextLine line;
  addInteger(line, r);
  addInteger(line, g);
  addInteger(line, b);
  addText(line, " f ");
  putOperation(s, line);
}

void psFill(PlotState* s, const float* x, const float* y, int n) {
  breakLine(s);
  DeviceGroup& device = s->device;
  const int firstX = deviceRound(x[0]), firstY = deviceRound(y[0]);
  putPoint(device, firstX, firstY, "u ");
  for (int i = 1; i < n; ++i) putPoint(device, deviceRound(x[i]), deviceRound(y[i]), "d ");
  putPoint(device, firstX, firstY, "d ");
  qqtbuf(s, "eofill ");
}

void psRectangle(PlotState* s, float x1, float y1, float x2, float y2, int r, int g, int b) {
  int left = deviceRound(x1), right = deviceRound(x2), low = deviceRound(y1), high = deviceRound(y2);
  if (left == right) {
    left -= kDotExtent;
    right += kDotExtent;
  }
  if (low == high) {
    low -= kDotExtent;
    high += kDotExtent;
  }
  TextLine line;
  for (int value : {left, low, right, high, r, g, b}) addInteger(line, value);
  addText(line, " e ");
  putOperation(s, line);
}

void psLineWidth(PlotState* s, double width) {
  TextLine line;
  addReal(line, width, 2);
  addText(line, " cm setlinewidth ");
  putOperation(s, line);
}

void psLineCap(PlotState* s, int cap) {
  TextLine line;
  addInteger(line, cap);
  addText(line, " setlinecap ");
  putOperation(s, line);
}

void psLineJoin(PlotState* s, int join) {
  TextLine line;
  addInteger(line, join);
  addText(line, " setlinejoin ");
  putOperation(s, line);
}

void psMiterLimit(PlotState* s, int limit) {
  constexpr int kLeastLimit = 8; // the operator refuses a limit below 1, and 8 cm is 1.13
  TextLine line;
  addInteger(line, limit < kLeastLimit ? kLeastLimit : limit);
  addText(line, " cm setmiterlimit ");
  putOperation(s, line);
}

void psClip(PlotState* s, bool on, float x1, float y1, float x2, float y2) {
  TextLine line;
  addText(line, "initclip ");
  if (on) {
    TextLine box;
    for (float value : {x1, y1, x2, y2}) addInteger(box, deviceRound(value));
    addText(line, textOf(box));
    addText(line, " clp ");
  }
  putOperation(s, line);
}

void psGlyph(PlotState* s, int code, float x, float y, int angle) {
  TextLine line;
  for (int value : {code, deviceRound(x), deviceRound(y), angle}) addInteger(line, value);
  addText(line, " c ");
  putOperation(s, line);
}

void psFont(PlotState* s, bool recode) {
  const PsFont& font = kPsFonts[s->font.psFontIndex];
  const double size = static_cast<double>(s->text.textHeight) * static_cast<double>(s->device.deviceScale) *
                      kFontPoints * (1000.0 / font.capHeight) * 0.5;
  TextLine line;
  // Each name is one word, so that no line is broken inside it.
  auto addName = [&line, &font](std::string_view suffix) {
    addText(line, "(");
    addText(line, font.name);
    addText(line, suffix);
  };
  if (recode) {
    addName(") ");
    addName("-German) ");
    addText(line, "GermanVec ReEncodeSmall ");
  }
  addName("-German)");
  addReal(line, size, 1);
  const float factor = s->text.charWidthFactor;
  if (std::fabs(factor - 1.0F) > kFactorGrain) {
    addReal(line, size * static_cast<double>(factor), 1);
    addText(line, " font2 ");
  } else {
    addText(line, " font ");
  }
  putOperation(s, line);
}

void psNewPage(PlotState* s) {
  breakLine(s);
  qqtbuf(s, "copypage ");
  endLine(s);
  TextLine line;
  addText(line, "%%Page: 1");
  addInteger(line, s->geometry.pageNumber);
  addText(line, " ");
  qqtbuf(s, textOf(line));
  endLine(s);
  if (psPaintsPage(s)) {
    const float width = static_cast<float>(s->geometry.pageWidth) * s->device.deviceScale;
    const float height = static_cast<float>(s->geometry.pageHeight) * s->device.deviceScale;
    const int color = s->color.colorTable[0];
    const bool across = pageAcrossSheet(s);
    psRectangle(s, 0.0F, 0.0F, across ? height : width, across ? width : height, color >> 16 & 255, color >> 8 & 255,
                color & 255);
  } else {
    qqtbuf(s, "erasepage ");
    endLine(s);
  }
  const double lineWidth = std::abs(2.0 * s->line.lineWidthSetting) * static_cast<double>(s->pageSetup.unitFactor);
  TextLine state;
  addInteger(state, s->line.lineCap);
  addText(state, " setlinecap");
  addInteger(state, s->line.lineJoin);
  addText(state, " setlinejoin");
  addInteger(state, lineWidth < kLeastWidth ? kLeastWidth : static_cast<int>(lineWidth));
  addText(state, " cm setlinewidth");
  qqtbuf(s, textOf(state));
  endLine(s);
}

void psTrailer(PlotState* s) {
  psPolyline(s, 0.0F, 0.0F, kPsEnd);
  const bool single = s->deviceSetup.psSinglePage != 0;
  qqtbuf(s, single ? "showpage " : "gsave showpage grestore ");
  if (single || s->deviceSetup.deviceNumber == kDeviceEps) return;
  endLine(s);
  qqtbuf(s, "%%Trailer ");
  endLine(s);
  // The count stands in a field of eight, whose blanks are kept.
  constexpr int kCountField = 8;
  char pages[kNumberTextSize] = "%%Pages: ";
  const int label = static_cast<int>(std::strlen(pages));
  const int length = label + qqicha(s->geometry.pageNumber, pages + label, kCountField, false);
  pages[length] = ' ';
  putWord(s->device, pages, length + 1);
  endLine(s);
  qqtbuf(s, "%%EOF ");
}

} // namespace quilla
