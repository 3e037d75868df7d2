// Text for the rooms above: lengths and placement. Private 8-bit codes or the coding of CHACOD.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Installs a stroke font by its FontId; no level check.
void installFont(PlotState* s, int fontId);

// Length of a text in plot units, as MESSAG would draw it.
int textLength(PlotState* s, const char* text);

// Text with its upper left corner at (x, y) in plot coordinates counted from the top of the page, page origin not
// included. (999, 999) continues at the text cursor.
void textAt(PlotState* s, const char* text, int x, int y);

// The same with an angle (degrees) and a height for this call.
void textAtWith(PlotState* s, const char* text, int x, int y, int angle, int height);

// Sets height and angle without checks; a driver font follows.
void setTextHeight(PlotState* s, int height);
void setTextAngle(PlotState* s, int angle);

// A real number as text: n > 0 decimals, n = 0 a trailing point, n = -1 an integer; rounded half up on the magnitude;
// the settings of NUMODE are applied. Returns the length. width > 0 pads on the left with blanks.
int numberText(const PlotState* s, double value, int digits, char* out, int size, int width);

// Mantissa and power of ten as text, with the control characters of MIXALF. format: kNumberExp "1.5*10[3$",
// kNumberFExp "1.5E3", kNumberXExp "1.5{D}10[3$", kNumberLog "10[3.2$". Returns the length.
int exponentText(const PlotState* s, double value, int digits, int format, char* out, int size);

// Texts of exponentText are drawn and measured between these two: exponents are on, and {D} is the multiplication sign.
struct NumberMixing {
  bool mixOn, texOn;
  int alphabetShiftCount;
  AlphabetShift first;
};
NumberMixing beginNumberMixing(PlotState* s);
void endNumberMixing(PlotState* s, const NumberMixing& saved);

// A real number as text in the current number format (NUMFMT). Returns the length.
int formattedNumber(const PlotState* s, double value, int digits, char* out, int size);
// Length and drawing of such a text. NUMODE("EQUA") sets the digits in equal cells.
int numberLength(PlotState* s, const char* text);
void numberAt(PlotState* s, const char* text, int x, int y);

// Places a text as MESSAG does: justification and the page's y direction are applied.
void placeText(PlotState* s, const char* text, int x, int y);

} // namespace quilla
