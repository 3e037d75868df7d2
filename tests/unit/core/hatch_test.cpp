// Hatch lines against a model of their own: where lines of a given distance and angle cross the polygon.
#include "core/hatch.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/pipeline.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

struct Stroke {
  float x0, y0, x1, y1;
};

class Hatch : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    open();
  }

  // Every line of the trace is a move and a draw.
  std::vector<Stroke> strokes() {
    Lines moves = traced("move"), draws = traced("draw");
    EXPECT_EQ(moves.size(), draws.size());
    std::vector<Stroke> all;
    for (std::size_t i = 0; i < std::min(moves.size(), draws.size()); i++) {
      Stroke s{};
      sscanf(moves[i].c_str(), "%f %f", &s.x0, &s.y0);
      sscanf(draws[i].c_str(), "%f %f", &s.x1, &s.y1);
      all.push_back(s);
    }
    return all;
  }

  void square(float x0, float y0, float side) {
    float xs[] = {x0, x0 + side, x0 + side, x0}, ys[] = {y0, y0, y0 + side, y0 + side};
    fillPolygon(state(), xs, ys, 4);
  }
};

TEST_F(Hatch, LinesAtTheirDistance) {
  MYPAT(0, 1, 4, 0); // 4 * 5 + 1.9999
  square(100, 100, 100);
  auto all = strokes();
  ASSERT_EQ(all.size(), 5U);
  for (std::size_t i = 0; i < all.size(); i++) {
    EXPECT_NEAR(all[i].y0, 111 + 22 * static_cast<float>(i), 0.011F);
    EXPECT_EQ(all[i].y0, all[i].y1);
    EXPECT_EQ(all[i].x0, 100);
    EXPECT_EQ(all[i].x1, 200);
  }
}

TEST_F(Hatch, AnglesCountAnticlockwise) {
  MYPAT(30, 1, 2, 0); // 11.9999 apart
  square(1000, 1000, 300);
  auto all = strokes();
  ASSERT_GT(all.size(), 20U);
  float previous = 0;
  for (std::size_t i = 0; i < all.size(); i++) {
    const Stroke& k = all[i];
    EXPECT_NEAR((k.y0 - k.y1) / (k.x1 - k.x0), std::tan(30.0F * kDegToRad), 0.02F) << "it rises to the right";
    for (auto [x, y] : {std::pair{k.x0, k.y0}, std::pair{k.x1, k.y1}}) {
      bool onSide = std::fabs(x - 1000) < 0.02F || std::fabs(x - 1300) < 0.02F || std::fabs(y - 1000) < 0.02F ||
                    std::fabs(y - 1300) < 0.02F;
      EXPECT_TRUE(onSide && x > 999.9F && x < 1300.1F && y > 999.9F && y < 1300.1F) << x << " " << y;
    }
    float across = k.x0 * 0.5F + k.y0 * 0.8660254F;
    if (i > 0) {
      EXPECT_NEAR(across - previous, 11.9999F, 0.02F);
    }
    previous = across;
  }
}

TEST_F(Hatch, CrossedPatternsHaveASecondPass) {
  MYPAT(0, 1, 4, 1);
  square(100, 100, 100);
  auto all = strokes();
  ASSERT_EQ(all.size(), 10U);
  for (std::size_t i = 5; i < 10; i++) EXPECT_NEAR(all[i].x0, all[i].x1, 0.02F);
}

TEST_F(Hatch, FromNinetyDegreesOnThePassesLieMirrored) {
  MYPAT(135, 1, 4, 1); // the second at 45
  square(1000, 1000, 300);
  bool falling = false, rising = false;
  for (const Stroke& k : strokes()) {
    float slope = (k.y1 - k.y0) * (k.x1 > k.x0 ? 1.0F : -1.0F);
    if (slope > 1) falling = true;
    if (slope < -1) rising = true;
  }
  EXPECT_TRUE(falling && rising);
}

TEST_F(Hatch, ConcavePolygonsGivePieces) {
  MYPAT(0, 1, 1, 0); // 6.9999
  // A U: two legs 20 wide on a floor.
  float xs[] = {100, 120, 120, 180, 180, 200, 200, 100}, ys[] = {100, 100, 180, 180, 100, 100, 200, 200};
  fillPolygon(state(), xs, ys, 8);
  int pieces = 0, floors = 0;
  for (const Stroke& k : strokes()) {
    float width = k.x1 - k.x0;
    if (width == 20) pieces++;
    if (width == 100) floors++;
  }
  // 103.5 and so on: eleven lines above 180, three below.
  EXPECT_EQ(pieces, 22);
  EXPECT_EQ(floors, 3);
}

TEST_F(Hatch, VerticesOnALineAreCountedOnce) {
  MYPAT(0, 1, 0, 0); // 0.99999: the first line is half a unit below the top
  // A diamond whose middle vertices lie on a line: 100 + 0.5 + 10 * 0.99999.
  float middle = 100.499995F + 10 * 0.99999F;
  float xs[] = {100, 120, 100, 80}, ys[] = {100, middle, 2 * middle - 100, middle};
  fillPolygon(state(), xs, ys, 4);
  auto all = strokes();
  EXPECT_EQ(all.size(), 21U);
  for (const Stroke& k : all) EXPECT_NEAR(k.x1 - 100, 100 - k.x0, 0.02F);
}

TEST_F(Hatch, GroupsOfLines) {
  MYPAT(0, 2, 2, 0); // double lines 20 apart, two more steps to the next
  square(100, 100, 200);
  std::vector<int> ys;
  for (const Stroke& k : strokes()) ys.push_back(static_cast<int>(k.y0 + 0.5F));
  EXPECT_EQ(ys, (std::vector<int>{110, 130, 170, 190, 230, 250, 290}));
}

TEST_F(Hatch, ThickAndTripleLines) {
  MYPAT(0, 3, 1, 0);
  EXPECT_EQ(hatchLines(state()).lines, 3);
  EXPECT_FLOAT_EQ(hatchLines(state()).step, 15);
  EXPECT_EQ(hatchLines(state()).gap, 1);
  MYPAT(0, 4, 5, 0);
  EXPECT_EQ(hatchLines(state()).lines, 8);
  EXPECT_FLOAT_EQ(hatchLines(state()).step, 1);
  EXPECT_EQ(hatchLines(state()).gap, 29);
  SHDFAC(2);
  EXPECT_FLOAT_EQ(hatchLines(state()).step, 2);
}

TEST_F(Hatch, DashedTypesTakeALineTypeAndGiveItBack) {
  MYPAT(0, 6, 4, 0); // DASHM: 20 drawn, 15 not
  CHNDSH();
  square(100, 100, 100);
  EXPECT_EQ(GETTYP(), 3);
  EXPECT_EQ(state()->line.linePatternCount, 4);
  auto all = strokes();
  ASSERT_GE(all.size(), 3U);
  EXPECT_EQ(all[0].x1 - all[0].x0, 20);
  EXPECT_EQ(all[1].x0 - all[0].x1, 15);
}

TEST_F(Hatch, PatternNumbersAndCodes) {
  const ShadingGroup& p = state()->shading;
  SHDPAT(12);
  EXPECT_EQ(p.shadeAngle, 70);
  EXPECT_EQ(p.shadeType, 4);
  EXPECT_EQ(p.shadeDensity, 7);
  EXPECT_EQ(p.shadeCross, 0);
  EXPECT_EQ(GETPAT(), 12);
  SHDPAT(10);
  EXPECT_EQ(p.shadeAngle, 0);
  EXPECT_EQ(p.shadeType, 1);
  EXPECT_EQ(p.shadeDensity, 5);
  EXPECT_EQ(p.shadeCross, 1);
  SHDPAT(18);
  EXPECT_EQ(p.shadeType, 0);
  EXPECT_EQ(p.shadeDensity, 1);
  EXPECT_EQ(p.shadeCross, 0);
  MYPAT(45, 2, 1, 1);
  EXPECT_EQ(GETPAT(), 45211);
  EXPECT_EQ(outputOf([] { SHDPAT(-1); }), " <<<< Warning 2: Incorrect parameter in shdpat!   (-1)\n");
  EXPECT_EQ(outputOf([] { MYPAT(180, 0, 0, 0); }), " <<<< Warning 2: Incorrect parameter in mypat!   (180)\n");
  EXPECT_EQ(outputOf([] { MYPAT(0, 8, 0, 0); }), " <<<< Warning 2: Incorrect parameter in mypat!   (8)\n");
  EXPECT_EQ(outputOf([] { MYPAT(0, 0, 10, 0); }), " <<<< Warning 2: Incorrect parameter in mypat!   (10)\n");
  EXPECT_EQ(outputOf([] { MYPAT(0, 0, 0, 2); }), " <<<< Warning 2: Incorrect parameter in mypat!   (2)\n");
  EXPECT_EQ(GETPAT(), 45211);
  SHDPAT(std::numeric_limits<int>::max());
  RESET("SHDPAT");
  EXPECT_EQ(GETPAT(), 0);
}

TEST_F(Hatch, NoPatternIsNoFill) {
  SHDPAT(0);
  square(100, 100, 100);
  EXPECT_TRUE(strokes().empty());
  EXPECT_TRUE(traced("fill").empty());
}

TEST_F(Hatch, SolidIsTheDevicesUnlessItMayNot) {
  SHDPAT(16);
  square(100, 100, 10);
  HWMODE("OFF", "SHAD");
  square(300, 100, 10);
  EXPECT_EQ(traced("fill"), Lines{"4 100.00 100.00 110.00 100.00 110.00 110.00 100.00 110.00"});
  // The outline and ten lines without room between them.
  EXPECT_EQ(traced("move").size(), 11U);
  EXPECT_EQ(traced("draw").size(), 14U);
}

TEST_F(Hatch, SolidDoesNotGrowByTheLineWidth) {
  HWMODE("OFF", "LINE");
  HWMODE("OFF", "SHAD");
  LINWID(9);
  fillSolid(state(), std::vector<float>{100, 110, 110}.data(), std::vector<float>{100, 100, 110}.data(), 3);
  EXPECT_EQ(GETLIN(), 9);
  for (const char* word : {"move", "draw"}) {
    for (const std::string& line : traced(word)) {
      float x = 0, y = 0;
      sscanf(line.c_str(), "%f %f", &x, &y);
      EXPECT_TRUE(x >= 100 && x <= 110 && y >= 100 && y <= 110) << line;
    }
  }
}

TEST_F(Hatch, PolygonsFarOffThePageCostNothing) {
  MYPAT(45, 1, 0, 1);
  float big = 1e30F, nan = std::numeric_limits<float>::quiet_NaN();
  float xs[] = {-big, big, 0}, ys[] = {-big, -big, big}, bad[] = {0, nan, 1};
  fillPolygon(state(), xs, ys, 3);
  fillPolygon(state(), bad, ys, 3);
  EXPECT_LE(traced("draw").size(), 8000U);
}

TEST_F(Hatch, ManyVertices) {
  constexpr int kCount = 20000;
  std::vector<float> xs, ys;
  for (int i = 0; i < kCount; i++) {
    float a = 6.2831853F * static_cast<float>(i) / kCount, r = 500.0F + 300.0F * static_cast<float>(i % 2);
    xs.push_back(1484.0F + r * std::cos(a));
    ys.push_back(1049.0F + r * std::sin(a));
  }
  MYPAT(0, 1, 9, 0);
  fillPolygon(state(), xs.data(), ys.data(), kCount);
  EXPECT_GT(strokes().size(), 1000U);
}

} // namespace
