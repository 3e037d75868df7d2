// Charts of impedances (GRAFR): the right half plane inside the unit circle of the reflection coefficient.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "graph2d/axis_labels.h"
#include "graph2d/axis_system.h"
#include "graph2d/polar.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"
#include "text/text.h"

using namespace quilla;

namespace {

constexpr int kChords = 360;
constexpr float kFarAway = 1e6F; // stands for the infinite ends of the circles
constexpr int kMostChords = 10000;

void moveOrDraw(PlotState* s, PlotPoint p, bool move) {
  if (move) {
    penMove(s, p.x, p.y);
  } else {
    penDraw(s, p.x, p.y);
  }
}

// Values from a to b whose images lie about evenly on the circle: the half angles of an arc tangent.
template <class At> void drawArc(PlotState* s, float a, float b, int chords, float scale, At at) {
  double from = std::atan(static_cast<double>(a / scale)), to = std::atan(static_cast<double>(b / scale));
  for (int i = 0; i <= chords; i++) {
    float value = static_cast<float>(std::tan(from + (to - from) * i / chords)) * scale;
    moveOrDraw(s, at(i == 0 ? a : i == chords ? b : value), i == 0);
  }
}

void drawRealCircle(PlotState* s, float re, float im1, float im2, int chords) {
  drawArc(s, im1, im2, chords, 1.0F + re, [&](float im) { return plotPoint(s, re, im); });
}

void drawImaginaryCircle(PlotState* s, float im, float re1, float re2, int chords) {
  drawArc(s, re1, re2, chords, 1.0F + std::fabs(im), [&](float re) { return plotPoint(s, re, im); });
}

double chartRadius(const PlotState* s) { return (s->axis.axisLength[kAxisX] - 1) / 2.0; }

// Real values stand below the horizontal line at their circles.
void drawRealLabels(PlotState* s, const float* re, int n) {
  if (s->axis.labelKind[kAxisX] == kLabelNone) return;
  char text[kLabelBuffer];
  int h = s->text.textHeight, gap = s->axis.labelDistance[kAxisX] / 2;
  for (int i = 0; i < n; i++) {
    PlotPoint p = plotPoint(s, re[i], 0.0F);
    labelText(s, static_cast<double>(re[i]), i, kAxisX, labelDigitsOf(s, kAxisX), text);
    int length = labelLength(s, kAxisX, text);
    textAtWith(s, text, roundHalfUp(p.x) - length - gap, roundHalfUp(p.y) + gap, 0, h);
  }
}

// Imaginary values stand outside the chart at the ends of their circles.
void drawImaginaryLabels(PlotState* s, const float* im, int n) {
  if (s->axis.labelKind[kAxisY] == kLabelNone) return;
  char text[kLabelBuffer];
  int h = s->text.textHeight;
  double clear = chartRadius(s) + s->axis.labelDistance[kAxisY];
  for (int i = 0; i < n; i++) {
    Complex r = reflectionOf(s, {0.0, static_cast<double>(im[i])});
    labelText(s, static_cast<double>(im[i]), i, kAxisY, labelDigitsOf(s, kAxisY), text);
    int length = labelLength(s, kAxisY, text);
    double x = s->axis.axisCrossX + (clear + length / 2.0) * r.re - length / 2.0;
    double y = s->axis.axisCrossY - (clear + h / 2.0) * r.im - h / 2.0;
    textAtWith(s, text, roundHalfUp(static_cast<float>(x)), roundHalfUp(static_cast<float>(y)), 0, h);
  }
}

void drawChart(PlotState* s, const float* re, int n, const float* im, int m) {
  fillSystemBackground(s);
  s->internalCoordinates = true;
  drawSystemCircle(s, chartRadius(s));
  drawImaginaryCircle(s, 0.0F, 0.0F, kFarAway, kChords);
  for (int i = 0; i < n; i++) {
    if (re[i] > 0.0F) drawRealCircle(s, re[i], -kFarAway, kFarAway, kChords);
  }
  for (int i = 0; i < m; i++) {
    if (im[i] != 0.0F) drawImaginaryCircle(s, im[i], 0.0F, kFarAway, kChords);
  }
  drawRealLabels(s, re, n);
  drawImaginaryLabels(s, im, m);
  s->internalCoordinates = false;
  flushPath(s);
}

PlotState* openChartCheck(const char* routine) {
  PlotState* s = strictCheck(2, 3, routine);
  if (!s) return nullptr;
  if (s->axis.axisSystemKind == kSystemRealImaginary) return s;
  warnWithText(s, 35, "No call to GRAFR before");
  return nullptr;
}

} // namespace

void GRAFR(const float* re, int n, const float* im, int m) {
  PlotState* s = strictCheck(1, 1, "grafr");
  if (!s) return;
  if (s->axis.axisLogScale[kAxisX] != 0 || s->axis.axisLogScale[kAxisY] != 0) {
    return warnWithText(s, 132, "Axis systems must have linear scaling");
  }
  for (int i = 0; i < n; i++) {
    if (!(re[i] >= 0.0F)) return warnPlain(s, 2);
  }
  AxisScale scale{-1.0F, 1.0F, -1.0F, 0.5F};
  if (checkScale(s, kAxisX, scale) || checkScale(s, kAxisY, scale)) return;
  s->level.plotLevel = kLevelAxis2D;
  s->axis.axisSystemKind = kSystemRealImaginary;
  placeRoundSystem(s);
  storeScale(s, kAxisX, scale);
  storeScale(s, kAxisY, scale);
  storeAxisClip(s);
  if (!s->axis.noAxesDrawn) drawChart(s, re, n, im, m);
}

void GRIDRE(float re, float im1, float im2, int n) {
  PlotState* s = openChartCheck("gridre");
  if (s && !checkRange(s, n, 1, kMostChords)) drawRealCircle(s, std::fabs(re), im1, im2, n);
}

void GRIDIM(float im, float re1, float re2, int n) {
  PlotState* s = openChartCheck("gridim");
  if (s && !checkRange(s, n, 1, kMostChords)) drawImaginaryCircle(s, im, re1, re2, n);
}

void GETRCO(float re, float im, float* r, float* i) {
  PlotState* s = strictCheck(1, 3, "getrco");
  if (!s) return;
  Complex value = reflectionOf(s, {static_cast<double>(re), static_cast<double>(im)});
  *r = static_cast<float>(value.re);
  *i = static_cast<float>(value.im);
}

void GETICO(float r, float i, float* re, float* im) {
  PlotState* s = strictCheck(1, 3, "getico");
  if (!s) return;
  Complex value = impedanceOf(s, {static_cast<double>(r), static_cast<double>(i)});
  *re = static_cast<float>(value.re);
  *im = static_cast<float>(value.im);
}
