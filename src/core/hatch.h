// Hatching of polygons in software.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Hatch lines of one pass come in groups: `lines` of them `step` apart, then a gap of `gap` steps to the next group.
struct HatchLines {
  int lines;
  float step;
  int gap;
};
HatchLines hatchLines(const PlotState* s);

// Fills the polygon with the hatch lines of the pattern, in page coordinates. Message 53 if there is no memory.
void hatchPolygon(PlotState* s, const float* x, const float* y, int n);

} // namespace quilla
