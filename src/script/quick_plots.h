// Statements that draw a whole graph from arrays: the tokeniser stands behind the keyword.
#pragma once

namespace qsl {

// Lowest and highest value.
struct DataRange {
  float low, high;
};

// PLOT and SCATTR.
void run_plot(bool scatter);

// CONTOUR.
void run_contour();

// Opens a plot or clears the open one, and ends an axis system.
void begin_quick_plot();

// Lowest and highest element of an array, 0 if there is none.
DataRange array_range(const float* values, int n);

// Lowest and highest element of the arrays at the operands first, first + 2, ...; NaN elements take no part.
DataRange data_range(int first);

// Scaling of axis 1, 2 or 3 from a range and the system variables of that axis.
void scale_axis(DataRange range, int axis);

// GRAF with the scaling kept for X and Y, and the title.
void open_axes();

} // namespace qsl
