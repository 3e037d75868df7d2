#include <cmath>
#include <numeric>

#include "plot_fixture.h"

using namespace quilla;

namespace {

using Floats = std::vector<float>;
using Lines = std::vector<std::string>;

class Numeric : public PlotTest {};

TEST_F(Numeric, LineThroughPoints) {
  // Means 2.5 and 4; sxx = 5, sxy = 8, syy = 16.
  Floats x = {1, 2, 3, 4}, y = {2, 2, 6, 6};
  float a = 0, b = 0, r = 0;
  LINFIT(x.data(), y.data(), 4, &a, &b, &r, "NONE");
  EXPECT_FLOAT_EQ(a, 1.6F);
  EXPECT_NEAR(b, 0.0F, 1e-6F);
  EXPECT_FLOAT_EQ(r, 8.0F / std::sqrt(5.0F * 16.0F));
}

TEST_F(Numeric, LineThroughEqualPositionsIsNoNumber) {
  Floats x = {2, 2}, y = {1, 3};
  float a = 0, b = 0, r = 0;
  EXPECT_EQ(outputOf([&] { LINFIT(x.data(), y.data(), 2, &a, &b, &r, "NONE"); }), "");
  EXPECT_FALSE(std::isfinite(a));
}

TEST_F(Numeric, LineNeedsTwoPointsAndAnAxisSystemToDraw) {
  Floats x = {1, 2}, y = {1, 3};
  float a = -7, b = 0, r = 0;
  EXPECT_EQ(outputOf([&] { LINFIT(x.data(), y.data(), 1, &a, &b, &r, "NONE"); }),
            " <<<< Warning 2: Incorrect parameter in linfit!\n");
  EXPECT_EQ(outputOf([&] { LINFIT(x.data(), y.data(), 2, &a, &b, &r, "ALL"); }),
            " <<<< Warning 3: Incorrect level in linfit!   (0)\n");
  EXPECT_EQ(a, -7);
}

TEST_F(Numeric, LineIsDrawn) {
  open();
  AXSPOS(500, 1500);
  AXSLEN(1001, 1001);
  NOGRAF();
  GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  INCMRK(3);
  Floats x = {1, 3}, y = {1, 5};
  float a = 0, b = 0, r = 0;
  LINFIT(x.data(), y.data(), 2, &a, &b, &r, "LINE");
  EXPECT_EQ(state()->curve.markerStep, 3);
  EXPECT_EQ(traced("move"), Lines{"600.00 1400.00"});
  EXPECT_EQ(traced("draw"), Lines{"800.00 1000.00"});
}

TEST_F(Numeric, Moments) {
  // Mean 5; |x - m| 3 1 1 1 0 0 2 4; squares 9 1 1 1 0 0 4 16 = 32.
  Floats x = {2, 4, 4, 4, 5, 5, 7, 9};
  EXPECT_FLOAT_EQ(MOMENT(x.data(), 8, "MEAN"), 5.0F);
  EXPECT_FLOAT_EQ(MOMENT(x.data(), 8, "AVER"), 1.5F);
  EXPECT_FLOAT_EQ(MOMENT(x.data(), 8, "VARI"), 32.0F / 7.0F);
  EXPECT_FLOAT_EQ(MOMENT(x.data(), 8, "STAN"), std::sqrt(32.0F / 7.0F));
  // Cubes -27 -1 -1 -1 0 0 8 64 = 42; fourth powers 81 1 1 1 0 0 16 256 = 356.
  double d = std::sqrt(32.0 / 7.0);
  EXPECT_FLOAT_EQ(MOMENT(x.data(), 8, "THIR"), static_cast<float>(42.0 / (d * d * d) / 8.0));
  EXPECT_FLOAT_EQ(MOMENT(x.data(), 8, "FOUR"), static_cast<float>(356.0 / (d * d * d * d) / 8.0));
}

TEST_F(Numeric, MomentsThatDoNotExist) {
  Floats x = {3, 3};
  EXPECT_EQ(outputOf([&] { EXPECT_EQ(MOMENT(x.data(), 1, "MEAN"), 0.0F); }),
            " <<<< Warning 106: n must be greater than 1 in moment!\n");
  EXPECT_EQ(outputOf([&] { EXPECT_EQ(MOMENT(x.data(), 2, "THIR"), 0.0F); }),
            " <<<< Warning 107: Variance = 0. Value cannot be calculated in moment!\n");
  EXPECT_EQ(outputOf([&] { EXPECT_EQ(MOMENT(x.data(), 2, "VARI"), 0.0F); }), "");
}

TEST_F(Numeric, Sorting) {
  Floats x = {3, -1, 2, 5, 0};
  SORTR1(x.data(), 5, "a");
  EXPECT_EQ(x, (Floats{-1, 0, 2, 3, 5}));
  SORTR1(x.data(), 5, "Descending");
  EXPECT_EQ(x, (Floats{5, 3, 2, 0, -1}));
  EXPECT_EQ(outputOf([&] { SORTR1(x.data(), 5, "UP"); }), " <<<< Warning 2: Incorrect parameter in sortr1!   (UP)\n");
  EXPECT_EQ(outputOf([&] { SORTR1(x.data(), 0, "A"); }), " <<<< Warning 2: Incorrect parameter in sortr1!   (0)\n");
  EXPECT_EQ(x, (Floats{5, 3, 2, 0, -1}));
}

TEST_F(Numeric, SortingPairs) {
  Floats x = {3, 1, 2}, y = {30, 10, 20};
  SORTR2(x.data(), y.data(), 3, "A");
  EXPECT_EQ(x, (Floats{1, 2, 3}));
  EXPECT_EQ(y, (Floats{10, 20, 30}));
  EXPECT_EQ(outputOf([&] { SORTR2(x.data(), y.data(), 3, ""); }),
            " <<<< Warning 2: Incorrect parameter in sortr2!   ()\n");
}

// An insertion that swaps elements while the left one is at least the right one, gap by gap.
void swapSort(Floats& x, Floats& y) {
  for (std::size_t gap = x.size() / 2; gap > 0; gap /= 2) {
    for (std::size_t i = gap; i < x.size(); i++) {
      for (std::size_t k = i; k >= gap && x[k - gap] >= x[k]; k -= gap) {
        std::swap(x[k - gap], x[k]);
        std::swap(y[k - gap], y[k]);
      }
    }
  }
}

TEST_F(Numeric, TiesOfPairsComeOutAsSwappingLeavesThem) {
  unsigned seed = 1;
  for (std::size_t n : {2U, 3U, 7U, 10U, 64U, 101U}) {
    Floats x(n), y(n);
    for (std::size_t i = 0; i < n; i++) {
      seed = seed * 1103515245U + 12345U;
      x[i] = static_cast<float>(seed / 65536U % 5U);
      y[i] = static_cast<float>(i);
    }
    if (n == 64) x[20] = NAN;
    Floats sx = x, sy = y;
    swapSort(sx, sy);
    SORTR2(x.data(), y.data(), static_cast<int>(n), "A");
    EXPECT_EQ(y, sy) << n;
  }
}

TEST_F(Numeric, SortingEqualValuesIsFast) {
  Floats x(300000, 1.0F), y(300000);
  std::iota(y.begin(), y.end(), 0.0F);
  SORTR2(x.data(), y.data(), 300000, "D");
  EXPECT_EQ(x[299999], 1.0F);
}

TEST_F(Numeric, Angles) {
  Floats x = {180, 90};
  TRFCO1(x.data(), 2, "DEGREES", "RADIANS");
  EXPECT_NEAR(x[0], 3.1415926F, 1e-6F);
  TRFCO1(x.data(), 2, "RADI", "DEGR");
  EXPECT_NEAR(x[1], 90.0F, 1e-4F);
  EXPECT_EQ(outputOf([&] { TRFCO1(x.data(), 2, "DEGR", "DEGR"); }),
            " <<<< Warning 110: No conversion necessary in trfco1!\n");
  EXPECT_NEAR(x[1], 90.0F, 1e-4F);
}

TEST_F(Numeric, PlaneSystems) {
  Floats x = {3, 0, -1}, y = {4, 0, 0};
  TRFCO2(x.data(), y.data(), 3, "RECT", "POLA");
  EXPECT_FLOAT_EQ(x[0], 5.0F);
  EXPECT_NEAR(y[0], 53.130102F, 1e-4F);
  EXPECT_EQ(x[1], 0.0F);
  EXPECT_EQ(y[1], 0.0F);
  EXPECT_NEAR(y[2], 180.0F, 1e-4F);
  TRFCO2(x.data(), y.data(), 3, "POLA", "RECT");
  EXPECT_NEAR(x[0], 3.0F, 1e-5F);
  EXPECT_NEAR(y[0], 4.0F, 1e-5F);
}

TEST_F(Numeric, SpaceSystems) {
  Floats x = {0, 1, 0}, y = {2, 1, 0}, z = {0, std::sqrt(2.0F), 0};
  TRFCO3(x.data(), y.data(), z.data(), 3, "RECT", "SPHE");
  EXPECT_NEAR(x[0], 90.0F, 1e-4F);
  EXPECT_NEAR(y[0], 0.0F, 1e-4F);
  EXPECT_NEAR(z[0], 2.0F, 1e-5F);
  EXPECT_NEAR(x[1], 45.0F, 1e-4F);
  EXPECT_NEAR(y[1], 45.0F, 1e-4F);
  EXPECT_NEAR(z[1], 2.0F, 1e-5F);
  EXPECT_EQ(x[2], 0.0F);
  EXPECT_EQ(y[2], 0.0F);
  TRFCO3(x.data(), y.data(), z.data(), 3, "SPHE", "CYLI");
  EXPECT_NEAR(x[1], std::sqrt(2.0F), 1e-5F);
  EXPECT_NEAR(y[1], 45.0F, 1e-4F);
  EXPECT_NEAR(z[1], std::sqrt(2.0F), 1e-5F);
}

TEST_F(Numeric, Resampling) {
  // 2 by 3, y fast: rows 0 1 2 and 10 11 12.
  Floats z = {0, 1, 2, 10, 11, 12}, fine(15), same(6);
  TRFMAT(z.data(), 2, 3, fine.data(), 3, 5);
  EXPECT_EQ(fine, (Floats{0, 0.5F, 1, 1.5F, 2, 5, 5.5F, 6, 6.5F, 7, 10, 10.5F, 11, 11.5F, 12}));
  TRFMAT(z.data(), 2, 3, same.data(), 2, 3);
  EXPECT_EQ(same, z);
  EXPECT_EQ(outputOf([&] { TRFMAT(z.data(), 2, 3, fine.data(), 1, 5); }),
            " <<<< Warning 2: Incorrect parameter in trfmat!   (1)\n");
}

} // namespace
