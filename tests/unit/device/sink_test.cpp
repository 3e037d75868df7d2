#include "device_fixture.h"

#include "core/colors.h"

namespace quilla {
namespace {

class Sink : public DeviceTest {};

TEST_F(Sink, ComponentsOfColors) {
  int r, g, b;
  s->color.colorTable[44] = 0x102030;
  colorComponents(s, 300, r, g, b); // an index counts modulo 256
  EXPECT_EQ(r, 0x10);
  EXPECT_EQ(g, 0x20);
  EXPECT_EQ(b, 0x30);
  colorComponents(s, directColor(1, 2, 3), r, g, b);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(g, 2);
  EXPECT_EQ(b, 3);
  colorComponents(s, -1, r, g, b); // no direct colour either
  EXPECT_EQ(r, s->color.colorTable[255] >> 16);
}

TEST_F(Sink, NearestColor) {
  for (int i = 0; i < kColorTableSize; ++i) s->color.colorTable[i] = 0x010101 * i;
  EXPECT_EQ(indexOfRgb(s, 0, 0, 0), 0);
  EXPECT_EQ(indexOfRgb(s, 100, 101, 99), 100);
  EXPECT_EQ(indexOfRgb(s, 255, 255, 255), 255);
  s->color.colorTable[3] = s->color.colorTable[9] = 0xFF0000;
  EXPECT_EQ(indexOfRgb(s, 254, 0, 0), 3); // the lower of two equal ones
  s->color.tableKind = kTableSmall;
  EXPECT_EQ(indexOfRgb(s, 30, 30, 30), 8); // nine entries
  s->color.tableKind = kTableVga;
  EXPECT_EQ(indexOfRgb(s, 30, 30, 30), 15); // sixteen
}

TEST_F(Sink, DriverFonts) {
  for (int number : {501, 502, 503, 504, 511, 801, 802}) {
    s->deviceSetup.deviceNumber = number;
    EXPECT_TRUE(sinkHasFonts(s)) << number;
  }
  for (int number : {72, 81, 201, 211, 231, 401, 603, 701}) {
    s->deviceSetup.deviceNumber = number;
    EXPECT_FALSE(sinkHasFonts(s)) << number;
  }
}

TEST_F(Sink, TraceTellsEveryPrimitive) {
  setenv("QUILLA_TRACE", "trace.txt", 1);
  ASSERT_TRUE(open(kDevicePdf));
  const float x[] = {0, 100, 100.25F}, y[] = {0, 0, 50};
  qqpen(s, 100, 200, kPenMove);
  qqpen(s, 100.5F, 200, kPenDraw);
  qqcolor(s, directColor(255, 0, 16));
  sinkLineWidth(s, 3);
  sinkPenWidth(s, 0.5F);
  sinkLineCap(s, 1);
  sinkLineJoin(s, 0);
  sinkMiterLimit(s, 2.5F);
  qqfill(s, x, y, 3);
  qqbar(s, 1, 2, 3, 4, 5);
  sinkClip(s, true, 1, 2, 3, 4);
  sinkClip(s, false, 0, 0, 0, 0);
  s->font.psFontIndex = 4;
  sinkFont(s, true);
  qqglyph(s, {65, 10, 20, 5, 90});
  sinkNewPage(s);
  sinkErase(s);
  sinkFlush(s);
  close();
  unsetenv("QUILLA_TRACE");
  EXPECT_EQ(read("trace.txt"), "open 511\n"
                               "move 100.00 200.00\n"
                               "draw 100.50 200.00\n"
                               "color 0x011000ff\n"
                               "width 3\n"
                               "width 0.50\n"
                               "cap 1\n"
                               "join 0\n"
                               "miter 2.50\n"
                               "fill 3 0.00 0.00 100.00 0.00 100.25 50.00\n"
                               "bar 1.00 2.00 3.00 4.00 0x00000005\n"
                               "clip 1.00 2.00 3.00 4.00\n"
                               "unclip\n"
                               "font 4 36 1.00\n"
                               "glyph 65 10.00 20.00 90\n"
                               "newpage\n"
                               "erase\n"
                               "flush\n"
                               "close\n");
  EXPECT_EQ(s->device.trace, nullptr);
}

TEST_F(Sink, SecondPlotIsTracedBehindTheFirst) {
  setenv("QUILLA_TRACE", "trace.txt", 1);
  for (int device : {kDevicePs, kDevicePdf}) {
    ASSERT_TRUE(open(device));
    close();
  }
  unsetenv("QUILLA_TRACE");
  EXPECT_EQ(read("trace.txt"), "open 504\nclose\nopen 511\nclose\n");
}

// The sanitizers watch that nothing is left behind.
TEST_F(Sink, GivingUpAnOpenPlot) {
  for (int device : {kDevicePs, kDevicePdf}) {
    ASSERT_TRUE(open(device));
    qqpen(s, 1, 2, kPenDraw);
    freePlotState();
    s = plotState();
  }
}

TEST_F(Sink, FlushSendsWhatIsWritten) {
  ASSERT_TRUE(open(kDevicePs));
  sinkFlush(s);
  EXPECT_NE(read("quilla.ps").find("%%EndProlog"), std::string::npos);
  close();
}

} // namespace
} // namespace quilla
