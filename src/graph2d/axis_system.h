// Opening and drawing an axis system, and its titles.
#pragma once

#include "core/plot_state.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/scaling.h"

namespace quilla {

// Scales, draws and enters a rectangular system, at level 2; false after a message, the level is then 1.
bool openRectangularSystem(PlotState* s, AxisScale x, AxisScale y);

// Draws the titles at their place above or below the axis system.
void drawTitle(PlotState* s);

// Grid lines of the open rectangular system, so many per label step.
void drawGrid(PlotState* s, int nx, int ny);

// Room of the titles above the axis system, ticks and labels of the top included; 0 if there are none.
int titleExtent(PlotState* s);

// Moves the system so that it stands with labels, names and title in the middle of the page.
void centerSystem(PlotState* s);

// Background, axes of the four sides and frame of a rectangular system; where a value stands on an axis may be told.
void drawFourSidedSystem(PlotState* s, OffsetOnAxis alongX, OffsetOnAxis alongY);
// Fills the area of the axis system, a disc on a round one, in a colour; with the background asked for by AXSBGD.
void fillSystem(PlotState* s, int color);
void fillSystemBackground(PlotState* s);

// First attributes of the cycles again.
void resetCycle(PlotState* s);

} // namespace quilla
