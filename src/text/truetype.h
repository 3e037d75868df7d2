// TrueType outlines: the tables of a font file, and the points of its glyphs. The file is not trusted.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace quilla {

// Limits of one glyph; a glyph beyond them is an overflow of its contours.
inline constexpr int kGlyphPointLimit = 8192;
inline constexpr int kGlyphContourLimit = 1024;
inline constexpr int kComponentLimit = 256;
inline constexpr long kFlatPointLimit = 4000000;

enum TrueTypeFault : int {
  kTrueTypeGood = 0,
  kNoFontFile = 1,
  kNoFontMemory = 2,
  kFontReadError = 3,
  kNoMicrosoftEncoding = 4,
  kNoFormat4 = 5,
  kContourOverflow = 6,
  kBadContours = 7,
  kBadGlyphIndex = 8,
  kMissingCmap = 11,
  kMissingLoca = 12,
  kMissingHead = 13,
  kMissingMaxp = 14,
  kMissingGlyf = 15, // counts as success: a font without glyphs
  kBadCmapSize = 21,
  kBadLocaSize = 22,
  kBadHeadSize = 23,
  kBadMaxpSize = 24
};

struct GlyphPoint {
  float x, y;
  bool onCurve;
};

struct TrueTypeFont {
  std::unique_ptr<std::uint16_t[]> shortOffsets; // "loca" in half bytes, if indexToLocFormat is 0
  std::unique_ptr<std::uint32_t[]> longOffsets;
  std::unique_ptr<std::uint16_t[]> segmentEnds, segmentStarts, idDeltas;
  std::unique_ptr<std::uint16_t[]> idRangeOffsets; // of the segments, and the glyph index array behind them
  int idRangeCount = 0;
  std::unique_ptr<std::uint8_t[]> glyphData;
  std::size_t glyphDataSize = 0;
  std::uint16_t indexToLocFormat = 0, numGlyphs = 0, segCount = 0;
  float unitsPerEm = 1.0F; // yMax of the letter A: a capital letter is as high as the text
  // The glyph read last, in units of the font.
  GlyphPoint points[kGlyphPointLimit];
  std::uint8_t flags[kGlyphPointLimit];
  int contourEnds[kGlyphContourLimit]; // one behind the last point of each contour
  int pointCount = 0, contourCount = 0;
};

// Reads the tables of a font file in memory. A TrueTypeFault.
int readTrueType(const std::uint8_t* data, std::size_t size, TrueTypeFont* font);

// Glyph of a character; kBadGlyphIndex is given in *fault if the tables say nonsense.
int trueTypeGlyph(const TrueTypeFont* font, int code, int* fault);

// Reads the outline of a glyph into points and contourEnds. A TrueTypeFault.
int readGlyph(TrueTypeFont* font, int glyph);

// Walks the contours of the glyph read last, curves cut into k - 1 lines: visit(contour, x, y) in units of the font;
// each contour ends at its first point. The count of points.
template <class Visitor> long flattenGlyph(const TrueTypeFont* font, int k, Visitor visit) {
  long count = 0;
  int begin = 0;
  for (int contour = 0; contour < font->contourCount; ++contour) {
    const int end = font->contourEnds[contour], n = end - begin;
    if (n < 1) continue;
    const GlyphPoint* p = font->points + begin;
    begin = end;
    // A contour that begins off the curve starts at its last point, or half way to it.
    GlyphPoint start = p[0];
    int first = 1, steps = n - 1;
    if (!start.onCurve) {
      const GlyphPoint last = p[n - 1];
      start = last.onCurve ? last : GlyphPoint{(start.x + last.x) / 2.0F, (start.y + last.y) / 2.0F, true};
      first = 0;
      steps = last.onCurve ? n - 1 : n;
    }
    visit(contour, start.x, start.y);
    ++count;
    GlyphPoint from = start;
    for (int i = 0; i < steps; ++i) {
      const GlyphPoint a = p[first + i];
      if (a.onCurve) {
        visit(contour, a.x, a.y);
        ++count;
        from = a;
        continue;
      }
      GlyphPoint to = i + 1 < steps ? p[first + i + 1] : start;
      if (!to.onCurve) to = {(a.x + to.x) / 2.0F, (a.y + to.y) / 2.0F, true};
      for (int j = 1; j < k; ++j, ++count) {
        const float t = static_cast<float>(j) / static_cast<float>(k - 1), u = 1.0F - t;
        visit(contour, u * u * from.x + 2.0F * u * t * a.x + t * t * to.x,
              u * u * from.y + 2.0F * u * t * a.y + t * t * to.y);
      }
      from = to;
      if (i + 1 < steps && p[first + i + 1].onCurve) ++i;
    }
    visit(contour, start.x, start.y);
    ++count;
  }
  return count;
}

} // namespace quilla
