// Lines of map files, copy by copy.
#pragma once

#include "map/map_copies.h"
#include "map/map_files.h"

namespace quilla {

// A point as a copy shows it; one outside the limits of a world map is left out, and the line breaks there.
struct MapStroke {
  PlotState* s;
  MapCopy copy;
  bool broken = true; // the next point begins a line
  float lastLon = 0.0F;
};
void strokeTo(MapStroke& stroke, float lon, float lat, bool move);

// The clip of lines at the axis system, which world maps go without.
void mapClipOn(PlotState* s);
void mapClipOff(PlotState* s);

} // namespace quilla
