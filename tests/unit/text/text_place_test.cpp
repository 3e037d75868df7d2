#include <cmath>

#include "plot_fixture.h"
#include "text/text.h"

using namespace quilla;

namespace {

struct Extent {
  float x0 = 1e9F, x1 = -1e9F, y0 = 1e9F, y1 = -1e9F;
};

class Placed : public PlotTest {
protected:
  void openSimplx(int height) {
    open();
    SIMPLX();
    HEIGHT(height);
  }
  // Extent of everything that was drawn; ends the plot.
  Extent drawnExtent() {
    QUIFIN();
    Extent e;
    for (const char* word : {"move", "draw"}) {
      for (const std::string& line : traced(word)) {
        float x = 0, y = 0;
        std::sscanf(line.c_str(), "%f %f", &x, &y);
        e = {std::min(e.x0, x), std::max(e.x1, x), std::min(e.y0, y), std::max(e.y1, y)};
      }
    }
    return e;
  }
};

TEST_F(Placed, LengthIsWhatIsDrawn) {
  openSimplx(43);
  const int length = NLMESS("HillH");
  MESSAG("HillH", 300, 400);
  const Extent e = drawnExtent();
  EXPECT_NEAR(e.x0, 300, 0.01);
  EXPECT_NEAR(e.x1 - e.x0, length, 0.51);
  // (300, 400) is the upper left corner, 43 units cover 43 lines.
  EXPECT_NEAR(e.y0, 400 - 2, 0.01); // the dot of i reaches one unit above the capitals
  EXPECT_NEAR(e.y1, 442, 0.01);
}

TEST_F(Placed, LengthKeepsTheCursor) {
  openSimplx(36);
  MESSAG("abc", 300, 400);
  const float x = state()->textState.textCursorX, y = state()->textState.textCursorY;
  NLMESS("a long text that is only measured");
  EXPECT_EQ(state()->textState.textCursorX, x);
  EXPECT_EQ(state()->textState.textCursorY, y);
}

TEST_F(Placed, BlanksHaveNoLength) {
  openSimplx(36);
  EXPECT_EQ(NLMESS("     "), 0);
  EXPECT_EQ(NLMESS(""), 0);
  EXPECT_EQ(NLMESS("a   "), NLMESS("a"));
  const float x = state()->textState.textCursorX;
  MESSAG("   ", 500, 500);
  EXPECT_EQ(state()->textState.textCursorX, x);
  EXPECT_TRUE(traced("draw").empty());
}

TEST_F(Placed, UprightTextMovesTheCursorUp) {
  openSimplx(36);
  ANGLE(90);
  MESSAG("up", 500, 800);
  EXPECT_FLOAT_EQ(state()->textState.textCursorX, 535); // the baseline, exactly vertical
  EXPECT_LT(state()->textState.textCursorY, 800 - 30);
}

TEST_F(Placed, AnglesOfRightAnglesAreExact) {
  open();
  const float sines[] = {0, 1, 0, -1}, cosines[] = {1, 0, -1, 0};
  for (int turn = -8; turn <= 8; ++turn) {
    ANGLE(90 * turn);
    EXPECT_EQ(state()->text.textSin, sines[(turn + 8) % 4]);
    EXPECT_EQ(state()->text.textCos, cosines[(turn + 8) % 4]);
  }
  ANGLE(30);
  EXPECT_FLOAT_EQ(state()->text.textSin, 0.5F);
}

TEST_F(Placed, ContinuesAtTheCursor) {
  openSimplx(43);
  MESSAG("HH", 300, 400);
  MESSAG("HH", 999, 999);
  const Extent e = drawnExtent();
  // Four letters of 14 units of 42 / 20 and three gaps of a quarter of the height.
  EXPECT_NEAR(e.x1 - e.x0, 4 * 29.4 + 3 * 10.75, 0.01);
}

TEST_F(Placed, FirstTextContinuesAtTheOrigin) {
  openSimplx(43);
  ORIGIN(200, 300);
  MESSAG("H", 999, 999);
  const Extent e = drawnExtent();
  EXPECT_NEAR(e.x0, 200, 0.01);
  EXPECT_NEAR(e.y1, 300, 0.01);
}

TEST_F(Placed, OriginIsAdded) {
  openSimplx(43);
  ORIGIN(100, 50);
  MESSAG("H", 300, 400);
  const Extent e = drawnExtent();
  EXPECT_NEAR(e.x0, 400, 0.01);
  EXPECT_NEAR(e.y0, 450, 0.01);
}

TEST_F(Placed, Justification) {
  openSimplx(43);
  TXTJUS("CENT");
  TXTJUS("BOTT");
  const int length = NLMESS("HH"); // 2 * 29.4 + 10.75 = 69.55, rounded
  EXPECT_EQ(length, 70);
  MESSAG("HH", 300, 400);
  const Extent e = drawnExtent();
  EXPECT_NEAR(e.x0, 300 - 35, 0.01);
  EXPECT_NEAR(e.y0, 400 - 43, 0.01);
}

TEST_F(Placed, TextAtWithRestores) {
  openSimplx(43);
  ANGLE(15);
  textAtWith(state(), "H", 300, 400, 90, 20);
  EXPECT_EQ(GETHGT(), 43);
  EXPECT_EQ(GETANG(), 15);
}

TEST_F(Placed, ExponentIsRaisedAndSmall) {
  openSimplx(101);
  MIXALF();
  NEWMIX();
  MESSAG("^H%", 300, 400);
  const Extent e = drawnExtent();
  // Baseline at 500, raised by 0.75 * 101; height 0.6 * 101 = 60.6, rounded 61, so 60 units from foot to top.
  EXPECT_NEAR(e.y1, 500 - 75.75, 0.01);
  EXPECT_NEAR(e.y0, 500 - 75.75 - 60, 0.01);
}

TEST_F(Placed, IndexIsLoweredAsFarAsAnExponentReachesUp) {
  openSimplx(101);
  MIXALF();
  NEWMIX();
  MESSAG("_H%", 300, 400);
  const Extent e = drawnExtent();
  EXPECT_NEAR(e.y1, 500 + 0.35 * 101, 0.01);
}

TEST_F(Placed, ShiftsAreUndoneAfterTheText) {
  openSimplx(101);
  MIXALF();
  NEWMIX();
  MESSAG("x^2_3", 300, 400);
  EXPECT_NEAR(state()->textState.textCursorY, 500, 0.01);
  EXPECT_EQ(GETHGT(), 101);
}

TEST_F(Placed, ControlCharactersAreTextWithoutMixalf) {
  openSimplx(36);
  NEWMIX();
  const int with = NLMESS("a^b"), bare = NLMESS("ab");
  EXPECT_GT(with, bare);
  MIXALF();
  EXPECT_LT(NLMESS("a^b"), bare); // b is smaller now
  SETMIX("!", "EXP");
  EXPECT_EQ(NLMESS("a^b"), with);
}

TEST_F(Placed, SizeAndShiftOfExponents) {
  openSimplx(101);
  MIXALF();
  NEWMIX();
  SETEXP(0.5F);
  SETBAS(0.8F);
  MESSAG("^H%", 300, 400);
  const Extent e = drawnExtent();
  EXPECT_NEAR(e.y1, 500 - 80.8, 0.01);
  EXPECT_NEAR(e.y1 - e.y0, 50, 0.01); // 0.5 * 101 rounds to 51
}

TEST_F(Placed, WarnsOfTextOffThePage) {
  openSimplx(36);
  EXPECT_NE(
      outputOf([] { MESSAG("H", -50, 400); }).find("Warning 193: Startpoint (  -50/  400) out of page in messag!"),
      std::string::npos);
  EXPECT_NE(outputOf([] { MESSAG("HHHHHHHH", 2900, 400); }).find("Warning 193: Endpoint ("), std::string::npos);
  EXPECT_EQ(outputOf([] { MESSAG("H", 2900, 400); }), "");
}

TEST_F(Placed, FrameStandsAroundTheText) {
  openSimplx(101);
  FRMESS(1);
  MESSAG("HH", 300, 400);
  const Extent e = drawnExtent();
  // 0.2 of the height on each side.
  EXPECT_NEAR(e.x0, 300 - 20.2, 0.02);
  EXPECT_NEAR(e.y0, 400 - 20.2, 0.02);
  EXPECT_NEAR(e.y1, 500 + 20.2, 0.02);
}

TEST_F(Placed, BackgroundIsFilledFirst) {
  openSimplx(101);
  const int color = state()->color.currentColor;
  TXTBGD(50);
  MESSAG("HH", 300, 400);
  EXPECT_EQ(state()->color.currentColor, color);
  EXPECT_EQ(traced("fill").size(), 1U);
  bool filled = false;
  for (const std::string& line : linesOf("trace.txt")) {
    if (line.rfind("fill", 0) == 0) filled = true;
    EXPECT_TRUE(filled || line.rfind("draw", 0) != 0);
  }
}

TEST_F(Placed, BackgroundColorIsChecked) {
  open();
  EXPECT_NE(outputOf([] { TXTBGD(-2); }).find("Warning 2"), std::string::npos);
  EXPECT_EQ(outputOf([] { TXTBGD(-1); }), "");
}

} // namespace
