// The instruction alphabet: commands inside a text.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Takes one character between shift-in and shift-out; a command letter runs the command read before.
void readInstruction(PlotState* s, int code);

// Runs the command that is still stored.
void finishInstructions(PlotState* s);

} // namespace quilla
