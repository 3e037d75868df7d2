// The formula mode: a text is read into a tree of boxes, the boxes are measured, and then drawn.
#pragma once

#include <cstdint>

#include "core/plot_state.h"

namespace quilla {

// Limits of a text, each with a message of its own.
inline constexpr int kLeftBracketLimit = 20;
inline constexpr int kRootNesting = 8;
inline constexpr int kFractionLimit = 20, kFractionNesting = 8;
inline constexpr int kScriptNesting = 8;
inline constexpr int kGroupNesting = 8;
inline constexpr int kCommandNameLength = 32;
// A code of a text makes at most two boxes.
inline constexpr int kFormulaBoxLimit = 2 * kTextCodeLimit + 16;

enum FormulaStyle : std::int8_t { kStyleDisplay = 0, kStyleText, kStyleScript, kStyleScriptScript };

// What a box is to its neighbours; it decides the space between them.
enum class Atom : std::int8_t { Ordinary, Binary, Relation, Operator, Open, Close, Punctuation };

enum class BoxKind : std::int8_t {
  Row,       // children from `first` on
  Character, // code of an alphabet
  Space,     // amount in eighteenths of the height
  Scripts,   // base `first`, exponent `second`, index `third`
  Fraction,  // `first` over `second`
  Root,      // radicand `first`, index `second`
  Accent,    // line or accent `code` at `first`
  Fence,     // `first` between the brackets `code` and `amount`
  Bracket,   // bracket `code` of `amount` times the height
  Operator,  // big operator: code of the mathematical alphabet
  Copyright
};

enum class AccentKind : std::int8_t { Overline, Underline, Vector, Hat, Tilde, Dot };

struct FormulaBox {
  BoxKind kind = BoxKind::Row;
  Atom atom = Atom::Ordinary;
  std::int8_t style = kStyleText;
  std::int8_t alphabet = 1;
  std::int8_t limits = 0;  // of an operator: 1 above and below, -1 beside, 0 as TEXOPT says
  bool indexFirst = false; // the index was read before the exponent
  std::int16_t first = -1, second = -1, third = -1, next = -1;
  int code = 0;
  float amount = 0.0F;
  int height = 1;
  int color = 0;
  // Measured: extents from the left end of the baseline, the gap to what follows, and the place within the parent.
  float width = 0.0F, gap = 0.0F, up = 0.0F, down = 0.0F;
  float x = 0.0F, y = 0.0F;
  float lean = 0.0F; // of a slanted letter
};

struct Formula {
  FormulaBox boxes[kFormulaBoxLimit];
  int count = 0;
  int root = -1;
};

// What a command stands for.
enum class CommandKind : std::int8_t {
  Unknown,
  Greek,  // value: key of alphabet 2
  Symbol, // value: code of alphabet 3
  Space,  // value: eighteenths of the height
  BigOperator,
  Fraction,
  Root,
  Accent, // value: AccentKind
  Limit,  // the word "lim"
  Limits, // value: 1 or -1
  Alphabet,
  Style,
  Size,  // value: parts of 10000 of the base height
  Color, // value: place in the table of named colours
  Word,  // function name
  Left,
  Right,
  Big, // value: hundredths of the height
  Copyright
};
struct Command {
  CommandKind kind;
  int value;
  Atom atom;
};
inline constexpr int kForegroundName = 100, kBackgroundName = 101;
Command findCommand(const char* name);

// Reads count codes of textCodes into a formula. False after a message.
bool parseFormula(PlotState* s, int count, Formula* formula);

// Extents and places of all boxes. The character settings of the state are left as the last box had them.
void measureFormula(PlotState* s, Formula* formula);

// Draws a measured formula from the start of the line on.
void drawFormula(PlotState* s, const Formula* formula);

struct FormulaExtent {
  float width, gap, up, down;
};
// The engine: measures, or draws with the start of the line at the text start. 0, or 1 after a message.
int texLayout(PlotState* s, int count, bool measure, FormulaExtent* extent);

} // namespace quilla
