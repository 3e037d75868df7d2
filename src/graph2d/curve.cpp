// Curves: checks, attributes, symbols and lines.
#include <cmath>
#include <cstdio>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph2d/area.h"
#include "graph2d/axis_system.h"
#include "graph2d/curve_path.h"
#include "graph2d/legend.h"
#include "graph2d/scaling.h"
#include "graph2d/symbols.h"
#include "quilla/quilla.h"
#include "text/text.h"

using namespace quilla;

namespace {

void takeCycleAttributes(PlotState* s) {
  int mode = s->curve.cycleMode, i = s->cycle.cycleIndex - 1;
  if (mode == kCycleColor || mode == kCycleBoth) setColor(s, s->color.colorCycle[i]);
  if (mode == kCycleLine || mode == kCycleBoth) setLineType(s, s->curve.lineCycle[i]);
}

bool fitsPolarSystems(int mode) {
  return mode == kCurveLine || mode == kCurveBars || mode == kCurveStem || mode == kCurveFilledBars;
}

void checkPoints(PlotState* s, const CurveData& d) {
  bool checked = isDataChecked(s);
  if (!checked && s->curve.nanMode == 0) return;
  int nansBefore = s->counters.nanCount;
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!isDrawable(s, d, i)) {
      s->counters.nanCount++;
      continue;
    }
    if (checked && isOutside(s, d.x[i], d.y[i])) reportOutOfScale(s, d.x[i], d.y[i]);
  }
  bool spline = s->curve.curveMode == kCurveSpline || s->curve.curveMode == kCurvePSpline;
  if (spline && s->counters.nanCount != nansBefore)
    warnWithText(s, 160, "NaN Values are not handled for spline interpolation");
}

void drawSymbols(PlotState* s, const CurveData& d) {
  // INCMRK may be the most negative integer, so that the magnitude is taken in 64 bits.
  long long step = s->curve.markerStep < 0 ? -static_cast<long long>(s->curve.markerStep) : s->curve.markerStep;
  int kept = s->color.currentColor;
  if (s->curve.markerColor != -1) setColor(s, s->curve.markerColor);
  for (long long k = 0; k < d.n && !stopRequested(); k += step) {
    int i = static_cast<int>(k);
    if (!isDrawable(s, d, i)) continue;
    PlotPoint p = plotPoint(s, d.x[i], d.y[i]);
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) continue;
    drawSymbol(s, s->curve.markerKind, s->curve.markerHeight, static_cast<float>(roundHalfUp(p.x)),
               static_cast<float>(roundHalfUp(p.y)));
  }
  if (s->curve.markerColor != -1) setColor(s, kept);
}

void drawPasses(PlotState* s, const CurveData& d, CurveLine line) {
  const int passes = curvePasses(s);
  for (int p = 1; p <= passes && !stopRequested(); p++) {
    beginCurvePass(s, p);
    line(s, d);
  }
  endCurvePasses(s);
}

} // namespace

namespace quilla {

void resetCycle(PlotState* s) { s->cycle = CycleState{}; }

void drawCurve(PlotState* s, const CurveData& data, CurveLine line) {
  if (data.n < 1 || (data.n == 1 && s->curve.markerStep >= 0)) return warnPlain(s, 2);
  if (s->axis.axisSystemKind == kSystemPolar && !fitsPolarSystems(s->curve.curveMode)) {
    return warnWithText(s, 160, "Bad interpolation method for polar scaling");
  }
  const std::size_t size = static_cast<std::size_t>(data.n);
  if (!logarithmsExist(s, kAxisY, {data.y, size}) || !logarithmsExist(s, kAxisX, {data.x, size})) return;
  KeptPen kept = keepPen(s);
  s->internalCoordinates = true;
  takeCycleAttributes(s);
  if (s->cycle.legendEntryPending) recordCurve(s);
  checkPoints(s, data);
  axisClipOn(s);
  if (s->curve.markerStep != 0) drawSymbols(s, data);
  if (s->curve.markerStep >= 0) drawPasses(s, data, line);
  flushPath(s);
  axisClipOff(s);
  restorePen(s, kept);
  s->internalCoordinates = false;
  if (s->cycle.curveInCycle == s->curve.curvesPerCycle) {
    s->cycle.curveInCycle = 0;
    char name[kRoutineNameLength + 1];
    copyText(name, s->level.routineName, kRoutineNameLength);
    CHNATT();
    copyText(s->level.routineName, name, kRoutineNameLength);
  } else {
    s->cycle.curveInCycle++;
  }
}

} // namespace quilla

void CURVE(const float* x, const float* y, int n) {
  if (PlotState* s = strictCheck(2, 3, "curve")) drawCurve(s, {x, y, n}, drawCurveLine);
}

namespace {

// A bar between two plot points with a piece across each end.
void drawErrorBar(PlotState* s, float x0, float y0, float x1, float y1, float half, bool horizontal) {
  float dx = horizontal ? 0.0F : half, dy = horizontal ? half : 0.0F;
  penMove(s, x0, y0);
  penDraw(s, x1, y1);
  penMove(s, x0 - dx, y0 - dy);
  penDraw(s, x0 + dx, y0 + dy);
  penMove(s, x1 - dx, y1 - dy);
  penDraw(s, x1 + dx, y1 + dy);
}

// Plot coordinate of the end of a bar; one without a logarithm lies on the axis.
float barEnd(const PlotState* s, int axis, float value) {
  if (s->axis.axisLogScale[axis] != 0 && !(value > 0.0F) && !s->axis.negativeLogOn) {
    return axis == kAxisX ? s->scaling.axisOriginPlotX : s->scaling.axisOriginPlotY;
  }
  return axis == kAxisX ? plotX(s, value) : plotY(s, value);
}

void drawErrorBars(PlotState* s, const CurveData& d, const float* e1, const float* e2) {
  float half = static_cast<float>(s->curve.markerHeight) / 3.0F;
  bool horizontal = s->curve.errorBarHorizontal;
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!isDrawable(s, d, i)) continue;
    float x = plotX(s, d.x[i]), y = plotY(s, d.y[i]);
    if (horizontal) {
      drawErrorBar(s, barEnd(s, kAxisX, d.x[i] - e1[i]), y, barEnd(s, kAxisX, d.x[i] + e2[i]), y, half, true);
    } else {
      drawErrorBar(s, x, barEnd(s, kAxisY, d.y[i] - e1[i]), x, barEnd(s, kAxisY, d.y[i] + e2[i]), half, false);
    }
  }
}

} // namespace

void ERRBAR(const float* x, const float* y, const float* e1, const float* e2, int n) {
  PlotState* s = strictCheck(2, 3, "errbar");
  if (!s || checkRange(s, n, 1, -1)) return;
  const std::size_t size = static_cast<std::size_t>(n);
  if (!logarithmsExist(s, kAxisY, {y, size}) || !logarithmsExist(s, kAxisX, {x, size})) return;
  CurveData data{x, y, n};
  s->internalCoordinates = true;
  checkPoints(s, data);
  axisClipOn(s);
  drawErrorBars(s, data, e1, e2);
  int step = s->curve.markerStep;
  s->curve.markerStep = 1;
  drawSymbols(s, data);
  s->curve.markerStep = step;
  flushPath(s);
  axisClipOff(s);
  s->internalCoordinates = false;
}

void CHNATT(void) {
  PlotState* s = strictCheck(1, 3, "chnatt");
  if (!s || s->cycle.curveInCycle == 1) return;
  CycleState& c = s->cycle;
  c.cycleIndex = c.cycleIndex % kCycleLength + 1;
  c.curveCounter++;
  c.curveInCycle = 1;
  if (s->curve.markerStep != 0) s->curve.markerKind = s->curve.markerKind % (kHighestSymbol - 1) + 1;
  c.legendEntryPending = true;
}

void RESATT(void) {
  if (PlotState* s = strictCheck(1, 3, "resatt")) resetCycle(s);
}

void SYMBOL(int symbol, int nx, int ny) {
  PlotState* s = strictCheck(1, 3, "symbol");
  if (!s || checkRange(s, symbol, 0, kHighestSymbol)) return;
  int y = userY(s, ny), x = addCoordinates(nx, s->page.originX), top = addCoordinates(y, s->page.originY);
  if (x < 0 || x > s->geometry.pageWidth || top < 0 || top > s->geometry.pageHeight) {
    char text[64];
    std::snprintf(text, sizeof text, "(%d/%d) out of page", nx, ny);
    warnWithText(s, 193, text);
  }
  drawSymbol(s, symbol, s->curve.markerHeight, static_cast<float>(nx), static_cast<float>(y));
}

void RLSYMB(int symbol, float x, float y) {
  PlotState* s = strictCheck(2, 3, "rlsymb");
  if (!s || checkRange(s, symbol, 0, kHighestSymbol)) return;
  PlotPoint p = plotPoint(s, x, y);
  drawSymbol(s, symbol, s->curve.markerHeight, static_cast<float>(roundHalfUp(p.x)),
             static_cast<float>(roundHalfUp(p.y)));
}

namespace {

// A position within 0.1 of 999 continues at the text cursor; else user values become plot coordinates.
bool continuesText(float x, float y) { return std::fabs(x - 999.0F) < 0.1F && std::fabs(y - 999.0F) < 0.1F; }

} // namespace

void RLMESS(const char* text, float x, float y) {
  PlotState* s = strictCheck(2, 3, "rlmess");
  if (!s) return;
  if (continuesText(x, y)) return placeText(s, text, 999, 999);
  PlotPoint p = plotPoint(s, x, y);
  placeText(s, text, roundHalfUp(p.x), userY(s, roundHalfUp(p.y)));
}

void RLNUMB(float value, int digits, float x, float y) {
  constexpr int kMostDigits = 100, kNumberSize = 256;
  PlotState* s = strictCheck(2, 3, "rlnumb");
  if (!s || checkRange(s, digits, -1, kMostDigits)) return;
  char text[kNumberSize];
  formattedNumber(s, static_cast<double>(value), digits, text, kNumberSize);
  if (continuesText(x, y)) return numberAt(s, text, 999, 999);
  PlotPoint p = plotPoint(s, x, y);
  numberAt(s, text, roundHalfUp(p.x), userY(s, roundHalfUp(p.y)));
}

void TRFREL(float* x, float* y, int n) {
  PlotState* s = strictCheck(2, 3, "trfrel");
  if (!s || checkRange(s, n, 1, -1)) return;
  for (int i = 0; i < n; i++) {
    const PlotPoint p = plotPoint(s, x[i], y[i]);
    x[i] = p.x;
    y[i] = p.y;
  }
}

void RLSTRT(float x, float y) {
  PlotState* s = strictCheck(2, 3, "rlstrt");
  if (!s) return;
  PlotPoint p = plotPoint(s, x, y);
  penMove(s, p.x, p.y);
}

void RLCONN(float x, float y) {
  PlotState* s = strictCheck(2, 3, "rlconn");
  if (!s) return;
  PlotPoint p = plotPoint(s, x, y);
  penDraw(s, p.x, p.y);
}

void RLINE(float x1, float y1, float x2, float y2) {
  PlotState* s = strictCheck(2, 3, "rline");
  if (!s) return;
  PlotPoint p = plotPoint(s, x1, y1), q = plotPoint(s, x2, y2);
  penMove(s, p.x, p.y);
  penDraw(s, q.x, q.y);
}
