#include "device_fixture.h"

#include <cmath>
#include <vector>

#include <zlib.h>

#include "core/colors.h"
#include "device/pdf_driver.h"
#include "device/pdf_writer.h"
#include "quilla/quilla.h"

namespace quilla {
namespace {

class Pdf : public DeviceTest {
protected:
  // The page content of an uncompressed document of 1000 by 2000 units, without what the opening writes. The scale is
  // 72 / 254 points: (x, y) becomes (0.28346 x, 0.28346 (2000 - y)).
  std::string drawn(void (*draw)(PlotState* s)) {
    s->deviceSetup.pdfMode = 0;
    EXPECT_TRUE(open(kDevicePdf, 1000, 2000));
    EXPECT_FLOAT_EQ(s->device.deviceScale, 72.0F / 254.0F);
    draw(s);
    close();
    const std::string text = contentOf(read(s->deviceSetup.plotFileName));
    const std::string start = "0.709 w\n2 J\n2 j\n";
    EXPECT_EQ(text.substr(0, start.size()), start);
    return text.substr(start.size());
  }

  static std::string contentOf(const std::string& file) {
    const std::size_t from = file.find("stream\n") + 7;
    return file.substr(from, file.find("endstream") - from);
  }

  // Checks the cross-reference table against the file: every entry of 20 bytes points at its object.
  static void checkTable(const std::string& file) {
    const std::size_t tail = file.rfind("startxref\n");
    ASSERT_NE(tail, std::string::npos);
    const std::size_t start = std::stoul(file.substr(tail + 10));
    ASSERT_EQ(file.substr(start, 7), "xref\n0 ");
    const int count = std::stoi(file.substr(start + 7));
    std::size_t at = file.find('\n', start + 7) + 1;
    EXPECT_EQ(file.substr(at, 20), "0000000000 65535 f \n");
    for (int i = 1; i < count; ++i) {
      at += 20;
      EXPECT_EQ(file.substr(at + 10, 10), " 00000 n \n");
      const std::string head = std::to_string(i) + " 0 obj\n";
      EXPECT_EQ(file.substr(std::stoul(file.substr(at, 10)), head.size()), head);
    }
    EXPECT_EQ(file.substr(at + 20, 8), "trailer\n");
    EXPECT_EQ(file.substr(file.size() - 6), "%%EOF\n");
  }
};

TEST_F(Pdf, EmptyDocumentToTheByte) {
  s->deviceSetup.pdfMode = 0;
  ASSERT_TRUE(open(kDevicePdf));
  close();
  struct Piece {
    int number;
    std::string text;
  };
  const Piece pieces[] = {
      {3, "3 0 obj\n<< /Length 4 0 R >>\nstream\n0.709 w\n2 J\n2 j\nendstream\nendobj\n"},
      {4, "4 0 obj\n16\nendobj\n"},
      {5, "5 0 obj\n<<\n/Type /Page\n/MediaBox [0 0 553 794]\n/Parent 2 0 R\n/Rotate 90\n"
          "/Resources << /ProcSet [/PDF]\n>>\n/Contents 3 0 R\n>>\nendobj\n"},
      {2, "2 0 obj\n<< /Type /Pages /Kids [\n5 0 R\n] /Count 1\n>>\nendobj\n"},
      {1, "1 0 obj\n<< /Type /Catalog /Pages 2 0 R\n>>\nendobj\n"},
      {6, "6 0 obj\n<< /CreationDate (D:20010909014640)\n/Producer (QUILLA 10.5)\n>>\nendobj\n"},
  };
  std::string expected = "%PDF-1.3\n", entries[7] = {"0000000000 65535 f \n"};
  for (const Piece& piece : pieces) {
    const std::string offset = std::to_string(expected.size());
    entries[piece.number] = std::string(10 - offset.size(), '0') + offset + " 00000 n \n";
    expected += piece.text;
  }
  const std::string start = std::to_string(expected.size());
  expected += "xref\n0 7\n";
  for (const std::string& entry : entries) expected += entry;
  expected += "trailer\n<< /Size 7 /Root 1 0 R /Info 6 0 R\n>>\nstartxref\n" + start + "\n%%EOF\n";
  EXPECT_EQ(read("quilla.pdf"), expected);
}

TEST_F(Pdf, SheetAndRotation) {
  struct Case {
    int width, height, rotation;
    bool rotated;
  };
  for (const Case& c : {Case{2969, 2099, kPageAsIs, true},
                        {2969, 2099, kPageTurned, true},
                        {2969, 2099, kPageNever, false},
                        {2099, 2969, kPageAsIs, false},
                        {2000, 2000, kPageAsIs, false}}) {
    s->pageSetup.pageRotation = c.rotation;
    ASSERT_TRUE(open(kDevicePdf, c.width, c.height));
    close();
    EXPECT_EQ(countOf(read(s->deviceSetup.plotFileName), "/Rotate 90\n"), c.rotated ? 1 : 0);
  }
  HWPAGE(1000, 500); // 100 mm by 50 mm: 283.46 by 141.73 points
  ASSERT_TRUE(open(kDevicePdf, 900, 400));
  EXPECT_FLOAT_EQ(s->device.deviceScale, 500.0F / 900.0F * 72.0F / 254.0F);
  close();
  EXPECT_EQ(countOf(read(s->deviceSetup.plotFileName), "/MediaBox [0 0 283 142]\n"), 1);
}

TEST_F(Pdf, PathsAreStrokedOnce) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqpen(p, 100, 200, kPenMove);
              qqpen(p, 300, 200, kPenDraw);
              qqpen(p, 300, 400, kPenDraw);
              qqpen(p, 500, 600, kPenMove);
              qqpen(p, 0, 2000, kPenDraw);
            }),
            "28.35 510.24 m\n85.04 510.24 l\n85.04 453.54 l\nS\n141.73 396.85 m\n0.00 0.00 l\nS\n");
}

TEST_F(Pdf, DotsAndRepeatedPoints) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqpen(p, 100, 200, kPenMove);
              qqpen(p, 100, 200, kPenDraw);
              qqpen(p, 100, 200, kPenDraw);
              qqpen(p, 300, 200, kPenDraw);
              qqpen(p, 300, 200, kPenDraw);
            }),
            "27.99 510.24 m\n28.70 510.24 l\n85.04 510.24 l\nS\n");
  EXPECT_EQ(s->counters.vectorCount, 4);
}

TEST_F(Pdf, ColorsSetStrokeAndFillAndBreakThePath) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqpen(p, 100, 200, kPenMove);
              qqpen(p, 300, 200, kPenDraw);
              qqcolor(p, directColor(255, 128, 0));
              qqpen(p, 300, 400, kPenDraw);
            }),
            "28.35 510.24 m\n85.04 510.24 l\nS\n1 0.502 0 RG\n1 0.502 0 rg\n85.04 510.24 m\n85.04 453.54 l\nS\n");
}

TEST_F(Pdf, FillsUseTheCurrentColorAfterABar) {
  EXPECT_EQ(
      drawn([](PlotState* p) {
        const float x[] = {0, 100, 100}, y[] = {1000, 1000, 2000};
        qqcolor(p, directColor(255, 0, 0));
        EXPECT_TRUE(qqfill(p, x, y, 3));
        EXPECT_TRUE(qqbar(p, 0, 2000, 100, 1000, directColor(0, 0, 255)));
        EXPECT_TRUE(qqfill(p, x, y, 3));
        EXPECT_TRUE(qqbar(p, 100, 1000, 100, 1000, directColor(0, 0, 255)));
      }),
      "1 0 0 RG\n1 0 0 rg\n0 w\n0.00 283.46 m\n28.35 283.46 l\n28.35 0.00 l\ns\n0.00 283.46 m\n28.35 283.46 l\n28.35 "
      "0.00 l\nh\nf*\n"
      "0 0 1 rg\n0.00 0.00 28.35 283.46 re\nf\n"
      "1 0 0 rg\n0.00 283.46 m\n28.35 283.46 l\n28.35 0.00 l\ns\n0.00 283.46 m\n28.35 283.46 l\n28.35 0.00 l\nh\nf*\n"
      "0 0 1 rg\n27.99 283.11 0.71 0.71 re\nf\n");
}

TEST_F(Pdf, LineState) {
  EXPECT_EQ(drawn([](PlotState* p) {
              EXPECT_TRUE(sinkLineWidth(p, 1));
              EXPECT_TRUE(sinkLineWidth(p, 10));
              EXPECT_TRUE(sinkPenWidth(p, 0.5F));
              sinkLineCap(p, 1);
              sinkLineJoin(p, 0);
              sinkMiterLimit(p, 2.5F);
              p->line.lineJoin = kJoinSharp;
              p->line.lineMiter = 3.0F;
              sinkLineWidth(p, 4);
            }),
            // 5, 20, 2.5 and 8 units of 1/20 mm
            "0.709 w\n2.835 w\n0.354 w\n1 J\n0 j\n2.500 M\n1.134 w\n3.000 M\n");
}

TEST_F(Pdf, ClipGivesTheStateBack) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqcolor(p, directColor(255, 0, 0));
              sinkClip(p, true, 0, 0, 100, 200);
              sinkClip(p, true, 0, 0, 200, 200);
              qqpen(p, 0, 2000, kPenMove);
              qqpen(p, 100, 2000, kPenDraw);
              sinkClip(p, false, 0, 0, 0, 0);
              sinkClip(p, false, 0, 0, 0, 0);
            }),
            "1 0 0 RG\n1 0 0 rg\n"
            "q\n0.00 566.93 m\n28.35 566.93 l\n28.35 510.24 l\n0.00 510.24 l\nh W n\n"
            "Q\n1 0 0 RG\n"
            "q\n0.00 566.93 m\n56.69 566.93 l\n56.69 510.24 l\n0.00 510.24 l\nh W n\n"
            "0.00 0.00 m\n28.35 0.00 l\nS\nQ\n");
}

// The thin outline of a polygon does not make the lines after it thin.
TEST_F(Pdf, LinesKeepTheirWidthBehindAFill) {
  const std::string text = drawn([](PlotState* p) {
    const float x[] = {0, 100, 100}, y[] = {1000, 1000, 2000};
    sinkLineWidth(p, 10);
    qqfill(p, x, y, 3);
    qqpen(p, 0, 0, kPenMove);
    qqpen(p, 100, 0, kPenDraw);
    sinkClip(p, true, 0, 2000, 100, 2000);
    qqfill(p, x, y, 3);
    sinkClip(p, false, 0, 0, 0, 0);
    qqpen(p, 0, 0, kPenMove);
    qqpen(p, 100, 0, kPenDraw);
  });
  EXPECT_EQ(countOf(text, "0 w\n"), 2) << text;
  EXPECT_EQ(countOf(text, "2.835 w\n"), 2)
      << text; // once set, once after the first fill; the clip's end brings it back
}

TEST_F(Pdf, WhatChangedInsideAClipHoldsBehindIt) {
  EXPECT_EQ(drawn([](PlotState* p) {
              const float x[] = {0, 100, 100}, y[] = {1000, 1000, 2000};
              sinkClip(p, true, 0, 2000, 100, 2000);
              qqcolor(p, directColor(0, 255, 0));
              sinkLineWidth(p, 10);
              sinkLineCap(p, 0);
              sinkClip(p, false, 0, 0, 0, 0);
              qqfill(p, x, y, 3);
            }),
            "q\n0.00 0.00 m\n28.35 0.00 l\n28.35 0.00 l\n0.00 0.00 l\nh W n\n"
            "0 1 0 RG\n0 1 0 rg\n2.835 w\n0 J\n"
            "Q\n0 1 0 RG\n2.835 w\n0 J\n"
            "0 1 0 rg\n0 w\n0.00 283.46 m\n28.35 283.46 l\n28.35 0.00 l\ns\n0.00 283.46 m\n28.35 283.46 l\n28.35 0.00 "
            "l\nh\nf*\n");
}

TEST_F(Pdf, OpenClipIsClosedAtTheEnd) {
  const std::string text = drawn([](PlotState* p) { sinkClip(p, true, 0, 0, 100, 200); });
  EXPECT_EQ(text.substr(text.size() - 2), "Q\n");
}

constexpr int kUnitsOfWidth = 80;

void selectHelvetica(PlotState* p) {
  p->font.psFontIndex = 4;
  p->font.fontCapHeight = 718;
  for (std::int16_t& width : p->font.charWidths) width = kUnitsOfWidth;
  p->text.textHeight = 36;
  sinkFont(p, true);
}

// What the text room makes of 80 width units: 80 / 40 * 0.28346458 * height * 1000 / 718.
float advanceOf(const PlotState* p) {
  return 2.0F * 0.28346458F * static_cast<float>(p->text.textHeight) * 1000.0F / 718.0F * p->text.charWidthFactor;
}

TEST_F(Pdf, Text) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqcolor(p, directColor(0, 0, 0));
              selectHelvetica(p);
              qqpen(p, 0, 2000, kPenMove);
              qqpen(p, 100, 2000, kPenDraw);
              qqglyph(p, {'A', 100, 1000, advanceOf(p), 0});
              qqglyph(p, {'(', 120, 1000, advanceOf(p), 0});
              qqglyph(p, {')', 120, 1000, advanceOf(p), 0});
              qqglyph(p, {'\\', 120, 1000, advanceOf(p), 90});
              qqglyph(p, {127, 120, 1000, advanceOf(p), 180}); // A with dieresis, 196
              qqglyph(p, {186, 120, 1000, advanceOf(p), 45});  // question mark upside down, 191
              qqglyph(p, {187, 120, 1000, advanceOf(p), -90}); // copyright, 169
              qqglyph(p, {188, 120, 1000, advanceOf(p), 360});
              qqpen(p, 100, 1900, kPenDraw);
            }),
            // 36 * 0.28346 * 1000 / 718 = 14.2 points
            "0 0 0 RG\n0 0 0 rg\n0.00 0.00 m\n28.35 0.00 l\nS\n"
            "BT\n/F5 14.2 Tf\n100 Tz\n"
            "1 0 0 1 28.35 283.46 Tm\n(A) Tj\n"
            "1 0 0 1 34.02 283.46 Tm\n(\\50) Tj\n"
            "1 0 0 1 34.02 283.46 Tm\n(\\51) Tj\n"
            "0 1 -1 0 34.02 283.46 Tm\n(\\134) Tj\n"
            "-1.00 0.00 0.00 -1.00 34.02 283.46 Tm\n(\\304) Tj\n"
            "0.71 0.71 -0.71 0.71 34.02 283.46 Tm\n(\\277) Tj\n"
            "0.00 -1.00 1.00 0.00 34.02 283.46 Tm\n(\\251) Tj\n"
            "1 0 0 1 34.02 283.46 Tm\n( ) Tj\n"
            "ET\n28.35 0.00 m\n28.35 28.35 l\nS\n");
}

TEST_F(Pdf, TextBeginsAnewWithItsSize) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqcolor(p, directColor(0, 0, 0));
              selectHelvetica(p);
              qqglyph(p, {'A', 100, 1000, advanceOf(p), 0});
              sinkFont(p, false);
              qqglyph(p, {'B', 100, 1000, advanceOf(p), 0});
              p->text.textHeight = 72;
              sinkFont(p, false);
              qqglyph(p, {'C', 100, 1000, advanceOf(p), 0});
              p->text.charWidthFactor = 0.5F;
              sinkFont(p, false);
              qqglyph(p, {'D', 100, 1000, advanceOf(p), 0});
            }),
            "0 0 0 RG\n0 0 0 rg\nBT\n/F5 14.2 Tf\n100 Tz\n1 0 0 1 28.35 283.46 Tm\n(A) Tj\n"
            "1 0 0 1 28.35 283.46 Tm\n(B) Tj\n"
            "ET\nBT\n/F5 28.4 Tf\n100 Tz\n1 0 0 1 28.35 283.46 Tm\n(C) Tj\n"
            "ET\nBT\n/F5 28.4 Tf\n50 Tz\n1 0 0 1 28.35 283.46 Tm\n(D) Tj\nET\n");
}

TEST_F(Pdf, CharacterStandsInTheMiddleOfAWiderCell) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqcolor(p, directColor(0, 0, 0));
              selectHelvetica(p);
              // 28.426 units wide, then in a cell 10 units wider
              qqglyph(p, {'A', 100, 1000, advanceOf(p), 0});
              qqglyph(p, {'A', 100, 1000, advanceOf(p) + 10.0F, 0});
              qqglyph(p, {'A', 100, 1000, advanceOf(p) + 10.0F, 90});
            }),
            "0 0 0 RG\n0 0 0 rg\nBT\n/F5 14.2 Tf\n100 Tz\n1 0 0 1 28.35 283.46 Tm\n(A) Tj\n"
            "1 0 0 1 29.76 283.46 Tm\n(A) Tj\n"
            "0 1 -1 0 28.35 284.88 Tm\n(A) Tj\nET\n");
}

TEST_F(Pdf, TextOnAPageAcrossTheSheet) {
  s->deviceSetup.pdfMode = 0;
  ASSERT_TRUE(open(kDevicePdf, 2000, 1000));
  qqcolor(s, directColor(0, 0, 0));
  selectHelvetica(s);
  qqglyph(s, {'A', 200, 100, advanceOf(s), 0});
  close();
  EXPECT_EQ(countOf(read("quilla.pdf"), "0 1 -1 0 28.35 56.69 Tm\n(A) Tj\n"), 1);
}

TEST_F(Pdf, FontsAreListedOnLaterPages) {
  s->deviceSetup.pdfMode = 0;
  ASSERT_TRUE(open(kDevicePdf, 1000, 2000));
  sinkNewPage(s);
  selectHelvetica(s);
  qqglyph(s, {'A', 100, 1000, 20, 0});
  sinkNewPage(s);
  s->font.psFontIndex = 34; // Symbol keeps its own encoding
  sinkFont(s, true);
  qqglyph(s, {'A', 100, 1000, 20, 0});
  sinkNewPage(s);
  close();
  const std::string file = read("quilla.pdf");
  EXPECT_EQ(countOf(file, "<< /Type /Font\n/Subtype /Type1\n/BaseFont /Helvetica\n/Encoding /WinAnsiEncoding\n>>\n"),
            1);
  EXPECT_EQ(countOf(file, "<< /Type /Font\n/Subtype /Type1\n/BaseFont /Symbol\n>>\n"), 1);
  // Objects: 3 to 5 page 1; 6, 7 content, 8 font, 9 page 2; 10, 11 content, 12 font, 13 page 3; 14 to 16 page 4.
  EXPECT_EQ(countOf(file, "/Resources << /ProcSet [/PDF /Text]\n/Font <<\n/F5 8 0 R\n>>\n>>\n/Contents 6 0 R\n"), 1);
  EXPECT_EQ(
      countOf(file,
              "/Resources << /ProcSet [/PDF /Text]\n/Font <<\n/F5 8 0 R\n/F35 12 0 R\n>>\n>>\n/Contents 10 0 R\n"),
      1);
  EXPECT_EQ(countOf(file, "/Resources << /ProcSet [/PDF]\n>>\n"), 2);
  EXPECT_EQ(countOf(file, "/Kids [\n5 0 R\n9 0 R\n13 0 R\n16 0 R\n] /Count 4\n"), 1);
  checkTable(file);
}

TEST_F(Pdf, NewPageGoesOnWithTheLineState) {
  s->deviceSetup.pdfMode = 0;
  ASSERT_TRUE(open(kDevicePdf, 1000, 2000));
  sinkLineWidth(s, 10);
  sinkLineJoin(s, 1);
  sinkMiterLimit(s, 4.0F);
  qqcolor(s, directColor(255, 0, 0));
  sinkNewPage(s);
  close();
  EXPECT_EQ(countOf(read("quilla.pdf"), "stream\n2.835 w\n2 J\n1 j\n4.000 M\n1 0 0 RG\n1 0 0 rg\nendstream\n"), 1);
}

TEST_F(Pdf, BlackPages) {
  screenMode = kBackgroundErase;
  s->deviceSetup.pdfMode = 0;
  ASSERT_TRUE(open(kDevicePdf, 2000, 1000));
  sinkNewPage(s);
  close();
  EXPECT_EQ(countOf(read("quilla.pdf"), "0 0 0 rg\n0.00 0.00 283.46 566.93 re\nf\n"), 2);
}

TEST_F(Pdf, LengthObjectsFollowTheirStreams) {
  s->deviceSetup.pdfMode = 0;
  ASSERT_TRUE(open(kDevicePdf));
  for (int i = 0; i < 40000; ++i) qqpen(s, static_cast<float>(i % 991), static_cast<float>(i % 997), kPenDraw);
  sinkNewPage(s);
  close();
  const std::string file = read("quilla.pdf");
  EXPECT_EQ(countOf(file, "/Contents "), 2); // one stream a page, however long
  EXPECT_EQ(countOf(file, "endstream\nendobj\n4 0 obj\n"), 1);
  EXPECT_EQ(countOf(file, "endstream\nendobj\n7 0 obj\n"), 1);
  checkTable(file);
}

// All content streams of a compressed document, inflated and joined.
std::string inflated(const std::string& file) {
  std::string all;
  const std::string head = "/Filter /FlateDecode\n>>\nstream\n";
  for (std::size_t at = file.find(head); at != std::string::npos; at = file.find(head, at)) {
    const std::size_t length = file.rfind("<< /Length ", at);
    const unsigned long packed = std::stoul(file.substr(length + 11));
    at += head.size();
    EXPECT_EQ(file.substr(at + packed, 17), "endstream\nendobj\n");
    std::string text(400000, '\0');
    uLongf size = text.size();
    EXPECT_EQ(uncompress(reinterpret_cast<Bytef*>(text.data()), &size, reinterpret_cast<const Bytef*>(file.data() + at),
                         packed),
              Z_OK);
    EXPECT_LE(size, static_cast<uLongf>(kPdfStreamLimit));
    all += text.substr(0, size);
  }
  return all;
}

TEST_F(Pdf, LongPageHasSeveralStreams) {
  for (int mode : {0, 1}) {
    s->deviceSetup.pdfMode = mode;
    SETFIL(mode ? "packed.pdf" : "plain.pdf");
    ASSERT_TRUE(open(kDevicePdf));
    for (int i = 0; i < 50000; ++i) qqpen(s, static_cast<float>(i % 991), static_cast<float>(i % 997), kPenDraw);
    close();
  }
  const std::string packed = read("packed.pdf"), plain = read("plain.pdf"), content = contentOf(plain);
  EXPECT_GT(content.size(), 2U * kPdfStreamLimit);
  EXPECT_LT(content.size(), 3U * kPdfStreamLimit);
  EXPECT_EQ(countOf(packed, "/Contents [\n3 0 R\n4 0 R\n5 0 R\n]\n"), 1);
  EXPECT_EQ(inflated(packed), content);
  checkTable(packed);
}

TEST_F(Pdf, StreamOfExactlyTheLimitIsOne) {
  for (int extra : {0, 1}) {
    PdfWriter pdf;
    pdf.toMemory = pdf.compressWanted = true;
    pdfOpenContent(pdf);
    pdfPut(pdf, std::string(kPdfStreamLimit - 10, 'x'));
    pdfPut(pdf, std::string(static_cast<std::size_t>(10 + extra), 'y'));
    EXPECT_EQ(pdf.contentStreams, 1 + extra);
    pdfCloseContent(pdf);
    for (void* memory :
         {static_cast<void*>(pdf.memory), static_cast<void*>(pdf.objectOffset), static_cast<void*>(pdf.objectKind),
          static_cast<void*>(pdf.streamBuffer), static_cast<void*>(pdf.packBuffer)}) {
      std::free(memory);
    }
  }
}

TEST_F(Pdf, TablesGrow) {
  ASSERT_TRUE(open(kDevicePdf));
  for (int i = 0; i < 149; ++i) sinkNewPage(s);
  close();
  const std::string file = read("quilla.pdf");
  EXPECT_EQ(countOf(file, "] /Count 150\n"), 1);
  checkTable(file);
}

TEST_F(Pdf, Bookmarks) {
  s->deviceSetup.pdfMode = 0;
  ASSERT_TRUE(open(kDevicePdf));
  PDFMRK("too early", "SECT");
  EXPECT_EQ(takeMessages(), " <<<< Warning 131: Bad structure for bookmarks in pdfmrk!\n");
  PDFMRK("no such level", "BOOK");
  EXPECT_EQ(countOf(takeMessages(), "Warning 2:"), 1);
  PDFMRK("One", "CHAP");
  PDFMRK("One.a", "SECT");
  PDFMRK("One.a.i", "SUBS");
  sinkNewPage(s);
  PDFMRK("One.b", "SECT");
  PDFMRK("Two (second)", "CHAP");
  PDFMRK("jump", "SUBP");
  EXPECT_EQ(countOf(takeMessages(), "Warning 131:"), 1);
  close();
  const std::string file = read("quilla.pdf");
  // Pages are objects 5 and 8, the root of the outlines is 9.
  EXPECT_EQ(countOf(file, "9 0 obj\n<< /Type /Outlines\n   /First 10 0 R\n   /Last 14 0 R\n   /Count 5\n>>\nendobj\n"),
            1);
  EXPECT_EQ(countOf(file,
                    "10 0 obj\n<< /Title (One)\n   /Parent 9 0 R\n   /Next 14 0 R\n   /First 11 0 R\n   /Last 13 0 R\n"
                    "   /Count 3\n   /Dest [ 5 0 R /XYZ 0 794 0]\n>>\nendobj\n"),
            1);
  EXPECT_EQ(countOf(file, "11 0 obj\n<< /Title (One.a)\n   /Parent 10 0 R\n   /Next 13 0 R\n   /First 12 0 R\n"
                          "   /Last 12 0 R\n   /Count 1\n   /Dest [ 5 0 R /XYZ 0 794 0]\n"),
            1);
  EXPECT_EQ(countOf(file, "12 0 obj\n<< /Title (One.a.i)\n   /Parent 11 0 R\n   /Dest [ 5 0 R /XYZ 0 794 0]\n"), 1);
  EXPECT_EQ(
      countOf(file,
              "13 0 obj\n<< /Title (One.b)\n   /Parent 10 0 R\n   /Prev 11 0 R\n   /Dest [ 8 0 R /XYZ 0 794 0]\n"),
      1);
  EXPECT_EQ(countOf(file, "14 0 obj\n<< /Title (Two (second))\n   /Parent 9 0 R\n   /Prev 10 0 R\n   /Dest [ 8 0 R"),
            1);
  EXPECT_EQ(countOf(file, "<< /Type /Catalog /Pages 2 0 R\n   /Outlines 9 0 R\n   /PageMode /UseOutlines\n>>\n"), 1);
  checkTable(file);
}

TEST_F(Pdf, BookmarksAreOfPdfOnly) {
  ASSERT_TRUE(open(kDevicePs));
  PDFMRK("One", "CHAP");
  EXPECT_EQ(takeMessages(), " <<<< Warning 127: Output format is not PDF in pdfmrk!\n");
  close();
}

TEST_F(Pdf, BufferModeGivesTheBytesOfTheFile) {
  ASSERT_TRUE(open(kDevicePdf));
  qqpen(s, 1, 2, kPenMove);
  qqpen(s, 3, 4, kPenDraw);
  close();
  PDFMOD("ON", "BUFF");
  std::filesystem::remove("other.pdf");
  SETFIL("other.pdf");
  ASSERT_TRUE(open(kDevicePdf));
  qqpen(s, 1, 2, kPenMove);
  qqpen(s, 3, 4, kPenDraw);
  close();
  EXPECT_FALSE(std::filesystem::exists("other.pdf"));
  const int size = PDFBUF(nullptr, 0);
  const std::string file = read("quilla.pdf");
  EXPECT_EQ(static_cast<std::size_t>(size), file.size());
  std::string bytes(file.size(), '\0');
  EXPECT_EQ(PDFBUF(reinterpret_cast<unsigned char*>(bytes.data()), size - 1), 0);
  EXPECT_EQ(takeMessages(), " <<<< Warning 130: Buffer too small for PDF file in pdfbuf!\n");
  EXPECT_EQ(PDFBUF(reinterpret_cast<unsigned char*>(bytes.data()), size), size);
  EXPECT_EQ(bytes, file);
  EXPECT_EQ(PDFBUF(nullptr, 0), 0);
  EXPECT_EQ(takeMessages(), " <<<< Warning 129: Internal PDF buffer is empty in pdfbuf!\n");
}

TEST_F(Pdf, BufferGrows) {
  s->deviceSetup.pdfMode = kPdfModeMemory;
  ASSERT_TRUE(open(kDevicePdf));
  for (int i = 0; i < 50000; ++i) qqpen(s, static_cast<float>(i % 991), static_cast<float>(i % 997), kPenDraw);
  close();
  const int size = PDFBUF(nullptr, 0);
  EXPECT_GT(size, kPdfMemoryGrowth);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  EXPECT_EQ(PDFBUF(reinterpret_cast<unsigned char*>(bytes.data()), size), size);
  checkTable(bytes);
}

TEST_F(Pdf, BufferNeedsItsDeviceAndMode) {
  s->deviceSetup.deviceNumber = kDevicePs;
  EXPECT_EQ(PDFBUF(nullptr, 0), 0);
  EXPECT_EQ(takeMessages(), " <<<< Warning 127: Output format is not PDF in pdfbuf!\n");
  s->deviceSetup.deviceNumber = kDevicePdf;
  EXPECT_EQ(PDFBUF(nullptr, 0), 0);
  EXPECT_EQ(takeMessages(), " <<<< Warning 128: Buffer output is not enabled for PDF in pdfbuf!\n");
  s->deviceSetup.pdfMode = 3;
  EXPECT_EQ(PDFBUF(nullptr, 0), 0);
  EXPECT_EQ(takeMessages(), " <<<< Warning 129: Internal PDF buffer is empty in pdfbuf!\n");
}

TEST_F(Pdf, SecondPlotStartsAfresh) {
  ASSERT_TRUE(open(kDevicePdf));
  sinkNewPage(s);
  PDFMRK("One", "CHAP");
  close();
  s->deviceSetup.pdfMode = 0;
  ASSERT_TRUE(open(kDevicePdf));
  close();
  EXPECT_EQ(countOf(read("quilla_1.pdf"), "/Type /Page\n"), 1);
  EXPECT_EQ(countOf(read("quilla_1.pdf"), "Outlines"), 0);
}

TEST_F(Pdf, WildCoordinatesStayNumbers) {
  EXPECT_EQ(drawn([](PlotState* p) {
              qqpen(p, 0, 1e30F, kPenMove);
              qqpen(p, NAN, 2000, kPenDraw);
            }),
            "0.00 -1000000000000.00 m\n0.00 0.00 l\nS\n");
}

} // namespace
} // namespace quilla
