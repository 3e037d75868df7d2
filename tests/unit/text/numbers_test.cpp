#include <cmath>

#include "plot_fixture.h"
#include "text/text.h"

using namespace quilla;

namespace {

class Numbers : public PlotTest {
protected:
  std::string number(double value, int digits, int width = 0) {
    char text[256];
    const int length = numberText(state(), value, digits, text, sizeof text, width);
    EXPECT_EQ(static_cast<std::size_t>(length), std::string(text).size());
    return text;
  }
  std::string power(double value, int digits, int format) {
    char text[256];
    exponentText(state(), value, digits, format, text, sizeof text);
    return text;
  }
};

TEST_F(Numbers, Decimals) {
  EXPECT_EQ(number(12.0, 0), "12.");
  EXPECT_EQ(number(12.0, -1), "12");
  EXPECT_EQ(number(12.0, 3), "12.000");
  EXPECT_EQ(number(0.25, 1), "0.3"); // half up
  EXPECT_EQ(number(-0.25, 1), "-0.3");
  EXPECT_EQ(number(0.25, 2), "0.25");
  EXPECT_EQ(number(2.5, 0), "3.");
  EXPECT_EQ(number(3.5, -1), "4");
  EXPECT_EQ(number(0.005, 2), "0.01");
  EXPECT_EQ(number(0.0, 2), "0.00");
  EXPECT_EQ(number(9.996, 2), "10.00");
  EXPECT_EQ(number(1e15, -1), "1000000000000000");
}

TEST_F(Numbers, NeverNegativeZero) {
  EXPECT_EQ(number(-0.04, 1), "0.0");
  EXPECT_EQ(number(-0.4, -1), "0");
  EXPECT_EQ(number(-0.0, 2), "0.00");
  EXPECT_EQ(number(-0.05, 1), "-0.1");
}

TEST_F(Numbers, Width) {
  EXPECT_EQ(number(1.5, 1, 6), "   1.5");
  EXPECT_EQ(number(-1.5, 1, 3), "-1.5");
}

TEST_F(Numbers, SmallBuffersAreCut) {
  char text[5];
  EXPECT_EQ(numberText(state(), 123456.0, -1, text, sizeof text, 0), 4);
  EXPECT_STREQ(text, "1234");
}

TEST_F(Numbers, ModeOfNumbers) {
  open();
  NUMODE("COMM", "POIN", "PLUS", "NOEQ");
  EXPECT_EQ(number(1234567.5, 1), "+1.234.567,5");
  EXPECT_EQ(number(-1234.5, 1), "-1.234,5");
  EXPECT_EQ(number(123.0, -1), "+123");
  EXPECT_EQ(number(0.0, 1), "0,0");
  NUMODE("POIN", "SPAC", "SPAC", "NOEQ");
  EXPECT_EQ(number(1000.0, 0), " 1 000.");
  NUMODE("POIN", "NONE", "NONE", "NOEQ");
  EXPECT_EQ(number(1234567.5, 1), "1234567.5");
  EXPECT_NE(outputOf([] { NUMODE("STAR", "NONE", "NONE", "NOEQ"); }).find("Warning 2"), std::string::npos);
}

TEST_F(Numbers, PowersOfTen) {
  EXPECT_EQ(power(1234.5, 2, kNumberExp), "1.23*10[3$");
  EXPECT_EQ(power(-1234.5, 1, kNumberFExp), "-1.2E3");
  EXPECT_EQ(power(0.0025, 1, kNumberXExp), "2.5{D}10[-3$");
  EXPECT_EQ(power(9.99, 1, kNumberExp), "1.0*10[1$"); // 10.0 is brought back to 1 to 10
  EXPECT_EQ(power(0.0, 1, kNumberFExp), "0.0E0");
  EXPECT_EQ(power(1000.0, -1, kNumberExp), "1*10[3$");
  EXPECT_EQ(power(1000.0, -1, kNumberLog), "10[3$");
}

TEST_F(Numbers, LengthIsThatOfTheText) {
  open();
  EXPECT_EQ(NLNUMB(12.5F, 2), NLMESS("12.50"));
  NUMFMT("FEXP");
  EXPECT_EQ(NLNUMB(12.5F, 2), NLMESS("1.25E1"));
  NUMFMT("EXP");
  EXPECT_FALSE(state()->text.mixOn);
  MIXALF();
  EXPECT_EQ(NLNUMB(12.5F, 2), NLMESS("1.25*10[1$"));
}

TEST_F(Numbers, DigitsAreChecked) {
  open();
  EXPECT_NE(outputOf([] { NUMBER(1.0F, -2, 500, 500); }).find("Warning 2"), std::string::npos);
  EXPECT_NE(outputOf([] { NUMBER(1.0F, 101, 500, 500); }).find("Warning 2"), std::string::npos);
  EXPECT_EQ(outputOf([] { NUMBER(1.0F, 100, 100, 500); }).find("Warning 2"), std::string::npos);
}

TEST_F(Numbers, EqualCells) {
  open();
  SIMPLX();
  HEIGHT(21);
  NUMODE("POIN", "NONE", "NONE", "EQUA");
  // Cells of 0.7 * 1.4 * 20 = 19.6, five of them.
  EXPECT_EQ(NLNUMB(-1.11F, 2), 98);
  EXPECT_FALSE(state()->text.fixedSpacingOn);
}

} // namespace
