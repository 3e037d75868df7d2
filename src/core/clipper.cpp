#include "core/clipper.h"

#include <cmath>

namespace quilla {

namespace {

// Code of a coordinate: 1 below the low edge, 2 inside, 3 above the high edge.
int edgeCode(double value, float low, float high) {
  if (value < static_cast<double>(low) - kClipTolerance) return 1;
  return value > static_cast<double>(high) + kClipTolerance ? 3 : 2;
}

struct Point {
  double x, y;
};

// Moves p to the next edge that it lies beyond; false if it lies inside.
bool cutAtEdge(const ClipBox& b, Point& p, const Point& other) {
  int codeX = edgeCode(p.x, b.x0, b.x1);
  if (codeX != 2) {
    double edge = codeX == 1 ? static_cast<double>(b.x0) : static_cast<double>(b.x1);
    p.y += (other.y - p.y) * ((edge - p.x) / (other.x - p.x));
    p.x = edge;
    return true;
  }
  int codeY = edgeCode(p.y, b.y0, b.y1);
  if (codeY == 2) return false;
  double edge = codeY == 1 ? static_cast<double>(b.y0) : static_cast<double>(b.y1);
  p.x += (other.x - p.x) * ((edge - p.y) / (other.y - p.y));
  p.y = edge;
  return true;
}

bool beyondOneEdge(const ClipBox& b, const Point& p, const Point& q) {
  int px = edgeCode(p.x, b.x0, b.x1), py = edgeCode(p.y, b.y0, b.y1);
  return (px != 2 && px == edgeCode(q.x, b.x0, b.x1)) || (py != 2 && py == edgeCode(q.y, b.y0, b.y1));
}

} // namespace

ClipResult clipSegment(const ClipBox& box, Segment& segment) {
  ClipResult hidden{false, false, false}, result{true, false, false};
  Point p{segment.x0, segment.y0}, q{segment.x1, segment.y1};
  if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(q.x) || !std::isfinite(q.y)) return hidden;
  // At most two edges are crossed at each end.
  for (int i = 0; i < 4; i++) {
    if (beyondOneEdge(box, p, q)) return hidden;
    if (cutAtEdge(box, p, q)) {
      result.firstMoved = true;
    } else if (cutAtEdge(box, q, p)) {
      result.secondMoved = true;
    } else {
      break;
    }
  }
  if (beyondOneEdge(box, p, q)) return hidden;
  segment = {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(q.x), static_cast<float>(q.y)};
  return result;
}

} // namespace quilla
