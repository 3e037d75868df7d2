#include "contour/stream_placing.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quilla {

namespace {

constexpr int kMostCells = 1000; // in a direction
constexpr int kFirstRoom = 4096, kMostPoints = 1 << 28;

} // namespace

PlacedPoints::~PlacedPoints() {
  std::free(points);
  std::free(next);
  std::free(newest);
}

bool PlacedPoints::create(double width, double height, double size) {
  cellSize = std::max(size, std::max(width, height) / kMostCells);
  columns = static_cast<int>(width / cellSize) + 1;
  rows = static_cast<int>(height / cellSize) + 1;
  const std::size_t cells = static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
  newest = static_cast<int*>(std::malloc(cells * sizeof(int)));
  if (newest) std::fill_n(newest, cells, -1);
  return newest != nullptr;
}

int PlacedPoints::columnOf(double u) const { return std::clamp(static_cast<int>(u / cellSize), 0, columns - 1); }
int PlacedPoints::rowOf(double v) const { return std::clamp(static_cast<int>(v / cellSize), 0, rows - 1); }

bool PlacedPoints::add(StreamPoint p) {
  if (count == room) {
    if (room >= kMostPoints) return false;
    const int wanted = room == 0 ? kFirstRoom : 2 * room;
    auto* morePoints =
        static_cast<StreamPoint*>(std::realloc(points, static_cast<std::size_t>(wanted) * sizeof *points));
    if (morePoints) points = morePoints;
    auto* moreNext = static_cast<int*>(std::realloc(next, static_cast<std::size_t>(wanted) * sizeof *next));
    if (moreNext) next = moreNext;
    if (!morePoints || !moreNext) return false;
    room = wanted;
  }
  int& head = newest[static_cast<std::size_t>(rowOf(static_cast<double>(p.v))) * static_cast<std::size_t>(columns) +
                     static_cast<std::size_t>(columnOf(static_cast<double>(p.u)))];
  points[count] = p;
  next[count] = head;
  head = count++;
  return true;
}

bool PlacedPoints::isNear(double u, double v, double distance) const {
  const int column = columnOf(u), row = rowOf(v);
  for (int r = std::max(row - 1, 0); r <= std::min(row + 1, rows - 1); r++) {
    for (int c = std::max(column - 1, 0); c <= std::min(column + 1, columns - 1); c++) {
      const std::size_t cell =
          static_cast<std::size_t>(r) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(c);
      for (int k = newest[cell]; k >= 0; k = next[k]) {
        const double du = static_cast<double>(points[k].u) - u, dv = static_cast<double>(points[k].v) - v;
        if (du * du + dv * dv < distance * distance) return true;
      }
    }
  }
  return false;
}

} // namespace quilla
