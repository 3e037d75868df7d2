#include "raster_fixture.h"

#include <zlib.h>

#include <array>
#include <set>

namespace quilla {
namespace {

Canvas countingCanvas(int width, int height) {
  Canvas canvas = indexedCanvas(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) canvasRow(*canvas, y)[x] = static_cast<unsigned char>(y * width + x + 1);
  }
  return canvas;
}

Canvas colourCanvas() {
  Canvas canvas = trueCanvas(3, 2);
  const unsigned char rows[2][9] = {{1, 2, 3, 4, 5, 6, 7, 8, 9}, {10, 20, 30, 40, 50, 60, 255, 255, 255}};
  for (int y = 0; y < 2; ++y) writeRgbRow(*canvas, 0, y, rows[y], 3);
  return canvas;
}

TEST(BmpTest, IndexedRowsArePaddedAndUpsideDown) {
  const Canvas canvas = countingCanvas(5, 2);
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeBmp(out, whole(canvas), {true, 2500}), EncodeResult::kFine);
  EXPECT_EQ(file.text(0, 2), "BM");
  EXPECT_EQ(file.low32(2), 8U * 2 + 4 * 256 + 54);
  EXPECT_EQ(file.data.size(), file.low32(2));
  EXPECT_EQ(file.low32(10), 4U * 256 + 54);
  EXPECT_EQ(file.low32(14), 40U);
  EXPECT_EQ(file.low32(18), 5U);
  EXPECT_EQ(file.low32(22), 2U);
  EXPECT_EQ(file.low16(26), 1U);
  EXPECT_EQ(file.low16(28), 8U);
  EXPECT_EQ(file.low32(30), 0U);
  EXPECT_EQ(file.low32(34), 16U);
  EXPECT_EQ(file.low32(38), 2500U);
  EXPECT_EQ(file.low32(42), 2500U);
  EXPECT_EQ(file.low32(46), 256U);
  EXPECT_EQ(file.low32(50), 256U);
  // Entry 3 is red 3, green 252, blue 1.
  EXPECT_EQ(file.text(54 + 12, 4), std::string("\x01\xFC\x03\0", 4));
  EXPECT_EQ(file.text(54 + 1024, 16), std::string("\6\7\10\11\12\0\0\0\1\2\3\4\5\0\0\0", 16));
}

TEST(BmpTest, TrueColoursAreBlueGreenRed) {
  const Canvas canvas = colourCanvas();
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeBmp(out, whole(canvas), {false, 1}), EncodeResult::kFine);
  EXPECT_EQ(file.low16(28), 24U);
  EXPECT_EQ(file.low32(10), 54U);
  EXPECT_EQ(file.low32(46), 0U);
  ASSERT_EQ(file.data.size(), 54U + 24);
  EXPECT_EQ(file.text(54, 12), std::string("\x1E\x14\x0A\x3C\x32\x28\xFF\xFF\xFF\0\0\0", 12));
  EXPECT_EQ(file.text(66, 12), std::string("\3\2\1\6\5\4\x09\x08\x07\0\0\0", 12));
}

TEST(PpmTest, HeaderAndRows) {
  const Canvas canvas = colourCanvas();
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodePpm(out, whole(canvas)), EncodeResult::kFine);
  EXPECT_EQ(file.text(0, 11), "P6\n3 2\n255\n");
  EXPECT_EQ(file.text(11, 9), "\1\2\3\4\5\6\7\10\11");
  EXPECT_EQ(file.data.size(), 11U + 18);
}

TEST(RawImageTest, HeaderOf80Bytes) {
  const Canvas canvas = countingCanvas(5, 2);
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeRawImage(out, whole(canvas)), EncodeResult::kFine);
  EXPECT_EQ(file.text(0, 80), "!Bitmap QUILLA VIRT "
                              "    5     2     8     5     8    32     0     1     0       ");
  EXPECT_EQ(file.text(80, 10), "\1\2\3\4\5\6\7\10\11\12");
  EXPECT_EQ(file.data.size(), 90U);
}

TEST(RawImageTest, TrueColoursWithoutAlpha) {
  const Canvas canvas = colourCanvas();
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeRawImage(out, whole(canvas)), EncodeResult::kFine);
  EXPECT_EQ(file.text(20, 60), "    3     2    24     9    24    32     0     5     0       ");
  EXPECT_EQ(file.data.size(), 80U + 18);
  EXPECT_EQ(file.text(80, 3), "\1\2\3");
}

TEST(TiffTest, PaletteFile) {
  const Canvas canvas = countingCanvas(5, 2);
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeTiff(out, whole(canvas), {false, true, 100, 2}), EncodeResult::kFine);
  EXPECT_EQ(file.text(0, 4), std::string("II\x2A\0", 4));
  EXPECT_EQ(file.low32(4), 8U);
  EXPECT_EQ(file.low16(8), 14U);
  const unsigned entries = 10 + 12 * 14 + 4; // where the strip offsets lie
  const std::array<std::array<unsigned, 4>, 14> wanted = {{{254, 4, 1, 0},
                                                           {256, 4, 1, 5},
                                                           {257, 4, 1, 2},
                                                           {258, 3, 1, 8},
                                                           {259, 3, 1, 1},
                                                           {262, 3, 1, 3},
                                                           {273, 4, 2, entries},
                                                           {277, 3, 1, 1},
                                                           {278, 3, 1, 1},
                                                           {279, 4, 2, entries + 8},
                                                           {282, 5, 1, entries + 16},
                                                           {283, 5, 1, entries + 24},
                                                           {296, 3, 1, 2},
                                                           {320, 3, 768, entries + 32}}};
  for (std::size_t i = 0; i < 14; ++i) {
    const std::size_t at = 10 + 12 * i;
    EXPECT_EQ(file.low16(at), wanted[i][0]);
    EXPECT_EQ(file.low16(at + 2), wanted[i][1]) << wanted[i][0];
    EXPECT_EQ(file.low32(at + 4), wanted[i][2]) << wanted[i][0];
    EXPECT_EQ(file.low32(at + 8), wanted[i][3]) << wanted[i][0];
  }
  EXPECT_EQ(file.low32(10 + 12 * 14), 0U);
  const unsigned rows = entries + 32 + 1536;
  EXPECT_EQ(file.low32(entries), rows);
  EXPECT_EQ(file.low32(entries + 4), rows + 5);
  EXPECT_EQ(file.low32(entries + 8), 5U);
  EXPECT_EQ(file.low32(entries + 16), 100U);
  EXPECT_EQ(file.low32(entries + 20), 1U);
  EXPECT_EQ(file.low16(entries + 32 + 2 * 3), 3U * 257);         // red of entry 3
  EXPECT_EQ(file.low16(entries + 32 + 512 + 2 * 3), 252U * 257); // green
  EXPECT_EQ(file.text(rows, 10), "\1\2\3\4\5\6\7\10\11\12");
  EXPECT_EQ(file.data.size(), rows + 10U);
}

TEST(TiffTest, RgbFile) {
  const Canvas canvas = colourCanvas();
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeTiff(out, whole(canvas), {false, false, 72, 3}), EncodeResult::kFine);
  EXPECT_EQ(file.low16(8), 13U);
  const unsigned entries = 10 + 12 * 13 + 4, extra = entries + 16 + 16;
  EXPECT_EQ(file.low32(10 + 12 * 3 + 4), 3U);
  EXPECT_EQ(file.low32(10 + 12 * 3 + 8), extra);
  EXPECT_EQ(file.low32(10 + 12 * 5 + 8), 2U);
  EXPECT_EQ(file.low32(10 + 12 * 7 + 8), 3U);
  EXPECT_EQ(file.low32(10 + 12 * 12 + 8), 3U);
  EXPECT_EQ(file.text(extra, 6), std::string("\10\0\10\0\10\0", 6));
  EXPECT_EQ(file.text(extra + 6, 9), "\1\2\3\4\5\6\7\10\11");
}

TEST(TiffTest, BilevelFile) {
  const Canvas canvas = indexedCanvas(10, 2);
  canvasRow(*canvas, 0)[0] = 7;
  canvasRow(*canvas, 0)[9] = 1;
  canvasRow(*canvas, 1)[2] = 255;
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeTiff(out, whole(canvas), {true, false, 100, 2}), EncodeResult::kFine);
  EXPECT_EQ(file.low16(8), 13U);
  EXPECT_EQ(file.low32(10 + 12 * 3 + 8), 1U);
  EXPECT_EQ(file.low32(10 + 12 * 5 + 8), 1U);
  EXPECT_EQ(file.text(file.data.size() - 4, 4), std::string("\x80\x40\x20\0", 4));
}

TEST(TiffTest, AFileOfOneRowHasItsStripInTheEntry) {
  const Canvas canvas = countingCanvas(3, 1);
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeTiff(out, whole(canvas), {false, true, 100, 2}), EncodeResult::kFine);
  EXPECT_EQ(file.low32(10 + 12 * 6 + 8), file.data.size() - 3);
  EXPECT_EQ(file.low32(10 + 12 * 9 + 8), 3U);
}

TEST(GifTest, OnePixel) {
  const Canvas canvas = indexedCanvas(1, 1);
  canvasRow(*canvas, 0)[0] = 3;
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeGif(out, whole(canvas), {false, 5, {}}), EncodeResult::kFine);
  EXPECT_EQ(file.text(0, 13), std::string("GIF87a\1\0\1\0\xF7\5\0", 13));
  EXPECT_EQ(file.text(13 + 9, 3), std::string("\3\xFC\1"));
  const std::size_t image = 13 + 768;
  EXPECT_EQ(file.text(image, 11), std::string(",\0\0\0\0\1\0\1\0\0\10", 11));
  // 256, 3 and 257 in nine bits each from the low end: 27 bits in a block of four bytes.
  const unsigned bits = 256U | 3U << 9 | 257U << 18;
  EXPECT_EQ(file.data[image + 11], 4);
  EXPECT_EQ(file.low32(image + 12), bits);
  EXPECT_EQ(file.text(image + 16, 2), std::string("\0;", 2));
  EXPECT_EQ(file.data.size(), image + 18);
}

TEST(GifTest, TheBackgroundIsClear) {
  const Canvas canvas = indexedCanvas(2, 1);
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeGif(out, whole(canvas), {true, 9, {}}), EncodeResult::kFine);
  EXPECT_EQ(file.text(0, 6), "GIF89a");
  EXPECT_EQ(file.text(13 + 768, 8), std::string("!\xF9\4\1\0\0\x09\0", 8));
}

// The codes of a GIF stream, read back by the rule of its readers.
std::vector<unsigned char> unpackGif(const Bytes& file, std::size_t at) {
  std::vector<unsigned char> data, pixels;
  for (; file.data[at] != 0; at += file.data[at] + 1U) {
    const auto begin = file.data.begin() + static_cast<std::ptrdiff_t>(at) + 1;
    data.insert(data.end(), begin, begin + file.data[at]);
  }
  std::vector<std::vector<unsigned char>> table;
  std::vector<unsigned char> last;
  int size = 9;
  std::size_t bit = 0;
  auto code = [&]() {
    unsigned value = 0;
    for (int i = 0; i < size; ++i, ++bit) {
      EXPECT_LT(bit / 8, data.size());
      if (bit / 8 < data.size()) value |= (data[bit / 8] >> bit % 8 & 1U) << i;
    }
    return value;
  };
  for (unsigned c = code(); c != 257; c = code()) {
    if (c == 256) {
      table.clear();
      for (int i = 0; i < 258; ++i) table.push_back({static_cast<unsigned char>(i)});
      last.clear();
      size = 9;
      continue;
    }
    std::vector<unsigned char> string = c < table.size() ? table[c] : last;
    if (c >= table.size()) string.push_back(last[0]);
    if (!last.empty()) {
      last.push_back(string[0]);
      table.push_back(last);
      if (table.size() == std::size_t{1} << size && size < 12) ++size;
    }
    pixels.insert(pixels.end(), string.begin(), string.end());
    last = string;
  }
  EXPECT_EQ(bit / 8 + (bit % 8 ? 1 : 0), data.size());
  return pixels;
}

TEST(GifTest, CodesOfAllLengthsAreReadBack) {
  unsigned seed = 1;
  for (int width : {1, 2, 3, 200, 253, 254, 255, 256, 257, 258, 300}) {
    for (int height : {1, 2, 150}) {
      for (int colours : {1, 2, 7, 256}) {
        const Canvas canvas = indexedCanvas(width, height);
        std::vector<unsigned char> wanted;
        for (int y = 0; y < height; ++y) {
          for (int x = 0; x < width; ++x) {
            seed = seed * 1103515245U + 12345U;
            canvasRow(*canvas, y)[x] = static_cast<unsigned char>((seed >> 16) % static_cast<unsigned>(colours));
            wanted.push_back(canvasRow(*canvas, y)[x]);
          }
        }
        Bytes file;
        ByteTarget out = file.target();
        ASSERT_EQ(encodeGif(out, whole(canvas), {false, 0, {}}), EncodeResult::kFine);
        ASSERT_EQ(unpackGif(file, 13 + 768 + 11), wanted) << width << 'x' << height << ' ' << colours;
      }
    }
  }
}

TEST(GifTest, FewTrueColoursStayExact) {
  const Canvas canvas = trueCanvas(16, 16);
  for (int i = 0; i < 256; ++i) {
    writeRgb(*canvas, i % 16, i / 16,
             {static_cast<unsigned char>(i), static_cast<unsigned char>(i * 7), static_cast<unsigned char>(255 - i)});
  }
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeGif(out, whole(canvas), {false, 0, {}}), EncodeResult::kFine);
  const std::vector<unsigned char> pixels = unpackGif(file, 13 + 768 + 11);
  for (int i = 0; i < 256; ++i) {
    const std::size_t entry = 13 + 3U * pixels[static_cast<std::size_t>(i)];
    EXPECT_EQ(file.data[entry], i);
    EXPECT_EQ(file.data[entry + 1], i * 7 % 256);
    EXPECT_EQ(file.data[entry + 2], 255 - i);
  }
}

TEST(GifTest, ManyTrueColoursComeClose) {
  const Canvas canvas = trueCanvas(256, 64);
  for (int y = 0; y < 64; ++y) {
    for (int x = 0; x < 256; ++x) {
      writeRgb(*canvas, x, y,
               {static_cast<unsigned char>(x), static_cast<unsigned char>(4 * y), static_cast<unsigned char>(x / 2)});
    }
  }
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodeGif(out, whole(canvas), {false, 0, {}}), EncodeResult::kFine);
  const std::vector<unsigned char> pixels = unpackGif(file, 13 + 768 + 11);
  ASSERT_EQ(pixels.size(), 256U * 64);
  std::set<int> used(pixels.begin(), pixels.end());
  EXPECT_GT(used.size(), 100U);
  double error = 0;
  for (int i = 0; i < 256 * 64; ++i) {
    const Rgb colour = readRgb(*canvas, i % 256, i / 256);
    const std::size_t entry = 13 + 3U * pixels[static_cast<std::size_t>(i)];
    error += std::abs(colour.r - file.data[entry]) + std::abs(colour.g - file.data[entry + 1]) +
             std::abs(colour.b - file.data[entry + 2]);
  }
  EXPECT_LT(error / (256 * 64), 40.0);
}

TEST(GifTest, SidesHave16Bits) {
  const Canvas canvas = indexedCanvas(65536, 1);
  Bytes file;
  ByteTarget out = file.target();
  EXPECT_EQ(encodeGif(out, whole(canvas), {false, 0, {}}), EncodeResult::kWriteFailed);
}

struct Chunk {
  std::string type, data;
};
std::vector<Chunk> chunksOf(const Bytes& file) {
  std::vector<Chunk> chunks;
  EXPECT_EQ(file.text(0, 8), "\x89PNG\r\n\x1A\n");
  for (std::size_t at = 8; at < file.data.size();) {
    const unsigned size = file.high32(at);
    chunks.push_back({file.text(at + 4, 4), file.text(at + 8, size)});
    EXPECT_EQ(file.high32(at + 8 + size), crc32(0, file.data.data() + at + 4, size + 4));
    at += size + 12;
  }
  return chunks;
}

std::string inflated(const std::string& packed, std::size_t size) {
  std::string data(size + 1, 0);
  uLongf length = static_cast<uLongf>(data.size());
  EXPECT_EQ(uncompress(reinterpret_cast<Bytef*>(data.data()), &length, reinterpret_cast<const Bytef*>(packed.data()),
                       static_cast<uLong>(packed.size())),
            Z_OK);
  EXPECT_EQ(length, size);
  return data.substr(0, size);
}

TEST(PngTest, PaletteFile) {
  const Canvas canvas = countingCanvas(3, 2);
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodePng(out, whole(canvas), {true, true, false}), EncodeResult::kFine);
  const std::vector<Chunk> chunks = chunksOf(file);
  ASSERT_EQ(chunks.size(), 5U);
  EXPECT_EQ(chunks[0].type, "IHDR");
  EXPECT_EQ(chunks[0].data, std::string("\0\0\0\3\0\0\0\2\10\3\0\0\0", 13));
  EXPECT_EQ(chunks[1].type, "PLTE");
  EXPECT_EQ(chunks[1].data.size(), 768U);
  EXPECT_EQ(chunks[1].data.substr(9, 3), "\3\xFC\1");
  EXPECT_EQ(chunks[2].type, "tRNS");
  EXPECT_EQ(chunks[2].data, std::string(1, 0));
  EXPECT_EQ(chunks[3].type, "IDAT");
  EXPECT_EQ(inflated(chunks[3].data, 8), std::string("\0\1\2\3\0\4\5\6", 8));
  EXPECT_EQ(chunks[4].type, "IEND");
  EXPECT_EQ(chunks[4].data, "");
}

TEST(PngTest, RgbFileMarksWhiteAsClear) {
  const Canvas canvas = colourCanvas();
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodePng(out, whole(canvas), {true, false, false}), EncodeResult::kFine);
  const std::vector<Chunk> chunks = chunksOf(file);
  ASSERT_EQ(chunks.size(), 4U);
  EXPECT_EQ(chunks[0].data[9], 2);
  EXPECT_EQ(chunks[1].type, "tRNS");
  EXPECT_EQ(chunks[1].data, std::string("\0\xFF\0\xFF\0\xFF", 6));
  EXPECT_EQ(inflated(chunks[2].data, 20).substr(0, 10), std::string("\0\1\2\3\4\5\6\7\10\11", 10));
}

TEST(PngTest, AlphaOfACanvasThatStartsClear) {
  const Canvas canvas = trueCanvas(2, 1, true);
  writeRgb(*canvas, 1, 0, {1, 2, 3});
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodePng(out, whole(canvas), {true, false, true}), EncodeResult::kFine);
  const std::vector<Chunk> chunks = chunksOf(file);
  EXPECT_EQ(chunks[0].data[9], 6);
  ASSERT_EQ(chunks.size(), 3U);
  EXPECT_EQ(inflated(chunks[1].data, 9), std::string("\0\xFF\xFF\xFF\0\1\2\3\xFF", 9));
}

TEST(PngTest, TrueColoursAreReducedToAPaletteOfTheirOwn) {
  const Canvas canvas = colourCanvas();
  Bytes file;
  ByteTarget out = file.target();
  ASSERT_EQ(encodePng(out, whole(canvas), {false, true, false}), EncodeResult::kFine);
  const std::vector<Chunk> chunks = chunksOf(file);
  EXPECT_EQ(chunks[0].data[9], 3);
  EXPECT_EQ(chunks[1].data.size(), 6U * 3);
  EXPECT_EQ(chunks[1].data.substr(15, 3), "\xFF\xFF\xFF"); // child 7 comes last
}

TEST(EncodersTest, TheBoxLimitsWhatIsWritten) {
  const Canvas canvas = countingCanvas(5, 4);
  const PixelSource part = {canvas.get(), {1, 1, 3, 2}};
  Bytes raw, ppm, bmp, png, tiff, gif;
  ByteTarget out = raw.target();
  ASSERT_EQ(encodeRawImage(out, part), EncodeResult::kFine);
  EXPECT_EQ(raw.text(80, 6), "\7\10\11\14\15\16");
  EXPECT_EQ(raw.data.size(), 86U);
  out = ppm.target();
  encodePpm(out, part);
  EXPECT_EQ(ppm.text(0, 11), "P6\n3 2\n255\n");
  EXPECT_EQ(ppm.data[11], 7);
  out = bmp.target();
  encodeBmp(out, part, {true, 1});
  EXPECT_EQ(bmp.text(54 + 1024, 8), std::string("\14\15\16\0\7\10\11\0", 8));
  out = png.target();
  encodePng(out, part, {false, true, false});
  EXPECT_EQ(inflated(chunksOf(png)[2].data, 8), std::string("\0\7\10\11\0\14\15\16", 8));
  out = tiff.target();
  encodeTiff(out, part, {false, true, 1, 2});
  EXPECT_EQ(tiff.text(tiff.data.size() - 6, 6), "\7\10\11\14\15\16");
  out = gif.target();
  encodeGif(out, part, {false, 0, {}});
  EXPECT_EQ(unpackGif(gif, 13 + 768 + 11), (std::vector<unsigned char>{7, 8, 9, 12, 13, 14}));
}

TEST(EncodersTest, AFailedWriteIsTold) {
  const Canvas canvas = countingCanvas(5, 4);
  ByteTarget broken;
  broken.put = [](void*, const unsigned char*, std::size_t) { return false; };
  auto target = [&broken]() { return broken; };
  ByteTarget out = target();
  EXPECT_EQ(encodePng(out, whole(canvas), {false, true, false}), EncodeResult::kWriteFailed);
  out = target();
  EXPECT_EQ(encodeTiff(out, whole(canvas), {false, true, 1, 2}), EncodeResult::kWriteFailed);
  out = target();
  EXPECT_EQ(encodeGif(out, whole(canvas), {false, 0, {}}), EncodeResult::kWriteFailed);
  out = target();
  EXPECT_EQ(encodeBmp(out, whole(canvas), {true, 1}), EncodeResult::kWriteFailed);
  out = target();
  EXPECT_EQ(encodeRawImage(out, whole(canvas)), EncodeResult::kWriteFailed);
  out = target();
  EXPECT_EQ(encodePpm(out, whole(canvas)), EncodeResult::kWriteFailed);
}

} // namespace
} // namespace quilla
