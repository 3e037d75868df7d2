// Settings of surfaces and of hidden lines.
#include <cmath>

#include "core/horizon.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "quilla/quilla.h"

using namespace quilla;

void SURVIS(const char* side) {
  PlotState* s = setterCheck("survis");
  if (!s) return;
  if (int found = matchKeyword(s, "AUTO+TOP +BOTT+BOTH", 4, side)) s->surface.visibleSide = found - 1;
}

void SUROPT(const char* lines) {
  PlotState* s = setterCheck("suropt");
  if (!s) return;
  if (int found = matchKeyword(s, "BOTH+XISO+YISO", 3, lines)) s->surface.meshLines = found - 1;
}

void SURCLR(int top, int bottom) {
  PlotState* s = setterCheck("surclr");
  if (!s || checkRange(s, top, -1, -2) || checkRange(s, bottom, -1, -2)) return;
  s->surface.sideColorsGiven = true;
  s->surface.upperColor = top;
  s->surface.lowerColor = bottom;
}

void NOHIDE(void) {
  if (PlotState* s = setterCheck("nohide")) s->surface.hidingOff = true;
}

void SHLSUR(void) {
  if (PlotState* s = setterCheck("shlsur")) s->surface.shieldKept = true;
}

void HIDLIN(const char* mode) {
  PlotState* s = strictCheck(1, 3, "hidlin");
  if (!s) return;
  const int found = matchKeyword(s, "ON  +OFF ", 2, mode);
  if (!found) return;
  flushPath(s);
  s->horizon.on = found == 1;
  s->horizon.mode = found == 1 ? kHorizonDraw : kHorizonTest;
  if (s->horizon.on) horizonReset(s);
}
