// What the routines that paint in colour graphs share.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// The state at level 3 with an axis system of GRAF3. Null after a message.
PlotState* colorGraph(const char* routine);

// One call paints: cut at the axes, in page coordinates of the library; the colour is given back.
struct Painter {
  PlotState* s;
  int color;
  bool internal;
};
Painter beginPainting(PlotState* s);
void endPainting(const Painter& painter);

// Makes a colour current unless it is.
void useColor(PlotState* s, int color);

} // namespace quilla
