// Meshes and bars with hidden lines.
#include <cmath>
#include <cstdio>

#include "plot_fixture.h"

namespace {

int calls = 0;

float level(float, float) {
  calls++;
  return 0.0F;
}
float plane(float x, float y) { return 0.1F * x + y; }

struct Place {
  double x, y;
};
using Line = std::vector<Place>;

class Surface : public PlotTest {
protected:
  const float x3[3] = {0, 5, 10}, y4[4] = {-5, 0, 2, 5};
  const float flat[12] = {};
  const float hill[12] = {0, 0, 0, 0, 0, 6, 4, 0, 0, 0, 0, 0};

  void openBox(float eyeX = 4, float eyeY = -5, float eyeZ = 4) {
    std::filesystem::remove("trace.txt");
    open();
    NOGRAF();
    AXSPOS(600, 1800);
    AXSLEN(1600, 1600);
    VIEW3D(eyeX, eyeY, eyeZ, "ABS");
    GRAF3D(0, 10, 0, 2, -5, 5, -5, 1, -10, 10, -10, 5);
  }
  // Lines as the sink gets them.
  std::vector<Line> lines() {
    if (state()->level.plotLevel > 0) QUIFIN();
    std::vector<Line> found;
    for (const std::string& text : linesOf("trace.txt")) {
      Place p{};
      if (std::sscanf(text.c_str(), "move %lf %lf", &p.x, &p.y) == 2) found.push_back({p});
      if (std::sscanf(text.c_str(), "draw %lf %lf", &p.x, &p.y) == 2) found.back().push_back(p);
    }
    return found;
  }
  static double lengthOf(const std::vector<Line>& all) {
    double length = 0.0;
    for (const Line& line : all)
      for (std::size_t i = 1; i < line.size(); i++)
        length += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
    return length;
  }
  static Place seen(float x, float y, float z) {
    float px = 0.0F, py = 0.0F;
    REL3PT(x, y, z, &px, &py);
    return {static_cast<double>(px), static_cast<double>(py)};
  }
  static void expectLine(const Line& line, const Line& expected, double tolerance = 0.02) {
    ASSERT_EQ(line.size(), expected.size());
    for (std::size_t i = 0; i < line.size(); i++) {
      EXPECT_NEAR(line[i].x, expected[i].x, tolerance) << i;
      EXPECT_NEAR(line[i].y, expected[i].y, tolerance) << i;
    }
  }
};

} // namespace

// The front corner from (4, -5) is the last x and the first y.
TEST_F(Surface, OrderOfTheLines) {
  openBox();
  NOHIDE();
  SURFCE(x3, 3, y4, 4, flat);
  const int i[] = {2, 1, 0}, j[] = {0, 1, 2, 3};
  auto at = [&](int a, int b) { return seen(x3[i[a]], y4[j[b]], 0.0F); };
  std::vector<Line> expected = {{at(0, 0), at(1, 0), at(2, 0)}, {at(0, 0), at(0, 1), at(0, 2), at(0, 3)}};
  for (int b = 1; b < 4; b++)
    for (int a = 1; a < 3; a++) expected.push_back({at(a, b - 1), at(a, b), at(a - 1, b)});
  const std::vector<Line> drawn = lines();
  ASSERT_EQ(drawn.size(), expected.size());
  for (std::size_t k = 0; k < drawn.size(); k++) expectLine(drawn[k], expected[k]);
}

// Data against the axis: the first x stands before the eye now.
TEST_F(Surface, FallingRows) {
  openBox();
  NOHIDE();
  SUROPT("XISO");
  const float x[] = {10, 5, 0};
  SURFCE(x, 3, y4, 4, flat);
  const Line expected = {seen(10, -5, 0), seen(5, -5, 0), seen(0, -5, 0)};
  const std::vector<Line> drawn = lines();
  ASSERT_EQ(drawn.size(), 4U);
  expectLine(drawn[0], expected);
}

TEST_F(Surface, LinesOfOneDirection) {
  openBox();
  NOHIDE();
  SUROPT("YISO");
  SURFCE(x3, 3, y4, 4, hill);
  const Line second = {seen(5, -5, 0), seen(5, 0, 6), seen(5, 2, 4), seen(5, 5, 0)};
  const std::vector<Line> drawn = lines();
  ASSERT_EQ(drawn.size(), 3U);
  expectLine(drawn[1], second);
}

// Nothing of a level surface is hidden from above: as much is drawn as without hiding.
TEST_F(Surface, LevelSurfaceFromAbove) {
  openBox();
  NOHIDE();
  SURFCE(x3, 3, y4, 4, flat);
  const double all = lengthOf(lines());
  openBox();
  SURFCE(x3, 3, y4, 4, flat);
  EXPECT_NEAR(lengthOf(lines()), all, 0.02 * all);
}

// From below every line further away lies lower on the page. Of the upper side only the front edges can be seen.
TEST_F(Surface, UpperSideFromBelow) {
  openBox(4, -5, -6);
  SURVIS("TOP");
  SURFCE(x3, 3, y4, 4, flat);
  const Place corner = seen(10, -5, 0), left = seen(0, -5, 0), right = seen(10, 5, 0);
  const double edges =
      std::hypot(left.x - corner.x, left.y - corner.y) + std::hypot(right.x - corner.x, right.y - corner.y);
  const std::vector<Line> drawn = lines();
  EXPECT_NEAR(lengthOf(drawn), edges, 0.03 * edges);
  openBox(4, -5, -6);
  SURVIS("BOTTOM");
  SURFCE(x3, 3, y4, 4, flat);
  EXPECT_GT(lengthOf(lines()), 2.0 * edges);
}

TEST_F(Surface, ColoursOfTheSides) {
  openBox();
  COLOR("RED");
  SURCLR(50, 200);
  SURFCE(x3, 3, y4, 4, flat);
  const std::vector<std::string> colors = traced("color");
  ASSERT_GE(colors.size(), 3U);
  // Once to the colour of the upper side, and once back to red.
  EXPECT_EQ(colors[colors.size() - 2], "0x00000032");
  EXPECT_EQ(colors[colors.size() - 1], colors[colors.size() - 3]);
}

TEST_F(Surface, ColourOfTheLowerSide) {
  openBox(4, -5, -6);
  SURCLR(-1, 200);
  SURFCE(x3, 3, y4, 4, flat);
  bool found = false;
  for (const std::string& color : traced("color")) found = found || color == "0x000000c8";
  EXPECT_TRUE(found);
}

TEST_F(Surface, HidesWhatComesLater) {
  const float x[] = {4, 6}, y[] = {-1, 1}, below[] = {-1, -1};
  openBox();
  SHLSUR();
  SURFCE(x3, 3, y4, 4, flat);
  const int drawnBefore = state()->counters.vectorCount;
  CURV3D(x, y, below, 2);
  EXPECT_EQ(state()->counters.vectorCount, drawnBefore);
  HIDLIN("OFF");
  CURV3D(x, y, below, 2);
  EXPECT_EQ(state()->counters.vectorCount, drawnBefore + 1);
  SURFCE(x3, 3, y4, 4, flat);
  RESET("SHLSUR");
  SURFCE(x3, 3, y4, 4, flat);
  EXPECT_FALSE(state()->horizon.on);
}

// ---- Bars ----------------------------------------------------------------------------------------------------------

// The bar at (6, -2) with half widths 0.375 * 4; away from the eye lie lower x and higher y. The others reach below the
// scaling.
TEST_F(Surface, StrokesOfABar) {
  const float x[] = {2, 6}, y[] = {-2, 2}, z[] = {-11, -11, 5, -11};
  openBox();
  NOHIDE();
  POLCRV("BARS");
  SURFCE(x, 2, y, 2, z);
  auto at = [](float dx, float dy, float height) { return seen(6 - 1.5F * dx, -2 + 1.5F * dy, height); };
  const Line around = {at(1, -1, 5),   at(1, 1, 5),     at(-1, 1, 5),   at(-1, -1, 5), at(1, -1, 5),
                       at(1, -1, -10), at(-1, -1, -10), at(-1, 1, -10), at(-1, 1, 5)};
  const Line front = {at(-1, -1, -10), at(-1, -1, 5)};
  const std::vector<Line> drawn = lines();
  ASSERT_EQ(drawn.size(), 2U);
  expectLine(drawn[0], around);
  expectLine(drawn[1], front);
}

TEST_F(Surface, NoBarsBelowTheScaling) {
  const float x[] = {2, 8}, y[] = {-3, 3}, z[] = {-11, -12, NAN, -10.5F};
  openBox();
  POLCRV("BARS");
  SURFCE(x, 2, y, 2, z);
  EXPECT_TRUE(lines().empty());
}

// A bar is drawn against what stands and stored as a whole: a high bar hides a low one behind it.
TEST_F(Surface, BarsHideBars) {
  const float x[] = {2, 8}, y[] = {-3, 3}, front[] = {-11, -11, 9, -11}, both[] = {-9.5F, -9.5F, 9, -9.5F};
  openBox(8, -8, 1);
  POLCRV("BARS");
  SURFCE(x, 2, y, 2, front);
  const double alone = lengthOf(lines());
  openBox(8, -8, 1);
  POLCRV("BARS");
  SURFCE(x, 2, y, 2, both);
  const Place hidden = seen(2, 3, -9.5F); // straight behind the front bar
  const std::vector<Line> drawn = lines();
  EXPECT_GT(lengthOf(drawn), alone);
  for (const Line& line : drawn)
    for (const Place& p : line) EXPECT_FALSE(std::fabs(p.x - hidden.x) < 10.0 && std::fabs(p.y - hidden.y) < 10.0);
}

// ---- Matrices and functions ----------------------------------------------------------------------------------------

// 3 by 4 values over the axis limits: x 0, 5, 10 and y -5, -5/3, 5/3, 5.
TEST_F(Surface, MatrixOverTheAxes) {
  openBox();
  NOHIDE();
  SURMAT(hill, 3, 4, 1, 0);
  const Line second = {seen(10, -5.0F / 3, 0), seen(5, -5.0F / 3, 6), seen(0, -5.0F / 3, 0)};
  std::vector<Line> drawn = lines();
  ASSERT_EQ(drawn.size(), 4U);
  expectLine(drawn[1], second, 0.05);
  // Three parts of an interval; lines along Y as well.
  openBox();
  NOHIDE();
  SURMAT(hill, 3, 4, 3, 1);
  const Line parts = {seen(10, -5.0F / 3, 0), seen(25.0F / 3, -5.0F / 3, 2), seen(20.0F / 3, -5.0F / 3, 4),
                      seen(5, -5.0F / 3, 6),  seen(10.0F / 3, -5.0F / 3, 4), seen(5.0F / 3, -5.0F / 3, 2),
                      seen(0, -5.0F / 3, 0)};
  drawn = lines();
  ASSERT_EQ(drawn.size(), 4U + 3U);
  expectLine(drawn[1], parts, 0.05);
}

// Each second line along X; the matrix is taken up to the third row, a multiple of two intervals from the front.
TEST_F(Surface, EachSecondLine) {
  openBox();
  NOHIDE();
  SURMAT(hill, 3, 4, -2, 1);
  const Line along = {seen(10, -5, 0), seen(10, -5.0F / 3, 0), seen(10, 5.0F / 3, 0)};
  const std::vector<Line> drawn = lines();
  ASSERT_EQ(drawn.size(), 2U + 3U);
  expectLine(drawn[2], along, 0.05);
}

TEST_F(Surface, MatrixInARange) {
  openBox();
  NOHIDE();
  SURSZE(2, 4, -1, 1);
  SURMAT(hill, 3, 4, 0, 1);
  const Line middle = {seen(3, -1, 0), seen(3, -1.0F / 3, 6), seen(3, 1.0F / 3, 4), seen(3, 1, 0)};
  const std::vector<Line> drawn = lines();
  ASSERT_EQ(drawn.size(), 3U);
  expectLine(drawn[1], middle, 0.05);
}

// Hidden lines of a matrix look as those of the same grid.
TEST_F(Surface, MatrixAndGridHideAlike) {
  const float y[] = {-5, -5.0F / 3, 5.0F / 3, 5};
  openBox(4, -5, 2);
  SURFCE(x3, 3, y, 4, hill);
  const double grid = lengthOf(lines());
  openBox(4, -5, 2);
  SURMAT(hill, 3, 4, 1, 1);
  EXPECT_NEAR(lengthOf(lines()), grid, 1.0);
}

// Lines at 10, 7, 4 and 1 from the limit before the eye, from y = -5 to 4 in steps of 4.5.
TEST_F(Surface, FunctionFromTheFront) {
  openBox();
  NOHIDE();
  SURFUN(plane, 0, 3, 2, 4.5F);
  std::vector<Line> expected;
  for (const float x : {10.0F, 7.0F, 4.0F, 1.0F}) {
    Line line;
    for (int k = 0; k <= 4; k++) {
      const float y = -5.0F + 2.25F * static_cast<float>(k);
      line.push_back(seen(x, y, plane(x, y)));
    }
    expected.push_back(line);
  }
  const std::vector<Line> drawn = lines();
  ASSERT_EQ(drawn.size(), 4U);
  for (std::size_t k = 0; k < 4; k++) expectLine(drawn[k], expected[k]);
}

// 4 by 3 nodes; each is asked for once but for those of the front lines.
TEST_F(Surface, CallsOfTheFunction) {
  openBox();
  calls = 0;
  SURFUN(level, 1, 3, 1, 4.5F);
  EXPECT_GE(calls, 12);
  EXPECT_LE(calls, 20);
}

TEST_F(Surface, FaultsDrawNothing) {
  openBox();
  const std::string said = outputOf([&] {
    SURFCE(x3, 1, y4, 4, flat);
    SURFCE(x3, 3, y4, 1, flat);
    SURMAT(flat, 1, 4, 1, 1);
    SURMAT(flat, 3, 4, 0, 0); // nothing to draw, nothing to say
    SURFUN(level, -1, 1, 1, 1);
    SURFUN(level, 1, 0, 1, 1);
    SURFUN(level, 1, 1, 1, -1);
    SURFUN(level, 0, 1, 0, 1);
    SURFUN(level, 1, 1e-20F, 1, 1);
    SURSZE(1, 1, 0, 2);
    SURCLR(-2, 1);
    state()->axis.axisSystemKind = quilla::kSystemRectangular;
    SURFCE(x3, 3, y4, 4, flat);
  });
  EXPECT_EQ(state()->counters.warningCount, 10);
  EXPECT_NE(said.find("Warning 10: Begin and end of scaling are equal in sursze!"), std::string::npos);
  EXPECT_NE(said.find("Warning 35: Confusion of graf3d and graf3 in surfce!"), std::string::npos);
  EXPECT_TRUE(lines().empty());
}

// Values that are no numbers are holes: two of the six corners before the rear lines lose both their sides.
TEST_F(Surface, Holes) {
  float z[12] = {};
  z[5] = NAN;
  z[6] = INFINITY;
  openBox();
  NOHIDE();
  SURFCE(x3, 3, y4, 4, z);
  EXPECT_EQ(lines().size(), 6U);
}

TEST_F(Surface, Resets) {
  open();
  SURVIS("TOP");
  SURCLR(1, 2);
  SURSZE(1, 2, 3, 4);
  NOHIDE();
  SHLSUR();
  for (const char* name : {"SURVIS", "SURCLR", "SURSZE", "NOHIDE", "SHLSUR"}) RESET(name);
  const quilla::SurfaceGroup& g = state()->surface;
  EXPECT_EQ(g.visibleSide, 0);
  EXPECT_FALSE(g.sideColorsGiven || state()->matrix.matrixLimitsGiven || g.hidingOff || g.shieldKept);
}
