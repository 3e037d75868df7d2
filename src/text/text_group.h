// Text settings, the current font and the text cursor.
#pragma once

#include <cstdint>

namespace quilla {

inline constexpr int kAlphabetSlots = 6;
inline constexpr int kTextCodeLimit = 256;
inline constexpr int kShiftCount = 8;
inline constexpr int kFontNameLength = 80;
inline constexpr int kCharWidthCount = 156; // codes 32 to 187

enum FontKind : int { kFontStroke = 0, kFontPostScript = 1, kFontWindows = 2, kFontBitmap = 3, kFontTrueType = 4 };

// Run lifetime.
struct TextGroup {
  int textHeight = 36; // plot units; plotUnits(36) at QUIINI
  int textAngle = 0;   // degrees
  float textSin = 0.0F, textCos = 1.0F;
  int textJustifyX = 0; // 0 left, 1 centre, 2 right
  int textJustifyY = 0; // 0 top, 1 middle, 2 bottom
  bool fixedSpacingOn = false;
  float fixedSpacing = 1.0F;
  float charSpacing = 0.0F;
  float charWidthFactor = 1.0F;
  float charSlant = 0.0F;
  int coding = 0; // CHACOD
  int shiftChars[kShiftCount] = {};
  bool shiftCharsOn = false;
  bool mixOn = false;
  char mixExp = '[', mixIndex = ']', mixReset = '$', mixLegend = '/', mixTex = '\\';
  float mixExpShift = 0.8F, mixExpSize = 0.6F; // fraction of the height, size factor
  int textBoxFrame = 0;
  int textBackground = -1;
  int numberFormat = 0;
  char decimalChar = '.', groupChar = 0, plusChar = 0;
  bool equalMode = false;
  int psShiftFonts = 0; // PSMODE: 0 none, 1 Greek, 2 italic, 3 both
};

// One alphabet of a font: pointers into compiled tables.
struct AlphabetSlot {
  const std::int16_t* alphaX = nullptr; // packed: one word a point, low byte x, high byte y
  const std::int16_t* alphaY = nullptr; // equal to alphaX in packed form
  const std::int16_t* alphaIndex = nullptr;
  bool alphaPacked = true;
  int alphaCount = 0;
  int alphaIndexBase = 0, alphaCoordBase = 0; // 0: slot 1 or shares its tables
  int alphaXDiv = 6, alphaYDiv = 7;
  float alphaGap = 0.0F;
};

// Run lifetime: the installed font.
struct FontGroup {
  int fontId = 0;
  int blankWidth = 6;
  float italicSlant = 3.732F;
  AlphabetSlot slots[kAlphabetSlots];
  int currentAlphabet = 1;
  int baseAlphabet = 1;
  int fontKind = kFontStroke;
  char fontName[kFontNameLength + 1] = "";
  int psFontIndex = 0;
  int fontCapHeight = 683;
  std::int16_t charWidths[kCharWidthCount] = {};
};

// Working state of the walk over a text.
struct TextState {
  float textCursorX = 0.0F, textCursorY = 0.0F; // baseline cursor, page origin included
  float textStartX = 0.0F, textStartY = 0.0F;
  float textUpShift = 0.0F;
  bool textMeasure = false;
  int lastSentToStan = -1;
  int lastAlphabet = 0;
  bool italicFlag = false;
  float scaleX = 1.0F, scaleY = 1.0F, gap = 0.0F; // of the alphabet now selected
  int textCodes[kTextCodeLimit] = {};
};

} // namespace quilla
