#include "device/polygon_clip.h"

#include <cstdlib>

namespace quilla {
namespace {

struct Point {
  float x, y;
};

// One edge of the window: points whose coordinate on `axis` (0 x, 1 y), times sign, is at most limit lie inside.
struct Edge {
  int axis;
  float sign, limit;
};

float beyond(const Edge& edge, const Point& p) { return edge.sign * (edge.axis == 0 ? p.x : p.y) - edge.limit; }

Point crossing(const Edge& edge, const Point& a, const Point& b) {
  const float da = beyond(edge, a), db = beyond(edge, b);
  const float t = da / (da - db);
  Point p = {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
  (edge.axis == 0 ? p.x : p.y) = edge.sign * edge.limit;
  return p;
}

// Cuts at one edge. Every second point may add one.
int cutAtEdge(const Edge& edge, const Point* in, int n, Point* out) {
  int count = 0;
  for (int i = 0; i < n; ++i) {
    const Point &a = in[i], &b = in[i + 1 < n ? i + 1 : 0];
    const bool aInside = beyond(edge, a) <= 0.0F, bInside = beyond(edge, b) <= 0.0F;
    if (aInside) out[count++] = a;
    if (aInside != bInside) out[count++] = crossing(edge, a, b);
  }
  return count;
}

// A corner that is no number, or too far to compute with, moves to the ends of the plane.
float bounded(float value) {
  constexpr float kLimit = 1e9F;
  return value > kLimit ? kLimit : value > -kLimit ? value : -kLimit;
}

} // namespace

bool polygonInClipWindow(const PlotState* s, const float* x, const float* y, int n) {
  const ClipGroup& c = s->clip;
  const auto left = static_cast<float>(c.clipX0), right = static_cast<float>(c.clipX1);
  const auto top = static_cast<float>(c.clipY0), bottom = static_cast<float>(c.clipY1);
  for (int i = 0; i < n; ++i) {
    if (!(x[i] >= left && x[i] <= right && y[i] >= top && y[i] <= bottom)) return false;
  }
  return true;
}

bool clipPolygon(const PlotState* s, const float* x, const float* y, int n, ClippedPolygon& result) {
  const ClipGroup& c = s->clip;
  const Edge edges[] = {{0, -1.0F, -static_cast<float>(c.clipX0)},
                        {0, 1.0F, static_cast<float>(c.clipX1)},
                        {1, -1.0F, -static_cast<float>(c.clipY0)},
                        {1, 1.0F, static_cast<float>(c.clipY1)}};
  auto* points = static_cast<Point*>(std::malloc(sizeof(Point) * static_cast<std::size_t>(n)));
  if (!points) return false;
  for (int i = 0; i < n; ++i) points[i] = {bounded(x[i]), bounded(y[i])};
  int count = n;
  for (const Edge& edge : edges) {
    auto* cut = static_cast<Point*>(std::malloc(sizeof(Point) * (static_cast<std::size_t>(count) * 3 / 2 + 2)));
    if (!cut) {
      std::free(points);
      return false;
    }
    count = cutAtEdge(edge, points, count, cut);
    std::free(points);
    points = cut;
  }
  result.x = static_cast<float*>(std::malloc(2 * sizeof(float) * (static_cast<std::size_t>(count) + 1)));
  if (result.x) {
    result.y = result.x + count;
    result.count = count;
    for (int i = 0; i < count; ++i) {
      result.x[i] = points[i].x;
      result.y[i] = points[i].y;
    }
  }
  std::free(points);
  return result.x != nullptr;
}

} // namespace quilla
