// Opening and closing a rectangular axis system, grids and lines through the origin.
#include "graph2d/axis_system.h"

#include <cmath>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/color_bar.h"
#include "graph2d/legend.h"
#include "graph2d/polar.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// A single line coincides with the axes of the four sides; a thicker frame grows outwards.
constexpr int kVisibleFrame = 2;

bool takeScale(PlotState* s, int axis, AxisScale& scale) {
  takeAutomaticScale(s, axis, scale);
  return checkScale(s, axis, scale) == 0;
}

// The origin of the user must lie inside both scalings; position and crossing follow from each other.
bool placeCrossing(PlotState* s, const AxisScale& x, const AxisScale& y) {
  auto holdsZero = [](const AxisScale& c) {
    return std::fmin(c.start, c.end) <= kTiny && std::fmax(c.start, c.end) >= -kTiny;
  };
  if (!holdsZero(x) || !holdsZero(y)) {
    warnWithText(s, 151, "No origin found for crossed axis system");
    return false;
  }
  AxisGroup& a = s->axis;
  if (a.axisOriginGiven) {
    auto toStart = [&](int axis, const AxisScale& c) {
      return static_cast<int>(static_cast<float>(a.axisLength[axis] - 1) * c.start / (c.end - c.start));
    };
    a.axisPosX = a.axisCrossX + toStart(kAxisX, x);
    a.axisPosY = a.axisCrossY - toStart(kAxisY, y) - 1;
    s->scaling.axisOriginPlotX = static_cast<float>(a.axisPosX);
    s->scaling.axisOriginPlotY = static_cast<float>(a.axisPosY);
  } else {
    a.axisCrossX = roundHalfUp(plotX(s, 0.0F));
    a.axisCrossY = roundHalfUp(plotY(s, 0.0F));
  }
  return true;
}

void drawFourSides(PlotState* s, OffsetOnAxis alongX, OffsetOnAxis alongY) {
  const AxisGroup& a = s->axis;
  int right = s->scaling.axisRightX, top = s->scaling.axisTopY;
  const int* parts = a.axisPartDrawn;
  drawAxis(s, {kAxisX, kSideBottom, a.axisPosX, a.axisPosY, parts[kSideBottom], false, alongX});
  drawAxis(s, {kAxisY, kSideLeft, a.axisPosX, a.axisPosY, parts[kSideLeft], false, alongY});
  if (a.twoAxesOnly) return;
  drawAxis(s, {kAxisX, kSideTop, a.axisPosX, top, parts[kSideTop], false, alongX});
  drawAxis(s, {kAxisY, kSideRight, right, a.axisPosY, parts[kSideRight], false, alongY});
}

void drawCrossed(PlotState* s) {
  const AxisGroup& a = s->axis;
  drawAxis(s, {kAxisX, kSideBottom, a.axisPosX, a.axisCrossY, a.axisPartDrawn[kSideBottom], true});
  drawAxis(s, {kAxisY, kSideLeft, a.axisCrossX, a.axisPosY, a.axisPartDrawn[kSideLeft], true});
}

// The border of the axis system, so many plot units outside it.
void drawBorder(PlotState* s, int outside) {
  const AxisGroup& a = s->axis;
  const float x0 = static_cast<float>(a.axisPosX - outside), y0 = static_cast<float>(a.axisPosY + outside);
  const float x1 = static_cast<float>(a.axisPosX - 1 + a.axisLength[kAxisX] + outside);
  const float y1 = static_cast<float>(a.axisPosY + 1 - a.axisLength[kAxisY] - outside);
  penMove(s, x0, y0);
  penDraw(s, x1, y0);
  penDraw(s, x1, y1);
  penDraw(s, x0, y1);
  penDraw(s, x0, y0);
}

void drawFrame(PlotState* s) {
  const AxisGroup& a = s->axis;
  int kept = s->color.currentColor;
  if (a.frameColor >= 0) setColor(s, a.frameColor);
  int lines = a.frameThickness < s->geometry.pageWidth ? a.frameThickness : s->geometry.pageWidth;
  for (int i = 0; i < lines; i++) drawBorder(s, i);
  if (a.frameColor >= 0) setColor(s, kept);
}

// Axes are solid, whatever the current line type is.
template <class Draw> void drawAxes(PlotState* s, Draw draw) {
  fillSystemBackground(s);
  KeptLineStyle kept = keepLineStyle(s);
  setLineType(s, 0);
  s->internalCoordinates = true;
  draw();
  s->internalCoordinates = false;
  restoreLineStyle(s, kept);
}

void drawSystem(PlotState* s) {
  if (!s->axis.axisCrossed) return drawFourSidedSystem(s, nullptr, nullptr);
  drawAxes(s, [s] { drawCrossed(s); });
}

// 0 lies inside the scaling of the axis, by more than a hair; on a logarithmic axis it never does.
bool zeroInside(const PlotState* s, int axis) {
  float a = s->scaling.axisStart[axis], e = s->scaling.axisEnd[axis];
  return s->axis.axisLogScale[axis] == 0 && std::fmin(a, e) < -kTiny && std::fmax(a, e) > kTiny;
}

enum OriginLine { kLineOnly, kLineWithTicks };

// The line of an axis through the origin of the other one.
void drawThroughOrigin(PlotState* s, int axis, OriginLine kind) {
  if (!zeroInside(s, axis == kAxisX ? kAxisY : kAxisX)) return;
  const AxisGroup& a = s->axis;
  int parts = kind == kLineWithTicks ? kPartTicks : kPartLine;
  s->internalCoordinates = true;
  if (axis == kAxisX) {
    drawAxis(s, {kAxisX, kSideBottom, a.axisPosX, roundHalfUp(plotY(s, 0.0F)), parts, false});
  } else {
    drawAxis(s, {kAxisY, kSideLeft, roundHalfUp(plotX(s, 0.0F)), a.axisPosY, parts, false});
  }
  s->internalCoordinates = false;
  flushPath(s);
}

void originLines(const char* name, bool x, bool y, OriginLine kind) {
  PlotState* s = strictCheck(2, 3, name);
  if (!s) return;
  if (x) drawThroughOrigin(s, kAxisX, kind);
  if (y) drawThroughOrigin(s, kAxisY, kind);
}

// Grid lines across the system at the parts of each label step; drawn to and fro.
void gridLines(PlotState* s, int axis, int perStep) {
  if (perStep < 1) return;
  const AxisGroup& a = s->axis;
  double interval = static_cast<double>(s->scaling.axisStep[axis]) / perStep;
  TickRange range = tickRange(s, axis, interval);
  if (range.cut) warnCutTicks(s);
  bool back = false;
  for (int i = range.low; i <= range.high; i++, back = !back) {
    int offset = axisOffset(s, axis, static_cast<double>(s->scaling.axisFirstLabel[axis]) + i * interval);
    if (offset < 0 || offset >= a.axisLength[axis]) continue;
    float x0 = static_cast<float>(a.axisPosX), x1 = static_cast<float>(s->scaling.axisRightX);
    float y0 = static_cast<float>(a.axisPosY), y1 = static_cast<float>(s->scaling.axisTopY);
    if (axis == kAxisX) {
      x0 = x1 = static_cast<float>(a.axisPosX + offset);
    } else {
      y0 = y1 = static_cast<float>(a.axisPosY - offset);
    }
    penMove(s, back ? x1 : x0, back ? y1 : y0);
    penDraw(s, back ? x0 : x1, back ? y0 : y1);
  }
}

} // namespace

void quilla::drawGrid(PlotState* s, int nx, int ny) {
  gridLines(s, kAxisX, nx);
  gridLines(s, kAxisY, ny);
}

namespace quilla {

void centerSystem(PlotState* s) {
  AxisGroup& a = s->axis;
  auto room = [&](int side) { return sideExtent(s, side) + colorBarExtent(s, side); };
  int left = room(kSideLeft), right = room(kSideRight), bottom = room(kSideBottom), top = room(kSideTop);
  int title = titleExtent(s);
  if (title > top) top = title;
  int gapX = s->geometry.pageWidth - (left + a.axisLength[kAxisX] + right);
  int gapY = s->geometry.pageHeight - (top + a.axisLength[kAxisY] + bottom);
  a.axisPosX = gapX / 2 + left;
  a.axisPosY = gapY / 2 + top + a.axisLength[kAxisY];
  s->scaling.axisOriginPlotX = static_cast<float>(a.axisPosX);
  s->scaling.axisOriginPlotY = static_cast<float>(a.axisPosY);
  a.centerState = 2;
}

void drawFourSidedSystem(PlotState* s, OffsetOnAxis alongX, OffsetOnAxis alongY) {
  drawAxes(s, [=] {
    drawFourSides(s, alongX, alongY);
    if (s->axis.frameThickness >= kVisibleFrame) drawFrame(s);
  });
}

} // namespace quilla

bool quilla::openRectangularSystem(PlotState* s, AxisScale x, AxisScale y) {
  s->axis.axisSystemKind = kSystemRectangular;
  bool fineX = takeScale(s, kAxisX, x), fineY = takeScale(s, kAxisY, y);
  if (!fineX || !fineY) return false;
  if (s->axis.axisCrossed && (s->axis.axisLogScale[kAxisX] != 0 || s->axis.axisLogScale[kAxisY] != 0)) {
    warnWithText(s, 150, "Crossed axis systems must have linear scaling");
    return false;
  }
  s->level.plotLevel = kLevelAxis2D;
  storeScale(s, kAxisX, x);
  storeScale(s, kAxisY, y);
  if (s->axis.axisCrossed && !placeCrossing(s, x, y)) {
    s->level.plotLevel = kLevelPlot;
    return false;
  }
  if (s->axis.centerState == 1) centerSystem(s);
  storeAxisClip(s);
  if (!s->axis.noAxesDrawn) drawSystem(s);
  flushPath(s);
  return true;
}

void GRAF(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp) {
  PlotState* s = strictCheck(1, 1, "graf");
  if (s) openRectangularSystem(s, {xa, xe, xor_, xstp}, {ya, ye, yor, ystp});
}

void ENDGRF(void) {
  PlotState* s = strictCheck(1, 3, "endgrf");
  if (!s) return;
  if (s->clip.clipBorderMode == kBorderAxis) {
    s->clip.clipBorderMode = kBorderPage;
    axisClipOff(s);
  }
  for (int line = 0; line < kTitleLines; line++) {
    s->axis.titleLine[line][0] = 0;
    s->axis.titleUnderlined[line] = false;
  }
  resetCycle(s);
  forgetRecords(s);
  s->barState = BarState{};
  s->colorScale.barOpen = false;
  s->curve.markerKind = 0;
  if (s->axis.axisSystemKind == kSystemBox) s->axis.axisSystemKind = kSystemRectangular;
  s->level.plotLevel = kLevelPlot;
}

void GRID(int nx, int ny) {
  PlotState* s = strictCheck(2, 3, "grid");
  if (!s) return;
  checkRange(s, nx, 0, -1);
  checkRange(s, ny, 0, -1);
  if (s->axis.axisSystemKind == kSystemPolar) return drawPolarGrid(s, nx, ny);
  if (s->axis.axisSystemKind == kSystemRealImaginary) return warnWithText(s, 35, "Routine does not work for GRAFR");
  axisClipOn(s);
  drawGrid(s, nx, ny);
  axisClipOff(s);
}

void BOX2D(void) {
  PlotState* s = strictCheck(1, 3, "box2d");
  if (!s) return;
  drawBorder(s, 0);
  flushPath(s);
}

void CROSS(void) { originLines("cross", true, true, kLineWithTicks); }
void XCROSS(void) { originLines("xcross", true, false, kLineWithTicks); }
void YCROSS(void) { originLines("ycross", false, true, kLineWithTicks); }
void AXGIT(void) { originLines("axgit", true, true, kLineOnly); }
void XAXGIT(void) { originLines("xaxgit", true, false, kLineOnly); }
void YAXGIT(void) { originLines("yaxgit", false, true, kLineOnly); }

void CLPBOR(const char* border) {
  PlotState* s = strictCheck(2, 3, "clpbor");
  if (!s) return;
  int found = matchKeyword(s, "PAGE+AXIS", 2, border);
  if (found == 2 && s->clip.clipBorderMode != kBorderAxis) {
    axisClipOn(s);
    s->clip.clipBorderMode = kBorderAxis;
  } else if (found == 1) {
    s->clip.clipBorderMode = kBorderPage;
    clipWholePage(s);
    s->clip.axisClipActive = s->clip.clipIsCircle = false;
    sendClip(s, 0.0F);
  }
}

void CLPMOD(const char* mode) {
  PlotState* s = setterCheck("clpmod");
  if (!s) return;
  if (int found = matchKeyword(s, "AUTO+NONE+CIRC+RECT", 4, mode)) s->clip.clipMode = found - 1;
}

void NOCLIP(void) {
  PlotState* s = setterCheck("noclip");
  if (!s) return;
  if (s->clip.clipBorderMode == kBorderAxis) {
    s->clip.clipBorderMode = kBorderPage;
    axisClipOff(s);
  }
  s->clip.clipMode = kClipNone;
}

namespace {

// On a polar system a Y value alone is no place.
bool hasPlainY(PlotState* s) {
  if (s->axis.axisSystemKind != kSystemPolar) return true;
  warnWithText(s, 109, "Routine does not work for polar axis systems");
  return false;
}

} // namespace

float XPOSN(float x) {
  PlotState* s = strictCheck(2, 3, "xposn");
  return s ? plotX(s, x) : 0.0F;
}

float YPOSN(float y) {
  PlotState* s = strictCheck(2, 3, "yposn");
  return s && hasPlainY(s) ? userY(s, plotY(s, y)) : 0.0F;
}

int NXPOSN(float x) {
  PlotState* s = strictCheck(2, 3, "nxposn");
  return s ? roundHalfUp(plotX(s, x)) : 0;
}

int NYPOSN(float y) {
  PlotState* s = strictCheck(2, 3, "nyposn");
  return s && hasPlainY(s) ? userY(s, roundHalfUp(plotY(s, y))) : 0;
}

float X2DPOS(float x, float y) {
  PlotState* s = strictCheck(2, 3, "x2dpos");
  return s ? plotPoint(s, x, y).x : 0.0F;
}

float Y2DPOS(float x, float y) {
  PlotState* s = strictCheck(2, 3, "y2dpos");
  return s ? userY(s, plotPoint(s, x, y).y) : 0.0F;
}

float XINVRS(int nx) {
  PlotState* s = strictCheck(2, 3, "xinvrs");
  if (!s) return 0.0F;
  const ScalingState& c = s->scaling;
  float value = (static_cast<float>(nx) - c.axisOriginPlotX) / c.axisFactorX + c.axisStart[kAxisX];
  return s->axis.axisLogScale[kAxisX] != 0 ? std::pow(10.0F, value) : value;
}

float YINVRS(int ny) {
  PlotState* s = strictCheck(2, 3, "yinvrs");
  if (!s) return 0.0F;
  const ScalingState& c = s->scaling;
  float value = (c.axisOriginPlotY - static_cast<float>(userY(s, ny))) / c.axisFactorY + c.axisStart[kAxisY];
  return s->axis.axisLogScale[kAxisY] != 0 ? std::pow(10.0F, value) : value;
}

void GETGRF(float* a, float* e, float* first, float* step, const char* axis) {
  PlotState* s = strictCheck(2, 3, "getgrf");
  if (!s) return;
  int found = matchKeyword(s, "X   +Y   +Z   ", 3, axis);
  if (!found) return;
  *a = s->scaling.axisStart[found - 1];
  *e = s->scaling.axisEnd[found - 1];
  *first = s->scaling.axisFirstLabel[found - 1];
  *step = s->scaling.axisStep[found - 1];
}
