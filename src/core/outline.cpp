// Wide lines on devices without line widths: the line is stroked by outlines of growing width around it.
#include <cmath>
#include <initializer_list>
#include <numbers>

#include "core/page.h"
#include "core/path.h"

namespace quilla {

namespace {

constexpr int kPassStep = 3; // a pass for each 0.3 mm of width
constexpr int kMostCapChords = 90;
constexpr float kClosedGap = 0.5F; // ends of a path that lie no further apart than this close it

struct Vector {
  double x, y;
};

// Points of a line, walked from either end.
struct Walk {
  const float *x, *y;
  int n;
  bool backwards;

  Vector point(int i) const {
    int k = backwards ? n - 1 - i : i;
    return {static_cast<double>(x[k]), static_cast<double>(y[k])};
  }
  // Unit vector from point i to the next; behind the last point of a closed line to the first. A dot is a short line to
  // the right.
  Vector direction(int i) const {
    Vector a = point(i), b = point(i + 1 < n ? i + 1 : 0);
    double dx = b.x - a.x, dy = b.y - a.y, length = std::hypot(dx, dy);
    return length > 0.0 ? Vector{dx / length, dy / length} : Vector{backwards ? -1.0 : 1.0, 0.0};
  }
};

// The pen of one pass: half the width of its outline, and where it began.
struct Pass {
  ClippedPen pen;
  double half;
  bool begun;
  float startX, startY;

  void to(Vector p) {
    float x = static_cast<float>(p.x), y = static_cast<float>(p.y);
    if (begun) return drawClipped(pen, x, y);
    begun = true;
    startX = x;
    startY = y;
    moveClipped(pen, x, y);
  }
  void close() { drawClipped(pen, startX, startY); }
};

// The point at the side of p under a segment with direction u, and `ahead` of it.
Vector beside(Vector p, Vector u, double half, double ahead = 0.0) {
  return {p.x - u.y * half + u.x * ahead, p.y + u.x * half + u.y * ahead};
}

// Joins the outlines of two segments at their corner p. A sharp join is cut off when the miter, as a multiple of the
// width, exceeds the limit; it is 1 / sin(half the angle between the segments).
void join(Pass& pass, Vector p, Vector in, Vector out) {
  const LineGroup& line = pass.pen.s->line;
  double cosine = in.x * out.x + in.y * out.y;
  double sineOfHalf = std::sqrt(std::fmax(0.0, (1.0 + cosine) / 2.0));
  if (line.lineJoin == kJoinSharp && sineOfHalf * static_cast<double>(line.lineMiter) >= 1.0) {
    double scale = pass.half / (1.0 + cosine);
    return pass.to({p.x - (in.y + out.y) * scale, p.y + (in.x + out.x) * scale});
  }
  pass.to(beside(p, in, pass.half));
  pass.to(beside(p, out, pass.half));
}

// Half a circle round the end p of a line with direction u.
void roundEnd(Pass& pass, Vector p, Vector u) {
  const PlotState* s = pass.pen.s;
  // A chord for each 0.2 mm of the width.
  float wanted = static_cast<float>(s->line.lineWidthSetting) * s->pageSetup.unitFactor * 0.5F;
  int n = wanted < static_cast<float>(kMostCapChords) ? static_cast<int>(wanted) : kMostCapChords;
  if (n <= 2) return;
  double start = std::atan2(u.y, u.x) + std::numbers::pi / 2.0;
  for (int i = 1; i <= n; i++) {
    double angle = start - i * std::numbers::pi / (n + 1);
    pass.to({p.x + pass.half * std::cos(angle), p.y + pass.half * std::sin(angle)});
  }
}

// One side of an open line, from the first end to the cap at the last.
void strokeSide(Pass& pass, const Walk& walk) {
  int cap = pass.pen.s->line.lineCap;
  double ahead = cap == kCapLong ? pass.half : 0.0;
  Vector first = walk.direction(0), last = walk.direction(walk.n - 2);
  pass.to(beside(walk.point(0), first, pass.half, -ahead));
  for (int i = 1; i + 1 < walk.n; i++) join(pass, walk.point(i), walk.direction(i - 1), walk.direction(i));
  pass.to(beside(walk.point(walk.n - 1), last, pass.half, ahead));
  if (cap == kCapRound) roundEnd(pass, walk.point(walk.n - 1), last);
}

// One side of a closed line whose last point is left out.
void strokeRing(Pass& pass, const Walk& walk) {
  for (int i = 0; i < walk.n; i++)
    join(pass, walk.point(i), walk.direction(i > 0 ? i - 1 : walk.n - 1), walk.direction(i));
  join(pass, walk.point(0), walk.direction(walk.n - 1), walk.direction(0));
}

} // namespace

void strokeOutline(PlotState* s, const float* x, const float* y, int n) {
  const float unit = s->pageSetup.unitFactor;
  const int width = roundHalfUp(static_cast<float>(s->line.lineWidthSetting) * unit);
  if (width < 2) return;
  bool closed = n > 3 && std::fabs(x[n - 1] - x[0]) <= kClosedGap && std::fabs(y[n - 1] - y[0]) <= kClosedGap;
  int passes = (width + 1) / kPassStep;
  for (int i = 1; i <= passes; i++) {
    int k = i == passes ? width : kPassStep * i;
    double half = static_cast<double>(k) / 2.0 / static_cast<double>(unit);
    Pass pass{{s, activeRegion(s), 0.0F, 0.0F, false, false, isShielded(s)}, half, false, 0.0F, 0.0F};
    for (bool backwards : {false, true}) {
      Walk walk{x, y, closed ? n - 1 : n, backwards};
      if (closed) {
        strokeRing(pass, walk);
      } else {
        strokeSide(pass, walk);
      }
    }
    pass.close();
  }
}

} // namespace quilla
