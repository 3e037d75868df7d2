#include "contour/band_colors.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

#include "core/levels.h"
#include "core/messages.h"
#include "graph2d/color_scale.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

enum OpenBands : int { kBothBands = 0, kUpperBand = 1, kLowerBand = 2, kNoBand = 3 };
enum BandRule : int { kOfLowerLevel = 0, kOfMiddle = 1, kOfUpperLevel = 2 };

bool isLeftOut(const PlotState* s, int k, int n) {
  const int open = s->shadeModes.openBands;
  if (k == 0) return open == kUpperBand || open == kNoBand;
  return k == n && (open == kLowerBand || open == kNoBand);
}

int backgroundOf(const PlotState* s) { return s->area.backgroundsDrawn ? s->color.backgroundColor : kNoColor; }

int colorOfBand(const PlotState* s, const ContourBands& b, int k) {
  if (isLeftOut(s, k, b.n)) return kNoColor;
  const int rule = s->shadeModes.bandColor;
  if (rule == kOfLowerLevel && k == 0) return backgroundOf(s);
  const int below = std::max(k, 1) - 1, above = std::min(k + 1, b.n) - 1; // levels, from 0
  const auto first = static_cast<std::size_t>(rule == kOfUpperLevel ? above : below);
  const auto second = static_cast<std::size_t>(rule == kOfLowerLevel ? below : above);
  const int place = static_cast<int>((b.positions[first] + b.positions[second]) / 2.0 + 0.5);
  if (place <= s->bands.bandColorCount) return s->bands.bandColors[place - 1];
  return colorOfValue(s, static_cast<float>((static_cast<double>(b.levels[first]) + b.levels[second]) / 2.0));
}

} // namespace

int ContourBands::bandOf(float z) const {
  return static_cast<int>(std::lower_bound(levels.get(), levels.get() + n, z) - levels.get());
}

Band ContourBands::band(int k) const {
  constexpr float kEndless = std::numeric_limits<float>::infinity();
  return {k == 0 ? -kEndless : levels[static_cast<std::size_t>(k - 1)],
          k == n ? kEndless : levels[static_cast<std::size_t>(k)]};
}

bool makeBands(PlotState* s, const float* levels, int n, ContourBands& b) {
  const auto size = static_cast<std::size_t>(n);
  b.n = n;
  b.levels.reset(new (std::nothrow) float[size]);
  b.positions.reset(new (std::nothrow) int[size]);
  b.colors.reset(new (std::nothrow) int[size + 1]);
  if (!b.levels || !b.positions || !b.colors) {
    warnPlain(s, 53);
    return false;
  }
  if (s->bands.bandColorCount > 0 && s->bands.bandColorCount < n)
    warnWithText(s, 162, "More contour levels as defined colours");
  // A level that is no number comes last: nothing lies above it.
  auto valueOf = [levels](int position) {
    const float v = levels[position - 1];
    return std::isnan(v) ? std::numeric_limits<float>::infinity() : v;
  };
  for (int i = 0; i < n; i++) b.positions[static_cast<std::size_t>(i)] = i + 1;
  std::sort(b.positions.get(), b.positions.get() + n, [&](int p, int q) {
    const float v = valueOf(p), w = valueOf(q);
    return v != w ? v < w : p < q;
  });
  for (std::size_t i = 0; i < size; i++) b.levels[i] = valueOf(b.positions[i]);
  const ColorScaleState scale = s->colorScale;
  if (!s->colorScale.barOpen) scaleOverRange(s, b.levels[0], b.levels[size - 1]);
  for (int k = 0; k <= n; k++) b.colors[static_cast<std::size_t>(k)] = colorOfBand(s, b, k);
  s->colorScale = scale;
  return true;
}

} // namespace quilla

using namespace quilla;

void CONCLR(const int* colors, int n) {
  PlotState* s = setterCheck("conclr");
  if (!s || checkRange(s, n, 0, kContourColorLimit)) return;
  s->bands.bandColorCount = n;
  std::copy_n(colors, n, s->bands.bandColors);
}
