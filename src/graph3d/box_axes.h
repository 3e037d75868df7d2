// The axes of a three-dimensional axis system.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Axes drawn as two-dimensional axes on planes of the box (LABL3D "STAN").
void drawAxesOnPlanes(PlotState* s);

// Axes drawn along the projected edges of the box (the other styles of LABL3D).
void drawAxesOnEdges(PlotState* s);

} // namespace quilla
