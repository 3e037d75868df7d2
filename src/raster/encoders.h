// Pictures as files of pixels. An encoder reads a rectangle of the canvas and hands bytes to a target.
#pragma once

#include "raster/byte_target.h"
#include "raster/canvas.h"

namespace quilla {

// What of the canvas is written. The box lies on the canvas.
struct PixelSource {
  RasterCanvas* canvas;
  PixelBox box;
  int width() const { return box.x2 - box.x1 + 1; }
  int height() const { return box.y2 - box.y1 + 1; }
};

enum class EncodeResult {
  kFine,
  kWriteFailed,
  kNoMemory,
  kDeflateFailed,
};

// TIFF, not compressed, one row a strip: a palette, three bytes a pixel, or one bit for entries other than 0.
struct TiffOptions {
  bool bilevel;
  bool reduce;          // true colours are reduced to a palette
  int resolution, unit; // pixels a unit; 2 inch, 3 centimetre
};
EncodeResult encodeTiff(ByteTarget& out, const PixelSource& source, const TiffOptions& options);

// A text header of 80 bytes and the rows: one byte a pixel, or three.
EncodeResult encodeRawImage(ByteTarget& out, const PixelSource& source);

// Binary PPM: three bytes a pixel.
EncodeResult encodePpm(ByteTarget& out, const PixelSource& source);

// BMP, not compressed, 8 or 24 bits a pixel.
struct BmpOptions {
  bool reduce;    // true colours are reduced to a palette
  int resolution; // pixels a metre
};
EncodeResult encodeBmp(ByteTarget& out, const PixelSource& source, const BmpOptions& options);

// GIF with LZW; true colours are reduced to a palette. background: an entry, left out by viewers if transparent.
struct GifOptions {
  bool transparent;
  int background;       // entry of the canvas's palette
  Rgb backgroundColour; // looked for in a reduced palette
};
EncodeResult encodeGif(ByteTarget& out, const PixelSource& source, const GifOptions& options);

// PNG: a palette or three bytes a pixel, four where the alpha of the canvas is wanted.
struct PngOptions {
  bool transparent; // entry 0, or white, is transparent
  bool reduce;      // true colours are reduced to a palette
  bool alpha;       // true colours carry their alpha
};
EncodeResult encodePng(ByteTarget& out, const PixelSource& source, const PngOptions& options);

} // namespace quilla
