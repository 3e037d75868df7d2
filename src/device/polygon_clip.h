// Polygons at the clip window.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// True if every vertex lies in the clip window, edges included.
bool polygonInClipWindow(const PlotState* s, const float* x, const float* y, int n);

// What of a polygon lies in the clip window. The points belong to the caller of clipPolygon, who frees x.
struct ClippedPolygon {
  float* x = nullptr; // allocated; y follows in the same block
  float* y = nullptr;
  int count = 0;
};

// Cuts a polygon at the clip window. False if there is no memory.
bool clipPolygon(const PlotState* s, const float* x, const float* y, int n, ClippedPolygon& result);

} // namespace quilla
