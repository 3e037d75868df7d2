// Statements that draw a whole graph from arrays: the tokeniser stands behind the keyword.
#pragma once

namespace qsl {

// Lowest and highest value.
struct DataRange {
  float low, high;
};

// PLOT and SCATTR.
void run_plot(bool scatter);

// SURFACE.
void run_surface();

// Opens a plot or clears the open one, and ends an axis system.
void begin_quick_plot();

// Lowest and highest element of the arrays at the operands first, first + step, ...; NaN elements take no part.
DataRange data_range(int first, int step = 2);

// Scaling of axis 1, 2 or 3 from a range and the system variables of that axis.
void scale_axis(DataRange range, int axis);

} // namespace qsl
