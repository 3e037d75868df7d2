#include "plot_fixture.h"
#include "text/text.h"

using namespace quilla;

namespace {

class Instructions : public PlotTest {
protected:
  void openInstructions() {
    open();
    SIMPLX();
    HEIGHT(101);
    SMXALF("INST", "(", ")", 1);
  }
  float cursor(const char* text) {
    textAt(state(), text, 300, 400);
    return state()->textState.textCursorX - 300.0F;
  }
};

TEST_F(Instructions, MovesAndTabs) {
  openInstructions();
  EXPECT_NEAR(cursor("(A2)"), 202, 0.01);
  EXPECT_NEAR(cursor("(T500)"), 500, 0.01);
  EXPECT_NEAR(cursor("(A1 P3 A2 G3)"), 101, 0.01);
  EXPECT_NEAR(cursor("(C2)"), 2 * 25.25, 0.01);
  EXPECT_NEAR(cursor("(F)"), 9 * 5 + 25.25, 0.01); // a blank of 9 units
  EXPECT_NEAR(cursor("H(G)"), 0, 0.01);            // tab 1 is the start of the line
}

TEST_F(Instructions, HeightIsPutBack) {
  openInstructions();
  EXPECT_EQ(NLMESS("(H0.5)H"), 35); // height 50.5 rounds to 51: 14 units of 50 / 20
  EXPECT_EQ(GETHGT(), 101);
}

TEST_F(Instructions, ScriptsAndReturn) {
  openInstructions();
  textAt(state(), "(E)", 300, 400);
  EXPECT_EQ(GETHGT(), 101);
  EXPECT_LT(NLMESS("(E)H"), NLMESS("H"));
  EXPECT_EQ(NLMESS("(E)H(EX)H"), NLMESS("(I)H(R)H"));
}

TEST_F(Instructions, Alphabet) {
  openInstructions();
  BASALF("GREE");
  const int greek = NLMESS("m");
  BASALF("STAN");
  EXPECT_EQ(NLMESS("(M2)m"), greek);
  EXPECT_EQ(NLMESS("(M2)(MX)m"), NLMESS("m"));
}

TEST_F(Instructions, Messages) {
  openInstructions();
  const auto said = [this](const char* text) { return outputOf([&] { textAt(state(), text, 300, 400); }); };
  EXPECT_NE(said("(Q)").find("Warning 46: Instruction code: unknown command"), std::string::npos);
  EXPECT_NE(said("(P1.5)").find("Warning 45: Instruction code: no integer value"), std::string::npos);
  EXPECT_NE(said("(P21)").find("Warning 44: Instruction code: incorrect tabulator index"), std::string::npos);
  EXPECT_NE(said("(A1-2)").find("Warning 43: Instruction code: incorrect parameter"), std::string::npos);
  EXPECT_NE(said("(A1-2)").find("(A1-2)"), std::string::npos);
  EXPECT_NE(said("(M7)").find("Warning 43"), std::string::npos);
  EXPECT_NE(said("(S22)").find("Warning 43"), std::string::npos);
  EXPECT_EQ(said("(P20)"), "");
  EXPECT_NE(said("(A123456789012345678901234567890)").find("out of page"), std::string::npos); // cut, not overrun
}

TEST_F(Instructions, LinesAreDrawnFromTheTab) {
  openInstructions();
  textAt(state(), "(A1 P1 A2 L1)", 300, 400);
  const std::vector<std::string> moves = traced("move"), draws = traced("draw");
  ASSERT_EQ(moves.size(), 1U);
  EXPECT_EQ(moves[0], "401.00 520.20"); // 0.2 of the height below the baseline at 500
  EXPECT_EQ(draws[0], "603.00 520.20");
}

TEST_F(Instructions, ColorIsPutBack) {
  openInstructions();
  const int color = state()->color.currentColor;
  textAt(state(), "(N50)H", 300, 400);
  EXPECT_EQ(state()->color.currentColor, color);
}

TEST_F(Instructions, SymbolsTurnWithTheText) {
  openInstructions();
  ANGLE(90);
  textAt(state(), "(S5)H", 300, 800); // a diamond centred half a height along and above the baseline
  const std::vector<std::string> moves = traced("move"), draws = traced("draw");
  ASSERT_GE(draws.size(), 4U);
  // Baseline at x = 400; centre (349.5, 749.5); the tip above the text is the one at the left.
  EXPECT_EQ(moves[0], "299.00 749.50");
  EXPECT_EQ(draws[1], "400.00 749.50");
}

} // namespace
