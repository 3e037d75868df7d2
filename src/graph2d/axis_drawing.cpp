#include "graph2d/axis_drawing.h"

#include <algorithm>
#include <cmath>

#include "core/messages.h"
#include "core/pipeline.h"
#include "graph2d/axis_labels.h"
#include "graph2d/calendar.h"
#include "graph2d/date_labels.h"
#include "text/text.h"

namespace quilla {

namespace {

constexpr int kTickLimit = 10000; // ticks of one axis; a step that asks for more is taken as a mistake
constexpr double kTickSlack = 0.0001;
constexpr int kPositionReverse = 1, kPositionCenter = 2; // TICPOS
constexpr int kVerticalAngle = 90, kDownwardAngle = 270;
constexpr int kReadDownwards = 2; // of labelOrientation, on axes in a plane of a box

bool isUpright(const AxisPlace& p) { return isUprightSide(p.side); }

// 1 if outside of the axis is down or right, -1 if it is up or left.
int outward(int side) { return side == kSideBottom || side == kSideRight ? 1 : -1; }

struct Spot {
  int x, y;
};

// Point of the axis at an offset from its start, and a distance outwards.
Spot spotAt(const AxisPlace& p, int offset, int distance) {
  int out = outward(p.side) * distance;
  return isUpright(p) ? Spot{p.x + out, p.y - offset} : Spot{p.x + offset, p.y + out};
}

void drawLine(PlotState* s, Spot from, Spot to) {
  penMove(s, static_cast<float>(from.x), static_cast<float>(from.y));
  penDraw(s, static_cast<float>(to.x), static_cast<float>(to.y));
}

int offsetOf(const PlotState* s, const AxisPlace& p, double value) {
  return p.offsetOf ? p.offsetOf(s, p, value) : axisOffset(s, p.axis, value);
}

// Ticks are drawn to and fro in turn, so that a pen does not travel back.
struct TickPen {
  PlotState* s;
  const AxisPlace& place;
  bool back = false;
  int drawn = 0;
  bool cut = false;        // ticks were left out
  TickMark mark = nullptr; // takes the ticks instead of the pen
  void* context = nullptr;

  void tick(int offset, int length) {
    if (drawn++ >= kTickLimit) {
      cut = true;
      return;
    }
    if (mark) return mark(context, offset, length);
    int inner = 0, outer = length;
    if (s->axis.tickPosition[place.axis] == kPositionReverse) outer = -length;
    if (s->axis.tickPosition[place.axis] == kPositionCenter) {
      inner = -(length / 2);
      outer = length + inner;
    }
    Spot a = spotAt(place, offset, inner), b = spotAt(place, offset, outer);
    drawLine(s, back ? b : a, back ? a : b);
    back = !back;
  }
};

// A logarithmic axis with whole decades between its labels has ticks at 2 to 9 times each power of ten.
bool hasDecadeTicks(const PlotState* s, int axis) {
  if (s->axis.axisLogScale[axis] == 0 || s->axis.tickCount[axis] <= 1) return false;
  double step = static_cast<double>(s->scaling.axisStep[axis]),
         first = static_cast<double>(s->scaling.axisFirstLabel[axis]);
  double whole = s->axis.logTickMode == 0 ? 1.0 : std::floor(std::fabs(step) + 0.5);
  return std::fabs(std::fabs(step) - whole) < kTickSlack && std::fabs(first - std::floor(first + 0.5)) < kTickSlack;
}

void drawDecadeTicks(PlotState* s, TickPen& pen, int axis) {
  double a = static_cast<double>(s->scaling.axisStart[axis]), e = static_cast<double>(s->scaling.axisEnd[axis]);
  double low = std::floor(std::fmin(a, e)), high = std::fmax(a, e);
  if (high - low > kTickLimit) {
    pen.cut = true;
    return;
  }
  for (double decade = low; decade <= high; decade += 1.0) {
    for (int k = 2; k <= 9; k++) {
      double value = decade + std::log10(static_cast<double>(k));
      if (withinScale(s, axis, value)) pen.tick(axisOffset(s, axis, value), s->axis.tickLengthMinor);
    }
  }
}

// Minor ticks between two major ones of a calendar axis: at days or months, or in equal parts.
void drawCalendarMinorTicks(PlotState* s, TickPen& pen, int axis, double from, double to) {
  constexpr int kModeDays = 1, kModeTwoMonths = 6, kModeHours = 7;
  constexpr int kModeSteps[] = {0, 0, kStepMonth, kStepQuarter, kStepHalf, kStepYear, kStepTwoMonths, 0};
  int mode = s->axis.tickCalendarMode[axis], minor = s->axis.tickLengthMinor;
  auto tickAt = [&](double value) {
    if (withinScale(s, axis, value)) pen.tick(axisOffset(s, axis, value), minor);
  };
  double low = std::fmin(from, to), high = std::fmax(from, to);
  if (mode == kModeDays || mode == kModeHours) {
    double step = mode == kModeDays ? 1.0 : 1.0 / 24.0;
    if ((high - low) / step > kTickLimit) {
      pen.cut = true;
      return;
    }
    for (int i = 1; low + i * step < high - kTickSlack; i++) tickAt(low + i * step);
  } else if (mode > 0 && mode <= kModeTwoMonths) {
    CalendarDate first = dateOfValue(s, low);
    int months = monthsOfStep(kModeSteps[mode]);
    for (int i = 1; i < kTickLimit && valueOfDate(s, addMonths(first, i * months)) < high - kTickSlack; i++) {
      tickAt(valueOfDate(s, addMonths(first, i * months)));
    }
  } else {
    int parts = s->axis.tickCount[axis];
    for (int i = 1; i < parts; i++) tickAt(from + (to - from) * i / parts);
  }
}

// Major ticks at the labels, and on in both directions as far as the axis goes.
void drawCalendarTicks(PlotState* s, TickPen& pen, int axis) {
  double a = static_cast<double>(s->scaling.axisStart[axis]), e = static_cast<double>(s->scaling.axisEnd[axis]);
  auto beyond = [&](double value, double end, bool upward) { return upward ? value > end : value < end; };
  int low = 0;
  while (low > -kTickLimit && !beyond(calendarValue(s, axis, low), a, e < a)) low--;
  for (int i = low; i < kTickLimit; i++) {
    double value = calendarValue(s, axis, i);
    if (withinScale(s, axis, value)) pen.tick(axisOffset(s, axis, value), s->axis.tickLengthMajor);
    if (beyond(value, e, e >= a)) return;
    drawCalendarMinorTicks(s, pen, axis, value, calendarValue(s, axis, i + 1));
  }
  pen.cut = true;
}

void drawAllTicks(PlotState* s, TickPen& pen, const AxisPlace& p) {
  if (isCalendarAxis(s, p.axis)) return drawCalendarTicks(s, pen, p.axis);
  bool decades = hasDecadeTicks(s, p.axis);
  int perLabel = decades || s->axis.tickCount[p.axis] < 1 ? 1 : s->axis.tickCount[p.axis];
  double interval = static_cast<double>(s->scaling.axisStep[p.axis]) / perLabel;
  if (decades) interval = interval > 0.0 ? 1.0 : -1.0;
  if (s->axis.labelClass[p.axis] == kClassDate) {
    // TICMOD: a tick a day, or an hour.
    constexpr int kModeDays = 1, kModeHours = 7, kHours = 24;
    int mode = s->axis.tickCalendarMode[p.axis];
    if (mode == kModeDays || mode == kModeHours) {
      perLabel = mode == kModeHours ? kHours : 1;
      interval = (interval > 0.0 ? 1.0 : -1.0) / perLabel;
    }
  }
  TickRange range = tickRange(s, p.axis, interval);
  for (int i = range.low; i <= range.high; i++) {
    double value = static_cast<double>(s->scaling.axisFirstLabel[p.axis]) + i * interval;
    if (!withinScale(s, p.axis, value)) continue;
    const int offset = offsetOf(s, p, value);
    if (offset == kOffAxis) continue;
    pen.tick(offset, i % perLabel == 0 ? s->axis.tickLengthMajor : s->axis.tickLengthMinor);
  }
  if (decades) drawDecadeTicks(s, pen, p.axis);
  pen.cut = pen.cut || range.cut;
}

void drawTicks(PlotState* s, const AxisPlace& p, TickMark mark = nullptr, void* context = nullptr) {
  TickPen pen{s, p};
  pen.mark = mark;
  pen.context = context;
  drawAllTicks(s, pen, p);
  if (pen.cut) warnCutTicks(s);
}

// What the major ticks take outside the axis line.
int tickRoom(const PlotState* s, int axis) {
  switch (s->axis.tickPosition[axis]) {
  case kPositionReverse: return 0;
  case kPositionCenter: return s->axis.tickLengthMajor - s->axis.tickLengthMajor / 2;
  default: return s->axis.tickLengthMajor;
  }
}

bool labelsVertical(const PlotState* s, int axis) { return s->axis.labelOrientation[axis] != 0; }

// What the labels take away from the axis: their height or the length of the longest.
int labelDepth(const PlotState* s, int axis, int side, int longest) {
  bool across = isUprightSide(side) != labelsVertical(s, axis);
  return across ? longest : s->text.textHeight;
}

// Start along a run of room for a text of its own length: 0 left, room - length right.
int justified(int mode, bool rightByDefault, bool outwardIsRight, int room, int length) {
  constexpr int kLeft = 1, kRight = 2, kOutwards = 3;
  bool right = rightByDefault;
  if (mode == kLeft || mode == kRight) right = mode == kRight;
  if (mode >= kOutwards) right = (mode == kOutwards) == outwardIsRight;
  return right ? room - length : 0;
}

// Keeps a run of a length inside 0..limit ("SHIF").
int pushedInside(int start, int length, int limit) {
  if (start + length > limit) start = limit - length;
  return start < 0 ? 0 : start;
}

struct LabelSpot {
  int x, y, angle;
};

// Upper left corner, in the text's own direction, of a label of a length at an offset along the axis.
LabelSpot placeLabel(const PlotState* s, const AxisPlace& p, int offset, int length, int longest) {
  int h = s->text.textHeight, axis = p.axis, mode = s->axis.labelJustify[axis];
  int away = tickRoom(s, axis) + s->axis.labelDistance[axis], limit = s->axis.axisLength[axis];
  bool shifted = s->axis.labelPosition[axis] == 2;
  bool rightOfText = mode == 0 && s->axis.labelKind[axis] == kLabelMine ? s->axis.rightJustifyLabels : true;
  if (!isUpright(p) && !labelsVertical(s, axis)) {
    int start = shifted ? pushedInside(offset - length / 2, length, limit) : offset - length / 2;
    int y = p.side == kSideBottom ? p.y + away : p.y - away - h + 1;
    return {p.x + start, y, 0};
  }
  if (!isUpright(p)) {
    if (s->axis.labelOrientation[axis] == kReadDownwards) {
      int depth = justified(mode, p.side != kSideBottom, p.side == kSideBottom, longest, length);
      int y = p.side == kSideBottom ? p.y + away + depth : p.y - away - longest + depth;
      return {p.x + offset + h / 2, y, kDownwardAngle};
    }
    // Read upwards: the far end of the text lies at the axis below it, its beginning above it.
    int depth = justified(mode, p.side == kSideBottom, p.side != kSideBottom, longest, length);
    int y = p.side == kSideBottom ? p.y + away + longest - depth : p.y - away - depth;
    return {p.x + offset - h / 2, y, kVerticalAngle};
  }
  if (!labelsVertical(s, axis)) {
    int depth = justified(mode, rightOfText, p.side == kSideRight, longest, length);
    int x = p.side == kSideLeft ? p.x - away - longest + depth : p.x + away + depth;
    int start = shifted ? pushedInside(offset - h / 2, h, limit) + h : offset + h / 2;
    return {x, p.y - start, 0};
  }
  int start = shifted ? pushedInside(offset - length / 2, length, limit) : offset - length / 2;
  int x = p.side == kSideLeft ? p.x - away - h + 1 : p.x + away;
  return {x, p.y - start, kVerticalAngle};
}

void drawLabels(PlotState* s, const AxisPlace& p, int longest) {
  LabelRun run = labelRun(s, p.axis);
  int digits = labelDigitsOf(s, p.axis), height = s->text.textHeight;
  bool exponents = labelsHoldExponents(s, p.axis);
  NumberMixing saved{};
  if (exponents) saved = beginNumberMixing(s);
  char text[kLabelBuffer];
  for (int i = run.first; i >= 0 && i <= run.last; i += run.stride) {
    double value = labelValue(s, p.axis, i), at = value;
    if (s->axis.labelPosition[p.axis] == 1) at += 0.5 * static_cast<double>(s->scaling.axisStep[p.axis]);
    if (!withinScale(s, p.axis, at) || (p.skipOrigin && std::fabs(value) <= static_cast<double>(kTiny))) continue;
    const int offset = offsetOf(s, p, at);
    if (offset == kOffAxis) continue;
    labelText(s, value, i, p.axis, digits, text);
    openLabel(s, p.axis, i, run, text);
    LabelSpot spot = placeLabel(s, p, offset, textLength(s, text), longest);
    textAtWith(s, text, spot.x, spot.y, spot.angle, height);
  }
  if (exponents) endNumberMixing(s, saved);
}

void drawName(PlotState* s, const AxisPlace& p, int away) {
  const char* name = s->axis.axisName[p.axis];
  if (!name[0]) return;
  constexpr int kLeft = 1, kRight = 2;
  int height = s->text.textHeight, h = s->axis.nameHeight;
  setTextHeight(s, h);
  int length = textLength(s, name);
  setTextHeight(s, height);
  // Where axes cross, the name stands at the part of the axis behind the crossing.
  int crossing = 0;
  if (p.skipOrigin) crossing = isUpright(p) ? p.y - s->axis.axisCrossY : s->axis.axisCrossX - p.x;
  int room = s->axis.axisLength[p.axis] - crossing - length, mode = s->axis.nameJustify[p.axis];
  int start = crossing + (mode == kLeft ? 0 : mode == kRight ? room : room / 2);
  switch (p.side) {
  case kSideBottom: return textAtWith(s, name, p.x + start, p.y + away, 0, h);
  case kSideTop: return textAtWith(s, name, p.x + start, p.y - away - h + 1, 0, h);
  case kSideLeft: return textAtWith(s, name, p.x - away - h + 1, p.y - start, kVerticalAngle, h);
  default:
    if (s->axis.reverseYName) return textAtWith(s, name, p.x + away, p.y - start, kVerticalAngle, h);
    return textAtWith(s, name, p.x + away + h - 1, p.y - s->axis.axisLength[p.axis] + 1 + start, kDownwardAngle, h);
  }
}

int axisOfSide(int side) { return side == kSideBottom || side == kSideTop ? kAxisX : kAxisY; }

} // namespace

int axisOffset(const PlotState* s, int axis, double value) {
  double a = static_cast<double>(s->scaling.axisStart[axis]), e = static_cast<double>(s->scaling.axisEnd[axis]);
  return static_cast<int>((value - a) * (s->axis.axisLength[axis] - 1) / (e - a) + 0.5);
}

bool withinScale(const PlotState* s, int axis, double value) {
  double a = static_cast<double>(s->scaling.axisStart[axis]), e = static_cast<double>(s->scaling.axisEnd[axis]);
  double slack = std::fabs(e - a) * 1e-6;
  return value >= std::fmin(a, e) - slack && value <= std::fmax(a, e) + slack;
}

TickRange tickRange(const PlotState* s, int axis, double interval) {
  double first = static_cast<double>(s->scaling.axisFirstLabel[axis]);
  double forward = (static_cast<double>(s->scaling.axisEnd[axis]) - first) / interval + kTickSlack;
  double backward = (first - static_cast<double>(s->scaling.axisStart[axis])) / interval + kTickSlack;
  auto limited = [](double n) { return n < 0.0 ? 0 : n < kTickLimit ? static_cast<int>(n) : kTickLimit; };
  return {-limited(backward), limited(forward), forward >= kTickLimit || backward >= kTickLimit};
}

void warnCutTicks(PlotState* s) { warnWithText(s, 160, "More than 10000 ticks on an axis, some are left out"); }

void drawAxis(PlotState* s, const AxisPlace& p) {
  if (p.parts < kPartLine) return;
  int last = s->axis.axisLength[p.axis] - 1;
  if (s->axis.axisLineOn[p.axis]) {
    inAxisColor(s, p.axis, kColorLine, [&] { drawLine(s, spotAt(p, 0, 0), spotAt(p, last, 0)); });
  }
  int away = 0;
  if (p.parts >= kPartTicks && s->axis.tickCount[p.axis] > 0) {
    inAxisColor(s, p.axis, kColorTicks, [&] { drawTicks(s, p); });
    away = tickRoom(s, p.axis);
  }
  if (p.parts >= kPartLabels && s->axis.labelKind[p.axis] != kLabelNone) {
    int longest = longestLabel(s, p.axis);
    inAxisColor(s, p.axis, kColorLabels, [&] { drawLabels(s, p, longest); });
    away += s->axis.labelDistance[p.axis] + labelDepth(s, p.axis, p.side, longest);
  }
  if (p.parts >= kPartName) {
    inAxisColor(s, p.axis, kColorName, [&] { drawName(s, p, away + s->axis.nameDistance[p.axis]); });
  }
}

void eachTick(PlotState* s, int axis, TickMark mark, void* context) {
  drawTicks(s, {axis, kSideBottom, 0, 0, kPartTicks, false}, mark, context);
}

void drawExtraLabel(PlotState* s, const AxisPlace& p, const char* text, double value, int tickLength) {
  const int offset = axisOffset(s, p.axis, value), length = textLength(s, text);
  if (tickLength > 0) {
    inAxisColor(s, p.axis, kColorTicks, [&] { TickPen{s, p}.tick(offset, tickLength); });
  }
  // Next to longer labels of the axis it stands where they do.
  const int longest = labelsVertical(s, p.axis) == isUpright(p) ? length : std::max(length, longestLabel(s, p.axis));
  const LabelSpot spot = placeLabel(s, p, offset, length, longest);
  inAxisColor(s, p.axis, kColorLabels, [&] { textAtWith(s, text, spot.x, spot.y, spot.angle, s->text.textHeight); });
}

int axisExtent(PlotState* s, int axis, int side, int parts) {
  int extent = 0;
  if (parts >= kPartTicks) extent += tickRoom(s, axis);
  if (parts >= kPartLabels && s->axis.labelKind[axis] != kLabelNone) {
    extent += s->axis.labelDistance[axis] + labelDepth(s, axis, side, longestLabel(s, axis));
  }
  if (parts >= kPartName && s->axis.axisName[axis][0]) extent += s->axis.nameDistance[axis] + s->axis.nameHeight;
  return extent;
}

int sideExtent(PlotState* s, int side) { return axisExtent(s, axisOfSide(side), side, s->axis.axisPartDrawn[side]); }

} // namespace quilla
