#include "core/colors.h"

#include <algorithm>
#include <cmath>

#include "device/sink.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

class Colors : public PlotTest {};

TEST_F(Colors, DirectForm) {
  open();
  SETRGB(1, 0, 0);
  EXPECT_EQ(GETCLR(), 0x010000FF);
  EXPECT_EQ(INTRGB(0, 0.5F, 1), 0x01FF8000);
  EXPECT_EQ(outputOf([] { SETRGB(1.01F, 0, 0); }), " <<<< Warning 2: Incorrect parameter in setrgb!\n");
  EXPECT_EQ(GETCLR(), 0x010000FF);
}

TEST_F(Colors, RainbowStops) {
  open();
  const int* table = state()->color.colorTable;
  EXPECT_EQ(table[1], 0x220044);
  EXPECT_EQ(table[128], 0x00FF52);
  EXPECT_EQ(table[254], 0xFF0000);
  // Half way from (0,132,255) at 64 to (0,192,255) at 80.
  EXPECT_EQ(table[72], 0x00A2FF);
}

TEST_F(Colors, WhitePaperTurnsTheTable) {
  open(); // PDF: the background is white
  EXPECT_EQ(state()->color.colorTable[0], 0xFFFFFF);
  EXPECT_EQ(state()->color.colorTable[255], 0x000000);
  EXPECT_EQ(GETCLR(), 255);
  COLOR("WHIT");
  EXPECT_EQ(GETCLR(), 0x01000000) << "white and black trade places on white paper";
}

TEST_F(Colors, GreyOnBlackPage) {
  SCRMOD("ERAS");
  open("PSCL");
  EXPECT_EQ(state()->color.colorTable[0], 0x000000);
  SETVLT("GREY");
  COLOR("BLAC");
  EXPECT_EQ(GETCLR(), 0x01FFFFFF) << "black stays visible on a black page";
  EXPECT_EQ(state()->color.colorTable[100], 0x646464);
}

TEST_F(Colors, PostscriptOfTheFirstKindIsReverseGrey) {
  open("POST");
  EXPECT_STREQ(GETVLT(), "RGREY");
  EXPECT_EQ(GETCLR(), 255);
  EXPECT_EQ(state()->color.colorTable[255], 0x000000);
}

TEST_F(Colors, Temperature) {
  open("PSCL");
  SETVLT("TEMP");
  EXPECT_EQ(state()->color.colorTable[100], 0xAA0000) << "170";
  EXPECT_EQ(state()->color.colorTable[200], 0xFF9727) << "255, 151.1, 39.2";
}

TEST_F(Colors, NearestEntry) {
  open("PSCL");
  EXPECT_EQ(INDRGB(1, 1, 1), 255);
  EXPECT_EQ(INDRGB(0, 0, 0), 0);
  SETVLT("SMAL");
  EXPECT_EQ(INDRGB(1, 1, 1), 1);
  EXPECT_EQ(outputOf([] { EXPECT_EQ(INDRGB(2, 0, 0), -1); }), " <<<< Warning 2: Incorrect parameter in indrgb!\n");
}

TEST_F(Colors, ReverseScreen) {
  open("PSCL");
  SETVLT("SMAL");
  REVSCR();
  EXPECT_EQ(state()->color.colorTable[0], 0xFFFFFF);
  EXPECT_EQ(state()->color.colorTable[1], 0x000000);
}

TEST_F(Colors, HalfWayToTheBackground) {
  open(); // black on white
  COLOR("FORE");
  COLOR("HALF");
  EXPECT_EQ(GETCLR(), 0x017F7F7F);
}

TEST_F(Colors, EntriesAndReaders) {
  open();
  SETIND(20, 1, 0.5F, 0);
  float r = 0, g = 0, b = 0;
  GETIND(20, &r, &g, &b);
  EXPECT_FLOAT_EQ(r, 1);
  EXPECT_FLOAT_EQ(g, 128.0F / 255.0F);
  GETIND(20 + 256, &r, &g, &b);
  EXPECT_FLOAT_EQ(r, 1) << "an index counts modulo 256";
  EXPECT_EQ(outputOf([] { SETIND(256, 0, 0, 0); }), " <<<< Warning 2: Incorrect parameter in setind!   (256)\n");
}

TEST_F(Colors, UserTableSurvivesOneQuiini) {
  float r[] = {0.2F}, g[] = {0.4F}, b[] = {0.6F};
  METAFL("PSCL");
  MYVLT(r, g, b, 1);
  outputOf([] { QUIINI(); });
  EXPECT_EQ(state()->color.colorTable[0], 0x336699);
  outputOf([] { QUIFIN(); });
  outputOf([] { QUIINI(); });
  EXPECT_EQ(state()->color.colorTable[0], 0x000000);
  outputOf([] { QUIFIN(); });
}

struct HsvCase {
  float h, s, v, r, g, b;
};

TEST_F(Colors, HueSaturationValue) {
  const HsvCase cases[] = {{0, 1, 1, 1, 0, 0},
                           {60, 1, 1, 1, 1, 0},
                           {120, 1, 1, 0, 1, 0},
                           {180, 1, 1, 0, 1, 1},
                           {240, 1, 1, 0, 0, 1},
                           {300, 1, 1, 1, 0, 1},
                           {360, 1, 1, 1, 0, 0},
                           {30, 1, 1, 1, 0.5F, 0},
                           {210, 0.5F, 0.8F, 0.4F, 0.6F, 0.8F},
                           {77, 0, 0.3F, 0.3F, 0.3F, 0.3F}};
  for (const HsvCase& c : cases) {
    float r = -1, g = -1, b = -1, h = -1, s = -1, v = -1;
    HSVRGB(c.h, c.s, c.v, &r, &g, &b);
    EXPECT_NEAR(r, c.r, 1e-5) << c.h;
    EXPECT_NEAR(g, c.g, 1e-5) << c.h;
    EXPECT_NEAR(b, c.b, 1e-5) << c.h;
    RGBHSV(c.r, c.g, c.b, &h, &s, &v);
    EXPECT_NEAR(v, c.v, 1e-5);
    EXPECT_NEAR(s, c.s, 1e-5);
    if (c.s > 0) {
      EXPECT_NEAR(std::fmod(h, 360.0F), std::fmod(c.h, 360.0F), 1e-3);
    }
  }
}

constexpr const char* kTables[] = {"SMAL", "RAIN", "SPEC", "GREY", "RRAI", "RSPE", "RGRE", "VGA", "TEMP"};

int shown(const PlotState* s, int color) {
  int r = 0, g = 0, b = 0;
  colorComponents(s, color, r, g, b);
  return r << 16 | g << 8 | b;
}

struct GroundCase {
  int device, depth;
};

// On white paper the foreground is black and the background white, whatever the table. The page of an indexed raster
// is entry 0.
TEST_F(Colors, GroundOfPaper) {
  const GroundCase papers[] = {{501, 24}, {502, 24}, {503, 24}, {504, 24}, {511, 24}, {211, 24}, {221, 24}, {231, 24},
                               {801, 24}, {802, 24}, {601, 8},  {604, 24}, {607, 8},  {80, 24},  {72, 8}};
  open();
  PlotState* s = state();
  const int device = s->deviceSetup.deviceNumber;
  for (const GroundCase& paper : papers) {
    s->colorState.backgroundMode = kBackgroundReverse;
    for (int kind = kTableSmall; kind <= kTableTemperature; kind++) {
      s->device.colourDepth = paper.depth;
      s->deviceSetup.deviceNumber = paper.device;
      loadColorTable(s, kind);
      int page = paper.depth == 8 ? s->color.colorTable[0] : 0xFFFFFF;
      EXPECT_EQ(shown(s, s->color.backgroundColor), page) << paper.device << " " << kTables[kind];
      EXPECT_EQ(shown(s, s->color.foregroundColor), page ^ 0xFFFFFF) << paper.device << " " << kTables[kind];
      EXPECT_EQ(s->color.currentColor, s->color.foregroundColor);
    }
  }
  s->deviceSetup.deviceNumber = device;
}

// On a screen that is not reversed the foreground stands out against the background, light on dark or dark on light.
TEST_F(Colors, GroundOfScreens) {
  const GroundCase screens[] = {{80, 24}, {72, 8}, {601, 8}, {604, 24}, {502, 24}, {511, 24}, {801, 24}};
  open();
  PlotState* s = state();
  s->colorState.backgroundMode = kBackgroundErase;
  for (const GroundCase& screen : screens) {
    for (int kind = kTableSmall; kind <= kTableTemperature; kind++) {
      s->device.colourDepth = screen.depth;
      s->deviceSetup.deviceNumber = screen.device;
      loadColorTable(s, kind);
      int fore = shown(s, s->color.foregroundColor), back = shown(s, s->color.backgroundColor);
      EXPECT_EQ(fore ^ back, 0xFFFFFF) << screen.device << " " << kTables[kind];
      bool reversedTable = kind >= kTableReverseRain && kind <= kTableReverseGrey;
      EXPECT_EQ(back, reversedTable && screen.depth == 8 ? 0xFFFFFF : 0x000000)
          << screen.device << " " << kTables[kind];
    }
  }
  s->deviceSetup.deviceNumber = 511;
}

TEST_F(Colors, TableFiles) {
  open("PSCL");
  SETVLT("VGA");
  SETVLT("RAIN");
  SETIND(77, 0.2F, 0.4F, 0.6F);
  std::vector<int> table(state()->color.colorTable, state()->color.colorTable + 256);
  VLTFIL("table.txt", "SAVE");
  VLTFIL("table.txt", "SAVE"); // a new version, as for plot files
  auto lines = linesOf("table.txt");
  ASSERT_EQ(lines.size(), 256U);
  EXPECT_EQ(lines[77], "  0.200000  0.400000  0.600000");
  EXPECT_TRUE(std::filesystem::exists("table_1.txt"));
  SETVLT("GREY");
  VLTFIL("table.txt", "LOAD");
  EXPECT_TRUE(std::equal(table.begin(), table.end(), state()->color.colorTable));
  EXPECT_EQ(outputOf([] { VLTFIL("missing.txt", "LOAD"); }),
            " <<<< Warning 36: File error in vltfil!   (missing.txt)\n");
  std::ofstream("bad.txt") << "0.5 0.5 0.5\nword\n2 0 0\n1,1,1\n";
  EXPECT_EQ(outputOf([] { VLTFIL("bad.txt", "LOAD"); }), " <<<< Warning 2: Incorrect parameter in setind!\n");
  EXPECT_EQ(state()->color.colorTable[0], 0x808080);
  EXPECT_EQ(state()->color.colorTable[3], 0xFFFFFF);
  EXPECT_STREQ(state()->color.tableFile, "bad.txt");
}

TEST_F(Colors, IndicesCountModulo256) {
  open("PSCL");
  SETCLR(300);
  float r = 0, g = 0, b = 0, r2 = 1, g2 = 1, b2 = 1;
  GETRGB(&r, &g, &b);
  GETIND(44, &r2, &g2, &b2);
  EXPECT_EQ(r, r2);
  EXPECT_EQ(g, g2);
  EXPECT_EQ(b, b2);
  EXPECT_EQ(GETCLR(), 300);
}

} // namespace
