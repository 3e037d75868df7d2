// Axes, frames and labels of map axis systems.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Draws what stands around the open map: four axes and a frame, or a curved frame with labels.
void drawMapSystem(PlotState* s);

} // namespace quilla
