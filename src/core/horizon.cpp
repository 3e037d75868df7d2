#include "core/horizon.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include "core/messages.h"
#include "core/path.h"
#include "device/sink.h"

namespace quilla {

namespace {

constexpr short kNothingLargest = -1, kNothingSmallest = 10000; // a column in which nothing was drawn
constexpr int kLargestY = 32767;                                // a column keeps 16 bits

// The pixel of a coordinate: truncated behind + 0.5, kept inside the columns and their range.
int pixelOf(float v, int limit) {
  if (!(v > 0.0F)) return 0;
  const float top = static_cast<float>(limit);
  return v >= top ? limit : static_cast<int>(v + 0.5F);
}

void store(HorizonState& h, int x, int y) {
  const short value = static_cast<short>(y);
  if (value > h.largest[x]) h.largest[x] = value;
  if (value < h.smallest[x]) h.smallest[x] = value;
}

// The part of a line that is visible now, as pixels.
struct VisibleRun {
  PlotState* s;
  int startX, startY;

  void drawTo(int x, int y) const {
    const float x0 = static_cast<float>(startX), y0 = static_cast<float>(startY);
    const float x1 = static_cast<float>(x), y1 = static_cast<float>(y);
    if (!s->horizon.deviceThere) qqpen(s, x0, y0, kPenMove);
    qqpen(s, x1, y1, kPenDraw);
    s->horizon.deviceThere = true;
    if (s->line.lineWidthSetting <= 1) return;
    const float xs[] = {x0, x1}, ys[] = {y0, y1};
    s->horizon.on = false; // the outline of a wide line is no line of its own
    strokeOutline(s, xs, ys, 2);
    s->horizon.on = true;
    s->horizon.deviceThere = false;
  }
};

// The side on which a pixel is visible. In a column that is still empty it lies on both and counts as upper.
int sideOf(const PlotState* s, int x, int y) {
  const HorizonState& h = s->horizon;
  if (h.smallest[x] > y && s->surface.visibleSide != kVisibleBottom) return kSideUpper;
  if (h.largest[x] < y && s->surface.visibleSide != kVisibleTop) return kSideLower;
  return kSideNone;
}

void takeSideColor(PlotState* s, int side) {
  HorizonState& h = s->horizon;
  h.side = side;
  const int wanted = side == kSideUpper ? s->surface.upperColor : s->surface.lowerColor;
  const int color = wanted == -1 ? h.entryColor : wanted;
  if (color == s->color.currentColor) return;
  s->color.currentColor = color;
  qqcolor(s, color);
}

// A walk along the pixels of one line.
struct Walk {
  PlotState* s;
  VisibleRun run;
  bool visible = false;

  void firstPixel(int x, int y) { pixel(x, y, x, y, true); }
  // (beforeX, beforeY): the pixel before this one.
  void pixel(int x, int y, int beforeX, int beforeY, bool first = false) {
    HorizonState& h = s->horizon;
    const int side = h.mode == kHorizonStore ? kSideNone : sideOf(s, x, y);
    const bool changes = side != kSideNone && h.colored && side != h.side;
    if (visible && (side == kSideNone || changes)) run.drawTo(beforeX, beforeY);
    if (side != kSideNone && (!visible || changes)) {
      // A run that only changes its colour goes on where the other ended.
      run.startX = visible ? beforeX : x;
      run.startY = visible ? beforeY : y;
      if (!first || changes) h.deviceThere = false;
    }
    if (changes) takeSideColor(s, side);
    visible = side != kSideNone;
  }
};

} // namespace

void horizonReset(PlotState* s) {
  HorizonState& h = s->horizon;
  const int columns = s->geometry.pageWidth + 1;
  if (!h.largest) {
    h.largest = new (std::nothrow) short[2 * static_cast<std::size_t>(columns)];
    if (!h.largest) return warnPlain(s, 53);
    h.smallest = h.largest + columns;
    h.columns = columns;
  }
  std::fill_n(h.largest, columns, kNothingLargest);
  std::fill_n(h.smallest, columns, kNothingSmallest);
}

void horizonFree(PlotState* s) {
  delete[] s->horizon.largest;
  s->horizon = HorizonState{};
}

void horizonMove(PlotState* s, float x, float y) {
  HorizonState& h = s->horizon;
  if (!h.largest) return;
  h.penX = pixelOf(x, h.columns - 1);
  h.penY = pixelOf(y, kLargestY);
  h.deviceThere = false;
}

void horizonDraw(PlotState* s, float toX, float toY) {
  HorizonState& h = s->horizon;
  if (!h.largest) return;
  const int endX = pixelOf(toX, h.columns - 1), endY = pixelOf(toY, kLargestY);
  int x = h.penX, y = h.penY;
  const int dx = std::abs(endX - x), dy = std::abs(endY - y), stepX = endX < x ? -1 : 1, stepY = endY < y ? -1 : 1;
  const bool alongY = dx < dy;
  const int longer = alongY ? dy : dx, shorter = alongY ? dx : dy;
  int error = 2 * shorter - longer;
  Walk walk{s, {s, x, y}};
  walk.firstPixel(x, y);
  for (int k = 1; k <= longer; k++) {
    const bool both = error >= 0;
    error += both ? 2 * (shorter - longer) : 2 * shorter;
    const int beforeX = x, beforeY = y;
    if (h.mode != kHorizonTest && (!alongY || both)) store(h, x, y);
    if (!alongY || both) x += stepX;
    if (alongY || both) y += stepY;
    walk.pixel(x, y, beforeX, beforeY);
  }
  if (walk.visible) {
    walk.run.drawTo(x, y);
  } else {
    h.deviceThere = false;
  }
  h.penX = x;
  h.penY = y;
}

} // namespace quilla
