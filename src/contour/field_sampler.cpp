#include "contour/field_sampler.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace quilla {

namespace {

// Step of a grid that holds a value, and how far the value lies in it, 0 to 1.
struct GridPlace {
  int index;
  double part;
};
GridPlace placeIn(const float* v, int n, double value) {
  const bool rises = v[n - 1] >= v[0];
  int low = 0, high = n - 1;
  while (high - low > 1) {
    const int middle = low + (high - low) / 2;
    if ((static_cast<double>(v[middle]) <= value) == rises) {
      low = middle;
    } else {
      high = middle;
    }
  }
  const double width = static_cast<double>(v[high]) - v[low];
  return {low, width != 0.0 ? std::clamp((value - v[low]) / width, 0.0, 1.0) : 0.0};
}

bool gridAt(const void* field, double x, double y, FieldVector& v) {
  const GridField& f = *static_cast<const GridField*>(field);
  const GridPlace i = placeIn(f.x, f.n, x), j = placeIn(f.y, f.m, y);
  const std::ptrdiff_t k = static_cast<std::ptrdiff_t>(i.index) * f.m + j.index;
  auto mix = [&](const float* m) {
    const double left = (1.0 - j.part) * m[k] + j.part * m[k + 1];
    const double right = (1.0 - j.part) * m[k + f.m] + j.part * m[k + f.m + 1];
    return (1.0 - i.part) * left + i.part * right;
  };
  v = {mix(f.vx), mix(f.vy)};
  return std::isfinite(v.x) && std::isfinite(v.y);
}

// Cells that the box round a triangle touches.
struct CellRange {
  int column0, column1, row0, row1;
};

int cellOf(double value, double from, double to, int cells) {
  if (!(to > from)) return 0;
  return std::clamp(static_cast<int>((value - from) / (to - from) * cells), 0, cells - 1);
}

CellRange rangeOf(const TriangleField& f, int k) {
  const int a = f.i1[k] - 1, b = f.i2[k] - 1, c = f.i3[k] - 1;
  const auto [left, right] = std::minmax({f.x[a], f.x[b], f.x[c]});
  const auto [low, high] = std::minmax({f.y[a], f.y[b], f.y[c]});
  const FieldExtent& e = f.extent;
  return {cellOf(static_cast<double>(left), e.x0, e.x1, f.columns),
          cellOf(static_cast<double>(right), e.x0, e.x1, f.columns),
          cellOf(static_cast<double>(low), e.y0, e.y1, f.rows), cellOf(static_cast<double>(high), e.y0, e.y1, f.rows)};
}

bool isUsable(const TriangleField& f, int k) {
  for (int corner : {f.i1[k], f.i2[k], f.i3[k]}) {
    if (!std::isfinite(f.x[corner - 1]) || !std::isfinite(f.y[corner - 1])) return false;
  }
  return true;
}

void findExtent(TriangleField& f) {
  bool first = true;
  for (int k = 0; k < f.count; k++) {
    if (!isUsable(f, k)) continue;
    for (int corner : {f.i1[k], f.i2[k], f.i3[k]}) {
      const auto x = static_cast<double>(f.x[corner - 1]), y = static_cast<double>(f.y[corner - 1]);
      FieldExtent& e = f.extent;
      e = first ? FieldExtent{x, y, x, y}
                : FieldExtent{std::min(e.x0, x), std::min(e.y0, y), std::max(e.x1, x), std::max(e.y1, y)};
      first = false;
    }
  }
}

template <class Take> void eachCell(const TriangleField& f, Take take) {
  for (int k = 0; k < f.count; k++) {
    if (!isUsable(f, k)) continue;
    const CellRange r = rangeOf(f, k);
    for (int row = r.row0; row <= r.row1; row++) {
      for (int column = r.column0; column <= r.column1; column++)
        take(static_cast<std::size_t>(row) * static_cast<std::size_t>(f.columns) + static_cast<std::size_t>(column), k);
    }
  }
}

// Entries of all cells together.
long long entriesOf(const TriangleField& f) {
  long long entries = 0;
  for (int k = 0; k < f.count; k++) {
    if (!isUsable(f, k)) continue;
    const CellRange r = rangeOf(f, k);
    entries += (r.column1 - r.column0 + 1LL) * (r.row1 - r.row0 + 1LL);
  }
  return entries;
}

bool triangleHolds(const TriangleField& f, int k, double x, double y, FieldVector& v) {
  const int a = f.i1[k] - 1, b = f.i2[k] - 1, c = f.i3[k] - 1;
  const auto ax = static_cast<double>(f.x[a]), ay = static_cast<double>(f.y[a]);
  const double bx = f.x[b] - ax, by = f.y[b] - ay, cx = f.x[c] - ax, cy = f.y[c] - ay, px = x - ax, py = y - ay;
  const double d = bx * cy - by * cx, t = (px * cy - py * cx) / d, u = (bx * py - by * px) / d;
  constexpr double kOnSide = 1.0e-9;
  if (!(t >= -kOnSide && u >= -kOnSide && t + u <= 1.0 + kOnSide)) return false;
  v = {(1.0 - t - u) * f.vx[a] + t * f.vx[b] + u * f.vx[c], (1.0 - t - u) * f.vy[a] + t * f.vy[b] + u * f.vy[c]};
  return std::isfinite(v.x) && std::isfinite(v.y);
}

bool trianglesAt(const void* field, double x, double y, FieldVector& v) {
  const TriangleField& f = *static_cast<const TriangleField*>(field);
  const FieldExtent& e = f.extent;
  const auto cell = static_cast<std::size_t>(cellOf(y, e.y0, e.y1, f.rows)) * static_cast<std::size_t>(f.columns) +
                    static_cast<std::size_t>(cellOf(x, e.x0, e.x1, f.columns));
  for (int k = f.starts[cell]; k < f.starts[cell + 1]; k++) {
    if (triangleHolds(f, f.members[static_cast<std::size_t>(k)], x, y, v)) return true;
  }
  return false;
}

} // namespace

FieldSampler samplerOf(const GridField& f) {
  const auto [x0, x1] = std::minmax({static_cast<double>(f.x[0]), static_cast<double>(f.x[f.n - 1])});
  const auto [y0, y1] = std::minmax({static_cast<double>(f.y[0]), static_cast<double>(f.y[f.m - 1])});
  return {&f, gridAt, {x0, y0, x1, y1}};
}

bool prepareField(TriangleField& f) {
  constexpr long long kEntriesOfTriangle = 16; // on the average, before cells are made larger
  findExtent(f);
  f.columns = f.rows = std::max(1, static_cast<int>(std::sqrt(static_cast<double>(f.count))));
  while (f.columns > 1 && entriesOf(f) > kEntriesOfTriangle * f.count) f.columns = f.rows = f.columns / 2;
  const std::size_t cells = static_cast<std::size_t>(f.columns) * static_cast<std::size_t>(f.rows);
  const auto entries = static_cast<std::size_t>(entriesOf(f));
  f.starts.reset(new (std::nothrow) int[cells + 1]());
  f.members.reset(new (std::nothrow) int[entries]);
  if (!f.starts || !f.members) return false;
  // Ends of the cells first; filling from there backwards leaves their starts.
  eachCell(f, [&](std::size_t cell, int) { f.starts[cell]++; });
  for (std::size_t c = 1; c <= cells; c++) f.starts[c] += f.starts[c - 1];
  eachCell(f, [&](std::size_t cell, int k) { f.members[static_cast<std::size_t>(--f.starts[cell])] = k; });
  return true;
}

FieldSampler samplerOf(const TriangleField& f) { return {&f, trianglesAt, f.extent}; }

} // namespace quilla
