#include <cmath>

#include "graph2d/axis_drawing.h"
#include "graph2d/axis_labels.h"
#include "graph2d/scaling.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class Axis : public PlotTest {
protected:
  // An open axis system 1001 by 501 units, lower left corner at (500, 1500).
  void openSystem(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp) {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 501);
    NOGRAF();
    GRAF(xa, xe, xor_, xstp, ya, ye, yor, ystp);
  }
  std::string label(double value, int axis, int index = 0) {
    char text[kLabelBuffer];
    labelText(state(), value, index, axis, labelDigitsOf(state(), axis), text);
    return text;
  }
};

TEST_F(Axis, DefaultPlace) {
  open();
  int nx = 0, ny = 0, nz = 0;
  GETLEN(&nx, &ny, &nz);
  EXPECT_EQ(nx, 1980); // two thirds of 2970
  EXPECT_EQ(ny, 1400);
  GETPOS(&nx, &ny);
  EXPECT_EQ(nx, 494); // (2969 - 1980) / 2
  EXPECT_EQ(ny, 1799);
}

TEST_F(Axis, UserValuesToPlotCoordinates) {
  openSystem(0, 10, 0, 1, -1, 1, -1, 0.5F);
  EXPECT_FLOAT_EQ(XPOSN(0), 500);
  EXPECT_FLOAT_EQ(XPOSN(10), 1500);
  EXPECT_EQ(NXPOSN(2.5F), 750);
  EXPECT_FLOAT_EQ(YPOSN(-1), 1500);
  EXPECT_FLOAT_EQ(YPOSN(1), 1000);
  EXPECT_EQ(NYPOSN(0), 1250);
  EXPECT_FLOAT_EQ(XINVRS(750), 2.5F);
  EXPECT_FLOAT_EQ(YINVRS(1250), 0);
}

TEST_F(Axis, LogarithmicValues) {
  open();
  AXSPOS(500, 1500);
  AXSLEN(1001, 501);
  AXSSCL("LOG", "X");
  NOGRAF();
  GRAF(-1, 3, -1, 1, 0, 1, 0, 1);
  EXPECT_NEAR(XPOSN(1), 750, 0.01);
  EXPECT_NEAR(XPOSN(1000), 1500, 0.01);
  EXPECT_NEAR(XINVRS(1000), 10, 1e-3);
  EXPECT_FLOAT_EQ(state()->scaling.userMaxX, 1000);
}

TEST_F(Axis, BottomOriginTurnsWhatTheUserGives) {
  open();
  PAGORG("BOTT");
  AXSPOS(500, 599);
  AXSLEN(1001, 501);
  NOGRAF();
  GRAF(0, 10, 0, 1, 0, 1, 0, 1);
  EXPECT_EQ(NYPOSN(0), 599);
  EXPECT_EQ(NYPOSN(1), 1099);
  EXPECT_FLOAT_EQ(YINVRS(1099), 1);
}

TEST_F(Axis, ParameterChecks) {
  open();
  EXPECT_EQ(outputOf([] { GRAF(0, 0, 0, 1, 0, 1, 0, 1); }),
            " <<<< Warning 10: Begin and end of scaling are equal in graf!\n");
  EXPECT_EQ(GETLEV(), 1);
  EXPECT_EQ(outputOf([] { GRAF(0, 1, 0, 0, 0, 1, 0, 0); }),
            " <<<< Warning 9: Step equal zero in graf!\n <<<< Warning 9: Step equal zero in graf!\n");
  EXPECT_EQ(outputOf([] { GRAF(0, NAN, 0, 1, 0, 1, 0, 1); }), " <<<< Warning 2: Incorrect parameter in graf!\n");
  EXPECT_EQ(GETLEV(), 1);
  EXPECT_TRUE(traced("move").empty());
}

TEST_F(Axis, WarningsThatStillDraw) {
  open();
  EXPECT_EQ(outputOf([] { GRAF(0, 10, 20, 1, 0, 1, 0, 1); }), " <<<< Warning 12: Startlabel out of scaling in graf!\n");
  EXPECT_EQ(GETLEV(), 2);
  ENDGRF();
  EXPECT_EQ(outputOf([] { GRAF(10, 0, 10, 1, 0, 1, 0, 1); }), " <<<< Warning 50: Incorrect sign for step in graf!\n");
  EXPECT_EQ(GETLEV(), 2);
}

TEST_F(Axis, ReversedAxis) {
  openSystem(10, 0, 10, -2, 0, 1, 0, 1);
  EXPECT_FLOAT_EQ(XPOSN(10), 500);
  EXPECT_FLOAT_EQ(XPOSN(0), 1500);
  EXPECT_FLOAT_EQ(state()->scaling.userMinX, 0);
  TickRange range = tickRange(state(), kAxisX, -2.0);
  EXPECT_EQ(range.low, 0);
  EXPECT_EQ(range.high, 5);
}

TEST_F(Axis, TicksPointOutwardsAtTheirPlaces) {
  open();
  AXSPOS(500, 1500);
  AXSLEN(1001, 501);
  SETGRF("TICK", "NONE", "NONE", "NONE");
  TICKS(1, "X");
  GRAF(0, 10, 0, 5, 0, 1, 0, 1);
  auto moves = traced("move"), draws = traced("draw");
  EXPECT_EQ(moves, (Lines{"500.00 1500.00", "500.00 1500.00", "1000.00 1524.00", "1500.00 1500.00"}));
  EXPECT_EQ(draws, (Lines{"1500.00 1500.00", "500.00 1524.00", "1000.00 1500.00", "1500.00 1524.00"}));
}

TEST_F(Axis, LogarithmicTicksStandAtTwoToNine) {
  open();
  AXSPOS(500, 1500);
  AXSLEN(1001, 501);
  AXSSCL("LOG", "X");
  SETGRF("TICK", "NONE", "NONE", "NONE");
  GRAF(0, 1, 0, 1, 0, 1, 0, 1);
  EXPECT_EQ(traced("draw").size(), 1U + 2U + 8U) << "line, two decades, eight between them";
}

TEST_F(Axis, AutomaticScaling) {
  struct Case {
    float low, high, first, step;
    int digits;
  };
  // Worked by hand for an axis of 1001 units with labels across it (Y axis, room 100 a label).
  const Case cases[] = {
      {0, 10, 0, 2, -1},       // p = 1, m = 1: 1001/5 is room enough: steps of 2
      {0, 100, 0, 20, -1},     //
      {0, 1, 0, 0.2F, 1},      // p = 0: one digit
      {0, 0.3F, 0, 0.05F, 2},  // p = -1, m = 3: half steps of 0.1
      {3, 7, 3, 1, -1},        // m = 4: unchanged
      {2.5F, 9.5F, 3, 1, -1},  // m = 7: 143 units a label
      {-4.5F, 4.7F, -4, 1, -1} // m = 9: 111 units a label
  };
  for (const Case& c : cases) {
    float data[] = {c.low, c.high};
    open();
    AXSLEN(1001, 1001);
    AXSPOS(600, 1800);
    SETSCL(data, 2, "Y");
    int digits = 0;
    AxisScale scale = automaticScale(state(), kAxisY, digits);
    EXPECT_FLOAT_EQ(scale.start, c.low);
    EXPECT_FLOAT_EQ(scale.end, c.high);
    EXPECT_FLOAT_EQ(scale.first, c.first) << c.low << ' ' << c.high;
    EXPECT_FLOAT_EQ(scale.step, c.step) << c.low << ' ' << c.high;
    EXPECT_EQ(digits, c.digits) << c.low << ' ' << c.high;
    QUIFIN();
  }
}

TEST_F(Axis, SetsclStoresLimits) {
  open();
  float flat[] = {5, 5, 5}, rising[] = {1, 2, NAN, 3};
  EXPECT_EQ(outputOf([&] { SETSCL(flat, 3, "X"); }),
            " <<<< Warning 25: Minimum equal maximum (added -1 and +1) in setscl!\n");
  EXPECT_FLOAT_EQ(state()->axis.autoMin[kAxisX], 4);
  SETSCL(rising, 4, "XY");
  EXPECT_FLOAT_EQ(state()->axis.autoMax[kAxisX], 3);
  EXPECT_FLOAT_EQ(state()->axis.autoMax[kAxisY], 3);
  SETSCL(rising, 4, "xreset");
  EXPECT_FALSE(state()->axis.autoScaled[kAxisX]);
  EXPECT_TRUE(state()->axis.autoScaled[kAxisY]);
  SETSCL(rising, 4, "reset");
  EXPECT_FALSE(state()->axis.autoScaled[kAxisY]);
}

TEST_F(Axis, NonPositiveDataOnALogarithmicAxis) {
  open();
  AXSSCL("LOG", "Y");
  float data[] = {-5, -1};
  SETSCL(data, 2, "Y");
  std::string printed = outputOf([] { GRAF(0, 1, 0, 1, 0, 1, 0, 1); });
  EXPECT_EQ(printed, " <<<< Warning 23: Non positive minimum for log scaling (set to 0.1) in graf!\n"
                     " <<<< Warning 24: Non positive maximum for log scaling (set to 1.0) in graf!\n");
  EXPECT_FLOAT_EQ(state()->scaling.axisStart[kAxisY], -1);
  EXPECT_FLOAT_EQ(state()->scaling.axisEnd[kAxisY], 0);
}

TEST_F(Axis, LabelTexts) {
  openSystem(0, 10, 0, 1, 0, 1, 0, 1);
  EXPECT_EQ(label(12.25, kAxisX), "12.3") << "half up";
  LABDIG(0, "X");
  EXPECT_EQ(label(12, kAxisX), "12.");
  LABDIG(-1, "X");
  EXPECT_EQ(label(12, kAxisX), "12");
  LABDIG(1, "X");
  EXPECT_EQ(label(-0.04, kAxisX), "0.0");
  LABELS("EXP", "X");
  EXPECT_EQ(label(1234, kAxisX), "1.2*10[3$");
  EXPECT_EQ(label(9.97, kAxisX), "1.0*10[1$");
  EXPECT_EQ(label(-0.001, kAxisX), "-1.0*10[-3$");
  LABELS("FEXP", "X");
  EXPECT_EQ(label(25000, kAxisX), "2.5E4");
  LABELS("MAP", "X");
  LABDIG(-1, "X");
  EXPECT_EQ(label(190, kAxisX), "170[o$ W");
  EXPECT_EQ(label(0, kAxisX), "0[o$");
  LABELS("LMAP", "Y");
  LABDIG(-1, "Y");
  EXPECT_EQ(label(100, kAxisY), "80[o$ n");
  LABELS("TIME", "X");
  EXPECT_EQ(label(3661, kAxisX), "0101");
  EXPECT_EQ(label(-60, kAxisX), "2359");
  LABELS("SECO", "X");
  EXPECT_EQ(label(86399, kAxisX), "235959");
  LABELS("HOUR", "X");
  EXPECT_EQ(label(7200, kAxisX), "2");
  LABELS("NONE", "X");
  EXPECT_EQ(label(1, kAxisX), "");
}

TEST_F(Axis, OwnLabels) {
  open();
  LABELS("MYLAB", "X");
  MYLAB("one", 1, "X");
  MYLAB("three", 3, "X");
  EXPECT_EQ(label(0, kAxisX, 0), "one");
  EXPECT_EQ(label(0, kAxisX, 1), "");
  EXPECT_EQ(label(0, kAxisX, 2), "three");
  EXPECT_EQ(label(0, kAxisX, 99), "");
  EXPECT_EQ(label(0, kAxisX, 100), "");
  EXPECT_EQ(outputOf([] { MYLAB("again", 1, "X"); }),
            " <<<< Warning 6: Same tick number as in a call before in mylab!   (1)\n");
  EXPECT_EQ(label(0, kAxisX, 0), "again");
  EXPECT_EQ(outputOf([] { MYLAB("no", 101, "X"); }), " <<<< Warning 2: Incorrect parameter in mylab!   (101)\n");
}

TEST_F(Axis, AutomaticDigits) {
  openSystem(0, 10, 0, 0.25F, 0, 1, 0, 0.5F);
  LABDIG(-2, "XY");
  EXPECT_EQ(labelDigitsOf(state(), kAxisX), 2);
  EXPECT_EQ(labelDigitsOf(state(), kAxisY), 1);
}

TEST_F(Axis, LabelsThatAxisEndsLeave) {
  openSystem(0, 10, 0, 2, 0, 1, 0, 1);
  struct Case {
    const char* mode;
    int first, last, stride;
  };
  const Case cases[] = {{"NONE", 0, 5, 1}, {"NOFI", 1, 5, 1}, {"NOLA", 0, 4, 1}, {"NOEN", 1, 4, 1},
                        {"ENDS", 0, 5, 5}, {"FIRS", 0, 0, 1}, {"LAST", 5, 5, 1}};
  for (const Case& c : cases) {
    AXENDS(c.mode, "X");
    LabelRun run = labelRun(state(), kAxisX);
    EXPECT_EQ(run.first, c.first) << c.mode;
    EXPECT_EQ(run.last, c.last) << c.mode;
    EXPECT_EQ(run.stride, c.stride) << c.mode;
  }
}

TEST_F(Axis, CrossedSystems) {
  open();
  AXSTYP("CROS");
  AXSSCL("LOG", "X");
  EXPECT_EQ(outputOf([] { GRAF(-1, 1, -1, 1, -1, 1, -1, 1); }),
            " <<<< Warning 150: Crossed axis systems must have linear scaling in graf!\n");
  EXPECT_EQ(GETLEV(), 1);
  AXSSCL("LIN", "X");
  EXPECT_EQ(outputOf([] { GRAF(1, 2, 1, 1, -1, 1, -1, 1); }),
            " <<<< Warning 151: No origin found for crossed axis system in graf!\n");
  AXSPOS(500, 1500);
  AXSLEN(1001, 501);
  GRAF(-1, 1, -1, 1, -1, 1, -1, 1);
  EXPECT_EQ(state()->axis.axisCrossX, 1000);
  EXPECT_EQ(state()->axis.axisCrossY, 1250);
}

TEST_F(Axis, TitleLines) {
  openSystem(0, 10, 0, 1, 0, 1, 0, 1);
  TITLIN("First", 1);
  TITLIN("Second", -2);
  EXPECT_TRUE(state()->axis.titleUnderlined[1]);
  EXPECT_FALSE(state()->axis.titleUnderlined[0]);
  EXPECT_EQ(outputOf([] { TITLIN("x", 5); }), " <<<< Warning 2: Incorrect parameter in titlin!   (5)\n");
  TITLE();
  ENDGRF();
  EXPECT_STREQ(state()->axis.titleLine[0], "");
}

TEST_F(Axis, GridStaysInside) {
  openSystem(0, 10, 0, 5, 0, 1, 0, 1);
  GRID(1, 0);
  EXPECT_EQ(traced("move"), (Lines{"500.00 1500.00", "1000.00 1000.00", "1500.00 1500.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"500.00 1000.00", "1000.00 1500.00", "1500.00 1000.00"}));
}

TEST_F(Axis, WhatReadersGive) {
  open();
  AX3LEN(1200, 800, 500);
  int x = 0, y = 0, z = 0;
  GETLEN(&x, &y, &z);
  EXPECT_EQ(std::vector({x, y, z}), std::vector({1200, 800, 500}));
  EXPECT_EQ(outputOf([] { AX3LEN(1200, 800, 1); }), " <<<< Warning 2: Incorrect parameter in ax3len!   (1)\n");
  LABDIS(40, "X");
  NAMDIS(50, "YZ");
  GETSP1(&x, &y, &z);
  EXPECT_EQ(std::vector({x, y, z}), std::vector({40, 24, 24}));
  GETSP2(&x, &y, &z);
  EXPECT_EQ(std::vector({x, y, z}), std::vector({30, 50, 50}));
  LABELS("elog", "X");
  LABELS("NONE", "Y");
  LABELS("XEXP", "Z");
  char a[5], b[5], c[5];
  GETLAB(a, b, c);
  EXPECT_EQ((std::vector<std::string>{a, b, c}), (std::vector<std::string>{"ELOG", "NONE", "XEXP"}));
}

TEST_F(Axis, StepsThatWouldGiveMillionsOfTicks) {
  const std::string warning = " <<<< Warning 160: More than 10000 ticks on an axis, some are left out in graf!\n";
  open();
  LABELS("NONE", "XY");
  EXPECT_EQ(outputOf([] { GRAF(0, 1, 0, 1e-6F, 0, 1, 0, 0.5F); }), warning + warning); // two sides
  EXPECT_EQ(outputOf([] { GRID(2, 0); }),
            " <<<< Warning 160: More than 10000 ticks on an axis, some are left out in grid!\n");
  ENDGRF();
  EXPECT_EQ(outputOf([] { GRAF(0, 1, 0, 0.00025F, 0, 1, 0, 0.5F); }), ""); // 4000 steps
  ENDGRF();
  EXPECT_EQ(outputOf([] { GRAF(-1e38F, 1e38F, 0, 1e30F, 0, 1e-30F, 0, 1e-30F); }), warning + warning);
  ENDGRF();
  std::size_t lines = traced("draw").size();
  EXPECT_GT(lines, 4U * 10000U);
  EXPECT_LT(lines, 9U * 10000U); // two axes of two sides, three systems, a grid
}

TEST_F(Axis, LinesThroughTheOrigin) {
  openSystem(-1, 1, -1, 1, 0, 1, 0, 1);
  AXGIT(); // y = 0 is an end of the scaling, so that only the line x = 0 is drawn
  EXPECT_EQ(traced("move"), Lines{"1000.00 1500.00"});
}

} // namespace
