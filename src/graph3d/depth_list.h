// The depth list: polygons that are collected, sorted by their distance from the eye, and painted from the farthest on.
#pragma once

#include "core/plot_state.h"
#include "device/depth_raster.h"

namespace quilla {

// Adds a polygon on the page. color: its colour value, or kMixedColors for the middle of those of its corners.
void appendToDepthList(PlotState* s, const ShadedPoint* points, int n, int color);

} // namespace quilla
