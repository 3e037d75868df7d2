#include <cmath>

#include "plot_fixture.h"

using namespace quilla;

namespace {

using Floats = std::vector<float>;
using Lines = std::vector<std::string>;

class Bars : public PlotTest {
protected:
  // 100 units to 1 on both axes; (0, 0) at (500, 1500).
  void openSystem() {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 1001);
    NOGRAF();
    GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  }
  void draw(Floats x, Floats y, Floats y1) { BARS(x.data(), y.data(), y1.data(), static_cast<int>(x.size())); }
};

TEST_F(Bars, OutlinesOfEmptyBars) {
  openSystem();
  draw({1, 2}, {0, 1}, {3, 2}); // 75 wide around 600 and 700
  EXPECT_EQ(traced("move"), (Lines{"563.00 1200.00", "663.00 1300.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"563.00 1500.00", "638.00 1500.00", "638.00 1200.00", "563.00 1200.00",
                                   "663.00 1400.00", "738.00 1400.00", "738.00 1300.00", "663.00 1300.00"}));
  EXPECT_TRUE(traced("fill").empty());
}

TEST_F(Bars, SolidBarsWithoutOutlines) {
  openSystem();
  SHDPAT(16);
  NOARLN();
  BARWTH(-40);
  draw({1, 5}, {0, 0}, {1, -1});
  EXPECT_EQ(traced("fill"), (Lines{"4 580.00 1400.00 580.00 1500.00 620.00 1500.00 620.00 1400.00",
                                   "4 980.00 1500.00 980.00 1600.00 1020.00 1600.00 1020.00 1500.00"}));
  EXPECT_TRUE(traced("draw").empty());
}

TEST_F(Bars, OneBarTakesItsWidthFromTheAxisStep) {
  openSystem();
  BARWTH(0.5);
  SHDPAT(16);
  draw({5}, {0}, {1});
  EXPECT_EQ(traced("fill"), Lines{"4 975.00 1400.00 975.00 1500.00 1025.00 1500.00 1025.00 1400.00"});
}

TEST_F(Bars, HorizontalBarsExchangeTheAxes) {
  openSystem();
  BARTYP("HORI");
  BARWTH(-40);
  SHDPAT(16);
  draw({1}, {2}, {5});
  EXPECT_TRUE(state()->curve.errorBarHorizontal);
  EXPECT_EQ(traced("fill"), Lines{"4 700.00 1380.00 700.00 1420.00 1000.00 1420.00 1000.00 1380.00"});
}

// Room 90 of a distance of 100; gap of half a bar: 90 / (1 * 0.5 + 2) = 36 and 18.
TEST_F(Bars, Groups) {
  openSystem();
  BARWTH(0.9F);
  SHDPAT(16);
  BARGRP(2, 0.5F);
  for (int i = 0; i < 3; i++) draw({1, 2}, {0, 0}, {1, 1});
  BARGRP(2, -10); // (90 - 10) / 2 = 40
  draw({1, 2}, {0, 0}, {1, 1});
  Lines fills = traced("fill");
  ASSERT_EQ(fills.size(), 8U);
  EXPECT_EQ(fills[0], "4 555.00 1400.00 555.00 1500.00 591.00 1500.00 591.00 1400.00");
  EXPECT_EQ(fills[2], "4 609.00 1400.00 609.00 1500.00 645.00 1500.00 645.00 1400.00");
  EXPECT_EQ(fills[4], fills[0]);
  EXPECT_EQ(fills[6], "4 555.00 1400.00 555.00 1500.00 595.00 1500.00 595.00 1400.00");
}

TEST_F(Bars, GroupsHaveLimits) {
  open();
  EXPECT_EQ(outputOf([] { BARGRP(31, 0); }), " <<<< Warning 2: Incorrect parameter in bargrp!   (31)\n");
  EXPECT_EQ(outputOf([] { BARGRP(0, 0); }), " <<<< Warning 2: Incorrect parameter in bargrp!   (0)\n");
  EXPECT_EQ(outputOf([] { BARGRP(30, 0); }), "");
}

TEST_F(Bars, WidthsByTheNeighbours) {
  openSystem();
  BARMOD("VARI", "WIDTH");
  BARWTH(1);
  SHDPAT(16);
  draw({1, 2, 5}, {0, 0, 0}, {1, 1, 1}); // distances 100, min(100, 300), 300
  Lines fills = traced("fill");
  ASSERT_EQ(fills.size(), 3U);
  EXPECT_EQ(fills[0].substr(0, 9), "4 550.00 ");
  EXPECT_EQ(fills[1].substr(0, 9), "4 650.00 ");
  EXPECT_EQ(fills[2], "4 850.00 1400.00 850.00 1500.00 1150.00 1500.00 1150.00 1400.00");
}

TEST_F(Bars, PositionsAndStartsOfTheAxis) {
  openSystem();
  BARPOS("BOTH");
  Floats x(4, -1), y(4, -1), y1 = {1, 2, 3, 4};
  EXPECT_EQ(outputOf([&] { BARS(x.data(), y.data(), y1.data(), 4); }),
            " <<<< Warning 28: Number of bars unequal number of main ticks in bars!\n");
  EXPECT_EQ(x, (Floats{1, 2, 3, 4}));
  EXPECT_EQ(y, (Floats{0, 0, 0, 0}));
  Floats many(12, -1), low(12, 0), high(12, 1);
  outputOf([&] { BARS(many.data(), low.data(), high.data(), 12); });
  EXPECT_EQ(many[9], 10.0F);
  EXPECT_EQ(many[10], -1.0F);
  Floats all(10);
  EXPECT_EQ(outputOf([&] { BARS(all.data(), low.data(), high.data(), 10); }), "");
}

TEST_F(Bars, LogarithmicAxes) {
  open();
  AXSSCL("LOG", "Y");
  NOGRAF();
  GRAF(0, 4, 0, 1, -1, 2, -1, 1);
  EXPECT_EQ(outputOf([&] {
              draw({1, 2}, {1, 1}, {2, 0});
            }),
            " <<<< Warning 27: Non positive values for log scaling in bars!\n");
  BARPOS("AXIS");
  Floats x = {1, 2}, y = {0, 0}, y1 = {10, 10};
  EXPECT_EQ(outputOf([&] { BARS(x.data(), y.data(), y1.data(), 2); }), "");
  EXPECT_FLOAT_EQ(y[1], 0.1F);
}

TEST_F(Bars, NotNumbersAreLeftOut) {
  openSystem();
  NANCRV("ON");
  draw({1, 2, 3}, {0, 0, 0}, {1, NAN, 1});
  EXPECT_EQ(state()->counters.nanCount, 1);
  EXPECT_EQ(traced("move").size(), 2U);
}

TEST_F(Bars, CyclesOfColoursAndPatterns) {
  openSystem();
  CHNBAR("BOTH");
  PATCYC(1, 16);
  PATCYC(2, 0);
  SETCLR(77);
  draw({1, 2}, {0, 0}, {1, 1});
  EXPECT_EQ(traced("fill").size(), 1U);
  EXPECT_EQ(state()->color.currentColor, 77);
  EXPECT_EQ(state()->shading.shadePattern, 0);
}

TEST_F(Bars, PatternCycleBeginsWithThePredefinedOnes) {
  open();
  EXPECT_EQ(state()->area.patternCycle[0], 1);
  EXPECT_EQ(state()->area.patternCycle[16], 17);
  EXPECT_EQ(state()->area.patternCycle[17], 1);
  EXPECT_EQ(outputOf([] { PATCYC(31, 1); }), " <<<< Warning 2: Incorrect parameter in patcyc!   (31)\n");
}

// Depth 50 at 53.13 degrees: 30 to the right, 40 up. Front 580..620, 1400..1500.
TEST_F(Bars, ThreeDimensionalBars) {
  openSystem();
  BARTYP("3DVE");
  BAROPT(50, 53.130102F);
  BARWTH(-40);
  SHDPAT(16);
  draw({1}, {0}, {1});
  EXPECT_EQ(traced("fill"), (Lines{"4 620.00 1400.00 620.00 1500.00 650.00 1460.00 650.00 1360.00",
                                   "4 580.00 1400.00 620.00 1400.00 650.00 1360.00 610.00 1360.00",
                                   "4 580.00 1400.00 580.00 1500.00 620.00 1500.00 620.00 1400.00"}));
}

TEST_F(Bars, ThreeDimensionalBarsAreDrawnFromTheLeft) {
  openSystem();
  BARTYP("3DVE");
  SHDPAT(16);
  draw({3, 1}, {0, 0}, {1, 1});
  Lines fills = traced("fill");
  ASSERT_EQ(fills.size(), 6U);
  EXPECT_EQ(fills[2].substr(0, 9), "4 525.00 ");
  EXPECT_EQ(fills[5].substr(0, 9), "4 725.00 ");
}

// Places of texts are seen by shields around them: the text with a quarter of its height on each side.
class BarLabels : public Bars {
protected:
  struct Region {
    int x, y, w, h;
    bool operator==(const Region&) const = default;
  };
  // Upper left corner and size of the label of the only bar, 600 wide and high around (900, 1200).
  Region labelOf(const char* position, float start, float end, const char* type = "VERT") {
    SHIELD("BARS", "RESE");
    SHIELD("BARS", "ON");
    LABELS("SECOND", "BARS");
    LABPOS(position, "BARS");
    BARTYP(type);
    BARWTH(-200);
    draw({5}, {start}, {end});
    const std::int16_t* words = state()->shield.shieldWords;
    return {words[2] + 9, words[3] + 9, words[4] - 18, words[5] - 18};
  }
};

TEST_F(BarLabels, Places) {
  openSystem();
  int w = NLMESS("4.0"), half = (w + 1) / 2;
  // The bar spans x 900 to 1100 and y 1100 to 1500.
  auto near = [](Region r, int x, int y, int width) {
    EXPECT_NEAR(r.x, x, 1);
    EXPECT_EQ(r.y, y);
    EXPECT_EQ(r.w, width);
    EXPECT_EQ(r.h, 36);
  };
  near(labelOf("INSI", 0, 4), 1000 - half, 1282, w);
  near(labelOf("CENT", 0, 4), 1000 - half, 1282, w);
  near(labelOf("AUTO", 0, 4), 1000 - half, 1282, w);
  near(labelOf("OUTS", 0, 4), 1000 - half, 1100 - 45, w);
  near(labelOf("OUTS", 8, 4), 1000 - half, 1100 + 9, w); // points down to 1100
  near(labelOf("LEFT", 0, 4), 900 - 18 - w, 1282, w);
  near(labelOf("RIGHT", 0, 4), 1118, 1282, w);
  near(labelOf("AUTO", 3.8F, 4), 1000 - half, 1100 - 45, w); // too low for a text
  // Horizontal: y 900 to 1100, x 500 to 900.
  near(labelOf("OUTS", 0, 4, "HORI"), 918, 982, w);
  near(labelOf("OUTS", 8, 4, "HORI"), 900 - 18 - w, 982, w);
  near(labelOf("ABOVE", 0, 4, "HORI"), 700 - half, 900 - 45, w);
  near(labelOf("BELOW", 0, 4, "HORI"), 700 - half, 1109, w);
}

TEST_F(BarLabels, Settings) {
  open();
  LABELS("DELTA", "BARS");
  LABDIG(-2, "bars");
  LABCLR(30, "BARS");
  EXPECT_EQ(state()->bar.barLabelMode, kBarLabelDifference);
  EXPECT_EQ(state()->bar.barLabelDigits, -2);
  EXPECT_EQ(state()->bar.barLabelColor, 30);
  EXPECT_EQ(state()->axis.labelKind[kAxisX], kLabelFloat);
  EXPECT_EQ(outputOf([] { LABELS("FLOAT", "BARS"); }), " <<<< Warning 2: Incorrect parameter in labels!   (FLOAT)\n");
  EXPECT_EQ(outputOf([] { LABCLR(-2, "BARS"); }), " <<<< Warning 2: Incorrect parameter in labclr!   (-2)\n");
}

class Candles : public Bars {};

// x 600, open 1400, high 1200, low 1500, close 1300; 50 wide.
TEST_F(Candles, RisingBodyIsFilled) {
  openSystem();
  BARWTH(-50);
  Floats x = {1}, open = {1}, high = {3}, low = {0}, close = {2};
  FBARS(x.data(), open.data(), high.data(), low.data(), close.data(), 1);
  EXPECT_EQ(traced("fill"), Lines{"4 575.00 1300.00 575.00 1400.00 625.00 1400.00 625.00 1300.00"});
  EXPECT_EQ(traced("move"), (Lines{"600.00 1200.00", "600.00 1400.00", "575.00 1300.00"}));
}

TEST_F(Candles, OpenEqualToCloseIsAnEmptyBody) {
  openSystem();
  BARWTH(-50);
  Floats x = {1}, open = {2}, high = {3}, low = {0}, close = {2};
  FBARS(x.data(), open.data(), high.data(), low.data(), close.data(), 1);
  EXPECT_TRUE(traced("fill").empty());
  EXPECT_EQ(traced("draw").size(), 4U); // the wick above and below, the body to the right and back
}

TEST_F(Candles, FallingBodyIsFilledInItsColour) {
  openSystem();
  BARWTH(-50);
  BARCLR(-1, 40, -1);
  Floats x = {1}, open = {2}, high = {3}, low = {0}, close = {1};
  FBARS(x.data(), open.data(), high.data(), low.data(), close.data(), 1);
  EXPECT_EQ(traced("fill").size(), 1U);
}

TEST_F(Candles, Ticks) {
  openSystem();
  BARTYP("TICK");
  EXPECT_EQ(state()->bar.barType, kBarVertical);
  BARWTH(-50);
  Floats x = {1}, open = {1}, high = {3}, low = {0}, close = {2};
  FBARS(x.data(), open.data(), high.data(), low.data(), close.data(), 1);
  EXPECT_EQ(traced("move"), (Lines{"600.00 1500.00", "575.00 1400.00", "600.00 1300.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"600.00 1200.00", "600.00 1400.00", "625.00 1300.00"}));
}

TEST_F(Bars, ExtremeValues) {
  openSystem();
  LABELS("SECOND", "BARS");
  for (const char* type : {"VERT", "HORI", "3DVE", "3DHO"}) {
    BARTYP(type);
    draw({1e38F, -1e38F, NAN, 1, INFINITY}, {0, 1e38F, 0, -1e38F, 0}, {1, 2, 3, 1e38F, 4});
    draw({1, 2}, {-1e38F, NAN}, {1e38F, NAN});
  }
  BAROPT(1e38F, 1e38F);
  BARWTH(-1e38F);
  draw({1, 2}, {0, 0}, {1, 2});
  for (const std::string& line : traced("draw")) EXPECT_EQ(line.find("nan"), std::string::npos);
}

} // namespace
