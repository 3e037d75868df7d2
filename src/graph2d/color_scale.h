// The scale from values to colours of the table.
#pragma once

#include "core/plot_state.h"
#include "graph2d/scaling.h"

namespace quilla {

inline constexpr int kNoColor = -1;

// Takes the scale of axis Z, over the range of COLRAN, into use.
void storeColorScale(PlotState* s, const AxisScale& scale);

// Takes a linear scale from low to high, not below it, over the range of COLRAN into use.
void scaleOverRange(PlotState* s, float low, float high);

// Colour of a value: on the scale, or outside of it that of the background below and of the foreground above. kNoColor
// if the value is no number, or shall not be seen (NOBGD).
int colorOfValue(const PlotState* s, float z);

// Place of a value on the scale, in colours: those from k up to k + 1 have the colour k.
double placeOnScale(const PlotState* s, float z);

// Colour of a place on the scale.
int colorOfPlace(const PlotState* s, double place);

} // namespace quilla
