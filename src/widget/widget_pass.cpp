// WGINI to WGFIN, and the routines that work while a dialog is open.
#include "widget/widget_pass.h"

#include <cstdio>

#include "core/levels.h"
#include "device/screen.h"
#include "quilla/quilla.h"
#include "widget/widget_events.h"
#include "widget/widget_layout.h"

namespace quilla {

namespace {

constexpr const char* kDefaultTitle = "QUILLA";

void openRoot(WidgetContext* c, int id) {
  const WidgetSystem* system = widgetSystem();
  if (!system) return;
  const WidgetRecord& w = *widgetRecord(c, id);
  const WidgetSettings& s = c->settings;
  const DialogLevel& level = c->levels[c->depth];
  system->openFrame({id, level.title.empty() ? kDefaultTitle : level.title.c_str(), w.place, s.options.rootFixed == 0,
                     s.options.rootScroll != 0, s.hasClose, s.hasMinimize, s.hasMaximize, false, w.background});
}

// "&Exit" with Quit and OK, and "&Help"; each as SWGPOP allows.
void addDialogMenu(WidgetContext* c, int id) {
  const WidgetSystem* system = widgetSystem();
  const WidgetSettings& s = c->settings;
  if (!system) return;
  const auto add = [&](const char* text, int value) {
    system->addMenu({.frame = id,
                     .widget = id,
                     .menu = 0,
                     .text = text,
                     .value = value,
                     .isMenu = false,
                     .picture = nullptr,
                     .pictureWidth = 0,
                     .pictureHeight = 0});
  };
  if (s.menuQuit) add("&Exit/&Quit", kMenuQuit);
  if (s.menuOk) add("&Exit/OK", kMenuOk);
  if (s.menuHelp) add("&Help", kMenuHelp);
}

int layoutKeyword(const WidgetContext* c, const char* option) {
  constexpr int kLayouts[] = {kLayoutColumn, kLayoutRow, kLayoutForm};
  const int found = widgetKeyword(c, "VERT+HORI+FORM", option);
  return found < 0 ? -1 : kLayouts[found];
}

} // namespace

int beginDialog(WidgetContext* c, int layout) {
  if (!c->active || c->finished) {
    dropWidgets(c, 0);
  } else if (c->depth == kMostDepth) {
    widgetFault(c, "Too many nested widgets");
    return kNoWidget;
  } else if (c->levels[c->depth].running) {
    dropWidgets(c, c->levels[c->depth].count);
  }
  if (!reserveWidgets(c, 1)) return kNoWidget;
  const int outer = c->depth > 0 ? c->root : 0;
  c->levels[++c->depth] = {};
  const int id = newWidget(c, 0, kWidgetRoot);
  WidgetRecord& w = c->records.back();
  w.layout = static_cast<unsigned char>(layout);
  w.saved = c->settings.options.closeIsOk != 0;
  DialogLevel& level = c->levels[c->depth];
  level.root = c->root = id;
  level.help = c->settings.help;
  level.title = c->settings.title;
  c->active = true;
  c->finished = c->endedByOk = false;
  placeRoot(c, id, outer);
  openRoot(c, id);
  if (w.fixed) w.place.width -= 2 * (c->settings.spacingX + c->metrics.frameWidth);
  return id;
}

void showDialog(WidgetContext* c) {
  DialogLevel& level = c->levels[c->depth];
  const int root = level.root;
  if (level.shown) return;
  if (!widgetRecord(c, root)->fixed) finishRoot(c, root);
  level.shown = true;
  const WidgetSystem* system = widgetSystem();
  if (!system) return;
  if (!widgetRecord(c, root)->fixed) system->placeFrame(root, widgetRecord(c, root)->place);
  system->showFrame(root);
}

void endDialog(WidgetContext* c) {
  if (const WidgetSystem* system = widgetSystem()) system->closeFrame(c->levels[c->depth].root);
  c->levels[c->depth] = {};
  if (c->depth > 0) --c->depth;
  c->exitOnClose = true;
  c->finished = c->depth == 0;
  if (c->depth > 0) c->root = c->levels[c->depth].root;
}

void tellMissingDisplay(WidgetContext* c) {
  if (c->displayMissed) return;
  std::fputs("QUILLA: there is no display, dialogs end at once\n", stderr);
  c->displayMissed = true;
}

} // namespace quilla

using namespace quilla;

int WGINI(const char* layout) {
  WidgetContext* c = widgetCheck("wgini");
  const int found = c ? layoutKeyword(c, layout) : -1;
  if (found < 0) return kNoWidget;
  const int id = beginDialog(c, found);
  if (id != kNoWidget) addDialogMenu(c, id);
  return id;
}

int WGBAS(int parent, const char* layout) {
  WidgetContext* c = makerCheck("wgbas");
  if (!c || !checkParent(c, parent)) return kNoWidget;
  const int found = layoutKeyword(c, layout);
  if (found < 0 || !reserveWidgets(c, 1)) return kNoWidget;
  const int id = newWidget(c, parent, kWidgetBase);
  c->records.back().layout = static_cast<unsigned char>(found);
  placeBase(c, id);
  return id;
}

void WGFIN(void) {
  WidgetContext* c = widgetCheck("wgfin");
  if (!c) return;
  if (!c->active || c->finished) return widgetFault(c, "No call to wgini before");
  const int depth = c->depth;
  DialogLevel& level = c->levels[depth];
  level.count = static_cast<int>(c->records.size());
  c->exitOnClose = true;
  showDialog(c);
  if (widgetSystem()) {
    level.running = true;
    if (!waitForDialog(c, depth)) return;
  } else {
    tellMissingDisplay(c);
  }
  endDialog(c);
}

void REAWGT(void) {
  WidgetContext* c = makerCheck("reawgt");
  if (!c) return;
  showDialog(c);
  handlePendingEvents(c);
}

void DOEVNT(void) {
  WidgetContext* c = widgetCheck("doevnt");
  if (!c) return;
  PlotState* s = c->state;
  if (!c->records.empty()) handlePendingEvents(c);
  if (s == existingPlotState()) handleScreenEvents(s);
}

void SENDOK(void) {
  WidgetContext* c = widgetCheck("sendok");
  if (c && c->active && !c->finished) pressOk(c, c->root);
}

void SENDMB(void) {
  WidgetContext* c = widgetCheck("sendmb");
  if (c) pressEndButton(c->state);
}

int GWGGUI(void) {
  const WidgetContext* c = widgetCheck("gwggui");
  return c && c->endedByOk;
}
