// What other rooms of graphs need of legends.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Records of the attributes now in force, for the curve or area with the number curveCounter.
void recordCurve(PlotState* s);
void recordArea(PlotState* s);
// The same for a chart that is no curve: the counter goes up, so that the next chart has a line of its own.
void recordChart(PlotState* s);
void recordContour(PlotState* s);
// The axis system ends: its records are forgotten, a legend is no longer in progress.
void forgetRecords(PlotState* s);

// Line i (from 1) of a legend buffer without the blanks behind it, as a text.
void legendLineText(const PlotState* s, const char* buffer, int i, char text[kLegendLineLength + 1]);

// Characters of the buffer that LEGINI was called with last; 0 before.
int legendBufferLength();

} // namespace quilla
