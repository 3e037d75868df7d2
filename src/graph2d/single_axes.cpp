// Axes anywhere on the page: XAXIS, YAXIS and their logarithmic kinds, and the scaling of an axis without drawing it.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/axis_string.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// What drawing another axis changes in the settings of the open system.
struct KeptAxis {
  AxisGroup axis;
  ScalingState scaling;
};

// An axis of a length with its start at (nx, ny); it: 0 labels below or to the right, 1 above or to the left.
void drawSingleAxis(const char* routine, int axis, bool logarithmic, const AxisScale& scale, int length,
                    const char* name, int it, int nx, int ny) {
  PlotState* s = strictCheck(1, 3, routine);
  if (!s) return;
  int y = userY(s, ny), x = addCoordinates(nx, s->page.originX), top = addCoordinates(y, s->page.originY);
  if (x < 0 || x > s->geometry.pageWidth) return warnWithNumber(s, 4, nx);
  if (top < 0 || top > s->geometry.pageHeight) return warnWithNumber(s, 5, ny);
  if (checkRange(s, it, 0, 1)) return;
  const KeptAxis kept{s->axis, s->scaling};
  s->axis.axisLength[axis] = limitedDistance(length);
  s->axis.axisLogScale[axis] = logarithmic;
  s->axis.autoScaled[axis] = false;
  copyText(s->axis.axisName[axis], name, kLabelTextLimit);
  if (checkScale(s, axis, scale) == 0) {
    storeScale(s, axis, scale);
    constexpr int kSides[2][2] = {{kSideBottom, kSideTop}, {kSideRight, kSideLeft}};
    bool internal = s->internalCoordinates;
    s->internalCoordinates = true;
    drawAxis(s, {axis, kSides[axis][it], nx, y, kPartName, false});
    s->internalCoordinates = internal;
    flushPath(s);
  }
  s->axis = kept.axis;
  s->scaling = kept.scaling;
}

} // namespace

void XAXIS(float a, float e, float first, float step, int length, const char* name, int it, int nx, int ny) {
  drawSingleAxis("xaxis", kAxisX, false, {a, e, first, step}, length, name, it, nx, ny);
}

void YAXIS(float a, float e, float first, float step, int length, const char* name, int it, int nx, int ny) {
  drawSingleAxis("yaxis", kAxisY, false, {a, e, first, step}, length, name, it, nx, ny);
}

void XAXLG(float a, float e, float first, float step, int length, const char* name, int it, int nx, int ny) {
  drawSingleAxis("xaxlg", kAxisX, true, {a, e, first, step}, length, name, it, nx, ny);
}

void YAXLG(float a, float e, float first, float step, int length, const char* name, int it, int nx, int ny) {
  drawSingleAxis("yaxlg", kAxisY, true, {a, e, first, step}, length, name, it, nx, ny);
}

void YPOLAR(float a, float e, float first, float step, const char* name, int distance) {
  PlotState* s = strictCheck(2, 3, "ypolar");
  if (!s) return;
  if (s->axis.axisSystemKind != kSystemPolar) return warnWithText(s, 160, "There is no polar axis system");
  int foot = roundHalfUp(userY(s, static_cast<float>(s->axis.axisPosY)));
  drawSingleAxis("ypolar", kAxisY, false, {a, e, first, step}, s->axis.axisLength[kAxisY], name, 1,
                 addCoordinates(s->axis.axisPosX, -limitedDistance(distance)), foot);
}

void GAXPAR(float a1, float a2, const char* option, const char* axes, float* a, float* b, float* first, float* step,
            int* digits) {
  constexpr int kMostSteps = 100, kExtended = 2;
  PlotState* s = setterCheck("gaxpar");
  if (!s) return;
  int found = matchKeyword(s, "NOEX+EXTE", 2, option), axis = axes ? axisOfLetter(axes[0]) : -1;
  if (axis < 0) warnWithString(s, 2, axes);
  if (!found || axis < 0 || !std::isfinite(a1) || !std::isfinite(a2)) return;
  const AxisGroup kept = s->axis;
  bool inverted = a2 < a1;
  float low = inverted ? a2 : a1, high = inverted ? a1 : a2;
  if (high - low < kTiny) {
    warnPlain(s, 25);
    low -= 1.0F;
    high += 1.0F;
  }
  s->axis.autoMin[axis] = low;
  s->axis.autoMax[axis] = high;
  s->axis.autoScaled[axis] = true;
  AxisScale scale = automaticScale(s, axis, *digits);
  s->axis = kept;
  if (found == kExtended) {
    if (scale.first - scale.start > kTiny) {
      scale.start = scale.first - scale.step;
      scale.first = scale.start;
    }
    float end = scale.first;
    for (int i = 0; i < kMostSteps && end < scale.end - kTiny; i++) end += scale.step;
    if (end >= scale.end - kTiny) scale.end = end;
  }
  if (inverted) {
    float last = scale.first + std::floor((scale.end - scale.first) / scale.step + 0.0001F) * scale.step;
    float start = scale.start;
    scale = {scale.end, start, last, -scale.step};
  }
  *a = scale.start;
  *b = scale.end;
  *first = scale.first;
  *step = scale.step;
}
