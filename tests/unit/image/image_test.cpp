// Cutting, scaling and blending, and the kinds and sizes that the probe tells.
#include "image_bytes.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

using namespace quilla;
using Pixels = std::vector<int>;

Decoded pixels(int width, int height, const Pixels& values) {
  Decoded d;
  startImage(d.image, width, height, false, kPixelLimit);
  for (std::size_t i = 0; i < values.size(); ++i) {
    for (std::size_t c = 0; c < 3; ++c)
      d.image.pixels[3 * i + c] = static_cast<unsigned char>(values[i] >> (16 - 8 * c));
  }
  return d;
}

TEST(Image, CutsInside) {
  const Decoded whole = pixels(3, 2, {1, 2, 3, 4, 5, 6});
  Decoded part;
  EXPECT_EQ(cutImage(whole.image, 1, 0, 2, 2, part.image), kImageFine);
  EXPECT_EQ(part.all(), (Pixels{2, 3, 5, 6}));
  for (const auto& [x, y, w, h] : {std::array{1, 0, 3, 1},
                                   {0, 1, 1, 2},
                                   {-1, 0, 1, 1},
                                   {0, 0, 0, 1},
                                   {3, 0, 1, 1},
                                   {0x7FFFFFFF, 0, 0x7FFFFFFF, 1}})
    EXPECT_EQ(cutImage(whole.image, x, y, w, h, part.image), kImageBadFormat) << x << y << w << h;
}

TEST(Image, ScalesBetweenItsPixels) {
  const Decoded two = pixels(2, 1, {0x000000, 0x0000FF});
  Decoded wide;
  EXPECT_EQ(scaleImage(two.image, 5, 1, wide.image), kImageFine);
  EXPECT_EQ(wide.all(), (Pixels{0, 0x40, 0x80, 0xBF, 0xFF})); // 63.75, 127.5 and 191.25, rounded
  const Decoded square = pixels(2, 2, {0, 100, 50, 250});
  Decoded middle;
  scaleImage(square.image, 3, 3, middle.image);
  EXPECT_EQ(middle.all(), (Pixels{0, 50, 100, 25, 100, 175, 50, 150, 250}));
}

TEST(Image, ScalesToAndFromOnePixel) {
  const Decoded one = pixels(1, 1, {0x123456});
  Decoded more;
  scaleImage(one.image, 3, 2, more.image);
  EXPECT_EQ(more.all(), (Pixels(6, 0x123456)));
  const Decoded row = pixels(3, 1, {1, 2, 3});
  Decoded first;
  scaleImage(row.image, 1, 1, first.image);
  EXPECT_EQ(first.all(), (Pixels{1}));
  Decoded fewer;
  scaleImage(row.image, 2, 1, fewer.image);
  EXPECT_EQ(fewer.all(), (Pixels{1, 3}));
}

TEST(Image, ScalesAlphaToo) {
  Decoded image;
  startImage(image.image, 2, 1, true, kPixelLimit);
  image.image.alpha[1] = 200;
  Decoded scaled;
  scaleImage(image.image, 3, 1, scaled.image);
  EXPECT_EQ(scaled.alphaAt(1, 0), 100);
}

TEST(Image, BlendsOnce) {
  Decoded d;
  startImage(d.image, 3, 1, true, kPixelLimit);
  d.image.pixels[0] = 100;
  d.image.pixels[3] = 100;
  d.image.alpha[0] = 255;
  d.image.alpha[2] = 128;
  const unsigned char ground[] = {200, 0, 0};
  blendOver(d.image, ground);
  EXPECT_EQ(d.all(), (Pixels{0x640000, 0xC80000, 0x640000})); // 200 * 127 / 255 + 0.5 is 100.1
  blendOver(d.image, ground);
  EXPECT_EQ(d.at(0, 0), 0x640000);
}

TEST(Image, LimitsOfMemory) {
  Decoded d;
  EXPECT_EQ(startImage(d.image, 2048, 2048, false, 1), kImageFine); // free
  EXPECT_EQ(startImage(d.image, 2049, 2048, false, 1), kImageBadFormat);
  EXPECT_EQ(startImage(d.image, kPixelLimit, 2, false, 1LL << 40), kImageNoMemory);
  EXPECT_EQ(startImage(d.image, 0, 5, false, 1), kImageBadFormat);
  EXPECT_EQ(d.image.pixels, nullptr);
}

class Probe : public testing::Test {
protected:
  std::filesystem::path folder;
  void SetUp() override {
    std::string pattern = (std::filesystem::temp_directory_path() / "image_test_XXXXXX").string();
    folder = mkdtemp(pattern.data());
  }
  void TearDown() override { std::filesystem::remove_all(folder); }
  FileProbe of(const Bytes& bytes) {
    const std::string name = (folder / "file").string();
    std::ofstream(name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return probeFile(name.c_str());
  }
  FileProbe of(const std::string& text) { return of(Bytes(text.begin(), text.end())); }
};

TEST_F(Probe, Kinds) {
  EXPECT_EQ(of("BM").kind, kFileBmp);
  EXPECT_EQ(of("GIF87a").kind, kFileGif);
  EXPECT_EQ(of("\x89PNG\r\n").kind, kFilePng);
  EXPECT_EQ(of(Bytes{'M', 'M', 0, 42}).kind, kFileTiff);
  EXPECT_EQ(of(Bytes{1, 0, 9, 0, 0, 3}).kind, kFileWmf);
  EXPECT_EQ(of(Bytes{0xD7, 0xCD}).kind, kFilePlaceableWmf);
  EXPECT_EQ(of(Bytes{0, 0x3F}).kind, kFileCgm);
  EXPECT_EQ(of(" SP1;\n").kind, kFileHpgl);
  EXPECT_EQ(of("%!PS-Adobe-2.0\n").kind, kFilePostScript);
  EXPECT_EQ(of("%PDF-1.3\n").kind, kFilePdf);
  EXPECT_EQ(of("P6\n1 1\n255\n").kind, kFilePpm);
  EXPECT_EQ(of("P7\n").kind, kFilePltm);
  EXPECT_EQ(of("a text\n").kind, kFilePltm);
  EXPECT_EQ(of("").kind, kFilePltm);
  EXPECT_EQ(probeFile((folder / "none").c_str()).kind, kFileNotOpened);
  EXPECT_EQ(probeFile(folder.c_str()).kind, kFileNotOpened);
  EXPECT_EQ(probeFile(nullptr).kind, kFileNotOpened);
}

TEST_F(Probe, Sizes) {
  auto size = [](const FileProbe& probe) { return std::pair(probe.width, probe.height); };
  Bytes bmp(26);
  bmp[0] = 'B';
  bmp[1] = 'M';
  bmp[18] = 5;
  bmp[19] = 1;
  bmp[22] = 7;
  EXPECT_EQ(size(of(bmp)), std::pair(261, 7));
  EXPECT_EQ(size(of(std::string("GIF89a\x03\x01\x04\x00", 10))), std::pair(259, 4));
  EXPECT_EQ(size(of(std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\1\2\0\0\0\3", 24))), std::pair(258, 3));
  EXPECT_EQ(size(of("!Bitmap QUILLA VIRT   853   603     8")), std::pair(853, 603));
  EXPECT_EQ(size(of("P6 12 13 255\n")), std::pair(12, 13));
  EXPECT_EQ(size(of("%PDF-1.3\n")), std::pair(0, 0));
  Bytes tiff = {'M', 'M', 0, 42, 0, 0, 0, 8, 0, 2, 1, 0, 0, 3, 0, 0, 0,
                1,   0,   9, 0,  0, 1, 1, 0, 4, 0, 0, 0, 1, 0, 0, 1, 0};
  EXPECT_EQ(size(of(tiff)), std::pair(9, 256));
}

TEST_F(Probe, TiffOfFiveGreySamplesIsOfTheSpecialKind) {
  const Bytes tiff = {'I', 'I', 42, 0, 8, 0,    0, 0, 2, 0, 6, 1, 3, 0, 1, 0, 0,
                      0,   1,   0,  0, 0, 0x15, 1, 3, 0, 1, 0, 0, 0, 5, 0, 0, 0};
  EXPECT_EQ(of(tiff).kind, kFileTiffSpecial);
}

} // namespace
