// The transparency layer.
#include <cstdlib>
#include <cstring>

#include "raster/ink.h"
#include "raster/painter.h"

namespace quilla {
namespace {

constexpr int kPixelBytes = 4, kOpaque = 256; // alpha + 1

void blendRow(unsigned char* picture, unsigned char* layer, int n, bool blendBackground, unsigned char background) {
  for (; n > 0; --n, picture += kPixelBytes, layer += kPixelBytes) {
    const int a = layer[3] + 1;
    if (a == 1) continue;
    layer[3] = 0;
    const bool bare = picture[0] == background && picture[1] == background && picture[2] == background;
    if (a == kOpaque || (bare && !blendBackground)) {
      std::memcpy(picture, layer, 3);
    } else {
      for (int i = 0; i < 3; ++i) {
        picture[i] = static_cast<unsigned char>(picture[i] + ((layer[i] - picture[i]) * a >> 8));
      }
    }
    picture[3] = 255;
  }
}

} // namespace

bool openLayer(RasterCanvas& canvas) {
  flushCanvas(canvas);
  if (!canvas.trueColour) return false;
  if (!canvas.layerPixels) {
    const auto rows = static_cast<std::size_t>(canvas.height);
    canvas.layerPixels = static_cast<unsigned char*>(std::calloc(rows, static_cast<std::size_t>(canvas.stride)));
    if (!canvas.layerPixels) return false;
    canvas.pixels = canvas.layerPixels;
    eraseCanvas(canvas);
  }
  canvas.pixels = canvas.layerPixels;
  canvas.layer = CanvasLayer::kTransparent;
  canvas.dirty = {0, 0, -1, -1};
  return true;
}

void mergeLayer(RasterCanvas& canvas, bool blendBackground) {
  flushCanvas(canvas);
  if (canvas.layer != CanvasLayer::kTransparent) return;
  const PixelBox box = canvas.dirty;
  canvas.dirty = {0, 0, -1, -1};
  if (box.empty()) return;
  const unsigned char background = canvas.backgroundWhite ? 255 : 0;
  for (int y = box.y1; y <= box.y2; ++y) {
    const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(y) * canvas.stride + box.x1 * kPixelBytes;
    blendRow(canvas.basePixels + at, canvas.layerPixels + at, box.x2 - box.x1 + 1, blendBackground, background);
  }
}

void closeLayer(RasterCanvas& canvas, bool blendBackground) {
  mergeLayer(canvas, blendBackground);
  canvas.pixels = canvas.basePixels;
  canvas.layer = CanvasLayer::kPicture;
}

} // namespace quilla
