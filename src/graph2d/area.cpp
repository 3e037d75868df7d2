#include "graph2d/area.h"

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/sink.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

constexpr int kUsualChords = 180, kLeastChords = 8; // of a whole turn

int luminance(const PlotState* s, int color) {
  int r = 0, g = 0, b = 0;
  colorComponents(s, color, r, g, b);
  return (299 * r + 587 * g + 114 * b) / 1000;
}

} // namespace

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
  if (s->shading.shadePattern != kPatternNone && s->area.areasFilled) {
    if (s->color.currentColor != fillColor) setColor(s, fillColor);
    fillPolygon(s, x, y, n);
  }
  if (s->color.currentColor != borderColor) setColor(s, borderColor);
  if (!s->area.outlinesDrawn) return;
  penMove(s, x[0], y[0]);
  for (int i = 1; i < n; i++) penDraw(s, x[i], y[i]);
  penDraw(s, x[0], y[0]);
}

int visibleColor(const PlotState* s, int setting, int current, int fill) {
  constexpr int kTooClose = 50, kBright = 140; // of 255
  if (setting >= 0) return setting;
  if (s->shading.shadePattern != kPatternSolid) return current;
  int text = luminance(s, current), ground = luminance(s, fill);
  if (text - ground > kTooClose || ground - text > kTooClose) return current;
  return ground > kBright ? directColor(0, 0, 0) : directColor(255, 255, 255);
}

void fillBox(PlotState* s, int x0, int y0, int x1, int y1, int color) {
  flushPath(s);
  qqbar(s, static_cast<float>(x0), static_cast<float>(y0), static_cast<float>(x1), static_cast<float>(y1), color);
}

int chordsOfTurn(const PlotState* s, float radius) {
  constexpr float kTwoPi = 6.2831853F;
  if (s->area.circleSpacing < 1) return kUsualChords;
  const float wanted = kTwoPi * radius / static_cast<float>(s->area.circleSpacing);
  return wanted < kLeastChords ? kLeastChords : wanted < kMostChords ? static_cast<int>(wanted) : kMostChords;
}

void fillCut(PlotState* s, float x0, float y0, float x1, float y1, int color) {
  if (x0 > x1) std::swap(x0, x1);
  if (y0 > y1) std::swap(y0, y1);
  if (s->transform.transformOn || s->shield.shieldCount > 0) {
    const float xs[] = {x0, x1, x1, x0}, ys[] = {y0, y0, y1, y1};
    setColor(s, color);
    return fillSolid(s, xs, ys, 4);
  }
  const ClipGroup& c = s->clip;
  const auto originX = static_cast<float>(s->page.originX), originY = static_cast<float>(s->page.originY);
  const float left = std::max(x0, static_cast<float>(c.clipX0) - originX);
  const float right = std::min(x1, static_cast<float>(c.clipX1) - originX);
  const float top = std::max(y0, static_cast<float>(c.clipY0) - originY);
  const float bottom = std::min(y1, static_cast<float>(c.clipY1) - originY);
  if (left <= right && top <= bottom) qqbar(s, left, top, right, bottom, color);
}

AreaGroup defaultAreaGroup() {
  constexpr int kPredefined = 17; // patterns
  AreaGroup g;
  for (int i = 0; i < kCycleLength; i++) g.patternCycle[i] = i % kPredefined + 1;
  return g;
}

} // namespace quilla

using namespace quilla;

void PATCYC(int i, int pattern) {
  PlotState* s = setterCheck("patcyc");
  if (s && !checkRange(s, i, 1, kCycleLength) && !checkRange(s, pattern, 0, -1)) s->area.patternCycle[i - 1] = pattern;
}

void NOARLN(void) {
  if (PlotState* s = setterCheck("noarln")) s->area.outlinesDrawn = false;
}

void NOFILL(void) {
  if (PlotState* s = setterCheck("nofill")) s->area.areasFilled = false;
}

void NOBGD(void) {
  if (PlotState* s = setterCheck("nobgd")) s->area.backgroundsDrawn = false;
}

void CIRCSP(int spacing) {
  PlotState* s = setterCheck("circsp");
  if (s && !checkRange(s, spacing, 0, -1)) s->area.circleSpacing = spacing;
}
