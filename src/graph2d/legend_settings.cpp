// The buffer of a legend and its setters.
#include <cstring>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/shading.h"
#include "graph2d/legend.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kNoBuffer = 15, kTooLong = 16, kTypeTooLate = 182;
constexpr int kThickest = 10000;

// State for a setter of legends, null after message 15 without LEGINI.
PlotState* legendSetter(const char* name) {
  PlotState* s = setterCheck(name);
  if (!s || s->legend.legendReady) return s;
  warnPlain(s, kNoBuffer);
  return nullptr;
}

} // namespace

void LEGINI(char* buffer, int lines, int length) {
  PlotState* s = strictCheck(1, 3, "legini");
  if (!s || checkRange(s, lines, 1, kLegendLines) || checkRange(s, length, 1, kLegendLineLength)) return;
  std::memset(buffer, ' ', static_cast<std::size_t>(lines) * static_cast<std::size_t>(length));
  buffer[0] = 0;
  LegendGroup fresh;
  fresh.legendType = s->legend.legendType;
  fresh.legendMultipleLines = s->legend.legendMultipleLines;
  fresh.legendLines = lines;
  fresh.legendLineLength = length;
  fresh.legendReady = fresh.legendInProgress = true;
  s->legend = fresh;
  s->legendState.handMode = false;
  for (LegendRecord& record : s->legendState.byHand) record.given = false;
}

void LEGLIN(char* buffer, const char* text, int line) {
  PlotState* s = strictCheck(1, 3, "leglin");
  if (!s) return;
  if (!s->legend.legendReady) return warnPlain(s, kNoBuffer);
  if (checkRange(s, line, 1, s->legend.legendLines)) return;
  std::size_t width = static_cast<std::size_t>(s->legend.legendLineLength), length = text ? std::strlen(text) : 0;
  if (length > width) return warnPlain(s, kTooLong);
  char* place = buffer + static_cast<std::size_t>(line - 1) * width;
  std::memset(place, ' ', width);
  if (length > 0) std::memcpy(place, text, length);
}

void LEGTYP(const char* type) {
  PlotState* s = setterCheck("legtyp");
  if (!s) return;
  if (s->legend.legendInProgress) return warnWithText(s, kTypeTooLate, "legtyp must be called before legini");
  if (int found = matchKeyword(s, "VERT+HORI+TABL", 3, type)) s->legend.legendType = found - 1;
}

void LEGTBL(int n, const char* direction) {
  PlotState* s = legendSetter("legtbl");
  if (!s || checkRange(s, n, 1, -1)) return;
  int found = matchKeyword(s, "VERT+HORI", 2, direction);
  if (!found) return;
  s->legend.legendTableCount = n;
  s->legend.legendTableByRows = found == 2;
}

void LEGPOS(int nx, int ny) {
  PlotState* s = legendSetter("legpos");
  if (!s) return;
  s->legend.legendX = limitedDistance(nx);
  s->legend.legendY = limitedDistance(userY(s, ny));
  s->legend.legendAutoPosition = false;
}

void LEGTIT(const char* title) {
  if (PlotState* s = legendSetter("legtit")) copyText(s->legend.legendTitle, title, kLegendTitleLength);
}

void LEGVAL(float value, const char* key) {
  PlotState* s = legendSetter("legval");
  if (!s) return;
  LegendGroup& g = s->legend;
  float* fields[] = {&g.legendPatternLength, &g.legendMargin,    &g.legendLineGap,
                     &g.legendSymbolScale,   &g.legendColumnGap, &g.legendSampleDistance};
  if (int found = matchKeyword(s, "PATT+MARG+LINE+SYMB+HSPA+DIST", 6, key)) *fields[found - 1] = value;
}

void LEGOPT(float pattern, float margin, float gap) {
  PlotState* s = legendSetter("legopt");
  if (!s) return;
  if (!(pattern >= 0.0F && margin > 0.0F && gap > 0.0F)) return warnPlain(s, 2);
  s->legend.legendPatternLength = pattern;
  s->legend.legendMargin = margin;
  s->legend.legendLineGap = gap;
}

void LEGSEL(const int* lines, int n) {
  PlotState* s = legendSetter("legsel");
  if (!s || checkRange(s, n, -1, kLegendSelections)) return;
  for (int i = 0; i < n; i++) {
    if (checkRange(s, lines[i], 1, -1)) return;
  }
  s->legend.legendSelectionCount = n;
  for (int i = 0; i < n; i++) s->legend.legendSelection[i] = lines[i];
}

void LEGCLR(void) {
  if (PlotState* s = legendSetter("legclr")) s->legend.legendColorFromCurve = true;
}

void LEGBGD(int color) {
  PlotState* s = legendSetter("legbgd");
  if (s && !checkRange(s, color, -1, -2)) s->legend.legendBackground = color;
}

void LEGPAT(int type, int thickness, int symbol, int color, int pattern, int line) {
  PlotState* s = legendSetter("legpat");
  if (!s || checkRange(s, type, -1, kLineTypeCount - 1) || checkRange(s, thickness, 1, kThickest) ||
      checkRange(s, symbol, -1, kHighestSymbol) || checkRange(s, color, -1, -2) || checkRange(s, pattern, -1, -2) ||
      checkRange(s, line, 1, s->legend.legendLines))
    return;
  LegendRecord& record = s->legendState.byHand[line - 1];
  record = LegendRecord{};
  record.given = record.lineByType = true;
  record.lineDrawn = type >= 0;
  record.line.lineStyleIndex = type >= 0 ? type : 0;
  record.thickness = thickness;
  record.symbol = symbol;
  record.color = color;
  // Pattern 0 is an empty box, but not where there is a line or a symbol.
  record.shaded = pattern > 0 || (pattern == 0 && type < 0 && symbol < 0);
  if (record.shaded) {
    ShadingGroup kept = s->shading;
    selectPattern(s, pattern);
    record.shading = s->shading;
    s->shading = kept;
  }
  s->legendState.handMode = true;
}

void MIXLEG(void) {
  if (PlotState* s = setterCheck("mixleg")) s->legend.legendMultipleLines = true;
}
