#include "core/levels.h"

#include "plot_fixture.h"

using namespace quilla;

namespace {

class Levels : public PlotTest {};

TEST_F(Levels, FirstTouchDefaults) {
  PlotState* s = state();
  EXPECT_EQ(s->level.plotLevel, 0);
  EXPECT_EQ(s->deviceSetup.deviceNumber, 0);
  EXPECT_STREQ(s->pageSetup.pageFormatName, "DA4L");
  EXPECT_EQ(s->pageSetup.pageWidthUnits, 2969.0F);
  EXPECT_EQ(s->pageSetup.pageHeightUnits, 2099.0F);
  EXPECT_EQ(s->colorSetup.screenModeWanted, 4);
  EXPECT_EQ(s->deviceSetup.versionDigits, 4);
  EXPECT_EQ(s->deviceSetup.pdfMode, 1);
}

TEST_F(Levels, StrictCheckRefuses) {
  EXPECT_EQ(outputOf([] { EXPECT_EQ(strictCheck(1, 3, "messag"), nullptr); }),
            " <<<< Warning 3: Incorrect level in messag!   (0)\n");
  EXPECT_EQ(state()->counters.warningCount, 1);
  EXPECT_EQ(outputOf([] { QUIFIN(); }), " <<<< Warning 3: Incorrect level in quifin!   (0)\n");
}

TEST_F(Levels, RoutineNamesAreCutAtEightCharacters) {
  EXPECT_EQ(outputOf([] { strictCheck(1, 3, "abcdefghij"); }), " <<<< Warning 3: Incorrect level in abcdefgh!   (0)\n");
}

TEST_F(Levels, SetterWarnsStoresAndLosesAtQuiini) {
  EXPECT_EQ(outputOf([] { GRACE(17); }), " <<<< Warning 3: Incorrect level in grace!   (0)\n");
  EXPECT_EQ(state()->axis.graceMargin, 17);
  open();
  EXPECT_EQ(state()->axis.graceMargin, 0);
}

TEST_F(Levels, SecondQuiiniKeepsThePlot) {
  open();
  EXPECT_EQ(outputOf([] { QUIINI(); }), " <<<< Warning 3: Incorrect level in quiini!   (1)\n");
  EXPECT_EQ(state()->level.plotLevel, 1);
}

TEST_F(Levels, AxisSystemLevels) {
  open();
  GRAF(0, 1, 0, 1, 0, 1, 0, 1);
  EXPECT_EQ(GETLEV(), 2);
  EXPECT_EQ(outputOf([] { GRAF(0, 1, 0, 1, 0, 1, 0, 1); }), " <<<< Warning 3: Incorrect level in graf!   (2)\n");
  ENDGRF();
  EXPECT_EQ(GETLEV(), 1);
  EXPECT_EQ(outputOf([] { TITLE(); }), " <<<< Warning 3: Incorrect level in title!   (1)\n");
}

TEST_F(Levels, ProcessSettingsSurviveRunSettingsDoNot) {
  open();
  HNAME(99);
  outputOf([] { QUIFIN(); });
  EXPECT_EQ(state()->deviceSetup.deviceNumber, 511);
  outputOf([] { QUIINI(); });
  EXPECT_EQ(state()->axis.nameHeight, 36);
  outputOf([] { QUIFIN(); });
}

TEST_F(Levels, UnopenableFileLeavesLevelZero) {
  METAFL("PDF");
  SETFIL("no/such/folder/a.pdf");
  std::string printed = outputOf([] { QUIINI(); });
  EXPECT_EQ(printed.rfind(" <<<< Warning 36: File error in quiini!", 0), 0U) << printed;
  EXPECT_EQ(GETLEV(), 0);
  EXPECT_EQ(outputOf([] { PAGERA(); }), " <<<< Warning 3: Incorrect level in pagera!   (0)\n");
}

TEST_F(Levels, InchesScaleDefaultDistances) {
  METAFL("PDF");
  UNITS("INCH");
  PAGE(1101, 851);
  outputOf([] { QUIINI(); });
  // 36 tenths of a millimetre at 2.54 of them a unit: 14.17.
  EXPECT_EQ(GETHGT(), 14);
  EXPECT_EQ(state()->axis.tickLengthMajor, 9);
  outputOf([] { QUIFIN(); });
}

} // namespace
