// What curves, bars and areas leave behind for the lines of a legend.
#include <cstring>

#include "core/levels.h"
#include "graph2d/legend.h"

namespace quilla {

namespace {

LegendRecord* nextRecord(PlotState* s) {
  int number = s->cycle.curveCounter;
  if (number < 1 || number > kLegendLines) return nullptr;
  LegendState& state = s->legendState;
  if (number > state.drawnCount) state.drawnCount = number;
  LegendRecord& record = state.drawn[number - 1];
  record = LegendRecord{};
  record.given = true;
  record.line = s->line;
  record.color = s->color.currentColor;
  return &record;
}

void recordShading(PlotState* s) {
  LegendRecord* record = nextRecord(s);
  if (!record) return;
  record->shaded = true;
  record->shading = s->shading;
}

void recordLine(PlotState* s) {
  LegendRecord* record = nextRecord(s);
  if (!record) return;
  record->lineDrawn = s->curve.markerStep >= 0;
  record->thickness = s->curve.curveThickness;
  record->symbol = s->curve.markerStep != 0 ? s->curve.markerKind : -1;
  record->symbolColor = s->curve.markerColor;
}

// A record of its own for what is no curve: a curve of the present number has its record already.
void recordApart(PlotState* s, void (*record)(PlotState*)) {
  if (!s->cycle.legendEntryPending) s->cycle.curveCounter++;
  record(s);
  s->cycle.curveCounter++;
  s->cycle.legendEntryPending = true;
}

} // namespace

void recordCurve(PlotState* s) {
  s->cycle.legendEntryPending = false;
  if (s->curve.curveMode == kCurveFilledBars && s->curve.markerStep >= 0) {
    ShadingGroup kept = s->shading;
    s->shading.shadePattern = kPatternSolid;
    recordShading(s);
    s->shading = kept;
    return;
  }
  recordLine(s);
}

void recordArea(PlotState* s) {
  s->cycle.legendEntryPending = false;
  recordShading(s);
}

void recordChart(PlotState* s) { recordApart(s, recordShading); }
void recordContour(PlotState* s) { recordApart(s, recordLine); }

void forgetRecords(PlotState* s) {
  for (int i = 0; i < s->legendState.drawnCount; i++) s->legendState.drawn[i].given = false;
  s->legendState.drawnCount = 0;
  s->legend.legendInProgress = false;
}

void legendLineText(const PlotState* s, const char* buffer, int i, char text[kLegendLineLength + 1]) {
  int length = s->legend.legendLineLength, n = 0;
  const char* line = buffer + static_cast<std::ptrdiff_t>(i - 1) * length;
  while (n < length && n < kLegendLineLength && line[n]) n++;
  while (n > 0 && line[n - 1] == ' ') n--;
  std::memcpy(text, line, static_cast<std::size_t>(n));
  text[n] = 0;
}

int legendBufferLength() {
  const PlotState* s = existingPlotState();
  return s ? s->legend.legendLines * s->legend.legendLineLength : 0;
}

} // namespace quilla
