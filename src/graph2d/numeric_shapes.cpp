// Public routines on points of the user: Bezier curves, classes of data, circles through points, clipped polygons.
#include <algorithm>
#include <cmath>
#include <limits>

#include "core/levels.h"
#include "core/messages.h"
#include "core/stop_request.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kControlPoints = 100;

// The point of a Bezier curve at t from 0 to 1/2, in the powers of t / (1 - t): linear in the number of points.
double bezierFromStart(const float* p, int n, int step, double t) {
  const double u = 1.0 - t, ratio = t / u;
  double sum = static_cast<double>(p[0]), weight = 1.0;
  for (int i = 1; i < n; i++) {
    weight *= ratio * static_cast<double>(n - i) / static_cast<double>(i);
    sum += weight * static_cast<double>(p[i * step]);
  }
  return sum * std::pow(u, n - 1);
}

double bezier(const float* p, int n, double t) {
  return t <= 0.5 ? bezierFromStart(p, n, 1, t) : bezierFromStart(p + n - 1, n, -1, 1.0 - t);
}

// Number of classes by the rule of Sturges: 1 + log2 n, rounded up.
int classCount(int n) {
  int classes = 1;
  for (int power = 1; power < n && classes < 32; classes++) power = power > n / 2 ? n : power * 2;
  return std::min(classes, n);
}

enum Edge : int { kLeast = 0, kMost = 1 };

// What an edge cuts: the coordinate that it bounds, and on which side.
struct PolygonEdge {
  bool onY;
  Edge side;
  float value;
};
bool isInside(const PolygonEdge& e, float x, float y) {
  const float v = e.onY ? y : x;
  return e.side == kLeast ? v >= e.value : v <= e.value;
}

// An output polygon of limited size; counts also the points that do not fit.
struct PointList {
  float *x, *y;
  int room, n;
};
void add(PointList& list, float x, float y) {
  if (list.n < list.room) {
    list.x[list.n] = x;
    list.y[list.n] = y;
  }
  list.n++;
}

} // namespace

void BEZIER(const float* x, const float* y, int n, float* xp, float* yp, int np) {
  PlotState* s = strictCheck(0, 3, "bezier");
  if (!s || checkRange(s, n, 2, kControlPoints) || checkRange(s, np, 2, -1)) return;
  for (int i = 0; i < np && !stopRequested(); i++) {
    const double t = static_cast<double>(i) / static_cast<double>(np - 1);
    xp[i] = static_cast<float>(bezier(x, n, t));
    yp[i] = static_cast<float>(bezier(y, n, t));
  }
}

void HISTOG(const float* x, int n, float* middles, float* counts, int* classes) {
  PlotState* s = strictCheck(0, 3, "histog");
  if (!s || checkRange(s, n, 1, -1)) return;
  float low = std::numeric_limits<float>::infinity(), high = -low;
  int known = 0;
  for (int i = 0; i < n; i++) {
    if (!std::isfinite(x[i])) continue;
    low = std::min(low, x[i]);
    high = std::max(high, x[i]);
    known++;
  }
  *classes = known == 0 ? 0 : low < high ? classCount(known) : 1;
  const double width = (static_cast<double>(high) - static_cast<double>(low)) / std::max(*classes, 1);
  for (int k = 0; k < *classes; k++) {
    middles[k] = static_cast<float>(static_cast<double>(low) + width * (k + 0.5));
    counts[k] = 0.0F;
  }
  for (int i = 0; 0 < *classes && i < n; i++) {
    if (!std::isfinite(x[i])) continue;
    const double place = width > 0.0 ? (static_cast<double>(x[i]) - static_cast<double>(low)) / width : 0.0;
    counts[std::min(static_cast<int>(place), *classes - 1)] += 1.0F; // the highest value is in the last class
  }
}

void CIRC3P(float x1, float y1, float x2, float y2, float x3, float y3, float* xm, float* ym, float* r) {
  PlotState* s = strictCheck(0, 3, "circ3p");
  if (!s) return;
  // The middle is equally far from all points: two linear equations, about the first point.
  const double ax = static_cast<double>(x2) - static_cast<double>(x1),
               ay = static_cast<double>(y2) - static_cast<double>(y1);
  const double bx = static_cast<double>(x3) - static_cast<double>(x1),
               by = static_cast<double>(y3) - static_cast<double>(y1);
  const double a = ax * ax + ay * ay, b = bx * bx + by * by, d = 2.0 * (ax * by - ay * bx);
  if (!(std::fabs(d) > 1e-12 * (a + b))) return warnWithText(s, 102, "Points are collinear");
  const double u = (by * a - ay * b) / d, v = (ax * b - bx * a) / d;
  *xm = static_cast<float>(static_cast<double>(x1) + u);
  *ym = static_cast<float>(static_cast<double>(y1) + v);
  *r = static_cast<float>(std::hypot(u, v));
}

void POLCLP(const float* x, const float* y, int n, float* xp, float* yp, int size, int* np, float value,
            const char* edge) {
  PlotState* s = strictCheck(0, 3, "polclp");
  if (!s || checkRange(s, n, 1, -1) || checkRange(s, size, 1, -1)) return;
  const int key = matchKeyword(s, "XMIN+XMAX+YMIN+YMAX", 4, edge);
  if (!key) return;
  const PolygonEdge e = {key > 2, key % 2 == 1 ? kLeast : kMost, value};
  PointList list = {xp, yp, size, 0};
  for (int i = 0, before = n - 1; i < n; before = i++) {
    const bool in = isInside(e, x[i], y[i]), wasIn = isInside(e, x[before], y[before]);
    if (in != wasIn) {
      const float va = e.onY ? y[before] : x[before], vb = e.onY ? y[i] : x[i];
      const float t = (e.value - va) / (vb - va);
      const float cx = e.onY ? x[before] + t * (x[i] - x[before]) : e.value;
      const float cy = e.onY ? e.value : y[before] + t * (y[i] - y[before]);
      add(list, cx, cy);
    }
    if (in) add(list, x[i], y[i]);
  }
  if (list.n > size) warnWithText(s, 112, "Too many points");
  *np = std::min(list.n, size);
}
