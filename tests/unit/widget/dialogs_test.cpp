// Dialogs that are ready made.
#include "widget_fixture.h"

using namespace widget_test;

namespace {

class Dialogs : public WidgetTest {};

int answered = -1;
void askInside(int) { answered = DWGBUT("Sure?", 0); }

} // namespace

TEST_F(Dialogs, MessagesHaveLinesAndTitles) {
  EXPECT_EQ(DWGERR(), -1);
  MSGBOX("a|b");
  EXPECT_EQ(fault(), "Message: a\nb");
  SWGTIT("Mine");
  DWGMSG("c");
  EXPECT_EQ(fault(), "Mine: c");
  EXPECT_EQ(DWGERR(), 0);
}

TEST_F(Dialogs, QuestionsGiveOneForYes) {
  EXPECT_EQ(DWGBUT("Go?", 1), 0);
  EXPECT_EQ(fault(), "Question? Go? Yes");
  desk.answer = true;
  EXPECT_EQ(DWGBUT("Go?", 0), 1);
  EXPECT_EQ(fault(), "Question? Go? No");
}

TEST_F(Dialogs, AQuestionDoesNotDisturbTheDialogAround) {
  const int root = WGINI("VERT");
  const int button = WGPBUT(root, "b"), ok = WGOK(root);
  SWGCBK(button, askInside);
  desk.answer = true;
  press(button);
  press(ok);
  WGFIN();
  EXPECT_EQ(answered, 1);
  EXPECT_EQ(GWGGUI(), 1);
  EXPECT_EQ(context()->records.size(), 3u);
}

// The root of such a dialog is the next widget; behind it stand its label, OK, Cancel and the list or line.
TEST_F(Dialogs, ListsGiveTheSelection) {
  send(WidgetEventKind::kChoice, 5, 2);
  press(3);
  EXPECT_EQ(DWGLIS("Pick", "a|b|c", 0), 2);
  EXPECT_EQ(DWGERR(), 0);
  EXPECT_EQ(context()->records.size(), 0u);
  send(WidgetEventKind::kChoice, 5, 2);
  press(4);
  EXPECT_EQ(DWGLIS("Pick", "a|b|c", 3), 3); // Cancel
  EXPECT_EQ(DWGERR(), 1);
  send(WidgetEventKind::kClose, 1);
  EXPECT_EQ(DWGLIS("Pick", "a|b|c", 0), 0);
  EXPECT_EQ(DWGERR(), 1);
  desk.lines.clear();
  EXPECT_EQ(DWGLIS("Pick", "a|b|c", 4), 4);
  EXPECT_EQ(fault(), "dwglis: >>>> Selected list element out of range\n");
}

TEST_F(Dialogs, TextsAreEntered) {
  const int root = WGINI("VERT");
  const int text = WGTXT(root, "kept");
  SENDOK();
  WGFIN();
  type(7, "entered");
  press(5);
  EXPECT_STREQ(DWGTXT("Name", "old"), "entered");
  EXPECT_EQ(DWGERR(), 0);
  EXPECT_STREQ(GWGTXT(text), "kept");
  type(7, "entered");
  press(6);
  EXPECT_STREQ(DWGTXT("Name", "old"), "old");
  EXPECT_EQ(DWGERR(), 1);
  EXPECT_EQ(WGLAB(root, "x"), -1); // the pass is still finished
}

TEST_F(Dialogs, FilesAreChosen) {
  EXPECT_STREQ(DWGFIL("Open", "/data/", "*.a;*.b"), "/data/");
  EXPECT_EQ(fault(), "file Open folder /data/ name ");
  EXPECT_EQ(desk.mask, "*.a;*.b\t{*.a,*.b}\nAll files\t*");
  EXPECT_EQ(DWGERR(), 1);
  desk.picks = true;
  desk.file = "/x.a";
  SWGOPT("USER", "MASK");
  EXPECT_STREQ(DWGFIL("Open", "y.a", "Text|*.txt|C|*.c"), "/x.a");
  EXPECT_EQ(fault(), "file Open folder  name y.a");
  EXPECT_EQ(desk.mask, "Text\t*.txt\nC\t*.c");
  EXPECT_EQ(DWGERR(), 0);
}

TEST_F(Dialogs, WithoutADisplayTheyAreCancelled) {
  useWidgetSystem(nullptr);
  testing::internal::CaptureStderr();
  EXPECT_EQ(outputOf([] { MSGBOX("a|b"); }), "a\nb\n");
  EXPECT_EQ(DWGBUT("Go?", 1), 0);
  EXPECT_EQ(DWGERR(), 1);
  EXPECT_EQ(DWGLIS("Pick", "a|b", 2), 2);
  EXPECT_STREQ(DWGTXT("Name", "old"), "old");
  EXPECT_STREQ(DWGFIL("Open", "f", ""), "f");
  EXPECT_EQ(DWGERR(), 1);
  testing::internal::GetCapturedStderr();
}
