// A million points through the pen into each document format, beside what zlib alone needs for the same bytes; and the
// number forms of the inner loops.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <zlib.h>

#include "core/levels.h"
#include "core/page.h"
#include "device/device_table.h"
#include "device/pdf_writer.h"
#include "device/sink.h"
#include "device/writers.h"

using namespace quilla;

namespace {

constexpr int kPoints = 1000000;
constexpr char kFile[] = "/tmp/quilla_bench.out";

struct Points {
  std::vector<float> x, y;
  Points() : x(kPoints), y(kPoints) {
    for (int i = 0; i < kPoints; ++i) {
      const double t = i * 1e-3;
      x[static_cast<std::size_t>(i)] =
          static_cast<float>(1484.0 + 1300.0 * std::sin(3.0 * t + 0.7) + 90.0 * std::cos(41.0 * t));
      y[static_cast<std::size_t>(i)] =
          static_cast<float>(1049.0 + 900.0 * std::sin(2.0 * t) + 90.0 * std::sin(37.0 * t));
    }
  }
};

const Points& points() {
  static const Points all;
  return all;
}

void drawPlot(int device, int pdfMode) {
  PlotState* s = plotState();
  std::remove(kFile);
  s->deviceSetup.deviceNumber = device;
  s->deviceSetup.pdfMode = pdfMode;
  std::snprintf(s->deviceSetup.plotFileName, sizeof s->deviceSetup.plotFileName, "%s", kFile);
  s->deviceSetup.fileNameState = kFileNameGiven;
  s->colorState.backgroundMode = kBackgroundReverse;
  s->level.plotLevel = kLevelPlot;
  startPage(s);
  if (!sinkOpen(s)) std::exit(1);
  const Points& p = points();
  qqpen(s, p.x[0], p.y[0], kPenMove);
  for (std::size_t i = 1; i < kPoints; ++i) qqpen(s, p.x[i], p.y[i], kPenDraw);
  sinkClose(s);
  s->level.plotLevel = kLevelNone;
}

void report(benchmark::State& state) {
  state.counters["per_point"] =
      benchmark::Counter(kPoints, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void PostScriptPoints(benchmark::State& state) {
  points();
  for (auto _ : state) drawPlot(kDevicePs, 1);
  report(state);
}

void PlainPdfPoints(benchmark::State& state) {
  points();
  for (auto _ : state) drawPlot(kDevicePdf, 0);
  report(state);
}

void CompressedPdfPoints(benchmark::State& state) {
  points();
  for (auto _ : state) drawPlot(kDevicePdf, kPdfModeCompress);
  report(state);
}

// The bytes of the plain document in pieces of a content stream.
void ZlibAlone(benchmark::State& state) {
  drawPlot(kDevicePdf, 0);
  std::ifstream file(kFile, std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  std::vector<Bytef> packed(kPdfStreamLimit * 2);
  for (auto _ : state) {
    for (std::size_t at = 0; at < text.size(); at += kPdfStreamLimit) {
      uLongf size = packed.size();
      const std::size_t count = std::min<std::size_t>(kPdfStreamLimit, text.size() - at);
      compress(packed.data(), &size, reinterpret_cast<const Bytef*>(text.data() + at), count);
    }
  }
  report(state);
}

void FixedNumbers(benchmark::State& state) {
  const Points& p = points();
  char text[kFixedTextSize];
  for (auto _ : state) {
    for (float x : p.x) benchmark::DoNotOptimize(putFixed2(text, static_cast<double>(x)));
  }
  report(state);
}

void GeneralNumbers(benchmark::State& state) {
  const Points& p = points();
  char text[kNumberTextSize];
  for (auto _ : state) {
    for (float x : p.x) benchmark::DoNotOptimize(qqfcha(static_cast<double>(x), 2, text, 0));
  }
  report(state);
}

BENCHMARK(PostScriptPoints)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainPdfPoints)->Unit(benchmark::kMillisecond);
BENCHMARK(CompressedPdfPoints)->Unit(benchmark::kMillisecond);
BENCHMARK(ZlibAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(FixedNumbers)->Unit(benchmark::kMillisecond);
BENCHMARK(GeneralNumbers)->Unit(benchmark::kMillisecond);

} // namespace
