// Quick plots of hosts: what they open, how they scale, and what stays.
#include <cmath>

#include "plot_fixture.h"

namespace {

class QuickPlots : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    METAFL("PDF");
  }
  void TearDown() override {
    UNIT(nullptr);
    if (GETLEV() > 0) QUIFIN();
    PlotTest::TearDown();
  }
  const float x[4] = {1, 2, 3, 9}, y[4] = {-1, 4, NAN, 2};

  void expectAxis(const char* axis, float a, float e) {
    float got[4];
    GETGRF(&got[0], &got[1], &got[2], &got[3], axis);
    EXPECT_LE(got[0], a) << axis;
    EXPECT_GE(got[1], e) << axis;
    EXPECT_GT(got[0], a - (e - a)) << axis;
    EXPECT_LT(got[1], e + (e - a)) << axis;
  }
};

} // namespace

TEST_F(QuickPlots, OpenAPlotAndLeaveItOpen) {
  QPLOT(x, y, 4);
  EXPECT_EQ(GETLEV(), 2);
  expectAxis("X", 1, 9);
  expectAxis("Y", -1, 4);
  EXPECT_EQ(state()->curve.markerStep, 0);
  QPLSCA(y, x, 2); // on the same page, cleared, scaled anew
  EXPECT_EQ(GETLEV(), 2);
  expectAxis("X", -1, 4);
  EXPECT_EQ(state()->curve.markerStep, -1);
  EXPECT_EQ(state()->geometry.pageNumber, 1);
}

TEST_F(QuickPlots, CurvesShareAGraph) {
  QPLCRV(x, y, 4, "FIRST");
  const float far[2] = {100, 200};
  QPLCRV(far, far, 2, "NEXT");
  QPLCRV(x, x, 4, "LAST");
  expectAxis("X", 1, 9);
  EXPECT_EQ(outputOf([&] { QPLCRV(x, y, 4, "OTHER"); }), " <<<< Warning 2: Incorrect parameter in qplcrv!   (OTHER)\n");
}

TEST_F(QuickPlots, BarsStandOnZero) {
  const float heights[3] = {5, 7, 6};
  QPLBAR(heights, 3);
  expectAxis("X", 0, 4);
  expectAxis("Y", 0, 7);
}

TEST_F(QuickPlots, PiesHaveNoAxes) {
  QPLPIE(x, 4);
  EXPECT_EQ(GETLEV(), 2);
}

TEST_F(QuickPlots, ContourLinesCoverTheMatrix) {
  float z[12]; // 4 by 3, rising with x
  for (int k = 0; k < 12; k++) z[k] = static_cast<float>(k / 3);
  QPLCON(z, 4, 3, 4); // levels 0, 1, 2, 3
  EXPECT_EQ(GETLEV(), 2);
  expectAxis("X", 0, 3);
  expectAxis("Y", 0, 2);
  EXPECT_EQ(state()->contour.contourLabelMode, quilla::kContourLabelLevel);
  EXPECT_EQ(state()->legendState.drawnCount, 4);
  EXPECT_EQ(GETHGT(), 36);
}

TEST_F(QuickPlots, ColorsCoverTheMatrix) {
  float z[12]; // 4 by 3, rising with x
  for (int k = 0; k < 12; k++) z[k] = static_cast<float>(k / 3);
  QPLCLR(z, 4, 3);
  EXPECT_EQ(GETLEV(), 3);
  expectAxis("X", 0, 3);
  expectAxis("Y", 0, 2);
  expectAxis("Z", 0, 3);
  EXPECT_EQ(outputOf([&] { QPLCLR(z, 4, 1); }), " <<<< Warning 2: Incorrect parameter in qplclr!   (1)\n");
}

TEST_F(QuickPlots, ContourLinesNeedAMatrixAndALevel) {
  const float z[4] = {0, 1, 2, 3};
  EXPECT_EQ(outputOf([&] { QPLCON(z, 1, 4, 3); }), " <<<< Warning 2: Incorrect parameter in qplcon!   (1)\n");
  EXPECT_EQ(outputOf([&] { QPLCON(z, 2, 2, 0); }), " <<<< Warning 2: Incorrect parameter in qplcon!   (0)\n");
  EXPECT_EQ(GETLEV(), 0);
}

TEST_F(QuickPlots, ScalesMayBeGiven) {
  QPLSCL(0, 20, 0, 5, "X");
  QPLOT(x, y, 4);
  float got[4];
  GETGRF(&got[0], &got[1], &got[2], &got[3], "X");
  EXPECT_EQ(got[0], 0.0F);
  EXPECT_EQ(got[1], 20.0F);
  EXPECT_EQ(got[3], 5.0F);
  expectAxis("Y", -1, 4);
  QPLSCL(0, 0, 0, 0, "RESET");
  QPLOT(x, y, 4);
  expectAxis("X", 1, 9);
}

TEST_F(QuickPlots, OddData) {
  const float nothing[2] = {NAN, NAN};
  EXPECT_EQ(outputOf([&] { QPLOT(x, y, 0); }), " <<<< Warning 2: Incorrect parameter in qplot!   (0)\n");
  EXPECT_EQ(GETLEV(), 0);
  UNIT(nullptr);
  QPLOT(nothing, nothing, 2);
  QPLBAR(nothing, 2);
  QPLPIE(nothing, 2);
  QPLOT(x, x, 1);
}
