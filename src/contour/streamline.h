// Following one streamline through a field. Lines are followed in page measure: the longer side of the field on the
// page is 1, so that steps and distances are the same in all directions.
#pragma once

#include "contour/field_sampler.h"

namespace quilla {

// Between user coordinates and page measure.
struct FieldFrame {
  FieldSampler sampler;
  double scaleX, scaleY;
  double u(double x) const { return (x - sampler.extent.x0) * scaleX; }
  double v(double y) const { return (y - sampler.extent.y0) * scaleY; }
  double x(double u) const { return sampler.extent.x0 + u / scaleX; }
  double y(double v) const { return sampler.extent.y0 + v / scaleY; }
};
FieldFrame frameOf(const PlotState* s, const FieldSampler& sampler);

struct StreamPoint {
  float u, v;
};

// The two arms of a line from its seed, which begins both. Each has room for as many points as STMOPT tells.
struct Streamline {
  StreamPoint *forward, *backward;
  int forwardCount, backwardCount;
  int count() const { return forwardCount + backwardCount - 1; }
  // Point i along the whole line.
  StreamPoint point(int i) const {
    return i < backwardCount ? backward[backwardCount - 1 - i] : forward[i - backwardCount + 1];
  }
};

// Tells whether a line must end before a point; null: never.
struct StreamStop {
  const void* data = nullptr;
  bool (*isNear)(const void* data, double u, double v) = nullptr;
};

// Follows the line through a seed in page measure. It ends at the border, where the field has no direction, before a
// point that stop refuses, where it is full, or closes if that is tested. A line without a direction has one point.
void followStreamline(const PlotState* s, const FieldFrame& frame, double u, double v, const StreamStop& stop,
                      Streamline& line);

} // namespace quilla
