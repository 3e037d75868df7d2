// The GIF decoder. Codes are packed by hand, low bits first.
#include "image_bytes.h"

namespace {

using namespace quilla;
using Pixels = std::vector<int>;

// Codes of the sizes given, in data blocks.
Bytes packed(const std::vector<std::pair<int, int>>& codes) {
  Bytes out;
  unsigned bits = 0;
  int held = 0;
  for (const auto& [code, size] : codes) {
    bits |= static_cast<unsigned>(code) << held;
    for (held += size; held >= 8; held -= 8, bits >>= 8) out.push_back(static_cast<unsigned char>(bits));
  }
  if (held > 0) out.push_back(static_cast<unsigned char>(bits));
  return out;
}

struct Gif {
  unsigned screenWidth, screenHeight, width, height;
  int codeSize = 2;
  int flags = 0;     // of the image
  Bytes before = {}; // the image
  Bytes after = {0x3B};
};

// Four colours: black, red, green, blue.
Bytes fileOf(const Gif& gif, const Bytes& codes) {
  Bytes file;
  addText(file, "GIF89a");
  addLittle(file, gif.screenWidth, 2);
  addLittle(file, gif.screenHeight, 2);
  add(file, {0x81, 0, 0, 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255});
  add(file, gif.before);
  file.push_back(0x2C);
  addLittle(file, 1, 2); // left and top are not looked at
  addLittle(file, 1, 2);
  addLittle(file, gif.width, 2);
  addLittle(file, gif.height, 2);
  file.push_back(static_cast<unsigned char>(gif.flags));
  file.push_back(static_cast<unsigned char>(gif.codeSize));
  for (std::size_t i = 0; i < codes.size(); i += 255) {
    const std::size_t n = std::min<std::size_t>(255, codes.size() - i);
    file.push_back(static_cast<unsigned char>(n));
    file.insert(file.end(), codes.begin() + static_cast<std::ptrdiff_t>(i),
                codes.begin() + static_cast<std::ptrdiff_t>(i + n));
  }
  file.push_back(0);
  add(file, gif.after);
  return file;
}

Decoded decode(const Bytes& file, GifExtent extent = GifExtent::kImage) {
  Decoded d;
  d.status = decodeGif(file, extent, d.image);
  return d;
}

constexpr int kBlack = 0, kRed = 0xFF0000, kGreen = 0xFF00, kBlue = 0xFF;
const Bytes kFour = packed({{4, 3}, {0, 3}, {1, 3}, {2, 3}, {3, 4}, {5, 4}});

TEST(Gif, PlainCodes) {
  const Decoded d = decode(fileOf({2, 2, 2, 2}, kFour));
  EXPECT_EQ(d.status, kImageFine);
  EXPECT_EQ(d.all(), (Pixels{kBlack, kRed, kGreen, kBlue}));
}

TEST(Gif, StringsAndTheCodeThatIsJustDefined) {
  // 1, then 6 = "1 1" before it is complete, then 7 = "1 1 1".
  const Decoded d = decode(fileOf({6, 1, 6, 1}, packed({{4, 3}, {1, 3}, {6, 3}, {7, 3}, {5, 4}})));
  EXPECT_EQ(d.status, kImageFine);
  EXPECT_EQ(d.all(), (Pixels(6, kRed)));
}

TEST(Gif, CodeSizesFromTwoToEleven) {
  EXPECT_EQ(decode(fileOf({2, 2, 2, 2, 1}, kFour)).status, kImageBadFormat);
  EXPECT_EQ(decode(fileOf({2, 2, 2, 2, 2}, kFour)).status, kImageFine);
  EXPECT_EQ(decode(fileOf({2, 2, 2, 2, 12}, kFour)).status, kImageBadFormat);
  // Size 11: codes of 12 bits.
  const Decoded d = decode(fileOf({2, 1, 2, 1, 11}, packed({{2048, 12}, {1, 12}, {3, 12}, {2049, 12}})));
  EXPECT_EQ(d.status, kImageFine);
  EXPECT_EQ(d.all(), (Pixels{kRed, kBlue}));
}

TEST(Gif, RowsOfInterlacedImages) {
  // Rows of the file: 0, 4, 2, 1, 3; five rows of one pixel each.
  const Decoded d =
      decode(fileOf({1, 5, 1, 5, 2, 0x40}, packed({{4, 3}, {0, 3}, {1, 3}, {2, 3}, {3, 4}, {0, 4}, {5, 4}})));
  EXPECT_EQ(d.status, kImageFine);
  EXPECT_EQ(d.all(), (Pixels{kBlack, kBlue, kGreen, kBlack, kRed}));
}

TEST(Gif, ScreenOrImage) {
  const Decoded screen = decode(fileOf({3, 1, 2, 2}, kFour), GifExtent::kScreen);
  EXPECT_EQ(screen.status, kImageFine);
  EXPECT_EQ(screen.all(), (Pixels{kBlack, kRed, 0}));
  EXPECT_EQ(decode(fileOf({3, 1, 2, 2}, kFour)).all().size(), 4U);
}

TEST(Gif, LocalColoursReplaceTheGlobalOnes) {
  Bytes file = fileOf({1, 1, 1, 1, 2, 0x80}, {});
  file.erase(file.end() - 3, file.end()); // without code size, end of blocks and trailer
  add(file, {9, 8, 7, 6, 5, 4});          // two colours
  file.push_back(2);
  const Bytes codes = packed({{4, 3}, {1, 3}, {5, 3}});
  file.push_back(static_cast<unsigned char>(codes.size()));
  add(file, codes);
  add(file, {0, 0x3B});
  EXPECT_EQ(decode(file).all(), (Pixels{0x060504}));
}

TEST(Gif, ExtensionsAreSkippedWhateverTheyHold) {
  const Bytes comment = {0x21, 0xFE, 3, 0x2C, 0x2C, 0x2C, 1, 0x2C, 0};
  EXPECT_EQ(decode(fileOf({2, 2, 2, 2, 2, 0, comment}, kFour)).status, kImageFine);
}

TEST(Gif, WhatFollowsTheImage) {
  for (const Bytes& fine : {Bytes{}, Bytes{0x3B}, Bytes{0}, Bytes{0x21, 0xFE, 0, 0}, Bytes{0x2C, 1, 2}})
    EXPECT_EQ(decode(fileOf({2, 2, 2, 2, 2, 0, {}, fine}, kFour)).status, kImageFine);
  EXPECT_EQ(decode(fileOf({2, 2, 2, 2, 2, 0, {}, {0x77}}, kFour)).status, kImageBadFormat);
}

TEST(Gif, FaultsKeepTheRowsBefore) {
  const Decoded early = decode(fileOf({2, 2, 2, 2}, packed({{4, 3}, {1, 3}, {1, 3}, {1, 3}, {5, 4}})));
  EXPECT_EQ(early.status, kImageBadFormat);
  EXPECT_EQ(early.image.rowDone[0], 1);
  EXPECT_EQ(early.image.rowDone[1], 0);
  EXPECT_EQ(decode(fileOf({2, 2, 2, 2}, packed({{4, 3}, {7, 3}}))).status, kImageOverrun);
}

TEST(Gif, NoMemoryIsTakenForWhatTheFileCannotHold) {
  const Decoded d = decode(fileOf({65535, 65535, 2, 2}, kFour), GifExtent::kScreen);
  EXPECT_EQ(d.status, kImageBadFormat);
  EXPECT_EQ(d.image.pixels, nullptr);
  EXPECT_EQ(decode(fileOf({2, 2, 65535, 65535}, kFour)).status, kImageBadFormat);
}

TEST(Gif, EveryBeginningOfAFileIsSafe) {
  const Bytes whole = fileOf({2, 2, 2, 2, 2, 0, {0x21, 0xFE, 1, 1, 0}}, kFour);
  for (std::size_t n = 0; n < whole.size(); ++n)
    decode(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(n)), GifExtent::kScreen);
  EXPECT_EQ(decode(whole).status, kImageFine);
}

} // namespace
