// Triangles and lines of the z-buffer: colours run between the corners, and what lies behind is hidden.
#pragma once

#include "raster/canvas.h"

namespace quilla {

// Beyond every depth that can be seen.
inline constexpr float kFarDepth = 2.0F;

// A corner in pixels. Smaller depths are nearer; colour components are 0 to 255.
struct ShadedPixel {
  float x, y, depth;
  float r, g, b;
};

// Gives the canvas depths, all of them far. False without memory for them.
bool openDepths(RasterCanvas& canvas);
void clearDepths(RasterCanvas& canvas);
void closeDepths(RasterCanvas& canvas);

// Paints the pixels of a triangle that no depth hides; within 1e-6 the later one wins. Without depths all are painted.
// A corner that is no finite number leaves the triangle out.
void canvasTriangle(RasterCanvas& canvas, const ShadedPixel (&corners)[3]);

// The same for a line of one pixel's width; the colour is that of its first point.
void canvasDepthLine(RasterCanvas& canvas, const ShadedPixel& from, const ShadedPixel& to);

} // namespace quilla
