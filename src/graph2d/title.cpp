// The title block above or below the axis system.
#include "core/levels.h"
#include "core/pipeline.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/axis_system.h"
#include "graph2d/color_bar.h"
#include "quilla/quilla.h"
#include "text/text.h"

namespace quilla {

namespace {

constexpr int kAbove = 0;

int titleHeightOf(const PlotState* s) { return s->axis.titleHeight > 0 ? s->axis.titleHeight : s->text.textHeight; }

// Upper edge of title line i (from 1).
int titleY(PlotState* s, int line) {
  const AxisGroup& a = s->axis;
  float h = static_cast<float>(titleHeightOf(s)), spacing = a.lineSpacing * h;
  float y = 0.0F;
  if (a.titlePosition == kAbove) {
    y = static_cast<float>(a.axisPosY - a.axisLength[kAxisY] - a.titleDistance - sideExtent(s, kSideTop) -
                           colorBarExtent(s, kSideTop)) -
        static_cast<float>(kTitleLines + 1 - line) * spacing - 3.0F * h;
  } else {
    y = static_cast<float>(a.axisPosY - a.titleDistance + sideExtent(s, kSideBottom) + colorBarExtent(s, kSideBottom)) +
        static_cast<float>(line - 1) * spacing + 4.0F * h;
  }
  return static_cast<int>(y);
}

void underline(PlotState* s, int x, int y, int length, int h) {
  float line = static_cast<float>(y) + 1.2F * static_cast<float>(h), half = 0.5F * static_cast<float>(h);
  penMove(s, static_cast<float>(x) - half, line);
  penDraw(s, static_cast<float>(x + length) + half, line);
}

} // namespace

int titleExtent(PlotState* s) {
  if (s->axis.titlePosition != kAbove) return 0;
  for (int line = 1; line <= kTitleLines; line++) {
    if (s->axis.titleLine[line - 1][0]) return s->axis.axisPosY - s->axis.axisLength[kAxisY] - titleY(s, line);
  }
  return 0;
}

void drawTitle(PlotState* s) {
  constexpr int kLeft = 1, kRight = 2;
  const AxisGroup& a = s->axis;
  int height = s->text.textHeight, h = titleHeightOf(s);
  for (int line = 1; line <= kTitleLines; line++) {
    const char* text = a.titleLine[line - 1];
    if (!text[0]) continue;
    setTextHeight(s, h);
    int length = textLength(s, text);
    setTextHeight(s, height);
    int room = a.axisLength[kAxisX] - length, y = titleY(s, line);
    int x = a.axisPosX + (a.titleJustify == kLeft ? 0 : a.titleJustify == kRight ? room : room / 2);
    textAtWith(s, text, x, y, 0, h);
    if (a.titleUnderlined[line - 1]) underline(s, x, y, length, h);
  }
}

} // namespace quilla

using namespace quilla;

void TITLE(void) {
  PlotState* s = strictCheck(2, 3, "title");
  if (!s) return;
  drawTitle(s);
  flushPath(s);
}
