// Polygons at the horizon of an azimuthal map.
#pragma once

#include "core/plot_state.h"
#include "map/map_ring.h"

namespace quilla {

// The parts of a polygon within the reach of the map, closed along its circle, as plot coordinates. The polygon is in
// degrees and runs anticlockwise. False if there is no memory.
bool cutAtHorizon(const PlotState* s, const MapRing& degrees, void (*take)(void* data, MapRing& onPage), void* data);

} // namespace quilla
