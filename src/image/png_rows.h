// Rows of a PNG: filters undone, samples turned into pixels.
#pragma once

#include <cstddef>

#include "image/image.h"

namespace quilla {

enum PngColorType : int { kPngGrey = 0, kPngRgb = 2, kPngPalette = 3, kPngGreyAlpha = 4, kPngRgbAlpha = 6 };

inline constexpr int kPngPaletteSize = 256, kPngPaletteEntry = 4; // r, g, b and a byte of no use

// What the chunks before the pixels tell.
struct PngHead {
  unsigned width = 0, height = 0;
  int depth = 0, colorType = 0;
  bool interlaced = false;
  int paletteCount = 0;
  unsigned char palette[kPngPaletteSize][kPngPaletteEntry] = {};
  unsigned char paletteAlpha[kPngPaletteSize] = {};
  bool transparent = false;          // tRNS
  unsigned transparentColor[3] = {}; // whole samples: grey in the first, or r, g, b
  bool background = false;           // bKGD
  unsigned char ground[kColorBytes] = {};
};

int pngChannels(int colorType);
bool pngHasAlpha(const PngHead& head);
// Bytes of a row without its filter byte, and of a whole pixel, at least 1.
std::size_t pngRowBytes(const PngHead& head, std::size_t width);
int pngPixelDistance(const PngHead& head);
// A grey sample of 1, 2, 4 or 8 bits spread over 0 to 255; the high byte of 16 bits.
unsigned char pngGrey(unsigned sample, int depth);

// Undoes the filter of a row in place; above holds the row before, or zeros.
void pngUnfilter(int filter, unsigned char* row, const unsigned char* above, std::size_t count, int distance);

// Pixels of a row, and alpha if the image has any, blended with the background if there is one. False if an index lies
// beyond the palette; such a pixel is black.
bool pngConvert(const PngHead& head, const unsigned char* row, int count, unsigned char* rgb, unsigned char* alpha);

} // namespace quilla
