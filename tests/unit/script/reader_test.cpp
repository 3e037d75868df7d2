#include <algorithm>
#include <vector>

#include "script/script_fixture.h"
#include "script/statement_reader.h"
#include "script/tokenizer.h"

using namespace qsl;

namespace {

class Reader : public Script {
protected:
  std::string assembled(const char* record) {
    if (!assemble_record(record)) return "(nothing)";
    return interp.reader.statement;
  }
};

class Tokens : public Script {
protected:
  int only(const char* text) {
    interp.token.quiet = false;
    set_token_source(text);
    interp.token.quiet = true;
    return next_token();
  }
  double number(const char* text) {
    only(text);
    return interp.token.current.type == kInt ? interp.token.current.value.i : interp.token.current.value.d;
  }
  std::vector<int> kinds(const char* text) {
    std::vector<int> list;
    only(text);
    for (; token() != kEnd && list.size() < 50; next_token()) list.push_back(token());
    return list;
  }
};

} // namespace

TEST_F(Reader, BlanksShrink) {
  EXPECT_EQ(assembled("A =\t  1\n"), "A = 1");
  EXPECT_EQ(assembled("  \t A\r\n"), " A");
  EXPECT_EQ(assembled("A = 'x  y'\n"), "A = 'x  y'");
}

TEST_F(Reader, CommentsEndARecord) {
  EXPECT_EQ(assembled("A = 1 # it's\n"), "A = 1 ");
  EXPECT_EQ(assembled("A = 1 // it's\n"), "A = 1 ");
  EXPECT_EQ(assembled("A = '#//'\n"), "A = '#//'");
  EXPECT_EQ(assembled("A = 4/2\n"), "A = 4/2");
  EXPECT_EQ(assembled("#\n"), "(nothing)");
}

TEST_F(Reader, ContinuationNeedsTheSignAtTheEnd) {
  EXPECT_EQ(assembled("A = 1 @ # note\n"), "(nothing)");
  EXPECT_EQ(assembled("+ 2\n"), "A = 1 + 2");
  EXPECT_EQ(assembled("A = 1@ # note\n"), "A = 1 ");
  EXPECT_EQ(assembled("A@B\n"), "AB");
  EXPECT_EQ(assembled("(@\n"), "(nothing)"); // the depth goes on to the next record
  EXPECT_EQ(assembled(")\n"), "()");
}

TEST_F(Reader, FaultsOfARecord) {
  EXPECT_EQ(run("A = 'x\n"), fault("Missing Apostroph or Quotation mark"));
  EXPECT_EQ(run("A = (1\n"), fault("Missing '(' or ')'"));
  EXPECT_EQ(run("A = '(' + \")\"\nPRINTL A\n"), "() \n");
  EXPECT_EQ(run("A = (1))\nPRINTL 2\n"), fault("Missing '(' or ')'") + "2 \n");
}

TEST_F(Reader, StatementOverflow) {
  // Records of at most 131 characters, joined by continuations, to a statement of exactly n characters.
  const auto script = [](int n) {
    std::string text = "A = '' ";
    n -= static_cast<int>(text.size());
    for (; n > 0; n -= 100) text += "@\n" + std::string(static_cast<std::size_t>(std::min(n, 100)), '+');
    return text + "\nPRINTL 1\n";
  };
  const auto overflow = [](const std::string& s) { return s.find("Statement overflow") != std::string::npos; };
  EXPECT_FALSE(overflow(run(script(1023))));
  EXPECT_FALSE(overflow(run(script(1024))));
  EXPECT_TRUE(overflow(run(script(1025))));
}

TEST_F(Reader, LongRecordsAreSplit) {
  const std::string blanks(131 - 8, ' ');
  EXPECT_EQ(run("PRINTL 1" + blanks + "PRINTL 2\nFOO\n"), "1 \n2 \n" + fault("Undefined command FOO", 4));
}

TEST_F(Reader, SplitStatementsNameTheLastRecord) {
  EXPECT_EQ(run("X = @\nY\n"), fault("Undefined identifier Y", 3));
  EXPECT_EQ(run("X = @\n# note\n1\nPRINTL X\n"), "1 \n");
}

TEST_F(Reader, SavedStatementsHaveALimit) {
  testing::internal::CaptureStdout();
  for (int i = 0; i < 3001; ++i) save_statement("A = 1");
  save_statement("");
  std::fflush(stdout);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            " >>>> Too many statements in the statement buffer in record 1 ()\n");
  EXPECT_EQ(interp.reader.saved_count, 3000);
  EXPECT_EQ(interp.reader.saved_cursor, 3000);
}

TEST_F(Tokens, Numbers) {
  EXPECT_EQ(only("2e5"), kFloatConstant);
  EXPECT_EQ(number("2e5"), 2e5);
  EXPECT_EQ(number("2e-1+3"), 0.2);
  EXPECT_EQ(number("0x1F"), 31);
  EXPECT_EQ(only("1e"), kFloatConstant);
  EXPECT_EQ(number("1e"), 1.0);
  EXPECT_EQ(only("1.2.3"), kErrorToken);
  EXPECT_EQ(only("1.2.3e1"), kFloatConstant);
  EXPECT_EQ(only(".5"), kFloatConstant);
  EXPECT_EQ(number(".5"), 0.5);
  EXPECT_EQ(only("12ab"), kIntConstant);
  EXPECT_EQ(number("12ab"), 12);
  EXPECT_EQ(only("1.5x"), kErrorToken);
  EXPECT_EQ(number("99999999999"), 2147483647);
  EXPECT_EQ(number("0xFFFFFFFF"), 2147483647);
}

TEST_F(Tokens, NamesAreFoldedAndCut) {
  EXPECT_EQ(only("ab_1"), kIdentifier);
  EXPECT_STREQ(token_name(), "AB_1");
  only("abcdefghijklmnopq+1");
  EXPECT_STREQ(token_name(), "ABCDEFGHIJKLMNO");
  EXPECT_EQ(next_token(), '+');
}

TEST_F(Tokens, SignsAreBinaryBehindOperands) {
  EXPECT_EQ(kinds("-1"), (std::vector<int>{kUnaryMinus, kIntConstant}));
  EXPECT_EQ(kinds("1-1"), (std::vector<int>{kIntConstant, '-', kIntConstant}));
  EXPECT_EQ(kinds("A]-)+"), (std::vector<int>{kIdentifier, ']', '-', ')', '+'}));
  EXPECT_EQ(kinds("'a'+'b'"), (std::vector<int>{kStringConstant, '+', kStringConstant}));
  EXPECT_EQ(kinds("'a'-1"), (std::vector<int>{kStringConstant, kUnaryMinus, kIntConstant}));
  EXPECT_EQ(kinds("(+1"), (std::vector<int>{'(', kUnaryPlus, kIntConstant}));
}

TEST_F(Tokens, PercentIsModuloOrASystemVariable) {
  EXPECT_EQ(kinds("A%B"), (std::vector<int>{kIdentifier, '%', kIdentifier}));
  EXPECT_EQ(kinds("3%B"), (std::vector<int>{kIntConstant, '%', kIdentifier}));
  EXPECT_EQ(kinds("(A)%B"), (std::vector<int>{'(', kIdentifier, ')', kIdentifier}));
  EXPECT_EQ(only("%xmin"), kIdentifier);
  EXPECT_STREQ(token_name(), "%XMIN");
  EXPECT_EQ(kinds("%1"), (std::vector<int>{'%', kIntConstant}));
}

TEST_F(Tokens, Operators) {
  EXPECT_EQ(kinds("** == != >= <= > < && || & | *"),
            (std::vector<int>{kPower, kEqual, kNotEqual, kGreaterEqual, kLessEqual, kGreater, kLess, kAnd, kOr, '&',
                              '|', '*'}));
  for (const char* bad : {";", "?", "^", "~", "\\", "_", "\xE4"}) EXPECT_EQ(only(bad), kErrorToken) << bad;
}

TEST_F(Tokens, TextsKeep132Characters) {
  EXPECT_EQ(only("''"), kStringConstant);
  EXPECT_EQ(interp.token.current.count, 0);
  const std::string text = "'" + std::string(140, 'x') + "' 7";
  EXPECT_EQ(only(text.c_str()), kStringConstant);
  EXPECT_EQ(interp.token.current.count, 132);
  EXPECT_EQ(next_token(), kIntConstant);
}

TEST_F(Reader, DefaultExtension) {
  const auto extended = [](const char* name) {
    char text[300];
    std::snprintf(text, sizeof text, "%s", name);
    add_default_extension(text, 256, ".qsl");
    return std::string(text);
  };
  EXPECT_EQ(extended("a"), "a.qsl");
  EXPECT_EQ(extended("a.b"), "a.b");
  EXPECT_EQ(extended("a.b\\c"), "a.b\\c");
  EXPECT_EQ(extended("a.d/c"), "a.d/c.qsl");
  EXPECT_EQ(extended("../c"), "../c.qsl");
  EXPECT_EQ(extended("x/a.b/c"), "x/a.b/c"); // the first separator counts
  EXPECT_EQ(extended("disk.1]c"), "disk.1]c.qsl");
  EXPECT_EQ(extended(std::string(254, 'n').c_str()), std::string(254, 'n') + ".q");
  EXPECT_EQ(extended(std::string(256, 'n').c_str()), std::string(256, 'n'));
}

TEST_F(Reader, KeywordsNeedABlank) {
  EXPECT_EQ(run("A = 1\nPRINT(A)\n"), fault("Undefined routine PRINT", 3));
  EXPECT_EQ(run("PRINT 1\n"), "              1 \n");
  EXPECT_EQ(run("PRINT'a'\n"), "");
  EXPECT_EQ(run("3 + 4\n"), fault("Undefined command 3"));
  EXPECT_EQ(run("3 = 4\n"), fault("Syntax error"));
  EXPECT_EQ(run("?\nPRINTL 1\n"), fault("Syntax error") + "1 \n");
}

TEST_F(Reader, SkippedStatementsDoNothing) {
  interp.control.skip_sum = 1;
  EXPECT_EQ(run("PRINT 1\nA = 1\nFOO(3)\nA[1] = 2\nNOTHING\n"), "");
}
