// Plot windows: opening, choosing and closing them, and what is shown in them.
//
// The plot is painted into the canvas of the current window; a window shows a copy of it. Without a window system all
// this works on pictures in memory, and nothing waits.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Window number of a device, from 1.
int windowOfDevice(int deviceNumber);

// The window of the plot at QUIINI; one that an earlier plot has left open is taken over. False after a message.
bool openScreen(PlotState* s);
// The end of a plot: shows the pictures and waits as the modes say.
void endScreen(PlotState* s);
// Closes the windows, unless they shall stay, at the very end of QUIFIN.
void releaseScreen(PlotState* s);
// Frees all windows and their pictures.
void freeScreen(PlotState* s);

// Copies the picture to the window, and lets the window system work.
void refreshScreen(PlotState* s);
// Shows the page and waits before the next one.
void waitForNextPage(PlotState* s);

// Windows by their index. The path is flushed by the caller.
bool addWindow(PlotState* s, int index);
void removeWindow(PlotState* s, int index);
void selectWindow(PlotState* s, int index);
void hideWindow(PlotState* s, int index, bool hidden);
void titleWindow(PlotState* s, const char* title);

// Handles what has happened to the windows, without waiting.
void handleScreenEvents(PlotState* s);
// As if the user had pressed the button that ends waiting.
void pressEndButton(PlotState* s);

// Runs a cursor mode until the user has ended it. Positions in pixels of the picture.
void runCursor(PlotState* s, int mode);

} // namespace quilla
