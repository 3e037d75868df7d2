#include <cstring>

#include "script/report.h"
#include "script/script_fixture.h"

using namespace qsl;

namespace {
class Statements : public Script {};
} // namespace

TEST_F(Statements, PrintSetsFourToALine) {
  EXPECT_EQ(run("PRINT 1, 2, 3, 4, 'text'\n"),
            "              1               2               3               4 \n     text\n");
  EXPECT_EQ(run("PRINT 1, 2, 3, 4, 5\n"),
            "              1               2               3               4 \n              5 \n");
  EXPECT_EQ(run("PRINT 1, 'a', 2\n"), "              1 \n     a\n              2 \n");
  EXPECT_EQ(run("PRINT\n"), "");
}

TEST_F(Statements, PrintChoosesTheFormOfReals) {
  EXPECT_EQ(run("PRINT 1000000.0\n"), " 1000000.000000 \n");
  EXPECT_EQ(run("PRINT 1000000.5\n"), "   1.000000e+06 \n");
  EXPECT_EQ(run("PRINT 0.0\n"), "       0.000000 \n");
  EXPECT_EQ(run("PRINT 0.000001, 0.0000009\n"), "       0.000001    9.000000e-07 \n");
  EXPECT_EQ(run("PRINT -2000000.0\n"), "  -2.000000e+06 \n");
  EXPECT_EQ(run("PRINT FLOAT(0.5), BYTE(7), SHORT(-7), CHAR(65)\n"),
            "       0.500000               7              -7              65 \n");
}

TEST_F(Statements, PrintOfArrays) {
  EXPECT_EQ(run("PRINT IALLOC(5)\n"),
            "              0               1               2               3 \n              4 \n");
  EXPECT_EQ(run("PRINT FALLOC(2)\n"), "       0.000000        1.000000 \n");
  EXPECT_EQ(run("PRINT COMPLEX(1,2)\n"), "     (1.000000, 2.000000)\n");
  EXPECT_EQ(run("PRINT 1, COMPLEX(1,2), 3\n"), "              1 \n     (1.000000, 2.000000)\n              3 \n");
  EXPECT_EQ(run("PRINT COMPLEX(IALLOC(2))\n"), "     (0.000000, 0.000000)\n     (1.000000, 0.000000)\n");
  EXPECT_EQ(run("CHAR C[4]\nC[0] = 72\nC[1] = 105\nPRINT C\n"), "     Hi\n");
}

// An array counts as one value of the line but leaves the mark of an open line, which costs a line feed later.
TEST_F(Statements, PrintOfScalarsAndArrays) {
  EXPECT_EQ(run("PRINT 1, IALLOC(1), 'x'\n"), "              1 \n              0 \n\n     x\n");
  EXPECT_EQ(run("PRINT IALLOC(1), 1, 2, 3, 4\n"),
            "              0 \n              1               2               3 \n              4 \n");
}

TEST_F(Statements, PrintLine) {
  EXPECT_EQ(run("PRINTL 1, 2.5, 'a', COMPLEX(1,2), IALLOC(2)\n"), "1 2.500000 a 1.000000 2.000000 0 1 \n");
  EXPECT_EQ(run("PRINTL 2000000.0\n"), "2.000000e+06 \n");
  EXPECT_EQ(run("CHAR C[3]\nC[0] = 72\nPRINTL C, 1\n"), "H 1 \n");
  EXPECT_EQ(run("PRINTL\n"), "\n");
}

TEST_F(Statements, ListOfScalars) {
  EXPECT_EQ(run("A = 1\nLIST A\n"), " Name : A       , Type : INT     , Count: 1, Value: 1\n");
  EXPECT_EQ(run("A = CHAR(65)\nLIST A\n"), " Name : A       , Type : CHAR    , Count: 1, Value: A\n");
  EXPECT_EQ(run("A = FLOAT(0.5)\nLIST A\n"), " Name : A       , Type : FLOAT   , Count: 1, Value: 0.500000\n");
  EXPECT_EQ(run("A = 2.5\nLIST A\n"), " Name : A       , Type : DOUBLE  , Count: 1, Value: 2.500000\n");
  EXPECT_EQ(run("A = COMPLEX(1,2)\nLIST A\n"),
            " Name : A       , Type : COMPLEX , Count: 1, Value: (1.000000,2.000000)\n");
  EXPECT_EQ(run("LONG_NAME_HERE = 1\nLIST LONG_NAME_HERE\n"),
            " Name : LONG_NAME_HERE, Type : INT     , Count: 1, Value: 1\n");
}

TEST_F(Statements, ListShowsTextsShorterThan26) {
  const std::string s25(25, 'x'), s26(26, 'y');
  EXPECT_EQ(run("A = '" + s25 + "'\nLIST A\n"), " Name : A       , Type : STRING  , Count: 25, Value: " + s25 + "\n");
  EXPECT_EQ(run("A = '" + s26 + "'\nLIST A\n"), " Name : A       , Type : STRING  , Count: 26\n");
  EXPECT_EQ(run("CHAR C[3]\nC[0] = 65\nLIST C\n"), " Name : C       , Type : CHAR    , Count: 3, Value: A\n");
  EXPECT_EQ(run("C = CHAR('abc')\nLIST C\n"), " Name : C       , Type : CHAR    , Count: 3, Value: abc\n");
  EXPECT_EQ(run("CHAR C[26]\nC[*] = 65\nLIST C\n"), " Name : C       , Type : CHAR    , Count: 26\n");
}

TEST_F(Statements, ListOptions) {
  const std::string a = " Name : A       , Type : INT     , Count: 1, Value: 1\n";
  const std::string h = " Name : %H      , Type : INT     , Count: 1, Value: 9\n";
  EXPECT_EQ(run("A = 1\n%H = 9\nLIST\n"), a + h);
  EXPECT_EQ(run("LIST -S\nLIST -u\n"), h + a);
  EXPECT_EQ(run("LIST -X\n"), fault("Undefined LIST option 'X'"));
  EXPECT_EQ(run("LIST NO, A NEITHER\n"), fault("Undefined variable NO") + a + fault("Undefined variable NEITHER"));
  EXPECT_EQ(run("LIST 3\n"), fault("Syntax error - Expected identifier"));
  EXPECT_EQ(run("A = {1,2}\nLIST A\n"), " Name : A       , Type : INT     , Count: 2\n");
}

TEST_F(Statements, DispatchFollowsTheSecondToken) {
  EXPECT_EQ(run("FOO\n"), fault("Undefined command FOO"));
  EXPECT_EQ(run("FOO(1)\n"), fault("Undefined routine FOO"));
  EXPECT_EQ(run("FOO[1] = 2\n"), fault("Undefined variable FOO"));
  EXPECT_EQ(run(" \n#\n//\nA = 1 // end\nPRINTL A\n"), "1 \n");
  EXPECT_EQ(run("END\n"), "");
}

TEST_F(Statements, ExitEndsTheRun) {
  EXPECT_EQ(run("PRINTL 1\nEXIT\nPRINTL 2\n"), "1 \n");
  EXPECT_TRUE(interp.driver.ended);
}

TEST_F(Statements, PromptStatementsDoNothingInAScript) { EXPECT_EQ(run("HELP\nLOGON NOTHING\nLOGOFF\n"), ""); }

TEST_F(Statements, CommandsRun) { EXPECT_EQ(run("$exit 0\r\nPRINTL 1\n"), "1 \n"); }

TEST_F(Statements, SavedStatementsRunBehindTheirCause) {
  testing::internal::CaptureStdout();
  interp.reader.saved[0].text = strdup("PRINTL 5");
  interp.reader.saved[1].text = strdup("PRINTL 6");
  interp.reader.saved_count = 2;
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(run("PRINTL 4\nPRINTL 7\n"), "4 \n5 \n6 \n7 \n");
}

TEST_F(Statements, MessagesHaveTwoForms) {
  const auto printed = [](auto report) {
    testing::internal::CaptureStdout();
    report();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
  };
  const auto all = [] {
    report_error("Text");
    report_error_text("Text", "WORD");
    report_error_char("Text", 'c');
  };
  EXPECT_EQ(printed(all), " >>>> Text in record 1 ()\n >>>> Text WORD in record 1 ()\n >>>> Text 'c' in record 1 ()\n");
  interp.driver.interactive_mode = true;
  EXPECT_EQ(printed(all), " >>>> Text\n >>>> Text WORD\n >>>> Text 'c'\n");
  char log[200] = "";
  interp.driver.log_active = true;
  interp.driver.log_file = fmemopen(log, sizeof log, "w");
  printed(all);
  std::fclose(interp.driver.log_file);
  interp.driver.log_file = nullptr;
  EXPECT_STREQ(log, " // >>>> Text\n // >>>> Text WORD\n // >>>> Text 'c'\n");
  EXPECT_EQ(interp.driver.diagnostics, 9);
}
