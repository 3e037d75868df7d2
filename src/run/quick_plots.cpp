// Public routines that draw a whole graph from arrays: they open a plot if there is none, and leave it open.
#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <new>

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

// Scales an axis by QPLSCL, or by the data and a further value.
void scaleAxis(const PlotState* s, int axis, const float* values, int n, float also) {
  if (axis < 2 && s->quickSetup.scaleGiven[axis]) return;
  float range[2] = {also, also};
  for (int i = 0; i < n; i++) {
    if (std::isnan(values[i])) continue;
    if (std::isnan(range[0])) range[0] = range[1] = values[i];
    range[0] = std::min(range[0], values[i]);
    range[1] = std::max(range[1], values[i]);
  }
  if (std::isnan(range[0])) range[0] = range[1] = 0.0F;
  constexpr const char* kLetters[] = {"X", "Y", "Z"};
  SETSCL(range, 2, kLetters[axis]);
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

void QPLSUR(const float* matrix, int n, int m) {
  PlotState* s = strictCheck(0, 3, "qplsur");
  if (!s || checkRange(s, n, 1, -1) || checkRange(s, m, 1, std::numeric_limits<int>::max() / n)) return;
  s = beginQuickPlot("qplsur", n);
  if (!s) return;
  const std::size_t nx = static_cast<std::size_t>(n), ny = static_cast<std::size_t>(m);
  const std::unique_ptr<float[]> memory(new (std::nothrow) float[nx + ny]);
  if (!memory) return warnPlain(s, 53);
  float *x = memory.get(), *y = x + nx;
  for (int i = 0; i < n; i++) x[i] = static_cast<float>(i);
  for (int j = 0; j < m; j++) y[j] = static_cast<float>(j);
  scaleAxis(s, 0, x, n, NAN);
  scaleAxis(s, 1, y, m, NAN);
  scaleAxis(s, 2, matrix, n * m, NAN);
  const float(&q)[2][4] = s->quickSetup.scale;
  GRAF3D(q[0][0], q[0][1], q[0][2], q[0][3], q[1][0], q[1][1], q[1][2], q[1][3], 0.0F, 1.0F, 0.0F, 1.0F);
  TITLE();
  SURFCE(x, n, y, m, matrix);
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
