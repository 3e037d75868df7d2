#include <algorithm>
#include <cstring>

#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class Legend : public PlotTest {
protected:
  char buffer[80 * 256] = {};

  // The system spans x 500 to 1500 and y 500 to 1500 of the page.
  void openSystem() {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 1001);
    NOGRAF();
    GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  }
  void drawCurves(int n) {
    float x[] = {0, 1}, y[] = {0, 1};
    for (int i = 0; i < n; i++) CURVE(x, y, 2);
  }
  void fill(int lines) {
    LEGINI(buffer, lines, 4);
    for (int i = 1; i <= lines; i++) LEGLIN(buffer, "abcd", i);
  }
  // Width of the box of `columns` columns of the text "abcd", height 36, default sizes and a frame of one unit.
  static int widthOf(int columns) { return columns * (4 * 36 + 36 + NLMESS("abcd")) + (columns - 1) * 72 + 36 + 2; }
  // Height of rows at 1.5 * 36, with a title 36 above them.
  static int heightOf(int rows, bool title) { return (title ? 72 : 0) + rows * 54 - 18 + 36 + 2; }
};

TEST_F(Legend, Buffer) {
  open();
  LEGINI(buffer, 2, 5);
  EXPECT_EQ(std::memcmp(buffer, "\0         ", 10), 0);
  LEGLIN(buffer, "two", 2);
  LEGLIN(buffer, "first", 1);
  EXPECT_EQ(std::string(buffer, 10), "firsttwo  ");
  EXPECT_EQ(outputOf([&] { LEGLIN(buffer, "longer", 1); }),
            " <<<< Warning 16: Too long string for legend line in leglin!\n");
  EXPECT_EQ(outputOf([&] { LEGLIN(buffer, "x", 3); }), " <<<< Warning 2: Incorrect parameter in leglin!   (3)\n");
  EXPECT_EQ(outputOf([&] { LEGLIN(buffer, "x", 0); }), " <<<< Warning 2: Incorrect parameter in leglin!   (0)\n");
  EXPECT_EQ(std::string(buffer, 10), "firsttwo  ");
}

TEST_F(Legend, LimitsOfTheBuffer) {
  open();
  EXPECT_EQ(outputOf([&] { LEGINI(buffer, 81, 1); }), " <<<< Warning 2: Incorrect parameter in legini!   (81)\n");
  EXPECT_EQ(outputOf([&] { LEGINI(buffer, 1, 257); }), " <<<< Warning 2: Incorrect parameter in legini!   (257)\n");
  EXPECT_EQ(outputOf([&] { LEGINI(buffer, 80, 256); }), "");
}

TEST_F(Legend, SettersNeedTheBuffer) {
  openSystem();
  auto missing = [](const char* name) {
    return std::string(" <<<< Warning 15: No call to legini before in ") + name + "!\n";
  };
  EXPECT_EQ(outputOf([&] { LEGPOS(1, 1); }), missing("legpos"));
  EXPECT_EQ(outputOf([&] { LEGTIT("x"); }), missing("legtit"));
  EXPECT_EQ(outputOf([&] { LEGVAL(1, "PATT"); }), missing("legval"));
  EXPECT_EQ(outputOf([&] { LEGOPT(1, 1, 1); }), missing("legopt"));
  EXPECT_EQ(outputOf([&] { LEGTBL(1, "VERT"); }), missing("legtbl"));
  EXPECT_EQ(outputOf([&] { LEGSEL(nullptr, -1); }), missing("legsel"));
  EXPECT_EQ(outputOf([&] { LEGCLR(); }), missing("legclr"));
  EXPECT_EQ(outputOf([&] { LEGBGD(1); }), missing("legbgd"));
  EXPECT_EQ(outputOf([&] { LEGPAT(0, 1, -1, -1, -1, 1); }), missing("legpat"));
  EXPECT_EQ(outputOf([&] { LEGEND(buffer, 1); }), missing("legend"));
  EXPECT_EQ(outputOf([&] { NXLEGN(buffer); }), missing("nxlegn"));
  EXPECT_EQ(outputOf([&] { LEGTYP("TABL"); }), "");
}

TEST_F(Legend, TypeComesBeforeTheBuffer) {
  openSystem();
  LEGTYP("HORI");
  fill(2);
  EXPECT_EQ(outputOf([&] { LEGTYP("VERT"); }), " <<<< Warning 182: legtyp must be called before legini in legtyp!\n");
  EXPECT_EQ(state()->legend.legendType, kLegendHorizontal);
  ENDGRF();
  EXPECT_EQ(outputOf([&] { LEGTYP("VERT"); }), "");
}

TEST_F(Legend, SecondBufferResetsTheSettings) {
  openSystem();
  LEGTYP("TABL");
  fill(1);
  LEGTIT("");
  LEGVAL(9, "PATT");
  LEGPOS(1, 1);
  LEGCLR();
  fill(1);
  EXPECT_STREQ(state()->legend.legendTitle, "Legende");
  EXPECT_EQ(state()->legend.legendPatternLength, 4.0F);
  EXPECT_TRUE(state()->legend.legendAutoPosition);
  EXPECT_FALSE(state()->legend.legendColorFromCurve);
  EXPECT_EQ(state()->legend.legendType, kLegendTable);
}

TEST_F(Legend, SizesOfTheTypes) {
  open();
  fill(5);
  LEGTIT("");
  EXPECT_EQ(NXLEGN(buffer), widthOf(1));
  EXPECT_EQ(NYLEGN(buffer), heightOf(5, false));
  LEGTIT("x");
  EXPECT_EQ(NYLEGN(buffer), heightOf(5, true));
  FRAME(4);
  EXPECT_EQ(NXLEGN(buffer), widthOf(1) + 6);
  FRAME(0);
  EXPECT_EQ(NYLEGN(buffer), heightOf(5, true) - 2);
  FRAME(1);
  int table[] = {2, 4, 5};
  LEGSEL(table, 3);
  EXPECT_EQ(NYLEGN(buffer), heightOf(3, true));
  LEGSEL(table, -1);
  EXPECT_EQ(NYLEGN(buffer), heightOf(5, true));
}

TEST_F(Legend, SizesOfRowsAndTables) {
  openSystem();
  LEGTYP("HORI");
  fill(3);
  LEGTIT("");
  EXPECT_EQ(NXLEGN(buffer), widthOf(3));
  EXPECT_EQ(NYLEGN(buffer), heightOf(1, false));
  ENDGRF();
  LEGTYP("TABL");
  fill(5);
  LEGTIT("");
  EXPECT_EQ(NXLEGN(buffer), widthOf(2)); // three rows: 3 + 2
  EXPECT_EQ(NYLEGN(buffer), heightOf(3, false));
  LEGTBL(4, "HORI"); // four columns: 4 + 1
  EXPECT_EQ(NXLEGN(buffer), widthOf(4));
  EXPECT_EQ(NYLEGN(buffer), heightOf(2, false));
  LEGTBL(2147483647, "HORI");
  EXPECT_EQ(NXLEGN(buffer), widthOf(5));
}

TEST_F(Legend, AbsoluteSizes) {
  open();
  fill(1);
  LEGTIT("");
  LEGVAL(-7, "MARG");
  LEGVAL(-11, "DIST");
  LEGVAL(2, "PATT");
  EXPECT_EQ(NXLEGN(buffer), 72 + 11 + NLMESS("abcd") + 14 + 2);
  LEGVAL(0, "PATT");
  EXPECT_EQ(NXLEGN(buffer), NLMESS("abcd") + 14 + 2);
}

TEST_F(Legend, WideTitleMakesTheBox) {
  open();
  fill(1);
  LEGTIT("A title that is much wider than the line");
  EXPECT_EQ(NXLEGN(buffer), NLMESS("A title that is much wider than the line") + 36 + 2);
}

TEST_F(Legend, MoreRowsByControlCharacter) {
  open();
  LEGINI(buffer, 2, 9);
  LEGTIT("");
  LEGLIN(buffer, "abcd/ab/a", 1);
  LEGLIN(buffer, "ab", 2);
  EXPECT_EQ(NYLEGN(buffer), heightOf(2, false));
  MIXLEG();
  EXPECT_EQ(NYLEGN(buffer), heightOf(4, false));
  EXPECT_EQ(NXLEGN(buffer), widthOf(1));
}

// Upper left corner of the frame, of each of the ten places.
TEST_F(Legend, Corners) {
  openSystem();
  drawCurves(1);
  fill(1);
  LEGTIT("");
  int w = NXLEGN(buffer), h = NYLEGN(buffer);
  for (int corner = 1; corner <= 10; corner++) LEGEND(buffer, corner);
  LEGPOS(77, 99);
  LEGEND(buffer, 99);
  const int x[] = {
      18, 2968 - 18 - w, 2968 - 18 - w, 18, 518, 1500 - 18 - w + 2, 1500 - 18 - w + 2, 518, 18, 2968 - 18 - w, 77};
  const int y[] = {2098 - 18 - h, 2098 - 18 - h, 18,           18, 1500 - 18 - h + 2, 1500 - 18 - h + 2, 518,
                   518,           1000 - h / 2,  1000 - h / 2, 99};
  int pageWidth = state()->geometry.pageWidth, pageHeight = state()->geometry.pageHeight;
  Lines moves = traced("move");
  for (int i = 0; i < 11; i++) {
    int atX = x[i] + (x[i] > 2000 ? pageWidth - 2968 : 0), atY = y[i] + (y[i] > 1900 ? pageHeight - 2098 : 0);
    std::string wanted = std::to_string(atX) + ".00 " + std::to_string(atY) + ".00";
    EXPECT_NE(std::find(moves.begin(), moves.end(), wanted), moves.end()) << i + 1 << " " << wanted;
  }
}

TEST_F(Legend, CornerIsChecked) {
  openSystem();
  drawCurves(1);
  fill(1);
  EXPECT_EQ(outputOf([&] { LEGEND(buffer, 11); }), " <<<< Warning 2: Incorrect parameter in legend!   (11)\n");
  EXPECT_EQ(outputOf([&] { LEGEND(buffer, 0); }), " <<<< Warning 2: Incorrect parameter in legend!   (0)\n");
}

// The frame stands at 77, 99; inside it a margin of 18; the sample 144 long at half of the height 36.
TEST_F(Legend, Samples) {
  openSystem();
  INCMRK(1);
  MARKER(16);
  drawCurves(1);
  fill(1);
  LEGTIT("");
  LEGPOS(77, 99);
  LEGEND(buffer, 1);
  Lines moves = traced("move"), draws = traced("draw");
  EXPECT_NE(std::find(moves.begin(), moves.end(), "96.00 136.00"), moves.end());
  EXPECT_NE(std::find(draws.begin(), draws.end(), "240.00 136.00"), draws.end());
  // The symbol is 0.8 * 36, rounded 29, high, around the middle of the sample.
  Lines fills = traced("fill");
  ASSERT_FALSE(fills.empty());
  EXPECT_NE(fills.back().find("153.50 121.50 153.50 150.50 182.50 150.50 182.50 121.50"), std::string::npos)
      << fills.back();
}

TEST_F(Legend, LinesWithoutCurves) {
  openSystem();
  drawCurves(1);
  fill(3);
  EXPECT_EQ(outputOf([&] { LEGEND(buffer, 1); }),
            " <<<< Warning 42: More legend lines than calls to curve in legend!   (2)\n");
  ENDGRF();
  GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  EXPECT_EQ(outputOf([&] { LEGEND(buffer, 1); }),
            " <<<< Warning 42: More legend lines than calls to curve in legend!   (3)\n");
}

TEST_F(Legend, LinesByHand) {
  openSystem();
  fill(3);
  LEGPAT(0, 1, -1, -1, -1, 1);
  LEGPAT(-1, 1, 5, 20, 16, 3);
  int lines[] = {1, 7};
  LEGSEL(lines, 2);
  EXPECT_EQ(outputOf([&] { LEGEND(buffer, 1); }),
            " <<<< Warning 149: Undefined legend line in legend!   (2)\n"
            " <<<< Warning 149: Undefined legend line by legsel in legend!   (7)\n");
  EXPECT_EQ(outputOf([&] { LEGPAT(8, 1, -1, -1, -1, 1); }), " <<<< Warning 2: Incorrect parameter in legpat!   (8)\n");
  EXPECT_EQ(outputOf([&] { LEGPAT(0, 1, -1, -1, -1, 4); }), " <<<< Warning 2: Incorrect parameter in legpat!   (4)\n");
}

TEST_F(Legend, SelectionIsChecked) {
  open();
  fill(2);
  int many[31] = {};
  std::fill(many, many + 31, 1);
  EXPECT_EQ(outputOf([&] { LEGSEL(many, 31); }), " <<<< Warning 2: Incorrect parameter in legsel!   (31)\n");
  EXPECT_EQ(outputOf([&] { LEGSEL(many, 30); }), "");
  many[3] = 0;
  EXPECT_EQ(outputOf([&] { LEGSEL(many, 30); }), " <<<< Warning 2: Incorrect parameter in legsel!   (0)\n");
}

TEST_F(Legend, AttributesComeBack) {
  openSystem();
  CHNCRV("BOTH");
  drawCurves(4);
  LINTYP(2);
  SETCLR(30);
  LINWID(3);
  fill(4);
  LEGEND(buffer, 3);
  EXPECT_EQ(GETTYP(), 2);
  EXPECT_EQ(GETCLR(), 30);
  EXPECT_EQ(GETLIN(), 3);
  EXPECT_STREQ(state()->level.routineName, "getlin");
}

TEST_F(Legend, ShieldKeepsLaterCurvesOut) {
  openSystem();
  drawCurves(1);
  fill(1);
  SHIELD("LEGEND", "ON");
  LEGPOS(700, 900);
  LEGEND(buffer, 1);
  LEGEND(buffer, 1);
  EXPECT_EQ(state()->shield.shieldCount, 1);
  float x[] = {0, 10}, y[] = {5.5F, 5.5F}; // at 950, through the box
  CURVE(x, y, 2);
  Lines draws = traced("draw");
  EXPECT_NE(std::find(draws.begin(), draws.end(), "700.00 950.00"), draws.end());
}

TEST_F(Legend, RecordsEndWithTheirNumber) {
  openSystem();
  drawCurves(80);
  EXPECT_EQ(state()->legendState.drawnCount, 80);
  drawCurves(5);
  EXPECT_EQ(state()->legendState.drawnCount, 80);
  fill(80);
  EXPECT_EQ(outputOf([&] { LEGEND(buffer, 1); }).find("Warning 42"), std::string::npos);
}

} // namespace
