// Colour graphs: colours of values, the bar, and what is painted where.
#include <algorithm>
#include <cmath>

#include "graph2d/color_bar.h"
#include "graph2d/color_scale.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class ColorGraph : public PlotTest {
protected:
  // 100 units to 1 on both axes; (0, 0) at (500, 1500). Colours 10 to 19 for values 0 to 10.
  void openSystem(float za = 0, float ze = 10, int low = 10, int high = 19) {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 1001);
    COLRAN(low, high);
    NOGRAF();
    GRAF3(0, 10, 0, 1, 0, 10, 0, 1, za, ze, za, za < ze ? 1.0F : -1.0F);
  }
  // A scale with tenths of decades.
  static void openAxes() { GRAF3(0, 10, 0, 1, 0, 10, 0, 1, 0, 10, 0, 1); }
  void openPlot() {
    open();
    AXSPOS(500, 1500);
    AXSLEN(1001, 1001);
    COLRAN(10, 19);
  }
};

TEST_F(ColorGraph, ColorsOfValues) {
  openSystem();
  EXPECT_EQ(GETLEV(), 3);
  EXPECT_EQ(NZPOSN(0), 10);
  EXPECT_EQ(NZPOSN(0.99F), 10);
  EXPECT_EQ(NZPOSN(1), 11);
  EXPECT_EQ(NZPOSN(9.5F), 19);
  EXPECT_EQ(NZPOSN(10), 19); // not 20
  EXPECT_EQ(NZPOSN(-0.1F), state()->color.backgroundColor);
  EXPECT_EQ(NZPOSN(10.1F), state()->color.foregroundColor);
  EXPECT_EQ(NZPOSN(NAN), -1);
}

TEST_F(ColorGraph, FallingScaleTurnsTheColorsRound) {
  openSystem(10, 0);
  EXPECT_EQ(NZPOSN(10), 10);
  EXPECT_EQ(NZPOSN(9.5F), 10);
  EXPECT_EQ(NZPOSN(0), 19);
  EXPECT_EQ(NZPOSN(-1), state()->color.foregroundColor);
  EXPECT_EQ(NZPOSN(11), state()->color.backgroundColor);
}

TEST_F(ColorGraph, ScaleWithoutRangeHasOneColor) {
  openSystem();
  storeColorScale(state(), {3, 3, 3, 1});
  EXPECT_EQ(state()->colorScale.factor, 0.0F);
  EXPECT_EQ(NZPOSN(3), 10);
  EXPECT_EQ(NZPOSN(99), 10);
}

TEST_F(ColorGraph, LogarithmicScale) {
  openPlot();
  AXSSCL("LOG", "Z");
  NOGRAF();
  GRAF3(0, 10, 0, 1, 0, 10, 0, 1, 0, 5, 0, 1); // two colours to a decade
  EXPECT_EQ(NZPOSN(1), 10);
  EXPECT_EQ(NZPOSN(4), 11);
  EXPECT_EQ(NZPOSN(20), 12);
  EXPECT_EQ(NZPOSN(100000), 19);
  EXPECT_EQ(NZPOSN(0.5F), state()->color.backgroundColor);
  EXPECT_EQ(NZPOSN(0), state()->color.backgroundColor);
}

TEST_F(ColorGraph, ArraysOfColors) {
  openSystem();
  const float z[3] = {0, 5, 10};
  int colors[3] = {};
  COLRAY(z, colors, 3);
  EXPECT_EQ(colors[0], 10);
  EXPECT_EQ(colors[1], 15);
  EXPECT_EQ(colors[2], 19);
}

TEST_F(ColorGraph, FailsWithTheZAxis) {
  open();
  EXPECT_EQ(outputOf([] { GRAF3(0, 1, 0, 1, 0, 1, 0, 1, 2, 2, 2, 1); }),
            " <<<< Warning 10: Begin and end of scaling are equal in graf3!\n");
  EXPECT_EQ(GETLEV(), 1);
  EXPECT_NE(outputOf([] { GRAF3(0, 0, 0, 1, 0, 1, 0, 1, 0, 2, 0, 1); }), "");
  EXPECT_EQ(GETLEV(), 1);
  EXPECT_FALSE(state()->colorScale.barOpen);
}

TEST_F(ColorGraph, ScaledByTheData) {
  openPlot();
  const float z[2] = {0, 100};
  SETSCL(z, 2, "Z");
  NOGRAF();
  GRAF3(0, 10, 0, 1, 0, 10, 0, 1, 0, 0, 0, 0);
  EXPECT_EQ(NZPOSN(55), 15);
  float a, e, first, step;
  GETGRF(&a, &e, &first, &step, "Z");
  EXPECT_EQ(e, 100.0F);
}

TEST_F(ColorGraph, EndsWithItsSystem) {
  openSystem();
  ENDGRF();
  EXPECT_EQ(GETLEV(), 1);
  EXPECT_FALSE(state()->colorScale.barOpen);
  EXPECT_EQ(outputOf([] { NZPOSN(1); }), " <<<< Warning 3: Incorrect level in nzposn!   (1)\n");
}

TEST_F(ColorGraph, BoxesHaveNoColorGraphs) {
  openSystem();
  state()->axis.axisSystemKind = kSystemBox;
  const float v[4] = {1, 2, 3, 4};
  EXPECT_EQ(outputOf([&] { CURVE3(v, v, v, 4); }), " <<<< Warning 35: Confusion of graf3d and graf3 in curve3!\n");
  EXPECT_EQ(outputOf([&] { CRVMAT(v, 2, 2, 1, 1); }), " <<<< Warning 35: Confusion of graf3d and graf3 in crvmat!\n");
  EXPECT_EQ(outputOf([&] { CRVQDR(v, v, v, 4); }), " <<<< Warning 35: Confusion of graf3d and graf3 in crvqdr!\n");
  state()->axis.axisSystemKind = kSystemRectangular;
}

TEST_F(ColorGraph, PointsAreRectanglesAroundTheirPlace) {
  openSystem();
  SETRES(20, 10);
  SETCLR(77);
  const float x[2] = {5, 6}, y[2] = {5, 2}, z[2] = {0, 9};
  CURVE3(x, y, z, 2);
  EXPECT_EQ(traced("bar"),
            (Lines{"990.00 995.00 1009.00 1004.00 0x0000000a", "1090.00 1295.00 1109.00 1304.00 0x00000013"}));
  EXPECT_EQ(state()->color.currentColor, 77);
}

TEST_F(ColorGraph, PointsOfOneLine) {
  openSystem();
  const float v[2] = {3, 4}, z[2] = {1, 2};
  CURVX3(v, 5, z, 2);
  CURVY3(5, v, z, 2);
  EXPECT_EQ(traced("bar"),
            (Lines{"800.00 1000.00 800.00 1000.00 0x0000000b", "900.00 1000.00 900.00 1000.00 0x0000000c",
                   "1000.00 1200.00 1000.00 1200.00 0x0000000b", "1000.00 1100.00 1000.00 1100.00 0x0000000c"}));
}

TEST_F(ColorGraph, PointsOutsideAreLeftOutAndCounted) {
  openSystem();
  const float x[3] = {-1, 5, 5}, y[3] = {5, 11, 5}, z[3] = {1, 1, 1};
  EXPECT_EQ(outputOf([&] { CURVE3(x, y, z, 3); }),
            " <<<< ( -1.0000e+00 /  5.0000e+00) out of axis scaling in curve3!\n"
            " <<<< (  5.0000e+00 /  1.1000e+01) out of axis scaling in curve3!\n");
  EXPECT_EQ(state()->counters.outOfScaleCount, 2);
  NOCHEK();
  EXPECT_EQ(outputOf([&] { CURVE3(x, y, z, 3); }), "");
  EXPECT_EQ(traced("bar").size(), 2U);
}

TEST_F(ColorGraph, RectanglesAreCutAtTheAxes) {
  openSystem();
  SETRES(41, 41);
  const float x[1] = {0}, y[1] = {10}, z[1] = {1};
  CURVE3(x, y, z, 1);
  EXPECT_EQ(traced("bar"), Lines{"500.00 500.00 520.00 520.00 0x0000000b"});
}

TEST_F(ColorGraph, SymbolsInTheColorsOfValues) {
  openSystem();
  SHDMOD("SYMB", "CURVE");
  MARKER(16);
  const float x[1] = {5}, z[1] = {3};
  CURVE3(x, x, z, 1);
  EXPECT_TRUE(traced("bar").empty());
  const Lines colors = traced("color");
  EXPECT_NE(std::find(colors.begin(), colors.end(), "0x0000000d"), colors.end());
}

TEST_F(ColorGraph, BackgroundMayBeLeftOut) {
  openSystem();
  const float x[2] = {5, 6}, z[2] = {-3, 30};
  CURVE3(x, x, z, 2);
  NOBGD();
  CURVE3(x, x, z, 2);
  EXPECT_EQ(traced("bar").size(), 3U); // the foreground stays
}

TEST_F(ColorGraph, MatrixFillsTheAxisSystem) {
  openSystem();
  const float z[4] = {0, 0, 10, 10}; // rises along x
  CRVMAT(z, 2, 2, 2, 1);
  // Two columns with the middles at a quarter and three quarters: 2.5 and 7.5.
  EXPECT_EQ(traced("bar"),
            (Lines{"500.00 500.00 1000.00 1500.00 0x0000000c", "1000.00 500.00 1500.00 1500.00 0x00000011"}));
}

TEST_F(ColorGraph, MatrixPartsOfOneColorAreOneRectangle) {
  openSystem();
  const float z[6] = {0, 4, 8, 0, 4, 8}; // rises along y, 3 values
  CRVMAT(z, 2, 3, 1, 4);
  // Middles 0.5, 1.5, ... 7.5 in eighths of the height, each of its own colour.
  const Lines bars = traced("bar");
  ASSERT_EQ(bars.size(), 8U);
  EXPECT_EQ(bars[0], "500.00 1375.00 1500.00 1500.00 0x0000000a");
  EXPECT_EQ(bars[7], "500.00 500.00 1500.00 625.00 0x00000011");
}

TEST_F(ColorGraph, MatrixWithinLimits) {
  openSystem();
  SURSZE(2, 4, 6, 8);
  const float z[4] = {5, 5, 5, 5};
  CRVMAT(z, 2, 2, 3, 3);
  const Lines bars = traced("bar");
  ASSERT_EQ(bars.size(), 3U); // a column each
  EXPECT_EQ(bars[0], "700.00 700.00 767.00 900.00 0x0000000f");
  EXPECT_EQ(bars[2], "833.00 700.00 900.00 900.00 0x0000000f");
}

TEST_F(ColorGraph, MatrixHolesAtNoNumbers) {
  openSystem();
  const float z[6] = {5, 5, 5, 5, NAN, 5}; // a corner of the second cell
  CRVMAT(z, 3, 2, 1, 1);
  EXPECT_EQ(traced("bar"), Lines{"500.00 500.00 1000.00 1500.00 0x0000000f"});
}

TEST_F(ColorGraph, MatrixSizes) {
  openSystem();
  const float z[4] = {5, 5, 5, 5};
  EXPECT_EQ(outputOf([&] { CRVMAT(z, 1, 2, 1, 1); }), " <<<< Warning 2: Incorrect parameter in crvmat!   (1)\n");
  EXPECT_EQ(outputOf([&] { CRVMAT(z, 2, 2, 0, 1); }), " <<<< Warning 2: Incorrect parameter in crvmat!   (0)\n");
  EXPECT_EQ(outputOf([&] { CRVMAT(z, 2, 2, 1, -1); }), " <<<< Warning 2: Incorrect parameter in crvmat!   (-1)\n");
  CRVMAT(z, 2, 2, 2147483647, 2147483647); // no finer than the page
  EXPECT_EQ(traced("bar").size(), 1001U);
}

TEST_F(ColorGraph, QuadrilateralsHaveTheColorOfTheirMean) {
  openSystem();
  const float x[5] = {1, 2, 2, 1, 9}, y[5] = {1, 1, 2, 2, 9}, z[5] = {1, 2, 3, 4, 9};
  SETCLR(5);
  CRVQDR(x, y, z, 5); // the fifth point is left over
  const Lines colors = traced("color");
  EXPECT_EQ(traced("fill").size(), 1U);
  ASSERT_GE(colors.size(), 2U);
  EXPECT_EQ(colors[colors.size() - 2], "0x0000000c"); // 2.5
  EXPECT_EQ(colors.back(), "0x00000005");
}

TEST_F(ColorGraph, TrianglesRunFromColorToColor) {
  openSystem();
  const float x[3] = {0, 10, 0}, y[3] = {0, 0, 10}, z[3] = {0, 10, 0};
  const int a[1] = {1}, b[1] = {2}, c[1] = {3};
  CRVTRI(x, y, z, 3, a, b, c, 1);
  // The value is x: ten bands, each 100 units wide; the last is a triangle.
  const Lines fills = traced("fill");
  ASSERT_EQ(fills.size(), 10U);
  EXPECT_EQ(fills[0].substr(0, 2), "4 ");
  EXPECT_EQ(fills[9].substr(0, 2), "3 ");
  for (const char* corner : {"1400.00 1500.00", "1500.00 1500.00", "1400.00 1400.00"})
    EXPECT_NE(fills[9].find(corner), std::string::npos) << corner;
}

TEST_F(ColorGraph, TrianglesOfOneColorAndBeyondTheScale) {
  openSystem();
  const float x[3] = {0, 10, 0}, y[3] = {0, 0, 10}, flat[3] = {4, 4, 4}, steep[3] = {-10, 20, -10};
  const int a[1] = {1}, b[1] = {2}, c[1] = {3};
  CRVTRI(x, y, flat, 3, a, b, c, 1);
  CRVTRI(x, y, steep, 3, a, b, c, 1); // a third below, a third above
  EXPECT_EQ(traced("fill").size(), 1U + 12U);
}

TEST_F(ColorGraph, CornersOfTrianglesExist) {
  openSystem();
  const float v[3] = {0, 1, 2};
  const int a[1] = {1}, b[1] = {4}, c[1] = {0};
  EXPECT_EQ(outputOf([&] { CRVTRI(v, v, v, 3, a, b, c, 1); }),
            " <<<< Warning 2: Incorrect parameter in crvtri!   (4)\n");
  EXPECT_TRUE(traced("fill").empty());
}

TEST_F(ColorGraph, BarStandsBesideTheAxes) {
  openPlot();
  openAxes();
  const Lines bars = traced("bar");
  ASSERT_EQ(bars.size(), 10U);  // a rectangle a colour, from below
  const int x = 1500 + 24 + 85; // behind the ticks of the right side
  const std::string left = std::to_string(x) + ".00", right = std::to_string(x + 84) + ".00";
  EXPECT_EQ(bars[0], left + " 1400.00 " + right + " 1500.00 0x0000000a");
  EXPECT_EQ(bars[9], left + " 500.00 " + right + " 600.00 0x00000013");
}

TEST_F(ColorGraph, BarAtOtherSides) {
  openPlot();
  SETGRF("LINE", "LINE", "LINE", "LINE");
  AX3LEN(1001, 1001, 501);
  const auto place = [&](const char* side, const char* justification) {
    POSBAR(side);
    JUSBAR(justification);
    return placedColorBar(state());
  };
  NOGRAF();
  openAxes();
  const ColorBar right = place("RIGHT", "START");
  EXPECT_EQ(right.x, 1500 + 85);
  EXPECT_EQ(right.y, 1500);
  EXPECT_EQ(right.length, 501);
  EXPECT_EQ(place("RIGHT", "CENTER").y, 1500 - 250);
  EXPECT_EQ(place("RIGHT", "END").y, 1500 - 500);
  const ColorBar left = place("LEFT", "START");
  EXPECT_EQ(left.x + 84, 500 - 85);
  EXPECT_EQ(left.side, kSideLeft);
  const ColorBar top = place("TOP", "CENTER");
  EXPECT_EQ(top.x, 500 + 250);
  EXPECT_EQ(top.y, 500 - 85);
  const ColorBar bottom = place("BOTTOM", "END");
  EXPECT_EQ(bottom.x, 500 + 500);
  EXPECT_EQ(bottom.y - 84, 1500 + 85);
  VKXBAR(7);
  VKYBAR(-9);
  SPCBAR(100);
  WIDBAR(50);
  const ColorBar moved = place("BOTTOM", "START");
  EXPECT_EQ(moved.x, 507);
  EXPECT_EQ(moved.y - 49, 1500 + 100 - 9);
}

TEST_F(ColorGraph, BarMayBeLeftOut) {
  openPlot();
  NOBAR();
  openAxes();
  EXPECT_TRUE(traced("bar").empty());
}

TEST_F(ColorGraph, TitlesStandAboveABarAtTheTop) {
  openPlot();
  TITLIN("x", 4);
  NOGRAF();
  openAxes();
  const int plain = colorBarExtent(state(), kSideTop);
  POSBAR("TOP");
  EXPECT_EQ(plain, 0);
  // Distance, width, ticks, label distance, labels.
  EXPECT_EQ(colorBarExtent(state(), kSideTop), 85 + 85 + 24 + 24 + 36);
}

TEST_F(ColorGraph, BarsAnywhere) {
  openPlot();
  ZAXIS(0, 10, 0, 5, 501, "", 0, 0, 300, 1000);
  ZAXIS(0, 10, 0, 5, 501, "", 1, 1, 300, 1500);
  const Lines bars = traced("bar");
  ASSERT_EQ(bars.size(), 20U);
  EXPECT_EQ(bars[0], "300.00 950.00 384.00 1000.00 0x0000000a");
  EXPECT_EQ(bars[10], "300.00 1416.00 350.00 1500.00 0x0000000a");
}

TEST_F(ColorGraph, BarsKeepTheSettings) {
  openPlot();
  NAME("mine", "Z");
  EXPECT_EQ(outputOf([] { ZAXIS(0, 10, 0, 5, 501, "other", 2, 0, 300, 1000); }),
            " <<<< Warning 2: Incorrect parameter in zaxis!   (2)\n");
  EXPECT_EQ(outputOf([] { ZAXIS(0, 10, 0, 5, 501, "other", 0, 0, -300, 1000); }).substr(0, 16), " <<<< Warning 4:");
  EXPECT_EQ(outputOf([] { ZAXLG(1, 1, 1, 1, 501, "other", 0, 0, 300, 1000); }),
            " <<<< Warning 10: Begin and end of scaling are equal in zaxlg!\n");
  ZAXLG(0, 3, 0, 1, 501, "other", 0, 0, 300, 1000);
  EXPECT_STREQ(state()->axis.axisName[kAxisZ], "mine");
  EXPECT_EQ(state()->axis.axisLogScale[kAxisZ], 0);
  EXPECT_EQ(GETLEV(), 1);
}

TEST_F(ColorGraph, Resolution) {
  openPlot();
  int w = 0, h = 0;
  GETRES(&w, &h);
  EXPECT_EQ(w, 1);
  EXPECT_EQ(h, 1);
  EXPECT_EQ(outputOf([] { SETRES(-1, 5); }), " <<<< Warning 1: Negative parameter in setres!   (-1)\n");
  SETRES(7, 8);
  EXPECT_EQ(outputOf([] { AUTRES(1, 50); }), " <<<< Warning 2: Incorrect parameter in autres!   (1)\n");
  EXPECT_EQ(outputOf([] { AUTRES(50, 10001); }), " <<<< Warning 2: Incorrect parameter in autres!   (10001)\n");
  GETRES(&w, &h);
  EXPECT_EQ(w, 7);
  EXPECT_EQ(h, 8);
  AUTRES(11, 7); // 1000 / 10; 1000 / 6 rounded up; and one for files
  NOGRAF();
  openAxes();
  GETRES(&w, &h);
  EXPECT_EQ(w, 101);
  EXPECT_EQ(h, 168);
  RESET("SETRES");
  GETRES(&w, &h);
  EXPECT_EQ(w, 1);
}

TEST_F(ColorGraph, ModesOfShading) {
  open();
  const ShadeModeGroup& m = state()->shadeModes;
  SHDMOD("SMOOTH", "SURFACE");
  SHDMOD("POLY", "CONTUR");
  SHDMOD("PIXEL", "CURVE");
  SHDMOD("3D", "CURVE");
  SHDMOD("LOWER", "CELL");
  SHDMOD("UPPER", "COLOR");
  SHDMOD("FRONT", "CULLING");
  SHDMOD("3D", "SYMB");
  SHDMOD("OFF", "ZSCALE");
  EXPECT_EQ(m.surfaceMode, 1);
  EXPECT_EQ(m.contourMethod, 1);
  EXPECT_EQ(m.paintMode, kPaintPixels);
  EXPECT_TRUE(m.curvesInSpace);
  EXPECT_EQ(m.openBands, 2);
  EXPECT_EQ(m.bandColor, 2);
  EXPECT_EQ(m.cullMode, 2);
  EXPECT_TRUE(m.symbolsInSpace);
  EXPECT_FALSE(m.colorByScale);
  EXPECT_EQ(outputOf([] { SHDMOD("X", "OTHER"); }), " <<<< Warning 2: Incorrect parameter in shdmod!   (OTHER)\n");
  EXPECT_EQ(outputOf([] { SHDMOD("X", "CELL"); }), " <<<< Warning 2: Incorrect parameter in shdmod!   (X)\n");
}

} // namespace
