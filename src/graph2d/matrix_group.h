// Limits of grids that are told by their values alone.
#pragma once

namespace quilla {

// Run lifetime.
struct MatrixGroup {
  bool matrixLimitsGiven = false;               // SURSZE; else those of the axis system hold
  float matrixStart[2] = {}, matrixEnd[2] = {}; // X and Y
};

} // namespace quilla
