// Opening a three-dimensional axis system, and its box.
#include <cmath>

#include "core/colors.h"
#include "core/levels.h"
#include "core/pipeline.h"
#include "core/projection.h"
#include "graph2d/axis_system.h"
#include "graph2d/scaling.h"
#include "graph3d/box.h"
#include "graph3d/box_axes.h"
#include "graph3d/lighting.h"
#include "graph3d/planes.h"
#include "graph3d/view.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// Automatic scaling of all axes, then their checks. False after a message.
bool takeScales(PlotState* s, AxisScale (&scales)[kAxisCount]) {
  int& lengthZ = s->axis.axisLength[kAxisZ];
  const int kept = lengthZ;
  if (lengthZ == 0) lengthZ = s->axis.axisLength[kAxisY]; // AX3LEN was not called: Z is drawn as a Y axis
  for (int axis = 0; axis < kAxisCount; axis++) takeAutomaticScale(s, axis, scales[axis]);
  bool good = true;
  for (const int axis : {kAxisY, kAxisX, kAxisZ}) good = checkScale(s, axis, scales[axis]) == 0 && good;
  lengthZ = kept;
  return good;
}

void storeScales(PlotState* s, const AxisScale (&scales)[kAxisCount]) {
  ViewState& v = s->viewState;
  for (int axis = 0; axis < kAxisCount; axis++) {
    storeScale(s, axis, scales[axis]);
    v.box[axis] = s->view.boxLength[axis];
    v.start[axis] = scales[axis].start;
    v.end[axis] = scales[axis].end;
    v.logarithmic[axis] = s->axis.axisLogScale[axis] != 0;
    const UserLimits limits = userLimits(s, axis, scales[axis]);
    v.userMin[axis] = limits.min;
    v.userMax[axis] = limits.max;
  }
}

// Where the picture stands on the page.
void setFrame(PlotState* s) {
  const AxisGroup& a = s->axis;
  const float lengthX = static_cast<float>(a.axisLength[kAxisX]), lengthY = static_cast<float>(a.axisLength[kAxisY]);
  ViewState& v = s->viewState;
  v.scale = std::fmin(lengthX, lengthY) / 2.0F;
  v.centerX = static_cast<float>(a.axisPosX) + lengthX / 2.0F;
  v.centerY = static_cast<float>(a.axisPosY) - lengthY / 2.0F;
  s->scaling.axisOriginPlotX = static_cast<float>(a.axisPosX);
  s->scaling.axisOriginPlotY = static_cast<float>(a.axisPosY);
  storeAxisClip(s);
}

void drawAxes(PlotState* s) {
  KeptLineStyle kept = keepLineStyle(s);
  setLineType(s, 0);
  s->internalCoordinates = true;
  if (s->view.axisStyle == kAxesOnPlanes) {
    drawAxesOnPlanes(s);
  } else {
    drawAxesOnEdges(s);
  }
  s->internalCoordinates = false;
  restoreLineStyle(s, kept);
}

// Moves the system so that box, axes and titles stand in the middle of the page. The axes are only measured.
void centerBox(PlotState* s) {
  AxisGroup& a = s->axis;
  const PagePoint first = pageOfBox(s, 0.0F, 0.0F, 0.0F);
  const float originX = static_cast<float>(s->page.originX), originY = static_cast<float>(s->page.originY);
  PathMeasure& m = s->measure;
  m = {true, first.x + originX, first.y + originY, first.x + originX, first.y + originY};
  for (int corner = 1; corner <= 8; corner++) {
    const BoxPoint p = boxCorner(s, corner);
    const PagePoint page = pageOfBox(s, p.x, p.y, p.z);
    if (corner == 1) penMove(s, page.x, page.y);
    penDraw(s, page.x, page.y);
  }
  if (!a.noAxesDrawn) drawAxes(s);
  flushPath(s);
  m.on = false;
  const int title = titleExtent(s);
  const float top = static_cast<float>(a.axisPosY - a.axisLength[kAxisY] - title) + originY;
  if (title > 0) m.y0 = std::fmin(m.y0, top);
  const float width = static_cast<float>(s->geometry.pageWidth), height = static_cast<float>(s->geometry.pageHeight);
  const float shiftX = (width - m.x0 - m.x1) / 2.0F + originX, shiftY = (height - m.y0 - m.y1) / 2.0F + originY;
  if (std::fabs(shiftX) <= width && std::fabs(shiftY) <= height) {
    a.axisPosX += static_cast<int>(shiftX);
    a.axisPosY += static_cast<int>(shiftY);
  }
  a.centerState = 2;
  setFrame(s);
}

} // namespace

void GRAF3D(float xa, float xe, float xor_, float xstep, float ya, float ye, float yor, float ystep, float za, float ze,
            float zor, float zstep) {
  PlotState* s = strictCheck(1, 1, "graf3d");
  if (!s) return;
  leavePlane(s);
  AxisScale scales[kAxisCount] = {{xa, xe, xor_, xstep}, {ya, ye, yor, ystep}, {za, ze, zor, zstep}};
  if (!takeScales(s, scales)) return;
  s->level.plotLevel = kLevelAxis3D;
  s->axis.axisSystemKind = kSystemBox;
  storeScales(s, scales);
  setFrame(s);
  setView(s);
  placeLights(s);
  s->boxPen = BoxPen{};
  if (s->axis.centerState == 1) centerBox(s);
  if (!s->axis.noAxesDrawn) drawAxes(s);
  flushPath(s);
}

void BOX3D(void) {
  PlotState* s = boxCheck("box3d");
  if (!s) return;
  const bool transformed = s->boxTransform.on;
  const int kept = s->color.currentColor;
  s->boxTransform.on = false;
  auto line = [&](std::initializer_list<int> corners) {
    const int* c = corners.begin();
    boxMove(s, boxCorner(s, c[0]));
    for (std::size_t i = 1; i < corners.size(); i++) boxDraw(s, boxCorner(s, c[i]));
  };
  line({1, 2, 3, 4, 1});
  boxDraw(s, boxCorner(s, 5));
  line({5, 6, 7, 8, 5});
  line({2, 6});
  line({3, 7});
  line({4, 8});
  flushPath(s);
  s->boxTransform.on = transformed;
  if (kept != s->color.currentColor) setColor(s, kept);
}
