// Labels of date axes: their texts and the steps of the calendar.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Text of a date on an axis: day, month and year in the order and the forms of LABMOD, joined by the separator.
void dateText(const PlotState* s, int axis, double value, char* text, int size);

// Labels that stand at months: the axis has dates, a step of the calendar and a base date.
bool isCalendarAxis(const PlotState* s, int axis);

// Value of label i of a calendar axis, i of either sign.
double calendarValue(const PlotState* s, int axis, int i);

// First label and step of an automatic date scaling; sets the label step of the axis.
void automaticDates(PlotState* s, int axis, float start, float end, float& first, float& step);

// First label and step in seconds of an automatic time scaling.
void automaticTimes(float start, float end, float& first, float& step);

} // namespace quilla
