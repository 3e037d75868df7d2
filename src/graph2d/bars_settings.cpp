// Setters of bar charts.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

void BARTYP(const char* type) {
  constexpr int kTicks = 5;
  PlotState* s = setterCheck("bartyp");
  if (!s) return;
  int found = matchKeyword(s, "VERT+HORI+3DVE+3DHO+TICK+CAND", 6, type);
  if (found >= kTicks) {
    s->bar.fbarType = found - kTicks;
  } else if (found) {
    s->bar.barType = found - 1;
    s->curve.errorBarHorizontal = s->bar.barType == kBarHorizontal;
  }
}

void BARMOD(const char* mode, const char* key) {
  PlotState* s = setterCheck("barmod");
  if (!s) return;
  int found = matchKeyword(s, "FIXE+VARI", 2, mode);
  if (found && matchKeyword(s, "WIDT", 1, key)) s->bar.barWidthVaries = found == 2;
}

void BARGRP(int n, float gap) {
  PlotState* s = setterCheck("bargrp");
  if (!s || checkRange(s, n, 1, kBarGroups)) return;
  if (!std::isfinite(gap)) return warnPlain(s, 2);
  s->bar.barGroupCount = n;
  s->bar.barGroupGap = gap;
  s->barState.barGroupIndex = 1;
}

void BARWTH(float width) {
  PlotState* s = setterCheck("barwth");
  if (!s) return;
  if (!std::isfinite(width)) return warnPlain(s, 2);
  s->curve.barWidth = width;
}

void BARPOS(const char* mode) {
  PlotState* s = setterCheck("barpos");
  if (!s) return;
  if (int found = matchKeyword(s, "NONE+TICK+AXIS+BOTH", 4, mode)) s->bar.barPositionMode = found - 1;
}

void CHNBAR(const char* mode) {
  PlotState* s = setterCheck("chnbar");
  if (!s) return;
  if (int found = matchKeyword(s, "NONE+COLO+PATT+BOTH", 4, mode)) s->bar.barCycle = found - 1;
}

void BARCLR(int front, int side, int top) {
  PlotState* s = setterCheck("barclr");
  if (!s || checkRange(s, front, -1, -2) || checkRange(s, side, -1, -2) || checkRange(s, top, -1, -2)) return;
  s->bar.barColors[0] = front;
  s->bar.barColors[1] = side;
  s->bar.barColors[2] = top;
}

void BARBOR(int color) {
  PlotState* s = setterCheck("barbor");
  if (s && !checkRange(s, color, -1, -2)) s->bar.barBorderColor = color;
}

void BAROPT(float depth, float angle) {
  PlotState* s = setterCheck("baropt");
  if (!s) return;
  if (!std::isfinite(depth) || !std::isfinite(angle)) return warnPlain(s, 2);
  s->bar.bar3dDepth = depth;
  s->bar.bar3dAngle = angle;
}
