// Statements that draw a whole graph from arrays: the tokeniser stands behind the keyword.
#pragma once

#include <cstdint>

namespace qsl {

// Lowest and highest value.
struct DataRange {
  float low, high;
};

// PLOT and SCATTR.
void run_plot(bool scatter);

void run_contour();
void run_surface();
void run_conshade();
void run_surshade();
void run_plot3();
void run_plot3r();
void run_surf3();

// A function z on nx by ny points, Y index fastest. What a statement leaves out lies in memory of the record, which
// its owner frees.
struct GridOperands {
  const float *x = nullptr, *y = nullptr, *z = nullptr, *levels = nullptr;
  std::int32_t nx = 0, ny = 0, level_count = 0;
  float* memory = nullptr;
};

// The n operands z; z, x; z, x, y of a surface. Coordinates that are left out begin with first, in steps of 1. False
// after a message.
bool read_surface(int n, GridOperands& grid, float first, const char* statement);

// Opens a plot or clears the open one, and ends an axis system.
void begin_quick_plot();

// Lowest and highest element of an array, 0 if there is none.
DataRange array_range(const float* values, int n);

// Lowest and highest element of the arrays at the operands first, first + step, ...; NaN elements take no part.
DataRange data_range(int first, int step = 2);

// Scaling of axis 1, 2 or 3 from a range and the system variables of that axis.
void scale_axis(DataRange range, int axis);

// GRAF with the scaling kept for X and Y, and the title.
void open_axes();

} // namespace qsl
