// Ten levels of a function on a grid, traced into lists and drawn into a sink that writes nothing. Items are grid
// points of a level.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "core/levels.h"
#include "core/pipeline.h"
#include "device/device_table.h"
#include "quilla/quilla.h"
#include "run/default_settings.h"

using namespace quilla;

namespace {

constexpr int kLevels = 10;

// Hills and valleys, as many on a large grid as on a small one.
struct Grid {
  int n;
  std::vector<float> x, z;
  explicit Grid(int size) : n(size), x(static_cast<std::size_t>(size)), z(x.size() * x.size()) {
    for (std::size_t i = 0; i < x.size(); i++) x[i] = 10.0F * static_cast<float>(i) / static_cast<float>(n - 1);
    for (std::size_t i = 0; i < x.size(); i++)
      for (std::size_t j = 0; j < x.size(); j++) z[i * x.size() + j] = std::sin(2.0F * x[i]) * std::cos(3.0F * x[j]);
  }
  static float level(int k) { return -0.9F + 0.2F * static_cast<float>(k); }
};

void count(benchmark::State& state, const Grid& grid) {
  const auto points = static_cast<std::int64_t>(grid.z.size());
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * points * kLevels);
  freePlotState();
}

void ContourPoints(benchmark::State& state) {
  const Grid grid(static_cast<int>(state.range(0)));
  const int most = 1 << 20;
  std::vector<float> x(most), y(most);
  std::vector<int> lines(10000);
  int found = 0;
  for (auto _ : state) {
    for (int k = 0; k < kLevels; k++)
      CONPTS(grid.x.data(), grid.n, grid.x.data(), grid.n, grid.z.data(), Grid::level(k), x.data(), y.data(), most,
             lines.data(), 10000, &found);
  }
  count(state, grid);
}
BENCHMARK(ContourPoints)->Arg(250)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

void drawLevels(benchmark::State& state, const char* labels) {
  const Grid grid(static_cast<int>(state.range(0)));
  freePlotState();
  PlotState* s = plotState();
  s->deviceSetup.deviceNumber = kDevicePostColor;
  s->level.plotLevel = kLevelPlot;
  s->geometry.pageWidth = 2969;
  s->geometry.pageHeight = 2099;
  applyDefaultSettings(s);
  s->line.lineWidthSetting = -1;
  NOGRAF();
  GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  LABELS(labels, "CONTUR");
  for (auto _ : state) {
    for (int k = 0; k < kLevels; k++)
      CONTUR(grid.x.data(), grid.n, grid.x.data(), grid.n, grid.z.data(), Grid::level(k));
  }
  count(state, grid);
}
void ContourLines(benchmark::State& state) { drawLevels(state, "NONE"); }
BENCHMARK(ContourLines)->Arg(250)->Arg(1000)->Unit(benchmark::kMillisecond);
void LabelledContourLines(benchmark::State& state) { drawLevels(state, "FLOAT"); }
BENCHMARK(LabelledContourLines)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace
