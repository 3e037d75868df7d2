// A map wider than the world shows parts of it again.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// A point of the copy is (lon + shift, lat * factor + offset).
struct MapCopy {
  float shift, factor, offset;
};

struct MapCopies {
  MapCopy items[9];
  int count;
};
MapCopies mapCopies(const PlotState* s);

} // namespace quilla
