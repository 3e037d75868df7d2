#include "graph2d/color_graph.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph2d/area.h"
#include "graph2d/axis_system.h"
#include "graph2d/color_bar.h"
#include "graph2d/color_scale.h"
#include "graph2d/curve_path.h"
#include "graph2d/matrix_size.h"
#include "graph2d/scaling.h"
#include "graph2d/symbols.h"
#include "quilla/quilla.h"

namespace quilla {

PlotState* colorGraph(const char* routine) {
  PlotState* s = strictCheck(3, 3, routine);
  if (!s || s->axis.axisSystemKind != kSystemBox) return s;
  warnPlain(s, 35);
  return nullptr;
}

Painter beginPainting(PlotState* s) {
  const Painter painter{s, s->color.currentColor, s->internalCoordinates};
  s->internalCoordinates = true;
  axisClipOn(s);
  return painter;
}

void endPainting(const Painter& painter) {
  PlotState* s = painter.s;
  flushPath(s);
  axisClipOff(s);
  useColor(s, painter.color);
  s->internalCoordinates = painter.internal;
}

void useColor(PlotState* s, int color) {
  if (s->color.currentColor != color) setColor(s, color);
}

} // namespace quilla

using namespace quilla;

namespace {

// Size of rectangles that fill a length with n points on its ends and between them, or with -n of them side by side.
int fillingSize(const PlotState* s, int length, int n) {
  constexpr int kHighestScreen = 100; // devices above it get an overlap, so that no gap shows
  const int gaps = n > 0 ? n - 1 : -n, size = (length - 1 + gaps - 1) / gaps;
  return std::max(size, 1) + (s->deviceSetup.deviceNumber > kHighestScreen ? 1 : 0);
}

void takeResolution(PlotState* s, int nx, int ny) {
  s->resolution.cellWidth = fillingSize(s, s->axis.axisLength[kAxisX], nx);
  s->resolution.cellHeight = fillingSize(s, s->axis.axisLength[kAxisY], ny);
}

bool isPixelDevice(const PlotState* s) {
  const int device = s->deviceSetup.deviceNumber;
  return device < 201 || (device >= 601 && device <= 700);
}

// Paints a value at a point. One outside the axes is left out and told.
void paintPoint(PlotState* s, float x, float y, float z) {
  const int color = colorOfValue(s, z);
  if (color == kNoColor) return;
  if (isOutside(s, x, y)) {
    if (isDataChecked(s)) reportOutOfScale(s, x, y);
    return;
  }
  const PlotPoint p = plotPoint(s, x, y);
  if (!std::isfinite(p.x) || !std::isfinite(p.y)) return;
  const int nx = roundHalfUp(p.x), ny = roundHalfUp(p.y);
  if (s->shadeModes.paintMode == kPaintSymbols) {
    useColor(s, color);
    return drawSymbol(s, s->curve.markerKind, s->curve.markerHeight, static_cast<float>(nx), static_cast<float>(ny));
  }
  const bool pixel = s->shadeModes.paintMode == kPaintPixels && isPixelDevice(s);
  const int w = pixel ? 1 : std::max(s->resolution.cellWidth, 1), h = pixel ? 1 : std::max(s->resolution.cellHeight, 1);
  const int left = nx - w / 2, top = ny - h / 2;
  fillCut(s, static_cast<float>(left), static_cast<float>(top), static_cast<float>(left + w - 1),
          static_cast<float>(top + h - 1), color);
}

// n points; a step of 0 keeps the one x or y that all share.
void paintPoints(const char* routine, const float* x, int stepX, const float* y, int stepY, const float* z, int n) {
  PlotState* s = colorGraph(routine);
  if (!s || checkRange(s, n, 1, -1)) return;
  const Painter painter = beginPainting(s);
  for (std::ptrdiff_t i = 0; i < n && !stopRequested(); i++) paintPoint(s, x[i * stepX], y[i * stepY], z[i]);
  endPainting(painter);
}

// Plot coordinates of the edges of the parts that the steps of a grid are cut into.
bool partEdges(PlotState* s, int axis, int n, int parts, std::unique_ptr<float[]>& edges) {
  const std::size_t size = static_cast<std::size_t>(n);
  const std::unique_ptr<float[]> grid(new (std::nothrow) float[size]);
  edges.reset(new (std::nothrow) float[(size - 1) * static_cast<std::size_t>(parts) + 1]);
  if (!grid || !edges) {
    warnPlain(s, 53);
    return false;
  }
  gridCoordinates(s, axis, grid.get(), n);
  std::size_t at = 0;
  for (std::size_t i = 0; i < size; i++) {
    for (int k = 0; k < (i + 1 < size ? parts : 1); k++) {
      const float part = static_cast<float>(k) / static_cast<float>(parts);
      const float v = k == 0 ? grid[i] : grid[i] + part * (grid[i + 1] - grid[i]);
      edges[at++] = std::floor((axis == kAxisX ? plotX(s, v) : plotY(s, v)) + 0.5F);
    }
  }
  return true;
}

// A matrix with the parts of its cells.
struct PaintedMatrix {
  const float* z;
  int n, m, partsX, partsY;
};

// Colour of the middle of part (p, q) of all parts.
int partColor(const PlotState* s, const PaintedMatrix& f, int p, int q) {
  const double u = (p % f.partsX + 0.5) / f.partsX, v = (q % f.partsY + 0.5) / f.partsY;
  const float* corner = f.z + static_cast<std::ptrdiff_t>(p / f.partsX) * f.m + q / f.partsY;
  const double z00 = static_cast<double>(corner[0]), z01 = static_cast<double>(corner[1]);
  const double z10 = static_cast<double>(corner[f.m]), z11 = static_cast<double>(corner[f.m + 1]);
  const double z = (1.0 - u) * (1.0 - v) * z00 + u * (1.0 - v) * z10 + (1.0 - u) * v * z01 + u * v * z11;
  return colorOfValue(s, static_cast<float>(z));
}

// Parts of one colour along a column become one rectangle.
void paintMatrix(PlotState* s, const PaintedMatrix& f, const float* edgesX, const float* edgesY) {
  const int columns = (f.n - 1) * f.partsX, rows = (f.m - 1) * f.partsY;
  for (int p = 0; p < columns && !stopRequested(); p++) {
    int color = partColor(s, f, p, 0);
    for (int first = 0, q = 1; q <= rows; q++) {
      const int next = q < rows ? partColor(s, f, p, q) : kNoColor;
      if (q < rows && next == color) continue;
      if (color != kNoColor) fillCut(s, edgesX[p], edgesY[first], edgesX[p + 1], edgesY[q], color);
      first = q;
      color = next;
    }
  }
}

} // namespace

void GRAF3(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp, float za, float ze,
           float zor, float zstp) {
  PlotState* s = strictCheck(1, 1, "graf3");
  if (!s) return;
  const ResolutionGroup& r = s->resolution;
  if (r.autoResolution == kResolutionOfPoints) takeResolution(s, r.autoCountX, r.autoCountY);
  AxisScale z{za, ze, zor, zstp};
  const int length = s->axis.axisLength[kAxisZ];
  s->axis.axisLength[kAxisZ] = colorBarLength(s);
  takeAutomaticScale(s, kAxisZ, z);
  const bool fine = checkScale(s, kAxisZ, z) == 0;
  s->axis.axisLength[kAxisZ] = length;
  if (!fine) return;
  storeScale(s, kAxisZ, z);
  storeColorScale(s, z);
  s->colorScale.barOpen = true;
  if (!openRectangularSystem(s, {xa, xe, xor_, xstp}, {ya, ye, yor, ystp})) {
    s->colorScale.barOpen = false;
    return;
  }
  if (!s->colorBar.barHidden && !s->axis.noAxesDrawn) drawColorBar(s, placedColorBar(s));
  s->level.plotLevel = kLevelAxis3D;
}

void CURVE3(const float* x, const float* y, const float* z, int n) { paintPoints("curve3", x, 1, y, 1, z, n); }
void CURVX3(const float* x, float y, const float* z, int n) { paintPoints("curvx3", x, 1, &y, 0, z, n); }
void CURVY3(float x, const float* y, const float* z, int n) { paintPoints("curvy3", &x, 0, y, 1, z, n); }

void CRVMAT(const float* z, int n, int m, int ixpts, int iypts) {
  PlotState* s = colorGraph("crvmat");
  if (!s || checkRange(s, n, 2, -1) || checkRange(s, m, 2, -1)) return;
  if (checkRange(s, ixpts, 1, -1) || checkRange(s, iypts, 1, -1)) return;
  // Parts below a plot unit cannot be seen.
  const PaintedMatrix field{z, n, m, std::min(ixpts, s->axis.axisLength[kAxisX]),
                            std::min(iypts, s->axis.axisLength[kAxisY])};
  if (s->resolution.autoResolution == kResolutionOfMatrix) takeResolution(s, n, m);
  std::unique_ptr<float[]> edgesX, edgesY;
  if (!partEdges(s, kAxisX, n, field.partsX, edgesX) || !partEdges(s, kAxisY, m, field.partsY, edgesY)) return;
  const Painter painter = beginPainting(s);
  paintMatrix(s, field, edgesX.get(), edgesY.get());
  endPainting(painter);
}

void COLRAY(const float* z, int* colors, int n) {
  const PlotState* s = colorGraph("colray");
  for (int i = 0; s && i < n; i++) colors[i] = colorOfValue(s, z[i]);
}

int NZPOSN(float z) {
  const PlotState* s = colorGraph("nzposn");
  return s ? colorOfValue(s, z) : 0;
}
