#include "graph2d/include_image.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/device_point.h"
#include "device/page_image.h"
#include "device/raster_driver.h"
#include "device/sink.h"
#include "quilla/quilla.h"
#include "raster/row_buffer.h"

namespace quilla {

namespace {

constexpr int kFileError = 36, kIncompatible = 40, kNoMemory = 53, kNoImageEnd = 54, kBadImage = 123;
enum IncludeScaling : int { kOwnSize = 0, kToBox = 1, kToPage = 2 };

// A rectangle of the raster, pixels.
struct PixelPlace {
  int x, y, width, height;
};

int pixelOf(float value) { return roundHalfUp(value); }

PixelPlace placeOnRaster(const PlotState* s, const WholeBox& box) {
  const auto x = static_cast<float>(box.x), y = static_cast<float>(box.y);
  const DevicePoint a = devicePoint(s, x, y);
  const DevicePoint b = devicePoint(s, x + static_cast<float>(box.width), y + static_cast<float>(box.height));
  return {pixelOf(std::min(a.x, b.x)), pixelOf(std::min(a.y, b.y)), pixelOf(std::fabs(b.x - a.x)),
          pixelOf(std::fabs(b.y - a.y))};
}

// The colour under everything, which shows through an image on paper.
void pageGround(const PlotState* s, unsigned char* ground) {
  int components[kColorBytes];
  colorComponents(s, 0, components[0], components[1], components[2]);
  for (int c = 0; c < kColorBytes; ++c) ground[c] = static_cast<unsigned char>(components[c]);
}

void blendPixel(unsigned char* below, const unsigned char* over, unsigned alpha) {
  for (int c = 0; c < kColorBytes; ++c)
    below[c] = static_cast<unsigned char>((2 * (over[c] * alpha + below[c] * (255 - alpha)) + 255) / 510);
}

// Row i of the image to row y of the raster. What lies outside is left out; with alpha, what is there shows through.
void writeRow(RasterCanvas& canvas, const Image& image, int i, int x, int y, unsigned char* below) {
  const unsigned char* rgb = imageRow(image, i);
  if (!image.alpha || image.alphaApplied) return writeRgbRow(canvas, x, y, rgb, image.width);
  const unsigned char* alpha = alphaRow(image, i);
  std::memcpy(below, rgb, static_cast<std::size_t>(image.width) * kColorBytes);
  readRgbRow(canvas, x, y, below, image.width);
  const int first = std::max(0, -x), end = std::min(image.width, canvas.width - x);
  for (int k = first; k < end;) {
    // What is fully transparent keeps its pixels: on a palette the colour there may have no entry of its own.
    const int start = k;
    for (; k < end && alpha[k] > 0; ++k) blendPixel(below + kColorBytes * k, rgb + kColorBytes * k, alpha[k]);
    if (k > start) writeRgbRow(canvas, x + start, y, below + kColorBytes * start, k - start);
    while (k < end && alpha[k] == 0) ++k;
  }
}

ImageStatus writeOnRaster(PlotState* s, const Image& image, int x, int y) {
  RasterCanvas& canvas = *s->raster.canvas;
  const RowBuffer below(image.width, kColorBytes);
  if (!below.bytes) return kImageNoMemory;
  for (int i = 0; i < image.height; ++i) {
    const long long row = static_cast<long long>(y) + i;
    if (row < 0 || row >= canvas.height || !image.rowDone[i]) continue;
    writeRow(canvas, image, i, x, static_cast<int>(row), below.bytes);
  }
  return kImageFine;
}

void readImageRow(void* picture, int y, unsigned char* rgb) {
  const auto* image = static_cast<const Image*>(picture);
  std::memcpy(rgb, imageRow(*image, y), static_cast<std::size_t>(image->width) * kColorBytes);
}

void putOnPage(PlotState* s, Image& image, const WholeBox& box) {
  unsigned char ground[kColorBytes];
  pageGround(s, ground);
  blendOver(image, ground);
  for (int y = 0; y < image.height; ++y) {
    if (image.rowDone[y]) continue;
    unsigned char* rgb = imageRow(image, y);
    for (int x = 0; x < image.width; ++x) std::memcpy(rgb + kColorBytes * x, ground, kColorBytes);
  }
  sinkPageImage(s,
                {readImageRow, &image, image.width, image.height, static_cast<float>(box.x), static_cast<float>(box.y),
                 static_cast<float>(box.width), static_cast<float>(box.height), s->image.imageTransparent >= 0});
}

// Replaces the image by its part or its copy in another size.
template <class Make> ImageStatus replaceImage(Image& image, Make make) {
  Image made;
  const ImageStatus status = make(made);
  freeImage(image);
  image = made;
  return status;
}

struct FileImage {
  Image image;
  ImageStatus status = kImageFine;
  ~FileImage() { freeImage(image); }
};

// Cuts and scales the image that was read, and writes it. False after a message.
bool writeHeld(PlotState* s, Image& image, const PixelPlace& place, const char* name) {
  const IncludeGroup& include = s->include;
  ImageStatus status = kImageFine;
  if (include.fileWindowSet) {
    status = replaceImage(image, [&](Image& part) {
      return cutImage(image, include.fileWindowX, include.fileWindowY, include.fileWindowW, include.fileWindowH, part);
    });
    if (status == kImageBadFormat) {
      warnWithText(s, kBadImage, "clipping window is outside of image");
      return false;
    }
  }
  PixelPlace target = {place.x, place.y, image.width, image.height};
  const int scaling = s->deviceSetup.includeScaling;
  if (scaling == kToBox) target = {place.x, place.y, std::max(place.width, 1), std::max(place.height, 1)};
  if (scaling == kToPage) target = {0, 0, s->raster.canvas->width, s->raster.canvas->height};
  if (status == kImageFine && (target.width != image.width || target.height != image.height))
    status = replaceImage(image, [&](Image& scaled) { return scaleImage(image, target.width, target.height, scaled); });
  if (status == kImageFine) status = writeOnRaster(s, image, target.x, target.y);
  reportImage(s, status, name);
  return status == kImageFine;
}

} // namespace

void reportImage(PlotState* s, ImageStatus status, const char* name) {
  switch (status) {
  case kImageFine: return;
  case kImageNotOpened: return warnWithString(s, kFileError, name);
  case kImageNoMemory: return warnPlain(s, kNoMemory);
  case kImageNotSupported: return warnWithText(s, kBadImage, "Not supported TIFF feature");
  case kImageBadFormat:
  case kImageInflateError:
  case kImageBadIndex:
  case kImageInflateEndError:
  case kImageOverrun: return warnWithText(s, kBadImage, "Syntax error in image file");
  }
}

bool showsImages(PlotState* s) { return s->raster.canvas || holdsPageImages(s); }

bool includeImage(PlotState* s, const char* name, FileKind kind, const WholeBox& box) {
  if (s->raster.imageOpen) {
    warnPlain(s, kNoImageEnd);
    return false;
  }
  flushPath(s);
  const bool onPage = holdsPageImages(s);
  const bool direct = onPage || (s->deviceSetup.includeScaling == kOwnSize && !s->include.fileWindowSet);
  FileImage file;
  file.status = readImage(name, kind, direct ? GifExtent::kImage : GifExtent::kScreen, file.image);
  const bool complete = file.status == kImageFine;
  // Of a damaged file the rows that were read are shown, unless they are to be scaled.
  if (file.image.pixels && onPage) {
    putOnPage(s, file.image, box);
  } else if (file.image.pixels && (direct || complete)) {
    const PixelPlace place = placeOnRaster(s, box);
    if (!direct) return writeHeld(s, file.image, place, name);
    const ImageStatus written = writeOnRaster(s, file.image, place.x, place.y);
    if (complete) file.status = written;
  }
  reportImage(s, file.status, name);
  return file.status == kImageFine;
}

} // namespace quilla

using namespace quilla;

void WTIFF(const char* name) {
  PlotState* s = strictCheck(1, 3, "wtiff");
  if (!s) return;
  if (!s->raster.canvas) return warnPlain(s, kIncompatible);
  flushPath(s);
  flushCanvas(*s->raster.canvas);
  FileImage file;
  file.status = readImage(name, kFileTiff, GifExtent::kImage, file.image);
  const ImageBox& window = s->image.tiffWindow;
  if (file.status == kImageFine && window.w > 0) {
    file.status = replaceImage(
        file.image, [&](Image& part) { return cutImage(file.image, window.x, window.y, window.w, window.h, part); });
    if (file.status == kImageBadFormat) return warnWithText(s, kBadImage, "clipping window is outside of image");
  }
  if (file.status == kImageFine) file.status = writeOnRaster(s, file.image, s->image.tiffOriginX, s->image.tiffOriginY);
  reportImage(s, file.status, name);
}
