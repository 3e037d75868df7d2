// Regions that lines do not enter.
#pragma once

#include <cstdint>

namespace quilla {

inline constexpr int kShieldWords = 1001; // 16-bit words of all regions: a polygon of 499 points fits
inline constexpr int kShieldAreas = 5;

enum ShieldKind : int {
  kShieldRectangle = 1, // x, y, width, height
  kShieldTurned = 2,    // the same and an angle in radians times 1000
  kShieldCircle = 3,    // x, y, radius
  kShieldEllipse = 4,   // x, y, two half axes, angle in radians times 1000
  kShieldSector = 5,    // x, y, radius, two angles in degrees
  kShieldPolygon = 6    // n, then n pairs
};
// Classes of regions: those of a script, and those that the library sets around what it draws.
enum ShieldClass : int {
  kShieldUser = 0,
  kShieldMessages = 1,
  kShieldSymbols = 2,
  kShieldBars = 3,
  kShieldPies = 4,
  kShieldLegends = 5
};

// Run lifetime. A record: head word (kind * 10 + class) * 10 + hidden, id, data; plot coordinates, ORIGIN included.
struct ShieldGroup {
  std::int16_t shieldWords[kShieldWords] = {};
  int shieldUsed = 0;  // words
  int shieldCount = 0; // regions
  int shieldNextId = 0;
  int shieldUserCount = 0;
  bool shieldAreaOn[kShieldAreas] = {}; // SHIELD: "MESS", "SYMB", "BARS", "PIE", "LEGE"
};

} // namespace quilla
