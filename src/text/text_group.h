// Text settings, the current font and the text cursor.
#pragma once

#include <cstdint>
#include <memory>

namespace quilla {

inline constexpr int kAlphabetSlots = 6;
inline constexpr int kHighestHeight = 10000; // plot units
inline constexpr int kTextCodeLimit = 256;
inline constexpr int kShiftCount = 8;
inline constexpr int kAlphabetShiftLimit = 6;
inline constexpr int kFontNameLength = 80;
inline constexpr int kFirstCode = 32;       // ordinal = code - 31
inline constexpr int kCharWidthCount = 156; // codes 32 to 187
inline constexpr int kTabCount = 20;
inline constexpr int kCommandLength = 20;

enum FontKind : int { kFontStroke = 0, kFontPostScript = 1, kFontWindows = 2, kFontBitmap = 3, kFontTrueType = 4 };
enum FontId : int {
  kQuialf = 1,
  kComplx = 3,
  kSimplx = 4,
  kDuplx = 5,
  kTriplx = 6,
  kGothic = 7,
  kHelve = 11,
  kHelves = 12,
  kHelvet = 13,
  kSerif = 14
};
enum Alphabet : int {
  kAlphabetStandard = 1,
  kAlphabetGreek = 2,
  kAlphabetMath = 3,
  kAlphabetItalic = 4,
  kAlphabetScript = 5,
  kAlphabetCyrillic = 6,
  kAlphabetInstructions = 7 // commands between two characters of a text
};
enum Coding : int {
  kCodingStandard = 0, // codes from 127 are the private ones
  kCodingLatin1,
  kCodingLatin2,
  kCodingLatin3,
  kCodingIsoCyrillic,
  kCodingKoi8,
  kCodingUtf8,
  kCodingIsoGreek
};
enum FormulaBrackets : int { kBracketGlyph = 0, kBracketVector = 1 };
enum NumberFormat : int { kNumberFloat = 0, kNumberExp = 1, kNumberFExp = 2, kNumberLog = 3, kNumberXExp = 4 };

// One shift of SMXALF: the text between the two characters is in another alphabet.
struct AlphabetShift {
  int alphabet = 0; // 0: not defined
  char in = 0, out = 0;
};

// Run lifetime. The walk over a text changes height, width factor, spacing, fixed spacing and slant, and puts them
// back.
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
  int coding = kCodingStandard; // CHACOD
  int shiftChars[kShiftCount] = {};
  bool shiftCharsOn = false;
  AlphabetShift alphabetShifts[kAlphabetShiftLimit];
  int alphabetShiftCount = 0; // highest one defined
  bool mixOn = false;
  char mixExp = '[', mixIndex = ']', mixReset = '$', mixLegend = '/', mixTex = '\\';
  // An exponent of size 0.6 whose foot stands at 0.75 of the height reaches as far above the line as an index, lowered
  // by shift + size - 1, reaches below it.
  float mixExpShift = 0.75F, mixExpSize = 0.6F; // fraction of the height, size factor
  int textBoxFrame = 0;
  int textBackground = -1;
  int numberFormat = kNumberFloat;
  char decimalChar = '.', groupChar = 0, plusChar = 0;
  bool equalMode = false;
  bool texOn = false;     // TEXMOD
  bool texLimits = false; // limits of big operators above and below, in display style
  bool texItalic = false; // letters between "$" in italic
  int texBracket = kBracketGlyph;
  float texExpFactor = 1.0F; // size of exponents and indices
  // Brackets drawn by lines: overshoot above and below what they enclose, their length, and the width of all that grow.
  float texH1Bracket = 1.0F, texH2Bracket = 1.0F, texVBracket = 1.0F, texWBracket = 1.0F;
  float texOperator = 1.0F;     // size of big operators
  bool shadeCharacters = false; // SHDCHA
  int psShiftFonts = 0;         // PSMODE: 0 none, 1 Greek, 2 italic, 3 both
};

// One alphabet of a font: pointers into compiled tables.
struct AlphabetSlot {
  const std::int16_t* alphaX = nullptr; // packed: one word a point, low byte x, high byte y
  const std::int16_t* alphaY = nullptr; // equal to alphaX in packed form
  const std::int16_t* alphaIndex = nullptr;
  const std::uint16_t* alphaStarts = nullptr; // places of the records; null: they are walked
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
  int currentAlphabet = kAlphabetStandard;
  int baseAlphabet = kAlphabetStandard;
  int fontKind = kFontStroke;
  char fontName[kFontNameLength + 1] = "";
  int psFontIndex = 0;
  int fontCapHeight = 683;
  std::int16_t charWidths[kCharWidthCount] = {};
  bool fontShifted = false; // Symbol or an italic partner stands in for psSavedIndex
  int psSavedIndex = 0;
};

// Draws symbol n centred at a point; set by the room of symbols for the instruction alphabet.
struct PlotState;
using SymbolDrawer = void (*)(PlotState* s, int n, float x, float y, float height, float angle);

// The command now read in the instruction alphabet.
struct TextCommand {
  char letter = 0; // 0: none yet
  char argument[kCommandLength + 1] = "";
  int length = 0;
};

struct TrueTypeFont;

// Process lifetime.
inline constexpr int kDirectoryLength = 255;
struct LibrarySetup {
  char libraryDirectory[kDirectoryLength + 1] = ""; // QUIENV; empty: none was given
};

// Working state of the walk over a text.
struct TextState {
  char readCharacter[2] = "";                   // the text that GETMIX or GETSHF gave last
  float textCursorX = 0.0F, textCursorY = 0.0F; // baseline cursor, page origin included
  bool cursorPlaced = false;                    // false: no text yet, the cursor stands at the page origin
  float textStartX = 0.0F, textStartY = 0.0F;
  float textUpShift = 0.0F, secondUpShift = 0.0F;
  bool textMeasure = false;
  bool pageCheckOff = false;              // a text that leaves the page is none of the user's
  float lastWidth = 0.0F, lastGap = 0.0F; // of the last character
  bool measureInk = false;                // the heights of characters are wanted too
  float inkUp = 0.0F, inkDown = 0.0F;     // of the last character, above and below the baseline
  float largestDistance = 0.0F;           // of the right edge of a character from the start of the line
  int lastSentToStan = -1;
  int lastAlphabet = 0; // whose scales are computed; 0: none
  bool italicFlag = false;
  float scaleX = 1.0F, scaleY = 1.0F, gap = 0.0F; // of the alphabet now selected
  int openShift = 0;                              // alphabet shift that is open, from 1
  int textAlphabet = kAlphabetStandard;           // alphabet of the text at the cursor
  int returnAlphabet = kAlphabetStandard;         // alphabet after the open shift
  TextCommand command;
  float tabs[kTabCount] = {};
  int originalHeight = 0, originalColor = 0;
  float routineWidth = 1.0F, routineSpacing = 0.0F, routineSlant = 0.0F; // as the routines set them
  float mixShift = 0.0F;                                                 // sum of the raises of exponents and indices
  bool exponentSeen = false, indexSeen = false;
  int textCodes[kTextCodeLimit] = {};
  SymbolDrawer symbolDrawer = nullptr;
  std::shared_ptr<TrueTypeFont> trueType; // of TTFONT
};

} // namespace quilla
