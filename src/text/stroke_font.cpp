// Installing stroke fonts, choosing glyphs, drawing them.
#include "text/stroke_font.h"

#include <algorithm>

#include "core/pipeline.h"
#include "text/driver_fonts.h"
#include "text/ring_fill.h"
#include "text/stroke_tables.h"
#include "text/text.h"

namespace quilla {
namespace {

// Tables of one slot as a font names them; a null pointer stands for slot 1's table.
struct SlotTables {
  const std::int16_t* points;
  const std::int16_t* index;
  int glyphs;
  const std::int16_t* ys = nullptr; // of split coordinates, whose x are the points
};
struct FontTables {
  int id;
  SlotTables slots[kAlphabetSlots];
};

// The glyph count of a slot is that of the ordinals before remapOrdinal folds them: ordinals above it draw the blank.
constexpr int kSharedGlyphs = 102; // of a slot that has slot 1's tables
constexpr SlotTables kSlanted = {nullptr, nullptr, kSharedGlyphs};
constexpr SlotTables kGreek = {kGreekPoints, kGreekIndex, 116};
constexpr SlotTables kMath = {kMathPoints, kMathIndex, 131};
constexpr SlotTables kScript = {kScriptPoints, kScriptIndex, 102};
constexpr SlotTables kCyrillic = {kCyrillicPoints, kCyrillicIndex, 95};

constexpr FontTables kFonts[] = {
    {kQuialf,
     {{kQuialfPoints, kQuialfIndex, 132}, {nullptr, kQuialfGreekIndex, 95}, kMath, kSlanted, kScript, kCyrillic}},
    {kComplx,
     {{kComplxPoints, kComplxIndex, 233}, kGreek, kMath, {kItalicPoints, kItalicIndex, 102}, kScript, kCyrillic}},
    {kSimplx,
     {{kSimplxPoints, kSimplxIndex, 132}, {nullptr, kSimplxGreekIndex, 95}, kMath, kSlanted, kScript, kCyrillic}},
    {kDuplx, {{kDuplxPoints, kDuplxIndex, 132}, kGreek, kMath, kSlanted, kScript, kCyrillic}},
    {kTriplx, {{kTriplxPoints, kTriplxIndex, 132}, kGreek, kMath, kSlanted, kScript, kCyrillic}},
    {kGothic,
     {{kGothicPoints, kGothicIndex, 95},
      kGreek,
      kMath,
      {kGothicItalianPoints, kGothicItalianIndex, 95},
      {kGothicGermanPoints, kGothicGermanIndex, 102},
      kCyrillic}},
    {kHelve, {{kHelveX, kHelveIndex, 132, kHelveY}, kGreek, kMath, kSlanted, kScript, kCyrillic}},
    {kHelves, {{kHelvesX, kHelvesIndex, 132, kHelvesY}, kGreek, kMath, kSlanted, kScript, kCyrillic}},
    {kHelvet, {{kHelvetX, kHelvetIndex, 132, kHelvetY}, kGreek, kMath, kSlanted, kScript, kCyrillic}},
    {kSerif, {{kSerifX, kSerifIndex, 132, kSerifY}, kGreek, kMath, kSlanted, kScript, kCyrillic}},
};

struct IndexStarts {
  const std::int16_t* index;
  const std::uint16_t* starts;
};
constexpr IndexStarts kStarts[] = {
    {kQuialfIndex, kQuialfStarts},
    {kQuialfGreekIndex, kQuialfGreekStarts},
    {kSimplxIndex, kSimplxStarts},
    {kSimplxGreekIndex, kSimplxGreekStarts},
    {kDuplxIndex, kDuplxStarts},
    {kComplxIndex, kComplxStarts},
    {kTriplxIndex, kTriplxStarts},
    {kGothicIndex, kGothicStarts},
    {kGothicItalianIndex, kGothicItalianStarts},
    {kGothicGermanIndex, kGothicGermanStarts},
    {kHelveIndex, kHelveStarts},
    {kHelvesIndex, kHelvesStarts},
    {kHelvetIndex, kHelvetStarts},
    {kSerifIndex, kSerifStarts},
    {kGreekIndex, kGreekStarts},
    {kMathIndex, kMathStarts},
    {kScriptIndex, kScriptStarts},
    {kCyrillicIndex, kCyrillicStarts},
    {kItalicIndex, kItalicStarts},
};

const std::uint16_t* startsOf(const std::int16_t* index) {
  for (const IndexStarts& s : kStarts) {
    if (s.index == index) return s.starts;
  }
  return nullptr;
}

constexpr int kFirstOutlineFont = 11;

struct Metrics {
  int xDiv, yDiv;
  float gap;
};

Metrics slotMetrics(int fontId, int alphabet) {
  Metrics m = {20, 21, 0.25F};
  const bool latin = alphabet == kAlphabetStandard || alphabet == kAlphabetItalic;
  if (fontId == kQuialf && (latin || alphabet == kAlphabetGreek)) m = {6, 7, 0.0F};
  if (fontId >= kFirstOutlineFont && latin) m = {200, 200, 0.2F};
  if (alphabet == kAlphabetScript && fontId != kGothic) m.gap = 0.0F;
  return m;
}

// Low and high byte of a word, signed.
int lowByte(std::int16_t word) { return static_cast<std::int8_t>(word & 0xFF); }
int highByte(std::int16_t word) { return static_cast<std::int8_t>((word >> 8) & 0xFF); }

struct Point {
  float x, y;
};

// One stroke entry of a record.
struct StrokeEntry {
  int count, start; // start from 0
  float dx, dy;
};

// Reads the entry at *at and moves on behind it.
StrokeEntry readEntry(const std::int16_t* record, int* at, float unit) {
  const int n = record[*at], start = record[*at + 1] - 1;
  if (n >= 0) {
    *at += 2;
    return {n, start, 0.0F, 0.0F};
  }
  const std::int16_t d = record[*at + 2];
  *at += 3;
  return {-n, start, unit * static_cast<float>(lowByte(d)), unit * static_cast<float>(highByte(d))};
}

// The contours of a glyph on the page, kept for its filling.
struct GlyphRings {
  float x[kGlyphPolygonLimit], y[kGlyphPolygonLimit];
  int ends[kGlyphPolygonLimit];
  int count = 0, rings = 0;

  void add(float px, float py) {
    if (count == kGlyphPolygonLimit) return;
    x[count] = px;
    y[count++] = py;
  }
  void close() { ends[rings++] = count; }
};

Point pointAt(const AlphabetSlot& slot, int i) {
  if (slot.alphaPacked)
    return {static_cast<float>(lowByte(slot.alphaX[i])), static_cast<float>(highByte(slot.alphaX[i]))};
  return {static_cast<float>(slot.alphaX[i]), static_cast<float>(slot.alphaY[i])};
}

} // namespace

void installFont(PlotState* s, int fontId) {
  const FontTables* font = &kFonts[0];
  for (const FontTables& f : kFonts) {
    if (f.id == fontId) font = &f;
  }
  FontGroup& group = s->font;
  group.fontId = font->id;
  group.blankWidth = font->id == kQuialf ? 6 : font->id >= kFirstOutlineFont ? 60 : 9;
  int indexBase = 0, coordBase = 0;
  for (int i = 0; i < kAlphabetSlots; ++i) {
    const SlotTables& t = font->slots[i];
    AlphabetSlot& slot = group.slots[i];
    slot.alphaX = t.points ? t.points : group.slots[0].alphaX;
    slot.alphaY = !t.points ? group.slots[0].alphaY : t.ys ? t.ys : t.points;
    slot.alphaIndex = t.index ? t.index : group.slots[0].alphaIndex;
    slot.alphaStarts = startsOf(slot.alphaIndex);
    slot.alphaPacked = t.points ? t.ys == nullptr : group.slots[0].alphaPacked;
    slot.alphaCoordBase = t.points ? coordBase : 0;
    slot.alphaIndexBase = t.index ? indexBase : 0;
    slot.alphaCount = t.glyphs;
    const Metrics m = slotMetrics(font->id, i + 1);
    slot.alphaXDiv = m.xDiv;
    slot.alphaYDiv = m.yDiv;
    slot.alphaGap = m.gap;
    coordBase += t.points ? 1 : 0;
    indexBase += t.index ? 1 : 0;
  }
  s->textState.lastAlphabet = 0;
}

void setAlphabet(PlotState* s, int alphabet) {
  TextState& t = s->textState;
  if (alphabet == t.lastAlphabet) return;
  t.lastAlphabet = alphabet;
  s->font.currentAlphabet = alphabet;
  shiftDriverFont(s, alphabet);
  const AlphabetSlot& slot = s->font.slots[alphabet - 1];
  const float height = static_cast<float>(s->text.textHeight);
  t.scaleX = (height - 1.0F) * s->text.charWidthFactor / static_cast<float>(slot.alphaXDiv);
  t.scaleY = (height - 1.0F) / static_cast<float>(slot.alphaYDiv);
  t.gap = height * (s->text.fixedSpacingOn ? s->text.charSpacing : slot.alphaGap + s->text.charSpacing);
}

GlyphChoice remapOrdinal(int alphabet, int fontId, int mathCount, int k) {
  constexpr GlyphChoice kUnknown = {32, true}; // the question mark
  const GlyphChoice same = {k, true};
  switch (alphabet) {
  case kAlphabetStandard: return {k, false};
  case kAlphabetCyrillic:
    if (k >= 96) return kUnknown;
    if (k > 65) return {k - 28, false};
    if (k >= 34 && k <= 63) return {k - 26, false};
    if (k >= 29 && k <= 31) return {k - 24, false};
    if (k >= 5 && k <= 7) return {k - 3, false};
    return same;
  case kAlphabetItalic:
    if (fontId == kComplx) {
      if (k >= 99 && k <= 101) return {k - 71, false};
      if (k >= 66 && k <= 91) return {k - 64, false};
      return same;
    }
    break;
  case kAlphabetMath:
    if (k >= 96 && k <= mathCount) return {k - 42, false};
    break;
  default: break;
  }
  if (k >= 96) return alphabet == kAlphabetGreek || alphabet == kAlphabetScript ? GlyphChoice{k - 42, false} : kUnknown;
  if (k >= 66 && k <= 91) return {k - 38, false};
  if (k >= 34 && k <= 59) return {k - 32, false};
  return same;
}

const std::int16_t* glyphRecord(const AlphabetSlot& slot, int ordinal) {
  if (ordinal <= kBlankOrdinal || ordinal > slot.alphaCount) return nullptr;
  if (slot.alphaStarts) return slot.alphaIndex + slot.alphaStarts[ordinal - 2];
  const std::int16_t* record = slot.alphaIndex;
  for (int k = 2; k < ordinal; ++k) record += record[0];
  return record;
}

float recordWidth(const AlphabetSlot& slot, const std::int16_t* record, float unit) {
  float width = 0.0F;
  for (int at = 1; at < record[0];) {
    const StrokeEntry e = readEntry(record, &at, unit);
    for (int i = 0; i < e.count; ++i) {
      const float x = pointAt(slot, e.start + i).x + e.dx;
      if (x > width) width = x;
    }
  }
  return width;
}

GlyphHeights recordHeights(const AlphabetSlot& slot, const std::int16_t* record, float unit) {
  GlyphHeights h = {0.0F, 0.0F};
  bool first = true;
  for (int at = 1; at < record[0];) {
    const StrokeEntry e = readEntry(record, &at, unit);
    for (int i = 0; e.count > 1 && i < e.count; ++i) { // a stroke of one point only widens the glyph
      const float y = pointAt(slot, e.start + i).y + e.dy;
      h.low = first ? y : std::min(h.low, y);
      h.high = first ? y : std::max(h.high, y);
      first = false;
    }
  }
  return h;
}

float glyphWidth(const PlotState* s, const AlphabetSlot& slot, const std::int16_t* record, float unit) {
  constexpr float kQuialfWidth = 6.0F;
  if (s->font.fontId == kQuialf && slot.alphaCoordBase == 0) return kQuialfWidth * s->textState.scaleX;
  return recordWidth(slot, record, unit) * s->textState.scaleX;
}

void drawGlyph(PlotState* s, const AlphabetSlot& slot, const std::int16_t* record, float unit) {
  const TextState& t = s->textState;
  const float c = s->text.textCos, n = s->text.textSin, slant = s->text.charSlant;
  const float up = t.textUpShift + t.secondUpShift;
  const float cx = t.textCursorX - n * up, cy = t.textCursorY - c * up;
  const bool filled = !slot.alphaPacked && s->text.shadeCharacters;
  GlyphRings rings;
  for (int at = 1; at < record[0];) {
    const StrokeEntry e = readEntry(record, &at, unit);
    for (int i = 0; i < e.count; ++i) {
      const Point p = pointAt(slot, e.start + i);
      const float v = (p.y + e.dy) * t.scaleY;
      float u = (p.x + e.dx) * t.scaleX + slant * v;
      if (t.italicFlag) u += v / s->font.italicSlant;
      const float x = cx + u * c - v * n, y = cy - v * c - u * n;
      if (i == 0) {
        pathMove(s, x, y);
      } else {
        pathDraw(s, x, y);
      }
      if (filled && e.count > 1) rings.add(x, y);
    }
    if (filled && e.count > 1) rings.close();
  }
  if (filled) fillRings(s, rings.x, rings.y, rings.ends, rings.rings);
}

} // namespace quilla
