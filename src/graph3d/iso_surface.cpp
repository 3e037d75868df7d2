// Surfaces on which a function of three variables has one value. Each cell of the grid is cut into six tetrahedra; in
// each of them the surface is a triangle or a quadrangle (A. Doi, A. Koide, 1991).
#include <algorithm>
#include <cmath>
#include <utility>

#include "core/messages.h"
#include "core/stop_request.h"
#include "graph3d/facet_call.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kCellCorners = 8, kTetrahedra = 6, kTetrahedronCorners = 4;
// Corner k of a cell has the bits of k as its steps along x, y and z. All tetrahedra share the diagonal from 0 to 7.
constexpr int kTetrahedron[kTetrahedra][kTetrahedronCorners] = {{0, 1, 3, 7}, {0, 3, 2, 7}, {0, 2, 6, 7},
                                                                {0, 6, 4, 7}, {0, 4, 5, 7}, {0, 5, 1, 7}};

// The grid, with the index of z fastest.
struct Volume {
  const PlotState* s;
  const float *x, *y, *z, *w;
  int n, m, l;

  float value(int i, int j, int k) const {
    return w[(static_cast<std::size_t>(i) * static_cast<std::size_t>(m) + static_cast<std::size_t>(j)) *
                 static_cast<std::size_t>(l) +
             static_cast<std::size_t>(k)];
  }
  BoxPoint place(int i, int j, int k) const { return transformedBox(s, boxOfUser(s, x[i], y[j], z[k])); }
};

// A node: where it lies, its value, and how the value grows there.
struct Node {
  BoxPoint at, growth;
  float value;
};

// How a value grows along one axis, as a vector of the box.
BoxPoint growthAlong(const BoxPoint& from, const BoxPoint& to, float low, float high) {
  const BoxPoint way = difference(to, from);
  const float square = dotProduct(way, way), f = square > kTiny ? (high - low) / square : 0.0F;
  return {way.x * f, way.y * f, way.z * f};
}

Node nodeOf(const Volume& v, int i, int j, int k) {
  const int i0 = std::max(i - 1, 0), i1 = std::min(i + 1, v.n - 1), j0 = std::max(j - 1, 0);
  const int j1 = std::min(j + 1, v.m - 1), k0 = std::max(k - 1, 0), k1 = std::min(k + 1, v.l - 1);
  const BoxPoint a = growthAlong(v.place(i0, j, k), v.place(i1, j, k), v.value(i0, j, k), v.value(i1, j, k));
  const BoxPoint b = growthAlong(v.place(i, j0, k), v.place(i, j1, k), v.value(i, j0, k), v.value(i, j1, k));
  const BoxPoint c = growthAlong(v.place(i, j, k0), v.place(i, j, k1), v.value(i, j, k0), v.value(i, j, k1));
  return {v.place(i, j, k), {a.x + b.x + c.x, a.y + b.y + c.y, a.z + b.z + c.z}, v.value(i, j, k)};
}

// The point of an edge at the level. The upper side of the surface looks to smaller values.
void takeCrossing(const Node& a, const Node& b, float level, RawFacet& f) {
  const float t = (level - a.value) / (b.value - a.value);
  auto mix = [t](const BoxPoint& p, const BoxPoint& q) {
    return BoxPoint{p.x + t * (q.x - p.x), p.y + t * (q.y - p.y), p.z + t * (q.z - p.z)};
  };
  const BoxPoint growth = unitVector(mix(a.growth, b.growth));
  f.corners[f.n] = mix(a.at, b.at);
  f.normals[f.n++] = {-growth.x, -growth.y, -growth.z};
}

// Corners run anticlockwise seen from the upper side.
void orient(RawFacet& f) {
  BoxPoint normal{};
  if (!facetNormal(f.corners, f.n, normal) || dotProduct(normal, f.normals[0]) >= 0.0F) return;
  std::reverse(f.corners, f.corners + f.n);
  std::reverse(f.normals, f.normals + f.n);
}

// The part of the surface in a tetrahedron; no corners if there is none.
void cutTetrahedron(const Node (&cell)[kCellCorners], const int (&which)[kTetrahedronCorners], float level,
                    RawFacet& f) {
  const Node *high[kTetrahedronCorners], *low[kTetrahedronCorners];
  int above = 0, below = 0;
  for (int corner : which) {
    const Node& node = cell[corner];
    (node.value >= level ? high[above++] : low[below++]) = &node;
  }
  f.n = 0;
  if (above == 2) {
    takeCrossing(*high[0], *low[0], level, f);
    takeCrossing(*high[0], *low[1], level, f);
    takeCrossing(*high[1], *low[1], level, f);
    takeCrossing(*high[1], *low[0], level, f);
  } else {
    for (int i = 0; i < above && below > 0; i++)
      for (int k = 0; k < below; k++) takeCrossing(*high[i], *low[k], level, f);
  }
  orient(f);
}

// True if the cell has values on both sides of the level; a cell with NaN has no surface.
bool isCrossed(const Volume& v, int i, int j, int k, float level) {
  bool above = false, below = false;
  for (int c = 0; c < kCellCorners; c++) {
    const float value = v.value(i + (c & 1), j + (c >> 1 & 1), k + (c >> 2 & 1));
    if (!std::isfinite(value)) return false;
    (value >= level ? above : below) = true;
  }
  return above && below;
}

void drawCell(PlotState* s, const FacetStyle& style, const Volume& v, int i, int j, int k, float level, RawFacet& f) {
  Node cell[kCellCorners];
  for (int c = 0; c < kCellCorners; c++) cell[c] = nodeOf(v, i + (c & 1), j + (c >> 1 & 1), k + (c >> 2 & 1));
  for (const auto& which : kTetrahedron) {
    cutTetrahedron(cell, which, level, f);
    if (f.n > 2) drawFacet(s, style, f);
  }
}

} // namespace

void SURISO(const float* x, int n, const float* y, int m, const float* z, int l, const float* w, float level) {
  PlotState* s = boxCheck("suriso");
  if (!s || checkRange(s, n, 2, -1) || checkRange(s, m, 2, -1) || checkRange(s, l, 2, -1)) return;
  const FacetCall call = beginSurface(s);
  if (!call.s) return;
  const SurfaceGroup& g = s->surface;
  RawFacet f{};
  f.backColor = g.lowerColor >= 0 ? g.lowerColor : kMixedColors;
  std::fill_n(f.colors, kFacetCorners, g.upperColor >= 0 ? g.upperColor : call.color);
  const Volume volume{s, x, y, z, w, n, m, l};
  for (int i = 0; i + 1 < n && !stopRequested(); i++)
    for (int j = 0; j + 1 < m; j++)
      for (int k = 0; k + 1 < l; k++)
        if (isCrossed(volume, i, j, k, level)) drawCell(s, call.style, volume, i, j, k, level, f);
  endSurface(call);
}
