// The 35 standard fonts of PostScript and PDF and their advance widths.
#pragma once

#include <cstdint>

namespace quilla {

inline constexpr int kPsFontCount = 35;
inline constexpr int kPsWidthCodes = 102; // codes 32 to 133
inline constexpr int kPsFixedWidth = 84;  // width group 0

struct PsFont {
  const char* name;
  int capHeight; // 1/1000 em
  int group;     // 0: fixed width, else row of the width table + 1
};
extern const PsFont kPsFonts[kPsFontCount];

// Advance width by group 1 to 25 and code - 32; 102 units are 722/1000 em.
extern const std::uint8_t kPsWidths[25][kPsWidthCodes];

// Row of the font by name: cut to 30 characters, trailing blanks cut, either case. -1 if there is none.
int findPsFont(const char* name);

// Widths of codes 32 to 187 of a font row.
void fillPsWidths(int row, std::int16_t widths[156]);

} // namespace quilla
