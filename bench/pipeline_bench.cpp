// Points through the pipeline into a sink that writes nothing: a PostScript device whose driver is not open.
#include <benchmark/benchmark.h>

#include <vector>

#include "core/levels.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/device_table.h"
#include "device/sink.h"

using namespace quilla;

namespace {

constexpr int kPoints = 100000;
constexpr int kDashPeriod = 20; // DASH: 10 drawn, 10 not

PlotState* openNothing() {
  freePlotState();
  PlotState* s = plotState();
  s->deviceSetup.deviceNumber = kDevicePostColor;
  s->level.plotLevel = kLevelPlot;
  startPage(s);
  clipWholePage(s);
  setLineType(s, 0);
  s->line.lineWidthSetting = -1;
  return s;
}

struct Zigzag {
  std::vector<float> x, y;
  explicit Zigzag(float height) : x(kPoints), y(kPoints) {
    for (std::size_t i = 0; i < x.size(); i++) {
      x[i] = 10.0F + static_cast<float>(i % 2900);
      y[i] = 1000.0F + (i % 2 ? height : -height);
    }
  }
};

void draw(PlotState* s, const Zigzag& line) {
  penMove(s, line.x[0], line.y[0]);
  for (std::size_t i = 1; i < line.x.size(); i++) penDraw(s, line.x[i], line.y[i]);
  flushPath(s);
}

void run(benchmark::State& state, PlotState* s, float height) {
  const Zigzag line(height);
  for (auto _ : state) draw(s, line);
  state.SetItemsProcessed(state.iterations() * kPoints);
  freePlotState();
}

// Every point lies inside the clip rectangle.
void SolidPoints(benchmark::State& state) { run(state, openNothing(), 20.0F); }

// As above, with the cost of the clip test taken away: the bare sink.
void BareSink(benchmark::State& state) {
  PlotState* s = openNothing();
  const Zigzag line(20.0F);
  for (auto _ : state) {
    for (std::size_t i = 0; i < line.x.size(); i++) qqpen(s, line.x[i], line.y[i], kPenDraw);
  }
  state.SetItemsProcessed(state.iterations() * kPoints);
  freePlotState();
}

// Every second segment leaves the rectangle.
void ClippedPoints(benchmark::State& state) {
  PlotState* s = openNothing();
  setClipRectangle(s, 0, 1000, 2969, 2099);
  run(state, s, 20.0F);
}

void CirclePoints(benchmark::State& state) {
  PlotState* s = openNothing();
  s->clip.clipIsCircle = true;
  s->clip.clipCenterX = 1484.0F;
  s->clip.clipCenterY = 1049.0F;
  s->clip.clipRadius = 1600.0F;
  run(state, s, 20.0F);
}

void TransformedPoints(benchmark::State& state) {
  PlotState* s = openNothing();
  s->transform.transformOn = true;
  run(state, s, 20.0F);
}

// Items are dashes.
void Dashes(benchmark::State& state) {
  constexpr int kLength = 2900;
  PlotState* s = openNothing();
  setLineType(s, 2);
  for (auto _ : state) {
    for (int y = 0; y < 1000; y++) {
      penMove(s, 10.0F, static_cast<float>(y));
      penDraw(s, 10.0F + kLength, static_cast<float>(y));
    }
    flushPath(s);
  }
  state.SetItemsProcessed(state.iterations() * 1000 * (kLength / kDashPeriod));
  freePlotState();
}

// Items are segments of the centre line.
void OutlinesOfFive(benchmark::State& state) {
  PlotState* s = openNothing();
  s->line.lineWidthSetting = 5;
  run(state, s, 20.0F);
}

// Items are hatch lines.
void HatchedSquares(benchmark::State& state) {
  PlotState* s = openNothing();
  s->shading = {.shadePattern = 45110, .shadeAngle = 45, .shadeType = 1, .shadeDensity = 1};
  const float xs[] = {100, 1100, 1100, 100}, ys[] = {100, 100, 1100, 1100};
  long before = s->counters.vectorCount;
  for (auto _ : state) fillPolygon(s, xs, ys, 4);
  state.SetItemsProcessed(s->counters.vectorCount - before);
  freePlotState();
}

BENCHMARK(SolidPoints);
BENCHMARK(BareSink);
BENCHMARK(ClippedPoints);
BENCHMARK(CirclePoints);
BENCHMARK(TransformedPoints);
BENCHMARK(Dashes);
BENCHMARK(OutlinesOfFive);
BENCHMARK(HatchedSquares);

} // namespace
