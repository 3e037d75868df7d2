// Symbols, tubes, blocks and arrows in space, by the triangles that a depth list paints and by lines on the page.
#include <cmath>
#include <sstream>

#include "plot_fixture.h"

namespace {

class Space : public PlotTest {
protected:
  void openBox() {
    open();
    NOGRAF();
    GRAF3D(0, 10, 0, 5, 0, 10, 0, 5, 0, 10, 0, 5);
    SURVIS("TOP"); // faces that look away are left out
  }
  static std::vector<double> numbers(const std::string& line) {
    std::istringstream in(line);
    std::vector<double> values;
    for (double v = 0; in >> v;) values.push_back(v);
    return values;
  }
};

} // namespace

TEST_F(Space, SymbolsNeedABuffer) {
  openBox();
  EXPECT_NE(outputOf([] { SYMB3D(0, 5, 5, 5); }), "");
}

// From above, front and side three faces of a cube are seen, each as two triangles.
TEST_F(Space, ACubeShowsThreeFaces) {
  openBox();
  DBFINI();
  HSYM3D(2);
  SYMB3D(0, 5, 5, 5);
  DBFFIN();
  EXPECT_NE(outputOf([] { SYMB3D(9, 5, 5, 5); }), "");
  EXPECT_NE(outputOf([] { HSYM3D(-1); }), "");
  EXPECT_EQ(traced("fill").size(), 6U);
}

// Turned by 90 degrees about any axis a cube looks the same.
TEST_F(Space, ATurnedCubeLooksTheSame) {
  openBox();
  DBFINI();
  SYMB3D(0, 5, 5, 5);
  DBFFIN();
  ROT3D(90, 0, 0);
  DBFINI();
  SYMB3D(0, 5, 5, 5);
  DBFFIN();
  const auto fills = traced("fill");
  ASSERT_EQ(fills.size(), 12U);
  double upright = 0.0, turned = 0.0;
  for (std::size_t i = 0; i < 12; i++)
    for (double v : numbers(fills[i])) (i < 6 ? upright : turned) += v;
  EXPECT_NEAR(upright, turned, 1.0);
}

TEST_F(Space, CurvesBecomeTubes) {
  openBox();
  const float x[] = {2, 8}, y[] = {5, 5}, z[] = {5, 5}, r[] = {1, 1};
  const int colors[] = {5, 7};
  MSHCRV(8);
  THKC3D(0.5F);
  CURV3D(x, y, z, 2);
  RESET("THKC3D");
  EXPECT_EQ(state()->depth.tubeRadius, 0.0F);
  CRVT3D(x, y, z, r, colors, 2);
  EXPECT_NE(outputOf([] { MSHCRV(2); }), "");
  const auto fills = traced("fill").size();
  EXPECT_GE(fills, 12U); // of two tubes of eight sides three to five each are seen, as two triangles
  EXPECT_LE(fills, 20U);
}

// Blocks of 10 by 10 by 10 that fill the box; their colours run over the table with the values.
TEST_F(Space, BlocksHaveColoursOfValues) {
  openBox();
  AUTRES3D(10, 10, 10);
  EXPECT_EQ(state()->depth.cellSize[0], 1.0F);
  const float x[] = {2, 8}, w[] = {0, 1}, same[] = {5, 5};
  CURV4D(x, same, same, w, 2);
  SETRES3D(2, 3, 4);
  EXPECT_EQ(state()->depth.cellSize[2], 4.0F);
  EXPECT_NE(outputOf([] { SETRES3D(0, 1, 1); }), "");
  const auto colors = traced("color"), fills = traced("fill");
  EXPECT_EQ(fills.size(), 12U);
  EXPECT_GT(colors.size(), 2U);
}

TEST_F(Space, ArrowsStandInSpace) {
  openBox();
  const float a[] = {2}, b[] = {8}, one[] = {5}, zero[] = {0}, up[] = {3};
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  REL3PT(2, 5, 5, &x1, &y1);
  REL3PT(8, 5, 5, &x2, &y2);
  FIELD3D(a, one, one, b, one, one, 1, 0);
  VECF3D(zero, zero, up, one, one, one, 1, 0);
  VECMAT3D(zero, zero, up, 1, 1, 1, one, one, one, 0);
  float foot = 0, footY = 0;
  REL3PT(5, 5, 5, &foot, &footY);
  const auto moves = traced("move"), draws = traced("draw");
  ASSERT_GE(draws.size(), 3U);
  const std::size_t n = draws.size();
  EXPECT_NEAR(numbers(moves[moves.size() - 3])[0], static_cast<double>(x1), 1.0);
  EXPECT_NEAR(numbers(draws[n - 3])[0], static_cast<double>(x2), 1.0);
  EXPECT_NEAR(numbers(moves[moves.size() - 2])[0], static_cast<double>(foot), 1.0);
  EXPECT_LT(numbers(draws[n - 2])[1], static_cast<double>(footY) - 10); // it points upwards
  EXPECT_EQ(draws[n - 1], draws[n - 2]);
}

TEST_F(Space, BarsOpenAtTheirEnds) {
  open();
  EXPZLB("BOTH");
  EXPECT_TRUE(state()->colorBar.firstOpen && state()->colorBar.lastOpen);
  EXPZLB("LAST");
  EXPECT_TRUE(!state()->colorBar.firstOpen && state()->colorBar.lastOpen);
  RESET("EXPZLB");
  EXPECT_FALSE(state()->colorBar.firstOpen || state()->colorBar.lastOpen);
}
