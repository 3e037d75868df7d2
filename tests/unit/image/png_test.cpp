// The PNG decoder: every kind of sample, filters, interlacing, transparency, and files that lie.
#include "image_bytes.h"

#include <zlib.h>

namespace {

using namespace quilla;

Bytes deflated(const Bytes& raw) {
  uLongf size = compressBound(static_cast<uLong>(raw.size()));
  Bytes packed(size);
  compress(packed.data(), &size, raw.data(), static_cast<uLong>(raw.size()));
  packed.resize(size);
  return packed;
}

void addChunk(Bytes& out, const char* name, const Bytes& data) {
  addBig(out, static_cast<unsigned>(data.size()), 4);
  addText(out, name);
  add(out, data);
  addBig(out, 0, 4);
}

struct Png {
  unsigned width, height;
  int depth, type;
  int interlace = 0;
  std::vector<std::pair<const char*, Bytes>> chunks = {}; // before the pixels
};

Bytes headOf(const Png& png) {
  Bytes file, head;
  addText(file, "\x89PNG\r\n\x1a\n");
  addBig(head, png.width, 4);
  addBig(head, png.height, 4);
  for (int value : {png.depth, png.type, 0, 0, png.interlace}) head.push_back(static_cast<unsigned char>(value));
  addChunk(file, "IHDR", head);
  for (const auto& [name, data] : png.chunks) addChunk(file, name, data);
  return file;
}

Bytes fileOf(const Png& png, const Bytes& rows) {
  Bytes file = headOf(png);
  addChunk(file, "IDAT", deflated(rows));
  addChunk(file, "IEND", {});
  return file;
}

Decoded decode(const Bytes& file) {
  Decoded d;
  d.status = decodePng(file, d.image);
  return d;
}

using Pixels = std::vector<int>;

TEST(Png, GreyOfEveryDepthIsSpread) {
  EXPECT_EQ(decode(fileOf({3, 1, 1, 0}, {0, 0xA0})).all(), (Pixels{0xFFFFFF, 0, 0xFFFFFF}));
  EXPECT_EQ(decode(fileOf({4, 1, 2, 0}, {0, 0x1B})).all(), (Pixels{0, 0x555555, 0xAAAAAA, 0xFFFFFF}));
  EXPECT_EQ(decode(fileOf({2, 1, 4, 0}, {0, 0x3F})).all(), (Pixels{0x333333, 0xFFFFFF}));
  EXPECT_EQ(decode(fileOf({2, 1, 8, 0}, {0, 7, 200})).all(), (Pixels{0x070707, 0xC8C8C8}));
  EXPECT_EQ(decode(fileOf({2, 1, 16, 0}, {0, 0x12, 0xFF, 0xFE, 0})).all(), (Pixels{0x121212, 0xFEFEFE}));
}

TEST(Png, ColoursOfBothDepths) {
  EXPECT_EQ(decode(fileOf({2, 1, 8, 2}, {0, 1, 2, 3, 4, 5, 6})).all(), (Pixels{0x010203, 0x040506}));
  EXPECT_EQ(decode(fileOf({1, 1, 16, 2}, {0, 1, 0x99, 2, 0x99, 3, 0x99})).all(), (Pixels{0x010203}));
}

TEST(Png, AlphaIsKeptApart) {
  const Decoded grey = decode(fileOf({2, 1, 8, 4}, {0, 10, 20, 30, 40}));
  EXPECT_EQ(grey.all(), (Pixels{0x0A0A0A, 0x1E1E1E}));
  EXPECT_EQ(grey.alphaAt(0, 0), 20);
  EXPECT_EQ(grey.alphaAt(1, 0), 40);
  const Decoded rgb = decode(fileOf({1, 1, 16, 6}, {0, 1, 9, 2, 9, 3, 9, 0x80, 9}));
  EXPECT_EQ(rgb.at(0, 0), 0x010203);
  EXPECT_EQ(rgb.alphaAt(0, 0), 0x80);
  EXPECT_FALSE(rgb.image.alphaApplied);
}

const Bytes kPalette = {1, 2, 3, 10, 20, 30, 100, 110, 120};

TEST(Png, PaletteOfEveryDepth) {
  EXPECT_EQ(decode(fileOf({3, 1, 1, 3, 0, {{"PLTE", kPalette}}}, {0, 0x40})).all(),
            (Pixels{0x010203, 0x0A141E, 0x010203}));
  EXPECT_EQ(decode(fileOf({3, 1, 2, 3, 0, {{"PLTE", kPalette}}}, {0, 0x18})).all(),
            (Pixels{0x010203, 0x0A141E, 0x646E78}));
  EXPECT_EQ(decode(fileOf({2, 1, 4, 3, 0, {{"PLTE", kPalette}}}, {0, 0x21})).all(), (Pixels{0x646E78, 0x0A141E}));
  EXPECT_EQ(decode(fileOf({2, 1, 8, 3, 0, {{"PLTE", kPalette}}}, {0, 2, 0})).all(), (Pixels{0x646E78, 0x010203}));
}

TEST(Png, IndexBeyondThePaletteIsBlackAndAFault) {
  const Decoded d = decode(fileOf({3, 1, 8, 3, 0, {{"PLTE", kPalette}}}, {0, 1, 3, 2}));
  EXPECT_EQ(d.status, kImageBadIndex);
  EXPECT_EQ(d.all(), (Pixels{0x0A141E, 0, 0x646E78}));
  EXPECT_EQ(d.image.rowDone[0], 1);
}

TEST(Png, TransparencyOfPaletteGreyAndColours) {
  const Decoded palette = decode(fileOf({3, 1, 8, 3, 0, {{"PLTE", kPalette}, {"tRNS", {0, 128}}}}, {0, 0, 1, 2}));
  EXPECT_EQ(palette.alphaAt(0, 0), 0);
  EXPECT_EQ(palette.alphaAt(1, 0), 128);
  EXPECT_EQ(palette.alphaAt(2, 0), 255); // a missing entry
  const Decoded grey = decode(fileOf({2, 1, 16, 0, 0, {{"tRNS", {0x12, 0x34}}}}, {0, 0x12, 0x34, 0x12, 0x35}));
  EXPECT_EQ(grey.alphaAt(0, 0), 0);
  EXPECT_EQ(grey.alphaAt(1, 0), 255); // all 16 bits count
  const Decoded rgb = decode(fileOf({2, 1, 8, 2, 0, {{"tRNS", {0, 1, 0, 2, 0, 3}}}}, {0, 1, 2, 3, 1, 2, 4}));
  EXPECT_EQ(rgb.alphaAt(0, 0), 0);
  EXPECT_EQ(rgb.alphaAt(1, 0), 255);
}

TEST(Png, BackgroundShowsWhereThePixelDoesNot) {
  const Png png = {3, 1, 8, 4, 0, {{"bKGD", {0, 200}}}};
  const Decoded d = decode(fileOf(png, {0, 100, 255, 100, 0, 100, 51}));
  // 100 * 0.2 + 200 * 0.8 + 0.5, truncated.
  EXPECT_EQ(d.all(), (Pixels{0x646464, 0xC8C8C8, 0xB4B4B4}));
  EXPECT_TRUE(d.image.alphaApplied);
  const Decoded indexed = decode(fileOf({1, 1, 8, 3, 0, {{"PLTE", kPalette}, {"tRNS", {0}}, {"bKGD", {2}}}}, {0, 0}));
  EXPECT_EQ(indexed.at(0, 0), 0x646E78);
  const Decoded deep =
      decode(fileOf({1, 1, 16, 6, 0, {{"bKGD", {10, 99, 20, 99, 30, 99}}}}, {0, 0, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(deep.at(0, 0), 0x0A141E); // the high bytes
}

TEST(Png, FiltersAreUndone) {
  // Rows 10 20 30, 15 10 40: plain, left, above, mean, nearest. By hand.
  const Bytes rows = {0, 10, 20, 30, 1, 15, 251, 30, 2, 1, 2, 3, 3, 1, 1, 1, 4, 1, 0, 5, 9, 1, 2, 3};
  const Decoded d = decode(fileOf({3, 6, 8, 0}, rows));
  ASSERT_EQ(d.status, kImageFine);
  const int wanted[6][3] = {{10, 20, 30}, {15, 10, 40},
                            {16, 12, 43}, {9, 11, 28}, // 1 + 16 / 2, 1 + (9 + 12) / 2, 1 + (11 + 43) / 2
                            {10, 11, 33},              // 1 + 9; 11 of 10, 11, 9; 28 of 11, 28, 11
                            {1, 2, 3}};                // an unknown filter copies
  for (int y = 0; y < 6; ++y) {
    for (int x = 0; x < 3; ++x) EXPECT_EQ(d.at(x, y) & 255, wanted[y][x]) << x << " " << y;
  }
}

TEST(Png, InterlacedPassesFindTheirPlaces) {
  // 3 by 3: pass 1 (0,0); 4: (2,0); 5: (0,2),(2,2); 6: (1,0) and (1,2); 7: the row 1. The passes 2 and 3 are empty.
  const Bytes rows = {0, 1, 0, 3, 0, 7, 9, 0, 2, 0, 8, 0, 4, 5, 6};
  const Decoded d = decode(fileOf({3, 3, 8, 0, 1}, rows));
  ASSERT_EQ(d.status, kImageFine);
  for (int i = 0; i < 9; ++i) EXPECT_EQ(d.at(i % 3, i / 3) & 255, i + 1);
}

TEST(Png, PixelsMayBeCutIntoManyChunks) {
  const Bytes packed = deflated({0, 1, 2, 3, 0, 4, 5, 6});
  Bytes file = headOf({3, 2, 8, 0});
  for (unsigned char byte : packed) {
    addChunk(file, "IDAT", {byte});
    addChunk(file, "teXt", {1, 2});
    addChunk(file, "IDAT", {});
  }
  addChunk(file, "IEND", {});
  const Decoded d = decode(file);
  EXPECT_EQ(d.status, kImageFine);
  EXPECT_EQ(d.at(2, 1), 0x060606);
}

TEST(Png, DamagedPixelsKeepTheRowsBefore) {
  Bytes file = headOf({1, 3, 8, 0});
  addChunk(file, "IDAT", deflated({0, 1, 0, 2})); // one row too few
  addChunk(file, "IEND", {});
  const Decoded d = decode(file);
  EXPECT_EQ(d.status, kImageInflateError);
  EXPECT_EQ(d.image.rowDone[1], 1);
  EXPECT_EQ(d.image.rowDone[2], 0);
  EXPECT_EQ(d.at(0, 1), 0x020202);
}

TEST(Png, WrongCheckSumIsAFault) {
  Bytes packed = deflated({0, 1});
  packed.back() ^= 1;
  Bytes file = headOf({1, 1, 8, 0});
  addChunk(file, "IDAT", packed);
  addChunk(file, "IEND", {});
  EXPECT_EQ(decode(file).status, kImageInflateError);
}

TEST(Png, HeadsThatCannotBeAreRefused) {
  const Bytes rows = {0, 1};
  EXPECT_EQ(decode(fileOf({0, 1, 8, 0}, rows)).status, kImageBadFormat);
  EXPECT_EQ(decode(fileOf({1, 1, 3, 0}, rows)).status, kImageBadFormat);
  EXPECT_EQ(decode(fileOf({1, 1, 16, 3}, rows)).status, kImageBadFormat);
  EXPECT_EQ(decode(fileOf({1, 1, 4, 2}, rows)).status, kImageBadFormat);
  EXPECT_EQ(decode(fileOf({1, 1, 8, 1}, rows)).status, kImageBadFormat);
  EXPECT_EQ(decode(fileOf({1, 1, 8, 0, 2}, rows)).status, kImageBadFormat);
  EXPECT_EQ(decode(fileOf({0x80000000U, 1, 8, 0}, rows)).status, kImageBadFormat);
}

TEST(Png, NoMemoryIsTakenForWhatTheFileCannotHold) {
  const Decoded d = decode(fileOf({60000, 60000, 8, 6}, {0, 1}));
  EXPECT_EQ(d.status, kImageBadFormat);
  EXPECT_EQ(d.image.pixels, nullptr);
}

TEST(Png, EveryBeginningOfAFileIsSafe) {
  const Bytes whole = fileOf({3, 3, 8, 3, 1, {{"PLTE", kPalette}, {"tRNS", {1}}, {"bKGD", {1}}}},
                             {0, 1, 0, 2, 0, 0, 1, 0, 2, 0, 1, 0, 1, 2, 0});
  for (std::size_t n = 0; n < whole.size(); ++n) {
    const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(n));
    decode(part);
  }
  EXPECT_EQ(decode(whole).status, kImageFine);
}

} // namespace
