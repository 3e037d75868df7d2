// Image files as data, in the plot, and what goes wrong with them.
#include "plot_fixture.h"

#include "device/device_table.h"
#include "raster/canvas.h"

namespace {

using namespace quilla;

class Images : public PlotTest {
protected:
  static void write(const std::string& name, const std::string& text) {
    std::ofstream(name, std::ios::binary).write(text.data(), static_cast<std::streamsize>(text.size()));
  }
  // Two rows of three pixels: 1 2 3, 4 5 6 and so on up to 16 17 18.
  static void writePpm(const char* name = "a.ppm") {
    std::string text = "P6 3 2 255\n";
    for (int i = 1; i <= 18; ++i) text += static_cast<char>(i);
    write(name, text);
  }
  // One row: red, half transparent blue over nothing, nothing.
  static void writeAlpha() {
    // A stored deflate block, so that the bytes can be read: filter 0, then r g b a three times.
    const unsigned char rows[] = {0, 255, 0, 0, 255, 0, 0, 255, 128, 9, 9, 9, 0};
    std::string data = {0x78, 0x01, 0x01, 13, 0, static_cast<char>(~13), static_cast<char>(0xFF)};
    unsigned a = 1, b = 0;
    for (unsigned char byte : rows) {
      data += static_cast<char>(byte);
      a = (a + byte) % 65521;
      b = (b + a) % 65521;
    }
    for (unsigned part : {b >> 8, b, a >> 8, a}) data += static_cast<char>(part);
    auto chunk = [](const std::string& name, const std::string& bytes) {
      return std::string(3, 0) + static_cast<char>(bytes.size()) + name + bytes + std::string(4, 0);
    };
    write("a.png", "\x89PNG\r\n\x1a\n" + chunk("IHDR", std::string("\0\0\0\3\0\0\0\1\x08\x06\0\0\0", 13)) +
                       chunk("IDAT", data) + chunk("IEND", ""));
  }

  // A raster of one pixel a plot unit, 20 by 10.
  void openRaster(const char* format = "RGB") {
    METAFL("VIRT");
    IMGFMT(format);
    PAGE(20, 10);
    WINSIZ(20, 10);
    SCLMOD("FULL");
    QUIINI();
    ERRMOD("PROT", "OFF");
    FRAME(0);
  }
  // Colour of a pixel, 0xRRGGBB.
  int at(int x, int y) {
    SENDBF();
    const Rgb c = readRgb(*state()->raster.canvas, x, y);
    return c.r << 16 | c.g << 8 | c.b;
  }
};

TEST_F(Images, TiffFilesComeBackByTheirOwnRoutine) {
  EXPECT_EQ(outputOf([] { WTIFF("a.tif"); }), " <<<< Warning 3: Incorrect level in wtiff!   (0)\n");
  openRaster();
  IMGMOD("RGB");
  IMGINI();
  const unsigned char row[] = {10, 20, 30, 40, 50, 60, 70, 80, 90};
  WPXROW(row, 2, 3, 3);
  IMGFIN();
  RTIFF("a.tif");
  ERASE();
  EXPECT_EQ(outputOf([] { WTIFF("none.tif"); }), " <<<< Warning 36: File error in wtiff!   (none.tif)\n");
  TIFWIN(2, 3, 2, 1);
  TIFORG(7, 1);
  WTIFF("a.tif");
  EXPECT_EQ(at(7, 1), 0x0A141E);
  EXPECT_EQ(at(8, 1), 0x28323C);
  EXPECT_EQ(at(9, 1), at(0, 0)); // beyond the window
  EXPECT_EQ(at(2, 3), at(0, 0));
  TIFWIN(19, 0, 2, 1);
  EXPECT_EQ(outputOf([] { WTIFF("a.tif"); }), " <<<< Warning 123: clipping window is outside of image in wtiff!\n");
  write("b.tif", "II*");
  EXPECT_EQ(outputOf([] { WTIFF("b.tif"); }), " <<<< Warning 123: Syntax error in image file in wtiff!\n");
}

TEST_F(Images, KindsAndSizes) {
  writePpm();
  int width = 9, height = 9;
  EXPECT_EQ(FILTYP("a.ppm"), 13);
  EXPECT_EQ(FILSIZ("a.ppm", &width, &height), 0);
  EXPECT_EQ(width, 3);
  EXPECT_EQ(height, 2);
  const std::pair<std::string, int> kinds[] = {{"BM", 1},
                                               {"GIF89a", 2},
                                               {std::string("II*\0", 4), 3},
                                               {"\x89PNG\r\n", 4},
                                               {"!Bitmap QUILLA", 5},
                                               {"text", 6},
                                               {std::string("\0\x3F", 2), 7},
                                               {std::string("\1\0\x9\0\0\3", 6), 8},
                                               {" SP1;", 9},
                                               {"%!PS-Adobe-2.0", 10},
                                               {"%PDF-1.3", 11},
                                               {"\xD7\xCD", 12}};
  for (const auto& [text, kind] : kinds) {
    write("b", text);
    EXPECT_EQ(FILTYP("b"), kind) << text;
  }
  EXPECT_EQ(FILSIZ("b", &width, &height), -1);
  EXPECT_EQ(width, 0);
  const std::string said = outputOf([] { EXPECT_EQ(FILTYP("none"), -1); });
  EXPECT_NE(said.find("Warning 36"), std::string::npos) << said;
  EXPECT_NE(said.find("filtyp"), std::string::npos) << said;
}

TEST_F(Images, DataOfEveryMode) {
  writePpm();
  EXPECT_EQ(LDIMG("a.ppm", nullptr, 0, 0), 18);
  EXPECT_EQ(LDIMG("a.ppm", nullptr, 0, -1), 9);
  EXPECT_EQ(LDIMG("a.ppm", nullptr, 0, 2), 6);
  short data[18] = {};
  EXPECT_EQ(LDIMG("a.ppm", data, 18, 0), 18);
  const short planes[] = {1, 4, 7, 2, 5, 8, 3, 6, 9, 10, 13, 16, 11, 14, 17, 12, 15, 18};
  for (int i = 0; i < 18; ++i) EXPECT_EQ(data[i], planes[i]);
  EXPECT_EQ(LDIMG("a.ppm", data, 18, 2), 6);
  const short green[] = {2, 5, 8, 11, 14, 17};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(data[i], green[i]);
  EXPECT_EQ(LDIMG("a.ppm", data, 9, -1), 9);
  EXPECT_EQ(data[0], 0x0201);
  EXPECT_EQ(data[8], 0x1211);
  write("one.ppm", "P6 1 1 255\nabc");
  EXPECT_EQ(LDIMG("one.ppm", data, 2, -1), 2);
  EXPECT_EQ(data[1], 'c');
}

TEST_F(Images, DataOfFiveSamples) {
  // 1 by 2 pixels of five words in the file's byte order: 1 to 10.
  std::string text("II*\0\x1C\0\0\0", 8);
  for (int i = 1; i <= 10; ++i) text += {static_cast<char>(i), 1};
  const unsigned entries[][4] = {{256, 3, 1, 1}, {257, 3, 1, 2}, {258, 3, 1, 16}, {259, 3, 1, 1},
                                 {262, 3, 1, 1}, {273, 4, 1, 8}, {277, 3, 1, 5},  {279, 4, 1, 20}};
  auto word = [&text](unsigned value, int count) {
    for (int i = 0; i < count; ++i) text += static_cast<char>(value >> (8 * i));
  };
  word(8, 2);
  for (const auto& entry : entries) {
    word(entry[0], 2);
    word(entry[1], 2);
    word(entry[2], 4);
    word(entry[3], 4);
  }
  word(0, 4);
  write("five.tif", text);
  EXPECT_EQ(LDIMG("five.tif", nullptr, 0, 0), 10);
  short data[10] = {};
  EXPECT_EQ(LDIMG("five.tif", data, 10, 0), 10);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(data[i], 256 + i + 1);
  EXPECT_EQ(LDIMG("five.tif", data, 10, 5), 2);
  EXPECT_EQ(data[0], 256 + 5);
  EXPECT_EQ(data[1], 256 + 10);
}

TEST_F(Images, DataThatCannotBeHad) {
  writePpm();
  write("text", "no image");
  write("cut.ppm", "P6 3 2 255\nabc");
  short data[18];
  auto said = [&data](const char* name, int size, int mode) {
    return outputOf([&] { EXPECT_EQ(LDIMG(name, data, size, mode), 0); });
  };
  EXPECT_NE(said("none", 18, 0).find("Warning 36"), std::string::npos);
  EXPECT_NE(said("text", 18, 0).find("Warning 56"), std::string::npos);
  EXPECT_NE(said("a.ppm", -1, 0).find("Warning 2"), std::string::npos);
  EXPECT_NE(said("a.ppm", 18, -2).find("Warning 2"), std::string::npos);
  EXPECT_NE(said("a.ppm", 18, 4).find("Warning 2"), std::string::npos);
  EXPECT_NE(said("a.ppm", 17, 0).find("Not enough space in array"), std::string::npos);
  EXPECT_NE(said("cut.ppm", 18, 0).find("Syntax error in image file"), std::string::npos);
}

TEST_F(Images, ImagesStandAtTheirOwnSizeOnARaster) {
  writePpm();
  openRaster();
  FILBOX(4, 3, 10, 5);
  INCFIL("a.ppm");
  EXPECT_EQ(at(4, 3), 0x010203);
  EXPECT_EQ(at(6, 4), 0x101112);
  EXPECT_EQ(at(7, 3), 0);
  EXPECT_EQ(at(4, 5), 0);
  EXPECT_FALSE(state()->raster.imageOpen);
}

TEST_F(Images, ImagesAreCutAtTheEdgesOfTheRaster) {
  writePpm();
  openRaster();
  FILBOX(18, 9, 2, 1);
  INCFIL("a.ppm");
  EXPECT_EQ(at(18, 9), 0x010203);
  EXPECT_EQ(at(19, 9), 0x040506);
}

TEST_F(Images, ScaledToTheBoxOrThePage) {
  write("b.ppm", "P6 2 1 255\n" + std::string("\0\0\0\x64\x64\x64", 6));
  openRaster();
  FILBOX(4, 3, 5, 2);
  FILOPT("ON", "SCAL");
  INCFIL("b.ppm");
  for (int i = 0; i < 5; ++i) EXPECT_EQ(at(4 + i, 4) & 255, 25 * i);
  FILOPT("VIEW", "SCAL");
  INCFIL("b.ppm");
  EXPECT_EQ(at(0, 0), 0);
  EXPECT_EQ(at(19, 9), 0x646464);
}

TEST_F(Images, PartOfAnImage) {
  writePpm();
  openRaster();
  FILBOX(4, 3, 5, 5);
  FILWIN(1, 1, 2, 1);
  INCFIL("a.ppm");
  EXPECT_EQ(at(4, 3), 0x0D0E0F);
  EXPECT_EQ(at(5, 3), 0x101112);
  EXPECT_EQ(at(6, 3), 0);
  FILWIN(1, 1, 3, 1);
  const std::string said = outputOf([] { INCFIL("a.ppm"); });
  EXPECT_NE(said.find("Warning 123"), std::string::npos) << said;
  EXPECT_NE(said.find("clipping window is outside of image"), std::string::npos) << said;
  EXPECT_NE(said.find("incfil"), std::string::npos) << said;
  EXPECT_NE(outputOf([] { FILWIN(-1, 0, 1, 1); }).find("Warning 2"), std::string::npos);
  EXPECT_NE(outputOf([] { FILWIN(0, 0, 0, 1); }).find("Warning 2"), std::string::npos);
}

TEST_F(Images, WhatIsThereShowsThroughAlpha) {
  writeAlpha();
  openRaster();
  RECFLL(0, 0, 20, 10, 0x01000000 | 0x0000FF00); // green
  FILBOX(2, 2, 3, 1);
  INCFIL("a.png");
  EXPECT_EQ(at(2, 2), 0xFF0000);
  EXPECT_EQ(at(3, 2), 0x007F80); // 255 * 127 / 255 + 0.5, and 255 * 128 / 255 + 0.5
  EXPECT_EQ(at(4, 2), 0x00FF00);
}

TEST_F(Images, IndexedRastersTakeTheNearestColour) {
  write("b.ppm", "P6 2 1 255\n" + std::string("\xFF\0\0\0\0\xFE", 6));
  openRaster("IND");
  SETVLT("SMAL");
  FILBOX(2, 2, 3, 1);
  INCFIL("b.ppm");
  EXPECT_EQ(at(2, 2), 0xFF0000);
  EXPECT_EQ(at(3, 2), 0x0000FF);
}

TEST_F(Images, RowsBeforeTheDamageStay) {
  write("b.ppm", "P6 1 2 255\nabc");
  openRaster();
  FILBOX(2, 2, 3, 3);
  const std::string said = outputOf([] { INCFIL("b.ppm"); });
  EXPECT_NE(said.find("Syntax error in image file"), std::string::npos) << said;
  EXPECT_EQ(at(2, 2), 0x616263);
  EXPECT_EQ(at(2, 3), 0);
}

TEST_F(Images, TheFrameStandsAroundTheBox) {
  writePpm();
  openRaster();
  COLOR("RED");
  FRAME(1);
  FILBOX(4, 3, 6, 5);
  INCFIL("a.ppm");
  EXPECT_EQ(at(4, 3), 0xFF0000);
  EXPECT_EQ(at(9, 7), 0xFF0000);
  FILOPT("VIEW", "SCAL");
  FILBOX(1, 1, 3, 3);
  INCFIL("a.ppm");
  EXPECT_NE(at(1, 1), 0xFF0000); // it would be a frame without a picture in it
}

TEST_F(Images, Refusals) {
  writePpm();
  write("b.pdf", "%PDF-1.3\n");
  open("SVG");
  EXPECT_NE(outputOf([] { INCFIL("a.ppm"); }).find("Warning 40"), std::string::npos);
  EXPECT_NE(outputOf([] { INCFIL("b.pdf"); }).find("Warning 56"), std::string::npos);
  EXPECT_NE(outputOf([] { INCFIL("none"); }).find("Warning 36"), std::string::npos);
  EXPECT_NE(outputOf([] { GRFIMG("a.ppm"); }).find("Warning 34"), std::string::npos);
  EXPECT_NE(outputOf([] { IMGINI(); }).find("Warning 40"), std::string::npos);
  QUIFIN();
}

TEST_F(Images, NoImageWhileAnotherIsOpen) {
  writePpm();
  openRaster();
  IMGINI();
  EXPECT_NE(outputOf([] { INCFIL("a.ppm"); }).find("Warning 54"), std::string::npos);
  IMGFIN();
}

TEST_F(Images, PixelsInUserCoordinates) {
  writePpm();
  open();
  AXSPOS(100, 1100);
  AXSLEN(1000, 1000);
  NOGRAF();
  SETGRF("NONE", "NONE", "NONE", "NONE");
  GRAF(0.0F, 10.0F, 0.0F, 1.0F, 0.0F, 10.0F, 0.0F, 1.0F);
  MAPIMG("a.ppm", 2.0F, 0.0F, 0.0F, -1.0F, 3.0F, 7.0F);
  MAPIMG("a.ppm", 1.0F, 0.5F, 0.5F, -1.0F, 5.0F, 5.0F);
  const std::vector<std::string> bars = traced("bar"), fills = traced("fill");
  ASSERT_EQ(bars.size(), 6U);
  ASSERT_EQ(fills.size(), 12U); // two triangles a pixel
  // Pixel (0, 0) of 1 2 3: user (2, 6.5) to (4, 7.5), at 99.9 units each.
  EXPECT_EQ(bars[0], "299.80 350.75 499.60 450.65 0x01030201");
}

TEST_F(Images, PostScriptHoldsTheImage) {
  writePpm();
  METAFL("EPS");
  SETFIL("a.eps");
  PAGE(1900, 1000);
  QUIINI();
  ERRMOD("PROT", "OFF");
  FRAME(0);
  FILBOX(200, 300, 600, 400);
  INCFIL("a.ppm");
  QUIFIN();
  std::vector<std::string> lines = linesOf("a.eps");
  std::size_t i = 0;
  while (i < lines.size() && lines[i].find("/DeviceRGB") == std::string::npos) ++i;
  ASSERT_LT(i + 12, lines.size());
  // A page that lies across the sheet: 700 and 200 units of 0.1 mm, 600 by 400.
  std::string head;
  for (; i < lines.size() && lines[i].find("<<") == std::string::npos; ++i) head += lines[i];
  EXPECT_NE(head.find("gsave 198.425 56.693 translate 90 rotate 170.079 113.386 scale "), std::string::npos) << head;
  const char* wanted[] = {"<< ",
                          "/ImageType 1 ",
                          "/Width 3 ",
                          "/Height 2 ",
                          "/BitsPerComponent 8 ",
                          "/Decode [0 1 0 1 0 1] ",
                          "/ImageMatrix [3 0 0 -2 0 2] ",
                          "/DataSource currentfile /ASCIIHexDecode filter ",
                          ">> image ",
                          "0102030405060708090A0B0C0D0E0F101112"};
  for (const char* line : wanted) EXPECT_EQ(lines[i++], line);
  EXPECT_EQ(lines[i].rfind("> grestore ", 0), 0U);
}

TEST_F(Images, PdfHoldsTheImageAsAnObject) {
  writeAlpha();
  METAFL("PDF");
  SETFIL("a.pdf");
  PDFMOD("OFF", "COMP");
  PAGE(1000, 2000);
  QUIINI();
  ERRMOD("PROT", "OFF");
  FRAME(0);
  IMGTPR(5);
  FILBOX(100, 200, 254, 127);
  INCFIL("a.png");
  QUIFIN();
  std::ifstream file("a.pdf", std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  const std::string object = "<< /Type /XObject /Subtype /Image\n   /ColorSpace /DeviceRGB\n"
                             "   /Mask [255 255 255 255 255 255]\n   /Width 3 /Height 1 /BitsPerComponent 8\n"
                             "   /Length 9>>\nstream\n";
  const std::size_t place = text.find(object);
  ASSERT_NE(place, std::string::npos) << text.substr(0, 900);
  // On white paper: red, blue and white half and half, white.
  EXPECT_EQ(text.substr(place + object.size(), 9 + 10),
            "\xFF" + std::string("\0\0\x7F\x7F\xFF\xFF\xFF\xFF", 8) + "endstream\n");
  EXPECT_NE(text.find("q\n1 0 0 1 28.35 "), std::string::npos);
  EXPECT_NE(text.find(" cm\n72.00 0 0 36.00 0 0 cm\n/Image1 Do\nQ\n"), std::string::npos);
  EXPECT_NE(text.find("/XObject <<\n/Image1"), std::string::npos);
}

TEST_F(Images, PixelRoutinesPaintAPictureForTheDocument) {
  METAFL("PDF");
  SETFIL("a.pdf");
  PDFMOD("OFF", "COMP");
  IMGFMT("RGB");
  QUIINI();
  ERRMOD("PROT", "OFF");
  EXPECT_NE(outputOf([] { IMGFIN(); }).find("Warning 55"), std::string::npos);
  IMGSIZ(2, 1);
  IMGINI();
  EXPECT_NE(outputOf([] { IMGINI(); }).find("Warning 54"), std::string::npos);
  ASSERT_NE(state()->raster.canvas, nullptr);
  WPIXEL(1, 0, 0x01332211);
  IMGFIN();
  EXPECT_EQ(state()->raster.canvas, nullptr);
  IMGINI(); // and one that QUIFIN ends
  QUIFIN();
  std::ifstream file("a.pdf", std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_NE(text.find("/Width 2 /Height 1 /BitsPerComponent 8\n   /Length 6>>\nstream\n\xFF\xFF\xFF\x11\x22\x33"),
            std::string::npos);
  EXPECT_NE(text.find("/Image2 Do\n"), std::string::npos);
}

} // namespace
