// Clipping of segments at a rectangle and at a circle inside it, in plot units.
#pragma once

namespace quilla {

// A point this far outside an edge still counts as inside.
inline constexpr float kClipTolerance = 0.001F;

struct ClipBox {
  float x0, y0, x1, y1;
};

struct ClipCircle {
  float x, y, radius;
};

struct ClipRegion {
  ClipBox box;
  bool round; // the circle cuts too
  ClipCircle circle;
  bool dropAcross = false; // a segment from beyond the left edge to beyond the right one is not drawn, nor back
  bool wholeOnly = false;  // the circle does not cut: a segment that leaves it is not drawn
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

inline bool insideCircle(const ClipCircle& c, float x, float y) {
  float dx = x - c.x, dy = y - c.y, reach = c.radius + kClipTolerance;
  return dx * dx + dy * dy <= reach * reach;
}

inline bool insideRegion(const ClipRegion& r, float x, float y) {
  return insideBox(r.box, x, y) && (!r.round || insideCircle(r.circle, x, y));
}

// Cut the segment. One with a coordinate that is no finite number is not visible.
ClipResult clipSegment(const ClipBox& box, Segment& segment);
ClipResult clipSegment(const ClipCircle& circle, Segment& segment);
ClipResult clipSegment(const ClipRegion& region, Segment& segment);

} // namespace quilla
