#include "graph2d/axis_labels.h"

#include <cmath>
#include <cstring>

#include "graph2d/date_labels.h"
#include "text/text.h"

namespace quilla {

namespace {

constexpr int kLabelLimit = 10000; // labels of one axis; a step that asks for more is taken as a mistake
constexpr double kCountSlack = 0.0001;
constexpr double kZeroBelow = 1e-7; // values below print as 0 in exponent forms

// Text that grows in a fixed buffer and is cut silently.
struct LabelBuilder {
  char* text;
  int length = 0;

  void add(char c) {
    if (length < kLabelBuffer - 1) text[length++] = c;
    text[length] = 0;
  }
  void add(const char* piece) {
    for (; *piece; piece++) add(*piece);
  }
  void addNumber(const PlotState* s, double value, int digits) {
    char number[kLabelBuffer];
    numberText(s, value, digits, number, kLabelBuffer, 0);
    add(number);
  }
  void addTwoDigits(int value) {
    add(static_cast<char>('0' + value / 10 % 10));
    add(static_cast<char>('0' + value % 10));
  }
};

int formatOfKind(int kind) { return kind == kLabelFExp ? kNumberFExp : kind == kLabelXExp ? kNumberXExp : kNumberExp; }

void degreeLabel(const PlotState* s, double value, int axis, int digits, LabelBuilder& out) {
  constexpr double kFold = 0.001;
  double limit = axis == kAxisY ? 90.0 : 180.0;
  int kind = s->axis.labelKind[axis];
  if (axis == kAxisY) {
    if (value > limit + kFold) value = 180.0 - value;
    if (value < -limit - kFold) value = -180.0 - value;
  } else {
    if (value > limit + kFold) value -= 360.0;
    if (value < -limit - kFold) value += 360.0;
  }
  out.addNumber(s, std::fabs(value), digits);
  if (kind != kLabelMapNoDegree) {
    out.add(s->text.mixExp);
    out.add('o');
    out.add(s->text.mixReset);
  }
  if (kind == kLabelDMap || std::fabs(value) <= kFold) return;
  const char* letters = axis == kAxisY ? "NSns" : "EWew";
  out.add(' ');
  out.add(letters[(kind == kLabelLMap ? 2 : 0) + (value < 0.0 ? 1 : 0)]);
}

void timeLabel(double value, int kind, bool colon, LabelBuilder& out) {
  constexpr int kDay = 86400;
  long long seconds = std::fabs(value) < 9.0e15 ? std::llround(value) : 0;
  int s = static_cast<int>(((seconds % kDay) + kDay) % kDay);
  if (kind == kLabelHour) {
    char digits[3];
    int hour = (s + 1800) / 3600 % 24, n = 0;
    if (hour >= 10) digits[n++] = static_cast<char>('0' + hour / 10);
    digits[n++] = static_cast<char>('0' + hour % 10);
    digits[n] = 0;
    return out.add(digits);
  }
  if (kind == kLabelTime) s = (s + 30) / 60 * 60 % kDay;
  out.addTwoDigits(s / 3600);
  if (colon) out.add(':');
  out.addTwoDigits(s / 60 % 60);
  if (kind != kLabelSeconds) return;
  if (colon) out.add(':');
  out.addTwoDigits(s % 60);
}

} // namespace

int digitsNeeded(double value) {
  constexpr double kTolerances[] = {1e-5, 1e-4, 1e-3, 1e-2, 0.1};
  double x = std::fabs(value), scale = 1.0;
  for (int k = 0; k < 5; k++, scale *= 10.0) {
    if (std::fabs(x * scale - std::floor(x * scale + 0.5)) <= kTolerances[k]) return k == 0 ? -1 : k;
  }
  return 5;
}

void labelText(const PlotState* s, double value, int index, int axis, int digits, char text[kLabelBuffer]) {
  const AxisGroup& a = s->axis;
  LabelBuilder out{text};
  out.add("");
  text[0] = 0;
  int kind = a.labelKind[axis];
  bool logarithmic = a.axisLogScale[axis] != 0;
  if (kind == kLabelNone) return;
  if (kind == kLabelMine) {
    int entry = a.myLabelCount[axis] < 0 ? -a.myLabelCount[axis] - 1 - index : index;
    if (entry >= 0 && entry < kMyLabelCount) out.add(s->myLabels.myLabels[axis][entry]);
    return;
  }
  bool exponents = kind == kLabelExp || kind == kLabelXExp || kind == kLabelFExp;
  if (logarithmic && (exponents || a.labelType[axis] == 2)) value = std::pow(10.0, value);
  if (exponents) {
    if (!logarithmic && std::fabs(value) < kZeroBelow &&
        std::fabs(value) < std::fabs(s->scaling.axisStep[axis] / 2.0F)) {
      value = 0.0;
    }
    exponentText(s, value, digits, formatOfKind(kind), text, kLabelBuffer);
    return;
  }
  if (logarithmic && a.labelType[axis] == 1) {
    out.add("10");
    out.add(s->text.mixExp);
    out.addNumber(s, value, digits);
    return out.add(s->text.mixReset);
  }
  switch (a.labelClass[axis]) {
  case kClassMap: return degreeLabel(s, value, axis, digits, out);
  case kClassTime: return timeLabel(value, kind, a.timeColon, out);
  case kClassDate: return dateText(s, axis, value, text, kLabelBuffer);
  default: return out.addNumber(s, value, digits);
  }
}

bool labelsHoldExponents(const PlotState* s, int axis) {
  int kind = s->axis.labelKind[axis];
  if (kind == kLabelMine || kind == kLabelNone) return false;
  bool logarithmic = s->axis.axisLogScale[axis] != 0 && s->axis.labelType[axis] == 1;
  return logarithmic || kind == kLabelExp || kind == kLabelXExp || s->axis.labelClass[axis] == kClassMap;
}

int labelLength(PlotState* s, int axis, const char* text) {
  if (!labelsHoldExponents(s, axis)) return textLength(s, text);
  NumberMixing saved = beginNumberMixing(s);
  int length = textLength(s, text);
  endNumberMixing(s, saved);
  return length;
}

int labelDigitsOf(const PlotState* s, int axis) {
  if (!s->axis.labelAutoDigits[axis] || s->axis.labelKind[axis] == kLabelMine) return s->axis.labelDigits[axis];
  int first = digitsNeeded(static_cast<double>(s->scaling.axisFirstLabel[axis]));
  int step = digitsNeeded(static_cast<double>(s->scaling.axisStep[axis]));
  return first > step ? first : step;
}

namespace {

bool beyondEnd(const PlotState* s, int axis, double value) {
  double a = static_cast<double>(s->scaling.axisStart[axis]), e = static_cast<double>(s->scaling.axisEnd[axis]);
  return e >= a ? value > e + kCountSlack : value < e - kCountSlack;
}

// Number of the last calendar label inside the scaling, -1 if there is none.
int lastCalendarLabel(const PlotState* s, int axis) {
  int n = 0;
  while (n < kLabelLimit && !beyondEnd(s, axis, calendarValue(s, axis, n))) n++;
  return n - 1;
}

} // namespace

LabelRun labelRun(const PlotState* s, int axis) {
  const ScalingState& c = s->scaling;
  double count = (static_cast<double>(c.axisEnd[axis]) - c.axisFirstLabel[axis]) / c.axisStep[axis] + kCountSlack;
  int n = count < 0.0 ? -1 : count < kLabelLimit ? static_cast<int>(count) : kLabelLimit;
  if (isCalendarAxis(s, axis)) n = lastCalendarLabel(s, axis);
  if (s->axis.labelPosition[axis] == 1) n--;
  switch (s->axis.axisEndsMode[axis]) {
  case 1: return {1, n, 1};
  case 2: return {0, n - 1, 1};
  case 3: return {1, n - 1, 1};
  case 4: return {0, n, n > 0 ? n : 1};
  case 5: return {0, n < 0 ? n : 0, 1};
  case 6: return {n, n, 1};
  default: return {0, n, 1};
  }
}

void openLabel(const PlotState* s, int axis, int i, const LabelRun& run, char text[kLabelBuffer]) {
  if (axis != kAxisZ) return;
  const bool first = s->colorBar.firstOpen && i == run.first;
  if (!first && !(s->colorBar.lastOpen && i == run.last)) return;
  char label[kLabelBuffer];
  std::snprintf(label, sizeof label, "%c%.*s", first ? '<' : '>', kLabelBuffer - 2, text);
  std::memcpy(text, label, sizeof label);
}

double labelValue(const PlotState* s, int axis, int i) {
  if (isCalendarAxis(s, axis)) return calendarValue(s, axis, i);
  return static_cast<double>(s->scaling.axisFirstLabel[axis]) + i * static_cast<double>(s->scaling.axisStep[axis]);
}

int longestLabel(PlotState* s, int axis) {
  if (s->axis.labelKind[axis] == kLabelNone) return 0;
  LabelRun run = labelRun(s, axis);
  int digits = labelDigitsOf(s, axis), longest = 0;
  char text[kLabelBuffer];
  for (int i = run.first; i >= 0 && i <= run.last; i += run.stride) {
    labelText(s, labelValue(s, axis, i), i, axis, digits, text);
    openLabel(s, axis, i, run, text);
    int length = labelLength(s, axis, text);
    if (length > longest) longest = length;
  }
  return longest;
}

} // namespace quilla
