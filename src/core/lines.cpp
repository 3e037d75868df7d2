// Public routines of lines: types, widths, ends and joins, the clip window.
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/sink.h"
#include "quilla/quilla.h"
#include "raster/canvas.h"

using namespace quilla;

namespace {

constexpr int kLargestWidth = 32000;

void lineType(const char* name, int index) {
  if (PlotState* s = setterCheck(name)) setLineType(s, index);
}

} // namespace

void LINE(int nx1, int ny1, int nx2, int ny2) {
  PlotState* s = strictCheck(1, 3, "line");
  if (!s) return;
  penMove(s, static_cast<float>(nx1), static_cast<float>(userY(s, ny1)));
  penDraw(s, static_cast<float>(nx2), static_cast<float>(userY(s, ny2)));
  if (s->dash.patternColorSent) flushPath(s);
}

void XMOVE(float x, float y) {
  if (PlotState* s = strictCheck(1, 3, "xmove")) pathMove(s, x, userY(s, y));
}

void XDRAW(float x, float y) {
  if (PlotState* s = strictCheck(1, 3, "xdraw")) pathDraw(s, x, userY(s, y));
}

void STRTPT(float x, float y) {
  PlotState* s = strictCheck(1, 3, "strtpt");
  if (!s) return;
  penMove(s, x, userY(s, y));
  s->streamlines.seedGiven = true;
  s->streamlines.seedX = x;
  s->streamlines.seedY = y;
}

void CONNPT(float x, float y) {
  if (PlotState* s = strictCheck(1, 3, "connpt")) penDraw(s, x, userY(s, y));
}

void SOLID(void) { lineType("solid", 0); }
void DOT(void) { lineType("dot", 1); }
void DASH(void) { lineType("dash", 2); }
void CHNDSH(void) { lineType("chndsh", 3); }
void CHNDOT(void) { lineType("chndot", 4); }
void DASHM(void) { lineType("dashm", 5); }
void DOTL(void) { lineType("dotl", 6); }
void DASHL(void) { lineType("dashl", 7); }

void LINTYP(int type) {
  PlotState* s = strictCheck(1, 3, "lintyp");
  if (s && !checkRange(s, type, 0, kLineTypeCount - 1)) setLineType(s, type);
}

void MYLINE(const int* lengths, int n) {
  PlotState* s = setterCheck("myline");
  if (!s || checkRange(s, n, 1, kLinePatternLimit)) return;
  for (int i = 0; i < n; i++) {
    if (lengths[i] < 1) return warnWithNumber(s, 2, lengths[i]);
  }
  flushPath(s);
  s->line.linePatternCount = n;
  for (int i = 0; i < n; i++) s->line.linePattern[i] = lengths[i];
  resetDash(s);
}

void LINCLR(const int* colors, int n) {
  PlotState* s = setterCheck("linclr");
  if (!s || checkRange(s, n, 0, kPatternColorLimit)) return;
  flushPath(s);
  s->line.linePatternColorCount = n;
  for (int i = 0; i < n; i++) s->line.linePatternColors[i] = colors[i];
  s->dash.colorCycleElement = 1;
}

void LINWID(int width) {
  PlotState* s = strictCheck(1, 3, "linwid");
  if (s && !checkRange(s, width, 1, kLargestWidth)) setLineWidth(s, width);
}

void PENWID(float width) {
  PlotState* s = strictCheck(1, 3, "penwid");
  if (!s) return;
  if (!(width > 0.0F && width <= static_cast<float>(kLargestWidth))) return warnPlain(s, 2);
  setPenWidth(s, width);
}

void LINMOD(const char* mode, const char* key) {
  PlotState* s = strictCheck(1, 3, "linmod");
  if (!s || !matchKeyword(s, "SMOO", 1, key)) return;
  const int found = matchKeyword(s, "ON  +OFF ", 2, mode);
  if (!found) return;
  flushPath(s);
  s->image.smoothLines = found == 1;
  if (s->raster.canvas) s->raster.canvas->antialias = s->image.smoothLines && s->raster.canvas->trueColour;
}

void LNCAP(const char* cap) {
  PlotState* s = strictCheck(1, 3, "lncap");
  if (!s) return;
  int found = matchKeyword(s, "CUT +ROUN+LONG", 3, cap);
  if (!found) return;
  flushPath(s);
  s->line.lineCap = found - 1;
  sinkLineCap(s, s->line.lineCap);
  if (s->line.lineWidthSetting < 0) setLineWidth(s, -s->line.lineWidthSetting);
}

void LNJOIN(const char* join) {
  PlotState* s = strictCheck(1, 3, "lnjoin");
  if (!s) return;
  int found = matchKeyword(s, "SHAR+ROUN+TRUN", 3, join);
  if (!found) return;
  flushPath(s);
  s->line.lineJoin = found - 1;
  sinkLineJoin(s, s->line.lineJoin);
  if (s->line.lineWidthSetting < 0) setLineWidth(s, -s->line.lineWidthSetting);
}

void LNMLT(float limit) {
  PlotState* s = strictCheck(1, 3, "lnmlt");
  if (!s) return;
  if (!(limit >= 1.0F)) return warnPlain(s, 2);
  flushPath(s);
  s->line.lineMiter = limit;
  sinkMiterLimit(s, limit);
}

void HWMODE(const char* mode, const char* key) {
  constexpr int kLines = 1;
  PlotState* s = setterCheck("hwmode");
  if (!s) return;
  int value = matchKeyword(s, "OFF +ON  ", 2, mode), found = matchKeyword(s, "LINE+SHAD", 2, key);
  if (!value || !found) return;
  if (found != kLines) {
    s->line.hardwareShading = value == 2;
    return;
  }
  flushPath(s);
  s->line.hardwareLines = value == 2;
  if (s->line.lineWidthSetting < 0) setLineWidth(s, -s->line.lineWidthSetting);
}

void CLPWIN(int nx, int ny, int nw, int nh) {
  PlotState* s = strictCheck(1, 3, "clpwin");
  if (!s) return;
  int top = userY(s, ny);
  bool fits = nx >= 0 && top >= 0 && nw > 0 && nh > 0 && nx <= s->geometry.pageWidth && top <= s->geometry.pageHeight &&
              nw - 1 <= s->geometry.pageWidth - nx && nh - 1 <= s->geometry.pageHeight - top;
  if (!fits) return warnPlain(s, 2);
  s->clip.clipPageX0 = nx;
  s->clip.clipPageY0 = top;
  s->clip.clipPageX1 = nx + nw - 1;
  s->clip.clipPageY1 = top + nh - 1;
  s->clip.clipBorderMode = kBorderWindow;
  setClipRectangle(s, s->clip.clipPageX0, s->clip.clipPageY0, s->clip.clipPageX1, s->clip.clipPageY1);
  sendClip(s, 0.0F);
}

void GETCLP(int* nx, int* ny, int* nw, int* nh) {
  PlotState* s = strictCheck(1, 3, "getclp");
  if (!s) return;
  *nx = s->clip.clipX0;
  *ny = userY(s, s->clip.clipY0);
  *nw = s->clip.clipX1 - s->clip.clipX0 + 1;
  *nh = s->clip.clipY1 - s->clip.clipY0 + 1;
}

int GETLIN(void) {
  PlotState* s = strictCheck(1, 3, "getlin");
  if (!s) return 0;
  return s->line.lineWidthSetting < 0 ? -s->line.lineWidthSetting : s->line.lineWidthSetting;
}

int GETTYP(void) {
  PlotState* s = strictCheck(1, 3, "gettyp");
  return s ? s->line.lineStyleIndex : 0;
}
