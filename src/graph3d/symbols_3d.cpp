// Symbols of three dimensions, their size and their turn, and arrows in space.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/projection.h"
#include "core/stop_request.h"
#include "graph2d/vectors.h"
#include "graph3d/facet_call.h"
#include "graph3d/solids.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kBall = 5, kLastSymbol = 5, kBallSegments = 32, kBallStripes = 16;
constexpr float kSymbolsOfBox = 20.0F; // without HSYM3D

// An arrow between two points of the box, as they appear on the page.
void drawArrow(PlotState* s, const BoxPoint& from, const BoxPoint& to, int code) {
  for (const float v : {from.x, from.y, from.z, to.x, to.y, to.z})
    if (!std::isfinite(v)) return;
  const BoxPoint a = transformedBox(s, from), b = transformedBox(s, to);
  const PagePoint p = pageOfBox(s, a.x, a.y, a.z), q = pageOfBox(s, b.x, b.y, b.z);
  drawVector(s, p.x, p.y, q.x, q.y, code);
}

// The longest vector is as long as a tenth of the box; 0 without vectors.
float vectorScale(const PlotState* s, const float* xv, const float* yv, const float* zv, std::size_t n) {
  constexpr float kLongest = 0.1F;
  float longest = 0.0F;
  for (std::size_t i = 0; i < n; i++) {
    const float length = std::hypot(xv[i], yv[i], zv[i]);
    if (length > longest && std::isfinite(length)) longest = length;
  }
  const float(&box)[3] = s->viewState.box;
  return longest > 0.0F ? kLongest * std::hypot(box[kAxisX], box[kAxisY], box[kAxisZ]) / longest : 0.0F;
}

} // namespace

void SYMB3D(int symbol, float x, float y, float z) {
  PlotState* s = solidCheck("sym3d");
  if (!s || checkRange(s, symbol, 0, kLastSymbol)) return;
  const float height = s->depth.symbolHeight;
  const float size = height > 0.0F ? boxLength(s, kAxisX, height) : s->viewState.box[kAxisX] / kSymbolsOfBox;
  const BoxPoint middle = boxOfUser(s, x, y, z);
  if (symbol == kBall) return drawBall(s, middle, size / 2.0F, kBallSegments, kBallStripes);
  // Edge of each solid as a part of its height.
  constexpr float kEdges[] = {1.0F, 1.225F, 0.707F, 0.357F, 0.526F};
  drawPlatonic(s, middle, symbol, kEdges[symbol] * size);
}

void HSYM3D(float height) {
  PlotState* s = setterCheck("hsym3d");
  if (!s) return;
  if (!(height > 0.0F)) return warnPlain(s, 2);
  s->depth.symbolHeight = height;
}

void ROT3D(float a, float b, float c) {
  PlotState* s = setterCheck("rot3d");
  if (!s) return;
  if (!std::isfinite(a) || !std::isfinite(b) || !std::isfinite(c)) return warnPlain(s, 2);
  s->depth.solidTurn[kAxisX] = a;
  s->depth.solidTurn[kAxisY] = b;
  s->depth.solidTurn[kAxisZ] = c;
}

void FIELD3D(const float* x1, const float* y1, const float* z1, const float* x2, const float* y2, const float* z2,
             int n, int code) {
  PlotState* s = boxCheck("field3d");
  if (!s || checkRange(s, n, 1, -1)) return;
  for (int i = 0; i < n && !stopRequested(); i++)
    drawArrow(s, boxOfUser(s, x1[i], y1[i], z1[i]), boxOfUser(s, x2[i], y2[i], z2[i]), code);
  flushPath(s);
}

void VECF3D(const float* xv, const float* yv, const float* zv, const float* xp, const float* yp, const float* zp, int n,
            int code) {
  PlotState* s = boxCheck("vecf3d");
  if (!s || checkRange(s, n, 1, -1)) return;
  const float scale = vectorScale(s, xv, yv, zv, static_cast<std::size_t>(n));
  for (int i = 0; i < n && !stopRequested(); i++) {
    const BoxPoint foot = boxOfUser(s, xp[i], yp[i], zp[i]);
    drawArrow(s, foot, {foot.x + scale * xv[i], foot.y + scale * yv[i], foot.z + scale * zv[i]}, code);
  }
  flushPath(s);
}

void VECMAT3D(const float* xmat, const float* ymat, const float* zmat, int n, int m, int l, const float* x,
              const float* y, const float* z, int code) {
  PlotState* s = boxCheck("vecmat3d");
  if (!s || checkRange(s, n, 1, -1) || checkRange(s, m, 1, -1) || checkRange(s, l, 1, -1)) return;
  const auto count = [](int k) { return static_cast<std::size_t>(k); };
  const float scale = vectorScale(s, xmat, ymat, zmat, count(n) * count(m) * count(l));
  std::size_t at = 0;
  for (int i = 0; i < n && !stopRequested(); i++) {
    for (int j = 0; j < m; j++) {
      for (int k = 0; k < l; k++, at++) {
        const BoxPoint foot = boxOfUser(s, x[i], y[j], z[k]);
        drawArrow(s, foot, {foot.x + scale * xmat[at], foot.y + scale * ymat[at], foot.z + scale * zmat[at]}, code);
      }
    }
  }
  flushPath(s);
}
