// Quadrilaterals and triangles of a colour graph.
#include <algorithm>
#include <cmath>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph2d/color_graph.h"
#include "graph2d/color_scale.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kCorners = 3, kMostCorners = 5; // of a triangle, and of what two cuts leave of it
constexpr int kQuad = 4;

struct Vertex {
  float x, y;
  double place; // on the scale of colours
};

void fillIn(PlotState* s, const float* x, const float* y, int n, int color) {
  if (color == kNoColor) return;
  useColor(s, color);
  fillSolid(s, x, y, n);
}

// The part of a convex polygon whose places lie on one side of a bound: not below it, or not above it. Returns its
// corners (I. Sutherland, G. Hodgman, 1974).
int cutAt(const Vertex* in, int n, double bound, bool above, Vertex* out) {
  auto inside = [&](const Vertex& v) { return above ? v.place >= bound : v.place <= bound; };
  int count = 0;
  for (int i = 0; i < n; i++) {
    const Vertex &a = in[i], &b = in[(i + 1) % n];
    if (inside(a)) out[count++] = a;
    if (inside(a) == inside(b)) continue;
    const double t = (bound - a.place) / (b.place - a.place);
    out[count++] = {static_cast<float>(a.x + t * (b.x - a.x)), static_cast<float>(a.y + t * (b.y - a.y)), bound};
  }
  return count;
}

// The band of a triangle between two places, in one colour.
void fillBand(PlotState* s, const Vertex (&t)[kCorners], double from, double to) {
  Vertex first[kMostCorners], second[kMostCorners + 1];
  const int left = cutAt(t, kCorners, from, true, first), n = cutAt(first, left, to, false, second);
  float x[kMostCorners + 1], y[kMostCorners + 1];
  for (int i = 0; i < n; i++) {
    x[i] = second[i].x;
    y[i] = second[i].y;
  }
  if (n >= 3) fillIn(s, x, y, n, colorOfPlace(s, (from + to) / 2.0));
}

// Between the corners colours run in steps of one: each band of a colour is a polygon.
void fillTriangle(PlotState* s, const Vertex (&t)[kCorners]) {
  const ColorScaleState& c = s->colorScale;
  const double least = std::min({t[0].place, t[1].place, t[2].place});
  const double most = std::max({t[0].place, t[1].place, t[2].place});
  const double low = std::min(c.low, c.high + 1), high = std::max(c.low, c.high + 1);
  if (least < low) fillBand(s, t, least, std::min(most, low));
  for (double k = std::floor(std::max(least, low)); k < std::min(most, high) || (k == least && k == most); k++)
    fillBand(s, t, std::max(k, least), std::min(k + 1.0, most));
  if (most > high) fillBand(s, t, std::max(least, high), most);
}

bool vertexOf(const PlotState* s, float x, float y, float z, Vertex& v) {
  constexpr double kFar = 1.0e6; // beyond every colour
  const PlotPoint p = plotPoint(s, x, y);
  const double place = placeOnScale(s, z);
  v = {p.x, p.y, std::clamp(place, -kFar, kFar)};
  return std::isfinite(p.x) && std::isfinite(p.y) && !std::isnan(place);
}

} // namespace

void CRVQDR(const float* x, const float* y, const float* z, int n) {
  PlotState* s = colorGraph("crvqdr");
  if (!s || checkRange(s, n, kQuad, -1)) return;
  const Painter painter = beginPainting(s);
  for (int i = 0; i <= n - kQuad && !stopRequested(); i += kQuad) {
    float px[kQuad], py[kQuad];
    double sum = 0.0;
    bool finite = true;
    for (int k = 0; k < kQuad; k++) {
      const PlotPoint p = plotPoint(s, x[i + k], y[i + k]);
      px[k] = p.x;
      py[k] = p.y;
      sum += static_cast<double>(z[i + k]);
      finite = finite && std::isfinite(p.x) && std::isfinite(p.y);
    }
    if (finite) fillIn(s, px, py, kQuad, colorOfValue(s, static_cast<float>(sum / kQuad)));
  }
  endPainting(painter);
}

void CRVTRI(const float* x, const float* y, const float* z, int n, const int* i1, const int* i2, const int* i3,
            int ntri) {
  PlotState* s = colorGraph("crvtri");
  if (!s || checkRange(s, n, kCorners, -1) || checkRange(s, ntri, 1, -1)) return;
  const Painter painter = beginPainting(s);
  for (int k = 0; k < ntri && !stopRequested(); k++) {
    const int corners[kCorners] = {i1[k], i2[k], i3[k]};
    Vertex t[kCorners];
    bool good = true;
    for (int c = 0; c < kCorners && good; c++) {
      good = !checkRange(s, corners[c], 1, n);
      if (good) good = vertexOf(s, x[corners[c] - 1], y[corners[c] - 1], z[corners[c] - 1], t[c]);
    }
    if (good) fillTriangle(s, t);
  }
  endPainting(painter);
}

void TRIFLL(const float* x, const float* y) {
  PlotState* s = strictCheck(1, 3, "trifll");
  if (!s) return;
  float py[kCorners];
  for (int i = 0; i < kCorners; i++) py[i] = userY(s, y[i]);
  fillSolid(s, x, py, kCorners);
}
