// Dialogs from WGINI to WGFIN, and the program's routines that they call.
#include <algorithm>

#include "widget_fixture.h"

using namespace widget_test;

namespace {

using Lines = std::vector<std::string>;

class Pass : public WidgetTest {};

std::vector<std::string> calls;
int nestedRoot = 0, nestedText = 0;

void tell(int id) { calls.push_back("A " + std::to_string(id)); }
void tellArray(int id, int* array) { calls.push_back("B " + std::to_string(id) + " " + std::to_string(array[0]++)); }
void tellCell(int id, int row, int column) {
  calls.push_back("C " + std::to_string(id) + " " + std::to_string(row) + " " + std::to_string(column));
}
void tellMouse(int id, int button) { calls.push_back("D " + std::to_string(id) + " " + std::to_string(button)); }
void finish(int) { SENDOK(); }

void openNested(int) {
  nestedRoot = WGINI("VERT");
  nestedText = WGTXT(nestedRoot, "inner");
  desk.events.push_front({.kind = WidgetEventKind::kPress, .widget = nestedRoot, .value = kMenuOk});
  WGFIN();
  calls.push_back("nested " + std::to_string(GWGGUI()));
}
void forget(int) { DELGLB(); }

} // namespace

TEST_F(Pass, OkGoesOnAndTakesTheTexts) {
  const int root = WGINI("VERT");
  const int text = WGTXT(root, "before"), ok = WGOK(root);
  type(text, "after");
  press(ok);
  WGFIN();
  EXPECT_STREQ(GWGTXT(text), "after");
  EXPECT_EQ(GWGGUI(), 1);
  EXPECT_EQ(WGLAB(root, "late"), -1);
  EXPECT_EQ(fault(), "wglab: >>>> No call between wgini and wgfin\n");
  WGFIN();
  EXPECT_EQ(fault(), "wgfin: >>>> No call to wgini before\n");
}

TEST_F(Pass, TheCloseButtonAndQuitEndTheProgram) {
  const int root = WGINI("VERT");
  const int quit = WGQUIT(root);
  EXPECT_EXIT((send(WidgetEventKind::kClose, root), WGFIN()), testing::ExitedWithCode(0), "");
  EXPECT_EXIT((press(quit), WGFIN()), testing::ExitedWithCode(0), "");
  EXPECT_EXIT((press(root, kMenuQuit), WGFIN()), testing::ExitedWithCode(0), "");
}

TEST_F(Pass, TheCloseButtonMayBeOk) {
  SWGOPT("OK", "CLOSE");
  const int root = WGINI("VERT");
  send(WidgetEventKind::kClose, root);
  WGFIN();
  EXPECT_EQ(GWGGUI(), 1);
}

TEST_F(Pass, RoutinesAreCalledInTheirOrder) {
  calls.clear();
  const int root = WGINI("VERT");
  const int button = WGPBUT(root, "b"), table = WGTBL(root, 3, 2), draw = WGDRAW(root), end = WGPBUT(root, "end");
  int array[1] = {7};
  SWGCB(button, tellArray, array);
  SWGCBK(button, tell);
  SWGCB2(table, tellCell);
  SWGCBK(table, tell);
  SWGCB2(root, tellCell);
  SWGCB3(draw, tellMouse);
  SWGCBK(end, finish);
  press(button);
  desk.events.push_back({.kind = WidgetEventKind::kCell, .widget = table, .row = 3, .column = 2, .text = "x"});
  desk.events.push_back({.kind = WidgetEventKind::kCell, .widget = table, .row = 4, .column = 2, .text = "x"});
  desk.events.push_back({.kind = WidgetEventKind::kResize, .widget = root, .row = 300, .column = 200});
  send(WidgetEventKind::kMouse, draw, 1);
  press(end);
  WGFIN();
  EXPECT_EQ(calls, (Lines{"A 2", "B 2 7", "A 3", "C 3 3 2", "C 1 300 200", "D 4 1"}));
  EXPECT_EQ(array[0], 8);
  EXPECT_STREQ(GWGTBS(table, 3, 2), "x");
  EXPECT_EQ(GWGGUI(), 1);
}

TEST_F(Pass, RoutinesThatDoNotFitAreRefused) {
  const int root = WGINI("VERT");
  const int label = WGLAB(root, "a"), button = WGPBUT(root, "b");
  SWGCBK(root, tell);
  EXPECT_EQ(fault(), "swgcbk: >>>> Callbacks cannot be defined for parent widgets\n");
  SWGCB(label, tellArray, nullptr);
  EXPECT_EQ(fault(), "swgcb: >>>> Callbacks cannot be defined for label widgets\n");
  SWGCB2(button, tellCell);
  EXPECT_EQ(fault(), "swgcb2: >>>> Widget is not a Table or Parent widget\n");
  SWGCB3(button, tellMouse);
  EXPECT_EQ(fault(), "swgcb3: >>>> Widget is not a DRAW widget\n");
  SWGCBK(4, tell);
  EXPECT_EQ(fault(), "swgcbk: >>>> Not allowed widget ID\n");
  SWGCBK(0, tell);
  EXPECT_EQ(fault(), "swgcbk: >>>> Not allowed widget ID\n");
  EXPECT_EQ(WGLAB(button, "x"), -1);
  EXPECT_EQ(fault(), "wglab: >>>> Not allowed parent ID\n");
  EXPECT_EQ(WGBAS(root, "UP"), -1);
  EXPECT_EQ(fault(), "wgbas: >>>> Not allowed parameter UP\n");
  EXPECT_EQ(context()->records.size(), 3u);
}

TEST_F(Pass, ADialogInARoutineReturnsToTheOuterOne) {
  calls.clear();
  const int root = WGINI("VERT");
  const int button = WGPBUT(root, "open"), text = WGTXT(root, "outer"), ok = WGOK(root);
  SWGCBK(button, openNested);
  press(button);
  press(button);
  type(text, "typed");
  press(ok);
  WGFIN();
  EXPECT_EQ(calls, (Lines{"nested 1", "nested 1"}));
  EXPECT_EQ(nestedRoot, 5); // the second time in the same records
  EXPECT_STREQ(GWGTXT(text), "typed");
  EXPECT_STREQ(GWGTXT(nestedText), "inner");
}

TEST_F(Pass, EightDialogsAreNested) {
  for (int depth = 1; depth <= 8; ++depth) EXPECT_EQ(WGINI("VERT"), depth);
  EXPECT_EQ(WGINI("VERT"), -1);
  EXPECT_EQ(fault(), "wgini: >>>> Too many nested widgets\n");
  EXPECT_STREQ(DWGTXT("label", "text"), "text");
  EXPECT_EQ(fault(), "dwgtxt: >>>> Too many nested widgets\n");
  EXPECT_EQ(WGLAB(8, "x"), 9);
}

TEST_F(Pass, TheMenuHasWhatIsLeft) {
  for (const char* word : {"NOOK", "NOQU", "NOHE"}) SWGPOP(word);
  WGINI("VERT");
  EXPECT_EQ(desk.lines, Lines{"frame 1 QUILLA"});
  SWGPOP("HELP");
  SWGTIT("Title");
  WGINI("VERT");
  EXPECT_EQ(desk.lines.back(), "menu &Help");
  SWGPOP("MORE");
  EXPECT_EQ(fault(), "swgpop: >>>> Not allowed parameter MORE\n");
}

TEST_F(Pass, HelpHasLines) {
  SWGTIT("Title");
  SWGHLP("one|two");
  const int root = WGINI("VERT");
  press(root, kMenuHelp);
  press(root, kMenuOk);
  WGFIN();
  EXPECT_NE(std::find(desk.lines.begin(), desk.lines.end(), "Title: one\ntwo"), desk.lines.end());
}

TEST_F(Pass, ModesAndLevelsChangeNothing) {
  SWGMOD("ASCI");
  EXPECT_TRUE(desk.lines.empty());
  open();
  const int root = WGINI("VERT"); // any level
  EXPECT_EQ(root, 1);
  EXPECT_TRUE(outputOf([] { QUIFIN(); }).empty());
  SENDOK();
  WGFIN();
  EXPECT_EQ(GWGGUI(), 1);
}

TEST_F(Pass, ShownBeforeItsEnd) {
  calls.clear();
  const int root = WGINI("VERT");
  const int button = WGPBUT(root, "b");
  SWGCBK(button, tell);
  REAWGT();
  EXPECT_EQ(desk.lines.back(), "show 1");
  DOEVNT();
  press(button);
  DOEVNT();
  EXPECT_EQ(calls, Lines{"A 2"});
  EXPECT_EQ(GWGXID(1), 4001);
  SENDOK();
  WGFIN();
  EXPECT_EQ(std::count(desk.lines.begin(), desk.lines.end(), "show 1"), 1);
}

TEST_F(Pass, TooManyWidgetsLoseTheTable) {
  const int root = WGINI("VERT");
  std::string list(static_cast<std::size_t>(kMostWidgets), '|');
  EXPECT_EQ(WGBOX(root, list.c_str(), 0), -1);
  EXPECT_EQ(fault(), "wgbox: >>>> Too many widgets\n");
  EXPECT_EQ(WGLAB(root, "x"), -1);
  EXPECT_EQ(fault(), "wglab: >>>> No call between wgini and wgfin\n");
}

TEST_F(Pass, WithoutADisplayItEndsAtOnce) {
  useWidgetSystem(nullptr);
  const int root = WGINI("VERT");
  const int text = WGTXT(root, "same");
  testing::internal::CaptureStderr();
  WGFIN();
  WGINI("VERT");
  WGFIN();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "QUILLA: there is no display, dialogs end at once\n");
  EXPECT_EQ(GWGGUI(), 0);
  EXPECT_EQ(outputOf([&] { EXPECT_STREQ(GWGTXT(text), ""); }), ">>>> Not allowed ID\n");
}

TEST_F(Pass, ARoutineMayForgetEverything) {
  const int root = WGINI("VERT");
  const int button = WGPBUT(root, "b");
  SWGCBK(button, forget);
  press(button);
  WGFIN();
  EXPECT_EQ(context(), nullptr);
}
