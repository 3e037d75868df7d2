// Setters of curves.
#include "core/levels.h"
#include "core/messages.h"
#include "graph2d/axis_string.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kLargestDimension = 10000;
constexpr int kMostCurvesPerCycle = 32000;

} // namespace

void POLCRV(const char* mode) {
  PlotState* s = setterCheck("polcrv");
  if (!s) return;
  if (int found = matchKeyword(s, "LINE+STEP+BARS+SPLI+PSPL+STEM+STAI+FBAR+CURV", 9, mode))
    s->curve.curveMode = found - 1;
}

void SPLMOD(int degree, int points) {
  constexpr int kLeastDegree = 2, kMostDegree = 10, kLeastPoints = 5, kMostPoints = 30000;
  PlotState* s = setterCheck("splmod");
  if (!s || checkRange(s, degree, kLeastDegree, kMostDegree) || checkRange(s, points, kLeastPoints, kMostPoints))
    return;
  s->curve.splineDegree = degree;
  s->curve.splinePoints = points;
}

void THKCRV(int thickness) {
  PlotState* s = setterCheck("thkcrv");
  if (s && !checkRange(s, thickness, 1, kLargestDimension)) s->curve.curveThickness = thickness;
}

void MARKER(int symbol) {
  PlotState* s = setterCheck("marker");
  if (s && !checkRange(s, symbol, -1, kHighestSymbol)) s->curve.markerKind = symbol;
}

void HSYMBL(int height) {
  PlotState* s = setterCheck("hsymbl");
  if (s && !checkRange(s, height, 1, kLargestDimension)) s->curve.markerHeight = height;
}

void MRKCLR(int color) {
  PlotState* s = setterCheck("mrkclr");
  if (s && !checkRange(s, color, -1, -2)) s->curve.markerColor = color;
}

void INCMRK(int step) {
  if (PlotState* s = setterCheck("incmrk")) s->curve.markerStep = step;
}

void INCCRV(int n) {
  PlotState* s = setterCheck("inccrv");
  if (s && !checkRange(s, n, 1, kMostCurvesPerCycle)) s->curve.curvesPerCycle = n;
}

void CHNCRV(const char* mode) {
  PlotState* s = setterCheck("chncrv");
  if (!s) return;
  if (int found = matchKeyword(s, "NONE+COLO+LINE+BOTH", 4, mode)) s->curve.cycleMode = found - 1;
}

void LINCYC(int i, int type) {
  PlotState* s = setterCheck("lincyc");
  if (!s || checkRange(s, i, 1, kCycleLength) || checkRange(s, type, 0, kLineTypeCount - 1)) return;
  s->curve.lineCycle[i - 1] = type;
}

void CLRCYC(int i, int color) {
  PlotState* s = setterCheck("clrcyc");
  if (!s || checkRange(s, i, 1, kCycleLength) || checkRange(s, color, 0, -1)) return;
  s->color.colorCycle[i - 1] = color;
}

void GAPCRV(float gap) {
  PlotState* s = setterCheck("gapcrv");
  if (!s) return;
  s->curve.gapLimitOn[kAxisX] = true;
  s->curve.gapLimit[kAxisX] = gap;
}

void GAPSIZ(float gap, const char* axes) {
  PlotState* s = setterCheck("gapsiz");
  if (!s) return;
  eachAxis(axes, [&](int axis) {
    s->curve.gapLimitOn[axis] = true;
    s->curve.gapLimit[axis] = gap;
  });
}

void NANCRV(const char* mode) {
  PlotState* s = strictCheck(1, 3, "nancrv");
  if (!s) return;
  if (s->curve.nanMode == -1) return warnWithText(s, 161, "The NaN option is not supported");
  if (int found = matchKeyword(s, "OFF +ON  ", 2, mode)) s->curve.nanMode = found - 1;
}

void SYMROT(float degrees) {
  if (PlotState* s = setterCheck("symrot")) s->curve.symbolAngle = degrees;
}

void MYSYMB(const float* x, const float* y, int n, int symbol, int fill) {
  PlotState* s = strictCheck(1, 3, "mysymb");
  if (!s || checkRange(s, n, 2, kUserSymbolLimit) || checkRange(s, symbol, 0, kHighestSymbol) ||
      checkRange(s, fill, 0, 1))
    return;
  CurveGroup& c = s->curve;
  for (int i = 0; i < n; i++) {
    c.userSymbolX[i] = x[i];
    c.userSymbolY[i] = y[i];
  }
  c.userSymbolN = n;
  c.userSymbolId = symbol;
  c.userSymbolFilled = fill == 1;
  c.userSymbolOn = true;
}

void GETSYM(int* symbol, int* height) {
  PlotState* s = strictCheck(1, 3, "getsym");
  if (!s) return;
  *symbol = s->curve.markerKind;
  *height = s->curve.markerHeight;
}
