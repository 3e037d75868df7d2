#include <climits>

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

struct CodedLetter {
  int coding, byte, code, alphabet;
};

TEST_F(TextSettings, LettersOfThe8BitCodings) {
  open();
  const CodedLetter letters[] = {
      {kCodingLatin1, 0xC4, 127, 0},      {kCodingLatin1, 0xA1, 185, 0},
      {kCodingLatin1, 0x9F, ' ', 0},      {kCodingLatin2, 0xA1, 188, 0},
      {kCodingLatin2, 0xB9, 202, 0},      {kCodingLatin2, 0xE8, 228, 0}, // A ogonek, s and c caron
      {kCodingLatin2, 0xF5, 235, 0},      {kCodingLatin2, 0xD7, ' ', 0},
      {kCodingLatin2, 0xDF, 133, 0}, // o double acute
      {kCodingLatin3, 0xA1, 245, 0},      {kCodingLatin3, 0xFD, 260, 0},
      {kCodingLatin3, 0xB9, 244, 0}, // H bar, u breve, dotless i
      {kCodingLatin3, 0xA5, ' ', 0},      {kCodingIsoCyrillic, 0xB0, 'A', 6},
      {kCodingIsoCyrillic, 0xA1, '$', 6}, {kCodingIsoCyrillic, 0xEF, 'q', 6},
      {kCodingIsoCyrillic, 0x80, ' ', 1}, {kCodingIsoCyrillic, 0x41, 'A', 0},
      {kCodingKoi8, 0xE1, 'A', 6},        {kCodingKoi8, 0xC1, 'a', 6},
      {kCodingKoi8, 0xA3, '<', 6},        {kCodingKoi8, 0xD1, 'q', 6},
      {kCodingKoi8, 0xA5, ' ', 1},        {kCodingIsoGreek, 0xE1, 'a', 2},
      {kCodingIsoGreek, 0xD9, 'W', 2},    {kCodingIsoGreek, 0xF2, 142, 2},
      {kCodingIsoGreek, 0xB6, 127, 2},    {kCodingIsoGreek, 0xD2, ' ', 1},
      {kCodingUtf8, 0x104, 188, 0},       {kCodingUtf8, 0x11F, 243, 0},
      {kCodingUtf8, 0x406, 'I', 1},       {kCodingUtf8, 0x17F, ' ', 0},
  };
  for (const CodedLetter& l : letters) {
    state()->text.coding = l.coding;
    const PrivateCode found = mapToGlyph(state(), l.byte);
    EXPECT_EQ(found.code, l.code) << l.coding << ' ' << l.byte;
    EXPECT_EQ(found.alphabet, l.alphabet) << l.coding << ' ' << l.byte;
  }
}

TEST_F(TextSettings, ChacodDrawsTheSameLettersInEveryCoding) {
  open();
  COMPLX();
  CHACOD("utf8");
  EXPECT_EQ(state()->text.coding, kCodingUtf8);
  const int russian = NLMESS("\xD0\x9C\xD0\xB8\xD1\x80"), greek = NLMESS("\xCE\xA9\xCE\xBC"); // Mir, Omega mu
  const int polish = NLMESS("\xC5\x81\xC3\xB3\xC4\x87");                                      // L o c with marks
  CHACOD("ISO5");
  EXPECT_EQ(NLMESS("\xBC\xD8\xE0"), russian);
  CHACOD("KOI8");
  EXPECT_EQ(NLMESS("\xED\xC9\xD2"), russian);
  CHACOD("ISO7");
  EXPECT_EQ(NLMESS("\xD9\xEC"), greek);
  CHACOD("ISO2");
  EXPECT_EQ(NLMESS("\xA3\xF3\xE6"), polish);
  EXPECT_GT(polish, 0);
  EXPECT_TRUE(refused(outputOf([] { CHACOD("ISO9"); })));
  EXPECT_EQ(state()->text.coding, kCodingLatin2);
}

TEST_F(TextSettings, ShiftedLettersFollowTheCoding) {
  open();
  EUSHFT("TURK", "~");
  EUSHFT("GERM", "!");
  CHACOD("ISO3");
  EXPECT_EQ(codes("~G~g~I~i~S!a"), (std::vector<int>{171, 187, 169, 185, 170, 228}));
  CHACOD("ISO2");
  EXPECT_EQ(codes("~S~s~G"), (std::vector<int>{170, 186, 32})); // no G breve: a blank
  CHACOD("ISO1");
  EXPECT_EQ(codes("~Ga~O"), (std::vector<int>{32, 'a', 214}));
  CHACOD("KOI8"); // no Latin letters with accents
  EXPECT_EQ(codes("!a"), (std::vector<int>{'!', 'a'}));
}

TEST_F(TextSettings, UtfRoutines) {
  int found[3] = {};
  char text[9] = "";
  EXPECT_EQ(UTFINT("a\xC3\xA4 ", found, 3), 3);
  EXPECT_EQ(found[1], 228);
  EXPECT_EQ(found[2], ' ');
  EXPECT_NE(outputOf([&] {
              EXPECT_EQ(UTFINT("abcd", found, 3), -2);
            }).find("Warning 174: Not enough space in array in utfint!"),
            std::string::npos);
  EXPECT_NE(outputOf([&] { EXPECT_EQ(UTFINT("\x80", found, 3), -1); }).find("Syntax error in UTF string"),
            std::string::npos);
  const int codes[] = {'a', 0x7FF, 0x20AC, 0x1F600 - 0x10000};
  EXPECT_EQ(INTUTF(codes, 3, text, 6), 6);
  EXPECT_EQ(std::string(text, 6), "a\xDF\xBF\xE2\x82\xAC");
  EXPECT_EQ(INTUTF(codes, 3, text, 9), 6);
  EXPECT_STREQ(text, "a\xDF\xBF\xE2\x82\xAC");
  EXPECT_NE(outputOf([&] { EXPECT_EQ(INTUTF(codes, 3, text, 5), -2); }).find("Not enough space in string"),
            std::string::npos);
  const int last = 2097151, big = 2097152, negative = -1;
  EXPECT_EQ(INTUTF(&last, 1, text, 4), 4);
  EXPECT_EQ(std::string(text, 4), "\xF7\xBF\xBF\xBF");
  EXPECT_NE(outputOf([&] { EXPECT_EQ(INTUTF(&big, 1, text, 9), -1); }).find("Number too big for UTF8 conversion"),
            std::string::npos);
  outputOf([&] { EXPECT_EQ(INTUTF(&negative, 1, text, 9), -1); });
  EXPECT_EQ(INTUTF(codes, INT_MIN, text, INT_MIN), 0);
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
