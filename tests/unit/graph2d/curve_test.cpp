#include <cmath>
#include <csignal>
#include <numeric>

#include "core/stop_request.h"
#include "graph2d/curve_path.h"
#include "graph2d/spline.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class Curve : public PlotTest {
protected:
  // 100 units to 1 on both axes; (0, 0) at (500, 1500).
  void openSystem() {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 1001);
    NOGRAF();
    GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  }
};

TEST_F(Curve, LinesThroughThePoints) {
  openSystem();
  float x[] = {0, 1, 2}, y[] = {0, 1, 0};
  CURVE(x, y, 3);
  EXPECT_EQ(traced("move"), Lines{"500.00 1500.00"});
  EXPECT_EQ(traced("draw"), (Lines{"600.00 1400.00", "700.00 1500.00"}));
}

TEST_F(Curve, Counts) {
  openSystem();
  float x[] = {1}, y[] = {1};
  EXPECT_EQ(outputOf([&] { CURVE(x, y, 0); }), " <<<< Warning 2: Incorrect parameter in curve!\n");
  EXPECT_EQ(outputOf([&] { CURVE(x, y, 1); }), " <<<< Warning 2: Incorrect parameter in curve!\n");
  INCMRK(1);
  EXPECT_EQ(outputOf([&] { CURVE(x, y, 1); }), " <<<< Warning 2: Incorrect parameter in curve!\n");
  INCMRK(-1);
  EXPECT_EQ(outputOf([&] { CURVE(x, y, 1); }), "");
  EXPECT_EQ(traced("move").size(), 1U);
}

TEST_F(Curve, CutAtTheAxisSystem) {
  openSystem();
  float x[] = {5, 15}, y[] = {5, 5};
  NOCHEK();
  CURVE(x, y, 2);
  LINE(0, 10, 2900, 10);
  EXPECT_EQ(traced("draw"), (Lines{"1500.00 1000.00", "2900.00 10.00"}));
  EXPECT_EQ(traced("clip"), Lines{"500.00 500.00 1500.00 1500.00"});
}

TEST_F(Curve, OutOfScaleReport) {
  openSystem();
  float x[] = {5, 15}, y[] = {5, 5};
  EXPECT_EQ(outputOf([&] { CURVE(x, y, 2); }), " <<<< (  1.5000e+01 /  5.0000e+00) out of axis scaling in curve!\n");
  EXPECT_EQ(state()->counters.warningCount, 0);
  EXPECT_EQ(state()->counters.outOfScaleCount, 1);
}

TEST_F(Curve, LogarithmicDataMustBePositive) {
  open();
  AXSSCL("LOG", "XY");
  NOGRAF();
  GRAF(0, 1, 0, 1, 0, 1, 0, 1);
  float x[] = {1, 2}, y[] = {0, 2};
  EXPECT_EQ(outputOf([&] { CURVE(x, y, 2); }), " <<<< Warning 27: Non positive values for log scaling in curve!\n");
  EXPECT_TRUE(traced("draw").empty());
}

TEST_F(Curve, NotANumberBreaksTheLineWhenAsked) {
  openSystem();
  float x[] = {0, 1, 2, 3}, y[] = {1, NAN, 1, 2};
  NANCRV("ON");
  CURVE(x, y, 4);
  EXPECT_EQ(state()->counters.nanCount, 1);
  EXPECT_EQ(traced("draw"), Lines{"800.00 1300.00"});
}

TEST_F(Curve, GapsBreakTheLine) {
  openSystem();
  float x[] = {0, 1, 5, 6}, y[] = {1, 1, 1, 1};
  GAPCRV(2);
  CURVE(x, y, 4);
  EXPECT_EQ(traced("draw"), (Lines{"600.00 1400.00", "1100.00 1400.00"}));
}

TEST_F(Curve, Stairs) {
  openSystem();
  float x[] = {0, 1, 2}, y[] = {1, 2, 1};
  POLCRV("STAI");
  CURVE(x, y, 3);
  EXPECT_EQ(traced("draw"), (Lines{"600.00 1400.00", "600.00 1300.00", "700.00 1300.00", "700.00 1400.00"}));
}

TEST_F(Curve, Steps) {
  openSystem();
  float x[] = {1, 3}, y[] = {1, 2};
  POLCRV("STEP");
  CURVE(x, y, 2);
  EXPECT_EQ(traced("move"), Lines{"500.00 1400.00"});
  EXPECT_EQ(traced("draw"),
            (Lines{"600.00 1400.00", "700.00 1400.00", "700.00 1300.00", "800.00 1300.00", "900.00 1300.00"}));
}

TEST_F(Curve, Stems) {
  openSystem();
  float x[] = {1, 2}, y[] = {1, 2};
  POLCRV("STEM");
  CURVE(x, y, 2);
  EXPECT_EQ(traced("move"), (Lines{"600.00 1500.00", "700.00 1500.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"600.00 1400.00", "700.00 1300.00"}));
}

TEST_F(Curve, FilledBars) {
  openSystem();
  float x[] = {1, 2}, y[] = {1, 2};
  POLCRV("FBAR");
  CURVE(x, y, 2);
  EXPECT_EQ(traced("fill"), (Lines{"4 562.50 1500.00 562.50 1400.00 637.50 1400.00 637.50 1500.00",
                                   "4 662.50 1500.00 662.50 1300.00 737.50 1300.00 737.50 1500.00"}));
}

TEST_F(Curve, ThickCurvesAreDrawnSideBySide) {
  openSystem();
  float x[] = {0, 1}, y[] = {1, 1};
  THKCRV(3);
  CURVE(x, y, 2);
  EXPECT_EQ(traced("move"), (Lines{"500.00 1400.00", "500.00 1401.00", "500.00 1399.00"}));
}

TEST_F(Curve, CyclesOfColours) {
  openSystem();
  float x[] = {0, 1}, y[] = {1, 1};
  CHNCRV("COLO");
  for (int i = 0; i < 31; i++) {
    EXPECT_EQ(state()->cycle.cycleIndex, i % 30 + 1);
    CURVE(x, y, 2);
  }
  EXPECT_EQ(GETCLR(), 255) << "the current colour comes back";
  EXPECT_EQ(state()->cycle.curveCounter, 32);
  ENDGRF();
  EXPECT_EQ(state()->cycle.cycleIndex, 1);
}

TEST_F(Curve, CurvesPerCycle) {
  openSystem();
  float x[] = {0, 1}, y[] = {1, 1};
  INCCRV(2);
  CURVE(x, y, 2);
  EXPECT_EQ(state()->cycle.cycleIndex, 1);
  CURVE(x, y, 2);
  EXPECT_EQ(state()->cycle.cycleIndex, 2);
}

TEST_F(Curve, SymbolsOnEverySecondPoint) {
  openSystem();
  float x[] = {0, 1, 2}, y[] = {1, 1, 1};
  HSYMBL(100);
  MARKER(3);
  INCMRK(-2);
  CURVE(x, y, 3);
  EXPECT_EQ(traced("move"), (Lines{"500.00 1400.00", "500.00 1350.00", "650.00 1400.00", "700.00 1350.00"}))
      << "a plus has a horizontal and a vertical arm; the first one is cut at the axis";
}

TEST_F(Curve, NoSymbol) {
  openSystem();
  float x[] = {0, 1, 2}, y[] = {1, 1, 1};
  MARKER(-1);
  INCMRK(-1);
  CURVE(x, y, 3);
  EXPECT_TRUE(traced("move").empty());
}

TEST_F(Curve, SymbolOffThePage) {
  open();
  EXPECT_EQ(outputOf([] { SYMBOL(3, 3000, 10); }), " <<<< Warning 193: (3000/10) out of page in symbol!\n");
}

TEST_F(Curve, AStoppedRoutineDrawsNoMore) {
  openSystem();
  float x[] = {1, 2, 3}, y[] = {1, 2, 1};
  volatile std::sig_atomic_t stopped = 1;
  const volatile std::sig_atomic_t* usual = stopFlag;
  stopFlag = &stopped;
  CURVE(x, y, 3);
  stopped = 0;
  CURVE(x, y, 3); // the plot is usable as before
  stopFlag = usual;
  EXPECT_EQ(traced("draw"), (Lines{"700.00 1300.00", "800.00 1400.00"}));
}

TEST_F(Curve, SplineChecks) {
  openSystem();
  float x[] = {1, 2, 3, 4}, y[] = {1, 2, 1, 2}, fallen[] = {1, 3, 2, 4};
  POLCRV("SPLI");
  EXPECT_EQ(outputOf([&] { CURVE(x, y, 3); }),
            " <<<< Warning 31: Incorrect number of points for spline interpolation in curve!   (3)\n");
  EXPECT_EQ(outputOf([&] { CURVE(fallen, y, 4); }),
            " <<<< Warning 32: No increasing x coordinates for spline interpolation in curve!\n");
  CURVE(x, y, 4);
  EXPECT_EQ(traced("draw").size(), 199U);
}

TEST_F(Curve, SplinePoints) {
  openSystem();
  float x[] = {0, 1, 2, 3, 4, 5}, y[] = {0, 1, 8, 27, 64, 125}, px[201], py[201];
  int n = -1;
  SPLINE(x, y, 6, px, py, &n);
  ASSERT_EQ(n, 200);
  EXPECT_EQ(px[0], 0.0F);
  EXPECT_EQ(px[199], 5.0F);
  EXPECT_EQ(py[199], 125.0F);
  for (int i = 0; i < n; i++) EXPECT_NEAR(py[i], px[i] * px[i] * px[i], 1e-3F) << i; // a cubic is its own spline
  float many[143] = {};
  EXPECT_EQ(outputOf([&] { SPLINE(many, many, 143, px, py, &n); }), // 7 * 143 > 1000
            " <<<< Warning 31: Incorrect number of points for spline interpolation in spline!   (143)\n");
  EXPECT_EQ(n, 0);
  SPLMOD(3, 9);
  POLCRV("PSPL");
  SPLINE(x, x, 6, px, py, &n);
  ASSERT_EQ(n, 9);
  for (int i = 0; i < n; i++) EXPECT_NEAR(py[i], 0.625F * static_cast<float>(i), 1e-4F) << i;
}

// A cubic through points of a cubic polynomial is that polynomial.
TEST(Spline, ReproducesPolynomials) {
  constexpr int n = 9;
  for (int degree = 2; degree <= 5; degree++) {
    double sites[n], knots[n + 6], band[11 * n], coefficients[n];
    float values[n];
    auto polynomial = [&](double t) {
      return degree == 2 ? 1 - 2 * t + t * t : 2 + t - 0.5 * t * t + 0.25 * t * t * t;
    };
    for (int i = 0; i < n; i++) {
      sites[i] = i + 0.25 * (i % 3);
      values[i] = static_cast<float>(polynomial(sites[i]));
    }
    ASSERT_TRUE(splineCoefficients(sites, values, n, degree, knots, band, coefficients)) << degree;
    for (double t = sites[0]; t <= sites[n - 1]; t += 0.37) {
      EXPECT_NEAR(splineValue(knots, coefficients, n, degree, t), polynomial(t), 1e-4) << degree << ' ' << t;
    }
    EXPECT_NEAR(splineValue(knots, coefficients, n, degree, sites[n - 1]), polynomial(sites[n - 1]), 1e-4);
  }
}

} // namespace
