#include <cmath>

#include "plot_fixture.h"
#include "text/ring_fill.h"
#include "text/stroke_font.h"
#include "text/text.h"

using namespace quilla;

namespace {

constexpr int kOutlineFonts[] = {kHelve, kHelves, kHelvet, kSerif};

class OutlineFonts : public PlotTest {};

TEST_F(OutlineFonts, CountsAndMetrics) {
  for (int id : kOutlineFonts) {
    installFont(state(), id);
    const FontGroup& font = state()->font;
    const int counts[kAlphabetSlots] = {132, 116, 131, 102, 102, 95};
    for (int i = 0; i < kAlphabetSlots; ++i) EXPECT_EQ(font.slots[i].alphaCount, counts[i]) << id << ' ' << i;
    EXPECT_FALSE(font.slots[0].alphaPacked);
    EXPECT_TRUE(font.slots[1].alphaPacked);
    EXPECT_FALSE(font.slots[3].alphaPacked); // slot 1's tables
    EXPECT_NE(font.slots[0].alphaX, font.slots[0].alphaY);
    EXPECT_EQ(font.slots[0].alphaXDiv, 200);
    EXPECT_EQ(font.slots[3].alphaYDiv, 200);
    EXPECT_EQ(font.slots[1].alphaXDiv, 20);
    EXPECT_FLOAT_EQ(font.slots[0].alphaGap, 0.2F);
    EXPECT_EQ(font.blankWidth, 60);
  }
}

// Contours are closed, have no two equal neighbours, stay within reach and fit the polygon of a filled glyph.
TEST_F(OutlineFonts, ContoursAreClosed) {
  for (int id : kOutlineFonts) {
    installFont(state(), id);
    const AlphabetSlot& slot = state()->font.slots[0];
    for (int k = 2; k <= slot.alphaCount; ++k) {
      const std::int16_t* record = glyphRecord(slot, k);
      ASSERT_NE(record, nullptr);
      int points = 0;
      for (int at = 1; at < record[0];) {
        const int n = std::abs(record[at]), s = record[at + 1] - 1;
        at += record[at] < 0 ? 3 : 2;
        points += n + 1;
        if (n == 1) continue; // widens a digit's cell
        ASSERT_GE(n, 4) << id << ' ' << k;
        EXPECT_EQ(slot.alphaX[s], slot.alphaX[s + n - 1]) << id << ' ' << k;
        EXPECT_EQ(slot.alphaY[s], slot.alphaY[s + n - 1]) << id << ' ' << k;
        for (int i = 1; i < n; ++i)
          EXPECT_FALSE(slot.alphaX[s + i] == slot.alphaX[s + i - 1] && slot.alphaY[s + i] == slot.alphaY[s + i - 1]);
      }
      EXPECT_LE(points, kGlyphPolygonLimit);
      EXPECT_LE(recordWidth(slot, record, kOutlineFontUnit), 290.0F);
      EXPECT_GE(recordHeights(slot, record, kOutlineFontUnit).low, -80.0F);
      EXPECT_LE(recordHeights(slot, record, kOutlineFontUnit).high, 290.0F);
    }
    const GlyphHeights capital = recordHeights(slot, glyphRecord(slot, 'H' - 31), kOutlineFontUnit);
    EXPECT_EQ(capital.low, 0.0F);
    EXPECT_EQ(capital.high, 200.0F);
    const float digit = recordWidth(slot, glyphRecord(slot, '8' - 31), kOutlineFontUnit);
    for (char c = '0'; c <= '9'; ++c)
      EXPECT_NEAR(recordWidth(slot, glyphRecord(slot, c - 31), kOutlineFontUnit), digit, 2.0F) << id << c;
  }
}

TEST_F(OutlineFonts, AccentsStandOverTheirLetters) {
  installFont(state(), kHelve);
  const AlphabetSlot& slot = state()->font.slots[0];
  const float plain = recordHeights(slot, glyphRecord(slot, 'A' - 31), kOutlineFontUnit).high;
  const float dieresis = recordHeights(slot, glyphRecord(slot, 127 - 31), kOutlineFontUnit).high;
  EXPECT_GT(dieresis, plain + 20.0F);
  EXPECT_FLOAT_EQ(recordWidth(slot, glyphRecord(slot, 127 - 31), kOutlineFontUnit),
                  recordWidth(slot, glyphRecord(slot, 'A' - 31), kOutlineFontUnit));
}

TEST_F(OutlineFonts, OutlinesAreDrawnAndOnlyFilledWhenAsked) {
  open();
  HELVE();
  HEIGHT(201);
  MESSAG("H", 300, 400);
  EXPECT_FALSE(traced("draw").empty());
  EXPECT_TRUE(traced("fill").empty());
}

TEST_F(OutlineFonts, FilledLetters) {
  open();
  HELVE();
  HEIGHT(201);
  SHDCHA();
  MESSAG("i8", 300, 400);
  RESET("SHDCHA");
  MESSAG("i8", 300, 700);
  // The i is a stem and a dot; the 8 with both its counters is one polygon.
  EXPECT_EQ(traced("fill").size(), 3U);
}

TEST_F(OutlineFonts, OriginIsCountedOnce) {
  open();
  PAGORG("TOP");
  HELVE();
  HEIGHT(201);
  SHDCHA();
  ORIGIN(50, 30);
  MESSAG("l", 300, 400);
  const std::vector<std::string> moves = traced("move"), fills = traced("fill");
  ASSERT_FALSE(fills.empty());
  // The page point of the first corner stands in both.
  EXPECT_NE(fills[0].find(moves[0]), std::string::npos) << moves[0] << '\n' << fills[0];
}

TEST_F(OutlineFonts, RingsNest) {
  open();
  // A square with a hole that holds another square, and one apart.
  const float x[] = {0, 90, 90, 0, 10, 80, 80, 10, 20, 70, 70, 20, 200, 210, 210, 200};
  const float y[] = {0, 0, 90, 90, 10, 10, 80, 80, 20, 20, 70, 70, 0, 0, 10, 10};
  const int ends[] = {4, 8, 12, 16};
  fillRings(state(), x, y, ends, 4);
  const int degenerate[] = {1, 3};
  fillRings(state(), x, y, degenerate, 2); // nothing to fill
  fillRings(state(), x, y, ends, 0);
  EXPECT_EQ(traced("fill").size(), 3U);
}

} // namespace
