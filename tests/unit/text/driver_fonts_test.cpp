#include "plot_fixture.h"
#include "text/text.h"

using namespace quilla;

namespace {

class DriverFonts : public PlotTest {};

TEST_F(DriverFonts, LengthFromWidths) {
  open();
  PSFONT("times-roman");
  EXPECT_STREQ(state()->font.fontName, "Times-Roman");
  EXPECT_EQ(state()->font.fontKind, kFontPostScript);
  EXPECT_EQ(state()->font.fontId, kComplx);
  HEIGHT(100);
  // A is 102 units: 102 / 40 * 100 * 0.28346458 * 1000 / 683 = 105.83.
  EXPECT_EQ(NLMESS("A"), 106);
  EXPECT_EQ(NLMESS("AA"), 222); // and a gap of 10
}

TEST_F(DriverFonts, GlyphsReachTheDriver) {
  open();
  PSFONT("Helvetica");
  HEIGHT(51);
  ANGLE(90);
  MESSAG("Ab", 500, 800);
  const std::vector<std::string> glyphs = traced("glyph");
  ASSERT_EQ(glyphs.size(), 2U);
  EXPECT_EQ(glyphs[0], "65 550.00 800.00 90"); // baseline 50 units right of the corner
  EXPECT_EQ(glyphs[1].substr(0, 9), "98 550.00");
}

TEST_F(DriverFonts, UnknownName) {
  open();
  EXPECT_NE(outputOf([] { PSFONT("Gill"); }).find("Warning 192: Not a standard PostScript font in psfont!   (Gill)"),
            std::string::npos);
  EXPECT_STREQ(state()->font.fontName, "Times-Roman");
}

TEST_F(DriverFonts, StrokeFontEndsIt) {
  open();
  HWFONT();
  EXPECT_EQ(state()->font.fontKind, kFontPostScript);
  SIMPLX();
  EXPECT_EQ(state()->font.fontKind, kFontStroke);
}

TEST_F(DriverFonts, GreekIsDrawnByStrokesUnlessShifted) {
  open();
  PSFONT("Times-Roman");
  SMXALF("GREE", "{", "}", 1);
  MESSAG("{a}", 500, 800);
  EXPECT_TRUE(traced("glyph").empty());
}

TEST_F(DriverFonts, ShiftedGreekUsesSymbol) {
  open();
  PSFONT("Times-Roman");
  state()->text.psShiftFonts = 1;
  SMXALF("GREE", "{", "}", 1);
  MESSAG("a{c}b", 500, 800);
  EXPECT_STREQ(state()->font.fontName, "Times-Roman");
  const std::vector<std::string> glyphs = traced("glyph"), fonts = traced("font");
  ASSERT_EQ(glyphs.size(), 3U);
  EXPECT_EQ(glyphs[1].substr(0, 3), "103"); // gamma is at g in Symbol
  ASSERT_EQ(fonts.size(), 3U);
  EXPECT_EQ(fonts[1].substr(0, 2), "34");
  EXPECT_EQ(fonts[2].substr(0, 1), "0");
}

TEST_F(DriverFonts, OtherDevicesHaveNone) {
  open();
  const int pdf = state()->deviceSetup.deviceNumber;
  state()->deviceSetup.deviceNumber = 401;
  EXPECT_NE(outputOf([] { PSFONT("Times-Roman"); }).find("Warning 49: Fileformat is not PostScript in psfont!"),
            std::string::npos);
  HWFONT();
  EXPECT_EQ(state()->font.fontId, kComplx);
  EXPECT_EQ(state()->font.fontKind, kFontStroke);
  state()->deviceSetup.deviceNumber = pdf;
}

} // namespace
