#include "graph2d/legend_layout.h"

#include <algorithm>
#include <cmath>

#include "core/page.h"
#include "graph2d/legend.h"
#include "text/text.h"

namespace quilla {

namespace {

// A size in character heights, or with a negative value in plot units.
int sizeOf(const PlotState* s, float value) {
  float size = value < 0.0F ? -value : value * static_cast<float>(s->text.textHeight);
  return limitedDistance(roundHalfUp(size));
}

// Rows and columns of cells, and how their numbers follow each other.
struct Grid {
  int rows, columns;
  bool byRows; // the next cell is the next column
};

Grid gridOf(const LegendGroup& g, int count) {
  int across = std::min(g.legendTableCount, std::max(count, 1));
  switch (g.legendType) {
  case kLegendHorizontal: return {1, count, true};
  case kLegendTable:
    if (g.legendTableByRows) return {(count + across - 1) / across, across, true};
    return {across, (count + across - 1) / across, false};
  default: return {count, 1, false};
  }
}

int rowOf(const Grid& g, int k) { return g.byRows ? k / g.columns : k % g.rows; }
int columnOf(const Grid& g, int k) { return g.byRows ? k % g.columns : k / g.rows; }

int selectedLines(const LegendGroup& g, LegendCell cells[]) {
  int count = 0;
  if (g.legendSelectionCount < 0) {
    for (int line = 1; line <= g.legendLines; line++) cells[count++].line = line;
    return count;
  }
  for (int i = 0; i < g.legendSelectionCount; i++) {
    if (g.legendSelection[i] <= g.legendLines) cells[count++].line = g.legendSelection[i];
  }
  return count;
}

// Width and number of rows of a line's texts.
int measureLine(PlotState* s, const char* buffer, LegendCell& cell) {
  char text[kLegendLineLength + 1];
  legendLineText(s, buffer, cell.line, text);
  int width = 0;
  cell.rows = 0;
  char* rest = text;
  while (char* piece = nextLegendPiece(s, rest)) {
    width = std::max(width, textLength(s, piece));
    cell.rows++;
  }
  return width;
}

} // namespace

char* nextLegendPiece(const PlotState* s, char*& rest) {
  char* piece = rest;
  if (!piece) return nullptr;
  rest = nullptr;
  if (!s->legend.legendMultipleLines) return piece;
  for (char* c = piece; *c; c++) {
    if (*c != s->text.mixLegend) continue;
    *c = 0;
    rest = c + 1;
    break;
  }
  return piece;
}

void layOutLegend(PlotState* s, const char* buffer, LegendLayout& l) {
  constexpr float kLeastPattern = 0.001F;
  constexpr int kLargestStep = 5 * kHighestHeight; // the sum of all rows stays an integer
  const LegendGroup& g = s->legend;
  int h = s->text.textHeight;
  l.count = selectedLines(g, l.cells);
  l.margin = sizeOf(s, g.legendMargin);
  l.frame = std::clamp(s->axis.frameThickness, 0, s->geometry.pageWidth);
  bool samples = g.legendPatternLength > kLeastPattern;
  l.sampleWidth = samples ? sizeOf(s, g.legendPatternLength) : 0;
  int distance = samples ? sizeOf(s, g.legendSampleDistance) : 0, gap = sizeOf(s, g.legendColumnGap);
  l.rowStep = std::clamp(roundHalfUp(s->axis.lineSpacing * static_cast<float>(h)), h, kLargestStep);

  Grid grid = gridOf(g, l.count);
  int widths[kLegendLines] = {}, rows[kLegendLines] = {};
  for (int k = 0; k < l.count; k++) {
    int width = measureLine(s, buffer, l.cells[k]);
    int &column = widths[columnOf(grid, k)], &row = rows[rowOf(grid, k)];
    column = std::max(column, width);
    row = std::max(row, l.cells[k].rows);
  }

  int usedColumns = l.count == 0 ? 0 : grid.byRows ? std::min(l.count, grid.columns) : grid.columns;
  int usedRows = l.count == 0 ? 0 : grid.byRows ? grid.rows : std::min(l.count, grid.rows);
  int content = usedColumns > 1 ? (usedColumns - 1) * gap : 0;
  for (int c = 0; c < usedColumns; c++) content += widths[c] + l.sampleWidth + distance;
  int titleWidth = g.legendTitle[0] ? textLength(s, g.legendTitle) : 0;
  int inner = std::max(content, titleWidth);
  l.boxWidth = inner + 2 * l.margin;
  l.titleX = (l.boxWidth - titleWidth) / 2;

  int y = l.margin;
  if (titleWidth > 0) y += h + (usedRows > 0 ? sizeOf(s, g.legendLineGap) : 0);
  int rowY[kLegendLines] = {}, columnX[kLegendLines] = {};
  for (int r = 0; r < usedRows; r++) {
    rowY[r] = y;
    y += rows[r] * l.rowStep;
  }
  if (usedRows > 0) y -= l.rowStep - h;
  l.boxHeight = y + l.margin;

  int x = l.margin + (inner - content) / 2;
  for (int c = 0; c < usedColumns; c++) {
    columnX[c] = x;
    x += l.sampleWidth + distance + widths[c] + gap;
  }
  for (int k = 0; k < l.count; k++) {
    LegendCell& cell = l.cells[k];
    int row = rowOf(grid, k);
    cell.x = columnX[columnOf(grid, k)];
    cell.y = rowY[row];
    cell.textX = cell.x + l.sampleWidth + distance;
    cell.height = (rows[row] - 1) * l.rowStep + h;
  }
}

} // namespace quilla
