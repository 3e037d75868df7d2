#include "map/map_fill.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/messages.h"
#include "core/pipeline.h"
#include "graph2d/projection.h"
#include "graph2d/scaling.h"
#include "map/map_axes.h"
#include "map/map_sphere.h"

namespace quilla {

namespace {

constexpr float kHalfWorld = 180.0F;
constexpr int kMostSteps = 720; // of one edge

// The rectangle of the axis system, ORIGIN not included. World maps and globes have an edge of their own.
MapWindow axisWindow(const PlotState* s) {
  const int* clip = s->scaling.axisClip;
  const auto x = static_cast<float>(s->page.originX), y = static_cast<float>(s->page.originY);
  return {static_cast<float>(clip[0]) - x, static_cast<float>(clip[1]) - y, static_cast<float>(clip[2]) - x,
          static_cast<float>(clip[3]) - y};
}

void collect(MapPainter& p, const MapRing& ring) {
  RingArea& area = *p.area;
  const bool full =
      (p.mostRings > 0 && area.starts.n >= p.mostRings) || (p.mostPoints > 0 && area.points.n + ring.n > p.mostPoints);
  if (!full) return addRing(area, ring);
  if (!p.overflow) warnWithText(p.s, 114, "Internal error: Overflow of map coordinates");
  p.overflow = true;
}

// A projection may have no place for a point.
bool isFinite(const MapRing& ring) {
  for (int i = 0; i < ring.n; i++) {
    if (!std::isfinite(ring.x[i]) || !std::isfinite(ring.y[i])) return false;
  }
  return true;
}

void paintRing(MapPainter& p, MapRing& ring) {
  if (!p.s->map.curvedFrame && p.s->clip.clipMode != kClipNone) {
    cutRingAtWindow(ring, p.window ? *p.window : axisWindow(p.s));
  }
  if (ring.failed) return warnPlain(p.s, 53);
  if (ring.n < 3 || !isFinite(ring)) return;
  if (p.area) return collect(p, ring);
  fillPolygon(p.s, ring.x, ring.y, ring.n);
}

// A point for each degree where the map bends lines.
void projectRing(const PlotState* s, const MapRing& ring, MapRing& onPage) {
  onPage.n = 0;
  const bool bent = openMapCode(s) >= kProjMollweide;
  for (int i = 0, last = ring.n - 1; i < ring.n; last = i++) {
    const float dx = ring.x[i] - ring.x[last], dy = ring.y[i] - ring.y[last];
    const float length = std::fmax(std::fabs(dx), std::fabs(dy));
    const int steps = bent ? static_cast<int>(std::fmin(length, static_cast<float>(kMostSteps))) + 1 : 1;
    for (int k = 1; k <= steps; k++) {
      const float f = static_cast<float>(k) / static_cast<float>(steps);
      const PlotPoint p = plotPoint(s, ring.x[last] + f * dx, ring.y[last] + f * dy);
      onPage.add(p.x, p.y);
    }
  }
  onPage.failed = onPage.failed || ring.failed;
}

void paintFlat(MapPainter& p, const MapRing& ring) {
  MapRing onPage;
  projectRing(p.s, ring, onPage);
  paintRing(p, onPage);
}

// A conic map ends at the meridian opposite to its middle one: what lies across it stands at both ends.
void paintConic(MapPainter& p, const MapRing& ring) {
  const float middle = static_cast<float>(p.s->map.projection.centerLon);
  const MapWindow window{middle - kHalfWorld, -90.0F, middle + kHalfWorld, 90.0F};
  for (float shift : {-2.0F * kHalfWorld, 0.0F, 2.0F * kHalfWorld}) {
    MapRing moved;
    for (int i = 0; i < ring.n; i++) moved.add(ring.x[i] + shift, ring.y[i]);
    cutRingAtWindow(moved, window);
    if (moved.n >= 3) paintFlat(p, moved);
  }
}

void paintWorld(MapPainter& p, MapRing& ring) {
  const ScalingState& c = p.s->scaling;
  cutRingAtWindow(ring, {c.axisStart[kAxisX], c.axisStart[kAxisY], c.axisEnd[kAxisX], c.axisEnd[kAxisY]});
  if (ring.n >= 3) paintFlat(p, ring);
}

void paintPart(void* painter, MapRing& onPage) { paintRing(*static_cast<MapPainter*>(painter), onPage); }

} // namespace

MapWindow copyWindow(const PlotState* s, const MapCopy& copy) {
  constexpr float kPole = 90.0F;
  const PlotPoint a = plotPoint(s, copy.shift - kHalfWorld, copy.offset - kPole);
  const PlotPoint b = plotPoint(s, copy.shift + kHalfWorld, copy.offset + kPole);
  const MapWindow axis = axisWindow(s);
  return {std::max(a.x, axis.x0), std::max(b.y, axis.y0), std::min(b.x, axis.x1), std::min(a.y, axis.y1)};
}

void beginWithMapEdge(MapPainter& p) {
  const PlotState* s = p.s;
  MapRing edge;
  if (s->map.curvedFrame) {
    MapOutline outline;
    mapOutline(s, -0.5F, outline); // half the length counts a point more than the map is wide
    for (int i = 0; i < outline.n; i++) edge.add(outline.x[i], outline.y[i]);
  } else {
    const MapWindow w = p.window ? *p.window : axisWindow(s);
    edge.add(w.x0, w.y0);
    edge.add(w.x1, w.y0);
    edge.add(w.x1, w.y1);
    edge.add(w.x0, w.y1);
  }
  // Formats that count turns fill the sea only if land and edge run opposite ways; land runs anticlockwise, which is
  // negative as ringArea counts with y downwards.
  if (ringArea(edge) < 0.0) reverseRing(edge);
  p.area->enclosed = true;
  collect(p, edge);
}

void paintOnMap(MapPainter& p, const float* lon, const float* lat, int n, const MapCopy& copy) {
  MapRing ring;
  for (int i = 0; i < n; i++) ring.add(lon[i] + copy.shift, lat[i] * copy.factor + copy.offset);
  if (ring.failed) return warnPlain(p.s, 53);
  if (ringArea(ring) < 0.0) reverseRing(ring);
  const int code = openMapCode(p.s);
  if (isAzimuthal(code)) {
    if (!cutAtHorizon(p.s, ring, paintPart, &p)) warnPlain(p.s, 53);
  } else if (isConical(code)) {
    paintConic(p, ring);
  } else if (isWorld(code)) {
    paintWorld(p, ring);
  } else {
    paintFlat(p, ring);
  }
}

void fillArea(MapPainter& p) {
  MapRing polygon;
  if (!joinRings(*p.area, polygon)) return warnPlain(p.s, 53);
  fillRings(p.s, polygon.x, polygon.y, polygon.n);
}

} // namespace quilla
