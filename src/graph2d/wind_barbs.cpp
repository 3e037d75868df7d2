// Wind barbs, the signs of weather maps.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kHalfBarb = 5, kBarb = 10, kPennant = 50; // knots
constexpr float kSpacing = 0.12F;                       // between barbs, as a part of the staff
constexpr float kBarbLength = 0.4F;                     // of the staff
constexpr float kSlant = 0.12F;                         // by which the outer end of a barb leans outwards
constexpr float kMostKnots = 1000.0F;
constexpr int kCalmChords = 24;

// Points of a barb in the frame of its staff: from the place outwards, and to the side of the barbs.
struct Staff {
  PlotState* s;
  float x, y, length, c, d;

  PlotPoint at(float out, float side) const {
    const float u = out * length, v = side * length;
    return {x + u * c + v * d, y - u * d + v * c};
  }
  void line(float out, float side, float out2, float side2) const {
    const PlotPoint p = at(out, side), q = at(out2, side2);
    penMove(s, p.x, p.y);
    penDraw(s, q.x, q.y);
  }
  void pennant(float out) const {
    const PlotPoint a = at(out, 0.0F), b = at(out - kSpacing / 2.0F, kBarbLength), e = at(out - kSpacing, 0.0F);
    const float px[] = {a.x, b.x, e.x}, py[] = {a.y, b.y, e.y};
    fillSolid(s, px, py, 3);
  }
};

void drawCalm(const Staff& staff) {
  constexpr float kRadius = 0.12F, kWholeTurn = 6.2831853F;
  for (int i = 0; i <= kCalmChords; i++) {
    const float angle = kWholeTurn * static_cast<float>(i) / kCalmChords;
    const PlotPoint p = staff.at(kRadius * std::cos(angle), kRadius * std::sin(angle));
    if (i == 0) {
      penMove(staff.s, p.x, p.y);
    } else {
      penDraw(staff.s, p.x, p.y);
    }
  }
}

// The staff points to where the wind comes from; the barbs stand on its clockwise side, the greatest outside.
void drawBarb(PlotState* s, float knots, float x, float y, int size, float direction) {
  constexpr float kDegree = 0.017453292F, kQuarter = 90.0F;
  if (!(knots >= 0.0F) || !std::isfinite(direction) || !std::isfinite(x) || !std::isfinite(y)) return warnPlain(s, 2);
  const float angle = (kQuarter - direction) * kDegree;
  const Staff staff{s, x, y, static_cast<float>(size), std::cos(angle), std::sin(angle)};
  int left = static_cast<int>(std::fmin(knots, kMostKnots) / kHalfBarb + 0.5F) * kHalfBarb;
  if (left == 0) return drawCalm(staff);
  staff.line(0.0F, 0.0F, 1.0F, 0.0F);
  float out = left < kBarb ? 1.0F - kSpacing : 1.0F; // a single half barb stands away from the end
  for (; left >= kPennant; left -= kPennant, out -= kSpacing) staff.pennant(out);
  for (; left >= kBarb; left -= kBarb, out -= kSpacing) staff.line(out, 0.0F, out + kSlant, kBarbLength);
  if (left > 0) staff.line(out, 0.0F, out + kSlant / 2.0F, kBarbLength / 2.0F);
}

} // namespace

void WINDBR(float knots, int nx, int ny, int size, float direction) {
  PlotState* s = strictCheck(1, 3, "windbr");
  if (!s || checkRange(s, size, 1, -1)) return;
  drawBarb(s, knots, static_cast<float>(nx), static_cast<float>(userY(s, ny)), size, direction);
  flushPath(s);
}

void RLWIND(float knots, float x, float y, int size, float direction) {
  PlotState* s = strictCheck(2, 3, "rlwind");
  if (!s || checkRange(s, size, 1, -1)) return;
  PlotPoint p = plotPoint(s, x, y);
  drawBarb(s, knots, p.x, p.y, size, direction);
  flushPath(s);
}
