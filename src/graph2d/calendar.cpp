#include "graph2d/calendar.h"

#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

constexpr int kDaysOfCycle = 146097; // 400 years
constexpr int kEpochOffset = 719468; // 1 March of the year 0 to 1 January 1970
constexpr double kFarthestDay = 2.0e8;

bool isLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int daysOfMonth(int month, int year) {
  constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && isLeapYear(year) ? 29 : kDays[month - 1];
}

long long floorDivide(long long a, long long b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }

CalendarDate baseDateOf(const PlotState* s) {
  return {s->dateSetup.baseDay, s->dateSetup.baseMonth, s->dateSetup.baseYear};
}

} // namespace

long long dayNumber(const CalendarDate& date) {
  long long year = date.month <= 2 ? static_cast<long long>(date.year) - 1 : date.year;
  long long cycle = floorDivide(year, 400), yearOfCycle = year - cycle * 400;
  long long dayOfYear = (153 * (date.month + (date.month > 2 ? -3 : 9)) + 2) / 5 + date.day - 1;
  return cycle * kDaysOfCycle + yearOfCycle * 365 + yearOfCycle / 4 - yearOfCycle / 100 + dayOfYear - kEpochOffset;
}

CalendarDate dateOfDay(long long day) {
  long long shifted = day + kEpochOffset, cycle = floorDivide(shifted, kDaysOfCycle);
  long long dayOfCycle = shifted - cycle * kDaysOfCycle;
  long long yearOfCycle = (dayOfCycle - dayOfCycle / 1460 + dayOfCycle / 36524 - dayOfCycle / 146096) / 365;
  long long dayOfYear = dayOfCycle - (365 * yearOfCycle + yearOfCycle / 4 - yearOfCycle / 100);
  long long marchMonth = (5 * dayOfYear + 2) / 153;
  int month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
  long long year = yearOfCycle + cycle * 400 + (month <= 2 ? 1 : 0);
  return {static_cast<int>(dayOfYear - (153 * marchMonth + 2) / 5 + 1), month, static_cast<int>(year)};
}

CalendarDate addMonths(const CalendarDate& date, int months) {
  long long index = static_cast<long long>(date.year) * 12 + date.month - 1 + months;
  int year = static_cast<int>(floorDivide(index, 12)),
      month = static_cast<int>(index - floorDivide(index, 12) * 12) + 1;
  int last = daysOfMonth(month, year);
  return {date.day < last ? date.day : last, month, year};
}

int weekdayOf(long long day) {
  constexpr int kThursday = 3; // 1 January 1970, counted from Monday 0
  long long shifted = day + kThursday;
  return static_cast<int>(shifted - floorDivide(shifted, 7) * 7) + 1;
}

int monthsOfStep(int dateStep) {
  constexpr int kMonths[] = {0, 1, 3, 6, 12, 2, 24, 48};
  return kMonths[dateStep];
}

CalendarDate dateOfValue(const PlotState* s, double value) {
  double day = std::floor(std::fmin(std::fmax(value, -kFarthestDay), kFarthestDay) + 0.0001);
  return dateOfDay(dayNumber(baseDateOf(s)) + static_cast<long long>(std::isnan(day) ? 0.0 : day));
}

double valueOfDate(const PlotState* s, const CalendarDate& date) {
  return static_cast<double>(dayNumber(date) - dayNumber(baseDateOf(s)));
}

} // namespace quilla

using namespace quilla;

void BASDAT(int day, int month, int year) {
  PlotState* s = strictCheck(0, 3, "basdat");
  if (!s || checkDate(s, day, month, year)) return;
  s->dateSetup = {true, day, month, year};
}

int INCDAT(int day, int month, int year) {
  PlotState* s = strictCheck(0, 3, "incdat");
  if (!s || checkDate(s, day, month, year)) return 0;
  if (!s->dateSetup.baseDateSet) {
    warnWithText(s, 105, "No base date is defined with basdat");
    return 0;
  }
  return static_cast<int>(valueOfDate(s, {day, month, year}));
}

void TRFDAT(int n, int* day, int* month, int* year) {
  PlotState* s = strictCheck(0, 3, "trfdat");
  if (!s) return;
  if (!s->dateSetup.baseDateSet) return warnWithText(s, 111, "No base date is defined with basdat");
  CalendarDate date = dateOfValue(s, n);
  *day = date.day;
  *month = date.month;
  *year = date.year;
}

int NWKDAY(int day, int month, int year) {
  PlotState* s = strictCheck(0, 3, "nwkday");
  if (!s) return 0;
  // Without month and year the first argument counts days from the base date.
  if (month == 0 && year == 0 && s->dateSetup.baseDateSet) return weekdayOf(dayNumber(dateOfValue(s, day)));
  if (checkDate(s, day, month, year)) return 0;
  return weekdayOf(dayNumber({day, month, year}));
}
