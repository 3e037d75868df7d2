// The format: an offset table of 12 bytes, 16 bytes for each table (tag, checksum, offset, length), then the tables.
// All words are big-endian.
#include "text/truetype.h"

#include <cstring>
#include <new>

namespace quilla {
namespace {

// Bytes with their end; reading behind it gives 0 and is remembered.
struct Bytes {
  const std::uint8_t* data = nullptr;
  std::size_t size = 0, at = 0;
  bool failed = false;

  int byte() {
    if (at >= size) {
      failed = true;
      return 0;
    }
    return data[at++];
  }
  int word() {
    const int high = byte();
    return high << 8 | byte();
  }
  int signedWord() { return static_cast<std::int16_t>(word()); }
  std::uint32_t longWord() {
    const std::uint32_t high = static_cast<std::uint32_t>(word());
    return high << 16 | static_cast<std::uint32_t>(word());
  }
  void skip(std::size_t n) {
    if (n > size - at) {
      failed = true;
      at = size;
    } else {
      at += n;
    }
  }
};

enum TableKind { kCmap, kLoca, kHead, kMaxp, kGlyf, kTableKinds };
constexpr const char* kTags[kTableKinds] = {"cmap", "loca", "head", "maxp", "glyf"};
constexpr std::size_t kHeadSize = 54, kMaxpSize = 32;
constexpr std::size_t kLocFormatAt = 50, kNumGlyphsAt = 4; // word 25 of "head", word 2 of "maxp"
constexpr std::size_t kUnitsAt = 18;

struct Directory {
  Bytes tables[kTableKinds];
  bool found[kTableKinds] = {};
};

int readDirectory(const std::uint8_t* data, std::size_t size, Directory* d) {
  Bytes file = {data, size};
  file.skip(4);
  const int count = file.word();
  file.skip(6);
  for (int i = 0; i < count; ++i) {
    char tag[5] = "";
    for (int k = 0; k < 4; ++k) tag[k] = static_cast<char>(file.byte());
    file.skip(4);
    const std::size_t offset = file.longWord(), length = file.longWord();
    if (file.failed) return kFontReadError;
    for (int k = 0; k < kTableKinds; ++k) {
      if (std::memcmp(tag, kTags[k], 4) != 0) continue;
      if (offset > size || length > size - offset) return kFontReadError;
      d->tables[k] = {data + offset, length};
      d->found[k] = true;
    }
  }
  return kTrueTypeGood;
}

template <class T> bool makeArray(std::unique_ptr<T[]>* array, std::size_t count) {
  array->reset(new (std::nothrow) T[count > 0 ? count : 1]);
  return *array != nullptr;
}

bool readWords(Bytes& bytes, std::unique_ptr<std::uint16_t[]>* array, int count) {
  if (!makeArray(array, static_cast<std::size_t>(count))) return false;
  for (int i = 0; i < count; ++i) (*array)[static_cast<std::size_t>(i)] = static_cast<std::uint16_t>(bytes.word());
  return true;
}

int readLoca(Bytes loca, TrueTypeFont* font) {
  const std::size_t entries = static_cast<std::size_t>(font->numGlyphs) + 1;
  if (loca.size < entries * (font->indexToLocFormat != 0 ? 4 : 2)) return kBadLocaSize;
  if (font->indexToLocFormat == 0)
    return readWords(loca, &font->shortOffsets, static_cast<int>(entries)) ? kTrueTypeGood : kNoFontMemory;
  if (!makeArray(&font->longOffsets, entries)) return kNoFontMemory;
  for (std::size_t i = 0; i < entries; ++i) font->longOffsets[i] = loca.longWord();
  return kTrueTypeGood;
}

// Subtable of platform 3, encoding 1, of format 4.
int readCmap(Bytes cmap, TrueTypeFont* font) {
  constexpr int kMicrosoft = 3, kUnicode = 1, kFormat = 4, kFixedBytes = 16;
  cmap.skip(2);
  const int count = cmap.word();
  std::size_t offset = 0;
  for (int i = 0; i < count && !cmap.failed && offset == 0; ++i) {
    const int platform = cmap.word(), encoding = cmap.word();
    const std::size_t at = cmap.longWord();
    if (platform == kMicrosoft && encoding == kUnicode) offset = at;
  }
  if (cmap.failed) return kBadCmapSize;
  if (offset == 0) return kNoMicrosoftEncoding;
  cmap.at = 0;
  cmap.skip(offset);
  const int format = cmap.word(), length = cmap.word();
  if (cmap.failed) return kBadCmapSize;
  if (format != kFormat) return kNoFormat4;
  cmap.skip(2);
  const int segments = cmap.word() / 2;
  cmap.skip(6);
  const int range = (length - kFixedBytes - 8 * segments) / 2 + segments;
  if (length < kFixedBytes + 8 * segments || cmap.failed) return kBadCmapSize;
  if (!readWords(cmap, &font->segmentEnds, segments)) return kNoFontMemory;
  cmap.skip(2);
  if (!readWords(cmap, &font->segmentStarts, segments) || !readWords(cmap, &font->idDeltas, segments) ||
      !readWords(cmap, &font->idRangeOffsets, range))
    return kNoFontMemory;
  if (cmap.failed) return kBadCmapSize;
  font->segCount = static_cast<std::uint16_t>(segments);
  font->idRangeCount = range;
  return kTrueTypeGood;
}

// The bytes of a glyph; none for an empty or impossible one.
Bytes glyphBytes(const TrueTypeFont* font, int glyph) {
  if (!font->glyphData || glyph < 0 || glyph >= font->numGlyphs) return {};
  const std::size_t i = static_cast<std::size_t>(glyph);
  const bool wide = font->indexToLocFormat != 0;
  const std::size_t from = wide ? font->longOffsets[i] : 2U * font->shortOffsets[i];
  const std::size_t to = wide ? font->longOffsets[i + 1] : 2U * font->shortOffsets[i + 1];
  if (from >= to || to > font->glyphDataSize) return {};
  return {font->glyphData.get() + from, to - from};
}

// Height of the letter A, by which outlines are scaled.
void readScale(TrueTypeFont* font, int designUnits) {
  font->unitsPerEm = static_cast<float>(designUnits > 0 ? designUnits : 1);
  int fault = kTrueTypeGood;
  const int glyph = trueTypeGlyph(font, 'A', &fault);
  Bytes bytes = glyphBytes(font, fault == kTrueTypeGood ? glyph : 0);
  bytes.skip(bytes.size < 8 ? 0 : 8); // contours, xMin, yMin, xMax
  const int top = bytes.signedWord();
  if (!bytes.failed && top > 0) font->unitsPerEm = static_cast<float>(top);
}

// Placing of a component.
struct Placing {
  float xx = 1.0F, xy = 0.0F, yx = 0.0F, yy = 1.0F, dx = 0.0F, dy = 0.0F;
};

enum PointFlag { kOnCurve = 1, kShortX = 2, kShortY = 4, kRepeat = 8, kSameX = 16, kSameY = 32 };

// Reads one coordinate of n points, whose flags stand in `flags`.
void readCoordinates(Bytes& bytes, const std::uint8_t* flags, int n, int isShort, int same, float GlyphPoint::*member,
                     GlyphPoint* points) {
  int value = 0;
  for (int i = 0; i < n; ++i) {
    if (flags[i] & isShort) {
      const int step = bytes.byte();
      value += flags[i] & same ? step : -step;
    } else if (!(flags[i] & same)) {
      value += bytes.signedWord();
    }
    points[i].*member = static_cast<float>(value);
  }
}

// A glyph of `contours` contours, behind the count and the box, added to what has been read.
int readSimple(TrueTypeFont* font, Bytes& bytes, int contours, const Placing& placing) {
  bytes.skip(8);
  const int base = font->pointCount;
  if (font->contourCount + contours > kGlyphContourLimit) return kContourOverflow;
  int n = 0;
  for (int i = 0; i < contours; ++i) {
    const int end = bytes.word() + 1;
    if (end < n || bytes.failed) return kBadContours;
    n = end;
    if (base + n > kGlyphPointLimit) return kContourOverflow;
    font->contourEnds[font->contourCount + i] = base + n;
  }
  bytes.skip(static_cast<std::size_t>(bytes.word())); // instructions
  std::uint8_t* const flags = font->flags;
  for (int i = 0; i < n;) {
    const int flag = bytes.byte();
    int times = 1 + (flag & kRepeat ? bytes.byte() : 0);
    if (bytes.failed) return kBadContours;
    for (; times > 0 && i < n; --times) flags[i++] = static_cast<std::uint8_t>(flag);
  }
  GlyphPoint* points = font->points + base;
  readCoordinates(bytes, flags, n, kShortX, kSameX, &GlyphPoint::x, points);
  readCoordinates(bytes, flags, n, kShortY, kSameY, &GlyphPoint::y, points);
  if (bytes.failed) return kBadContours;
  for (int i = 0; i < n; ++i) {
    const float x = points[i].x, y = points[i].y;
    points[i] = {x * placing.xx + y * placing.yx + placing.dx, x * placing.xy + y * placing.yy + placing.dy,
                 (flags[i] & kOnCurve) != 0};
  }
  font->pointCount += n;
  font->contourCount += contours;
  return kTrueTypeGood;
}

enum ComponentFlag { kWideArguments = 1, kOneScale = 8, kMoreComponents = 32, kTwoScales = 64, kMatrix = 128 };

int readComposite(TrueTypeFont* font, Bytes& bytes) {
  bytes.skip(8);
  for (int k = 0; k < kComponentLimit; ++k) {
    const int flags = bytes.word(), glyph = bytes.word();
    Placing p;
    if (flags & kWideArguments) {
      p.dx = static_cast<float>(bytes.signedWord());
      p.dy = static_cast<float>(bytes.signedWord());
    } else {
      p.dx = static_cast<float>(static_cast<std::int8_t>(bytes.byte()));
      p.dy = static_cast<float>(static_cast<std::int8_t>(bytes.byte()));
    }
    const auto fraction = [&bytes] { return static_cast<float>(bytes.signedWord()) / 16384.0F; };
    if (flags & kOneScale) {
      p.xx = p.yy = fraction();
    } else if (flags & kTwoScales) {
      p.xx = fraction();
      p.yy = fraction();
    } else if (flags & kMatrix) {
      p.xx = fraction();
      p.xy = fraction();
      p.yx = fraction();
      p.yy = fraction();
    }
    if (bytes.failed) return kBadContours;
    if (glyph >= font->numGlyphs) return kBadGlyphIndex;
    Bytes component = glyphBytes(font, glyph);
    const int contours = component.size > 0 ? component.signedWord() : 0;
    if (contours <= 0) return kBadContours;
    const int fault = readSimple(font, component, contours, p);
    if (fault != kTrueTypeGood) return fault;
    if (!(flags & kMoreComponents)) return kTrueTypeGood;
  }
  return kContourOverflow;
}

} // namespace

int readTrueType(const std::uint8_t* data, std::size_t size, TrueTypeFont* font) {
  Directory d;
  int fault = readDirectory(data, size, &d);
  if (fault != kTrueTypeGood) return fault;
  for (int k = 0; k < kTableKinds; ++k) {
    if (!d.found[k]) fault = kMissingCmap + k;
  }
  if (fault != kTrueTypeGood) return fault;
  if (d.tables[kMaxp].size != kMaxpSize) return kBadMaxpSize;
  if (d.tables[kHead].size != kHeadSize) return kBadHeadSize;
  d.tables[kHead].skip(kUnitsAt);
  const int units = d.tables[kHead].word();
  d.tables[kHead].skip(kLocFormatAt - kUnitsAt - 2);
  font->indexToLocFormat = static_cast<std::uint16_t>(d.tables[kHead].word());
  d.tables[kMaxp].skip(kNumGlyphsAt);
  font->numGlyphs = static_cast<std::uint16_t>(d.tables[kMaxp].word());
  fault = readLoca(d.tables[kLoca], font);
  if (fault == kTrueTypeGood) fault = readCmap(d.tables[kCmap], font);
  if (fault != kTrueTypeGood) return fault;
  font->glyphDataSize = d.tables[kGlyf].size;
  if (!makeArray(&font->glyphData, font->glyphDataSize)) return kNoFontMemory;
  if (font->glyphDataSize > 0) std::memcpy(font->glyphData.get(), d.tables[kGlyf].data, font->glyphDataSize);
  readScale(font, units);
  return kTrueTypeGood;
}

int trueTypeGlyph(const TrueTypeFont* font, int code, int* fault) {
  *fault = kTrueTypeGood;
  int glyph = 0;
  for (int i = 0; i < font->segCount; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    const int start = font->segmentStarts[k], offset = font->idRangeOffsets[k];
    if (code < start || code > font->segmentEnds[k]) continue;
    if (offset == 0) {
      glyph = (font->idDeltas[k] + code) % 65536;
      continue;
    }
    const int entry = offset / 2 - start + i + code;
    if (entry < 0 || entry >= font->idRangeCount) {
      *fault = kBadGlyphIndex;
      return 0;
    }
    glyph = font->idRangeOffsets[static_cast<std::size_t>(entry)];
    if (glyph != 0) glyph = (glyph + font->idDeltas[k]) % 65536;
  }
  if (glyph > font->numGlyphs) {
    *fault = kBadGlyphIndex;
    return 0;
  }
  return glyph;
}

int readGlyph(TrueTypeFont* font, int glyph) {
  constexpr int kComposite = -1;
  font->pointCount = font->contourCount = 0;
  Bytes bytes = glyphBytes(font, glyph);
  if (bytes.size == 0) return kTrueTypeGood;
  const int contours = bytes.signedWord();
  int fault = kTrueTypeGood;
  if (contours > 0) fault = readSimple(font, bytes, contours, Placing());
  if (contours == kComposite) fault = readComposite(font, bytes);
  if (fault != kTrueTypeGood) font->pointCount = font->contourCount = 0;
  return fault;
}

} // namespace quilla
