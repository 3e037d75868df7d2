// WIMAGE: the raw image of RIMAGE comes back, its upper left corner in that of the raster.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/raster_driver.h"
#include "quilla/quilla.h"
#include "raster/row_buffer.h"

using namespace quilla;

namespace {

constexpr int kFileError = 36, kIncompatible = 40, kNoMemory = 53, kBadFormat = 56;
constexpr int kHeaderSize = 80;

struct RawHead {
  int width, height, rowBytes;
  bool rgb;
};

// Number k of the header: fields of five letters behind the kind, a blank between them. -1 if it is none.
int headNumber(const char* header, int k) {
  constexpr int kNumbersAt = 20, kField = 5;
  char digits[kField + 1] = {};
  std::memcpy(digits, header + kNumbersAt + k * (kField + 1), kField);
  char* end = nullptr;
  const long value = std::strtol(digits, &end, 10);
  return end == digits + kField && value >= 0 ? static_cast<int>(value) : -1;
}

// False if this is no raw image, or if the file ends before its last row.
bool readHead(std::FILE* file, RawHead& head) {
  constexpr char kMark[] = "!Bitmap QUILLA ";
  constexpr int kRgbDepth = 24, kIndexedDepth = 8;
  char header[kHeaderSize];
  if (std::fread(header, 1, kHeaderSize, file) != kHeaderSize) return false;
  if (std::memcmp(header, kMark, sizeof kMark - 1) != 0) return false;
  const int depth = headNumber(header, 2);
  head = {headNumber(header, 0), headNumber(header, 1), headNumber(header, 3), depth == kRgbDepth};
  if ((depth != kRgbDepth && depth != kIndexedDepth) || head.width < 1 || head.height < 1) return false;
  if (head.rowBytes < head.width * (head.rgb ? 3 : 1) || std::fseek(file, 0, SEEK_END) != 0) return false;
  const long length = std::ftell(file);
  if (length < kHeaderSize + static_cast<long>(head.rowBytes) * head.height) return false;
  return std::fseek(file, kHeaderSize, SEEK_SET) == 0;
}

// Number of a message, or 0.
int readRawImage(RasterCanvas& canvas, std::FILE* file) {
  RawHead head;
  if (!readHead(file, head)) return kBadFormat;
  const RowBuffer row(1, static_cast<std::size_t>(head.rowBytes));
  if (!row.bytes) return kNoMemory;
  const int rows = std::min(head.height, canvas.height);
  for (int y = 0; y < rows; ++y) {
    if (std::fread(row.bytes, 1, row.size, file) != row.size) return kBadFormat;
    if (head.rgb) {
      writeRgbRow(canvas, 0, y, row.bytes, head.width);
    } else {
      writeIndexRow(canvas, 0, y, row.bytes, head.width);
    }
  }
  return 0;
}

} // namespace

void WIMAGE(const char* name) {
  PlotState* s = strictCheck(1, 3, "wimage");
  if (!s) return;
  if (!s->raster.canvas) return warnPlain(s, kIncompatible);
  std::FILE* file = std::fopen(name, "rb");
  if (!file) return warnWithString(s, kFileError, name);
  flushPath(s);
  flushCanvas(*s->raster.canvas);
  const int fault = readRawImage(*s->raster.canvas, file);
  std::fclose(file);
  if (fault != 0) warnPlain(s, fault);
}
