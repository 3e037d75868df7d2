// Small canvases and their pixels as text: '#' where something was drawn, '.' elsewhere.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "raster/encoders.h"
#include "raster/painter.h"

namespace quilla {

struct CanvasDeleter {
  void operator()(RasterCanvas* canvas) const { freeCanvas(canvas); }
};
using Canvas = std::unique_ptr<RasterCanvas, CanvasDeleter>;

// Entry 1 of the palette is the pen's.
inline Canvas indexedCanvas(int width, int height) {
  Canvas canvas(createCanvas(width, height, false, false));
  Rgb palette[kPaletteSize];
  for (int i = 0; i < kPaletteSize; ++i) {
    const auto v = static_cast<unsigned char>(i);
    palette[i] = {v, static_cast<unsigned char>(255 - i), static_cast<unsigned char>(i / 2)};
  }
  setPalette(*canvas, 0, palette, kPaletteSize, kPaletteSize);
  setCanvasColour(*canvas, 1, palette[1]);
  return canvas;
}

inline Canvas trueCanvas(int width, int height, bool white = false) {
  Canvas canvas(createCanvas(width, height, true, white));
  setCanvasColour(*canvas, 0, {255, 255, 255});
  return canvas;
}

inline std::string drawn(const RasterCanvas& canvas) {
  std::string text;
  for (int y = 0; y < canvas.height; ++y) {
    for (int x = 0; x < canvas.width; ++x) {
      const int step = canvas.trueColour ? 4 : 1;
      text += canvasRow(canvas, y)[x * step] != 0 ? '#' : '.';
    }
    text += '\n';
  }
  return text;
}

inline void polyline(RasterCanvas& canvas, std::initializer_list<std::pair<int, int>> points) {
  int code = kCanvasMove;
  for (const auto& [x, y] : points) {
    canvasLine(canvas, x, y, code);
    code = kCanvasDraw;
  }
  flushCanvas(canvas);
}

// Everything an encoder writes.
struct Bytes {
  std::vector<unsigned char> data;
  ByteTarget target() {
    ByteTarget out;
    out.to = this;
    out.put = [](void* to, const unsigned char* bytes, std::size_t count) {
      auto& d = static_cast<Bytes*>(to)->data;
      d.insert(d.end(), bytes, bytes + count);
      return true;
    };
    return out;
  }
  unsigned low16(std::size_t at) const { return data[at] | static_cast<unsigned>(data[at + 1]) << 8; }
  unsigned low32(std::size_t at) const { return low16(at) | low16(at + 2) << 16; }
  unsigned high32(std::size_t at) const {
    unsigned v = 0;
    for (std::size_t i = 0; i < 4; ++i) v = v << 8 | data[at + i];
    return v;
  }
  std::string text(std::size_t at, std::size_t n) const { return {reinterpret_cast<const char*>(data.data()) + at, n}; }
};

inline PixelSource whole(const Canvas& canvas) { return {canvas.get(), wholeCanvas(*canvas)}; }

} // namespace quilla
