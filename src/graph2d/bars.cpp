// Bar charts.
#include "graph2d/bars.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/shading.h"
#include "core/stop_request.h"
#include "graph2d/area.h"
#include "graph2d/legend.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

bool isHorizontal(int type) { return type == kBarHorizontal || type == kBarHorizontal3D; }
bool is3D(int type) { return type == kBarVertical3D || type == kBarHorizontal3D; }

// BARPOS "TICK": positions of the labels of the axis, but not at its start. The number of bars that have one.
int fillPositions(PlotState* s, int axis, float* position, int n) {
  constexpr double kSlack = 0.0001;
  const ScalingState& c = s->scaling;
  double first = static_cast<double>(c.axisFirstLabel[axis]), step = static_cast<double>(c.axisStep[axis]);
  double labels = std::floor((static_cast<double>(c.axisEnd[axis]) - first) / step + kSlack) + 1.0;
  int from = std::fabs(c.axisFirstLabel[axis] - c.axisStart[axis]) < kTiny ? 1 : 0;
  labels -= from;
  if (labels != static_cast<double>(n)) warnPlain(s, 28);
  int count = labels < 0.0 ? 0 : labels < static_cast<double>(n) ? static_cast<int>(labels) : n;
  for (int i = 0; i < count; i++) {
    double value = first + (i + from) * step;
    position[i] = static_cast<float>(s->axis.axisLogScale[axis] != 0 ? std::pow(10.0, value) : value);
  }
  return count;
}

// BARPOS "AXIS": bars from the start of the axis.
void fillStarts(const PlotState* s, int axis, float* start, int n) {
  float value = s->scaling.axisStart[axis];
  if (s->axis.axisLogScale[axis] != 0) value = std::pow(10.0F, value);
  std::fill(start, start + n, value);
}

void drawFace(PlotState* s, const float (&x)[4], const float (&y)[4], int color, int border) {
  drawArea(s, x, y, 4, color, border);
}

struct Rectangle {
  float x0, y0, x1, y1; // x0 <= x1, y0 <= y1
};

Rectangle rectangleOf(const BarData& d, const BarPlace& p) {
  float low = std::fmin(p.along0, p.along1), high = std::fmax(p.along0, p.along1);
  if (d.positionAxis == kAxisX) return {p.across0, low, p.across1, high};
  return {low, p.across0, high, p.across1};
}

// The two faces beside the front that can be seen.
void drawSideFaces(PlotState* s, const Rectangle& r, BarDepth depth, int color, int border) {
  const int* colors = s->bar.barColors;
  if (depth.x != 0.0F) {
    float x = depth.x > 0.0F ? r.x1 : r.x0;
    drawFace(s, {x, x, x + depth.x, x + depth.x}, {r.y0, r.y1, r.y1 + depth.y, r.y0 + depth.y},
             colors[1] >= 0 ? colors[1] : color, border);
  }
  if (depth.y != 0.0F) {
    float y = depth.y < 0.0F ? r.y0 : r.y1;
    drawFace(s, {r.x0, r.x1, r.x1 + depth.x, r.x0 + depth.x}, {y, y, y + depth.y, y + depth.y},
             colors[2] >= 0 ? colors[2] : color, border);
  }
}

void drawBar(PlotState* s, const BarData& d, int i) {
  BarPlace place;
  if (!placeBar(s, d, i, place)) return;
  Rectangle r = rectangleOf(d, place);
  int color = barColor(s, d, i), border = s->bar.barBorderColor >= 0 ? s->bar.barBorderColor : d.color;
  takeBarPattern(s, i);
  drawSideFaces(s, r, barDepth(s, d, place), color, border);
  drawFace(s, {r.x0, r.x0, r.x1, r.x1}, {r.y0, r.y1, r.y1, r.y0}, color, border);
}

// Flat bars in their order. The side of a solid bar lies behind the front of its neighbour: they are drawn from the
// far end of the row.
void drawBars(PlotState* s, const BarData& d) {
  if (!is3D(s->bar.barType)) {
    for (int i = 0; i < d.n && !stopRequested(); i++) drawBar(s, d, i);
    return;
  }
  std::unique_ptr<int[]> order(new (std::nothrow) int[static_cast<std::size_t>(d.n)]);
  if (!order) return warnPlain(s, 53);
  float angle = s->bar.bar3dAngle * kDegToRad;
  bool risingX = std::cos(angle) >= 0.0F, risingY = std::sin(angle) < 0.0F;
  bool rising = d.positionAxis == kAxisX ? risingX : risingY;
  int count = 0;
  for (int i = 0; i < d.n; i++) {
    if (std::isfinite(plotPosition(s, d.positionAxis, d.position[i]))) order[count++] = i;
  }
  std::stable_sort(order.get(), order.get() + count, [&](int a, int b) {
    float pa = plotPosition(s, d.positionAxis, d.position[a]), pb = plotPosition(s, d.positionAxis, d.position[b]);
    return rising ? pa < pb : pa > pb;
  });
  for (int i = 0; i < count && !stopRequested(); i++) drawBar(s, d, order[i]);
}

// Distance of bar i to its neighbours in plot units: the left one, inside the row the nearer one.
float neighbourDistance(const PlotState* s, const BarData& d, int i) {
  auto distance = [&](int a, int b) {
    return std::fabs(plotPosition(s, d.positionAxis, d.position[a]) - plotPosition(s, d.positionAxis, d.position[b]));
  };
  if (i == 0) return distance(0, 1);
  if (i == d.n - 1) return distance(i, i - 1);
  return std::fmin(distance(i, i - 1), distance(i, i + 1));
}

// The legend shows bars in their front colour.
void recordBars(PlotState* s) {
  int kept = s->color.currentColor, front = s->bar.barColors[0];
  if (front >= 0) s->color.currentColor = front;
  recordChart(s);
  s->color.currentColor = kept;
}

} // namespace

float plotPosition(const PlotState* s, int axis, float value) {
  return axis == kAxisX ? plotX(s, value) : plotY(s, value);
}

bool barLogarithmsExist(PlotState* s, int axis, const float* values, int n) {
  if (s->axis.axisLogScale[axis] == 0) return true;
  for (int i = 0; i < n; i++) {
    if (values[i] <= 0.0F) {
      warnPlain(s, 27);
      return false;
    }
  }
  return true;
}

void countBarNans(PlotState* s, const float* x, const float* y, int n) {
  if (s->curve.nanMode == 0) return;
  for (int i = 0; i < n; i++) {
    if (x[i] != x[i] || y[i] != y[i]) s->counters.nanCount++;
  }
}

float barDistance(const PlotState* s, const float* position, int n, int axis) {
  if (n > 1) return std::fabs(plotPosition(s, axis, position[1]) - plotPosition(s, axis, position[0]));
  return std::fabs(s->scaling.axisStep[axis] * (axis == kAxisX ? s->scaling.axisFactorX : s->scaling.axisFactorY));
}

float barRoom(const PlotState* s, float distance) {
  float width = s->curve.barWidth;
  return width < 0.0F ? -width : distance * width;
}

bool placeBar(const PlotState* s, const BarData& d, int i, BarPlace& place) {
  const BarGroup& g = s->bar;
  float center = plotPosition(s, d.positionAxis, d.position[i]), room = d.room;
  if (g.barWidthVaries && s->curve.barWidth > 0.0F && d.n > 1) room = neighbourDistance(s, d, i) * s->curve.barWidth;
  float count = static_cast<float>(g.barGroupCount), width = 0.0F, gap = 0.0F;
  if (g.barGroupGap > 0.0F) {
    width = room / ((count - 1.0F) * g.barGroupGap + count);
    gap = width * g.barGroupGap;
  } else {
    gap = -g.barGroupGap;
    width = std::fmax((room - (count - 1.0F) * gap) / count, 0.0F);
  }
  float left = center - room / 2.0F + (width + gap) * static_cast<float>(d.groupIndex - 1);
  float along0 = plotPosition(s, d.valueAxis, d.start[i]), along1 = plotPosition(s, d.valueAxis, d.end[i]);
  if (!std::isfinite(left) || !std::isfinite(width) || !std::isfinite(along0) || !std::isfinite(along1)) return false;
  auto rounded = [](float v) { return static_cast<float>(roundHalfUp(v)); };
  place = {rounded(left), rounded(left + width), rounded(along0), rounded(along1)};
  return true;
}

BarDepth barDepth(const PlotState* s, const BarData& d, const BarPlace& place) {
  if (!is3D(s->bar.barType)) return {0.0F, 0.0F};
  float angle = s->bar.bar3dAngle * kDegToRad, c = std::cos(angle), n = std::sin(angle), depth = s->bar.bar3dDepth;
  if (depth < 0.0F) {
    // As deep as wide, but no side reaches the next bar, unless the bars stand too close for any depth.
    constexpr float kLeastPart = 0.25F;
    float width = place.across1 - place.across0, sideways = std::fabs(d.positionAxis == kAxisX ? c : n);
    float room = std::fmax(d.freeRoom, kLeastPart * width);
    depth = width * sideways > room ? room / sideways : width;
  }
  return {static_cast<float>(roundHalfUp(depth * c)), static_cast<float>(-roundHalfUp(depth * n))};
}

int barColor(const PlotState* s, const BarData& d, int i) {
  const BarGroup& g = s->bar;
  if (g.barCycle == kChartCycleColor || g.barCycle == kChartCycleBoth) return s->color.colorCycle[i % kCycleLength];
  return g.barColors[0] >= 0 ? g.barColors[0] : d.color;
}

void takeBarPattern(PlotState* s, int i) {
  int cycle = s->bar.barCycle;
  if (cycle == kChartCyclePattern || cycle == kChartCycleBoth) selectPattern(s, s->area.patternCycle[i % kCycleLength]);
}

} // namespace quilla

using namespace quilla;

void BARS(float* x, float* y, float* y1, int n) {
  PlotState* s = strictCheck(2, 3, "bars");
  if (!s || n < 1) return;
  bool horizontal = isHorizontal(s->bar.barType);
  int positionAxis = horizontal ? kAxisY : kAxisX, valueAxis = horizontal ? kAxisX : kAxisY;
  int mode = s->bar.barPositionMode;
  if (mode == kBarFromAxis || mode == kBarTicksAndAxis) fillStarts(s, valueAxis, y, n);
  if (mode == kBarAtTicks || mode == kBarTicksAndAxis) n = fillPositions(s, positionAxis, x, n);
  if (n < 1 || !barLogarithmsExist(s, positionAxis, x, n) || !barLogarithmsExist(s, valueAxis, y, n) ||
      !barLogarithmsExist(s, valueAxis, y1, n))
    return;
  recordBars(s);
  countBarNans(s, x, y, n);
  countBarNans(s, x, y1, n);
  KeptPen kept = keepPen(s);
  bool outer = s->internalCoordinates;
  s->internalCoordinates = true;
  float distance = barDistance(s, x, n, positionAxis), room = barRoom(s, distance);
  BarData data{x, y, y1, n, positionAxis, valueAxis, room, distance - room, s->barState.barGroupIndex, kept.color};
  bool labelled = s->bar.barLabelMode != kBarLabelNone;
  if (labelled && s->shield.shieldAreaOn[kShieldBars - 1]) shieldBarLabels(s, data);
  axisClipOn(s);
  drawBars(s, data);
  flushPath(s);
  axisClipOff(s);
  if (labelled) drawBarLabels(s, data);
  restorePen(s, kept);
  s->internalCoordinates = outer;
  s->barState.barGroupIndex = s->barState.barGroupIndex % s->bar.barGroupCount + 1;
}
