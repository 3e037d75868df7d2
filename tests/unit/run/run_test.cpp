#include "plot_fixture.h"

using namespace quilla;

namespace {

class Run : public PlotTest {};

TEST_F(Run, TheDefaultDeviceIsTheMetafile) {
  outputOf([] { QUIINI(); });
  EXPECT_EQ(state()->deviceSetup.deviceNumber, 201);
  EXPECT_STREQ(state()->deviceSetup.deviceKeyword, "PLTM");
}

TEST_F(Run, SeveralPlotsInOneProcess) {
  METAFL("PDF");
  SETFIL("a.pdf");
  for (int i = 0; i < 3; i++) {
    outputOf([] {
      QUIINI();
      LINE(10, 10, 20, 20);
      QUIFIN();
    });
  }
  EXPECT_TRUE(std::filesystem::exists("a.pdf"));
  EXPECT_TRUE(std::filesystem::exists("a_1.pdf"));
  EXPECT_TRUE(std::filesystem::exists("a_2.pdf"));
  EXPECT_EQ(state()->counters.runFinished, 1);
}

TEST_F(Run, CountersStartAgain) {
  open();
  outputOf([] { SETCLR(-1); });
  EXPECT_EQ(state()->counters.warningCount, 1);
  outputOf([] {
    QUIFIN();
    QUIINI();
  });
  EXPECT_EQ(state()->counters.warningCount, 0);
}

TEST_F(Run, ResetTakesNames) {
  open();
  HNAME(80);
  GRACE(9);
  NAME("x", "XYZ");
  RESET("hname");
  EXPECT_EQ(GETHNM(), 36);
  EXPECT_EQ(state()->axis.graceMargin, 9);
  RESET("NAME");
  EXPECT_STREQ(state()->axis.axisName[2], "");
  EXPECT_EQ(outputOf([] { RESET("PIEC"); }), "") << "a name of the list, whether it has an effect or not";
  EXPECT_EQ(outputOf([] { RESET("NONE"); }), " <<<< Warning 2: Incorrect parameter in reset!   (NONE)\n");
  SETRGB(1, 0, 0);
  RESET("SETCLR");
  EXPECT_EQ(GETCLR(), 255);
  RESET("ALL");
  EXPECT_EQ(state()->axis.graceMargin, 0);
}

TEST_F(Run, ResetOfControlCharacters) {
  open();
  NEWMIX();
  EXPECT_EQ(state()->text.mixExp, '^');
  EXPECT_EQ(state()->text.mixIndex, '_');
  EXPECT_EQ(state()->text.mixReset, '%');
  RESET("NEWMIX");
  EXPECT_EQ(state()->text.mixExp, '[');
  EXPECT_EQ(state()->text.mixIndex, ']');
  EXPECT_EQ(state()->text.mixReset, '$');
}

} // namespace
