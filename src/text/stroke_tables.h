// The compiled fonts. Points of stroke fonts: one word each, low byte x, high byte y, signed. Index: a record for each
// glyph, first its length L in words, then stroke entries n, s (n points from the s-th on, counted from 1) or -n, s, d
// (the same points moved by d: low byte x, high byte y, signed, in half units) until L words are used.
#pragma once

#include <cstdint>

namespace quilla {

extern const std::int16_t kQuialfPoints[], kQuialfIndex[], kQuialfGreekIndex[];
extern const std::int16_t kSimplxPoints[], kSimplxIndex[], kSimplxGreekIndex[];
extern const std::int16_t kDuplxPoints[], kDuplxIndex[];
extern const std::int16_t kComplxPoints[], kComplxIndex[];
extern const std::int16_t kTriplxPoints[], kTriplxIndex[];
extern const std::int16_t kGothicPoints[], kGothicIndex[]; // English letters
extern const std::int16_t kGothicItalianPoints[], kGothicItalianIndex[];
extern const std::int16_t kGothicGermanPoints[], kGothicGermanIndex[];

// Outline fonts: the points of closed contours in two arrays, 200 units of cap height; the unit of d is 2.
extern const std::int16_t kHelveX[], kHelveY[], kHelveIndex[];
extern const std::int16_t kHelvesX[], kHelvesY[], kHelvesIndex[]; // narrow
extern const std::int16_t kHelvetX[], kHelvetY[], kHelvetIndex[]; // bold
extern const std::int16_t kSerifX[], kSerifY[], kSerifIndex[];

// Tables that fonts share: Greek, mathematics, script, Cyrillic; and the italic letters of COMPLX.
extern const std::int16_t kGreekPoints[], kGreekIndex[];
extern const std::int16_t kMathPoints[], kMathIndex[];
extern const std::int16_t kScriptPoints[], kScriptIndex[];
extern const std::int16_t kCyrillicPoints[], kCyrillicIndex[];
extern const std::int16_t kItalicPoints[], kItalicIndex[];

// Where the records of each index begin, so that a glyph is found at once.
extern const std::uint16_t kQuialfStarts[], kQuialfGreekStarts[], kSimplxStarts[], kSimplxGreekStarts[], kDuplxStarts[],
    kComplxStarts[], kTriplxStarts[], kGothicStarts[], kGothicItalianStarts[], kGothicGermanStarts[], kHelveStarts[],
    kHelvesStarts[], kHelvetStarts[], kSerifStarts[], kGreekStarts[], kMathStarts[], kScriptStarts[], kCyrillicStarts[],
    kItalicStarts[];

} // namespace quilla
