#include "core/pipeline.h"
#include "graph2d/scaling.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class MapAxes : public PlotTest {
protected:
  void openMap(const char* projection, float xa, float xe, float ya, float ye) {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 801);
    LABELS("NONE", "XY");
    TICKS(1, "XY");
    PROJCT(projection);
    GRAFMP(xa, xe, xa, 10, ya, ye, ya, 10);
  }
  // Vertical strokes downwards from the lower edge: the x of major ticks.
  std::vector<double> ticksBelow() {
    flushPath(state());
    std::vector<double> found;
    double x0 = 0, y0 = 0;
    for (const std::string& line : linesOf("trace.txt")) {
      double x = 0, y = 0;
      const bool move = std::sscanf(line.c_str(), "move %lf %lf", &x, &y) == 2;
      if (!move && std::sscanf(line.c_str(), "draw %lf %lf", &x, &y) != 2) continue;
      if (!move && x == x0 && ((y0 == 1500 && y == 1524) || (y0 == 1524 && y == 1500))) found.push_back(x);
      x0 = x;
      y0 = y;
    }
    return found;
  }
};

TEST_F(MapAxes, MercatorTicksStandAtTheirLongitudes) {
  openMap("MERC", -20, 20, 30, 60);
  const double middle = 500 + 500.5, step = static_cast<double>(X2DPOS(10, 30) - X2DPOS(0, 30));
  QUIFIN();
  const std::vector<double> ticks = ticksBelow();
  ASSERT_EQ(ticks.size(), 5U);
  for (int i = 0; i < 5; i++) EXPECT_NEAR(ticks[static_cast<std::size_t>(i)], middle + (i - 2) * step, 1.0);
}

TEST_F(MapAxes, TicksOutsideTheRectangleAreLeftOut) {
  openMap("MERC", -60, 60, 30, 60); // wider than the axis is long
  const bool fits = X2DPOS(60, 30) <= 1500;
  EXPECT_FALSE(fits);
  QUIFIN();
  for (double x : ticksBelow()) EXPECT_TRUE(x >= 500 && x <= 1500);
  EXPECT_LT(ticksBelow().size(), 13U);
  EXPECT_GT(ticksBelow().size(), 4U);
}

// Along the lower edge of a conic map the latitude is not that of its corner: ticks stand where meridians end.
TEST_F(MapAxes, ConicTicksStandWhereMeridiansCrossTheEdge) {
  openMap("CONF", 0, 40, 30, 60);
  std::vector<double> expected;
  for (float lon = 0; lon <= 40; lon += 10) {
    float low = 0, high = 80; // bisection for the latitude on the edge
    for (int i = 0; i < 40; i++) {
      const float middle = (low + high) / 2;
      (Y2DPOS(lon, middle) > 1500 ? low : high) = middle;
    }
    expected.push_back(static_cast<double>(X2DPOS(lon, low)));
  }
  QUIFIN();
  const std::vector<double> ticks = ticksBelow();
  ASSERT_EQ(ticks.size(), expected.size());
  for (std::size_t i = 0; i < ticks.size(); i++) EXPECT_NEAR(ticks[i], expected[i], 1.0);
}

TEST_F(MapAxes, AxesOfTheirOwn) {
  openMap("EQUA", -20, 20, 0, 60); // 645 units wide
  const int vectors = state()->counters.vectorCount;
  EXPECT_EQ(outputOf([] { XAXMAP(-20, 20, -20, 10, "", 0, 1700); }), "");
  flushPath(state());
  EXPECT_EQ(state()->counters.vectorCount - vectors, 1 + 5); // the line and ticks
  EXPECT_EQ(state()->scaling.axisStep[kAxisX], 10);
  EXPECT_EQ(outputOf([] { XAXMAP(-20, 20, -20, 10, "", 0, 5000); }),
            " <<<< Warning 5: Y coordinate out of page in xaxmap!   (5000)\n");
  EXPECT_EQ(outputOf([] { YAXMAP(30, 60, 30, 10, "", 0, -1); }),
            " <<<< Warning 4: X coordinate out of page in yaxmap!   (-1)\n");
  EXPECT_EQ(outputOf([] { YAXMAP(30, 60, 30, 10, "", 2, 100); }),
            " <<<< Warning 2: Incorrect parameter in yaxmap!   (2)\n");
  ENDGRF();
  EXPECT_EQ(outputOf([] { XAXMAP(-20, 20, -20, 10, "", 0, 1700); }),
            " <<<< Warning 3: Incorrect level in xaxmap!   (1)\n");
}

TEST_F(MapAxes, GlobesHaveACircle) {
  openMap("ORTH", -180, 180, -90, 90);
  flushPath(state());
  EXPECT_EQ(state()->counters.vectorCount, 360);
}

TEST_F(MapAxes, FramesCountTheirLines) {
  open();
  FRAME(-3);
  AXSLEN(1001, 801);
  PROJCT("LAMB");
  GRAFMP(-180, 180, 0, 30, -90, 90, 0, 30);
  flushPath(state());
  EXPECT_EQ(state()->counters.vectorCount, 3 * 360);
}

// 181 points on either side, closed: of Sanson's map the last of one side is the first of the other.
TEST_F(MapAxes, WorldMapsHaveACurvedFrame) {
  openMap("SANS", -180, 180, -90, 90);
  flushPath(state());
  EXPECT_EQ(state()->counters.vectorCount, 2 * 180);
}

TEST_F(MapAxes, NoFrameWithoutThickness) {
  open();
  FRAME(0);
  PROJCT("HAMM");
  GRAFMP(-180, 180, 0, 30, -90, 90, 0, 30);
  flushPath(state());
  EXPECT_EQ(state()->counters.vectorCount, 0);
}

TEST_F(MapAxes, LatitudesStandBesideWorldMaps) {
  open();
  AXSLEN(1001, 501);
  FRAME(0);
  PROJCT("HAMM");
  MAPLAB("LEFT", "LATI");
  GRAFMP(-180, 180, 0, 30, -90, 90, -60, 60);
  flushPath(state());
  const int left = state()->counters.vectorCount;
  EXPECT_GT(left, 0);
  ENDGRF();
  MAPLAB("BOTH", "LATI");
  GRAFMP(-180, 180, 0, 30, -90, 90, -60, 60);
  flushPath(state());
  EXPECT_EQ(state()->counters.vectorCount, 3 * left);
}

} // namespace
