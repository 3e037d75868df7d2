// From the plane of a map back to degrees.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "graph2d/projection.h"

namespace quilla {

namespace {

constexpr double kRadians = std::numbers::pi / 180.0, kDegrees = 180.0 / std::numbers::pi;

double safeAsin(double sine) { return std::asin(std::clamp(sine, -1.0, 1.0)); }

// Latitude and half the longitude, in radians, at a distance from the centre of an Aitoff map and an angle from north.
MapDegrees halvedSphere(double distance, double angle) {
  double lat = safeAsin(std::sin(distance) * std::cos(angle));
  double half = std::atan2(std::sin(distance) * std::sin(angle), std::cos(distance));
  return {2.0 * half * kDegrees, lat * kDegrees};
}

// Winkel's map has no inverse in closed form: Newton's method, with slopes from differences.
MapDegrees unprojectWinkel(const Projection& centred, const MapPlane& at) {
  constexpr int kMostSteps = 30;
  constexpr double kDifference = 1e-4, kEnough = 1e-10, kLonLimit = 180.0, kLatLimit = 89.9;
  MapDegrees g{std::clamp(at.x * kDegrees, -kLonLimit, kLonLimit), std::clamp(at.y * kDegrees, -kLatLimit, kLatLimit)};
  for (int i = 0; i < kMostSteps; i++) {
    MapPlane p = projectPoint(centred, g.lon, g.lat);
    double ex = at.x - p.x, ey = at.y - p.y;
    if (std::fabs(ex) + std::fabs(ey) < kEnough) break;
    MapPlane east = projectPoint(centred, g.lon + kDifference, g.lat);
    MapPlane north = projectPoint(centred, g.lon, g.lat + kDifference);
    double xe = (east.x - p.x) / kDifference, ye = (east.y - p.y) / kDifference;
    double xn = (north.x - p.x) / kDifference, yn = (north.y - p.y) / kDifference, d = xe * yn - xn * ye;
    if (d == 0.0) break;
    g.lon = std::clamp(g.lon + (ex * yn - ey * xn) / d, -kLonLimit, kLonLimit);
    g.lat = std::clamp(g.lat + (ey * xe - ex * ye) / d, -kLatLimit, kLatLimit);
  }
  return g;
}

MapDegrees unprojectWorld(const Projection& p, const MapPlane& at) {
  switch (p.code) {
  case kProjSanson: {
    double cosine = std::cos(at.y);
    return {cosine != 0.0 ? at.x / cosine * kDegrees : 0.0, at.y * kDegrees};
  }
  case kProjAitoff: return halvedSphere(std::hypot(at.x / 2.0, at.y), std::atan2(at.x / 2.0, at.y));
  case kProjHammer:
    return halvedSphere(2.0 * safeAsin(std::hypot(at.x / 4.0, at.y / 2.0)), std::atan2(at.x / 2.0, at.y));
  case kProjWinkel: {
    Projection centred = p;
    centred.centerLon = 0.0;
    return unprojectWinkel(centred, at);
  }
  default: return {at.x, at.y};
  }
}

double cylindricalLat(int code, double y) {
  if (code == kProjMercator) return 2.0 * std::atan(std::exp(y)) * kDegrees - 90.0;
  return code == kProjEqualArea ? safeAsin(y) * kDegrees : y;
}

double conicColatitude(const Projection& p, double radius) {
  const ConicConstants& k = p.conic;
  switch (p.code) {
  case kProjConformal: return 2.0 * std::atan(std::pow(radius / k.c5, 1.0 / (k.oneParallel ? k.c0 : k.c2)));
  case kProjAlbers: return 2.0 * safeAsin(k.oneParallel ? radius / k.c4 : (radius * radius - k.c4) * k.c1 / 4.0);
  case kProjConicEquidistant: return radius - k.c3 + (k.oneParallel ? k.parallel : k.c6);
  default: return radius;
  }
}

MapDegrees unprojectConic(const Projection& p, const MapPlane& at) {
  double below = p.conicCenter - (p.southern ? -at.y : at.y);
  double radius = std::hypot(at.x, below), lon = std::atan2(at.x, below) / conicAngle(p, 1.0);
  double colatitude = conicColatitude(p, radius) * kDegrees;
  return {lon * kDegrees, p.southern ? colatitude - 90.0 : 90.0 - colatitude};
}

} // namespace

double azimuthalDistance(int code, double radius) {
  switch (code) {
  case kProjGnomonic: return std::atan(radius);
  case kProjOrthographic: return radius <= 1.0 ? std::asin(radius) : std::numbers::pi - safeAsin(2.0 - radius);
  case kProjStereographic: return 2.0 * std::atan(radius / 2.0);
  case kProjLambertAzimuthal: return 2.0 * safeAsin(radius / 2.0);
  default: return radius;
  }
}

namespace {

// The point at a distance from the centre of the sphere's part, in a direction from north.
MapDegrees unprojectAzimuthal(const Projection& p, const MapPlane& at) {
  double c = azimuthalDistance(p.code, std::hypot(at.x, at.y)), azimuth = std::atan2(at.x, at.y);
  double phi0 = p.centerLat * kRadians, sine = std::sin(c), cosine = std::cos(c);
  double lat = safeAsin(cosine * std::sin(phi0) + sine * std::cos(phi0) * std::cos(azimuth));
  double east =
      std::atan2(sine * std::sin(azimuth), std::cos(phi0) * cosine - std::sin(phi0) * sine * std::cos(azimuth));
  return {east * kDegrees, lat * kDegrees};
}

} // namespace

MapDegrees unprojectPoint(const Projection& p, const MapPlane& at) {
  if (p.code == kProjPlain || p.code == kProjUser) return {at.x, at.y};
  MapDegrees g{at.x * kDegrees, 0.0};
  if (isCylindrical(p.code)) g.lat = cylindricalLat(p.code, at.y);
  if (isWorld(p.code)) g = unprojectWorld(p, at);
  if (isConical(p.code)) g = unprojectConic(p, at);
  if (isAzimuthal(p.code)) g = unprojectAzimuthal(p, at);
  return {g.lon + p.centerLon, g.lat};
}

} // namespace quilla
