// Contour lines on a triangulation.
#include <algorithm>
#include <memory>
#include <new>

#include "contour/contour_lines.h"
#include "contour/contour_trace.h"
#include "core/levels.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// Points with values, and triangles by the numbers of their corners from 1.
struct TriangleMesh {
  const float *x, *y, *z;
  int n;
  const int *i1, *i2, *i3;
  int count;

  GridNode node(int number) const { return {number, 0, x[number - 1], y[number - 1], z[number - 1]}; }
};

// An edge that a level crosses, by its ends; on the way along a line the crossed triangle it belongs to.
struct CrossedEdge {
  int high, low;
  int triangle; // from 0, among those that are crossed
  bool operator<(const CrossedEdge& e) const {
    if (high != e.high) return high < e.high;
    return low != e.low ? low < e.low : triangle < e.triangle;
  }
  bool isSame(const CrossedEdge& e) const { return high == e.high && low == e.low; }
};

constexpr int kSides = 2, kNobody = -1; // crossed sides of a crossed triangle

// The crossed triangles of a level; side k of triangle t has the place 2 t + k.
struct CrossedMesh {
  std::unique_ptr<CrossedEdge[]> sides, sorted;
  std::unique_ptr<int[]> neighbours; // the same side of the triangle behind it, by its place
  std::unique_ptr<bool[]> passed;
  int count = 0;

  std::size_t places() const { return kSides * static_cast<std::size_t>(count); }
  bool create() {
    sides.reset(new (std::nothrow) CrossedEdge[places()]);
    sorted.reset(new (std::nothrow) CrossedEdge[places()]);
    neighbours.reset(new (std::nothrow) int[places()]);
    passed.reset(new (std::nothrow) bool[static_cast<std::size_t>(count)]());
    return sides && sorted && neighbours && passed;
  }
};

// The two sides of a triangle that the level crosses; false if it crosses none. A value at the level is low.
bool crossedSides(const TriangleMesh& mesh, int k, float level, CrossedEdge (&sides)[kSides]) {
  const int corners[] = {mesh.i1[k], mesh.i2[k], mesh.i3[k]};
  int found = 0;
  for (int c = 0; c < 3; c++) {
    const int a = corners[c], b = corners[(c + 1) % 3];
    const bool aHigh = mesh.z[a - 1] > level, bHigh = mesh.z[b - 1] > level;
    if (aHigh != bHigh && found < kSides) sides[found++] = {aHigh ? a : b, aHigh ? b : a, 0};
  }
  return found == kSides;
}

// Sides of the same ends are neighbours, pair by pair.
void findNeighbours(CrossedMesh& crossed) {
  const std::size_t n = crossed.places();
  for (std::size_t k = 0; k < n; k++) {
    crossed.sorted[k] = crossed.sides[k];
    crossed.sorted[k].triangle = static_cast<int>(k);
    crossed.neighbours[k] = kNobody;
  }
  std::sort(crossed.sorted.get(), crossed.sorted.get() + n);
  for (std::size_t k = 0; k + 1 < n; k++) {
    const CrossedEdge &a = crossed.sorted[k], &b = crossed.sorted[k + 1];
    if (!a.isSame(b)) continue;
    crossed.neighbours[static_cast<std::size_t>(a.triangle)] = b.triangle;
    crossed.neighbours[static_cast<std::size_t>(b.triangle)] = a.triangle;
    k++;
  }
}

// Finds the triangles that the level crosses. False if there is not enough memory.
bool crossMesh(const TriangleMesh& mesh, float level, CrossedMesh& crossed) {
  CrossedEdge sides[kSides];
  for (int k = 0; k < mesh.count; k++) crossed.count += crossedSides(mesh, k, level, sides) ? 1 : 0;
  if (!crossed.create()) return false;
  std::size_t at = 0;
  for (int k = 0; k < mesh.count; k++) {
    if (!crossedSides(mesh, k, level, sides)) continue;
    crossed.sides[at++] = sides[0];
    crossed.sides[at++] = sides[1];
  }
  findNeighbours(crossed);
  return true;
}

// Follows a line that enters a triangle over one of its sides until it closes or ends at the border.
template <class Line>
void followTriangles(const TriangleMesh& mesh, CrossedMesh& crossed, float level, int entry, Line& line) {
  auto cross = [&](int place) {
    const CrossedEdge& e = crossed.sides[static_cast<std::size_t>(place)];
    const Crossing c = crossingOf(mesh.node(e.high), mesh.node(e.low), level, Line::snaps);
    line.point(c.x, c.y);
  };
  line.start();
  cross(entry);
  while (entry != kNobody && !crossed.passed[static_cast<std::size_t>(entry / kSides)] && !stopRequested()) {
    crossed.passed[static_cast<std::size_t>(entry / kSides)] = true;
    const int exit = entry ^ 1;
    cross(exit);
    entry = crossed.neighbours[static_cast<std::size_t>(exit)];
  }
}

// Lines that begin at the border first, then those that are closed.
template <class Line> void traceTriangles(const TriangleMesh& mesh, CrossedMesh& crossed, float level, Line& line) {
  std::fill_n(crossed.passed.get(), crossed.count, false);
  for (int place = 0; place < kSides * crossed.count && !stopRequested(); place++) {
    const auto k = static_cast<std::size_t>(place);
    if (crossed.neighbours[k] == kNobody && !crossed.passed[k / kSides])
      followTriangles(mesh, crossed, level, place, line);
  }
  for (int k = 0; k < crossed.count && !stopRequested(); k++) {
    if (!crossed.passed[static_cast<std::size_t>(k)]) followTriangles(mesh, crossed, level, kSides * k, line);
  }
}

bool isMesh(PlotState* s, const TriangleMesh& mesh) {
  if (checkRange(s, mesh.n, 3, -1) || checkRange(s, mesh.count, 1, -1)) return false;
  for (int k = 0; k < mesh.count; k++) {
    for (int corner : {mesh.i1[k], mesh.i2[k], mesh.i3[k]}) {
      if (checkRange(s, corner, 1, mesh.n)) return false;
    }
  }
  return true;
}

} // namespace

void CONTRI(const float* x, const float* y, const float* z, int n, const int* i1, const int* i2, const int* i3,
            int ntri, float level) {
  PlotState* s = strictCheck(2, 3, "contri");
  const TriangleMesh mesh{x, y, z, n, i1, i2, i3, ntri};
  if (!s || !isMesh(s, mesh)) return;
  const std::size_t size = static_cast<std::size_t>(n);
  if (!logarithmsExist(s, kAxisX, {x, size}) || !logarithmsExist(s, kAxisY, {y, size})) return;
  CrossedMesh crossed;
  if (!crossMesh(mesh, level, crossed)) return warnPlain(s, 53);
  drawLevel(s, level, [&](ContourPen& pen) {
    DrawnLine line{pen};
    traceTriangles(mesh, crossed, level, line);
    return true;
  });
}

void TRIPTS(const float* x, const float* y, const float* z, int n, const int* i1, const int* i2, const int* i3,
            int ntri, float level, float* xpts, float* ypts, int maxpts, int* nray, int maxcrv, int* ncurvs) {
  PlotState* s = strictCheck(0, 3, "tripts");
  if (!s) return;
  *ncurvs = 0;
  const TriangleMesh mesh{x, y, z, n, i1, i2, i3, ntri};
  if (!isMesh(s, mesh)) return;
  CrossedMesh crossed;
  if (!crossMesh(mesh, level, crossed)) return warnPlain(s, 53);
  ListedLine line{s, xpts, ypts, maxpts, nray, maxcrv, ncurvs};
  traceTriangles(mesh, crossed, level, line);
}
