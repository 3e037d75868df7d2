#include "core/projection.h"

namespace quilla {

ClipPoint clipSpace(const PlotState* s, float x, float y, float z) {
  const float(&m)[4][4] = s->viewState.matrix;
  return {m[0][0] * x + m[0][1] * y + m[0][2] * z + m[0][3], m[1][0] * x + m[1][1] * y + m[1][2] * z + m[1][3],
          m[2][0] * x + m[2][1] * y + m[2][2] * z + m[2][3], m[3][0] * x + m[3][1] * y + m[3][2] * z + m[3][3]};
}

PagePoint pageOfClipSpace(const PlotState* s, const ClipPoint& p) {
  const ViewState& v = s->viewState;
  return {v.scale * (p.x / p.w) + v.centerX, v.centerY - v.scale * (p.y / p.w)};
}

PagePoint pageOfBox(const PlotState* s, float x, float y, float z) { return pageOfClipSpace(s, clipSpace(s, x, y, z)); }

PagePoint pageOfPlane(const PlotState* s, float x, float y) {
  const PlaneState& plane = s->plane;
  const AxisGroup& a = s->axis;
  const float originX = static_cast<float>(s->page.originX), originY = static_cast<float>(s->page.originY);
  const float u = (x - originX - static_cast<float>(a.axisPosX)) / static_cast<float>(a.axisLength[kAxisX] - 1);
  const float v = (static_cast<float>(a.axisPosY) + originY - y) / static_cast<float>(a.axisLength[kAxisY] - 1);
  float point[3];
  for (int i = 0; i < 3; i++) point[i] = plane.p[i] + u * plane.e1[i] + v * plane.e2[i];
  const PagePoint page = pageOfBox(s, point[0], point[1], point[2]);
  return {page.x + originX, page.y + originY};
}

} // namespace quilla
