#include "core/page.h"

#include "plot_fixture.h"

using namespace quilla;

namespace {

class Page : public PlotTest {};

TEST_F(Page, FormatsByName) {
  METAFL("PDF");
  SETPAG("DA4P");
  EXPECT_EQ(state()->pageSetup.pageWidthUnits, 2099.0F);
  EXPECT_EQ(state()->pageSetup.pageHeightUnits, 2969.0F);
  EXPECT_STREQ(state()->pageSetup.pageFormatName, "DA4P");
  SETPAG("da4l");
  EXPECT_EQ(state()->pageSetup.pageWidthUnits, 2969.0F);
  SETPAG("usal");
  EXPECT_EQ(state()->pageSetup.pageHeightUnits, 2159.0F);
  EXPECT_EQ(outputOf([] { SETPAG("XX4L"); }), " <<<< Warning 2: Incorrect parameter in setpag!   (XX4L)\n");
  EXPECT_STREQ(state()->pageSetup.pageFormatName, "USAL");
  EXPECT_EQ(state()->deviceSetup.deviceNumber, 511);
}

TEST_F(Page, FormatWithoutDeviceChoosesTheMetafile) {
  SETPAG("DA3L");
  EXPECT_EQ(state()->deviceSetup.deviceNumber, 201);
  EXPECT_STREQ(state()->deviceSetup.deviceKeyword, "PLTM");
}

TEST_F(Page, SizesAndUnits) {
  PAGE(2970, 2100);
  EXPECT_EQ(state()->pageSetup.pageWidthUnits, 2969.0F);
  EXPECT_STREQ(state()->pageSetup.pageFormatName, "PAGE");
  UNITS("INCH");
  PAGE(11, 8);
  EXPECT_FLOAT_EQ(state()->pageSetup.pageWidthUnits, 25.4F);
  EXPECT_FLOAT_EQ(state()->pageSetup.pageHeightUnits, 17.78F);
  startPage(state());
  EXPECT_EQ(state()->geometry.pageWidth, 10);
  EXPECT_EQ(state()->geometry.pageHeight, 7);
  EXPECT_EQ(outputOf([] { PAGE(0, 5); }), " <<<< Warning 2: Incorrect parameter in page!\n");
}

TEST_F(Page, ScaleFactorResetsTheMode) {
  SCLMOD("FULL");
  EXPECT_EQ(state()->pageSetup.scaleMode, 1);
  SCLFAC(0.5F);
  EXPECT_EQ(state()->pageSetup.scaleMode, 0);
  EXPECT_EQ(outputOf([] { SCLFAC(0.0F); }), " <<<< Warning 2: Incorrect parameter in sclfac!\n");
  EXPECT_EQ(state()->pageSetup.scaleFactor, 0.5F);
}

TEST_F(Page, SizeIsOneMoreThanTheLastUnit) {
  open();
  int nx = 0, ny = 0;
  GETPAG(&nx, &ny);
  EXPECT_EQ(nx, 2970);
  EXPECT_EQ(ny, 2100);
}

TEST_F(Page, OriginAndDirection) {
  open();
  ORIGIN(100, 50);
  LINE(0, 0, 10, 10);
  PAGORG("BOTT");
  ORIGIN(0, 20);
  int nx = 0, ny = 0;
  GETOR(&nx, &ny);
  EXPECT_EQ(ny, 20);
  LINE(0, 100, 10, 100);
  auto moves = traced("move");
  ASSERT_EQ(moves.size(), 2U);
  EXPECT_EQ(moves[0], "100.00 50.00");
  EXPECT_EQ(moves[1], "0.00 1979.00") << "2099 - 100 - 20";
}

TEST_F(Page, OriginOnlyAtLevelOne) {
  open();
  GRAF(0, 1, 0, 1, 0, 1, 0, 1);
  EXPECT_EQ(outputOf([] { ORIGIN(1, 1); }), " <<<< Warning 3: Incorrect level in origin!   (2)\n");
}

TEST_F(Page, BorderGoesRoundThePage) {
  open();
  ORIGIN(500, 500);
  PAGERA();
  EXPECT_EQ(traced("move"), std::vector<std::string>{"0.00 0.00"});
  EXPECT_EQ(traced("draw"), (std::vector<std::string>{"0.00 2099.00", "2969.00 2099.00", "2969.00 0.00", "0.00 0.00"}));
}

} // namespace
