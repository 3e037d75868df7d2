// Characters of TrueType fonts on the page.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Measures one character, and draws it at the cursor unless the text is only measured; its advance in plot units.
// cell: width of a cell of fixed spacing. With measureInk its heights are given too.
float drawOutlineGlyph(PlotState* s, int code, float cell);

} // namespace quilla
