// Labels of contour lines: their settings, where they stand, and the gaps that they leave.
#include <cmath>

#include "contour/contour_pen.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class ContourLabels : public PlotTest {
protected:
  // 100 units to 1 on both axes; (0, 0) at (500, 1500). Text of a font of the driver: each character is one line of
  // the trace.
  void openSystem() {
    open();
    HWFONT();
    PSFONT("Helvetica");
    AXSPOS(500, 1500);
    AXSLEN(1001, 1001);
    NOGRAF();
    GRAF(0, 10, 0, 1, 0, 10, 0, 1);
    LABELS("FLOAT", "CONTUR");
    LABDIG(-1, "CONTUR");
  }

  // A gap of 60 units for a label.
  void gapOfSixty(int textWidth) { CONGAP(static_cast<float>(60 - textWidth) / 72.0F); }

  // A straight line in steps, in user coordinates.
  void straight(float x0, float y0, float dx, float dy, int count, float level = 5) {
    std::vector<float> x, y;
    for (int i = 0; i < count; i++) {
      x.push_back(x0 + dx * static_cast<float>(i));
      y.push_back(y0 + dy * static_cast<float>(i));
    }
    CONCRV(x.data(), y.data(), count, level);
  }

  // The label's characters, and the same text written by itself at a place and an angle.
  void expectText(const std::string& text, int nx, int ny, int angle) {
    const std::size_t labelCount = glyphs().size();
    ANGLE(angle);
    MESSAG(text.c_str(), nx, ny);
    const Lines all = traced("glyph");
    const Lines labels(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(labelCount)),
        wanted(all.begin() + static_cast<std::ptrdiff_t>(labelCount), all.end());
    EXPECT_EQ(labels, wanted);
  }
  Lines glyphs() {
    SENDBF();
    std::fflush(nullptr);
    Lines found;
    for (const std::string& line : linesOf("trace.txt"))
      if (line.rfind("glyph ", 0) == 0) found.push_back(line);
    return found;
  }
};

TEST_F(ContourLabels, StandInTheMiddleOfTheirStretch) {
  openSystem();
  const int w = NLNUMB(5, -1);
  gapOfSixty(w);
  straight(0, 5, 0.2F, 0, 30);
  // 100 units at x 600; the stretch starts at the point before, 580, and ends at 700, 2 * 60 behind it. Up to 600 the
  // line lies within 30 of its start; 680 is the first point beyond 90. The gap of 60 is in the middle of 600..680.
  const Lines moves = traced("move"), draws = traced("draw");
  EXPECT_EQ(moves, (Lines{"500.00 1000.00", "670.00 1000.00"}));
  const Lines head(draws.begin(), draws.begin() + 8);
  EXPECT_EQ(head, (Lines{"520.00 1000.00", "540.00 1000.00", "560.00 1000.00", "580.00 1000.00", "600.00 1000.00",
                         "610.00 1000.00", "680.00 1000.00", "700.00 1000.00"}));
}

TEST_F(ContourLabels, RunAlongALineToTheRight) {
  openSystem();
  const int w = NLNUMB(5, -1);
  gapOfSixty(w);
  straight(0, 5, 0.2F, 0, 20);
  expectText("5", static_cast<int>(600 + (80 - w) / 2.0), 1000 - 18, 0);
}

TEST_F(ContourLabels, AreReadFromTheLeftOnALineToTheLeft) {
  openSystem();
  const int w = NLNUMB(5, -1);
  gapOfSixty(w);
  straight(10, 5, -0.2F, 0, 20); // 1500 to the left: the gap lies between 1400 and 1320
  expectText("5", static_cast<int>(1320 + (80 - w) / 2.0), 1000 - 18, 0);
  EXPECT_EQ(traced("move"), (Lines{"1500.00 1000.00", "1330.00 1000.00"}));
}

TEST_F(ContourLabels, RunUpwardsOnVerticalLines) {
  openSystem();
  const int w = NLNUMB(5, -1);
  gapOfSixty(w);
  straight(5, 0, 0, 0.2F, 20); // up from 1500: between 1400 and 1320
  expectText("5", 1000 - 18, static_cast<int>(1400 - (80 - w) / 2.0), 90);
  EXPECT_EQ(traced("move"), (Lines{"1000.00 1500.00", "1000.00 1330.00"}));
}

TEST_F(ContourLabels, RunUpwardsOnVerticalLinesThatFall) {
  openSystem();
  const int w = NLNUMB(5, -1);
  gapOfSixty(w);
  straight(5, 10, 0, -0.2F, 20); // down from 500: between 600 and 680
  expectText("5", 1000 - 18, static_cast<int>(680 - (80 - w) / 2.0), 90);
  EXPECT_EQ(traced("move"), (Lines{"1000.00 500.00", "1000.00 670.00"}));
}

TEST_F(ContourLabels, FollowASlopingLine) {
  openSystem();
  const int w = NLNUMB(5, -1);
  gapOfSixty(w);
  straight(0, 2, 0.16F, 0.12F, 20); // steps of 20 units, rising by 36.87 degrees
  // Along the line as above; from its left end, 100 + (80 - w) / 2 from the start, half a height to the left of it.
  const double along = 100 + (80 - w) / 2.0;
  expectText("5", static_cast<int>(500 + along * 0.8 - 18 * 0.6), static_cast<int>(1300 - along * 0.6 - 18 * 0.8), 37);
}

TEST_F(ContourLabels, AreTheSameInBothDirections) {
  openSystem();
  const int w = NLNUMB(5, -1);
  gapOfSixty(w);
  straight(8, 8, -0.16F, -0.12F, 20); // the same slope, downwards: the gap's left end lies 180 - (80 - w) / 2 away
  const double along = 180 - (80 - w) / 2.0;
  expectText("5", static_cast<int>(1300 - along * 0.8 - 18 * 0.6), static_cast<int>(700 + along * 0.6 - 18 * 0.8), 37);
}

TEST_F(ContourLabels, AcrossARisingLineRunDown) {
  openSystem();
  LABTYP("VERT", "CONTUR");
  const int w = NLNUMB(5, -1);
  CONGAP(24.0F / 72.0F); // 36 + 24
  straight(0, 2, 0.16F, 0.12F, 20);
  // The upper edge of the text looks along the line; it lies 36 behind the lower, which is 10 + 12 into the gap.
  const double along = 100 + 10 + 12 + 36;
  expectText("5", static_cast<int>(500 + along * 0.8 - w / 2.0 * 0.6),
             static_cast<int>(1300 - along * 0.6 - w / 2.0 * 0.8), -53);
}

TEST_F(ContourLabels, AcrossAFallingLineRunUp) {
  openSystem();
  LABTYP("VERT", "CONTUR");
  const int w = NLNUMB(5, -1);
  CONGAP(24.0F / 72.0F);
  straight(0, 8, 0.16F, -0.12F, 20);
  const double along = 100 + 10 + 12;
  expectText("5", static_cast<int>(500 + along * 0.8 - w / 2.0 * 0.6),
             static_cast<int>(700 + along * 0.6 + w / 2.0 * 0.8), 53);
}

TEST_F(ContourLabels, AcrossAVerticalLineAreUpright) {
  openSystem();
  LABTYP("VERT", "CONTUR");
  const int w = NLNUMB(5, -1);
  CONGAP(24.0F / 72.0F);
  straight(5, 0, 0, 0.2F, 20);
  expectText("5", static_cast<int>(1000 - w / 2.0), 1320 + 22, 0);
}

TEST_F(ContourLabels, AcrossAHorizontalLineRunUp) {
  openSystem();
  LABTYP("VERT", "CONTUR");
  const int w = NLNUMB(5, -1);
  CONGAP(24.0F / 72.0F);
  straight(0, 5, 0.2F, 0, 20);
  expectText("5", 600 + 22, static_cast<int>(1000 + w / 2.0), 90);
}

TEST_F(ContourLabels, GapAcrossFollowsTheHeight) {
  openSystem();
  LABTYP("VERT", "CONTUR");
  LABELS("CONLAB", "CONTUR");
  CONLAB("a very long label");
  CONGAP(24.0F / 72.0F);
  straight(0, 5, 0.2F, 0, 30);
  EXPECT_EQ(traced("move"), (Lines{"500.00 1000.00", "670.00 1000.00"}));
}

TEST_F(ContourLabels, KeepTheirDistance) {
  openSystem();
  gapOfSixty(NLNUMB(5, -1));
  LABDIS(300, "CONTUR");
  straight(0, 5, 0.2F, 0, 50);
  // 300 units behind 700 are reached at 1000, so that the stretch starts at 980.
  EXPECT_EQ(traced("move"), (Lines{"500.00 1000.00", "670.00 1000.00", "1070.00 1000.00"}));
  EXPECT_EQ(glyphs().size(), 2U);
}

TEST_F(ContourLabels, ShortLinesHaveNone) {
  openSystem();
  LABDIS(1, "CONTUR"); // the first label takes 100 units whatever the distance
  straight(0, 5, 0.33F, 0, 4);
  EXPECT_EQ(traced("move").size(), 1U);
  EXPECT_EQ(traced("draw").back(), "599.00 1000.00");
  EXPECT_TRUE(glyphs().empty());
}

TEST_F(ContourLabels, BentLinesAreDrawnWhole) {
  openSystem();
  CONANG(360);
  std::vector<float> x, y;
  for (int i = 0; i <= 72; i++) { // a circle of radius 20 units
    x.push_back(5 + 0.2F * std::cos(static_cast<float>(i) * 0.0872665F));
    y.push_back(5 + 0.2F * std::sin(static_cast<float>(i) * 0.0872665F));
  }
  CONCRV(x.data(), y.data(), 73, 5);
  EXPECT_TRUE(glyphs().empty());
  const Lines moves = traced("move"), draws = traced("draw");
  EXPECT_EQ(moves, Lines{"1020.00 1000.00"});
  EXPECT_EQ(draws.back(), "1020.00 1000.00");
  EXPECT_EQ(draws.size(), 72U);
}

TEST_F(ContourLabels, TurningLinesHaveNoneUntilTheyAreStraight) {
  openSystem();
  // A saw of 45 degrees, up and down: each segment turns by 90 degrees from the one before.
  std::vector<float> x, y;
  for (int i = 0; i <= 40; i++) {
    x.push_back(0.2F * static_cast<float>(i));
    y.push_back(i % 2 == 0 ? 5.0F : 5.2F);
  }
  CONCRV(x.data(), y.data(), 41, 5);
  EXPECT_TRUE(glyphs().empty());
  EXPECT_EQ(traced("draw").size(), 40U);
}

TEST_F(ContourLabels, SingleLongSegmentsHaveNone) {
  openSystem();
  straight(0, 5, 3, 0, 4);
  EXPECT_TRUE(glyphs().empty());
  EXPECT_EQ(traced("draw"), (Lines{"800.00 1000.00", "1100.00 1000.00", "1400.00 1000.00"}));
}

TEST_F(ContourLabels, ShortSegmentsAreLeftOut) {
  openSystem();
  straight(0, 5, 0.004F, 0, 11); // 0.4 units each: every second point is taken
  EXPECT_EQ(traced("draw").size(), 5U);
}

TEST_F(ContourLabels, ManyPointsOfAStretchLoseDetailOnly) {
  openSystem();
  HEIGHT(500);
  CONGAP(0);
  LABELS("CONLAB", "CONTUR");
  CONLAB("W");
  ASSERT_GT(NLMESS("W"), 500 * 0.6);
  ASSERT_LT(NLMESS("W"), 850);
  CONMOD(0, 1.5F);
  straight(0, 5, 0.006F, 0, 1600); // 0.6 units each: more than 500 points before the label has room
  EXPECT_EQ(glyphs().size(), 1U);
  EXPECT_EQ(traced("draw").back().substr(0, 7), "1459.40");
}

TEST_F(ContourLabels, ThickLinesWriteThemOnce) {
  openSystem();
  gapOfSixty(NLNUMB(5, -1));
  THKCRV(3);
  straight(0, 5, 0.2F, 0, 30);
  EXPECT_EQ(glyphs().size(), 1U);
  EXPECT_EQ(traced("move"), (Lines{"500.00 1000.00", "670.00 1000.00", "500.00 1001.00", "670.00 1001.00",
                                   "500.00 999.00", "670.00 999.00"}));
  EXPECT_EQ(state()->contour.contourLabelMode, kContourLabelLevel);
}

TEST_F(ContourLabels, TextAngleAfterwards) {
  openSystem();
  ANGLE(30);
  const float x[3] = {0, 1, 2}, z[9] = {0, 0, 0, 1, 1, 1, 2, 2, 2};
  CONTUR(x, 3, x, 3, z, 0.5F);
  EXPECT_EQ(GETANG(), 30);
  straight(0, 5, 0.2F, 0, 30);
  EXPECT_EQ(GETANG(), 0);
}

TEST_F(ContourLabels, NeitherJustificationNorThePagesDirectionMoveThem) {
  openSystem();
  const int w = NLNUMB(5, -1);
  gapOfSixty(w);
  TXTJUS("RIGHT");
  PAGORG("BOTTOM");
  straight(0, 5, 0.2F, 0, 20);
  PAGORG("TOP");
  TXTJUS("LEFT");
  expectText("5", static_cast<int>(600 + (80 - w) / 2.0), 1000 - 18, 0);
}

TEST_F(ContourLabels, ColorOfTheirOwn) {
  openSystem();
  SETCLR(40);
  LABCLR(200, "CON");
  straight(0, 5, 0.2F, 0, 30);
  EXPECT_EQ(state()->color.currentColor, 40);
  const Lines colors = traced("color");
  ASSERT_GE(colors.size(), 3U);
  EXPECT_EQ(colors[colors.size() - 2], "0x000000c8");
  EXPECT_EQ(colors.back(), "0x00000028");
}

TEST_F(ContourLabels, BesideThePageWarnOfNothing) {
  open();
  LABELS("FLOAT", "CONTUR");
  AXSPOS(0, 2099);
  AXSLEN(1001, 1001);
  NOGRAF();
  GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  EXPECT_EQ(outputOf([&] { straight(0, 0, 0.2F, 0, 30); }), "");
  NOCLIP();
  EXPECT_EQ(outputOf([&] { straight(-8, 5, 0.2F, 0, 30); }), "");
  EXPECT_EQ(state()->counters.warningCount, 0);
  EXPECT_NE(outputOf([] { MESSAG("x", -10, 5); }), ""); // texts of the user are looked at as before
}

TEST_F(ContourLabels, DigitsOfTheLevel) {
  openSystem();
  LABDIG(-2, "CONTUR");
  struct Case {
    float level;
    const char* text;
  };
  const Case cases[] = {{5, "5"},          {0.5F, "0.5"}, {0.25F, "0.25"}, {-1.5F, "-1.5"}, {100, "100"},
                        {0.001F, "0.001"}, {0, "0"},      {1250, "1250"},  {12.5F, "12.5"}};
  for (const Case& c : cases) {
    ContourPen pen;
    openContourPen(state(), pen, c.level, true);
    EXPECT_STREQ(pen.text, c.text);
  }
  LABDIG(2, "CONTUR");
  ContourPen pen;
  openContourPen(state(), pen, 5, true);
  EXPECT_STREQ(pen.text, "5.00");
}

TEST_F(ContourLabels, WidthIsThatOfTextAndGap) {
  openSystem();
  ContourPen pen;
  openContourPen(state(), pen, 12, true);
  EXPECT_EQ(pen.labelGap, 36.0F); // half a height on each side
  EXPECT_EQ(pen.labelWidth, static_cast<float>(36 + NLMESS("12")));
}

TEST_F(ContourLabels, Settings) {
  open();
  const ContourGroup& c = state()->contour;
  const auto refuses = [&](auto call, const char* end) {
    const std::string text = outputOf(call);
    EXPECT_EQ(text, std::string(" <<<< Warning 2: Incorrect parameter in ") + end);
  };
  EXPECT_EQ(c.contourLabelDistance, 500);
  refuses([] { CONGAP(-0.1F); }, "congap!\n");
  refuses([] { CONMOD(-0.1F, 2); }, "conmod!\n");
  refuses([] { CONMOD(0.1F, 1); }, "conmod!\n");
  refuses([] { CONANG(-1); }, "conang!\n");
  refuses([] { CONANG(361); }, "conang!\n");
  refuses([] { LABDIS(0, "CONTUR"); }, "labdis!   (0)\n");
  refuses([] { LABDIS(10001, "CON"); }, "labdis!   (10001)\n");
  refuses([] { LABDIG(-3, "CON"); }, "labdig!   (-3)\n");
  refuses([] { LABELS("LEVEL", "CON"); }, "labels!   (LEVEL)\n");
  refuses([] { LABTYP("ROUND", "con"); }, "labtyp!   (ROUND)\n");
  refuses([] { LABCLR(-2, "CON"); }, "labclr!   (-2)\n");
  EXPECT_EQ(c.contourLabelMode, kContourLabelNone);
  EXPECT_EQ(c.contourGapFactor, 0.5F);
  EXPECT_EQ(c.contourStretchFactor, 0.5F);
  EXPECT_EQ(c.contourCurvatureLimit, 1.5F);
  EXPECT_EQ(c.contourAngleTolerance, 5.0F);
  CONLAB("twenty characters and more");
  EXPECT_STREQ(c.contourLabelText, "twenty characters an");
  EXPECT_EQ(state()->axis.labelDistance[0], 24);
  EXPECT_EQ(state()->axis.labelKind[0], kLabelFloat);
}

TEST_F(ContourLabels, Resets) {
  open();
  const ContourGroup& c = state()->contour;
  CONGAP(2);
  CONMOD(3, 4);
  LABDIS(7, "CON");
  LABDIG(3, "CON");
  LABELS("CONLAB", "CON");
  LABTYP("VERT", "CON");
  LABCLR(9, "CON");
  SURSZE(1, 2, 3, 4);
  RESET("CONGAP");
  EXPECT_EQ(c.contourGapFactor, 0.5F);
  RESET("CONMOD");
  EXPECT_EQ(c.contourStretchFactor, 0.5F);
  EXPECT_EQ(c.contourCurvatureLimit, 1.5F);
  RESET("LABDIS");
  EXPECT_EQ(c.contourLabelDistance, 500);
  EXPECT_EQ(c.contourLabelDigits, 1);
  RESET("LABELS");
  EXPECT_EQ(c.contourLabelMode, kContourLabelNone);
  RESET("LABTYP");
  EXPECT_FALSE(c.contourLabelAcross);
  RESET("LABCLR");
  EXPECT_EQ(c.contourLabelColor, -1);
  RESET("SURSZE");
  EXPECT_FALSE(state()->matrix.matrixLimitsGiven);
}

TEST_F(ContourLabels, DistanceKeepsTheLookOfThePage) {
  METAFL("PDF");
  UNITS("INCH");
  QUIINI();
  ERRMOD("PROT", "OFF");
  EXPECT_EQ(state()->contour.contourLabelDistance, 197); // 500 / 2.54
}

} // namespace
