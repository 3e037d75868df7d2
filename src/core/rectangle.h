// Rectangle outlines.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// The outline of a rectangle whose upper left corner is (x, y), solid, `lines` lines wide: inward if positive, outward
// if negative. It is turned by the angle in degrees about that corner. The page origin is added.
void qqrect(PlotState* s, int x, int y, int width, int height, int lines, int angle);

} // namespace quilla
