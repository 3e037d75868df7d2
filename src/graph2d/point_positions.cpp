// Points of any two-dimensional axis system as plot coordinates, and back.
#include <cmath>
#include <numbers>

#include "core/levels.h"
#include "core/page.h"
#include "graph2d/projection.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

struct UserPoint {
  float x, y;
};

UserPoint mapPointAt(const PlotState* s, float px, float py) {
  const ProjectionState& m = s->map;
  if (m.projection.code == kProjPlain) {
    return {m.plainLon + (px - m.mapOriginX) / m.plainScaleX, m.plainLat + (m.mapOriginY - py) / m.plainScaleY};
  }
  const double scale = static_cast<double>(m.mapScale);
  const MapDegrees g = unprojectPoint(
      m.projection, {static_cast<double>(px - m.mapOriginX) / scale, static_cast<double>(m.mapOriginY - py) / scale});
  return {static_cast<float>(g.lon), static_cast<float>(g.lat)};
}

UserPoint polarPointAt(const PlotState* s, float px, float py) {
  constexpr double kFullCircle = 360.0, kDegrees = 180.0 / std::numbers::pi;
  const double dx = static_cast<double>(px) - s->axis.axisCrossX, dy = s->axis.axisCrossY - static_cast<double>(py);
  double angle = std::atan2(dy, dx) * kDegrees - 90.0 * s->axis.polarStart;
  if (s->axis.polarClockwise) angle = -angle;
  angle = std::fmod(angle + 2.0 * kFullCircle, kFullCircle);
  return {static_cast<float>(std::hypot(dx, dy)) / s->scaling.axisFactorX, static_cast<float>(angle)};
}

UserPoint chartPointAt(const PlotState* s, float px, float py) {
  const double radius = (s->axis.axisLength[kAxisX] - 1) / 2.0;
  const Complex z = impedanceOf(s, {(static_cast<double>(px) - s->axis.axisCrossX) / radius,
                                    (s->axis.axisCrossY - static_cast<double>(py)) / radius});
  return {static_cast<float>(z.re), static_cast<float>(z.im)};
}

UserPoint userPointAt(const PlotState* s, float px, float py) {
  switch (s->axis.axisSystemKind) {
  case kSystemMap: return mapPointAt(s, px, py);
  case kSystemPolar: return polarPointAt(s, px, py);
  case kSystemRealImaginary: return chartPointAt(s, px, py);
  default: break;
  }
  const ScalingState& c = s->scaling;
  const float x = (px - c.axisOriginPlotX) / c.axisFactorX + c.axisStart[kAxisX];
  const float y = (c.axisOriginPlotY - py) / c.axisFactorY + c.axisStart[kAxisY];
  return {s->axis.axisLogScale[kAxisX] != 0 ? std::pow(10.0F, x) : x,
          s->axis.axisLogScale[kAxisY] != 0 ? std::pow(10.0F, y) : y};
}

} // namespace

void POS2PT(float x, float y, float* xp, float* yp) {
  PlotState* s = strictCheck(2, 3, "pos2pt");
  if (!s) return;
  const PlotPoint p = plotPoint(s, x, y);
  *xp = p.x;
  *yp = userY(s, p.y);
}

void PT2POS(float xp, float yp, float* x, float* y) {
  PlotState* s = strictCheck(2, 3, "pt2pos");
  if (!s) return;
  const UserPoint p = userPointAt(s, xp, userY(s, yp));
  *x = p.x;
  *y = p.y;
}
