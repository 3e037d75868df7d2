#include "graph2d/projection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

using namespace quilla;

namespace {

constexpr double kClose = 2e-7; // the tables below have seven decimals
constexpr double kRadians = std::numbers::pi / 180.0;

struct Point {
  double lon, lat, x, y;
};

Projection projection(int code, double lon, double lat = 0.0) {
  Projection p;
  p.code = code;
  p.centerLon = lon;
  p.centerLat = lat;
  return p;
}

// The expected values of this file are output of the program proj (PROJ 9.1.1) with +R=1, unless a test tells the
// formula it counts with.
void expectPoints(const Projection& p, const std::vector<Point>& points) {
  for (const Point& expected : points) {
    MapPlane at = projectPoint(p, expected.lon, expected.lat);
    EXPECT_NEAR(at.x, expected.x, kClose) << p.code << " at " << expected.lon << " " << expected.lat;
    EXPECT_NEAR(at.y, expected.y, kClose) << p.code << " at " << expected.lon << " " << expected.lat;
  }
}

TEST(Projection, Cylindrical) {
  expectPoints(projection(kProjMercator, 0), {{30, 40, 0.5235988, 0.7629097},
                                              {-75, -20, -1.3089969, -0.3563785},
                                              {120, 65, 2.0943951, 1.5064542},
                                              {-10, 5, -0.1745329, 0.0873774}});
  expectPoints(projection(kProjEqualArea, 0),
               {{30, 40, 0.5235988, 0.6427876}, {-75, -20, -1.3089969, -0.3420201}, {120, 65, 2.0943951, 0.9063078}});
  // These have radians across and degrees upwards, in spite of their names.
  for (int code : {kProjExact, kProjCorrected, kProjUtm, kProjOblique}) {
    expectPoints(projection(code, 10), {{40, 50, 30 * kRadians, 50}, {-20, -3, -30 * kRadians, -3}});
  }
}

TEST(Projection, MercatorPlacesAPoleBesideIt) {
  Projection p = projection(kProjMercator, 0);
  EXPECT_DOUBLE_EQ(projectPoint(p, 0, 90).y, projectPoint(p, 0, 89.99).y);
  EXPECT_DOUBLE_EQ(projectPoint(p, 0, -90).y, projectPoint(p, 0, -89.99).y);
  EXPECT_NEAR(projectPoint(p, 0, 90).y, std::asinh(std::tan(89.99 * kRadians)), 1e-6);
}

TEST(Projection, World) {
  expectPoints(projection(kProjAitoff, 0), {{30, 40, 0.4349342, 0.7050352},
                                            {-75, -20, -1.2522469, -0.3743508},
                                            {120, 65, 1.0169277, 1.2590904},
                                            {0, 0, 0, 0}});
  expectPoints(projection(kProjHammer, 0),
               {{30, 40, 0.4251359, 0.6891521}, {-75, -20, -1.2246641, -0.3661051}, {120, 65, 0.9405814, 1.1645636}});
  expectPoints(projection(kProjWinkel, 0),
               {{30, 40, 0.4180170, 0.7015835}, {-75, -20, -1.1274984, -0.3617083}, {120, 65, 1.3106637, 1.1967772}});
  expectPoints(projection(kProjSanson, 0),
               {{30, 40, 0.4010999, 0.6981317}, {-75, -20, -1.2300548, -0.3490659}, {120, 65, 0.8851296, 1.1344640}});
  for (int code : {kProjMollweide, kProjElliptical}) expectPoints(projection(code, 10), {{40, 50, 30, 50}});
}

Projection conic(int code, double lat1, double lat2, double lon) {
  Projection p = projection(code, lon);
  p.southern = lat1 + lat2 < 0;
  p.conic = conicConstants(colatitudeOf(p, lat1), colatitudeOf(p, lat2));
  return p;
}

// Heights of the tables count from a parallel in the middle.
void expectConic(Projection p, double lat0, const std::vector<Point>& points) {
  p.conicCenter = conicRadius(p, colatitudeOf(p, lat0));
  expectPoints(p, points);
}

TEST(Projection, ConformalConic) {
  expectConic(conic(kProjConformal, 35, 65, 10), 50,
              {{30, 40, 0.2593556, -0.1342454},
               {-20, 60, -0.2493200, 0.2205286},
               {45, 35, 0.4818944, -0.1396881},
               {5, 50, -0.0541243, 0.0018316}});
  expectConic(conic(kProjConformal, 45, 45, 10), 50,
              {{30, 40, 0.2656764, -0.1417996}, {-20, 60, -0.2659201, 0.2275054}, {45, 35, 0.4920650, -0.1548133}});
}

TEST(Projection, SouthernConicCountsFromTheSouthPole) {
  expectConic(conic(kProjConformal, -45, -15, 135), -30,
              {{140, -40, 0.0654967, -0.1708010}, {100, -20, -0.5544248, 0.0831559}});
}

TEST(Projection, EquidistantConic) {
  expectConic(conic(kProjConicEquidistant, 35, 65, 10), 50,
              {{30, 40, 0.2598176, -0.1399894}, {-20, 60, -0.2492331, 0.2246054}, {45, 35, 0.4827326, -0.1481028}});
  expectConic(conic(kProjConicEquidistant, 45, 45, 10), 50,
              {{30, 40, 0.2656499, -0.1415807}, {-20, 60, -0.2671101, 0.2245531}, {45, 35, 0.4917061, -0.1539214}});
}

// With one parallel this is Lambert's equal-area conic.
TEST(Projection, AlbersConicWithOneParallel) {
  expectConic(conic(kProjAlbers, 45, 45, 10), 50,
              {{30, 40, 0.2685693, -0.1341693}, {-20, 60, -0.2421504, 0.2351423}, {45, 35, 0.4978938, -0.1263610}});
}

// With two, radius = sqrt(4 sin(chi/2) / c1 + c4). At the parallels 30 and 60, so at colatitudes of 60 and 30 degrees:
// c1 = (cos 60 + cos 30) / 2 = 0.6830127, c4 = 4 / c1^2 * 0.75 * 0.25 = 1.6076952.
TEST(Projection, AlbersConicWithTwoParallels) {
  Projection p = conic(kProjAlbers, 30, 60, 0);
  EXPECT_NEAR(conicAngle(p, 1.0), 0.6830127, kClose);
  EXPECT_NEAR(conicRadius(p, 0.0), std::sqrt(1.6076952), kClose);
  EXPECT_NEAR(conicRadius(p, 60 * kRadians), std::sqrt(4 * 0.5 / 0.6830127 + 1.6076952), kClose);
}

TEST(Projection, PolyconicTakesTheColatitudeAsRadius) {
  Projection p = conic(kProjPolyconic, 35, 65, 0);
  EXPECT_DOUBLE_EQ(conicRadius(p, 0.75), 0.75);
  EXPECT_DOUBLE_EQ(conicAngle(p, 0.25), 0.25);
}

TEST(Projection, ConformalConicStopsBeforeTheOtherPole) {
  Projection p = conic(kProjConformal, 35, 65, 0);
  EXPECT_DOUBLE_EQ(conicRadius(p, std::numbers::pi), conicRadius(p, 179.99 * kRadians));
}

TEST(Projection, ConicLongitudesAreTakenFromTheMiddle) {
  Projection p = conic(kProjConformal, 35, 65, 170);
  EXPECT_NEAR(projectPoint(p, -170, 50).x, projectPoint(p, 190, 50).x, 1e-12);
  EXPECT_GT(projectPoint(p, -170, 50).x, 0.0);
}

TEST(Projection, AzimuthalAroundAnyCentre) {
  expectPoints(projection(kProjGnomonic, 10, 50),
               {{30, 40, 0.2743161, -0.1447561}, {-50, 10, -1.8972309, -0.5908001}, {5, 80, -0.0174843, 0.5782184}});
  expectPoints(projection(kProjOrthographic, 10, 50),
               {{30, 40, 0.2620026, -0.1382584}, {-50, 10, -0.8528685, -0.2655844}, {5, 80, -0.0151344, 0.5005062}});
  expectPoints(projection(kProjStereographic, 10, 50),
               {{30, 40, 0.2680180, -0.1414327}, {-50, 10, -1.1767491, -0.3664412}, {5, 80, -0.0162247, 0.5365630}});
  expectPoints(projection(kProjAzimuthalEquidistant, 10, 50),
               {{30, 40, 0.2659946, -0.1403649}, {-50, 10, -1.0546035, -0.3284049}, {5, 80, -0.0158511, 0.5242080}});
  expectPoints(projection(kProjLambertAzimuthal, 10, 50),
               {{30, 40, 0.2649932, -0.1398365}, {-50, 10, -1.0018045, -0.3119632}, {5, 80, -0.0156701, 0.5182211}});
}

TEST(Projection, AzimuthalAroundAWesternCentre) {
  expectPoints(
      projection(kProjStereographic, -100, -30),
      {{-90, -20, 0.1654555, 0.1688364}, {-130, -60, -0.2765467, -0.5901437}, {-60, 10, 0.8081937, 0.6735822}});
  expectPoints(projection(kProjAzimuthalEquidistant, 0, 0), {{30, 40, 0.4327633, 0.7262630}});
}

TEST(Projection, AzimuthalAroundThePoles) {
  expectPoints(projection(kProjLambertAzimuthal, 20, 90),
               {{30, 40, 0.1467738, -0.8323955}, {-50, 10, -1.2080455, -0.4396926}, {5, 80, -0.0451151, -0.1683720}});
  expectPoints(projection(kProjGnomonic, 20, -90),
               {{30, -40, 0.2069458, 1.1736482}, {-50, -10, -5.3292617, 1.9396926}, {5, -80, -0.0456368, 0.1703188}});
}

TEST(Projection, TheFarSideOfAGlobeLiesOutsideItsCircle) {
  MapPlane at = projectPoint(projection(kProjOrthographic, 0, 0), 120, 0); // c = 120 degrees
  EXPECT_NEAR(at.x, 2.0 - std::sin(120 * kRadians), 1e-12);
  EXPECT_NEAR(at.y, 0.0, 1e-12);
}

TEST(Projection, TheCentreAndItsAntipodeAreNumbers) {
  for (int code = kProjGnomonic; code <= kProjLambertAzimuthal; code++) {
    for (double lat : {-90.0, 0.0, 50.0, 90.0}) {
      MapPlane centre = projectPoint(projection(code, 30, lat), 30, lat);
      EXPECT_NEAR(std::hypot(centre.x, centre.y), 0.0, 1e-7);
      MapPlane far = projectPoint(projection(code, 30, lat), -150, -lat);
      EXPECT_TRUE(std::isfinite(far.x) && std::isfinite(far.y));
    }
  }
}

} // namespace
