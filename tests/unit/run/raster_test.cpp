// Raster devices from the public routines: sizes, colours, pixels, layers, files and what is refused.
#include <algorithm>
#include <vector>

#include "plot_fixture.h"
#include "raster/canvas.h"

namespace {

using namespace quilla;

class Raster : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    unsetenv("QUILLA_TRACE");
  }
  RasterCanvas& canvas() { return *state()->raster.canvas; }

  void openRaster(const char* format = "VIRT", const char* image = "IND", int width = 0, int height = 0) {
    METAFL(format);
    IMGFMT(image);
    if (width > 0) WINSIZ(width, height);
    QUIINI();
    ERRMOD("PROT", "OFF");
  }
  void close() {
    if (state()->level.plotLevel > 0) outputOf([] { QUIFIN(); });
  }
  void TearDown() override {
    close();
    PlotTest::TearDown();
  }
  int index(int x, int y) {
    SENDBF();
    return readIndex(canvas(), x, y);
  }
  Rgb rgb(int x, int y) {
    SENDBF();
    return readRgb(canvas(), x, y);
  }
  template <class Action> static void expectWarning(const std::string& text, Action action) {
    EXPECT_NE(outputOf(action).find(text), std::string::npos) << text;
  }
  template <class Action> static void expectSilence(Action action) { EXPECT_EQ(outputOf(action), ""); }
};

TEST_F(Raster, SizesAndDepths) {
  openRaster();
  EXPECT_EQ(canvas().width, 853);
  EXPECT_EQ(canvas().height, 603);
  EXPECT_EQ(state()->device.colourDepth, 8);
  EXPECT_FLOAT_EQ(state()->device.deviceScale, 602.0F / 2099.0F);
  close();
  SETPAG("DA4P");
  openRaster();
  EXPECT_EQ(canvas().width, 603);
  EXPECT_EQ(canvas().height, 853);
  close();
  openRaster("VIRT", "RGB", 320, 200);
  EXPECT_EQ(canvas().width, 320);
  EXPECT_EQ(canvas().height, 200);
  EXPECT_EQ(canvas().stride, 1280);
  EXPECT_EQ(state()->device.colourDepth, 24);
  close();
  openRaster("PPM", "IND");
  EXPECT_TRUE(canvas().trueColour);
  EXPECT_EQ(state()->device.colourDepth, 24);
}

TEST_F(Raster, FilesOfAllDevices) {
  const char* const kFormats[] = {"TIFF", "IMAG", "PNG", "PPM", "BMP", "GIF"};
  const char* const kNames[] = {"quilla.tif", "quilla.img", "quilla.png", "quilla.ppm", "quilla.bmp", "quilla.gif"};
  for (int i = 0; i < 6; ++i) {
    openRaster(kFormats[i]);
    close();
    EXPECT_GT(std::filesystem::file_size(kNames[i]), 700U) << kNames[i];
    EXPECT_EQ(state()->raster.canvas, nullptr);
  }
  openRaster("VIRT");
  close();
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator("."), {}), 6);
}

TEST_F(Raster, PaperIsWhiteWhereTheScreenIsReversed) {
  for (const char* image : {"IND", "RGB"}) {
    openRaster("VIRT", image);
    EXPECT_EQ(rgb(5, 5), (Rgb{0, 0, 0}));
    LINE(0, 0, 2969, 0);
    EXPECT_EQ(rgb(5, 0), (Rgb{255, 255, 255}));
    close();
    SCRMOD("REVERS");
    openRaster("VIRT", image);
    EXPECT_EQ(rgb(5, 5), (Rgb{255, 255, 255}));
    LINE(0, 0, 2969, 0);
    EXPECT_EQ(rgb(5, 0), (Rgb{0, 0, 0}));
    close();
    SCRMOD("ERASE");
  }
}

TEST_F(Raster, ColoursByNameAndByComponents) {
  openRaster("VIRT", "RGB");
  SETRGB(1.0F, 0.5F, 0.25F);
  RECFLL(0, 0, 300, 300, -1);
  SETCLR(254);
  LINE(0, 1000, 300, 1000);
  EXPECT_EQ(rgb(5, 287), (Rgb{255, 0, 0})); // entry 254 of "RAIN"
  close();
  openRaster("VIRT", "IND");
  SETRGB(1.0F, 0.0F, 0.0F);
  LINE(0, 1000, 300, 1000);
  EXPECT_EQ(index(5, 287), 254); // the nearest
}

TEST_F(Raster, WidthsArePixels) {
  openRaster();
  auto rows = [this](int x) {
    int n = 0;
    for (int y = 0; y < 603; ++y) n += index(x, y) != 0;
    return n;
  };
  LINE(500, 500, 1500, 500);
  EXPECT_EQ(rows(300), 1);
  ERASE();
  LINWID(7); // 7 * 0.2868 + 0.5
  LINE(500, 500, 1500, 500);
  EXPECT_EQ(rows(300), 2);
  EXPECT_EQ(GETLIN(), 7);
  ERASE();
  LINWID(20);
  LINE(500, 500, 1500, 500);
  EXPECT_EQ(rows(300), 6);
  NEWPAG();
  EXPECT_EQ(rows(300), 0);
}

TEST_F(Raster, PixelRoutinesNeedImgini) {
  openRaster();
  int color = 0;
  unsigned char pixels[4] = {};
  expectWarning("Warning 55: No call to imgini in wpixel", [] { WPIXEL(0, 0, 1); });
  expectWarning("in rpixel", [&] { RPIXEL(0, 0, &color); });
  expectWarning("in wpixls", [&] { WPIXLS(pixels, 0, 0, 2, 2); });
  expectWarning("in rpixls", [&] { RPIXLS(pixels, 0, 0, 2, 2); });
  expectWarning("in wpxrow", [&] { WPXROW(pixels, 0, 0, 4); });
  expectWarning("in rpxrow", [&] { RPXROW(pixels, 0, 0, 4); });
  expectWarning("Warning 55", [] { IMGFIN(); });
  IMGINI();
  expectWarning("Warning 54: No call to imgfin in imgini", [] { IMGINI(); });
  expectWarning("Warning 58: Array is out of screen in rpixel", [&] { RPIXEL(853, 0, &color); });
  expectSilence([] { WPIXEL(-1, 7, 5); });
  IMGFIN();
}

TEST_F(Raster, NoImagesOnPlotters) {
  METAFL("HPGL");
  outputOf([] {
    QUIINI();
    ERRMOD("PROT", "OFF");
  });
  expectWarning("Warning 40", [] { IMGINI(); });
  expectWarning("Warning 40", [] { EXPIMG("a.png", "PNG"); });
  expectWarning("Warning 40", [] { RGIF("a.gif"); });
  expectWarning("Warning 169: Output format must be a raster format", [] { TPRINI(); });
}

TEST_F(Raster, PixelsAsEntriesAndColours) {
  openRaster("VIRT", "RGB");
  IMGINI();
  int color = 0;
  WPIXEL(3, 4, 254);
  RPIXEL(3, 4, &color);
  EXPECT_EQ(color, 254);
  IMGMOD("RGB");
  RPIXEL(3, 4, &color);
  EXPECT_EQ(color, 0x010000FF);
  WPIXEL(3, 4, 0x01332211);
  RPIXEL(3, 4, &color);
  EXPECT_EQ(color, 0x01332211);
  close();
  openRaster("VIRT", "IND");
  IMGINI();
  WPIXEL(3, 4, 0x01FFFFFF);
  RPIXEL(3, 4, &color);
  EXPECT_EQ(color, 255);
  WPIXEL(3, 4, 256 + 7);
  RPIXEL(3, 4, &color);
  EXPECT_EQ(color, 7);
}

TEST_F(Raster, BlocksAreCutAndMayStandOnTheirHead) {
  openRaster("VIRT", "IND", 8, 6);
  IMGINI();
  unsigned char data[20], back[20];
  for (int i = 0; i < 20; ++i) data[i] = static_cast<unsigned char>(i + 1);
  WPIXLS(data, -5, 0, 10, 1);
  RPXROW(back, 0, 0, 8);
  const unsigned char wanted[] = {6, 7, 8, 9, 10, 0, 0, 0}; // columns 0 to 4 from the data's fifth item
  EXPECT_TRUE(std::equal(wanted, wanted + 8, back));
  IMGMOD("BOT");
  WPIXLS(data, 0, 5, 2, 3); // the first row of the data is row 5, the last row 3
  EXPECT_EQ(index(0, 5), 1);
  EXPECT_EQ(index(1, 4), 4);
  EXPECT_EQ(index(0, 3), 5);
  RPIXLS(back, 0, 5, 2, 3);
  EXPECT_TRUE(std::equal(data, data + 6, back));
  expectSilence([&] {
    WPIXLS(data, 0, 100, 2, 3);
    WPIXLS(data, 0, -2147483647, 2, 3);
    WPIXLS(data, 0, 2147483647, 2, 3);
    WPIXLS(data, 0, 0, -2, 3);
    WPIXLS(data, 2147483647, 0, 2, 3);
  });
}

TEST_F(Raster, BlocksOfColours) {
  openRaster("VIRT", "RGB", 4, 4);
  IMGINI();
  IMGMOD("RGB");
  const unsigned char data[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  unsigned char back[12] = {};
  WPIXLS(data, 1, 1, 2, 2);
  EXPECT_EQ(rgb(2, 2), (Rgb{10, 11, 12}));
  RPIXLS(back, 1, 1, 2, 2);
  EXPECT_TRUE(std::equal(data, data + 12, back));
}

TEST_F(Raster, OneColourIsLeftOut) {
  openRaster("VIRT", "IND", 4, 4);
  IMGTPR(7);
  IMGINI();
  const unsigned char data[] = {5, 7, 9, 7};
  WPXROW(data, 0, 0, 4);
  EXPECT_EQ(index(0, 0), 5);
  EXPECT_EQ(index(1, 0), 0);
  WPIXEL(3, 3, 7);
  EXPECT_EQ(index(3, 3), 0);
  IMGTPR(-1);
  WPIXEL(3, 3, 7);
  EXPECT_EQ(index(3, 3), 7);
}

TEST_F(Raster, TheWrittenRectangleLiesOnTheRaster) {
  openRaster("VIRT", "IND", 100, 50);
  expectWarning("Warning 2", [] { IMGCLP(1, 0, 100, 50); });
  expectWarning("Warning 2", [] { IMGCLP(0, 0, 100, 51); });
  expectWarning("Warning 2", [] { IMGCLP(-1, 0, 10, 10); });
  expectWarning("Warning 2", [] { IMGCLP(0, 0, 0, 10); });
  expectWarning("Warning 2", [] { IMGCLP(2147483647, 2147483647, 2147483647, 2147483647); });
  EXPECT_FALSE(state()->image.imageClip.set);
  expectSilence([] { IMGCLP(0, 0, 100, 50); });
}

TEST_F(Raster, Settings) {
  IMGFMT("RGBA"); // three characters decide
  EXPECT_EQ(state()->rasterSetup.imageFormat, kImageRgb);
  expectWarning("Warning 2", [] { IMGFMT("GREY"); });
  BMPMOD(100, "INCH", "RESO");
  EXPECT_EQ(state()->rasterSetup.bmpResolution, 3937);
  BMPMOD(100, "METER", "RESO");
  EXPECT_EQ(state()->rasterSetup.bmpResolution, 100);
  TIFMOD(30, "CM", "RESO");
  EXPECT_EQ(state()->rasterSetup.tiffResolution, 30);
  EXPECT_EQ(state()->rasterSetup.tiffResolutionUnit, kTiffCentimetre);
  PNGMOD("ON", "TRAN");
  GIFMOD("ON", "TRANS");
  EXPECT_TRUE(state()->rasterSetup.pngTransparent && state()->rasterSetup.gifTransparent);
  expectWarning("Warning 2", [] { PNGMOD("ON", "COLOUR"); });
  openRaster();
  expectWarning("Warning 3", [] { PNGMOD("OFF", "TRAN"); });
  TIFORG(3, 4);
  EXPECT_EQ(state()->image.tiffOriginX, 3);
  expectWarning("Warning 2", [] { TIFORG(3, -4); });
  expectWarning("Warning 2", [] { TIFWIN(0, 0, 0, 5); });
  TIFWIN(1, 2, 3, 4);
  EXPECT_TRUE(state()->image.tiffWindow.set);
}

TEST_F(Raster, LayersNestAndBlend) {
  openRaster("VIRT", "RGB", 300, 200);
  SETRGB(1.0F, 1.0F, 1.0F);
  RECFLL(0, 0, 3000, 2100, 0x01646464); // 100
  expectWarning("Warning 174: Transparency is not in use", [] { TPRFIN(); });
  TPRINI();
  TPRINI();
  TPRVAL(0.5F); // 128
  RECFLL(0, 0, 1000, 1000, 0x01C8C8C8);
  TPRFIN();
  EXPECT_EQ(canvas().layer, CanvasLayer::kTransparent);
  TPRFIN();
  EXPECT_EQ(rgb(5, 5), (Rgb{150, 150, 150})); // 100 + (100 * 129 >> 8)
  EXPECT_EQ(rgb(250, 150), (Rgb{100, 100, 100}));
  expectWarning("Warning 174", [] { TPRFIN(); });
}

TEST_F(Raster, FiguresOfALayerMayShowThroughEachOther) {
  for (bool automatic : {false, true}) {
    openRaster("VIRT", "RGB", 300, 200);
    RECFLL(0, 0, 3000, 2100, 0x01646464);
    TPRMOD(automatic ? "AUTO" : "NOAU", "FIGU");
    TPRINI();
    TPRVAL(0.5F);
    RECFLL(0, 0, 1000, 1000, 0x01C8C8C8);
    RECFLL(0, 0, 1000, 1000, 0x01C8C8C8);
    TPRFIN();
    EXPECT_EQ(rgb(5, 5).r, automatic ? 175 : 150); // 150 + (50 * 129 >> 8)
    close();
  }
}

TEST_F(Raster, ColoursOverTheBackground) {
  for (bool blended : {false, true}) {
    openRaster("VIRT", "RGB", 300, 200);
    TPRMOD(blended ? "NOOP" : "OPAQ", "BACK");
    TPRINI();
    TPRVAL(0.5F);
    RECFLL(0, 0, 1000, 1000, 0x01C8C8C8);
    TPRFIN();
    EXPECT_EQ(rgb(5, 5).r, blended ? 100 : 200);
    close();
  }
}

TEST_F(Raster, LayersAreRefused) {
  openRaster("VIRT", "IND");
  expectWarning("Warning 170: Output format must be in RGB mode", [] { TPRINI(); });
  close();
  openRaster("VIRT", "RGB");
  IMGINI();
  expectWarning("Warning 172: Routine cannot be used between IMGINI and IMGFIN", [] { TPRINI(); });
  IMGFIN();
  expectWarning("Warning 2", [] { TPRVAL(1.01F); });
  expectWarning("Warning 2", [] { TPRVAL(-0.1F); });
  expectWarning("Warning 2", [] { TPRMOD("AUTO", "BACK"); });
  TPRINI(); // a forgotten end
}

TEST_F(Raster, AnOpenLayerIsPartOfTheFile) {
  openRaster("PPM", "RGB", 300, 200);
  TPRINI();
  RECFLL(0, 0, 3000, 3000, 0x01030201);
  close();
  std::ifstream file("quilla.ppm", std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  EXPECT_EQ(bytes.substr(15, 3), "\1\2\3");
}

TEST_F(Raster, ExportedFilesGetVersions) {
  openRaster("VIRT", "IND", 10, 10);
  expectWarning("Warning 2", [] { EXPIMG("a.x", "JPEG"); });
  expectSilence([] {
    EXPIMG("a.png", "PNG");
    EXPIMG("a.png", "PNG");
    RTIFF("a.tif");
    RIMAGE("a.img");
  });
  for (const char* name : {"a.png", "a_1.png", "a.tif", "a.img"}) EXPECT_TRUE(std::filesystem::exists(name)) << name;
  expectWarning("Warning 36", [] { RBMP("missing/a.bmp"); });
}

TEST_F(Raster, PngInMemory) {
  openRaster("VIRT", "IND", 10, 10);
  std::vector<unsigned char> bytes(5000);
  const int size = RBFPNG(bytes.data(), 5000);
  RPNG("a.png");
  EXPECT_EQ(static_cast<std::uintmax_t>(size), std::filesystem::file_size("a.png"));
  EXPECT_EQ(RBFPNG(bytes.data(), size), size);
  expectWarning("Warning 125: Buffer too small for PNG file", [&] { EXPECT_EQ(RBFPNG(bytes.data(), size - 1), 0); });
  expectWarning("Warning 125", [&] { EXPECT_EQ(RBFPNG(bytes.data(), -5), 0); });
}

TEST_F(Raster, RawImagesComeBack) {
  for (const char* image : {"IND", "RGB"}) {
    openRaster("VIRT", image, 300, 200);
    RECFLL(100, 100, 1000, 1000, 0x01FFFFFF);
    FILMOD("DELE");
    RIMAGE("a.img");
    ERASE();
    EXPECT_EQ(rgb(50, 50), (Rgb{0, 0, 0}));
    expectSilence([] { WIMAGE("a.img"); });
    EXPECT_EQ(rgb(50, 50), (Rgb{255, 255, 255})) << image;
    EXPECT_EQ(rgb(299, 199), (Rgb{0, 0, 0}));
    close();
  }
}

TEST_F(Raster, BrokenRawImagesAreRefused) {
  openRaster("VIRT", "IND", 20, 10);
  RIMAGE("a.img");
  std::ifstream file("a.img", std::ios::binary);
  const std::string whole(std::istreambuf_iterator<char>(file), {});
  auto refused = [](std::string bytes) {
    std::ofstream("b.img", std::ios::binary) << bytes;
    expectWarning("Warning 56: Incorrect file format", [] { WIMAGE("b.img"); });
  };
  refused("");
  refused(whole.substr(0, 79));
  refused(whole.substr(0, whole.size() - 1));
  for (const char* width : {"99999", "    0", "   -1", "   2x", "   21"})
    refused(std::string(whole).replace(20, 5, width));
  refused(std::string(whole).replace(26, 5, "   11"));
  refused(std::string(whole).replace(32, 5, "   16"));
  refused(std::string(whole).replace(0, 1, "?"));
  expectWarning("Warning 36", [] { WIMAGE("missing.img"); });
}

TEST_F(Raster, TooLargeForMemory) {
  METAFL("PNG");
  WINSIZ(2147483647, 2147483647);
  expectWarning("Warning 53", [] { QUIINI(); });
  EXPECT_EQ(state()->level.plotLevel, 0);
}

TEST_F(Raster, AFullDiskIsToldOnce) {
  METAFL("BMP");
  SETFIL("/dev/full");
  QUIINI();
  ERRMOD("PROT", "OFF");
  const std::string told = outputOf([] { QUIFIN(); });
  const std::size_t at = told.find("Warning 36");
  EXPECT_NE(at, std::string::npos);
  EXPECT_EQ(told.find("Warning 36", at + 1), std::string::npos);
}

TEST_F(Raster, TooManyCrossings) {
  openRaster("VIRT", "IND", 2000, 100);
  std::vector<int> xs, ys;
  for (int i = 0; i <= 120; ++i) {
    xs.push_back(10 * i);
    ys.push_back(i % 2 ? 1000 : 10);
  }
  SHDPAT(16);
  expectWarning("Warning 26: Too many intersections", [&] { AREAF(xs.data(), ys.data(), 121); });
}

TEST_F(Raster, DrawingIsCutAtTheAxisSystem) {
  openRaster("VIRT", "IND");
  SHDPAT(16);
  CLPWIN(1000, 500, 500, 500);
  int xs[] = {0, 2969, 2969, 0}, ys[] = {0, 0, 2099, 2099};
  AREAF(xs, ys, 4);
  EXPECT_EQ(index(286, 200), 0);
  EXPECT_NE(index(288, 200), 0);
  EXPECT_NE(index(429, 285), 0);
  EXPECT_EQ(index(431, 285), 0);
}

} // namespace
