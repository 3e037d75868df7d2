// Fields of vectors as arrows.
#include <algorithm>
#include <cmath>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/stop_request.h"
#include "graph2d/color_graph.h"
#include "graph2d/color_scale.h"
#include "graph2d/scaling.h"
#include "graph2d/vectors.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// A vector at a point, in user coordinates.
struct PlacedVector {
  float x, y, vx, vy;
  float size() const { return std::hypot(vx, vy); }
};

struct SizeRange {
  float least, most;
};

HeadShape headShape(const PlotState* s) { return {std::tan(s->vectors.headAngle * kDegToRad), s->vectors.headSize}; }

// Where a vector points on the page: the way of a short step along it. False if there is none.
bool pageDirection(const PlotState* s, const PlacedVector& v, PlotPoint& from, float& du, float& dv) {
  constexpr float kStep = 1.0e-3F; // of the axis
  const ScalingState& c = s->scaling;
  const float extent = std::min(c.userMaxX - c.userMinX, c.userMaxY - c.userMinY);
  const float step = kStep * extent / v.size();
  from = plotPoint(s, v.x, v.y);
  const PlotPoint to = plotPoint(s, v.x + step * v.vx, v.y + step * v.vy);
  const float length = std::hypot(to.x - from.x, to.y - from.y);
  du = (to.x - from.x) / length;
  dv = (to.y - from.y) / length;
  return std::isfinite(from.x) && std::isfinite(from.y) && std::isfinite(du) && std::isfinite(dv);
}

template <class Get> SizeRange rangeOf(std::ptrdiff_t n, Get get) {
  SizeRange r{0.0F, 0.0F};
  bool first = true;
  for (std::ptrdiff_t k = 0; k < n; k++) {
    const float size = get(k).size();
    if (!std::isfinite(size)) continue;
    r = first ? SizeRange{size, size} : SizeRange{std::min(r.least, size), std::max(r.most, size)};
    first = false;
  }
  return r;
}

void useArrowColor(PlotState* s, float size) {
  const int color = s->vectors.color == kVectorColorByLength ? colorOfValue(s, size) : s->vectors.color;
  if (color >= 0) useColor(s, color);
}

// Plot units of the longest arrow: as set, or so that arrows at even places would just meet.
float longestArrow(const PlotState* s, std::ptrdiff_t n) {
  if (s->vectors.length > 0.0F) return s->vectors.length;
  const double area = static_cast<double>(s->axis.axisLength[kAxisX]) * s->axis.axisLength[kAxisY];
  return static_cast<float>(std::sqrt(area / static_cast<double>(n)));
}

// Arrows from their points, as long as the vectors in proportion. get(k) gives vector k of n.
template <class Get> void drawArrows(PlotState* s, std::ptrdiff_t n, int code, Get get) {
  const SizeRange range = rangeOf(n, get);
  if (!(range.most > kTiny)) return;
  const float unit = longestArrow(s, n) * s->vectors.scale / range.most;
  const HeadShape head = headShape(s);
  const ColorScaleState scale = s->colorScale;
  if (!scale.barOpen) scaleOverRange(s, range.least, range.most);
  const Painter painter = beginPainting(s);
  for (std::ptrdiff_t k = 0; k < n && !stopRequested(); k++) {
    const PlacedVector v = get(k);
    PlotPoint from;
    float du = 0.0F, dv = 0.0F;
    if (!(v.size() > kTiny) || !pageDirection(s, v, from, du, dv)) continue;
    useArrowColor(s, v.size());
    const float length = unit * v.size();
    drawVector(s, from.x, from.y, from.x + length * du, from.y + length * dv, code, head);
  }
  endPainting(painter);
  s->colorScale = scale;
}

} // namespace

void VECFLD(const float* xv, const float* yv, const float* xp, const float* yp, int n, int code) {
  PlotState* s = strictCheck(2, 3, "vecfld");
  if (!s || checkRange(s, n, 1, -1)) return;
  drawArrows(s, n, code, [=](std::ptrdiff_t k) { return PlacedVector{xp[k], yp[k], xv[k], yv[k]}; });
}

void VECMAT(const float* xmat, const float* ymat, int n, int m, const float* x, const float* y, int code) {
  PlotState* s = strictCheck(2, 3, "vecmat");
  if (!s || checkRange(s, n, 1, -1) || checkRange(s, m, 1, -1)) return;
  drawArrows(s, static_cast<std::ptrdiff_t>(n) * m, code, [=](std::ptrdiff_t k) {
    return PlacedVector{x[k / m], y[k % m], xmat[k], ymat[k]};
  });
}

void FIELD(const float* x1, const float* y1, const float* x2, const float* y2, int n, int code) {
  PlotState* s = strictCheck(2, 3, "field");
  if (!s || checkRange(s, n, 1, -1)) return;
  auto vectorOf = [=](std::ptrdiff_t k) { return PlacedVector{x1[k], y1[k], x2[k] - x1[k], y2[k] - y1[k]}; };
  const SizeRange range = rangeOf(n, vectorOf);
  const HeadShape head = headShape(s);
  const ColorScaleState scale = s->colorScale;
  if (!scale.barOpen) scaleOverRange(s, range.least, range.most);
  const Painter painter = beginPainting(s);
  for (int k = 0; k < n && !stopRequested(); k++) {
    const PlotPoint p = plotPoint(s, x1[k], y1[k]), q = plotPoint(s, x2[k], y2[k]);
    if (!std::isfinite(p.x + p.y) || !std::isfinite(q.x + q.y)) continue;
    useArrowColor(s, vectorOf(k).size());
    drawVector(s, p.x, p.y, q.x, q.y, code, head);
  }
  endPainting(painter);
  s->colorScale = scale;
}
