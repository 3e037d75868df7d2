// Axes, frames and labels of map axis systems.
#pragma once

#include "graph2d/scaling.h"

namespace quilla {

// The curved edge of a map on the page, clockwise or round; growth: distance outside the circle of a globe.
inline constexpr int kOutlinePoints = 364; // twice a point for each degree of latitude, and one
struct MapOutline {
  float x[kOutlinePoints], y[kOutlinePoints];
  int n = 0;

  void add(const PlotPoint& p) {
    x[n] = p.x;
    y[n++] = p.y;
  }
};
void mapOutline(const PlotState* s, float growth, MapOutline& edge);

// Draws what stands around the open map: four axes and a frame, or a curved frame with labels.
void drawMapSystem(PlotState* s);

} // namespace quilla
