// The raster of the z-buffer: that of the device itself, or one of its own for a document, whose picture is put on the
// page at the end.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// True for windows, rasters, PostScript and PDF.
bool takesDepths(const PlotState* s);

// False after a message; what was opened is closed again.
bool sinkOpenDepths(PlotState* s);
void sinkCloseDepths(PlotState* s);

// A corner in plot coordinates with ORIGIN. Smaller depths are nearer; colour components are 0 to 1.
struct ShadedPoint {
  float x, y, depth;
  float r, g, b;
};
void sinkTriangle(PlotState* s, const ShadedPoint (&corners)[3]);
void sinkDepthLine(PlotState* s, const ShadedPoint& from, const ShadedPoint& to);

} // namespace quilla
