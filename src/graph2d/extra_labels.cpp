// Labels that a script adds to an axis.
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

enum Place : int { kPlaceX = 1, kPlaceY, kPlaceTop, kPlaceRight };

AxisPlace placeOf(const PlotState* s, int found) {
  const AxisGroup& a = s->axis;
  const int right = s->scaling.axisRightX, top = s->scaling.axisTopY;
  switch (found) {
  case kPlaceX: return {kAxisX, kSideBottom, a.axisPosX, a.axisCrossed ? a.axisCrossY : a.axisPosY, 0, false};
  case kPlaceY: return {kAxisY, kSideLeft, a.axisCrossed ? a.axisCrossX : a.axisPosX, a.axisPosY, 0, false};
  case kPlaceTop: return {kAxisX, kSideTop, a.axisPosX, top, 0, false};
  default: return {kAxisY, kSideRight, right, a.axisPosY, 0, false};
  }
}

} // namespace

void ADDLAB(const char* text, float value, int tick, const char* axis) {
  PlotState* s = strictCheck(2, 3, "addlab");
  if (!s) return;
  const int found = matchKeyword(s, "X   +Y   +XTOP+YRIG", 4, axis);
  if (found == 0 || checkRange(s, tick, 0, 2)) return;
  if (s->axis.axisSystemKind != kSystemRectangular) {
    return warnWithText(s, 109, "Routine does not work for polar axis systems");
  }
  const AxisPlace place = placeOf(s, found);
  const double at = static_cast<double>(scaled(s, place.axis, value));
  if (!withinScale(s, place.axis, at)) {
    return warnWithText(s, 108, "values out of range");
  }
  const int lengths[] = {0, s->axis.tickLengthMinor, s->axis.tickLengthMajor};
  s->internalCoordinates = true;
  drawExtraLabel(s, place, text, at, lengths[tick]);
  s->internalCoordinates = false;
  flushPath(s);
}
