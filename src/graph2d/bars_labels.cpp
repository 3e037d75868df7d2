// Labels of bars.
#include <algorithm>
#include <cmath>

#include "core/colors.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/shields.h"
#include "core/stop_request.h"
#include "graph2d/area.h"
#include "graph2d/axis_labels.h"
#include "graph2d/bars.h"
#include "text/text.h"

namespace quilla {

namespace {

constexpr int kAutomaticDigits = -2;
constexpr int kNumberSize = 256;
constexpr float kGapUpright = 0.25F, kGapSideways = 0.5F; // between bar and label, in character heights

float labelValueOf(int mode, const BarData& d, int i) {
  float first = d.start[i], second = d.end[i];
  switch (mode) {
  case kBarLabelSecond: return second;
  case kBarLabelFirst: return first;
  case kBarLabelGreater: return std::fmax(first, second);
  case kBarLabelLesser: return std::fmin(first, second);
  case kBarLabelDifference: return second - first;
  default: return d.position[i];
  }
}

// As many digits for all labels as the one with the most needs.
int labelDigits(const PlotState* s, const BarData& d) {
  if (s->bar.barLabelDigits != kAutomaticDigits) return s->bar.barLabelDigits;
  int digits = -1;
  for (int i = 0; i < d.n; i++) {
    float value = labelValueOf(s->bar.barLabelMode, d, i);
    if (std::isfinite(value)) digits = std::max(digits, digitsNeeded(static_cast<double>(value)));
  }
  return digits;
}

struct Span {
  float low, high;
};

// What of a bar's two ends lies in the axis system.
Span visibleSpan(const PlotState* s, bool alongX, float a, float b) {
  float low = alongX ? static_cast<float>(s->axis.axisPosX) : static_cast<float>(s->scaling.axisTopY);
  float high = alongX ? static_cast<float>(s->scaling.axisRightX) : static_cast<float>(s->axis.axisPosY);
  return {std::clamp(std::fmin(a, b), low, high), std::clamp(std::fmax(a, b), low, high)};
}

// First coordinate of a text of a size beside or in a span.
float placeIn(Span span, float size, int code, float gap) {
  switch (code) {
  case 1: return span.low - gap - size;
  case 3: return span.high + gap;
  default: return (span.low + span.high - size) / 2.0F;
  }
}

struct Label {
  char text[kNumberSize];
  int x, y, width;
  bool inside;
};

// Place and text of the label of bar i; false if it has none.
bool placeLabel(PlotState* s, const BarData& d, int i, int digits, Label& label) {
  BarPlace place;
  if (!placeBar(s, d, i, place)) return false;
  bool alongX = d.valueAxis == kAxisX;
  float center = (place.across0 + place.across1) / 2.0F;
  if (visibleSpan(s, !alongX, center, center).low != center) return false; // outside the axis system
  float value = labelValueOf(s->bar.barLabelMode, d, i);
  if (!std::isfinite(value)) return false;
  numberText(s, static_cast<double>(value), digits, label.text, kNumberSize, 0);
  label.width = textLength(s, label.text);
  float h = static_cast<float>(s->text.textHeight), width = static_cast<float>(label.width);

  Span along = visibleSpan(s, alongX, place.along0, place.along1);
  Span across = {place.across0, place.across1};
  float alongSize = alongX ? width : h, acrossSize = alongX ? h : width;
  int code = s->bar.barLabelPosition;
  if (code == kBarLabelAuto) {
    bool fits = acrossSize <= across.high - across.low && alongSize <= along.high - along.low;
    code = fits ? kBarLabelInside : kBarLabelOutside;
  }
  label.inside = code == kBarLabelInside || code == kBarLabelCenter;
  // Outside is behind the end of the bar, wherever the bar points to. On the page that is after it or before it.
  int alongCode = 2;
  if (code == kBarLabelOutside) {
    bool forward = alongX ? place.along1 >= place.along0 : place.along1 > place.along0;
    alongCode = forward ? 3 : 1;
  }
  if (!label.inside) {
    BarDepth depth = barDepth(s, d, place);
    Span &x = alongX ? along : across, &y = alongX ? across : along;
    (depth.x > 0.0F ? x.high : x.low) += depth.x;
    (depth.y > 0.0F ? y.high : y.low) += depth.y;
  }
  float a = placeIn(along, alongSize, alongCode, h * (alongX ? kGapSideways : kGapUpright));
  float b = placeIn(across, acrossSize, code % 10, h * (alongX ? kGapUpright : kGapSideways));
  label.x = roundHalfUp(alongX ? a : b);
  label.y = roundHalfUp(alongX ? b : a);
  return true;
}

} // namespace

void shieldBarLabels(PlotState* s, const BarData& d) {
  int digits = labelDigits(s, d), margin = s->text.textHeight / 4;
  Label label;
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!placeLabel(s, d, i, digits, label)) continue;
    int region[] = {label.x + s->page.originX - margin, label.y + s->page.originY - margin, label.width + 2 * margin,
                    s->text.textHeight + 2 * margin};
    if (!addShield(s, kShieldRectangle, kShieldBars, region)) return;
  }
}

void drawBarLabels(PlotState* s, const BarData& d) {
  int color = s->bar.barLabelColor >= 0 ? s->bar.barLabelColor : d.color;
  int digits = labelDigits(s, d);
  flushPath(s);
  bool suspended = s->shieldingSuspended;
  s->shieldingSuspended = s->shield.shieldAreaOn[kShieldBars - 1] || suspended;
  Label label;
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!placeLabel(s, d, i, digits, label)) continue;
    takeBarPattern(s, i);
    int wanted = label.inside ? visibleColor(s, s->bar.barLabelColor, d.color, barColor(s, d, i)) : color;
    if (s->color.currentColor != wanted) setColor(s, wanted);
    textAtWith(s, label.text, label.x, label.y, 0, s->text.textHeight);
  }
  flushPath(s);
  s->shieldingSuspended = suspended;
}

} // namespace quilla
