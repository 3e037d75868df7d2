// Days, months and years of the Gregorian calendar, and the base date of date axes.
#pragma once

#include "core/plot_state.h"

namespace quilla {

struct CalendarDate {
  int day, month, year;
};

// Days since 1 January 1970, and back. Source: the usual count of 400-year cycles that begin in March.
long long dayNumber(const CalendarDate& date);
CalendarDate dateOfDay(long long day);

// The date some months later (or earlier), at the same day of the month or its last one.
CalendarDate addMonths(const CalendarDate& date, int months);

// 1 Monday to 7 Sunday.
int weekdayOf(long long day);

// Months of a label step of LABMOD, 0 for days.
int monthsOfStep(int dateStep);

// The date of a value of a date axis, days after the base date; fractions count to the day that they lie in.
CalendarDate dateOfValue(const PlotState* s, double value);
// The value of a date on a date axis.
double valueOfDate(const PlotState* s, const CalendarDate& date);

} // namespace quilla
