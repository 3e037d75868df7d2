#include "graph2d/axis_labels.h"
#include "graph2d/calendar.h"
#include "graph2d/date_labels.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

class Dates : public PlotTest {
protected:
  std::string text(double value) {
    char out[kLabelBuffer];
    dateText(state(), kAxisX, value, out, kLabelBuffer);
    return out;
  }
  void mode(const char* key, const char* value) { LABMOD(key, value, "X"); }
};

TEST(Calendar, CountsDays) {
  EXPECT_EQ(dayNumber({1, 1, 1970}), 0);
  EXPECT_EQ(dayNumber({1, 3, 2000}), 11017); // 30 years of 365 days, 7 leap days, 31 + 29 days
  EXPECT_EQ(dayNumber({31, 12, 1969}), -1);
  for (long long day = -800000; day < 800000; day += 97) EXPECT_EQ(dayNumber(dateOfDay(day)), day);
  EXPECT_EQ(weekdayOf(dayNumber({21, 11, 2026})), 6); // a Saturday
  EXPECT_EQ(weekdayOf(dayNumber({1, 1, 1900})), 1);   // a Monday
}

TEST(Calendar, MonthsKeepTheDayOrTakeTheLast) {
  CalendarDate d = addMonths({31, 1, 2023}, 1);
  EXPECT_EQ(d.day, 28);
  EXPECT_EQ(d.month, 2);
  d = addMonths({15, 11, 2023}, 3);
  EXPECT_EQ(d.month, 2);
  EXPECT_EQ(d.year, 2024);
  d = addMonths({1, 1, 2024}, -1);
  EXPECT_EQ(d.month, 12);
  EXPECT_EQ(d.year, 2023);
}

TEST_F(Dates, RoutinesNeedABaseDate) {
  EXPECT_EQ(outputOf([] { INCDAT(1, 1, 2000); }),
            " <<<< Warning 105: No base date is defined with basdat in incdat!\n");
  int d = 0, m = 0, y = 0;
  EXPECT_EQ(outputOf([&] { TRFDAT(1, &d, &m, &y); }),
            " <<<< Warning 111: No base date is defined with basdat in trfdat!\n");
  EXPECT_EQ(outputOf([] { BASDAT(30, 2, 2024); }), " <<<< Warning 2: Incorrect parameter in basdat!   (30)\n");
  BASDAT(1, 1, 2000);
  EXPECT_EQ(INCDAT(1, 1, 2001), 366);
  EXPECT_EQ(INCDAT(31, 12, 1999), -1);
  TRFDAT(59, &d, &m, &y);
  EXPECT_EQ(d, 29);
  EXPECT_EQ(m, 2);
  EXPECT_EQ(y, 2000);
  EXPECT_EQ(NWKDAY(1, 1, 2000), 6);
}

TEST_F(Dates, Texts) {
  BASDAT(1, 3, 2021); // a Monday
  open();
  EXPECT_EQ(text(0), "1-Mar-2021");
  mode("YEAR", "SHORT");
  mode("DAY", "LONG");
  mode("MONTH", "LONG");
  mode("SEP", ".");
  EXPECT_EQ(text(0), "01.03.21");
  mode("FORM", "YMD");
  EXPECT_EQ(text(8), "21.03.09");
  mode("DAY", "NAME");
  mode("MONTH", "FULL");
  mode("YEAR", "NONE");
  EXPECT_EQ(text(1), "March.Tue");
  mode("LANG", "GERM");
  EXPECT_EQ(text(5), "M\202rz.Sa");
  mode("CASE", "UPPER");
  EXPECT_EQ(text(5), "M\177RZ.SA");
  mode("LANG", "SPAN");
  mode("DAY", "FULL");
  EXPECT_EQ(text(2), "MARZO.MI\225RCOLES");
  mode("DAY", "NONE");
  mode("MONTH", "TINY");
  EXPECT_EQ(text(2), "M");
  mode("MONTH", "NONE");
  EXPECT_EQ(text(2), "") << "no part, no text";
  EXPECT_EQ(outputOf([] { LABMOD("WEEK", "FULL", "X"); }),
            " <<<< Warning 2: Incorrect parameter in labmod!   (WEEK)\n");
}

TEST_F(Dates, StepsOfTheCalendar) {
  BASDAT(1, 1, 2020);
  open();
  LABELS("DATE", "X");
  mode("STEP", "QUARTER");
  NOGRAF();
  GRAF(0, 366, 0, 1, 0, 1, 0, 1);
  LabelRun run = labelRun(state(), kAxisX);
  EXPECT_EQ(run.last, 4);
  EXPECT_EQ(labelValue(state(), kAxisX, 1), 91); // 31 + 29 + 31 days to the first of April
  EXPECT_EQ(labelValue(state(), kAxisX, 4), 366);
}

TEST_F(Dates, AutomaticSteps) {
  BASDAT(10, 1, 2021);
  open();
  LABELS("DATE", "X");
  float first = -1, step = -1;
  automaticDates(state(), kAxisX, 0, 5, first, step);
  EXPECT_EQ(step, 1);
  automaticDates(state(), kAxisX, 0.5F, 20, first, step);
  EXPECT_EQ(first, 1);
  EXPECT_EQ(step, 7);
  automaticDates(state(), kAxisX, 0, 100, first, step);
  EXPECT_EQ(first, 22); // the first of February
  EXPECT_EQ(state()->axis.dates[kAxisX].dateLabelStep, kStepMonth);
  automaticDates(state(), kAxisX, 0, 400, first, step);
  EXPECT_EQ(first, 81); // the first of April: 21 + 28 + 31 + 1
  EXPECT_EQ(state()->axis.dates[kAxisX].dateLabelStep, kStepQuarter);
}

TEST(Times, AutomaticSteps) {
  struct Case {
    float range, step;
  };
  const Case cases[] = {{5, 1},        {14, 2},       {25, 5},       {59, 10},       {100, 20},
                        {300, 60},     {840, 120},    {1500, 300},   {3000, 600},    {7000, 900},
                        {14000, 1800}, {21600, 3600}, {36000, 7200}, {86400, 14400}, {324000, 86400}};
  for (const Case& c : cases) {
    float first = -1, step = -1;
    automaticTimes(1, 1 + c.range, first, step);
    EXPECT_EQ(step, c.step) << c.range;
    EXPECT_EQ(first, c.step == 1 ? 1 : c.step) << c.range;
  }
}

} // namespace
