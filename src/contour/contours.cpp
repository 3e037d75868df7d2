// Contour lines: one level of a function on a grid, or along a line that is known.
#include "contour/contour_lines.h"
#include "contour/contour_trace.h"
#include "core/levels.h"
#include "core/messages.h"
#include "graph2d/matrix_size.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"
#include "text/text.h"

using namespace quilla;

namespace {

template <class Grid> void drawGridLevel(PlotState* s, const Grid& grid, float level) {
  drawLevel(s, level, [&](ContourPen& pen) {
    DrawnLine line{pen};
    return traceLevel(grid, level, line);
  });
}

// Both extents are at least 1.
bool isGrid(PlotState* s, int n, int m) { return !checkRange(s, n, 1, -1) && !checkRange(s, m, 1, -1); }

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
