#include "graph2d/polar.h"

#include <cmath>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/axis_labels.h"
#include "graph2d/axis_system.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"
#include "text/text.h"

namespace quilla {

namespace {

constexpr int kChords = 360; // of a circle
constexpr double kFullCircle = 360.0, kAngleSlack = 0.001;
constexpr double kTwoPi = 6.28318530717958647692;

PlotPoint onCircle(const PlotState* s, double radius, double direction) {
  return {static_cast<float>(s->axis.axisCrossX + radius * std::cos(direction)),
          static_cast<float>(s->axis.axisCrossY - radius * std::sin(direction))};
}

void drawRay(PlotState* s, double from, double to, double direction) {
  PlotPoint a = onCircle(s, from, direction), b = onCircle(s, to, direction);
  penMove(s, a.x, a.y);
  penDraw(s, b.x, b.y);
}

double outerRadius(const PlotState* s) { return (s->axis.axisLength[kAxisX] - 1) / 2.0; }

// Angles of labels: from the first one on by steps, once round the circle.
int angleCount(const PlotState* s) {
  double step = std::fabs(static_cast<double>(s->scaling.axisStep[kAxisY]));
  return static_cast<int>(std::fmin(kFullCircle / step - kAngleSlack, kFullCircle)) + 1;
}

double angleAt(const PlotState* s, double i) {
  return static_cast<double>(s->scaling.axisFirstLabel[kAxisY]) + i * static_cast<double>(s->scaling.axisStep[kAxisY]);
}

void drawAngleTicks(PlotState* s) {
  int parts = s->axis.tickCount[kAxisY];
  if (parts < 1) return;
  double radius = outerRadius(s);
  for (int i = 0, n = angleCount(s) * parts; i < n; i++) {
    int length = i % parts == 0 ? s->axis.tickLengthMajor : s->axis.tickLengthMinor;
    drawRay(s, radius, radius + length, polarDirection(s, angleAt(s, static_cast<double>(i) / parts)));
  }
}

// A label stands with its middle on the ray, as far out as its box needs to clear the ticks.
void drawAngleLabels(PlotState* s) {
  if (s->axis.labelKind[kAxisY] == kLabelNone) return;
  int h = s->text.textHeight, digits = labelDigitsOf(s, kAxisY);
  double clear = outerRadius(s) + s->axis.tickLengthMajor + s->axis.labelDistance[kAxisY];
  char text[kLabelBuffer];
  for (int i = 0, n = angleCount(s); i < n; i++) {
    double value = std::fmod(angleAt(s, i) + kFullCircle, kFullCircle), direction = polarDirection(s, angleAt(s, i));
    labelText(s, value, i, kAxisY, digits, text);
    int length = labelLength(s, kAxisY, text);
    double c = std::cos(direction), n2 = std::sin(direction);
    double x = s->axis.axisCrossX + (clear + length / 2.0) * c - length / 2.0;
    double y = s->axis.axisCrossY - (clear + h / 2.0) * n2 - h / 2.0;
    textAtWith(s, text, roundHalfUp(static_cast<float>(x)), roundHalfUp(static_cast<float>(y)), 0, h);
  }
}

bool checkPolar(PlotState* s, float xe, float xorg, float xstp, float yorg, float ystp) {
  AxisScale radius{0.0F, xe, xorg, xstp}, angle{0.0F, 360.0F, yorg, ystp};
  bool fineRadius = checkScale(s, kAxisX, radius) == 0, fineAngle = checkScale(s, kAxisY, angle) == 0;
  return fineRadius && fineAngle;
}

// Radii count outwards from the centre on both sides of it.
void drawRadiusAxis(PlotState* s, const AxisScale& radius) {
  const ScalingState kept = s->scaling;
  const AxisGroup keptAxis = s->axis;
  int half = (s->axis.axisLength[kAxisX] + 1) / 2;
  s->axis.axisLength[kAxisX] = half;
  s->scaling.axisStart[kAxisX] = 0.0F;
  s->scaling.axisEnd[kAxisX] = radius.end;
  int parts = s->axis.axisPartDrawn[kSideBottom];
  drawAxis(s, {kAxisX, kSideBottom, s->axis.axisCrossX, s->axis.axisCrossY, parts, false});
  // The left half has the same ticks without labels.
  s->scaling.axisStart[kAxisX] = radius.end;
  s->scaling.axisEnd[kAxisX] = 0.0F;
  drawAxis(s,
           {kAxisX, kSideBottom, s->axis.axisPosX, s->axis.axisCrossY, parts < kPartTicks ? parts : kPartTicks, false});
  s->scaling = kept;
  s->axis = keptAxis;
}

void drawPolarSystem(PlotState* s, const AxisScale& radius) {
  fillSystemBackground(s);
  int kept = s->line.lineStyleIndex;
  setLineType(s, 0);
  s->internalCoordinates = true;
  drawSystemCircle(s, outerRadius(s));
  if (s->axis.axisPartDrawn[kSideLeft] >= kPartTicks) drawAngleTicks(s);
  if (s->axis.axisPartDrawn[kSideLeft] >= kPartLabels) drawAngleLabels(s);
  drawRadiusAxis(s, radius);
  s->internalCoordinates = false;
  setLineType(s, kept);
}

void openPolar(const char* routine, float xe, float xorg, float xstp, float yorg, float ystp) {
  PlotState* s = strictCheck(1, 1, routine);
  if (!s) return;
  if (s->axis.axisLogScale[kAxisX] != 0 || s->axis.axisLogScale[kAxisY] != 0) {
    return warnWithText(s, 132, "Polar axis systems must have linear scaling");
  }
  if (s->axis.autoScaled[kAxisX]) {
    int digits = 0;
    s->axis.autoMin[kAxisX] = 0.0F;
    AxisScale scale = automaticScale(s, kAxisX, digits);
    xe = scale.end;
    xorg = scale.first;
    xstp = scale.step;
    if (!s->axis.labelDigitsGiven[kAxisX]) s->axis.labelDigits[kAxisX] = digits;
  }
  if (s->axis.autoScaled[kAxisY]) {
    yorg = 0.0F;
    ystp = 30.0F;
    if (!s->axis.labelDigitsGiven[kAxisY]) s->axis.labelDigits[kAxisY] = -1;
  }
  if (!checkPolar(s, xe, xorg, xstp, yorg, ystp)) return;
  s->level.plotLevel = kLevelAxis2D;
  s->axis.axisSystemKind = kSystemPolar;
  placeRoundSystem(s);
  AxisScale radius{-xe, xe, xorg, xstp};
  storeScale(s, kAxisX, radius);
  storeScale(s, kAxisY, {0.0F, 360.0F, yorg, ystp});
  if (s->axis.centerState == 1) {
    s->axis.axisPosX = (s->geometry.pageWidth - s->axis.axisLength[kAxisX]) / 2;
    s->axis.axisPosY = (s->geometry.pageHeight + s->axis.axisLength[kAxisY]) / 2;
    s->axis.axisOriginGiven = false;
    s->axis.centerState = 2;
    placeRoundSystem(s);
  }
  storeAxisClip(s);
  if (!s->axis.noAxesDrawn) drawPolarSystem(s, radius);
  flushPath(s);
}

} // namespace

void drawSystemCircle(PlotState* s, double radius) {
  for (int i = 0; i <= kChords; i++) {
    PlotPoint p = onCircle(s, radius, kTwoPi * i / kChords);
    if (i == 0) {
      penMove(s, p.x, p.y);
    } else {
      penDraw(s, p.x, p.y);
    }
  }
}

void drawPolarGrid(PlotState* s, int circles, int rays) {
  double end = static_cast<double>(s->scaling.axisEnd[kAxisX]), step = static_cast<double>(s->scaling.axisStep[kAxisX]);
  double factor = static_cast<double>(s->scaling.axisFactorX);
  s->internalCoordinates = true;
  if (circles > 0) {
    TickRange range = tickRange(s, kAxisX, step / circles);
    for (int i = range.low; i <= range.high; i++) {
      double r = static_cast<double>(s->scaling.axisFirstLabel[kAxisX]) + i * step / circles;
      // The circle of the system itself is drawn already.
      if (r > end * kAngleSlack && r < end * (1.0 - kAngleSlack)) drawSystemCircle(s, r * factor);
    }
  }
  for (int i = 0, n = rays > 0 ? angleCount(s) * rays : 0; i < n; i++) {
    drawRay(s, 0.0, outerRadius(s), polarDirection(s, angleAt(s, static_cast<double>(i) / rays)));
  }
  s->internalCoordinates = false;
  flushPath(s);
}

} // namespace quilla

using namespace quilla;

void POLAR(float xe, float xorg, float xstp, float yorg, float ystp) { openPolar("polar", xe, xorg, xstp, yorg, ystp); }
void GRAFP(float xe, float xorg, float xstp, float yorg, float ystp) { openPolar("grafp", xe, xorg, xstp, yorg, ystp); }

void POLMOD(const char* start, const char* direction) {
  PlotState* s = setterCheck("polmod");
  if (!s) return;
  int first = matchKeyword(s, "RIGH+TOP +LEFT+BOTT", 4, start), turn = matchKeyword(s, "ANTI+CLOC", 2, direction);
  if (first) s->axis.polarStart = first - 1;
  if (turn) s->axis.polarClockwise = turn == 2;
}

void GRDPOL(int nx, int ny) {
  PlotState* s = strictCheck(2, 3, "grdpol");
  if (!s || checkRange(s, nx, 0, -1) || checkRange(s, ny, 0, -1)) return;
  if (s->axis.axisSystemKind == kSystemPolar) drawPolarGrid(s, nx, ny);
}
