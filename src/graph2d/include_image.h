// Image files drawn into the plot.
#pragma once

#include "core/plot_state.h"
#include "image/image.h"

namespace quilla {

// The box of INCFIL, plot coordinates; it does not move with ORIGIN.
struct WholeBox {
  int x, y, width, height;
};

// Draws an image file: on a raster with its upper left corner at that of the box, in its own size or in one that FILOPT
// tells, cut by FILWIN; in PostScript and PDF stretched to the box. False after a message, or if the picture is not
// complete.
bool includeImage(PlotState* s, const char* name, FileKind kind, const WholeBox& box);

// True if the device shows image files.
bool showsImages(PlotState* s);

// Warnings 36, 53 and 123 for what a decoder came back with; none if it is fine.
void reportImage(PlotState* s, ImageStatus status, const char* name);

} // namespace quilla
