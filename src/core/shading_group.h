// Shading patterns of filled areas.
#pragma once

namespace quilla {

inline constexpr int kPatternSolid = 16; // a pattern number of SHDPAT, as the next
inline constexpr int kPatternNone = 0;

// What a pattern's type draws.
enum ShadeType : int {
  kShadeDouble = 2,
  kShadeTriple = 3,
  kShadeThick = 4,
  kShadeDotted = 5,
  kShadeDashed = 6,
  kShadeChained = 7
};

// Run lifetime.
struct ShadingGroup {
  int shadePattern = kPatternNone; // number of SHDPAT, or the code of MYPAT's four values
  int shadeAngle = 0;              // degrees, 0 to 179
  int shadeType = 0;               // 0 to 7
  int shadeDensity = 0;            // 0 to 9
  int shadeCross = 0;              // 1: a second pass across the first
  float shadeFactor = 1.0F;        // SHDFAC
};

} // namespace quilla
