#include "graph2d/matrix_size.h"

#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

namespace quilla {

GridLimits gridLimits(const PlotState* s, int axis) {
  if (s->matrix.matrixLimitsGiven) return {s->matrix.matrixStart[axis], s->matrix.matrixEnd[axis]};
  return {s->scaling.axisStart[axis], s->scaling.axisEnd[axis]};
}

void gridCoordinates(const PlotState* s, int axis, float* values, int n) {
  GridLimits limits = gridLimits(s, axis);
  if (s->axis.axisLogScale[axis] != 0) limits = {std::pow(10.0F, limits.start), std::pow(10.0F, limits.end)};
  const float step = (limits.end - limits.start) / static_cast<float>(n - 1);
  for (int i = 0; i < n; i++) values[i] = static_cast<float>(i) * step + limits.start;
}

} // namespace quilla

using namespace quilla;

void SURSZE(float xa, float xe, float ya, float ye) {
  PlotState* s = setterCheck("sursze");
  if (!s) return;
  if (!(std::fabs(xe - xa) > kTiny) || !(std::fabs(ye - ya) > kTiny)) return warnPlain(s, 10);
  s->matrix = {true, {xa, ya}, {xe, ye}};
}
