// Drawing one axis: line, ticks, labels and name.
#pragma once

#include "core/colors.h"
#include "core/plot_state.h"

namespace quilla {

// Plot position of a value along an axis, from its start; kOffAxis if the value has no place on it.
struct AxisPlace;
using OffsetOnAxis = int (*)(const PlotState* s, const AxisPlace& place, double value);
inline constexpr int kOffAxis = -2147483647 - 1;

// One axis as it stands on the page. Coordinates in plot units from the top of the page, ORIGIN not included.
struct AxisPlace {
  int axis;                        // AxisIndex; the side tells its direction
  int side;                        // AxisSide: ticks and labels point away from the system
  int x, y;                        // start of the axis
  int parts;                       // AxisPart: what is drawn, each with all before it
  bool skipOrigin;                 // crossed systems: no label at 0
  OffsetOnAxis offsetOf = nullptr; // of maps; null: by the scaling in use
};
inline bool isUprightSide(int side) { return side == kSideLeft || side == kSideRight; }
void drawAxis(PlotState* s, const AxisPlace& place);

// Room that an axis with such parts takes on a side outside its line, in plot units.
int axisExtent(PlotState* s, int axis, int side, int parts);
// Runs an action in the colour of a part of the axis.
enum ColorPart : int { kColorLine = 0, kColorTicks = 1, kColorLabels = 2, kColorName = 3 };
template <class Action> void inAxisColor(PlotState* s, int axis, int part, Action action) {
  int color = s->axis.axisColors[axis][part], kept = s->color.currentColor;
  if (color >= 0) setColor(s, color);
  action();
  if (color >= 0) setColor(s, kept);
}

// Calls mark for each tick of an axis: offset from its start, and length.
using TickMark = void (*)(void* context, int offset, int length);
void eachTick(PlotState* s, int axis, TickMark mark, void* context);

// Room that a side of the axis system takes outside the axis line, in plot units.
int sideExtent(PlotState* s, int side);

// Plot position along an axis, from its start, of a value of the scaling in use.
int axisOffset(const PlotState* s, int axis, double value);

// True for a value of the scaling in use (log10 on a logarithmic axis) on the axis, with a hair of slack.
bool withinScale(const PlotState* s, int axis, double value);

// A label with a tick of a length, 0 for none, at a value of the scaling in use.
void drawExtraLabel(PlotState* s, const AxisPlace& place, const char* text, double value, int tickLength);

// Range of i of the ticks first + i * interval within the scaling; at most a fixed number of them.
struct TickRange {
  int low, high;
  bool cut; // the scale asks for more ticks than are drawn
};
void warnCutTicks(PlotState* s); // warning 160
TickRange tickRange(const PlotState* s, int axis, double interval);

} // namespace quilla
