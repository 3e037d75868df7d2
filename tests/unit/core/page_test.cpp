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

struct FormatCase {
  const char* name;
  float width, height;
};

TEST_F(Page, AllFormats) {
  const FormatCase formats[] = {{"DA4", 2969, 2099},  {"DA3", 4199, 2969}, {"DA2", 5939, 4199}, {"DA1", 8409, 5939},
                                {"DA0", 11889, 8409}, {"HP4", 2716, 1899}, {"HP3", 3989, 2716}, {"HP2", 5339, 3359},
                                {"HP1", 7569, 5339},  {"KY4", 2869, 1999}, {"PS4", 2799, 1949}, {"USA", 2789, 2159},
                                {"USB", 4319, 2789},  {"USC", 5589, 4319}, {"USD", 8639, 5589}, {"USE", 11179, 8639}};
  for (const FormatCase& f : formats) {
    SETPAG((std::string(f.name) + "L").c_str());
    EXPECT_EQ(state()->pageSetup.pageWidthUnits, f.width) << f.name;
    EXPECT_EQ(state()->pageSetup.pageHeightUnits, f.height) << f.name;
    SETPAG((std::string(f.name) + "P").c_str());
    EXPECT_EQ(state()->pageSetup.pageWidthUnits, f.height) << f.name;
    EXPECT_EQ(state()->pageSetup.pageHeightUnits, f.width) << f.name;
    EXPECT_EQ(state()->pageSetup.pageFormatName, std::string(f.name) + "P");
  }
}

TEST_F(Page, WindowWishes) {
  const WindowSetup& w = state()->windowSetup;
  WINJUS("CENT");
  EXPECT_EQ(w.windowCorner, kWindowCentered);
  WINDOW(10, 20, 300, 200);
  EXPECT_EQ(w.windowPlacementMode, kWindowPlaced);
  EXPECT_EQ(w.windowCorner, kCornerNone);
  EXPECT_EQ(outputOf([] { WINDOW(3, -4, 1, 1); }), " <<<< Warning 2: Incorrect parameter in window!   (-4)\n");
  EXPECT_EQ(outputOf([] { WINDOW(0, 0, 0, 5); }), " <<<< Warning 2: Incorrect parameter in window!   (0)\n");
  EXPECT_EQ(w.windowX, 10);
  open();
  EXPECT_EQ(state()->device.pixelWidth, 300);
  EXPECT_EQ(state()->device.pixelHeight, 200);
  WINJUS("RTOP");
  EXPECT_EQ(w.windowPlacementMode, kWindowDefault);
  WINSIZ(50, 60);
  EXPECT_EQ(w.windowPlacementMode, kWindowSized);
  RESET("WINSIZ");
  EXPECT_EQ(w.windowPlacementMode, kWindowDefault);
}

TEST_F(Page, PixelsFollowThePage) {
  SETPAG("DA4P");
  open();
  EXPECT_EQ(state()->device.pixelWidth, 603);
  EXPECT_EQ(state()->device.pixelHeight, 853);
  outputOf([] { QUIFIN(); });
  SETPAG("DA4L");
  open();
  EXPECT_EQ(state()->device.pixelWidth, 853);
}

TEST_F(Page, PixelsOfPlotPoints) {
  open();
  EXPECT_EQ(outputOf([] { EXPECT_EQ(NXPIXL(1, 1), 0); }), " <<<< Warning 161: Bad output device in nxpixl!\n");
  PlotState* s = state();
  s->deviceSetup.deviceNumber = 604;
  s->device.deviceScale = 0.25F;
  EXPECT_EQ(NXPIXL(100, 203), 25);
  EXPECT_EQ(NYPIXL(100, 203), 51) << "50.75 rounded";
  PAGORG("BOTT");
  EXPECT_EQ(NYPIXL(100, 99), 500) << "(2099 - 99) / 4";
  PAGORG("TOP");
  s->pageSetup.pageRotation = kPageTurned;
  EXPECT_EQ(NXPIXL(100, 203), 51);
  EXPECT_EQ(NYPIXL(100, 203), 717) << "(2969 - 100) / 4 is 717.25";
  s->pageSetup.pageRotation = kPageAsIs;
  s->deviceSetup.deviceNumber = 511;
}

TEST_F(Page, ConversionsThereAndBack) {
  open();
  AXSLEN(1001, 501);
  AXSPOS(500, 1500);
  NOGRAF();
  GRAF(0, 10, 0, 1, -5, 5, -5, 1); // 100 and 50 plot units a user unit
  EXPECT_FLOAT_EQ(X2DPOS(2.5F, 1), 750);
  EXPECT_FLOAT_EQ(Y2DPOS(2.5F, 1), 1200);
  EXPECT_FLOAT_EQ(XINVRS(750), 2.5F);
  EXPECT_FLOAT_EQ(YINVRS(1200), 1);
  PAGORG("BOTT");
  EXPECT_FLOAT_EQ(Y2DPOS(2.5F, 1), 899);
  EXPECT_EQ(NYPOSN(1), 899);
  EXPECT_FLOAT_EQ(YINVRS(899), 1);
  state()->axis.axisSystemKind = kSystemPolar;
  EXPECT_EQ(outputOf([] { YPOSN(1); }), " <<<< Warning 109: Routine does not work for polar axis systems in yposn!\n");
}

} // namespace
