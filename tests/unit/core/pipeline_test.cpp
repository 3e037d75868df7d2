#include "core/pipeline.h"

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
  fillPolygon(state(), xs, ys, 3);
  EXPECT_EQ(traced("fill"), Lines{"3 10.00 20.00 110.00 20.00 110.00 70.00"});
}

} // namespace
