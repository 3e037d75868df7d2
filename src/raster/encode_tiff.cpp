// TIFF, little endian, not compressed, one row a strip.
#include <initializer_list>

#include "raster/reduce.h"
#include "raster/row_buffer.h"

namespace quilla {
namespace {

enum class TiffKind { kPalette, kRgb, kBilevel };
enum FieldType : std::uint32_t { kWord = 3, kLong = 4, kRatio = 5 };

constexpr int kHeaderSize = 8, kEntrySize = 12, kColourMapSize = 3 * kPaletteSize * 2, kMostEntries = 14;

// Where the parts of the file lie.
struct TiffLayout {
  TiffKind kind;
  int width, height;
  std::uint32_t rowBytes;
  std::uint32_t entries;
  std::uint32_t stripOffsets, stripSizes, resolutionX, resolutionY, extra, rows;
};

std::uint32_t rowBytesOf(TiffKind kind, int width) {
  const auto w = static_cast<std::uint32_t>(width);
  switch (kind) {
  case TiffKind::kPalette: return w;
  case TiffKind::kRgb: return 3 * w;
  case TiffKind::kBilevel: return (w + 7) / 8;
  }
  return w;
}

TiffLayout layoutOf(TiffKind kind, const PixelSource& source) {
  TiffLayout t{};
  t.kind = kind;
  t.width = source.width();
  t.height = source.height();
  t.rowBytes = rowBytesOf(kind, t.width);
  t.entries = kind == TiffKind::kPalette ? kMostEntries : kMostEntries - 1;
  const auto strips = 4 * static_cast<std::uint32_t>(t.height);
  t.stripOffsets = kHeaderSize + 2 + kEntrySize * t.entries + 4;
  t.stripSizes = t.stripOffsets + strips;
  t.resolutionX = t.stripSizes + strips;
  t.resolutionY = t.resolutionX + 8;
  t.extra = t.resolutionY + 8;
  t.rows = t.extra + (kind == TiffKind::kPalette ? kColourMapSize : kind == TiffKind::kRgb ? 6 : 0);
  return t;
}

// Whether all offsets fit in 32 bits.
bool fits(const TiffLayout& t) {
  const long long ends =
      static_cast<long long>(t.rowBytes) * t.height + 8LL * t.height + kColourMapSize + kMostEntries * kEntrySize + 64;
  return ends < 0xFFFFFFFFLL;
}

void putDirectory(ByteTarget& out, const TiffLayout& t, const TiffOptions& options) {
  unsigned char bytes[kHeaderSize + 2 + kEntrySize * kMostEntries + 4];
  FieldWriter field{bytes};
  field.bytes("II", 2);
  field.low16(42);
  field.low32(kHeaderSize);
  field.low16(t.entries);
  auto entry = [&field](std::uint32_t tag, FieldType type, std::uint32_t count, std::uint32_t value) {
    field.low16(tag);
    field.low16(type);
    field.low32(count);
    field.low32(value);
  };
  const bool rgb = t.kind == TiffKind::kRgb, bilevel = t.kind == TiffKind::kBilevel;
  const auto height = static_cast<std::uint32_t>(t.height);
  const bool oneStrip = t.height == 1; // a single value stands in its entry
  entry(254, kLong, 1, 0);
  entry(256, kLong, 1, static_cast<std::uint32_t>(t.width));
  entry(257, kLong, 1, height);
  entry(258, kWord, rgb ? 3 : 1, rgb ? t.extra : bilevel ? 1 : 8);
  entry(259, kWord, 1, 1);
  entry(262, kWord, 1, rgb ? 2 : bilevel ? 1 : 3);
  entry(273, kLong, height, oneStrip ? t.rows : t.stripOffsets);
  entry(277, kWord, 1, rgb ? 3 : 1);
  entry(278, kWord, 1, 1);
  entry(279, kLong, height, oneStrip ? t.rowBytes : t.stripSizes);
  entry(282, kRatio, 1, t.resolutionX);
  entry(283, kRatio, 1, t.resolutionY);
  entry(296, kWord, 1, static_cast<std::uint32_t>(options.unit));
  if (t.kind == TiffKind::kPalette) entry(320, kWord, 3 * kPaletteSize, t.extra);
  field.low32(0); // no further directory
  putBlock(out, bytes, static_cast<std::size_t>(field.at - bytes));
}

void putStrips(ByteTarget& out, const TiffLayout& t) {
  constexpr int kAtOnce = 1024;
  unsigned char bytes[4 * kAtOnce];
  for (bool sizes : {false, true}) {
    for (int y = 0; y < t.height;) {
      FieldWriter field{bytes};
      for (int i = 0; i < kAtOnce && y < t.height; ++i, ++y) {
        field.low32(sizes ? t.rowBytes : t.rows + static_cast<std::uint32_t>(y) * t.rowBytes);
      }
      putBlock(out, bytes, static_cast<std::size_t>(field.at - bytes));
    }
  }
}

void putResolution(ByteTarget& out, const TiffOptions& options) {
  unsigned char bytes[16];
  FieldWriter field{bytes};
  for (int i = 0; i < 2; ++i) {
    field.low32(static_cast<std::uint32_t>(options.resolution));
    field.low32(1);
  }
  putBlock(out, bytes, sizeof bytes);
}

// Red, green and blue as planes of words: 255 becomes 65535.
void putColourMap(ByteTarget& out, const IndexedRows& rows) {
  constexpr std::uint32_t kSpread = 65535 / 255;
  unsigned char bytes[kColourMapSize];
  FieldWriter field{bytes};
  for (unsigned char Rgb::*component : {&Rgb::r, &Rgb::g, &Rgb::b}) {
    for (const Rgb& entry : rows.palette) field.low16(entry.*component * kSpread);
  }
  putBlock(out, bytes, sizeof bytes);
}

void packBits(const unsigned char* indices, int n, unsigned char* bits) {
  for (int i = 0; i < n; i += 8) {
    int byte = 0;
    for (int k = 0; k < 8; ++k) byte = byte << 1 | (i + k < n && indices[i + k] != 0 ? 1 : 0);
    *bits++ = static_cast<unsigned char>(byte);
  }
}

void putHead(ByteTarget& out, const TiffLayout& t, const TiffOptions& options) {
  putDirectory(out, t, options);
  putStrips(out, t);
  putResolution(out, options);
}

EncodeResult putRgb(ByteTarget& out, const PixelSource& source, const TiffLayout& t) {
  const RowBuffer row(t.width, 3);
  if (!row.bytes) return EncodeResult::kNoMemory;
  const unsigned char bits[] = {8, 0, 8, 0, 8, 0};
  putBlock(out, bits, sizeof bits);
  for (int y = source.box.y1; y <= source.box.y2 && !out.failed; ++y) {
    readRgbRow(*source.canvas, source.box.x1, y, row.bytes, t.width);
    putBlock(out, row.bytes, row.size);
  }
  return EncodeResult::kFine;
}

EncodeResult putBilevel(ByteTarget& out, const PixelSource& source, const TiffLayout& t) {
  const RowBuffer row(t.width, 1), packed(static_cast<int>(t.rowBytes), 1);
  if (!row.bytes || !packed.bytes) return EncodeResult::kNoMemory;
  for (int y = source.box.y1; y <= source.box.y2 && !out.failed; ++y) {
    readIndexRow(*source.canvas, source.box.x1, y, row.bytes, t.width);
    packBits(row.bytes, t.width, packed.bytes);
    putBlock(out, packed.bytes, packed.size);
  }
  return EncodeResult::kFine;
}

EncodeResult putPalette(ByteTarget& out, IndexedRows& rows, const TiffLayout& t) {
  const RowBuffer row(t.width, 1);
  if (!row.bytes) return EncodeResult::kNoMemory;
  putColourMap(out, rows);
  for (int y = 0; y < t.height && !out.failed; ++y) putBlock(out, indexedRow(rows, y, row.bytes), row.size);
  return EncodeResult::kFine;
}

} // namespace

EncodeResult encodeTiff(ByteTarget& out, const PixelSource& source, const TiffOptions& options) {
  const TiffKind kind = options.bilevel                                ? TiffKind::kBilevel
                        : source.canvas->trueColour && !options.reduce ? TiffKind::kRgb
                                                                       : TiffKind::kPalette;
  const TiffLayout layout = layoutOf(kind, source);
  if (!fits(layout)) return EncodeResult::kNoMemory;
  IndexedRows rows;
  if (kind == TiffKind::kPalette && !openIndexedRows(rows, source)) return EncodeResult::kNoMemory;
  putHead(out, layout, options);
  const EncodeResult result = kind == TiffKind::kPalette ? putPalette(out, rows, layout)
                              : kind == TiffKind::kRgb   ? putRgb(out, source, layout)
                                                         : putBilevel(out, source, layout);
  closeIndexedRows(rows);
  return out.failed ? EncodeResult::kWriteFailed : result;
}

} // namespace quilla
