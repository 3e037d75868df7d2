#include "graph2d/projection.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quilla {

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;
constexpr double kNearPole = 89.99;                       // Mercator: a pole itself lies at infinity
constexpr double kFarthestColatitude = 179.99 * kRadians; // conformal conic: so does the other pole
constexpr double kWinkelCosine = 0.7660444;               // cosine of the standard parallel at 40 degrees
constexpr double kEqualParallels = 1e-9;

double clipped(double cosine) { return std::clamp(cosine, -1.0, 1.0); }

MapPlane cylindricalPoint(int code, double lon, double lat) {
  double x = lon * kRadians;
  if (code == kProjMercator) {
    if (std::fabs(lat) == 90.0) lat = std::copysign(kNearPole, lat);
    return {x, std::log(std::tan((lat / 2.0 + 45.0) * kRadians))};
  }
  return {x, code == kProjEqualArea ? std::sin(lat * kRadians) : lat};
}

MapPlane worldPoint(int code, double lon, double lat) {
  if (code == kProjMollweide || code == kProjElliptical) return {lon, lat};
  double a = lat * kRadians, b = lon * kRadians / 2.0;
  if (code == kProjSanson) return {2.0 * b * std::cos(a), a};
  // Distance D from the centre of the map with half the longitude, and the angle A from the north.
  double distance = std::acos(clipped(std::cos(a) * std::cos(b)));
  double angle = distance != 0.0 ? std::acos(clipped(std::sin(a) / std::sin(distance))) : 0.0;
  if (lon < 0.0) angle = -angle;
  if (code == kProjHammer) {
    double h = std::sin(distance / 2.0);
    return {4.0 * h * std::sin(angle), 2.0 * h * std::cos(angle)};
  }
  MapPlane aitoff{2.0 * distance * std::sin(angle), distance * std::cos(angle)};
  if (code != kProjWinkel) return aitoff;
  return {(aitoff.x + 2.0 * b * kWinkelCosine) / 2.0, (aitoff.y + a) / 2.0};
}

MapPlane conicPoint(const Projection& p, double lon, double lat) {
  if (lon < -180.0) lon += 360.0;
  if (lon > 180.0) lon -= 360.0;
  double radius = conicRadius(p, colatitudeOf(p, lat)), angle = conicAngle(p, lon * kRadians);
  double y = p.conicCenter - radius * std::cos(angle);
  return {radius * std::sin(angle), p.southern ? -y : y};
}

double azimuthalRadius(int code, double c) {
  switch (code) {
  case kProjGnomonic: return std::tan(c);
  case kProjOrthographic: return c <= std::numbers::pi / 2.0 ? std::sin(c) : 2.0 - std::sin(c);
  case kProjStereographic: return 2.0 * std::tan(c / 2.0);
  case kProjLambertAzimuthal: return 2.0 * std::sin(c / 2.0);
  default: return c;
  }
}

} // namespace

ConicConstants conicConstants(double colatitude1, double colatitude2) {
  ConicConstants k;
  k.parallel = colatitude1;
  k.oneParallel = std::fabs(colatitude2 - colatitude1) < kEqualParallels;
  if (k.oneParallel) {
    double half = std::cos(colatitude1 / 2.0);
    k.c0 = std::cos(colatitude1);
    k.c1 = half * half;
    k.c3 = std::tan(colatitude1);
    k.c4 = 2.0 / half;
    k.c5 = k.c3 / std::pow(std::tan(colatitude1 / 2.0), k.c0);
    return k;
  }
  double mean = (colatitude1 + colatitude2) / 2.0, h = (colatitude2 - colatitude1) / 2.0;
  double sine1 = std::sin(colatitude1), sine2 = std::sin(colatitude2);
  double tangent1 = std::tan(colatitude1 / 2.0), tangent2 = std::tan(colatitude2 / 2.0);
  k.c0 = std::sin(h) * std::cos(mean) / h;
  k.c1 = (std::cos(colatitude1) + std::cos(colatitude2)) / 2.0;
  k.c2 = (std::log10(sine2) - std::log10(sine1)) / (std::log10(tangent2) - std::log10(tangent1));
  k.c3 = std::tan(mean) * h / std::tan(h);
  k.c4 = 4.0 / (k.c1 * k.c1) * sine1 * sine1 * sine2 * sine2;
  k.c5 = sine2 / (k.c2 * std::pow(tangent2, k.c2));
  k.c6 = mean;
  return k;
}

double colatitudeOf(const Projection& p, double lat) { return (p.southern ? 90.0 + lat : 90.0 - lat) * kRadians; }

double conicRadius(const Projection& p, double colatitude) {
  const ConicConstants& k = p.conic;
  switch (p.code) {
  case kProjConformal: {
    double half = std::min(colatitude, kFarthestColatitude) / 2.0;
    return k.c5 * std::pow(std::tan(half), k.oneParallel ? k.c0 : k.c2);
  }
  case kProjAlbers: {
    double sine = std::sin(colatitude / 2.0);
    return k.oneParallel ? k.c4 * sine : std::sqrt(4.0 * sine / k.c1 + k.c4);
  }
  case kProjConicEquidistant: return colatitude + k.c3 - (k.oneParallel ? k.parallel : k.c6);
  default: return colatitude;
  }
}

double conicAngle(const Projection& p, double longitude) {
  const ConicConstants& k = p.conic;
  switch (p.code) {
  case kProjConformal: return (k.oneParallel ? k.c0 : k.c2) * longitude;
  case kProjAlbers: return k.c1 * longitude;
  case kProjConicEquidistant: return k.c0 * longitude;
  default: return longitude;
  }
}

SpherePolar polarAbout(const Projection& p, double lon, double lat) {
  if (p.centerLat == 90.0) return {(90.0 - lat) * kRadians, (lon - 90.0 - p.centerLon) * kRadians};
  if (p.centerLat == -90.0) return {(90.0 + lat) * kRadians, -(lon - 90.0 - p.centerLon) * kRadians};
  double phi = lat * kRadians, phi0 = p.centerLat * kRadians, east = lon - p.centerLon;
  double cosine = std::cos(phi) * std::cos(phi0) * std::cos(east * kRadians) + std::sin(phi) * std::sin(phi0);
  double c = std::acos(clipped(cosine));
  if (c == 0.0) return {0.0, (lon - 90.0) * kRadians};
  double q = (std::sin(phi) - std::cos(c) * std::sin(phi0)) / (std::sin(c) * std::cos(phi0));
  double angle = std::acos(clipped(q));
  bool eastern = p.centerLon < 0.0 ? east > 0.0 && east < 180.0 : east > 0.0 || east < -180.0;
  return {c, (eastern ? -angle : angle) + std::numbers::pi / 2.0};
}

MapPlane azimuthalPoint(int code, const SpherePolar& point) {
  double radius = azimuthalRadius(code, point.distance);
  return {radius * std::cos(point.direction), radius * std::sin(point.direction)};
}

MapPlane projectPoint(const Projection& p, double lon, double lat) {
  if (isAzimuthal(p.code)) return azimuthalPoint(p.code, polarAbout(p, lon, lat));
  if (p.code == kProjPlain || p.code == kProjUser) return {lon, lat};
  double east = lon - p.centerLon;
  if (isConical(p.code)) return conicPoint(p, east, lat);
  return isWorld(p.code) ? worldPoint(p.code, east, lat) : cylindricalPoint(p.code, east, lat);
}

} // namespace quilla
