// Lines of four pixels and more: a polygon for each segment, joined at the corners, with ends of their own.
#include <cmath>
#include <initializer_list>

#include "raster/areas.h"
#include "raster/painter.h"

namespace quilla {
namespace {

constexpr float kQuarterTurn = 1.570796F;

struct Spot {
  float x, y;
};

struct Segment {
  Spot from, to;
  Spot along; // unit vector
  Spot side;  // half the width, along the normal
};

Spot plus(Spot a, Spot b, float times = 1.0F) { return {a.x + times * b.x, a.y + times * b.y}; }

Segment segmentOf(Spot from, Spot to, float half) {
  const float dx = to.x - from.x, dy = to.y - from.y;
  const float angle = dx == 0.0F ? (dy < 0.0F ? -kQuarterTurn : kQuarterTurn) : std::atan2(dy, dx);
  const Spot along = {std::cos(angle), std::sin(angle)};
  return {from, to, along, {along.y * half, -along.x * half}};
}

void fillSpots(RasterCanvas& canvas, const Spot* spots, int n) {
  constexpr int kMostCorners = 4;
  float xs[kMostCorners], ys[kMostCorners];
  for (int i = 0; i < n; ++i) {
    xs[i] = spots[i].x;
    ys[i] = spots[i].y;
  }
  fillArea(canvas, xs, ys, n);
}

void fillSegment(RasterCanvas& canvas, const Segment& s) {
  const Spot corners[] = {plus(s.from, s.side), plus(s.to, s.side), plus(s.to, s.side, -1.0F),
                          plus(s.from, s.side, -1.0F)};
  fillSpots(canvas, corners, 4);
}

// The corner where two segments meet. A sharp one whose tip would lie too far out is cut off.
void joinSegments(RasterCanvas& canvas, const Segment& in, const Segment& out) {
  const Spot joint = out.from;
  const float half = static_cast<float>(canvas.lineWidth) * 0.5F;
  if (canvas.lineJoin == kCanvasJoinRound)
    return fillDisc(canvas, static_cast<int>(joint.x), static_cast<int>(joint.y), half);
  const float cosine = in.along.x * out.along.x + in.along.y * out.along.y;
  const float sineOfHalf = std::sqrt(std::fmax(0.0F, (1.0F + cosine) * 0.5F));
  const bool sharp = canvas.lineJoin == kCanvasJoinSharp && sineOfHalf * canvas.lineMiter >= 1.0F;
  for (float sign : {1.0F, -1.0F}) {
    const Spot a = plus(joint, in.side, sign), b = plus(joint, out.side, sign);
    // The edges meet on the line that halves the corner.
    const Spot tip = plus(plus(joint, in.side, sign / (1.0F + cosine)), out.side, sign / (1.0F + cosine));
    const Spot corners[] = {joint, a, sharp ? tip : b, b};
    fillSpots(canvas, corners, sharp ? 4 : 3);
  }
}

// Ends of an open line: round, or longer by half the width.
void fillEnd(RasterCanvas& canvas, Spot end, Spot outwards) {
  const float half = static_cast<float>(canvas.lineWidth) * 0.5F;
  if (canvas.lineCap == kCanvasCapRound) fillDisc(canvas, static_cast<int>(end.x), static_cast<int>(end.y), half);
  if (canvas.lineCap == kCanvasCapLong) fillSegment(canvas, segmentOf(end, plus(end, outwards, half), half));
}

} // namespace

void thickPolyline(RasterCanvas& canvas, const int* x, const int* y, int n) {
  const float half = static_cast<float>(canvas.lineWidth) * 0.5F;
  auto spot = [x, y](int i) { return Spot{static_cast<float>(x[i]), static_cast<float>(y[i])}; };
  const bool closed = n > 2 && x[0] == x[n - 1] && y[0] == y[n - 1];
  const Segment first = segmentOf(spot(0), spot(1), half);
  Segment last = first;
  fillSegment(canvas, first);
  for (int i = 2; i < n; ++i) {
    const Segment next = segmentOf(spot(i - 1), spot(i), half);
    fillSegment(canvas, next);
    joinSegments(canvas, last, next);
    last = next;
  }
  if (closed) return joinSegments(canvas, last, first);
  fillEnd(canvas, first.from, {-first.along.x, -first.along.y});
  fillEnd(canvas, last.to, last.along);
}

} // namespace quilla
