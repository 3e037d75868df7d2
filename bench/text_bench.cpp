// Texts: measured, and drawn into a PDF document.
#include <benchmark/benchmark.h>

#include "core/levels.h"
#include "quilla/quilla.h"

namespace {

constexpr char kLabel[] = "Temperature [K] 1234"; // 20 characters

void openPlot(bool packed) {
  METAFL("PDF");
  SETFIL("text_bench.pdf");
  FILMOD("DELETE");
  if (!packed) PDFMOD("OFF", "COMP");
  QUIINI();
  ERRMOD("PROT", "OFF");
  COMPLX();
  HEIGHT(20);
}

void measureLabels(benchmark::State& state) {
  openPlot(false);
  for (auto _ : state) benchmark::DoNotOptimize(NLMESS(kLabel));
  QUIFIN();
  quilla::freePlotState();
}
BENCHMARK(measureLabels);

// Argument: 1 for a compressed document.
void drawLabels(benchmark::State& state) {
  openPlot(state.range(0) != 0);
  int i = 0;
  for (auto _ : state) {
    MESSAG(kLabel, 10 + i % 40 * 60, 10 + i / 40 % 80 * 25);
    ++i;
  }
  QUIFIN();
  quilla::freePlotState();
}
BENCHMARK(drawLabels)->Arg(0)->Arg(1)->Iterations(20000);

void measureFormula(benchmark::State& state) {
  openPlot(false);
  TEXMOD("ON");
  for (auto _ : state) benchmark::DoNotOptimize(NLMESS("$x = \\frac{-b \\pm \\sqrt{b^2 - 4ac}}{2a}$"));
  QUIFIN();
  quilla::freePlotState();
}
BENCHMARK(measureFormula);

} // namespace
