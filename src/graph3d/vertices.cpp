// Triangles, quadrangles, polygons, lines and points from arrays of vertices.
#include <algorithm>

#include "core/colors.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph3d/facet_call.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

enum VertexMode : int {
  kTriangles = 1,
  kTriangleStrip = 2,
  kPolygon = 3,
  kQuads = 4,
  kQuadStrip = 5,
  kPoints = 6,
  kLinePairs = 7,
  kCurve = 8,
  kClosedCurve = 9
};

// Vertices as they were given; colours and normals may be left out.
struct Vertices {
  const float *x, *y, *z;
  const int* colors = nullptr;
  const float *nx = nullptr, *ny = nullptr, *nz = nullptr;
  int n = 0;

  BoxPoint box(const PlotState* s, int i) const { return boxOfUser(s, x[i], y[i], z[i]); }
};

// The facet of some vertices. Without normals every facet has its own.
void drawVertices(PlotState* s, const FacetStyle& style, const Vertices& v, std::initializer_list<int> which) {
  const SurfaceGroup& g = s->surface;
  const int upper = g.upperColor >= 0 ? g.upperColor : s->color.currentColor;
  RawFacet f{};
  f.backColor = v.colors || g.lowerColor < 0 ? kMixedColors : g.lowerColor;
  for (int i : which) {
    f.corners[f.n] = transformedBox(s, v.box(s, i));
    if (v.nx) f.normals[f.n] = unitVector({v.nx[i], v.ny[i], v.nz[i]});
    f.colors[f.n++] = v.colors ? v.colors[i] : upper;
  }
  BoxPoint flat{};
  if (!v.nx && facetNormal(f.corners, f.n, flat)) std::fill_n(f.normals, f.n, flat);
  drawFacet(s, style, f);
}

void drawFacets(PlotState* s, const Vertices& v, int mode) {
  FacetStyle style = facetStyle(s);
  if (s->surface.visibleSide == kVisibleTop) style.culledBack = true;
  if (s->surface.visibleSide == kVisibleBottom) style.culledFront = true;
  if (v.colors || v.nx) style.smooth = true; // colours run between the vertices
  const int n = v.n, current = s->color.currentColor;
  flushPath(s);
  auto draw = [&](std::initializer_list<int> which) { drawVertices(s, style, v, which); };
  switch (mode) {
  case kTriangles:
    for (int i = 0; i < n - 2 && !stopRequested(); i += 3) draw({i, i + 1, i + 2});
    break;
  case kTriangleStrip: // every other triangle runs the other way round
    for (int i = 0; i < n - 2 && !stopRequested(); i++) {
      if (i % 2 == 0) draw({i, i + 1, i + 2});
      if (i % 2 == 1) draw({i + 1, i, i + 2});
    }
    break;
  case kPolygon:
    for (int i = 1; i < n - 1 && !stopRequested(); i++) draw({0, i, i + 1});
    break;
  case kQuads:
    for (int i = 0; i < n - 3 && !stopRequested(); i += 4) draw({i, i + 1, i + 2, i + 3});
    break;
  default:
    for (int i = 0; i < n - 3 && !stopRequested(); i += 2) draw({i, i + 1, i + 3, i + 2});
  }
  flushPath(s);
  if (s->color.currentColor != current) setColor(s, current);
}

void drawLines(PlotState* s, const Vertices& v, int mode) {
  const int current = s->color.currentColor;
  auto use = [&](int i) {
    if (v.colors && v.colors[i] != s->color.currentColor) setColor(s, v.colors[i]);
  };
  auto line = [&](int from, int to) {
    use(from);
    boxMove(s, v.box(s, from));
    boxDraw(s, v.box(s, to));
  };
  resetDash(s);
  switch (mode) {
  case kPoints:
    for (int i = 0; i < v.n && !stopRequested(); i++) line(i, i);
    break;
  case kLinePairs:
    for (int i = 0; i + 1 < v.n && !stopRequested(); i += 2) line(i, i + 1);
    break;
  default:
    boxMove(s, v.box(s, 0));
    for (int i = 1; i < v.n && !stopRequested(); i++) {
      use(i - 1);
      boxDraw(s, v.box(s, i));
    }
    if (mode == kClosedCurve) boxDraw(s, v.box(s, 0));
  }
  flushPath(s);
  if (s->color.currentColor != current) setColor(s, current);
}

void drawPrimitive(const char* routine, const Vertices& v, const char* mode) {
  PlotState* s = boxCheck(routine);
  if (!s || checkRange(s, v.n, 1, -1)) return;
  const int found = matchKeyword(s, "TRIA+TSTR+POLY+QUAD+QSTR+POIN+LINE+CURV+PLIN", 9, mode);
  if (!found) return;
  if (found >= kPoints) return drawLines(s, v, found);
  if (solidCheck(routine)) drawFacets(s, v, found);
}

} // namespace

void VTX3D(const float* x, const float* y, const float* z, int n, const char* mode) {
  drawPrimitive("vtx3d", {.x = x, .y = y, .z = z, .n = n}, mode);
}

void VTXC3D(const float* x, const float* y, const float* z, const int* colors, int n, const char* mode) {
  drawPrimitive("vtxc3d", {.x = x, .y = y, .z = z, .colors = colors, .n = n}, mode);
}

void VTXN3D(const float* x, const float* y, const float* z, const float* nx, const float* ny, const float* nz, int n,
            const char* mode) {
  drawPrimitive("vtxn3d", {.x = x, .y = y, .z = z, .nx = nx, .ny = ny, .nz = nz, .n = n}, mode);
}

void TRIA3D(const float* x, const float* y, const float* z) {
  PlotState* s = solidCheck("tria3d");
  if (s) drawFacets(s, {.x = x, .y = y, .z = z, .n = 3}, kTriangles);
}
