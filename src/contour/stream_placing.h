// Points of streamlines by the cells that they lie in, so that new lines keep their distance.
#pragma once

#include "contour/streamline.h"

namespace quilla {

// Points of all lines, line after line, in page measure.
struct PlacedPoints {
  StreamPoint* points = nullptr; // owned
  int* next = nullptr;           // owned; the point before in the same cell, -1 for none
  int count = 0, room = 0;
  int* newest = nullptr; // owned; of each cell, -1 for none
  int columns = 0, rows = 0;
  double cellSize = 0.0;

  PlacedPoints() = default;
  ~PlacedPoints();
  PlacedPoints(const PlacedPoints&) = delete;
  PlacedPoints& operator=(const PlacedPoints&) = delete;

  // Cells at least so large over a field of a size. False if there is not enough memory.
  bool create(double width, double height, double size);
  bool add(StreamPoint p);
  // A point lies nearer than a distance, which is at most that of the cells.
  bool isNear(double u, double v, double distance) const;
  int columnOf(double u) const;
  int rowOf(double v) const;
};

} // namespace quilla
