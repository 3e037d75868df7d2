// What the files of bar charts share.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Plot coordinate of a user value on an axis.
float plotPosition(const PlotState* s, int axis, float value);

// False after message 27 if a value on a logarithmic axis is not positive.
bool barLogarithmsExist(PlotState* s, int axis, const float* values, int n);

// With NANCRV on, counts the points of a pair of arrays that are no numbers.
void countBarNans(PlotState* s, const float* x, const float* y, int n);

// Distance in plot units of the first two positions, or of an axis step when there is one only; and the room of each
// bar or group in it, by BARWTH.
float barDistance(const PlotState* s, const float* position, int n, int axis);
float barRoom(const PlotState* s, float distance);

// The data of one call. Positions stand on one axis, the two values of each bar on the other.
struct BarData {
  const float *position, *start, *end;
  int n;
  int positionAxis, valueAxis; // kAxisX or kAxisY
  float room;                  // of each bar, unless widths vary
  float freeRoom;              // between two bars or groups
  int groupIndex;              // place of this call in its group, from 1
  int color;                   // that was current before
};

// One bar on the page: across0 to across1 wide, from along0 at its start value to along1 at its end value. False if
// it has no place because a coordinate is no number.
struct BarPlace {
  float across0, across1, along0, along1;
};
bool placeBar(const PlotState* s, const BarData& d, int i, BarPlace& place);

// Offset of the back of a bar from its front; nothing for flat bars.
struct BarDepth {
  float x, y;
};
BarDepth barDepth(const PlotState* s, const BarData& d, const BarPlace& place);

// Colour and pattern of bar i (from 0).
int barColor(const PlotState* s, const BarData& d, int i);
void takeBarPattern(PlotState* s, int i);

// Regions around the labels that the bars to come do not enter, and the labels of all bars, drawn over them.
void shieldBarLabels(PlotState* s, const BarData& d);
void drawBarLabels(PlotState* s, const BarData& d);

} // namespace quilla
