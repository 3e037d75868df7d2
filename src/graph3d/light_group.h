// Lights and materials of shaded surfaces.
#pragma once

#include "graph3d/view_group.h"

namespace quilla {

inline constexpr int kLightCount = 8;
enum Face : int { kFaceTop = 0, kFaceBottom = 1, kFaceBoth = 2 }; // SETFCE

// Colours have the components red, green and blue; 1 is full.
struct Light {
  bool on = false;
  int mode = kViewAbsolute; // of the position: box or user coordinates, or angles in degrees and distance
  float position[3] = {4.0F, -5.0F, 4.0F};
  float ambient[3] = {};
  float diffuse[3] = {1.0F, 1.0F, 1.0F};
  float specular[3] = {1.0F, 1.0F, 1.0F};
  float constant = 1.0F, linear = 0.0F, quadratic = 0.0F; // attenuation by the distance
};

struct Material {
  float ambient[3] = {0.2F, 0.2F, 0.2F};
  float diffuse[3] = {0.8F, 0.8F, 0.8F};
  float specular[3] = {};
  float exponent = 0.0F;
};

// Run lifetime.
struct LightGroup {
  bool lightingOn = false;
  Light lights[kLightCount];
  Material faces[2]; // of the upper and of the lower side
  int face = kFaceBoth;
};

} // namespace quilla
