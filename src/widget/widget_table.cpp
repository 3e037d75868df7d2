#include "widget/widget_table.h"

#include <cstdio>
#include <cstring>
#include <new>

#include "core/levels.h"
#include "core/messages.h"
#include "platform/window_system.h"

namespace quilla {

namespace {

// Sizes without a display: those of a common screen font.
constexpr WidgetMetrics kPlainMetrics = {kScreenLongSide, kScreenShortSide, 8, 16, 0, 0};
constexpr float kFirstSpacingX = 4.0F, kFirstSpacingY = 0.5F;

void freeContext(PlotState* s) {
  WidgetContext* c = s->widgetSetup.context;
  const WidgetSystem* system = widgetSystem();
  if (c && system)
    for (int depth = c->depth; depth >= 1; --depth)
      if (c->levels[depth].root) system->closeFrame(c->levels[depth].root);
  delete c;
  s->widgetSetup.context = nullptr;
}

WidgetContext* makeContext(PlotState* s) {
  auto* c = new (std::nothrow) WidgetContext;
  if (!c) {
    tellWidgetFault(s, "Not enough memory");
    return nullptr;
  }
  s->widgetSetup.context = c;
  s->widgetSetup.freeWidgets = freeContext;
  c->state = s;
  c->records.reserve(kWidgetsAtFirst);
  readMetrics(c);
  c->settings.spacingX = static_cast<int>(kFirstSpacingX * static_cast<float>(c->metrics.characterWidth));
  c->settings.spacingY = static_cast<int>(kFirstSpacingY * static_cast<float>(c->metrics.characterHeight));
  return c;
}

} // namespace

void readMetrics(WidgetContext* c) {
  c->metrics = kPlainMetrics;
  if (const WidgetSystem* system = widgetSystem()) system->metrics(&c->metrics);
}

WidgetContext* widgetCheck(const char* name) {
  PlotState* s = strictCheck(0, 3, name);
  if (!s) return nullptr;
  WidgetContext* c = s->widgetSetup.context;
  return c ? c : makeContext(s);
}

WidgetContext* makerCheck(const char* name) {
  WidgetContext* c = widgetCheck(name);
  if (!c || (c->active && !c->finished)) return c;
  widgetFault(c, "No call between wgini and wgfin");
  return nullptr;
}

void tellWidgetFault(const PlotState* s, const char* text) {
  const std::string line = std::string(">>>> ") + text + "\n";
  if (s->windowSetup.messageBox) return s->windowSetup.messageBox(s->level.routineName, line.c_str());
  if (const WidgetSystem* system = widgetSystem()) return system->messageBox(s->level.routineName, line.c_str(), false);
  std::fputs(line.c_str(), stdout);
}

void widgetFault(const WidgetContext* c, const char* text) { tellWidgetFault(c->state, text); }

int widgetKeyword(const WidgetContext* c, const char* list, const char* word) {
  constexpr std::size_t kWordAndPlus = 5;
  const int count = static_cast<int>((std::strlen(list) + 1) / kWordAndPlus);
  const int found = findKeyword(list, count, word);
  if (found) return found - 1;
  widgetFault(c, (std::string("Not allowed parameter ") + (word ? word : "")).c_str());
  return -1;
}

bool widgetColor(const WidgetContext* c, float r, float g, float b, int* color) {
  int value = 0;
  for (float part : {r, g, b}) {
    if (!(part >= 0.0F && part <= 1.0F)) {
      widgetFault(c, "Value is out of range");
      return false;
    }
    value = value << 8 | static_cast<int>(part * 255.0F + 0.5F);
  }
  *color = value;
  return true;
}

WidgetRecord* widgetRecord(WidgetContext* c, int id) {
  if (id < 1 || static_cast<std::size_t>(id) > c->records.size()) return nullptr;
  return &c->records[static_cast<std::size_t>(id) - 1];
}

bool isParentKind(int kind) { return kind == kWidgetRoot || kind == kWidgetBase; }

bool checkParent(WidgetContext* c, int id) {
  const WidgetRecord* w = widgetRecord(c, id);
  if (w && isParentKind(w->kind)) return true;
  widgetFault(c, "Not allowed parent ID");
  return false;
}

bool reserveWidgets(WidgetContext* c, int n) {
  if (c->records.size() + static_cast<std::size_t>(n) <= kMostWidgets) return true;
  dropWidgets(c, 0);
  widgetFault(c, "Too many widgets");
  return false;
}

int newWidget(WidgetContext* c, int parent, WidgetKind kind) {
  WidgetRecord& w = c->records.emplace_back();
  w.kind = kind;
  w.depth = static_cast<unsigned char>(c->depth);
  w.parent = parent;
  w.background = c->settings.colors[kColorBack];
  w.foreground = c->settings.colors[kColorFore];
  w.coding = static_cast<unsigned char>(c->settings.options.coding);
  return static_cast<int>(c->records.size());
}

void dropWidgets(WidgetContext* c, int count) {
  const WidgetSystem* system = widgetSystem();
  while (c->records.size() > static_cast<std::size_t>(count)) {
    if (system && c->records.back().kind == kWidgetRoot) system->closeFrame(static_cast<int>(c->records.size()));
    c->records.pop_back();
  }
  if (count > 0) return;
  for (DialogLevel& level : c->levels) level = {};
  c->active = c->finished = false;
  c->depth = c->root = 0;
}

} // namespace quilla
