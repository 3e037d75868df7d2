#include <cmath>

#include "plot_fixture.h"
#include "text/coding.h"
#include "text/text.h"

using namespace quilla;

namespace {

class TextSettings : public PlotTest {
protected:
  std::vector<int> codes(const char* text) {
    const int count = decodeText(state(), text);
    return {state()->textState.textCodes, state()->textState.textCodes + count};
  }
};

bool refused(const std::string& output) { return output.find("Warning 2") != std::string::npos; }

TEST_F(TextSettings, Height) {
  open();
  HEIGHT(10000);
  EXPECT_EQ(GETHGT(), 10000);
  EXPECT_TRUE(refused(outputOf([] { HEIGHT(10001); })));
  EXPECT_TRUE(refused(outputOf([] { HEIGHT(0); })));
  EXPECT_EQ(GETHGT(), 10000);
  HEIGHT(1);
  EXPECT_EQ(GETHGT(), 1);
  EXPECT_EQ(NLMESS("abc"), 0); // one line of the page high
}

TEST_F(TextSettings, WidthFactorLiesBetweenZeroAndTwo) {
  open();
  EXPECT_TRUE(refused(outputOf([] { CHAWTH(2.0F); })));
  EXPECT_TRUE(refused(outputOf([] { CHAWTH(0.0F); })));
  EXPECT_TRUE(refused(outputOf([] { CHAWTH(NAN); })));
  EXPECT_FLOAT_EQ(state()->text.charWidthFactor, 1.0F);
  CHAWTH(1.99F);
  EXPECT_FLOAT_EQ(state()->text.charWidthFactor, 1.99F);
}

TEST_F(TextSettings, Slant) {
  open();
  CHAANG(45.0F);
  EXPECT_NEAR(state()->text.charSlant, 1.0F, 1e-6);
  EXPECT_TRUE(refused(outputOf([] { CHAANG(60.5F); })));
  EXPECT_TRUE(refused(outputOf([] { CHAANG(-60.5F); })));
  EXPECT_NEAR(state()->text.charSlant, 1.0F, 1e-6);
  CHAANG(-60.0F);
  EXPECT_NEAR(state()->text.charSlant, -std::sqrt(3.0), 1e-5);
}

TEST_F(TextSettings, FixedSpacing) {
  open();
  EXPECT_TRUE(refused(outputOf([] { FIXSPC(0.0F); })));
  EXPECT_FALSE(state()->text.fixedSpacingOn);
  FIXSPC(0.5F);
  EXPECT_TRUE(state()->text.fixedSpacingOn);
}

TEST_F(TextSettings, Alphabets) {
  open();
  EXPECT_STREQ(GETALF(), "STAN");
  BASALF("greek");
  EXPECT_STREQ(GETALF(), "GREE");
  EXPECT_TRUE(refused(outputOf([] { BASALF("INST"); }))); // no alphabet of texts
  EXPECT_NE(
      outputOf([] { SMXALF("GREE", "{", "}", 1); }).find("Warning 19: The basealphabet cannot be used in smxalf!"),
      std::string::npos);
  EXPECT_EQ(state()->text.alphabetShiftCount, 0);
  EXPECT_TRUE(refused(outputOf([] { SMXALF("ITAL", "{", "}", 7); })));
  EXPECT_TRUE(refused(outputOf([] { SMXALF("ITAL", "{", "}", 0); })));
  SMXALF("ITAL", "{", "}", 6);
  EXPECT_EQ(state()->text.alphabetShiftCount, 6);
}

TEST_F(TextSettings, AlphabetShiftChangesTheLetters) {
  open();
  SIMPLX();
  BASALF("GREE");
  const int greek = NLMESS("m");
  BASALF("STAN");
  SMXALF("GREE", "{", "}", 1);
  EXPECT_EQ(NLMESS("{m}"), greek);
  EXPECT_NE(NLMESS("m"), greek);
  EXPECT_EQ(state()->font.currentAlphabet, 1);
}

TEST_F(TextSettings, ShiftCharacters) {
  open();
  EUSHFT("GERM", "!");
  EXPECT_EQ(codes("!A!o!s"), (std::vector<int>{127, 131, 133}));
  EXPECT_EQ(codes("!!"), (std::vector<int>{'!'}));
  EXPECT_EQ(codes("a!"), (std::vector<int>{'a', '!'}));
  std::vector<int> kept;
  EXPECT_NE(outputOf([&] { kept = codes("!x"); }).find("Warning 18: Incorrect character after the eushft operator"),
            std::string::npos);
  EXPECT_EQ(kept, (std::vector<int>{'!', 'x'}));
  EUSHFT("TURK", "~");
  EXPECT_EQ(codes("~G~I~i~s"), (std::vector<int>{241, 242, 244, 206}));
  EUSHFT("SPAN", "#");
  EXPECT_EQ(codes("#!#?#N"), (std::vector<int>{185, 186, 140}));
}

TEST_F(TextSettings, ShiftCharactersMustDiffer) {
  open();
  EUSHFT("GERM", "!");
  EXPECT_NE(outputOf([] { EUSHFT("FREN", "!"); }).find("Warning 57: Control characters must be different in eushft!"),
            std::string::npos);
  EXPECT_EQ(state()->text.shiftChars[3], 0);
  EXPECT_EQ(outputOf([] { EUSHFT("GERM", "!"); }), "");
}

TEST_F(TextSettings, Utf8) {
  int out[4];
  EXPECT_EQ(decodeUtf8("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", out, 4), 4);
  EXPECT_EQ(out[1], 228);
  EXPECT_EQ(out[2], 0x20AC);
  EXPECT_EQ(out[3], 0x1F600);
  EXPECT_EQ(decodeUtf8("abcde", out, 4), -2);
  EXPECT_EQ(decodeUtf8("\x80", out, 4), -1);
  EXPECT_EQ(decodeUtf8("\xC3", out, 4), -1);
  EXPECT_EQ(decodeUtf8("\xC3(", out, 4), -1);
  EXPECT_EQ(decodeUtf8("\xF8\x80\x80\x80", out, 4), -1);
}

TEST_F(TextSettings, Utf8TextsMapToPrivateCodes) {
  open();
  state()->text.coding = kCodingUtf8;
  EXPECT_EQ(mapToGlyph(state(), 0xC4).code, 127); // A dieresis
  EXPECT_EQ(mapToGlyph(state(), 0xDF).code, 133); // germandbls
  EXPECT_EQ(mapToGlyph(state(), 0xE0).code, 163); // a grave
  EXPECT_EQ(mapToGlyph(state(), 0xFF).code, 184); // y dieresis
  EXPECT_EQ(mapToGlyph(state(), 0xA1).code, 185);
  EXPECT_EQ(mapToGlyph(state(), 0xA9).code, 264);
  EXPECT_EQ(mapToGlyph(state(), 0xD7).code, 32);   // no multiplication sign
  EXPECT_EQ(mapToGlyph(state(), 0x3B1).code, 'a'); // alpha
  EXPECT_EQ(mapToGlyph(state(), 0x3B1).alphabet, 2);
  EXPECT_EQ(mapToGlyph(state(), 0x3C9).code, 'w'); // omega
  EXPECT_EQ(mapToGlyph(state(), 0x3CE).code, 147); // omega with accent
  EXPECT_EQ(mapToGlyph(state(), 0x416).code, '['); // Cyrillic zhe
  EXPECT_EQ(mapToGlyph(state(), 0x416).alphabet, 6);
  EXPECT_EQ(mapToGlyph(state(), 0x451).code, '<'); // Cyrillic small io
  EXPECT_EQ(mapToGlyph(state(), 0x20AC).code, 32);
  EXPECT_NE(outputOf([] { MESSAG("\xC3", 100, 100); }).find("Warning 174: Syntax error in UTF string in messag!"),
            std::string::npos);
}

TEST_F(TextSettings, TextsAreLimitedTo256Codes) {
  open();
  EXPECT_EQ(codes(std::string(256, 'a').c_str()).size(), 256U);
  std::size_t count = 1;
  const std::string output = outputOf([&] { count = codes(std::string(257, 'a').c_str()).size(); });
  EXPECT_NE(output.find("Warning 174: Not enough space in array"), std::string::npos);
  EXPECT_EQ(count, 0U);
}

} // namespace
