#include "graph3d/lighting.h"

#include <algorithm>
#include <cmath>

#include "graph3d/view.h"

namespace quilla {

namespace {

constexpr double kGlobalAmbient = 0.2;
constexpr double kGrazing = 1e-7; // light along the surface makes no highlight

struct Vector {
  double x, y, z;
};
double dot(Vector a, Vector b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Vector between(Vector from, Vector to) { return {to.x - from.x, to.y - from.y, to.z - from.z}; }
Vector divided(Vector a, double by) { return {a.x / by, a.y / by, a.z / by}; }
Vector vectorOf(const float (&v)[3]) { return {v[0], v[1], v[2]}; }
Vector vectorOf(const BoxPoint& p) { return {p.x, p.y, p.z}; }

Vector placeOf(const PlotState* s, const Light& light) {
  const float(&p)[3] = light.position;
  float box[3] = {p[0], p[1], p[2]};
  if (light.mode == kViewUser)
    for (int axis = 0; axis < 3; axis++) box[axis] = boxOfUser(s, axis, p[axis]);
  if (light.mode == kViewAngles) boxOfAngles(p[0], p[1], p[2], box);
  return vectorOf(box);
}

// What one light adds.
void addLight(const PlotState* s, const Light& light, const Material& m, Vector point, Vector normal, Vector toEye,
              double (&sum)[3]) {
  Vector to = between(point, placeOf(s, light));
  const double distance = std::sqrt(dot(to, to));
  to = divided(to, distance);
  const double a = dot(normal, to);
  const double attenuation =
      (static_cast<double>(light.quadratic) * distance + static_cast<double>(light.linear)) * distance +
      static_cast<double>(light.constant);
  const Vector mirrored{2.0 * a * normal.x - to.x, 2.0 * a * normal.y - to.y, 2.0 * a * normal.z - to.z};
  const double shine = dot(mirrored, toEye);
  for (int k = 0; k < 3; k++) {
    double part = static_cast<double>(light.ambient[k]) * static_cast<double>(m.ambient[k]);
    if (a >= 0.0) part += static_cast<double>(light.diffuse[k]) * static_cast<double>(m.diffuse[k]) * a;
    const double highlight = static_cast<double>(light.specular[k]) * static_cast<double>(m.specular[k]);
    if (highlight > static_cast<double>(kTiny) && a > kGrazing && shine > 0.0)
      part += std::pow(shine, static_cast<double>(m.exponent)) * highlight;
    sum[k] += part / attenuation;
  }
}

} // namespace

Shade shadeVertex(const PlotState* s, const Material& material, const BoxPoint& at, const BoxPoint& n) {
  const Vector point = vectorOf(at), normal = vectorOf(n);
  Vector toEye = between(point, vectorOf(s->viewState.eye));
  toEye = divided(toEye, std::sqrt(dot(toEye, toEye)));
  double sum[3];
  for (int k = 0; k < 3; k++) sum[k] = kGlobalAmbient * static_cast<double>(material.ambient[k]);
  for (const Light& light : s->light.lights)
    if (light.on) addLight(s, light, material, point, normal, toEye, sum);
  auto limited = [](double v) { return static_cast<float>(v < 1.0 ? v : 1.0); };
  return {limited(sum[0]), limited(sum[1]), limited(sum[2])};
}

void placeLights(PlotState* s) {
  for (Light& light : s->light.lights) {
    const Vector place = placeOf(s, light);
    light.mode = kViewAbsolute;
    light.position[0] = static_cast<float>(place.x);
    light.position[1] = static_cast<float>(place.y);
    light.position[2] = static_cast<float>(place.z);
  }
}

} // namespace quilla
