// Making labels, buttons, lists, boxes, texts and separators.
#include <algorithm>

#include "quilla/quilla.h"
#include "widget/widget_maker.h"

using namespace quilla;

namespace {

constexpr int kPercent = 100;
constexpr int kGridColumns = 2; // of a box in the order "GRID"

int makeButton(const char* routine, int parent, WidgetKind kind, const char* label, int value, ControlShape shape) {
  WidgetContext* c = makerFor(routine, parent);
  std::string text;
  if (!c || !decodeText(c, label, &text)) return kNoWidget;
  const int id = newChild(c, parent, kind, shape == ControlShape::kCheck ? lineHeight(c) : controlHeight(c), text);
  c->records.back().value = value;
  ControlWish wish = controlOf(c, id, shape);
  wish.justification = c->settings.justifyButton;
  wish.takesFocus = kind == kWidgetPush || kind == kWidgetOk || kind == kWidgetQuit;
  openControl(c, wish);
  return id;
}

int makeList(const char* routine, int parent, const char* list, int selected, WidgetKind kind) {
  WidgetContext* c = makerFor(routine, parent);
  std::vector<std::string> items;
  if (!c || !decodeItems(c, list, &items) || !isSelection(c, selected, items.size())) return kNoWidget;
  const bool drop = kind == kWidgetDropList;
  const int id = newChild(c, parent, kind, drop ? controlHeight(c) : listHeight(c, c->settings.listRows), "");
  WidgetRecord& w = c->records.back();
  w.items = std::move(items);
  w.value = selected;
  if (c->settings.colors[kColorLists] != kNoWidgetColor) w.background = c->settings.colors[kColorLists];
  ControlWish wish = controlOf(c, id, drop ? ControlShape::kDropList : ControlShape::kList);
  wish.rows = c->settings.dropRows;
  wish.takesFocus = !drop;
  openControl(c, wish);
  return id;
}

// Place of a row of a box.
WidgetBox rowPlace(const WidgetContext* c, const WidgetBox& box, int row, int rows) {
  const int columns = c->settings.options.boxOrder == 0   ? 1
                      : c->settings.options.boxOrder == 1 ? rows
                                                          : std::min(kGridColumns, rows);
  const int lines = (rows + columns - 1) / columns;
  const int w = box.width / columns, h = box.height / lines;
  return {box.x + row % columns * w, box.y + row / columns * h, w, h};
}

int boxLines(const WidgetContext* c, int rows) {
  switch (c->settings.options.boxOrder) {
  case 0: return rows;
  case 1: return 1;
  default: return (rows + kGridColumns - 1) / kGridColumns;
  }
}

} // namespace

int WGLAB(int parent, const char* label) {
  WidgetContext* c = makerFor("wglab", parent);
  std::string text;
  if (!c || !decodeText(c, label, &text)) return kNoWidget;
  return newLabel(c, parent, placeChild(c, parent, lineHeight(c)), text);
}

int WGSEP(int parent) {
  WidgetContext* c = makerFor("wgsep", parent);
  if (!c) return kNoWidget;
  const bool upright = c->settings.options.separatorUpright != 0;
  const int id = newChild(c, parent, upright ? kWidgetUprightSeparator : kWidgetSeparator,
                          upright ? controlHeight(c) : lineHeight(c) / 2, "");
  ControlWish wish = controlOf(c, id, ControlShape::kSeparator);
  wish.vertical = upright;
  wish.lineStyle = c->settings.options.separator;
  openControl(c, wish);
  return id;
}

int WGBUT(int parent, const char* label, int state) {
  if (state != 0 && state != 1) {
    if (const WidgetContext* c = makerCheck("wgbut")) widgetFault(c, "Not allowed value");
    return kNoWidget;
  }
  return makeButton("wgbut", parent, kWidgetCheck, label, state, ControlShape::kCheck);
}

int WGPBUT(int parent, const char* label) {
  return makeButton("wgpbut", parent, kWidgetPush, label, 0, ControlShape::kPush);
}

int WGOK(int parent) { return makeButton("wgok", parent, kWidgetOk, "OK", 0, ControlShape::kPush); }
int WGQUIT(int parent) { return makeButton("wgquit", parent, kWidgetQuit, "Quit", 0, ControlShape::kPush); }

int WGCMD(int parent, const char* label, const char* command) {
  const int id = makeButton("wgcmd", parent, kWidgetCommand, label, 0, ControlShape::kPush);
  if (id != kNoWidget) widgetRecord(widgetCheck("wgcmd"), id)->text = command ? command : "";
  return id;
}

int WGLIS(int parent, const char* list, int selected) { return makeList("wglis", parent, list, selected, kWidgetList); }
int WGDLIS(int parent, const char* list, int selected) {
  return makeList("wgdlis", parent, list, selected, kWidgetDropList);
}

int WGBOX(int parent, const char* list, int selected) {
  WidgetContext* c = makerCheck("wgbox");
  std::vector<std::string> items;
  if (!c || !checkParent(c, parent) || !decodeItems(c, list, &items)) return kNoWidget;
  if (!isSelection(c, selected, items.size())) return kNoWidget;
  const int rows = static_cast<int>(std::min<std::size_t>(items.size(), kMostWidgets));
  if (!reserveWidgets(c, rows + 1)) return kNoWidget;
  const int box = newChild(c, parent, kWidgetChoices, boxLines(c, std::max(rows, 1)) * lineHeight(c), "");
  c->records.back().value = selected;
  c->records.back().items = items;
  for (int row = 0; row < rows; ++row) {
    const WidgetBox place = rowPlace(c, widgetRecord(c, box)->place, row, rows);
    const int id = newPart(c, parent, kWidgetChoices, place, items[static_cast<std::size_t>(row)]);
    c->records.back().group = box;
    ControlWish wish = controlOf(c, id, ControlShape::kRadio);
    wish.value = selected == row + 1;
    openControl(c, wish);
  }
  return box;
}

int WGTXT(int parent, const char* text) {
  WidgetContext* c = makerFor("wgtxt", parent);
  std::string decoded;
  if (!c || !decodeText(c, text, &decoded) || !passesMask(c, c->settings.options.verify, decoded)) return kNoWidget;
  return newLine(c, parent, kWidgetText, placeChild(c, parent, controlHeight(c)), decoded);
}

int WGLTXT(int parent, const char* label, const char* text, int percent) {
  WidgetContext* c = makerFor("wgltxt", parent, 2);
  std::string labelText, decoded;
  if (!c || !decodeText(c, label, &labelText) || !decodeText(c, text, &decoded)) return kNoWidget;
  if (percent < 0 || percent > kPercent) {
    widgetFault(c, "Value is out of range");
    return kNoWidget;
  }
  if (!passesMask(c, c->settings.options.verify, decoded)) return kNoWidget;
  const WidgetBox box = placeChild(c, parent, controlHeight(c));
  const int textWidth = box.width * percent / kPercent;
  newLabel(c, parent, {box.x, box.y, box.width - textWidth, box.height}, labelText);
  return newLine(c, parent, kWidgetLabelText, {box.x + box.width - textWidth, box.y, textWidth, box.height}, decoded);
}

int WGSTXT(int parent, int rows, int kept) {
  WidgetContext* c = makerFor("wgstxt", parent);
  if (!c) return kNoWidget;
  if (rows < 1 || kept < 1) {
    widgetFault(c, "Non positive parameter");
    return kNoWidget;
  }
  const int shown = std::min(rows, c->metrics.screenHeight / lineHeight(c));
  const int id = newChild(c, parent, kWidgetLines, listHeight(c, shown), "");
  c->records.back().limit = kept;
  ControlWish wish = controlOf(c, id, ControlShape::kLines);
  wish.readOnly = c->settings.options.textKind == kTextRead;
  openControl(c, wish);
  return id;
}
