// Painting and encoding of pixels: polygons, fills and clears beside the speed of memory, encoders beside zlib alone.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <vector>

#include <zlib.h>

#include "raster/encoders.h"
#include "raster/painter.h"

using namespace quilla;

namespace {

constexpr int kWidth = 1200, kHeight = 850;
constexpr double kPixels = static_cast<double>(kWidth) * kHeight;

void countPixels(benchmark::State& state, double perPixel) {
  state.SetBytesProcessed(static_cast<int64_t>(static_cast<double>(state.iterations()) * kPixels * perPixel));
}

// A chart: colour bands, curves, and some noise.
RasterCanvas* chart(bool trueColour) {
  RasterCanvas* canvas = createCanvas(kWidth, kHeight, trueColour, false);
  Rgb palette[kPaletteSize];
  for (int i = 0; i < kPaletteSize; ++i) {
    const auto v = static_cast<unsigned char>(i);
    palette[i] = {v, static_cast<unsigned char>(255 - i), static_cast<unsigned char>(i * 7)};
  }
  setPalette(*canvas, 0, palette, kPaletteSize, kPaletteSize);
  for (int i = 0; i < 40; ++i) canvasRectangle(*canvas, 30 * i, 300, 30 * i + 25, 800, 6 * i + 1, palette[6 * i + 1]);
  for (int k = 1; k < 30; ++k) {
    setCanvasColour(*canvas, 8 * k, palette[8 * k]);
    for (int x = 0; x < kWidth; ++x) {
      const double y = 400.0 + 350.0 * std::sin(0.003 * k * x);
      canvasLine(*canvas, x, static_cast<int>(y), x == 0 ? kCanvasMove : kCanvasDraw);
    }
  }
  flushCanvas(*canvas);
  unsigned seed = 1;
  for (int y = 0; y < 200; ++y) {
    for (int x = 0; x < 300; ++x) {
      seed = seed * 1103515245U + 12345U;
      writeIndex(*canvas, x, y, static_cast<int>(seed >> 24));
    }
  }
  return canvas;
}

void Triangles(benchmark::State& state) {
  RasterCanvas* canvas = createCanvas(kWidth, kHeight, state.range(0) != 0, false);
  setCanvasColour(*canvas, 5, {200, 100, 50});
  for (auto _ : state) {
    unsigned seed = 7;
    for (int i = 0; i < 100000; ++i) {
      seed = seed * 1103515245U + 12345U;
      const auto x = static_cast<float>(seed >> 8 & 1023), y = static_cast<float>(seed >> 18 & 511);
      const float xs[] = {x, x + 14.2F, x + 7.1F}, ys[] = {y, y + 0.3F, y + 14.1F}; // 100 pixels
      canvasFill(*canvas, xs, ys, 3);
    }
  }
  state.SetItemsProcessed(state.iterations() * 100000);
  freeCanvas(canvas);
}
BENCHMARK(Triangles)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void Memset(benchmark::State& state) {
  std::vector<char> bytes(static_cast<std::size_t>(kPixels) * 4);
  for (auto _ : state) {
    std::memset(bytes.data(), 1, bytes.size());
    benchmark::ClobberMemory();
  }
  countPixels(state, 4);
}
BENCHMARK(Memset);

void Clear(benchmark::State& state) {
  RasterCanvas* canvas = createCanvas(kWidth, kHeight, true, state.range(0) != 0);
  for (auto _ : state) {
    eraseCanvas(*canvas);
    benchmark::ClobberMemory();
  }
  countPixels(state, 4);
  freeCanvas(canvas);
}
BENCHMARK(Clear)->Arg(0)->Arg(1);

void FillPage(benchmark::State& state) {
  const bool trueColour = state.range(0) != 0;
  RasterCanvas* canvas = createCanvas(kWidth, kHeight, trueColour, false);
  for (auto _ : state) {
    canvasRectangle(*canvas, 0, 0, kWidth - 1, kHeight - 1, 9, {1, 2, 3});
    benchmark::ClobberMemory();
  }
  countPixels(state, trueColour ? 4 : 1);
  freeCanvas(canvas);
}
BENCHMARK(FillPage)->Arg(0)->Arg(1);

// Bytes of pixels that an encoder takes in a second: one each of a palette, three of true colours.
template <typename Encode> void encodeChart(benchmark::State& state, Encode encode) {
  const bool trueColour = state.range(0) != 0;
  RasterCanvas* canvas = chart(trueColour);
  const PixelSource source = {canvas, wholeCanvas(*canvas)};
  std::vector<unsigned char> file;
  file.reserve(8000000);
  for (auto _ : state) {
    file.clear();
    ByteTarget out;
    out.to = &file;
    out.put = [](void* to, const unsigned char* bytes, std::size_t count) {
      auto* v = static_cast<std::vector<unsigned char>*>(to);
      v->insert(v->end(), bytes, bytes + count);
      return true;
    };
    encode(out, source, !trueColour);
  }
  countPixels(state, trueColour ? 3 : 1);
  freeCanvas(canvas);
}

void Png(benchmark::State& state) {
  encodeChart(state, [](ByteTarget& out, const PixelSource& s, bool) { encodePng(out, s, {false, false, false}); });
}
void Gif(benchmark::State& state) {
  encodeChart(state, [](ByteTarget& out, const PixelSource& s, bool) { encodeGif(out, s, {false, 0, {}}); });
}
void Tiff(benchmark::State& state) {
  encodeChart(state, [](ByteTarget& out, const PixelSource& s, bool) { encodeTiff(out, s, {false, false, 100, 2}); });
}
void Bmp(benchmark::State& state) {
  encodeChart(state, [](ByteTarget& out, const PixelSource& s, bool) { encodeBmp(out, s, {false, 2500}); });
}
void Ppm(benchmark::State& state) {
  encodeChart(state, [](ByteTarget& out, const PixelSource& s, bool) { encodePpm(out, s); });
}
BENCHMARK(Png)->Arg(0)->Arg(1);
BENCHMARK(Gif)->Arg(0)->Arg(1);
BENCHMARK(Tiff)->Arg(0)->Arg(1);
BENCHMARK(Bmp)->Arg(0)->Arg(1);
BENCHMARK(Ppm)->Arg(0)->Arg(1);

// What zlib alone needs for the rows of the PNG file.
void RowsByZlibAlone(benchmark::State& state) {
  const bool trueColour = state.range(0) != 0;
  RasterCanvas* canvas = chart(trueColour);
  const std::size_t row = static_cast<std::size_t>(kWidth) * (trueColour ? 3 : 1) + 1;
  std::vector<unsigned char> rows(row * kHeight), packed(compressBound(static_cast<uLong>(rows.size())));
  for (int y = 0; y < kHeight; ++y) {
    unsigned char* to = rows.data() + row * static_cast<std::size_t>(y) + 1;
    if (trueColour) {
      readRgbRow(*canvas, 0, y, to, kWidth);
    } else {
      readIndexRow(*canvas, 0, y, to, kWidth);
    }
  }
  for (auto _ : state) {
    uLongf size = static_cast<uLongf>(packed.size());
    compress(packed.data(), &size, rows.data(), static_cast<uLong>(rows.size()));
    benchmark::DoNotOptimize(size);
  }
  countPixels(state, trueColour ? 3 : 1);
  freeCanvas(canvas);
}
BENCHMARK(RowsByZlibAlone)->Arg(0)->Arg(1);

} // namespace
