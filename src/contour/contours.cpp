// Contour lines: one level of a function on a grid, or along a line that is known.
#include "contour/contour_pen.h"
#include "contour/contour_trace.h"
#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "graph2d/curve_path.h"
#include "graph2d/legend.h"
#include "graph2d/matrix_size.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"
#include "text/text.h"

using namespace quilla;

namespace {

// Lines of a walk go to the pen.
struct DrawnLine {
  ContourPen& pen;
  static constexpr bool snaps = true;
  void start() const { startContourLine(pen); }
  void point(float x, float y) const { contourPoint(pen, x, y); }
};

// Draws a level as often as THKCRV tells, cut at the axis system. Labels are written the first time; each time the gaps
// for them are left. trace: gives the points of all lines to the pen; false if there was not enough memory.
template <class Trace> void drawLevel(PlotState* s, float level, Trace trace) {
  const int markers = s->curve.markerStep, angle = s->text.textAngle;
  const bool internal = s->internalCoordinates;
  s->curve.markerStep = 0;
  s->internalCoordinates = true;
  recordContour(s);
  axisClipOn(s);
  const int passes = curvePasses(s);
  bool enough = true;
  for (int k = 1; k <= passes && enough && !stopRequested(); k++) {
    beginCurvePass(s, k);
    ContourPen pen;
    openContourPen(s, pen, level, k == 1);
    enough = trace(pen);
    closeContourPen(pen);
  }
  endCurvePasses(s);
  flushPath(s);
  axisClipOff(s);
  setTextAngle(s, angle);
  s->internalCoordinates = internal;
  s->curve.markerStep = markers;
  if (!enough) warnPlain(s, 53);
}

template <class Grid> void drawGridLevel(PlotState* s, const Grid& grid, float level) {
  drawLevel(s, level, [&](ContourPen& pen) {
    DrawnLine line{pen};
    return traceLevel(grid, level, line);
  });
}

// Both extents are at least 1.
bool isGrid(PlotState* s, int n, int m) { return !checkRange(s, n, 1, -1) && !checkRange(s, m, 1, -1); }

// Points of the lines go to arrays, one line behind the other, as many as there is room for.
struct ListedLine {
  PlotState* s;
  float *x, *y;
  int points;
  int* counts;
  int lines;
  int* lineCount;
  long long total = 0;

  static constexpr bool snaps = false;

  void start() {
    if (*lineCount < lines) {
      counts[(*lineCount)++] = 0;
    } else {
      warnWithText(s, 117, "Overflow - Too many contour lines");
    }
  }
  void point(float px, float py) {
    if (++total <= points && *lineCount > 0) {
      x[total - 1] = px;
      y[total - 1] = py;
      counts[*lineCount - 1]++;
    } else if (total == points + 1LL) {
      warnWithText(s, 116, "Overflow - Too many contour points");
    }
  }
};

} // namespace

void CONTUR(const float* x, int n, const float* y, int m, const float* z, float level) {
  PlotState* s = strictCheck(2, 3, "contur");
  if (!s || !isGrid(s, n, m)) return;
  if (!logarithmsExist(s, kAxisX, {x, static_cast<std::size_t>(n)})) return;
  if (!logarithmsExist(s, kAxisY, {y, static_cast<std::size_t>(m)})) return;
  drawGridLevel(s, RectangularGrid{x, y, z, n, m}, level);
}

void CONTUR2(const float* x, const float* y, const float* z, int n, int m, float level) {
  PlotState* s = strictCheck(2, 3, "contur");
  if (!s || !isGrid(s, n, m)) return;
  const std::size_t size = static_cast<std::size_t>(n) * static_cast<std::size_t>(m);
  if (!logarithmsExist(s, kAxisX, {x, size}) || !logarithmsExist(s, kAxisY, {y, size})) return;
  drawGridLevel(s, CurvilinearGrid{x, y, z, n, m}, level);
}

void CONMAT(const float* z, int n, int m, float level) {
  PlotState* s = strictCheck(2, 3, "conmat");
  if (!s || checkRange(s, n, 2, -1) || checkRange(s, m, 2, -1)) return;
  const std::size_t size = static_cast<std::size_t>(n) + static_cast<std::size_t>(m);
  const std::unique_ptr<float[]> memory(new (std::nothrow) float[size]);
  if (!memory) return warnPlain(s, 53);
  float *x = memory.get(), *y = x + n;
  gridCoordinates(s, kAxisX, x, n);
  gridCoordinates(s, kAxisY, y, m);
  CONTUR(x, n, y, m, z, level);
}

void CONCRV(const float* x, const float* y, int n, float level) {
  PlotState* s = strictCheck(2, 3, "concrv");
  if (!s || checkRange(s, n, 1, -1)) return;
  const std::size_t size = static_cast<std::size_t>(n);
  if (!logarithmsExist(s, kAxisX, {x, size}) || !logarithmsExist(s, kAxisY, {y, size})) return;
  drawLevel(s, level, [&](ContourPen& pen) {
    for (int i = 0; i < n && !stopRequested(); i++) contourPoint(pen, x[i], y[i]);
    return true;
  });
  setTextAngle(s, 0);
}

void CONPTS(const float* x, int n, const float* y, int m, const float* z, float level, float* xpts, float* ypts,
            int maxpts, int* nray, int maxcrv, int* ncurvs) {
  PlotState* s = strictCheck(0, 3, "conpts");
  if (!s) return;
  *ncurvs = 0;
  if (!isGrid(s, n, m)) return;
  ListedLine line{s, xpts, ypts, maxpts, nray, maxcrv, ncurvs};
  if (!traceLevel(RectangularGrid{x, y, z, n, m}, level, line)) warnPlain(s, 53);
}
