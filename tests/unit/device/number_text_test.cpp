#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <string>

#include "device/writers.h"

namespace quilla {
namespace {

std::string real(double value, int decimals, int width = 0) {
  char text[kNumberTextSize + 100];
  const int length = qqfcha(value, decimals, text, width);
  EXPECT_EQ(text[length], '\0');
  return {text, static_cast<std::size_t>(length)};
}

std::string whole(int value, int width = 0, bool zeros = false) {
  char text[kNumberTextSize];
  const int length = qqicha(value, text, width, zeros);
  EXPECT_EQ(text[length], '\0');
  return {text, static_cast<std::size_t>(length)};
}

TEST(NumberText, RealsByHand) {
  EXPECT_EQ(real(3.14159, 2), "3.14");
  EXPECT_EQ(real(0.5, 2), "0.50");
  EXPECT_EQ(real(0.05, 2), "0.05");
  EXPECT_EQ(real(0.004, 2), "0.00");
  EXPECT_EQ(real(0.0, 3), "0.000");
  EXPECT_EQ(real(12.0, 0), "12.");
  EXPECT_EQ(real(0.4, 0), "0.");
  EXPECT_EQ(real(12.0, -1), "12");
  EXPECT_EQ(real(0.4, -1), "0");
  EXPECT_EQ(real(99.996, 2), "100.00");
  EXPECT_EQ(real(123456789.125, 3), "123456789.125");
}

TEST(NumberText, RoundsHalfUpOnTheMagnitude) {
  EXPECT_EQ(real(0.5, -1), "1");
  EXPECT_EQ(real(1.5, -1), "2");
  EXPECT_EQ(real(2.5, -1), "3");
  EXPECT_EQ(real(-2.5, -1), "-3");
  EXPECT_EQ(real(0.125, 2), "0.13");
  EXPECT_EQ(real(-0.125, 2), "-0.13");
}

TEST(NumberText, SignOfZeroNeedsAWidth) {
  EXPECT_EQ(real(-0.001, 2), "0.00");
  EXPECT_EQ(real(-0.001, 2, 7), "  -0.00");
  EXPECT_EQ(real(-0.0, 1), "0.0");
}

TEST(NumberText, PadsWithBlanks) {
  EXPECT_EQ(real(1.5, 1, 6), "   1.5");
  EXPECT_EQ(real(-1.5, 1, 6), "  -1.5");
  EXPECT_EQ(real(12345.5, 1, 3), "12345.5");
  EXPECT_EQ(real(1.0, 6, 10), "  1.000000");
}

TEST(NumberText, LargeNumbersAreExact) {
  EXPECT_EQ(real(4294967296.0, -1), "4294967296");
  EXPECT_EQ(real(18446744073709551616.0, -1), "18446744073709551616"); // 2^64
  EXPECT_EQ(real(std::ldexp(1.0, 100), -1), "1267650600228229401496703205376");
  EXPECT_EQ(real(std::ldexp(-1.0, 100), 0), "-1267650600228229401496703205376.");
}

TEST(NumberText, AtMostAHundredDigits) {
  EXPECT_EQ(real(0.5, 100).size(), 102U); // the zero and the point come on top
  EXPECT_EQ(real(5.0, 100), "5." + std::string(99, '0'));
  EXPECT_EQ(real(1e200, -1), std::string(100, '9'));
  EXPECT_EQ(real(-1e308, 5), "-" + std::string(100, '9') + ".");
}

TEST(NumberText, ManyDecimalsAreExact) {
  EXPECT_EQ(real(0.1, 60), "0.100000000000000005551115123125782702118158340454101562500000");
  EXPECT_EQ(real(-1.5, 30), "-1.5" + std::string(29, '0'));
  EXPECT_EQ(real(5e-324, 100), "0." + std::string(100, '0'));
  EXPECT_EQ(real(0.75, 1), "0.8");
}

// 2^-60 is 8.673617379884035472059622406959533691406250e-19.
TEST(NumberText, HalvesOfLongNumbersRoundUp) {
  EXPECT_EQ(real(std::ldexp(1.0, -60), 59), "0.00000000000000000086736173798840354720596224069595336914063");
  EXPECT_EQ(real(std::ldexp(1.0, -60), 60), "0.000000000000000000867361737988403547205962240695953369140625");
}

TEST(NumberText, NotFinite) {
  EXPECT_EQ(real(std::nan(""), 2), "NaN");
  EXPECT_EQ(real(INFINITY, 2, 5), "  Inf");
  EXPECT_EQ(real(-INFINITY, 2), "-Inf");
}

TEST(NumberText, Integers) {
  EXPECT_EQ(whole(0), "0");
  EXPECT_EQ(whole(-7), "-7");
  EXPECT_EQ(whole(99), "99");
  EXPECT_EQ(whole(100), "100");
  EXPECT_EQ(whole(10000), "10000");
  EXPECT_EQ(whole(INT_MAX), "2147483647");
  EXPECT_EQ(whole(INT_MIN), "-2147483648");
  EXPECT_EQ(whole(42, 6), "    42");
  EXPECT_EQ(whole(-42, 6), "   -42");
  EXPECT_EQ(whole(42, 6, true), "000042");
  EXPECT_EQ(whole(-42, 6, true), "-00042");
  EXPECT_EQ(whole(1234567, 3, true), "1234567");
}

TEST(NumberText, AppendingPutsABlankBetween) {
  char text[kNumberTextSize] = "";
  int length = qqappi(text, 0, 12);
  length = qqappf(text, length, 2.5, 2);
  length = qqappi(text, length, -3);
  EXPECT_STREQ(text, "12 2.50 -3");
  EXPECT_EQ(length, 10);
}

std::string fixed(char* (*put)(char*, double), double value) {
  char text[kFixedTextSize];
  char* end = put(text, value);
  EXPECT_LE(end - text, kFixedTextSize);
  return {text, static_cast<std::size_t>(end - text)};
}

TEST(NumberText, FastFormsByHand) {
  EXPECT_EQ(fixed(putFixed2, 0.0), "0.00");
  EXPECT_EQ(fixed(putFixed2, -0.001), "0.00");
  EXPECT_EQ(fixed(putFixed2, 2.675), "2.68"); // 267.5 exactly after the multiplication
  EXPECT_EQ(fixed(putFixed2, -1234.5), "-1234.50");
  EXPECT_EQ(fixed(putFixed3, 0.709), "0.709");
  EXPECT_EQ(fixed(putFixed1, 52.65), "52.7");
  EXPECT_EQ(fixed(putFixed2, 1e12), "1000000000000.00");
  EXPECT_EQ(fixed(putFixed2, 1e30), "1000000000000.00");
  EXPECT_EQ(fixed(putFixed3, -1e30), "-1000000000000.000");
  EXPECT_EQ(fixed(putFixed2, std::nan("")), "0.00");
}

// The fast forms and the general one are two pieces of code for one rule.
TEST(NumberText, FastFormsEqualTheGeneralForm) {
  unsigned seed = 1;
  for (int i = 0; i < 200000; ++i) {
    seed = seed * 1664525U + 1013904223U;
    const double value = (static_cast<double>(seed) - 2147483648.0) / std::pow(10.0, i % 9);
    ASSERT_EQ(fixed(putFixed1, value), real(value, 1)) << value;
    ASSERT_EQ(fixed(putFixed2, value), real(value, 2)) << value;
    ASSERT_EQ(fixed(putFixed3, value), real(value, 3)) << value;
  }
}

// Eighths have no rounding error, so that the C library agrees where it does not meet a tie.
TEST(NumberText, AgreesWithTheCLibraryAwayFromTies) {
  for (int i = -40000; i < 40000; ++i) {
    const double value = i / 8.0 + 0.027;
    char expected[64];
    std::snprintf(expected, sizeof expected, "%.2f", value);
    const std::string text = real(value, 2);
    ASSERT_EQ(text, std::string(expected) == "-0.00" ? "0.00" : expected);
  }
}

} // namespace
} // namespace quilla
