#include "widget/widget_maker.h"

namespace quilla {

WidgetContext* makerFor(const char* name, int parent, int records) {
  WidgetContext* c = makerCheck(name);
  return c && checkParent(c, parent) && reserveWidgets(c, records) ? c : nullptr;
}

bool decodeText(const WidgetContext* c, const char* text, std::string* decoded) {
  return decodeWidgetText(c, c->settings.options.coding, text, decoded);
}

bool decodeItems(const WidgetContext* c, const char* list, std::vector<std::string>* items) {
  std::string text;
  if (!decodeText(c, list, &text)) return false;
  *items = itemsOf(c, text);
  return true;
}

bool isSelection(const WidgetContext* c, int selected, std::size_t items) {
  if (selected >= 0 && static_cast<std::size_t>(selected) <= items) return true;
  widgetFault(c, "Selected list element out of range");
  return false;
}

bool passesMask(const WidgetContext* c, int mask, const std::string& text) {
  if (fitsMask(mask, text)) return true;
  widgetFault(c, "String does not match verify mask");
  return false;
}

int newPart(WidgetContext* c, int parent, WidgetKind kind, const WidgetBox& place, const std::string& text) {
  const int id = newWidget(c, parent, kind);
  WidgetRecord& w = c->records.back();
  w.place = place;
  w.text = w.typed = text;
  return id;
}

int newChild(WidgetContext* c, int parent, WidgetKind kind, int h, const std::string& text) {
  return newPart(c, parent, kind, placeChild(c, parent, h), text);
}

int newLabel(WidgetContext* c, int parent, const WidgetBox& place, const std::string& text) {
  const int id = newPart(c, parent, kWidgetLabel, place, text);
  ControlWish wish = controlOf(c, id, ControlShape::kLabel);
  wish.justification = c->settings.justifyLabel;
  wish.framed = c->settings.options.frame != 0;
  openControl(c, wish);
  return id;
}

int newLine(WidgetContext* c, int parent, WidgetKind kind, const WidgetBox& place, const std::string& text) {
  const WidgetSettings& s = c->settings;
  const int id = newPart(c, parent, kind, place, firstCharacters(text, kWidgetTextLength));
  WidgetRecord& w = c->records.back();
  w.typed = w.text;
  w.mask = static_cast<unsigned char>(s.options.verify);
  if (s.colors[kColorLists] != kNoWidgetColor) w.background = s.colors[kColorLists];
  ControlWish wish = controlOf(c, id, ControlShape::kLine);
  wish.readOnly = s.options.textKind == kTextRead;
  wish.password = s.options.textKind == kTextPassword;
  wish.takesFocus = !wish.readOnly;
  openControl(c, wish);
  return id;
}

} // namespace quilla
