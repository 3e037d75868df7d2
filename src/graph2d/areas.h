// Filled and outlined areas.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Fills a polygon with the shading pattern and, unless NOARLN was called, draws its outline. Plot coordinates counted
// from the top of the page, ORIGIN not included.
void drawArea(PlotState* s, const float* x, const float* y, int n);

} // namespace quilla
