#include "graph2d/scaling.h"

#include <cmath>

#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/sink.h"
#include "graph2d/axis_labels.h"
#include "graph2d/date_labels.h"
#include "graph2d/projection.h"
#include "text/text.h"

namespace quilla {

namespace {

constexpr int kPowerLimit = 50; // steps of the search for a power of ten
constexpr float kIntegerRange = 2147483647.0F;
constexpr int kSpaceAlong = 200, kSpaceAcross = 100; // room of a label along and across its axis

bool isExponentKind(int kind) { return kind == kLabelExp || kind == kLabelFExp || kind == kLabelXExp; }

// The next multiple of the step at or behind start; start itself if the ratio is no integer of 32 bits.
float firstMultiple(float start, float step) {
  float ratio = start / step;
  if (!(std::fabs(ratio) <= kIntegerRange)) return start;
  float whole = std::trunc(ratio);
  if (whole == ratio) return start;
  float first = whole * step;
  return start > 0.0F ? first + step : first;
}

int powerOfTen(double range) {
  int p = 0;
  while (p < kPowerLimit && range / std::pow(10.0, p) >= 10.0) p++;
  while (p > -kPowerLimit && range / std::pow(10.0, p) < 1.0) p--;
  return p;
}

// Room that one label needs along its axis, in plot units.
float labelRoom(PlotState* s, int axis, const AxisScale& scale, int digits) {
  bool vertical = s->axis.labelOrientation[axis] != 0;
  bool along = (axis == kAxisX && !vertical) || (axis == kAxisY && vertical);
  if (!along) return static_cast<float>(kSpaceAcross);
  char text[kLabelBuffer];
  labelText(s, scale.first, 0, axis, digits, text);
  float room = 1.25F * static_cast<float>(labelLength(s, axis, text));
  return room > static_cast<float>(kSpaceAlong) ? room : static_cast<float>(kSpaceAlong);
}

// Finer or coarser steps, as the room allows.
void refineStep(const PlotState* s, int axis, float room, int p, double q, double& step, int& digits) {
  bool logarithmic = s->axis.axisLogScale[axis] != 0;
  bool exponents = isExponentKind(s->axis.labelKind[axis]);
  float length = static_cast<float>(s->axis.axisLength[axis]);
  int m = static_cast<int>(q);
  bool finer = false;
  if (m == 1 && logarithmic) {
    if (step > 2.0) step = 1.0;
  } else if (m == 1 && length / 2.0F >= room) {
    finer = true;
    step = length / 5.0F < room || (exponents && q > 1.8) ? step * 0.5 : step / 5.0;
  } else if ((m == 2 || m == 3) && !logarithmic && length / static_cast<float>(2 * m) >= room) {
    finer = true;
    step *= 0.5;
  } else if (m >= 5 && (length / static_cast<float>(m) < room || (m >= 7 && exponents))) {
    step *= 2.0;
  }
  if (!finer) return;
  if (p < 0) digits++;
  if (p == 0) digits = 1;
}

// Digits of a mantissa that tells the labels apart.
int exponentDigits(float largest, int digits) {
  double v = std::fabs(static_cast<double>(largest));
  if (v == 0.0) return digits < 1 ? 1 : digits;
  for (; v >= 10.0; v /= 10.0) digits = digits > 0 ? digits + 1 : digits;
  for (; v < 1.0; v *= 10.0) digits--;
  return digits < 1 ? 1 : digits;
}

void logarithmicLimits(PlotState* s, int axis, AxisScale& scale) {
  s->axis.labelType[axis] = 1;
  if (scale.start > 0.0F) {
    scale.start = std::log10(scale.start);
  } else {
    warnPlain(s, 23);
    scale.start = -1.0F;
    s->axis.autoMin[axis] = 0.1F;
  }
  if (scale.end > 0.0F) {
    scale.end = std::log10(scale.end);
  } else {
    warnPlain(s, 24);
    scale.end = 0.0F;
    s->axis.autoMax[axis] = 1.0F;
  }
}

} // namespace

AxisScale automaticScale(PlotState* s, int axis, int& digits) {
  AxisScale scale{s->axis.autoMin[axis], s->axis.autoMax[axis], 0.0F, 1.0F};
  if (s->axis.axisLogScale[axis] != 0) logarithmicLimits(s, axis, scale);
  if (s->axis.labelClass[axis] == kClassDate || s->axis.labelClass[axis] == kClassTime) {
    digits = -1;
    if (s->axis.labelClass[axis] == kClassDate) {
      automaticDates(s, axis, scale.start, scale.end, scale.first, scale.step);
    } else {
      automaticTimes(scale.start, scale.end, scale.first, scale.step);
    }
    return scale;
  }
  double range = static_cast<double>(scale.end) - scale.start;
  int p = powerOfTen(range);
  double step = std::pow(10.0, p), q = range / step;
  digits = p < 0 ? -p : -1;
  scale.first = firstMultiple(scale.start, static_cast<float>(step));
  float room = labelRoom(s, axis, scale, digits);
  refineStep(s, axis, room, p, q, step, digits);
  scale.step = static_cast<float>(step);
  if (isExponentKind(s->axis.labelKind[axis])) {
    digits = exponentDigits(std::fmax(std::fabs(scale.start), std::fabs(scale.end)), digits);
  }
  if (std::fabs(scale.start / scale.step) <= kIntegerRange) {
    scale.first = firstMultiple(scale.start, scale.step);
  } else {
    scale.first = scale.start;
    scale.step = scale.end - scale.start;
    digits = 3;
  }
  return scale;
}

void takeAutomaticScale(PlotState* s, int axis, AxisScale& scale) {
  if (!s->axis.autoScaled[axis]) return;
  int digits = 0;
  scale = automaticScale(s, axis, digits);
  if (!s->axis.labelDigitsGiven[axis]) s->axis.labelDigits[axis] = digits;
}

int checkScale(PlotState* s, int axis, const AxisScale& scale) {
  if (!std::isfinite(scale.start) || !std::isfinite(scale.end) || !std::isfinite(scale.first) ||
      !std::isfinite(scale.step)) {
    warnPlain(s, 2);
    return 1;
  }
  int failed = 0;
  auto fail = [&](int message) {
    warnPlain(s, message);
    failed = 1;
  };
  if (std::fabs(scale.end - scale.start) <= kTiny) fail(10);
  if (std::fabs(scale.step) <= kTiny) fail(9);
  if (s->axis.axisLength[axis] < 2) fail(11);
  bool rising = scale.end >= scale.start;
  float low = rising ? scale.start : scale.end, high = rising ? scale.end : scale.start;
  if (scale.first < low || scale.first > high) warnPlain(s, 12);
  if (rising ? scale.step < 0.0F : scale.step > 0.0F) warnPlain(s, 50);
  return failed;
}

UserLimits userLimits(const PlotState* s, int axis, const AxisScale& scale) {
  const AxisGroup& a = s->axis;
  float low = scale.start, high = scale.end;
  if (a.axisLogScale[axis] != 0) {
    low = a.autoScaled[axis] ? a.autoMin[axis] : std::pow(10.0F, low);
    high = a.autoScaled[axis] ? a.autoMax[axis] : std::pow(10.0F, high);
  }
  return high < low ? UserLimits{high, low} : UserLimits{low, high};
}

void storeScale(PlotState* s, int axis, const AxisScale& scale) {
  ScalingState& c = s->scaling;
  const AxisGroup& a = s->axis;
  c.axisStart[axis] = scale.start;
  c.axisEnd[axis] = scale.end;
  c.axisFirstLabel[axis] = scale.first;
  c.axisStep[axis] = scale.step;
  const UserLimits limits = userLimits(s, axis, scale);
  float factor = static_cast<float>(a.axisLength[axis] - 1) / (scale.end - scale.start);
  if (axis == kAxisX) {
    c.userMinX = limits.min;
    c.userMaxX = limits.max;
    c.axisFactorX = factor;
    c.axisOriginPlotX = static_cast<float>(a.axisPosX);
  } else if (axis == kAxisY) {
    c.userMinY = limits.min;
    c.userMaxY = limits.max;
    c.axisFactorY = factor;
    c.axisOriginPlotY = static_cast<float>(a.axisPosY);
  }
}

bool logarithmsExist(PlotState* s, int axis, std::span<const float> values) {
  if (s->axis.axisLogScale[axis] == 0 || s->axis.negativeLogOn) return true;
  for (const float v : values) {
    if (v > 0.0F || std::isnan(v)) continue;
    warnPlain(s, 27);
    return false;
  }
  return true;
}

float scaled(const PlotState* s, int axis, float value) {
  return s->axis.axisLogScale[axis] == 0 ? value : logarithmOf(s, value);
}

float logarithmOf(const PlotState* s, float value) {
  return std::log10(value <= 0.0F && s->axis.negativeLogOn ? s->axis.negativeLogValue : value);
}

float plotX(const PlotState* s, float x) {
  if (s->axis.axisLogScale[kAxisX] != 0) x = logarithmOf(s, x);
  return (x - s->scaling.axisStart[kAxisX]) * s->scaling.axisFactorX + s->scaling.axisOriginPlotX;
}

float plotY(const PlotState* s, float y) {
  if (s->axis.axisLogScale[kAxisY] != 0) y = logarithmOf(s, y);
  return s->scaling.axisOriginPlotY - (y - s->scaling.axisStart[kAxisY]) * s->scaling.axisFactorY;
}

double polarDirection(const PlotState* s, double degrees) {
  constexpr double kRadians = 3.14159265358979323846 / 180.0;
  double turned = s->axis.polarClockwise ? -degrees : degrees;
  return (90.0 * s->axis.polarStart + turned) * kRadians;
}

namespace {

Complex quotient(Complex a, Complex b) {
  double d = b.re * b.re + b.im * b.im;
  if (d < static_cast<double>(kTiny)) return {1.0, 0.0}; // the point at infinity of the chart
  return {(a.re * b.re + a.im * b.im) / d, (a.im * b.re - a.re * b.im) / d};
}

// The chart of an axis system of the kind of GRAFR is the unit circle of the reflection coefficient.
PlotPoint chartPoint(const PlotState* s, float re, float im) {
  Complex r = reflectionOf(s, {static_cast<double>(re), static_cast<double>(im)});
  double radius = (s->axis.axisLength[kAxisX] - 1) / 2.0;
  return {static_cast<float>(s->axis.axisCrossX + radius * r.re),
          static_cast<float>(s->axis.axisCrossY - radius * r.im)};
}

} // namespace

Complex reflectionOf(const PlotState* s, Complex z) {
  Complex r = quotient({z.re - 1.0, z.im}, {z.re + 1.0, z.im});
  return s->axis.axisAdmittance ? Complex{-r.re, -r.im} : r;
}

Complex impedanceOf(const PlotState* s, Complex r) {
  if (s->axis.axisAdmittance) r = {-r.re, -r.im};
  return quotient({1.0 + r.re, r.im}, {1.0 - r.re, -r.im});
}

PlotPoint mapToPlot(const PlotState* s, float lon, float lat) {
  const ProjectionState& m = s->map;
  if (m.projection.code == kProjPlain) {
    return {m.mapOriginX + (lon - m.plainLon) * m.plainScaleX, m.mapOriginY - (lat - m.plainLat) * m.plainScaleY};
  }
  if (m.projection.code == kProjUser) {
    if (s->projectionSetup.userProjection) s->projectionSetup.userProjection(&lon, &lat);
    return {m.mapOriginX + lon, m.mapOriginY - lat};
  }
  const MapPlane p = projectPoint(m.projection, static_cast<double>(lon), static_cast<double>(lat));
  const double scale = static_cast<double>(m.mapScale);
  return {static_cast<float>(static_cast<double>(m.mapOriginX) + scale * p.x),
          static_cast<float>(static_cast<double>(m.mapOriginY) - scale * p.y)};
}

bool isOnMap(const PlotState* s, float lon, float lat) {
  const Projection& p = s->map.projection;
  if (isAzimuthal(p.code)) {
    const SpherePolar point = polarAbout(p, static_cast<double>(lon), static_cast<double>(lat));
    return point.distance <= static_cast<double>(s->projection.maximumAngle);
  }
  const ScalingState& c = s->scaling;
  return lon >= c.axisStart[kAxisX] && lon <= c.axisEnd[kAxisX] && lat >= c.axisStart[kAxisY] &&
         lat <= c.axisEnd[kAxisY];
}

PlotPoint plotPoint(const PlotState* s, float x, float y) {
  if (s->axis.axisSystemKind == kSystemMap) return mapToPlot(s, x, y);
  if (s->axis.axisSystemKind == kSystemRealImaginary) return chartPoint(s, x, y);
  if (s->axis.axisSystemKind != kSystemPolar) return {plotX(s, x), plotY(s, y)};
  double direction = polarDirection(s, static_cast<double>(y));
  double radius = static_cast<double>(x) * static_cast<double>(s->scaling.axisFactorX);
  return {static_cast<float>(s->axis.axisCrossX + radius * std::cos(direction)),
          static_cast<float>(s->axis.axisCrossY - radius * std::sin(direction))};
}

void placeRoundSystem(PlotState* s) {
  AxisGroup& a = s->axis;
  int length = a.axisLength[kAxisX] < a.axisLength[kAxisY] ? a.axisLength[kAxisX] : a.axisLength[kAxisY];
  a.axisLength[kAxisX] = a.axisLength[kAxisY] = length;
  if (a.axisOriginGiven) {
    a.axisPosX = a.axisCrossX - (length - 1) / 2;
    a.axisPosY = a.axisCrossY + (length - 1) / 2;
  } else {
    a.axisCrossX = a.axisPosX + (length - 1) / 2;
    a.axisCrossY = a.axisPosY - (length - 1) / 2;
  }
}

void storeAxisClip(PlotState* s) {
  const AxisGroup& a = s->axis;
  int grace = a.graceMargin, originX = s->page.originX, originY = s->page.originY;
  auto onPage = [](int value, int high) { return value < 0 ? 0 : value > high ? high : value; };
  int width = s->geometry.pageWidth, height = s->geometry.pageHeight;
  int* clip = s->scaling.axisClip;
  clip[0] = onPage(originX + a.axisPosX - grace, width);
  clip[1] = onPage(originY + a.axisPosY + 1 - grace - a.axisLength[kAxisY], height);
  clip[2] = onPage(originX + a.axisPosX + grace - 1 + a.axisLength[kAxisX], width);
  clip[3] = onPage(originY + a.axisPosY + grace, height);
  s->scaling.axisCenterX = static_cast<float>(originX + a.axisPosX) + static_cast<float>(a.axisLength[kAxisX] - 1) / 2;
  s->scaling.axisCenterY = static_cast<float>(originY + a.axisPosY) - static_cast<float>(a.axisLength[kAxisY] - 1) / 2;
  int shorter = a.axisLength[kAxisX] < a.axisLength[kAxisY] ? a.axisLength[kAxisX] : a.axisLength[kAxisY];
  s->scaling.axisRadius = static_cast<float>(shorter - 1) / 2 + static_cast<float>(grace);
  s->scaling.axisRightX = a.axisPosX - 1 + a.axisLength[kAxisX];
  s->scaling.axisTopY = a.axisPosY - a.axisLength[kAxisY] + 1;
}

void axisClipOn(PlotState* s) {
  ClipGroup& c = s->clip;
  if (c.clipBorderMode == kBorderAxis || s->axis.axisSystemKind == kSystemBox || c.clipMode == kClipNone) return;
  flushPath(s);
  if (s->plane.on) {
    s->plane.cutAtAxes = true;
    return;
  }
  int saved[4] = {c.clipX0, c.clipY0, c.clipX1, c.clipY1};
  for (int i = 0; i < 4; i++) c.savedClip[i] = saved[i];
  bool globe = s->axis.axisSystemKind == kSystemMap && s->map.globe;
  bool roundSystem = globe || s->axis.axisSystemKind == kSystemPolar || s->axis.axisSystemKind == kSystemRealImaginary;
  if (c.clipMode == kClipCircle || (c.clipMode == kClipAuto && roundSystem)) {
    c.clipIsCircle = c.axisClipActive = true;
    c.clipCenterX = globe ? s->map.mapOriginX + static_cast<float>(s->page.originX) : s->scaling.axisCenterX;
    c.clipCenterY = globe ? s->map.mapOriginY + static_cast<float>(s->page.originY) : s->scaling.axisCenterY;
    c.clipRadius = globe ? s->map.globeRadius : s->scaling.axisRadius;
    return;
  }
  const int* axis = s->scaling.axisClip;
  setClipRectangle(s, axis[0] > saved[0] ? axis[0] : saved[0], axis[1] > saved[1] ? axis[1] : saved[1],
                   axis[2] < saved[2] ? axis[2] : saved[2], axis[3] < saved[3] ? axis[3] : saved[3]);
  c.axisClipActive = true;
  sendClip(s, s->axis.axisBackgroundColor >= 0 ? 1.0F : 0.0F);
}

void axisClipOff(PlotState* s) {
  ClipGroup& c = s->clip;
  if (s->plane.on && s->plane.cutAtAxes) {
    flushPath(s);
    s->plane.cutAtAxes = false;
  }
  if (c.clipBorderMode == kBorderAxis || !c.axisClipActive) return;
  setClipRectangle(s, c.savedClip[0], c.savedClip[1], c.savedClip[2], c.savedClip[3]);
  if (!c.clipIsCircle) sendClip(s, 0.0F);
  c.axisClipActive = c.clipIsCircle = false;
}

} // namespace quilla
