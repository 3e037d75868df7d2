// Values of the kinds of widgets, set by the program and by the user.
#include "widget/widget_events.h"
#include "widget/widget_text.h"
#include "widget_fixture.h"

using namespace widget_test;

namespace {

class Values : public WidgetTest {
protected:
  int root = 0;
  void SetUp() override {
    WidgetTest::SetUp();
    root = WGINI("VERT");
    desk.lines.clear();
  }
  void finish() {
    press(root, kMenuOk);
    WGFIN();
  }
};

int called = 0;
void count(int) { ++called; }

} // namespace

TEST_F(Values, ButtonsListsAndBoxes) {
  const int button = WGBUT(root, "b", 1), list = WGLIS(root, "a|b|c", 2), drop = WGDLIS(root, "a|b", 0);
  const int box = WGBOX(root, "x|y|z", 3);
  EXPECT_EQ(box, 5);
  EXPECT_EQ(place(box), "40,216 200x60"); // below 10 + 20, 10 + 126 (six lines and a border), 10 + 30, 10
  EXPECT_EQ(place(box + 2), "40,236 200x20");
  EXPECT_EQ(GWGBUT(button) * 1000 + GWGLIS(list) * 100 + GWGLIS(drop) * 10 + GWGBOX(box), 1203);
  SWGBUT(button, 0);
  SWGLIS(list, 3);
  SWGLIS(drop, 1);
  SWGBOX(box, 1);
  EXPECT_EQ(GWGBUT(button) * 1000 + GWGLIS(list) * 100 + GWGLIS(drop) * 10 + GWGBOX(box), 311);
  EXPECT_EQ(desk.values[box + 1], 1);
  EXPECT_EQ(desk.values[box + 3], 0);
  press(button, 1);
  send(WidgetEventKind::kChoice, list, 1);
  press(box + 2);
  finish();
  EXPECT_EQ(GWGBUT(button), 1);
  EXPECT_EQ(GWGLIS(list), 1);
  EXPECT_EQ(GWGBOX(box), 2);
  EXPECT_EQ(desk.values[box + 1], 0);
  EXPECT_EQ(desk.values[box + 2], 1);
}

TEST_F(Values, WrongIdsAndValues) {
  const int button = WGBUT(root, "b", 0), list = WGLIS(root, "a|b", 1);
  SWGBUT(list, 1);
  EXPECT_EQ(fault(), "swgbut: >>>> Not allowed ID\n");
  SWGBUT(99, 1);
  EXPECT_EQ(fault(), "swgbut: >>>> Not allowed ID\n");
  SWGBUT(button, 2);
  EXPECT_EQ(fault(), "swgbut: >>>> Not allowed value\n");
  SWGLIS(list, 3);
  EXPECT_EQ(fault(), "swglis: >>>> Selected list element out of range\n");
  EXPECT_EQ(GWGLIS(list), 1);
  EXPECT_EQ(WGLIS(root, "a|b", 3), -1);
  EXPECT_EQ(WGBUT(root, "b", 2), -1);
  EXPECT_EQ(fault(), "wgbut: >>>> Not allowed value\n");
  EXPECT_EQ(GWGFLT(list), 0.0F);
  EXPECT_EQ(fault(), "gwgflt: >>>> Not allowed ID\n");
}

TEST_F(Values, MasksKeepTextsOut) {
  SWGOPT("INTE", "VERI");
  const int text = WGTXT(root, "12");
  SWGTXT(text, "1x");
  EXPECT_EQ(fault(), "swgtxt: >>>> String does not match verify mask\n");
  EXPECT_STREQ(GWGTXT(text), "12");
  SWGFLT(text, 1.5F, 1);
  EXPECT_EQ(fault(), "swgflt: >>>> String does not match verify mask\n");
  SWGINT(text, -7);
  EXPECT_EQ(GWGINT(text), -7);
  EXPECT_EQ(GWGFLT(text), -7.0F);
  EXPECT_EQ(WGTXT(root, "abc"), -1);
  desk.lines.clear();
  type(text, "5a");
  send(WidgetEventKind::kLeave, text);
  finish();
  EXPECT_EQ(desk.lines[2], "wgfin: >>>> Value does not match verify mask\n");
  EXPECT_STREQ(GWGTXT(text), "-7");
  EXPECT_EQ(desk.texts[text], "-7");
}

TEST_F(Values, EachMaskAllowsItsCharacters) {
  struct Row {
    const char *word, *good, *bad;
  };
  constexpr Row kRows[] = {{"NONE", "any#", ""},       {"INTE", "+-09", "."},      {"FLOA", "+1.5", "1E5"},
                           {"DLOA", "1.5D+3d", "1E5"}, {"EFLO", "1.5e-3E", "1D5"}, {"DIGI", "0189", "-1"},
                           {"ALPH", "ab CZ", "a1"},    {"NALP", "ab 12", "a."},    {"EMAI", "a.1@b-c", "a b"},
                           {"TIME", "12:30", "12.30"}, {"DATE", "1.2/99", "1-2"},  {"PHON", "+49 (0)1/2-3", "x"},
                           {"HEXA", "0xAFaf9", "g"},   {"OCT", "o01O7", "8"}};
  int mask = 0;
  for (const Row& row : kRows) {
    SWGOPT(row.word, "VERI");
    EXPECT_EQ(context()->settings.options.verify, mask) << row.word;
    EXPECT_TRUE(fitsMask(mask, row.good)) << row.word;
    EXPECT_EQ(fitsMask(mask, row.bad), !*row.bad) << row.word;
    ++mask;
  }
}

TEST_F(Values, CallsOfTextsAndScales) {
  called = 0;
  const int text = WGTXT(root, "");
  SWGCBK(text, count);
  const auto play = [&](const char* how) {
    SWGOPT(how, "CALL");
    const int sofar = called;
    for (const WidgetEventKind kind : {WidgetEventKind::kText, WidgetEventKind::kReturn})
      handleWidgetEvent(context(), {.kind = kind, .widget = text, .text = "a"});
    return called - sofar;
  };
  EXPECT_EQ(play("RETU"), 1);
  EXPECT_EQ(play("CHAN"), 1);
  EXPECT_EQ(play("BOTH"), 2);

  SWGSTP(0.5F);
  const int scale = WGSCL(root, "s", 1.0F, 3.0F, 2.0F, 1);
  EXPECT_EQ(scale, 4); // behind its label
  SWGCBK(scale, count);
  const auto scroll = [&](const char* how, int action, int thumb) {
    SWGOPT(how, "SCRO");
    const int sofar = called;
    handleWidgetEvent(context(), {.kind = WidgetEventKind::kScroll, .widget = scale, .value = action, .place = thumb});
    return called - sofar;
  };
  EXPECT_EQ(desk.texts[scale + 1], "2.0");
  EXPECT_EQ(scroll("BUTT", kScrollTrack, 4), 0);
  EXPECT_EQ(GWGSCL(scale), 2.0F); // tracking is not asked for
  EXPECT_EQ(scroll("TRAC", kScrollTrack, 4), 1);
  EXPECT_EQ(GWGSCL(scale), 3.0F);
  EXPECT_EQ(desk.texts[scale + 1], "3.0");
  EXPECT_EQ(scroll("END", kScrollLineUp, 0), 0);
  EXPECT_EQ(GWGSCL(scale), 2.5F);
  EXPECT_EQ(scroll("END", kScrollEnd, 0), 1);
  SWGSCL(scale, 3.5F);
  EXPECT_EQ(fault(), "swgscl: >>>> Value is out of range\n");
  SWGSCL(scale, 1.5F);
  EXPECT_EQ(GWGSCL(scale), 1.5F);
  EXPECT_EQ(WGSCL(root, "s", 3.0F, 1.0F, 2.0F, 1), -1);
}

TEST_F(Values, ScrollActionsMoveWithinTheRange) {
  EXPECT_EQ(scrolledPosition(kScrollLineUp, 5, 20, 0), 4);
  EXPECT_EQ(scrolledPosition(kScrollLineUp, 0, 20, 0), 0);
  EXPECT_EQ(scrolledPosition(kScrollLineDown, 20, 20, 0), 20);
  EXPECT_EQ(scrolledPosition(kScrollPageUp, 15, 20, 0), 5);
  EXPECT_EQ(scrolledPosition(kScrollPageDown, 15, 20, 0), 20);
  EXPECT_EQ(scrolledPosition(kScrollThumb, 0, 20, 13), 13);
  EXPECT_EQ(scrolledPosition(kScrollTop, 9, 20, 0), 0);
  EXPECT_EQ(scrolledPosition(kScrollBottom, 9, 20, 0), 20);
  EXPECT_EQ(scrolledPosition(kScrollEnd, 9, 20, 0), 9);
}

TEST_F(Values, TablesHaveCells) {
  const int table = WGTBL(root, 3, 2);
  SWGTBS(table, "all", 0, 2, "VALU"); // a whole column
  for (int row = 1; row <= 3; ++row) EXPECT_STREQ(GWGTBS(table, row, 2), "all");
  EXPECT_STREQ(GWGTBS(table, 1, 1), "");
  SWGTBI(table, 42, 2, 1, "VALU");
  EXPECT_EQ(GWGTBI(table, 2, 1), 42);
  SWGTBF(table, 2.555F, 1, 3, 1, "VALU");
  EXPECT_STREQ(GWGTBS(table, 3, 1), "2.6");
  EXPECT_EQ(GWGTBF(table, 3, 1), 2.6F);
  const float line[3] = {1, 2, 3};
  SWGTBL(table, line, 3, 0, 1, "COLU");
  EXPECT_STREQ(GWGTBS(table, 2, 1), "2.");
  float back[3] = {};
  GWGTBL(table, back, 3, 1, "COLU");
  EXPECT_EQ(back[2], 3.0F);
  GWGTBL(table, back, 2, 1, "COLU");
  EXPECT_EQ(fault(), "gwgtbl: >>>> Not enough space in array\n");
  SWGTBS(table, "DIGI", 1, 1, "VERI");
  SWGTBS(table, "x", 1, 1, "VALU");
  EXPECT_EQ(fault(), "swgtbs: >>>> String does not match verify mask\n");
  SWGTBS(table, "x", 4, 1, "VALU");
  EXPECT_EQ(fault(), "swgtbs: >>>> Value is out of range\n");
  SWGTBS(table, "x", -1, 1, "VALU"); // there is no head
  EXPECT_EQ(fault(), "swgtbs: >>>> Value is out of range\n");
  EXPECT_EQ(WGTBL(root, 100000, 100000), -1);
  EXPECT_EQ(fault(), "wgtbl: >>>> Not enough memory\n");
}

TEST_F(Values, CodingsOfTexts) {
  const int ansi = WGTXT(root, "\xE4");
  EXPECT_EQ(desk.texts[ansi], "\xC3\xA4");
  EXPECT_STREQ(GWGTXT(ansi), "\xE4");
  SWGOPT("UTF8", "CODI");
  const int utf = WGTXT(root, "\xC3\xA4");
  EXPECT_STREQ(GWGTXT(utf), "\xC3\xA4");
  EXPECT_EQ(WGTXT(root, "\xC3"), -1);
  EXPECT_EQ(fault(), "wgtxt: >>>> Syntax error in UTF string\n");
  SWGOPT("RUSS", "CODI");
  EXPECT_EQ(desk.texts[WGLAB(root, "\xC1")], "\xD0\xB0"); // KOI8-R: Cyrillic a
  SWGOPT("GREE", "CODI");
  EXPECT_EQ(desk.texts[WGLAB(root, "\xE1")], "\xCE\xB1"); // ISO 8859-7: alpha
}

TEST_F(Values, LinesAreKeptUpToALimit) {
  const int lines = WGSTXT(root, 2, 3);
  for (const char* line : {"a", "b", "c", "d"}) SWGTXT(lines, line);
  EXPECT_EQ(desk.texts[lines], "b\nc\nd");
  const int text = WGTXT(root, std::string(300, 'x').c_str());
  EXPECT_EQ(std::string(GWGTXT(text)), std::string(255, 'x'));
}

TEST_F(Values, ProgressBarsGoInSteps) {
  const int bar = WGPBAR(root, 0.0F, 10.0F, 4.0F);
  SWGVAL(bar, 5.0F);
  EXPECT_EQ(desk.values[bar], 400); // one step of 4 in 10, in thousandths
  SWGVAL(bar, 10.0F);
  EXPECT_EQ(desk.values[bar], 1000);
  SWGVAL(bar, 10.5F);
  EXPECT_EQ(fault(), "swgval: >>>> Value is out of range\n");
}

TEST_F(Values, FilesAreChosen) {
  const int file = WGFIL(root, "Data", "old.txt", "*.txt");
  press(file - 1);
  desk.picks = true;
  desk.file = "/somewhere/new.txt";
  finish();
  EXPECT_STREQ(GWGFIL(file), "/somewhere/new.txt");
  EXPECT_EQ(desk.mask, "*.txt\t*.txt\nAll files\t*");
  SWGFIL(file, "third");
  EXPECT_STREQ(GWGFIL(file), "third");
}

TEST_F(Values, AttributesAndColours) {
  const int button = WGPBUT(root, "b"), list = WGLIS(root, "a|b", 0);
  SWGATT(button, "INAC", "STAT");
  EXPECT_EQ(fault(), "state 2 1");
  EXPECT_EQ(GWGATT(button, "STAT"), 1);
  SWGATT(list, "INVI 2", "LIST");
  EXPECT_EQ(fault(), "item 2 2");
  SWGATT(list, "INVI 3", "LIST");
  EXPECT_EQ(fault(), "swgatt: >>>> Value is out of range\n");
  SWGBGD(button, 1.0F, 0.5F, 0.0F);
  EXPECT_EQ(fault(), "colors 16744448 -1"); // 0xFF8000
  SWGFGD(button, 1.0F, 1.5F, 0.0F);
  EXPECT_EQ(fault(), "swgfgd: >>>> Value is out of range\n");
  SWGCLR(0.0F, 0.0F, 1.0F, "BACK");
  WGPBUT(root, "c");
  EXPECT_EQ(context()->records.back().background, 0x0000FF);
  SWGCLR(0.0F, 0.0F, 0.0F, "RESE");
  WGPBUT(root, "d");
  EXPECT_EQ(context()->records.back().background, kNoWidgetColor);
  SWGOPT("YES", "NOKEY");
  EXPECT_EQ(fault(), "swgopt: >>>> Not allowed parameter NOKEY\n");
  SWGIOP(0, "LIST");
  EXPECT_EQ(fault(), "swgiop: >>>> Non positive parameter\n");
  SWGFNT("Arial Bold Italic", 12);
  EXPECT_EQ(fault(), "font Arial 12 bold italic");
  SWGFNT("Missing", 12);
  EXPECT_EQ(fault(), "swgfnt: >>>> Font cannot be loaded\n");
}

TEST_F(Values, PicturesOfNumbersNeedTheirBytes) {
  const unsigned char bytes[6] = {0, 1, 2, 3, 4, 5};
  EXPECT_EQ(place(WGIMG(root, "i", bytes, 3, 2)), "40,10 200x20");
  EXPECT_EQ(place(WGPIMG(0, "i", bytes, 3, 2)), "40,40 200x20"); // in the parent made last
  EXPECT_EQ(WGIMG(root, "i", bytes, 0, 2), -1);
  EXPECT_EQ(WGICON(root, "i", 10, 10, "missing.png"), -1);
  EXPECT_EQ(fault(), "wgicon: >>>> Icon file could not be loaded\n");
}

TEST_F(Values, MenusHaveItems) {
  const int menu = WGPOP(root, "File"), item = WGAPP(menu, "Open");
  called = 0;
  SWGCBK(item, count);
  EXPECT_EQ(WGAPP(root, "x"), -1);
  EXPECT_EQ(fault(), "wgapp: >>>> Not allowed parent ID\n");
  press(item);
  finish();
  EXPECT_EQ(called, 1);
}
