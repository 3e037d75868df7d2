// Lists of texts.
#include "platform/widget_system.h"
#include "plot_fixture.h"

namespace {

class ItemList : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    quilla::useWidgetSystem(nullptr);
  }
};

} // namespace

TEST_F(ItemList, ItemsAreCountedAndFound) {
  EXPECT_EQ(ITMCNT(""), 0);
  EXPECT_EQ(ITMCNT("one"), 1);
  EXPECT_EQ(ITMCNT("one|two||"), 4);
  EXPECT_STREQ(ITMSTR("one|two||", 1), "one");
  EXPECT_STREQ(ITMSTR("one|two||", 2), "two");
  EXPECT_STREQ(ITMSTR("one|two||", 4), "");
  EXPECT_EQ(outputOf([] { EXPECT_STREQ(ITMSTR("one|two", 3), ""); }), ">>>> Value is out of range\n");
  EXPECT_EQ(outputOf([] { EXPECT_STREQ(ITMSTR("one|two", 0), ""); }), ">>>> Value is out of range\n");
  EXPECT_EQ(std::string(ITMSTR(std::string(300, 'x').c_str(), 1)), std::string(255, 'x'));
}

TEST_F(ItemList, ItemsAreAppended) {
  char list[12] = "";
  ITMCAT(list, "ab");
  EXPECT_STREQ(list, "ab");
  ITMNCAT(list, 12, "cd");
  EXPECT_STREQ(list, "ab|cd");
  ITMNCAT(list, 9, "ef");
  EXPECT_STREQ(list, "ab|cd|ef"); // it fits with its end mark
  const char* fault = ">>>> Not enough space in first parameter\n";
  EXPECT_EQ(outputOf([&] { ITMNCAT(list, 11, "gh"); }), fault);
  EXPECT_EQ(outputOf([&] { ITMNCAT(list, -1, ""); }), fault);
  EXPECT_STREQ(list, "ab|cd|ef");
}

TEST_F(ItemList, SeparatorsMayBeOthers) {
  SWGMIX(";", "SEP");
  EXPECT_EQ(ITMCNT("a|b;c"), 2);
  char list[8] = "a";
  ITMCAT(list, "b");
  EXPECT_STREQ(list, "a;b");
  EXPECT_EQ(outputOf([] { SWGMIX("", "SEP"); }), ">>>> Not allowed value\n");
  EXPECT_EQ(ITMCNT("a|b;c"), 2);
}
