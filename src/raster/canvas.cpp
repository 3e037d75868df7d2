#include "raster/canvas.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <new>

namespace quilla {
namespace {

constexpr int kTrueColourBytes = 4, kRgbBytes = 3;

std::size_t byteCount(const RasterCanvas& canvas) {
  return static_cast<std::size_t>(canvas.stride) * static_cast<std::size_t>(canvas.height);
}

bool isTransparent(const RasterCanvas& canvas, Rgb colour) {
  return canvas.transparentColour >= 0 && colour == canvas.transparent;
}

void putRgb(unsigned char* pixel, Rgb colour, unsigned char alpha) {
  pixel[0] = colour.r;
  pixel[1] = colour.g;
  pixel[2] = colour.b;
  pixel[3] = alpha;
}

// The part of n pixels from (x, y) that lies on the canvas; skip: how many items of the data come before it.
struct RowPart {
  int x, n, skip;
};
RowPart partOnCanvas(const RasterCanvas& canvas, int x, int y, int n) {
  if (y < 0 || y >= canvas.height || x >= canvas.width || n <= 0) return {0, 0, 0};
  const long long end = std::min<long long>(static_cast<long long>(x) + n, canvas.width);
  const int start = std::max(x, 0);
  if (end <= start) return {0, 0, 0};
  return {start, static_cast<int>(end - start), static_cast<int>(static_cast<long long>(start) - x)};
}

void noteRow(RasterCanvas& canvas, const RowPart& part, int y) {
  noteDrawn(canvas, {part.x, y, part.x + part.n - 1, y});
}

int searchNearest(const RasterCanvas& canvas, Rgb colour) {
  int best = 0, bestDistance = INT_MAX;
  for (int i = 0; i < canvas.paletteCount && bestDistance > 0; ++i) {
    const Rgb entry = canvas.palette[i];
    const int distance = std::abs(entry.r - colour.r) + std::abs(entry.g - colour.g) + std::abs(entry.b - colour.b);
    if (distance < bestDistance) {
      best = i;
      bestDistance = distance;
    }
  }
  return best;
}

} // namespace

RasterCanvas* createCanvas(int width, int height, bool trueColour, bool backgroundWhite) {
  const int step = trueColour ? kTrueColourBytes : 1;
  if (width < 1 || height < 1 || static_cast<long long>(width) * step > kCanvasByteLimit / height) return nullptr;
  RasterCanvas* canvas = new (std::nothrow) RasterCanvas;
  if (!canvas) return nullptr;
  canvas->width = width;
  canvas->height = height;
  canvas->stride = width * step;
  canvas->trueColour = trueColour;
  canvas->backgroundWhite = backgroundWhite;
  canvas->clip = wholeCanvas(*canvas);
  canvas->basePixels = static_cast<unsigned char*>(std::calloc(byteCount(*canvas), 1));
  canvas->pixels = canvas->basePixels;
  if (!canvas->basePixels) {
    freeCanvas(canvas);
    return nullptr;
  }
  if (trueColour && backgroundWhite) eraseCanvas(*canvas); // black is what calloc gives
  return canvas;
}

void freeCanvas(RasterCanvas* canvas) {
  if (!canvas) return;
  std::free(canvas->depths);
  std::free(canvas->basePixels);
  std::free(canvas->layerPixels);
  delete canvas;
}

void eraseCanvas(RasterCanvas& canvas) {
  const bool white = canvas.trueColour && canvas.backgroundWhite;
  if (!white) {
    std::memset(canvas.pixels, 0, byteCount(canvas));
  } else {
    const unsigned char clear[kTrueColourBytes] = {255, 255, 255, 0};
    std::uint32_t word;
    std::memcpy(&word, clear, sizeof word);
    std::fill_n(reinterpret_cast<std::uint32_t*>(canvas.pixels), byteCount(canvas) / kTrueColourBytes, word);
  }
  noteDrawn(canvas, wholeCanvas(canvas));
}

void setPalette(RasterCanvas& canvas, int first, const Rgb* entries, int n, int known) {
  const int start = std::clamp(first, 0, kPaletteSize);
  std::copy_n(entries, std::clamp(n, 0, kPaletteSize - start), canvas.palette + start);
  canvas.paletteCount = std::clamp(known, 1, kPaletteSize);
  std::memset(canvas.nearestKey, 0, sizeof canvas.nearestKey);
}

int nearestIndex(RasterCanvas& canvas, Rgb colour) {
  constexpr std::uint32_t kUsed = 0x01000000U, kSpread = 0x9E3779B1U;
  constexpr int kCacheShift = 20; // 32 bits less those of an index into the cache
  static_assert(kNearestCacheSize == 1 << (32 - kCacheShift));
  const std::uint32_t packed = static_cast<std::uint32_t>(colour.r << 16 | colour.g << 8 | colour.b);
  const std::uint32_t slot = packed * kSpread >> kCacheShift;
  if (canvas.nearestKey[slot] != (packed | kUsed)) {
    canvas.nearestKey[slot] = packed | kUsed;
    canvas.nearestEntry[slot] = static_cast<unsigned char>(searchNearest(canvas, colour));
  }
  return canvas.nearestEntry[slot];
}

PixelBox wholeCanvas(const RasterCanvas& canvas) { return {0, 0, canvas.width - 1, canvas.height - 1}; }

PixelBox cutBox(PixelBox a, PixelBox b) {
  return {std::max(a.x1, b.x1), std::max(a.y1, b.y1), std::min(a.x2, b.x2), std::min(a.y2, b.y2)};
}

void setCanvasClip(RasterCanvas& canvas, PixelBox box) {
  const PixelBox ordered = {std::min(box.x1, box.x2), std::min(box.y1, box.y2), std::max(box.x1, box.x2),
                            std::max(box.y1, box.y2)};
  canvas.clip = cutBox(ordered, wholeCanvas(canvas));
}

void noteDrawn(RasterCanvas& canvas, PixelBox box) {
  if (canvas.layer != CanvasLayer::kTransparent || box.empty()) return;
  PixelBox& d = canvas.dirty;
  if (d.empty()) {
    d = box;
  } else {
    d = {std::min(d.x1, box.x1), std::min(d.y1, box.y1), std::max(d.x2, box.x2), std::max(d.y2, box.y2)};
  }
  d = cutBox(d, wholeCanvas(canvas));
}

int readIndex(RasterCanvas& canvas, int x, int y) {
  if (canvas.trueColour) return nearestIndex(canvas, readRgb(canvas, x, y));
  return canvasRow(canvas, y)[x];
}

Rgb readRgb(const RasterCanvas& canvas, int x, int y) {
  const unsigned char* row = canvasRow(canvas, y);
  if (!canvas.trueColour) return canvas.palette[row[x]];
  const unsigned char* pixel = row + static_cast<std::ptrdiff_t>(x) * kTrueColourBytes;
  return {pixel[0], pixel[1], pixel[2]};
}

void writeIndex(RasterCanvas& canvas, int x, int y, int index) {
  const auto entry = static_cast<unsigned char>(index);
  writeIndexRow(canvas, x, y, &entry, 1);
}

void writeRgb(RasterCanvas& canvas, int x, int y, Rgb colour) {
  const unsigned char bytes[] = {colour.r, colour.g, colour.b};
  writeRgbRow(canvas, x, y, bytes, 1);
}

void writeIndexRow(RasterCanvas& canvas, int x, int y, const unsigned char* indices, int n) {
  const RowPart part = partOnCanvas(canvas, x, y, n);
  if (part.n == 0) return;
  noteRow(canvas, part, y);
  indices += part.skip;
  if (canvas.trueColour) {
    unsigned char* pixel = canvasRow(canvas, y) + static_cast<std::ptrdiff_t>(part.x) * kTrueColourBytes;
    for (int i = 0; i < part.n; ++i, pixel += kTrueColourBytes) {
      if (indices[i] != canvas.transparentColour) putRgb(pixel, canvas.palette[indices[i]], canvas.alpha);
    }
    return;
  }
  unsigned char* pixel = canvasRow(canvas, y) + part.x;
  if (canvas.transparentColour < 0) {
    std::memcpy(pixel, indices, static_cast<std::size_t>(part.n));
    return;
  }
  for (int i = 0; i < part.n; ++i) {
    if (indices[i] != canvas.transparentColour) pixel[i] = indices[i];
  }
}

void writeRgbRow(RasterCanvas& canvas, int x, int y, const unsigned char* rgb, int n) {
  const RowPart part = partOnCanvas(canvas, x, y, n);
  if (part.n == 0) return;
  noteRow(canvas, part, y);
  rgb += static_cast<std::ptrdiff_t>(part.skip) * kRgbBytes;
  const int step = canvas.trueColour ? kTrueColourBytes : 1;
  unsigned char* pixel = canvasRow(canvas, y) + static_cast<std::ptrdiff_t>(part.x) * step;
  for (int i = 0; i < part.n; ++i, rgb += kRgbBytes, pixel += step) {
    const Rgb colour = {rgb[0], rgb[1], rgb[2]};
    if (isTransparent(canvas, colour)) continue;
    if (canvas.trueColour) {
      putRgb(pixel, colour, canvas.alpha);
    } else {
      *pixel = static_cast<unsigned char>(nearestIndex(canvas, colour));
    }
  }
}

void readIndexRow(RasterCanvas& canvas, int x, int y, unsigned char* indices, int n) {
  const RowPart part = partOnCanvas(canvas, x, y, n);
  if (part.n == 0) return;
  indices += part.skip;
  if (!canvas.trueColour) {
    std::memcpy(indices, canvasRow(canvas, y) + part.x, static_cast<std::size_t>(part.n));
    return;
  }
  for (int i = 0; i < part.n; ++i) indices[i] = static_cast<unsigned char>(readIndex(canvas, part.x + i, y));
}

void readRgbRow(const RasterCanvas& canvas, int x, int y, unsigned char* rgb, int n) {
  const RowPart part = partOnCanvas(canvas, x, y, n);
  if (part.n == 0) return;
  rgb += static_cast<std::ptrdiff_t>(part.skip) * kRgbBytes;
  const unsigned char* pixel =
      canvasRow(canvas, y) + static_cast<std::ptrdiff_t>(part.x) * (canvas.trueColour ? kTrueColourBytes : 1);
  if (canvas.trueColour) {
    for (int i = 0; i < part.n; ++i, rgb += kRgbBytes, pixel += kTrueColourBytes) std::memcpy(rgb, pixel, kRgbBytes);
    return;
  }
  for (int i = 0; i < part.n; ++i, rgb += kRgbBytes) {
    const Rgb colour = canvas.palette[pixel[i]];
    rgb[0] = colour.r;
    rgb[1] = colour.g;
    rgb[2] = colour.b;
  }
}

} // namespace quilla
