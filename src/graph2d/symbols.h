// Plotting symbols.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// One symbol of a height at a plot point counted from the top of the page, ORIGIN not included, in the current colour.
void drawSymbol(PlotState* s, int symbol, int height, float x, float y);

} // namespace quilla
