// What all routines that make widgets share.
#pragma once

#include "widget/widget_control.h"
#include "widget/widget_layout.h"
#include "widget/widget_text.h"

namespace quilla {

// Heights in pixels.
inline int lineHeight(const WidgetContext* c) { return c->metrics.characterHeight; }
inline int controlHeight(const WidgetContext* c) {
  return c->metrics.characterHeight * 3 / 2 + 2 * c->settings.verticalMargin;
}
inline constexpr int kListBorder = 6;
inline int listHeight(const WidgetContext* c, int rows) { return rows * lineHeight(c) + kListBorder; }

// The context for a maker of so many records below a parent, or null after a message.
WidgetContext* makerFor(const char* name, int parent, int records = 1);
// A text in the coding in force. False after a message.
bool decodeText(const WidgetContext* c, const char* text, std::string* decoded);
bool decodeItems(const WidgetContext* c, const char* list, std::vector<std::string>* items);
// False after "Selected list element out of range".
bool isSelection(const WidgetContext* c, int selected, std::size_t items);
// False after "String does not match verify mask".
bool passesMask(const WidgetContext* c, int mask, const std::string& text);

// A record at a place, with its text.
int newPart(WidgetContext* c, int parent, WidgetKind kind, const WidgetBox& place, const std::string& text);
// The same as the next child of its parent, of height h.
int newChild(WidgetContext* c, int parent, WidgetKind kind, int h, const std::string& text);

// A label that has its record, and a line for the user's text.
int newLabel(WidgetContext* c, int parent, const WidgetBox& place, const std::string& text);
int newLine(WidgetContext* c, int parent, WidgetKind kind, const WidgetBox& place, const std::string& text);

} // namespace quilla
