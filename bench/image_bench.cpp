// Decoders of images: bytes of pixels a second, three a pixel. A PNG beside zlib alone on the same stream.
#include <benchmark/benchmark.h>

#include <zlib.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "image/image.h"

using namespace quilla;

namespace {

using Bytes = std::vector<unsigned char>;

constexpr int kWidth = 1200, kHeight = 850;
constexpr std::size_t kPixelBytes = std::size_t{3} * kWidth * kHeight;

// A picture like a photograph: soft slopes with a little noise.
Bytes photograph() {
  Bytes rgb;
  rgb.reserve(kPixelBytes);
  unsigned noise = 12345;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      noise = noise * 1664525U + 1013904223U;
      const double wave = std::sin(x / 90.0) + std::cos(y / 70.0 + x / 200.0);
      const int grain = static_cast<int>(noise >> 28U);
      rgb.push_back(static_cast<unsigned char>(120.0 + 50.0 * wave + grain));
      rgb.push_back(static_cast<unsigned char>(60 + x / 10 + grain / 2));
      rgb.push_back(static_cast<unsigned char>(30 + (x + y) / 12 + grain / 4));
    }
  }
  return rgb;
}

// Fewer colours in larger areas, like a graph: an index a pixel.
Bytes indexed() {
  const Bytes rgb = photograph();
  Bytes indices;
  for (std::size_t i = 0; i < rgb.size(); i += 3) indices.push_back(static_cast<unsigned char>(rgb[i + 1] / 4 * 4));
  return indices;
}

void addBig(Bytes& out, unsigned value) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<unsigned char>(value >> shift));
}
void addLittle(Bytes& out, unsigned value, int count) {
  for (int i = 0; i < count; ++i) out.push_back(static_cast<unsigned char>(value >> (8 * i)));
}
void addText(Bytes& out, const char* text) { out.insert(out.end(), text, text + std::strlen(text)); }

void addChunk(Bytes& out, const char* name, const Bytes& data) {
  addBig(out, static_cast<unsigned>(data.size()));
  addText(out, name);
  out.insert(out.end(), data.begin(), data.end());
  addBig(out, 0); // check sums are not looked at
}

int predicted(int filter, int left, int up, int corner) {
  switch (filter) {
  case 1: return left;
  case 2: return up;
  case 3: return (left + up) / 2;
  case 4: {
    const int a = std::abs(up - corner), b = std::abs(left - corner), c = std::abs(left + up - 2 * corner);
    return a <= b && a <= c ? left : b <= c ? up : corner;
  }
  default: return 0;
  }
}

// Rows with the filter whose sum of differences is least, as writers choose it.
Bytes filteredRows(const Bytes& rgb) {
  constexpr int kRow = 3 * kWidth;
  Bytes rows, above(kRow, 0), trial(kRow), best(kRow);
  for (int y = 0; y < kHeight; ++y) {
    const unsigned char* row = rgb.data() + static_cast<std::size_t>(y) * kRow;
    long least = -1;
    int chosen = 0;
    for (int filter = 0; filter < 5; ++filter) {
      long sum = 0;
      for (int i = 0; i < kRow; ++i) {
        const int left = i < 3 ? 0 : row[i - 3], corner = i < 3 ? 0 : above[static_cast<std::size_t>(i - 3)];
        const int guess = predicted(filter, left, above[static_cast<std::size_t>(i)], corner);
        trial[static_cast<std::size_t>(i)] = static_cast<unsigned char>(row[i] - guess);
        sum += std::abs(static_cast<signed char>(trial[static_cast<std::size_t>(i)]));
      }
      if (least >= 0 && sum >= least) continue;
      least = sum;
      chosen = filter;
      best = trial;
    }
    rows.push_back(static_cast<unsigned char>(chosen));
    rows.insert(rows.end(), best.begin(), best.end());
    above.assign(row, row + kRow);
  }
  return rows;
}

Bytes deflated(const Bytes& raw) {
  uLongf size = compressBound(static_cast<uLong>(raw.size()));
  Bytes packed(size);
  compress2(packed.data(), &size, raw.data(), static_cast<uLong>(raw.size()), 6);
  packed.resize(size);
  return packed;
}

Bytes pngFile(int colorType, const Bytes& packed) {
  Bytes file;
  addText(file, "\x89PNG\r\n\x1a\n");
  Bytes head;
  addBig(head, kWidth);
  addBig(head, kHeight);
  for (int value : {8, colorType, 0, 0, 0}) head.push_back(static_cast<unsigned char>(value));
  addChunk(file, "IHDR", head);
  Bytes palette;
  for (int i = 0; i < 256; ++i) palette.insert(palette.end(), 3, static_cast<unsigned char>(i));
  if (colorType == 3) addChunk(file, "PLTE", palette);
  addChunk(file, "IDAT", packed);
  addChunk(file, "IEND", {});
  return file;
}

void decodes(benchmark::State& state, const Bytes& file, ImageStatus (*decode)(FileBytes, Image&)) {
  Image image;
  for (auto _ : state) {
    if (decode(file, image) != kImageFine) state.SkipWithError("the file is not read");
    benchmark::DoNotOptimize(image.pixels);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kPixelBytes));
  freeImage(image);
}

void inflates(benchmark::State& state, const Bytes& packed, std::size_t size) {
  for (auto _ : state) {
    Bytes out(size);
    uLongf made = static_cast<uLongf>(size);
    if (uncompress(out.data(), &made, packed.data(), static_cast<uLong>(packed.size())) != Z_OK)
      state.SkipWithError("the stream is not read");
    benchmark::DoNotOptimize(out.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kPixelBytes));
}

const Bytes& rgbStream() {
  static const Bytes packed = deflated(filteredRows(photograph()));
  return packed;
}

void pngPhotograph(benchmark::State& state) { decodes(state, pngFile(2, rgbStream()), decodePng); }
void zlibPhotograph(benchmark::State& state) {
  inflates(state, rgbStream(), kPixelBytes + static_cast<std::size_t>(kHeight));
}
BENCHMARK(pngPhotograph);
BENCHMARK(zlibPhotograph);

const Bytes& indexStream() {
  static const Bytes packed = [] {
    Bytes rows;
    const Bytes indices = indexed();
    for (int y = 0; y < kHeight; ++y) {
      rows.push_back(0);
      rows.insert(rows.end(), indices.begin() + y * kWidth, indices.begin() + (y + 1) * kWidth);
    }
    return deflated(rows);
  }();
  return packed;
}

void pngPalette(benchmark::State& state) { decodes(state, pngFile(3, indexStream()), decodePng); }
void zlibPalette(benchmark::State& state) { inflates(state, indexStream(), std::size_t{kHeight} * (kWidth + 1)); }
BENCHMARK(pngPalette);
BENCHMARK(zlibPalette);

// LZW codes of GIF (low bits first) or TIFF (high bits first, and a longer code one code earlier).
Bytes lzw(const Bytes& data, bool tiff) {
  std::vector<int> next(std::size_t{4096} * 256, -1);
  Bytes out;
  unsigned long long bits = 0;
  int held = 0, size = 9, count = 258;
  auto put = [&](int code) {
    if (tiff) {
      bits = bits << size | static_cast<unsigned>(code);
      for (held += size; held >= 8; held -= 8) out.push_back(static_cast<unsigned char>(bits >> (held - 8)));
    } else {
      bits |= static_cast<unsigned long long>(code) << held;
      for (held += size; held >= 8; held -= 8, bits >>= 8) out.push_back(static_cast<unsigned char>(bits));
    }
  };
  put(256);
  int prefix = -1;
  for (unsigned char byte : data) {
    if (prefix < 0) {
      prefix = byte;
      continue;
    }
    int& found = next[static_cast<std::size_t>(prefix) * 256 + byte];
    if (found >= 0) {
      prefix = found;
      continue;
    }
    put(prefix);
    found = count++;
    if (count == (1 << size) + (tiff ? 0 : 1) && size < 12) ++size;
    if (count >= 4094) {
      put(256);
      std::fill(next.begin(), next.end(), -1);
      size = 9;
      count = 258;
    }
    prefix = byte;
  }
  put(prefix);
  put(257);
  if (held > 0) out.push_back(static_cast<unsigned char>(tiff ? bits << (8 - held) : bits));
  return out;
}

void gifPalette(benchmark::State& state) {
  Bytes file;
  addText(file, "GIF89a");
  addLittle(file, kWidth, 2);
  addLittle(file, kHeight, 2);
  addLittle(file, 0xF7, 3); // a table of 256 colours
  for (int i = 0; i < 256; ++i) file.insert(file.end(), 3, static_cast<unsigned char>(i));
  file.push_back(0x2C);
  addLittle(file, 0, 4);
  addLittle(file, kWidth, 2);
  addLittle(file, kHeight, 2);
  addLittle(file, 0, 1);
  file.push_back(8);
  const Bytes codes = lzw(indexed(), false);
  for (std::size_t i = 0; i < codes.size(); i += 255) {
    const std::size_t n = std::min<std::size_t>(255, codes.size() - i);
    file.push_back(static_cast<unsigned char>(n));
    file.insert(file.end(), codes.begin() + static_cast<std::ptrdiff_t>(i),
                codes.begin() + static_cast<std::ptrdiff_t>(i + n));
  }
  addLittle(file, 0x3B00, 2);
  decodes(state, file, [](FileBytes bytes, Image& image) { return decodeGif(bytes, GifExtent::kImage, image); });
}
BENCHMARK(gifPalette);

Bytes tiffFile(int compression, const Bytes& data, int photometric) {
  Bytes file;
  addText(file, "II*");
  addLittle(file, 0, 1);
  addLittle(file, static_cast<unsigned>(8 + data.size()), 4);
  file.insert(file.end(), data.begin(), data.end());
  const unsigned samples = photometric == 2 ? 3 : 1;
  const unsigned entries[][2] = {{256, kWidth},
                                 {257, kHeight},
                                 {258, 8},
                                 {259, static_cast<unsigned>(compression)},
                                 {262, static_cast<unsigned>(photometric)},
                                 {273, 8},
                                 {277, samples},
                                 {279, static_cast<unsigned>(data.size())}};
  addLittle(file, std::size(entries), 2);
  for (const auto& entry : entries) {
    addLittle(file, entry[0], 2);
    addLittle(file, 4, 2);
    addLittle(file, 1, 4);
    addLittle(file, entry[1], 4);
  }
  addLittle(file, 0, 4);
  return file;
}

Bytes packBits(const Bytes& data) {
  Bytes out;
  for (std::size_t i = 0; i < data.size(); i += 128) {
    const std::size_t n = std::min<std::size_t>(128, data.size() - i);
    out.push_back(static_cast<unsigned char>(n - 1));
    out.insert(out.end(), data.begin() + static_cast<std::ptrdiff_t>(i),
               data.begin() + static_cast<std::ptrdiff_t>(i + n));
  }
  return out;
}

void tiffPlain(benchmark::State& state) { decodes(state, tiffFile(1, photograph(), 2), decodeTiff); }
void tiffLzwPhotograph(benchmark::State& state) { decodes(state, tiffFile(5, lzw(photograph(), true), 2), decodeTiff); }
void tiffLzwGrey(benchmark::State& state) { decodes(state, tiffFile(5, lzw(indexed(), true), 1), decodeTiff); }
void tiffPackBits(benchmark::State& state) { decodes(state, tiffFile(32773, packBits(photograph()), 2), decodeTiff); }
BENCHMARK(tiffPlain);
BENCHMARK(tiffLzwPhotograph);
BENCHMARK(tiffLzwGrey);
BENCHMARK(tiffPackBits);

Bytes bmpFile(int bits, int compression, const Bytes& data) {
  Bytes file;
  addText(file, "BM");
  const unsigned palette = bits == 8 ? 1024 : 0;
  addLittle(file, static_cast<unsigned>(54 + palette + data.size()), 4);
  addLittle(file, 0, 4);
  addLittle(file, 54 + palette, 4);
  addLittle(file, 40, 4);
  addLittle(file, kWidth, 4);
  addLittle(file, kHeight, 4);
  addLittle(file, 1, 2);
  addLittle(file, static_cast<unsigned>(bits), 2);
  addLittle(file, static_cast<unsigned>(compression), 4);
  for (int i = 0; i < 5; ++i) addLittle(file, 0, 4);
  for (unsigned i = 0; i < palette / 4; ++i) addLittle(file, i * 0x010101U, 4);
  file.insert(file.end(), data.begin(), data.end());
  return file;
}

void bmpColors(benchmark::State& state) { decodes(state, bmpFile(24, 0, photograph()), decodeBmp); }
void bmpRuns(benchmark::State& state) {
  Bytes runs;
  const Bytes indices = indexed();
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth;) {
      const unsigned char value = indices[static_cast<std::size_t>(y) * kWidth + static_cast<std::size_t>(x)];
      int n = 1;
      while (x + n < kWidth && n < 255 &&
             indices[static_cast<std::size_t>(y) * kWidth + static_cast<std::size_t>(x + n)] == value)
        ++n;
      runs.push_back(static_cast<unsigned char>(n));
      runs.push_back(value);
      x += n;
    }
    addLittle(runs, 0, 2);
  }
  addLittle(runs, 0x0100, 2);
  decodes(state, bmpFile(8, 1, runs), decodeBmp);
}
BENCHMARK(bmpColors);
BENCHMARK(bmpRuns);

void ppmBytes(benchmark::State& state) {
  Bytes file;
  addText(file, ("P6\n" + std::to_string(kWidth) + " " + std::to_string(kHeight) + "\n255\n").c_str());
  const Bytes rgb = photograph();
  file.insert(file.end(), rgb.begin(), rgb.end());
  decodes(state, file, decodePpm);
}
void ppmText(benchmark::State& state) {
  Bytes file;
  addText(file, ("P3\n" + std::to_string(kWidth) + " " + std::to_string(kHeight) + "\n255\n").c_str());
  for (unsigned char value : photograph()) addText(file, (std::to_string(value) + " ").c_str());
  decodes(state, file, decodePpm);
}
BENCHMARK(ppmBytes);
BENCHMARK(ppmText);

void scaleTwice(benchmark::State& state) {
  Image image, scaled;
  startImage(image, kWidth, kHeight, false, kPixelLimit);
  const Bytes rgb = photograph();
  std::memcpy(image.pixels, rgb.data(), kPixelBytes);
  for (auto _ : state) scaleImage(image, 2 * kWidth, 2 * kHeight, scaled);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(4 * kPixelBytes));
  freeImage(image);
  freeImage(scaled);
}
BENCHMARK(scaleTwice);

} // namespace
