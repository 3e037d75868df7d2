// The plot file: its name, and opening and closing it.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Settles plotFileName from SETFIL or the default name, and its version by FILMOD and FILOPT. False after a message.
bool namePlotFile(PlotState* s);

// Opens plotFileName for the writers of text lines and records. False after a message.
bool openPlotFile(PlotState* s);

// Writes the rest of the line buffer and closes the plot file, if one is open; a file that could not be written is
// reported with its name.
void closePlotFile(PlotState* s);

// The report of a file that could not be opened or written.
void reportFileError(PlotState* s);

} // namespace quilla
