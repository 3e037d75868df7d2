// Formats that are not compressed: the raw image, PPM, BMP, TIFF.
#include <cstdio>
#include <cstdlib>
#include <initializer_list>

#include "raster/reduce.h"
#include "raster/row_buffer.h"

namespace quilla {
namespace {

constexpr int kRgbBytes = 3;

void readRow(const PixelSource& source, int y, unsigned char* rgb) {
  readRgbRow(*source.canvas, source.box.x1, source.box.y1 + y, rgb, source.width());
}

EncodeResult resultOf(const ByteTarget& out) { return out.failed ? EncodeResult::kWriteFailed : EncodeResult::kFine; }

EncodeResult putRgbRows(ByteTarget& out, const PixelSource& source) {
  const RowBuffer row(source.width(), kRgbBytes);
  if (!row.bytes) return EncodeResult::kNoMemory;
  for (int y = 0; y < source.height() && !out.failed; ++y) {
    readRow(source, y, row.bytes);
    putBlock(out, row.bytes, row.size);
  }
  return resultOf(out);
}

} // namespace

EncodeResult encodeRawImage(ByteTarget& out, const PixelSource& source) {
  constexpr int kHeaderSize = 80, kIndexedKind = 1, kTrueColourKind = 5;
  const bool rgb = source.canvas->trueColour;
  const int depth = rgb ? 24 : 8, width = source.width(), rowBytes = rgb ? width * kRgbBytes : width;
  char header[160];
  const int length =
      std::snprintf(header, sizeof header, "!Bitmap QUILLA VIRT %5d %5d %5d %5d %5d %5d %5d %5d %5d", width,
                    source.height(), depth, rowBytes, depth, 32, 0, rgb ? kTrueColourKind : kIndexedKind, 0);
  for (int i = length; i < kHeaderSize; ++i) header[i] = ' ';
  putBlock(out, header, kHeaderSize);
  if (rgb) return putRgbRows(out, source);
  for (int y = source.box.y1; y <= source.box.y2; ++y) {
    putBlock(out, canvasRow(*source.canvas, y) + source.box.x1, static_cast<std::size_t>(width));
  }
  return resultOf(out);
}

EncodeResult encodePpm(ByteTarget& out, const PixelSource& source) {
  char header[40];
  std::snprintf(header, sizeof header, "P6\n%d %d\n255\n", source.width(), source.height());
  putBlockText(out, header);
  return putRgbRows(out, source);
}

namespace {

constexpr int kBmpHeaderSize = 54, kBmpInfoSize = 40, kBmpEntrySize = 4;

int bmpRowSize(int width, bool rgb) {
  constexpr int kGrain = 4;
  const int bytes = rgb ? width * kRgbBytes : width;
  return (bytes + kGrain - 1) / kGrain * kGrain;
}

void putBmpHeader(ByteTarget& out, const PixelSource& source, int colours, int resolution) {
  const bool rgb = colours == 0;
  const auto pixelBytes =
      static_cast<std::uint32_t>(bmpRowSize(source.width(), rgb)) * static_cast<std::uint32_t>(source.height());
  const auto start = static_cast<std::uint32_t>(kBmpEntrySize * colours + kBmpHeaderSize);
  unsigned char header[kBmpHeaderSize];
  FieldWriter field{header};
  field.bytes("BM", 2);
  field.low32(pixelBytes + start);
  field.low32(0);
  field.low32(start);
  field.low32(kBmpInfoSize);
  field.low32(static_cast<std::uint32_t>(source.width()));
  field.low32(static_cast<std::uint32_t>(source.height()));
  field.low16(1); // planes
  field.low16(rgb ? 24 : 8);
  field.low32(0); // not compressed
  field.low32(pixelBytes);
  field.low32(static_cast<std::uint32_t>(resolution));
  field.low32(static_cast<std::uint32_t>(resolution));
  field.low32(static_cast<std::uint32_t>(colours));
  field.low32(static_cast<std::uint32_t>(colours));
  putBlock(out, header, sizeof header);
}

EncodeResult putBmpRgb(ByteTarget& out, const PixelSource& source) {
  const RowBuffer row(bmpRowSize(source.width(), true), 1);
  if (!row.bytes) return EncodeResult::kNoMemory;
  for (int y = source.height() - 1; y >= 0 && !out.failed; --y) {
    readRow(source, y, row.bytes);
    for (int i = 0; i < source.width(); ++i) {
      unsigned char* pixel = row.bytes + static_cast<std::ptrdiff_t>(i) * kRgbBytes;
      const unsigned char red = pixel[0];
      pixel[0] = pixel[2];
      pixel[2] = red;
    }
    putBlock(out, row.bytes, row.size);
  }
  return resultOf(out);
}

EncodeResult putBmpIndexed(ByteTarget& out, IndexedRows& rows) {
  const PixelSource& source = rows.source;
  const RowBuffer row(source.width(), 1);
  if (!row.bytes) return EncodeResult::kNoMemory;
  unsigned char palette[kPaletteSize * kBmpEntrySize];
  FieldWriter field{palette};
  for (int i = 0; i < rows.paletteCount; ++i) {
    for (int value : {static_cast<int>(rows.palette[i].b), static_cast<int>(rows.palette[i].g),
                      static_cast<int>(rows.palette[i].r), 0}) {
      field.byte(value);
    }
  }
  putBlock(out, palette, static_cast<std::size_t>(rows.paletteCount) * kBmpEntrySize);
  const unsigned char padding[kBmpEntrySize] = {};
  const auto pad = static_cast<std::size_t>(bmpRowSize(source.width(), false) - source.width());
  for (int y = source.height() - 1; y >= 0 && !out.failed; --y) {
    putBlock(out, indexedRow(rows, y, row.bytes), static_cast<std::size_t>(source.width()));
    putBlock(out, padding, pad);
  }
  return resultOf(out);
}

} // namespace

EncodeResult encodeBmp(ByteTarget& out, const PixelSource& source, const BmpOptions& options) {
  if (source.canvas->trueColour && !options.reduce) {
    putBmpHeader(out, source, 0, options.resolution);
    return putBmpRgb(out, source);
  }
  IndexedRows rows;
  if (!openIndexedRows(rows, source)) return EncodeResult::kNoMemory;
  putBmpHeader(out, source, rows.paletteCount, options.resolution);
  const EncodeResult result = putBmpIndexed(out, rows);
  closeIndexedRows(rows);
  return result;
}

} // namespace quilla
