// Setters of contour lines. Those of their labels that have a word for it (LABELS, LABDIS, ...) stand with the axes.
#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

void CONLAB(const char* text) {
  if (PlotState* s = setterCheck("conlab")) copyText(s->contour.contourLabelText, text, kContourTextLength);
}

void CONGAP(float factor) {
  PlotState* s = setterCheck("congap");
  if (!s) return;
  if (!(factor >= 0.0F)) return warnPlain(s, 2);
  s->contour.contourGapFactor = factor;
}

void CONMOD(float stretch, float curvature) {
  PlotState* s = setterCheck("conmod");
  if (!s) return;
  if (!(stretch >= 0.0F) || !(curvature > 1.0F)) return warnPlain(s, 2);
  s->contour.contourStretchFactor = stretch;
  s->contour.contourCurvatureLimit = curvature;
}

void CONANG(float degrees) {
  constexpr float kFullTurn = 360.0F;
  PlotState* s = setterCheck("conang");
  if (!s) return;
  if (!(degrees >= 0.0F && degrees <= kFullTurn)) return warnPlain(s, 2);
  s->contour.contourAngleTolerance = degrees;
}
