#include "graph2d/vectors.h"

#include <algorithm>
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

namespace quilla {
namespace {

enum HeadKind : int { kHeadOpen = 0, kHeadOutlined = 1, kHeadFilled = 2 };
constexpr int kHighestCode = 2992;
constexpr float kLengthUnit = 10.0F; // plot units

struct Head {
  int kind;
  float length, halfWidth;
};

bool hasHead(int code) { return code >= 0 && code <= kHighestCode && (code % 10 == 1 || code % 10 == 2); }

Head headOf(int code, float usualLength, float usualWidth) {
  const int x = code / 100 % 10, y = code / 10 % 10;
  const float length = y == 0 ? usualLength : static_cast<float>(y) * kLengthUnit;
  return {code / 1000, length, length * (x == 0 ? usualWidth : static_cast<float>(x) / 10.0F)};
}

// A head with its tip at (x, y) that points along the unit vector (u, v).
void drawHead(PlotState* s, const Head& h, float x, float y, float u, float v) {
  const float bx = x - u * h.length, by = y - v * h.length;
  const float px[] = {bx - v * h.halfWidth, x, bx + v * h.halfWidth};
  const float py[] = {by + u * h.halfWidth, y, by - u * h.halfWidth};
  if (h.kind == kHeadFilled) return fillSolid(s, px, py, 3);
  penMove(s, px[0], py[0]);
  penDraw(s, px[1], py[1]);
  penDraw(s, px[2], py[2]);
  if (h.kind == kHeadOutlined) penDraw(s, px[0], py[0]);
}

} // namespace

void drawVector(PlotState* s, float x1, float y1, float x2, float y2, int code, const HeadShape& usual) {
  penMove(s, x1, y1);
  penDraw(s, x2, y2);
  const float length = std::hypot(x2 - x1, y2 - y1);
  if (!hasHead(code) || !(length > 0.0F)) return;
  Head h = headOf(code, length * usual.length, usual.halfWidth);
  if (h.length > length) h = {h.kind, length, h.halfWidth / h.length * length};
  const float u = (x2 - x1) / length, v = (y2 - y1) / length;
  drawHead(s, h, x2, y2, u, v);
  if (code % 10 == 2) drawHead(s, h, x1, y1, -u, -v);
}

void drawVectorHead(PlotState* s, float x, float y, float u, float v, int code, float usualLength) {
  if (hasHead(code)) drawHead(s, headOf(code, usualLength, HeadShape{}.halfWidth), x, y, u, v);
}

} // namespace quilla

using namespace quilla;

void VECTOR(int nx1, int ny1, int nx2, int ny2, int code) {
  PlotState* s = strictCheck(1, 3, "vector");
  if (!s) return;
  drawVector(s, static_cast<float>(nx1), static_cast<float>(userY(s, ny1)), static_cast<float>(nx2),
             static_cast<float>(userY(s, ny2)), code);
  flushPath(s);
}

void RLVEC(float x1, float y1, float x2, float y2, int code) {
  PlotState* s = strictCheck(2, 3, "rlvec");
  if (!s) return;
  PlotPoint p = plotPoint(s, x1, y1), q = plotPoint(s, x2, y2);
  drawVector(s, p.x, p.y, q.x, q.y, code);
  flushPath(s);
}
