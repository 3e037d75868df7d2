// The memory raster: pixels, palette, clip rectangle and pen. Coordinates are pixels, (0, 0) at the upper left.
//
// An indexed canvas has one byte a pixel, an entry of its palette; one of true colours has four: red, green, blue,
// alpha. Rows follow each other without padding. All functions here cut at the edges of the canvas: no coordinate can
// write outside it.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quilla {

inline constexpr int kPaletteSize = 256;
inline constexpr int kCanvasPathLimit = 100;                // points of the pending polyline
inline constexpr int kNearestCacheSize = 4096;              // remembered answers of nearestIndex
inline constexpr long long kCanvasByteLimit = 0x7FFFFFFFLL; // file formats count bytes in 32 bits

struct Rgb {
  unsigned char r, g, b;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

enum class FillResult { kFine, kTooManyCrossings, kNoMemory };

// Where the drawing goes.
enum class CanvasLayer { kPicture, kTransparent };

// Inclusive.
struct PixelBox {
  int x1, y1, x2, y2;
  bool empty() const { return x1 > x2 || y1 > y2; }
};

struct RasterCanvas {
  unsigned char* pixels = nullptr;      // the active block: basePixels or layerPixels
  unsigned char* basePixels = nullptr;  // owned
  unsigned char* layerPixels = nullptr; // owned; null until the first transparency layer
  float* depths = nullptr;              // owned; of the z-buffer, one a pixel, null without one
  int width = 0, height = 0;
  int stride = 0; // bytes of a row
  bool trueColour = false;
  bool backgroundWhite = false; // true colours start white, else black; in both cases with alpha 0
  PixelBox clip = {0, 0, -1, -1};
  PixelBox dirty = {0, 0, -1, -1}; // what was drawn into the layer
  CanvasLayer layer = CanvasLayer::kPicture;

  // Colour left out when pixels are written: -1, or a palette entry and its components.
  int transparentColour = -1;
  Rgb transparent = {0, 0, 0};

  // Pen.
  int lineWidth = 1;      // pixels
  int lineCap = 2;        // 0 cut, 1 round, 2 long
  int lineJoin = 2;       // 0 sharp, 1 round, 2 truncated
  float lineMiter = 2.0F; // longest sharp corner, in line widths
  bool antialias = false;
  int polyX[kCanvasPathLimit] = {}, polyY[kCanvasPathLimit] = {};
  int polyCount = 0;
  bool polyHasMove = false; // the path starts with a move that has had no draw

  unsigned char colourIndex = 0;
  Rgb colour = {0, 0, 0};
  unsigned char alpha = 255;

  Rgb palette[kPaletteSize] = {};
  int paletteCount = kPaletteSize; // entries among which the nearest colour is searched

  std::uint32_t nearestKey[kNearestCacheSize] = {}; // 0: free; else colour and a mark
  unsigned char nearestEntry[kNearestCacheSize] = {};
};

// A canvas of one size, erased; null without memory for it or when it would exceed kCanvasByteLimit.
RasterCanvas* createCanvas(int width, int height, bool trueColour, bool backgroundWhite);
void freeCanvas(RasterCanvas* canvas);
// The active pixels as they were at first: entry 0, black or white.
void eraseCanvas(RasterCanvas& canvas);

// Entries of the palette from first on; known: among how many entries the nearest colour is searched.
void setPalette(RasterCanvas& canvas, int first, const Rgb* entries, int n, int known);
// Smallest sum of absolute differences, lower index on ties.
int nearestIndex(RasterCanvas& canvas, Rgb colour);

// The clip rectangle of drawing, cut to the canvas.
void setCanvasClip(RasterCanvas& canvas, PixelBox box);
PixelBox wholeCanvas(const RasterCanvas& canvas);
PixelBox cutBox(PixelBox a, PixelBox b);
// Keeps account of what is drawn into a transparency layer.
void noteDrawn(RasterCanvas& canvas, PixelBox box);

// First byte of a row, which must lie on the canvas.
inline unsigned char* canvasRow(const RasterCanvas& canvas, int y) {
  return canvas.pixels + static_cast<std::ptrdiff_t>(y) * canvas.stride;
}
inline bool onCanvas(const RasterCanvas& canvas, int x, int y) {
  return x >= 0 && x < canvas.width && y >= 0 && y < canvas.height;
}

// Single pixels, on the canvas. Reading an index from true colours, or writing a colour into a palette, takes the
// nearest entry. Writing leaves out the transparent colour and takes the alpha of the pen.
int readIndex(RasterCanvas& canvas, int x, int y);
Rgb readRgb(const RasterCanvas& canvas, int x, int y);
void writeIndex(RasterCanvas& canvas, int x, int y, int index);
void writeRgb(RasterCanvas& canvas, int x, int y, Rgb colour);

// n pixels of a row from (x, y) to the right, one byte each (an index) or three (red, green, blue). What lies outside
// the canvas is left out, when it is read as well. The clip rectangle does not matter.
void writeIndexRow(RasterCanvas& canvas, int x, int y, const unsigned char* indices, int n);
void writeRgbRow(RasterCanvas& canvas, int x, int y, const unsigned char* rgb, int n);
void readIndexRow(RasterCanvas& canvas, int x, int y, unsigned char* indices, int n);
void readRgbRow(const RasterCanvas& canvas, int x, int y, unsigned char* rgb, int n);

} // namespace quilla
