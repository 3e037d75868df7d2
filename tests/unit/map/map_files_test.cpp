// Map files of all formats, written here byte by byte.
#include <cmath>
#include <filesystem>

#include "core/pipeline.h"
#include "map/map_copies.h"
#include "map/map_files.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class MapFiles : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    std::filesystem::create_directory("maps");
  }
  static std::string little(const std::vector<int>& words) {
    std::string bytes;
    for (int w : words) {
      for (int k = 0; k < 4; k++) bytes += static_cast<char>(static_cast<unsigned>(w) >> (8 * k));
    }
    return bytes;
  }
  static std::string big(const std::vector<int>& words) {
    std::string bytes;
    for (int w : words) {
      for (int k = 3; k >= 0; k--) bytes += static_cast<char>(static_cast<unsigned>(w) >> (8 * k));
    }
    return bytes;
  }
  static void write(const std::string& name, const std::string& bytes) {
    std::ofstream("maps/" + name, std::ios::binary) << bytes;
  }
  // A shoreline polygon of degrees.
  static std::string shore(int level, const std::vector<double>& degrees, int version = 15) {
    const int n = static_cast<int>(degrees.size() / 2);
    std::vector<int> words{1, n, level | version << 8, 0, 0, 0, 0, 0};
    if (version == 0) words.push_back(0);
    if (version >= 7) words.insert(words.end(), {0, 0, 0});
    for (double d : degrees) words.push_back(static_cast<int>(std::lround(d * 1e6)));
    return big(words);
  }
  // Degrees of the test maps are 5 units wide and high; the middle of the map is (1500, 1000).
  void openMap(float half = 180) {
    open();
    MAPDIR("maps");
    AXSLEN(static_cast<int>(10 * half) + 1, 901);
    AXSPOS(1500 - static_cast<int>(5 * half), 1450);
    NOGRAF();
    GRAFMP(-half, half, 0, 60, -90, 90, 0, 30);
  }
  static std::string at(int lon, int lat) {
    return std::to_string(1500 + 5 * lon) + ".00 " + std::to_string(1000 - 5 * lat) + ".00";
  }
  // The strokes of one plot of several.
  Lines strokes() {
    Lines found = traced("draw");
    std::filesystem::remove("trace.txt");
    return found;
  }
  int drawn() {
    flushPath(state());
    return state()->counters.vectorCount;
  }
  static int x(int lon) { return 1000 * (lon + 180); }
  static int y(int lat) { return 1000 * (lat + 90); }
};

// A square: its first point begins it, -2000 follows the second, longitudes follow the others at once.
TEST_F(MapFiles, LowResolutionPolygons) {
  write("map1.dat", little({x(0), y(0), -3000, x(10), y(0), -2000, x(10), y(10), x(0), y(10), x(0), y(0), -9000}));
  openMap();
  WORLD();
  EXPECT_EQ(traced("move"), (Lines{at(0, 0)}));
  EXPECT_EQ(traced("draw"), (Lines{at(10, 0), at(10, 10), at(0, 10), at(0, 0)}));
}

TEST_F(MapFiles, TheReaderKnowsItsStates) {
  // The first pen mode is a move; other codes change nothing.
  write("map3.dat", little({x(0), y(0), -50, x(1), y(0), -2000, x(2), y(0), -50, x(3), y(0), -3000, x(4), y(0), -9000,
                            x(9), y(9), -2000}));
  LowMapReader reader{std::fopen("maps/map3.dat", "rb")};
  MapPoint p;
  std::vector<int> moves, codes;
  while (nextLowPoint(reader, p)) {
    moves.push_back(p.move);
    codes.push_back(p.code);
    EXPECT_FLOAT_EQ(p.lon, static_cast<float>(moves.size() - 1));
  }
  std::fclose(reader.file);
  EXPECT_EQ(moves, (std::vector<int>{1, 0, 0, 1, 1}));
  EXPECT_EQ(codes, (std::vector<int>{-50, -2000, -50, -3000, -9000}));
}

TEST_F(MapFiles, EndsOfFilesAreFound) {
  MapPoint p;
  for (const std::vector<int>& words : {std::vector<int>{-9000, x(0), y(0), -3000}, {x(0), y(0)}, {x(0)}, {}}) {
    write("map3.dat", little(words));
    LowMapReader reader{std::fopen("maps/map3.dat", "rb")};
    EXPECT_FALSE(nextLowPoint(reader, p));
    std::fclose(reader.file);
  }
  // Without an end code the points of the last record still count, and a torn word does not.
  write("map3.dat", little({x(0), y(0), -3000, x(1), y(0), -2000}) + "ab");
  LowMapReader reader{std::fopen("maps/map3.dat", "rb")};
  EXPECT_TRUE(nextLowPoint(reader, p) && nextLowPoint(reader, p));
  EXPECT_FALSE(nextLowPoint(reader, p));
  std::fclose(reader.file);
}

TEST_F(MapFiles, BordersSkipACode) {
  write("map0.dat", little({-1000, x(0), y(0), -3000, -1000, x(10), y(5), -2000, -9000}));
  openMap();
  MAPOPT("BORDER", "WORLD");
  WORLD();
  EXPECT_EQ(traced("draw"), (Lines{at(10, 5)}));
}

TEST_F(MapFiles, BothDrawsCoastsAndBorders) {
  write("map1.dat", little({x(0), y(0), -3000, x(10), y(0), -2000, -9000}));
  write("map0.dat", little({x(0), y(0), -3000, x(10), y(5), -2000, -9000}));
  openMap();
  MAPOPT("BOTH", "WORLD");
  WORLD();
  EXPECT_EQ(traced("draw"), (Lines{at(10, 0), at(10, 5)}));
}

TEST_F(MapFiles, StrokesThatAreNoCoastAreLeftOut) {
  write("map1.dat",
        little({x(0), y(0), -3000, x(10), y(0), -2000, x(10), y(10), -4003, x(0), y(10), -5000, x(0), y(0), -9000}));
  openMap();
  WORLD();
  EXPECT_EQ(traced("draw"), (Lines{at(10, 0), at(10, 10), at(0, 0)}));
}

TEST_F(MapFiles, LevelsSelectLandAndLakes) {
  write("map1.dat", little({x(0), y(0), -3000, x(10), y(0), -2000, x(10), y(10), -4003, x(20), y(0), -3000, x(30), y(0),
                            -2000, x(30), y(10), -4008, -9000}));
  openMap();
  WORLD();
  EXPECT_EQ(drawn(), 4);
  MAPLEV("LAND");
  WORLD();
  EXPECT_EQ(drawn(), 6);
  MAPLEV("LAKE");
  WORLD();
  EXPECT_EQ(traced("draw").back(), at(30, 10));
}

TEST_F(MapFiles, WideMapsShowCopies) {
  write("map1.dat", little({x(-10), y(0), -3000, x(10), y(0), -2000, -9000}));
  openMap(180);
  EXPECT_EQ(mapCopies(state()).count, 1);
  WORLD();
  EXPECT_EQ(drawn(), 1);
  QUIFIN();
  openMap(200);
  EXPECT_EQ(mapCopies(state()).count, 3);
  QUIFIN();
  openMap(280);
  ENDGRF();
  AXSLEN(1081, 541);
  GRAFMP(-540, 540, 0, 60, -90, 90, 0, 30);
  WORLD();
  EXPECT_EQ(drawn(), 3);
}

TEST_F(MapFiles, LatitudesAreMirroredBeyondThePoles) {
  open();
  NOGRAF();
  GRAFMP(-180, 180, 0, 60, -180, 180, 0, 30);
  const MapCopies copies = mapCopies(state());
  ASSERT_EQ(copies.count, 3);
  EXPECT_EQ(copies.items[0].factor, -1);
  EXPECT_EQ(copies.items[0].offset, -180);
  EXPECT_EQ(copies.items[1].offset, 180);
  EXPECT_EQ(copies.items[2].factor, 1);
}

TEST_F(MapFiles, CurvedMapsHaveOneCopy) {
  open();
  NOGRAF();
  PROJCT("CONF");
  GRAFMP(-300, 300, 0, 60, 10, 60, 10, 30);
  EXPECT_EQ(mapCopies(state()).count, 1);
}

TEST_F(MapFiles, WorldMapsLeaveOutWhatLiesBesideThem) {
  write("map1.dat",
        little({x(0), y(0), -3000, x(10), y(0), -2000, x(95), y(0), x(96), y(1), x(20), y(0), x(30), y(0), -9000}));
  open();
  MAPDIR("maps");
  NOGRAF();
  PROJCT("MOLL");
  GRAFMP(-90, 90, 0, 30, -90, 90, 0, 30);
  WORLD();
  EXPECT_EQ(drawn(), 2); // to 10 degrees, and from 20 to 30
}

TEST_F(MapFiles, ContinentsHaveFilesOfTheirOwn) {
  for (int id = 2; id <= 15; id++) {
    write("map" + std::to_string(id) + ".dat", little({x(id), y(0), -3000, x(id), y(10), -2000, -9000}));
  }
  const struct {
    const char *zone, *lines;
    std::vector<int> files;
  } cases[] = {{"ASIA", "COAST", {3}},
               {"ASIA", "ALL", {3}},
               {"ASIA", "POLI", {2}},
               {"AUST", "ALL", {4, 10}},
               {"EURO", "POLI", {11}},
               {"NORT", "ALL", {6, 12}},
               {"SOUT", "ALL", {7, 14}},
               {"AFRI", "ALL", {8, 13}},
               {"ANTA", "ALL", {9, 9}},
               {"ALL", "COAST", {3, 4, 5, 6, 7, 8, 9}},
               {"ALL", "POLI", {10, 11, 12, 13, 14, 15}}};
  for (const auto& c : cases) {
    openMap();
    MAP(c.zone, c.lines);
    Lines expected;
    for (int id : c.files) expected.push_back(at(id, 10));
    EXPECT_EQ(strokes(), expected) << c.zone << ' ' << c.lines;
  }
}

TEST_F(MapFiles, ShorelinesAreBrokenAtTheDateLine) {
  write("gshhs_l.b", shore(1, {170, 0, 179, 0, 181, 0, 189, 0}));
  openMap();
  MAPBAS("GSHL");
  WORLD();
  EXPECT_EQ(traced("draw"), (Lines{at(179, 0), at(-171, 0)}));
}

TEST_F(MapFiles, ShorelinesHaveLevelsAndVersions) {
  for (int version : {0, 4, 7, 15}) {
    write("gshhs_i.b", shore(1, {0, 0, 10, 0}, version) + shore(2, {20, 0, 30, 0}, version));
    openMap();
    MAPBAS("GSHI");
    MAPLEV("LAKE");
    WORLD();
    EXPECT_EQ(strokes(), (Lines{at(30, 0)})) << version;
  }
}

TEST_F(MapFiles, RiversStandInTheirOwnFile) {
  write("wdb_rivers_h.b", shore(1, {0, 0, 10, 0}) + shore(5, {0, 10, 10, 10}));
  openMap();
  MAPBAS("GSHH");
  MAPLEV("RIVERS");
  WORLD();
  EXPECT_EQ(traced("draw"), (Lines{at(10, 0), at(10, 10)}));
}

TEST_F(MapFiles, ReadErrors) {
  const std::string whole = shore(1, {0, 0, 10, 0, 12, 0});
  write("gshhs_f.b", whole.substr(0, whole.size() - 6));
  openMap();
  MAPBAS("GSHF");
  EXPECT_EQ(outputOf([] { WORLD(); }), " <<<< Warning 119: Read error in world!\n");
  MAPBAS("GSHL");
  EXPECT_EQ(outputOf([] { WORLD(); }), " <<<< Warning 36: File error in world!   (maps/gshhs_l.b)\n");
  MAPBAS("MAPF");
  EXPECT_EQ(outputOf([] { WORLD(); }), " <<<< Warning 118: No call to MAPFIL before in world!\n");
}

TEST_F(MapFiles, TextFiles) {
  write("own.txt", "# a line\n  0 0\n10,0\n10, 5\nword\n# another\n20 0\n30 5\n");
  openMap();
  MAPBAS("MAPF");
  MAPFIL("maps/own.txt", "MAPG");
  WORLD();
  EXPECT_EQ(traced("move"), (Lines{at(0, 0), at(20, 0)}));
  EXPECT_EQ(traced("draw"), (Lines{at(10, 0), at(10, 5), at(0, 0), at(30, 5)}));
}

TEST_F(MapFiles, LinesOfTextAreCut) {
  write("own.txt", "0 0\n" + std::string(140, ' ') + "10 0\n" + std::string(100, ' ') + "20 0");
  openMap();
  MAPBAS("MAPF");
  MAPFIL("maps/own.txt", "MAPG");
  WORLD();
  EXPECT_EQ(traced("draw"), (Lines{at(20, 0)})); // the blank line is (0, 0) again
}

TEST_F(MapFiles, UserFilesMayHoldShorelines) {
  write("own.b", shore(1, {0, 0, 10, 0}));
  openMap();
  MAPBAS("MAPF");
  MAPFIL("maps/own.b", "GSHHS");
  WORLD();
  EXPECT_EQ(traced("draw"), (Lines{at(10, 0)}));
}

} // namespace
