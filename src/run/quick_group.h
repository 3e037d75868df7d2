// Scaling of quick plots of hosts.
#pragma once

namespace quilla {

// Process lifetime: start, end, first label and step of X and Y that QPLSCL gave.
struct QuickSetup {
  bool scaleGiven[2] = {};
  float scale[2][4] = {};
};

} // namespace quilla
