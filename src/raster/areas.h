// Areas in the colour of the pen that lines and symbols are made of. The pending polyline is left alone.
#pragma once

#include "raster/canvas.h"

namespace quilla {

// As canvasFill.
FillResult fillArea(RasterCanvas& canvas, const float* xs, const float* ys, int n);
// All pixels no further than the radius from the middle.
void fillDisc(RasterCanvas& canvas, int x, int y, float radius);
// Lines of four pixels and more, n at least 2, with their corners and ends.
void thickPolyline(RasterCanvas& canvas, const int* x, const int* y, int n);

} // namespace quilla
