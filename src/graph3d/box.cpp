#include "graph3d/box.h"

#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "graph2d/scaling.h"

namespace quilla {

bool isBoxSystem(PlotState* s) {
  if (s->axis.axisSystemKind == kSystemBox) return true;
  warnPlain(s, 35);
  return false;
}

PlotState* boxCheck(const char* name) {
  PlotState* s = strictCheck(kLevelAxis3D, kLevelAxis3D, name);
  return s && isBoxSystem(s) ? s : nullptr;
}

float boxOfScaled(const PlotState* s, int axis, float value) {
  const ViewState& v = s->viewState;
  return (value - v.start[axis]) * v.box[axis] / (v.end[axis] - v.start[axis]) - v.box[axis] / 2.0F;
}

float boxOfUser(const PlotState* s, int axis, float value) {
  return boxOfScaled(s, axis, s->viewState.logarithmic[axis] ? logarithmOf(s, value) : value);
}

BoxPoint boxOfUser(const PlotState* s, float x, float y, float z) {
  return {boxOfUser(s, kAxisX, x), boxOfUser(s, kAxisY, y), boxOfUser(s, kAxisZ, z)};
}

BoxPoint transformedBox(const PlotState* s, const BoxPoint& p) {
  if (!s->boxTransform.on) return p;
  const float(&m)[3][4] = s->boxTransform.matrix;
  auto row = [&](int i) { return m[i][0] * p.x + m[i][1] * p.y + m[i][2] * p.z + m[i][3]; };
  return {row(0), row(1), row(2)};
}

BoxPoint boxCorner(const PlotState* s, int corner) {
  const int k = (corner - 1) % 4;
  const bool right = k == 1 || k == 2, behind = k >= 2, top = corner > 4;
  const float(&box)[3] = s->viewState.box;
  return {(right ? 0.5F : -0.5F) * box[0], (behind ? 0.5F : -0.5F) * box[1], (top ? 0.5F : -0.5F) * box[2]};
}

} // namespace quilla
