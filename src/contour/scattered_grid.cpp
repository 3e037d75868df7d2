// From points anywhere to the values of a grid.
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "core/levels.h"
#include "core/messages.h"
#include "core/stop_request.h"
#include "graph2d/matrix_size.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kExact = -1; // the grid point has the value of a point in its place

struct GridSums {
  float* values;
  int* counts;
  float* weights;
  int nx, ny;
  const float *x, *y; // coordinates of the grid
  double power;       // of the squared distance
};

// Grid points near a place on an axis, counted from 0; none if last is below first.
struct GridWindow {
  int first, last;
};
GridWindow windowAround(float value, const float* grid, int n, int reach) {
  const double start = static_cast<double>(grid[0]), step = static_cast<double>(grid[n - 1] - grid[0]) / (n - 1);
  const double place = (static_cast<double>(value) - start) / step + 1.0;
  const double first = std::trunc(place - reach) + 1.0, last = std::trunc(place + reach);
  if (!(last >= 1.0 && first <= n)) return {0, -1};
  return {static_cast<int>(std::max(first, 1.0)) - 1, static_cast<int>(std::min(last, static_cast<double>(n))) - 1};
}

void addPoint(const GridSums& g, GridWindow wx, GridWindow wy, float x, float y, float z) {
  for (int i = wx.first; i <= wx.last; i++) {
    const double dx = static_cast<double>(g.x[i]) - x;
    for (int j = wy.first; j <= wy.last; j++) {
      const std::ptrdiff_t k = static_cast<std::ptrdiff_t>(i) * g.ny + j;
      const double dy = static_cast<double>(g.y[j]) - y, squared = dx * dx + dy * dy;
      if (squared == 0.0) {
        g.values[k] = z;
        g.counts[k] = kExact;
      } else if (g.counts[k] != kExact) {
        const double w = 1.0 / std::pow(squared, g.power);
        g.counts[k]++;
        g.values[k] = static_cast<float>(g.values[k] + z * w);
        g.weights[k] = static_cast<float>(g.weights[k] + w);
      }
    }
  }
}

} // namespace

void MDFMAT(int nx, int ny, float weight) {
  PlotState* s = setterCheck("mdfmat");
  if (!s || checkRange(s, nx, 1, -1) || checkRange(s, ny, 1, -1)) return;
  if (!(weight > 0.0F)) return warnPlain(s, 2);
  s->scattered = {nx, ny, weight};
}

void GETMAT(const float* x, const float* y, const float* z, int n, float* zmat, int nx, int ny, float zval, int* imat,
            float* wmat) {
  PlotState* s = strictCheck(2, 3, "getmat");
  if (!s || checkRange(s, n, 1, -1) || checkRange(s, nx, 2, -1) || checkRange(s, ny, 2, -1)) return;
  const std::unique_ptr<float[]> memory(
      new (std::nothrow) float[static_cast<std::size_t>(nx) + static_cast<std::size_t>(ny)]);
  if (!memory) return warnPlain(s, 53);
  float *gx = memory.get(), *gy = gx + nx;
  gridCoordinates(s, kAxisX, gx, nx);
  gridCoordinates(s, kAxisY, gy, ny);
  const std::ptrdiff_t size = static_cast<std::ptrdiff_t>(nx) * ny;
  std::fill_n(zmat, size, 0.0F);
  std::fill_n(imat, size, 0);
  std::fill_n(wmat, size, 0.0F);
  const GridSums sums{zmat, imat, wmat, nx, ny, gx, gy, static_cast<double>(s->scattered.weightPower) / 2.0};
  for (int k = 0; k < n && !stopRequested(); k++) {
    if (!std::isfinite(x[k]) || !std::isfinite(y[k]) || !std::isfinite(z[k])) continue;
    addPoint(sums, windowAround(x[k], gx, nx, s->scattered.reachX), windowAround(y[k], gy, ny, s->scattered.reachY),
             x[k], y[k], z[k]);
  }
  for (std::ptrdiff_t k = 0; k < size; k++) {
    if (imat[k] == 0) zmat[k] = zval;
    if (imat[k] > 0) zmat[k] /= wmat[k];
  }
}
