// Clipping of segments at a rectangle, in plot units.
#pragma once

namespace quilla {

// A point this far outside an edge still counts as inside.
inline constexpr float kClipTolerance = 0.001F;

struct ClipBox {
  float x0, y0, x1, y1;
};

struct Segment {
  float x0, y0, x1, y1;
};

struct ClipResult {
  bool visible;
  bool firstMoved, secondMoved;
};

inline bool insideBox(const ClipBox& b, float x, float y) {
  return x >= b.x0 - kClipTolerance && x <= b.x1 + kClipTolerance && y >= b.y0 - kClipTolerance &&
         y <= b.y1 + kClipTolerance;
}

// Cuts the segment to the box. A segment with a coordinate that is no finite number is not visible.
ClipResult clipSegment(const ClipBox& box, Segment& segment);

} // namespace quilla
