#include "graph2d/chart_labels.h"

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

namespace quilla {

ChartWord chartWord(const char* word) {
  char key[5];
  keyOf(word, key);
  key[3] = 0;
  return static_cast<ChartWord>(findKeyword("BAR +PIE +DAT +PER +CON ", 5, key));
}

bool setChartLabels(PlotState* s, const char* kind, const char* word) {
  switch (chartWord(word)) {
  case kWordBars:
    if (int found = matchKeyword(s, "NONE+SECO+FIRS+MAXI+MINI+DELT+POSI", 7, kind)) s->bar.barLabelMode = found - 1;
    return true;
  case kWordPie:
    if (int found = matchKeyword(s, "NONE+PERC+DATA+BOTH", 4, kind)) s->pie.pieLabelMode = found - 1;
    return true;
  case kWordContour:
    if (int found = matchKeyword(s, "NONE+FLOA+CONL", 3, kind)) s->contour.contourLabelMode = found - 1;
    return true;
  default: return false;
  }
}

bool setChartLabelDigits(PlotState* s, int digits, const char* word) {
  switch (chartWord(word)) {
  case kWordBars: s->bar.barLabelDigits = digits; return true;
  case kWordPie: s->pie.pieDataDigits = s->pie.piePercentDigits = digits; return true;
  case kWordData: s->pie.pieDataDigits = digits; return true;
  case kWordPercent: s->pie.piePercentDigits = digits; return true;
  case kWordContour: s->contour.contourLabelDigits = digits; return true;
  default: return false;
  }
}

bool setChartLabelDistance(PlotState* s, int distance, const char* word) {
  constexpr int kLongestDistance = 10000;
  if (chartWord(word) != kWordContour) return false;
  if (!checkRange(s, distance, 1, kLongestDistance)) s->contour.contourLabelDistance = distance;
  return true;
}

bool setChartLabelPlace(PlotState* s, const char* place, const char* word) {
  constexpr int kBarPlaces[] = {kBarLabelAuto,   kBarLabelInside, kBarLabelOutside, kBarLabelBefore,
                                kBarLabelBefore, kBarLabelBehind, kBarLabelBehind,  kBarLabelCenter};
  switch (chartWord(word)) {
  case kWordBars:
    if (int found = matchKeyword(s, "AUTO+INSI+OUTS+LEFT+ABOV+RIGH+BELO+CENT", 8, place))
      s->bar.barLabelPosition = kBarPlaces[found - 1];
    return true;
  case kWordPie:
    if (int found = matchKeyword(s, "INTE+EXTE+ALIG", 3, place)) s->pie.pieLabelPlace = found - 1;
    return true;
  default: return false;
  }
}

bool setChartLabelType(PlotState* s, const char* type, const char* word) {
  switch (chartWord(word)) {
  case kWordPie:
    if (int found = matchKeyword(s, "CENT+LEFT+RIGH+TYPS+OUTW+INWA", 6, type)) s->pie.pieLabelJustify = found - 1;
    return true;
  case kWordContour:
    if (int found = matchKeyword(s, "HORI+VERT", 2, type)) s->contour.contourLabelAcross = found == 2;
    return true;
  default: return false;
  }
}

} // namespace quilla

using namespace quilla;

void LABCLR(int color, const char* chart) {
  PlotState* s = setterCheck("labclr");
  if (!s || checkRange(s, color, -1, -2)) return;
  switch (chartWord(chart)) {
  case kWordBars: s->bar.barLabelColor = color; return;
  case kWordPie: s->pie.pieLabelColor = color; return;
  case kWordContour: s->contour.contourLabelColor = color; return;
  default: return warnWithString(s, 2, chart);
  }
}
