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

// The null device would get a neighbour at each run, or be deleted.
TEST_F(Run, DevicesAreNeverVersioned) {
  std::filesystem::create_symlink("/dev/null", "nowhere.pdf");
  for (const char* mode : {"COUN", "BREA", "DELE", "VERS"}) {
    METAFL("PDF");
    SETFIL("nowhere.pdf");
    FILMOD(mode);
    open();
    EXPECT_EQ(GETLEV(), 1) << mode;
    QUIFIN();
    EXPECT_STREQ(state()->deviceSetup.plotFileName, "nowhere.pdf") << mode;
  }
  EXPECT_TRUE(std::filesystem::is_symlink("nowhere.pdf"));
}

TEST_F(Run, OrderOfTheBeginning) {
  METAFL("PDF");
  state()->counters = {1, 2, 3, 4, 1};
  open();
  const CounterGroup& c = state()->counters;
  EXPECT_EQ(c.vectorCount + c.nanCount + c.outOfScaleCount + c.runFinished, 0);
  EXPECT_EQ(c.warningCount, 0);
  EXPECT_EQ(state()->colorState.backgroundMode, kBackgroundReverse);
  EXPECT_EQ(state()->colorSetup.lastBackground, kBackgroundReverse);
  EXPECT_EQ(state()->axis.axisLength[0], 1980) << "2970 * 2 / 3";
  EXPECT_EQ(state()->axis.axisLength[1], 1400);
  EXPECT_EQ(state()->axis.axisPosX, (2969 - 1980) / 2);
  EXPECT_EQ(state()->axis.axisPosY, 2099 - 300);
  EXPECT_EQ(state()->geometry.pageNumber, 1);
  QUIFIN();
  SCRMOD("NOREV");
  open();
  EXPECT_EQ(state()->colorState.backgroundMode, kBackgroundErase);
  EXPECT_EQ(state()->colorSetup.lastBackground, kBackgroundReverse) << "that of the first run of the process";
}

TEST_F(Run, LineSettingsEndWithTheRun) {
  open();
  int colors[] = {1};
  LINCLR(colors, 1);
  TRFSHF(10, 10);
  SHDPAT(5);
  DASHL();
  HWMODE("OFF", "LINE");
  QUIFIN();
  open();
  EXPECT_EQ(state()->line.linePatternColorCount, 0);
  EXPECT_FALSE(state()->transform.transformOn);
  EXPECT_EQ(GETPAT(), 0);
  EXPECT_EQ(GETTYP(), 0);
  EXPECT_TRUE(state()->line.hardwareLines);
  TRFSHF(10, 10);
  RESET("ALL");
  EXPECT_FALSE(state()->transform.transformOn);
}

} // namespace
