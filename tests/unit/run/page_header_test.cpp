#include <algorithm>
#include <cmath>

#include "plot_fixture.h"
#include "text/text.h"

using namespace quilla;

namespace {

class PageHeader : public PlotTest {
protected:
  struct Box {
    float x0 = 1e9F, y0 = 1e9F, x1 = -1e9F, y1 = -1e9F;
  };

  // The box of the strokes of a header at a position.
  Box header(int position, int direction) {
    outputOf([] {
      METAFL("PDF");
      SETFIL("/dev/null");
      QUIINI();
      ERRMOD("PROT", "OFF");
    });
    HEIGHT(50); // the header is 30 high
    PAGHDR("Mine", "Yours", position, direction);
    EXPECT_EQ(GETHGT(), 50);
    EXPECT_EQ(GETANG(), 0);
    Box box;
    for (const char* word : {"move", "draw"}) {
      for (const std::string& line : traced(word)) {
        float x = 0, y = 0;
        sscanf(line.c_str(), "%f %f", &x, &y);
        box = {std::min(box.x0, x), std::min(box.y0, y), std::max(box.x1, x), std::max(box.y1, y)};
      }
    }
    std::filesystem::remove("trace.txt");
    return box;
  }
};

TEST_F(PageHeader, Places) {
  // The default page is 2969 by 2099. Letters may reach a few units over the line of their text.
  Box b = header(1, 0);
  EXPECT_NEAR(b.x0, 100, 12);
  EXPECT_NEAR(b.y0, 2099 - 15 - 30, 6);
  EXPECT_GT(b.x1 - b.x0, 600);
  b = header(2, 0);
  EXPECT_NEAR(b.x1, 2969 - 100, 12);
  EXPECT_NEAR(b.y0, 2099 - 15 - 30, 6);
  b = header(3, 0);
  EXPECT_NEAR(b.x1, 2969 - 100, 12);
  EXPECT_NEAR(b.y0, 15, 6);
  b = header(4, 0);
  EXPECT_NEAR(b.x0, 100, 12);
  EXPECT_NEAR(b.y0, 15, 6);
  b = header(1, 1);
  EXPECT_NEAR(b.x0, 15, 6);
  EXPECT_NEAR(b.y1, 2099 - 100, 12);
  b = header(2, 1);
  EXPECT_NEAR(b.x1, 2969 - 15, 6);
  EXPECT_NEAR(b.y1, 2099 - 100, 12);
  b = header(3, 1);
  EXPECT_NEAR(b.x1, 2969 - 15, 6);
  EXPECT_NEAR(b.y0, 100, 12);
  b = header(4, 1);
  EXPECT_NEAR(b.x0, 15, 6);
  EXPECT_NEAR(b.y0, 100, 12);
}

TEST_F(PageHeader, TextOfTheHeader) {
  METAFL("PS");
  outputOf([] { QUIINI(); });
  ERRMOD("PROT", "OFF");
  HWFONT();
  PAGHDR("Mine", "Yours", 1, 0);
  std::string text;
  for (const std::string& glyph : traced("glyph")) text += static_cast<char>(std::stoi(glyph));
  EXPECT_EQ(text, "Mine 14.11.2023, 22:13:20, QUILLA 11.5 Yours");
  std::filesystem::remove("trace.txt");
  outputOf([] { QUIINI(); });
  ERRMOD("PROT", "OFF");
  HWFONT();
  PAGHDR("", "", -1, 0);
  text.clear();
  for (const std::string& glyph : traced("glyph")) text += static_cast<char>(std::stoi(glyph));
  EXPECT_EQ(text.substr(0, 11), " 2023.11.14");
}

TEST_F(PageHeader, BadParameters) {
  open();
  EXPECT_EQ(outputOf([] { PAGHDR("", "", 5, 0); }), " <<<< Warning 2: Incorrect parameter in paghdr!   (5)\n");
  EXPECT_EQ(outputOf([] { PAGHDR("", "", 0, 0); }), " <<<< Warning 2: Incorrect parameter in paghdr!   (0)\n");
  EXPECT_EQ(outputOf([] { PAGHDR("", "", 1, 2); }), " <<<< Warning 2: Incorrect parameter in paghdr!   (2)\n");
}

} // namespace
