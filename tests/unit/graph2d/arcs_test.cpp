// Arcs, sectors, rounded rectangles and arrows, by the primitives that reach the device.
#include <cmath>
#include <sstream>

#include "plot_fixture.h"

namespace {

class Arcs : public PlotTest {
protected:
  // Numbers of a traced primitive.
  static std::vector<double> numbers(const std::string& line) {
    std::istringstream in(line);
    std::vector<double> values;
    for (double v = 0; in >> v;) values.push_back(v);
    return values;
  }
  // Moves and draws as points.
  std::vector<std::vector<double>> points() {
    std::vector<std::vector<double>> all;
    for (const char* word : {"move", "draw"})
      for (const std::string& line : traced(word)) all.push_back(numbers(line));
    return all;
  }
};

} // namespace

// All points lie on the ellipse of half axes 200 and 100 that is turned by 90 degrees.
TEST_F(Arcs, EllipseArcIsTurned) {
  open();
  ARCELL(1000, 800, 200, 100, 0.0F, 360.0F, 90.0F);
  const auto found = points();
  EXPECT_GT(found.size(), 100U);
  for (const auto& p : found)
    EXPECT_NEAR(std::pow((p[0] - 1000) / 100, 2) + std::pow((p[1] - 800) / 200, 2), 1.0, 1e-3);
}

TEST_F(Arcs, SectorIsFilledBetweenRadiuses) {
  open();
  SECTOR(1000, 800, 100, 200, 0.0F, 90.0F, 7);
  const auto fills = traced("fill");
  ASSERT_EQ(fills.size(), 1U);
  const auto v = numbers(fills[0]);
  ASSERT_EQ(v[0], 92); // 46 points on each side of 45 chords of two degrees
  EXPECT_EQ(v[1], 1200);
  EXPECT_EQ(v[2], 800);
  EXPECT_NEAR(v[91], 1000, 0.01); // end of the outer arc, above the middle
  EXPECT_NEAR(v[92], 600, 0.01);
  for (std::size_t i = 1; i + 1 < v.size(); i += 2) {
    const double r = std::hypot(v[i] - 1000, v[i + 1] - 800);
    EXPECT_NEAR(r, i <= 92 ? 200 : 100, 0.01);
  }
}

TEST_F(Arcs, SectorChecksItsParameters) {
  open();
  const auto message = [&](int nr1, int nr2, float a, float b, int color) {
    return outputOf([&] { SECTOR(1000, 800, nr1, nr2, a, b, color); });
  };
  EXPECT_EQ(message(200, 100, 0, 90, 1), " <<<< Warning 7: First radius greater than second radius in sector!\n");
  EXPECT_EQ(message(10, 100, 90, 90, 1), " <<<< Warning 8: Start angle greater/equal end angle in sector!\n");
  EXPECT_EQ(message(0, 0, 0, 90, 1), " <<<< Warning 51: Non positive parameter in sector!   (0)\n");
  EXPECT_EQ(message(0, 10, 0, 90, -2), " <<<< Warning 2: Incorrect parameter in sector!   (-2)\n");
  EXPECT_TRUE(traced("fill").empty());
}

TEST_F(Arcs, PieHasTwoRadiuses) {
  open();
  SHDPAT(0);
  PIE(1000, 800, 100, 0.0F, 90.0F);
  const auto found = points();
  int middle = 0;
  for (const auto& p : found) middle += p[0] == 1000 && p[1] == 800;
  EXPECT_EQ(middle, 2); // begin and end of the outline
}

TEST_F(Arcs, WholePieHasNone) {
  open();
  SHDPAT(0);
  PIE(1000, 800, 100, 10.0F, 370.0F);
  for (const auto& p : points()) EXPECT_NEAR(std::hypot(p[0] - 1000, p[1] - 800), 100, 0.01);
}

TEST_F(Arcs, AnglesMayBeAnything) {
  open();
  const float nan = std::nanf(""), infinite = INFINITY;
  for (const float a : {nan, infinite, -infinite, 1e30F, -1e30F, 3.4e38F}) {
    PIE(1000, 800, 100, a, 20.0F);
    PIE(1000, 800, 100, 20.0F, a);
    ARCELL(1000, 800, 2147483647, 100, a, 0.0F, a);
  }
  QUIFIN();
}

TEST_F(Arcs, RoundedCornersStayInside) {
  open();
  SHDPAT(0);
  RNDREC(100, 200, 301, 101, 9);
  double left = 1e9, right = 0, top = 1e9, bottom = 0;
  for (const auto& p : points()) {
    left = std::min(left, p[0]);
    right = std::max(right, p[0]);
    top = std::min(top, p[1]);
    bottom = std::max(bottom, p[1]);
    if (p[0] > 150 && p[0] < 350) {
      EXPECT_TRUE(p[1] == 200 || p[1] == 300) << p[1];
    }
  }
  EXPECT_EQ(left, 100);
  EXPECT_EQ(right, 400);
  EXPECT_EQ(top, 200);
  EXPECT_EQ(bottom, 300);
}

// A filled head of 50 units, half as wide as 15, at the end of a line to the right.
TEST_F(Arcs, VectorHeads) {
  open();
  VECTOR(100, 100, 300, 100, 2351);
  EXPECT_EQ(traced("fill"), (std::vector<std::string>{"3 250.00 115.00 300.00 100.00 250.00 85.00"}));
}

TEST_F(Arcs, VectorCodesWithoutHead) {
  open();
  for (const int code : {0, -1, 2350, 2993, 3001, 2147483647}) VECTOR(100, 100, 300, 100, code);
  VECTOR(100, 100, 100, 100, 2351); // no direction
  EXPECT_TRUE(traced("fill").empty());
  EXPECT_EQ(traced("draw").size(), 7U);
}

TEST_F(Arcs, PointsAreJoinedInTheLineType) {
  open();
  STRTPT(10.5F, 20.25F);
  CONNPT(30.0F, 40.0F);
  EXPECT_EQ(traced("move"), (std::vector<std::string>{"10.50 20.25"}));
  EXPECT_EQ(traced("draw"), (std::vector<std::string>{"30.00 40.00"}));
}

// Routines in user coordinates draw what those in plot units draw: one unit of X is 100 and one of Y 50 plot units.
TEST_F(Arcs, UserCoordinates) {
  const auto drawn = [&](auto action) {
    std::filesystem::remove("trace.txt"); // plots of one run add to it
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 501);
    NOGRAF();
    GRAF(0, 10, 0, 1, 0, 10, 0, 1);
    action();
    QUIFIN();
    return linesOf("trace.txt");
  };
  EXPECT_EQ(drawn([] { RLARC(3, 4, 2, 4, 10, 200, 30); }), drawn([] { ARCELL(800, 1300, 200, 200, 10, 200, 30); }));
  EXPECT_EQ(drawn([] { RLPIE(3, 4, 2, 10, 70); }), drawn([] { PIE(800, 1300, 200, 10, 70); }));
  EXPECT_EQ(drawn([] { RLSEC(3, 4, 1, 2, 10, 70, 5); }), drawn([] { SECTOR(800, 1300, 100, 200, 10, 70, 5); }));
  EXPECT_EQ(drawn([] { RLVEC(1, 1, 5, 9, 2301); }), drawn([] { VECTOR(600, 1450, 1000, 1050, 2301); }));
  EXPECT_EQ(drawn([] { RLPOIN(3, 4, 21, 11, 5); }), drawn([] { POINT(800, 1300, 21, 11, 5); }));
  EXPECT_EQ(drawn([] { RLRND(1, 9, 4, 6, 5); }), drawn([] { RNDREC(600, 1050, 401, 301, 5); }));
  EXPECT_EQ(drawn([] { RLWIND(65, 3, 4, 100, 45); }), drawn([] { WINDBR(65, 800, 1300, 100, 45); }));
}

// 65 knots: a pennant, a barb and a half one, outside first, to the right of a staff that points upwards.
TEST_F(Arcs, WindBarb) {
  open();
  WINDBR(64, 1000, 1000, 100, 0);
  EXPECT_EQ(traced("move"), (std::vector<std::string>{"1000.00 1000.00", "1000.00 912.00", "1000.00 924.00"}));
  EXPECT_EQ(traced("draw"), (std::vector<std::string>{"1000.00 900.00", "1040.00 900.00", "1020.00 918.00"}));
  EXPECT_EQ(traced("fill"), std::vector<std::string>{"3 1000.00 900.00 1040.00 906.00 1000.00 912.00"});
}

TEST_F(Arcs, WindBarbOfLittleWind) {
  open();
  WINDBR(5, 1000, 1000, 100, 90); // from the right; the half barb stands away from the end
  EXPECT_EQ(traced("move"), (std::vector<std::string>{"1000.00 1000.00", "1088.00 1000.00"}));
  EXPECT_EQ(traced("draw"), (std::vector<std::string>{"1100.00 1000.00", "1094.00 1020.00"}));
}

TEST_F(Arcs, CalmIsACircle) {
  open();
  WINDBR(2, 1000, 1000, 100, 90);
  for (const auto& p : points()) EXPECT_NEAR(std::hypot(p[0] - 1000, p[1] - 1000), 12.0, 0.01);
}
