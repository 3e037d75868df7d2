// Public routines that draw a whole graph from arrays: they open a plot if there is none, and leave it open.
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>
#include <span>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kScatterMarker = 3, kScatterHeight = 10;
enum CurvePlace : int { kFirstCurve = 1, kNextCurve = 2, kLastCurve = 3 };

// Begins on a cleared page at level 1. Null after a message.
PlotState* beginQuickPlot(const char* name, int n) {
  PlotState* s = strictCheck(0, 3, name);
  if (!s || checkRange(s, n, 1, -1)) return nullptr;
  if (s->level.plotLevel == kLevelNone) {
    if (!s->deviceSetup.deviceChosen) METAFL(GETDSP()[0] == 'N' ? "CONS" : "XWIN");
    QUIINI();
    if (s->level.plotLevel == kLevelNone) return nullptr; // no file, no memory
    COMPLX();
    NOCHEK();
  } else {
    ERASE();
    RESET("SETSCL");
    if (s->level.plotLevel >= kLevelAxis2D) ENDGRF();
  }
  PAGERA();
  return s;
}

struct ValueRange {
  float low, high;
};

// Lowest and highest of values and a further one; those that are no numbers take no part.
ValueRange rangeOf(std::span<const float> values, float also = NAN) {
  ValueRange range{also, also};
  for (const float v : values) {
    if (std::isnan(v)) continue;
    if (std::isnan(range.low)) range = {v, v};
    range = {std::min(range.low, v), std::max(range.high, v)};
  }
  return std::isnan(range.low) ? ValueRange{0.0F, 0.0F} : range;
}

// Scales an axis by QPLSCL, or by the data and a further value.
void scaleAxis(const PlotState* s, int axis, const float* values, int n, float also) {
  if (s->quickSetup.scaleGiven[axis]) return;
  const ValueRange range = rangeOf({values, static_cast<std::size_t>(n)}, also);
  const float ends[2] = {range.low, range.high};
  SETSCL(ends, 2, axis == 0 ? "X" : "Y");
}

void openAxes(const PlotState* s) {
  const float(&q)[2][4] = s->quickSetup.scale;
  GRAF(q[0][0], q[0][1], q[0][2], q[0][3], q[1][0], q[1][1], q[1][2], q[1][3]);
  TITLE();
}

// Scaled axes and a curve.
void plotCurve(const PlotState* s, const float* x, const float* y, int n, bool scatter) {
  INCMRK(scatter ? -1 : 0);
  if (scatter) {
    MARKER(kScatterMarker);
    HSYMBL(kScatterHeight);
  }
  scaleAxis(s, 0, x, n, NAN);
  scaleAxis(s, 1, y, n, NAN);
  openAxes(s);
  CURVE(x, y, n);
}

} // namespace

void QPLOT(const float* x, const float* y, int n) {
  const PlotState* s = beginQuickPlot("qplot", n);
  if (!s) return;
  plotCurve(s, x, y, n, false);
  SENDBF();
}

void QPLSCA(const float* x, const float* y, int n) {
  const PlotState* s = beginQuickPlot("qplsca", n);
  if (!s) return;
  plotCurve(s, x, y, n, true);
  SENDBF();
}

void QPLCRV(const float* x, const float* y, int n, const char* place) {
  PlotState* s = strictCheck(0, 3, "qplcrv");
  const int found = s ? matchKeyword(s, "FIRS+NEXT+LAST", 3, place) : 0;
  if (found == 0) return;
  if (found == kFirstCurve || s->level.plotLevel < kLevelAxis2D) {
    if (beginQuickPlot("qplcrv", n)) plotCurve(s, x, y, n, false);
  } else if (!checkRange(s, n, 1, -1)) {
    CURVE(x, y, n);
  }
  if (found == kLastCurve) SENDBF();
}

void QPLBAR(const float* y, int n) {
  PlotState* s = beginQuickPlot("qplbar", n);
  if (!s) return;
  const std::size_t size = static_cast<std::size_t>(n);
  const std::unique_ptr<float[]> memory(new (std::nothrow) float[3 * size]);
  if (!memory) return warnPlain(s, 53);
  float *places = memory.get(), *feet = places + size, *tops = feet + size;
  for (int i = 0; i < n; i++) {
    places[i] = static_cast<float>(i + 1);
    feet[i] = 0.0F;
    tops[i] = y[i];
  }
  const float ends[2] = {0.0F, static_cast<float>(n) + 1.0F};
  scaleAxis(s, 0, ends, 2, NAN);
  scaleAxis(s, 1, y, n, 0.0F);
  openAxes(s);
  BARS(places, feet, tops, n);
  SENDBF();
}

void QPLCON(const float* z, int n, int m, int levels) {
  constexpr int kLabelHeight = 25;
  PlotState* s = strictCheck(0, 3, "qplcon");
  if (!s || checkRange(s, n, 2, -1) || checkRange(s, m, 2, -1)) return;
  s = beginQuickPlot("qplcon", levels);
  if (!s) return;
  const std::size_t nx = static_cast<std::size_t>(n), ny = static_cast<std::size_t>(m);
  const std::unique_ptr<float[]> memory(new (std::nothrow) float[nx + ny]);
  if (!memory) return warnPlain(s, 53);
  float *x = memory.get(), *y = x + nx;
  for (int i = 0; i < n; i++) x[i] = static_cast<float>(i);
  for (int j = 0; j < m; j++) y[j] = static_cast<float>(j);
  LABELS("FLOAT", "CONTOUR");
  scaleAxis(s, 0, x, n, NAN);
  scaleAxis(s, 1, y, m, NAN);
  openAxes(s);
  const ValueRange range = rangeOf({z, nx * ny});
  const int height = s->text.textHeight;
  HEIGHT(kLabelHeight);
  for (int i = 0; i < levels && s->level.plotLevel >= kLevelAxis2D; i++) {
    // A single level lies in the middle.
    const float step = levels > 1 ? static_cast<float>(i) : 0.5F, steps = static_cast<float>(std::max(levels - 1, 1));
    CONTUR(x, n, y, m, z, step * (range.high - range.low) / steps + range.low);
  }
  HEIGHT(height);
  SENDBF();
}

void QPLCLR(const float* z, int n, int m) {
  PlotState* s = strictCheck(0, 3, "qplclr");
  if (!s || checkRange(s, n, 2, -1) || checkRange(s, m, 2, -1)) return;
  s = beginQuickPlot("qplclr", n);
  if (!s) return;
  const float endX[2] = {0.0F, static_cast<float>(n - 1)}, endY[2] = {0.0F, static_cast<float>(m - 1)};
  scaleAxis(s, 0, endX, 2, NAN);
  scaleAxis(s, 1, endY, 2, NAN);
  const ValueRange range = rangeOf({z, static_cast<std::size_t>(n) * static_cast<std::size_t>(m)});
  const float endZ[2] = {range.low, range.high};
  SETSCL(endZ, 2, "Z");
  const float(&q)[2][4] = s->quickSetup.scale;
  GRAF3(q[0][0], q[0][1], q[0][2], q[0][3], q[1][0], q[1][1], q[1][2], q[1][3], 0.0F, 0.0F, 0.0F, 0.0F);
  TITLE();
  const MatrixGroup kept = s->matrix;
  SURSZE(endX[0], endX[1], endY[0], endY[1]);
  CRVMAT(z, n, m, 1, 1);
  s->matrix = kept;
  SENDBF();
}

void QPLPIE(const float* x, int n) {
  if (!beginQuickPlot("qplpie", n)) return;
  PIEGRF("", 0, x, n);
  if (GETLEV() >= kLevelAxis2D) TITLE();
  SENDBF();
}

void QPLSCL(float a, float e, float first, float step, const char* axis) {
  PlotState* s = strictCheck(0, 3, "qplscl");
  const int found = s ? matchKeyword(s, "X   +Y   +RESE", 3, axis) : 0;
  if (found == 0) return;
  QuickSetup& q = s->quickSetup;
  if (found == 3) {
    q = QuickSetup{};
    return;
  }
  const float values[4] = {a, e, first, step};
  std::copy_n(values, 4, q.scale[found - 1]);
  q.scaleGiven[found - 1] = true;
}
