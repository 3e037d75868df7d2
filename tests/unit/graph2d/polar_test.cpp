#include "graph2d/scaling.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class Polar : public PlotTest {
protected:
  // Centre (1000, 1000), 100 plot units to 1.
  void openPolar() {
    open();
    AXSORG(1000, 1000);
    AXSLEN(1001, 1401);
    NOGRAF();
    POLAR(5, 0, 1, 0, 30);
  }
  void expectPoint(float x, float y, float px, float py) {
    EXPECT_NEAR(X2DPOS(x, y), px, 0.01) << x << ' ' << y;
    EXPECT_NEAR(Y2DPOS(x, y), py, 0.01) << x << ' ' << y;
  }
};

TEST_F(Polar, RadiusAndAngle) {
  openPolar();
  expectPoint(0, 45, 1000, 1000);
  expectPoint(2, 0, 1200, 1000);
  expectPoint(2, 90, 1000, 800);
  expectPoint(2, 180, 800, 1000);
  expectPoint(1, 30, 1086.60F, 950);
}

TEST_F(Polar, StartAndDirection) {
  openPolar();
  POLMOD("TOP", "CLOCK");
  expectPoint(2, 0, 1000, 800);
  expectPoint(2, 90, 1200, 1000);
}

TEST_F(Polar, ChecksAndModes) {
  open();
  AXSSCL("LOG", "X");
  EXPECT_EQ(outputOf([] { POLAR(5, 0, 1, 0, 30); }),
            " <<<< Warning 132: Polar axis systems must have linear scaling in polar!\n");
  AXSSCL("LIN", "X");
  EXPECT_EQ(outputOf([] { POLAR(5, 0, 0, 0, 30); }), " <<<< Warning 9: Step equal zero in polar!\n");
  EXPECT_EQ(GETLEV(), 1);
  NOGRAF();
  GRAFP(5, 0, 1, 0, 30);
  EXPECT_EQ(GETLEV(), 2);
  float r[] = {1, 2}, a[] = {0, 90};
  POLCRV("STEP");
  EXPECT_EQ(outputOf([&] { CURVE(r, a, 2); }),
            " <<<< Warning 160: Bad interpolation method for polar scaling in curve!\n");
  EXPECT_EQ(outputOf([] { NYPOSN(1); }),
            " <<<< Warning 109: Routine does not work for polar axis systems in nyposn!\n");
}

TEST_F(Polar, CurvesAndStems) {
  openPolar();
  float r[] = {1, 2}, a[] = {0, 90};
  CURVE(r, a, 2);
  POLCRV("STEM");
  CURVE(r, a, 2);
  EXPECT_EQ(traced("draw"), (Lines{"1000.00 800.00", "1100.00 1000.00", "1000.00 800.00"}));
}

TEST_F(Polar, GridOfRaysAndCircles) {
  openPolar();
  GRID(0, 1);
  EXPECT_EQ(traced("draw").size(), 12U);
}

class Chart : public PlotTest {};

TEST_F(Chart, ReflectionCoefficients) {
  open();
  AXSORG(1000, 1000);
  AXSLEN(1001, 1001);
  NOGRAF();
  float re[] = {1}, im[] = {1};
  GRAFR(re, 1, im, 1);
  EXPECT_NEAR(X2DPOS(1, 0), 1000, 0.01); // matched: the centre
  EXPECT_NEAR(X2DPOS(0, 0), 500, 0.01);  // short circuit: the left end
  EXPECT_NEAR(X2DPOS(0, 1), 1000, 0.01); // a pure reactance of 1: the top
  EXPECT_NEAR(Y2DPOS(0, 1), 500, 0.01);
  float r = 0, i = 0, zr = 0, zi = 0;
  GETRCO(1, 1, &r, &i); // i / (2 + i) = 0.2 + 0.4 i
  EXPECT_NEAR(r, 0.2, 1e-6);
  EXPECT_NEAR(i, 0.4, 1e-6);
  GETICO(r, i, &zr, &zi);
  EXPECT_NEAR(zr, 1, 1e-5);
  EXPECT_NEAR(zi, 1, 1e-5);
  EXPECT_EQ(outputOf([] { GRID(1, 1); }), " <<<< Warning 35: Routine does not work for GRAFR in grid!\n");
}

TEST_F(Chart, Checks) {
  open();
  float re[] = {-1}, im[] = {1};
  EXPECT_EQ(outputOf([&] { GRAFR(re, 1, im, 1); }), " <<<< Warning 2: Incorrect parameter in grafr!\n");
  EXPECT_EQ(GETLEV(), 1);
  NOGRAF();
  GRAF(0, 1, 0, 1, 0, 1, 0, 1);
  EXPECT_EQ(outputOf([] { GRIDRE(1, 0, 1, 10); }), " <<<< Warning 35: No call to GRAFR before in gridre!\n");
}

} // namespace
