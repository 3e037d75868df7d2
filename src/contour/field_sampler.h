// Fields of vectors that can be asked at any point inside: on grids, and on triangulations.
#pragma once

#include <memory>

#include "core/plot_state.h"

namespace quilla {

struct FieldVector {
  double x, y;
};

// Limits of a field in user coordinates.
struct FieldExtent {
  double x0, y0, x1, y1;
  bool holds(double x, double y) const { return x >= x0 && x <= x1 && y >= y0 && y <= y1; }
};

// A field as integration sees it. at: false where there is no value.
struct FieldSampler {
  const void* field;
  bool (*at)(const void* field, double x, double y, FieldVector& v);
  FieldExtent extent;
};

// Vectors at the points of a grid, Y index fastest; coordinates rise or fall.
struct GridField {
  const float *vx, *vy;
  int n, m;
  const float *x, *y;
};
FieldSampler samplerOf(const GridField& field);

// Vectors at points with triangles between them, corners numbered from 1 and in range.
struct TriangleField {
  const float *vx, *vy, *x, *y;
  int n;
  const int *i1, *i2, *i3;
  int count;

  // Triangles by the cells of a grid that they touch: those of cell c stand from starts[c] to starts[c + 1].
  FieldExtent extent = {};
  int columns = 0, rows = 0;
  std::unique_ptr<int[]> starts = nullptr, members = nullptr;
};
// Makes the cells; false if there is not enough memory.
bool prepareField(TriangleField& field);
FieldSampler samplerOf(const TriangleField& field);

} // namespace quilla
