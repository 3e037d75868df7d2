// HPGL, Java and PLTM.
#include "device_fixture.h"

#include <cmath>

#include "core/colors.h"
#include "core/messages.h"
#include "quilla/quilla.h"

namespace quilla {
namespace {

class Plain : public DeviceTest {
protected:
  void line(float x1, float y1, float x2, float y2) {
    qqpen(s, x1, y1, kPenMove);
    qqpen(s, x2, y2, kPenDraw);
  }
  static std::string withoutLineEnds(std::string text) {
    std::erase(text, '\n');
    return text;
  }
};

TEST_F(Plain, HpglCommands) {
  ASSERT_TRUE(open(kDeviceHpgl));
  qqcolor(s, 300);
  line(100, 0, 100.25F, 2099);
  close();
  EXPECT_EQ(read("quilla.hpg"), " SP1;\nSP44;PU400,8396;PD401,0;PU0,0;\n");
}

TEST_F(Plain, HpglOfPlottersThatWantTheirPenChosen) {
  HPGMOD("aris", "plot");
  ASSERT_TRUE(open(kDeviceHpgl));
  close();
  EXPECT_EQ(read("quilla.hpg"), "IN;SP1;LT;PU;\n SP1;\nPU0,0;\n");
}

TEST_F(Plain, HpglModeIsChecked) {
  HPGMOD("ARIS", "PAPE");
  EXPECT_NE(takeMessages().find("Warning 2"), std::string::npos);
  HPGMOD("WHAT", "PLOT");
  EXPECT_NE(takeMessages().find("Warning 2"), std::string::npos);
  EXPECT_FALSE(s->deviceSetup.hpglAris);
}

TEST_F(Plain, HpglLinesAreShortAndCommandsWhole) {
  ASSERT_TRUE(open(kDeviceHpgl));
  for (int i = 0; i < 200; ++i) qqpen(s, static_cast<float>(i * 13), static_cast<float>(i), kPenDraw);
  close();
  std::istringstream text(read("quilla.hpg"));
  std::string row;
  std::getline(text, row);
  while (std::getline(text, row)) {
    EXPECT_LE(row.size(), 80U);
    EXPECT_EQ(row.back(), ';');
  }
}

TEST_F(Plain, HpglSheets) {
  struct Case {
    int device;
    float scale;
  };
  // The default page on A4 to A1, the long side of the page along the long one of the sheet.
  for (const Case& c : {Case{402, 7600.0F / 2099.0F}, Case{403, 4.0F}, Case{404, 4.0F}, Case{405, 4.0F}}) {
    ASSERT_TRUE(open(c.device));
    EXPECT_FLOAT_EQ(s->device.deviceScale, c.scale);
    close();
  }
  s->pageSetup.scaleMode = kScaleFull;
  ASSERT_TRUE(open(405));
  EXPECT_FLOAT_EQ(s->device.deviceScale, std::fmin(21360.0F / 2099.0F, 30280.0F / 2969.0F));
  close();
}

TEST_F(Plain, HpglUprightPageLiesOnTheLongSide) {
  ASSERT_TRUE(open(403, 2099, 2969));
  line(0, 0, 2099, 2969);
  close();
  EXPECT_NE(read("quilla_1.hpg").size() + read("quilla.hpg").size(), 0U);
  EXPECT_NE(read("quilla.hpg").find("PU11876,8396;PD0,0;"), std::string::npos) << read("quilla.hpg");
}

TEST_F(Plain, BarsAreHatched) {
  ASSERT_TRUE(open(kDeviceHpgl));
  s->color.currentColor = 3;
  EXPECT_TRUE(qqbar(s, 100, 10, 200, 12, 7));
  close();
  EXPECT_EQ(withoutLineEnds(read("quilla.hpg")),
            " SP1;SP7;PU400,8356;PD800,8356;PU400,8350;PD800,8350;PU400,8348;PD800,8348;SP3;PU0,0;");
}

TEST_F(Plain, BarsFarOutsideCostNothing) {
  ASSERT_TRUE(open(kDeviceHpgl));
  EXPECT_TRUE(qqbar(s, -1e9F, 3e9F, 1e9F, 4e9F, 7));
  EXPECT_TRUE(qqbar(s, NAN, NAN, 1e9F, 4e9F, 7));
  const int before = s->counters.vectorCount;
  EXPECT_TRUE(qqbar(s, -1e9F, -1e9F, 1e9F, 1e9F, 7));
  EXPECT_LT(s->counters.vectorCount - before, 1600);
  close();
}

TEST_F(Plain, JavaSource) {
  copyText(s->deviceSetup.plotFileName, "./some.dir.java", kFileNameLength);
  s->deviceSetup.fileNameState = kFileNameGiven;
  ASSERT_TRUE(open(kDeviceJava));
  for (int i = 0; i < kColorTableSize; ++i) s->color.colorTable[i] = 0x010101 * i;
  qqcolor(s, 44);
  qqpen(s, 0, 0, kPenMove);
  qqpen(s, 2969, 0, kPenDraw);
  qqpen(s, 2969, 2099, kPenDraw);
  qqcolor(s, directColor(9, 10, 12)); // the nearest entry
  EXPECT_TRUE(qqbar(s, 0, 0, 0, 2099, 7));
  sinkErase(s);
  sinkNewPage(s);
  close();
  EXPECT_EQ(read("some.dir.java"), "// QUILLA Java Metafile\n"
                                   "// Creator: QUILLA 11.5\n"
                                   "// Date   : 09.09.2001, 01:46:40\n"
                                   "// Size   : 853 603\n"
                                   "\n"
                                   "import java.applet.*;\n"
                                   "import java.awt.*;\n"
                                   "\n"
                                   "public class some extends Applet {\n"
                                   "public void paint(Graphics g) {\n"
                                   "  g.setColor (new Color (44,44,44));\n"
                                   "  g.drawLine (0,0,852,0);\n"
                                   "  g.drawLine (852,0,852,602);\n"
                                   "  g.setColor (new Color (10,10,10));\n"
                                   "  g.setColor (new Color (7,7,7));\n"
                                   "  g.fillRect (0,0,1,603);\n"
                                   "  g.setColor (new Color (0,0,0));\n"
                                   "  g.clearRect (0,0,853,603);\n"
                                   "  }\n}\n");
}

TEST_F(Plain, PltmFields) {
  ASSERT_TRUE(open(kDevicePltm, 200, 100));
  line(100, 0, 200, 100);
  qqpen(s, 0, 100, kPenDraw);
  close();
  EXPECT_EQ(read("quilla.met"), "       2.0       1.0\n"
                                " 0.5000000 0.5000000 3.0000000 1.0000000 0.0000000 2.0000000 0.0000000 0.0000000\n"
                                " 0.0000000 0.5000000 3.0000000 9.0000000\n");
}

TEST_F(Plain, PltmColors) {
  struct Case {
    int color;
    const char* fields;
  };
  const Case cases[] = {{0, "99.000000099.000000087.0000000"},   {89, "98.0000000"}, {90, "99.000000010.0000000"},
                        {255, "99.000000099.000000086.0000000"}, {1, "10.0000000"},  {178, "99.000000098.0000000"}};
  for (const Case& c : cases) {
    ASSERT_TRUE(open(kDevicePltm, 200, 100));
    qqcolor(s, c.color);
    close();
    const std::string text = read(s->deviceSetup.plotFileName);
    EXPECT_EQ(withoutLineEnds(text.substr(21)), c.fields + std::string(" 0.0000000 0.5000000 3.0000000 9.0000000"));
  }
}

TEST_F(Plain, PltmKeepsToItsPage) {
  ASSERT_TRUE(open(kDevicePltm, 200, 100));
  line(-1e30F, 1e30F, NAN, INFINITY);
  close();
  EXPECT_EQ(read("quilla.met").substr(21, 60), " 0.0000000 0.0000000 3.0000000 0.0000000 0.0000000 2.0000000");
}

TEST_F(Plain, PltmOfATurnedPage) {
  s->pageSetup.pageRotation = kPageTurned;
  ASSERT_TRUE(open(kDevicePltm, 200, 100));
  line(0, 0, 200, 100);
  close();
  EXPECT_EQ(read("quilla.met").substr(0, 81),
            "       1.0       2.0\n 0.0000000 0.0000000 3.0000000 0.5000000 1.0000000 2.0000000");
}

} // namespace
} // namespace quilla
