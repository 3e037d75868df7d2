#include "device/ps_fonts.h"

#include <gtest/gtest.h>

using namespace quilla;

namespace {

int width(const char* font, int code) {
  std::int16_t widths[156];
  fillPsWidths(findPsFont(font), widths);
  return widths[code - 32];
}

TEST(PsFonts, FoundByNameInEitherCase) {
  EXPECT_EQ(findPsFont("Times-Roman"), 0);
  EXPECT_EQ(findPsFont("times-bold"), 1);
  EXPECT_EQ(findPsFont("SYMBOL  "), 34);
  EXPECT_EQ(findPsFont("Times"), -1);
  EXPECT_EQ(findPsFont(""), -1);
  EXPECT_EQ(findPsFont(nullptr), -1);
  // Cut to 30 characters first: 28 and two blanks.
  EXPECT_EQ(findPsFont("Helvetica-Narrow-BoldOblique      and more"), 11);
  EXPECT_EQ(findPsFont("Helvetica-Narrow-BoldOblique X"), -1);
  EXPECT_STREQ(kPsFonts[findPsFont("palatino-bolditalic")].name, "Palatino-BoldItalic");
}

// Published advance widths in 1/1000 em, times 40 / 283.46458, rounded.
TEST(PsFonts, PublishedWidths) {
  EXPECT_EQ(width("Times-Roman", 'A'), 102);       // 722
  EXPECT_EQ(width("Times-Roman", ' '), 35);        // 250
  EXPECT_EQ(width("Times-Roman", '0'), 71);        // 500
  EXPECT_EQ(width("Times-Bold", 'M'), 133);        // 944
  EXPECT_EQ(width("Helvetica", 'i'), 31);          // 222
  EXPECT_EQ(width("Helvetica", 'W'), 133);         // 944
  EXPECT_EQ(width("Helvetica-Oblique", 'W'), 133); // as the upright one
  EXPECT_EQ(width("Helvetica-Bold", 'a'), 78);     // 556
  EXPECT_EQ(width("Helvetica-Narrow", 'W'), 109);  // 774
  EXPECT_EQ(width("Symbol", 'a'), 89);             // alpha, 631
  EXPECT_EQ(width("AvantGarde-Book", 'l'), 28);    // 200
  EXPECT_EQ(width("Palatino-Roman", 'A'), 110);    // 778
  EXPECT_EQ(width("Bookman-Light", 'A'), 96);      // 680
  EXPECT_EQ(width("Courier", 'i'), 84);
  EXPECT_EQ(width("Courier-BoldOblique", 187), 84);
}

TEST(PsFonts, AccentedLettersAndComputedWidths) {
  EXPECT_EQ(width("Times-Roman", 127), 102);             // A dieresis
  EXPECT_EQ(width("Times-Roman", 133), 71);              // germandbls, 500
  EXPECT_EQ(width("Times-Roman", 134), 102);             // A ring as A
  EXPECT_EQ(width("Times-Roman", 136), 102 / 2 + 86);    // AE
  EXPECT_EQ(width("Times-Roman", 139), 63 * 2 / 3 + 63); // ae
  EXPECT_EQ(width("Times-Roman", 185), 47);              // inverted ! as !
  EXPECT_EQ(width("Times-Roman", 186), 63);              // inverted ? as ?
  EXPECT_EQ(width("Times-Roman", 187), 94 * 5 / 4);      // C * 5 / 4
}

} // namespace
