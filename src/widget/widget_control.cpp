#include "widget/widget_control.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "device/writers.h"

namespace quilla {

ControlWish controlOf(WidgetContext* c, int id, ControlShape shape) {
  const WidgetRecord& w = *widgetRecord(c, id);
  ControlWish wish = {};
  wish.widget = id;
  wish.frame = c->root;
  wish.shape = shape;
  wish.place = w.place;
  wish.text = w.text.c_str();
  wish.items = w.items;
  wish.value = w.value;
  wish.range = w.limit;
  wish.background = w.background;
  wish.foreground = w.foreground;
  return wish;
}

bool openControl(WidgetContext* c, const ControlWish& wish) {
  const WidgetSystem* system = widgetSystem();
  if (!system || system->addControl(wish)) return true;
  widgetFault(c, "Icon file could not be loaded");
  return false;
}

void showText(WidgetContext* c, int id) {
  if (const WidgetSystem* system = widgetSystem()) system->setText(id, widgetRecord(c, id)->text.c_str());
}

void showValue(WidgetContext* c, int id) {
  if (const WidgetSystem* system = widgetSystem()) system->setValue(id, widgetRecord(c, id)->value);
}

void showRows(WidgetContext* c, int box) {
  const int rows = static_cast<int>(widgetRecord(c, box)->items.size());
  for (int row = 1; row <= rows; ++row) {
    widgetRecord(c, box + row)->value = widgetRecord(c, box)->value == row;
    showValue(c, box + row);
  }
}

void showState(WidgetContext* c, int id) {
  if (const WidgetSystem* system = widgetSystem()) system->setState(id, widgetRecord(c, id)->state);
}

void showColors(WidgetContext* c, int id) {
  const WidgetRecord& w = *widgetRecord(c, id);
  if (const WidgetSystem* system = widgetSystem()) system->setColors(id, w.background, w.foreground);
}

void showCell(WidgetContext* c, int id, int row, int column) {
  const WidgetSystem* system = widgetSystem();
  if (!system) return;
  const CellBlock& block = *widgetRecord(c, id)->table;
  const TableCell& cell = block.cells[static_cast<std::size_t>(row * (block.columns + 1) + column)];
  system->setCell(id, row, column, cell.text.c_str(), {cell.editable, cell.justification});
}

float scaleValue(const WidgetRecord& w) {
  if (w.kind == kWidgetProgress) return w.number;
  const double value = static_cast<double>(w.start) + w.value * static_cast<double>(w.step);
  return static_cast<float>(value);
}

void showNumber(WidgetContext* c, int id) {
  const WidgetRecord& w = *widgetRecord(c, id);
  showValue(c, id);
  WidgetRecord* label = widgetRecord(c, w.display);
  if (!label) return;
  label->text = numberText(scaleValue(w), w.decimals);
  showText(c, w.display);
}

float floatOf(double value) {
  constexpr double kMost = std::numeric_limits<float>::max();
  return static_cast<float>(std::isnan(value) ? 0.0 : std::clamp(value, -kMost, kMost));
}

std::string numberText(float value, int decimals) {
  char text[kNumberTextSize];
  const int length = qqfcha(static_cast<double>(value), decimals, text, 0);
  return std::string(text, static_cast<std::size_t>(length));
}

} // namespace quilla
