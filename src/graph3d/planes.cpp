#include "graph3d/planes.h"

#include <cstring>
#include <utility>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "graph2d/axis_system.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace quilla {

void enterPlane(PlotState* s, const BoxPoint& p1, const BoxPoint& p2, const BoxPoint& p3) {
  flushPath(s);
  const float a[3] = {p1.x, p1.y, p1.z}, b[3] = {p2.x, p2.y, p2.z}, c[3] = {p3.x, p3.y, p3.z};
  s->plane = PlaneState{};
  s->plane.on = true;
  for (int i = 0; i < 3; i++) {
    s->plane.p[i] = a[i];
    s->plane.e1[i] = b[i] - a[i];
    s->plane.e2[i] = c[i] - b[i];
  }
}

void leavePlane(PlotState* s) {
  flushPath(s);
  s->plane.on = false;
}

void enterCornerPlane(PlotState* s, int corners) {
  enterPlane(s, boxCorner(s, corners / 100), boxCorner(s, corners / 10 % 10), boxCorner(s, corners % 10));
}

namespace {

template <class T> void exchange(T (&field)[kAxisCount], int a, int b) { std::swap(field[a], field[b]); }
template <class T, std::size_t n> void exchange(T (&field)[kAxisCount][n], int a, int b) {
  std::swap_ranges(field[a], field[a] + n, field[b]);
}

} // namespace

void exchangeAxes(PlotState* s, int a, int b) {
  AxisGroup& g = s->axis;
  auto trade = [&](auto&... fields) { (exchange(fields, a, b), ...); };
  trade(g.axisLogScale, g.autoScaled, g.autoMin, g.autoMax, g.axisLineOn, g.tickCount, g.tickPosition,
        g.tickCalendarMode, g.dates, g.labelKind, g.labelClass, g.labelDigits, g.labelAutoDigits, g.labelDigitsGiven,
        g.labelType, g.labelPosition, g.labelJustify, g.labelOrientation, g.labelDistance, g.axisEndsMode, g.axisName,
        g.nameDistance, g.nameJustify, g.myLabelCount, g.axisColors);
  ScalingState& c = s->scaling;
  trade(c.axisStart, c.axisEnd, c.axisFirstLabel, c.axisStep, c.longestLabel);
  for (int i = 0; i < kMyLabelCount; i++) std::swap(s->myLabels.myLabels[a][i], s->myLabels.myLabels[b][i]);
}

} // namespace quilla

void GRFINI(float x1, float y1, float z1, float x2, float y2, float z2, float x3, float y3, float z3) {
  PlotState* s = boxCheck("grfini");
  if (!s) return;
  s->viewState.boxScaling = s->scaling;
  enterPlane(s, {x1, y1, z1}, {x2, y2, z2}, {x3, y3, z3});
  s->axis.axisSystemKind = kSystemRectangular;
  s->level.plotLevel = kLevelPlot;
}

void GRFFIN(void) {
  PlotState* s = strictCheck(1, 3, "grffin");
  if (!s) return;
  if (!s->plane.on) return warnPlain(s, 34);
  leavePlane(s);
  s->scaling = s->viewState.boxScaling;
  s->axis.axisSystemKind = kSystemBox;
  s->level.plotLevel = kLevelAxis3D;
}

namespace {

// One plane of the box with grid lines of the axes that run along its sides.
void gridOnPlane(PlotState* s, int corners, int across, int up, int nAcross, int nUp) {
  const AxisGroup keptAxis = s->axis;
  const ScalingState keptScaling = s->scaling;
  const ViewState& v = s->viewState;
  ScalingState& c = s->scaling;
  const int axes[2] = {across, up};
  for (int slot = 0; slot < 2; slot++) {
    c.axisStart[slot] = v.start[axes[slot]];
    c.axisEnd[slot] = v.end[axes[slot]];
    c.axisFirstLabel[slot] = keptScaling.axisFirstLabel[axes[slot]];
    c.axisStep[slot] = keptScaling.axisStep[axes[slot]];
    s->axis.axisLogScale[slot] = v.logarithmic[axes[slot]];
  }
  enterCornerPlane(s, corners);
  drawGrid(s, nAcross, nUp);
  leavePlane(s);
  s->axis = keptAxis;
  s->scaling = keptScaling;
}

} // namespace

void GRID3D(int nx, int ny, const char* which) {
  enum Which : int { kAllPlanes = 1, kBackPlanes = 2, kBottomPlane = 3 };
  PlotState* s = boxCheck("grid3d");
  if (!s) return;
  int found = matchKeyword(s, "ALL +BACK+BOTT", 3, which);
  if (found == 0) found = kAllPlanes;
  if (checkRange(s, nx, 0, -1)) nx = 0;
  if (checkRange(s, ny, 0, -1)) ny = 0;
  if (found != kBackPlanes) gridOnPlane(s, 123, kAxisX, kAxisY, nx, ny);
  const float eyeX = s->viewState.eye[0], eyeY = s->viewState.eye[1];
  if (found == kBottomPlane || eyeX == 0.0F || eyeY == 0.0F) return;
  // The walls away from the eye: that of constant X, and that of constant Y.
  gridOnPlane(s, eyeX > 0.0F ? 148 : 237, kAxisY, kAxisZ, nx, ny);
  gridOnPlane(s, eyeY > 0.0F ? 126 : 437, kAxisX, kAxisZ, nx, ny);
}
