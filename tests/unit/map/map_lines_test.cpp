#include "map/map_lines.h"

#include <cmath>
#include <cstdio>

#include "core/pipeline.h"
#include "graph2d/scaling.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class MapLines : public PlotTest {
protected:
  void openMap(const char* projection, float xa = -180, float xe = 180, float ya = -90, float ye = 90) {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1081, 541); // 3 units a degree of a plain map
    NOGRAF();
    PROJCT(projection);
    GRAFMP(xa, xe, xa, 30, ya, ye, ya, 30);
    NOCHEK();
  }
  static void curve(float lon1, float lat1, float lon2, float lat2) {
    const float lon[] = {lon1, lon2}, lat[] = {lat1, lat2};
    CURVMP(lon, lat, 2);
  }
  int drawn() {
    flushPath(state());
    return state()->counters.vectorCount;
  }
};

TEST_F(MapLines, APointForEachDegree) {
  openMap("EQUA");
  curve(0, 0, 10.5F, 0);
  EXPECT_EQ(drawn(), 10);
}

TEST_F(MapLines, LinesShorterThanADegreeHaveNoInnerPoints) {
  openMap("EQUA");
  curve(0, 0, 0.9F, 0);
  EXPECT_EQ(drawn(), 1);
}

TEST_F(MapLines, PlainMapsAndStraightLinesAreOneStroke) {
  openMap("CYLI");
  curve(0, 0, 40, 30);
  EXPECT_EQ(drawn(), 1);
  QUIFIN();
  openMap("EQUA");
  MAPMOD("STRAIGHT");
  curve(0, 0, 40, 30);
  EXPECT_EQ(drawn(), 1);
}

// From 0 E 0 N to 90 E 60 N: the distance is 90 degrees, 1.5708 / 0.01 = 157 pieces, 155 inner points. Half way the
// vectors (1, 0, 0) and (0, 0.5, 0.866) add up to a latitude of atan2(0.866, hypot(1, 0.5)) = 37.76 degrees.
TEST_F(MapLines, GreatCircles) {
  openMap("CYLI");
  MAPMOD("GREAT");
  curve(0, 0, 90, 60);
  const Lines points = traced("draw");
  EXPECT_EQ(points.size(), 156U);
  double x = 0, y = 0;
  ASSERT_EQ(std::sscanf(points[77].c_str(), "%lf %lf", &x, &y), 2); // k = 78 of f = k / 156
  EXPECT_NEAR((x - 500) / 3 - 180, std::atan2(0.5, 1) * 180 / 3.14159265, 0.01);
  EXPECT_NEAR((1500 - y) / 3 - 90, 37.7612, 0.01);
}

TEST_F(MapLines, GreatCirclesCrossTheDateLine) {
  openMap("CYLI", -200, 200);
  MAPMOD("GREAT");
  curve(170, 0, 190, 0);
  double last = 0;
  for (const std::string& line : traced("draw")) {
    double x = 0, y = 0;
    ASSERT_EQ(std::sscanf(line.c_str(), "%lf %lf", &x, &y), 2);
    EXPECT_GT(x, last);
    last = x;
  }
}

TEST_F(MapLines, AntipodesAreNoFault) {
  openMap("CYLI");
  MAPMOD("GREAT");
  curve(0, 0, 180, 0);
  curve(10, 90, 10, -90);
  drawn();
}

TEST_F(MapLines, CurvesNeedLinearInterpolation) {
  openMap("EQUA");
  POLCRV("STEP");
  EXPECT_EQ(outputOf([] { curve(0, 0, 10, 10); }), " <<<< Warning 14: Linear interpolation must be used in curvmp!\n");
  POLCRV("LINEAR");
  const float one = 0;
  EXPECT_EQ(outputOf([&] { CURVMP(&one, &one, 1); }), " <<<< Warning 2: Incorrect parameter in curvmp!\n");
}

TEST_F(MapLines, AbsurdDegreesAreOneStroke) {
  openMap("EQUA");
  curve(0, 0, 3e38F, 3e38F);
  curve(0, 0, 0, std::nanf(""));
  drawn();
}

// On a globe around 0 E 0 N the line along the equator is cut at 90 degrees; beyond it nothing is drawn.
TEST_F(MapLines, GlobesEndAtTheirReach) {
  openMap("ORTH");
  mapMove(state(), 60, 0);
  mapDraw(state(), 120, 0);
  mapDraw(state(), 150, 0);
  mapDraw(state(), 200, 0);
  mapDraw(state(), -60, 0);
  const float radius = 270, centre = 500 + 540.5F;
  char end[2][40];
  std::snprintf(end[0], sizeof end[0], "%.2f 1229.50", static_cast<double>(centre + radius));
  std::snprintf(end[1], sizeof end[1], "%.2f 1229.50", static_cast<double>(centre - radius * std::sqrt(3.0F) / 2));
  EXPECT_EQ(traced("draw"), (Lines{end[0], end[1]}));
}

TEST_F(MapLines, MapsphSetsTheReach) {
  open();
  AXSLEN(1081, 541);
  NOGRAF();
  PROJCT("STER");
  MAPSPH(30);
  GRAFMP(-180, 180, 0, 30, -90, 90, 0, 30);
  mapMove(state(), 0, 0);
  mapDraw(state(), 80, 0);
  flushPath(state());
  EXPECT_EQ(state()->counters.vectorCount, 1);
  EXPECT_NEAR(X2DPOS(30, 0) - X2DPOS(0, 0), 270, 0.1);
}

// A gnomonic map has no place for 90 degrees; the line leaves on its own side.
TEST_F(MapLines, GnomonicLinesDoNotReturnFromInfinity) {
  openMap("GNOM", -30, 30, 20, 60);
  mapMove(state(), 0, 40);
  mapDraw(state(), 179, 40);
  double x = 0, y = 0;
  const Lines lines = traced("draw");
  ASSERT_LE(lines.size(), 1U);
  if (lines.size() == 1) {
    ASSERT_EQ(std::sscanf(lines[0].c_str(), "%lf %lf", &x, &y), 2);
    EXPECT_LE(y, 1230);
  }
}

TEST_F(MapLines, PlainGridsAreStraightStrokes) {
  openMap("CYLI");
  GRIDMP(1, 1); // 13 longitudes, 7 latitudes
  EXPECT_EQ(drawn(), 20);
}

TEST_F(MapLines, CylindricalGridsAreStraightStrokes) {
  openMap("EQUA");
  GRIDMP(0, 2); // a line each 15 degrees
  EXPECT_EQ(drawn(), 13);
}

TEST_F(MapLines, WorldGridsHaveAPointForEachDegree) {
  openMap("MOLL");
  GRIDMP(1, 0);
  EXPECT_EQ(drawn(), 13 * 180);
}

TEST_F(MapLines, GridsTestTheirNumbers) {
  openMap("CYLI");
  EXPECT_EQ(outputOf([] { GRIDMP(-1, 0); }), " <<<< Warning 2: Incorrect parameter in gridmp!   (-1)\n");
}

TEST_F(MapLines, GridsOfTooManyLinesAreLeftOut) {
  open();
  NOGRAF();
  GRAFMP(0, 10, 0, 1e-6F, 0, 10, 0, 1);
  outputOf([] { GRIDMP(1, 0); });
  EXPECT_EQ(drawn(), 0);
}

} // namespace
