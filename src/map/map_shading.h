// The polygons of coasts, filled or outlined.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Keywords of SHDMAP.
enum MapArea : int {
  kAreaAll = 0,
  kAreaAntarctica = 1,
  kAreaAfrica = 2,
  kAreaEurasia = 3,
  kAreaAustralia = 4,
  kAreaEurope = 5,
  kAreaNorthAmerica = 6,
  kAreaSouthAmerica = 7,
  kAreaLakes = 8,
  kAreaLand = 9,
  kAreaSea = 10,
  kAreaShoresLow = 11, // land of the databases of shorelines in three resolutions, then their sea
  kAreaShoresSeaLow = 14,
  kAreaCount = 17
};

// Lines along the coasts of the low-resolution polygons: land, lakes, or both, as MAPLEV selects.
void outlineCoasts(PlotState* s);

} // namespace quilla
