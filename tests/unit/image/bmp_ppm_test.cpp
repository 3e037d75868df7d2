// The BMP and PPM decoders.
#include "image_bytes.h"

namespace {

using namespace quilla;
using Pixels = std::vector<int>;

struct Bmp {
  unsigned width, height;
  int bits;
  unsigned compression = 0;
  Bytes palette = {}; // blue, green, red, 0
};

Bytes fileOf(const Bmp& bmp, const Bytes& data) {
  Bytes file;
  addText(file, "BM");
  addLittle(file, 0, 4);
  addLittle(file, 0, 4);
  addLittle(file, static_cast<unsigned>(54 + bmp.palette.size()), 4);
  addLittle(file, 40, 4);
  addLittle(file, bmp.width, 4);
  addLittle(file, bmp.height, 4);
  addLittle(file, 1, 2);
  addLittle(file, static_cast<unsigned>(bmp.bits), 2);
  addLittle(file, bmp.compression, 4);
  for (int i = 0; i < 3; ++i) addLittle(file, 0, 4);
  addLittle(file, static_cast<unsigned>(bmp.palette.size() / 4), 4);
  addLittle(file, 0, 4);
  add(file, bmp.palette);
  add(file, data);
  return file;
}

Decoded decode(const Bytes& file) {
  Decoded d;
  d.status = decodeBmp(file, d.image);
  return d;
}

const Bytes kPalette = {3, 2, 1, 0, 30, 20, 10, 0, 60, 50, 40, 0};
constexpr int kFirst = 0x010203, kSecond = 0x0A141E, kThird = 0x28323C;

TEST(Bmp, RowsStandBottomFirstAndComeOutTopFirst) {
  const Decoded d = decode(fileOf({1, 2, 24}, {1, 2, 3, 0, 4, 5, 6, 0}));
  EXPECT_EQ(d.status, kImageFine);
  EXPECT_EQ(d.all(), (Pixels{0x060504, 0x030201}));
}

TEST(Bmp, NegativeHeightMeansTopFirst) {
  EXPECT_EQ(decode(fileOf({1, 0xFFFFFFFEU, 24}, {1, 2, 3, 0, 4, 5, 6, 0})).all(), (Pixels{0x030201, 0x060504}));
}

TEST(Bmp, EveryDepth) {
  EXPECT_EQ(decode(fileOf({3, 1, 1, 0, kPalette}, {0x40, 0, 0, 0})).all(), (Pixels{kFirst, kSecond, kFirst}));
  EXPECT_EQ(decode(fileOf({3, 1, 4, 0, kPalette}, {0x21, 0x10, 0, 0})).all(), (Pixels{kThird, kSecond, kSecond}));
  EXPECT_EQ(decode(fileOf({2, 1, 8, 0, kPalette}, {2, 9, 0, 0})).all(), (Pixels{kThird, 0}));
  EXPECT_EQ(decode(fileOf({1, 1, 32}, {1, 2, 3, 99})).all(), (Pixels{0x030201}));
}

TEST(Bmp, RunsOfEightBits) {
  // Bottom row: 2 of index 1, then 3 as they are and a byte of padding; upper row: one of index 2, the end.
  const Bytes runs = {2, 1, 0, 3, 0, 1, 2, 0, 0, 0, 1, 2, 0, 1};
  const Decoded d = decode(fileOf({5, 2, 8, 1, kPalette}, runs));
  EXPECT_EQ(d.status, kImageFine);
  EXPECT_EQ(d.all(), (Pixels{kThird, kFirst, kFirst, kFirst, kFirst, kSecond, kSecond, kFirst, kSecond, kThird}));
}

TEST(Bmp, RunsOfFourBitsTakeTurns) {
  // 3 of 1 and 2 in turn; then 2, 1, 0 as they are, two bytes, no padding.
  const Decoded d = decode(fileOf({6, 1, 4, 2, kPalette}, {3, 0x12, 0, 3, 0x21, 0x00, 0, 1}));
  EXPECT_EQ(d.status, kImageFine);
  EXPECT_EQ(d.all(), (Pixels{kSecond, kThird, kSecond, kThird, kSecond, kFirst}));
}

TEST(Bmp, JumpsLeaveTheFirstColour) {
  // A pixel, one to the right and one up, a pixel.
  const Decoded d = decode(fileOf({3, 2, 8, 1, kPalette}, {1, 2, 0, 2, 1, 1, 1, 2, 0, 1}));
  EXPECT_EQ(d.status, kImageFine);
  EXPECT_EQ(d.all(), (Pixels{kFirst, kFirst, kThird, kThird, kFirst, kFirst}));
}

TEST(Bmp, RunsMayFillThePaddingOfARow) {
  const Decoded eight = decode(fileOf({3, 1, 8, 1, kPalette}, {4, 1, 0, 1}));
  EXPECT_EQ(eight.status, kImageFine);
  EXPECT_EQ(eight.all(), (Pixels(3, kSecond)));
  const Decoded four = decode(fileOf({3, 2, 4, 2, kPalette}, {8, 0x11, 0, 0, 0, 8, 0x22, 0x22, 0x22, 0x22, 0, 1}));
  EXPECT_EQ(four.status, kImageFine);
  EXPECT_EQ(four.all(), (Pixels{kThird, kThird, kThird, kSecond, kSecond, kSecond}));
}

TEST(Bmp, RunsThatDoNotFit) {
  EXPECT_EQ(decode(fileOf({3, 1, 8, 1, kPalette}, {5, 1, 0, 1})).status, kImageOverrun);
  EXPECT_EQ(decode(fileOf({3, 1, 4, 2, kPalette}, {9, 1, 0, 1})).status, kImageOverrun);
  EXPECT_EQ(decode(fileOf({3, 1, 8, 1, kPalette}, {0, 2, 5, 0, 0, 1})).status, kImageOverrun);
  EXPECT_EQ(decode(fileOf({3, 1, 8, 1, kPalette}, {0, 2, 0, 2, 0, 1})).status, kImageOverrun);
  EXPECT_EQ(decode(fileOf({3, 1, 8, 1, kPalette}, {0, 3, 1})).status, kImageOverrun);
  EXPECT_EQ(decode(fileOf({3, 2, 8, 1, kPalette}, {3, 1})).status, kImageOverrun); // no end
}

TEST(Bmp, OtherCombinationsAreRefused) {
  EXPECT_EQ(decode(fileOf({1, 1, 4, 1, kPalette}, {0, 1})).status, kImageBadFormat);
  EXPECT_EQ(decode(fileOf({1, 1, 8, 2, kPalette}, {0, 1})).status, kImageBadFormat);
  EXPECT_EQ(decode(fileOf({1, 1, 24, 1}, {0, 1})).status, kImageBadFormat);
  EXPECT_EQ(decode(fileOf({1, 1, 24, 3}, {1, 2, 3, 0})).status, kImageBadFormat);
  EXPECT_EQ(decode(fileOf({1, 1, 16}, {1, 2, 3, 0})).status, kImageBadFormat);
}

TEST(Bmp, MissingRowsAreAFault) {
  const Decoded d = decode(fileOf({1, 2, 24}, {1, 2, 3, 0, 4}));
  EXPECT_EQ(d.status, kImageBadFormat);
  EXPECT_EQ(d.image.rowDone[0], 0);
  EXPECT_EQ(d.image.rowDone[1], 1);
  EXPECT_EQ(decode(fileOf({50000, 50000, 24}, {1, 2, 3})).image.pixels, nullptr);
}

TEST(Bmp, EveryBeginningOfAFileIsSafe) {
  const Bytes whole = fileOf({5, 2, 8, 1, kPalette}, {2, 1, 0, 3, 0, 1, 2, 0, 0, 0, 0, 2, 1, 0, 1, 2, 0, 1});
  for (std::size_t n = 0; n < whole.size(); ++n)
    decode(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(n)));
  EXPECT_EQ(decode(whole).status, kImageFine);
}

Decoded ppm(const std::string& text) {
  Decoded d;
  const Bytes file(text.begin(), text.end());
  d.status = decodePpm(file, d.image);
  return d;
}

TEST(Ppm, BytesWordsAndText) {
  EXPECT_EQ(ppm("P6 2 1 255\n\x01\x02\x03"
                "abc")
                .all(),
            (Pixels{0x010203, 0x616263}));
  EXPECT_EQ(ppm(std::string("P6\n1 1\n65535\n\xFF\xFF\x80\x00\x00\x00", 19)).all(), (Pixels{0xFF8000}));
  EXPECT_EQ(ppm("P3\n# a comment\n2 1 # another\n15\n0 15 1\n7 8 99").all(), (Pixels{0x00FF11, 0x7788FF}));
}

TEST(Ppm, Faults) {
  EXPECT_EQ(ppm("P6 2 1 255\nabc").status, kImageBadFormat);
  EXPECT_EQ(ppm("P3 1 1 255\n1 2").status, kImageBadFormat);
  EXPECT_EQ(ppm("P6 0 1 255\nabc").status, kImageBadFormat);
  EXPECT_EQ(ppm("P6 1 1 65536\nabcdef").status, kImageBadFormat);
  EXPECT_EQ(ppm("P6 99999999999 1 255\nabc").status, kImageBadFormat);
  EXPECT_EQ(ppm("P6 20000 20000 255\nabc").image.pixels, nullptr);
}

} // namespace
