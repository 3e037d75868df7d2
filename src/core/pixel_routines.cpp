// Public routines of pixels: one, a row, a block. They work between IMGINI and IMGFIN.
#include <algorithm>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/raster_driver.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kImageNotOpen = 55, kOutside = 58;

// The canvas with all that was drawn before, or null after a message.
RasterCanvas* openImage(PlotState* s) {
  if (!s->raster.imageOpen || !s->raster.canvas) {
    warnPlain(s, kImageNotOpen);
    return nullptr;
  }
  flushPath(s);
  flushCanvas(*s->raster.canvas);
  return s->raster.canvas;
}

bool isDirect(int color) { return (color & 0xFF000000) == kDirectColor; }

// A block of pixels as a routine's caller holds it.
struct Block {
  int x, y, w, h;
  bool rgb, fromBottom;

  std::size_t rowBytes() const { return static_cast<std::size_t>(w) * (rgb ? 3 : 1); }
  // Calls row with each row of the canvas that the block touches, and the place of its first byte in the data.
  template <typename Row> void eachRow(const RasterCanvas& canvas, Row row) const {
    if (w < 1 || h < 1) return;
    const long long top = fromBottom ? static_cast<long long>(y) + 1 - h : y;
    const long long first = std::max(top, 0LL), last = std::min(top + h, static_cast<long long>(canvas.height)) - 1;
    for (long long at = first; at <= last; ++at) {
      const long long item = fromBottom ? top + h - 1 - at : at - top;
      row(static_cast<int>(at), static_cast<std::size_t>(item) * rowBytes());
    }
  }
};

Block blockOf(const PlotState* s, int x, int y, int w, int h) {
  return {x, y, w, h, s->image.imageDataMode == kDataRgb, s->image.imageRowOrder == kRowsFromBottom};
}

// Hands each row of a block to the function of its kind of pixels, data being what the routine was given.
template <typename Byte, typename Indices, typename Colours>
void passBlock(const char* name, Byte* data, int x, int y, int w, int h, Indices indices, Colours colours) {
  PlotState* s = strictCheck(1, 3, name);
  RasterCanvas* canvas = s ? openImage(s) : nullptr;
  if (!canvas) return;
  const Block block = blockOf(s, x, y, w, h);
  block.eachRow(*canvas, [&](int row, std::size_t at) {
    if (block.rgb) {
      colours(*canvas, x, row, data + at, w);
    } else {
      indices(*canvas, x, row, data + at, w);
    }
  });
}

void writeBlock(const char* name, const unsigned char* data, int x, int y, int w, int h) {
  passBlock(name, data, x, y, w, h, writeIndexRow, writeRgbRow);
}

void readBlock(const char* name, unsigned char* data, int x, int y, int w, int h) {
  passBlock(name, data, x, y, w, h, readIndexRow, readRgbRow);
}

} // namespace

void WPIXEL(int x, int y, int color) {
  PlotState* s = strictCheck(1, 3, "wpixel");
  RasterCanvas* canvas = s ? openImage(s) : nullptr;
  if (!canvas || !onCanvas(*canvas, x, y)) return;
  if (isDirect(color)) {
    writeRgb(*canvas, x, y,
             {static_cast<unsigned char>(color & 255), static_cast<unsigned char>(color >> 8 & 255),
              static_cast<unsigned char>(color >> 16 & 255)});
  } else {
    writeIndex(*canvas, x, y, color);
  }
}

void RPIXEL(int x, int y, int* color) {
  PlotState* s = strictCheck(1, 3, "rpixel");
  RasterCanvas* canvas = s ? openImage(s) : nullptr;
  if (!canvas) return;
  if (!onCanvas(*canvas, x, y)) return warnPlain(s, kOutside);
  if (s->image.imageDataMode == kDataIndices) {
    *color = readIndex(*canvas, x, y);
  } else {
    const Rgb rgb = readRgb(*canvas, x, y);
    *color = kDirectColor | rgb.b << 16 | rgb.g << 8 | rgb.r;
  }
}

void WPIXLS(const unsigned char* pixels, int x, int y, int w, int h) { writeBlock("wpixls", pixels, x, y, w, h); }
void RPIXLS(unsigned char* pixels, int x, int y, int w, int h) { readBlock("rpixls", pixels, x, y, w, h); }
void WPXROW(const unsigned char* pixels, int x, int y, int n) { writeBlock("wpxrow", pixels, x, y, n, 1); }
void RPXROW(unsigned char* pixels, int x, int y, int n) { readBlock("rpxrow", pixels, x, y, n, 1); }
