#include "widget/widget_events.h"

#include <algorithm>
#include <cstdlib>

#include "core/levels.h"
#include "core/stop_request.h"
#include "device/screen.h"
#include "widget/file_dialog.h"
#include "widget/widget_control.h"
#include "widget/widget_text.h"

namespace quilla {

namespace {

constexpr double kPatience = 0.1; // seconds until an interrupt of the host is looked for
constexpr int kPage = 10;

[[noreturn]] void endProgram(WidgetContext* c) {
  const WidgetSystem* system = widgetSystem();
  for (int depth = c->depth; system && depth >= 1; --depth) system->closeFrame(c->levels[depth].root);
  std::exit(0);
}

int rootOf(WidgetContext* c, int id) {
  const WidgetRecord* w = widgetRecord(c, id);
  while (w && w->parent) w = widgetRecord(c, id = w->parent);
  return id;
}

void closeLevel(WidgetContext* c, int root) { c->levels[widgetRecord(c, root)->depth].closed = true; }

// The dialogs that the library makes are told apart from those of the program by their OK button.
bool isLibraryDialog(WidgetContext* c, int root) {
  for (std::size_t i = static_cast<std::size_t>(root); i < c->records.size(); ++i)
    if (c->records[i].kind == kWidgetDialogOk && c->records[i].parent == root) return true;
  return false;
}

void closeFrame(WidgetContext* c, int root) {
  if (isLibraryDialog(c, root)) {
    c->dialogStatus = kStatusCancel;
    return closeLevel(c, root);
  }
  if (widgetRecord(c, root)->saved) return pressOk(c, root);
  closeLevel(c, root);
  if (c->exitOnClose) endProgram(c);
}

void showHelp(const WidgetContext* c, int depth) {
  const DialogLevel& level = c->levels[depth];
  if (const WidgetSystem* system = widgetSystem())
    system->messageBox(level.title.c_str(), level.help.c_str(), c->settings.options.dialogOnTop != 0);
}

void menuPressed(WidgetContext* c, int root, int item) {
  switch (item) {
  case kMenuQuit: endProgram(c);
  case kMenuOk: return pressOk(c, root);
  case kMenuHelp: return showHelp(c, widgetRecord(c, root)->depth);
  default: return;
  }
}

void runCommand(const std::string& command) { [[maybe_unused]] const int status = std::system(command.c_str()); }

void fileButtonPressed(WidgetContext* c, int name) {
  const WidgetRecord& w = *widgetRecord(c, name);
  std::string chosen = w.typed;
  if (!chooseWidgetFile(c, "File", w.items.empty() ? "" : w.items[0].c_str(), w.limit != 0, &chosen)) return;
  WidgetRecord& changed = *widgetRecord(c, name);
  changed.text = changed.typed = firstCharacters(chosen, kWidgetTextLength);
  showText(c, name);
  callWidgetRoutines(c, name, 0, 0);
}

void choiceMade(WidgetContext* c, int box, int item) {
  WidgetRecord& w = *widgetRecord(c, box);
  w.value = item;
  if (w.kind == kWidgetChoices) showRows(c, box);
  callWidgetRoutines(c, box, 0, 0);
}

void pressed(WidgetContext* c, int id, const WidgetEvent& event) {
  const WidgetRecord& w = *widgetRecord(c, id);
  switch (w.kind) {
  case kWidgetRoot: return menuPressed(c, id, event.value);
  case kWidgetOk: return pressOk(c, rootOf(c, id));
  case kWidgetQuit: endProgram(c);
  case kWidgetChoices: return choiceMade(c, w.group ? w.group : id, w.group ? id - w.group : event.value);
  case kWidgetFileButton: return fileButtonPressed(c, w.group);
  case kWidgetDialogOk:
    c->dialogStatus = kStatusOk;
    for (std::size_t i = c->records.size(); i >= 1; --i) commitText(c, static_cast<int>(i));
    return closeLevel(c, w.parent);
  case kWidgetDialogButton: c->dialogStatus = kStatusCancel; return closeLevel(c, w.parent);
  case kWidgetCheck: widgetRecord(c, id)->value = event.value; break;
  case kWidgetCommand: runCommand(w.text); break;
  default: break;
  }
  callWidgetRoutines(c, id, 0, 0);
}

void typed(WidgetContext* c, int id, const std::string& text) {
  WidgetRecord& w = *widgetRecord(c, id);
  w.typed = w.kind == kWidgetLines ? text : firstCharacters(text, kWidgetTextLength);
  if (w.kind != kWidgetDialogText && c->settings.options.callText != kCallReturn) callWidgetRoutines(c, id, 0, 0);
}

void returned(WidgetContext* c, int id) {
  commitText(c, id);
  if (c->settings.options.callText != kCallChange) callWidgetRoutines(c, id, 0, 0);
}

void scrolled(WidgetContext* c, int id, int action, int thumb) {
  WidgetRecord& w = *widgetRecord(c, id);
  const int when = c->settings.options.callScale;
  if (action == kScrollTrack && when != kCallTrack) return;
  if (action == kScrollEnd) {
    if (when == kCallEnd) callWidgetRoutines(c, id, 0, 0);
    return;
  }
  w.value = scrolledPosition(action, w.value, w.limit, thumb);
  showNumber(c, id);
  if (when != kCallEnd) callWidgetRoutines(c, id, 0, 0);
}

void cellChanged(WidgetContext* c, int id, const WidgetEvent& event) {
  CellBlock* block = widgetRecord(c, id)->table.get();
  if (!block || event.row < 1 || event.column < 1 || event.row > block->rows || event.column > block->columns) return;
  TableCell& cell = block->cells[static_cast<std::size_t>(event.row * (block->columns + 1) + event.column)];
  const std::string text = firstCharacters(event.text, kWidgetTextLength);
  const bool fits = fitsMask(cell.mask, text);
  if (fits) cell.text = text;
  showCell(c, id, event.row, event.column);
  if (!fits) return widgetFault(c, "Value does not match verify mask");
  callWidgetRoutines(c, id, event.row, event.column);
}

void resized(WidgetContext* c, int id, int width, int height) {
  WidgetRecord& w = *widgetRecord(c, id);
  w.place.width = width;
  w.place.height = height;
  callWidgetRoutines(c, id, width, height);
}

// A routine of the program may end the state of the plot, and the context with it.
bool isAlive(const WidgetContext* c) {
  const PlotState* s = existingPlotState();
  return s && s->widgetSetup.context == c;
}

} // namespace

int scrolledPosition(int action, int position, int range, int thumb) {
  switch (action) {
  case kScrollLineUp: position -= 1; break;
  case kScrollLineDown: position += 1; break;
  case kScrollPageUp: position -= kPage; break;
  case kScrollPageDown: position += kPage; break;
  case kScrollThumb:
  case kScrollTrack: position = thumb; break;
  case kScrollTop: position = 0; break;
  case kScrollBottom: position = range; break;
  default: break;
  }
  return std::clamp(position, 0, range);
}

void callWidgetRoutines(WidgetContext* c, int id, int row, int column) {
  // A routine may make widgets, and so move the table.
  const WidgetRecord& w = *widgetRecord(c, id);
  const auto first = w.callbackA;
  const auto second = w.callbackB;
  const auto third = w.callbackC;
  int* const array = w.userArray;
  if (first) first(id);
  if (second) second(id, array);
  if (third) third(id, row, column);
}

void commitText(WidgetContext* c, int id) {
  WidgetRecord& w = *widgetRecord(c, id);
  if (w.kind == kWidgetLines || w.typed == w.text) return;
  const bool isLine =
      w.kind == kWidgetText || w.kind == kWidgetLabelText || w.kind == kWidgetDialogText || w.kind == kWidgetFileName;
  if (!isLine) return;
  if (fitsMask(w.mask, w.typed)) {
    w.text = w.typed;
    return;
  }
  w.typed = w.text;
  showText(c, id);
  widgetFault(c, "Value does not match verify mask");
}

void pressOk(WidgetContext* c, int root) {
  const WidgetRecord* w = widgetRecord(c, root);
  if (!w) return;
  const int depth = w->depth;
  for (std::size_t i = 0; i < c->records.size(); ++i)
    if (c->records[i].depth == depth) commitText(c, static_cast<int>(i) + 1);
  c->exitOnClose = false;
  c->endedByOk = true;
  c->levels[depth].closed = true;
}

void handleWidgetEvent(WidgetContext* c, const WidgetEvent& event) {
  const WidgetRecord* w = widgetRecord(c, event.widget);
  if (!w) return;
  const int id = event.widget;
  switch (event.kind) {
  case WidgetEventKind::kNone: return;
  case WidgetEventKind::kPress: return pressed(c, id, event);
  case WidgetEventKind::kChoice: return choiceMade(c, id, event.value);
  case WidgetEventKind::kText: return typed(c, id, event.text);
  case WidgetEventKind::kReturn: return returned(c, id);
  case WidgetEventKind::kLeave: return commitText(c, id);
  case WidgetEventKind::kScroll: return scrolled(c, id, event.value, event.place);
  case WidgetEventKind::kCell: return cellChanged(c, id, event);
  case WidgetEventKind::kMouse:
    if (w->callbackD) w->callbackD(id, event.value);
    return;
  case WidgetEventKind::kResize: return resized(c, id, event.row, event.column);
  case WidgetEventKind::kClose: return closeFrame(c, id);
  }
}

bool waitForDialog(WidgetContext* c, int depth) {
  const WidgetSystem* system = widgetSystem();
  while (!stopRequested() && !c->levels[depth].closed) {
    handleWidgetEvent(c, system->nextEvent(kPatience));
    if (!isAlive(c) || c->depth < depth) return false;
    handleScreenEvents(c->state);
  }
  return true;
}

void handlePendingEvents(WidgetContext* c) {
  const WidgetSystem* system = widgetSystem();
  if (!system) return;
  for (;;) {
    const WidgetEvent event = system->nextEvent(0.0);
    if (event.kind == WidgetEventKind::kNone) return;
    handleWidgetEvent(c, event);
    if (!isAlive(c)) return;
  }
}

} // namespace quilla
