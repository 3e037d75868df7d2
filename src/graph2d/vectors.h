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
// Other parts than 3 tenths and a quarter can stand for the digits 0.
struct HeadShape {
  float halfWidth = 0.3F; // part of the head's length
  float length = 0.25F;   // part of the line
};
void drawVector(PlotState* s, float x1, float y1, float x2, float y2, int code, const HeadShape& usual = {});

// A head alone, with its tip at (x, y), that points along the unit vector (u, v); usualLength in plot units.
void drawVectorHead(PlotState* s, float x, float y, float u, float v, int code, float usualLength);

} // namespace quilla
