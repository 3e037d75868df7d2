// Settings of filled areas: outlines and the cycle of patterns.
#pragma once

#include "core/color_group.h"

namespace quilla {

// Run lifetime.
struct AreaGroup {
  bool outlinesDrawn = true;           // NOARLN
  int patternCycle[kCycleLength] = {}; // PATCYC
};

} // namespace quilla
