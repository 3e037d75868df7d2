// The frame of a routine that draws facets: what is current before comes back afterwards.
#pragma once

#include "graph3d/facets.h"

namespace quilla {

// A surface has a depth list of its own when neither z-buffer nor depth list is open.
struct FacetCall {
  PlotState* s;
  FacetStyle style;
  int color; // at entry
  bool ownList;
};

// Null state without memory for a list.
FacetCall beginSurface(PlotState* s);
void endSurface(const FacetCall& call);

// The state at level 3 in a system of GRAF3D, with a z-buffer or a depth list open. Null after a message.
PlotState* solidCheck(const char* routine);

} // namespace quilla
