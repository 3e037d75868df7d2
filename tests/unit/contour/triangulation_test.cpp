// Triangulations held against the definition, contour lines on them, and grids made of points.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>

#include "plot_fixture.h"

using namespace quilla;

namespace {

using Triangle = std::array<int, 3>;

class Triangulation : public PlotTest {
protected:
  std::vector<float> x, y, z;
  std::vector<int> i1, i2, i3;
  int count = 0;

  int points() const { return static_cast<int>(x.size()); }

  std::string triangulateWith(int most) {
    std::vector<float> px = x, py = y;
    px.resize(x.size() + 3);
    py.resize(y.size() + 3);
    const auto room = static_cast<std::size_t>(std::max(most, 2 * points() + 1));
    i1.assign(room, 0);
    i2.assign(room, 0);
    i3.assign(room, 0);
    return outputOf([&] { count = TRIANG(px.data(), py.data(), points(), i1.data(), i2.data(), i3.data(), most); });
  }
  std::string triangulatePoints() { return triangulateWith(2 * points() + 1); }

  std::vector<Triangle> triangles() const {
    std::vector<Triangle> list;
    for (std::size_t k = 0; k < static_cast<std::size_t>(count); k++) {
      Triangle t = {i1[k], i2[k], i3[k]};
      std::sort(t.begin(), t.end());
      list.push_back(t);
    }
    std::sort(list.begin(), list.end());
    return list;
  }

  double cross(int a, int b, int c) const {
    const auto ax = static_cast<double>(x[static_cast<std::size_t>(a - 1)]);
    const auto ay = static_cast<double>(y[static_cast<std::size_t>(a - 1)]);
    return (x[static_cast<std::size_t>(b - 1)] - ax) * (y[static_cast<std::size_t>(c - 1)] - ay) -
           (y[static_cast<std::size_t>(b - 1)] - ay) * (x[static_cast<std::size_t>(c - 1)] - ax);
  }

  // Over all triples: a triangle is one of Delaunay's if the determinant of lifted points (B. Delaunay, 1934) tells
  // that no fourth point lies in its circle.
  std::vector<Triangle> emptyCircles() const {
    std::vector<Triangle> list;
    const int n = points();
    for (int a = 1; a <= n; a++)
      for (int b = a + 1; b <= n; b++)
        for (int c = b + 1; c <= n; c++)
          if (isEmpty(a, b, c)) list.push_back({a, b, c});
    return list;
  }
  bool isEmpty(int a, int b, int c) const {
    const double turn = cross(a, b, c);
    if (turn == 0) return false;
    for (int p = 1; p <= points(); p++) {
      if (p == a || p == b || p == c) continue;
      double m[3][3];
      const int corners[] = {a, b, c};
      for (int k = 0; k < 3; k++) {
        const auto at = static_cast<std::size_t>(corners[k] - 1), to = static_cast<std::size_t>(p - 1);
        m[k][0] = static_cast<double>(x[at]) - static_cast<double>(x[to]);
        m[k][1] = static_cast<double>(y[at]) - static_cast<double>(y[to]);
        m[k][2] = m[k][0] * m[k][0] + m[k][1] * m[k][1];
      }
      const double d = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
                       m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                       m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
      if (d * (turn > 0 ? 1 : -1) > 0) return false;
    }
    return true;
  }

  void openSystem() {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 1001);
    NOGRAF();
    GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  }
};

TEST_F(Triangulation, ThreePointsMakeOneTriangle) {
  x = {0, 4, 1};
  y = {0, 1, 3};
  EXPECT_EQ(triangulatePoints(), "");
  EXPECT_EQ(triangles(), (std::vector<Triangle>{{1, 2, 3}}));
}

TEST_F(Triangulation, PointsOnALineAreTold) {
  for (auto [dx, dy] : {std::pair{1.0F, 0.0F}, {0.0F, 1.0F}, {1.0F, 2.0F}}) {
    x = {0, dx, 2 * dx, 3 * dx};
    y = {0, dy, 2 * dy, 3 * dy};
    EXPECT_EQ(triangulatePoints(), " <<<< Warning 102: Points are collinear in triang!\n") << dx << ' ' << dy;
    EXPECT_EQ(count, 0);
  }
}

TEST_F(Triangulation, ARepeatedPointIsInNoTriangle) {
  x = {0, 4, 1, 4, 4};
  y = {0, 1, 3, 1, 5};
  EXPECT_EQ(triangulatePoints(), "");
  const auto with = triangles();
  EXPECT_EQ(with, (std::vector<Triangle>{{1, 2, 3}, {2, 3, 5}}));
}

TEST_F(Triangulation, RoomForTriangles) {
  x = {0, 4, 1};
  y = {0, 1, 3};
  EXPECT_EQ(triangulateWith(6), " <<<< Warning 2: Incorrect parameter in triang!\n");
  EXPECT_EQ(count, 0);
  EXPECT_EQ(triangulateWith(7), "");
  EXPECT_EQ(count, 1);
}

TEST_F(Triangulation, RandomPointsAgainstAllTriples) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> value(0, 10);
  for (int round = 0; round < 20; round++) {
    x.clear();
    y.clear();
    for (int k = 0; k < 30; k++) {
      x.push_back(value(random));
      y.push_back(value(random));
    }
    // Corners far out keep the hull from slivers, which the triangle around all points may swallow.
    x.insert(x.end(), {-3, 13, 13.5F, -3.5F});
    y.insert(y.end(), {-3, -3.5F, 13, 13.5F});
    EXPECT_EQ(triangulatePoints(), "");
    EXPECT_EQ(triangles(), emptyCircles()) << round;
  }
}

// Cells of a grid have all four corners on one circle: either diagonal is good. Areas must add up to the square.
TEST_F(Triangulation, AGridIsCovered) {
  for (int i = 0; i < 40; i++) {
    for (int j = 0; j < 40; j++) {
      x.push_back(static_cast<float>(i));
      y.push_back(static_cast<float>(j));
    }
  }
  EXPECT_EQ(triangulatePoints(), "");
  EXPECT_EQ(count, 2 * 39 * 39);
  double area = 0;
  for (const Triangle& t : triangles()) area += std::fabs(cross(t[0], t[1], t[2])) / 2;
  EXPECT_EQ(area, 39.0 * 39.0);
}

TEST_F(Triangulation, NoNumbersAreLeftOut) {
  const float nan = std::numeric_limits<float>::quiet_NaN(), endless = std::numeric_limits<float>::infinity();
  x = {0, nan, 4, endless, 1};
  y = {0, 1, 1, 2, 3};
  EXPECT_EQ(triangulatePoints(), "");
  EXPECT_EQ(triangles(), (std::vector<Triangle>{{1, 3, 5}}));
  x = {nan};
  y = {0};
  EXPECT_EQ(triangulatePoints(), " <<<< Warning 102: Points are collinear in triang!\n");
}

// ---- Contour lines ---------------------------------------------------------------------------------------------

struct Listed {
  std::vector<int> counts;
  std::vector<float> x, y;
};

class TriangleContour : public Triangulation {
protected:
  Listed listed(float level, int maxPoints = 400, int maxLines = 20) {
    Listed l{std::vector<int>(20), std::vector<float>(400), std::vector<float>(400)};
    int lines = -1;
    TRIPTS(x.data(), y.data(), z.data(), points(), i1.data(), i2.data(), i3.data(), count, level, l.x.data(),
           l.y.data(), maxPoints, l.counts.data(), maxLines, &lines);
    l.counts.resize(static_cast<std::size_t>(lines));
    return l;
  }
  // A square of four triangles round its middle, point 5.
  void square(float middle, std::array<float, 4> corners) {
    x = {0, 4, 4, 0, 2};
    y = {0, 0, 4, 4, 2};
    z.assign(corners.begin(), corners.end());
    z.push_back(middle);
    i1 = {1, 2, 3, 4};
    i2 = {2, 3, 4, 1};
    i3 = {5, 5, 5, 5};
    count = 4;
  }
};

TEST_F(TriangleContour, AClosedLineRoundAPeak) {
  square(1, {0, 0, 0, 0});
  const Listed l = listed(0.5F);
  ASSERT_EQ(l.counts, std::vector<int>{5});
  EXPECT_EQ(l.x[0], l.x[4]);
  EXPECT_EQ(l.y[0], l.y[4]);
  std::vector<std::pair<float, float>> found;
  for (std::size_t i = 0; i < 4; i++) found.push_back({l.x[i], l.y[i]});
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, (std::vector<std::pair<float, float>>{{1, 1}, {1, 3}, {3, 1}, {3, 3}}));
}

TEST_F(TriangleContour, AnOpenLineFromBorderToBorder) {
  square(2, {0, 4, 4, 0}); // z = x
  const Listed l = listed(3);
  ASSERT_EQ(l.counts, std::vector<int>{4});
  for (std::size_t i = 0; i < 4; i++) EXPECT_EQ(l.x[i], 3.0F);
  std::vector<float> ends = {l.y[0], l.y[3]};
  std::sort(ends.begin(), ends.end());
  EXPECT_EQ(ends, (std::vector<float>{0, 4}));
}

TEST_F(TriangleContour, AValueAtTheLevelIsLow) {
  square(1, {0, 0, 0, 0});
  EXPECT_TRUE(listed(1).counts.empty());
  EXPECT_EQ(listed(0).counts, std::vector<int>{5}); // along the border
}

TEST_F(TriangleContour, TwoLinesOfASaddle) {
  square(0, {1, -1, 1, -1});
  const Listed l = listed(0.5F);
  EXPECT_EQ(l.counts, (std::vector<int>{3, 3}));
}

TEST_F(TriangleContour, TooLittleRoom) {
  square(0, {1, -1, 1, -1});
  std::string output = outputOf([&] { EXPECT_EQ(listed(0.5F, 4).counts, (std::vector<int>{3, 1})); });
  EXPECT_EQ(output, " <<<< Warning 116: Overflow - Too many contour points in tripts!\n");
  output = outputOf([&] { EXPECT_EQ(listed(0.5F, 400, 1).counts, std::vector<int>{6}); });
  EXPECT_EQ(output, " <<<< Warning 117: Overflow - Too many contour lines in tripts!\n");
}

TEST_F(TriangleContour, NumbersOfNoPointAreTold) {
  square(1, {0, 0, 0, 0});
  for (int wrong : {0, 6, -2147483647}) {
    i2[2] = wrong;
    EXPECT_NE(outputOf([&] { EXPECT_TRUE(listed(0.5F).counts.empty()); }).find("Warning 2"), std::string::npos);
  }
}

// A fine triangulation of a cone: the lines are circles.
TEST_F(TriangleContour, CirclesOfACone) {
  std::mt19937 random(3);
  std::uniform_real_distribution<float> value(0, 10);
  for (int k = 0; k < 4000; k++) {
    x.push_back(value(random));
    y.push_back(value(random));
    z.push_back(std::hypot(x.back() - 5, y.back() - 5));
  }
  ASSERT_EQ(triangulatePoints(), "");
  const Listed l = listed(3);
  ASSERT_EQ(l.counts.size(), 1U);
  const auto n = static_cast<std::size_t>(l.counts[0]);
  EXPECT_EQ(l.x[0], l.x[n - 1]);
  for (std::size_t i = 0; i < n; i++) EXPECT_NEAR(std::hypot(l.x[i] - 5, l.y[i] - 5), 3, 0.02);
}

TEST_F(TriangleContour, DrawnAsMoveAndDraws) {
  openSystem();
  square(2, {0, 4, 4, 0});
  CONTRI(x.data(), y.data(), z.data(), 5, i1.data(), i2.data(), i3.data(), 4, 3);
  EXPECT_EQ(traced("move").size(), 1U);
  const auto draws = traced("draw");
  EXPECT_FALSE(draws.empty());
  for (const std::string& to : draws) EXPECT_EQ(to.rfind("800.00 ", 0), 0U) << to; // x = 3
}

// ---- Grids of points -------------------------------------------------------------------------------------------

class ScatteredGrid : public PlotTest {
protected:
  std::vector<float> values, weights;
  std::vector<int> counts;

  // On the grid 0..4 in both directions.
  void gather(std::vector<float> x, std::vector<float> y, std::vector<float> z) {
    values.assign(25, -1);
    weights.assign(25, -1);
    counts.assign(25, -1);
    GETMAT(x.data(), y.data(), z.data(), static_cast<int>(x.size()), values.data(), 5, 5, 99, counts.data(),
           weights.data());
  }
  void openSystem() {
    open();
    NOGRAF();
    GRAF(0, 4, 0, 1, 0, 4, 0, 1);
  }
  static std::size_t at(int i, int j) { return static_cast<std::size_t>(5 * i + j); }
};

TEST_F(ScatteredGrid, APointOnAGridPointGivesItsValue) {
  openSystem();
  gather({2.1F, 2, 1.9F}, {2, 2, 2}, {7, 5, 9});
  EXPECT_EQ(values[at(2, 2)], 5.0F);
  EXPECT_EQ(counts[at(2, 2)], -1);
}

TEST_F(ScatteredGrid, WeightsFallWithTheSquareOfTheDistance) {
  openSystem();
  gather({1, 4}, {1, 1}, {10, 40}); // (3, 1) is 2 from the first and 1 from the second
  EXPECT_FLOAT_EQ(weights[at(3, 1)], 1.25F);
  EXPECT_FLOAT_EQ(values[at(3, 1)], (10 * 0.25F + 40) / 1.25F);
  EXPECT_EQ(counts[at(3, 1)], 2);
}

TEST_F(ScatteredGrid, TheWindowReachesFromOneStepBelowToTwoAbove) {
  openSystem();
  gather({2}, {2}, {3}); // u = 3: grid points trunc(1) + 1 to trunc(5), from 1
  for (int i = 0; i < 5; i++) {
    for (int j = 0; j < 5; j++) {
      const bool inside = i >= 1 && j >= 1;
      EXPECT_EQ(values[at(i, j)], inside ? 3.0F : 99.0F) << i << ' ' << j;
      EXPECT_EQ(counts[at(i, j)], !inside ? 0 : i == 2 && j == 2 ? -1 : 1) << i << ' ' << j;
    }
  }
}

TEST_F(ScatteredGrid, ReachAndPowerCanBeSet) {
  openSystem();
  MDFMAT(1, 1, 1.0F);
  gather({1.5F}, {1}, {3});
  EXPECT_FLOAT_EQ(weights[at(1, 1)], 2.0F); // 1 / 0.5
  EXPECT_EQ(values[at(0, 1)], 99.0F);
  EXPECT_EQ(outputOf([] { MDFMAT(0, 1, 1.0F); }), " <<<< Warning 2: Incorrect parameter in mdfmat!   (0)\n");
  EXPECT_EQ(outputOf([] { MDFMAT(1, 1, 0.0F); }), " <<<< Warning 2: Incorrect parameter in mdfmat!\n");
  RESET("MDFMAT");
  gather({1}, {1}, {3});
  EXPECT_FLOAT_EQ(weights[at(3, 1)], 0.25F);
}

TEST_F(ScatteredGrid, PointsFarAwayAndNoNumbersDoNothing) {
  openSystem();
  const float nan = std::numeric_limits<float>::quiet_NaN();
  gather({1e30F, -1e30F, nan, 1, std::numeric_limits<float>::infinity()}, {1, 1, 1, nan, 1}, {1, 1, 1, 1, 1});
  for (float v : values) EXPECT_EQ(v, 99.0F);
}

TEST_F(ScatteredGrid, TheLimitsOfSurszeCount) {
  openSystem();
  SURSZE(10, 14, 20, 24);
  gather({12}, {21}, {6});
  EXPECT_EQ(counts[at(2, 1)], -1);
}

TEST_F(ScatteredGrid, SizesAreChecked) {
  openSystem();
  float v[4] = {};
  int c[4] = {};
  EXPECT_EQ(outputOf([&] { GETMAT(v, v, v, 1, v, 1, 2, 0, c, v); }),
            " <<<< Warning 2: Incorrect parameter in getmat!   (1)\n");
}

class FilledTriangle : public PlotTest {};

TEST_F(FilledTriangle, OnThePage) {
  open();
  const float x[] = {100, 300, 200}, y[] = {100, 100, 400};
  TRIFLL(x, y);
  EXPECT_EQ(traced("fill").size(), 1U);
}

} // namespace
