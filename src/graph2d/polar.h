// Polar axis systems: radius along X, angle in degrees along Y.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// A circle around the centre of a round system, radius in plot units.
void drawSystemCircle(PlotState* s, double radius);

// Circles at parts of the radius step and rays at parts of the angle step.
void drawPolarGrid(PlotState* s, int circles, int rays);

} // namespace quilla
