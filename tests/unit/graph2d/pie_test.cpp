#include <algorithm>
#include <chrono>
#include <cmath>
#include <sstream>

#include "plot_fixture.h"

using namespace quilla;

namespace {

using Floats = std::vector<float>;
using Lines = std::vector<std::string>;

struct Point {
  double x, y;
};

class Pie : public PlotTest {
protected:
  // A system of 1000 by 1000 with its centre at (1000, 1000): the radius of a pie without margins is 500.
  void prepare() {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1000, 1000);
  }
  void draw(const Floats& x) { PIEGRF("", 0, x.data(), static_cast<int>(x.size())); }

  // Corners of a filled polygon of the trace.
  static std::vector<Point> corners(const std::string& line) {
    std::istringstream in(line);
    int n = 0;
    in >> n;
    std::vector<Point> points(static_cast<std::size_t>(n));
    for (Point& p : points) in >> p.x >> p.y;
    return points;
  }
  static void expectNear(Point p, double x, double y) {
    EXPECT_NEAR(p.x, x, 0.02);
    EXPECT_NEAR(p.y, y, 0.02);
  }
};

TEST_F(Pie, OpensAnAxisSystem) {
  prepare();
  draw({1, 2});
  EXPECT_EQ(GETLEV(), 2);
  EXPECT_STREQ(state()->level.routineName, "getlev");
  EXPECT_FALSE(state()->axis.noAxesDrawn);
  EXPECT_EQ(outputOf([&] { draw({1, 2}); }), " <<<< Warning 3: Incorrect level in piegrf!   (2)\n");
}

// Quarters: the first from -45 to 45 degrees, the next anticlockwise.
TEST_F(Pie, SegmentsTurnAnticlockwise) {
  prepare();
  SHDPAT(16);
  draw({1, 1, 2});
  Lines fills = traced("fill");
  ASSERT_EQ(fills.size(), 3U);
  double edge = 500 * std::sqrt(0.5);
  std::vector<Point> first = corners(fills[0]), second = corners(fills[1]), third = corners(fills[2]);
  expectNear(first.front(), 1000 + edge, 1000 + edge);
  expectNear(first.back(), 1000, 1000);
  expectNear(first[first.size() - 2], 1000 + edge, 1000 - edge);
  expectNear(second.front(), 1000 + edge, 1000 - edge);
  expectNear(second[second.size() - 2], 1000 - edge, 1000 - edge);
  expectNear(third[third.size() - 2], 1000 + edge, 1000 + edge);
}

TEST_F(Pie, Rotation) {
  prepare();
  SHDPAT(16);
  PIEROT(45);
  draw({1, 3});
  std::vector<Point> first = corners(traced("fill")[0]);
  expectNear(first.front(), 1500, 1000);
  expectNear(first[first.size() - 2], 1000, 500);
}

TEST_F(Pie, OneValueIsACircle) {
  prepare();
  SHDPAT(16);
  draw({7});
  Lines fills = traced("fill");
  ASSERT_EQ(fills.size(), 1U);
  for (Point p : corners(fills[0])) EXPECT_NEAR(std::hypot(p.x - 1000, p.y - 1000), 500, 0.02);
}

TEST_F(Pie, NothingToDraw) {
  prepare();
  EXPECT_EQ(outputOf([&] { draw({0, 0}); }), " <<<< Warning 29: Sum of data is zero in piegrf!\n");
  EXPECT_EQ(outputOf([&] { draw({NAN, 1}); }), " <<<< Warning 29: Sum of data is zero in piegrf!\n");
  EXPECT_EQ(outputOf([&] { draw({}); }), "");
  EXPECT_EQ(GETLEV(), 1);
}

// The second half is moved to the left by 8 percent of 500; the radius gives way.
TEST_F(Pie, NegativeValuesAreMovedOut) {
  prepare();
  SHDPAT(16);
  draw({1, -1});
  Lines fills = traced("fill");
  ASSERT_EQ(fills.size(), 2U);
  expectNear(corners(fills[0]).back(), 1000, 1000);
  expectNear(corners(fills[1]).back(), 960, 1000);
  expectNear(corners(fills[1]).front(), 960, 1000 - 460);
}

TEST_F(Pie, ColoursOfSegments) {
  prepare();
  int colors[] = {10, -1}, sides[] = {11, -1};
  PIECLR(colors, sides, 2);
  EXPECT_EQ(outputOf([&] { PIECLR(colors, sides, 31); }), " <<<< Warning 2: Incorrect parameter in pieclr!   (31)\n");
  SHDPAT(16);
  NOARLN();
  SETCLR(50);
  draw({1, 1});
  EXPECT_EQ(state()->color.currentColor, 50);
  EXPECT_EQ(state()->legendState.drawn[0].color, 10);
  EXPECT_EQ(state()->legendState.drawn[1].color, 50);
}

// View at 30 degrees: half as high as wide; the thickness 0.5 * 500 * cos 30.
TEST_F(Pie, SolidPies) {
  prepare();
  PIETYP("3D");
  PIEOPT(30, 0.5F);
  SHDPAT(16);
  draw({1});
  Lines fills = traced("fill");
  ASSERT_EQ(fills.size(), 2U); // the rim, then the top
  double depth = 250 * std::cos(std::acos(-1.0) / 6), top = 1000 - depth / 2;
  std::vector<Point> rim = corners(fills[0]), face = corners(fills[1]);
  double low = 0, high = 1e9, bottom = 0;
  for (Point p : face) {
    low = std::max(low, p.y);
    high = std::min(high, p.y);
  }
  for (Point p : rim) bottom = std::max(bottom, p.y);
  EXPECT_NEAR(high, top - 250, 0.1);
  EXPECT_NEAR(low, top + 250, 0.1);
  EXPECT_NEAR(bottom, top + 250 + depth, 0.1);
}

// From back to front: the segment around 90 degrees first, the one around 270 degrees last.
TEST_F(Pie, SolidPiesAreDrawnFromTheBack) {
  prepare();
  PIETYP("3D");
  SHDPAT(16);
  draw({1, 1, 1, 1});
  Lines fills = traced("fill");
  // Tops of the four; rims of the left, right and front one.
  ASSERT_EQ(fills.size(), 7U);
  auto middle = [](const std::vector<Point>& p) { return p[(p.size() - 1) / 2]; };
  EXPECT_LT(middle(corners(fills[0])).y, 800);
  std::vector<Point> last = corners(fills[6]);
  EXPECT_GT(middle(last).y, 1100);
  EXPECT_NEAR(middle(last).x, 1000, 10);
}

// A segment around the left side from the back to the front is drawn in two parts: its neighbour at the right of the
// back covers the first, the rim of the second comes behind those of the others.
TEST_F(Pie, SegmentsThatReachFromBackToFront) {
  prepare();
  PIETYP("3D");
  SHDPAT(16);
  PIEROT(180);
  draw({5, 1, 1, 2});
  Lines fills = traced("fill");
  ASSERT_FALSE(fills.empty());
  EXPECT_GT(corners(fills.back()).size(), 20U); // the top of the large one is the last
}

// The boxes of labels, from the shields around them.
struct Box {
  int x, y, w, h;
};

class PieLabels : public Pie {
protected:
  std::vector<Box> boxes() {
    std::vector<Box> found;
    const std::int16_t* words = state()->shield.shieldWords;
    for (int i = 0; i < state()->shield.shieldUsed; i += 6)
      found.push_back({words[i + 2] + 9, words[i + 3] + 9, words[i + 4] - 18, words[i + 5] - 18});
    return found;
  }
  static bool meet(const Box& a, const Box& b) {
    return a.x < b.x + b.w && b.x < a.x + a.w && a.y < b.y + b.h && b.y < a.y + a.h;
  }
  void expectApart() {
    std::vector<Box> all = boxes();
    for (std::size_t i = 0; i < all.size(); i++) {
      for (std::size_t k = 0; k < i; k++) EXPECT_FALSE(meet(all[i], all[k])) << i << " " << k;
    }
  }
};

TEST_F(PieLabels, InsideTheSegments) {
  prepare();
  SHIELD("PIE", "ON");
  LABELS("PERCENT", "PIE");
  draw({1, 1, 1, 1});
  std::vector<Box> all = boxes();
  ASSERT_EQ(all.size(), 4U);
  int w = NLMESS("25.0%");
  EXPECT_EQ(all[0].w, w);
  EXPECT_NEAR(all[0].x + w / 2.0, 1000 + 0.65 * 500, 1);
  EXPECT_NEAR(all[0].y + 18, 1000, 1);
  EXPECT_NEAR(all[1].y + 18, 1000 - 0.65 * 500, 1);
}

TEST_F(PieLabels, TextsOfTheBuffer) {
  prepare();
  char buffer[24];
  LEGINI(buffer, 4, 6);
  LEGLIN(buffer, "one", 1);
  LEGLIN(buffer, "longer", 2);
  LEGLIN(buffer, "two", 3);
  SHIELD("PIE", "ON");
  LABELS("BOTH", "PIE");
  LABDIG(-1, "DATA");
  LABDIG(2, "PERC");
  PIELAB("EUR ", "LEFT");
  PIELAB("!", "RIGHT");
  float x[] = {1, 1};
  PIEGRF(buffer, 2, x, 2);
  std::vector<Box> all = boxes();
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0].h, 3 * 54 + 36); // two lines, data, percentage
  EXPECT_EQ(all[0].w, std::max({NLMESS("longer"), NLMESS("EUR 1!"), NLMESS("50.00%")}));
}

TEST_F(PieLabels, ExternalLabelsKeepApartAndOffThePie) {
  prepare();
  SHIELD("PIE", "ON");
  LABELS("PERCENT", "PIE");
  for (const char* place : {"EXTERN", "ALIGNED"}) {
    LABPOS(place, "PIE");
    Floats x(24, 1);
    x[0] = x[12] = 40;
    draw(x);
    EXPECT_EQ(boxes().size(), 24U);
    expectApart();
    for (const Box& b : boxes()) {
      EXPECT_GE(b.y, 500);
      EXPECT_LE(b.y + b.h, 1501);
      EXPECT_GE(b.x, 499);
      EXPECT_LE(b.x + b.w, 1501);
    }
    SHIELD("PIE", "DELE");
    ENDGRF();
  }
}

TEST_F(PieLabels, TooManyLabelsLeaveOutTheSmallest) {
  prepare();
  SHIELD("PIE", "ON");
  LABELS("PERCENT", "PIE");
  LABPOS("ALIGNED", "PIE");
  Floats x(200);
  for (std::size_t i = 0; i < x.size(); i++) x[i] = static_cast<float>(i + 1);
  draw(x);
  EXPECT_LT(boxes().size(), 60U);
  EXPECT_GT(boxes().size(), 30U);
  expectApart();
}

int calls = 0;
void change(int segment, float value, float percent, int* pattern, int* color, float* exploded, int* mode, int* place,
            int* justify, int* labelColor) {
  calls++;
  EXPECT_EQ(segment, calls);
  EXPECT_EQ(value, segment == 1 ? 1.0F : 3.0F);
  EXPECT_EQ(percent, segment == 1 ? 25.0F : 75.0F);
  EXPECT_EQ(*pattern, 5);
  EXPECT_EQ(*exploded, 0.0F);
  EXPECT_EQ(*mode, 0);
  EXPECT_EQ(*place, 0);
  EXPECT_EQ(*justify, 0);
  EXPECT_EQ(*labelColor, -1);
  if (segment != 2) return;
  *pattern = 16;
  *color = 44;
  *exploded = 1.0F;
}

TEST_F(Pie, CallBackChangesASegment) {
  prepare();
  SHDPAT(5);
  PIECBK(change);
  calls = 0;
  draw({1, 3});
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(state()->legendState.drawn[1].color, 44);
  EXPECT_EQ(state()->legendState.drawn[1].shading.shadePattern, 16);
  EXPECT_EQ(state()->shading.shadePattern, 5);
  Lines fills = traced("fill");
  ASSERT_EQ(fills.size(), 1U);
  expectNear(corners(fills[0]).back(), 960, 1000);
}

TEST_F(Pie, ExtremeValues) {
  prepare();
  LABELS("BOTH", "PIE");
  draw({1e38F, 3e38F, 1e-38F, 0, -1e38F});
  ENDGRF();
  PIETYP("3D");
  PIEROT(1e30F);
  PIEOPT(1e30F, 10);
  PIEVAL(1e38F, "DIST");
  PIEVAL(-1e38F, "GAP");
  draw({1, 2, 3});
  for (const std::string& line : traced("draw")) EXPECT_EQ(line.find("nan"), std::string::npos);
}

} // namespace
