// The canvas as a file: which rectangle, which options, and what went wrong.
#include <algorithm>

#include "core/file_version.h"
#include "core/levels.h"
#include "core/messages.h"
#include "device/raster_documents.h"
#include "device/raster_driver.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr int kFileError = 36, kNoMemory = 53, kDeflateError = 126;

// IMGCLP, or the whole canvas.
PixelBox writtenBox(const PlotState* s) {
  const ImageBox& clip = s->image.imageClip;
  const PixelBox whole = wholeCanvas(*s->raster.canvas);
  if (!clip.set) return whole;
  const PixelBox box = cutBox(whole, {clip.x, clip.y, clip.x + clip.w - 1, clip.y + clip.h - 1});
  return box.empty() ? whole : box;
}

PixelSource writtenPixels(const PlotState* s) {
  flushCanvas(*s->raster.canvas);
  return {s->raster.canvas, writtenBox(s)};
}

GifOptions gifOptions(const PlotState* s) {
  const RasterCanvas& canvas = *s->raster.canvas;
  const int background = s->color.backgroundColor & (kPaletteSize - 1);
  const unsigned char ground = canvas.backgroundWhite ? 255 : 0;
  return {s->rasterSetup.gifTransparent, background, {ground, ground, ground}};
}

} // namespace

EncodeResult encodeRaster(PlotState* s, int format, ByteTarget& out) {
  const RasterSetup& setup = s->rasterSetup;
  const PixelSource source = writtenPixels(s);
  const bool reduce = setup.imageFormat == kImageIndexed, bilevel = setup.imageFormat == kImageBilevel;
  switch (format) {
  case kRasterTiff: return encodeTiff(out, source, {bilevel, reduce, setup.tiffResolution, setup.tiffResolutionUnit});
  case kRasterImage: return encodeRawImage(out, source);
  case kRasterPng: return encodePng(out, source, {setup.pngTransparent, reduce, bilevel});
  case kRasterPpm: return encodePpm(out, source);
  case kRasterBmp: return encodeBmp(out, source, {reduce, setup.bmpResolution});
  case kRasterGif: return encodeGif(out, source, gifOptions(s));
  default: return EncodeResult::kFine;
  }
}

void reportEncoder(PlotState* s, EncodeResult result, const char* name) {
  switch (result) {
  case EncodeResult::kFine: return;
  case EncodeResult::kWriteFailed: return warnWithString(s, kFileError, name);
  case EncodeResult::kNoMemory: return warnPlain(s, kNoMemory);
  case EncodeResult::kDeflateFailed: return warnWithText(s, kDeflateError, "ZLIB error");
  }
}

namespace {

EncodeResult encodeInto(PlotState* s, int format, OutputBuffer* output) {
  if (format == kRasterPs) return writePsImage(s, writtenPixels(s), output);
  if (format == kRasterPdf) return writePdfImage(s, writtenPixels(s), output);
  ByteTarget out = bytesTo(output);
  return encodeRaster(s, format, out);
}

} // namespace

void writeRasterFile(PlotState* s, int format, const char* name) {
  char file[kFileNameLength + 1];
  copyText(file, name, kFileNameLength);
  OutputBuffer* output = nullptr;
  {
    const ProcessLock lock;
    if (const int refused = versionFileName(s, file); refused != kVersionFine) return warnPlain(s, refused);
    output = openOutput(file, format == kRasterPs ? "w" : "wb");
  }
  if (!output) return warnWithString(s, kFileError, file);
  EncodeResult result = encodeInto(s, format, output);
  if (!closeOutput(output) && result == EncodeResult::kFine) result = EncodeResult::kWriteFailed;
  reportEncoder(s, result, file);
}

} // namespace quilla
