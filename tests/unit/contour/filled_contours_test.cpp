// Bands between contour levels: their areas, which are known, and their colours.
#include <cmath>
#include <limits>
#include <map>
#include <random>
#include <sstream>

#include "contour/band_polygon.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

double areaOf(const BandPolygon& part) {
  double sum = 0;
  for (int i = 0; i < part.n; i++) {
    const int k = (i + 1) % part.n;
    sum += static_cast<double>(part.x[i]) * part.y[k] - static_cast<double>(part.x[k]) * part.y[i];
  }
  return sum / 2;
}

CutCell cellOf(float a, float b, float c, float d) {
  const float center = static_cast<float>((static_cast<double>(a) + b + c + d) / 4);
  return {{{0, 0, 0, 0, a}, {1, 0, 1, 0, b}, {1, 1, 1, 1, c}, {0, 1, 0, 1, d}}, {-1, -1, 0.5F, 0.5F, center}};
}

double cutArea(const CutCell& cell, const Band& band) {
  double sum = 0;
  cell.cut(band, [&](const BandPolygon& part) { sum += std::fabs(areaOf(part)); });
  return sum;
}

// Value of the four triangles round the centre, from the definition: barycentric coordinates.
double valueAt(const CutCell& cell, double x, double y) {
  const double u = x - 0.5, v = y - 0.5, c = static_cast<double>(cell.center.z);
  const int side = v < 0 && std::fabs(u) <= -v  ? 0
                   : u > 0 && std::fabs(v) <= u ? 1
                   : v > 0 && std::fabs(u) <= v ? 2
                                                : 3;
  const double along[] = {u, v, -u, -v}, out[] = {-v, u, v, -u};
  const auto a = static_cast<double>(cell.corner[side].z), b = static_cast<double>(cell.corner[(side + 1) % 4].z);
  // On the ray from the centre: at the side it lies between the corners, t of the way.
  const double t = out[side] > 0 ? (along[side] / out[side] + 1) / 2 : 0.5;
  return c + 2 * out[side] * (a + t * (b - a) - c);
}

TEST(BandPolygons, HalfOfASlope) {
  const CutCell cell = cellOf(0, 1, 1, 0);
  EXPECT_NEAR(cutArea(cell, {0.25F, 0.75F}), 0.5, 1e-6);
  EXPECT_NEAR(cutArea(cell, {0.75F, 2}), 0.25, 1e-6);
  EXPECT_NEAR(cutArea(cell, {-1, 0.25F}), 0.25, 1e-6);
}

TEST(BandPolygons, TheSaddleIsCutOffAtItsHighCorners) {
  const CutCell cell = cellOf(1, 0, 1, 0); // the centre, 0.5, is low for 0.5
  int parts = 0;
  cell.cut({0.5F, 2}, [&](const BandPolygon& part) {
    parts++;
    EXPECT_NEAR(std::fabs(areaOf(part)), 0.25, 1e-6);
  });
  EXPECT_EQ(parts, 2);
  EXPECT_NEAR(cutArea(cell, {-1, 0.5F}), 0.5, 1e-6);
}

TEST(BandPolygons, RandomCellsAgainstSamples) {
  std::mt19937 random(11);
  std::uniform_real_distribution<float> value(0, 4);
  constexpr int kSamples = 120;
  for (int round = 0; round < 300; round++) {
    // Every third cell has its corners on levels.
    auto next = [&] { return round % 3 == 0 ? std::round(value(random)) : value(random); };
    const CutCell cell = cellOf(next(), next(), next(), next());
    double total = 0;
    for (int k = -1; k < 5; k++) {
      const Band band{static_cast<float>(k), static_cast<float>(k + 1)};
      int inside = 0;
      for (int i = 0; i < kSamples; i++) {
        for (int j = 0; j < kSamples; j++) {
          const double z = valueAt(cell, (i + 0.5) / kSamples, (j + 0.49) / kSamples);
          if (z > k && z <= k + 1) inside++;
        }
      }
      const double area = cutArea(cell, band);
      const bool flat = cell.corner[0].z == cell.corner[1].z && cell.corner[1].z == cell.corner[2].z &&
                        cell.corner[2].z == cell.corner[3].z;
      if (!flat) {
        EXPECT_NEAR(area, inside / double{kSamples * kSamples}, 0.03) << round << ' ' << k;
      }
      total += area;
    }
    EXPECT_NEAR(total, 1.0, 1e-5) << round;
  }
}

TEST(BandPolygons, TrianglesAddUp) {
  std::mt19937 random(5);
  std::uniform_real_distribution<float> value(0, 4);
  for (int round = 0; round < 300; round++) {
    auto next = [&] { return round % 3 == 0 ? std::round(value(random)) : value(random); };
    const GridNode corner[3] = {{1, 0, 0, 0, next()}, {2, 0, 2, 0, next()}, {3, 0, 0, 1, next()}};
    if (corner[0].z == corner[1].z && corner[1].z == corner[2].z) continue;
    double total = 0;
    for (int k = -1; k < 5; k++) {
      BandPolygon part;
      cutTriangle(corner, {static_cast<float>(k), static_cast<float>(k + 1)}, part);
      total += std::fabs(areaOf(part));
    }
    EXPECT_NEAR(total, 1.0, 1e-5) << round;
  }
}

// ---- On the page -----------------------------------------------------------------------------------------------

class FilledContours : public PlotTest {
protected:
  int n = 0, m = 0;
  std::vector<float> x, y, z;

  // 100 units to 1 on both axes.
  void openSystem() {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 1001);
    NOGRAF();
    GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  }
  template <class Function> void grid(int nx, int ny, Function f) {
    n = nx;
    m = ny;
    x.clear();
    y.clear();
    z.clear();
    for (int i = 0; i < n; i++) x.push_back(static_cast<float>(i * 10) / static_cast<float>(n - 1));
    for (int j = 0; j < m; j++) y.push_back(static_cast<float>(j * 10) / static_cast<float>(m - 1));
    for (float u : x)
      for (float v : y) z.push_back(static_cast<float>(f(u, v)));
  }
  void colors(std::vector<int> list) { CONCLR(list.data(), static_cast<int>(list.size())); }
  void shade(std::vector<float> levels) {
    CONSHD(x.data(), n, y.data(), m, z.data(), levels.data(), static_cast<int>(levels.size()));
  }

  // Filled areas in user units, by colour; the plot is finished.
  std::map<int, double> areas() {
    if (state()->level.plotLevel > 0) QUIFIN();
    std::map<int, double> found;
    int color = -1;
    for (const std::string& line : linesOf("trace.txt")) {
      std::istringstream text(line);
      std::string word;
      int count = 0;
      text >> word;
      if (word == "color") text >> std::hex >> color;
      text >> count;
      if (word != "fill") continue;
      std::vector<double> px(static_cast<std::size_t>(count)), py(px);
      for (std::size_t i = 0; i < px.size(); i++) text >> px[i] >> py[i];
      double sum = 0;
      for (std::size_t i = 0; i < px.size(); i++) {
        const std::size_t k = (i + 1) % px.size();
        sum += px[i] * py[k] - px[k] * py[i];
      }
      found[color] += std::fabs(sum) / 2 / 10000;
    }
    return found;
  }
};

using Areas = std::map<int, double>;
void expectAreas(const Areas& found, const Areas& wanted, double within = 0.01) {
  for (const auto& [color, area] : wanted) EXPECT_NEAR(found.count(color) ? found.at(color) : 0, area, within) << color;
  for (const auto& [color, area] : found) EXPECT_TRUE(wanted.count(color)) << color << ' ' << area;
}

TEST_F(FilledContours, BandsOfAPlane) {
  openSystem();
  grid(8, 5, [](float u, float) { return u; });
  colors({30, 70});
  shade({3, 7});
  expectAreas(areas(), {{0, 30}, {30, 40}, {70, 30}}); // below the first level: the background
}

TEST_F(FilledContours, DiscsOfACone) {
  openSystem();
  grid(81, 81, [](float u, float v) { return -std::hypot(u - 5, v - 5); });
  colors({20, 30, 40});
  shade({-4, -3, -1});
  const double pi = 3.14159265;
  expectAreas(areas(), {{0, 100 - 16 * pi}, {20, 7 * pi}, {30, 8 * pi}, {40, pi}}, 0.03);
}

TEST_F(FilledContours, OneLevelPaintsEveryCell) {
  openSystem();
  grid(5, 5, [](float u, float v) { return std::sin(u * 7 + v * v); });
  SHDMOD("UPPER", "COLOUR");
  colors({77});
  shade({0.1F});
  expectAreas(areas(), {{77, 100}}); // both bands have the one level for their upper one
}

TEST_F(FilledContours, AValueAtALevelBelongsBelow) {
  openSystem();
  grid(3, 3, [](float, float) { return 5; });
  colors({40, 50, 60});
  shade({4, 5, 6});
  expectAreas(areas(), {{40, 100}});
}

TEST_F(FilledContours, OpenBandsCanBeLeftOut) {
  for (auto [mode, wanted] : {std::pair<const char*, Areas>{"BOTH", {{0, 30}, {30, 40}, {70, 30}}},
                              {"UPPER", {{30, 40}, {70, 30}}},
                              {"LOWER", {{0, 30}, {30, 40}}},
                              {"NONE", {{30, 40}}}}) {
    std::filesystem::remove("trace.txt");
    openSystem();
    grid(4, 4, [](float u, float) { return u; });
    SHDMOD(mode, "CELL");
    colors({30, 70});
    shade({3, 7});
    expectAreas(areas(), wanted);
  }
}

TEST_F(FilledContours, RulesOfColours) {
  const std::pair<const char*, Areas> rules[] = {
      {"LOWER", {{0, 20}, {20, 30}, {50, 40}, {90, 10}}},
      {"MIDDLE", {{20, 20}, {50, 30}, {90, 50}}}, // positions 1.5 and 2.5 round up
      {"UPPER", {{20, 20}, {50, 30}, {90, 50}}}};
  for (const auto& [rule, wanted] : rules) {
    std::filesystem::remove("trace.txt");
    openSystem();
    grid(11, 4, [](float u, float) { return u; });
    SHDMOD(rule, "COLOR");
    colors({20, 50, 90});
    shade({2, 5, 9});
    expectAreas(areas(), wanted);
  }
}

TEST_F(FilledContours, LevelsNeedNoOrder) {
  openSystem();
  grid(11, 4, [](float u, float) { return u; });
  colors({90, 20, 50});
  shade({9, 2, 5});
  expectAreas(areas(), {{0, 20}, {20, 30}, {50, 40}, {90, 10}});
}

TEST_F(FilledContours, TheScaleRunsFromTheLeastLevelToTheGreatest) {
  openSystem();
  grid(11, 4, [](float u, float) { return u; });
  COLRAN(100, 200);
  shade({2, 6, 10 - 1e-3F});
  // 6 lies half way but for a hair: 100 + 101 * 0.5.
  const Areas found = areas();
  EXPECT_NEAR(found.at(100), 40, 0.01);
  EXPECT_NEAR(found.at(150), 40, 0.02);
}

TEST_F(FilledContours, TheScaleOfTheColourBarGoesFirst) {
  open();
  AXSPOS(500, 1500);
  AXSLEN(1001, 1001);
  NOGRAF();
  COLRAN(1, 100);
  GRAF3(0, 10, 0, 1, 0, 10, 0, 1, 0, 20, 0, 5);
  grid(11, 4, [](float u, float) { return u; });
  shade({1, 5});
  expectAreas(areas(), {{0, 10}, {6, 40}, {26, 50}}); // 1 + 5 z
}

TEST_F(FilledContours, TooFewColours) {
  openSystem();
  grid(11, 4, [](float u, float) { return u; });
  COLRAN(100, 200);
  colors({30});
  const std::string output = outputOf([&] { shade({2, 6}); });
  EXPECT_EQ(output, " <<<< Warning 162: More contour levels as defined colours in conshd!\n");
  expectAreas(areas(), {{0, 20}, {30, 40}, {200, 40}});
}

TEST_F(FilledContours, CountsOfColours) {
  open();
  std::vector<int> list(257, 5);
  EXPECT_EQ(outputOf([&] { CONCLR(list.data(), 256); }), "");
  EXPECT_EQ(state()->bands.bandColorCount, 256);
  EXPECT_EQ(outputOf([&] { CONCLR(list.data(), 257); }), " <<<< Warning 2: Incorrect parameter in conclr!   (257)\n");
  EXPECT_EQ(outputOf([&] { CONCLR(list.data(), -1); }), " <<<< Warning 2: Incorrect parameter in conclr!   (-1)\n");
  EXPECT_EQ(state()->bands.bandColorCount, 256);
  RESET("CONCLR");
  EXPECT_EQ(state()->bands.bandColorCount, 0);
}

TEST_F(FilledContours, NoNumbersLeaveHoles) {
  openSystem();
  grid(11, 11, [](float u, float v) { return u == 5 && v == 5 ? std::numeric_limits<float>::quiet_NaN() : u; });
  colors({30});
  shade({20});
  expectAreas(areas(), {{0, 96}});
}

TEST_F(FilledContours, WildNumbersDoNoHarm) {
  const float endless = INFINITY, large = 3e38F;
  openSystem();
  grid(11, 11, [](float u, float v) { return u * v; });
  colors({-7, 1 << 30, 300});
  shade({endless, NAN, -endless, large, 5});
  z[17] = large;
  z[33] = -large;
  x[3] = large;
  y[5] = NAN;
  shade({-large, 0, large});
  SHDMOD("POLY", "CONT");
  shade({-large, 0, large, endless, NAN});
  RESET("CONCLR");
  shade({-endless, endless});
}

TEST_F(FilledContours, CellsOfOneBandAreJoined) {
  openSystem();
  grid(11, 101, [](float, float) { return 1; });
  colors({30});
  shade({0});
  EXPECT_EQ(traced("fill").size(), 10U);
}

TEST_F(FilledContours, ClosedPolygons) {
  openSystem();
  grid(81, 81, [](float u, float v) { return -std::hypot(u - 5, v - 5); });
  SHDMOD("POLY", "CONTUR");
  colors({20, 30, 40});
  shade({-6, -4, -1}); // the first one crosses the border
  expectAreas(areas(), {{30, 16 * 3.14159265}, {40, 3.14159265}}, 0.05);
}

TEST_F(FilledContours, CurvilinearGrid) {
  openSystem();
  // Half of a ring between the radii 2 and 4 round (5, 5), by its angle: z is the angle in degrees.
  constexpr int kRadii = 5, kAngles = 181;
  std::vector<float> px, py, pz;
  for (int i = 0; i < kRadii; i++) {
    for (int j = 0; j < kAngles; j++) {
      const double r = 2 + 0.5 * i, a = j * 3.14159265 / 180;
      px.push_back(static_cast<float>(5 + r * std::cos(a)));
      py.push_back(static_cast<float>(5 + r * std::sin(a)));
      pz.push_back(static_cast<float>(j));
    }
  }
  colors({30, 70});
  const float levels[] = {59.5F, 119.5F};
  CONSHD2(px.data(), py.data(), pz.data(), kRadii, kAngles, levels, 2);
  const double whole = 3.14159265 * (16 - 4) / 2;
  expectAreas(areas(), {{0, whole * 59.5 / 180}, {30, whole * 60 / 180}, {70, whole * 60.5 / 180}}, 0.01);
}

TEST_F(FilledContours, Triangles) {
  openSystem();
  const float px[] = {0, 10, 10, 0}, py[] = {0, 0, 10, 10}, pz[] = {0, 10, 10, 0};
  const int i1[] = {1, 1}, i2[] = {2, 3}, i3[] = {3, 4};
  colors({30, 70});
  const float levels[] = {3, 7};
  CONFLL(px, py, pz, 4, i1, i2, i3, 2, levels, 2);
  expectAreas(areas(), {{0, 30}, {30, 40}, {70, 30}});
}

TEST_F(FilledContours, NumbersOfNoPointAreLeftOut) {
  openSystem();
  const float px[] = {0, 10, 10, 0}, py[] = {0, 0, 10, 10}, pz[] = {0, 10, 10, 0};
  const int i1[] = {1, 1}, i2[] = {2, 5}, i3[] = {3, 4};
  colors({30});
  const float level = -1;
  EXPECT_EQ(outputOf([&] { CONFLL(px, py, pz, 4, i1, i2, i3, 2, &level, 1); }),
            " <<<< Warning 2: Incorrect parameter in confll!   (5)\n");
  expectAreas(areas(), {{30, 50}});
}

TEST_F(FilledContours, LogarithmsMustExist) {
  open();
  AXSSCL("LOG", "X");
  NOGRAF();
  GRAF(0, 1, 0, 1, 0, 10, 0, 1);
  grid(3, 3, [](float, float) { return 1; });
  EXPECT_EQ(outputOf([&] { shade({0}); }), " <<<< Warning 27: Non positive values for log scaling in conshd!\n");
  EXPECT_TRUE(traced("fill").empty());
}

TEST_F(FilledContours, NothingElseIsLeftChanged) {
  openSystem();
  grid(3, 3, [](float u, float) { return u; });
  SHDPAT(4);
  SETCLR(17);
  shade({3, 7});
  EXPECT_EQ(state()->color.currentColor, 17);
  EXPECT_EQ(state()->shading.shadePattern, 4);
  EXPECT_EQ(state()->legendState.drawnCount, 2);
  EXPECT_TRUE(state()->legendState.drawn[0].shaded);
}

} // namespace
