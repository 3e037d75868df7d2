// Settings of filled areas: outlines and the cycle of patterns.
#pragma once

#include "core/color_group.h"

namespace quilla {

// Run lifetime.
struct AreaGroup {
  bool outlinesDrawn = true;           // NOARLN
  bool areasFilled = true;             // NOFILL
  bool backgroundsDrawn = true;        // NOBGD: of axis systems, legends, texts, colour graphs
  int circleSpacing = 0;               // CIRCSP: length of a chord in plot units, 0: a fixed number of chords
  int patternCycle[kCycleLength] = {}; // PATCYC
};

} // namespace quilla
