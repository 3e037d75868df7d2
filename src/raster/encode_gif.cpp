// GIF, its pixels packed by LZW.
#include <algorithm>
#include <initializer_list>

#include "raster/reduce.h"
#include "raster/row_buffer.h"

namespace quilla {
namespace {

constexpr int kTableSize = 5021; // prime, for short probes at 4096 codes
constexpr std::uint32_t kFreeSlot = ~0U;
constexpr int kCodeBits = 12; // of the longest code
constexpr std::uint32_t kCodeMask = (1U << kCodeBits) - 1;
constexpr int kPixelBits = 8, kClearCode = 256, kEndCode = 257, kFirstCode = 258, kLastCode = 4095;
constexpr int kFirstCodeSize = 9, kFirstLimit = 512;
constexpr int kBlockSize = 255;

// Bits from the low end of bytes, bytes in blocks with their length in front.
struct CodeWriter {
  ByteTarget* out;
  std::uint32_t bits = 0;
  int bitCount = 0;
  int used = 0;
  unsigned char block[1 + kBlockSize];

  void putByte(std::uint32_t byte) {
    block[++used] = static_cast<unsigned char>(byte);
    if (used == kBlockSize) flushBlock();
  }
  void flushBlock() {
    block[0] = static_cast<unsigned char>(used);
    if (used > 0) putBlock(*out, block, static_cast<std::size_t>(used) + 1);
    used = 0;
  }
  void put(int code, int size) {
    bits |= static_cast<std::uint32_t>(code) << bitCount;
    bitCount += size;
    for (; bitCount >= 8; bitCount -= 8, bits >>= 8) putByte(bits & 255);
  }
  void finish() {
    if (bitCount > 0) putByte(bits & 255);
    flushBlock();
  }
};

struct LzwEncoder {
  CodeWriter writer;
  int prefix = -1; // code of the string so far
  int nextFree = kFirstCode, size = kFirstCodeSize, limit = kFirstLimit;
  // From the high end: the code of a prefix, the pixel behind it, the code of both.
  std::uint32_t string[kTableSize];

  void clear() {
    std::fill_n(string, kTableSize, kFreeSlot);
    nextFree = kFirstCode;
    size = kFirstCodeSize;
    limit = kFirstLimit;
  }

  void growAtLimit() {
    if (nextFree != limit) return;
    ++size;
    limit *= 2;
  }

  // A string gets a code; the one of its prefix is emitted.
  void learn(int slot, std::uint32_t key) {
    string[slot] = key << kCodeBits | static_cast<std::uint32_t>(nextFree);
    writer.put(prefix, size);
    growAtLimit();
    if (++nextFree == kLastCode) {
      writer.put(kClearCode, size);
      clear();
    }
  }

  void add(const unsigned char* pixels, int n) {
    int i = 0;
    if (prefix < 0) prefix = pixels[i++];
    for (; i < n; ++i) {
      const int pixel = pixels[i];
      int slot = pixel << 4 ^ prefix;
      const int step = slot == 0 ? 1 : kTableSize - slot;
      const std::uint32_t key = static_cast<std::uint32_t>(prefix) << kPixelBits | static_cast<std::uint32_t>(pixel);
      std::uint32_t found = string[slot];
      while (found >> kCodeBits != key && found != kFreeSlot) {
        slot -= step;
        if (slot < 0) slot += kTableSize;
        found = string[slot];
      }
      if (found != kFreeSlot) {
        prefix = static_cast<int>(found & kCodeMask);
        continue;
      }
      learn(slot, key);
      prefix = pixel;
    }
  }

  // A reader makes one more entry behind the last string, and with it perhaps a longer code.
  void finish() {
    writer.put(prefix, size);
    growAtLimit();
    writer.put(kEndCode, size);
    writer.finish();
  }
};

// A reduced palette has the background somewhere, or none at all.
int backgroundEntry(const IndexedRows& rows, const GifOptions& options) {
  if (!rows.tree) return options.background;
  const Rgb* end = rows.palette + rows.paletteCount;
  const Rgb* found = std::find(rows.palette, end, options.backgroundColour);
  return found == end ? 0 : static_cast<int>(found - rows.palette);
}

void putHead(ByteTarget& out, const IndexedRows& rows, const GifOptions& options) {
  const int background = backgroundEntry(rows, options);
  constexpr int kTableOf256 = 247; // global table, 8 bits a component, 256 entries
  constexpr int kHeadSize = 13 + 3 * kPaletteSize + 8 + 11;
  unsigned char bytes[kHeadSize];
  FieldWriter field{bytes};
  const auto width = static_cast<std::uint32_t>(rows.source.width());
  const auto height = static_cast<std::uint32_t>(rows.source.height());
  field.bytes(options.transparent ? "GIF89a" : "GIF87a", 6);
  field.low16(width);
  field.low16(height);
  field.byte(kTableOf256);
  field.byte(background);
  field.byte(0);
  for (const Rgb& entry : rows.palette) {
    field.byte(entry.r);
    field.byte(entry.g);
    field.byte(entry.b);
  }
  if (options.transparent) {
    for (int value : {static_cast<int>('!'), 0xF9, 4, 1, 0, 0, background, 0}) field.byte(value);
  }
  field.byte(',');
  field.low32(0);
  field.low16(width);
  field.low16(height);
  field.byte(0);
  field.byte(kPixelBits);
  putBlock(out, bytes, static_cast<std::size_t>(field.at - bytes));
}

} // namespace

EncodeResult encodeGif(ByteTarget& out, const PixelSource& source, const GifOptions& options) {
  constexpr int kMostPixels = 65535; // of a side
  if (source.width() > kMostPixels || source.height() > kMostPixels) return EncodeResult::kWriteFailed;
  IndexedRows rows;
  const RowBuffer row(source.width(), 1);
  if (!row.bytes || !openIndexedRows(rows, source)) return EncodeResult::kNoMemory;
  putHead(out, rows, options);
  LzwEncoder encoder;
  encoder.writer.out = &out;
  encoder.clear();
  encoder.writer.put(kClearCode, encoder.size);
  for (int y = 0; y < source.height() && !out.failed; ++y) {
    encoder.add(indexedRow(rows, y, row.bytes), source.width());
  }
  encoder.finish();
  const unsigned char tail[] = {0, ';'};
  putBlock(out, tail, sizeof tail);
  closeIndexedRows(rows);
  return out.failed ? EncodeResult::kWriteFailed : EncodeResult::kFine;
}

} // namespace quilla
