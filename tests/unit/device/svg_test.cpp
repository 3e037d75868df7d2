#include "device_fixture.h"

#include <cmath>

#include "core/colors.h"
#include "core/pipeline.h"

namespace quilla {
namespace {

class Svg : public DeviceTest {
protected:
  // What follows the head of a plot drawn by an action.
  template <class Action> std::string body(Action action) {
    EXPECT_TRUE(open(kDeviceSvg));
    s->clip.clipX1 = s->geometry.pageWidth;
    s->clip.clipY1 = s->geometry.pageHeight;
    action();
    close();
    const std::string text = read("quilla.svg");
    const std::size_t end = text.find(">\n\n");
    return text.substr(end + 3);
  }
  void line(float x1, float y1, float x2, float y2) {
    qqpen(s, x1, y1, kPenMove);
    qqpen(s, x2, y2, kPenDraw);
  }
};

TEST_F(Svg, HeadAndEnd) {
  ASSERT_TRUE(open(kDeviceSvg));
  close();
  EXPECT_EQ(read("quilla.svg"), "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"no\"?>\n"
                                "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 20010904//EN\"\n"
                                "\"http://www.w3.org/TR/2001/REC-SVG-20010904/DTD/svg10.dtd\">\n"
                                "<!-- Creator: QUILLA\n"
                                "Version: 11.5\n"
                                "Date   : 09.09.2001 01:46:40\n"
                                "-->\n"
                                "<svg width=\"853\" height=\"603\"\n"
                                "xmlns=\"http://www.w3.org/2000/svg\"\n"
                                "xmlns:xlink=\"http://www.w3.org/1999/xlink\">\n"
                                "\n"
                                "</svg>\n");
}

TEST_F(Svg, BlackPageUnlessReversed) {
  screenMode = kBackgroundErase;
  EXPECT_EQ(body([] {}), "<g fill=\"none\" stroke=\"#000000\" stroke-width=\"1.000\">\n"
                         "<rect x=\"0.00\" y=\"0.00\" width=\"853.00\" height=\"603.00\"\n"
                         " fill=\"#000000\" stroke=\"none\"/>\n"
                         "</g>\n</svg>\n");
}

TEST_F(Svg, LineAndPolyline) {
  // A page of 853 by 603 units has the scale 1 with SCLMOD FULL.
  s->pageSetup.scaleMode = kScaleFull;
  const std::string text = [this] {
    EXPECT_TRUE(open(kDeviceSvg, 852, 602));
    line(1, 2, 3.25F, 4);
    for (int i = 0; i < 6; ++i) qqpen(s, static_cast<float>(i), 10, i == 0 ? kPenMove : kPenDraw);
    close();
    return read("quilla.svg");
  }();
  EXPECT_NE(text.find("<g fill=\"none\" stroke=\"#000000\" stroke-width=\"1.000\">\n"
                      "<line x1=\"1.00\" y1=\"2.00\" x2=\"3.25\" y2=\"4.00\"/>\n"
                      "<polyline points=\"\n"
                      " 0.00, 10.00 1.00, 10.00 2.00, 10.00 3.00, 10.00 4.00, 10.00\n"
                      " 5.00, 10.00\"/>\n"
                      "</g>\n</svg>\n"),
            std::string::npos)
      << text;
}

TEST_F(Svg, FivePointsStayInOneRow) {
  const std::string text = body([this] {
    for (int i = 0; i < 5; ++i) qqpen(s, 0, static_cast<float>(i), i == 0 ? kPenMove : kPenDraw);
  });
  EXPECT_EQ(countOf(text, "\n\""), 0) << text;
}

TEST_F(Svg, SinglePointDrawsNothingTwoEqualOnesALine) {
  const std::string text = body([this] {
    qqpen(s, 100, 100, kPenMove);
    qqpen(s, 200, 200, kPenMove);
    line(0, 0, 0, 0);
  });
  EXPECT_EQ(countOf(text, "<line"), 1);
  EXPECT_NE(text.find("<line x1=\"0.00\" y1=\"0.00\" x2=\"0.00\" y2=\"0.00\"/>"), std::string::npos) << text;
}

TEST_F(Svg, HundredPointsEndAnElement) {
  const std::string text = body([this] {
    for (int i = 0; i <= 100; ++i) qqpen(s, static_cast<float>(i * 10), 0, i == 0 ? kPenMove : kPenDraw);
  });
  EXPECT_EQ(countOf(text, "<polyline"), 1);
  EXPECT_EQ(countOf(text, "<line"), 1); // begins at the hundredth point
  const float scale = 602.0F / 2099.0F;
  char start[32];
  std::snprintf(start, sizeof start, "<line x1=\"%.2f\"", static_cast<double>(990.0F * scale));
  EXPECT_NE(text.find(start), std::string::npos) << text;
}

TEST_F(Svg, ColorAndWidthCloseTheGroup) {
  const std::string text = body([this] {
    line(0, 0, 100, 0);
    qqcolor(s, directColor(255, 128, 1));
    line(0, 10, 100, 10);
    qqcolor(s, directColor(255, 128, 1)); // no change
    line(0, 20, 100, 20);
    sinkLineWidth(s, 10);
    line(0, 30, 100, 30);
  });
  EXPECT_EQ(countOf(text, "<g "), 3) << text;
  EXPECT_EQ(countOf(text, "</g>"), 3);
  EXPECT_NE(text.find("stroke=\"#ff8001\" stroke-width=\"1.000\">\n"), std::string::npos) << text;
  EXPECT_NE(text.find("stroke=\"#ff8001\" stroke-width=\"2.868\">\n"), std::string::npos) << text;
}

TEST_F(Svg, WidthIsTheDevicesUnlessSwitchedOff) {
  ASSERT_TRUE(open(kDeviceSvg));
  EXPECT_TRUE(sinkLineWidth(s, 10));
  s->line.hardwareLines = false;
  EXPECT_FALSE(sinkLineWidth(s, 10));
  line(0, 0, 10, 10);
  close();
  EXPECT_NE(read("quilla.svg").find("stroke-width=\"1.000\""), std::string::npos);
}

TEST_F(Svg, PolygonInItsColor) {
  s->pageSetup.scaleMode = kScaleFull;
  ASSERT_TRUE(open(kDeviceSvg, 852, 602));
  s->clip.clipX1 = 852;
  s->clip.clipY1 = 602;
  const float x[] = {0, 10, 10, 5, 0, 0}, y[] = {0, 0, 10, 12, 10, 5};
  qqcolor(s, directColor(0, 0, 255));
  EXPECT_TRUE(qqfill(s, x, y, 6));
  close();
  EXPECT_NE(read("quilla.svg")
                .find("<g fill=\"none\" stroke=\"#0000ff\" stroke-width=\"0.500\">\n"
                      "<polygon fill=\"#0000ff\" points=\"\n"
                      " 0.00, 0.00 10.00, 0.00 10.00, 10.00 5.00, 12.00 0.00, 10.00\n"
                      " 0.00, 5.00\n"
                      "\"/>\n</g>\n"),
            std::string::npos)
      << read("quilla.svg");
}

TEST_F(Svg, PolygonIsCutAtTheClipWindow) {
  s->pageSetup.scaleMode = kScaleFull;
  ASSERT_TRUE(open(kDeviceSvg, 852, 602));
  s->clip.clipX0 = s->clip.clipY0 = 10;
  s->clip.clipX1 = s->clip.clipY1 = 20;
  const float x[] = {15, 30, 30, 15}, y[] = {12, 12, 14, 14};
  const float outside[] = {30, 40, 40}, odd[] = {0, NAN, INFINITY};
  EXPECT_TRUE(qqfill(s, x, y, 4));
  EXPECT_TRUE(qqfill(s, outside, y, 3));
  EXPECT_TRUE(qqfill(s, odd, odd, 3));
  close();
  const std::string text = read("quilla.svg");
  EXPECT_NE(text.find(" 15.00, 12.00 20.00, 12.00 20.00, 14.00 15.00, 14.00\n\"/>"), std::string::npos) << text;
  EXPECT_EQ(text.find("30.00"), std::string::npos);
  EXPECT_EQ(text.find("nan"), std::string::npos);
}

TEST_F(Svg, RectangleInAColorOfItsOwn) {
  s->pageSetup.scaleMode = kScaleFull;
  ASSERT_TRUE(open(kDeviceSvg, 852, 602));
  EXPECT_TRUE(qqbar(s, 30, 40, 10, 20, directColor(1, 2, 3)));
  close();
  EXPECT_NE(read("quilla.svg")
                .find("<rect x=\"10.00\" y=\"20.00\" width=\"20.00\" height=\"20.00\"\n"
                      " fill=\"#010203\" stroke=\"none\"/>\n"),
            std::string::npos);
}

TEST_F(Svg, CharactersOneByOne) {
  s->pageSetup.scaleMode = kScaleFull;
  ASSERT_TRUE(open(kDeviceSvg, 852, 602));
  s->font.psFontIndex = 7;
  s->font.fontCapHeight = 718;
  s->text.textHeight = 15;
  sinkFont(s, true);
  const int codes[] = {'A', '<', '>', '&', 127, 187, 0};
  for (int code : codes) qqglyph(s, {code, 100, 200, 0, 0});
  qqglyph(s, {'B', 100, 200, 0, 90});
  close();
  const std::string text = read("quilla.svg");
  EXPECT_NE(text.find("<g font-family=\"Helvetica\" font-weight=\"bold\" font-style=\"oblique\"\n"
                      "font-size=\"22\" stroke=\"none\" fill=\"#000000\">\n"),
            std::string::npos)
      << text;
  EXPECT_EQ(countOf(text, ">&lt;</text>\n"), 1);
  EXPECT_EQ(countOf(text, ">&gt;</text>\n"), 1);
  EXPECT_EQ(countOf(text, ">&amp;</text>\n"), 1);
  EXPECT_EQ(countOf(text, ">\xC4</text>\n"), 1);
  EXPECT_EQ(countOf(text, "> </text>\n"), 2);
  EXPECT_EQ(countOf(text, " rotate=\"-90\">B</text>\n"), 1);
}

TEST_F(Svg, FontsOfRows) {
  ASSERT_TRUE(open(kDeviceSvg));
  for (int row : {0, 3, 6, 9, 18, 21, 22, 34}) {
    s->font.psFontIndex = row;
    sinkFont(s, true);
    qqglyph(s, {'x', 0, 0, 0, 0});
  }
  close();
  const std::string text = read("quilla.svg");
  const char* wanted[] = {"\"Times\" font-weight=\"normal\" font-style=\"normal\"",
                          "\"Times\" font-weight=\"bold\" font-style=\"italic\"",
                          "\"Helvetica\" font-weight=\"normal\" font-style=\"oblique\"",
                          "\"Helvetica\" font-weight=\"bold\" font-style=\"normal\"",
                          "\"Courier\" font-weight=\"normal\" font-style=\"normal\"",
                          "\"Courier\" font-weight=\"bold\" font-style=\"oblique\"",
                          "\"Times\" font-weight=\"normal\" font-style=\"normal\"",
                          "\"Symbol\" font-weight=\"normal\" font-style=\"normal\""};
  std::size_t at = 0;
  for (const char* font : wanted) {
    at = text.find(font, at);
    ASSERT_NE(at, std::string::npos) << font;
    ++at;
  }
}

TEST_F(Svg, TurnedPage) {
  s->pageSetup.pageRotation = kPageTurned;
  s->pageSetup.scaleMode = kScaleFull;
  ASSERT_TRUE(open(kDeviceSvg, 602, 852));
  // The page is higher than wide, its raster 603 by 853; turned, its height lies across.
  const float scale = 602.0F / 852.0F;
  EXPECT_FLOAT_EQ(s->device.deviceScale, scale);
  line(0, 0, 602, 0);
  qqglyph(s, {'x', 0, 0, 0, 0});
  close();
  const std::string text = read("quilla.svg");
  EXPECT_NE(text.find("<svg width=\"603\" height=\"426\""), std::string::npos) << text;
  EXPECT_NE(text.find("<line x1=\"0.00\" y1=\"425.36\" x2=\"0.00\" y2=\"0.00\"/>"), std::string::npos) << text;
  EXPECT_NE(text.find("rotate=\"-90\""), std::string::npos);
}

TEST_F(Svg, NewPageOnlyCounts) {
  const std::string text = body([this] { sinkNewPage(s); });
  EXPECT_EQ(text, "</svg>\n");
}

} // namespace
} // namespace quilla
