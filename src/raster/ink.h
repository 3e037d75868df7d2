// What the drawing functions share: the pixel of the pen as one word, so that inner loops store a constant.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "raster/canvas.h"

namespace quilla {

// The bytes of a true-colour pixel in their order in memory.
inline std::uint32_t packPixel(Rgb colour, unsigned char alpha) {
  const unsigned char bytes[] = {colour.r, colour.g, colour.b, alpha};
  std::uint32_t word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

template <typename Pixel> Pixel* pixelAt(const RasterCanvas& canvas, int x, int y) {
  return reinterpret_cast<Pixel*>(canvasRow(canvas, y)) + x;
}

// Calls paint with a value of the canvas's kind of pixel: an index or a packed colour.
template <typename Paint> void withInk(const RasterCanvas& canvas, int index, Rgb colour, Paint paint) {
  if (canvas.trueColour) {
    paint(packPixel(colour, canvas.alpha));
  } else {
    paint(static_cast<std::uint8_t>(index));
  }
}
template <typename Paint> void withPenInk(const RasterCanvas& canvas, Paint paint) {
  withInk(canvas, canvas.colourIndex, canvas.colour, paint);
}

// Pixels x1 to x2 of a row that the clip rectangle holds, both ends included.
template <typename Pixel> void fillSpan(const RasterCanvas& canvas, int y, int x1, int x2, Pixel value) {
  x1 = std::max(x1, canvas.clip.x1);
  x2 = std::min(x2, canvas.clip.x2);
  if (x1 <= x2) std::fill_n(pixelAt<Pixel>(canvas, x1, y), x2 - x1 + 1, value);
}

} // namespace quilla
