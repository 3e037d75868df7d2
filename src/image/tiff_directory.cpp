#include "image/tiff_directory.h"

#include "image/bytes.h"

namespace quilla {

unsigned tiffWord(const TiffDirectory& d, const unsigned char* p) { return d.little ? littleWord(p) : bigWord(p); }
unsigned tiffLong(const TiffDirectory& d, const unsigned char* p) { return d.little ? littleLong(p) : bigLong(p); }

namespace {

constexpr std::size_t kHeadSize = 8, kEntrySize = 12;
constexpr unsigned kTypeByte = 1, kTypeShort = 3, kTypeLong = 4;

enum Tag : unsigned {
  kWidth = 256,
  kHeight = 257,
  kBitsPerSample = 258,
  kCompression = 259,
  kPhotometric = 262,
  kFillOrder = 266,
  kStripOffsets = 273,
  kSamplesPerPixel = 277,
  kRowsPerStrip = 278,
  kStripSizes = 279,
  kPlanarConfiguration = 284,
  kPredictor = 317,
  kColorMap = 320,
  kTileWidth = 322,
  kTileHeight = 323,
  kTileOffsets = 324,
  kTileSizes = 325,
  kSampleFormat = 339
};

std::size_t typeSize(unsigned type) { return type == kTypeByte ? 1 : type == kTypeShort ? 2 : 4; }

} // namespace

unsigned tiffListValue(const TiffDirectory& d, const TiffList& list, unsigned i) {
  const unsigned char* p = d.file.data() + list.place + i * typeSize(list.type);
  return list.type == kTypeByte ? *p : list.type == kTypeShort ? tiffWord(d, p) : tiffLong(d, p);
}

namespace {

// What the entries tell before they are put together.
struct Parts {
  TiffList bits, formats, map, stripOffsets, stripSizes, tileOffsets, tileSizes;
  unsigned rowsPerStrip = 0, tileWidth = 0, tileHeight = 0;
  unsigned planes = 1, predictor = 1, fillOrder = 1;
};

// The values of an entry: in the entry if they fit there, else where it points. False, and no values, if the file does
// not hold them.
bool readList(const TiffDirectory& d, const unsigned char* entry, TiffList& found) {
  TiffList list;
  list.type = tiffWord(d, entry + 2);
  list.count = tiffLong(d, entry + 4);
  if (list.type != kTypeByte && list.type != kTypeShort && list.type != kTypeLong) return false;
  const std::size_t size = typeSize(list.type);
  const bool inEntry = list.count <= 4 / size;
  list.place = inEntry ? static_cast<std::size_t>(entry + 8 - d.file.data()) : tiffLong(d, entry + 8);
  if (list.count == 0 || list.place > d.file.size() || list.count > (d.file.size() - list.place) / size) return false;
  found = list;
  return true;
}

bool takeEntry(TiffDirectory& d, Parts& parts, const unsigned char* entry) {
  TiffList list;
  const unsigned tag = tiffWord(d, entry);
  auto single = [&](unsigned& value) {
    if (!readList(d, entry, list)) return false;
    value = tiffListValue(d, list, 0);
    return true;
  };
  switch (tag) {
  case kWidth: return single(d.width);
  case kHeight: return single(d.height);
  case kCompression: return single(d.compression);
  case kPhotometric: return single(d.photometric);
  case kSamplesPerPixel: return single(d.samples);
  case kRowsPerStrip: return single(parts.rowsPerStrip);
  case kPlanarConfiguration: return single(parts.planes);
  case kPredictor: return single(parts.predictor);
  case kFillOrder: return single(parts.fillOrder);
  case kTileWidth: return single(parts.tileWidth);
  case kTileHeight: return single(parts.tileHeight);
  case kBitsPerSample: return readList(d, entry, parts.bits);
  case kSampleFormat: return readList(d, entry, parts.formats);
  case kColorMap: return readList(d, entry, parts.map);
  case kStripOffsets: return readList(d, entry, parts.stripOffsets);
  case kStripSizes: return readList(d, entry, parts.stripSizes);
  case kTileOffsets: return readList(d, entry, parts.tileOffsets);
  case kTileSizes: return readList(d, entry, parts.tileSizes);
  default: return true;
  }
}

bool readEntries(TiffDirectory& d, Parts& parts) {
  const std::size_t size = d.file.size();
  if (size < kHeadSize) return false;
  const std::size_t place = tiffLong(d, d.file.data() + 4);
  if (place > size || size - place < 2) return false;
  const unsigned count = tiffWord(d, d.file.data() + place);
  if ((size - place - 2) / kEntrySize < count) return false;
  const unsigned char* entry = d.file.data() + place + 2;
  for (unsigned i = 0; i < count; ++i, entry += kEntrySize) {
    if (!takeEntry(d, parts, entry)) return false;
  }
  return true;
}

// Value of all samples of a list, or 0 if they differ. What a list has beyond three values is not looked at.
unsigned commonValue(const TiffDirectory& d, const TiffList& list, unsigned without) {
  if (list.count == 0) return without;
  const unsigned first = tiffListValue(d, list, 0);
  for (unsigned i = 1; i < list.count && i < d.samples && i < 3; ++i) {
    if (tiffListValue(d, list, i) != first) return 0;
  }
  return first;
}

bool bitsSupported(const TiffDirectory& d) {
  switch (d.bits) {
  case 1:
  case 2:
  case 4: return d.samples == 1 && !d.floating;
  case 8: return !d.floating;
  case 16: return d.photometric != kTiffPalette && !d.floating;
  case 32: return d.floating && d.samples == 1 && d.photometric <= kTiffBlackIsZero;
  default: return false;
  }
}

bool samplesSupported(const TiffDirectory& d) {
  switch (d.samples) {
  case 1: return d.photometric != kTiffRgb;
  case 3: return d.photometric == kTiffRgb;
  case kTiffManySamples: return d.compression == kTiffPlain && d.photometric != kTiffPalette;
  default: return false;
  }
}

bool isSupported(const TiffDirectory& d, const Parts& parts, unsigned format) {
  constexpr unsigned kWholeNumbers = 1, kFloats = 3;
  const bool packed = d.compression == kTiffPlain || d.compression == kTiffLzw || d.compression == kTiffPackBits;
  return packed && d.photometric <= kTiffPalette && samplesSupported(d) &&
         (format == kWholeNumbers || format == kFloats) && bitsSupported(d) && parts.planes == 1 &&
         parts.fillOrder == 1 && parts.predictor <= 2 && (parts.predictor < 2 || d.bits == 8);
}

// Three runs of as many words: red, green, blue, of which the high bytes count.
void readMap(TiffDirectory& d, const TiffList& map) {
  if (map.type != kTypeShort) return;
  const unsigned third = map.count / 3;
  d.paletteCount = third < kTiffPaletteSize ? third : kTiffPaletteSize;
  for (unsigned i = 0; i < d.paletteCount; ++i) {
    for (unsigned c = 0; c < kColorBytes; ++c)
      d.palette[i][c] = static_cast<unsigned char>(tiffListValue(d, map, c * third + i) >> 8U);
  }
}

unsigned countOfParts(unsigned size, unsigned part) { return size / part + (size % part != 0 ? 1 : 0); }

// Strips if there are any, else tiles.
bool arrangeSegments(TiffDirectory& d, const Parts& p) {
  d.tiled = p.stripOffsets.count == 0;
  d.offsets = d.tiled ? p.tileOffsets : p.stripOffsets;
  d.sizes = d.tiled ? p.tileSizes : p.stripSizes;
  d.segmentWidth = d.tiled ? p.tileWidth : d.width;
  d.segmentHeight = d.tiled                                            ? p.tileHeight
                    : p.rowsPerStrip == 0 || p.rowsPerStrip > d.height ? d.height
                                                                       : p.rowsPerStrip;
  if (d.offsets.count == 0 || d.segmentWidth == 0 || d.segmentHeight == 0) return false;
  const unsigned long long count =
      static_cast<unsigned long long>(countOfParts(d.width, d.segmentWidth)) * countOfParts(d.height, d.segmentHeight);
  const bool oneWithoutSize = !d.tiled && count == 1 && d.sizes.count == 0 && d.compression == kTiffPlain;
  return d.offsets.count >= count && (d.sizes.count >= count || oneWithoutSize);
}

} // namespace

ImageStatus readTiffDirectory(FileBytes file, bool mereHead, TiffDirectory& d) {
  if (file.size() < kHeadSize) return kImageBadFormat;
  d.file = file;
  d.little = file[0] == 'I';
  Parts parts;
  if (!readEntries(d, parts) && !mereHead) return kImageBadFormat;
  d.bits = commonValue(d, parts.bits, 1);
  const unsigned format = commonValue(d, parts.formats, 1);
  d.floating = format == 3;
  if (mereHead) return kImageFine;
  if (!isSupported(d, parts, format)) return kImageNotSupported;
  if (d.width == 0 || d.height == 0) return kImageBadFormat;
  readMap(d, parts.map);
  d.predictor = parts.predictor == 2 && d.compression == kTiffLzw;
  return arrangeSegments(d, parts) ? kImageFine : kImageBadFormat;
}

bool isTiffSpecial(const TiffDirectory& d) {
  return d.photometric == kTiffBlackIsZero && d.compression == kTiffPlain && d.samples == kTiffManySamples;
}

} // namespace quilla
