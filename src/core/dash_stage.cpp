// The dash stage: line patterns with a phase that runs on from segment to segment, and colours along the pattern.
#include <cmath>

#include "core/page.h"
#include "core/path.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "device/sink.h"

namespace quilla {

namespace {

// A line whose visible part holds more patterns is shrunk by a transformation until nobody can see its dashes; it is
// drawn solid.
constexpr double kMostPeriods = 1e6;

// Line types in 0.1 mm: lengths drawn and not drawn in turn.
struct LineType {
  int count;
  int lengths[4];
};
constexpr LineType kLineTypes[kLineTypeCount] = {
    {1, {1}},      {2, {1, 10}}, {2, {10, 10}}, {4, {30, 15, 10, 15}}, {4, {1, 15, 15, 15}},
    {2, {20, 15}}, {2, {1, 20}}, {2, {30, 20}},
};

void nextElement(PlotState* s) {
  DashState& d = s->dash;
  d.dashElement = d.dashElement >= s->line.linePatternCount ? 1 : d.dashElement + 1;
  d.dashGap = 1 - d.dashGap;
  d.dashRemaining = static_cast<float>(s->line.linePattern[d.dashElement - 1]);
  // The pen goes up: the next drawn element has the next colour.
  if (d.dashGap == 1)
    d.colorCycleElement = d.colorCycleElement >= s->line.linePatternColorCount ? 1 : d.colorCycleElement + 1;
}

// Length after which the pattern begins again.
double patternPeriod(const PlotState* s) {
  double period = 0.0;
  for (int i = 0; i < s->line.linePatternCount; i++) period += s->line.linePattern[i];
  return s->line.linePatternCount % 2 != 0 ? 2.0 * period : period;
}

// Advances the phase by a length of which nothing is visible.
void skipDashes(PlotState* s, double length) {
  double rest = std::fmod(length, patternPeriod(s));
  while (static_cast<double>(s->dash.dashRemaining) <= rest) {
    rest -= static_cast<double>(s->dash.dashRemaining);
    nextElement(s);
  }
  s->dash.dashRemaining -= static_cast<float>(rest);
}

void selectPatternColor(PlotState* s) {
  sendPath(s);
  s->dash.patternColorSent = true;
  qqcolor(s, s->line.linePatternColors[s->dash.colorCycleElement - 1]);
}

// Dashes along a segment from distance `from` to `to` of its start; the pen enters it with a move.
void dashAlong(PlotState* s, const Segment& segment, double length, double from, double to, bool continued) {
  DashState& d = s->dash;
  const bool colored = s->line.linePatternColorCount > 0;
  const double x0 = static_cast<double>(segment.x0), y0 = static_cast<double>(segment.y0);
  const double ux = length > 0.0 ? (static_cast<double>(segment.x1) - x0) / length : 0.0;
  const double uy = length > 0.0 ? (static_cast<double>(segment.y1) - y0) / length : 0.0;
  auto move = [&](double t) {
    if (colored) selectPatternColor(s);
    startPath(s, static_cast<float>(x0 + ux * t), static_cast<float>(y0 + uy * t));
  };
  auto draw = [&](double t) { appendPoint(s, static_cast<float>(x0 + ux * t), static_cast<float>(y0 + uy * t)); };
  if (d.dashGap == 0 && (!continued || s->path.pathCount == 0 || (colored && !d.patternColorSent))) move(from);
  double t = from;
  while (static_cast<double>(d.dashRemaining) <= to - t && !stopRequested()) {
    t += static_cast<double>(d.dashRemaining);
    if (d.dashGap == 0) {
      draw(t);
    } else {
      move(t);
    }
    nextElement(s);
  }
  // A segment without length is a dot; an element that begins at the end of a segment draws nothing yet.
  if (d.dashGap == 0 && (t < to || length == 0.0)) draw(to);
  d.dashRemaining -= static_cast<float>(to - t);
}

// Lines far off the page cost no more than what is visible of them: true with the part of the segment, as distances
// from its start, that can be seen. Wide lines reach into the page from outside it.
bool visiblePart(const PlotState* s, Segment segment, double length, double& from, double& to) {
  from = 0.0;
  to = length;
  if (s->transform.transformOn) {
    transformPoint(s, segment.x0, segment.y0);
    transformPoint(s, segment.x1, segment.y1);
  }
  ClipBox box = activeRegion(s).box;
  if (s->line.lineWidthSetting > 1) {
    float reach = static_cast<float>(s->line.lineWidthSetting);
    box = {box.x0 - reach, box.y0 - reach, box.x1 + reach, box.y1 + reach};
  }
  if (insideBox(box, segment.x0, segment.y0) && insideBox(box, segment.x1, segment.y1)) return true;
  Segment part = segment;
  if (!clipSegment(box, part).visible) return false;
  auto distance = [](float ax, float ay, float bx, float by) {
    return std::hypot(static_cast<double>(bx) - ax, static_cast<double>(by) - ay);
  };
  double shown = distance(segment.x0, segment.y0, segment.x1, segment.y1);
  if (!(shown > 0.0)) return false;
  from = length * distance(segment.x0, segment.y0, part.x0, part.y0) / shown;
  to = from + length * distance(part.x0, part.y0, part.x1, part.y1) / shown;
  if (to > length) to = length;
  return true;
}

} // namespace

void drawDashed(PlotState* s, float x0, float y0, float x1, float y1, bool continued) {
  const Segment segment{x0, y0, x1, y1};
  double length = std::hypot(static_cast<double>(x1) - x0, static_cast<double>(y1) - y0);
  if (!std::isfinite(length)) return;
  double from = 0.0, to = length;
  if (!visiblePart(s, segment, length, from, to)) {
    sendPath(s);
    return skipDashes(s, length);
  }
  if (to - from > kMostPeriods * patternPeriod(s)) {
    startPath(s, x0, y0);
    appendPoint(s, x1, y1);
    return skipDashes(s, length);
  }
  if (from > 0.0) skipDashes(s, from);
  dashAlong(s, segment, length, from, to, continued && from == 0.0);
  if (to < length) skipDashes(s, length - to);
}

void penMove(PlotState* s, float x, float y) {
  DashState& d = s->dash;
  flushPath(s);
  d.pathPenX = x + static_cast<float>(s->page.originX);
  d.pathPenY = y + static_cast<float>(s->page.originY);
  d.gapMovePending = d.lineGapSize != 0.0F;
  if (!d.gapMovePending) startPath(s, d.pathPenX, d.pathPenY);
}

void penDraw(PlotState* s, float x, float y) {
  DashState& d = s->dash;
  float toX = x + static_cast<float>(s->page.originX), toY = y + static_cast<float>(s->page.originY);
  float fromX = d.pathPenX, fromY = d.pathPenY;
  d.pathPenX = toX;
  d.pathPenY = toY;
  const bool solid = s->line.linePatternCount == 1;
  if (solid && d.lineGapSize == 0.0F) {
    if (s->path.pathCount == 0) startPath(s, fromX, fromY);
    return appendPoint(s, toX, toY);
  }
  bool continued = !d.gapMovePending;
  if (d.lineGapSize != 0.0F) {
    double dx = static_cast<double>(toX) - fromX, dy = static_cast<double>(toY) - fromY, length = std::hypot(dx, dy);
    if (!std::isfinite(length) || length == 0.0) return;
    float shiftX = static_cast<float>(-dy / length) * d.lineGapSize,
          shiftY = static_cast<float>(dx / length) * d.lineGapSize;
    fromX += shiftX;
    fromY += shiftY;
    toX += shiftX;
    toY += shiftY;
    d.gapMovePending = false;
  }
  if (!solid) return drawDashed(s, fromX, fromY, toX, toY, continued);
  if (continued && s->path.pathCount > 0) {
    appendPoint(s, fromX, fromY);
  } else {
    startPath(s, fromX, fromY);
  }
  appendPoint(s, toX, toY);
}

void resetDash(PlotState* s) {
  s->dash.dashElement = s->dash.colorCycleElement = 1;
  s->dash.dashGap = 0;
  s->dash.dashRemaining = static_cast<float>(s->line.linePattern[0]);
}

void setLineType(PlotState* s, int index) {
  flushPath(s);
  const LineType& type = kLineTypes[index];
  s->line.lineStyleIndex = index;
  s->line.linePatternCount = type.count;
  for (int i = 0; i < type.count; i++) {
    int length = plotUnits(s, type.lengths[i]);
    s->line.linePattern[i] = length < 1 ? 1 : length;
  }
  resetDash(s);
}

} // namespace quilla
