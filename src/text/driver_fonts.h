// Fonts of the output devices.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Makes a row of the table of PostScript fonts the current font.
void loadPsFont(PlotState* s, int row);

// With PSMODE: Symbol for alphabet 2, the italic partner for alphabet 4, the saved font again for alphabet 1.
void shiftDriverFont(PlotState* s, int alphabet);

// Remembers the font before a text, and brings it back after one that changed it.
void saveDriverFont(PlotState* s);
void restoreDriverFont(PlotState* s);

} // namespace quilla
