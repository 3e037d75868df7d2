// Open-high-low-close bars: ticks and candles.
#include <cmath>
#include <initializer_list>

#include "core/colors.h"
#include "core/levels.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph2d/area.h"
#include "graph2d/bars.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// One bar in plot coordinates.
struct Quote {
  float x, open, high, low, close;
  float half; // width
};

void takeColor(PlotState* s, int color) {
  if (s->color.currentColor != color) setColor(s, color);
}

void drawSegment(PlotState* s, float x0, float y0, float x1, float y1) {
  penMove(s, x0, y0);
  penDraw(s, x1, y1);
}

// Colours of line, left and right (or falling and rising).
struct QuoteColors {
  int line, falling, rising;
  bool fallingFilled;
};

void drawTicks(PlotState* s, const Quote& q, const QuoteColors& c) {
  takeColor(s, c.line);
  drawSegment(s, q.x, q.low, q.x, q.high);
  takeColor(s, c.falling);
  drawSegment(s, q.x - q.half, q.open, q.x, q.open);
  takeColor(s, c.rising);
  drawSegment(s, q.x, q.close, q.x + q.half, q.close);
}

// The body stands on the page: its upper edge has the smaller coordinate.
void drawCandle(PlotState* s, const Quote& q, const QuoteColors& c, bool rising) {
  float top = std::fmin(q.open, q.close), bottom = std::fmax(q.open, q.close);
  takeColor(s, c.line);
  drawSegment(s, q.x, q.high, q.x, top);
  drawSegment(s, q.x, bottom, q.x, q.low);
  float x[4] = {q.x - q.half, q.x - q.half, q.x + q.half, q.x + q.half}, y[4] = {top, bottom, bottom, top};
  s->shading.shadePattern = rising || c.fallingFilled ? kPatternSolid : kPatternNone;
  int color = rising ? c.rising : c.falling;
  drawArea(s, x, y, 4, color, s->bar.barBorderColor >= 0 ? s->bar.barBorderColor : color);
}

} // namespace

void FBARS(const float* x, const float* open, const float* high, const float* low, const float* close, int n) {
  PlotState* s = strictCheck(2, 3, "fbars");
  if (!s || n < 1 || !barLogarithmsExist(s, kAxisX, x, n)) return;
  for (const float* values : {open, high, low, close}) {
    if (!barLogarithmsExist(s, kAxisY, values, n)) return;
  }
  KeptPen kept = keepPen(s);
  bool outer = s->internalCoordinates;
  s->internalCoordinates = true;
  const int* colors = s->bar.barColors;
  auto colorOf = [&](int k) { return colors[k] >= 0 ? colors[k] : kept.color; };
  QuoteColors quoteColors = {colorOf(0), colorOf(1), colorOf(2), colors[1] >= 0};
  float half = barRoom(s, barDistance(s, x, n, kAxisX)) / 2.0F;
  axisClipOn(s);
  for (int i = 0; i < n && !stopRequested(); i++) {
    auto at = [&](const float* values) { return static_cast<float>(roundHalfUp(plotY(s, values[i]))); };
    bool number = std::isfinite(plotX(s, x[i])) && std::isfinite(plotY(s, open[i])) &&
                  std::isfinite(plotY(s, high[i])) && std::isfinite(plotY(s, low[i])) &&
                  std::isfinite(plotY(s, close[i])) && std::isfinite(half);
    if (!number) {
      if (s->curve.nanMode != 0) s->counters.nanCount++;
      continue;
    }
    Quote quote = {static_cast<float>(roundHalfUp(plotX(s, x[i]))), at(open), at(high), at(low), at(close), half};
    if (s->bar.fbarType == kBarTicks) {
      drawTicks(s, quote, quoteColors);
    } else {
      drawCandle(s, quote, quoteColors, open[i] < close[i]);
    }
  }
  flushPath(s);
  axisClipOff(s);
  restorePen(s, kept);
  s->internalCoordinates = outer;
}
