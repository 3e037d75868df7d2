// Bands between contour levels and their colours.
#pragma once

#include <memory>

#include "contour/band_polygon.h"
#include "core/plot_state.h"

namespace quilla {

// Band k of n levels lies above k of them: 0 below the lowest one, n above the highest.
struct ContourBands {
  int n = 0;
  std::unique_ptr<float[]> levels;  // ascending
  std::unique_ptr<int[]> positions; // of the sorted levels among the given ones, from 1
  std::unique_ptr<int[]> colors;    // of bands 0 to n; kNoColor: left out

  int bandOf(float z) const;
  Band band(int k) const;
};

// Sorts the levels and gives colours to their bands: those of CONCLR, else those of the scale of GRAF3, else of a scale
// from the least level to the greatest. Message 53 and false if there is not enough memory, message 162 if CONCLR gave
// too few colours.
bool makeBands(PlotState* s, const float* levels, int n, ContourBands& bands);

} // namespace quilla
