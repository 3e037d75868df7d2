// Settings of lights and materials, and the colour of a lit point.
#include <algorithm>
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "device/sink.h"
#include "graph3d/lighting.h"
#include "graph3d/view.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// The light of a number from 1; null after a message.
Light* lightOf(PlotState* s, int id) {
  return s && !checkRange(s, id, 1, kLightCount) ? &s->light.lights[id - 1] : nullptr;
}

// False after message 1.
bool notNegative(PlotState* s, float r, float g, float b) {
  if (r >= 0.0F && g >= 0.0F && b >= 0.0F && std::isfinite(r) && std::isfinite(g) && std::isfinite(b)) return true;
  warnPlain(s, 1);
  return false;
}

void setColorOf(float (&color)[3], float r, float g, float b) {
  color[0] = r;
  color[1] = g;
  color[2] = b;
}

// Ambient, diffuse and specular colour, counted from 1.
template <class Lit> float (&colorOf(Lit& lit, int part))[3] {
  return part == 1 ? lit.ambient : part == 2 ? lit.diffuse : lit.specular;
}

// The faces that SETFCE chose.
template <class Action> void eachFace(PlotState* s, Action action) {
  for (int face = kFaceTop; face <= kFaceBottom; face++)
    if (s->light.face == face || s->light.face == kFaceBoth) action(s->light.faces[face]);
}

// The user value at a box coordinate of an axis.
float userOfBox(const PlotState* s, int axis, float box) {
  const ViewState& v = s->viewState;
  const float length = v.box[axis];
  const float scaled = (box + length / 2.0F) * (v.end[axis] - v.start[axis]) / length + v.start[axis];
  return v.logarithmic[axis] ? std::pow(10.0F, scaled) : scaled;
}

} // namespace

void LIGHT(const char* mode) {
  PlotState* s = strictCheck(1, 3, "light");
  if (!s) return;
  if (int found = matchKeyword(s, "OFF +ON  ", 2, mode)) s->light.lightingOn = found == 2;
}

void LITMOD(int id, const char* mode) {
  PlotState* s = setterCheck("litmod");
  Light* light = lightOf(s, id);
  if (!light) return;
  if (int found = matchKeyword(s, "OFF +ON  ", 2, mode)) light->on = found == 2;
}

// In an open axis system lights are kept in user coordinates, before it as they are given.
void LITPOS(int id, float x, float y, float z, const char* mode) {
  PlotState* s = strictCheck(1, 3, "litpos");
  Light* light = lightOf(s, id);
  if (!light) return;
  const int found = matchKeyword(s, "ABS +USER+ANGL", 3, mode);
  if (!found) return;
  if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z)) return warnPlain(s, 2);
  light->mode = found;
  setColorOf(light->position, x, y, z);
  if (s->axis.axisSystemKind != kSystemBox || found == kViewUser) return;
  if (found == kViewAngles) boxOfAngles(x, y, z, light->position);
  for (int axis = 0; axis < 3; axis++) light->position[axis] = userOfBox(s, axis, light->position[axis]);
  light->mode = kViewUser;
}

void LITOPT(int id, float x, const char* option) {
  enum Option : int { kConstant = 4, kLinear = 5, kQuadratic = 6 };
  constexpr float kLeastConstant = 1e-10F;
  PlotState* s = strictCheck(1, 3, "litopt");
  Light* light = lightOf(s, id);
  if (!light) return;
  const int found = matchKeyword(s, "AMBI+DIFF+SPEC+CONS+LINE+QUAD", 6, option);
  if (!found || !notNegative(s, x, x, x)) return;
  switch (found) {
  case kConstant: light->constant = x == 0.0F ? kLeastConstant : x; break;
  case kLinear: light->linear = x; break;
  case kQuadratic: light->quadratic = x; break;
  default: setColorOf(colorOf(*light, found), x, x, x);
  }
}

void LITOP3(int id, float r, float g, float b, const char* option) {
  PlotState* s = strictCheck(1, 3, "litop3");
  Light* light = lightOf(s, id);
  if (!light) return;
  const int found = matchKeyword(s, "AMBI+DIFF+SPEC", 3, option);
  if (found && notNegative(s, r, g, b)) setColorOf(colorOf(*light, found), r, g, b);
}

void MATOPT(float x, const char* option) {
  constexpr int kExponent = 4;
  PlotState* s = strictCheck(1, 3, "matopt");
  if (!s) return;
  const int found = matchKeyword(s, "AMBI+DIFF+SPEC+EXPO", 4, option);
  if (!found || !notNegative(s, x, x, x)) return;
  eachFace(s, [&](Material& m) {
    if (found == kExponent) {
      m.exponent = x;
    } else {
      setColorOf(colorOf(m, found), x, x, x);
    }
  });
}

void MATOP3(float r, float g, float b, const char* option) {
  PlotState* s = strictCheck(1, 3, "matop3");
  if (!s) return;
  const int found = matchKeyword(s, "AMBI+DIFF+SPEC", 3, option);
  if (!found || !notNegative(s, r, g, b)) return;
  eachFace(s, [&](Material& m) { setColorOf(colorOf(m, found), r, g, b); });
}

void SETFCE(const char* face) {
  PlotState* s = setterCheck("setfce");
  if (!s) return;
  if (int found = matchKeyword(s, "TOP +BOTT+BOTH", 3, face)) s->light.face = found - 1;
}

int GETLIT(float x, float y, float z, float xn, float yn, float zn) {
  constexpr float kFull = 255.0F;
  PlotState* s = strictCheck(1, 3, "getlit");
  if (!s || !isBoxSystem(s)) return 0;
  const float length = std::sqrt(xn * xn + yn * yn + zn * zn);
  if (!(length > kTiny) || !std::isfinite(length)) {
    warnPlain(s, 2);
    return 0;
  }
  const BoxPoint normal{xn / length, yn / length, zn / length};
  const Shade c = shadeVertex(s, s->light.faces[kFaceTop], boxOfUser(s, x, y, z), normal);
  auto component = [&](float v) { return v > 0.0F ? static_cast<int>(std::fmin(v, 1.0F) * kFull + 0.5F) : 0; };
  return indexOfRgb(s, component(c.r), component(c.g), component(c.b));
}
