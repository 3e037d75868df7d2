// Labels that a script adds to an axis.
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/color_bar.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

enum Place : int { kPlaceX = 1, kPlaceY, kPlaceTop, kPlaceRight, kPlaceZ };

AxisPlace placeOf(PlotState* s, int found) {
  const AxisGroup& a = s->axis;
  const int right = s->scaling.axisRightX, top = s->scaling.axisTopY;
  switch (found) {
  case kPlaceX: return {kAxisX, kSideBottom, a.axisPosX, a.axisCrossed ? a.axisCrossY : a.axisPosY, 0, false};
  case kPlaceY: return {kAxisY, kSideLeft, a.axisCrossed ? a.axisCrossX : a.axisPosX, a.axisPosY, 0, false};
  case kPlaceTop: return {kAxisX, kSideTop, a.axisPosX, top, 0, false};
  case kPlaceRight: return {kAxisY, kSideRight, right, a.axisPosY, 0, false};
  default: return colorBarAxis(s, placedColorBar(s));
  }
}

// A colour bar has its axis only in a colour graph, at level 3.
bool asksForColorBar(const char* axis) { return axis[0] == 'Z' || axis[0] == 'z'; }

bool hasPlainAxes(PlotState* s) {
  switch (s->axis.axisSystemKind) {
  case kSystemRectangular: return true;
  case kSystemBox: warnWithText(s, 101, "Additional labels for graf3d are not supported"); return false;
  default: warnWithText(s, 109, "Routine does not work for polar axis systems"); return false;
  }
}

} // namespace

void ADDLAB(const char* text, float value, int tick, const char* axis) {
  PlotState* s = strictCheck(asksForColorBar(axis) ? 3 : 2, 3, "addlab");
  if (!s) return;
  const int found = matchKeyword(s, "X   +Y   +XTOP+YRIG+Z   ", 5, axis);
  if (found == 0 || checkRange(s, tick, 0, 2) || !hasPlainAxes(s)) return;
  const int keptLength = s->axis.axisLength[kAxisZ];
  const AxisPlace place = placeOf(s, found);
  if (place.axis == kAxisZ) s->axis.axisLength[kAxisZ] = colorBarLength(s);
  const bool logarithmic = s->axis.axisLogScale[place.axis] != 0;
  const double at = static_cast<double>(logarithmic ? logarithmOf(s, value) : value);
  if (withinScale(s, place.axis, at)) {
    const int lengths[] = {0, s->axis.tickLengthMinor, s->axis.tickLengthMajor};
    s->internalCoordinates = true;
    drawExtraLabel(s, place, text, at, lengths[tick]);
    s->internalCoordinates = false;
    flushPath(s);
  } else {
    warnWithText(s, 108, "values out of range");
  }
  s->axis.axisLength[kAxisZ] = keptLength;
}
