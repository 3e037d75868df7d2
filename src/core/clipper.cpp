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

bool fromSideToSide(const ClipBox& b, const Segment& segment) {
  int first = edgeCode(static_cast<double>(segment.x0), b.x0, b.x1);
  int second = edgeCode(static_cast<double>(segment.x1), b.x0, b.x1);
  return first != second && first != 2 && second != 2;
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

ClipResult clipSegment(const ClipCircle& circle, Segment& segment) {
  ClipResult hidden{false, false, false};
  // The segment is p + t d, t from 0 to 1; on the circle a t^2 + 2 b t + c = 0.
  double px = static_cast<double>(segment.x0) - circle.x, py = static_cast<double>(segment.y0) - circle.y;
  double dx = static_cast<double>(segment.x1) - segment.x0, dy = static_cast<double>(segment.y1) - segment.y0;
  double a = dx * dx + dy * dy, b = px * dx + py * dy, radius = static_cast<double>(circle.radius);
  if (!std::isfinite(a) || !std::isfinite(b)) return hidden;
  bool first = insideCircle(circle, segment.x0, segment.y0), second = insideCircle(circle, segment.x1, segment.y1);
  if (first && second) return {true, false, false};
  double discriminant = b * b - a * (px * px + py * py - radius * radius);
  if (a == 0.0 || !(discriminant > 0.0)) return hidden;
  double root = std::sqrt(discriminant), enter = (-b - root) / a, leave = (-b + root) / a;
  if (first) enter = 0.0;
  if (second) leave = 1.0;
  // Both ends outside: the piece is visible only if the line meets the circle between them.
  if (enter >= leave || enter >= 1.0 || leave <= 0.0) return hidden;
  float x0 = segment.x0, y0 = segment.y0;
  auto at = [](float from, double step, double t) { return static_cast<float>(static_cast<double>(from) + step * t); };
  if (!first) {
    segment.x0 = at(x0, dx, enter);
    segment.y0 = at(y0, dy, enter);
  }
  if (!second) {
    segment.x1 = at(x0, dx, leave);
    segment.y1 = at(y0, dy, leave);
  }
  return {true, !first, !second};
}

ClipResult clipSegment(const ClipRegion& region, Segment& segment) {
  ClipResult hidden{false, false, false};
  if (region.dropAcross && fromSideToSide(region.box, segment)) return hidden;
  ClipResult result = clipSegment(region.box, segment);
  if (!result.visible || !region.round) return result;
  if (region.wholeOnly) {
    bool whole =
        insideCircle(region.circle, segment.x0, segment.y0) && insideCircle(region.circle, segment.x1, segment.y1);
    return whole ? result : hidden;
  }
  ClipResult cut = clipSegment(region.circle, segment);
  return {cut.visible, result.firstMoved || cut.firstMoved, result.secondMoved || cut.secondMoved};
}

} // namespace quilla
