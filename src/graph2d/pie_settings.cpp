// Setters of pie charts.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

void CHNPIE(const char* mode) {
  PlotState* s = setterCheck("chnpie");
  if (!s) return;
  if (int found = matchKeyword(s, "NONE+COLO+PATT+BOTH", 4, mode)) s->pie.pieCycle = found - 1;
}

void PIEVEC(int kind, const char* mode) {
  constexpr int kLargestKind = 9999;
  PlotState* s = setterCheck("pievec");
  if (!s || checkRange(s, kind, 0, kLargestKind)) return;
  int found = matchKeyword(s, "BROK+STRA+NONE", 3, mode);
  if (!found) return;
  s->pie.pieVectorKind = kind;
  s->pie.pieVectorMode = found - 1;
}

void PIETYP(const char* type) {
  PlotState* s = setterCheck("pietyp");
  if (!s) return;
  if (int found = matchKeyword(s, "2D  +3D  ", 2, type)) s->pie.pie3d = found == 2;
}

void PIEEXP(void) {
  if (PlotState* s = setterCheck("pieexp")) s->pie.pieExplode = true;
}

void PIEOPT(float angle, float depth) {
  constexpr float kDeepest = 10.0F;
  PlotState* s = setterCheck("pieopt");
  if (!s) return;
  if (!std::isfinite(angle) || !(depth >= 0.0F && depth <= kDeepest)) return warnPlain(s, 2);
  s->pie.pieAngle = angle;
  s->pie.pieDepth = depth;
}

void PIEROT(float angle) {
  PlotState* s = setterCheck("pierot");
  if (!s) return;
  if (!std::isfinite(angle)) return warnPlain(s, 2);
  s->pie.pieRotation = angle;
}

void PIEVAL(float value, const char* key) {
  PlotState* s = setterCheck("pieval");
  if (!s) return;
  int found = matchKeyword(s, "GAP +DIST", 2, key);
  if (!found) return;
  if (!std::isfinite(value)) return warnPlain(s, 2);
  (found == 1 ? s->pie.pieGap : s->pie.pieDistance) = value;
}

void PIECLR(const int* colors, const int* sideColors, int n) {
  PlotState* s = setterCheck("pieclr");
  if (!s || checkRange(s, n, 0, kPieColors)) return;
  for (int i = 0; i < n; i++) {
    if (checkRange(s, colors[i], -1, -2) || checkRange(s, sideColors[i], -1, -2)) return;
  }
  s->pie.pieColorCount = n;
  for (int i = 0; i < n; i++) {
    s->pie.pieColors[i] = colors[i];
    s->pie.pieSideColors[i] = sideColors[i];
  }
}

void PIEBOR(int color) {
  PlotState* s = setterCheck("piebor");
  if (s && !checkRange(s, color, -1, -2)) s->pie.pieBorderColor = color;
}

void PIELAB(const char* text, const char* key) {
  PlotState* s = setterCheck("pielab");
  if (!s) return;
  int found = matchKeyword(s, "LEFT+RIGH", 2, key);
  if (found) copyText(found == 1 ? s->pie.pieLabelLeft : s->pie.pieLabelRight, text, kPieLabelPart);
}

void PIECBK(void (*routine)(int, float, float, int*, int*, float*, int*, int*, int*, int*)) {
  if (PlotState* s = strictCheck(1, 3, "piecbk")) s->pie.pieCallback = routine;
}
