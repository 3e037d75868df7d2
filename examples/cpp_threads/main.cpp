// Four plots at once: each thread has a plot of its own after THRINI.
#include <array>
#include <cmath>
#include <string>
#include <thread>
#include <vector>

#include <quilla/quilla.h>

namespace {

constexpr int kThreads = 4;
constexpr int kPoints = 720;

// The Lissajous figure of frequencies n and n + 1.
void drawFigure(int n) {
  std::vector<float> x(kPoints + 1), y(kPoints + 1);
  for (int i = 0; i <= kPoints; i++) {
    const float t = static_cast<float>(i) * 6.2831853F / kPoints;
    x[static_cast<std::size_t>(i)] = std::sin(static_cast<float>(n) * t);
    y[static_cast<std::size_t>(i)] = std::cos(static_cast<float>(n + 1) * t);
  }
  const std::string name = "figure_" + std::to_string(n),
                    title = "Frequencies " + std::to_string(n) + " and " + std::to_string(n + 1);
  METAFL(n % 2 == 0 ? "PDF" : "SVG");
  SETFIL((name + (n % 2 == 0 ? ".pdf" : ".svg")).c_str());
  FILMOD("DELETE");
  QUIINI();
  ERRMOD("PROTOCOL", "OFF");
  PAGERA();
  COMPLX();
  AXSLEN(1400, 1400);
  CENTER();
  TITLIN(title.c_str(), 4);
  GRAF(-1.0F, 1.0F, -1.0F, 0.5F, -1.0F, 1.0F, -1.0F, 0.5F);
  TITLE();
  CURVE(x.data(), y.data(), kPoints + 1);
  QUIFIN();
}

} // namespace

int main() {
  THRINI(kThreads);
  std::array<std::thread, kThreads> threads;
  for (int i = 0; i < kThreads; i++) threads[static_cast<std::size_t>(i)] = std::thread(drawFigure, i + 1);
  for (std::thread& t : threads) t.join();
  THRFIN();
}
