#include "graph2d/curve_path.h"

#include <cmath>
#include <cstdio>

#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph2d/scaling.h"
#include "graph2d/spline.h"

namespace quilla {

namespace {

void moveTo(PlotState* s, float x, float y) {
  PlotPoint p = plotPoint(s, x, y);
  penMove(s, p.x, p.y);
}

void drawTo(PlotState* s, float x, float y) {
  PlotPoint p = plotPoint(s, x, y);
  penDraw(s, p.x, p.y);
}

bool isPolar(const PlotState* s) { return s->axis.axisSystemKind == kSystemPolar; }

bool isGap(const PlotState* s, const CurveData& d, int i) {
  const CurveGroup& c = s->curve;
  return (c.gapLimitOn[0] && std::fabs(d.x[i] - d.x[i - 1]) > c.gapLimit[0]) ||
         (c.gapLimitOn[1] && std::fabs(d.y[i] - d.y[i - 1]) > c.gapLimit[1]);
}

} // namespace

bool continues(const PlotState* s, const CurveData& d, int i) {
  return i > 0 && isDrawable(s, d, i - 1) && !isGap(s, d, i);
}

namespace {

void drawLines(PlotState* s, const CurveData& d) {
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!isDrawable(s, d, i)) continue;
    if (continues(s, d, i)) {
      drawTo(s, d.x[i], d.y[i]);
    } else {
      moveTo(s, d.x[i], d.y[i]);
    }
  }
}

// On the chart of GRAFR each segment is divided until its pieces follow the circles of the chart.
void drawChartLines(PlotState* s, const CurveData& d) {
  constexpr float kSquaredPiece = 100.0F; // plot units
  constexpr int kMostPieces = 100;
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!isDrawable(s, d, i)) continue;
    if (!continues(s, d, i)) {
      moveTo(s, d.x[i], d.y[i]);
      continue;
    }
    PlotPoint p = plotPoint(s, d.x[i - 1], d.y[i - 1]), q = plotPoint(s, d.x[i], d.y[i]);
    float squared = (q.x - p.x) * (q.x - p.x) + (q.y - p.y) * (q.y - p.y);
    int pieces = 1;
    while (pieces < kMostPieces && squared > kSquaredPiece * static_cast<float>(pieces) * static_cast<float>(pieces))
      pieces++;
    for (int k = 1; k <= pieces; k++) {
      float t = static_cast<float>(k) / static_cast<float>(pieces);
      drawTo(s, d.x[i - 1] + t * (d.x[i] - d.x[i - 1]), d.y[i - 1] + t * (d.y[i] - d.y[i - 1]));
    }
  }
}

void drawStairs(PlotState* s, const CurveData& d) {
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!isDrawable(s, d, i)) continue;
    if (continues(s, d, i)) {
      drawTo(s, d.x[i], d.y[i - 1]);
      drawTo(s, d.x[i], d.y[i]);
    } else {
      moveTo(s, d.x[i], d.y[i]);
    }
  }
}

void drawSteps(PlotState* s, const CurveData& d) {
  if (d.n < 2) return;
  auto halfWidth = [&](int i) {
    float h = (d.x[i + 1] - d.x[i]) / 2.0F;
    return std::isnan(h) ? 0.0F : h;
  };
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!isDrawable(s, d, i)) continue;
    if (continues(s, d, i)) {
      float middle = d.x[i - 1] + halfWidth(i - 1);
      drawTo(s, middle, d.y[i - 1]);
      drawTo(s, middle, d.y[i]);
      drawTo(s, d.x[i], d.y[i]);
    } else {
      moveTo(s, i == 0 ? d.x[0] - halfWidth(0) : d.x[i], d.y[i]);
      drawTo(s, d.x[i], d.y[i]);
    }
  }
  int last = d.n - 1;
  if (isDrawable(s, d, last) && continues(s, d, last)) drawTo(s, d.x[last] + halfWidth(last - 1), d.y[last]);
}

// Plot coordinate of the line that stems and bars stand on: y value 0, or the axis where 0 has no place.
float baseY(const PlotState* s) {
  return s->axis.axisLogScale[kAxisY] != 0 ? s->scaling.axisOriginPlotY : plotY(s, 0.0F);
}

void drawStems(PlotState* s, const CurveData& d) {
  if (isPolar(s)) {
    for (int i = 0; i < d.n && !stopRequested(); i++) {
      if (!isDrawable(s, d, i)) continue;
      moveTo(s, 0.0F, 0.0F);
      drawTo(s, d.x[i], d.y[i]);
    }
    return;
  }
  float base = baseY(s);
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!isDrawable(s, d, i)) continue;
    float x = plotX(s, d.x[i]);
    penMove(s, x, base);
    penDraw(s, x, plotY(s, d.y[i]));
  }
}

// Sectors from the origin; the width of bars is a measure of angle in degrees.
void drawPolarBars(PlotState* s, const CurveData& d, bool filled) {
  float half = std::fabs(s->curve.barWidth) * 0.5F;
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!isDrawable(s, d, i)) continue;
    PlotPoint corners[3] = {plotPoint(s, 0.0F, 0.0F), plotPoint(s, d.x[i], d.y[i] - half),
                            plotPoint(s, d.x[i], d.y[i] + half)};
    float xs[3] = {corners[0].x, corners[1].x, corners[2].x}, ys[3] = {corners[0].y, corners[1].y, corners[2].y};
    if (filled) {
      fillSolid(s, xs, ys, 3);
      continue;
    }
    penMove(s, xs[0], ys[0]);
    for (int k = 1; k <= 3; k++) penDraw(s, xs[k % 3], ys[k % 3]);
  }
}

void drawBars(PlotState* s, const CurveData& d, bool filled) {
  if (isPolar(s)) return drawPolarBars(s, d, filled);
  const CurveGroup& c = s->curve;
  float base = s->scaling.axisOriginPlotY;
  float halfUser = d.n > 1 && c.barWidth > 0.0F ? (d.x[1] - d.x[0]) * c.barWidth * 0.5F : 0.0F;
  float halfPlot = c.barWidth > 0.0F ? 0.0F : std::fabs(c.barWidth) * 0.5F;
  for (int i = 0; i < d.n && !stopRequested(); i++) {
    if (!isDrawable(s, d, i)) continue;
    float x0 = plotX(s, d.x[i] - halfUser) - halfPlot, x1 = plotX(s, d.x[i] + halfUser) + halfPlot,
          y = plotY(s, d.y[i]);
    if (filled) {
      float xs[4] = {x0, x0, x1, x1}, ys[4] = {base, y, y, base};
      fillSolid(s, xs, ys, 4);
      continue;
    }
    penMove(s, x0, base);
    penDraw(s, x0, y);
    penDraw(s, x1, y);
    penDraw(s, x1, base);
  }
}

} // namespace

bool isDrawable(const PlotState* s, const CurveData& d, int i) {
  return s->curve.nanMode == 0 || (d.x[i] == d.x[i] && d.y[i] == d.y[i]);
}

bool isDataChecked(const PlotState* s) { return s->message.dataCheckOn && s->message.messageUnit != kUnitNone; }

void reportOutOfScale(PlotState* s, float x, float y) {
  char text[64];
  std::snprintf(text, sizeof text, "(%12.4e /%12.4e) out of axis scaling", static_cast<double>(x),
                static_cast<double>(y));
  s->counters.outOfScaleCount++;
  warnWithText(s, -1, text);
}

// Impedances lie in the right half plane; angles of a polar system count round the circle.
bool isOutside(const PlotState* s, float x, float y) {
  const ScalingState& c = s->scaling;
  if (s->axis.axisSystemKind == kSystemRealImaginary) return x < 0.0F;
  if (x < c.userMinX || x > c.userMaxX) return true;
  return s->axis.axisSystemKind != kSystemPolar && (y < c.userMinY || y > c.userMaxY);
}

int curvePasses(const PlotState* s) {
  const int passes = roundHalfUp(static_cast<float>(s->curve.curveThickness) * s->pageSetup.unitFactor);
  return passes > 1 ? passes : 1;
}

void beginCurvePass(PlotState* s, int pass) {
  s->dash.lineGapSize = static_cast<float>(pass % 2 == 0 ? pass / 2 : -(pass / 2)) / s->pageSetup.unitFactor;
  resetDash(s);
}

void endCurvePasses(PlotState* s) { s->dash.lineGapSize = 0.0F; }

void drawCurveLine(PlotState* s, const CurveData& data) {
  switch (s->curve.curveMode) {
  case kCurveStep: return drawSteps(s, data);
  case kCurveStairs: return drawStairs(s, data);
  case kCurveStem: return drawStems(s, data);
  case kCurveBars: return drawBars(s, data, false);
  case kCurveFilledBars: return drawBars(s, data, true);
  case kCurveSpline: return drawSpline(s, data);
  case kCurvePSpline: return drawParametricSpline(s, data);
  case kCurveCurved:
    if (s->axis.axisSystemKind == kSystemRealImaginary) return drawChartLines(s, data);
    return drawLines(s, data);
  default: return drawLines(s, data);
  }
}

} // namespace quilla
