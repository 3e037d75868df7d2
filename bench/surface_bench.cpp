// Surfaces with hidden lines, into a sink that writes nothing. The cost of a cell must not grow with their number.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "core/levels.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/device_table.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

struct Grid {
  std::vector<float> x, y, z;
  explicit Grid(int n) {
    for (int i = 0; i < n; i++) x.push_back(static_cast<float>(i) * 20.0F / static_cast<float>(n - 1) - 10.0F);
    y = x;
    for (const float a : x)
      for (const float b : y) z.push_back(std::sin(std::hypot(a, b)));
  }
};

PlotState* openBox() {
  freePlotState();
  PlotState* s = plotState();
  s->deviceSetup.deviceNumber = kDevicePostColor;
  s->level.plotLevel = kLevelPlot;
  startPage(s);
  clipWholePage(s);
  setLineType(s, 0);
  s->line.lineWidthSetting = -1;
  s->axis.axisLength[kAxisX] = s->axis.axisLength[kAxisY] = 1900;
  s->axis.axisPosX = 500;
  s->axis.axisPosY = 2000;
  NOGRAF();
  GRAF3D(-10, 10, -10, 5, -10, 10, -10, 5, -2, 2, -2, 1);
  return s;
}

void surface(benchmark::State& state, bool hidden) {
  const int n = static_cast<int>(state.range(0));
  const Grid grid(n);
  openBox();
  if (!hidden) NOHIDE();
  for (auto _ : state) SURFCE(grid.x.data(), n, grid.y.data(), n, grid.z.data());
  state.SetItemsProcessed(state.iterations() * (n - 1) * (n - 1));
  freePlotState();
}

void HiddenCells(benchmark::State& state) { surface(state, true); }
void OpenCells(benchmark::State& state) { surface(state, false); }

} // namespace

BENCHMARK(HiddenCells)->Arg(125)->Arg(250)->Arg(500)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenCells)->Arg(500)->Unit(benchmark::kMillisecond);
