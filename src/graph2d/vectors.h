// Arrows.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// A line in plot units, y counted from the top, with the head that a code of four digits wxyz describes:
//   w  0 open, 1 outlined, 2 filled
//   x  half the width of the head in tenths of its length, 0 as 3
//   y  length of the head in multiples of 10 plot units, but at most the line; 0 a quarter of the line
//   z  0 no head, 1 at the end, 2 at both ends
// A code below 0 or above 2992 and other digits w and z count as no head.
void drawVector(PlotState* s, float x1, float y1, float x2, float y2, int code);

} // namespace quilla
