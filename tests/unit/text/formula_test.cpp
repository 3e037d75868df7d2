#include <cmath>
#include <string>

#include "plot_fixture.h"
#include "text/coding.h"
#include "text/formula.h"
#include "text/text.h"

using namespace quilla;

namespace {

class Formulas : public PlotTest {
protected:
  void openFormulas() {
    open();
    SIMPLX();
    HEIGHT(101);
    TEXMOD("ON");
  }
  std::string said(const std::string& text) {
    return outputOf([&] { MESSAG(text.c_str(), 300, 400); });
  }
  void expectMessage(const std::string& text, const char* message) {
    EXPECT_NE(said(text).find(message), std::string::npos) << text << "\n" << said(text);
  }
  static std::string repeated(const char* part, int n) {
    std::string all;
    for (int i = 0; i < n; ++i) all += part;
    return all;
  }
};

TEST_F(Formulas, PlainTextsStayWhatTheyAre) {
  open();
  SIMPLX();
  HEIGHT(101);
  const int plain = NLMESS("Speed in m/s (ab)");
  TEXMOD("ON");
  EXPECT_EQ(NLMESS("Speed in m/s (ab)"), plain);
  EXPECT_EQ(NLMESS("$ab$"), NLMESS("ab"));
  EXPECT_EQ(NLMESS("$a b$"), NLMESS("ab")); // blanks do not count between "$"
  EXPECT_GT(NLMESS("a b"), NLMESS("ab"));
}

TEST_F(Formulas, ControlCharacters) {
  openFormulas();
  const int backslash = NLMESS("a\\\\b"), brace = NLMESS("\\{"), dollar = NLMESS("\\$5");
  const int hat = NLMESS("a^2");
  TEXMOD("OFF");
  EXPECT_EQ(backslash, NLMESS("a\\b"));
  EXPECT_EQ(brace, NLMESS("{"));
  EXPECT_EQ(dollar, NLMESS("$5"));
  EXPECT_EQ(hat, NLMESS("a^2")); // no exponent outside "$"
  TEXMOD("ON");
  SETMIX("@", "TEX");
  EXPECT_EQ(said("@alpha"), "");
  EXPECT_EQ(NLMESS("a@@b"), NLMESS("aMb") - NLMESS("M") + NLMESS("@@"));
}

TEST_F(Formulas, ExponentsAndIndices) {
  openFormulas();
  textAt(state(), "$l^{l}_{l}$", 300, 400); // bars of no width: each is one line
  const std::vector<std::string> moves = traced("move"), draws = traced("draw");
  ASSERT_EQ(draws.size(), 3U);
  EXPECT_EQ(draws[0], "300.00 500.00");
  // Size 0.6 * 101 = 61; the exponent's foot is 1.1 * 61 = 67.1 above the baseline at 500, the index' 0.6 * 61 = 36.6
  // below it, each 12 beside the base.
  EXPECT_EQ(draws[1], "312.12 432.90");
  EXPECT_EQ(moves[1], "312.12 372.90");
  EXPECT_EQ(draws[2].substr(0, 6), "312.12");
  EXPECT_GE(std::stof(draws[2].substr(7)), 536.6F);
}

TEST_F(Formulas, SizeOfExponents) {
  openFormulas();
  TEXVAL(0.5F, "EXP");
  textAt(state(), "$l^l$", 300, 400);
  const std::vector<std::string> moves = traced("move"), draws = traced("draw");
  // 0.3 * 101 = 30: the foot at 33 above the baseline, the line 29 high.
  EXPECT_EQ(draws[1], "312.12 467.00");
  EXPECT_EQ(moves[1], "312.12 438.00");
}

TEST_F(Formulas, FractionBar) {
  openFormulas();
  textAt(state(), "$\\D\\frac{ll}{l}$", 300, 400);
  // "ll" is one gap wide, 25.25; the bar reaches 10.1 beyond it on both sides and lies 30.3 above the baseline.
  const std::vector<std::string> moves = traced("move"), draws = traced("draw");
  ASSERT_EQ(moves.size(), 4U);
  EXPECT_EQ(moves[0], "300.00 469.70");
  EXPECT_EQ(draws[0], "345.45 469.70");
  // Numerator and denominator keep 0.2 of the height off the bar.
  EXPECT_EQ(draws[1], "310.10 449.50");
  EXPECT_EQ(moves[3], "322.73 489.90");
}

TEST_F(Formulas, RootSign) {
  openFormulas();
  textAt(state(), "$\\sqrt{l}$", 300, 400);
  const std::vector<std::string> moves = traced("move"), draws = traced("draw");
  EXPECT_EQ(moves[0], "300.00 449.50");    // starts at half the height
  EXPECT_EQ(draws[1], "350.50 500.00");    // to the lowest point of the radicand
  EXPECT_EQ(draws[2].substr(7), "359.60"); // top of the radicand and 0.4 of the height
  EXPECT_EQ(draws[3], "421.20 359.60");    // 1.2 of the height wider than the radicand
}

TEST_F(Formulas, LengthIsWhatIsDrawn) {
  openFormulas();
  for (const char* text : {"$x = \\frac{-b \\pm \\sqrt{b^2 - 4ac}}{2a}$", "$\\D\\sum_{i=1}^n i^2$", "\\sin x",
                           "\\vec{a}\\quad", "$\\left( \\frac{1}{2} \\right)^n$", "\\Big( x \\Big)", "{\\large A}b"}) {
    const int length = NLMESS(text);
    textAt(state(), text, 300, 400);
    const TextState& t = state()->textState;
    EXPECT_NEAR(t.textCursorX - t.gap - 300.0F, length, 0.51) << text;
    EXPECT_GT(length, 0) << text;
  }
}

TEST_F(Formulas, SettingsComeBack) {
  openFormulas();
  const int color = state()->color.currentColor;
  textAt(state(), "{\\red \\Huge a^2 \\gr b} \\blue c", 300, 400);
  EXPECT_EQ(state()->color.currentColor, color);
  EXPECT_EQ(state()->text.textHeight, 101);
  EXPECT_EQ(state()->font.currentAlphabet, 1);
  EXPECT_FLOAT_EQ(state()->text.charWidthFactor, 1.0F);
  const std::vector<std::string> colors = traced("color");
  EXPECT_GE(colors.size(), 3U);
}

TEST_F(Formulas, ItalicLettersOnlyInMathematics) {
  openFormulas();
  TEXOPT("ON", "ITAL");
  textAt(state(), "l$l$", 300, 400);
  const std::vector<std::string> moves = traced("move"), draws = traced("draw");
  EXPECT_EQ(moves[0].substr(0, 6), draws[0].substr(0, 6)); // upright
  EXPECT_NE(moves[1].substr(0, 6), draws[1].substr(0, 6)); // slanted
}

TEST_F(Formulas, LimitsAboveAndBelow) {
  openFormulas();
  const int beside = NLMESS("$\\D\\sum_{i=1}^{n}$"), above = NLMESS("$\\D\\sum\\limits_{i=1}^{n}$");
  EXPECT_LT(above, beside);
  TEXOPT("ON", "LIMI");
  EXPECT_EQ(NLMESS("$\\D\\sum_{i=1}^{n}$"), above);
  EXPECT_EQ(NLMESS("$\\D\\sum\\nolimits_{i=1}^{n}$"), beside);
  EXPECT_LT(NLMESS("$\\sum_{i=1}^{n}$"), beside); // text style: beside a smaller sign
}

TEST_F(Formulas, VectorBrackets) {
  openFormulas();
  TEXOPT("VECT", "BRAC");
  textAt(state(), "\\left[ l \\right.", 300, 400);
  const std::vector<std::string> moves = traced("move"), draws = traced("draw");
  ASSERT_EQ(draws.size(), 4U);
  // 0.3 of the height wide, and 0.1 of it beyond the line of 100 on both sides.
  EXPECT_EQ(moves[0], "330.30 510.10");
  EXPECT_EQ(draws[0], "300.00 510.10");
  EXPECT_EQ(draws[1], "300.00 389.90");
  EXPECT_EQ(draws[2], "330.30 389.90");
}

TEST_F(Formulas, BracketsGrow) {
  openFormulas();
  textAt(state(), "\\left( \\frac{\\frac{a}{b}}{\\frac{c}{d}} \\right)", 300, 400);
  float low = -1e9F, high = 1e9F;
  QUIFIN();
  for (const char* word : {"move", "draw"}) {
    for (const std::string& line : traced(word)) {
      float x = 0, y = 0;
      std::sscanf(line.c_str(), "%f %f", &x, &y);
      if (x > 340) continue; // the left bracket only
      low = std::max(low, y);
      high = std::min(high, y);
    }
  }
  EXPECT_GT(low - high, 160.0F); // a parenthesis of the font is 152 high
}

TEST_F(Formulas, Messages) {
  openFormulas();
  expectMessage("\\frac a", "Warning 137: Syntax error for fractions in messag!");
  expectMessage("\\frac{a}", "Warning 148: Missing denominator for fractions");
  expectMessage("\\overline a", "Warning 139: Syntax error for overstrike");
  expectMessage("\\underline a", "Warning 141: Syntax error for understrike");
  expectMessage("\\hat a", "Warning 139: Syntax error for hat");
  expectMessage("\\tilde a", "Warning 139: Syntax error for tilde");
  expectMessage("\\dot a", "Warning 139: Syntax error for dot");
  expectMessage("\\vec a", "Warning 140: Syntax error for vec");
  expectMessage("\\nothing", "Warning 142: Unknown TeX command");
  expectMessage("\\abcdefghijklmnopqrstuvwxyzabcdefgh", "Warning 142: Unknown TeX command");
  expectMessage("$a^b^c$", "Warning 144: Syntax error for Indices/Exponents");
  expectMessage("$a^$", "Warning 144: Syntax error for Indices/Exponents");
  expectMessage("\\sqrt", "Warning 145: Syntax error - missing root");
  expectMessage("\\sqrt[3]", "Warning 145: Syntax error - missing root");
  expectMessage("{a", "Warning 147: Unbalanced parenthesis");
  expectMessage("a}", "Warning 147: Unbalanced parenthesis");
  expectMessage("\\left a b \\right)", "Warning 176: Not allowed bracket symbol");
  expectMessage("\\right)", "Warning 176: Missing left bracket symbol");
  expectMessage("\\big a", "Warning 143: Not allowed bracket symbol");
  EXPECT_EQ(said("\\deg \\dec \\diameter \\copyright $\\not=$"), "");
}

TEST_F(Formulas, Limits) {
  openFormulas();
  HEIGHT(10);
  const auto nested = [](const char* open, int n) { return repeated(open, n) + "x" + repeated("}", n); };
  EXPECT_EQ(said(nested("{", 8)), "");
  expectMessage(nested("{", 9), "Warning 146: Too many nested parenthesis");
  EXPECT_EQ(said(nested("\\sqrt{", 8)), "");
  expectMessage(nested("\\sqrt{", 9), "Warning 136: Too many nested roots");
  EXPECT_EQ(said("$" + nested("a^{", 8) + "$"), "");
  expectMessage("$" + nested("a^{", 9) + "$", "Warning 143: Too many nested exponents/indices");
  const auto fractions = [](int n) { return repeated("\\frac{1", n) + repeated("}{2}", n); };
  EXPECT_EQ(said(fractions(8)), "");
  expectMessage(fractions(9), "Warning 138: Too many fractions");
  EXPECT_EQ(said(repeated("\\frac{1}{2}", 20)), "");
  expectMessage(repeated("\\frac{1}{2}", 21), "Warning 138: Too many fractions");
  const auto brackets = [](int n) { return repeated("\\left(", n) + repeated("\\right)", n); };
  EXPECT_EQ(said(brackets(18)), ""); // 18 pairs fill a text of 256 codes
  expectMessage(repeated("\\left(", 21), "Warning 177: Too many brackets");
  expectMessage(repeated("\\left(", 20), "Warning 147: Unbalanced parenthesis");
}

TEST_F(Formulas, NothingIsDrawnAfterAnError) {
  openFormulas();
  TXTJUS("CENT");
  const std::string output = outputOf([] { MESSAG("abc \\frac{a}", 900, 900); });
  EXPECT_NE(output.find("Warning 148"), std::string::npos);
  EXPECT_EQ(output.find("Warning 148"), output.rfind("Warning 148")); // said once
  outputOf([] { EXPECT_EQ(NLMESS("a^{"), 0); });
  EXPECT_TRUE(traced("draw").empty());
}

TEST_F(Formulas, Settings) {
  open();
  const auto refused = [](const std::string& output) { return output.find("Warning 2") != std::string::npos; };
  EXPECT_TRUE(refused(outputOf([] { TEXMOD("YES"); })));
  EXPECT_TRUE(refused(outputOf([] { TEXOPT("VECT", "ITAL"); })));
  EXPECT_TRUE(refused(outputOf([] { TEXOPT("ON", "BRAC"); })));
  EXPECT_TRUE(refused(outputOf([] { TEXVAL(0.0F, "VBRA"); })));
  EXPECT_TRUE(refused(outputOf([] { TEXVAL(-1.0F, "WBRA"); })));
  EXPECT_FALSE(refused(outputOf([] { TEXVAL(-1.0F, "H1BR"); })));
  EXPECT_FALSE(state()->text.texOn);
  // Wild factors do no harm.
  TEXMOD("ON");
  for (float x : {-1e30F, 0.0F, 1e30F, NAN}) {
    for (const char* key : {"EXP", "H1BR", "H2BR", "OPER"}) TEXVAL(x, key);
    outputOf([] { MESSAG("$\\sum^{a}_b \\left( \\frac{a}{b} \\right) \\bigg($", 500, 500); });
  }
}

TEST_F(Formulas, NumbersKeepTheirExponents) {
  open();
  SIMPLX();
  NUMFMT("EXP");
  const int length = NLNUMB(12300.0F, 2);
  TEXMOD("ON");
  EXPECT_EQ(NLNUMB(12300.0F, 2), length);
}

TEST_F(Formulas, TableOfNames) {
  for (const char* name : {"alpha",     "Omega",    "pm",    "circ",  "not=",
                           "sum",       "quad",     ",",     "!",     "lim",
                           "limits",    "rm",       "ru",    "SS",    "scriptscriptstyle",
                           "tiny",      "Huge",     "black", "back",  "tanh",
                           "copyright", "diameter", "left",  "right", "low",
                           "Bigg"})
    EXPECT_NE(findCommand(name).kind, CommandKind::Unknown) << name;
  EXPECT_EQ(findCommand("pm").value, 70);
  EXPECT_EQ(findCommand("times").value, 68);
  EXPECT_EQ(findCommand("le").value, 72);
  EXPECT_EQ(findCommand("in").value, 87);
  EXPECT_EQ(findCommand("infty").value, 108);
  EXPECT_EQ(findCommand("circ").value, 162);
  EXPECT_EQ(findCommand("theta").value, 'q');
  EXPECT_EQ(findCommand("Alpha").kind, CommandKind::Unknown);
  EXPECT_EQ(findCommand("").kind, CommandKind::Unknown);
}

} // namespace
