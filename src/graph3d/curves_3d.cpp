// Lines, tubes and cells in a three-dimensional axis system.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/projection.h"
#include "core/stop_request.h"
#include "graph2d/color_scale.h"
#include "graph2d/symbols.h"
#include "graph3d/facet_call.h"
#include "graph3d/solids.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr float kCellsOfBox = 20.0F; // along an edge of the box, without SETRES3D

// A symbol at each of the points that lie in the box.
void drawSymbols(PlotState* s, const float* x, const float* y, const float* z, int n) {
  const long long step = s->curve.markerStep < 0 ? -static_cast<long long>(s->curve.markerStep) : s->curve.markerStep;
  for (long long i = 0; i < n && !stopRequested(); i += step) {
    const BoxPoint p = transformedBox(s, boxOfUser(s, x[i], y[i], z[i]));
    boxMove(s, boxOfUser(s, x[i], y[i], z[i]));
    if (s->boxPen.outside || !s->boxPen.down) continue;
    const PagePoint page = pageOfBox(s, p.x, p.y, p.z);
    drawSymbol(s, s->curve.markerKind, s->curve.markerHeight, page.x, page.y);
  }
}

// A tube from point to point (THKC3D).
void drawTubes(PlotState* s, const float* x, const float* y, const float* z, int n) {
  const FacetCall call = beginSurface(s);
  if (!call.s) return;
  const float r = s->depth.tubeRadius;
  for (int i = 1; i < n && !stopRequested(); i++)
    drawTube(s, boxOfUser(s, x[i - 1], y[i - 1], z[i - 1]), boxOfUser(s, x[i], y[i], z[i]), r, r, s->depth.tubeSides,
             1);
  endSurface(call);
}

} // namespace

void CURV3D(const float* x, const float* y, const float* z, int n) {
  PlotState* s = boxCheck("curv3d");
  if (!s) return;
  if (s->curve.curveMode != kCurveLine && s->curve.markerStep >= 0) return warnPlain(s, 14);
  if (n < 1 || (n == 1 && s->curve.markerStep >= 0)) return warnPlain(s, 2);
  if (s->curve.markerStep != 0) drawSymbols(s, x, y, z, n);
  if (s->curve.markerStep >= 0 && s->depth.tubeRadius > 0.0F) {
    drawTubes(s, x, y, z, n);
  } else if (s->curve.markerStep >= 0) {
    resetDash(s);
    boxMove(s, boxOfUser(s, x[0], y[0], z[0]));
    for (int i = 1; i < n && !stopRequested(); i++) boxDraw(s, boxOfUser(s, x[i], y[i], z[i]));
  }
  flushPath(s);
}

void STRT3D(float x, float y, float z) {
  if (PlotState* s = boxCheck("strt3d")) boxMove(s, boxOfUser(s, x, y, z));
}

void CONN3D(float x, float y, float z) {
  if (PlotState* s = boxCheck("conn3d")) boxDraw(s, boxOfUser(s, x, y, z));
}

void CRVT3D(const float* x, const float* y, const float* z, const float* radius, const int* colors, int n) {
  PlotState* s = boxCheck("crvt3d");
  if (!s || checkRange(s, n, 2, -1)) return;
  const FacetCall call = beginSurface(s);
  if (!call.s) return;
  const SurfaceGroup kept = s->surface;
  for (int i = 1; i < n && !stopRequested(); i++) {
    s->surface.upperColor = colors[i] >= 0 ? colors[i] : call.color;
    drawTube(s, boxOfUser(s, x[i - 1], y[i - 1], z[i - 1]), boxOfUser(s, x[i], y[i], z[i]), radius[i - 1], radius[i],
             s->depth.tubeSides, 1);
  }
  s->surface = kept;
  endSurface(call);
}

void CURV4D(const float* x, const float* y, const float* z, const float* w, int n) {
  PlotState* s = boxCheck("curv4d");
  if (!s || checkRange(s, n, 1, -1)) return;
  float low = w[0], high = w[0];
  for (int i = 1; i < n; i++) {
    low = std::fmin(low, w[i]);
    high = std::fmax(high, w[i]);
  }
  const FacetCall call = beginSurface(s);
  if (!call.s) return;
  const SurfaceGroup kept = s->surface;
  const ColorScaleState scale = s->colorScale;
  if (s->depth.scaleGiven) {
    scaleOverRange(s, s->depth.scaleStart, s->depth.scaleEnd);
  } else {
    scaleOverRange(s, low, high);
  }
  float edge[kAxisCount];
  for (int axis = 0; axis < kAxisCount; axis++) {
    const float size = s->depth.cellSize[axis];
    edge[axis] = size > 0.0F ? boxLength(s, axis, size) : s->viewState.box[axis] / kCellsOfBox;
  }
  for (int i = 0; i < n && !stopRequested(); i++) {
    s->surface.upperColor = colorOfValue(s, w[i]);
    if (s->surface.upperColor == kNoColor) continue;
    drawBlock(s, boxOfUser(s, x[i], y[i], z[i]), edge[kAxisX], edge[kAxisY], edge[kAxisZ]);
  }
  s->surface = kept;
  s->colorScale = scale;
  endSurface(call);
}

void SETRES3D(float x, float y, float z) {
  PlotState* s = setterCheck("setres3d");
  if (!s) return;
  if (!(x > 0.0F && y > 0.0F && z > 0.0F)) return warnPlain(s, 2);
  s->depth.cellSize[kAxisX] = x;
  s->depth.cellSize[kAxisY] = y;
  s->depth.cellSize[kAxisZ] = z;
}

void AUTRES3D(int nx, int ny, int nz) {
  constexpr int kMostCells = 10000;
  PlotState* s = strictCheck(1, 3, "autres3d");
  if (!s) return;
  const int counts[] = {nx, ny, nz};
  for (int axis = 0; axis < kAxisCount; axis++) {
    if (checkRange(s, counts[axis], 1, kMostCells)) return;
  }
  const ViewState& v = s->viewState;
  for (int axis = 0; axis < kAxisCount; axis++)
    s->depth.cellSize[axis] = std::fabs(v.end[axis] - v.start[axis]) / static_cast<float>(counts[axis]);
}

void THKC3D(float radius) {
  PlotState* s = setterCheck("thkc3d");
  if (!s) return;
  if (!(radius >= 0.0F)) return warnPlain(s, 2);
  s->depth.tubeRadius = radius;
}

void MSHCRV(int segments) {
  PlotState* s = setterCheck("mshcrv");
  if (s && !checkRange(s, segments, 3, 1000)) s->depth.tubeSides = segments;
}
