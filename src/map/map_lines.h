// The pen of map lines. Positions are degrees.
#pragma once

#include "graph2d/projection.h"
#include "graph2d/scaling.h"

namespace quilla {

// Move, and straight stroke on the page; in axis systems other than maps, degrees are their user values. On azimuthal
// maps only what lies within the angle of MAPSPH is drawn.
void mapMove(PlotState* s, float lon, float lat);
void mapDraw(PlotState* s, float lon, float lat);

// A line from where the pen stands, as MAPMOD asks: straight, through a point for each degree, or by a great circle.
void mapConnect(PlotState* s, float lon, float lat);

// Plot coordinates of a point of an azimuthal map.
PlotPoint spherePoint(const ProjectionState& m, const SpherePolar& point);

} // namespace quilla
