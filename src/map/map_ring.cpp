#include "map/map_ring.h"

#include <cstdlib>
#include <limits>
#include <utility>

namespace quilla {

MapRing::~MapRing() {
  std::free(x);
  std::free(y);
}

bool MapRing::reserve(int points) {
  constexpr int kMostPoints = std::numeric_limits<int>::max() / 8;
  if (failed || points > kMostPoints) return !(failed = true);
  const std::size_t bytes = static_cast<std::size_t>(points) * sizeof(float);
  void* newX = std::realloc(x, bytes);
  if (newX) x = static_cast<float*>(newX);
  void* newY = std::realloc(y, bytes);
  if (newY) y = static_cast<float*>(newY);
  if (!newX || !newY) return !(failed = true);
  room = points;
  return true;
}

void cutRing(const MapRing& ring, RingAxis axis, float limit, bool above, MapRing& part) {
  part.n = 0;
  const float* v = axis == RingAxis::kX ? ring.x : ring.y;
  for (int i = 0, last = ring.n - 1; i < ring.n; last = i++) {
    const double a = static_cast<double>(v[last]) - limit, b = static_cast<double>(v[i]) - limit;
    const bool insideA = above ? a >= 0.0 : a <= 0.0, insideB = above ? b >= 0.0 : b <= 0.0;
    if (insideA != insideB) {
      const float t = static_cast<float>(a / (a - b));
      const float px = ring.x[last] + t * (ring.x[i] - ring.x[last]);
      const float py = ring.y[last] + t * (ring.y[i] - ring.y[last]);
      part.add(axis == RingAxis::kX ? limit : px, axis == RingAxis::kX ? py : limit);
    }
    if (insideB) part.add(ring.x[i], ring.y[i]);
  }
  part.failed = part.failed || ring.failed;
}

void cutRingAtWindow(MapRing& ring, const MapWindow& w) {
  MapRing part;
  cutRing(ring, RingAxis::kX, w.x0, true, part);
  cutRing(part, RingAxis::kX, w.x1, false, ring);
  cutRing(ring, RingAxis::kY, w.y0, true, part);
  cutRing(part, RingAxis::kY, w.y1, false, ring);
}

double ringArea(const MapRing& r) {
  double sum = 0.0;
  for (int i = 0, last = r.n - 1; i < r.n; last = i++) {
    sum += (static_cast<double>(r.x[i]) - r.x[last]) * (static_cast<double>(r.y[i]) + r.y[last]);
  }
  return -sum;
}

void reverseRing(MapRing& r) {
  for (int i = 0, k = r.n - 1; i < k; i++, k--) {
    std::swap(r.x[i], r.x[k]);
    std::swap(r.y[i], r.y[k]);
  }
}

bool ringHolds(const MapRing& r, float x, float y) {
  bool inside = false;
  for (int i = 0, last = r.n - 1; i < r.n; last = i++) {
    if ((r.y[i] > y) == (r.y[last] > y)) continue;
    const double t = (static_cast<double>(y) - r.y[i]) / (static_cast<double>(r.y[last]) - r.y[i]);
    if (static_cast<double>(x) < r.x[i] + t * (static_cast<double>(r.x[last]) - r.x[i])) inside = !inside;
  }
  return inside;
}

void swapRings(MapRing& a, MapRing& b) {
  std::swap(a.x, b.x);
  std::swap(a.y, b.y);
  std::swap(a.n, b.n);
  std::swap(a.room, b.room);
  std::swap(a.failed, b.failed);
}

} // namespace quilla
