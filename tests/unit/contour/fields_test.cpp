// Streamlines whose course is known, arrows, and line integral convolution of simple textures.
#include <algorithm>
#include <cmath>
#include <random>
#include <sstream>

#include "plot_fixture.h"

using namespace quilla;

namespace {

struct Point {
  double x, y;
};
using Line = std::vector<Point>;

class Fields : public PlotTest {
protected:
  static constexpr int kN = 21, kM = 11;
  std::vector<float> x, y, vx, vy;

  // A field on the grid 0, 0.5, ... 10 by 0, 1, ... 10.
  template <class Function> void field(Function f) {
    x.clear();
    y.clear();
    vx.clear();
    vy.clear();
    for (int i = 0; i < kN; i++) x.push_back(0.5F * static_cast<float>(i));
    for (int j = 0; j < kM; j++) y.push_back(static_cast<float>(j));
    for (float px : x) {
      for (float py : y) {
        const Point v = f(static_cast<double>(px), static_cast<double>(py));
        vx.push_back(static_cast<float>(v.x));
        vy.push_back(static_cast<float>(v.y));
      }
    }
  }
  void rotation() {
    field([](double px, double py) { return Point{5 - py, px - 5}; });
  }
  void uniform() {
    field([](double, double) { return Point{3, 0}; });
  }

  // 100 units to 1 on both axes; (0, 0) at (500, 1500).
  void openSystem() {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 1001);
    NOGRAF();
    GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  }

  Line through(float x0, float y0, int room = 4000) {
    std::vector<float> px(4000), py(4000);
    int count = -1;
    STMPTS(vx.data(), vy.data(), kN, kM, x.data(), y.data(), x0, y0, px.data(), py.data(), room, &count);
    Line line;
    for (std::size_t i = 0; i < static_cast<std::size_t>(std::max(count, 0)); i++)
      line.push_back({static_cast<double>(px[i]), static_cast<double>(py[i])});
    return line;
  }
  void stream(std::vector<float> xs = {}, std::vector<float> ys = {}) {
    STREAM(vx.data(), vy.data(), kN, kM, x.data(), y.data(), xs.data(), ys.data(), static_cast<int>(xs.size()));
  }

  // What was drawn, in user coordinates; the plot is finished.
  std::vector<Line> drawn() {
    if (state()->level.plotLevel > 0) QUIFIN();
    std::vector<Line> lines;
    for (const std::string& text : linesOf("trace.txt")) {
      std::istringstream in(text);
      std::string word;
      Point p{};
      in >> word >> p.x >> p.y;
      p = {(p.x - 500) / 100, (1500 - p.y) / 100};
      if (word == "move") lines.push_back({p});
      if (word == "draw" && !lines.empty()) lines.back().push_back(p);
    }
    return joined(lines);
  }
  // A path has at most so many points; the next one goes on where it ends.
  static std::vector<Line> joined(const std::vector<Line>& pieces) {
    std::vector<Line> lines;
    for (const Line& piece : pieces) {
      if (!lines.empty() && lines.back().back().x == piece[0].x && lines.back().back().y == piece[0].y) {
        lines.back().insert(lines.back().end(), piece.begin() + 1, piece.end());
      } else {
        lines.push_back(piece);
      }
    }
    return lines;
  }
};

double radius(const Point& p) { return std::hypot(p.x - 5, p.y - 5); }

TEST_F(Fields, ARotationGivesCircles) {
  open();
  rotation();
  const Line line = through(7, 5);
  EXPECT_EQ(line.size(), 1999U); // 1000 in each direction, the seed in both
  for (const Point& p : line) EXPECT_NEAR(radius(p), 2, 1e-4);
  // Steps of 0.005 of the field's width.
  EXPECT_NEAR(std::hypot(line[1].x - line[0].x, line[1].y - line[0].y), 0.05, 1e-4);
}

TEST_F(Fields, AClosedLineEndsOnItsSeed) {
  open();
  rotation();
  STMMOD("ON", "CLOSE");
  const Line line = through(7, 5);
  EXPECT_EQ(line.front().x, line.back().x);
  EXPECT_EQ(line.front().y, line.back().y);
  double length = 0;
  for (std::size_t i = 1; i < line.size(); i++)
    length += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
  EXPECT_NEAR(length, 4 * 3.14159265, 0.2);
}

TEST_F(Fields, MethodsDifferByTheirErrors) {
  open();
  rotation();
  // Euler leaves the circle on its tangent: the squared radius grows by that of the step each time.
  STMMOD("EULER", "INTEGRATION");
  Line line = through(7, 5);
  EXPECT_NEAR(radius(line.back()), std::sqrt(4 + 999 * 0.05 * 0.05), 1e-3);
  STMMOD("RK2", "INTEGRATION");
  line = through(7, 5);
  const double second = std::fabs(radius(line.back()) - 2);
  EXPECT_LT(second, 0.01);
  STMMOD("RK4", "INTEGRATION");
  EXPECT_LT(std::fabs(radius(through(7, 5).back()) - 2), 1e-4);
}

TEST_F(Fields, AStraightLineRunsToBothBorders) {
  open();
  uniform();
  const Line line = through(5, 4);
  EXPECT_NEAR(static_cast<double>(line.size()), 201, 2);
  EXPECT_NEAR(line.front().x, 0, 0.051); // upstream first
  EXPECT_NEAR(line.back().x, 10, 0.051);
  for (const Point& p : line) EXPECT_NEAR(p.y, 4, 1e-5);
}

TEST_F(Fields, WhereTheFieldStandsStill) {
  open();
  rotation();
  EXPECT_EQ(through(5, 5).size(), 1U);
}

TEST_F(Fields, PointsAreCounted) {
  open();
  rotation();
  STMOPT(50, "POINTS");
  EXPECT_EQ(through(7, 5).size(), 99U);
  std::string output = outputOf([&] { EXPECT_EQ(through(7, 5, 99).size(), 99U); });
  EXPECT_EQ(output, "");
  output = outputOf([&] { EXPECT_EQ(through(7, 5, 98).size(), 98U); });
  EXPECT_EQ(output, " <<<< Warning 112: Too many points in stmpts!\n");
}

TEST_F(Fields, WrongFieldsAreTold) {
  open();
  rotation();
  const std::string outside = " <<<< Warning 180: Starting point is outside in stmpts!\n";
  EXPECT_EQ(outputOf([&] { EXPECT_TRUE(through(11, 5).empty()); }), outside);
  EXPECT_EQ(outputOf([&] { EXPECT_TRUE(through(NAN, 5).empty()); }), outside);
  x[3] = x[2];
  EXPECT_EQ(outputOf([&] { EXPECT_TRUE(through(7, 5).empty()); }),
            " <<<< Warning 124: Arrays must be monoton in stmpts!\n");
  int count = 0;
  EXPECT_EQ(
      outputOf([&] { STMPTS(vx.data(), vy.data(), 1, kM, x.data(), y.data(), 0, 0, x.data(), y.data(), 1, &count); }),
      " <<<< Warning 2: Incorrect parameter in stmpts!   (1)\n");
}

TEST_F(Fields, WildNumbersDoNoHarm) {
  const float endless = INFINITY, large = 3e38F;
  openSystem();
  rotation();
  for (std::size_t k = 0; k < vx.size(); k += 3) vx[k] = k % 2 == 0 ? NAN : large;
  stream();
  stream({7, endless, NAN}, {5, 5, 5});
  VECMAT(vx.data(), vy.data(), kN, kM, x.data(), y.data(), 2021);
  x.back() = large;
  stream();
  const std::string told = " <<<< Warning 124: Arrays must be monoton in stream!\n";
  x.back() = endless;
  EXPECT_EQ(outputOf([&] { stream(); }), told);
  x.back() = NAN;
  EXPECT_EQ(outputOf([&] { stream(); }), told);
  const float px[] = {0, NAN, endless}, py[] = {0, 1, large};
  const int corner[] = {1, 2, 3};
  STMTRI(px, py, px, py, 3, corner, corner + 1, corner + 2, 1, px, py, 0);
  FIELD(px, py, py, px, 3, 2021);
  VECFLD(px, py, py, px, 3, 2021);
}

TEST_F(Fields, FallingCoordinatesAreAsGood) {
  open();
  rotation();
  std::reverse(x.begin(), x.end());
  // The same values at mirrored places: vy changes its sign there.
  for (std::size_t i = 0; i < vy.size(); i++) vy[i] = -vy[i];
  for (const Point& p : through(7, 5)) EXPECT_NEAR(radius(p), 2, 1e-4);
}

TEST_F(Fields, LinesThroughSeeds) {
  openSystem();
  rotation();
  STMOPT(200, "POINTS");
  EXPECT_EQ(outputOf([&] {
              stream({6, 12, 8}, {5, 5, 5});
            }),
            " <<<< Warning 180: Starting point is outside in stream!\n");
  const auto lines = drawn();
  ASSERT_EQ(lines.size(), 2U);
  for (const Point& p : lines[0]) EXPECT_NEAR(radius(p), 1, 0.02);
  for (const Point& p : lines[1]) EXPECT_NEAR(radius(p), 3, 0.02);
}

TEST_F(Fields, ParallelLinesAtEvenDistances) {
  openSystem();
  uniform();
  STMVAL(0.1F, "DISTANCE");
  stream();
  std::vector<double> heights;
  for (const Line& line : drawn()) heights.push_back(line[0].y);
  std::sort(heights.begin(), heights.end());
  ASSERT_GE(heights.size(), 10U);
  EXPECT_LE(heights.size(), 11U);
  for (std::size_t i = 1; i < heights.size(); i++) EXPECT_NEAR(heights[i] - heights[i - 1], 1, 0.02);
}

TEST_F(Fields, LinesKeepApart) {
  openSystem();
  field([](double px, double py) { return Point{std::sin(py), std::cos(0.7 * px) + 0.3}; });
  STMVAL(0.06F, "DISTANCE");
  STMVAL(0.03F, "TEST");
  stream();
  const auto lines = drawn();
  EXPECT_GT(lines.size(), 10U);
  double least = 100;
  for (std::size_t a = 0; a < lines.size(); a++) {
    for (std::size_t b = a + 1; b < lines.size(); b++) {
      for (const Point& p : lines[a])
        for (const Point& q : lines[b]) least = std::min(least, std::hypot(p.x - q.x, p.y - q.y));
    }
  }
  EXPECT_GT(least, 0.27); // 0.03 of 10, but for the rounding of the page
  // No place is left empty: each point of the field has a line within little more than the distance.
  for (double px = 0.5; px < 10; px += 0.5) {
    for (double py = 0.5; py < 10; py += 0.5) {
      double nearest = 100;
      for (const Line& line : lines)
        for (const Point& q : line) nearest = std::min(nearest, std::hypot(px - q.x, py - q.y));
      EXPECT_LT(nearest, 0.75) << px << ' ' << py;
    }
  }
}

TEST_F(Fields, TheSeedOfStrtpt) {
  openSystem();
  uniform();
  STRTPT(5, 2.25F);
  STMOPT(1, "STREAMS");
  stream();
  const auto lines = drawn();
  ASSERT_FALSE(lines.empty());
  EXPECT_NEAR(lines.back()[0].y, 2.25, 0.01);
}

TEST_F(Fields, HeadsStandAlongLines) {
  openSystem();
  uniform();
  STMMOD("ON", "ARROWS");
  STMOPT(2341, "ARROWS"); // filled, 40 units long, its half width 3 tenths of that
  STMVAL(0.4F, "ARROWS");
  stream({5}, {5});
  const auto fills = traced("fill");
  ASSERT_EQ(fills.size(), 2U); // at 0.2 and 0.6 of the width
  std::istringstream head(fills[0]);
  int n = 0;
  double px[3], py[3];
  head >> n >> px[0] >> py[0] >> px[1] >> py[1] >> px[2] >> py[2];
  EXPECT_EQ(n, 3);
  EXPECT_NEAR(px[1], 700, 6);
  EXPECT_NEAR(px[1] - px[0], 40, 0.5);
  EXPECT_NEAR(std::fabs(py[0] - py[2]), 24, 0.5);
}

TEST_F(Fields, CirclesOnTriangles) {
  openSystem();
  std::mt19937 random(9);
  std::uniform_real_distribution<float> value(0, 10);
  std::vector<float> px, py, u, v;
  constexpr int kPoints = 500;
  for (int k = 0; k < kPoints; k++) {
    px.push_back(value(random));
    py.push_back(value(random));
    u.push_back(5 - py.back());
    v.push_back(px.back() - 5);
  }
  px.resize(kPoints + 3);
  py.resize(kPoints + 3);
  std::vector<int> a(1001), b(1001), c(1001);
  const int count = TRIANG(px.data(), py.data(), kPoints, a.data(), b.data(), c.data(), 1001);
  ASSERT_GT(count, 900);
  const float xs[] = {8}, ys[] = {5};
  STMTRI(u.data(), v.data(), px.data(), py.data(), kPoints, a.data(), b.data(), c.data(), count, xs, ys, 1);
  const auto lines = drawn();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_GT(lines[0].size(), 1000U);
  for (const Point& p : lines[0]) EXPECT_NEAR(radius(p), 3, 0.02);
}

TEST_F(Fields, BadTrianglesAreTold) {
  openSystem();
  const float px[] = {0, 1, 0}, py[] = {0, 0, 1};
  const int a[] = {1}, b[] = {2}, c[] = {4};
  EXPECT_EQ(outputOf([&] { STMTRI(px, py, px, py, 3, a, b, c, 1, px, py, 0); }),
            " <<<< Warning 2: Incorrect parameter in stmtri!   (4)\n");
}

// ---- Arrows ----------------------------------------------------------------------------------------------------

using Trace = std::vector<std::string>;

TEST_F(Fields, ArrowsInProportion) {
  openSystem();
  VECOPT(200, "LENGTH");
  const float u[] = {2, 0, 0}, v[] = {0, -1, 0}, px[] = {1, 5, 7}, py[] = {1, 5, 7};
  VECFLD(u, v, px, py, 3, 0);
  EXPECT_EQ(traced("move"), (Trace{"600.00 1400.00", "1000.00 1000.00"})); // none for the vector 0
  EXPECT_EQ(traced("draw"), (Trace{"800.00 1400.00", "1000.00 1100.00"}));
}

TEST_F(Fields, ArrowsOfAGrid) {
  openSystem();
  VECOPT(100, "LENGTH");
  VECOPT(0.5F, "SCALE");
  const float gx[] = {2, 4}, gy[] = {3, 6, 9}, u[] = {1, 1, 1, 1, 1, 1}, v[] = {0, 0, 0, 0, 0, 0};
  VECMAT(u, v, 2, 3, gx, gy, 0);
  const Trace moves = traced("move");
  ASSERT_EQ(moves.size(), 6U);
  EXPECT_EQ(moves[1], "700.00 900.00"); // the Y index runs fastest
  EXPECT_EQ(traced("draw")[1], "750.00 900.00");
}

TEST_F(Fields, ArrowsFromPointToPoint) {
  openSystem();
  const float x1[] = {1}, y1[] = {1}, x2[] = {3}, y2[] = {4};
  FIELD(x1, y1, x2, y2, 1, 0);
  EXPECT_EQ(traced("move"), Trace{"600.00 1400.00"});
  EXPECT_EQ(traced("draw"), Trace{"800.00 1100.00"});
}

TEST_F(Fields, HeadsByAngleAndSize) {
  openSystem();
  VECOPT(45, "ANGLE");
  VECOPT(0.5F, "SIZE");
  const float x1[] = {1}, y1[] = {1}, x2[] = {3}, y2[] = {1};
  FIELD(x1, y1, x2, y2, 1, 2001);
  EXPECT_EQ(traced("fill"), Trace{"3 700.00 1500.00 800.00 1400.00 700.00 1300.00"});
}

TEST_F(Fields, ColoursOfArrows) {
  openSystem();
  const float u[] = {1, 2}, v[] = {0, 0}, px[] = {1, 5}, py[] = {1, 5};
  SETCLR(9);
  VECCLR(33);
  VECFLD(u, v, px, py, 2, 0);
  VECCLR(-2); // over the range of lengths
  COLRAN(40, 60);
  VECFLD(u, v, px, py, 2, 0);
  EXPECT_EQ(state()->color.currentColor, 9);
  const Trace colors = traced("color");
  auto count = [&](const char* c) { return std::count(colors.begin(), colors.end(), c); };
  EXPECT_EQ(count("0x00000021"), 1);
  EXPECT_EQ(count("0x00000028"), 1);
  EXPECT_EQ(count("0x0000003c"), 1);
}

TEST_F(Fields, Settings) {
  open();
  EXPECT_EQ(outputOf([] { STMVAL(0, "STEP"); }), " <<<< Warning 2: Incorrect parameter in stmval!\n");
  EXPECT_EQ(outputOf([] { STMOPT(1, "POIN"); }), " <<<< Warning 2: Incorrect parameter in stmopt!   (1)\n");
  EXPECT_NE(outputOf([] { STMMOD("RK3", "INTE"); }), "");
  EXPECT_NE(outputOf([] { STMMOD("ON", "WHAT"); }), "");
  EXPECT_EQ(outputOf([] { VECOPT(90, "ANGL"); }), " <<<< Warning 2: Incorrect parameter in vecopt!\n");
  EXPECT_EQ(outputOf([] { VECCLR(-3); }), " <<<< Warning 2: Incorrect parameter in vecclr!   (-3)\n");
  EXPECT_EQ(state()->streamlines.step, 0.005F);
  EXPECT_EQ(state()->streamlines.mostPoints, 1000);
  EXPECT_EQ(state()->streamlines.closingInterval, 10);
  EXPECT_EQ(state()->streamlines.arrowCode, 1201);
}

// ---- Line integral convolution ---------------------------------------------------------------------------------

class Convolution : public Fields {
protected:
  std::vector<int> texture, values;
  std::vector<float> means;
  void convolve() {
    values.assign(texture.size(), -1);
    means.assign(texture.size(), -1);
    LICPTS(vx.data(), vy.data(), kN, kM, texture.data(), values.data(), means.data());
  }
};

TEST_F(Convolution, StripesAlongTheFieldStay) {
  open();
  uniform();
  for (int i = 0; i < kN; i++)
    for (int j = 0; j < kM; j++) texture.push_back(20 * j);
  convolve();
  EXPECT_EQ(values, texture);
}

TEST_F(Convolution, StripesAcrossTheFieldFade) {
  open();
  uniform();
  for (int i = 0; i < kN; i++)
    for (int j = 0; j < kM; j++) texture.push_back(i % 2 == 0 ? 0 : 200);
  LICMOD("OFF", "FAST");
  STMVAL(1, "LICSTEP");
  STMOPT(1, "LICL");
  convolve();
  // The mean of a grid point and its two neighbours along the line; of two at the ends.
  EXPECT_FLOAT_EQ(means[10 * kM + 5], 400.0F / 3);
  EXPECT_FLOAT_EQ(means[11 * kM + 5], 200.0F / 3);
  EXPECT_FLOAT_EQ(means[5], 100);
  EXPECT_EQ(values[10 * kM + 5], 133);
  // Spread again over the whole range.
  LICMOD("ON", "SCALE");
  convolve();
  EXPECT_FLOAT_EQ(means[10 * kM + 5], 200);
  EXPECT_FLOAT_EQ(means[11 * kM + 5], 0);
}

TEST_F(Convolution, FastMeansAreNearTheSlowOnes) {
  open();
  rotation();
  texture.resize(std::size_t{kN} * kM);
  TXTURE(texture.data(), kN, kM);
  LICMOD("OFF", "FAST");
  convolve();
  const std::vector<float> slow = means;
  LICMOD("ON", "FAST");
  convolve();
  double difference = 0;
  for (std::size_t k = 0; k < slow.size(); k++) {
    difference += std::fabs(static_cast<double>(slow[k]) - means[k]) / static_cast<double>(slow.size());
    EXPECT_GE(means[k], 0);
    EXPECT_LE(means[k], 255);
  }
  EXPECT_LT(difference, 40);
}

TEST_F(Convolution, WhereTheFieldStandsStillTheTextureStays) {
  open();
  field([](double, double) { return Point{0, 0}; });
  texture.resize(std::size_t{kN} * kM);
  TXTURE(texture.data(), kN, kM);
  convolve();
  EXPECT_EQ(values, texture);
}

} // namespace
