// Places of widgets, computed by hand: gaps 40 and 10, lines 20, controls 30, children of rows 200 wide.
#include "widget_fixture.h"

using namespace widget_test;

namespace {
class Layout : public WidgetTest {};
} // namespace

TEST_F(Layout, AColumnAddsItsHeights) {
  const int root = WGINI("VERT");
  EXPECT_EQ(root, 1);
  EXPECT_EQ(place(root), "0,0 200x20"); // one character high
  EXPECT_EQ(place(WGLAB(root, "a")), "40,10 200x20");
  EXPECT_EQ(place(WGLAB(root, "b")), "40,40 200x20");
  EXPECT_EQ(place(WGLAB(root, "c")), "40,70 200x20");
  EXPECT_EQ(widgetRecord(context(), root)->place.height, 20 + 3 * 30);
  SENDOK();
  WGFIN();
  // The last label ends at 240, 90; a gap and twice the frame.
  EXPECT_EQ(desk.lines[desk.lines.size() - 3], "place 1 0,0 286x110");
}

TEST_F(Layout, ARowIsAsHighAsItsHighestChild) {
  const int root = WGINI("VERT");
  const int row = WGBAS(root, "HORI");
  EXPECT_EQ(place(row), "40,10 200x0");
  EXPECT_EQ(place(WGLAB(row, "a")), "40,10 200x20");
  EXPECT_EQ(place(WGPBUT(row, "b")), "280,10 200x30");
  EXPECT_EQ(place(WGLAB(row, "c")), "520,10 200x20");
  EXPECT_EQ(widgetRecord(context(), row)->place.height, 30);
  EXPECT_EQ(widgetRecord(context(), row)->place.width, 200 + 3 * 240);
  EXPECT_EQ(widgetRecord(context(), root)->place.height, 50); // 10 + 30 + 10
  EXPECT_EQ(place(WGLAB(root, "below")), "40,50 200x20");
  EXPECT_EQ(place(WGLAB(root, "further")), "40,80 200x20");
}

TEST_F(Layout, ParentsStepOverParents) {
  const int root = WGINI("HORI");
  const int left = WGBAS(root, "VERT");
  EXPECT_EQ(place(WGLAB(left, "a")), "40,10 200x20");
  EXPECT_EQ(place(WGLAB(left, "b")), "40,40 200x20");
  const int right = WGBAS(root, "VERT");
  EXPECT_EQ(place(right), "280,10 200x0");
  EXPECT_EQ(place(WGLAB(right, "c")), "280,10 200x20");
  EXPECT_EQ(place(WGLAB(root, "d")), "520,10 200x20");
}

TEST_F(Layout, WidthsArePercentOfTheScreenOrCharacters) {
  SWGWTH(-25);
  const int root = WGINI("HORI");
  EXPECT_EQ(place(WGLAB(root, "a")), "40,10 250x20");
  SWGWTH(7);
  EXPECT_EQ(place(WGLAB(root, "b")), "330,10 70x20");
  SWGWTH(0);
  EXPECT_EQ(fault(), "swgwth: >>>> Bad value\n");
  SWGWTH(-101);
  EXPECT_EQ(fault(), "swgwth: >>>> Bad value\n");
  SWGWTH(-100);
  EXPECT_EQ(place(WGLAB(root, "c")), "440,10 1000x20");
}

TEST_F(Layout, GapsAreCharactersOrPercent) {
  SWGSPC(2.0F, -10.0F);
  const int root = WGINI("VERT");
  EXPECT_EQ(place(WGLAB(root, "a")), "20,80 200x20");
  for (const auto& [x, y] : {std::pair{0.0F, 1.0F}, {1.0F, 0.0F}, {-100.5F, 1.0F}, {1.0F, -0.0005F}}) {
    SWGSPC(x, y);
    EXPECT_EQ(fault(), "swgspc: >>>> Bad value\n");
  }
}

TEST_F(Layout, OffsetsStayUntilTheyAreChanged) {
  const int root = WGINI("VERT");
  SWGOFF(7, 0);
  SWGOFF(3, 1);
  SWGOFF(4, 3);
  EXPECT_EQ(place(WGLAB(root, "a")), "47,13 200x20");
  EXPECT_EQ(place(WGLAB(root, "b")), "47,50 200x20"); // 10 + 10 + 3 + 4 + 20 + 3
  SWGOFF(1, 4);
  EXPECT_EQ(fault(), "swgoff: >>>> Bad value\n");
}

TEST_F(Layout, FormsTakeThePlacesThatAreSet) {
  const int root = WGINI("FORM");
  SWGWIN(15, 25, 120, 40);
  EXPECT_EQ(place(WGLAB(root, "a")), "15,25 120x40");
  SWGPOS(100, 200);
  SWGSIZ(300, 250);
  const int form = WGBAS(root, "FORM");
  EXPECT_EQ(place(form), "100,200 300x250");
  SWGWIN(5, 6, 50, 20);
  EXPECT_EQ(place(WGPBUT(form, "b")), "105,206 50x20");
}

TEST_F(Layout, ARootOfASizeKeepsIt) {
  SWGPOS(30, 40);
  SWGSIZ(500, 300);
  const int root = WGINI("VERT");
  // 500 less twice the gap and the frame.
  EXPECT_EQ(place(root), "30,40 414x300");
  EXPECT_EQ(place(WGLAB(root, "a")), "40,10 414x20");
  EXPECT_EQ(widgetRecord(context(), root)->place.height, 300);
  SENDOK();
  WGFIN();
  EXPECT_EQ(desk.lines, (std::vector<std::string>{"frame 1 QUILLA", "menu &Exit/&Quit", "menu &Exit/OK", "menu &Help",
                                                  "show 1", "close 1"}));
  EXPECT_EQ(place(WGINI("VERT")), "0,0 200x20"); // the wish was for one root
}

TEST_F(Layout, ACentredRootHasItsWidthInBothTerms) {
  SWGOPT("CENT", "POSI");
  SWGSIZ(400, 100);
  EXPECT_EQ(place(WGINI("FORM")).substr(0, 8), "300,200 "); // (1000 - 400) / 2, (800 - 400) / 2
}

TEST_F(Layout, ANestedRootStandsBesideTheOuterOne) {
  SWGSIZ(486, 300);
  SWGPOS(100, 50);
  const int root = WGINI("VERT");
  EXPECT_EQ(place(root), "100,50 400x300");
  EXPECT_EQ(place(WGINI("VERT")), "400,250 200x20"); // 100 + 300, 50 + 200
}

TEST_F(Layout, PartsOfATextWithALabel) {
  const int root = WGINI("VERT");
  const int text = WGLTXT(root, "Name", "Ada", 60);
  EXPECT_EQ(text, 3);
  EXPECT_EQ(place(2), "40,10 80x30");
  EXPECT_EQ(place(3), "120,10 120x30");
  EXPECT_EQ(WGLTXT(root, "Name", "Ada", 101), -1);
  EXPECT_EQ(fault(), "wgltxt: >>>> Value is out of range\n");
}

TEST_F(Layout, ADrawWidgetIsAsHighAsTold) {
  const int root = WGINI("VERT");
  SWGDRW(0.5F);
  EXPECT_EQ(place(WGDRAW(root)), "40,10 200x100");
  for (float bad : {0.0F, -1.0F}) {
    SWGDRW(bad);
    EXPECT_EQ(fault(), "swgdrw: >>>> Non positive paramter\n");
    SWGSTP(bad);
    EXPECT_EQ(fault(), "swgstp: >>>> Non positive paramter\n");
  }
  int w = 0, h = 0;
  GWGSIZ(2, &w, &h);
  EXPECT_EQ(w, 200);
  EXPECT_EQ(h, 100);
}
