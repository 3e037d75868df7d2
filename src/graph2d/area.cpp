#include "graph2d/area.h"

#include "core/colors.h"
#include "core/pipeline.h"
#include "device/sink.h"

namespace quilla {

KeptPen keepPen(PlotState* s) {
  flushPath(s);
  return {s->color.currentColor, s->line, s->dash, s->shading};
}

void restorePen(PlotState* s, const KeptPen& kept) {
  flushPath(s);
  if (s->color.currentColor != kept.color) setColor(s, kept.color);
  int width = kept.line.lineWidthSetting;
  if (s->line.lineWidthSetting != width) setLineWidth(s, width < 0 ? -width : width);
  s->line = kept.line;
  s->dash = kept.dash;
  s->shading = kept.shading;
}

void drawArea(PlotState* s, const float* x, const float* y, int n, int fillColor, int borderColor) {
  if (s->shading.shadePattern != kPatternNone) {
    if (s->color.currentColor != fillColor) setColor(s, fillColor);
    fillPolygon(s, x, y, n);
  }
  if (s->color.currentColor != borderColor) setColor(s, borderColor);
  penMove(s, x[0], y[0]);
  for (int i = 1; i < n; i++) penDraw(s, x[i], y[i]);
  penDraw(s, x[0], y[0]);
}

void fillBox(PlotState* s, int x0, int y0, int x1, int y1, int color) {
  flushPath(s);
  qqbar(s, static_cast<float>(x0), static_cast<float>(y0), static_cast<float>(x1), static_cast<float>(y1), color);
}

void selectPattern(PlotState* s, int number) {
  constexpr int kPredefined[] = {0,     45150, 150450, 135150, 45450, 45151, 135210, 45451, 30140,
                                 45211, 151,   45310,  70470,  45311, 451,   45210,  100,   550};
  constexpr int kLast = 17;
  int code = number <= kLast ? kPredefined[number] : number;
  ShadingGroup& g = s->shading;
  g.shadePattern = number;
  g.shadeAngle = code / 1000 % 180;
  g.shadeType = code % 1000 / 100;
  g.shadeDensity = code % 100 / 10;
  g.shadeCross = code % 2;
}

int cyclePattern(const PlotState*, int i) { return i % 30 + 1; }

} // namespace quilla
