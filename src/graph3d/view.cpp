#include "graph3d/view.h"

#include <algorithm>
#include <cmath>

#include "core/messages.h"
#include "graph3d/box.h"

namespace quilla {

namespace {

using Row = float[4];

bool insideBox(const PlotState* s, const float p[3]) {
  for (int axis = 0; axis < 3; axis++)
    if (!(std::fabs(p[axis]) <= s->viewState.box[axis] / 2.0F)) return false;
  return true;
}

void boxOfUserPoint(const PlotState* s, const float user[3], float box[3]) {
  for (int axis = 0; axis < 3; axis++) box[axis] = boxOfUser(s, axis, user[axis]);
}

void setFocus(PlotState* s) {
  const ViewGroup& g = s->view;
  float(&focus)[3] = s->viewState.focus;
  if (g.focusMode == kViewUser) return boxOfUserPoint(s, g.focus, focus);
  for (int i = 0; i < 3; i++) focus[i] = g.focusMode == kViewAbsolute ? g.focus[i] : 0.0F;
}

// A point of the other modes is kept in box coordinates from here on.
void setEye(PlotState* s) {
  ViewGroup& g = s->view;
  float point[3];
  std::copy_n(g.eye, 3, point);
  if (g.eyeMode == kViewUser) boxOfUserPoint(s, point, g.eye);
  if (g.eyeMode == kViewAngles) boxOfAngles(point[0], point[1], point[2], g.eye);
  if (g.eyeMode != kViewUnset) g.eyeMode = kViewAbsolute;
  bool given = g.eyeMode != kViewUnset;
  if (given && (insideBox(s, g.eye) || !std::isfinite(g.eye[0] + g.eye[1] + g.eye[2]))) {
    warnPlain(s, 33);
    given = false;
  }
  constexpr float kDefaultEye[3] = {2.0F, -2.5F, 2.0F}; // box lengths
  ViewState& v = s->viewState;
  for (int i = 0; i < 3; i++) v.eye[i] = given ? g.eye[i] : kDefaultEye[i] * v.box[i];
}

// The eye looks straight along Z: X to the right and Y upwards, turned by the up angle.
void lookDown(const float e[3], float c, float s, Row& x, Row& y, Row& z) {
  const float rows[3][4] = {
      {c, -s, 0.0F, s * e[1] - c * e[0]}, {s, c, 0.0F, -s * e[0] - c * e[1]}, {0.0F, 0.0F, -1.0F, e[2]}};
  std::copy_n(rows[0], 4, x);
  std::copy_n(rows[1], 4, y);
  std::copy_n(rows[2], 4, z);
}

// Eye e at a horizontal distance h from the focus, which lies at -d from it. Row X is the right hand, Y the upward
// direction, Z the distance from the eye.
void lookAt(const float e[3], const float d[3], float h, float c, float s, Row& x, Row& y, Row& z) {
  const float distance = std::sqrt(h * h + d[2] * d[2]);
  const float sa = d[1] / h, ca = d[0] / h, cb = h / distance, sb = d[2] / distance;
  const float p = -(e[0] * ca) - e[1] * sa, q = sa * e[0] - ca * e[1], r = -(cb * e[2]) - p * sb;
  const float rows[3][4] = {{sb * ca * s - sa * c, sb * sa * s + ca * c, -cb * s, q * c - r * s},
                            {-(sa * s) - sb * ca * c, ca * s - sb * sa * c, cb * c, c * r + s * q},
                            {-(ca * cb), -(sa * cb), -sb, -(cb * p - sb * e[2])}};
  std::copy_n(rows[0], 4, x);
  std::copy_n(rows[1], 4, y);
  std::copy_n(rows[2], 4, z);
}

// W is constant. Z/W grows with the distance.
void projectParallel(const ViewGroup& g, const float e[3], Row& z, Row& w) {
  const float far = g.farPlane < 0.0F ? 2.0F * std::sqrt(e[0] * e[0] + e[1] * e[1] + e[2] * e[2]) : g.farPlane;
  for (float& v : z) v *= 1.0F / far;
  w[0] = w[1] = w[2] = 0.0F;
  w[3] = 2.0F / g.viewScale;
}

// W is the distance times the tangent of half the view angle; Z/W is 0 on the near plane and 1 on the far one.
void projectCentral(const ViewGroup& g, Row& z, Row& w) {
  const float t = std::tan(g.halfAngle), u = g.farPlane < 0.0F ? 1.0F : 1.0F - g.nearPlane / g.farPlane;
  const float e = t / u, k = -(g.nearPlane * t) / u;
  for (int i = 0; i < 4; i++) w[i] = z[i] * t;
  for (int i = 0; i < 3; i++) z[i] *= e;
  z[3] = k + e * z[3];
}

} // namespace

void boxOfAngles(float horizontal, float vertical, float radius, float point[3]) {
  const float h = horizontal * kDegToRad, v = vertical * kDegToRad;
  point[0] = radius * std::cos(v) * std::sin(h);
  point[1] = radius * std::cos(v) * std::cos(h);
  point[2] = radius * std::sin(v);
}

void setView(PlotState* s) {
  constexpr float kStraightDown = 1e-6F;
  setFocus(s);
  setEye(s);
  ViewState& v = s->viewState;
  const ViewGroup& g = s->view;
  const float d[3] = {v.eye[0] - v.focus[0], v.eye[1] - v.focus[1], v.eye[2] - v.focus[2]};
  const float h = std::sqrt(d[0] * d[0] + d[1] * d[1]), c = std::cos(g.upAngle), n = std::sin(g.upAngle);
  float(&m)[4][4] = v.matrix;
  if (h < kStraightDown) {
    lookDown(v.eye, c, n, m[0], m[1], m[2]);
  } else {
    lookAt(v.eye, d, h, c, n, m[0], m[1], m[2]);
  }
  if (g.orthographic) {
    projectParallel(g, v.eye, m[2], m[3]);
  } else {
    projectCentral(g, m[2], m[3]);
  }
  v.ready = true;
}

} // namespace quilla
