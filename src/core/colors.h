// Colour tables, named and direct colours.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Flushes the path, makes the colour value current and tells the device.
void setColor(PlotState* s, int value);

// Loads table kind (see TableKind) with named colours and foreground, and tells the device.
void loadColorTable(PlotState* s, int kind);

// Entry that trades places with entry 0 when the table is reversed: 1, 15 or 255.
int lastTableEntry(int kind);

// Direct colour value of components 0 to 255.
constexpr int directColor(int r, int g, int b) { return 0x01000000 | (b << 16) | (g << 8) | r; }

} // namespace quilla
