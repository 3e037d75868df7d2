#include "text/stroke_font.h"

#include <gtest/gtest.h>

#include "plot_fixture.h"
#include "text/stroke_tables.h"
#include "text/text.h"

using namespace quilla;

namespace {

constexpr int ordinalOf(int code) { return code - 31; }

// Two records: a line of two points, then the same line moved by (3.5, -1) and a second line of its own.
constexpr std::int16_t kTestPoints[] = {0x0000, 0x0705, 0x0100, 0x0202};
constexpr std::int16_t kTestIndex[] = {3, 2, 1, 6, -2, 1, static_cast<std::int16_t>(0xFE07), 2, 3};

AlphabetSlot testSlot() {
  AlphabetSlot slot;
  slot.alphaX = slot.alphaY = kTestPoints;
  slot.alphaIndex = kTestIndex;
  slot.alphaCount = 3;
  return slot;
}

TEST(GlyphRecord, IsFoundByWalkingLengths) {
  const AlphabetSlot slot = testSlot();
  EXPECT_EQ(glyphRecord(slot, 1), nullptr); // the blank has no record
  EXPECT_EQ(glyphRecord(slot, 2), kTestIndex);
  EXPECT_EQ(glyphRecord(slot, 3), kTestIndex + 3);
  EXPECT_EQ(glyphRecord(slot, 4), nullptr);
}

TEST(GlyphRecord, NegativeCountTakesThreeWords) {
  const AlphabetSlot slot = testSlot();
  EXPECT_FLOAT_EQ(recordWidth(slot, kTestIndex, kLineFontUnit), 5.0F);
  // 5 + 7 half units; the stroke behind the three words reaches 2 only.
  EXPECT_FLOAT_EQ(recordWidth(slot, kTestIndex + 3, kLineFontUnit), 8.5F);
}

struct FontCase {
  int id, counts[kAlphabetSlots];
};

class Fonts : public PlotTest {};

TEST_F(Fonts, GlyphCounts) {
  const FontCase cases[] = {{kQuialf, {132, 95, 131, 102, 102, 95}},  {kComplx, {233, 116, 131, 102, 102, 95}},
                            {kSimplx, {132, 95, 131, 102, 102, 95}},  {kDuplx, {132, 116, 131, 102, 102, 95}},
                            {kTriplx, {132, 116, 131, 102, 102, 95}}, {kGothic, {95, 116, 131, 95, 102, 95}}};
  for (const FontCase& c : cases) {
    installFont(state(), c.id);
    for (int i = 0; i < kAlphabetSlots; ++i)
      EXPECT_EQ(state()->font.slots[i].alphaCount, c.counts[i]) << c.id << ' ' << i;
  }
}

TEST_F(Fonts, SlotsThatShareTables) {
  installFont(state(), kSimplx);
  const AlphabetSlot* slots = state()->font.slots;
  EXPECT_EQ(slots[1].alphaX, slots[0].alphaX); // Greek of SIMPLX: own index on slot 1's points
  EXPECT_EQ(slots[1].alphaCoordBase, 0);
  EXPECT_NE(slots[1].alphaIndex, slots[0].alphaIndex);
  EXPECT_EQ(slots[3].alphaIndex, slots[0].alphaIndex); // italic is slot 1, slanted
  EXPECT_EQ(slots[3].alphaIndexBase, 0);
  EXPECT_NE(slots[2].alphaCoordBase, 0);
}

TEST_F(Fonts, Metrics) {
  installFont(state(), kQuialf);
  EXPECT_EQ(state()->font.blankWidth, 6);
  EXPECT_EQ(state()->font.slots[0].alphaXDiv, 6);
  EXPECT_EQ(state()->font.slots[0].alphaYDiv, 7);
  EXPECT_FLOAT_EQ(state()->font.slots[0].alphaGap, 0.0F);
  EXPECT_EQ(state()->font.slots[2].alphaXDiv, 20);
  installFont(state(), kComplx);
  EXPECT_EQ(state()->font.blankWidth, 9);
  EXPECT_EQ(state()->font.slots[0].alphaYDiv, 21);
  EXPECT_FLOAT_EQ(state()->font.slots[0].alphaGap, 0.25F);
  EXPECT_FLOAT_EQ(state()->font.slots[4].alphaGap, 0.0F);
}

// Every record of every table ends where the next begins, refers to points of the table, and holds signed bytes.
TEST_F(Fonts, EveryReachableGlyphHasARecord) {
  const int reachable[kAlphabetSlots] = {0, 74, 89, 30, 60, 67}; // ordinals after folding
  for (int id : {kQuialf, kComplx, kSimplx, kDuplx, kTriplx, kGothic}) {
    installFont(state(), id);
    for (int i = 0; i < kAlphabetSlots; ++i) {
      const AlphabetSlot& slot = state()->font.slots[i];
      const bool foldedOnly = i > 0 && slot.alphaIndexBase != 0;
      int last = foldedOnly ? reachable[i] : slot.alphaCount;
      if (i == 1 && slot.alphaCount == 95) last = 53; // no accented letters
      if (i == 3 && id == kGothic) last = 53;         // capital and small letters
      for (int k = 2; k <= last; ++k) {
        const std::int16_t* record = glyphRecord(slot, k);
        ASSERT_NE(record, nullptr);
        ASSERT_GT(record[0], 2) << "font " << id << " slot " << i + 1 << " ordinal " << k;
        ASSERT_LT(record[0], 100);
        const float width = recordWidth(slot, record, kLineFontUnit);
        EXPECT_GE(width, 0.0F);
        EXPECT_LE(width, 32.0F);
      }
    }
  }
}

TEST_F(Fonts, CapitalsAreAsHighAsTheText) {
  for (int id : {kComplx, kSimplx, kDuplx, kTriplx, kQuialf}) {
    installFont(state(), id);
    const AlphabetSlot& slot = state()->font.slots[0];
    for (char c : {'E', 'H', 'I', 'L', 'T'}) {
      const std::int16_t* record = glyphRecord(slot, ordinalOf(c));
      int low = 127, high = -128;
      for (int at = 1; at < record[0];) {
        const int n = record[at], s = record[at + 1] - 1;
        const int dy = n < 0 ? static_cast<std::int8_t>(record[at + 2] >> 8) : 0;
        for (int i = 0; i < (n < 0 ? -n : n); ++i) {
          const int y = 2 * static_cast<std::int8_t>(slot.alphaX[s + i] >> 8) + dy;
          low = std::min(low, y);
          high = std::max(high, y);
        }
        at += n < 0 ? 3 : 2;
      }
      EXPECT_EQ(low, 0) << id << c;
      EXPECT_EQ(high, 2 * slot.alphaYDiv) << id << c;
    }
  }
}

TEST_F(Fonts, DigitsHaveOneWidth) {
  for (int id : {kComplx, kSimplx, kDuplx, kTriplx, kGothic}) {
    installFont(state(), id);
    const AlphabetSlot& slot = state()->font.slots[0];
    for (char c = '0'; c <= '9'; ++c)
      EXPECT_FLOAT_EQ(recordWidth(slot, glyphRecord(slot, ordinalOf(c)), kLineFontUnit), id == kGothic ? 16.0F : 14.0F)
          << id << c;
  }
}

void expectChoice(GlyphChoice found, int ordinal, bool standard) {
  EXPECT_EQ(found.ordinal, ordinal);
  EXPECT_EQ(found.fromStandard, standard);
}

TEST(RemapOrdinal, Greek) {
  constexpr int kGreek = kAlphabetGreek, kMathCount = 131;
  expectChoice(remapOrdinal(kGreek, kSimplx, kMathCount, 34), 2, false);  // A
  expectChoice(remapOrdinal(kGreek, kSimplx, kMathCount, 59), 27, false); // Z
  expectChoice(remapOrdinal(kGreek, kSimplx, kMathCount, 66), 28, false); // a
  expectChoice(remapOrdinal(kGreek, kSimplx, kMathCount, 91), 53, false); // z
  expectChoice(remapOrdinal(kGreek, kSimplx, kMathCount, 33), 33, true);  // @
  expectChoice(remapOrdinal(kGreek, kSimplx, kMathCount, 60), 60, true);  // [
  expectChoice(remapOrdinal(kGreek, kSimplx, kMathCount, 92), 92, true);  // {
  expectChoice(remapOrdinal(kGreek, kSimplx, kMathCount, 96), 54, false); // first accented letter
}

TEST(RemapOrdinal, OtherAlphabets) {
  constexpr int kMathCount = 131;
  expectChoice(remapOrdinal(1, kComplx, kMathCount, 150), 150, false);
  expectChoice(remapOrdinal(3, kComplx, kMathCount, 131), 89, false);
  expectChoice(remapOrdinal(3, kComplx, kMathCount, 132), 32, true); // beyond: the question mark
  expectChoice(remapOrdinal(4, kComplx, kMathCount, 66), 2, false);
  expectChoice(remapOrdinal(4, kComplx, kMathCount, 99), 28, false);
  expectChoice(remapOrdinal(4, kComplx, kMathCount, 34), 34, true); // capitals come from slot 1
  expectChoice(remapOrdinal(5, kComplx, kMathCount, 96), 54, false);
  expectChoice(remapOrdinal(6, kComplx, kMathCount, 66), 38, false);
  expectChoice(remapOrdinal(6, kComplx, kMathCount, 63), 37, false);
  expectChoice(remapOrdinal(6, kComplx, kMathCount, 29), 5, false);
  expectChoice(remapOrdinal(6, kComplx, kMathCount, 5), 2, false);
  expectChoice(remapOrdinal(6, kComplx, kMathCount, 64), 64, true);
  expectChoice(remapOrdinal(6, kComplx, kMathCount, 96), 32, true);
}

class DrawnText : public PlotTest {};

TEST_F(DrawnText, ItalicOfSimplxIsSlotOneSlanted) {
  // Upright "l" is one vertical line, 21 units high; slanted by 1/3.732 its top moves 21 / 3.732 = 5.63 to the right.
  open();
  SIMPLX();
  HEIGHT(22);
  BASALF("ITAL");
  textAt(state(), "l", 1000, 1000);
  const std::vector<std::string> moves = traced("move"), draws = traced("draw");
  ASSERT_EQ(moves.size(), 1U);
  ASSERT_EQ(draws.size(), 1U);
  EXPECT_EQ(moves[0], "1005.63 1000.00");
  EXPECT_EQ(draws[0], "1000.00 1021.00");
}

TEST_F(DrawnText, StrokeIsPlacedByAngleHeightAndWidth) {
  // "L" of SIMPLX: down the stem (0,21) (0,0), then to (12,0).
  open();
  SIMPLX();
  HEIGHT(43); // scales 42 / 20 and 42 / 21
  CHAWTH(0.5F);
  ANGLE(90);
  textAt(state(), "L", 500, 700);
  // The upper left corner (500, 700), text running upward: baseline 42 to the right of it.
  EXPECT_EQ(traced("move")[0], "500.00 700.00");
  const std::vector<std::string> draws = traced("draw");
  ASSERT_GE(draws.size(), 2U);
  EXPECT_EQ(draws[0], "542.00 700.00");
  EXPECT_EQ(draws.back(), "542.00 687.40"); // 12 units * 2.1 * 0.5
}

TEST_F(DrawnText, OrdinalAboveTheCountIsTheBlank) {
  open();
  SIMPLX();
  HEIGHT(43);
  const char beyond[] = {static_cast<char>(164), 'l', 0};
  EXPECT_EQ(NLMESS(beyond), NLMESS(" l"));
  BASALF("GREE");
  EXPECT_EQ(NLMESS(beyond), NLMESS(" l"));
}

TEST_F(DrawnText, GreekOfComplxEndsAt116) {
  open();
  COMPLX();
  BASALF("GREE");
  const char last[] = {static_cast<char>(147), 0}, beyond[] = {static_cast<char>(148), 'a', 0};
  textAt(state(), last, 500, 500);
  EXPECT_GT(NLMESS(last), 0);
  EXPECT_EQ(NLMESS(beyond), NLMESS(" a"));
  EXPECT_FALSE(traced("draw").empty());
}

TEST_F(DrawnText, BlankAdvances) {
  open();
  SIMPLX();
  HEIGHT(21);
  // Blank 9 units and gap 0.25 * 21, then "l" of width 0: 9 * 20 / 20 + 5.25 = 14.25.
  EXPECT_EQ(NLMESS(" l"), 14);
  QUIALF();
  EXPECT_EQ(NLMESS(" l"), 40); // two cells of 6 units of 20 / 6
}

TEST_F(DrawnText, GothicHasItalianAndGermanLetters) {
  open();
  GOTHIC();
  HEIGHT(21);
  // The gap of slot 5 is that of the other slots here: no extra move before a sign of slot 1.
  EXPECT_FLOAT_EQ(state()->font.slots[4].alphaGap, 0.25F);
  const char umlaut[] = {127, 0}, beyond[] = {static_cast<char>(134), 'a', 0};
  const int upright = NLMESS("H");
  BASALF("SCRI");
  EXPECT_GT(NLMESS(umlaut), 0);
  EXPECT_EQ(NLMESS(beyond), NLMESS(" a")); // letters end with the sharp s
  BASALF("ITAL");
  EXPECT_NE(NLMESS("H"), upright);
  EXPECT_EQ(NLMESS("1"), 16);
}

TEST_F(DrawnText, QuialfIsFixed) {
  open();
  QUIALF();
  HEIGHT(37);
  EXPECT_EQ(NLMESS("iiii"), 4 * 36);
  EXPECT_EQ(NLMESS("WMW."), 4 * 36);
  BASALF("GREE");
  EXPECT_EQ(NLMESS("abWi"), 4 * 36);
}

TEST_F(DrawnText, ScriptLettersAdvanceBeforeSignsOfSlotOne) {
  open();
  COMPLX();
  HEIGHT(21);
  BASALF("SCRI");
  const int letter = NLMESS("a"), digit = NLMESS("1");
  // One gap of slot 1 between the letter and the digit: 0.25 * 21.
  EXPECT_NEAR(NLMESS("a1"), letter + 5.25 + digit, 1.0);
}

TEST_F(DrawnText, FixedSpacingCentresGlyphs) {
  open();
  SIMPLX();
  HEIGHT(21);
  FIXSPC(1.0F); // cells of 1.4 * 20 = 28
  EXPECT_EQ(NLMESS("lll"), 84);
  textAt(state(), "l", 1000, 1000);
  EXPECT_EQ(traced("move")[0], "1014.00 1000.00");
}

} // namespace
