#include "plot_fixture.h"

#include "core/rectangle.h"

namespace {

using Lines = std::vector<std::string>;

class Rectangle : public PlotTest {
protected:
  Lines pens(int lines, int angle, int width = 21, int height = 11) {
    open();
    quilla::qqrect(state(), 100, 200, width, height, lines, angle);
    QUIFIN();
    Lines found;
    for (const std::string& line : linesOf("trace.txt")) {
      if (line.starts_with("move") || line.starts_with("draw")) found.push_back(line);
    }
    return found;
  }
};

TEST_F(Rectangle, OneLine) {
  EXPECT_EQ(pens(1, 0), (Lines{"move 100.00 200.00", "draw 120.00 200.00", "draw 120.00 210.00", "draw 100.00 210.00",
                               "draw 100.00 200.00"}));
}

TEST_F(Rectangle, InwardAndOutward) {
  EXPECT_EQ(pens(2, 0)[5], "move 101.00 201.00");
  std::filesystem::remove("trace.txt");
  const Lines outward = pens(-2, 0);
  ASSERT_EQ(outward.size(), 10U);
  EXPECT_EQ(outward[5], "move 99.00 199.00");
  EXPECT_EQ(outward[7], "draw 121.00 211.00");
}

TEST_F(Rectangle, TurnedAboutItsCorner) {
  EXPECT_EQ(pens(1, 90), (Lines{"move 100.00 200.00", "draw 100.00 180.00", "draw 110.00 180.00", "draw 110.00 200.00",
                                "draw 100.00 200.00"}));
}

TEST_F(Rectangle, InwardLinesEndInTheMiddle) {
  EXPECT_EQ(pens(1000000000, 0).size(), 5U * 5U + 3U); // the last one is a line there and back
}

TEST_F(Rectangle, ExtremesDoNoHarm) { pens(-2147483647 - 1, 2147483647, 2147483647, -2147483647 - 1); }

} // namespace
