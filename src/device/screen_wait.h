// Waiting for the user of a plot window.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Writes the title that tells how to go on, and waits as endMode and keyMode say; the delay in milliseconds.
void waitAtEnd(PlotState* s, int delay);

} // namespace quilla
