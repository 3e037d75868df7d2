// Public routines of filled and outlined shapes.
#include "graph2d/area.h"

#include <cmath>
#include <memory>
#include <new>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/sink.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

constexpr int kOnStack = 64;

// Points of a polygon: on the stack for a few, else allocated; message 53 if that fails.
struct PointBuffer {
  float few[2 * kOnStack];
  std::unique_ptr<float[]> many;
  float *x = nullptr, *y = nullptr;

  bool reserve(PlotState* s, int n) {
    float* memory = few;
    if (n > kOnStack) {
      many.reset(new (std::nothrow) float[2 * static_cast<std::size_t>(n)]);
      memory = many.get();
      if (!memory) {
        warnPlain(s, 53);
        return false;
      }
    }
    x = memory;
    y = memory + n;
    return true;
  }
};

// In the current colour.
void drawShape(PlotState* s, const float* x, const float* y, int n) {
  drawArea(s, x, y, n, s->color.currentColor, s->color.currentColor);
  flushPath(s);
}

// Points along an arc of an ellipse, angles in radians anticlockwise.
void arcPoints(PointBuffer& p, float cx, float cy, float a, float b, float from, float to, int n) {
  for (int i = 0; i < n; i++) {
    float angle = from + (to - from) * static_cast<float>(i) / static_cast<float>(n - 1);
    p.x[i] = cx + a * std::cos(angle);
    p.y[i] = cy - b * std::sin(angle);
  }
}

bool positivePair(PlotState* s, int a, int b) { return !checkRange(s, a, 1, -1) && !checkRange(s, b, 1, -1); }

void ellipse(PlotState* s, float cx, float cy, float a, float b) {
  PointBuffer p;
  const int n = chordsOfTurn(s, std::fmax(a, b)) + 1;
  if (!p.reserve(s, n)) return;
  arcPoints(p, cx, cy, a, b, 0.0F, 2.0F * kPi, n);
  drawShape(s, p.x, p.y, n);
}

// A rectangle of a size in plot units, by its upper left corner, in a colour or, for -1, the current one.
void fillRectangle(PlotState* s, float x, float y, int nw, int nh, int color) {
  flushPath(s);
  float right = x + static_cast<float>(nw) - 1.0F, bottom = y + static_cast<float>(nh) - 1.0F;
  int paint = color == -1 ? s->color.currentColor : color;
  if (!s->transform.transformOn && s->shield.shieldCount == 0 && qqbar(s, x, y, right, bottom, paint)) return;
  int kept = s->color.currentColor;
  const float xs[] = {x, right, right, x}, ys[] = {y, y, bottom, bottom};
  setColor(s, paint);
  fillSolid(s, xs, ys, 4);
  setColor(s, kept);
}

// Both curves need logarithms where the axes ask for them.
bool curveFits(PlotState* s, const float* x, const float* y, int n) {
  for (int i = 0; i < n; i++) {
    if ((s->axis.axisLogScale[kAxisY] != 0 && y[i] <= 0.0F) || (s->axis.axisLogScale[kAxisX] != 0 && x[i] <= 0.0F)) {
      if (s->axis.negativeLogOn) return true;
      warnPlain(s, 27);
      return false;
    }
  }
  return true;
}

} // namespace

} // namespace quilla

using namespace quilla;

void AREAF(const int* nx, const int* ny, int n) {
  PlotState* s = strictCheck(1, 3, "areaf");
  if (!s || checkRange(s, n, 1, -1)) return;
  PointBuffer p;
  if (!p.reserve(s, n)) return;
  for (int i = 0; i < n; i++) {
    p.x[i] = static_cast<float>(nx[i]);
    p.y[i] = userY(s, static_cast<float>(ny[i]));
  }
  drawShape(s, p.x, p.y, n);
}

void RLAREA(const float* x, const float* y, int n) {
  PlotState* s = strictCheck(2, 3, "rlarea");
  if (!s || checkRange(s, n, 1, -1)) return;
  PointBuffer p;
  if (!p.reserve(s, n)) return;
  for (int i = 0; i < n; i++) {
    PlotPoint point = plotPoint(s, x[i], y[i]);
    p.x[i] = point.x;
    p.y[i] = point.y;
  }
  drawShape(s, p.x, p.y, n);
}

void SHDCRV(const float* x1, const float* y1, int n1, const float* x2, const float* y2, int n2) {
  constexpr int kMostPoints = 1 << 29;
  PlotState* s = strictCheck(2, 3, "shdcrv");
  if (!s || checkRange(s, n1, 1, kMostPoints) || checkRange(s, n2, 1, kMostPoints)) return;
  if (!curveFits(s, x1, y1, n1) || !curveFits(s, x2, y2, n2)) return;
  PointBuffer p;
  if (!p.reserve(s, n1 + n2)) return;
  for (int i = 0; i < n1 + n2; i++) {
    // The first curve forward, the second one back.
    int k = n1 + n2 - 1 - i;
    PlotPoint point = i < n1 ? plotPoint(s, x1[i], y1[i]) : plotPoint(s, x2[k], y2[k]);
    p.x[i] = point.x;
    p.y[i] = point.y;
  }
  axisClipOn(s);
  drawShape(s, p.x, p.y, n1 + n2);
  axisClipOff(s);
}

void RECTAN(int nx, int ny, int nw, int nh) {
  PlotState* s = strictCheck(1, 3, "rectan");
  if (!s || !positivePair(s, nw, nh)) return;
  float x = static_cast<float>(nx), y = static_cast<float>(userY(s, ny));
  float right = x + static_cast<float>(nw) - 1.0F, bottom = y + static_cast<float>(nh) - 1.0F;
  const float xs[] = {x, right, right, x}, ys[] = {y, y, bottom, bottom};
  drawShape(s, xs, ys, 4);
}

void RECFLL(int nx, int ny, int nw, int nh, int color) {
  PlotState* s = strictCheck(1, 3, "recfll");
  if (!s || !positivePair(s, nw, nh) || checkRange(s, color, -1, -2)) return;
  fillRectangle(s, static_cast<float>(nx), static_cast<float>(userY(s, ny)), nw, nh, color);
}

void POINT(int nx, int ny, int nb, int nh, int color) {
  PlotState* s = strictCheck(1, 3, "point");
  if (!s || !positivePair(s, nb, nh) || checkRange(s, color, -1, -2)) return;
  float y = static_cast<float>(userY(s, addCoordinates(ny, -(nh / 2))));
  fillRectangle(s, static_cast<float>(addCoordinates(nx, -(nb / 2))), y, nb, nh, color);
}

void RLPOIN(float x, float y, int nb, int nh, int color) {
  PlotState* s = strictCheck(2, 3, "rlpoin");
  if (!s || !positivePair(s, nb, nh) || checkRange(s, color, -1, -2)) return;
  PlotPoint p = plotPoint(s, x, y);
  fillRectangle(s, p.x - static_cast<float>(nb / 2), p.y - static_cast<float>(nh / 2), nb, nh, color);
}

void CIRCLE(int nx, int ny, int radius) {
  PlotState* s = strictCheck(1, 3, "circle");
  if (!s || checkRange(s, radius, 1, -1)) return;
  float r = static_cast<float>(radius);
  ellipse(s, static_cast<float>(nx), static_cast<float>(userY(s, ny)), r, r);
}

void ELLIPS(int nx, int ny, int na, int nb) {
  PlotState* s = strictCheck(1, 3, "ellips");
  if (!s || !positivePair(s, na, nb)) return;
  ellipse(s, static_cast<float>(nx), static_cast<float>(userY(s, ny)), static_cast<float>(na), static_cast<float>(nb));
}

void RLREC(float x, float y, float width, float height) {
  PlotState* s = strictCheck(2, 3, "rlrec");
  if (!s) return;
  PlotPoint a = plotPoint(s, x, y), b = plotPoint(s, x + width, y - height);
  const float xs[] = {a.x, b.x, b.x, a.x}, ys[] = {a.y, a.y, b.y, b.y};
  drawShape(s, xs, ys, 4);
}

void RLCIRC(float x, float y, float radius) {
  PlotState* s = strictCheck(2, 3, "rlcirc");
  if (!s) return;
  if (!(radius > 0.0F)) return warnPlain(s, 2);
  PlotPoint p = plotPoint(s, x, y);
  float r = radius * std::fabs(s->scaling.axisFactorX);
  ellipse(s, p.x, p.y, r, r);
}

void RLELL(float x, float y, float a, float b) {
  PlotState* s = strictCheck(2, 3, "rlell");
  if (!s) return;
  if (!(a > 0.0F && b > 0.0F)) return warnPlain(s, 2);
  PlotPoint p = plotPoint(s, x, y);
  ellipse(s, p.x, p.y, a * std::fabs(s->scaling.axisFactorX), b * std::fabs(s->scaling.axisFactorY));
}
