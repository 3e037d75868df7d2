// Areas: polygons by scan conversion, rectangles, discs.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "raster/areas.h"
#include "raster/ink.h"
#include "raster/painter.h"

namespace quilla {
namespace {

constexpr int kMostCrossings = 99; // in a row
constexpr int kEdgesOnStack = 64;
constexpr double kFlatEdge = 0.01; // an edge lower than this crosses at its first vertex
constexpr double kFarthest = 1e9;  // coordinates are cut there

struct Edge {
  double x1, y1, x2, y2;
  int first, last; // rows that it crosses
  int number;      // place in the polygon
};

struct Crossing {
  int x, edge;
};

double limited(float value) {
  const auto v = static_cast<double>(value);
  return v > kFarthest ? kFarthest : v > -kFarthest ? v : v < 0.0 ? -kFarthest : 0.0;
}

// Rows above low and up to high, of those in the clip rectangle.
Edge edgeBetween(double x1, double y1, double x2, double y2, int number) {
  const double low = std::min(y1, y2), high = std::max(y1, y2);
  return {x1, y1, x2, y2, static_cast<int>(std::floor(low)) + 1, static_cast<int>(std::floor(high)), number};
}

int crossingOf(const Edge& e, int row) {
  const double dy = e.y2 - e.y1;
  const double x = std::fabs(dy) < kFlatEdge ? e.x1 : e.x1 + (row - e.y1) * (e.x2 - e.x1) / dy;
  return static_cast<int>(x + 0.5);
}

// The crossings of one row.
struct Row {
  Crossing at[kMostCrossings];
  int count = 0;
  bool overflow = false;

  // Keeps the crossings of the edges that come first in the polygon.
  void add(int x, int edge) {
    if (count < kMostCrossings) {
      at[count++] = {x, edge};
      return;
    }
    overflow = true;
    Crossing* latest = std::max_element(at, at + count, [](Crossing a, Crossing b) { return a.edge < b.edge; });
    if (edge < latest->edge) *latest = {x, edge};
  }
  void sort() {
    for (int i = 1; i < count; ++i) {
      const Crossing moved = at[i];
      int k = i;
      for (; k > 0 && at[k - 1].x > moved.x; --k) at[k] = at[k - 1];
      at[k] = moved;
    }
  }
};

// Rows from the top down; edges come into play in the order of their first rows.
template <typename Pixel>
bool fillRows(const RasterCanvas& canvas, Edge* edges, int n, int top, int bottom, Pixel value) {
  const bool many = n > kEdgesOnStack;
  if (many) std::sort(edges, edges + n, [](const Edge& a, const Edge& b) { return a.first < b.first; });
  int active = many ? 0 : n, waiting = active;
  bool complete = true;
  for (int y = top; y <= bottom; ++y) {
    while (waiting < n && edges[waiting].first <= y) edges[active++] = edges[waiting++];
    Row row;
    for (int i = 0; i < active; ++i) {
      if (y > edges[i].last) {
        if (many) edges[i--] = edges[--active];
        continue;
      }
      if (y >= edges[i].first) row.add(crossingOf(edges[i], y), edges[i].number);
    }
    row.sort();
    complete = complete && !row.overflow;
    for (int i = 0; i + 1 < row.count; i += 2) fillSpan(canvas, y, row.at[i].x, row.at[i + 1].x, value);
  }
  return complete;
}

int roundCut(double value, int low, int high) {
  return static_cast<int>(std::clamp(value + 0.5, static_cast<double>(low), static_cast<double>(high)));
}

struct EdgeList {
  Edge few[kEdgesOnStack];
  Edge* many = nullptr;
  explicit EdgeList(int n) {
    if (n > kEdgesOnStack) many = static_cast<Edge*>(std::malloc(sizeof(Edge) * static_cast<std::size_t>(n)));
  }
  ~EdgeList() { std::free(many); }
  EdgeList(const EdgeList&) = delete;
  EdgeList& operator=(const EdgeList&) = delete;
};

} // namespace

FillResult fillArea(RasterCanvas& canvas, const float* xs, const float* ys, int n) {
  const PixelBox clip = canvas.clip;
  if (n < 1 || clip.empty()) return FillResult::kFine;
  EdgeList list(n);
  Edge* edges = n > kEdgesOnStack ? list.many : list.few;
  if (!edges) return FillResult::kNoMemory;
  double left = kFarthest, right = -kFarthest, low = kFarthest, high = -kFarthest;
  int count = 0;
  double x1 = limited(xs[n - 1]), y1 = limited(ys[n - 1]);
  for (int i = 0; i < n; ++i) {
    const double x2 = limited(xs[i]), y2 = limited(ys[i]);
    left = std::min(left, x2);
    right = std::max(right, x2);
    low = std::min(low, y2);
    high = std::max(high, y2);
    // The edge that closes the polygon comes last in its order.
    const Edge edge = edgeBetween(x1, y1, x2, y2, i == 0 ? n : i);
    if (edge.first <= edge.last && edge.last >= clip.y1 && edge.first <= clip.y2) edges[count++] = edge;
    x1 = x2;
    y1 = y2;
  }
  const int top = roundCut(low, clip.y1, clip.y2), bottom = roundCut(high, clip.y1, clip.y2);
  noteDrawn(canvas, cutBox(clip, {roundCut(left, clip.x1, clip.x2), top, roundCut(right, clip.x1, clip.x2), bottom}));
  bool complete = true;
  withPenInk(canvas, [&](auto value) { complete = fillRows(canvas, edges, count, top, bottom, value); });
  return complete ? FillResult::kFine : FillResult::kTooManyCrossings;
}

FillResult canvasFill(RasterCanvas& canvas, const float* xs, const float* ys, int n) {
  flushCanvas(canvas);
  return fillArea(canvas, xs, ys, n);
}

void canvasRectangle(RasterCanvas& canvas, int x1, int y1, int x2, int y2, int index, Rgb colour) {
  flushCanvas(canvas);
  const PixelBox box = cutBox(canvas.clip, {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)});
  if (box.empty()) return;
  noteDrawn(canvas, box);
  withInk(canvas, index, colour, [&](auto value) {
    for (int y = box.y1; y <= box.y2; ++y) fillSpan(canvas, y, box.x1, box.x2, value);
  });
}

void fillDisc(RasterCanvas& canvas, int x, int y, float radius) {
  const int reach = static_cast<int>(radius);
  const PixelBox box = cutBox(canvas.clip, {x - reach, y - reach, x + reach, y + reach});
  if (box.empty()) return;
  noteDrawn(canvas, box);
  withPenInk(canvas, [&](auto value) {
    for (int row = box.y1; row <= box.y2; ++row) {
      const auto dy = static_cast<float>(row - y);
      const int half = static_cast<int>(std::sqrt(std::max(radius * radius - dy * dy, 0.0F)));
      fillSpan(canvas, row, x - half, x + half, value);
    }
  });
}

} // namespace quilla
