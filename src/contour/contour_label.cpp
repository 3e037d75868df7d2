// Texts of contour labels, and their place in the gap of a line.
#include <algorithm>
#include <cmath>

#include "contour/contour_pen.h"
#include "core/colors.h"
#include "core/messages.h"
#include "text/text.h"

namespace quilla {

namespace {

// Digits behind the point that tell a level, -1 for an integer: from 0 on as many as bring its mantissa near enough to
// an integer.
int digitsOfLevel(float level) {
  constexpr double kNear[] = {0.00001, 0.0001, 0.001, 0.01, 0.1};
  const double v = std::fabs(static_cast<double>(level));
  if (!std::isfinite(v)) return -1;
  const int exponent = v > 0.0 ? static_cast<int>(std::log10(v)) : 0;
  const double mantissa = v / std::pow(10.0, exponent);
  int k = 0;
  for (double p = 1.0; k < 5; k++, p *= 10.0) {
    if (std::fabs(p * mantissa - std::trunc(p * mantissa + 0.5)) < kNear[k]) break;
  }
  const int digits = k - exponent;
  return digits < 1 ? -1 : digits;
}

void makeText(ContourPen& pen, float level) {
  const ContourGroup& c = pen.s->contour;
  pen.textIsNumber = c.contourLabelMode != kContourLabelText;
  if (!pen.textIsNumber) return copyText(pen.text, c.contourLabelText, kContourTextLength);
  constexpr int kMostDigits = 100;
  const int digits = c.contourLabelDigits == kAutomaticDigits ? digitsOfLevel(level) : c.contourLabelDigits;
  formattedNumber(pen.s, static_cast<double>(level), std::min(digits, kMostDigits), pen.text, kContourLabelSize);
}

int widthOfText(const ContourPen& pen) {
  return pen.textIsNumber ? numberLength(pen.s, pen.text) : textLength(pen.s, pen.text);
}

// Where a text begins, its upper left corner, and its angle in degrees.
struct LabelPlace {
  double x, y;
  int angle;
};

// The text runs along the line, r from its left or, on a vertical line, lower end.
LabelPlace placeAlong(PlotPoint a, PlotPoint b, double r, double height) {
  const double dx = static_cast<double>(b.x) - a.x, dy = static_cast<double>(b.y) - a.y;
  if (std::fabs(dx) < kTiny) return {a.x - height / 2.0, (dy >= 0.0 ? b.y : a.y) - r, 90};
  const double g = -std::atan(dy / dx), c = std::cos(g), n = std::sin(g);
  const PlotPoint& q = dx < 0.0 ? b : a;
  return {q.x + r * c - n * height / 2.0, q.y - r * n - c * height / 2.0, static_cast<int>(std::round(g / kDegToRad))};
}

// The text stands across the line, its middle on it: on a rising line it runs downwards, on a falling one upwards.
LabelPlace placeAcross(PlotPoint a, PlotPoint b, double r, double height, double width) {
  const double dx = static_cast<double>(b.x) - a.x, dy = static_cast<double>(b.y) - a.y;
  if (std::fabs(dx) < kTiny) return {a.x - width / 2.0, (dy < 0.0 ? b.y : a.y) + r, 0};
  if (std::fabs(dy) < kTiny) return {(dx < 0.0 ? b.x : a.x) + r, a.y + width / 2.0, 90};
  const double g = -std::atan(dy / dx), c = std::cos(g), n = std::sin(g);
  const bool rising = g > 0.0;
  const double along = r + (rising ? height : 0.0), side = (rising ? 1.0 : -1.0) * width / 2.0;
  const PlotPoint& q = dx < 0.0 ? b : a;
  const int angle = static_cast<int>(std::round(g / kDegToRad + (rising ? -90.0 : 90.0)));
  return {q.x + along * c - n * side, q.y - along * n - c * side, angle};
}

int truncated(double v) {
  constexpr double kFarthest = 2.0e9;
  return static_cast<int>(std::clamp(v, -kFarthest, kFarthest));
}

// Text settings of the user that have no say in labels.
struct KeptText {
  int justifyX, justifyY;
  bool cursorPlaced;
  float cursorX, cursorY, startX, startY;
};

KeptText beginText(PlotState* s) {
  TextState& t = s->textState;
  const KeptText kept{s->text.textJustifyX, s->text.textJustifyY, t.cursorPlaced, t.textCursorX,
                      t.textCursorY,        t.textStartX,         t.textStartY};
  s->text.textJustifyX = s->text.textJustifyY = 0;
  t.pageCheckOff = true;
  return kept;
}

void endText(PlotState* s, const KeptText& kept) {
  TextState& t = s->textState;
  t.pageCheckOff = false;
  t.cursorPlaced = kept.cursorPlaced;
  t.textCursorX = kept.cursorX;
  t.textCursorY = kept.cursorY;
  t.textStartX = kept.startX;
  t.textStartY = kept.startY;
  s->text.textJustifyX = kept.justifyX;
  s->text.textJustifyY = kept.justifyY;
}

} // namespace

void openContourPen(PlotState* s, ContourPen& pen, float level, bool withText) {
  pen.s = s;
  pen.labelled = s->contour.contourLabelMode != kContourLabelNone;
  pen.textWanted = withText;
  if (!pen.labelled) return;
  makeText(pen, level);
  const float height = static_cast<float>(s->text.textHeight);
  pen.labelGap = 2.0F * s->contour.contourGapFactor * height;
  pen.labelWidth = pen.labelGap + (s->contour.contourLabelAcross ? height : static_cast<float>(widthOfText(pen)));
}

void writeContourLabel(const ContourPen& pen, PlotPoint a, PlotPoint b) {
  PlotState* s = pen.s;
  const ContourGroup& c = s->contour;
  const double size = std::hypot(static_cast<double>(b.x) - a.x, static_cast<double>(b.y) - a.y);
  const double r = (size - static_cast<double>(pen.labelWidth) + static_cast<double>(pen.labelGap)) / 2.0;
  const double height = s->text.textHeight;
  const LabelPlace place =
      c.contourLabelAcross ? placeAcross(a, b, r, height, widthOfText(pen)) : placeAlong(a, b, r, height);
  const int color = s->color.currentColor;
  if (c.contourLabelColor != -1) setColor(s, c.contourLabelColor);
  const KeptText kept = beginText(s);
  setTextAngle(s, place.angle);
  const int x = truncated(place.x), y = truncated(place.y);
  if (pen.textIsNumber) {
    numberAt(s, pen.text, x, y);
  } else {
    placeText(s, pen.text, x, y);
  }
  endText(s, kept);
  if (c.contourLabelColor != -1) setColor(s, color);
}

} // namespace quilla
