// The z-buffer and the depth list. The eye stands above the middle of a box that is the user's own space, so that
// depths and places can be worked out by hand.
#include <cmath>

#include "device/device_point.h"
#include "graph3d/box.h"
#include "plot_fixture.h"
#include "raster/shaded.h"

using namespace quilla;

namespace {

constexpr Rgb kRed = {255, 0, 0}, kBlue = {0, 0, 255}, kBlack = {0, 0, 0};

class DepthBuffer : public PlotTest {
protected:
  // A raster of true colours, or another device.
  void openBox(const char* format = "VIRT") {
    IMGFMT("RGB");
    open(format);
    NOGRAF();
    VIEW3D(0, 0, 5, "ABS");
    GRAF3D(-1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1);
  }
  Rgb at(float x, float y, float z) {
    float px = 0, py = 0;
    REL3PT(x, y, z, &px, &py);
    const DevicePoint p = devicePoint(state(), px, py);
    return readRgb(*state()->raster.canvas, static_cast<int>(p.x + 0.5F), static_cast<int>(p.y + 0.5F));
  }
  static void triangle(float z, int color) {
    const float x[] = {-0.8F, 0.8F, 0.0F}, y[] = {-0.8F, -0.8F, 0.8F}, zs[] = {z, z, z};
    const int colors[] = {color, color, color};
    ZBFTRI(x, y, zs, colors);
  }
  static int colorOf(Rgb c) { return 0x01000000 | c.b << 16 | c.g << 8 | c.r; }
  // What a routine prints about a fault.
  template <class Action> static std::string warning(Action action) {
    const std::string text = outputOf(action);
    const std::size_t start = text.find("Warning");
    return start == std::string::npos ? text : text.substr(start, text.find('!', start) - start);
  }
};

} // namespace

TEST_F(DepthBuffer, NearerTrianglesHide) {
  openBox();
  EXPECT_EQ(ZBFINI(), 0);
  triangle(0.5F, colorOf(kRed));
  triangle(0.0F, colorOf(kBlue)); // behind
  EXPECT_EQ(at(0, 0, 0.5F), kRed);
  triangle(0.9F, colorOf(kBlue)); // before
  EXPECT_EQ(at(0, 0, 0.9F), kBlue);
  EXPECT_EQ(at(0.9F, 0.9F, 0), kBlack);
}

TEST_F(DepthBuffer, OfEqualDepthsTheLaterWins) {
  openBox();
  ZBFINI();
  triangle(0.5F, colorOf(kRed));
  triangle(0.5F, colorOf(kBlue));
  EXPECT_EQ(at(0, 0, 0.5F), kBlue);
}

// The front plane has depth 0; with t = tan(half angle), W = t d and Z = t d - t at a distance d from the eye.
TEST_F(DepthBuffer, DepthsOfAPlane) {
  openBox();
  ZBFINI();
  const RasterCanvas& canvas = *state()->raster.canvas;
  for (int i = 0; i < canvas.width * canvas.height; i += 997) ASSERT_EQ(canvas.depths[i], 2.0F);
  triangle(0.0F, colorOf(kRed));
  float px = 0, py = 0;
  REL3PT(0, 0, 0, &px, &py);
  const DevicePoint p = devicePoint(state(), px, py);
  const int index = static_cast<int>(p.y + 0.5F) * canvas.width + static_cast<int>(p.x + 0.5F);
  EXPECT_NEAR(canvas.depths[index], 1.0 - 1.0 / 5.0, 1e-5);
  ZBFRES();
  EXPECT_EQ(canvas.depths[index], 2.0F);
  EXPECT_EQ(at(0, 0, 0), kRed);
  ZBFERS();
  EXPECT_EQ(at(0, 0, 0), kBlack);
  ZBFFIN();
  EXPECT_EQ(canvas.depths, nullptr);
}

TEST_F(DepthBuffer, WithoutDepthsTheOrderCounts) {
  openBox();
  ZBFMOD("OFF");
  EXPECT_EQ(ZBFINI(), 0);
  EXPECT_EQ(state()->raster.canvas->depths, nullptr);
  triangle(0.5F, colorOf(kRed));
  triangle(-0.5F, colorOf(kBlue));
  EXPECT_EQ(at(0, 0, 0), kBlue);
}

// Halfway between red and blue corners both components are half; the third corner is far away from there.
TEST_F(DepthBuffer, ColoursRunBetweenCorners) {
  openBox();
  ZBFINI();
  const float x[] = {-0.8F, 0.8F, 0.8F}, y[] = {0, 0, 0.8F}, z[] = {0, 0, 0};
  const int colors[] = {colorOf(kRed), colorOf(kBlue), colorOf(kBlue)};
  ZBFTRI(x, y, z, colors);
  const Rgb middle = at(0, 0.01F, 0);
  EXPECT_NEAR(middle.r, 128, 4);
  EXPECT_NEAR(middle.b, 128, 4);
  EXPECT_EQ(middle.g, 0);
}

TEST_F(DepthBuffer, LinesHaveDepths) {
  openBox();
  ZBFINI();
  triangle(0.0F, colorOf(kRed));
  SETRGB(0, 0, 1);
  ZBFLIN(-1, 0, 0.5F, 1, 0, 0.5F);
  EXPECT_EQ(at(0, 0, 0.5F), kBlue);
  ZBFLIN(-1, 0.1F, -0.5F, 1, 0.1F, -0.5F); // behind the triangle, seen beside it
  EXPECT_EQ(at(0, 0.1F, -0.5F), kRed);
  EXPECT_EQ(at(0.95F, 0.1F, -0.5F), kBlue);
}

// A triangle that leaves the box is cut at its faces.
TEST_F(DepthBuffer, CutAtTheBox) {
  openBox();
  ZBFINI();
  const float x[] = {-3, 3, 0}, y[] = {-3, -3, 3}, z[] = {0, 0, 0};
  const int red = colorOf(kRed), colors[] = {red, red, red};
  ZBFTRI(x, y, z, colors);
  EXPECT_EQ(at(0.97F, -0.97F, 0), kRed);
  EXPECT_EQ(at(1.05F, -0.97F, 0), kBlack);
  CLIP3D("NONE");
  ZBFTRI(x, y, z, colors);
  EXPECT_EQ(at(1.05F, -0.97F, 0), kRed);
}

TEST_F(DepthBuffer, Faults) {
  openBox();
  EXPECT_EQ(warning([] { ZBFFIN(); }), "Warning 115: No initialization of z-buffer in zbffin");
  EXPECT_EQ(warning([] { triangle(0, 1); }), "Warning 115: No initialization of z-buffer in zbftri");
  EXPECT_EQ(warning([] { DBFFIN(); }), "Warning 115: No initialization of depth buffer in dbffin");
  EXPECT_EQ(ZBFINI(), 0);
  EXPECT_EQ(warning([] { EXPECT_EQ(ZBFINI(), 1); }), "Warning 120: z-buffer is already in use in zbfini");
  EXPECT_EQ(DBFINI(), 0);
  EXPECT_EQ(warning([] { EXPECT_EQ(DBFINI(), 1); }), "Warning 120: Depth buffer is already in use in dbfini");
  EXPECT_NE(warning([] { ZBFSCL(0.9F); }).find("Warning 2:"), std::string::npos);
  EXPECT_NE(warning([] { ZBFSCL(10.1F); }).find("Warning 2:"), std::string::npos);
  EXPECT_EQ(state()->depth.rasterFactor, 1.0F);
  EXPECT_EQ(outputOf([] { ZBFSCL(10); }), "");
  EXPECT_EQ(state()->depth.rasterFactor, 10.0F);
}

TEST_F(DepthBuffer, NeedsARaster) {
  openBox("SVG");
  EXPECT_EQ(warning([] { EXPECT_EQ(ZBFINI(), 1); }),
            "Warning 40: File format and output device are incompatible in zbfini");
}

TEST_F(DepthBuffer, NeedsABox) {
  open("VIRT");
  GRAF3(0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1);
  EXPECT_NE(warning([] { triangle(0, 1); }).find("Warning 35:"), std::string::npos);
}

// A pixel for each point, 72 an inch, times ZBFSCL.
TEST_F(DepthBuffer, DocumentsGetARasterOfTheirOwn) {
  openBox("PDF");
  ZBFSCL(2);
  EXPECT_EQ(ZBFINI(), 0);
  ASSERT_NE(state()->raster.canvas, nullptr);
  const double points = static_cast<double>(state()->device.deviceScale);
  EXPECT_EQ(state()->raster.canvas->width, std::floor(2 * 2969 * points + 0.5));
  EXPECT_EQ(state()->raster.canvas->height, std::floor(2 * 2099 * points + 0.5));
  triangle(0, colorOf(kRed));
  ZBFFIN();
  EXPECT_EQ(state()->raster.canvas, nullptr);
  QUIFIN();
  std::ifstream file("quilla.pdf", std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), {});
  EXPECT_NE(bytes.find("/Subtype /Image"), std::string::npos);
}

// A solid that lets half of the light through is laid over what stands; its inner sides do not show.
TEST_F(DepthBuffer, TransparentSolids) {
  openBox();
  ZBFINI();
  triangle(-0.9F, colorOf(kRed));
  TPRVAL(0.5F);
  SETRGB(0, 0, 1);
  QUAD3D(0, 0, 0, 0.4F, 0.4F, 0.4F);
  const Rgb mixed = at(0, 0, 0.2F);
  EXPECT_NEAR(mixed.r, 127, 2);
  EXPECT_NEAR(mixed.b, 128, 2);
  EXPECT_EQ(at(0, -0.6F, -0.9F), kRed);
}

// A forgotten ZBFFIN and DBFFIN are made up for at the end.
TEST_F(DepthBuffer, EndsWithThePlot) {
  openBox("PDF");
  ZBFINI();
  DBFINI();
  triangle(0, colorOf(kRed));
  QUIFIN();
  EXPECT_FALSE(state()->depthState.bufferOn);
  EXPECT_EQ(state()->depthState.list, nullptr);
}

namespace {

// A square of the depth list at a height.
void square(float z, int color) {
  const float x[] = {-0.5F, 0.5F, 0.5F, -0.5F}, y[] = {-0.5F, -0.5F, 0.5F, 0.5F}, zs[] = {z, z, z, z};
  const int colors[] = {color, color, color, color};
  VTXC3D(x, y, zs, colors, 4, "QUAD");
}

} // namespace

// The farthest is painted first, whatever the order was; each square is a fan of two triangles.
TEST_F(DepthBuffer, ListIsSorted) {
  openBox("SVG");
  EXPECT_EQ(DBFINI(), 0);
  for (int i = 0; i < 40; i++) square(-0.975F + 0.05F * static_cast<float>((i * 7) % 40), 10 + (i * 7) % 40);
  DBFFIN();
  std::vector<std::string> expected, colors = traced("color");
  for (int i = 0; i < 40; i++) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08x", 10 + i);
    expected.push_back(text);
  }
  const auto first = std::find(colors.begin(), colors.end(), expected.front());
  ASSERT_GE(colors.end() - first, 40);
  EXPECT_EQ(std::vector<std::string>(first, first + 40), expected);
  EXPECT_EQ(traced("fill").size(), 80U);
}

TEST_F(DepthBuffer, ListInTheOrderGiven) {
  openBox("SVG");
  DBFMOD("OFF");
  DBFINI();
  square(0.5F, 77);
  square(-0.5F, 88);
  DBFFIN();
  const std::vector<std::string> colors = traced("color");
  const auto first = std::find(colors.begin(), colors.end(), "0x0000004d");
  ASSERT_GE(colors.end() - first, 2);
  EXPECT_EQ(*(first + 1), "0x00000058");
}
