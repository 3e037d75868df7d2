// The ground of an axis system: its background and its eraser.
#include <cmath>

#include "core/colors.h"
#include "core/levels.h"
#include "core/pipeline.h"
#include "device/sink.h"
#include "graph2d/axis_system.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

constexpr int kChords = 360;
constexpr float kStep = 0.017453292F; // radians of a chord

void fillDisc(PlotState* s, int color) {
  const float r = static_cast<float>(s->axis.axisLength[kAxisX] - 1) / 2.0F;
  float x[kChords], y[kChords];
  for (int i = 0; i < kChords; i++) {
    x[i] = static_cast<float>(s->axis.axisCrossX) + r * std::cos(kStep * static_cast<float>(i));
    y[i] = static_cast<float>(s->axis.axisCrossY) - r * std::sin(kStep * static_cast<float>(i));
  }
  const int kept = s->color.currentColor;
  setColor(s, color);
  fillSolid(s, x, y, kChords);
  setColor(s, kept);
}

} // namespace

void fillSystem(PlotState* s, int color) {
  flushPath(s);
  const int kind = s->axis.axisSystemKind;
  if (kind == kSystemPolar || kind == kSystemRealImaginary) return fillDisc(s, color);
  qqbar(s, static_cast<float>(s->axis.axisPosX), static_cast<float>(s->scaling.axisTopY),
        static_cast<float>(s->scaling.axisRightX), static_cast<float>(s->axis.axisPosY), color);
}

void fillSystemBackground(PlotState* s) {
  if (s->axis.axisBackgroundColor >= 0 && s->area.backgroundsDrawn) fillSystem(s, s->axis.axisBackgroundColor);
}

} // namespace quilla

using namespace quilla;

void AXSERS(void) {
  PlotState* s = strictCheck(2, 3, "axsers");
  if (s) fillSystem(s, s->color.backgroundColor);
}
