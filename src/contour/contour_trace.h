// Walking the lines of one level through a grid. A value above the level is high, any other low; a cell whose corners
// leave a choice is settled by the mean of the four.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

#include "core/level_group.h"
#include "core/stop_request.h"

namespace quilla {

// A point of a grid with its value, Y index j fastest.
struct GridNode {
  int i, j;
  float x, y, z;
};

// A rectangular grid: n values of x, m values of y.
struct RectangularGrid {
  const float *x, *y, *z;
  int n, m;
  float value(int i, int j) const { return z[static_cast<std::ptrdiff_t>(i) * m + j]; }
  GridNode node(int i, int j) const { return {i, j, x[i], y[j], value(i, j)}; }
  static float centerOf(float, float b, float c, float) {
    return static_cast<float>((static_cast<double>(b) + c) / 2.0);
  }
};

// A curvilinear grid: x and y are matrices of n by m elements as well.
struct CurvilinearGrid {
  const float *x, *y, *z;
  int n, m;
  std::ptrdiff_t place(int i, int j) const { return static_cast<std::ptrdiff_t>(i) * m + j; }
  float value(int i, int j) const { return z[place(i, j)]; }
  GridNode node(int i, int j) const { return {i, j, x[place(i, j)], y[place(i, j)], value(i, j)}; }
  static float centerOf(float a, float b, float c, float d) {
    return static_cast<float>((static_cast<double>(a) + b + c + d) / 4.0);
  }
};

// One bit a grid point: a line crossed the edge that leads to it from its neighbour at i - 1.
struct VisitedMarks {
  std::unique_ptr<std::uint32_t[]> words;
  std::size_t stride = 0;

  // False if there is not enough memory.
  bool create(int n, int m) {
    stride = static_cast<std::size_t>(n);
    words.reset(new (std::nothrow) std::uint32_t[(stride * static_cast<std::size_t>(m) + 31) / 32]());
    return words != nullptr;
  }
  bool test(int i, int j) const {
    const std::size_t k = bitOf(i, j);
    return (words[k / 32] >> (k % 32) & 1U) != 0;
  }
  // Sets the bit; true if it was set before.
  bool testAndSet(int i, int j) {
    const std::size_t k = bitOf(i, j);
    const std::uint32_t bit = 1U << (k % 32);
    const bool was = (words[k / 32] & bit) != 0;
    words[k / 32] |= bit;
    return was;
  }
  std::size_t bitOf(int i, int j) const { return static_cast<std::size_t>(j) * stride + static_cast<std::size_t>(i); }
};

// The crossing of the level on the line from a high point to a low one. snaps: a high point at the level, but for a
// hair, is the crossing itself.
struct Crossing {
  float x, y;
};
inline Crossing crossingOf(const GridNode& high, const GridNode& low, float level, bool snaps) {
  const double rise = static_cast<double>(high.z) - low.z, above = static_cast<double>(high.z) - level;
  if (std::fabs(rise) < kTiny || (snaps && std::fabs(above) < kTiny)) return {high.x, high.y};
  const double t = static_cast<double>(static_cast<float>(above / rise));
  const double dx = static_cast<double>(high.x) - low.x, dy = static_cast<double>(high.y) - low.y;
  return {static_cast<float>(high.x - dx * t), static_cast<float>(high.y - dy * t)};
}

// A walk along one line. Line takes its points: start() before the first, then point(x, y); its constant snaps chooses
// the rule of crossings.
template <class Grid, class Line> struct ContourWalk {
  const Grid& grid;
  float level;
  VisitedMarks& marks;
  Line& line;

  bool isHigh(float z) const { return z > level; }

  void cross(const GridNode& high, const GridNode& low) {
    const Crossing c = crossingOf(high, low, level, Line::snaps);
    line.point(c.x, c.y);
  }

  // Offset to the next corner of the cell on the left of a step (di, dj), counted from where the step begins.
  struct Offset {
    int i, j;
  };
  static Offset nextCorner(int di, int dj) {
    constexpr Offset kTable[3][3] = {
        {{0, -1}, {0, -1}, {-1, 0}}, // di -1, dj -1 to 1
        {{1, 0}, {0, 0}, {-1, 0}},
        {{1, 0}, {0, 1}, {0, 1}},
    };
    return kTable[di + 1][dj + 1];
  }

  GridNode centerOf(const GridNode& p1, const GridNode& p2, const GridNode& p3, const GridNode& p4) const {
    const double z = (static_cast<double>(p1.z) + p2.z + p3.z + p4.z) / 4.0;
    return {-1, -1, Grid::centerOf(p1.x, p2.x, p3.x, p4.x), Grid::centerOf(p1.y, p2.y, p3.y, p4.y),
            static_cast<float>(z)};
  }

  // Follows the line that crosses the edge from a low to a high point until it closes or leaves the grid.
  void follow(GridNode low, GridNode high) {
    line.start();
    while (!stopRequested()) {
      cross(high, low);
      const int di = high.i - low.i, dj = high.j - low.j;
      if (di == 1 && dj == 0 && marks.testAndSet(high.i, high.j)) return;
      const Offset third = nextCorner(di, dj);
      const int i3 = low.i + third.i, j3 = low.j + third.j;
      if (i3 < 0 || j3 < 0 || i3 >= grid.n || j3 >= grid.m) return;
      const Offset fourth = nextCorner(high.i - i3, high.j - j3);
      const GridNode p3 = grid.node(i3, j3), p4 = grid.node(i3 + fourth.i, j3 + fourth.j);
      passCell(low, high, p3, p4);
    }
  }

  // Through the four triangles around the centre of a cell to the edge where the line leaves it.
  void passCell(GridNode& low, GridNode& high, const GridNode& p3, const GridNode& p4) {
    const GridNode center = centerOf(low, high, p3, p4);
    if (!isHigh(center.z)) {
      cross(high, center);
      if (!isHigh(p4.z)) {
        low = p4;
        return;
      }
      cross(p4, center);
      if (!isHigh(p3.z)) {
        low = p3;
        high = p4;
        return;
      }
      cross(p3, center);
      high = p3;
    } else {
      cross(center, low);
      if (isHigh(p3.z)) {
        high = p3;
        return;
      }
      cross(center, p3);
      if (isHigh(p4.z)) {
        low = p3;
        high = p4;
        return;
      }
      cross(center, p4);
      low = p4;
    }
  }

  void followIfCrossed(int iLow, int jLow, int iHigh, int jHigh) {
    if (!isHigh(grid.value(iLow, jLow)) && isHigh(grid.value(iHigh, jHigh)))
      follow(grid.node(iLow, jLow), grid.node(iHigh, jHigh));
  }

  // Lines that enter over the boundary, round it counter-clockwise.
  void followFromBoundary() {
    const int n = grid.n, m = grid.m;
    for (int i = 1; i < n; i++) followIfCrossed(i - 1, 0, i, 0);
    for (int j = 1; j < m; j++) followIfCrossed(n - 1, j - 1, n - 1, j);
    for (int i = n - 2; i >= 0; i--) followIfCrossed(i + 1, m - 1, i, m - 1);
    for (int j = m - 2; j >= 0; j--) followIfCrossed(0, j + 1, 0, j);
  }

  // Closed lines, row by row. Values of a column lie side by side: a strip of rows is read along them, and a word for
  // each column keeps the rows in which it rises over the level.
  void followInside(std::uint64_t* rises) {
    constexpr int kStrip = 64;
    for (int first = 1; first < grid.m - 1 && !stopRequested(); first += kStrip) {
      const int rows = std::min(kStrip, grid.m - 1 - first);
      std::uint64_t before = ~std::uint64_t{0};
      for (int i = 0; i < grid.n; i++) {
        std::uint64_t high = 0;
        for (int k = 0; k < rows; k++) high |= std::uint64_t{isHigh(grid.value(i, first + k))} << k;
        rises[i] = high & ~before;
        before = high;
      }
      for (int k = 0; k < rows; k++) {
        const int j = first + k;
        for (int i = 1; i < grid.n; i++) {
          if ((rises[i] >> k & 1U) != 0 && !marks.test(i, j)) follow(grid.node(i - 1, j), grid.node(i, j));
        }
      }
    }
  }
};

// All lines of a level. False if there is not enough memory.
template <class Grid, class Line> bool traceLevel(const Grid& grid, float level, Line& line) {
  VisitedMarks marks;
  const std::unique_ptr<std::uint64_t[]> rises(new (std::nothrow) std::uint64_t[static_cast<std::size_t>(grid.n)]);
  if (!rises || !marks.create(grid.n, grid.m)) return false;
  ContourWalk<Grid, Line> walk{grid, level, marks, line};
  walk.followFromBoundary();
  walk.followInside(rises.get());
  return true;
}

} // namespace quilla
