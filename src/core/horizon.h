// The floating horizon under the line pipeline: lines drawn from front to back are hidden where they lie between the
// bounds of their columns. It knows nothing of surfaces.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Takes the block of columns if there is none, and empties it. Message 53 if there is no memory.
void horizonReset(PlotState* s);
void horizonFree(PlotState* s);

// Move and draw in plot coordinates, clipped to the page, ORIGIN included. What is visible goes to the sink. Without
// columns nothing is drawn.
void horizonMove(PlotState* s, float x, float y);
void horizonDraw(PlotState* s, float x, float y);

} // namespace quilla
