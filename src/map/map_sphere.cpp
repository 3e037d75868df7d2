#include "map/map_sphere.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>
#include <numbers>

#include "graph2d/projection.h"
#include "map/map_lines.h"

namespace quilla {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi, kDegree = std::numbers::pi / 180.0;

// A run of points within reach, with the directions in which it comes over the circle and leaves again.
struct Run {
  int first, count; // in the list of points
  double in, out;
  bool used;
};

struct Horizon {
  const PlotState* s;
  double reach;
  MapRing points; // distance and direction of the points of all runs
  std::unique_ptr<Run[]> runs;
  int count = 0;
};

// The circle: the reach of the map, or less where a globe is larger than its frame.
double reachOf(const PlotState* s) {
  constexpr double kGnomonicReach = 89.0 * kDegree;
  const int code = s->map.projection.code;
  double reach = std::min(static_cast<double>(s->projection.maximumAngle), std::numbers::pi / 2.0);
  if (code == kProjGnomonic) reach = std::min(reach, kGnomonicReach);
  if (!s->map.globe) return reach;
  const int length = std::min(s->axis.axisLength[kAxisX], s->axis.axisLength[kAxisY]);
  return std::min(reach, azimuthalDistance(code, (length - 1) / (2.0 * static_cast<double>(s->map.mapScale))));
}

// Distances and directions of the ring, with a point for each degree. The first point of the ring comes last.
void polarPoints(const PlotState* s, const MapRing& ring, MapRing& polar) {
  constexpr int kMostSteps = 720;
  for (int i = 0, last = ring.n - 1; i < ring.n; last = i++) {
    const float dx = ring.x[i] - ring.x[last], dy = ring.y[i] - ring.y[last];
    const float length = std::fmax(std::fabs(dx), std::fabs(dy));
    const int steps = static_cast<int>(std::fmin(length, static_cast<float>(kMostSteps))) + 1;
    for (int k = 1; k <= steps; k++) {
      const double f = static_cast<double>(k) / steps;
      const SpherePolar p = polarAbout(s->map.projection, static_cast<double>(ring.x[last]) + f * dx,
                                       static_cast<double>(ring.y[last]) + f * dy);
      polar.add(static_cast<float>(p.distance), static_cast<float>(p.direction));
    }
  }
}

// Direction in which the stroke from point i to point k crosses the circle.
double crossing(const MapRing& polar, int i, int k, double reach) {
  const double a = static_cast<double>(polar.x[i]), b = static_cast<double>(polar.x[k]);
  const double turn = std::remainder(static_cast<double>(polar.y[k]) - polar.y[i], kTwoPi);
  return static_cast<double>(polar.y[i]) + turn * (reach - a) / (b - a);
}

void addPoint(const Horizon& h, double distance, double direction, MapRing& out) {
  const PlotPoint p = spherePoint(h.s->map, {distance, direction});
  out.add(p.x, p.y);
}

// Anticlockwise along the circle.
void addArc(const Horizon& h, double from, double turn, MapRing& out) {
  const int steps = static_cast<int>(turn / kDegree) + 1;
  for (int k = 0; k <= steps; k++) addPoint(h, h.reach, from + turn * k / steps, out);
}

// The runs of the points within reach; false if there is no memory.
bool findRuns(Horizon& h, const MapRing& polar) {
  auto inside = [&](int i) { return static_cast<double>(polar.x[i]) <= h.reach; };
  const int n = polar.n;
  int entries = 0, start = 0;
  for (int i = 0, last = n - 1; i < n; last = i++) {
    if (!inside(i) || inside(last)) continue;
    entries++;
    start = i;
  }
  h.runs.reset(new (std::nothrow) Run[static_cast<std::size_t>(std::max(entries, 1))]);
  if (!h.runs) return false;
  for (int k = 0; entries > 0 && k < n; k++) {
    const int i = (start + k) % n, last = (i + n - 1) % n;
    if (inside(i) && !inside(last)) h.runs[h.count++] = {h.points.n, 0, crossing(polar, last, i, h.reach), 0.0, false};
    if (!inside(i)) continue;
    h.points.add(polar.x[i], polar.y[i]);
    h.runs[h.count - 1].count++;
    const int next = (i + 1) % n;
    if (!inside(next)) h.runs[h.count - 1].out = crossing(polar, i, next, h.reach);
  }
  return !h.points.failed;
}

// The run whose entry comes next, anticlockwise, behind a direction; turn: the way to it.
int nextRun(const Horizon& h, double from, int start, double& turn) {
  constexpr double kNoise = 1e-5; // a way that is so nearly a whole circle is none
  int best = start;
  turn = 2.0 * kTwoPi;
  for (int k = 0; k < h.count; k++) {
    if (h.runs[k].used && k != start) continue;
    double way = std::fmod(h.runs[k].in - from, kTwoPi);
    if (way < 0.0) way += kTwoPi;
    if (way > kTwoPi - kNoise) way = 0.0;
    if (way >= turn) continue;
    turn = way;
    best = k;
  }
  return best;
}

// A part: runs, joined along the circle until the first one comes again. The inside lies on the left of both.
void closePart(Horizon& h, int start, MapRing& out) {
  out.n = 0;
  int run = start;
  do {
    Run& r = h.runs[run];
    r.used = true;
    for (int i = r.first; i < r.first + r.count; i++) {
      addPoint(h, static_cast<double>(h.points.x[i]), static_cast<double>(h.points.y[i]), out);
    }
    double turn = 0.0;
    run = nextRun(h, r.out, start, turn);
    addArc(h, r.out, turn, out);
  } while (run != start);
}

bool holdsCentre(const Projection& p, const MapRing& degrees) {
  constexpr double kNearPole = 89.99;
  const float lon = static_cast<float>(p.centerLon);
  const float lat = static_cast<float>(std::clamp(p.centerLat, -kNearPole, kNearPole));
  return ringHolds(degrees, lon, lat) || ringHolds(degrees, lon - 360.0F, lat) || ringHolds(degrees, lon + 360.0F, lat);
}

} // namespace

bool cutAtHorizon(const PlotState* s, const MapRing& degrees, void (*take)(void* data, MapRing& onPage), void* data) {
  MapRing polar, out;
  polarPoints(s, degrees, polar);
  Horizon h{s, reachOf(s), {}, nullptr};
  if (polar.failed || !findRuns(h, polar)) return false;
  if (h.count == 0) {
    const bool within = polar.n > 0 && static_cast<double>(polar.x[0]) <= h.reach;
    if (within) {
      for (int i = 0; i < polar.n; i++) {
        addPoint(h, static_cast<double>(polar.x[i]), static_cast<double>(polar.y[i]), out);
      }
    } else if (holdsCentre(s->map.projection, degrees)) {
      addArc(h, 0.0, kTwoPi, out);
    }
    if (out.n > 0) take(data, out);
    return !out.failed;
  }
  for (int k = 0; k < h.count; k++) {
    if (h.runs[k].used) continue;
    closePart(h, k, out);
    take(data, out);
  }
  return !out.failed;
}

} // namespace quilla
