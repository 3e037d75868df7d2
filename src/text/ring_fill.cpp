#include "text/ring_fill.h"

#include <cmath>
#include <memory>
#include <new>

#include "core/messages.h"
#include "core/pipeline.h"

namespace quilla {
namespace {

constexpr int kNestedRings = 64;      // more rings are filled one by one
constexpr double kSearchWork = 4.0e6; // pairs of points looked at for the shortest way to a hole
constexpr int kNoMemory = 53;

struct Rings {
  const float* x;
  const float* y;
  const int* ends;
  int count;

  int begin(int ring) const { return ring == 0 ? 0 : ends[ring - 1]; }
  // Without a last point that repeats the first.
  int end(int ring) const {
    const int b = begin(ring), e = ends[ring];
    return e - b > 1 && x[b] == x[e - 1] && y[b] == y[e - 1] ? e - 1 : e;
  }
  int size(int ring) const { return end(ring) - begin(ring); }
};

double signedArea(const Rings& r, int ring) {
  double area = 0.0;
  const int b = r.begin(ring), e = r.end(ring);
  for (int i = b, j = e - 1; i < e; j = i++)
    area += static_cast<double>(r.x[j]) * r.y[i] - static_cast<double>(r.x[i]) * r.y[j];
  return area;
}

// True if the first point of one ring lies within another, by crossings of a ray.
bool contains(const Rings& r, int outer, int inner) {
  const float px = r.x[r.begin(inner)], py = r.y[r.begin(inner)];
  bool inside = false;
  const int b = r.begin(outer), e = r.end(outer);
  for (int i = b, j = e - 1; i < e; j = i++) {
    if ((r.y[i] > py) == (r.y[j] > py)) continue;
    if (px < (r.x[j] - r.x[i]) * (py - r.y[i]) / (r.y[j] - r.y[i]) + r.x[i]) inside = !inside;
  }
  return inside;
}

// A polygon that grows by holes.
struct Polygon {
  float* x;
  float* y;
  int count = 0;
};

// Joins a hole at the place where it comes nearest: there and back, so that the way encloses nothing and lies in ink.
void joinHole(Polygon& p, float* spare, const Rings& r, int hole, bool reversed) {
  const int b = r.begin(hole), n = r.size(hole);
  const double pairs = static_cast<double>(p.count) * n;
  const int stride = pairs > kSearchWork ? 1 + static_cast<int>(std::sqrt(pairs / kSearchWork)) : 1;
  int from = 0, to = 0;
  float best = -1.0F;
  for (int i = 0; i < p.count; i += stride) {
    for (int k = 0; k < n; k += stride) {
      const float dx = p.x[i] - r.x[b + k], dy = p.y[i] - r.y[b + k], d = dx * dx + dy * dy;
      if (best >= 0.0F && !(d < best)) continue;
      best = d;
      from = i;
      to = k;
    }
  }
  // What lies behind the joint moves on by the hole, its first point again, and the joint again.
  const int tail = p.count - from, more = n + 2;
  float* const columns[2] = {p.x, p.y};
  const float* const sources[2] = {r.x + b, r.y + b};
  for (int c = 0; c < 2; ++c) {
    float* column = columns[c];
    for (int i = 0; i < tail; ++i) spare[i] = column[from + i];
    for (int k = 0; k <= n; ++k) column[from + 1 + k] = sources[c][(to + (reversed ? n - k % n : k)) % n];
    for (int i = 0; i < tail; ++i) column[from + more + i] = spare[i];
  }
  p.count += more;
}

} // namespace

void fillRings(PlotState* s, const float* x, const float* y, const int* ends, int count) {
  const Rings r = {x, y, ends, count};
  if (count < 1) return;
  const std::size_t room = static_cast<std::size_t>(ends[count - 1]) + 2 * static_cast<std::size_t>(count);
  constexpr std::size_t kOnStack = 256;
  float few[3 * kOnStack];
  std::unique_ptr<float[]> many;
  float* memory = few;
  if (room > kOnStack) {
    many.reset(new (std::nothrow) float[3 * room]);
    memory = many.get();
    if (!memory) return warnPlain(s, kNoMemory);
  }
  Polygon p = {memory, memory + room};
  float* const spare = memory + 2 * room;
  const bool nested = count <= kNestedRings;
  int depths[kNestedRings] = {};
  for (int i = 0; nested && i < count; ++i) {
    for (int k = 0; k < count; ++k) depths[i] += k != i && r.size(k) >= 3 && contains(r, k, i);
  }
  const float originX = static_cast<float>(s->page.originX), originY = static_cast<float>(s->page.originY);
  for (int i = 0; i < count; ++i) {
    const int depth = nested ? depths[i] : 0;
    if (r.size(i) < 3 || depth % 2 != 0) continue;
    p.count = 0;
    for (int k = r.begin(i); k < r.end(i); ++k, ++p.count) {
      p.x[p.count] = x[k];
      p.y[p.count] = y[k];
    }
    const bool positive = signedArea(r, i) > 0.0;
    for (int k = 0; nested && k < count; ++k) {
      if (depths[k] != depth + 1 || r.size(k) < 3 || !contains(r, i, k)) continue;
      joinHole(p, spare, r, k, (signedArea(r, k) > 0.0) == positive);
    }
    for (int k = 0; k < p.count; ++k) { // fillSolid adds ORIGIN
      p.x[k] -= originX;
      p.y[k] -= originY;
    }
    fillSolid(s, p.x, p.y, p.count);
  }
}

} // namespace quilla
