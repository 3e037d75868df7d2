// Opening a map axis system: limits, projection, scale and place.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "graph2d/axis_system.h"
#include "graph2d/projection.h"
#include "graph2d/scaling.h"
#include "map/map_axes.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;
constexpr float kSlack = 0.1F;
constexpr float kLonLimit = 540.1F, kPlainLatLimit = 180.1F, kMercatorLimit = 85.1F, kLatLimit = 90.1F;
constexpr float kWorldWidth = 360.1F, kHalfSphere = 180.1F, kWholeSphere = 90.0F;

struct MapLimits {
  float xa, xe, ya, ye;
};

bool within(float a, float b, float limit) { return std::fabs(a) <= limit && std::fabs(b) <= limit; }

// A span of latitudes of more than 90 degrees asks for the whole sphere.
bool isWholeSphere(int code, const MapLimits& m) { return isAzimuthal(code) && m.ye - m.ya > kWholeSphere; }

// referenced: MAPREF tells the parallels of a conic, which then may reach over the equator.
bool limitsFit(int code, bool referenced, const MapLimits& m) {
  if (code == kProjUser || isWholeSphere(code, m)) return true;
  if (isAzimuthal(code)) {
    return within(m.ya, m.ye, kHalfSphere) && std::fabs((m.ya + m.ye) / 2.0F) <= kLatLimit &&
           within(m.xa, m.xe, kHalfSphere) && m.xe - m.xa <= kHalfSphere;
  }
  if (!within(m.xa, m.xe, kLonLimit)) return false;
  if (code == kProjPlain) return within(m.ya, m.ye, kPlainLatLimit);
  if (code == kProjMercator) return within(m.ya, m.ye, kMercatorLimit);
  if (!within(m.ya, m.ye, kLatLimit)) return false;
  if (isWorld(code)) return m.xe - m.xa <= kWorldWidth;
  return !isConical(code) || referenced || m.ya >= -kSlack || m.ye <= kSlack;
}

bool checkLimits(PlotState* s, int code, const MapLimits& m) {
  if (!(m.xa < m.xe) || !(m.ya < m.ye)) {
    warnPlain(s, 52);
    return false;
  }
  if (limitsFit(code, s->projection.referencesGiven, m)) return true;
  warnPlain(s, 2);
  return false;
}

void setUpConic(PlotState* s, const MapLimits& m) {
  Projection& p = s->map.projection;
  const ProjectionGroup& g = s->projection;
  float low = g.lowerReference, high = g.upperReference;
  if (!g.referencesGiven) {
    low = m.ya + 0.25F * (m.ye - m.ya);
    high = m.ya + 0.75F * (m.ye - m.ya);
  }
  p.southern = (m.ya + m.ye) / 2.0F < 0.0F;
  p.conic = conicConstants(colatitudeOf(p, static_cast<double>(low)), colatitudeOf(p, static_cast<double>(high)));
}

// Plot units per projection unit of a map of the whole sphere, whose circle has a diameter.
double globeScale(int code, double diameter, double reach) {
  constexpr double kGnomonicReach = 85.0 * kRadians;
  switch (code) {
  case kProjGnomonic: return diameter / (2.0 * std::tan(std::min(reach, kGnomonicReach)));
  case kProjOrthographic: return diameter / (2.0 * std::sin(reach));
  case kProjStereographic: return diameter / (4.0 * std::tan(reach / 2.0));
  case kProjLambertAzimuthal: return diameter / (4.0 * std::sin(reach / 2.0));
  default: return diameter / reach; // twice the circle, which cuts it
  }
}

void setUpGlobe(PlotState* s) {
  ProjectionState& m = s->map;
  m.projection.centerLon = static_cast<double>(s->projection.poleLon);
  m.projection.centerLat = static_cast<double>(s->projection.poleLat);
  m.curvedFrame = m.globe = true;
  const int length = std::min(s->axis.axisLength[kAxisX], s->axis.axisLength[kAxisY]);
  m.globeRadius = static_cast<float>(length) / 2.0F + static_cast<float>(s->axis.graceMargin);
  m.mapScale =
      static_cast<float>(globeScale(m.projection.code, length - 1.0, static_cast<double>(s->projection.maximumAngle)));
}

// The scale of a map between two latitudes, which fill the height of the system.
void setUpScale(PlotState* s, const MapLimits& limits) {
  ProjectionState& m = s->map;
  Projection& p = m.projection;
  const double height = s->axis.axisLength[kAxisY] - 1.0, ya = static_cast<double>(limits.ya);
  const double ye = static_cast<double>(limits.ye), middle = (static_cast<double>(limits.xa) + limits.xe) / 2.0;
  double scale = 1.0;
  if (isConical(p.code)) {
    const double r0 = conicRadius(p, colatitudeOf(p, ya)), r1 = conicRadius(p, colatitudeOf(p, ye));
    p.conicCenter = (r0 + r1) / 2.0;
    scale = height / std::fabs(r1 - r0);
  } else {
    const double y0 = projectPoint(p, middle, ya).y, y1 = projectPoint(p, middle, ye).y;
    scale = isAzimuthal(p.code) ? height / (std::fabs(y1) + std::fabs(y0)) : height / (y1 - y0);
    if (isCylindrical(p.code)) m.mapOriginY += static_cast<float>(scale * y0);
  }
  m.mapScale = static_cast<float>(scale);
}

void setUpPlain(PlotState* s, const MapLimits& limits) {
  ProjectionState& m = s->map;
  m.plainLon = limits.xa;
  m.plainLat = limits.ya;
  m.plainScaleX = s->scaling.axisFactorX;
  m.plainScaleY = s->scaling.axisFactorY;
}

void setUpProjection(PlotState* s, int code, const MapLimits& limits) {
  ProjectionState& m = s->map;
  m = ProjectionState{};
  m.projection.code = code;
  m.projection.centerLon = (static_cast<double>(limits.xa) + limits.xe) / 2.0;
  m.edgeLon = limits.xa;
  m.edgeLat = limits.ya;
  m.mapOriginX = s->scaling.axisOriginPlotX;
  m.mapOriginY = s->scaling.axisOriginPlotY;
  if (code == kProjPlain) return setUpPlain(s, limits);
  if (code == kProjUser) return;
  m.mapOriginX += static_cast<float>(s->axis.axisLength[kAxisX]) / 2.0F;
  if (!isCylindrical(code)) m.mapOriginY -= static_cast<float>(s->axis.axisLength[kAxisY]) / 2.0F;
  m.curvedFrame = isWorld(code);
  if (isWholeSphere(code, limits)) return setUpGlobe(s);
  if (isAzimuthal(code)) m.projection.centerLat = (static_cast<double>(limits.ya) + limits.ye) / 2.0;
  if (isConical(code)) setUpConic(s, limits);
  setUpScale(s, limits);
}

// MAPOPT "AUTO": the X axis becomes as long as the lower edge of the map, around the same middle.
void shrinkAxis(PlotState* s, const MapLimits& limits, const AxisScale& scale) {
  AxisGroup& a = s->axis;
  const float width = mapToPlot(s, limits.xe, limits.ya).x - mapToPlot(s, limits.xa, limits.ya).x;
  const float shift = 0.5F + (static_cast<float>(a.axisLength[kAxisX]) - (width + 1.0F)) / 2.0F;
  const float left = static_cast<float>(addCoordinates(a.axisPosX, s->page.originX)) + shift;
  if (!(width >= 1.0F && left >= 0.0F && left + width <= static_cast<float>(s->geometry.pageWidth))) {
    return warnWithText(s, 168, "X-axis does not fit the page");
  }
  a.axisPosX += static_cast<int>(shift);
  a.axisLength[kAxisX] = static_cast<int>(1.5F + width);
  storeScale(s, kAxisX, scale);
}

// CENTER moves the axis system, and the map with it.
void centerMap(PlotState* s) {
  const int x = s->axis.axisPosX, y = s->axis.axisPosY;
  centerSystem(s);
  s->map.mapOriginX += static_cast<float>(s->axis.axisPosX - x);
  s->map.mapOriginY += static_cast<float>(s->axis.axisPosY - y);
}

} // namespace

void GRAFMP(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp) {
  PlotState* s = strictCheck(1, 1, "grafmp");
  if (!s) return;
  const int code = s->projection.projectionCode;
  const MapLimits limits{xa, xe, ya, ye};
  const AxisScale x{xa, xe, xor_, xstp}, y{ya, ye, yor, ystp};
  if (!checkLimits(s, code, limits) || checkScale(s, kAxisX, x) || checkScale(s, kAxisY, y)) return;
  s->axis.axisSystemKind = kSystemMap;
  s->level.plotLevel = kLevelAxis2D;
  s->axis.axisLogScale[kAxisX] = s->axis.axisLogScale[kAxisY] = 0; // degrees have no logarithms
  storeScale(s, kAxisX, x);
  storeScale(s, kAxisY, y);
  setUpProjection(s, code, limits);
  if (s->projection.mapAxisAuto && code != kProjPlain && !s->map.curvedFrame) shrinkAxis(s, limits, x);
  if (s->axis.centerState == 1) centerMap(s);
  storeAxisClip(s);
  if (!s->axis.noAxesDrawn) drawMapSystem(s);
  flushPath(s);
}
