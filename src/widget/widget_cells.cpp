// Cells of tables.
#include <cmath>
#include <cstdlib>

#include "quilla/quilla.h"
#include "widget/widget_maker.h"

using namespace quilla;

namespace {

enum CellKey : int { kCellValue, kCellEdit, kCellAlign, kCellVerify };
constexpr int kHead = -1; // row or column of the head, as the program tells it

// A range of rows and columns as they stand in the block, where 0 is the head.
struct CellRange {
  int firstRow, lastRow, firstColumn, lastColumn;
};

// The table of an id, or null after a message.
CellBlock* tableOf(WidgetContext* c, int id) {
  if (!c) return nullptr;
  WidgetRecord* w = widgetRecord(c, id);
  if (w && w->kind == kWidgetTable && w->table) return w->table.get();
  widgetFault(c, "Not allowed ID");
  return nullptr;
}

// From 1; 0 is all, -1 the head if there is one. False after a message.
bool rangeOf(const WidgetContext* c, int index, int count, bool head, int* first, int* last) {
  *first = index == 0 ? 1 : index == kHead ? 0 : index;
  *last = index == 0 ? count : *first;
  if (index >= 0 ? index <= count : index == kHead && head) return true;
  widgetFault(c, "Value is out of range");
  return false;
}

bool cellsOf(const WidgetContext* c, const CellBlock& b, int row, int column, CellRange* r) {
  return rangeOf(c, row, b.rows, b.headRow, &r->firstRow, &r->lastRow) &&
         rangeOf(c, column, b.columns, b.headColumn, &r->firstColumn, &r->lastColumn);
}

TableCell& cellAt(CellBlock& b, int row, int column) {
  return b.cells[static_cast<std::size_t>(row * (b.columns + 1) + column)];
}

// Applies a change to each cell of a range and shows it. The change tells false after a message.
template <typename Change> void changeCells(WidgetContext* c, int id, const CellRange& r, Change change) {
  CellBlock& b = *widgetRecord(c, id)->table;
  for (int row = r.firstRow; row <= r.lastRow; ++row) {
    for (int column = r.firstColumn; column <= r.lastColumn; ++column) {
      if (!change(cellAt(b, row, column))) return;
      showCell(c, id, row, column);
    }
  }
}

void setCellText(WidgetContext* c, int id, const CellRange& r, const std::string& text) {
  changeCells(c, id, r, [&](TableCell& cell) {
    if (!passesMask(c, cell.mask, text)) return false;
    cell.text = firstCharacters(text, kWidgetTextLength);
    return true;
  });
}

// A keyword of a cell's setting.
void setCellOption(WidgetContext* c, int id, const CellRange& r, int key, const char* word) {
  const char* words = key == kCellEdit ? "OFF +ON  " : key == kCellAlign ? "LEFT+CENT+RIGH" : kMaskWords;
  const int found = widgetKeyword(c, words, word);
  if (found < 0) return;
  const auto value = static_cast<unsigned char>(found);
  changeCells(c, id, r, [&](TableCell& cell) {
    if (key == kCellEdit) cell.editable = value != 0;
    if (key == kCellAlign) cell.justification = value;
    if (key == kCellVerify) cell.mask = value;
    return true;
  });
}

// Sets the text of cells after the checks; only the key "VALU" takes numbers.
void setCellNumber(WidgetContext* c, int id, int row, int column, const char* option, const std::string& text) {
  const CellBlock* b = tableOf(c, id);
  CellRange r = {};
  if (!b || !cellsOf(c, *b, row, column, &r) || widgetKeyword(c, "VALU", option) < 0) return;
  setCellText(c, id, r, text);
}

// One cell, or null after a message.
const TableCell* oneCell(WidgetContext* c, int id, int row, int column) {
  CellBlock* b = tableOf(c, id);
  CellRange r = {};
  if (!b || !cellsOf(c, *b, row, column, &r)) return nullptr;
  if (row != 0 && column != 0) return &cellAt(*b, r.firstRow, r.firstColumn);
  widgetFault(c, "Value is out of range");
  return nullptr;
}

double numberIn(const TableCell& cell) { return std::strtod(cell.text.c_str(), nullptr); }

// Direction of a line of cells: true a row. False after a message.
bool isRow(const WidgetContext* c, const char* option, bool* row) {
  const int found = widgetKeyword(c, "ROW +ROWS+COL +COLU", option);
  *row = found == 0 || found == 1;
  return found >= 0;
}

// Cell i from 0 of a row or column.
TableCell& lineCell(CellBlock& b, bool row, int index, int i) {
  return row ? cellAt(b, index, i + 1) : cellAt(b, i + 1, index);
}

// The checks of a whole row or column. Null after a message.
CellBlock* lineOf(WidgetContext* c, int id, int n, int index, const char* option, bool* row) {
  CellBlock* b = tableOf(c, id);
  if (!b || !isRow(c, option, row)) return nullptr;
  if (index >= 1 && index <= (*row ? b->rows : b->columns) && n >= 1) return b;
  widgetFault(c, "Value is out of range");
  return nullptr;
}

} // namespace

void SWGTBS(int id, const char* value, int row, int column, const char* option) {
  WidgetContext* c = widgetCheck("swgtbs");
  const CellBlock* b = tableOf(c, id);
  CellRange r = {};
  if (!b || !cellsOf(c, *b, row, column, &r)) return;
  const int key = widgetKeyword(c, "VALU+EDIT+ALIG+VERI", option);
  if (key < 0) return;
  if (key != kCellValue) return setCellOption(c, id, r, key, value);
  std::string text;
  if (decodeWidgetText(c, widgetRecord(c, id)->coding, value, &text)) setCellText(c, id, r, text);
}

void SWGTBF(int id, float value, int decimals, int row, int column, const char* option) {
  setCellNumber(widgetCheck("swgtbf"), id, row, column, option, numberText(value, decimals));
}

void SWGTBI(int id, int value, int row, int column, const char* option) {
  setCellNumber(widgetCheck("swgtbi"), id, row, column, option, std::to_string(value));
}

void SWGTBL(int id, const float* values, int n, int decimals, int index, const char* option) {
  WidgetContext* c = widgetCheck("swgtbl");
  bool row = false;
  CellBlock* b = lineOf(c, id, n, index, option, &row);
  if (!b || !values) return;
  const int cells = row ? b->columns : b->rows;
  if (n > cells) return widgetFault(c, "Value is out of range");
  for (int i = 0; i < n; ++i) {
    const std::string text = numberText(values[i], decimals);
    TableCell& cell = lineCell(*b, row, index, i);
    if (!passesMask(c, cell.mask, text)) return;
    cell.text = text;
    showCell(c, id, row ? index : i + 1, row ? i + 1 : index);
  }
}

void GWGTBL(int id, float* values, int n, int index, const char* option) {
  WidgetContext* c = widgetCheck("gwgtbl");
  bool row = false;
  CellBlock* b = lineOf(c, id, n, index, option, &row);
  if (!b || !values) return;
  const int cells = row ? b->columns : b->rows;
  if (n < cells) return widgetFault(c, "Not enough space in array");
  for (int i = 0; i < cells; ++i) values[i] = floatOf(numberIn(lineCell(*b, row, index, i)));
}

const char* GWGTBS(int id, int row, int column) {
  WidgetContext* c = widgetCheck("gwgtbs");
  const TableCell* cell = oneCell(c, id, row, column);
  if (!cell) return "";
  c->result = encodeWidgetText(widgetRecord(c, id)->coding, cell->text);
  return c->result.c_str();
}

int GWGTBI(int id, int row, int column) {
  const TableCell* cell = oneCell(widgetCheck("gwgtbi"), id, row, column);
  const double value = cell ? numberIn(*cell) : 0.0;
  constexpr double kMost = 2147483647.0;
  return std::fabs(value) <= kMost ? static_cast<int>(value) : 0;
}

float GWGTBF(int id, int row, int column) {
  const TableCell* cell = oneCell(widgetCheck("gwgtbf"), id, row, column);
  return cell ? floatOf(numberIn(*cell)) : 0.0F;
}
