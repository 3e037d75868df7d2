// Lists of texts for lists and boxes: one string, its items separated by a character.
#include <cstdio>
#include <cstring>

#include "core/levels.h"
#include "quilla/quilla.h"
#include "widget/widget_table.h"

using namespace quilla;

namespace {

const char* textOrEmpty(const char* text) { return text ? text : ""; }

// Appends behind a separator, unless the list is empty.
void appendItem(const PlotState* s, char* list, const char* item) {
  char* end = list + std::strlen(list);
  if (end != list) *end++ = s->widgetSetup.itemSeparator;
  std::strcpy(end, textOrEmpty(item));
}

} // namespace

void SWGMIX(const char* character, const char* key) {
  const WidgetContext* c = widgetCheck("swgmix");
  if (!c || widgetKeyword(c, "SEP ", key) < 0) return;
  const char separator = textOrEmpty(character)[0];
  if (!separator) return widgetFault(c, "Not allowed value");
  c->state->widgetSetup.itemSeparator = separator;
}

int ITMCNT(const char* list) {
  const PlotState* s = strictCheck(0, 3, "itmcnt");
  if (!s || !textOrEmpty(list)[0]) return 0;
  int n = 1;
  for (; *list; ++list) n += *list == s->widgetSetup.itemSeparator;
  return n;
}

const char* ITMSTR(const char* list, int n) {
  PlotState* s = strictCheck(0, 3, "itmstr");
  if (!s) return "";
  const char separator = s->widgetSetup.itemSeparator;
  const char* item = textOrEmpty(list);
  for (int i = 1; i < n && item; ++i) {
    item = std::strchr(item, separator);
    if (item) ++item;
  }
  s->widgetSetup.item[0] = '\0';
  if (n < 1 || !item) {
    tellWidgetFault(s, "Value is out of range");
    return s->widgetSetup.item;
  }
  const char* end = std::strchr(item, separator);
  const std::size_t length = end ? static_cast<std::size_t>(end - item) : std::strlen(item);
  std::snprintf(s->widgetSetup.item, sizeof s->widgetSetup.item, "%.*s", static_cast<int>(length), item);
  return s->widgetSetup.item;
}

void ITMCAT(char* list, const char* item) {
  const PlotState* s = strictCheck(0, 3, "itmcat");
  if (s && list) appendItem(s, list, item);
}

void ITMNCAT(char* list, int size, const char* item) {
  const PlotState* s = strictCheck(0, 3, "itmncat");
  if (!s || !list) return;
  const std::size_t old = std::strlen(list), wanted = old + (old > 0) + std::strlen(textOrEmpty(item)) + 1;
  if (size < 0 || wanted > static_cast<std::size_t>(size))
    return tellWidgetFault(s, "Not enough space in first parameter");
  appendItem(s, list, item);
}
