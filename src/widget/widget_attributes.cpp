// Attributes of one widget: state, colours, boxes of its frame.
#include <cstdlib>

#include "quilla/quilla.h"
#include "widget/widget_control.h"

using namespace quilla;

namespace {

constexpr const char* kKeys = "STAT+LIST+CLOS+MENU+MINI+MAXI+ICON+WGST+RESE";
enum AttributeKey : int {
  kKeyState,
  kKeyList,
  kKeyClose,
  kKeyMenu,
  kKeyMinimize,
  kKeyMaximize,
  kKeyIcon,
  kKeyStyle,
  kKeyReset
};
constexpr const char* kStates = "ACTI+INAC+INVI";

void setState(WidgetContext* c, int id, const char* value) {
  const int state = widgetKeyword(c, kStates, value);
  if (state < 0) return;
  WidgetRecord* w = widgetRecord(c, id);
  w->state = static_cast<unsigned char>(state);
  showState(c, id);
  const bool isBox = w->kind == kWidgetChoices && w->group == 0;
  const int rows = isBox ? static_cast<int>(w->items.size()) : 0;
  for (int row = 1; row <= rows; ++row) {
    widgetRecord(c, id + row)->state = static_cast<unsigned char>(state);
    showState(c, id + row);
  }
}

// The state with the number of an item behind it: "INAC 2".
void setItemState(WidgetContext* c, int id, const char* value) {
  const int state = widgetKeyword(c, kStates, value);
  if (state < 0) return;
  WidgetRecord* w = widgetRecord(c, id);
  const char* digits = value;
  while (*digits && (*digits < '0' || *digits > '9')) ++digits;
  const int item = *digits ? static_cast<int>(std::strtol(digits, nullptr, 10)) : w->value;
  const bool list = w->kind == kWidgetList || w->kind == kWidgetDropList || (w->kind == kWidgetChoices && !w->group);
  if (!list) return widgetFault(c, "Not allowed ID");
  if (item < 1 || static_cast<std::size_t>(item) > w->items.size()) return widgetFault(c, "Value is out of range");
  if (w->kind == kWidgetChoices) {
    widgetRecord(c, id + item)->state = static_cast<unsigned char>(state);
    return showState(c, id + item);
  }
  if (const WidgetSystem* system = widgetSystem()) system->setItemState(id, item, state);
}

// Boxes of the frames that are opened next; the words stand in the order on, off.
void setSwitch(WidgetContext* c, const char* value, bool* place) {
  const int found = widgetKeyword(c, "ON  +OFF ", value);
  if (found >= 0) *place = found == 0;
}

void setMenuItem(WidgetContext* c, int id, const char* value) {
  const int found = widgetKeyword(c, "ON  +OFF ", value);
  if (found < 0) return;
  widgetRecord(c, id)->state = found == 0 ? kWidgetActive : kWidgetGrey;
  showState(c, id);
}

void resetState(WidgetContext* c, int id) {
  widgetRecord(c, id)->state = kWidgetActive;
  showState(c, id);
}

void setColor(const char* routine, int id, float r, float g, float b, int WidgetRecord::*place) {
  WidgetContext* c = widgetCheck(routine);
  if (!c) return;
  WidgetRecord* w = widgetRecord(c, id);
  if (!w) return widgetFault(c, "Not allowed ID");
  int color = 0;
  if (!widgetColor(c, r, g, b, &color)) return;
  w->*place = color;
  showColors(c, id);
}

} // namespace

void SWGATT(int id, const char* value, const char* key) {
  WidgetContext* c = widgetCheck("swgatt");
  if (!c) return;
  if (!widgetRecord(c, id)) return widgetFault(c, "Not allowed ID");
  switch (widgetKeyword(c, kKeys, key)) {
  case kKeyState: return setState(c, id, value);
  case kKeyList: return setItemState(c, id, value);
  case kKeyClose: return setSwitch(c, value, &c->settings.hasClose);
  case kKeyMenu: return setMenuItem(c, id, value);
  case kKeyMinimize: return setSwitch(c, value, &c->settings.hasMinimize);
  case kKeyMaximize: return setSwitch(c, value, &c->settings.hasMaximize);
  case kKeyIcon:
    if (const WidgetSystem* system = widgetSystem()) system->setIcon(id, value ? value : "");
    return;
  case kKeyReset: return resetState(c, id);
  default: return;
  }
}

int GWGATT(int id, const char* key) {
  WidgetContext* c = widgetCheck("gwgatt");
  if (!c) return 0;
  const WidgetRecord* w = widgetRecord(c, id);
  if (!w) {
    widgetFault(c, "Not allowed ID");
    return 0;
  }
  switch (widgetKeyword(c, kKeys, key)) {
  case kKeyState: return w->state;
  case kKeyMenu: return w->state != kWidgetActive;
  case kKeyClose: return !c->settings.hasClose;
  case kKeyMinimize: return !c->settings.hasMinimize;
  case kKeyMaximize: return !c->settings.hasMaximize;
  default: return 0;
  }
}

void SWGBGD(int id, float r, float g, float b) { setColor("swgbgd", id, r, g, b, &WidgetRecord::background); }
void SWGFGD(int id, float r, float g, float b) { setColor("swgfgd", id, r, g, b, &WidgetRecord::foreground); }
