// Lines that hide those drawn after them.
#include <cmath>
#include <cstdio>

#include "plot_fixture.h"

namespace {

class Horizon : public PlotTest {
protected:
  struct Stroke {
    double x0, y0, x1, y1;
  };
  std::vector<Stroke> strokes() {
    if (state()->level.plotLevel > 0) QUIFIN();
    std::vector<Stroke> found;
    double x = 0.0, y = 0.0;
    for (const std::string& line : linesOf("trace.txt")) {
      double toX = 0.0, toY = 0.0;
      if (std::sscanf(line.c_str(), "move %lf %lf", &toX, &toY) != 2) {
        if (std::sscanf(line.c_str(), "draw %lf %lf", &toX, &toY) != 2) continue;
        found.push_back({x, y, toX, toY});
      }
      x = toX;
      y = toY;
    }
    return found;
  }
  static void expectStroke(const Stroke& s, double x0, double y0, double x1, double y1, double tolerance = 0.0) {
    EXPECT_NEAR(s.x0, x0, tolerance);
    EXPECT_NEAR(s.y0, y0, tolerance);
    EXPECT_NEAR(s.x1, x1, tolerance);
    EXPECT_NEAR(s.y1, y1, tolerance);
  }
};

} // namespace

// The column at the end of a line is kept by the line that goes on from there, and there is none.
TEST_F(Horizon, TheSameLineTwice) {
  open();
  HIDLIN("ON");
  LINE(100, 1000, 200, 1000);
  LINE(100, 1000, 200, 1000);
  const std::vector<Stroke> s = strokes();
  ASSERT_EQ(s.size(), 2U);
  expectStroke(s[0], 100, 1000, 200, 1000);
  expectStroke(s[1], 200, 1000, 200, 1000);
}

// Both bounds of a column drawn in once are the same: all but that pixel can be seen.
TEST_F(Horizon, AcrossOneLine) {
  open();
  HIDLIN("ON");
  LINE(100, 1000, 500, 1000);
  LINE(300, 800, 300, 1200);
  const std::vector<Stroke> s = strokes();
  ASSERT_EQ(s.size(), 3U);
  expectStroke(s[1], 300, 800, 300, 999);
  expectStroke(s[2], 300, 1001, 300, 1200);
}

// Two lines in front hide what lies between them. The line behind falls by 3 in 4 units.
TEST_F(Horizon, BetweenTheBounds) {
  open();
  HIDLIN("ON");
  LINE(50, 1000, 550, 1000);
  LINE(50, 1100, 550, 1100);
  LINE(100, 900, 500, 1200);
  const std::vector<Stroke> s = strokes();
  ASSERT_EQ(s.size(), 4U);
  expectStroke(s[2], 100, 900, 232, 999, 1.0);
  expectStroke(s[3], 368, 1101, 500, 1200, 1.0);
}

TEST_F(Horizon, OneSideAlone) {
  open();
  SURVIS("TOP");
  HIDLIN("ON");
  LINE(50, 1000, 550, 1000);
  LINE(300, 900, 300, 1100);
  HIDLIN("ON"); // empty again
  SURVIS("BOTTOM");
  LINE(50, 1000, 550, 1000);
  LINE(300, 900, 300, 1100);
  const std::vector<Stroke> s = strokes();
  ASSERT_EQ(s.size(), 4U);
  expectStroke(s[1], 300, 900, 300, 999);
  expectStroke(s[3], 300, 1001, 300, 1100);
}

TEST_F(Horizon, Off) {
  open();
  HIDLIN("ON");
  LINE(100, 1000, 200, 1000);
  HIDLIN("OFF");
  LINE(100, 1000, 200, 1000);
  const std::vector<Stroke> s = strokes();
  ASSERT_EQ(s.size(), 2U);
  expectStroke(s[1], 100, 1000, 200, 1000);
}

// All directions of walking: a star from the middle of the page, drawn twice. The second time at most ends are seen.
TEST_F(Horizon, AllDirections) {
  open();
  HIDLIN("ON");
  for (int turn = 0; turn < 2; turn++) {
    for (int k = 0; k < 24; k++) {
      const double a = k * M_PI / 12.0 + 0.05;
      LINE(1400 + static_cast<int>(20 * std::cos(a)), 1000 + static_cast<int>(20 * std::sin(a)),
           1400 + static_cast<int>(800 * std::cos(a)), 1000 + static_cast<int>(800 * std::sin(a)));
    }
  }
  double length = 0.0, rest = 0.0;
  const std::vector<Stroke> s = strokes();
  for (std::size_t i = 0; i < s.size(); i++)
    (i < 24 ? length : rest) += std::hypot(s[i].x1 - s[i].x0, s[i].y1 - s[i].y0);
  EXPECT_GT(length, 8000.0);
  EXPECT_LT(rest, length);
}

// The whole page and beyond it.
TEST_F(Horizon, EndsOfThePage) {
  open();
  HIDLIN("ON");
  XMOVE(-500, 500);
  XDRAW(5000, 500);
  XMOVE(0, 0);
  XDRAW(2969, 2099);
  XMOVE(NAN, 3);
  XDRAW(100, 100);
  const std::vector<Stroke> s = strokes();
  ASSERT_GE(s.size(), 3U);
  expectStroke(s[0], 0, 500, 2969, 500);
}

// On a device without line widths each visible piece has its outline; what is hidden has none.
TEST_F(Horizon, WideLines) {
  open("HPGL");
  HWMODE("OFF", "LINE");
  LINWID(11);
  HIDLIN("ON");
  LINE(100, 1000, 500, 1000);
  LINE(100, 1200, 500, 1200);
  LINE(200, 1100, 400, 1100);
  bool outline = false;
  for (const Stroke& s : strokes()) {
    EXPECT_TRUE(s.y0 < 1050.0 || s.y0 > 1150.0);
    outline = outline || s.y0 < 999.0;
  }
  EXPECT_TRUE(outline);
}

TEST_F(Horizon, ColumnsAreFreed) {
  open();
  HIDLIN("ON");
  EXPECT_NE(state()->horizon.largest, nullptr);
  QUIFIN();
  EXPECT_EQ(state()->horizon.largest, nullptr);
  EXPECT_FALSE(state()->horizon.on);
}
