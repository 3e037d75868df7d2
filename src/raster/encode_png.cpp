// PNG: chunks of length, type, data and checksum; the rows as one zlib stream.
#ifdef QUILLA_LIBDEFLATE
#include <libdeflate.h>
#else
#include <zlib.h>
#endif

#include "raster/pack.h"
#include "raster/reduce.h"

namespace quilla {
namespace {

enum ColourType { kTypeRgb = 2, kTypePalette = 3, kTypeAlpha = 6 };

constexpr int kLengthSize = 4, kTypeSize = 4;

#ifdef QUILLA_LIBDEFLATE
std::uint32_t checksum(std::uint32_t crc, const unsigned char* bytes, std::size_t n) {
  return libdeflate_crc32(crc, bytes, n);
}
#else
std::uint32_t checksum(std::uint32_t crc, const unsigned char* bytes, std::size_t n) {
  return static_cast<std::uint32_t>(crc32_z(crc, bytes, n));
}
#endif

void putChunk(ByteTarget& out, const char* type, const unsigned char* data, std::size_t size) {
  unsigned char head[kLengthSize + kTypeSize], tail[4];
  FieldWriter field{head};
  field.high32(static_cast<std::uint32_t>(size));
  field.bytes(type, kTypeSize);
  std::uint32_t crc = checksum(0, head + kLengthSize, kTypeSize);
  if (size > 0) crc = checksum(crc, data, size);
  FieldWriter{tail}.high32(crc);
  putBlock(out, head, sizeof head);
  putBlock(out, data, size);
  putBlock(out, tail, sizeof tail);
}

// The picture as PNG sees it.
struct PngPicture {
  PixelSource source;
  ColourType type;
  IndexedRows rows; // of a palette

  int pixelBytes() const { return type == kTypePalette ? 1 : type == kTypeRgb ? 3 : 4; }
  std::size_t rowBytes() const {
    return static_cast<std::size_t>(source.width()) * static_cast<std::size_t>(pixelBytes());
  }
  // A row without its filter byte.
  void read(int y, unsigned char* to) {
    const int row = source.box.y1 + y;
    if (type == kTypeRgb) return readRgbRow(*source.canvas, source.box.x1, row, to, source.width());
    const unsigned char* from = type == kTypeAlpha
                                    ? canvasRow(*source.canvas, row) + static_cast<std::ptrdiff_t>(source.box.x1) * 4
                                    : indexedRow(rows, y, to);
    if (from != to) std::memcpy(to, from, rowBytes());
  }
};

void putHeader(ByteTarget& out, const PngPicture& picture) {
  constexpr unsigned char kSignature[] = {0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A};
  constexpr int kHeaderSize = 13, kDepth = 8;
  putBlock(out, kSignature, sizeof kSignature);
  unsigned char header[kHeaderSize] = {};
  FieldWriter field{header};
  field.high32(static_cast<std::uint32_t>(picture.source.width()));
  field.high32(static_cast<std::uint32_t>(picture.source.height()));
  field.byte(kDepth);
  field.byte(picture.type); // compression, filter and interlace are 0
  putChunk(out, "IHDR", header, sizeof header);
}

void putPalette(ByteTarget& out, const IndexedRows& rows) {
  unsigned char bytes[3 * kPaletteSize];
  FieldWriter field{bytes};
  for (int i = 0; i < rows.paletteCount; ++i) {
    field.byte(rows.palette[i].r);
    field.byte(rows.palette[i].g);
    field.byte(rows.palette[i].b);
  }
  putChunk(out, "PLTE", bytes, static_cast<std::size_t>(field.at - bytes));
}

// Entry 0, or white.
void putTransparency(ByteTarget& out, ColourType type) {
  constexpr unsigned char kEntry[] = {0}, kWhite[] = {0, 255, 0, 255, 0, 255};
  if (type == kTypePalette) putChunk(out, "tRNS", kEntry, sizeof kEntry);
  if (type == kTypeRgb) putChunk(out, "tRNS", kWhite, sizeof kWhite);
}

ColourType typeOf(const PixelSource& source, const PngOptions& options) {
  if (!source.canvas->trueColour || options.reduce) return kTypePalette;
  return options.alpha ? kTypeAlpha : kTypeRgb;
}

} // namespace

EncodeResult encodePng(ByteTarget& out, const PixelSource& source, const PngOptions& options) {
  PngPicture picture{source, typeOf(source, options), {}};
  if (picture.type == kTypePalette && !openIndexedRows(picture.rows, source)) return EncodeResult::kNoMemory;
  constexpr int kFilterByte = 1;
  PackedRows packed;
  auto read = [](void* from, int y, unsigned char* to) { static_cast<PngPicture*>(from)->read(y, to); };
  const EncodeResult result = packRows({read, &picture, source.height(), picture.rowBytes(), kFilterByte}, packed);
  if (result == EncodeResult::kFine) {
    putHeader(out, picture);
    if (picture.type == kTypePalette) putPalette(out, picture.rows);
    if (options.transparent) putTransparency(out, picture.type);
    putChunk(out, "IDAT", packed.bytes, packed.size);
    putChunk(out, "IEND", nullptr, 0);
  }
  closeIndexedRows(picture.rows);
  if (result != EncodeResult::kFine) return result;
  return out.failed ? EncodeResult::kWriteFailed : EncodeResult::kFine;
}

} // namespace quilla
