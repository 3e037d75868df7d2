#include "core/messages.h"

#include "plot_fixture.h"

using namespace quilla;

namespace {

class Messages : public PlotTest {};

TEST_F(Messages, KeywordsAreMatchedOnFourCharacters) {
  PlotState* s = state();
  EXPECT_EQ(matchKeyword(s, "COLO+LINE", 2, "COLOUR"), 1);
  EXPECT_EQ(matchKeyword(s, "COLO+LINE", 2, "line"), 2);
  EXPECT_EQ(matchKeyword(s, "OFF +ON  ", 2, "On"), 2);
  EXPECT_EQ(findKeyword("OFF +ON  ", 2, "ONE"), 0);
  EXPECT_EQ(findKeyword("OFF +ON  ", 2, ""), 0);
  EXPECT_EQ(findKeyword("ABCD+EFGH", 1, "EFGH"), 0) << "only the told number of entries counts";
  EXPECT_EQ(findKeyword("abcd", 1, "ABCDE"), 1) << "the list may be in lower case";
}

TEST_F(Messages, ReportForms) {
  PlotState* s = state();
  copyText(s->level.routineName, "setclr", kRoutineNameLength);
  EXPECT_EQ(outputOf([&] { matchKeyword(s, "ABCD", 1, "PURPLE"); }),
            " <<<< Warning 2: Incorrect parameter in setclr!   (PURPLE)\n");
  EXPECT_EQ(outputOf([&] { warnWithNumber(s, 1, -7); }), " <<<< Warning 1: Negative parameter in setclr!   (-7)\n");
  EXPECT_EQ(outputOf([&] { warnPlain(s, 58); }), " <<<< Warning 58: Array is out of screen in setclr!\n");
  EXPECT_EQ(outputOf([&] { warnPlain(s, 77); }), " <<<< Warning 77:   in setclr!\n");
  EXPECT_EQ(outputOf([&] { warnWithText(s, 170, "Output format must be in RGB mode"); }),
            " <<<< Warning 170: Output format must be in RGB mode in setclr!\n");
  EXPECT_EQ(outputOf([&] { warnWithText(s, -1, "(1 /2) out of axis scaling"); }),
            " <<<< (1 /2) out of axis scaling in setclr!\n");
  EXPECT_EQ(s->counters.warningCount, 5) << "the report without a number is not counted";
  setCustomMessage(s, "Too many file versions");
  EXPECT_EQ(outputOf([&] { warnPlain(s, 170); }), " <<<< Warning 170: Too many file versions in setclr!\n");
}

TEST_F(Messages, ReportsAreCutAt132Characters) {
  PlotState* s = state();
  std::string longText(200, 'x');
  std::string report = outputOf([&] { warnWithString(s, 2, longText.c_str()); });
  EXPECT_EQ(report.size(), 132U);
  EXPECT_EQ(report.back(), '\n');
}

TEST_F(Messages, UnitZeroSilencesButCounts) {
  PlotState* s = state();
  s->level.plotLevel = 1;
  EXPECT_EQ(outputOf([&] {
              UNIT(nullptr);
              SETCLR(-1);
            }),
            "");
  EXPECT_EQ(s->counters.warningCount, 1);
  s->level.plotLevel = 0;
}

TEST_F(Messages, ErrmodSwitches) {
  PlotState* s = state();
  s->level.plotLevel = 1;
  ERRMOD("PROT", "FILE");
  EXPECT_EQ(s->message.protocolMode, kProtocolFile);
  EXPECT_NE(outputOf([] { ERRMOD("WARN", "FILE"); }), "");
  EXPECT_TRUE(s->message.warningsOn);
  ERRMOD("ALL", "OFF");
  EXPECT_FALSE(s->message.warningsOn);
  EXPECT_FALSE(s->message.dataCheckOn);
  EXPECT_EQ(s->message.protocolMode, kProtocolOff);
  s->level.plotLevel = 0;
}

TEST_F(Messages, RangesAndDates) {
  PlotState* s = state();
  testing::internal::CaptureStdout();
  EXPECT_EQ(checkRange(s, 5, 5, 7), 0);
  EXPECT_EQ(checkRange(s, 7, 5, 7), 0);
  EXPECT_EQ(checkRange(s, 8, 5, 7), 1);
  EXPECT_EQ(checkRange(s, 4, 5, 7), 1);
  EXPECT_EQ(checkRange(s, 1000000, 5, 0), 0) << "high below low: no upper bound";
  EXPECT_EQ(checkDate(s, 29, 2, 2024), 0);
  EXPECT_EQ(checkDate(s, 29, 2, 2023), 1);
  EXPECT_EQ(checkDate(s, 29, 2, 1900), 1);
  EXPECT_EQ(checkDate(s, 29, 2, 2000), 0);
  EXPECT_EQ(checkDate(s, 30, 2, 2024), 1);
  EXPECT_EQ(checkDate(s, 31, 12, 1000), 0);
  EXPECT_EQ(checkDate(s, 31, 12, 999), 1);
  EXPECT_EQ(checkDate(s, 1, 13, 2000), 1);
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(s->counters.warningCount, 7);
}

TEST_F(Messages, ErrorFileTakesTheReports) {
  ERRDEV("FILE");
  ERRFIL("messages.err");
  EXPECT_EQ(outputOf([] { PAGE(0, 0); }), "");
  freePlotState();
  ASSERT_TRUE(std::filesystem::exists("messages.err"));
}

TEST_F(Messages, ErrorFileOfAClosedRun) {
  ERRDEV("FILE");
  ERRFIL("messages.err");
  METAFL("PDF");
  std::string printed = outputOf([] {
    QUIINI();
    SETCLR(-1);
    QUIFIN();
  });
  EXPECT_EQ(linesOf("messages.err").at(0), " <<<< Warning 2: Incorrect parameter in setclr!   (-1)");
  EXPECT_NE(printed.find(" <<  Err-file: messages.err"), std::string::npos) << printed;
  // A second run does not write over the first file.
  METAFL("PDF");
  outputOf([] {
    QUIINI();
    SETCLR(-2);
    QUIFIN();
  });
  EXPECT_TRUE(std::filesystem::exists("messag_1.err"));
}

TEST_F(Messages, Protocol) {
  METAFL("PDF");
  SETFIL("a.pdf");
  std::string printed = outputOf([] {
    QUIINI();
    LINE(100, 100, 200, 200);
    LINE(100, 100, 200, 300);
    QUIFIN();
  });
  EXPECT_EQ(printed, "\n <<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<"
                     "\n <<                END OF QUILLA / VERSION 11.5.2                <<"
                     "\n <<  Date    : 14.11.2023  Time    : 22:13:20  Pageformat: DA4L  <<"
                     "\n <<  Vectors : 2           Warnings: 0         Fileformat: PDF   <<"
                     "\n <<  Metafile: a.pdf                                             <<"
                     "\n <<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<\n\n");
}

} // namespace
