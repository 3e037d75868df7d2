#include "map/map_lines.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph2d/curve_path.h"
#include "graph2d/projection.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;
constexpr double kGreatCirclePiece = 0.01; // radians
constexpr int kMostPieces = 10000;         // of one line; degrees that ask for more are a mistake

// What lies beyond the reach of an azimuthal map is not drawn; an end out there moves to the edge, in its direction.
void drawWithinReach(PlotState* s, float lon, float lat) {
  const ProjectionState& m = s->map;
  // A quarter of the sphere in doubles: the tangent of the float beside it is negative.
  const double reach = std::min(static_cast<double>(s->projection.maximumAngle), std::numbers::pi / 2.0);
  SpherePolar from = polarAbout(m.projection, static_cast<double>(m.lastLon), static_cast<double>(m.lastLat));
  SpherePolar to = polarAbout(m.projection, static_cast<double>(lon), static_cast<double>(lat));
  if (from.distance > reach && to.distance > reach) return;
  if (from.distance > reach) {
    from.distance = reach;
    const PlotPoint p = spherePoint(m, from);
    penMove(s, p.x, p.y);
  }
  to.distance = std::min(to.distance, reach);
  const PlotPoint p = spherePoint(m, to);
  penDraw(s, p.x, p.y);
}

void connectByDegrees(PlotState* s, float lon, float lat) {
  const float lon0 = s->map.lastLon, lat0 = s->map.lastLat, dx = lon - lon0, dy = lat - lat0;
  const double distance = std::hypot(static_cast<double>(dx), static_cast<double>(dy));
  const int n = distance <= kMostPieces ? static_cast<int>(distance) : 0;
  for (int k = 1; k < n; k++) {
    const float f = static_cast<float>(k) / static_cast<float>(n);
    mapDraw(s, lon0 + f * dx, lat0 + f * dy);
  }
  mapDraw(s, lon, lat);
}

// Points at equal distances on the sphere between two points, whose distance D comes from the haversine formula.
void connectByGreatCircle(PlotState* s, float lon, float lat) {
  const double lon1 = static_cast<double>(s->map.lastLon) * kRadians, lon2 = static_cast<double>(lon) * kRadians;
  const double a = static_cast<double>(s->map.lastLat) * kRadians, b = static_cast<double>(lat) * kRadians;
  const double u = std::sin((lon1 - lon2) / 2.0), v = std::sin((a - b) / 2.0);
  const double distance = 2.0 * std::asin(std::min(std::sqrt(std::cos(a) * std::cos(b) * u * u + v * v), 1.0));
  const int n = std::isfinite(distance) ? static_cast<int>(distance / kGreatCirclePiece) : 0;
  for (int k = 1; k <= n - 2; k++) {
    const double f = static_cast<double>(k) / (n - 1);
    const double p = std::sin((1.0 - f) * distance) / std::sin(distance),
                 q = std::sin(f * distance) / std::sin(distance);
    const double x = p * std::cos(a) * std::cos(lon1) + q * std::cos(b) * std::cos(lon2);
    const double y = p * std::cos(a) * std::sin(lon1) + q * std::cos(b) * std::sin(lon2);
    const double z = p * std::sin(a) + q * std::sin(b);
    float between = static_cast<float>(std::atan2(y, x) / kRadians);
    if (between - s->map.lastLon > 180.0F) between -= 360.0F;
    if (between - s->map.lastLon < -180.0F) between += 360.0F;
    mapDraw(s, between, static_cast<float>(std::atan2(z, std::hypot(x, y)) / kRadians));
  }
  mapDraw(s, lon, lat);
}

void drawMapCurve(PlotState* s, const CurveData& d) {
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!isDrawable(s, d, i)) continue;
    if (continues(s, d, i)) {
      mapConnect(s, d.x[i], d.y[i]);
    } else {
      mapMove(s, d.x[i], d.y[i]);
    }
  }
}

} // namespace

PlotPoint spherePoint(const ProjectionState& m, const SpherePolar& point) {
  const MapPlane p = azimuthalPoint(m.projection.code, point);
  const double scale = static_cast<double>(m.mapScale);
  return {static_cast<float>(static_cast<double>(m.mapOriginX) + scale * p.x),
          static_cast<float>(static_cast<double>(m.mapOriginY) - scale * p.y)};
}

void mapMove(PlotState* s, float lon, float lat) {
  const PlotPoint p = plotPoint(s, lon, lat);
  penMove(s, p.x, p.y);
  s->map.lastLon = lon;
  s->map.lastLat = lat;
}

void mapDraw(PlotState* s, float lon, float lat) {
  if (isAzimuthal(openMapCode(s))) {
    drawWithinReach(s, lon, lat);
  } else {
    const PlotPoint p = plotPoint(s, lon, lat);
    penDraw(s, p.x, p.y);
  }
  s->map.lastLon = lon;
  s->map.lastLat = lat;
}

void mapConnect(PlotState* s, float lon, float lat) {
  const int mode = s->projection.mapLineMode;
  if (mode == kMapGreatCircle) return connectByGreatCircle(s, lon, lat);
  if (mode == kMapStraight || openMapCode(s) == kProjPlain) return mapDraw(s, lon, lat);
  connectByDegrees(s, lon, lat);
}

} // namespace quilla

using namespace quilla;

void CURVMP(const float* x, const float* y, int n) {
  PlotState* s = strictCheck(2, 3, "curvmp");
  if (!s) return;
  if (s->curve.curveMode != kCurveLine) return warnPlain(s, 14);
  drawCurve(s, {x, y, n}, drawMapCurve);
}
