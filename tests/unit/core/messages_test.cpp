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

TEST_F(Messages, EveryText) {
  // A sample over the table's length, and both of its ends.
  const std::pair<int, const char*> texts[] = {{1, "Negative parameter"},
                                               {3, "Incorrect level"},
                                               {9, "Step equal zero"},
                                               {13, "Linear scaling must be used"},
                                               {26, "Too many intersections"},
                                               {36, "File error"},
                                               {47, "Blanking buffer overflow"},
                                               {53, "Not enough memory"},
                                               {57, "Control characters must be different"},
                                               {58, "Array is out of screen"},
                                               {59, " "},
                                               {100, " "}};
  for (auto [number, text] : texts) {
    EXPECT_EQ(outputOf([&, n = number] { warnPlain(state(), n); }),
              " <<<< Warning " + std::to_string(number) + ": " + text + " in !\n");
  }
}

TEST_F(Messages, UnitOfMessages) {
  open();
  EXPECT_EQ(GETUNI(), stdout);
  FILE* file = fopen("own.txt", "w");
  UNIT(file);
  EXPECT_EQ(GETUNI(), file);
  SETCLR(-3);
  RESET("UNIT");
  EXPECT_EQ(GETUNI(), stdout);
  fclose(file);
  UNIT(nullptr);
  EXPECT_EQ(GETUNI(), nullptr);
  EXPECT_EQ(linesOf("own.txt"), std::vector<std::string>{" <<<< Warning 2: Incorrect parameter in setclr!   (-3)"});
}

TEST_F(Messages, AppendedErrorFile) {
  for (int run = 1; run <= 2; run++) {
    ERRDEV("APPE");
    METAFL("PDF");
    outputOf([run] {
      QUIINI();
      SETCLR(-run);
      QUIFIN();
    });
  }
  EXPECT_EQ(linesOf("quilla.err").size(), 2U);
}

TEST_F(Messages, ProtocolInTheErrorFile) {
  ERRDEV("FILE");
  METAFL("PDF");
  SETFIL("/dev/null");
  std::string printed = outputOf([this] {
    QUIINI();
    ERRMOD("PROT", "FILE");
    state()->counters.nanCount = 12;
    QUIFIN();
  });
  EXPECT_EQ(printed, "") << "the protocol stands in the file alone";
  auto lines = linesOf("quilla.err");
  ASSERT_EQ(lines.size(), 10U);
  EXPECT_EQ(lines[5], " <<  NaN     : 12                                                <<");
  EXPECT_EQ(lines[6], " <<  Metafile: /dev/null                                         <<");
  EXPECT_EQ(lines[7], " <<  Err-file: quilla.err                                        <<");
}

TEST_F(Messages, ProtocolWithoutAFile) {
  METAFL("PDF");
  PDFMOD("ON", "BUFF");
  std::string printed = outputOf([] {
    QUIINI();
    QUIFIN();
  });
  EXPECT_NE(printed.find("\n <<  Metafile:                                                   <<"), std::string::npos)
      << printed;
  EXPECT_NE(outputOf([this] { printProtocol(state(), 10); }).find("Err-file"), std::string::npos);
  EXPECT_EQ(outputOf([this] { printProtocol(state(), 10); }).find("Metafile"), std::string::npos);
}

std::string boxTitle, boxText;

TEST_F(Messages, ProtocolInAMessageBox) {
  WINAPP("WIND");
  METAFL("PDF");
  SETFIL("a.pdf");
  state()->windowSetup.messageBox = [](const char* title, const char* text) {
    boxTitle = title;
    boxText = text;
  };
  std::string printed = outputOf([] {
    QUIINI();
    SETCLR(-1);
    QUIFIN();
  });
  EXPECT_EQ(printed, "") << "a windows application reports to the error file";
  EXPECT_EQ(linesOf("quilla.err").size(), 1U);
  EXPECT_EQ(boxTitle, "quifin");
  EXPECT_EQ(boxText,
            "           END OF QUILLA / VERSION 11.5.2 \n Date          : 14.11.2023\n Time          : 22:13:20"
            "\n Pageformat: DA4L\n Vectors      : 0\n Warnings  : 1\n Fileformat  : PDF \n Metafile     : a.pdf"
            "\n Error file    : quilla.err");
}

} // namespace
