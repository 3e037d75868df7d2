// The walk over the codes of a text: each is drawn, or measured, at the text cursor.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Puts the working state to that of the start of a text; the cursor must stand at its place.
void beginWalk(PlotState* s);

// Draws (or with textMeasure measures) count codes of textCodes. The settings that a text can change within itself are
// those of the caller again afterwards.
void walkText(PlotState* s, int count);

// Extent of one character with the settings of the moment; up and down count from the baseline.
struct CharacterExtent {
  float width, gap, up, down;
  float lean; // by which the top of a slanted character stands right of its foot
};
CharacterExtent measureCharacter(PlotState* s, int alphabet, int code);
// Draws one character of an alphabet at the cursor.
void drawTextCharacter(PlotState* s, int alphabet, int code);

// The settings that a text can change within itself: kept before it, brought back after it.
struct WalkSettings {
  TextGroup text;
};
WalkSettings beginSettings(PlotState* s);
void endSettings(PlotState* s, const WalkSettings& saved);

// Moves of the cursor in the text's own directions.
void moveForward(PlotState* s, float distance);
void moveUp(PlotState* s, float distance);

// Distance of the cursor from the start of the line, along the baseline.
float lineDistance(const PlotState* s);

// Height and width of the characters that follow; a driver font follows.
void changeHeight(PlotState* s, int height);
void changeWidthFactor(PlotState* s, float factor);

} // namespace quilla
