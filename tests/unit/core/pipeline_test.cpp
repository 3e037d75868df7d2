#include "core/pipeline.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/clipper.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class Pipeline : public PlotTest {};

TEST(Clipper, CutsAtEdges) {
  ClipBox box{0, 0, 100, 50};
  Segment across{-100, 25, 200, 25};
  ClipResult r = clipSegment(box, across);
  EXPECT_TRUE(r.visible && r.firstMoved && r.secondMoved);
  EXPECT_FLOAT_EQ(across.x0, 0);
  EXPECT_FLOAT_EQ(across.x1, 100);
  Segment diagonal{-10, -10, 30, 30}; // through the corner
  EXPECT_TRUE(clipSegment(box, diagonal).visible);
  EXPECT_FLOAT_EQ(diagonal.y0, 0);
  Segment beside{-10, 20, -1, 40};
  EXPECT_FALSE(clipSegment(box, beside).visible);
  Segment corner{-20, 45, 20, 90}; // passes the corner outside: at x = 0 y is 67.5
  EXPECT_FALSE(clipSegment(box, corner).visible);
  Segment none{0, 0, std::numeric_limits<float>::quiet_NaN(), 10};
  EXPECT_FALSE(clipSegment(box, none).visible);
  Segment far{50, 25, 3e38F, 25};
  EXPECT_TRUE(clipSegment(box, far).visible);
  EXPECT_FLOAT_EQ(far.x1, 100);
}

TEST_F(Pipeline, EqualPointsAddNoSegment) {
  open();
  XMOVE(100, 100);
  XDRAW(100, 100);
  XDRAW(200, 100);
  XDRAW(200, 100);
  EXPECT_EQ(traced("draw"), Lines{"200.00 100.00"});
}

TEST_F(Pipeline, APathOfOnePointDrawsNothing) {
  open();
  XMOVE(100, 100);
  XMOVE(300, 300);
  EXPECT_TRUE(traced("move").empty());
}

TEST_F(Pipeline, TheHundredthPointStartsANewPath) {
  open();
  XMOVE(0, 10);
  for (int i = 1; i <= 150; i++) XDRAW(static_cast<float>(i), 10);
  EXPECT_EQ(traced("move"), (Lines{"0.00 10.00", "99.00 10.00"}));
  EXPECT_EQ(traced("draw").size(), 150U);
}

TEST_F(Pipeline, VectorsAreCounted) {
  open();
  XMOVE(0, 10);
  for (int i = 1; i <= 150; i++) XDRAW(static_cast<float>(i), 10);
  flushPath(state());
  EXPECT_EQ(state()->counters.vectorCount, 150);
}

TEST_F(Pipeline, SegmentsOffThePageAreCut) {
  open();
  XMOVE(-100, 100);
  XDRAW(100, 100);
  XDRAW(100, -100);
  XDRAW(200, -100);
  XDRAW(200, 100);
  EXPECT_EQ(traced("move"), (Lines{"0.00 100.00", "200.00 0.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"100.00 100.00", "100.00 0.00", "200.00 100.00"}));
}

TEST_F(Pipeline, ClipWindow) {
  open();
  CLPWIN(100, 100, 101, 51);
  int nx = 0, ny = 0, nw = 0, nh = 0;
  GETCLP(&nx, &ny, &nw, &nh);
  EXPECT_EQ(nx, 100);
  EXPECT_EQ(nh, 51);
  LINE(50, 120, 250, 120);
  EXPECT_EQ(outputOf([] { CLPWIN(0, 0, 3000, 10); }), " <<<< Warning 2: Incorrect parameter in clpwin!\n");
  EXPECT_EQ(traced("move"), Lines{"100.00 120.00"});
  EXPECT_EQ(traced("draw"), Lines{"200.00 120.00"});
}

TEST_F(Pipeline, DashesKeepTheirPhase) {
  open();
  DASH(); // 10 drawn, 10 not
  LINE(0, 100, 25, 100);
  penDraw(state(), 25, 125);
  // 0-10 drawn, 10-20 gap, 20-25 and 5 round the corner drawn, gap 105-115, drawn 115-125.
  EXPECT_EQ(traced("move"), (Lines{"0.00 100.00", "20.00 100.00", "25.00 115.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"10.00 100.00", "25.00 100.00", "25.00 105.00", "25.00 125.00"}));
}

TEST_F(Pipeline, DashesFarOffThePageCostNothing) {
  open();
  DASH();
  XMOVE(0, 0);
  penMove(state(), -1e9F, 100);
  penDraw(state(), 100, 100);
  auto draws = traced("draw");
  EXPECT_GE(draws.size(), 4U);
  EXPECT_LE(draws.size(), 7U);
}

TEST_F(Pipeline, LineTypesInCoarseUnits) {
  METAFL("PDF");
  UNITS("INCH");
  PAGE(1101, 851);
  outputOf([] { QUIINI(); });
  LINTYP(4); // 1, 15, 15, 15 tenths of a millimetre: 0.39 becomes 1, 5.9 becomes 6
  EXPECT_EQ(state()->line.linePattern[0], 1);
  EXPECT_EQ(state()->line.linePattern[1], 6);
  outputOf([] { QUIFIN(); });
}

TEST_F(Pipeline, OwnPatterns) {
  open();
  int good[] = {30, 20}, bad[] = {30, 0}, many[11] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
  MYLINE(good, 2);
  EXPECT_EQ(state()->line.linePatternCount, 2);
  EXPECT_EQ(outputOf([&] { MYLINE(bad, 2); }), " <<<< Warning 2: Incorrect parameter in myline!   (0)\n");
  EXPECT_EQ(outputOf([&] { MYLINE(many, 11); }), " <<<< Warning 2: Incorrect parameter in myline!   (11)\n");
  EXPECT_EQ(state()->line.linePattern[0], 30);
}

TEST_F(Pipeline, OffsetsOfThickCurvesRunAlongTheNormal) {
  open();
  state()->dash.lineGapSize = 2.0F;
  penMove(state(), 100, 100);
  penDraw(state(), 200, 100);
  EXPECT_EQ(traced("move"), Lines{"100.00 102.00"});
  EXPECT_EQ(traced("draw"), Lines{"200.00 102.00"});
}

TEST_F(Pipeline, PolygonsTakeTheOrigin) {
  open();
  ORIGIN(10, 20);
  float xs[] = {0, 100, 100}, ys[] = {0, 0, 50};
  SHDPAT(16);
  fillPolygon(state(), xs, ys, 3);
  EXPECT_EQ(traced("fill"), Lines{"3 10.00 20.00 110.00 20.00 110.00 70.00"});
}

TEST_F(Pipeline, ALineToItsOwnPlaceIsADot) {
  open();
  XMOVE(100, 100);
  XDRAW(100, 100);
  XDRAW(100, 100);
  XMOVE(300, 100);
  LINE(200, 100, 200, 100);
  DASH();
  LINE(250, 100, 250, 100);
  EXPECT_EQ(traced("move"), (Lines{"100.00 100.00", "200.00 100.00", "250.00 100.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"100.00 100.00", "200.00 100.00", "250.00 100.00"}));
}

TEST_F(Pipeline, DashesThatEndWithTheSegmentLeaveNoDot) {
  open();
  DASH();
  LINE(0, 100, 20, 100); // drawn 0-10, gap 10-20
  EXPECT_EQ(traced("draw"), Lines{"10.00 100.00"});
}

TEST_F(Pipeline, ColorsAlongThePattern) {
  open();
  int colors[] = {3, 0x010000FF}, many[31] = {};
  SETCLR(7);
  LINCLR(colors, 2);
  DASH(); // drawn 0-10, 20-30, 40-50
  LINE(0, 100, 50, 100);
  EXPECT_EQ(GETCLR(), 7);
  penMove(state(), 0, 200);
  EXPECT_EQ(outputOf([&] { LINCLR(many, 31); }), " <<<< Warning 2: Incorrect parameter in linclr!   (31)\n");
  LINCLR(colors, 0);
  SOLID();
  LINE(0, 300, 5, 300);
  Lines wanted;
  QUIFIN();
  for (const std::string& line : linesOf("trace.txt"))
    if (line.rfind("color", 0) == 0 || line.rfind("draw", 0) == 0) wanted.push_back(line);
  wanted.erase(wanted.begin(), std::find(wanted.begin(), wanted.end(), "color 0x00000007") + 1);
  EXPECT_EQ(wanted, (Lines{"color 0x00000003", "draw 10.00 100.00", "color 0x010000ff", "draw 30.00 100.00",
                           "color 0x00000003", "draw 50.00 100.00", "color 0x00000007", "draw 5.00 300.00"}));
}

// Points of a wide line behind its centre line.
std::vector<std::pair<float, float>> outlinePoints(const Lines& moves, const Lines& draws, std::size_t centerDraws) {
  std::vector<std::pair<float, float>> points;
  auto add = [&points](const std::string& line) {
    std::pair<float, float> p;
    sscanf(line.c_str(), "%f %f", &p.first, &p.second);
    points.push_back(p);
  };
  for (std::size_t i = 1; i < moves.size(); i++) add(moves[i]);
  for (std::size_t i = centerDraws; i < draws.size(); i++) add(draws[i]);
  return points;
}

class WideLines : public PlotTest {
protected:
  void openWide(const char* cap, int width) {
    open();
    HWMODE("OFF", "LINE");
    LNCAP(cap);
    LINWID(width);
  }
};

TEST_F(WideLines, TwoPassesOfFive) {
  openWide("CUT", 5);
  LINE(100, 100, 200, 100);
  EXPECT_EQ(traced("move"), (Lines{"100.00 100.00", "100.00 101.50", "100.00 102.50"}));
  EXPECT_EQ(traced("draw"), (Lines{"200.00 100.00", "200.00 101.50", "200.00 98.50", "100.00 98.50", "100.00 101.50",
                                   "200.00 102.50", "200.00 97.50", "100.00 97.50", "100.00 102.50"}));
}

TEST_F(WideLines, WidthOfOneAndDeviceWidthsNeedNoPass) {
  openWide("CUT", 1);
  LINE(100, 100, 200, 100);
  HWMODE("ON", "LINE");
  LINWID(9);
  LINE(100, 200, 200, 200);
  EXPECT_EQ(traced("draw").size(), 2U);
}

TEST_F(WideLines, HardwareOffGivesTheWidthBack) {
  open();
  LINWID(9);
  EXPECT_EQ(state()->line.lineWidthSetting, -9);
  HWMODE("OFF", "LINE");
  EXPECT_EQ(state()->line.lineWidthSetting, 9);
  EXPECT_EQ(GETLIN(), 9);
  EXPECT_NE(outputOf([] { HWMODE("MAYBE", "LINE"); }), "");
  EXPECT_NE(outputOf([] { HWMODE("ON", "FONT"); }), "");
  EXPECT_FALSE(state()->line.hardwareLines);
}

TEST_F(WideLines, LongEndsReachOut) {
  openWide("LONG", 2);
  LINE(100, 100, 100, 200);
  EXPECT_EQ(traced("move")[1], "99.00 99.00");
  EXPECT_EQ(traced("draw"), (Lines{"100.00 200.00", "99.00 201.00", "101.00 201.00", "101.00 99.00", "99.00 99.00"}));
}

TEST_F(WideLines, RoundEndsLieOnCircles) {
  openWide("ROUN", 20);
  LINE(100, 100, 160, 180); // length 100
  auto points = outlinePoints(traced("move"), traced("draw"), 1);
  int round = 0;
  float far = 0;
  for (auto [x, y] : points) {
    // Distance from the segment: along is counted from its start, in the direction (0.6, 0.8).
    float along = (x - 100) * 0.6F + (y - 100) * 0.8F, across = (x - 100) * 0.8F - (y - 100) * 0.6F;
    float beyond = along < 0 ? along : along > 100 ? along - 100 : 0;
    float distance = std::hypot(beyond, across);
    far = std::max(far, distance);
    if (std::fabs(beyond) > 0.1F) round++;
    // Half widths of the passes: 1.5, 3, 4.5, 6, 7.5, 9, 10.
    float nearest = std::min(std::fabs(distance - 10.0F), std::fabs(std::remainder(distance, 1.5F)));
    EXPECT_LT(nearest, 0.02F) << x << " " << y;
  }
  EXPECT_NEAR(far, 10.0F, 0.02F);
  EXPECT_EQ(round, 7 * 2 * 10) << "seven passes, two ends, ten chords";
}

void corner() {
  XMOVE(100, 100);
  XDRAW(200, 100);
  XDRAW(200, 200);
}

TEST_F(WideLines, SharpCornersMeet) {
  openWide("CUT", 2);
  LNJOIN("SHAR");
  corner();
  EXPECT_EQ(traced("draw"), (Lines{"200.00 100.00", "200.00 200.00", "199.00 101.00", "199.00 200.00", "201.00 200.00",
                                   "201.00 99.00", "100.00 99.00", "100.00 101.00"}));
}

TEST_F(WideLines, CornersBeyondTheMiterLimitAreCut) {
  openWide("CUT", 2);
  LNJOIN("SHAR");
  LNMLT(1.4F); // a right angle needs 1.414
  corner();
  EXPECT_EQ(traced("draw"), (Lines{"200.00 100.00", "200.00 200.00", "200.00 101.00", "199.00 100.00", "199.00 200.00",
                                   "201.00 200.00", "201.00 100.00", "200.00 99.00", "100.00 99.00", "100.00 101.00"}));
}

TEST_F(WideLines, ClosedLinesHaveTwoRings) {
  openWide("LONG", 2);
  LNJOIN("SHAR");
  XMOVE(100, 100);
  XDRAW(200, 100);
  XDRAW(200, 200);
  XDRAW(100, 200);
  XDRAW(100, 100);
  Lines draws = traced("draw");
  draws.erase(draws.begin(), draws.begin() + 4);
  EXPECT_EQ(traced("move"), (Lines{"100.00 100.00", "101.00 101.00"}));
  EXPECT_EQ(draws, (Lines{"199.00 101.00", "199.00 199.00", "101.00 199.00", "101.00 101.00", "99.00 201.00",
                          "201.00 201.00", "201.00 99.00", "99.00 99.00", "99.00 201.00", "101.00 101.00"}));
}

TEST_F(WideLines, OutlinesAreClipped) {
  openWide("CUT", 4); // one pass, half width 2
  CLPWIN(0, 99, 150, 101);
  LINE(100, 98, 200, 98); // the centre lies above the window, one side in it
  EXPECT_EQ(traced("move"), (Lines{"100.00 100.00", "100.00 99.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"149.00 100.00", "100.00 100.00"}));
}

TEST_F(WideLines, ADotHasTheSizeOfTheWidth) {
  openWide("LONG", 4);
  LINE(100, 100, 100, 100);
  EXPECT_EQ(traced("move")[1], "98.00 102.00");
  EXPECT_EQ(traced("draw"), (Lines{"100.00 100.00", "102.00 102.00", "102.00 98.00", "98.00 98.00", "98.00 102.00"}));
}

TEST_F(WideLines, InchesCountInTenthsOfAMillimetre) {
  METAFL("PDF");
  UNITS("INCH");
  PAGE(1101, 851);
  outputOf([] { QUIINI(); });
  HWMODE("OFF", "LINE");
  LNCAP("CUT");
  LINWID(2); // 5.08 tenths of a millimetre: passes of 3 and 5, half widths 1.5 / 2.54 and 2.5 / 2.54
  LINE(100, 100, 200, 100);
  outputOf([] { QUIFIN(); });
  EXPECT_EQ(traced("move"), (Lines{"100.00 100.00", "100.00 100.59", "100.00 100.98"}));
}

class Transformations : public PlotTest {};

TEST_F(Transformations, EachActsAfterTheEarlierOnes) {
  open();
  TRFSHF(10, 20);
  TRFSCL(2, 3);
  LINE(0, 0, 100, 0);
  TRFRES();
  LINE(0, 0, 100, 0);
  EXPECT_EQ(traced("move"), (Lines{"20.00 60.00", "0.00 0.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"220.00 60.00", "100.00 0.00"}));
}

TEST_F(Transformations, RotationRunsAnticlockwise) {
  open();
  TRFROT(90, 1000, 1000);
  LINE(1000, 1000, 1100, 1000); // to the right becomes upwards
  EXPECT_EQ(traced("draw"), Lines{"1000.00 900.00"});
}

TEST_F(Transformations, TheUsersOriginIsThatOfThePage) {
  open();
  PAGORG("BOTT");
  TRFSCL(2, 2);
  TRFSHF(0, 10);
  LINE(0, 100, 50, 100); // y 200 + 10 above the lower edge at 2099
  TRFRES();
  TRFROT(90, 500, 500);
  LINE(500, 500, 600, 500);
  EXPECT_EQ(traced("move"), (Lines{"0.00 1889.00", "500.00 1599.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"100.00 1889.00", "500.00 1499.00"}));
}

TEST_F(Transformations, DashesAndFillsAreMovedToo) {
  open();
  TRFSCL(2, 1);
  DASH();
  LINE(0, 100, 30, 100);
  float xs[] = {0, 100, 100}, ys[] = {0, 0, 50};
  SHDPAT(16);
  fillPolygon(state(), xs, ys, 3);
  EXPECT_EQ(traced("draw"), (Lines{"20.00 100.00", "60.00 100.00"}));
  EXPECT_EQ(traced("fill"), Lines{"3 0.00 0.00 200.00 0.00 200.00 50.00"});
}

TEST_F(Transformations, DashesThatLeaveThePageByItCostNothing) {
  open();
  TRFSCL(1e9F, 1);
  DASH();
  LINE(0, 100, 2000000000, 100);
  EXPECT_LE(traced("draw").size(), 2U);
}

TEST_F(Transformations, DashesThatNobodyCanSeeAreOneLine) {
  open();
  DASH();
  TRFSCL(1e-30F, 1e-30F);
  XMOVE(0, 0);
  XDRAW(3e33F, 0);
  EXPECT_EQ(traced("draw").size(), 1U);
}

TEST_F(Transformations, BadNumbersAreRefused) {
  open();
  float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(outputOf([&] { TRFSCL(nan, 1); }), " <<<< Warning 2: Incorrect parameter in trfscl!\n");
  EXPECT_EQ(outputOf([&] { TRFROT(nan, 1, 1); }), " <<<< Warning 2: Incorrect parameter in trfrot!\n");
  TRFSHF(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
  for (int i = 0; i < 100; i++) TRFSCL(3e38F, 3e38F);
  LINE(10, 10, 20, 20);
  EXPECT_TRUE(traced("draw").empty());
}

class CircleClip : public PlotTest {};

TEST(Clipper, CutsAtCircles) {
  ClipCircle circle{0, 0, 50};
  Segment through{-100, 30, 100, 30}; // half the chord is 40
  ClipResult r = clipSegment(circle, through);
  EXPECT_TRUE(r.visible && r.firstMoved && r.secondMoved);
  EXPECT_NEAR(through.x0, -40, 1e-4);
  EXPECT_NEAR(through.x1, 40, 1e-4);
  Segment out{0, 0, 30, 40}, leaving{0, 0, 60, 80}, beside{-100, 51, 100, 51}, before{60, 0, 100, 0},
      none{60, 0, 60, 0};
  EXPECT_FALSE(clipSegment(circle, out).secondMoved) << "its end lies on the circle";
  r = clipSegment(circle, leaving);
  EXPECT_TRUE(r.visible && !r.firstMoved && r.secondMoved);
  EXPECT_NEAR(leaving.x1, 30, 1e-4);
  EXPECT_NEAR(leaving.y1, 40, 1e-4);
  EXPECT_FALSE(clipSegment(circle, beside).visible);
  EXPECT_FALSE(clipSegment(circle, before).visible) << "the line meets the circle, but not between its ends";
  EXPECT_FALSE(clipSegment(circle, none).visible);
}

TEST_F(CircleClip, CurvesEndAtTheCircle) {
  open();
  AXSLEN(201, 201);
  AXSPOS(1000, 1500);
  NOGRAF();
  GRAF(-1, 1, -1, 1, -1, 1, -1, 1); // a user unit is 100 plot units, the middle (1100, 1400)
  CLPMOD("CIRC");
  float x[] = {-1, 1}, y[] = {0.6F, 0.6F};
  CURVE(x, y, 2);
  EXPECT_FALSE(state()->clip.clipIsCircle);
  CLPMOD("RECT");
  CURVE(x, y, 2);
  EXPECT_EQ(traced("move"), (Lines{"1020.00 1340.00", "1000.00 1340.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"1180.00 1340.00", "1200.00 1340.00"}));
}

TEST_F(CircleClip, BorderAtTheAxisSystem) {
  open();
  AXSLEN(201, 201);
  AXSPOS(1000, 1500);
  NOGRAF();
  GRAF(-1, 1, -1, 1, -1, 1, -1, 1);
  CLPMOD("CIRC");
  CLPBOR("AXIS");
  LINE(900, 1400, 1300, 1400);
  CLPBOR("PAGE");
  LINE(900, 1400, 1300, 1400);
  EXPECT_EQ(traced("draw"), (Lines{"1200.00 1400.00", "1300.00 1400.00"}));
}

TEST_F(Pipeline, TheDeviceLearnsTheWindow) {
  open();
  CLPWIN(100, 200, 11, 21);
  NEWPAG();
  RESET("CLPWIN");
  int nx = 0, ny = 0, nw = 0, nh = 0;
  GETCLP(&nx, &ny, &nw, &nh);
  EXPECT_EQ(nw, 2970);
  EXPECT_EQ(traced("clip"), (Lines{"100.00 200.00 110.00 220.00", "100.00 200.00 110.00 220.00"}));
}

} // namespace
