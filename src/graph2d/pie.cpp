// Pie charts.
#include "graph2d/pie.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/shading.h"
#include "graph2d/area.h"
#include "graph2d/legend.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// Opens an axis system without axes, whatever kind of axes are set.
bool openSystem(PlotState* s) {
  AxisGroup& a = s->axis;
  const bool drawn = a.noAxesDrawn, crossed = a.axisCrossed;
  const bool scaled[2] = {a.autoScaled[kAxisX], a.autoScaled[kAxisY]};
  const int logs[2] = {a.axisLogScale[kAxisX], a.axisLogScale[kAxisY]};
  a.noAxesDrawn = true;
  a.axisCrossed = false;
  for (int axis : {kAxisX, kAxisY}) {
    a.autoScaled[axis] = false;
    a.axisLogScale[axis] = 0;
  }
  GRAF(0.0F, 5.0F, 0.0F, 1.0F, 0.0F, 5.0F, 0.0F, 1.0F);
  copyText(s->level.routineName, "piegrf", kRoutineNameLength);
  a.noAxesDrawn = drawn;
  a.axisCrossed = crossed;
  for (int axis : {kAxisX, kAxisY}) {
    a.autoScaled[axis] = scaled[axis];
    a.axisLogScale[axis] = logs[axis];
  }
  return s->level.plotLevel == kLevelAxis2D;
}

// The user's routine may change what is not told by the data.
void callBack(PlotState* s, int number, PieSegment& segment) {
  int pattern = s->shading.shadePattern;
  const int before = pattern;
  s->pie.pieCallback(number, segment.value, segment.percent, &pattern, &segment.color, &segment.moved,
                     &segment.labelMode, &segment.labelPlace, &segment.labelJustify, &segment.labelColor);
  if (pattern != before && pattern >= 0) selectPattern(s, pattern);
  if (!std::isfinite(segment.moved)) segment.moved = 0.0F;
  segment.labelMode = std::clamp(segment.labelMode, 0, static_cast<int>(kPieLabelBoth));
  segment.labelPlace = std::clamp(segment.labelPlace, 0, static_cast<int>(kPieAligned));
  segment.labelJustify = std::clamp(segment.labelJustify, 0, static_cast<int>(kPieInwards));
}

// Colour and pattern of segment i (from 0).
void takeAttributes(PlotState* s, const KeptPen& kept, int i, PieSegment& segment) {
  const PieGroup& g = s->pie;
  int entry = i % kCycleLength;
  bool colors = g.pieCycle == kChartCycleColor || g.pieCycle == kChartCycleBoth;
  bool patterns = g.pieCycle == kChartCyclePattern || g.pieCycle == kChartCycleBoth;
  segment.color = segment.sideColor = -1;
  if (colors) {
    segment.color = s->color.colorCycle[entry];
  } else if (i < g.pieColorCount) {
    segment.color = g.pieColors[i];
    segment.sideColor = g.pieSideColors[i];
  }
  if (segment.color < 0) segment.color = kept.color;
  s->shading = kept.shading;
  if (patterns) selectPattern(s, s->area.patternCycle[entry]);
  segment.moved = g.pieExplode || segment.value < 0.0F ? 1.0F : 0.0F;
  segment.labelMode = g.pieLabelMode;
  segment.labelPlace = g.pieLabelPlace;
  segment.labelJustify = g.pieLabelJustify;
  segment.labelColor = g.pieLabelColor;
  if (g.pieCallback) callBack(s, i + 1, segment);
  if (segment.color < 0) segment.color = kept.color;
  if (segment.sideColor < 0) segment.sideColor = segment.color;
  segment.shading = s->shading;
}

// The first segment is centred on the right; the others follow anticlockwise.
void makeSegments(PlotState* s, const KeptPen& kept, const float* x, int n, double sum, PieSegment segments[]) {
  double first = std::fabs(static_cast<double>(x[0])), from = 360.0 - first * 180.0 / sum;
  from += static_cast<double>(s->pie.pieRotation);
  from -= 360.0 * std::floor(from / 360.0);
  double before = 0.0;
  for (int i = 0; i < n; i++) {
    double value = std::fabs(static_cast<double>(x[i])), start = from + before * 360.0 / sum;
    before += value;
    PieSegment& segment = segments[i];
    segment.value = x[i];
    segment.percent = static_cast<float>(value * 100.0 / sum);
    double turn = 360.0 * std::floor(start / 360.0);
    segment.start = static_cast<float>(start - turn);
    segment.end = static_cast<float>(from + before * 360.0 / sum - turn);
    takeAttributes(s, kept, i, segment);
    int color = s->color.currentColor;
    s->color.currentColor = segment.color;
    recordChart(s);
    s->color.currentColor = color;
  }
}

// The largest pie that leaves the room beside it.
void fitPie(const PlotState* s, PieShape& pie, PiePoint room) {
  // Labels that wanted to stand inside do not make a pie much smaller.
  constexpr float kLeastPart = 0.3F, kLeastWithInternal = 0.8F;
  const PieGroup& g = s->pie;
  float halfX = static_cast<float>(s->axis.axisLength[kAxisX]) / 2.0F;
  float halfY = static_cast<float>(s->axis.axisLength[kAxisY]) / 2.0F, half = std::fmin(halfX, halfY);
  float out = 0.0F;
  pie.explosion = halfY * 8.0F / 100.0F;
  bool internal = true;
  for (int i = 0; i < pie.n; i++) {
    out = std::fmax(out, std::fabs(pie.segments[i].moved) * pie.explosion);
    internal = internal && pie.segments[i].labelPlace == kPieInternal;
  }
  float angle = g.pieAngle * kDegToRad;
  float flat = g.pie3d ? std::fabs(std::sin(angle)) : 1.0F,
        depth = g.pie3d ? g.pieDepth * std::fabs(std::cos(angle)) : 0.0F;
  float radius = std::fmin(half - out, halfX - out - room.x);
  if (room.y > 0.0F) radius = std::fmin(radius, (halfY - out * flat - room.y) / (flat + depth / 2.0F));
  radius = std::fmax(radius, internal ? kLeastWithInternal * (half - out) : kLeastPart * half);
  pie.radiusX = radius;
  pie.radiusY = std::fmax(radius * flat, 1.0F);
  pie.thickness = radius * depth;
  pie.x = static_cast<float>(s->axis.axisPosX) + halfX;
  pie.y = static_cast<float>(s->axis.axisPosY) - halfY - pie.thickness / 2.0F;
}

void drawPie(PlotState* s, const KeptPen& kept, PieShape& pie, const PieTexts& texts) {
  std::unique_ptr<PieLabel[]> labels(new (std::nothrow) PieLabel[static_cast<std::size_t>(pie.n)]);
  if (!labels) return warnPlain(s, 53);
  pie.color = kept.color;
  pie.borderColor = s->pie.pieBorderColor >= 0 ? s->pie.pieBorderColor : kept.color;
  fitPie(s, pie, {0.0F, 0.0F});
  measurePieLabels(s, pie, texts, labels.get());
  fitPie(s, pie, pieLabelRoom(s, pie, labels.get()));
  placePieLabels(s, pie, labels.get());
  if (s->shield.shieldAreaOn[kShieldPies - 1]) shieldPieLabels(s, pie, labels.get());
  if (s->pie.pie3d) {
    drawSolidPie(s, pie);
  } else {
    drawFlatPie(s, pie);
  }
  drawPieLabels(s, pie, texts, labels.get());
}

} // namespace

void PIEGRF(const char* buffer, int lines, const float* x, int n) {
  PlotState* s = strictCheck(1, 1, "piegrf");
  if (!s || n < 1 || checkRange(s, lines, 0, -1)) return;
  double sum = 0.0;
  for (int i = 0; i < n; i++) sum += std::fabs(static_cast<double>(x[i]));
  if (!(sum > static_cast<double>(kTiny)) || !std::isfinite(sum)) return warnPlain(s, 29);
  std::unique_ptr<PieSegment[]> segments(new (std::nothrow) PieSegment[static_cast<std::size_t>(n)]);
  if (!segments) return warnPlain(s, 53);
  if (!openSystem(s)) return;
  KeptPen kept = keepPen(s);
  bool outer = s->internalCoordinates;
  s->internalCoordinates = true;
  makeSegments(s, kept, x, n, sum, segments.get());
  PieShape pie{};
  pie.segments = segments.get();
  pie.n = n;
  drawPie(s, kept, pie, {buffer, lines});
  restorePen(s, kept);
  s->internalCoordinates = outer;
}
