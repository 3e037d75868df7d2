// Points are put in from left to right (A. Bowyer, D. Watson, 1981): a point takes away all triangles with it inside
// their circle, and is joined to the edges of the hole. A triangle with its circle left of all points to come is done.
#include "contour/triangulation.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <memory>
#include <new>

#include "core/levels.h"
#include "core/messages.h"
#include "core/stop_request.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

constexpr double kNear = 1.0e-8;
constexpr int kLeastEdges = 100; // room in the list of edges
constexpr int kWordBits = 64;

// A bit for each triangle whose circle may hold points to come, and a bit for each word that has such bits.
struct OpenMarks {
  std::unique_ptr<std::uint64_t[]> words, summary;

  bool create(std::size_t n) {
    const std::size_t size = n / kWordBits + 1;
    words.reset(new (std::nothrow) std::uint64_t[size]());
    summary.reset(new (std::nothrow) std::uint64_t[size / kWordBits + 1]());
    return words && summary;
  }
  bool test(std::size_t k) const { return (words[k / kWordBits] >> (k % kWordBits) & 1U) != 0; }
  void put(std::size_t k, bool open) {
    const std::size_t w = k / kWordBits;
    const std::uint64_t bit = std::uint64_t{1} << (k % kWordBits);
    words[w] = open ? words[w] | bit : words[w] & ~bit;
    const std::uint64_t summaryBit = std::uint64_t{1} << (w % kWordBits);
    std::uint64_t& s = summary[w / kWordBits];
    s = words[w] != 0 ? s | summaryBit : s & ~summaryBit;
  }
  // First open one from k on, or end.
  std::size_t next(std::size_t k, std::size_t end) const {
    if (k >= end) return end;
    std::size_t w = k / kWordBits;
    const std::uint64_t rest = words[w] >> (k % kWordBits);
    if (rest != 0) return std::min(end, k + static_cast<std::size_t>(std::countr_zero(rest)));
    const std::size_t last = (end - 1) / kWordBits;
    while (++w <= last) {
      const std::uint64_t s = summary[w / kWordBits] >> (w % kWordBits);
      if (s == 0) {
        w |= kWordBits - 1;
        continue;
      }
      w += static_cast<std::size_t>(std::countr_zero(s));
      return w > last ? end : std::min(end, w * kWordBits + static_cast<std::size_t>(std::countr_zero(words[w])));
    }
    return end;
  }
};

struct Edge {
  int from, to; // both 0: cancelled
};

enum class CirclePlace { kLeft, kInside, kOutside, kNone };

struct Mesh {
  float *x, *y;
  int n;
  int *i1, *i2, *i3;
  int most;
  int count = 0;
  int edgeLimit = 0, edgeCount = 0;
  OpenMarks open = {};
  std::unique_ptr<Edge[]> edges = nullptr;
  std::unique_ptr<int[]> order = nullptr;
  int used = 0; // points in the order

  bool prepare() {
    edgeLimit = std::max(n, kLeastEdges);
    edges.reset(new (std::nothrow) Edge[static_cast<std::size_t>(edgeLimit)]);
    order.reset(new (std::nothrow) int[static_cast<std::size_t>(n)]);
    return edges && order && open.create(static_cast<std::size_t>(most));
  }

  double px(int number) const { return static_cast<double>(x[number - 1]); }
  double py(int number) const { return static_cast<double>(y[number - 1]); }

  void sortPoints() {
    for (int k = 1; k <= n; k++) {
      if (std::isfinite(x[k - 1]) && std::isfinite(y[k - 1])) order[static_cast<std::size_t>(used++)] = k;
    }
    std::sort(order.get(), order.get() + used, [this](int a, int b) { return px(a) != px(b) ? px(a) < px(b) : a < b; });
  }

  void add(int a, int b, int c) {
    i1[count] = a;
    i2[count] = b;
    i3[count] = c;
    open.put(static_cast<std::size_t>(count++), true);
  }

  // The last triangle takes the place of one that goes.
  void remove(int k) {
    count--;
    i1[k] = i1[count];
    i2[k] = i2[count];
    i3[k] = i3[count];
    open.put(static_cast<std::size_t>(k), open.test(static_cast<std::size_t>(count)));
    open.put(static_cast<std::size_t>(count), false);
  }

  void surround() {
    double left = px(order[0]), right = px(order[static_cast<std::size_t>(used - 1)]);
    double low = py(order[0]), high = low;
    for (int k = 0; k < used; k++) {
      const double v = py(order[static_cast<std::size_t>(k)]);
      low = std::min(low, v);
      high = std::max(high, v);
    }
    const double r = 3.0 * std::max(right - left, high - low), cx = (left + right) / 2.0, cy = (low + high) / 2.0;
    constexpr double kCos30 = 0.866, kSin30 = 0.5;
    x[n] = static_cast<float>(cx - kCos30 * r);
    y[n] = y[n + 1] = static_cast<float>(cy - kSin30 * r);
    x[n + 1] = static_cast<float>(cx + kCos30 * r);
    x[n + 2] = static_cast<float>(cx);
    y[n + 2] = static_cast<float>(cy + r);
    add(n + 1, n + 2, n + 3);
  }

  bool isRepeated(int at) const {
    const int p = order[static_cast<std::size_t>(at)];
    for (int k = at - 1; k >= 0; k--) {
      const int q = order[static_cast<std::size_t>(k)];
      if (!(std::fabs(px(p) - px(q)) < kNear)) return false;
      if (std::fabs(py(p) - py(q)) < kNear) return true;
    }
    return false;
  }

  // Where the circle of triangle k lies as seen from a point; kNone if its corners lie on a line.
  CirclePlace placeOf(int k, double x0, double y0) const {
    const double ax = px(i1[k]), ay = py(i1[k]);
    const double bx = px(i2[k]) - ax, by = py(i2[k]) - ay, cx = px(i3[k]) - ax, cy = py(i3[k]) - ay;
    const double d = bx * cy - by * cx;
    if (std::fabs(d) < kNear) return CirclePlace::kNone;
    const double s1 = cx * cx + cy * cy, s2 = bx * bx + by * by;
    const double oy = (bx * s1 - cx * s2) * 0.5 / d, ox = (s2 * cy - s1 * by) * 0.5 / d, r = ox * ox + oy * oy;
    const double dx = ax + ox - x0, dy = ay + oy - y0;
    if (dx * dx >= r - kNear) return CirclePlace::kLeft;
    return dx * dx + dy * dy + kNear < r ? CirclePlace::kInside : CirclePlace::kOutside;
  }

  // Takes away the triangles that a point disturbs; their edges are kept.
  Triangulated dig(int p) {
    edgeCount = 0;
    for (std::size_t at = open.next(0, static_cast<std::size_t>(count)); at < static_cast<std::size_t>(count);) {
      const int k = static_cast<int>(at);
      switch (placeOf(k, px(p), py(p))) {
      case CirclePlace::kNone: return Triangulated::kCollinear;
      case CirclePlace::kLeft: open.put(at++, false); break;
      case CirclePlace::kOutside: at++; break;
      case CirclePlace::kInside:
        if (edgeCount + 3 > edgeLimit) return Triangulated::kManyEdges;
        edges[static_cast<std::size_t>(edgeCount++)] = {i1[k], i2[k]};
        edges[static_cast<std::size_t>(edgeCount++)] = {i2[k], i3[k]};
        edges[static_cast<std::size_t>(edgeCount++)] = {i3[k], i1[k]};
        remove(k);
        break;
      }
      at = open.next(at, static_cast<std::size_t>(count));
    }
    return Triangulated::kFine;
  }

  // An edge that two triangles shared lies inside the hole.
  void cancelInnerEdges() {
    for (Edge* e = edges.get(); e < edges.get() + edgeCount; e++) {
      for (Edge* f = e + 1; e->from != 0 && f < edges.get() + edgeCount; f++) {
        if (f->from == e->to && f->to == e->from) *e = *f = {0, 0};
      }
    }
  }

  Triangulated fill(int p) {
    cancelInnerEdges();
    for (int k = 0; k < edgeCount; k++) {
      const Edge& e = edges[static_cast<std::size_t>(k)];
      if (e.from == 0) continue;
      if (count >= most) return Triangulated::kManyTriangles;
      add(e.from, e.to, p);
    }
    return Triangulated::kFine;
  }

  void removeSurroundings() {
    for (int k = 0; k < count;) {
      if (std::max({i1[k], i2[k], i3[k]}) > n) {
        remove(k);
      } else {
        k++;
      }
    }
  }
};

} // namespace

Triangulated triangulate(float* x, float* y, int n, int* i1, int* i2, int* i3, int most, int& count) {
  count = 0;
  if (n < 1 || most < 2LL * n + 1) return Triangulated::kBadSize;
  Mesh mesh{x, y, n, i1, i2, i3, most};
  if (!mesh.prepare()) return Triangulated::kNoMemory;
  mesh.sortPoints();
  if (mesh.used == 0) return Triangulated::kCollinear;
  mesh.surround();
  Triangulated status = Triangulated::kFine;
  for (int at = 0; at < mesh.used && status == Triangulated::kFine && !stopRequested(); at++) {
    if (mesh.isRepeated(at)) continue;
    const int p = mesh.order[static_cast<std::size_t>(at)];
    status = mesh.dig(p);
    if (status == Triangulated::kFine) status = mesh.fill(p);
  }
  if (status == Triangulated::kFine) {
    mesh.removeSurroundings();
    if (mesh.count == 0) status = Triangulated::kCollinear;
  }
  count = mesh.count;
  return status;
}

} // namespace quilla

using namespace quilla;

int TRIANG(float* x, float* y, int n, int* i1, int* i2, int* i3, int nmax) {
  PlotState* s = strictCheck(0, 3, "triang");
  if (!s) return 0;
  int count = 0;
  switch (triangulate(x, y, n, i1, i2, i3, nmax, count)) {
  case Triangulated::kFine: break;
  case Triangulated::kBadSize: warnPlain(s, 2); break;
  case Triangulated::kNoMemory: warnPlain(s, 53); break;
  case Triangulated::kManyEdges: warnWithText(s, 121, "Overflow - Too many edges"); break;
  case Triangulated::kCollinear: warnWithText(s, 102, "Points are collinear"); break;
  case Triangulated::kManyTriangles: warnWithText(s, 121, "Overflow - Too many triangles"); break;
  }
  return count;
}
