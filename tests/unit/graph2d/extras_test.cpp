// Labels added to axes, erased systems, areas without patterns or backgrounds, chords of circles.
#include <cmath>
#include <sstream>

#include "plot_fixture.h"

namespace {

class Extras : public PlotTest {
protected:
  static std::vector<double> numbers(const std::string& line) {
    std::istringstream in(line);
    std::vector<double> values;
    for (double v = 0; in >> v;) values.push_back(v);
    return values;
  }
  void openSystem() {
    open();
    AXSPOS(400, 1600);
    AXSLEN(1001, 801);
    NOGRAF();
    GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  }
};

} // namespace

TEST_F(Extras, LabelHasItsTickAtTheValue) {
  openSystem();
  TICLEN(30, 10);
  ADDLAB("", 2.5F, 2, "X");
  ADDLAB("", 7.5F, 1, "YRIGHT");
  const auto moves = traced("move"), draws = traced("draw");
  ASSERT_GE(draws.size(), 2U);
  // 2.5 of 10 on 1000 units from 400; the tick of 30 units points down from 1600.
  EXPECT_EQ(numbers(moves[moves.size() - 2]), (std::vector<double>{650, 1600}));
  EXPECT_EQ(numbers(draws[draws.size() - 2]), (std::vector<double>{650, 1630}));
  // 7.5 of 10 on 800 units above 1600; the right axis stands at 1400.
  EXPECT_EQ(numbers(moves[moves.size() - 1]), (std::vector<double>{1400, 1000}));
  EXPECT_EQ(numbers(draws[draws.size() - 1]), (std::vector<double>{1410, 1000}));
}

TEST_F(Extras, LabelOutsideIsRefused) {
  openSystem();
  EXPECT_EQ(outputOf([] { ADDLAB("a", 10.1F, 0, "X"); }), " <<<< Warning 108: values out of range in addlab!\n");
  EXPECT_EQ(outputOf([] { ADDLAB("a", 10.0F, 0, "X"); }), "");
  EXPECT_NE(outputOf([] { ADDLAB("a", 1.0F, 3, "X"); }), "");
  EXPECT_NE(outputOf([] { ADDLAB("a", 1.0F, 0, "W"); }), "");
}

TEST_F(Extras, LabelCountsDecades) {
  open();
  AXSPOS(400, 1600);
  AXSLEN(1001, 801);
  NOGRAF();
  AXSSCL("LOG", "X");
  GRAF(0, 4, 0, 1, 0, 10, 0, 1);
  ADDLAB("", 100.0F, 2, "X");
  const auto moves = traced("move");
  ASSERT_FALSE(moves.empty());
  EXPECT_EQ(numbers(moves.back())[0], 900); // two of four decades
}

TEST_F(Extras, SystemIsErased) {
  openSystem();
  AXSERS();
  const auto bars = traced("bar");
  ASSERT_EQ(bars.size(), 1U);
  const auto v = numbers(bars[0]);
  EXPECT_EQ(std::vector<double>(v.begin(), v.begin() + 4), (std::vector<double>{400, 800, 1400, 1600}));
}

TEST_F(Extras, RoundSystemHasARoundBackground) {
  open();
  AXSPOS(400, 1600);
  AXSLEN(801, 801);
  AXSBGD(50);
  POLAR(1, 0, 0.5F, 0, 30);
  const auto fills = traced("fill");
  ASSERT_EQ(fills.size(), 1U);
  const auto v = numbers(fills[0]);
  ASSERT_EQ(v.size(), 1 + 2 * v[0]);
  for (std::size_t i = 1; i < v.size(); i += 2) EXPECT_NEAR(std::hypot(v[i] - 800, v[i + 1] - 1200), 400, 0.6);
}

TEST_F(Extras, BackgroundsCanBeLeftOut) {
  open();
  AXSPOS(400, 1600);
  AXSLEN(801, 801);
  AXSBGD(50);
  NOBGD();
  GRAF(0, 1, 0, 1, 0, 1, 0, 1);
  TXTBGD(60);
  MESSAG("text", 500, 500);
  ENDGRF();
  RESET("NOBGD");
  EXPECT_TRUE(state()->area.backgroundsDrawn);
  EXPECT_EQ(traced("bar").size() + traced("fill").size(), 0U);
}

TEST_F(Extras, AreasCanBeLeftEmpty) {
  open();
  SHDPAT(16);
  NOFILL();
  RECTAN(100, 100, 50, 50);
  RESET("NOFILL");
  RECTAN(300, 100, 50, 50);
  const auto fills = traced("fill");
  ASSERT_EQ(fills.size(), 1U);
  EXPECT_EQ(numbers(fills[0])[1], 300);
}

TEST_F(Extras, ChordsOfCirclesHaveALength) {
  open();
  SHDPAT(16);
  NOARLN();
  CIRCSP(100);
  CIRCLE(1000, 800, 400); // 2513 units around
  CIRCSP(5000);
  CIRCLE(1000, 800, 400);
  RESET("CIRCSP");
  CIRCLE(1000, 800, 400);
  EXPECT_NE(outputOf([] { CIRCSP(-1); }), "");
  const auto fills = traced("fill");
  ASSERT_EQ(fills.size(), 3U);
  EXPECT_EQ(numbers(fills[0])[0], 25 + 1);
  EXPECT_EQ(numbers(fills[1])[0], 8 + 1);
  EXPECT_EQ(numbers(fills[2])[0], 180 + 1);
}

TEST_F(Extras, SwitchesOfTexts) {
  open();
  EXPECT_EQ(GETBLK(), NLMESS(" "));
  TXTMOD("FILL");
  EXPECT_TRUE(state()->text.shadeCharacters);
  TXTOPT("OFF", "SHDC");
  EXPECT_FALSE(state()->text.shadeCharacters);
  TXTOPT("ON", "MIXA");
  EXPECT_TRUE(state()->text.mixOn);
  TXTOPT("OFF", "MIXA");
  EXPECT_FALSE(state()->text.mixOn);
  FIXSPC(0.8F);
  TXTOPT("OFF", "FIXS");
  EXPECT_FALSE(state()->text.fixedSpacingOn);
}

TEST_F(Extras, EverythingIsForgotten) {
  PAGE(1000, 1000);
  open();
  EXPECT_EQ(outputOf([] { DELGLB(); }), " <<<< Warning 3: Incorrect level in delglb!   (1)\n");
  EXPECT_EQ(GETDFL(), 1);
  QUIFIN();
  DELGLB();
  EXPECT_EQ(state()->level.plotLevel, 0);
  METAFL("VIRT");
  QUIINI();
  int w = 0, h = 0;
  GETPAG(&w, &h);
  EXPECT_EQ(w, 2970);
  EXPECT_EQ(GETDFL(), 0);
}

// Without smoothing every pixel of a steep line is pen or paper.
TEST_F(Extras, LinesAreSmoothOnlyWhenAsked) {
  unsetenv("QUILLA_TRACE");
  IMGFMT("RGB");
  METAFL("VIRT");
  QUIINI();
  IMGMOD("RGB");
  const auto mixed = [] {
    LINE(500, 200, 700, 1900);
    std::vector<unsigned char> row(3 * 853);
    IMGINI();
    RPXROW(row.data(), 0, 300, 853);
    IMGFIN();
    int n = 0;
    for (unsigned char byte : row) n += byte != 0 && byte != 255;
    return n;
  };
  LINMOD("OFF", "SMOOTH");
  EXPECT_EQ(mixed(), 0);
  ERASE();
  LINMOD("ON", "SMOOTH");
  EXPECT_GT(mixed(), 0);
}

// 20 of 0 to 40 in the middle of a bar of 400 units that starts at 1600.
TEST_F(Extras, LabelAtTheColourBar) {
  open();
  AXSPOS(400, 1600);
  AX3LEN(1001, 801, 401);
  int title = 0, x = 0, y = 0;
  VKXBAR(7);
  GETVK(&title, &x, &y);
  EXPECT_EQ(x, 7);
  EXPECT_EQ(GETWID(), 85);
  EXPECT_EQ(outputOf([] { ADDLAB("", 20.0F, 2, "Z"); }), " <<<< Warning 3: Incorrect level in addlab!   (1)\n");
  GRAF3(0, 10, 0, 1, 0, 10, 0, 1, 0, 40, 0, 10);
  ADDLAB("", 20.0F, 2, "Z");
  const auto moves = traced("move"), draws = traced("draw");
  EXPECT_EQ(numbers(moves.back())[1], 1400);
  EXPECT_EQ(numbers(draws.back())[1], 1400);
  EXPECT_EQ(numbers(draws.back())[0] - numbers(moves.back())[0], 24);
}

TEST_F(Extras, AnglesTitlesAndShieldsComeBack) {
  open();
  IANGLE(30);
  EXPECT_EQ(GETANG(), 30);
  LFTTIT();
  SHIELD("SYMBOLS", "ON");
  RESET("IANGLE");
  RESET("LFTTIT");
  RESET("SHIELD");
  EXPECT_EQ(GETANG(), 0);
  EXPECT_EQ(state()->axis.titleJustify, 0);
  for (bool on : state()->shield.shieldAreaOn) EXPECT_FALSE(on);
}
