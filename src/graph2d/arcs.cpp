// Public routines of arcs, sectors and rounded rectangles.
#include <algorithm>
#include <cmath>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "graph2d/area.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kCornerChords = 24; // of a rounded corner
constexpr int kRoundedSteps = 9;  // of RNDREC
constexpr float kDegree = 0.017453292F;
constexpr float kWholeTurn = 360.0F;

struct Outline {
  float x[2 * (kMostChords + 1) + 1], y[2 * (kMostChords + 1) + 1];
  int n = 0;
};

void add(Outline& o, float x, float y) {
  o.x[o.n] = x;
  o.y[o.n++] = y;
}

// Chords of an arc of a radius in plot units, from an angle to a later one, in degrees.
int chordsOf(const PlotState* s, float radius, float from, float to) {
  const int turn = chordsOfTurn(s, radius);
  const float part = (to - from) / kWholeTurn * static_cast<float>(turn);
  return std::clamp(static_cast<int>(std::ceil(part)), 1, turn);
}

// Points of a circle's arc, anticlockwise or back, in equal steps of the angle.
void addArc(Outline& o, float cx, float cy, float r, float from, float to, int chords) {
  for (int i = 0; i <= chords; i++) {
    const float angle = (from + (to - from) * static_cast<float>(i) / static_cast<float>(chords)) * kDegree;
    add(o, cx + r * std::cos(angle), cy - r * std::sin(angle));
  }
}

// The end of an arc behind its begin, at most a turn away. Angles of a script may be anything.
float endBehind(float from, float to) {
  if (!std::isfinite(from) || !std::isfinite(to)) return from;
  const float turn = std::fmod(to - from, kWholeTurn);
  return from + (turn > 0.0F ? turn : turn + kWholeTurn);
}

float middleX(int nx) { return static_cast<float>(nx); }
float middleY(const PlotState* s, int ny) { return static_cast<float>(userY(s, ny)); }

void paint(PlotState* s, const Outline& o) {
  const int color = s->color.currentColor;
  drawArea(s, o.x, o.y, o.n, color, color);
  flushPath(s);
}

struct Ellipse {
  float x, y, a, b;
};

void drawArc(PlotState* s, const Ellipse& e, float from, float to, float turn) {
  const float end = endBehind(from, to), c = std::cos(turn * kDegree), d = std::sin(turn * kDegree);
  const int chords = chordsOf(s, std::fmax(e.a, e.b), from, end);
  for (int i = 0; i <= chords; i++) {
    const float angle = (from + (end - from) * static_cast<float>(i) / static_cast<float>(chords)) * kDegree;
    const float u = e.a * std::cos(angle), v = e.b * std::sin(angle);
    const float x = e.x + u * c - v * d, y = e.y - (u * d + v * c);
    if (i == 0) {
      penMove(s, x, y);
    } else {
      penDraw(s, x, y);
    }
  }
}

void drawSlice(PlotState* s, float x, float y, float r, float from, float to) {
  const float end = endBehind(from, to);
  Outline o;
  if (end - from < kWholeTurn) add(o, x, y);
  addArc(o, x, y, r, from, end, chordsOf(s, r, from, end));
  paint(s, o);
}

void fillSector(PlotState* s, float x, float y, float r1, float r2, float from, float to, int color) {
  const float end = endBehind(from, to);
  const int chords = chordsOf(s, r2, from, end);
  Outline o;
  addArc(o, x, y, r2, from, end, chords);
  if (r1 == 0.0F) {
    add(o, x, y);
  } else {
    addArc(o, x, y, r1, end, from, chords);
  }
  flushPath(s);
  const int kept = s->color.currentColor;
  if (color >= 0) setColor(s, color);
  fillSolid(s, o.x, o.y, o.n);
  setColor(s, kept);
}

void drawRounded(PlotState* s, float left, float top, float right, float bottom, int rounding) {
  const float r = std::min(right - left, bottom - top) / 2.0F * static_cast<float>(rounding) / kRoundedSteps;
  const float cx[] = {right - r, left + r, left + r, right - r}, cy[] = {top + r, top + r, bottom - r, bottom - r};
  Outline o;
  for (int k = 0; k < 4; k++) {
    const float from = 90.0F * static_cast<float>(k);
    addArc(o, cx[k], cy[k], r, from, from + 90.0F, rounding == 0 ? 1 : kCornerChords);
  }
  paint(s, o);
}

// Lengths of a script that an axis turns into plot units.
float alongX(const PlotState* s, float length) { return length * std::fabs(s->scaling.axisFactorX); }
float alongY(const PlotState* s, float length) { return length * std::fabs(s->scaling.axisFactorY); }

} // namespace

void ARCELL(int nx, int ny, int na, int nb, float from, float to, float turn) {
  PlotState* s = strictCheck(1, 3, "arcell");
  if (!s || checkRange(s, std::min(na, nb), 1, -1)) return;
  drawArc(s, {middleX(nx), middleY(s, ny), static_cast<float>(na), static_cast<float>(nb)}, from, to, turn);
}

void RLARC(float x, float y, float a, float b, float from, float to, float turn) {
  PlotState* s = strictCheck(2, 3, "rlarc");
  if (!s) return;
  if (!(a > 0.0F && b > 0.0F)) return warnPlain(s, 2);
  PlotPoint p = plotPoint(s, x, y);
  drawArc(s, {p.x, p.y, alongX(s, a), alongY(s, b)}, from, to, turn);
}

void PIE(int nx, int ny, int nr, float from, float to) {
  PlotState* s = strictCheck(1, 3, "pie");
  if (!s || checkRange(s, nr, 1, -1)) return;
  drawSlice(s, middleX(nx), middleY(s, ny), static_cast<float>(nr), from, to);
}

void RLPIE(float x, float y, float r, float from, float to) {
  PlotState* s = strictCheck(2, 3, "rlpie");
  if (!s) return;
  if (!(r > 0.0F)) return warnPlain(s, 2);
  PlotPoint p = plotPoint(s, x, y);
  drawSlice(s, p.x, p.y, alongX(s, r), from, to);
}

void SECTOR(int nx, int ny, int nr1, int nr2, float from, float to, int color) {
  PlotState* s = strictCheck(1, 3, "sector");
  if (!s) return;
  if (nr1 < 0 || nr2 < 1) return warnWithNumber(s, 51, std::min(nr1, nr2));
  if (nr1 > nr2) return warnPlain(s, 7);
  if (!(from < to)) return warnPlain(s, 8);
  if (checkRange(s, color, -1, -2)) return;
  fillSector(s, middleX(nx), middleY(s, ny), static_cast<float>(nr1), static_cast<float>(nr2), from, to, color);
}

void RLSEC(float x, float y, float r1, float r2, float from, float to, int color) {
  PlotState* s = strictCheck(2, 3, "rlsec");
  if (!s) return;
  if (!(r1 >= 0.0F && r2 > 0.0F)) return warnPlain(s, 51);
  if (r1 > r2) return warnPlain(s, 7);
  if (!(from < to)) return warnPlain(s, 8);
  if (checkRange(s, color, -1, -2)) return;
  PlotPoint p = plotPoint(s, x, y);
  fillSector(s, p.x, p.y, alongX(s, r1), alongX(s, r2), from, to, color);
}

void RNDREC(int nx, int ny, int nw, int nh, int rounding) {
  PlotState* s = strictCheck(1, 3, "rndrec");
  if (!s || checkRange(s, std::min(nw, nh), 1, -1) || checkRange(s, rounding, 0, kRoundedSteps)) return;
  const float left = middleX(nx), top = middleY(s, ny);
  drawRounded(s, left, top, left + static_cast<float>(nw) - 1.0F, top + static_cast<float>(nh) - 1.0F, rounding);
}

void RLRND(float x, float y, float width, float height, int rounding) {
  PlotState* s = strictCheck(2, 3, "rlrnd");
  if (!s || checkRange(s, rounding, 0, kRoundedSteps)) return;
  PlotPoint p = plotPoint(s, x, y), q = plotPoint(s, x + width, y - height);
  drawRounded(s, std::fmin(p.x, q.x), std::fmin(p.y, q.y), std::fmax(p.x, q.x), std::fmax(p.y, q.y), rounding);
}
