// Drawing a legend.
#include "graph2d/legend.h"

#include <algorithm>
#include <cstdlib>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/shields.h"
#include "graph2d/area.h"
#include "graph2d/legend_layout.h"
#include "graph2d/symbols.h"
#include "quilla/quilla.h"
#include "text/text.h"

using namespace quilla;

namespace {

constexpr int kCorners = 10;
constexpr int kUndefinedLine = 149;

const LegendRecord& recordOf(const PlotState* s, int line) {
  const LegendState& state = s->legendState;
  return state.handMode ? state.byHand[line - 1] : state.drawn[line - 1];
}

// More lines than curves, lines without attributes, selections beyond the lines.
void reportLines(PlotState* s) {
  const LegendGroup& g = s->legend;
  const LegendState& state = s->legendState;
  if (!state.handMode) {
    if (g.legendLines > state.drawnCount) warnWithNumber(s, 42, g.legendLines - state.drawnCount);
  } else {
    setCustomMessage(s, "Undefined legend line");
    for (int line = 1; line <= g.legendLines; line++) {
      if (!state.byHand[line - 1].given) warnWithNumber(s, kUndefinedLine, line);
    }
  }
  setCustomMessage(s, "Undefined legend line by legsel");
  for (int i = 0; i < g.legendSelectionCount; i++) {
    if (g.legendSelection[i] > g.legendLines) warnWithNumber(s, kUndefinedLine, g.legendSelection[i]);
  }
}

struct Spot {
  int x, y;
};

// Upper left corner of the legend, its frame included.
Spot placeOf(const PlotState* s, const LegendLayout& l, int corner) {
  const LegendGroup& g = s->legend;
  if (!g.legendAutoPosition) return {g.legendX, g.legendY};
  int w = l.boxWidth + 2 * l.frame, h = l.boxHeight + 2 * l.frame, m = l.margin;
  int left = m - s->page.originX, right = s->geometry.pageWidth - s->page.originX - m - w;
  int top = m - s->page.originY, bottom = s->geometry.pageHeight - s->page.originY - m - h;
  int axisLeft = s->axis.axisPosX, axisRight = s->scaling.axisRightX;
  int axisBottom = s->axis.axisPosY, axisTop = s->scaling.axisTopY;
  int middle = (axisBottom + axisTop) / 2 - h / 2;
  switch (corner) {
  case 1: return {left, bottom};
  case 2: return {right, bottom};
  case 3: return {right, top};
  case 4: return {left, top};
  case 5: return {axisLeft + m, axisBottom - m - h + 2};
  case 6: return {axisRight - m - w + 2, axisBottom - m - h + 2};
  case 7: return {axisRight - m - w + 2, axisTop + m};
  case 8: return {axisLeft + m, axisTop + m};
  case 9: return {left, middle};
  default: return {right, middle};
  }
}

void drawBox(PlotState* s, const LegendLayout& l, Spot corner) {
  int x1 = corner.x + l.boxWidth + 2 * l.frame - 1, y1 = corner.y + l.boxHeight + 2 * l.frame - 1;
  if (s->legend.legendBackground >= 0 && s->area.backgroundsDrawn)
    fillBox(s, corner.x, corner.y, x1, y1, s->legend.legendBackground);
  int kept = s->color.currentColor;
  if (s->axis.frameColor >= 0) setColor(s, s->axis.frameColor);
  for (int i = 0; i < l.frame; i++) {
    float left = static_cast<float>(corner.x + i), top = static_cast<float>(corner.y + i);
    float right = static_cast<float>(x1 - i), bottom = static_cast<float>(y1 - i);
    penMove(s, left, top);
    penDraw(s, left, bottom);
    penDraw(s, right, bottom);
    penDraw(s, right, top);
    penDraw(s, left, top);
  }
  if (s->axis.frameColor >= 0) setColor(s, kept);
}

void takeLine(PlotState* s, const LegendRecord& record) {
  setLineType(s, record.line.lineStyleIndex);
  if (record.lineByType) return;
  int width = record.line.lineWidthSetting, present = s->line.lineWidthSetting;
  if (width != present) setLineWidth(s, std::abs(width));
  width = s->line.lineWidthSetting;
  s->line = record.line;
  s->line.lineWidthSetting = width;
}

// A thick sample is drawn as a thick curve is: side by side at 0, +1, -1, +2, -2, ...
void drawSampleLine(PlotState* s, const LegendRecord& record, float x0, float x1, float y) {
  float unit = s->pageSetup.unitFactor;
  int passes = std::max(roundHalfUp(static_cast<float>(record.thickness) * unit), 1);
  for (int p = 1; p <= passes; p++) {
    s->dash.lineGapSize = static_cast<float>(p % 2 == 0 ? p / 2 : -(p / 2)) / unit;
    resetDash(s);
    penMove(s, x0, y);
    penDraw(s, x1, y);
  }
  flushPath(s);
  s->dash.lineGapSize = 0.0F;
}

void drawSampleArea(PlotState* s, const LegendRecord& record, Spot corner, int width, int height, int border) {
  s->shading = record.shading;
  float x0 = static_cast<float>(corner.x), x1 = static_cast<float>(corner.x + width);
  float y0 = static_cast<float>(corner.y), y1 = static_cast<float>(corner.y + height - 1);
  float xs[4] = {x0, x0, x1, x1}, ys[4] = {y0, y1, y1, y0};
  drawArea(s, xs, ys, 4, s->color.currentColor, border);
}

// corner: of the cell on the page.
void drawSample(PlotState* s, const LegendLayout& l, const LegendCell& cell, Spot corner, const KeptPen& kept) {
  const LegendRecord& record = recordOf(s, cell.line);
  if (!record.given) return;
  int h = s->text.textHeight, sampleY = corner.y + (cell.height - h) / 2;
  float x0 = static_cast<float>(corner.x), x1 = static_cast<float>(corner.x + l.sampleWidth);
  float y = static_cast<float>(sampleY) + static_cast<float>(h) / 2.0F;
  int color = record.color >= 0 ? record.color : kept.color;
  setColor(s, color);
  if (record.shaded) drawSampleArea(s, record, {corner.x, sampleY}, l.sampleWidth, h, kept.color);
  if (record.lineDrawn) {
    setColor(s, color);
    takeLine(s, record);
    drawSampleLine(s, record, x0, x1, y);
    restorePen(s, kept);
    setLineType(s, 0);
  }
  if (record.symbol >= 0) {
    setColor(s, record.symbolColor >= 0 ? record.symbolColor : color);
    int height = std::max(roundHalfUp(s->legend.legendSymbolScale * static_cast<float>(h)), 1);
    drawSymbol(s, record.symbol, height, (x0 + x1) / 2.0F, y);
  }
}

void drawTexts(PlotState* s, const char* buffer, const LegendLayout& l, Spot box, int color) {
  int h = s->text.textHeight;
  char text[kLegendLineLength + 1];
  for (int k = 0; k < l.count; k++) {
    const LegendCell& cell = l.cells[k];
    legendLineText(s, buffer, cell.line, text);
    const LegendRecord& record = recordOf(s, cell.line);
    bool colored = s->legend.legendColorFromCurve && record.given && record.color >= 0;
    int wanted = colored ? record.color : color;
    if (s->color.currentColor != wanted) setColor(s, wanted);
    int y = box.y + cell.y + (cell.height - (cell.rows - 1) * l.rowStep - h) / 2;
    char* rest = text;
    while (char* piece = nextLegendPiece(s, rest)) {
      if (piece[0]) textAtWith(s, piece, box.x + cell.textX, y, 0, h);
      y += l.rowStep;
    }
  }
}

void drawLegend(PlotState* s, const char* buffer, int corner) {
  LegendLayout layout;
  layOutLegend(s, buffer, layout);
  Spot place = placeOf(s, layout, corner);
  Spot box = {addCoordinates(place.x, layout.frame), addCoordinates(place.y, layout.frame)};
  // The region of an earlier legend would cut this one; curves to come keep out of it.
  bool shielded = s->shield.shieldAreaOn[kShieldLegends - 1];
  if (shielded) deleteShieldClass(s, kShieldLegends);
  KeptPen kept = keepPen(s);
  setLineType(s, 0);
  drawBox(s, layout, place);
  if (s->legend.legendTitle[0])
    textAtWith(s, s->legend.legendTitle, box.x + layout.titleX, box.y + layout.margin, 0, s->text.textHeight);
  if (layout.sampleWidth > 0) {
    for (int k = 0; k < layout.count; k++) {
      const LegendCell& cell = layout.cells[k];
      drawSample(s, layout, cell, {box.x + cell.x, box.y + cell.y}, kept);
    }
  }
  drawTexts(s, buffer, layout, box, kept.color);
  restorePen(s, kept);
  if (shielded) {
    int region[] = {addCoordinates(place.x, s->page.originX), addCoordinates(place.y, s->page.originY),
                    layout.boxWidth + 2 * layout.frame, layout.boxHeight + 2 * layout.frame};
    addShield(s, kShieldRectangle, kShieldLegends, region);
  }
}

// Width or height of the whole box; 0 after a message.
int boxSize(const char* name, const char* buffer, bool width) {
  PlotState* s = strictCheck(1, 3, name);
  if (!s) return 0;
  if (!s->legend.legendReady) {
    warnPlain(s, 15);
    return 0;
  }
  LegendLayout layout;
  layOutLegend(s, buffer, layout);
  return (width ? layout.boxWidth : layout.boxHeight) + 2 * layout.frame;
}

} // namespace

void LEGEND(const char* buffer, int corner) {
  PlotState* s = strictCheck(2, 3, "legend");
  if (!s) return;
  if (!s->legend.legendReady) return warnPlain(s, 15);
  if (s->legend.legendAutoPosition && checkRange(s, corner, 1, kCorners)) return;
  reportLines(s);
  bool outer = s->internalCoordinates;
  s->internalCoordinates = true;
  drawLegend(s, buffer, corner);
  s->internalCoordinates = outer;
  copyText(s->level.routineName, "legend", kRoutineNameLength);
}

int NXLEGN(const char* buffer) { return boxSize("nxlegn", buffer, true); }
int NYLEGN(const char* buffer) { return boxSize("nylegn", buffer, false); }
