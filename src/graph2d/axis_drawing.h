// Drawing one axis: line, ticks, labels and name.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Plot position of a value along an axis, from its start; kOffAxis if the value has no place on it.
struct AxisPlace;
using OffsetOnAxis = int (*)(const PlotState* s, const AxisPlace& place, double value);
inline constexpr int kOffAxis = -2147483647 - 1;

// One axis as it stands on the page. Coordinates in plot units from the top of the page, ORIGIN not included.
struct AxisPlace {
  int axis;                        // kAxisX or kAxisY
  int side;                        // AxisSide: ticks and labels point away from the system
  int x, y;                        // start of the axis
  int parts;                       // AxisPart: what is drawn, each with all before it
  bool skipOrigin;                 // crossed systems: no label at 0
  OffsetOnAxis offsetOf = nullptr; // of maps; null: by the scaling in use
};
void drawAxis(PlotState* s, const AxisPlace& place);

// Room that a side of the axis system takes outside the axis line, in plot units.
int sideExtent(PlotState* s, int side);

// Plot position along an axis, from its start, of a value of the scaling in use.
int axisOffset(const PlotState* s, int axis, double value);

// Range of i of the ticks first + i * interval within the scaling; at most a fixed number of them.
struct TickRange {
  int low, high;
  bool cut; // the scale asks for more ticks than are drawn
};
void warnCutTicks(PlotState* s); // warning 160
TickRange tickRange(const PlotState* s, int axis, double interval);

} // namespace quilla
