// Planes of the box on which the two-dimensional routines draw.
#pragma once

#include "core/plot_state.h"
#include "graph2d/scaling.h"
#include "graph3d/box.h"

namespace quilla {

// The plane through three points: u runs from p1 to p2, v from p2 to p3. The path is sent first.
void enterPlane(PlotState* s, const BoxPoint& p1, const BoxPoint& p2, const BoxPoint& p3);
void leavePlane(PlotState* s);
// The plane of three corners of the box, given as three digits.
void enterCornerPlane(PlotState* s, int corners);

// Trades the settings of two axes, the lengths of their places on the page excepted.
void exchangeAxes(PlotState* s, int a, int b);

} // namespace quilla
