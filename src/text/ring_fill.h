// Filling of letters: closed rings of which the inner ones are counters.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Fills rings in the current colour. Ring k has the points from ends[k - 1] (0 for the first) to ends[k], in plot units
// with ORIGIN in them; its last point may repeat its first. A ring within an odd number of others is a hole.
void fillRings(PlotState* s, const float* x, const float* y, const int* ends, int rings);

} // namespace quilla
