// The parts of formulas that are drawn by lines, and brackets that grow.
#pragma once

#include "text/formula.h"

namespace quilla {

// Proportions, as fractions of the height.
inline constexpr float kMathAxis = 9.0F / 21.0F; // where the bar of a minus sign lies
inline constexpr float kRootSign = 1.0F;         // from the start of a root to its radicand
inline constexpr float kRootWidth = 1.2F;        // by which a root is wider than its radicand
inline constexpr float kFractionBar = 0.3F;      // height of a bar above the baseline
inline constexpr float kRootRise = 0.4F;         // of its bar above the radicand
inline constexpr float kLineDistance = 0.18F;    // of lines and accents from their group
inline constexpr float kAccentHeight = 0.25F;
inline constexpr float kFenceSpace = 0.2F; // between a bracket and what it encloses

// True for the codes of the integral signs.
bool isIntegralCode(int code);

// One bracket of a fence: its extent, and for a character its height, width factor and place.
struct FenceSide {
  float width = 0.0F, low = 0.0F, high = 0.0F;
  int height = 1;
  float widthFactor = 1.0F, y = 0.0F;
};
FenceSide fenceSide(PlotState* s, const FormulaBox& fence, const FormulaBox& inner, int code);

// Draws a bracket by lines from (x, low), `width` wide.
void drawVectorBracket(PlotState* s, int code, float x, float width, float low, float high);

void drawFractionBar(PlotState* s, float x, float y, float width);
// The sign of a root whose radicand reaches from -down to up and is `width` wide.
void drawRootSign(PlotState* s, float x, float y, float h, float width, float up, float down);
// Accent over (or line under) a box at (x, y).
void drawAccent(PlotState* s, AccentKind kind, float x, float y, float h, const FormulaBox& inner);
void drawCopyright(PlotState* s, float x, float y, float h);

} // namespace quilla
