// Page geometry: distances, the y direction of the user, the active page.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// A distance given in 0.1 mm, in plot units, rounded.
int plotUnits(const PlotState* s, int distance);

// y given by the user, or returned to him, as y counted from the top of the page.
float userY(const PlotState* s, float y);
int userY(const PlotState* s, int y);

// value + 0.5, truncated; values beyond 2.0e9 are cut there.
int roundHalfUp(float value);

// Distances and lengths far beyond every page are cut, so that sums with coordinates stay exact.
int limitedDistance(int distance);

// Sum of coordinates of a script, cut at the ends of the integers.
int addCoordinates(int a, int b);

// Page size and the clip of a whole page, at QUIINI.
void startPage(PlotState* s);

} // namespace quilla
