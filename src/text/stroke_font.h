// Stroke fonts: installation, alphabets, glyph records and their strokes on the page.
#pragma once

#include <cstdint>

#include "core/plot_state.h"

namespace quilla {

inline constexpr int kBlankOrdinal = 1;
inline constexpr float kLineFontUnit = 0.5F; // unit of the offsets of shared strokes
inline constexpr float kOutlineFontUnit = 2.0F;
inline constexpr int kGlyphPolygonLimit = 200; // points of a filled glyph
inline constexpr float kFixedSpacingCell = 1.4F;

// Makes an alphabet (1 to 6) current and computes its scales and gap, if it is not the last one. With a PostScript font
// and PSMODE, Symbol or an italic partner is loaded.
void setAlphabet(PlotState* s, int alphabet);

struct GlyphChoice {
  int ordinal;
  bool fromStandard; // the glyph is one of slot 1
};
// Folds the ordinal of a character into the glyphs that an alphabet has. mathCount: glyph count of alphabet 3.
GlyphChoice remapOrdinal(int alphabet, int fontId, int mathCount, int ordinal);

// Record of an ordinal in an alphabet's index; null for the blank and beyond the last glyph.
const std::int16_t* glyphRecord(const AlphabetSlot& slot, int ordinal);

// Largest x of the points of a record in design units; unit: that of the offsets.
float recordWidth(const AlphabetSlot& slot, const std::int16_t* record, float unit);

// Lowest and highest y of the points of a record in design units.
struct GlyphHeights {
  float low, high;
};
GlyphHeights recordHeights(const AlphabetSlot& slot, const std::int16_t* record, float unit);

// Width in plot units in the alphabet now selected.
float glyphWidth(const PlotState* s, const AlphabetSlot& slot, const std::int16_t* record, float unit);

// Strokes of a record at the text cursor, through the line pipeline.
void drawGlyph(PlotState* s, const AlphabetSlot& slot, const std::int16_t* record, float unit);

} // namespace quilla
