// The bar that shows a scale of colours.
#pragma once

#include "core/plot_state.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/scaling.h"

namespace quilla {

// A bar on the page. Coordinates in plot units from the top of the page, ORIGIN not included.
struct ColorBar {
  int x, y;   // lower left corner
  int length; // along the bar
  int side;   // AxisSide on which ticks, labels and name stand; those of a level bar stand above or below it
};

// The colours of the range in order, the frame, and the axis Z with its labels and name. The scale of Z is in use.
// The axis along the outer edge of a bar.
AxisPlace colorBarAxis(const PlotState* s, const ColorBar& bar);

void drawColorBar(PlotState* s, const ColorBar& bar);

// Length of the bar beside the axis system: that of AX3LEN, or of the side that it stands at.
int colorBarLength(const PlotState* s);

// Room that the bar takes on a side beyond the axis system; 0 if none stands there.
int colorBarExtent(PlotState* s, int side);

// The bar beside the axis system, as POSBAR, JUSBAR and their kin tell.
ColorBar placedColorBar(PlotState* s);

} // namespace quilla
