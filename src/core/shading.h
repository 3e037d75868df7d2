// Selecting shading patterns.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Pattern of a number of SHDPAT: 0 to 17 predefined, above a code of its own.
void selectPattern(PlotState* s, int number);

} // namespace quilla
