#include "graph2d/color_bar.h"

#include <cstdlib>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/rectangle.h"
#include "graph2d/area.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/color_scale.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

// One rectangle for each colour of the range; each reaches under the next, so that no gap shows.
void drawColors(PlotState* s, const ColorBar& bar) {
  const int low = s->color.colorRangeLow, high = s->color.colorRangeHigh, step = high < low ? -1 : 1;
  const int count = std::abs(high - low) + 1, width = s->colorBar.barWidth;
  auto edge = [&](int k) { return static_cast<int>(static_cast<long long>(bar.length - 1) * k / count); };
  for (int k = 0; k < count; k++) {
    const int from = edge(k), to = edge(k + 1), color = low + k * step;
    if (isUprightSide(bar.side)) {
      fillBox(s, bar.x, bar.y - to, bar.x + width - 1, bar.y - from, color);
    } else {
      fillBox(s, bar.x + from, bar.y - width + 1, bar.x + to, bar.y, color);
    }
  }
}

// Start of the bar on a side of the axis system.
int justifiedStart(const PlotState* s, int side, int bar) {
  switch (s->colorBar.barJustify) {
  case kBarAtCenter: return (side - bar) / 2;
  case kBarAtEnd: return side - bar;
  default: return 0;
  }
}

} // namespace

void drawColorBar(PlotState* s, const ColorBar& bar) {
  KeptLineStyle kept = keepLineStyle(s);
  setLineType(s, 0);
  const bool internal = s->internalCoordinates;
  s->internalCoordinates = true;
  const int axisLength = s->axis.axisLength[kAxisZ];
  s->axis.axisLength[kAxisZ] = bar.length;
  const int width = s->colorBar.barWidth;
  if (width > 0) {
    drawColors(s, bar);
    if (isUprightSide(bar.side)) {
      qqrect(s, bar.x, bar.y - bar.length + 1, width, bar.length, s->colorBar.barFrame, 0);
    } else {
      qqrect(s, bar.x, bar.y - width + 1, bar.length, width, s->colorBar.barFrame, 0);
    }
  }
  drawAxis(s, colorBarAxis(s, bar));
  s->axis.axisLength[kAxisZ] = axisLength;
  s->internalCoordinates = internal;
  restoreLineStyle(s, kept);
  flushPath(s);
}

AxisPlace colorBarAxis(const PlotState* s, const ColorBar& bar) {
  const int width = s->colorBar.barWidth;
  const int x = bar.side == kSideRight ? bar.x + width - 1 : bar.x;
  const int y = bar.side == kSideTop ? bar.y - width + 1 : bar.y;
  return {kAxisZ, bar.side, x, y, kPartName, false};
}

int colorBarLength(const PlotState* s) {
  if (s->axis.axisLength[kAxisZ] > 0) return s->axis.axisLength[kAxisZ];
  const bool upright = s->colorBar.barPlace == kBarAtRight || s->colorBar.barPlace == kBarAtLeft;
  return s->axis.axisLength[upright ? kAxisY : kAxisX];
}

int colorBarExtent(PlotState* s, int side) {
  constexpr int kSides[] = {kSideRight, kSideLeft, kSideTop, kSideBottom};
  const ColorBarGroup& c = s->colorBar;
  if (!s->colorScale.barOpen || c.barHidden || kSides[c.barPlace] != side) return 0;
  return c.barDistance + c.barWidth + axisExtent(s, kAxisZ, side, kPartName);
}

ColorBar placedColorBar(PlotState* s) {
  const AxisGroup& a = s->axis;
  const ColorBarGroup& c = s->colorBar;
  const int length = colorBarLength(s), width = c.barWidth;
  ColorBar bar{a.axisPosX, a.axisPosY, length, kSideRight};
  switch (c.barPlace) {
  case kBarAtLeft:
    bar.side = kSideLeft;
    bar.x = a.axisPosX - sideExtent(s, kSideLeft) - c.barDistance - width + 1;
    break;
  case kBarAtTop:
    bar.side = kSideTop;
    bar.y = s->scaling.axisTopY - sideExtent(s, kSideTop) - c.barDistance;
    break;
  case kBarAtBottom:
    bar.side = kSideBottom;
    bar.y = a.axisPosY + sideExtent(s, kSideBottom) + c.barDistance + width - 1;
    break;
  default: bar.x = s->scaling.axisRightX + sideExtent(s, kSideRight) + c.barDistance;
  }
  if (isUprightSide(bar.side)) {
    bar.y -= justifiedStart(s, a.axisLength[kAxisY], length);
  } else {
    bar.x += justifiedStart(s, a.axisLength[kAxisX], length);
  }
  bar.x = addCoordinates(bar.x, c.barShiftX);
  bar.y = addCoordinates(bar.y, c.barShiftY);
  return bar;
}

} // namespace quilla

using namespace quilla;

namespace {

// A bar anywhere on the page. it: 0 labels to the right or below, 1 to the left or above; direction: 0 upright, 1
// level.
void drawSingleBar(const char* routine, bool logarithmic, const AxisScale& scale, int length, const char* name, int it,
                   int direction, int nx, int ny) {
  PlotState* s = strictCheck(1, 3, routine);
  if (!s || checkRange(s, it, 0, 1) || checkRange(s, direction, 0, 1)) return;
  const int y = userY(s, ny), x = addCoordinates(nx, s->page.originX), top = addCoordinates(y, s->page.originY);
  if (x < 0 || x > s->geometry.pageWidth) return warnWithNumber(s, 4, nx);
  if (top < 0 || top > s->geometry.pageHeight) return warnWithNumber(s, 5, ny);
  const AxisGroup kept = s->axis;
  const ScalingState keptScaling = s->scaling;
  s->axis.axisLength[kAxisZ] = limitedDistance(length);
  s->axis.axisLogScale[kAxisZ] = logarithmic;
  s->axis.autoScaled[kAxisZ] = false;
  copyText(s->axis.axisName[kAxisZ], name, kLabelTextLimit);
  if (checkScale(s, kAxisZ, scale) == 0) {
    storeScale(s, kAxisZ, scale);
    constexpr int kSides[2][2] = {{kSideRight, kSideLeft}, {kSideBottom, kSideTop}};
    drawColorBar(s, {nx, y, s->axis.axisLength[kAxisZ], kSides[direction][it]});
  }
  s->axis = kept;
  s->scaling = keptScaling;
}

} // namespace

void ZAXIS(float a, float e, float first, float step, int length, const char* name, int it, int direction, int nx,
           int ny) {
  drawSingleBar("zaxis", false, {a, e, first, step}, length, name, it, direction, nx, ny);
}

void ZAXLG(float a, float e, float first, float step, int length, const char* name, int it, int direction, int nx,
           int ny) {
  drawSingleBar("zaxlg", true, {a, e, first, step}, length, name, it, direction, nx, ny);
}
