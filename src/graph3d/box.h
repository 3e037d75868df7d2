// User coordinates, box coordinates and the pen in three dimensions.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// True in an axis system of GRAF3D, otherwise message 35.
bool isBoxSystem(PlotState* s);
// The strict check of level 3 and of the axis system; null after a message.
PlotState* boxCheck(const char* name);

// Box coordinate of a user value on an axis of the open system; no finite number if the value has no logarithm.
float boxOfUser(const PlotState* s, int axis, float value);
// Box coordinate of a value as the axis counts it: an exponent on a logarithmic axis.
float boxOfScaled(const PlotState* s, int axis, float value);

struct BoxPoint {
  float x, y, z;
};
BoxPoint boxOfUser(const PlotState* s, float x, float y, float z);
// The point as the user transformation (TR3ROT and its kin) moves it.
BoxPoint transformedBox(const PlotState* s, const BoxPoint& p);

// Move and draw in box coordinates: user transformation, clip of CLIP3D, and the line pipeline. A point that is no
// finite number ends the line.
void boxMove(PlotState* s, const BoxPoint& p);
void boxDraw(PlotState* s, const BoxPoint& p);

// Corner 1 to 8 of the box: 1 (-,-,-), 2 (+,-,-), 3 (+,+,-), 4 (-,+,-), 5 to 8 the same with +z.
BoxPoint boxCorner(const PlotState* s, int corner);

} // namespace quilla
