// From the box of a three-dimensional axis system to the page.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// A point before the division by W.
struct ClipPoint {
  float x, y, z, w;
};
ClipPoint clipSpace(const PlotState* s, float x, float y, float z);

// Plot coordinates, counted from the top of the page, ORIGIN not included. Behind or beside the eye, where W is not
// positive, the projection goes on as the formula says; at W = 0 it is no finite number.
struct PagePoint {
  float x, y;
};
PagePoint pageOfClipSpace(const PlotState* s, const ClipPoint& p);
PagePoint pageOfBox(const PlotState* s, float x, float y, float z);

// The page point, ORIGIN included, of a point of the plane of GRFINI given in plot coordinates with ORIGIN.
PagePoint pageOfPlane(const PlotState* s, float x, float y);

} // namespace quilla
