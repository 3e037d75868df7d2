// Public routines that write the picture as it stands.
#include <cstring>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/raster_driver.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kIncompatible = 40, kBufferSmall = 125;

void exportImage(PlotState* s, int format, const char* file) {
  if (!s->raster.canvas) return warnPlain(s, kIncompatible);
  flushPath(s);
  writeRasterFile(s, format, file);
}

void exportAs(const char* name, int format, const char* file) {
  if (PlotState* s = strictCheck(1, 3, name)) exportImage(s, format, file);
}

// Memory of the caller.
struct MemoryBlock {
  unsigned char* bytes;
  std::size_t room, used;
};

bool putInMemory(void* to, const unsigned char* bytes, std::size_t count) {
  auto* block = static_cast<MemoryBlock*>(to);
  if (count > block->room - block->used) return false;
  std::memcpy(block->bytes + block->used, bytes, count);
  block->used += count;
  return true;
}

} // namespace

void EXPIMG(const char* file, const char* format) {
  PlotState* s = strictCheck(1, 3, "expimg");
  if (!s) return;
  constexpr int kFormats[] = {kRasterNone, kRasterTiff, kRasterImage, kRasterPdf, kRasterPng,
                              kRasterPpm,  kRasterBmp,  kRasterGif,   kRasterPs};
  const int found = matchKeyword(s, "TIFF+IMAG+PDF +PNG +PPM +BMP +GIF +PS  ", 8, format);
  if (found) exportImage(s, kFormats[found], file);
}

void RTIFF(const char* file) { exportAs("rtiff", kRasterTiff, file); }
void RPNG(const char* file) { exportAs("rpng", kRasterPng, file); }
void RPPM(const char* file) { exportAs("rppm", kRasterPpm, file); }
void RBMP(const char* file) { exportAs("rbmp", kRasterBmp, file); }
void RGIF(const char* file) { exportAs("rgif", kRasterGif, file); }
void RIMAGE(const char* file) { exportAs("rimage", kRasterImage, file); }

int RBFPNG(unsigned char* bytes, int size) {
  PlotState* s = strictCheck(1, 3, "rbfpng");
  if (!s) return 0;
  if (!s->raster.canvas) {
    warnPlain(s, kIncompatible);
    return 0;
  }
  flushPath(s);
  MemoryBlock block = {bytes, size > 0 ? static_cast<std::size_t>(size) : 0, 0};
  ByteTarget out = {putInMemory, &block, false};
  const EncodeResult result = encodeRaster(s, kRasterPng, out);
  if (result == EncodeResult::kFine) return static_cast<int>(block.used);
  if (result == EncodeResult::kWriteFailed) {
    warnWithText(s, kBufferSmall, "Buffer too small for PNG file");
  } else {
    reportEncoder(s, result, "");
  }
  return 0;
}
