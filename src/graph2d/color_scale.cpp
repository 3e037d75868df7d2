#include "graph2d/color_scale.h"

#include <algorithm>
#include <cmath>

namespace quilla {

namespace {

int visible(const PlotState* s, int color) {
  return !s->area.backgroundsDrawn && color == s->color.backgroundColor ? kNoColor : color;
}

// Below the start of the scale lies the background, beyond its end the foreground.
int outsideColor(const PlotState* s, bool beforeStart) {
  return visible(s, beforeStart ? s->color.backgroundColor : s->color.foregroundColor);
}

void takeColorRange(PlotState* s) {
  ColorScaleState& c = s->colorScale;
  c.low = s->color.colorRangeLow;
  c.high = s->color.colorRangeHigh;
  const float range = c.end - c.start;
  c.factor = std::fabs(range) > kTiny ? static_cast<float>(c.high - c.low + 1) / range : 0.0F;
}

} // namespace

void storeColorScale(PlotState* s, const AxisScale& scale) {
  ColorScaleState& c = s->colorScale;
  const UserLimits limits = userLimits(s, kAxisZ, scale);
  c.logarithmic = s->axis.axisLogScale[kAxisZ] != 0;
  c.start = scale.start;
  c.end = scale.end;
  c.userMin = limits.min;
  c.userMax = limits.max;
  takeColorRange(s);
}

void scaleOverRange(PlotState* s, float low, float high) {
  ColorScaleState& c = s->colorScale;
  c.logarithmic = false;
  c.start = c.userMin = low;
  c.end = c.userMax = high;
  takeColorRange(s);
}

int colorOfValue(const PlotState* s, float z) {
  const ColorScaleState& c = s->colorScale;
  if (std::isnan(z)) return kNoColor;
  if (c.factor == 0.0F) return visible(s, c.low);
  if (z < c.userMin) return outsideColor(s, c.start < c.end);
  if (z > c.userMax) return outsideColor(s, !(c.start < c.end));
  const float value = c.logarithmic ? logarithmOf(s, z) : z;
  const int n = static_cast<int>((value - c.start) * c.factor + static_cast<float>(c.low));
  return visible(s, n == c.low - 1 ? c.low : n == c.high + 1 ? c.high : n);
}

double placeOnScale(const PlotState* s, float z) {
  const ColorScaleState& c = s->colorScale;
  const float value = c.logarithmic ? logarithmOf(s, z) : z;
  return (static_cast<double>(value) - c.start) * c.factor + c.low;
}

int colorOfPlace(const PlotState* s, double place) {
  const ColorScaleState& c = s->colorScale;
  const double begin = c.low, end = c.high + 1.0;
  if (place < std::min(begin, end)) return outsideColor(s, begin < end);
  if (place > std::max(begin, end)) return outsideColor(s, !(begin < end));
  const int n = static_cast<int>(place);
  return visible(s, n == c.low - 1 ? c.low : n == c.high + 1 ? c.high : n);
}

} // namespace quilla
