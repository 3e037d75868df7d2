// Words, numbers as texts and files of bytes.
#include <climits>
#include <cmath>

#include "plot_fixture.h"

namespace {

class Words : public PlotTest {};

} // namespace

TEST_F(Words, BytesAreSwapped) {
  short two[] = {0x0102, -2, 0};
  SWAPI2(two, 2);
  EXPECT_EQ(two[0], 0x0201);
  EXPECT_EQ(two[1], static_cast<short>(0xFEFF));
  int four[] = {0x01020304, -2};
  SWAPI4(four, 2);
  EXPECT_EQ(four[0], 0x04030201);
  EXPECT_EQ(four[1], static_cast<int>(0xFEFFFFFF));
  SWAPI4(four, -1);
}

TEST_F(Words, BitsAreCopied) {
  EXPECT_EQ(BITSI4(4, 0xF, 0, 0, 8), 0xF00);
  EXPECT_EQ(BITSI4(8, 0x1234, 4, -1, 0), static_cast<int>(0xFFFFFF23));
  EXPECT_EQ(BITSI4(32, 0x12345678, 0, 0, 0), 0x12345678);
  EXPECT_EQ(BITSI4(8, -1, 0, 0, 28), static_cast<int>(0xF0000000)); // the rest is outside
  EXPECT_EQ(BITSI4(8, -1, -1, 5, 0), 5);
  EXPECT_EQ(BITSI4(INT_MAX, -1, INT_MAX, 5, INT_MIN), 5);
  EXPECT_EQ(BITSI4(-1, -1, 0, 5, 0), 5);
  EXPECT_EQ(BITSI2(8, 0x00FF, 0, 0x0001, 8), static_cast<short>(0xFF01));
}

TEST_F(Words, Capitals) {
  char text[] = "az AZ {`\xe4";
  UPSTR(text);
  EXPECT_STREQ(text, "AZ AZ {`\xe4");
}

TEST_F(Words, NumbersAsTexts) {
  char text[QUILLA_TEXT_SIZE];
  EXPECT_EQ(INTCHA(INT_MIN, text), 11);
  EXPECT_STREQ(text, "-2147483648");
  EXPECT_EQ(INTLEN(0), 1);
  EXPECT_EQ(INTLEN(-10), 3);
  EXPECT_EQ(FCHA(2.5F, 3, text), 5);
  EXPECT_STREQ(text, "2.500");
  EXPECT_EQ(FCHA(-7.6F, -1, text), 2);
  EXPECT_STREQ(text, "-8");
  EXPECT_EQ(FLEN(3.4e38F, 100), FLEN(3.4e38F, INT_MAX));
  EXPECT_LT(FLEN(-3.4e38F, 100), QUILLA_TEXT_SIZE);
  EXPECT_EQ(FLEN(2.5F, INT_MIN), 1);
}

TEST_F(Words, FilesOfBytes) {
  EXPECT_EQ(OPENFL("data.bin", 1, 1), 0);
  EXPECT_EQ(WRITFL(1, "abcdefgh", 8), 8);
  EXPECT_EQ(TELLFL(1), 8);
  EXPECT_EQ(POSIFL(1, 2), 0);
  char bytes[10] = "";
  EXPECT_EQ(READFL(1, bytes, 3), 3);
  EXPECT_STREQ(bytes, "cde");
  EXPECT_EQ(SKIPFL(1, -1), 0);
  EXPECT_EQ(WRITFL(1, "XY", 2), 2);
  EXPECT_EQ(CLOSFL(1), 0);
  EXPECT_EQ(linesOf("data.bin"), (std::vector<std::string>{"abcdXYgh"}));

  EXPECT_EQ(OPENFL("data.bin", 99, 2), 0);
  EXPECT_EQ(WRITFL(99, "+", 1), 1);
  EXPECT_EQ(CLOSFL(99), 0);
  EXPECT_EQ(OPENFL("data.bin", 5, 0), 0);
  EXPECT_EQ(READFL(5, bytes, 0), 0);
  EXPECT_EQ(READFL(5, bytes, -1), 0);
  EXPECT_EQ(SKIPFL(5, 7), 0);
  EXPECT_EQ(READFL(5, bytes, 10), 2); // what is left
  EXPECT_EQ(WRITFL(5, "x", 1), 0);    // it is open for reading
}

TEST_F(Words, FileFaults) {
  const auto warned = [&](auto call) {
    int result = 0;
    const std::string text = outputOf([&] { result = call(); });
    EXPECT_EQ(result, -1);
    return text;
  };
  const auto wrong = [](const char* name, int n) {
    return std::string(" <<<< Warning 2: Incorrect parameter in ") + name + "!   (" + std::to_string(n) + ")\n";
  };
  EXPECT_EQ(warned([] { return OPENFL("missing", 1, 0); }), " <<<< Warning 36: File error in openfl!   (missing)\n");
  EXPECT_EQ(warned([] { return OPENFL("x", 0, 1); }), wrong("openfl", 0));
  EXPECT_EQ(warned([] { return OPENFL("x", 100, 1); }), wrong("openfl", 100));
  EXPECT_EQ(warned([] { return OPENFL("x", 1, 3); }), wrong("openfl", 3));
  EXPECT_EQ(warned([] { return CLOSFL(1); }), wrong("closfl", 1));
  EXPECT_EQ(warned([] { return TELLFL(7); }), wrong("tellfl", 7));
  char byte;
  EXPECT_EQ(warned([&] { return READFL(-1, &byte, 1); }), wrong("readfl", -1));
  EXPECT_EQ(OPENFL("x", 1, 1), 0);
  EXPECT_EQ(warned([] { return OPENFL("y", 1, 1); }), wrong("openfl", 1)); // the number is taken
  EXPECT_EQ(warned([] { return POSIFL(1, -1); }), wrong("posifl", -1));
}

TEST_F(Words, TexturesAreTheSameEachTime) {
  int values[600], again[600];
  TXTURE(values, 20, 30);
  TXTURE(again, 30, 20);
  int white = 0;
  for (int i = 0; i < 600; i++) {
    EXPECT_TRUE(values[i] == 0 || values[i] == 255);
    EXPECT_EQ(values[i], again[i]);
    white += values[i] == 255;
  }
  EXPECT_NEAR(white, 300, 75);
  TXTURE(nullptr, 0, 30);
  TXTURE(nullptr, -1, -1);
}
