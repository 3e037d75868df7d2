// The TIFF decoder: both byte orders, strips and tiles, every packing and kind of sample, and what is not supported.
#include "image_bytes.h"

#include <cstring>
#include <map>

#include "image/tiff_packing.h"

namespace {

using namespace quilla;
using Pixels = std::vector<int>;

// A file of one directory. Values of a tag that do not fit into its entry stand behind the directory.
struct Tiff {
  bool little = true;
  std::map<unsigned, std::vector<unsigned>> tags; // all of type LONG unless named below
  std::vector<Bytes> segments;
};

class Writer {
public:
  explicit Writer(const Tiff& tiff) : t(tiff) {}

  Bytes file(bool tiles = false) {
    addText(out, t.little ? "II" : "MM");
    put(42, 2);
    std::size_t at = 8;
    std::vector<unsigned> offsets, sizes;
    for (const Bytes& segment : t.segments) {
      offsets.push_back(static_cast<unsigned>(at));
      sizes.push_back(static_cast<unsigned>(segment.size()));
      at += segment.size();
    }
    std::map<unsigned, std::vector<unsigned>> tags = t.tags;
    tags.emplace(tiles ? 324 : 273, offsets);
    tags.emplace(tiles ? 325 : 279, sizes);
    put(static_cast<unsigned>(at), 4);
    for (const Bytes& segment : t.segments) add(out, segment);
    put(static_cast<unsigned>(tags.size()), 2);
    std::size_t behind = at + 2 + 12 * tags.size() + 4;
    Bytes lists;
    for (const auto& [tag, values] : tags) {
      // BitsPerSample, ColorMap and SampleFormat are words, as readers and writers have them.
      const int size = tag == 258 || tag == 320 || tag == 339 ? 2 : 4;
      put(tag, 2);
      put(size == 2 ? 3 : 4, 2);
      put(static_cast<unsigned>(values.size()), 4);
      Bytes list;
      for (unsigned value : values) putTo(list, value, size);
      if (list.size() > 4) {
        put(static_cast<unsigned>(behind + lists.size()), 4);
        add(lists, list);
      } else {
        list.resize(4);
        add(out, list);
      }
    }
    put(0, 4);
    add(out, lists);
    return out;
  }

private:
  void putTo(Bytes& target, unsigned value, int count) const {
    if (t.little) {
      addLittle(target, value, count);
    } else {
      addBig(target, value, count);
    }
  }
  void put(unsigned value, int count) { putTo(out, value, count); }
  const Tiff& t;
  Bytes out;
};

Decoded decode(const Tiff& tiff, bool tiles = false) {
  Decoded d;
  d.status = decodeTiff(Writer(tiff).file(tiles), d.image);
  return d;
}

Tiff grey(unsigned width, unsigned height, unsigned bits, const Bytes& data) {
  return {true, {{256, {width}}, {257, {height}}, {258, {bits}}, {262, {1}}}, {data}};
}
Tiff rgb(unsigned width, unsigned height, const Bytes& data) {
  return {true, {{256, {width}}, {257, {height}}, {258, {8, 8, 8}}, {262, {2}}, {277, {3}}}, {data}};
}

TEST(Tiff, GreyOfEveryDepth) {
  EXPECT_EQ(decode(grey(3, 1, 1, {0xA0})).all(), (Pixels{0xFFFFFF, 0, 0xFFFFFF}));
  EXPECT_EQ(decode(grey(4, 1, 2, {0x1B})).all(), (Pixels{0, 0x555555, 0xAAAAAA, 0xFFFFFF}));
  EXPECT_EQ(decode(grey(2, 1, 4, {0x3F})).all(), (Pixels{0x333333, 0xFFFFFF}));
  EXPECT_EQ(decode(grey(2, 1, 8, {7, 200})).all(), (Pixels{0x070707, 0xC8C8C8}));
  EXPECT_EQ(decode(grey(1, 1, 16, {0x34, 0x12})).all(), (Pixels{0x121212}));
}

TEST(Tiff, WhiteIsZeroInverts) {
  Tiff tiff = grey(2, 1, 8, {0, 200});
  tiff.tags[262] = {0};
  EXPECT_EQ(decode(tiff).all(), (Pixels{0xFFFFFF, 0x373737}));
  Tiff bilevel = grey(2, 1, 1, {0x40});
  bilevel.tags[262] = {0};
  EXPECT_EQ(decode(bilevel).all(), (Pixels{0xFFFFFF, 0}));
}

TEST(Tiff, ColoursInBothByteOrders) {
  Tiff tiff = rgb(2, 1, {1, 2, 3, 4, 5, 6});
  EXPECT_EQ(decode(tiff).all(), (Pixels{0x010203, 0x040506}));
  tiff.little = false;
  EXPECT_EQ(decode(tiff).all(), (Pixels{0x010203, 0x040506}));
  tiff.tags[258] = {16, 16, 16};
  tiff.tags[256] = {1};
  EXPECT_EQ(decode(tiff).all(), (Pixels{0x010305})); // the high bytes come first
  tiff.little = true;
  EXPECT_EQ(decode(tiff).all(), (Pixels{0x020406}));
}

TEST(Tiff, PaletteOfWords) {
  Tiff tiff = grey(2, 1, 1, {0x40});
  tiff.tags[262] = {3};
  tiff.tags[320] = {0x0102, 0xA1A2, 0x0304, 0xB1B2, 0x0506, 0xC1C2};
  EXPECT_EQ(decode(tiff).all(), (Pixels{0x010305, 0xA1B1C1}));
}

TEST(Tiff, IndexBeyondTheMapReadsTheFirstAndIsAFault) {
  Tiff tiff = grey(2, 1, 8, {1, 2});
  tiff.tags[262] = {3};
  tiff.tags[320] = {0x0102, 0xA1A2, 0x0304, 0xB1B2, 0x0506, 0xC1C2};
  const Decoded d = decode(tiff);
  EXPECT_EQ(d.status, kImageBadIndex);
  EXPECT_EQ(d.all(), (Pixels{0xA1B1C1, 0x010305}));
}

TEST(Tiff, FloatingGreyFromLeastToMost) {
  Bytes data;
  for (float value : {-1.0F, 0.0F, 1.0F}) {
    unsigned bits;
    std::memcpy(&bits, &value, 4);
    addLittle(data, bits, 4);
  }
  Tiff tiff = grey(3, 1, 32, data);
  tiff.tags[339] = {3};
  EXPECT_EQ(decode(tiff).all(), (Pixels{0, 0x808080, 0xFFFFFF}));
}

TEST(Tiff, StripsAndTiles) {
  Tiff strips = grey(2, 3, 8, {1, 2, 3, 4});
  strips.segments.push_back({5, 6});
  strips.tags[278] = {2};
  EXPECT_EQ(decode(strips).all(), (Pixels{0x010101, 0x020202, 0x030303, 0x040404, 0x050505, 0x060606}));
  // Tiles of 2 by 2 over 3 by 2 pixels: the second reaches over the edge.
  Tiff tiles = grey(3, 2, 8, {1, 2, 4, 5});
  tiles.segments.push_back({3, 99, 6, 99});
  tiles.tags[322] = {2};
  tiles.tags[323] = {2};
  EXPECT_EQ(decode(tiles, true).all(), (Pixels{0x010101, 0x020202, 0x030303, 0x040404, 0x050505, 0x060606}));
}

TEST(Tiff, OneStripNeedsNoSize) {
  Tiff tiff = grey(2, 2, 8, {1, 2, 3, 4});
  tiff.tags[300] = {0}; // a tag of no meaning
  Bytes file = Writer(tiff).file();
  // Rename the tag of the sizes, which is the last but one.
  for (std::size_t i = 0; i + 2 < file.size(); ++i) {
    if (file[i] == 0x17 && file[i + 1] == 1 && file[i + 2] == 4) file[i] = 0x2D;
  }
  Decoded d;
  d.status = decodeTiff(file, d.image);
  EXPECT_EQ(d.status, kImageFine);
  EXPECT_EQ(d.at(1, 1), 0x040404);
}

TEST(Tiff, PackBits) {
  Tiff tiff = grey(6, 1, 8, {0x80, 1, 7, 8, 0x80, 0xFD, 9, 0x80});
  tiff.tags[259] = {32773};
  EXPECT_EQ(decode(tiff).all(), (Pixels{0x070707, 0x080808, 0x090909, 0x090909, 0x090909, 0x090909}));
  tiff.segments[0] = {0xFA, 9}; // seven of them
  EXPECT_EQ(decode(tiff).status, kImageOverrun);
  tiff.segments[0] = {5, 1, 2, 3};
  EXPECT_EQ(decode(tiff).status, kImageOverrun);
  tiff.segments[0] = {1, 1, 2};
  EXPECT_EQ(decode(tiff).status, kImageBadFormat);
}

// Codes of 9 bits, high bits first.
Bytes nineBits(std::initializer_list<unsigned> codes) {
  Bytes out;
  unsigned bits = 0;
  int held = 0;
  for (unsigned code : codes) {
    bits = bits << 9 | code;
    for (held += 9; held >= 8; held -= 8) out.push_back(static_cast<unsigned char>(bits >> (held - 8)));
  }
  if (held > 0) out.push_back(static_cast<unsigned char>(bits << (8 - held)));
  return out;
}

TEST(Tiff, Lzw) {
  // The example of the published description: 7 7 7 8 8 7 7 6 6.
  Tiff tiff = grey(9, 1, 8, nineBits({256, 7, 258, 8, 8, 258, 6, 6, 257}));
  tiff.tags[259] = {5};
  const Decoded d = decode(tiff);
  EXPECT_EQ(d.status, kImageFine);
  const int wanted[] = {7, 7, 7, 8, 8, 7, 7, 6, 6};
  for (int i = 0; i < 9; ++i) EXPECT_EQ(d.at(i, 0) & 255, wanted[i]);
  tiff.tags[256] = {8};
  EXPECT_EQ(decode(tiff).status, kImageOverrun);
  tiff.tags[256] = {10};
  EXPECT_EQ(decode(tiff).status, kImageBadFormat);
  tiff.segments[0] = nineBits({256, 7, 300, 257});
  EXPECT_EQ(decode(tiff).status, kImageOverrun);
}

TEST(Tiff, DifferencesToThePixelBefore) {
  Tiff tiff = rgb(2, 1, nineBits({256, 10, 20, 30, 1, 255, 5, 257}));
  tiff.tags[259] = {5};
  tiff.tags[317] = {2};
  EXPECT_EQ(decode(tiff).all(), (Pixels{0x0A141E, 0x0B1323}));
}

TEST(Tiff, WhatIsNotSupported) {
  const std::pair<unsigned, std::vector<unsigned>> features[] = {
      {284, {2}},          {259, {2}}, {259, {7}},       {262, {5}}, {277, {4}}, {258, {8, 8, 16}},
      {258, {12, 12, 12}}, {339, {2}}, {339, {1, 1, 3}}, {317, {3}}, {266, {2}}, {258, {32, 32, 32}}};
  for (const auto& [tag, values] : features) {
    Tiff tiff = rgb(1, 1, {1, 2, 3});
    tiff.tags[tag] = values;
    EXPECT_EQ(decode(tiff).status, kImageNotSupported) << tag << " " << values[0];
  }
  Tiff deep = grey(1, 1, 16, {1, 2});
  deep.tags[262] = {3}; // a palette of more than 8 bits
  EXPECT_EQ(decode(deep).status, kImageNotSupported);
  deep.tags[262] = {1};
  deep.tags[317] = {2}; // differences of words
  EXPECT_EQ(decode(deep).status, kImageNotSupported);
  EXPECT_EQ(decode(grey(1, 1, 32, {1, 2, 3, 4})).status, kImageNotSupported); // whole numbers
}

TEST(Tiff, FaultsOfStrips) {
  Tiff few = grey(1, 3, 8, {1});
  few.segments.push_back({2});
  few.tags[278] = {1};
  EXPECT_EQ(decode(few).status, kImageBadFormat); // three are needed
  Tiff cut = grey(2, 2, 8, {1, 2, 3});
  const Decoded d = decode(cut);
  EXPECT_EQ(d.status, kImageBadFormat);
  EXPECT_EQ(d.image.rowDone[0], 1);
  EXPECT_EQ(d.image.rowDone[1], 0);
  Tiff huge = grey(60000, 60000, 8, {1, 2, 3});
  EXPECT_EQ(decode(huge).image.pixels, nullptr);
  huge.tags[259] = {5};
  EXPECT_EQ(decode(huge).status, kImageNoMemory); // a strip of 3.6 GB
  huge.tags[278] = {1};
  EXPECT_EQ(decode(huge).status, kImageBadFormat);
}

TEST(Tiff, FiveSamplesAreData) {
  Tiff tiff = grey(2, 1, 8, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  tiff.tags[277] = {5};
  tiff.tags[258] = {8, 8, 8, 8, 8};
  const Bytes file = Writer(tiff).file();
  unsigned short samples[10] = {};
  EXPECT_EQ(decodeTiffSamples(file, samples, 10), kImageFine);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(samples[i], i + 1);
  EXPECT_EQ(decodeTiffSamples(file, samples, 9), kImageBadFormat);
  EXPECT_EQ(decode(tiff).all(), (Pixels{0x010203, 0x060708})); // shown by the first three
  tiff.tags[259] = {5};
  EXPECT_EQ(decode(tiff).status, kImageNotSupported);
}

TEST(Tiff, EveryBeginningOfAFileIsSafe) {
  Tiff tiff = rgb(2, 1, nineBits({256, 10, 20, 30, 1, 255, 5, 257}));
  tiff.tags[259] = {5};
  tiff.tags[317] = {2};
  const Bytes whole = Writer(tiff).file();
  for (std::size_t n = 0; n < whole.size(); ++n) {
    const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(n));
    Decoded d;
    decodeTiff(part, d.image);
    TiffDirectory head;
    readTiffDirectory(part, true, head);
  }
}

// A list that lies behind the file leaves no values, also when only the head is looked at.
TEST(Tiff, ListsBehindTheFileHaveNoValues) {
  Bytes file = {'I', 'I', 42, 0, 8, 0, 0, 0, 1, 0, 2, 1, 3, 0, 9, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF};
  TiffDirectory d;
  EXPECT_EQ(readTiffDirectory(file, true, d), kImageFine);
  EXPECT_EQ(d.bits, 1U);
  EXPECT_EQ(readTiffDirectory(file, false, d), kImageBadFormat);
}

} // namespace
