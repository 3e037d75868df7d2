// Filled maps. Areas are those of the polygons that reach the device, counted in square degrees.
#include "map/map_shading.h"

#include <cmath>
#include <filesystem>
#include <sstream>

#include "core/pipeline.h"
#include "map/map_area.h"
#include "map/map_polygons.h"
#include "map/map_sphere.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

double twiceArea(const std::vector<double>& xy) {
  double sum = 0;
  for (std::size_t i = 0, n = xy.size() / 2; i < n; i++) {
    const std::size_t k = (i + 1) % n;
    sum += xy[2 * i] * xy[2 * k + 1] - xy[2 * k] * xy[2 * i + 1];
  }
  return sum;
}

TEST(MapRings, AreCutAtLimits) {
  MapRing square, part;
  for (float v : {0.0F, 10.0F}) square.add(v, 0);
  for (float v : {10.0F, 0.0F}) square.add(v, 10);
  EXPECT_DOUBLE_EQ(ringArea(square), 200);
  cutRing(square, RingAxis::kX, 4, true, part);
  EXPECT_DOUBLE_EQ(ringArea(part), 120);
  cutRing(square, RingAxis::kY, 4, false, part);
  EXPECT_DOUBLE_EQ(ringArea(part), 80);
  cutRing(square, RingAxis::kX, 11, true, part);
  EXPECT_EQ(part.n, 0);
  EXPECT_TRUE(ringHolds(square, 5, 5));
  EXPECT_FALSE(ringHolds(square, 15, 5));
  reverseRing(square);
  EXPECT_DOUBLE_EQ(ringArea(square), -200);
}

void addSquare(RingArea& area, float x, float y, float size) {
  MapRing ring;
  ring.add(x, y);
  ring.add(x + size, y);
  ring.add(x + size, y + size);
  ring.add(x, y + size);
  addRing(area, ring);
}

// The bridges are level, there and back, and add no area.
TEST(MapRings, AreJoinedToOnePolygon) {
  RingArea area;
  area.enclosed = true;
  addSquare(area, 0, 0, 100);
  addSquare(area, 60, 20, 10);
  addSquare(area, 10, 15, 20);
  addSquare(area, 40, 22, 5);
  MapRing polygon;
  ASSERT_TRUE(joinRings(area, polygon));
  EXPECT_NEAR(ringArea(polygon), 2 * (100 * 100 + 100 + 400 + 25), 1e-3);
  EXPECT_FALSE(ringHolds(polygon, 65, 25));
  EXPECT_FALSE(ringHolds(polygon, 20, 20));
  EXPECT_FALSE(ringHolds(polygon, 42, 25));
  EXPECT_TRUE(ringHolds(polygon, 50, 24));
  EXPECT_TRUE(ringHolds(polygon, 5, 15.5F));
  EXPECT_TRUE(ringHolds(polygon, 99, 99));
  // Strokes that are not level: the sides of four squares, upwards and downwards, some cut by bridges.
  for (int i = 0; i < polygon.n; i++) {
    const int k = (i + 1) % polygon.n;
    const float dx = polygon.x[k] - polygon.x[i], dy = polygon.y[k] - polygon.y[i];
    EXPECT_TRUE(dx == 0 || dy == 0) << i;
  }
}

// Rings in the corners and at the sides of the one around them touch it.
TEST(MapRings, MayTouchTheRingAroundThem) {
  RingArea area;
  area.enclosed = true;
  addSquare(area, 0, 0, 100);
  for (float x : {0.0F, 40.0F, 90.0F}) {
    for (float y : {0.0F, 40.0F, 90.0F}) addSquare(area, x, y, 10);
  }
  MapRing polygon;
  ASSERT_TRUE(joinRings(area, polygon));
  for (float x = 2.5F; x < 100; x += 5) {
    for (float y = 2.5F; y < 100; y += 5) {
      const auto covered = [](float v) { return v < 10 || (v > 40 && v < 50) || v > 90; };
      EXPECT_EQ(ringHolds(polygon, x, y), !(covered(x) && covered(y))) << x << ' ' << y;
    }
  }
}

TEST(MapRings, NeedNoRingAroundThem) {
  RingArea area;
  addSquare(area, 10, 10, 20);
  addSquare(area, 15, 15, 5); // a lake
  addSquare(area, 50, 12, 10);
  MapRing polygon;
  ASSERT_TRUE(joinRings(area, polygon));
  EXPECT_TRUE(ringHolds(polygon, 12, 12));
  EXPECT_FALSE(ringHolds(polygon, 17, 17));
  EXPECT_TRUE(ringHolds(polygon, 55, 15));
  EXPECT_FALSE(ringHolds(polygon, 40, 15));
}

class MapShading : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    std::filesystem::create_directory("maps");
  }
  // Polygons of a low-resolution file; each has a tag behind its third point.
  struct Shape {
    int tag;
    std::vector<int> degrees;
  };
  static void writeLow(const std::string& name, const std::vector<Shape>& shapes) {
    std::ofstream out("maps/" + name, std::ios::binary);
    auto put = [&](int word) {
      for (int k = 0; k < 4; k++) out.put(static_cast<char>(static_cast<unsigned>(word) >> (8 * k)));
    };
    for (const Shape& shape : shapes) {
      for (std::size_t i = 0; i < shape.degrees.size(); i += 2) {
        put(1000 * (shape.degrees[i] + 180));
        put(1000 * (shape.degrees[i + 1] + 90));
        if (i == 0) put(-3000);
        if (i == 2) put(-2000);
        if (i == 4) put(shape.tag);
      }
    }
    put(-9000);
  }
  // A map of 5 units a degree.
  void openMap(const char* projection = "CYLI") {
    open();
    MAPDIR("maps");
    AXSLEN(1801, 901);
    AXSPOS(600, 1450);
    NOGRAF();
    PROJCT(projection);
    GRAFMP(-180, 180, 0, 60, -90, 90, 0, 30);
    SHDPAT(16);
  }
  // Areas of the filled polygons in square degrees; the plot is finished.
  std::vector<double> areas() {
    std::vector<double> found;
    for (const std::string& line : traced("fill")) {
      std::istringstream in(line);
      std::vector<double> values;
      for (double v; in >> v;) values.push_back(v);
      if (values.size() % 2 == 1) values.erase(values.begin()); // the number of points
      found.push_back(std::fabs(twiceArea(values)) / 2 / 25);
    }
    std::filesystem::remove("trace.txt");
    return found;
  }
  static std::vector<int> square(int x, int y, int size) {
    return {x, y, x + size, y, x + size, y + size, x, y + size, x, y};
  }
};

TEST_F(MapShading, ContinentsAreSelectedByTheirTag) {
  writeLow("map1.dat", {{-4003, square(10, 40, 20)}, {-4002, square(0, 0, 10)}, {-4008, square(12, 42, 5)}});
  const struct {
    const char* area;
    std::vector<double> expected;
  } cases[] = {{"ALL", {400, 100}}, {"EURO", {400}}, {"EURA", {400}}, {"AFRI", {100}}, {"LAKE", {25}}, {"NORT", {}}};
  for (const auto& c : cases) {
    openMap();
    SHDMAP(c.area);
    const std::vector<double> found = areas();
    ASSERT_EQ(found.size(), c.expected.size()) << c.area;
    for (std::size_t i = 0; i < found.size(); i++) EXPECT_NEAR(found[i], c.expected[i], 0.1) << c.area;
  }
}

TEST_F(MapShading, LandHasNoLakesAndTheSeaNoLand) {
  // Land and holes run opposite ways, so that areas as counted here subtract.
  writeLow("map1.dat", {{-4003, square(10, 40, 20)}});
  openMap();
  SHDMAP("SEA");
  const std::vector<double> sea = areas();
  ASSERT_EQ(sea.size(), 1U);
  EXPECT_NEAR(sea[0], 360 * 180 - 400, 1);
}

TEST_F(MapShading, PolygonsOfTooManyPointsAreLeftOut) {
  std::vector<int> many;
  for (int i = 0; i < 4001; i++) many.insert(many.end(), {i % 90, i % 45});
  writeLow("map1.dat", {{-4003, many}, {-4003, square(0, 0, 10)}});
  openMap();
  EXPECT_EQ(outputOf([] { SHDMAP("ALL"); }),
            " <<<< Warning 114: Internal error: Overflow of map coordinates in shdmap!\n");
  EXPECT_EQ(areas().size(), 1U);
}

TEST_F(MapShading, TheSeaHoldsOnlySoManyRings) {
  std::vector<Shape> shapes;
  for (int i = 0; i < 500; i++) shapes.push_back({-4003, square(i % 50, i / 50, 1)});
  writeLow("map1.dat", shapes); // and the edge of the map
  openMap();
  EXPECT_EQ(outputOf([] { SHDMAP("SEA"); }),
            " <<<< Warning 114: Internal error: Overflow of map coordinates in shdmap!\n");
}

// Two copies of 300 islands: each copy of the world is an area of its own. The map is 3 units a degree.
TEST_F(MapShading, TheSeaOfEachCopyIsItsOwn) {
  std::vector<Shape> shapes;
  for (int i = 0; i < 300; i++) shapes.push_back({-4003, square(-60 + i % 30, i / 30, 1)});
  writeLow("map1.dat", shapes);
  open();
  MAPDIR("maps");
  AXSLEN(1261, 541);
  AXSPOS(600, 1450);
  NOGRAF();
  GRAFMP(-90, 330, 0, 60, -90, 90, 0, 30);
  SHDPAT(16);
  EXPECT_EQ(outputOf([] { SHDMAP("SEA"); }), "");
  const std::vector<double> sea = areas(); // of 25 units a square degree: here there are 9
  ASSERT_EQ(sea.size(), 2U);
  EXPECT_NEAR((sea[0] + sea[1]) * 25 / 9, 420 * 180 - 600, 2);
}

TEST_F(MapShading, MessagesOfBadCalls) {
  openMap();
  EXPECT_EQ(outputOf([] { SHDMAP("MOON"); }), " <<<< Warning 2: Incorrect parameter in shdmap!   (MOON)\n");
  EXPECT_EQ(outputOf([] { SHDMAP("ALL"); }), " <<<< Warning 36: File error in shdmap!   (maps/map1.dat)\n");
  const int none = 0;
  EXPECT_EQ(outputOf([&] { SHDEUR(&none, &none, &none, 0); }),
            " <<<< Warning 2: Incorrect parameter in shdeur!   (0)\n");
  ENDGRF();
  EXPECT_EQ(outputOf([&] { SHDUSA(&none, &none, &none, 1); }), " <<<< Warning 3: Incorrect level in shdusa!   (1)\n");
}

TEST_F(MapShading, CountriesByTheirNumbers) {
  writeLow("map16.dat", {{-20000 - 4000 - 1, square(10, 40, 20)},
                         {-20000 - 4000 - 2, square(40, 40, 10)},
                         {-20000 - 1000 - 2, square(0, 0, 5)}});
  writeLow("map17.dat", {{-20000 - 7000 - 2, square(-100, 40, 6)}});
  openMap();
  const int numbers[] = {2, 99}, patterns[] = {16, 16}, colors[] = {50, 60};
  SHDEUR(numbers, patterns, colors, 2);
  SHDUSA(numbers, patterns, colors, 2);
  EXPECT_EQ(state()->color.currentColor, state()->color.foregroundColor);
  const std::vector<double> found = areas();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_NEAR(found[0], 100, 0.1);
  EXPECT_NEAR(found[1], 36, 0.1);
}

TEST_F(MapShading, ShorelinesOverTheDateLineAreFilledOnBothSides) {
  // A square from 170 to 190 degrees, its longitudes counted to 360.
  std::string bytes;
  for (int w : {1,         5, 1 | 15 << 8, 0, 0,         0,        0,         0,        0,         0, 0,
                170000000, 0, 190000000,   0, 190000000, 20000000, 170000000, 20000000, 170000000, 0}) {
    for (int k = 3; k >= 0; k--) bytes += static_cast<char>(static_cast<unsigned>(w) >> (8 * k));
  }
  std::ofstream("maps/gshhs_l.b", std::ios::binary) << bytes;
  openMap();
  SHDMAP("GSHL");
  const std::vector<double> found = areas();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_NEAR(found[0], 200, 0.1);
  EXPECT_NEAR(found[1], 200, 0.1);
  openMap();
  SHDMAP("LSEA");
  const std::vector<double> sea = areas();
  ASSERT_EQ(sea.size(), 1U);
  EXPECT_NEAR(sea[0], 360 * 180 - 400, 1);
}

double filledArea = 0;
int filledParts = 0;
void takePart(void*, MapRing& onPage) {
  filledArea += std::fabs(ringArea(onPage)) / 2;
  filledParts++;
}

class Horizon : public MapShading {
protected:
  // The visible part of a ring on an orthographic globe, in units of its squared radius.
  double visible(const std::vector<float>& degrees) {
    MapRing ring;
    for (std::size_t i = 0; i < degrees.size(); i += 2) ring.add(degrees[i], degrees[i + 1]);
    filledArea = 0;
    filledParts = 0;
    EXPECT_TRUE(cutAtHorizon(state(), ring, takePart, nullptr));
    return filledArea / 450 / 450;
  }
};

constexpr double kPi = 3.14159265358979;

// Globe around 0 E 0 N: the hemisphere between 0 and 180 E shows its half.
TEST_F(Horizon, CutsAtTheCircle) {
  openMap("ORTH");
  EXPECT_NEAR(visible({0, -90, 180, -90, 180, 90, 0, 90}), kPi / 2, 0.002);
  EXPECT_EQ(filledParts, 1);
}

// All but a lune behind the globe: the whole circle, in one part.
TEST_F(Horizon, ALargePolygonCoversTheCircle) {
  openMap("ORTH");
  EXPECT_NEAR(visible({-130, -89, 130, -89, 130, 89, -130, 89}), kPi, 0.01);
  EXPECT_EQ(filledParts, 1);
}

TEST_F(Horizon, HiddenPolygonsAreNotDrawn) {
  openMap("ORTH");
  EXPECT_EQ(visible({120, -10, 150, -10, 150, 10, 120, 10}), 0);
  EXPECT_EQ(filledParts, 0);
}

// The cap north of 60 degrees around the visible pole is a circle with a radius of sin 30.
TEST_F(Horizon, PolarCaps) {
  open();
  AXSLEN(901, 901);
  AXSPOS(600, 1450);
  NOGRAF();
  PROJCT("ORTH");
  MAPPOL(0, 90);
  GRAFMP(-180, 180, 0, 60, -90, 90, 0, 30);
  EXPECT_NEAR(visible({-180, 60, 180, 60, 180, 90, -180, 90}), kPi / 4, 0.001);
}

// A ring that leaves the circle twice comes in two parts.
TEST_F(Horizon, PartsOfOneRing) {
  openMap("ORTH");
  // A band along the meridian of 100 E, hidden, with two arms into view.
  visible({60, 20, 100, 20, 100, -20, 60, -20, 60, -30, 110, -30, 110, 30, 60, 30});
  EXPECT_EQ(filledParts, 2);
}

// Globes fill by lines inside the circle; none of them is lost at its edge.
TEST_F(Horizon, GlobesAreFilledByLines) {
  writeLow("map1.dat", {{-4003, {0, -90, 180, -90, 180, 90, 0, 90, 0, -90}}});
  openMap("ORTH");
  SHDMAP("ALL");
  flushPath(state());
  EXPECT_GT(state()->counters.vectorCount, 450);
}

// The polygons that are installed: all fit, and each has a tag.
TEST_F(MapShading, InstalledFilesAreWhole) {
  open();
  MAPDIR(SOURCE_DIR "/data/map");
  auto polygon = std::make_unique<LowPolygon>();
  for (int id : {1, 16, 17}) {
    LowPolygonReader reader{{openMapFile(state(), id)}};
    ASSERT_TRUE(reader.points.file);
    int count = 0;
    while (nextLowPolygon(state(), reader, *polygon)) {
      count++;
      EXPECT_GE(polygon->n, 4);
      EXPECT_EQ(polygon->lon[0], polygon->lon[polygon->n - 1]);
      EXPECT_EQ(polygon->lat[0], polygon->lat[polygon->n - 1]);
      EXPECT_TRUE(id == 1 ? polygon->keyword > 0 : polygon->country > 0) << id << ' ' << count;
      for (int i = 0; i < polygon->n; i++) {
        EXPECT_LE(std::fabs(polygon->lon[i]), 180.0F);
        EXPECT_LE(std::fabs(polygon->lat[i]), 90.0F);
      }
    }
    std::fclose(reader.points.file);
    EXPECT_GT(count, 50) << id;
  }
  EXPECT_EQ(state()->counters.warningCount, 0);
}

} // namespace
