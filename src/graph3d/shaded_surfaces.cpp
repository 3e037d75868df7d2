// Shaded surfaces: functions on a grid, parametric ones, and triangulations.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/messages.h"
#include "core/stop_request.h"
#include "graph2d/color_scale.h"
#include "graph3d/facet_call.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kNoMemory = 53;

// Colours of a surface: by the scale of Z, those of SURCLR, or the current one.
struct SurfaceColors {
  bool byScale;
  int upper, lower;
};

SurfaceColors surfaceColors(PlotState* s) {
  const bool byScale = s->shadeModes.colorByScale;
  if (byScale) {
    const ViewState& v = s->viewState;
    const DepthGroup& d = s->depth;
    AxisScale scale{v.start[kAxisZ], v.end[kAxisZ], 0.0F, 0.0F};
    if (d.scaleGiven) scale = {d.scaleStart, d.scaleEnd, 0.0F, 0.0F};
    storeColorScale(s, scale);
  }
  const SurfaceGroup& g = s->surface;
  const int current = s->color.currentColor;
  return {byScale, g.upperColor >= 0 ? g.upperColor : current, g.lowerColor >= 0 ? g.lowerColor : current};
}

// Colours of the corners of a facet from their values: one for a flat facet. False if it shall not be seen.
bool colorFacet(const PlotState* s, const FacetStyle& style, const SurfaceColors& colors, const float* values,
                RawFacet& f) {
  f.backColor = colors.byScale ? kMixedColors : colors.lower;
  if (!colors.byScale) {
    std::fill_n(f.colors, f.n, colors.upper);
    return true;
  }
  double sum = 0.0;
  for (int i = 0; i < f.n; i++) {
    sum += static_cast<double>(values[i]);
    f.colors[i] = colorOfValue(s, values[i]);
    if (f.colors[i] == kNoColor) return false;
  }
  if (!style.smooth) std::fill_n(f.colors, f.n, colorOfValue(s, static_cast<float>(sum / f.n)));
  return f.colors[0] != kNoColor;
}

// A surface over nodes (i, j) of a grid, whose neighbours are joined. Parametric surfaces have their upper side where
// the directions of both parameters turn anticlockwise, functions of x and y on the side of higher z.
template <class At, class Value> struct GridSurface {
  int n, m;
  At at;       // box coordinate of a node
  Value value; // that its colour shows
  bool upward;

  BoxPoint normal(int i, int j) const {
    const BoxPoint alongX = difference(at(std::min(i + 1, n - 1), j), at(std::max(i - 1, 0), j));
    const BoxPoint alongY = difference(at(i, std::min(j + 1, m - 1)), at(i, std::max(j - 1, 0)));
    const BoxPoint v = unitVector(crossProduct(alongX, alongY));
    return turned(v) ? BoxPoint{-v.x, -v.y, -v.z} : v;
  }
  bool turned(const BoxPoint& v) const { return upward && v.z < 0.0F; }

  // Corners run anticlockwise seen from the upper side.
  RawFacet cell(int i, int j, bool smooth, float (&values)[kFacetCorners]) const {
    constexpr int kStepX[] = {0, 1, 1, 0}, kStepY[] = {0, 0, 1, 1};
    RawFacet f{};
    f.n = kFacetCorners;
    BoxPoint flat{};
    const BoxPoint around[] = {at(i, j), at(i + 1, j), at(i + 1, j + 1), at(i, j + 1)};
    const bool reversed = facetNormal(around, kFacetCorners, flat) && turned(flat);
    for (int k = 0; k < kFacetCorners; k++) {
      const int c = reversed ? kFacetCorners - 1 - k : k;
      const int ci = i + kStepX[c], cj = j + kStepY[c];
      f.corners[k] = around[c];
      if (smooth) f.normals[k] = normal(ci, cj);
      values[k] = value(ci, cj);
    }
    return f;
  }
};

template <class At, class Value> void drawGrid(PlotState* s, const GridSurface<At, Value>& surface) {
  const FacetCall call = beginSurface(s);
  if (!call.s) return;
  const SurfaceColors colors = surfaceColors(s);
  const bool smooth = call.style.smooth && call.style.lit;
  for (int i = 0; i + 1 < surface.n && !stopRequested(); i++) {
    for (int j = 0; j + 1 < surface.m; j++) {
      float values[kFacetCorners];
      RawFacet f = surface.cell(i, j, smooth, values);
      if (colorFacet(s, call.style, colors, values, f)) drawFacet(s, call.style, f);
    }
  }
  endSurface(call);
}

void drawFunction(const char* routine, const float* x, int n, const float* y, int m, const float* z, const float* w) {
  PlotState* s = boxCheck(routine);
  if (!s || checkRange(s, n, 2, -1) || checkRange(s, m, 2, -1)) return;
  auto index = [m](int i, int j) {
    return static_cast<std::size_t>(i) * static_cast<std::size_t>(m) + static_cast<std::size_t>(j);
  };
  auto at = [&](int i, int j) { return transformedBox(s, boxOfUser(s, x[i], y[j], z[index(i, j)])); };
  auto value = [&](int i, int j) { return w[index(i, j)]; };
  drawGrid(s, GridSurface<decltype(at), decltype(value)>{n, m, at, value, true});
}

} // namespace

void SURSHD(const float* x, int n, const float* y, int m, const float* z) { drawFunction("surshd", x, n, y, m, z, z); }

void SURSHC(const float* x, int n, const float* y, int m, const float* z, const float* w) {
  drawFunction("surshc", x, n, y, m, z, w);
}

namespace {

constexpr double kMostNodes = 4.0e7; // of a parametric surface

// Nodes from a to b at a step, both included as far as the step meets the end. 0: no range.
int nodesOf(float a, float b, float step) {
  constexpr double kRounding = 1e-4;
  const double intervals = (static_cast<double>(b) - static_cast<double>(a)) / static_cast<double>(step);
  if (!(step > 0.0F) || !(intervals >= 0.0) || !(intervals < kMostNodes)) return 0;
  return static_cast<int>(intervals + kRounding) + 1;
}

// A node of a parametric surface: its place, and the value of z.
struct Node {
  BoxPoint at;
  float z;
};

} // namespace

void SURFCP(float (*function)(float a, float b, int coordinate), float a1, float a2, float astep, float b1, float b2,
            float bstep) {
  PlotState* s = boxCheck("surfcp");
  if (!s || !function) return;
  const int n = nodesOf(a1, a2, astep), m = nodesOf(b1, b2, bstep);
  if (n < 2 || m < 2 || static_cast<double>(n) * m > kMostNodes) return warnPlain(s, 2);
  const std::size_t count = static_cast<std::size_t>(n) * static_cast<std::size_t>(m);
  Node* nodes = static_cast<Node*>(std::malloc(count * sizeof(Node)));
  if (!nodes) return warnPlain(s, kNoMemory);
  auto node = [&](int i, int j) -> Node& {
    return nodes[static_cast<std::size_t>(i) * static_cast<std::size_t>(m) + static_cast<std::size_t>(j)];
  };
  for (int i = 0; i < n; i++) {
    for (int j = 0; j < m; j++) {
      const float a = a1 + static_cast<float>(i) * astep, b = b1 + static_cast<float>(j) * bstep;
      const float x = function(a, b, 1), y = function(a, b, 2), z = function(a, b, 3);
      node(i, j) = {transformedBox(s, boxOfUser(s, x, y, z)), z};
    }
  }
  auto at = [&](int i, int j) { return node(i, j).at; };
  auto value = [&](int i, int j) { return node(i, j).z; };
  drawGrid(s, GridSurface<decltype(at), decltype(value)>{n, m, at, value, false});
  std::free(nodes);
}

namespace {

// Sums the normals of all triangles at their corners.
bool cornerNormals(const PlotState* s, const float* x, const float* y, const float* z, const int* const (&corners)[3],
                   int n, int ntri, BoxPoint*& normals) {
  normals = static_cast<BoxPoint*>(std::calloc(static_cast<std::size_t>(n), sizeof(BoxPoint)));
  if (!normals) return false;
  for (int k = 0; k < ntri; k++) {
    BoxPoint p[3], normal{};
    for (int c = 0; c < 3; c++) {
      const int i = corners[c][k] - 1;
      p[c] = transformedBox(s, boxOfUser(s, x[i], y[i], z[i]));
    }
    if (!facetNormal(p, 3, normal)) continue;
    const float sign = normal.z < 0.0F ? -1.0F : 1.0F;
    for (const int* corner : corners) {
      BoxPoint& sum = normals[corner[k] - 1];
      sum = {sum.x + sign * normal.x, sum.y + sign * normal.y, sum.z + sign * normal.z};
    }
  }
  return true;
}

} // namespace

void SURTRI(const float* x, const float* y, const float* z, int n, const int* i1, const int* i2, const int* i3,
            int ntri) {
  constexpr int kCorners = 3;
  PlotState* s = boxCheck("surtri");
  if (!s || checkRange(s, n, kCorners, -1) || checkRange(s, ntri, 1, -1)) return;
  const int* const corners[kCorners] = {i1, i2, i3};
  for (int k = 0; k < ntri; k++)
    for (const int* corner : corners)
      if (checkRange(s, corner[k], 1, n)) return;
  BoxPoint* normals = nullptr;
  if (!cornerNormals(s, x, y, z, corners, n, ntri, normals)) return warnPlain(s, kNoMemory);
  const FacetCall call = beginSurface(s);
  const SurfaceColors colors = surfaceColors(s);
  for (int k = 0; call.s && k < ntri && !stopRequested(); k++) {
    RawFacet f{};
    f.n = kCorners;
    float values[kCorners];
    BoxPoint p[kCorners], flat{};
    for (int c = 0; c < kCorners; c++) {
      const int i = corners[c][k] - 1;
      p[c] = transformedBox(s, boxOfUser(s, x[i], y[i], z[i]));
    }
    const bool reversed = facetNormal(p, kCorners, flat) && flat.z < 0.0F;
    for (int c = 0; c < kCorners; c++) {
      const int from = reversed ? kCorners - 1 - c : c, i = corners[from][k] - 1;
      f.corners[c] = p[from];
      f.normals[c] = unitVector(normals[i]);
      values[c] = z[i];
    }
    if (colorFacet(s, call.style, colors, values, f)) drawFacet(s, call.style, f);
  }
  if (call.s) endSurface(call);
  std::free(normals);
}
