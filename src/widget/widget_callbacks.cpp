// Registering the program's routines with widgets.
#include "quilla/quilla.h"
#include "widget/widget_table.h"

using namespace quilla;

namespace {

// The record of a widget that takes routines of the first two forms, or null after a message.
WidgetRecord* plainTarget(WidgetContext* c, int id) {
  WidgetRecord* w = c ? widgetRecord(c, id) : nullptr;
  if (!c) return nullptr;
  const char* fault = !w                        ? "Not allowed widget ID"
                      : isParentKind(w->kind)   ? "Callbacks cannot be defined for parent widgets"
                      : w->kind == kWidgetLabel ? "Callbacks cannot be defined for label widgets"
                                                : nullptr;
  if (!fault) return w;
  widgetFault(c, fault);
  return nullptr;
}

} // namespace

void SWGCBK(int id, void (*routine)(int)) {
  WidgetRecord* w = plainTarget(widgetCheck("swgcbk"), id);
  if (w) w->callbackA = routine;
}

void SWGCB(int id, void (*routine)(int, int*), int* array) {
  WidgetRecord* w = plainTarget(widgetCheck("swgcb"), id);
  if (!w) return;
  w->callbackB = routine;
  w->userArray = array;
}

void SWGCB2(int id, void (*routine)(int, int, int)) {
  WidgetContext* c = widgetCheck("swgcb2");
  if (!c) return;
  WidgetRecord* w = widgetRecord(c, id);
  if (!w) return widgetFault(c, "Not allowed widget ID");
  if (!isParentKind(w->kind) && w->kind != kWidgetTable)
    return widgetFault(c, "Widget is not a Table or Parent widget");
  w->callbackC = routine;
}

void SWGCB3(int id, void (*routine)(int, int)) {
  WidgetContext* c = widgetCheck("swgcb3");
  if (!c) return;
  WidgetRecord* w = widgetRecord(c, id);
  if (!w) return widgetFault(c, "Not allowed widget ID");
  if (w->kind != kWidgetDraw) return widgetFault(c, "Widget is not a DRAW widget");
  w->callbackD = routine;
}
