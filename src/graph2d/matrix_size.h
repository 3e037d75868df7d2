// Grids that are told by their values alone: they cover the axis system or the limits of SURSZE.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Limits of the grid on axis X or Y; exponents of ten on a logarithmic axis.
struct GridLimits {
  float start, end;
};
GridLimits gridLimits(const PlotState* s, int axis);

// n coordinates, at least 2, in equal steps between the limits, those of a logarithmic axis raised before.
void gridCoordinates(const PlotState* s, int axis, float* values, int n);

} // namespace quilla
