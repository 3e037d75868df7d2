// The polyline buffer of SVG and IPE, and what both drivers remember.
#pragma once

#include "core/plot_state.h"

namespace quilla {

inline constexpr int kVectorPathLimit = 100; // points of one polyline

struct VectorWriter {
  float vecX[kVectorPathLimit], vecY[kVectorPathLimit];
  int vecCount = 0;
  float vecLastX = 0.0F, vecLastY = 0.0F; // end of the polyline flushed last
  int group = 0;                          // SVG: the group that is open
  float strokeWidth = 1.0F;               // device units
  int red = 0, green = 0, blue = 0;       // current colour
  int fontRow = 0;
};

// Codes of vectorPolyline besides those of the pen.
enum VectorPathCode : int { kVectorBreak = 9 };

// Adds a point to the polyline (code 2), or hands it to `write` and starts the next one at the point (code 3);
// kVectorBreak makes room for another element. A full buffer is written and goes on from its last point.
template <class Write> void vectorPolyline(VectorWriter& v, float x, float y, int code, Write write) {
  if (code == 2) {
    if (v.vecCount == 0) {
      v.vecX[0] = v.vecLastX;
      v.vecY[0] = v.vecLastY;
      v.vecCount = 1;
    }
    const int n = v.vecCount;
    // The second point may equal the first: that is a line of no length.
    if (n > 1 && v.vecX[n - 1] == x && v.vecY[n - 1] == y) return;
    v.vecX[n] = x;
    v.vecY[n] = y;
    v.vecCount = n + 1;
    if (v.vecCount < kVectorPathLimit) return;
  }
  if (v.vecCount > 0) {
    v.vecLastX = v.vecX[v.vecCount - 1];
    v.vecLastY = v.vecY[v.vecCount - 1];
    if (v.vecCount > 1) write();
  }
  v.vecCount = 0;
  if (code == kVectorBreak) return;
  v.vecX[0] = v.vecLastX = x;
  v.vecY[0] = v.vecLastY = y;
  v.vecCount = 1;
}

} // namespace quilla
