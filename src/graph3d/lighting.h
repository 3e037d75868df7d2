// Colours of lit points, by the model of Phong.
#pragma once

#include "graph3d/box.h"

namespace quilla {

struct Shade {
  float r, g, b; // 0 to 1
};

// Colour of a point with a unit normal, both in box coordinates, on a face of the material. Each channel is the global
// ambient part and the sum of all lights, at most 1.
Shade shadeVertex(const PlotState* s, const Material& material, const BoxPoint& point, const BoxPoint& normal);

// Lights in user coordinates or by angles stand in box coordinates from here on. For GRAF3D.
void placeLights(PlotState* s);

} // namespace quilla
