#include "device_fixture.h"

#include "core/colors.h"

namespace quilla {
namespace {

class Ipe : public DeviceTest {
protected:
  // A page of 254 by 254 units is 72 points wide: 1/10 inch is 7.2 points.
  bool openSmall() {
    const bool opened = open(kDeviceIpe, 254, 254);
    s->clip.clipX1 = s->clip.clipY1 = 254;
    return opened;
  }
  std::string body() {
    close();
    const std::string text = read("quilla.ipe");
    return text.substr(text.find("<view"));
  }
};

constexpr char kView[] = "<view layers=\"alpha\" active=\"alpha\"/>\n";

TEST_F(Ipe, Head) {
  ASSERT_TRUE(openSmall());
  close();
  EXPECT_EQ(read("quilla.ipe"), "<?xml version=\"1.0\"?>\n"
                                "<!DOCTYPE ipe SYSTEM \"ipe.dtd\">\n"
                                "<ipe version=\"70010\" creator=\"Quilla 11.5\">\n"
                                "<info created=\"D:20010909014640\" modified=\"D:20010909014640\"/>\n"
                                "<preamble>\\usepackage{times,graphicx}</preamble>\n"
                                "<ipestyle name=\"basic\">\n"
                                "<layout paper=\"72 72\" frame=\"72 72\" origin=\"0 0\"/>\n"
                                "</ipestyle>\n"
                                "<page>\n"
                                "<layer name=\"alpha\"/>\n" +
                                    std::string(kView) + "</page>\n</ipe>\n");
}

TEST_F(Ipe, PolylineHasPenAndColor) {
  ASSERT_TRUE(openSmall());
  qqcolor(s, directColor(255, 0, 51));
  sinkLineWidth(s, 1);
  qqpen(s, 0, 0, kPenMove);
  qqpen(s, 25.4F, 254, kPenDraw);
  qqpen(s, 254, 254, kPenDraw);
  EXPECT_EQ(body(), kView + std::string("<path layer=\"alpha\" stroke=\"1 0 0.200\" pen=\"0.709\">\n"
                                        "0.0 72.0 m\n7.2 0.0 l\n72.0 0.0 l\n</path>\n</page>\n</ipe>\n"));
}

TEST_F(Ipe, PenIsAtLeastAQuarterOfAMillimetre) {
  ASSERT_TRUE(openSmall());
  EXPECT_TRUE(sinkLineWidth(s, 10));
  qqpen(s, 0, 0, kPenMove);
  qqpen(s, 10, 0, kPenDraw);
  s->line.hardwareLines = false;
  EXPECT_FALSE(sinkLineWidth(s, 10));
  qqpen(s, 0, 0, kPenMove);
  qqpen(s, 10, 0, kPenDraw);
  const std::string text = body();
  EXPECT_EQ(countOf(text, "pen=\"2.835\""), 1) << text;
  EXPECT_EQ(countOf(text, "pen=\"0.709\""), 1) << text;
}

TEST_F(Ipe, SinglePointDrawsNothing) {
  ASSERT_TRUE(openSmall());
  qqpen(s, 0, 0, kPenMove);
  qqpen(s, 10, 0, kPenMove);
  EXPECT_EQ(countOf(body(), "<path"), 0);
}

TEST_F(Ipe, FillsInsideTheClipWindowOnly) {
  ASSERT_TRUE(openSmall());
  const float x[] = {0, 254, 254}, y[] = {0, 0, 254}, beyond[] = {0, 255, 254};
  qqcolor(s, directColor(0, 255, 0));
  EXPECT_TRUE(qqfill(s, x, y, 3));
  EXPECT_FALSE(qqfill(s, beyond, y, 3));
  EXPECT_EQ(body(), kView + std::string("<path layer=\"alpha\" fill=\"0 1 0\" stroke=\"0 1 0\">\n"
                                        "0.0 72.0 m\n72.0 72.0 l\n72.0 0.0 l\n</path>\n</page>\n</ipe>\n"));
}

TEST_F(Ipe, RectangleEndsOnItsFirstCorner) {
  ASSERT_TRUE(openSmall());
  EXPECT_TRUE(qqbar(s, 0, 0, 127, 254, directColor(0, 0, 255)));
  EXPECT_EQ(body(), kView + std::string("<path layer=\"alpha\" fill=\"0 0 1\">\n0.0 72.0 m\n36.0 72.0 l\n36.0 0.0 l\n"
                                        "0.0 0.0 l\n0.0 72.0 l\n</path>\n</page>\n</ipe>\n"));
}

TEST_F(Ipe, TextIsSetByLatex) {
  ASSERT_TRUE(openSmall());
  s->font.fontCapHeight = 500;
  s->text.textHeight = 254;
  qqglyph(s, {'A', 127, 127, 0, 0});
  qqcolor(s, directColor(255, 0, 0));
  for (const int code :
       std::initializer_list<int>{'<', '>', '\\', '~', '{', '}', '$', '&', '%', '#', '_', '^', 130, 187})
    qqglyph(s, {code, 0, 0, 0, 0});
  const std::string text = body();
  EXPECT_EQ(countOf(text, "<text pos=\"36.0 36.0\" type=\"label\" valign=\"baseline\" size=\"144.0\">A</text>\n"), 1)
      << text;
  const char* wanted[] = {
      "\\textless", "\\textgreater", "\\textbackslash",   "\\textasciitilde", "\\{", "\\}", "\\$", "\\&amp;", "\\%",
      "\\#",        "\\_",           "\\textasciicircum", "\xC3\xA4",         " "};
  for (const char* character : wanted)
    EXPECT_EQ(countOf(text, "stroke=\"1 0 0\" size=\"144.0\">" + std::string(character) + "</text>\n"), 1) << character;
}

TEST_F(Ipe, TurnedText) {
  ASSERT_TRUE(openSmall());
  for (int angle : {90, 180, 270, -30}) qqglyph(s, {'x', 0, 0, 0, angle});
  const std::string text = body();
  EXPECT_EQ(countOf(text, "\" halign=\"right\" >\\rotatebox{90}x</text>"), 1) << text;
  EXPECT_EQ(countOf(text, "\" halign=\"right\" >\\rotatebox{180}x</text>"), 1);
  EXPECT_EQ(countOf(text, "\" >\\rotatebox{270}x</text>"), 1);
  EXPECT_EQ(countOf(text, "\" >\\rotatebox{330}x</text>"), 1);
}

TEST_F(Ipe, NewPage) {
  ASSERT_TRUE(openSmall());
  sinkNewPage(s);
  EXPECT_EQ(body(), kView + std::string("</page>\n<page>\n</page>\n</ipe>\n"));
}

TEST_F(Ipe, TurnedPageExchangesTheSides) {
  s->pageSetup.pageRotation = kPageTurned;
  ASSERT_TRUE(open(kDeviceIpe, 254, 508));
  qqpen(s, 0, 508, kPenMove);
  qqpen(s, 254, 508, kPenDraw);
  close();
  const std::string text = read("quilla.ipe");
  EXPECT_EQ(countOf(text, "paper=\"144 72\""), 1);
  EXPECT_EQ(countOf(text, "144.0 0.0 m\n144.0 72.0 l\n"), 1) << text;
}

} // namespace
} // namespace quilla
