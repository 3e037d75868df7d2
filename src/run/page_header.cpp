// PAGHDR: a line with date, time and version at the edge of the page.
#include <cstdio>

#include "core/clock.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "quilla/quilla.h"
#include "text/text.h"

using namespace quilla;

namespace {

constexpr int kHeaderLength = 132;
constexpr int kEdge = 15, kSide = 100; // distances from the page's edges along which the text stands and begins
constexpr float kSizeFactor = 0.6F;
enum Position : int { kLowerLeft = 1, kLowerRight = 2, kUpperRight = 3, kUpperLeft = 4 };

void headerText(const char* before, const char* after, bool yearFirst, char out[kHeaderLength + 1]) {
  ClockReading now = readClock();
  char date[11], time[9];
  formatDate(now, date);
  formatTime(now, time);
  if (yearFirst) {
    // DD.MM.YYYY to YYYY.MM.DD.
    char swapped[11] = {date[6], date[7], date[8], date[9], '.', date[3], date[4], '.', date[0], date[1], 0};
    copyText(date, swapped, 10);
  }
  std::snprintf(out, kHeaderLength + 1, "%s %s, %s, QUILLA %.1f %s", before, date, time, GETVER(), after);
}

// Upper left corner and angle of the text, in plot coordinates.
struct Place {
  int x, y, angle;
};

Place horizontalPlace(const PlotState* s, int position, int length) {
  bool left = position == kLowerLeft || position == kUpperLeft, low = position == kLowerLeft || position == kLowerRight;
  return {left ? kSide : s->geometry.pageWidth - length - kSide,
          low ? s->geometry.pageHeight - s->text.textHeight - kEdge : kEdge, 0};
}

// A turned text runs upwards from its place on the left side of the page, and downwards on the right side.
Place verticalPlace(const PlotState* s, int position, int length) {
  int width = s->geometry.pageWidth, height = s->geometry.pageHeight;
  switch (position) {
  case kLowerLeft: return {kEdge, height - kSide, 90};
  case kLowerRight: return {width - kEdge, height - length - kSide, 270};
  case kUpperRight: return {width - kEdge, kSide, 270};
  default: return {kEdge, length + kSide, 90};
  }
}

} // namespace

void PAGHDR(const char* before, const char* after, int position, int direction) {
  constexpr int kMostPosition = 4;
  PlotState* s = strictCheck(1, 3, "paghdr");
  if (!s) return;
  if (position < -kMostPosition || position > kMostPosition || position == 0) return warnWithNumber(s, 2, position);
  if (checkRange(s, direction, 0, 1)) return;
  char text[kHeaderLength + 1];
  headerText(before, after, position < 0, text);
  if (position < 0) position = -position;
  const int height = s->text.textHeight, angle = s->text.textAngle;
  int small = static_cast<int>(static_cast<float>(height) * kSizeFactor);
  setTextHeight(s, small < 1 ? 1 : small);
  int length = textLength(s, text);
  Place place = direction == 0 ? horizontalPlace(s, position, length) : verticalPlace(s, position, length);
  setTextAngle(s, place.angle);
  textAt(s, text, place.x - s->page.originX, place.y - s->page.originY);
  setTextAngle(s, angle);
  setTextHeight(s, height);
}
