// Labels of bars, pies and contour lines, whose settings share their routines with the labels of axes.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// The word that stands in place of an axis string, by its first three characters in either case.
enum ChartWord : int { kWordNone = 0, kWordBars, kWordPie, kWordData, kWordPercent, kWordContour };
ChartWord chartWord(const char* word);

// Each sets the labels of that chart. False if the word names no chart with such a setting: it is an axis string.
bool setChartLabels(PlotState* s, const char* kind, const char* word);
bool setChartLabelDigits(PlotState* s, int digits, const char* word);
bool setChartLabelDistance(PlotState* s, int distance, const char* word);
bool setChartLabelPlace(PlotState* s, const char* place, const char* word);
bool setChartLabelType(PlotState* s, const char* type, const char* word);

} // namespace quilla
