#include "device_fixture.h"

#include <cmath>
#include <sstream>
#include <vector>

#include "core/colors.h"
#include "device/postscript_driver.h"
#include "quilla/quilla.h"

namespace quilla {
namespace {

class PostScript : public DeviceTest {
protected:
  std::vector<std::string> lines() {
    std::vector<std::string> all;
    std::istringstream text(read(s->deviceSetup.plotFileName));
    for (std::string line; std::getline(text, line);) all.push_back(line);
    return all;
  }

  // What stands behind the header: everything after the line that sets caps and joins.
  std::string body() {
    const std::string text = read(s->deviceSetup.plotFileName), mark = "2 setlinecap 2 setlinejoin\n";
    const std::size_t at = text.find(mark);
    EXPECT_NE(at, std::string::npos);
    return text.substr(at + mark.size());
  }

  // The body of a page of 1000 by 2000 units at two device units each: (x, y) becomes (2x, 4000 - 2y).
  std::string drawn(void (*draw)(PlotState* s)) {
    EXPECT_TRUE(open(kDeviceEps, 1000, 2000));
    EXPECT_EQ(s->device.deviceScale, 2.0F);
    draw(s);
    close();
    std::string text = body();
    std::erase(text, '\n'); // where lines break is the word writer's matter
    const std::string end = "gsave showpage grestore ";
    EXPECT_GE(text.size(), end.size());
    EXPECT_EQ(text.substr(text.size() - end.size()), end);
    return text.substr(0, text.size() - end.size());
  }
};

TEST_F(PostScript, HeaderOfALandscapePage) {
  ASSERT_TRUE(open(kDevicePs));
  // 3900 / 2099 is the smaller fit and below 2.
  EXPECT_FLOAT_EQ(s->device.deviceScale, 3900.0F / 2099.0F);
  EXPECT_EQ(s->device.colourDepth, 24);
  close();
  const std::vector<std::string> text = lines();
  EXPECT_EQ(text[0], "%!PS-Adobe-2.0");
  // 150 and 200 times 0.14173: 21.26, 28.35; (3900 + 150) and (2969 * 1.858 + 200) likewise, plus 1: 575.02, 811.2.
  EXPECT_EQ(text[1], "%%BoundingBox: 21 28 575 811");
  EXPECT_EQ(text[2], "%%Creator: QUILLA  11.5 L");
  EXPECT_EQ(text[3], "%%CreationDate: 09.09.2001 , 01:46:40");
  EXPECT_EQ(text[4], "%%Pages: (atend)");
  EXPECT_EQ(text[5], "%%EndComments");
  EXPECT_EQ(text[6], "%%BeginProlog");
  EXPECT_EQ(text[7], "/cm {0.1417322835 mul} def /rgb {255 div} def /lc 1 string def");
  const std::size_t end = text.size();
  EXPECT_EQ(text[7 + 82], " 8#271 /exclamdown 8#272 /questiondown ] def");
  EXPECT_EQ(text[90], "%%EndProlog");
  EXPECT_EQ(text[91], "%%Page: 1 1");
  EXPECT_EQ(text[92], "initgraphics");
  EXPECT_EQ(text[93], "  150 cm   200 cm translate   1.000000  1.000000 scale");
  EXPECT_EQ(text[94], "erasepage");
  EXPECT_EQ(text[95], "2 setlinecap 2 setlinejoin");
  ASSERT_EQ(end, 100U);
  EXPECT_EQ(text[96], "gsave showpage grestore ");
  EXPECT_EQ(text[97], "%%Trailer ");
  EXPECT_EQ(text[98], "%%Pages:        1 ");
  EXPECT_EQ(text[99], "%%EOF ");
}

TEST_F(PostScript, HeaderOfEps) {
  ASSERT_TRUE(open(kDeviceEps, 1000, 2000));
  close();
  const std::vector<std::string> text = lines();
  EXPECT_EQ(text[0], "%!PS-Adobe-3.0 EPSF-3.0");
  // (2000 + 150) * 0.14173 + 1 = 305.7; (4000 + 200) * 0.14173 + 1 = 596.3
  EXPECT_EQ(text[1], "%%BoundingBox: 21 28 305 596");
  EXPECT_EQ(text[2], "%%Creator: QUILLA  11.5 P");
  EXPECT_EQ(text[4], "%%EndComments");
  EXPECT_EQ(text[5], "%%BeginProlog");
  EXPECT_EQ(text[89], "  150 cm   200 cm translate   1.000000  1.000000 scale");
  EXPECT_EQ(text[90], "%%EndProlog");
  EXPECT_EQ(text[91], "%%Page: 1 1");
  EXPECT_EQ(text[92], "2 setlinecap 2 setlinejoin");
  EXPECT_EQ(text[93], "gsave showpage grestore ");
  EXPECT_EQ(text.size(), 94U); // no trailer
}

TEST_F(PostScript, HeaderOfASinglePageWithAComment) {
  PSMODE("SING");
  PSMETA("%note", "INFO");
  ASSERT_TRUE(open(kDevicePost));
  close();
  const std::vector<std::string> text = lines();
  EXPECT_EQ(text[4], "%note");
  EXPECT_EQ(text[5], "%%EndComments");
  EXPECT_EQ(text[6], "%%Page: 1 1");
  EXPECT_EQ(text[7], "2 setlinecap 2 setlinejoin");
  EXPECT_EQ(text[8].substr(0, 4), "/cm ");
  EXPECT_EQ(text[91], "  150 cm   200 cm translate   1.000000  1.000000 scale");
  EXPECT_EQ(text[92], "erasepage");
  EXPECT_EQ(text[93], "showpage ");
  EXPECT_EQ(text.size(), 94U);
}

TEST_F(PostScript, OriginCountsTwiceInTheBoxAndOnceInTheTranslation) {
  HWORIG(100, 300);
  HWSCAL(0.5F);
  ASSERT_TRUE(open(kDevicePs, 1000, 2000));
  close();
  const std::vector<std::string> text = lines();
  // 200 * 0.14173 = 28.3, 600 * 0.14173 = 85.04; (1000 + 200) and (2000 + 600) likewise, plus 1: 171.08, 369.5
  EXPECT_EQ(text[1], "%%BoundingBox: 28 85 171 369");
  EXPECT_EQ(text[93], "  100 cm   300 cm translate   0.500000  0.500000 scale");
}

TEST_F(PostScript, BlackPages) {
  screenMode = kBackgroundErase;
  ASSERT_TRUE(open(kDevicePs));
  close();
  // 2099 and 2969 times 3900 / 2099
  EXPECT_EQ(lines()[94], "0 0 3900 5516 0 0 0 e ");
  ASSERT_TRUE(open(kDevicePs, 1000, 2000));
  close();
  EXPECT_EQ(lines()[94], "0 4000 2000 0 0 0 0 e ");
  ASSERT_TRUE(open(kDevicePost));
  close();
  EXPECT_EQ(lines()[94], "erasepage");
  ASSERT_TRUE(open(kDeviceEps, 1000, 2000));
  close();
  EXPECT_EQ(lines()[92], "0 4000 2000 0 0 0 0 e ");
}

TEST_F(PostScript, ScaleModes) {
  s->pageSetup.scaleMode = kScaleFull;
  ASSERT_TRUE(open(kDevicePs, 1000, 2000));
  EXPECT_FLOAT_EQ(s->device.deviceScale, 2.8F); // 5600 / 2000, above 3900 / 1000
  close();
  s->pageSetup.scaleMode = kScaleDown;
  s->pageSetup.scaleFactor = 0.5F;
  ASSERT_TRUE(open(kDevicePs, 1000, 2000));
  EXPECT_FLOAT_EQ(s->device.deviceScale, 1.0F);
  close();
  s->pageSetup.scaleFactor = 1.0F;
  s->pageSetup.pageRotation = kPageNever;
  ASSERT_TRUE(open(kDevicePs));
  EXPECT_FLOAT_EQ(s->device.deviceScale, 3900.0F / 2969.0F);
  close();
  HWPAGE(1000, 4000);
  ASSERT_TRUE(open(kDevicePs));
  EXPECT_FLOAT_EQ(s->device.deviceScale, 2000.0F / 2969.0F);
  close();
}

TEST_F(PostScript, Polyline) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqpen(p, 10, 20, kPenMove);
              qqpen(p, 30, 20, kPenDraw);
              qqpen(p, 30, 40.5F, kPenDraw);
              qqpen(p, 500, 600, kPenMove);
              qqpen(p, 0, 2000, kPenDraw);
            }),
            "20 3960 u 60 3960 d 60 3919 d p 1000 2800 u 0 0 d p ");
}

TEST_F(PostScript, NoPointBeforeTheFirstMoveIsWrittenWhenThereIsNone) {
  EXPECT_EQ(drawn([](PlotState* p) { qqpen(p, 10, 20, kPenDraw); }), "0 0 u 20 3960 d p ");
}

TEST_F(PostScript, TwoDrawsToOnePointAreOne) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqpen(p, 10, 20, kPenMove);
              qqpen(p, 30, 20, kPenDraw);
              qqpen(p, 30, 20, kPenDraw);
            }),
            "20 3960 u 60 3960 d p ");
}

TEST_F(PostScript, DotIsALineOfLengthFour) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqpen(p, 10, 20, kPenMove);
              qqpen(p, 10, 20, kPenDraw);
            }),
            "18 3960 u 22 3960 d p ");
}

TEST_F(PostScript, MoveAfterMoveWritesALonePoint) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqpen(p, 10, 20, kPenMove);
              qqpen(p, 11, 20, kPenMove);
              qqpen(p, 12, 20, kPenDraw);
            }),
            "20 3960 u p 22 3960 u 24 3960 d p ");
}

TEST_F(PostScript, LongLineComesInStrokesOfAHundredPoints) {
  std::string text = drawn([](PlotState* p) {
    qqpen(p, 0, 2000, kPenMove);
    for (int i = 1; i < 250; ++i) qqpen(p, static_cast<float>(i), 2000, kPenDraw);
  });
  for (char& c : text) c = c == '\n' ? ' ' : c;
  EXPECT_EQ(countOf(text, "u "), 3);
  EXPECT_EQ(countOf(text, "p "), 3);
  EXPECT_EQ(countOf(text, "d "), 249);
  EXPECT_NE(text.find("198 0 d p 198 0 u 200 0 d "), std::string::npos); // points 100 and 199 end and begin strokes
  EXPECT_NE(text.find("396 0 d p 396 0 u 398 0 d "), std::string::npos);
}

TEST_F(PostScript, OtherOperationsBreakTheLineAndItGoesOn) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqpen(p, 10, 20, kPenMove);
              qqpen(p, 30, 20, kPenDraw);
              qqcolor(p, directColor(255, 128, 1));
              qqpen(p, 50, 20, kPenDraw);
            }),
            "20 3960 u 60 3960 d p 255 128 1 f 60 3960 u 100 3960 d p ");
}

TEST_F(PostScript, FillsAndBars) {
  EXPECT_EQ(drawn([](PlotState* p) {
              const float x[] = {0, 100, 100}, y[] = {0, 0, 50};
              EXPECT_TRUE(qqfill(p, x, y, 3));
              p->color.colorTable[7] = 0x0A0B0C;
              EXPECT_TRUE(qqbar(p, 10, 20, 30, 40, 7 + 256));
              EXPECT_TRUE(qqbar(p, 10, 20, 10, 40, 7));
              EXPECT_TRUE(qqbar(p, 10, 20, 30, 20, 7));
            }),
            "0 4000 u 200 4000 d 200 3900 d 0 4000 d eofill 20 3960 60 3920 10 11 12 e 18 "
            "3960 22 3920 10 11 12 e 20 3958 60 3962 10 11 12 e ");
}

TEST_F(PostScript, SoftwareShadingTakesNoPolygon) {
  ASSERT_TRUE(open(kDevicePs));
  const float x[] = {0, 100, 100}, y[] = {0, 0, 50};
  s->line.hardwareShading = false;
  EXPECT_FALSE(qqfill(s, x, y, 3));
  close();
}

TEST_F(PostScript, BarsAreShiftedByTheOrigin) {
  EXPECT_EQ(drawn([](PlotState* p) {
              p->page.originX = 5;
              p->page.originY = 10;
              EXPECT_TRUE(qqbar(p, 10, 20, 30, 40, directColor(1, 2, 3)));
            }),
            "30 3940 70 3900 1 2 3 e ");
}

TEST_F(PostScript, LineState) {
  EXPECT_EQ(drawn([](PlotState* p) {
              EXPECT_TRUE(sinkLineWidth(p, 1));
              EXPECT_TRUE(sinkLineWidth(p, 10));
              EXPECT_TRUE(sinkPenWidth(p, 0.5F));
              EXPECT_TRUE(sinkPenWidth(p, 3.25F));
            }),
            "5.00 cm setlinewidth 20.00 cm setlinewidth 2.50 cm setlinewidth 6.50 cm setlinewidth ");
  EXPECT_EQ(drawn([](PlotState* p) {
              sinkLineCap(p, 1);
              sinkLineJoin(p, 0);
              p->line.lineWidthSetting = -10;
              sinkMiterLimit(p, 3.0F);
              p->line.lineJoin = kJoinSharp;
              p->line.lineMiter = 2.0F;
              sinkLineWidth(p, 4);
            }),
            "1 setlinecap 0 setlinejoin 60 cm setmiterlimit 8.00 cm setlinewidth 16 cm setmiterlimit ");
}

TEST_F(PostScript, SoftwareLinesHaveTheThinnestWidth) {
  EXPECT_EQ(drawn([](PlotState* p) {
              p->line.hardwareLines = false;
              EXPECT_FALSE(sinkLineWidth(p, 10));
            }),
            "5.00 cm setlinewidth ");
}

// The operator refuses limits below 1; 8 cm is the least whole number above.
TEST_F(PostScript, MiterLimitStaysAllowed) {
  EXPECT_EQ(drawn([](PlotState* p) { sinkMiterLimit(p, 1.0F); }), "8 cm setmiterlimit ");
}

TEST_F(PostScript, Clip) {
  EXPECT_EQ(drawn([](PlotState* p) {
              sinkClip(p, true, 10, 20, 30, 40);
              sinkClip(p, false, 0, 0, 0, 0);
            }),
            "initclip 20 3960 60 3920 clp initclip ");
}

TEST_F(PostScript, GlyphStandsByTheMiddleOfItsBaseline) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqglyph(p, {65, 100, 200, 20, 0});
              qqglyph(p, {66, 100, 200, 20, 90});
              qqglyph(p, {67, 100, 200, 20, 180});
            }),
            "65 220 3600 0 c 66 200 3620 90 c 67 180 3600 180 c ");
}

TEST_F(PostScript, GlyphOnAPageAcrossTheSheet) {
  ASSERT_TRUE(open(kDeviceEps, 2000, 1000));
  qqglyph(s, {65, 100, 200, 20, 0});
  close();
  EXPECT_EQ(body(), "65 400 220 90 c gsave showpage grestore \n");
}

TEST_F(PostScript, Fonts) {
  EXPECT_EQ(drawn([](PlotState* p) {
              p->font.psFontIndex = 4; // cap height 718
              p->text.textHeight = 36;
              sinkFont(p, true);
              p->text.textHeight = 100;
              sinkFont(p, false);
              p->text.charWidthFactor = 0.5F;
              sinkFont(p, false);
            }),
            // 36 * 2 * 0.141732 * 1000 / 718 = 14.21; 100 * 2 * ... = 39.48; half of it 19.74
            "(Helvetica) (Helvetica-German) GermanVec ReEncodeSmall (Helvetica-German) 14.2 "
            "font (Helvetica-German) 39.5 font (Helvetica-German) 39.5 19.7 font2 ");
}

TEST_F(PostScript, FontNamesAreFoundInEitherCase) {
  ASSERT_TRUE(open(kDevicePs));
  PSFONT("times-bold  ");
  EXPECT_EQ(s->font.psFontIndex, 1);
  EXPECT_EQ(s->font.fontCapHeight, 676);
  EXPECT_STREQ(s->font.fontName, "Times-Bold-German");
  close();
  EXPECT_NE(body().find("(Times-Bold) (Times-Bold-German) GermanVec ReEncodeSmall (Times-Bold-German) "),
            std::string::npos);
}

TEST_F(PostScript, UnknownFontIsTimesRoman) {
  ASSERT_TRUE(open(kDevicePs));
  PSFONT("Garamond");
  EXPECT_EQ(s->font.psFontIndex, 0);
  EXPECT_EQ(takeMessages(), " <<<< Warning 192: Not a standard PostScript font in psfont!   (Garamond)\n");
  close();
}

TEST_F(PostScript, NewPage) {
  ASSERT_TRUE(open(kDevicePs, 1000, 2000));
  s->line.lineWidthSetting = -3;
  s->color.currentColor = directColor(9, 8, 7);
  qqpen(s, 10, 20, kPenMove);
  qqpen(s, 30, 20, kPenDraw);
  s->geometry.pageNumber = 2;
  sinkNewPage(s);
  close();
  EXPECT_EQ(body(), "20 3960 u 60 3960 d p copypage \n%%Page: 1 2 \nerasepage \n"
                    "2 setlinecap 2 setlinejoin 6 cm setlinewidth\n9 8 7 f gsave showpage grestore \n%%Trailer \n"
                    "%%Pages:        2 \n%%EOF \n");
}

TEST_F(PostScript, NewBlackPage) {
  screenMode = kBackgroundErase;
  ASSERT_TRUE(open(kDevicePostColor, 1000, 2000));
  s->color.colorTable[0] = 0x010203;
  s->color.currentColor = directColor(9, 8, 7);
  s->geometry.pageNumber = 2;
  sinkNewPage(s);
  close();
  EXPECT_EQ(body().substr(0, body().find("gsave")),
            "copypage \n%%Page: 1 2 \n0 0 2000 4000 1 2 3 e 2 setlinecap 2 setlinejoin 5 cm "
            "setlinewidth\n9 8 7 f ");
}

TEST_F(PostScript, EpsHasOnePage) {
  EXPECT_EQ(drawn([](PlotState* p) { sinkNewPage(p); }), "");
}

TEST_F(PostScript, NoLineIsLongerThanEighty) {
  ASSERT_TRUE(open(kDevicePs));
  for (int i = 0; i < 5000; ++i)
    qqpen(s, static_cast<float>(i * 37 % 2969), static_cast<float>(i * 11 % 2099), kPenDraw);
  close();
  EXPECT_EQ(s->counters.vectorCount, 5000);
  for (const std::string& line : lines()) EXPECT_LE(line.size(), 80U) << line;
}

TEST_F(PostScript, WildCoordinatesStayNumbers) {
  const std::string text = drawn([](PlotState* p) {
    qqpen(p, 1e30F, -1e30F, kPenMove);
    qqpen(p, NAN, 0, kPenDraw);
  });
  EXPECT_EQ(text, "1000000000 1000000000 u 0 4000 d p ");
}

} // namespace
} // namespace quilla
