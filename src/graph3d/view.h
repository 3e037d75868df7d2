// The view of a three-dimensional axis system.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Box coordinates of horizontal and vertical angle in degrees, and distance from the middle.
void boxOfAngles(float horizontal, float vertical, float radius, float point[3]);

// Eye and focus in box coordinates, and the view matrix, from the settings. Limits and box of viewState stand. Message
// 33 for an eye inside the box; the default eye is taken then.
void setView(PlotState* s);

} // namespace quilla
