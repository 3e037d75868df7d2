// Line integral convolution: a texture smeared along the lines of a field (B. Cabral, L. Leedom, 1993; fast by
// D. Stalling, H. Hege, 1995).
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "core/levels.h"
#include "core/messages.h"
#include "core/stop_request.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// Everything is counted in grid steps: grid point (i, j) lies at i, j.
struct Convolution {
  const float *vx, *vy;
  int n, m;
  const int* texture;
  int* counts; // means that a grid point has got
  float* sums;
  const LicGroup& settings;
  std::unique_ptr<int[]> cells;     // along a line, grid points by their index
  std::unique_ptr<double[]> totals; // of the texture up to there

  int reach() const { return settings.kernelPoints + (settings.fast ? settings.linePoints : 0); }
  bool create() {
    const std::size_t size = 2 * static_cast<std::size_t>(reach()) + 1;
    cells.reset(new (std::nothrow) int[size]);
    totals.reset(new (std::nothrow) double[size + 1]);
    return cells && totals;
  }

  int cellAt(double x, double y) const {
    return static_cast<int>(std::lround(x)) * m + static_cast<int>(std::lround(y));
  }

  bool directionAt(double x, double y, double& dx, double& dy) const {
    if (!(x >= 0.0 && y >= 0.0 && x <= n - 1 && y <= m - 1)) return false;
    const int i = std::min(static_cast<int>(x), n - 2), j = std::min(static_cast<int>(y), m - 2);
    const double s = x - i, t = y - j;
    const std::ptrdiff_t k = static_cast<std::ptrdiff_t>(i) * m + j;
    auto mix = [&](const float* f) {
      return (1.0 - s) * ((1.0 - t) * f[k] + t * f[k + 1]) + s * ((1.0 - t) * f[k + m] + t * f[k + m + 1]);
    };
    dx = mix(vx);
    dy = mix(vy);
    const double length = std::hypot(dx, dy);
    if (!(length > static_cast<double>(kTiny)) || !std::isfinite(length)) return false;
    dx /= length;
    dy /= length;
    return true;
  }

  // Writes the cells of one arm from place `at` on in steps of `by`; returns their number.
  int followArm(double x, double y, double sign, int at, int by) const {
    const double h = sign * static_cast<double>(settings.licStep);
    for (int k = 0; k < reach(); k++) {
      double dx, dy;
      if (!directionAt(x, y, dx, dy) || !directionAt(x + h / 2.0 * dx, y + h / 2.0 * dy, dx, dy)) return k;
      x += h * dx;
      y += h * dy;
      if (!(x >= 0.0 && y >= 0.0 && x <= n - 1 && y <= m - 1)) return k;
      cells[static_cast<std::size_t>(at + k * by)] = cellAt(x, y);
    }
    return reach();
  }

  // The line through a grid point gives its means to that point and, where it is fast, to others on it.
  void follow(int i, int j) {
    const int middle = reach();
    cells[static_cast<std::size_t>(middle)] = i * m + j;
    const int last = middle + followArm(i, j, 1.0, middle + 1, 1);
    const int first = middle - followArm(i, j, -1.0, middle - 1, -1);
    totals[static_cast<std::size_t>(first)] = 0.0;
    for (int k = first; k <= last; k++) {
      const auto at = static_cast<std::size_t>(k);
      totals[at + 1] = totals[at] + texture[cells[at]];
    }
    const int spread = settings.fast ? settings.linePoints : 0;
    for (int k = std::max(first, middle - spread); k <= std::min(last, middle + spread); k++) {
      const int from = std::max(first, k - settings.kernelPoints), to = std::min(last, k + settings.kernelPoints);
      const double sum = totals[static_cast<std::size_t>(to) + 1] - totals[static_cast<std::size_t>(from)];
      const int cell = cells[static_cast<std::size_t>(k)];
      sums[cell] += static_cast<float>(sum / (to - from + 1));
      counts[cell]++;
    }
  }
};

// Means over the whole range of the texture.
void spreadMeans(const int* texture, float* means, std::ptrdiff_t size) {
  const auto [low, high] = std::minmax_element(texture, texture + size);
  const auto [least, most] = std::minmax_element(means, means + size);
  const float from = *least, range = *most - from;
  if (!(range > kTiny)) return;
  const auto bottom = static_cast<float>(*low);
  const float factor = (static_cast<float>(*high) - bottom) / range;
  for (std::ptrdiff_t k = 0; k < size; k++) means[k] = bottom + (means[k] - from) * factor;
}

} // namespace

void LICPTS(const float* xmat, const float* ymat, int n, int m, const int* texture, int* values, float* means) {
  constexpr int kMostGridPoints = 1 << 30;
  PlotState* s = strictCheck(1, 3, "licpts");
  if (!s || checkRange(s, n, 2, kMostGridPoints / 2) || checkRange(s, m, 2, kMostGridPoints / n)) return;
  const std::ptrdiff_t size = static_cast<std::ptrdiff_t>(n) * m;
  std::fill_n(values, size, 0);
  std::fill_n(means, size, 0.0F);
  Convolution c{xmat, ymat, n, m, texture, values, means, s->lic, nullptr, nullptr};
  if (!c.create()) return warnPlain(s, 53);
  const int hits = s->lic.fast ? s->lic.hits : 1;
  for (int i = 0; i < n && !stopRequested(); i++) {
    for (int j = 0; j < m; j++) {
      if (values[static_cast<std::ptrdiff_t>(i) * m + j] < hits) c.follow(i, j);
    }
  }
  for (std::ptrdiff_t k = 0; k < size; k++) means[k] /= static_cast<float>(std::max(values[k], 1));
  if (s->lic.spread) spreadMeans(texture, means, size);
  constexpr float kLargest = 2.0e9F;
  for (std::ptrdiff_t k = 0; k < size; k++)
    values[k] = static_cast<int>(std::lround(std::clamp(means[k], -kLargest, kLargest)));
}
