// Polygons in degrees, filled on the open map.
#pragma once

#include "map/map_area.h"
#include "map/map_copies.h"
#include "map/map_ring.h"

namespace quilla {

// Where the parts of polygons go that lie on the map: they are filled one by one, or collected as rings of one area.
struct MapPainter {
  PlotState* s;
  RingArea* area = nullptr;          // of the collected rings
  int mostRings = 0, mostPoints = 0; // limits of the area; 0: none
  bool overflow = false;             // a ring had no room; warning 114 was given
  const MapWindow* window = nullptr; // what is painted, in place of the whole axis system
};

// The edge of the map as the first ring of an area.
void beginWithMapEdge(MapPainter& painter);

// The polygon as a copy of the map shows it.
void paintOnMap(MapPainter& painter, const float* lon, const float* lat, int n, const MapCopy& copy);

// The place of a copy of the world on a map without curves.
MapWindow copyWindow(const PlotState* s, const MapCopy& copy);

// Fills the collected area with the current pattern: what lies inside an odd number of its rings.
void fillArea(MapPainter& painter);

} // namespace quilla
