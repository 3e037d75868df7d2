// Page geometry: distances, the y direction of the user, the active page.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// A distance given in 0.1 mm, in plot units, rounded.
int plotUnits(const PlotState* s, int distance);

// y given by the user, or returned to him, as y counted from the top of the page.
float userY(const PlotState* s, float y);
int userY(const PlotState* s, int y);

// value + 0.5, truncated.
int roundHalfUp(float value);

// Page size and the clip of a whole page, at QUIINI.
void startPage(PlotState* s);

} // namespace quilla
