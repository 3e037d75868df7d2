#include <cmath>

#include "core/pipeline.h"
#include "graph2d/scaling.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

constexpr double kPi = 3.14159265358979323846;

class MapSystem : public PlotTest {
protected:
  // 1001 by 801 units with the lower left corner at (500, 1500), without axes.
  void place(const char* projection) {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 801);
    NOGRAF();
    PROJCT(projection);
  }
  static void world() { GRAFMP(-180, 180, -180, 60, -90, 90, -90, 30); }
  static void region(float xa, float xe, float ya, float ye) { GRAFMP(xa, xe, xa, 10, ya, ye, ya, 10); }

  void expectPoint(float lon, float lat, double px, double py) {
    EXPECT_NEAR(static_cast<double>(X2DPOS(lon, lat)), px, 0.02) << lon << ' ' << lat;
    EXPECT_NEAR(static_cast<double>(Y2DPOS(lon, lat)), py, 0.02) << lon << ' ' << lat;
  }
  std::string refused(float xa, float xe, float ya, float ye) {
    std::string text = outputOf([&] { region(xa, xe, ya, ye); });
    EXPECT_EQ(GETLEV(), 1);
    return text;
  }
  const std::string kBadParameter = " <<<< Warning 2: Incorrect parameter in grafmp!\n";
};

TEST_F(MapSystem, WithoutAProjectionItIsLinear) {
  place("CYLI");
  world();
  EXPECT_EQ(GETLEV(), 2);
  EXPECT_EQ(state()->axis.axisSystemKind, kSystemMap);
  expectPoint(-180, -90, 500, 1500);
  expectPoint(180, 90, 1500, 700);
  expectPoint(0, 45, 1000, 900);
}

// ln tan 75 degrees is 1.3169579: 800 units for twice that.
TEST_F(MapSystem, MercatorFillsTheHeight) {
  place("MERC");
  region(-90, 90, -60, 60);
  const double scale = 800 / (2 * 1.3169579), middle = 500 + 500.5;
  expectPoint(0, -60, middle, 1500);
  expectPoint(0, 60, middle, 700);
  expectPoint(90, 0, middle + scale * kPi / 2, 1100);
}

TEST_F(MapSystem, MercatorKeepsAwayFromThePoles) {
  place("MERC");
  EXPECT_EQ(refused(-90, 90, -60, 85.2F), kBadParameter);
  region(-90, 90, -60, 85);
  EXPECT_EQ(GETLEV(), 2);
  EXPECT_NEAR(Y2DPOS(0, 90), Y2DPOS(0, 89.99F), 0.05F);
}

// X is radians and Y degrees with one scale: the whole width is 2 pi of 180 units' scale.
TEST_F(MapSystem, UtmHasRadiansAndDegrees) {
  place("UTM");
  EXPECT_EQ(outputOf([] { world(); }), "");
  const double scale = 800.0 / 180.0;
  expectPoint(180, 0, 1000.5 + scale * kPi, 1100);
  expectPoint(0, 90, 1000.5, 700);
}

TEST_F(MapSystem, MollweideAndEllipticalAreRectanglesOfDegrees) {
  for (const char* name : {"MOLL", "ELLI"}) {
    place(name);
    world();
    const double scale = 800.0 / 180.0;
    EXPECT_TRUE(state()->map.curvedFrame);
    expectPoint(0, 0, 1000.5, 1500 - 400.5);
    expectPoint(90, 45, 1000.5 + 90 * scale, 1500 - 400.5 - 45 * scale);
    QUIFIN();
  }
}

TEST_F(MapSystem, AitoffIsTwiceAsWideAsHigh) {
  place("AITO");
  world();
  expectPoint(0, 90, 1000.5, 1099.5 - 400);
  expectPoint(180, 0, 1000.5 + 800, 1099.5);
}

TEST_F(MapSystem, ConicsHaveTheirReferencesInsideTheLimits) {
  place("CONI");
  region(-20, 40, 30, 70); // parallels 40 and 60, both of true length
  expectPoint(10, 50, 1000.5, 1099.5);
  expectPoint(10, 70, 1000.5, 1099.5 - 400);
  const double scale = 800 / (40 * kPi / 180);
  // An arc of 30 degrees along the parallel of 40, as the program proj (eqdc) places its end.
  EXPECT_NEAR(std::hypot(static_cast<double>(X2DPOS(10.01F, 40) - X2DPOS(10, 40)),
                         static_cast<double>(Y2DPOS(10.01F, 40) - Y2DPOS(10, 40))),
              scale * 0.01 * kPi / 180 * std::cos(40 * kPi / 180), 0.01);
}

// The map of the south is the mirrored map of the north.
TEST_F(MapSystem, SouthernConicsAreMirrored) {
  place("CONF");
  region(-20, 40, 30, 70);
  float x[3], y[3], lons[] = {10, 35, -20}, lats[] = {30, 55, 64};
  for (int i = 0; i < 3; i++) POS2PT(lons[i], lats[i], x + i, y + i);
  ENDGRF();
  region(-20, 40, -70, -30);
  for (int i = 0; i < 3; i++)
    expectPoint(lons[i], -lats[i], static_cast<double>(x[i]), 2 * 1099.5 - static_cast<double>(y[i]));
  EXPECT_TRUE(state()->map.projection.southern);
}

TEST_F(MapSystem, ConicsStayOnOneSideOfTheEquator) {
  place("CONF");
  EXPECT_EQ(refused(-20, 40, -10, 50), kBadParameter);
  MAPREF(10, 40);
  region(-20, 40, -10, 50);
  EXPECT_EQ(GETLEV(), 2);
}

TEST_F(MapSystem, AGlobeFillsTheSmallerLength) {
  place("ORTH");
  MAPPOL(20, 0);
  world();
  EXPECT_TRUE(state()->map.globe && state()->map.curvedFrame);
  EXPECT_FLOAT_EQ(state()->map.globeRadius, 400.5F);
  expectPoint(20, 0, 1000.5, 1099.5);
  expectPoint(110, 0, 1000.5 + 400, 1099.5);
  expectPoint(20, 90, 1000.5, 1099.5 - 400);
}

TEST_F(MapSystem, GlobesOfTheOtherProjectionsReachTheCircle) {
  for (const char* name : {"STER", "LAMB"}) {
    place(name);
    MAPSPH(60);
    world();
    expectPoint(60, 0, 1000.5 + 400, 1099.5);
    QUIFIN();
  }
  place("GNOM");
  world(); // 85 degrees at most
  expectPoint(85, 0, 1000.5 + 400, 1099.5);
}

TEST_F(MapSystem, EquidistantGlobesAreTwiceAsLarge) {
  place("AZIM");
  world();
  expectPoint(90, 0, 1000.5 + 800, 1099.5);
  expectPoint(45, 0, 1000.5 + 400, 1099.5); // the circle
  const float lon[] = {0, 44, 60, 90}, lat[] = {0, 0, 0, 0};
  MAPMOD("STRA");
  CURVMP(lon, lat, 4);
  flushPath(state());
  EXPECT_EQ(state()->counters.vectorCount, 1); // what leaves the circle is not drawn
}

TEST_F(MapSystem, SmallerSpansTakeTheirMiddleAsCentre) {
  place("STER");
  region(-10, 30, 40, 70);
  EXPECT_FALSE(state()->map.curvedFrame);
  EXPECT_DOUBLE_EQ(state()->map.projection.centerLat, 55);
  expectPoint(10, 55, 1000.5, 1099.5);
  expectPoint(10, 70, 1000.5, 1099.5 - 400);
  expectPoint(10, 40, 1000.5, 1099.5 + 400);
}

TEST_F(MapSystem, Limits) {
  place("CYLI");
  const std::string unordered = " <<<< Warning 52: Hiddenline overflow in grafmp!\n";
  EXPECT_EQ(refused(10, 10, 0, 50), unordered);
  EXPECT_EQ(refused(0, 10, 50, 0), unordered);
  EXPECT_EQ(refused(-540.2F, 0, 0, 50), kBadParameter);
  EXPECT_EQ(refused(-180, 180, -180.2F, 50), kBadParameter);
  PROJCT("EQUA");
  EXPECT_EQ(refused(-180, 180, -90.2F, 50), kBadParameter);
  PROJCT("SANS");
  EXPECT_EQ(refused(-181, 180, -90, 90), kBadParameter);
  PROJCT("LAMB");
  EXPECT_EQ(refused(-181, 180, 0, 80), kBadParameter);
  EXPECT_EQ(refused(-100, 100, 0, 80), kBadParameter);
  EXPECT_EQ(refused(0, 100, 100, 180), kBadParameter);
  region(0, 100, 0, 80);
  EXPECT_EQ(GETLEV(), 2);
}

TEST_F(MapSystem, ScalesAreTested) {
  place("CYLI");
  EXPECT_EQ(outputOf([] { GRAFMP(0, 10, 0, 0, 0, 10, 0, 1); }), " <<<< Warning 9: Step equal zero in grafmp!\n");
  EXPECT_EQ(GETLEV(), 1);
}

TEST_F(MapSystem, SettersTestTheirValues) {
  open();
  const auto warned = [](const char* name) {
    return std::string(" <<<< Warning 2: Incorrect parameter in ") + name + "!\n";
  };
  EXPECT_EQ(outputOf([] { MAPPOL(181, 0); }), warned("mappol"));
  EXPECT_EQ(outputOf([] { MAPPOL(0, -91); }), warned("mappol"));
  EXPECT_EQ(outputOf([] { MAPREF(-10, 10); }), warned("mapref"));
  EXPECT_EQ(outputOf([] { MAPSPH(0); }), warned("mapsph"));
  EXPECT_EQ(outputOf([] { MAPSPH(90.5F); }), warned("mapsph"));
  EXPECT_FLOAT_EQ(state()->projection.maximumAngle, 1.5707964F);
  EXPECT_EQ(outputOf([] { PROJCT("NONE"); }), " <<<< Warning 2: Incorrect parameter in projct!   (NONE)\n");
  GRAF(0, 1, 0, 1, 0, 1, 0, 1);
  EXPECT_EQ(outputOf([] { PROJCT("MERC"); }), " <<<< Warning 3: Incorrect level in projct!   (2)\n");
  ENDGRF();
  EXPECT_EQ(outputOf([] { GRIDMP(1, 1); }), " <<<< Warning 3: Incorrect level in gridmp!   (1)\n");
  EXPECT_EQ(outputOf([] { CURVMP(nullptr, nullptr, 0); }), " <<<< Warning 3: Incorrect level in curvmp!   (1)\n");
}

TEST_F(MapSystem, ResetGivesDefaultsBack) {
  open();
  PROJCT("LAMB");
  MAPPOL(10, 20);
  MAPREF(30, 40);
  MAPSPH(50);
  MAPMOD("GREA");
  MAPDIR("somewhere");
  for (const char* name : {"PROJCT", "MAPPOL", "MAPREF", "MAPSPH", "MAPMOD", "MAPDIR"}) RESET(name);
  const ProjectionGroup& g = state()->projection;
  EXPECT_EQ(g.projectionCode, kProjPlain);
  EXPECT_EQ(g.poleLon, 0);
  EXPECT_EQ(g.poleLat, 0);
  EXPECT_FALSE(g.referencesGiven);
  EXPECT_FLOAT_EQ(g.maximumAngle, 1.5707964F);
  EXPECT_EQ(g.mapLineMode, kMapInterpolated);
  EXPECT_STREQ(state()->mapData.mapDirectory, "");
}

TEST_F(MapSystem, TheAxisCanShrinkToTheMap) {
  place("MERC");
  MAPOPT("AUTO", "XAXIS");
  region(-30, 30, -60, 60);
  const double width = 800 / (2 * 1.3169579) * kPi / 3; // 318.05
  EXPECT_EQ(state()->axis.axisLength[kAxisX], static_cast<int>(1.5 + width));
  EXPECT_EQ(state()->axis.axisPosX, 500 + static_cast<int>(0.5 + (1001 - (width + 1)) / 2));
  EXPECT_NEAR(X2DPOS(-30, 0), static_cast<float>(state()->axis.axisPosX), 1.0F);
}

TEST_F(MapSystem, AMapTooWideKeepsItsAxis) {
  place("MERC");
  MAPOPT("AUTO", "XAXIS");
  EXPECT_EQ(outputOf([] { region(-540, 540, -30, 30); }),
            " <<<< Warning 168: X-axis does not fit the page in grafmp!\n");
  EXPECT_EQ(state()->axis.axisLength[kAxisX], 1001);
  EXPECT_EQ(GETLEV(), 2);
}

TEST_F(MapSystem, CenterMovesTheMapWithItsAxes) {
  place("MERC");
  CENTER();
  region(-60, 60, -60, 60);
  EXPECT_NE(state()->axis.axisPosX, 500);
  expectPoint(0, -60, state()->axis.axisPosX + 500.5, state()->axis.axisPosY);
}

void half(float* x, float* y) {
  *x *= 0.5F;
  *y *= 2.0F;
}

TEST_F(MapSystem, ProjectionsOfTheUser) {
  place("MYPR");
  region(0, 100, 0, 100);
  expectPoint(30, 40, 530, 1460); // none is registered
  SETCBK(half, "MYPR");
  expectPoint(30, 40, 515, 1420);
  EXPECT_EQ(outputOf([] { SETCBK(half, "PLOT"); }), " <<<< Warning 2: Incorrect parameter in setcbk!   (PLOT)\n");
  SETCBK(nullptr, "MYPR");
}

TEST_F(MapSystem, PositionsGoBothWays) {
  const struct {
    const char* name;
    float xa, xe, ya, ye;
  } maps[] = {{"CYLI", -180, 180, -90, 90}, {"MERC", -180, 180, -80, 80}, {"EXAC", -180, 180, -90, 90},
              {"EQUA", -180, 180, -90, 90}, {"MOLL", -180, 180, -90, 90}, {"AITO", -180, 180, -90, 90},
              {"HAMM", -180, 180, -90, 90}, {"WINK", -180, 180, -90, 90}, {"SANS", -180, 180, -90, 90},
              {"CONF", -20, 60, 20, 70},    {"ALBE", -20, 60, 20, 70},    {"POLY", -20, 60, 20, 70},
              {"CONI", -20, 60, 20, 70},    {"CONF", -20, 60, -70, -20},  {"GNOM", -20, 60, 20, 70},
              {"ORTH", -20, 60, 20, 70},    {"STER", -20, 60, 20, 70},    {"AZIM", -20, 60, 20, 70},
              {"LAMB", -180, 180, -90, 90}};
  for (const auto& m : maps) {
    place(m.name);
    region(m.xa, m.xe, m.ya, m.ye);
    const float middle = (m.ya + m.ye) / 2;
    for (float lon : {-15.0F, 10.0F, 45.0F}) {
      for (float lat : {middle - 20, middle + 17}) {
        float x = 0, y = 0, lon2 = 0, lat2 = 0;
        POS2PT(lon, lat, &x, &y);
        PT2POS(x, y, &lon2, &lat2);
        EXPECT_NEAR(lon2, lon, 0.02F) << m.name;
        EXPECT_NEAR(lat2, lat, 0.02F) << m.name;
      }
    }
    QUIFIN();
  }
}

TEST_F(MapSystem, PositionsOfOtherSystems) {
  open();
  AXSPOS(500, 1500);
  AXSLEN(1001, 1001);
  AXSSCL("LOG", "Y");
  NOGRAF();
  GRAF(0, 10, 0, 1, 0, 2, 0, 1);
  float x = 0, y = 0;
  POS2PT(5, 10, &x, &y);
  EXPECT_FLOAT_EQ(x, 1000);
  EXPECT_FLOAT_EQ(y, 1000);
  PT2POS(1000, 1000, &x, &y);
  EXPECT_NEAR(x, 5, 1e-4);
  EXPECT_NEAR(y, 10, 1e-3);
  PAGORG("BOTTOM");
  POS2PT(5, 10, &x, &y);
  EXPECT_FLOAT_EQ(y, 1099);
  PT2POS(x, y, &x, &y);
  EXPECT_NEAR(y, 10, 1e-3);
}

// An image of three pixels, 60 degrees wide each: the first reaches from 150 W to 90 W, the last one to 30 E.
TEST_F(MapSystem, ImagesEndAtTheEdgeOfTheMap) {
  const auto fills = [&](const char* projection, float xa, float xe, const char* clip) {
    place(projection);
    std::ofstream("a.ppm", std::ios::binary) << "P6 3 1 255\nabcdefghi";
    CLPMOD(clip);
    GRAFMP(xa, xe, 0, 60, -80, 80, 0, 30);
    MAPIMG("a.ppm", 60, 0, 0, 10, -120, 0);
    const std::size_t triangles = traced("fill").size(), bars = traced("bar").size();
    std::filesystem::remove("trace.txt");
    return triangles + 100 * bars;
  };
  EXPECT_EQ(fills("EQUA", -180, 180, "AUTO"), 300U); // rectangles
  EXPECT_EQ(fills("SANS", -180, 180, "AUTO"), 6U);   // two triangles a pixel
  EXPECT_EQ(fills("SANS", -100, 100, "AUTO"), 4U);   // without the first one
  EXPECT_EQ(fills("SANS", -100, 100, "NONE"), 6U);
}

} // namespace
