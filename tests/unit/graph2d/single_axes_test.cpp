#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class SingleAxes : public PlotTest {};

TEST_F(SingleAxes, StandWhereTheyAreTold) {
  open();
  TICKS(1, "X");
  LABELS("NONE", "X");
  XAXIS(0, 10, 0, 5, 1001, "", 0, 500, 1500);
  EXPECT_EQ(traced("move"), (Lines{"500.00 1500.00", "500.00 1500.00", "1000.00 1524.00", "1500.00 1500.00"}));
}

TEST_F(SingleAxes, LabelsOnTheOtherSide) {
  open();
  TICKS(1, "Y");
  LABELS("NONE", "Y");
  YAXIS(0, 10, 0, 10, 501, "", 0, 500, 1500);
  EXPECT_EQ(traced("draw"), (Lines{"500.00 1000.00", "524.00 1500.00", "500.00 1000.00"}));
}

TEST_F(SingleAxes, LeaveTheOpenSystemAlone) {
  open();
  AXSPOS(500, 1500);
  AXSLEN(1001, 501);
  NOGRAF();
  GRAF(0, 10, 0, 1, 0, 1, 0, 1);
  NAME("mine", "Y");
  YAXLG(0, 3, 0, 1, 501, "other", 0, 1500, 1500);
  EXPECT_FLOAT_EQ(YPOSN(1), 1000);
  EXPECT_STREQ(state()->axis.axisName[kAxisY], "mine");
  EXPECT_EQ(GETLEV(), 2);
}

TEST_F(SingleAxes, Checks) {
  open();
  EXPECT_EQ(outputOf([] { XAXIS(0, 1, 0, 1, 100, "", 0, 3000, 10); }),
            " <<<< Warning 4: X coordinate out of page in xaxis!   (3000)\n");
  EXPECT_EQ(outputOf([] { XAXIS(0, 1, 0, 1, 100, "", 0, 10, -1); }),
            " <<<< Warning 5: Y coordinate out of page in xaxis!   (-1)\n");
  EXPECT_EQ(outputOf([] { YAXIS(0, 1, 0, 1, 1, "", 0, 10, 10); }), " <<<< Warning 11: Axis length < 2 in yaxis!\n");
  EXPECT_EQ(outputOf([] { YAXIS(1, 1, 1, 1, 100, "", 0, 10, 10); }),
            " <<<< Warning 10: Begin and end of scaling are equal in yaxis!\n");
}

TEST_F(SingleAxes, AutomaticParameters) {
  open();
  AXSLEN(1001, 1001);
  float a = 0, b = 0, first = 0, step = 0;
  int digits = 0;
  GAXPAR(0.3F, 9.2F, "NOEXT", "Y", &a, &b, &first, &step, &digits);
  EXPECT_FLOAT_EQ(a, 0.3F); // range 8.9: m = 8, 125 units a label
  EXPECT_FLOAT_EQ(first, 1);
  EXPECT_FLOAT_EQ(step, 1);
  EXPECT_EQ(digits, -1);
  GAXPAR(0.3F, 9.2F, "EXTEND", "Y", &a, &b, &first, &step, &digits);
  EXPECT_FLOAT_EQ(a, 0);
  EXPECT_FLOAT_EQ(b, 10);
  GAXPAR(9.2F, 0.3F, "EXTEND", "Y", &a, &b, &first, &step, &digits);
  EXPECT_FLOAT_EQ(a, 10);
  EXPECT_FLOAT_EQ(b, 0);
  EXPECT_FLOAT_EQ(first, 10);
  EXPECT_FLOAT_EQ(step, -1);
  EXPECT_FALSE(state()->axis.autoScaled[kAxisY]);
}

TEST_F(SingleAxes, BesideAPolarSystem) {
  open();
  AXSPOS(1000, 1500);
  AXSLEN(1001, 1001);
  EXPECT_EQ(outputOf([] { YPOLAR(0, 1, 0, 1, "", 100); }), " <<<< Warning 3: Incorrect level in ypolar!   (1)\n");
  POLAR(1, 0, 0.5F, 0, 30);
  LABELS("NONE", "Y");
  TICKS(0, "Y");
  YPOLAR(-1, 1, -1, 0.5F, "", 100);
  EXPECT_EQ(traced("move").back(), "900.00 1500.00"); // as tall as the system, 100 units to its left
  EXPECT_EQ(traced("draw").back(), "900.00 500.00");
}

TEST_F(SingleAxes, ErrorBars) {
  open();
  AXSPOS(500, 1500);
  AXSLEN(1001, 1001);
  NOGRAF();
  GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  float x[] = {5}, y[] = {5}, low[] = {1}, high[] = {2};
  MARKER(-1);
  HSYMBL(30);
  ERRBAR(x, y, low, high, 1);
  EXPECT_EQ(traced("move"), (Lines{"1000.00 1100.00", "990.00 1100.00", "990.00 800.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"1000.00 800.00", "1010.00 1100.00", "1010.00 800.00"}));
}

TEST_F(SingleAxes, OwnSymbol) {
  open();
  float x[] = {-50, 50, 0}, y[] = {50, 50, -50};
  MYSYMB(x, y, 3, 7, 0);
  HSYMBL(100);
  SYMBOL(7, 1000, 1000);
  EXPECT_EQ(traced("move"), Lines{"950.00 1050.00"});
  EXPECT_EQ(traced("draw"), (Lines{"1050.00 1050.00", "1000.00 950.00"}));
}

} // namespace
