#include "core/shields.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "core/messages.h"
#include "core/pipeline.h"

namespace quilla {

namespace {

constexpr int kHeadWords = 2; // head and id
constexpr int kClassStep = 10, kKindStep = 100;
constexpr double kAngleUnit = 1000.0;
constexpr double kRadians = 3.14159265358979323846 / 180.0;
constexpr double kShortest = 0.001; // shorter lines are left alone

struct Region {
  int kind, shieldClass, id, words;
  bool hidden;
  const std::int16_t* data;
};

int recordWords(int kind, const std::int16_t* record) {
  constexpr int kWords[] = {0, 6, 7, 5, 7, 7};
  return kind == kShieldPolygon ? 3 + 2 * record[2] : kWords[kind];
}

Region regionAt(const ShieldGroup& g, int at) {
  const std::int16_t* record = g.shieldWords + at;
  int kind = record[0] / kKindStep;
  return {kind,
          record[0] / kClassStep % 10,
          record[1],
          recordWords(kind, record),
          record[0] % 10 != 0,
          record + kHeadWords};
}

template <class Action> void eachRegion(ShieldGroup& g, Action action) {
  for (int at = 0; at < g.shieldUsed;) {
    Region region = regionAt(g, at);
    action(region, at);
    at += region.words;
  }
}

// Keeps the records for which the test holds and moves them together.
template <class Keep> void packRegions(PlotState* s, Keep keep) {
  flushPath(s);
  ShieldGroup& g = s->shield;
  int target = 0, used = g.shieldUsed;
  g.shieldCount = g.shieldUserCount = 0;
  for (int at = 0; at < used;) {
    Region region = regionAt(g, at);
    if (keep(region)) {
      std::memmove(g.shieldWords + target, g.shieldWords + at,
                   static_cast<std::size_t>(region.words) * sizeof(std::int16_t));
      target += region.words;
      g.shieldCount++;
      if (region.shieldClass == kShieldUser) g.shieldUserCount++;
    }
    at += region.words;
  }
  g.shieldUsed = target;
}

void setHidden(ShieldGroup& g, int at, bool hidden) {
  int head = g.shieldWords[at];
  g.shieldWords[at] = static_cast<std::int16_t>(head - head % 10 + (hidden ? 1 : 0));
}

struct Spot {
  double x, y;
};

// The point in the region's own upright coordinates around its centre.
Spot turnedAbout(Spot p, double cx, double cy, double angle) {
  double c = std::cos(angle), n = std::sin(angle), dx = p.x - cx, dy = p.y - cy;
  return {dx * c - dy * n, dx * n + dy * c};
}

bool insideSector(const std::int16_t* d, Spot p) {
  double dx = p.x - d[0], dy = p.y - d[1], r = d[2];
  if (dx * dx + dy * dy >= r * r) return false;
  double angle = std::atan2(-dy, dx) / kRadians, from = d[3], to = d[4];
  while (to < from) to += 360.0;
  while (angle < from) angle += 360.0;
  return angle - from <= to - from;
}

bool insidePolygon(const std::int16_t* d, Spot p) {
  int n = d[0];
  const std::int16_t* v = d + 1;
  bool inside = false;
  for (int i = 0, k = n - 1; i < n; k = i++) {
    double xi = v[2 * i], yi = v[2 * i + 1], xk = v[2 * k], yk = v[2 * k + 1];
    if ((yi > p.y) != (yk > p.y) && p.x < (xk - xi) * (p.y - yi) / (yk - yi) + xi) inside = !inside;
  }
  return inside;
}

bool isInside(const Region& region, Spot p) {
  const std::int16_t* d = region.data;
  switch (region.kind) {
  case kShieldRectangle: return p.x > d[0] && p.x < d[0] + d[2] && p.y > d[1] && p.y < d[1] + d[3];
  case kShieldTurned: {
    Spot q = turnedAbout(p, d[0], d[1], d[4] / kAngleUnit);
    return q.x > 0.0 && q.x < d[2] && q.y > 0.0 && q.y < d[3];
  }
  case kShieldCircle: return std::hypot(p.x - d[0], p.y - d[1]) < d[2];
  case kShieldEllipse: {
    Spot q = turnedAbout(p, d[0], d[1], d[4] / kAngleUnit);
    double u = q.x / d[2], v = q.y / d[3];
    return u * u + v * v < 1.0;
  }
  case kShieldSector: return insideSector(d, p);
  default: return insidePolygon(d, p);
  }
}

// Places along a segment, 0 to 1, at which it may cross the edge of a region.
struct Crossings {
  double t[2 * kShieldWords];
  int count = 0;

  void add(double value) {
    if (value > 0.0 && value < 1.0 && count < 2 * kShieldWords) t[count++] = value;
  }
  // With the line through two points.
  void addLine(Spot p, Spot q, Spot a, Spot b) {
    double ex = b.x - a.x, ey = b.y - a.y, dx = q.x - p.x, dy = q.y - p.y, d = dx * ey - dy * ex;
    if (d != 0.0) add(((a.x - p.x) * ey - (a.y - p.y) * ex) / d);
  }
  // With the unit circle, for points in its coordinates.
  void addCircle(Spot p, Spot q) {
    double dx = q.x - p.x, dy = q.y - p.y, a = dx * dx + dy * dy, b = p.x * dx + p.y * dy,
           c = p.x * p.x + p.y * p.y - 1.0;
    double d = b * b - a * c;
    if (a == 0.0 || d <= 0.0) return;
    double root = std::sqrt(d);
    add((-b - root) / a);
    add((-b + root) / a);
  }
  void addBox(Spot p, Spot q, double width, double height) {
    addLine(p, q, {0, 0}, {0, 1});
    addLine(p, q, {width, 0}, {width, 1});
    addLine(p, q, {0, 0}, {1, 0});
    addLine(p, q, {0, height}, {1, height});
  }
};

Spot scaled(Spot p, double x, double y) { return {p.x / x, p.y / y}; }

void findCrossings(const Region& region, Spot p, Spot q, Crossings& c) {
  const std::int16_t* d = region.data;
  switch (region.kind) {
  case kShieldRectangle: return c.addBox({p.x - d[0], p.y - d[1]}, {q.x - d[0], q.y - d[1]}, d[2], d[3]);
  case kShieldTurned: {
    double angle = d[4] / kAngleUnit;
    return c.addBox(turnedAbout(p, d[0], d[1], angle), turnedAbout(q, d[0], d[1], angle), d[2], d[3]);
  }
  case kShieldCircle:
    return c.addCircle(scaled({p.x - d[0], p.y - d[1]}, d[2], d[2]), scaled({q.x - d[0], q.y - d[1]}, d[2], d[2]));
  case kShieldEllipse: {
    double angle = d[4] / kAngleUnit;
    return c.addCircle(scaled(turnedAbout(p, d[0], d[1], angle), d[2], d[3]),
                       scaled(turnedAbout(q, d[0], d[1], angle), d[2], d[3]));
  }
  case kShieldSector:
    c.addCircle(scaled({p.x - d[0], p.y - d[1]}, d[2], d[2]), scaled({q.x - d[0], q.y - d[1]}, d[2], d[2]));
    for (int i = 3; i <= 4; i++) {
      c.addLine(p, q, {static_cast<double>(d[0]), static_cast<double>(d[1])},
                {d[0] + std::cos(d[i] * kRadians), d[1] - std::sin(d[i] * kRadians)});
    }
    return;
  default:
    for (int i = 0, n = d[0], k = n - 1; i < n; k = i++) {
      c.addLine(p, q, {static_cast<double>(d[1 + 2 * k]), static_cast<double>(d[2 + 2 * k])},
                {static_cast<double>(d[1 + 2 * i]), static_cast<double>(d[2 + 2 * i])});
    }
  }
}

bool isDegenerate(const Region& region) {
  const std::int16_t* d = region.data;
  switch (region.kind) {
  case kShieldCircle:
  case kShieldSector: return d[2] < 1;
  case kShieldPolygon: return d[0] < 3;
  default: return d[2] < 1 || d[3] < 1;
  }
}

Segment between(const Segment& g, double from, double to) {
  auto at = [](float a, float b, double t) { return static_cast<float>(a + (static_cast<double>(b) - a) * t); };
  return {at(g.x0, g.x1, from), at(g.y0, g.y1, from), at(g.x0, g.x1, to), at(g.y0, g.y1, to)};
}

} // namespace

int addShield(PlotState* s, int kind, int shieldClass, std::span<const int> data) {
  flushPath(s);
  ShieldGroup& g = s->shield;
  int words = kHeadWords + static_cast<int>(data.size());
  if (g.shieldUsed + words > kShieldWords) {
    warnPlain(s, 47);
    return 0;
  }
  if (g.shieldCount == 0) g.shieldNextId = g.shieldUserCount = 0;
  std::int16_t* record = g.shieldWords + g.shieldUsed;
  g.shieldNextId = g.shieldNextId < INT16_MAX ? g.shieldNextId + 1 : 1;
  record[0] = static_cast<std::int16_t>(kind * kKindStep + shieldClass * kClassStep);
  record[1] = static_cast<std::int16_t>(g.shieldNextId);
  for (std::size_t i = 0; i < data.size(); i++) {
    record[kHeadWords + i] = static_cast<std::int16_t>(std::clamp(data[i], -INT16_MAX, static_cast<int>(INT16_MAX)));
  }
  g.shieldUsed += words;
  g.shieldCount++;
  if (shieldClass == kShieldUser) g.shieldUserCount++;
  return g.shieldNextId;
}

void deleteShieldClass(PlotState* s, int shieldClass) {
  packRegions(s, [&](const Region& r) { return r.shieldClass != shieldClass; });
}

void deleteShieldId(PlotState* s, int id) {
  packRegions(s, [&](const Region& r) { return r.id != id; });
}

void deleteLastShields(PlotState* s, int count) {
  int kept = s->shield.shieldCount - count;
  packRegions(s, [&](const Region&) { return kept-- > 0; });
}

void hideShieldClass(PlotState* s, int shieldClass, bool hidden) {
  flushPath(s);
  eachRegion(s->shield, [&](const Region& r, int at) {
    if (r.shieldClass == shieldClass) setHidden(s->shield, at, hidden);
  });
}

void hideShieldId(PlotState* s, int id, bool hidden) {
  flushPath(s);
  eachRegion(s->shield, [&](const Region& r, int at) {
    if (r.id == id) setHidden(s->shield, at, hidden);
  });
}

int piecesOutsideShields(PlotState* s, const Segment& segment, Segment pieces[kShieldPieces]) {
  pieces[0] = segment;
  int count = 1;
  if (std::fabs(segment.x1 - segment.x0) < kShortest && std::fabs(segment.y1 - segment.y0) < kShortest) return count;
  bool overflow = false;
  eachRegion(s->shield, [&](const Region& region, int) {
    if (region.hidden || isDegenerate(region)) return;
    Segment before[kShieldPieces];
    int beforeCount = count;
    std::copy(pieces, pieces + count, before);
    count = 0;
    for (int i = 0; i < beforeCount; i++) {
      const Segment& g = before[i];
      Crossings c;
      Spot p{g.x0, g.y0}, q{g.x1, g.y1};
      findCrossings(region, p, q, c);
      std::sort(c.t, c.t + c.count);
      double from = 0.0, open = -1.0; // open: where the part outside that is being followed began
      for (int k = 0; k <= c.count; k++) {
        double to = k < c.count ? c.t[k] : 1.0, middle = 0.5 * (from + to);
        bool inside = isInside(region, {p.x + (q.x - p.x) * middle, p.y + (q.y - p.y) * middle});
        if (!inside && open < 0.0) open = from;
        if (open >= 0.0 && (inside || k == c.count)) {
          if (count < kShieldPieces) {
            pieces[count++] = between(g, open, inside ? from : 1.0);
          } else {
            overflow = true;
          }
          open = -1.0;
        }
        from = to;
      }
    }
  });
  if (overflow) warnPlain(s, 26);
  return count;
}

} // namespace quilla
