// Colours.
#pragma once

#include "core/message_group.h"

namespace quilla {

inline constexpr int kColorTableSize = 256;
inline constexpr int kNamedColorCount = 9;
inline constexpr int kCycleLength = 30;         // attribute sets that curves take in turn
inline constexpr int kDirectColor = 0x01000000; // mark of a direct colour: red in the low byte, then green, blue

// Index of the SETVLT keyword.
enum TableKind : int {
  kTableSmall = 0,
  kTableRain,
  kTableSpectrum,
  kTableGrey,
  kTableReverseRain,
  kTableReverseSpectrum,
  kTableReverseGrey,
  kTableVga,
  kTableTemperature
};
enum BackgroundMode : int { kBackgroundErase = 0, kBackgroundKeep = 1, kBackgroundReverse = 2, kBackgroundAuto = 4 };

// Process lifetime.
struct ColorSetup {
  int screenModeWanted = kBackgroundAuto; // SCRMOD
  int colorMode = 0;                      // CLRMOD
  bool userTablePending = false;          // MYVLT before the plot
  int lastBackground = -1;                // of the first run of the process
};

// Run lifetime; filled by SETVLT.
struct ColorGroup {
  int currentColor = 0;                 // colour value
  int colorTable[kColorTableSize] = {}; // 0xRRGGBB
  int tableKind = kTableRain;
  int foregroundColor = 255, backgroundColor = 0;
  int namedColors[kNamedColorCount] = {}; // WHIT RED GREE YELL BLUE ORAN CYAN MAGE BLAC
  int colorCycle[kCycleLength] = {};      // CLRCYC; SETVLT fills it with the named colours
  int colorRangeLow = 1, colorRangeHigh = 254;
  char tableFile[kFileNameLength + 1] = ""; // from which VLTFIL loaded the table
};

// Working state, resolved at QUIINI.
struct ColorState {
  int backgroundMode = kBackgroundErase;
};

} // namespace quilla
