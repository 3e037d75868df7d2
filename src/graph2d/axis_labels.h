// Texts of axis labels.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Text of the label with a value (log10 on a logarithmic axis) and an index from 0 that MYLAB labels go by.
void labelText(const PlotState* s, double value, int index, int axis, int digits, char text[kLabelBuffer]);

// True if labels of this axis hold exponents: they are drawn with the control characters of MIXALF in force.
bool labelsHoldExponents(const PlotState* s, int axis);

// Length in plot units.
int labelLength(PlotState* s, int axis, const char* text);

// Digits of the labels of the axis: as set, or found from first label and step (LABDIG -2).
int labelDigitsOf(const PlotState* s, int axis);

// Digits after the point that a value needs, -1 for an integer.
int digitsNeeded(double value);

// Number of labels minus one, and the first, last and stride of those that AXENDS leaves.
struct LabelRun {
  int first, last, stride;
};
LabelRun labelRun(const PlotState* s, int axis);

// Puts "<" before the first and ">" before the last label of a colour bar that EXPZLB opens there.
void openLabel(const PlotState* s, int axis, int i, const LabelRun& run, char text[kLabelBuffer]);

// Value of label i of the axis in use.
double labelValue(const PlotState* s, int axis, int i);

// Longest label of the axis in plot units, 0 if it has none.
int longestLabel(PlotState* s, int axis);

} // namespace quilla
