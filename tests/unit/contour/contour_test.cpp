// Contour lines: which points a level leaves, on planes, cones and saddles whose lines are known.
#include <cmath>
#include <csignal>

#include "contour/contour_trace.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;
struct Point {
  float x, y;
};
using Line = std::vector<Point>;

class Contour : public PlotTest {
protected:
  // 100 units to 1 on both axes; (0, 0) at (500, 1500).
  void openSystem() {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 1001);
    NOGRAF();
    GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  }

  // A function on the grid 0..n-1, 0..m-1.
  std::vector<float> xs, ys, zs;
  int n = 0, m = 0;
  template <class Function> void grid(int nx, int ny, Function f) {
    n = nx;
    m = ny;
    xs.clear();
    ys.clear();
    zs.clear();
    for (int i = 0; i < n; i++) xs.push_back(static_cast<float>(i));
    for (int j = 0; j < m; j++) ys.push_back(static_cast<float>(j));
    for (float x : xs)
      for (float y : ys) zs.push_back(static_cast<float>(f(x, y)));
  }

  std::vector<Line> listed(float level, int points = 1000, int lines = 20) {
    std::vector<float> px(1000), py(1000);
    std::vector<int> counts(20);
    int found = -1;
    CONPTS(xs.data(), n, ys.data(), m, zs.data(), level, px.data(), py.data(), points, counts.data(), lines, &found);
    std::vector<Line> result;
    std::size_t at = 0;
    for (int k = 0; k < found; k++) {
      Line line;
      for (int i = 0; i < counts[static_cast<std::size_t>(k)]; i++, at++) line.push_back({px[at], py[at]});
      result.push_back(line);
    }
    return result;
  }
  void contour(float level) { CONTUR(xs.data(), n, ys.data(), m, zs.data(), level); }
};

void expectPoints(const Line& got, const Line& wanted) {
  ASSERT_EQ(got.size(), wanted.size());
  for (std::size_t i = 0; i < got.size(); i++) {
    EXPECT_EQ(got[i].x, wanted[i].x) << i;
    EXPECT_EQ(got[i].y, wanted[i].y) << i;
  }
}

TEST_F(Contour, LineOfAPlane) {
  grid(4, 3, [](float x, float) { return x; });
  const auto lines = listed(1.25F);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].front().y, 0.0F); // the bottom row is looked at first
  EXPECT_EQ(lines[0].back().y, 2.0F);
  for (const Point& p : lines[0]) EXPECT_EQ(p.x, 1.25F);
}

TEST_F(Contour, SlopingPlaneFromEdgeToEdgeOnce) {
  grid(5, 5, [](float x, float y) { return x + 2 * y; });
  const auto lines = listed(5.5F);
  ASSERT_EQ(lines.size(), 1U);
  for (const Point& p : lines[0]) EXPECT_NEAR(p.x + 2 * p.y, 5.5F, 1e-5F);
  const auto onBoundary = [](Point p) { return p.x == 0 || p.x == 4 || p.y == 0 || p.y == 4; };
  EXPECT_TRUE(onBoundary(lines[0].front()));
  EXPECT_TRUE(onBoundary(lines[0].back()));
}

TEST_F(Contour, PointsOfACell) {
  // The centre, 0.5, is low for the level 0.75: the line cuts the two triangles at the high side.
  grid(2, 2, [](float x, float) { return x; });
  const auto lines = listed(0.75F);
  ASSERT_EQ(lines.size(), 1U);
  // High to centre at t = 1/2 of the way from the corners (1, 0) and (1, 1) to (0.5, 0.5).
  expectPoints(lines[0], {{0.75F, 0}, {0.75F, 0.25F}, {0.75F, 0.75F}, {0.75F, 1}});
  // For 0.25 the centre is high.
  expectPoints(listed(0.25F)[0], {{0.25F, 0}, {0.25F, 0.25F}, {0.25F, 0.75F}, {0.25F, 1}});
}

TEST_F(Contour, AValueAtTheLevelIsLow) {
  grid(4, 4, [](float x, float y) { return x == 1 && y == 1 ? 0 : 1; });
  EXPECT_TRUE(listed(1).empty()); // nothing is above the greatest value
  const auto lines = listed(0);   // round the least value, which is low
  ASSERT_EQ(lines.size(), 1U);
  for (const Point& p : lines[0]) {
    EXPECT_EQ(p.x, 1.0F);
    EXPECT_EQ(p.y, 1.0F);
  }
}

TEST_F(Contour, SaddleIsSettledByItsMean) {
  // Corners 1, 0, 1, 0 and their mean 0.5, which is low: the high corners are cut off from each other.
  grid(2, 2, [](float x, float y) { return x == y ? 1 : 0; });
  const auto apart = listed(0.5F);
  ASSERT_EQ(apart.size(), 2U);
  expectPoints(apart[0], {{1, 0.5F}, {0.5F, 0.5F}, {0.5F, 1}});
  expectPoints(apart[1], {{0, 0.5F}, {0.5F, 0.5F}, {0.5F, 0}});
  // A little below, the mean is high: the low corners are cut off.
  const auto joined = listed(0.25F);
  ASSERT_EQ(joined.size(), 2U);
  expectPoints(joined[0], {{1, 0.25F}, {0.75F, 0.25F}, {0.75F, 0}});
  expectPoints(joined[1], {{0, 0.75F}, {0.25F, 0.75F}, {0.25F, 1}});
}

TEST_F(Contour, ClosedLineOnce) {
  grid(11, 11, [](float x, float y) { return -std::hypot(x - 5, y - 5); });
  const auto lines = listed(-3.3F);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].front().x, lines[0].back().x);
  EXPECT_EQ(lines[0].front().y, lines[0].back().y);
  float turned = 0;
  for (std::size_t i = 0; i < lines[0].size(); i++) {
    const Point& p = lines[0][i];
    EXPECT_NEAR(std::hypot(p.x - 5, p.y - 5), 3.3F, 0.1F); // the cone is bent within a cell
    if (i == 0) continue;
    const Point& q = lines[0][i - 1];
    turned += std::atan2((q.x - 5) * (p.y - 5) - (q.y - 5) * (p.x - 5), (q.x - 5) * (p.x - 5) + (q.y - 5) * (p.y - 5));
  }
  EXPECT_NEAR(std::fabs(turned), 2 * 3.14159265F, 1e-4F);
}

TEST_F(Contour, TwoHillsAndTheLineBetweenThem) {
  grid(21, 11, [](float x, float y) { return std::fmax(-std::hypot(x - 5, y - 5), -std::hypot(x - 15, y - 5)); });
  EXPECT_EQ(listed(-2.5F).size(), 2U);
  EXPECT_TRUE(listed(3).empty());
}

TEST_F(Contour, LowGroundInHighLand) {
  grid(11, 11, [](float x, float y) { return std::hypot(x - 5, y - 5); });
  const auto lines = listed(2.5F);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].front().x, lines[0].back().x);
}

TEST_F(Contour, GridsOfOneRow) {
  grid(1, 3, [](float, float y) { return y == 1 ? 1 : 0; });
  EXPECT_EQ(listed(0.5F).size(), 2U); // both edges of the outline, each left at once
  grid(3, 1, [](float x, float) { return x == 1 ? 1 : 0; });
  EXPECT_EQ(listed(0.5F).size(), 2U);
  grid(1, 1, [](float, float) { return 1; });
  EXPECT_TRUE(listed(0.5F).empty());
  openSystem();
  contour(0.5F);
  EXPECT_TRUE(traced("draw").empty());
}

TEST_F(Contour, ListsAreLimited) {
  grid(2, 2, [](float x, float y) { return x == y ? 1 : 0; }); // two lines of three points
  const std::string points = " <<<< Warning 116: Overflow - Too many contour points in conpts!\n";
  const std::string lines = " <<<< Warning 117: Overflow - Too many contour lines in conpts!\n";
  std::vector<Line> found;
  EXPECT_EQ(outputOf([&] { found = listed(0.5F, 6, 2); }), "");
  EXPECT_EQ(outputOf([&] { found = listed(0.5F, 5, 2); }), points);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[1].size(), 2U);
  EXPECT_EQ(outputOf([&] { found = listed(0.5F, 3, 2); }), points); // once
  EXPECT_EQ(found[1].size(), 0U);
  EXPECT_EQ(outputOf([&] { found = listed(0.5F, 6, 1); }), lines);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].size(), 6U); // further points count for the last line
  EXPECT_EQ(outputOf([&] { found = listed(0.5F, 6, 0); }), lines + lines);
  EXPECT_TRUE(found.empty());
}

TEST_F(Contour, DrawnInPlotCoordinates) {
  openSystem();
  grid(3, 3, [](float x, float) { return x; });
  contour(0.5F);
  EXPECT_EQ(traced("move"), Lines{"550.00 1500.00"});
  const Lines draws = traced("draw");
  ASSERT_FALSE(draws.empty());
  EXPECT_EQ(draws.back(), "550.00 1300.00");
  for (const std::string& d : draws) EXPECT_EQ(d.substr(0, 7), "550.00 ");
}

TEST_F(Contour, CurvilinearGrid) {
  // The unit grid turned by 90 degrees about (5, 5): x = 10 - j, y = i.
  openSystem();
  float x[9], y[9], z[9];
  for (int i = 0; i < 3; i++) {
    for (int j = 0; j < 3; j++) {
      x[i * 3 + j] = static_cast<float>(10 - j);
      y[i * 3 + j] = static_cast<float>(i);
      z[i * 3 + j] = static_cast<float>(i);
    }
  }
  CONTUR2(x, y, z, 3, 3, 0.5F);
  EXPECT_EQ(traced("move"), Lines{"1500.00 1450.00"});
  EXPECT_EQ(traced("draw").back(), "1300.00 1450.00");
}

TEST_F(Contour, MessagesOfCurvilinearGridsTellOfContur) {
  open();
  const float v[1] = {1};
  EXPECT_EQ(outputOf([&] { CONTUR2(v, v, v, 1, 1, 1); }), " <<<< Warning 3: Incorrect level in contur!   (1)\n");
  AXSSCL("LOG", "X");
  NOGRAF();
  GRAF(0, 1, 0, 1, 0, 1, 0, 1);
  const float x[4] = {1, 2, 3, -4}, y[4] = {1, 2, 1, 2};
  EXPECT_EQ(outputOf([&] { CONTUR2(x, y, y, 2, 2, 1); }),
            " <<<< Warning 27: Non positive values for log scaling in contur!\n");
}

TEST_F(Contour, MatrixCoversTheAxisSystem) {
  openSystem();
  const float z[6] = {0, 0, 0, 1, 1, 1}; // 2 by 3: 0 at x = 0, 1 at x = 10
  CONMAT(z, 2, 3, 0.25F);
  EXPECT_EQ(traced("move"), Lines{"750.00 1500.00"});
  EXPECT_EQ(traced("draw").back(), "750.00 500.00");
}

TEST_F(Contour, MatrixCoversTheLimitsOfSursze) {
  openSystem();
  const float z[4] = {0, 0, 1, 1};
  EXPECT_EQ(outputOf([] { SURSZE(1, 1, 0, 2); }), " <<<< Warning 10: Begin and end of scaling are equal in sursze!\n");
  SURSZE(2, 6, 4, 8);
  CONMAT(z, 2, 2, 0.5F);
  EXPECT_EQ(traced("move"), Lines{"900.00 1100.00"}); // x = 4, y = 4
  EXPECT_EQ(traced("draw").back(), "900.00 700.00");
}

TEST_F(Contour, MatrixOnLogarithmicAxesIsLinearBetweenTheRaisedLimits) {
  open();
  AXSPOS(500, 1500);
  AXSLEN(1001, 1001);
  AXSSCL("LOG", "X");
  NOGRAF();
  GRAF(0, 2, 0, 1, 0, 10, 0, 1);
  const float z[4] = {0, 0, 1, 1};
  CONMAT(z, 2, 2, 9.0F / 99.0F); // x = 1 + 9 = 10, in the middle of two decades
  EXPECT_EQ(traced("move"), Lines{"1000.00 1500.00"});
}

TEST_F(Contour, MatrixNeedsTwoByTwo) {
  openSystem();
  const float z[4] = {0, 0, 1, 1};
  EXPECT_EQ(outputOf([&] { CONMAT(z, 1, 2, 0.5F); }), " <<<< Warning 2: Incorrect parameter in conmat!   (1)\n");
  EXPECT_EQ(outputOf([&] { CONMAT(z, 2, 1, 0.5F); }), " <<<< Warning 2: Incorrect parameter in conmat!   (1)\n");
  EXPECT_TRUE(traced("draw").empty());
}

TEST_F(Contour, LogarithmicAxesNeedPositiveCoordinates) {
  open();
  AXSPOS(500, 1500);
  AXSLEN(1001, 1001);
  AXSSCL("LOG", "XY");
  NOGRAF();
  GRAF(0, 1, 0, 1, 0, 1, 0, 1);
  float x[2] = {0, 4}, y[2] = {1, 2}, z[4] = {-1, -1, 1, 1};
  const std::string message = " <<<< Warning 27: Non positive values for log scaling in contur!\n";
  EXPECT_EQ(outputOf([&] { CONTUR(x, 2, y, 2, z, 0); }), message);
  EXPECT_EQ(outputOf([&] { CONTUR(y, 2, x, 2, z, 0); }), message);
  EXPECT_EQ(outputOf([&] { CONCRV(x, y, 2, 0); }),
            " <<<< Warning 27: Non positive values for log scaling in concrv!\n");
  x[0] = 1;
  EXPECT_EQ(outputOf([&] { CONTUR(x, 2, y, 2, z, 0); }), ""); // values need no logarithm
  NEGLOG(1.0F);
  x[0] = -2;
  EXPECT_EQ(outputOf([&] { CONTUR(x, 2, y, 2, z, 0); }), "");
  const Lines moves = traced("move");
  ASSERT_EQ(moves.size(), 2U);
  EXPECT_EQ(moves[0].substr(0, 6), "897.94");  // 500 + 1000 log10(2.5)
  EXPECT_EQ(moves[1].substr(0, 7), "500.00 "); // x = 1
}

TEST_F(Contour, PolarSystemTakesRadiusAndAngle) {
  open();
  AXSORG(1500, 1000);
  AXSLEN(1001, 1001);
  NOGRAF();
  POLAR(5, 0, 1, 0, 30);
  std::vector<float> radius = {0, 5}, angle, z;
  for (int k = 0; k <= 36; k++) angle.push_back(static_cast<float>(10 * k));
  for (float r : radius)
    for (std::size_t k = 0; k < angle.size(); k++) z.push_back(r);
  CONTUR(radius.data(), 2, angle.data(), 37, z.data(), 3);
  const Lines draws = traced("draw");
  ASSERT_GT(draws.size(), 36U);
  for (const std::string& d : draws) {
    const float px = std::stof(d), py = std::stof(d.substr(d.find(' ')));
    EXPECT_NEAR(std::hypot(px - 1500, py - 1000), 300, 0.02);
  }
}

TEST_F(Contour, CutAtTheAxisSystem) {
  openSystem();
  float x[2] = {5, 25}, y[2] = {-5, 15}, z[4] = {0, 1, 0, 1};
  CONTUR(x, 2, y, 2, z, 0.5F); // y = 5 from x = 25 to 5
  LINE(0, 10, 2900, 10);
  EXPECT_EQ(traced("draw"), (Lines{"1000.00 1000.00", "2900.00 10.00"}));
}

TEST_F(Contour, ThickLinesAreDrawnSideBySide) {
  openSystem();
  THKCRV(3);
  float x[2] = {0, 2}, y[2] = {3, 3};
  CONCRV(x, y, 2, 0);
  EXPECT_EQ(traced("move"), (Lines{"500.00 1200.00", "500.00 1201.00", "500.00 1199.00"}));
}

TEST_F(Contour, EachCallIsACurveOfTheLegend) {
  openSystem();
  INCMRK(1);
  MARKER(5);
  float x[2] = {0, 2}, y[2] = {3, 3};
  SETCLR(30);
  CONCRV(x, y, 2, 0);
  SETCLR(60);
  DASH();
  CONCRV(x, y, 2, 0);
  SOLID();
  SETCLR(90);
  CURVE(x, y, 2);
  const LegendState& legend = state()->legendState;
  EXPECT_EQ(legend.drawnCount, 3);
  EXPECT_EQ(legend.drawn[0].color, 30);
  EXPECT_TRUE(legend.drawn[0].lineDrawn);
  EXPECT_EQ(legend.drawn[0].symbol, -1); // contour lines have no symbols
  EXPECT_EQ(legend.drawn[1].color, 60);
  EXPECT_EQ(legend.drawn[1].line.linePatternCount, 2);
  EXPECT_EQ(legend.drawn[2].color, 90);
  EXPECT_EQ(legend.drawn[2].symbol, 5);
  EXPECT_EQ(state()->curve.markerStep, 1);
  EXPECT_EQ(state()->color.currentColor, 90);
}

TEST_F(Contour, PointsThatAreNoNumbersBreakTheLine) {
  openSystem();
  float x[5] = {0, 1, NAN, 3, 4}, y[5] = {1, 1, 1, 1, 1};
  CONCRV(x, y, 5, 0);
  LABELS("FLOAT", "CONTUR");
  CONCRV(x, y, 5, 0);
  EXPECT_EQ(traced("move"), (Lines{"500.00 1400.00", "800.00 1400.00", "500.00 1400.00", "800.00 1400.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"600.00 1400.00", "900.00 1400.00", "600.00 1400.00", "900.00 1400.00"}));
}

TEST_F(Contour, GridsWithValuesThatAreNoNumbersEnd) {
  grid(6, 6, [](float x, float y) { return x == 2 && y == 3 ? NAN : x - y; });
  EXPECT_FALSE(listed(0).empty());
  grid(6, 6, [](float x, float y) { return x == 2 && y == 3 ? INFINITY : x - y; });
  EXPECT_FALSE(listed(0).empty());
}

TEST_F(Contour, CountsOfPoints) {
  openSystem();
  const float v[2] = {1, 2};
  EXPECT_EQ(outputOf([&] { CONCRV(v, v, 0, 0); }), " <<<< Warning 2: Incorrect parameter in concrv!   (0)\n");
  EXPECT_EQ(outputOf([&] { CONTUR(v, 0, v, 2, v, 0); }), " <<<< Warning 2: Incorrect parameter in contur!   (0)\n");
  EXPECT_EQ(outputOf([&] { CONTUR(v, 2, v, -1, v, 0); }), " <<<< Warning 2: Incorrect parameter in contur!   (-1)\n");
}

TEST_F(Contour, ListsNeedNoPlot) {
  grid(3, 3, [](float x, float) { return x; });
  EXPECT_EQ(outputOf([&] { EXPECT_EQ(listed(0.5F).size(), 1U); }), "");
  EXPECT_EQ(GETLEV(), 0);
}

TEST(VisitedMarks, OneBitAPoint) {
  VisitedMarks marks;
  ASSERT_TRUE(marks.create(33, 31));
  EXPECT_FALSE(marks.test(32, 30));
  EXPECT_FALSE(marks.testAndSet(32, 30));
  EXPECT_TRUE(marks.testAndSet(32, 30));
  EXPECT_TRUE(marks.test(32, 30));
  EXPECT_FALSE(marks.test(31, 30));
  EXPECT_FALSE(marks.test(0, 0));
}

} // namespace
