// Values of widgets: set and read by the program, while the dialog is open and afterwards.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <initializer_list>

#include "quilla/quilla.h"
#include "widget/widget_maker.h"

using namespace quilla;

namespace {

constexpr int kThousandths = 1000;

bool isOneOf(int kind, std::initializer_list<int> kinds) {
  return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

// The record of a widget of one of these kinds, or null after "Not allowed ID".
WidgetRecord* valueTarget(WidgetContext* c, int id, std::initializer_list<int> kinds) {
  if (!c) return nullptr;
  WidgetRecord* w = widgetRecord(c, id);
  if (w && isOneOf(w->kind, kinds)) return w;
  widgetFault(c, "Not allowed ID");
  return nullptr;
}

constexpr std::initializer_list<int> kLineKinds = {kWidgetText, kWidgetLabelText, kWidgetDialogText};
constexpr std::initializer_list<int> kTextKinds = {kWidgetLabel,     kWidgetText,       kWidgetLines,
                                                   kWidgetLabelText, kWidgetDialogText, kWidgetFileName};
constexpr std::initializer_list<int> kScaleKinds = {kWidgetScale, kWidgetUprightScale};
constexpr std::initializer_list<int> kListKinds = {kWidgetList, kWidgetDropList};

void setLine(WidgetContext* c, int id, const std::string& text) {
  WidgetRecord& w = *widgetRecord(c, id);
  if (!passesMask(c, w.mask, text)) return;
  w.text = w.typed = firstCharacters(text, kWidgetTextLength);
  showText(c, id);
}

// The lines of kind 11: a new one stands below, the oldest ones go.
void addLine(WidgetContext* c, int id, const std::string& text) {
  WidgetRecord& w = *widgetRecord(c, id);
  w.items.push_back(text);
  const std::size_t kept = static_cast<std::size_t>(w.limit);
  if (w.items.size() > kept) w.items.erase(w.items.begin(), w.items.end() - w.limit);
  w.text.clear();
  for (const std::string& line : w.items) w.text += (w.text.empty() ? "" : "\n") + line;
  w.typed = w.text;
  showText(c, id);
}

void setSelection(const char* routine, int id, int selected, std::initializer_list<int> kinds) {
  WidgetContext* c = widgetCheck(routine);
  WidgetRecord* w = valueTarget(c, id, kinds);
  if (!w) return;
  if (w->group) return widgetFault(c, "Not allowed ID");
  if (!isSelection(c, selected, w->items.size())) return;
  w->value = selected;
  if (w->kind != kWidgetChoices) return showValue(c, id);
  showRows(c, id);
}

int readValue(const char* routine, int id, std::initializer_list<int> kinds) {
  const WidgetRecord* w = valueTarget(widgetCheck(routine), id, kinds);
  return w ? w->value : 0;
}

// The typed text of a line that its mask allows; false after a message.
bool readNumberText(WidgetContext* c, int id, std::string* text) {
  const WidgetRecord* w = valueTarget(c, id, kLineKinds);
  if (!w) return false;
  *text = w->typed;
  return passesMask(c, w->mask, *text);
}

// A whole text as a number, with D for an exponent, too.
bool convert(const WidgetContext* c, std::string text, double* value) {
  std::replace_if(
      text.begin(), text.end(), [](char ch) { return ch == 'D' || ch == 'd'; }, 'E');
  char* end = nullptr;
  *value = std::strtod(text.c_str(), &end);
  while (*end == ' ') ++end;
  if (end != text.c_str() && !*end && std::isfinite(*value)) return true;
  widgetFault(c, "String does not match verify mask");
  return false;
}

const char* giveText(WidgetContext* c, int coding, const std::string& text) {
  c->result = encodeWidgetText(coding, text);
  return c->result.c_str();
}

} // namespace

void SWGBUT(int id, int state) {
  WidgetContext* c = widgetCheck("swgbut");
  WidgetRecord* w = valueTarget(c, id, {kWidgetCheck});
  if (!w) return;
  if (state != 0 && state != 1) return widgetFault(c, "Not allowed value");
  w->value = state;
  showValue(c, id);
}
int GWGBUT(int id) { return readValue("gwgbut", id, {kWidgetCheck}); }

void SWGLIS(int id, int selected) { setSelection("swglis", id, selected, kListKinds); }
int GWGLIS(int id) { return readValue("gwglis", id, kListKinds); }

void SWGBOX(int id, int selected) { setSelection("swgbox", id, selected, {kWidgetChoices}); }
int GWGBOX(int id) { return readValue("gwgbox", id, {kWidgetChoices}); }

void SWGSCL(int id, float value) {
  WidgetContext* c = widgetCheck("swgscl");
  WidgetRecord* w = valueTarget(c, id, kScaleKinds);
  if (!w) return;
  if (!(value >= w->start && value <= w->end)) return widgetFault(c, "Value is out of range");
  const double steps = (static_cast<double>(value) - static_cast<double>(w->start)) / static_cast<double>(w->step);
  w->value = std::min(static_cast<int>(steps + 0.5), w->limit);
  showNumber(c, id);
}

float GWGSCL(int id) {
  const WidgetRecord* w = valueTarget(widgetCheck("gwgscl"), id, kScaleKinds);
  return w ? scaleValue(*w) : 0.0F;
}

void SWGVAL(int id, float value) {
  WidgetContext* c = widgetCheck("swgval");
  WidgetRecord* w = valueTarget(c, id, {kWidgetProgress});
  if (!w) return;
  if (!(value >= w->start && value <= w->end)) return widgetFault(c, "Value is out of range");
  w->number = value;
  // Drawn in whole steps.
  const float steps = std::floor((value - w->start) / w->step);
  const float part = value >= w->end ? 1.0F : steps * w->step / (w->end - w->start);
  w->value = static_cast<int>(std::clamp(part, 0.0F, 1.0F) * kThousandths);
  showNumber(c, id);
}

void SWGINT(int id, int value) {
  WidgetContext* c = widgetCheck("swgint");
  if (valueTarget(c, id, kLineKinds)) setLine(c, id, std::to_string(value));
}

void SWGFLT(int id, float value, int decimals) {
  WidgetContext* c = widgetCheck("swgflt");
  if (valueTarget(c, id, kLineKinds)) setLine(c, id, numberText(value, decimals));
}

void SWGTXT(int id, const char* text) {
  WidgetContext* c = widgetCheck("swgtxt");
  const WidgetRecord* w = valueTarget(c, id, kTextKinds);
  std::string decoded;
  if (!w || !decodeWidgetText(c, w->coding, text, &decoded)) return;
  if (w->kind == kWidgetLines) return addLine(c, id, decoded);
  setLine(c, id, decoded);
}

void SWGFIL(int id, const char* file) {
  WidgetContext* c = widgetCheck("swgfil");
  const WidgetRecord* w = valueTarget(c, id, {kWidgetFileName});
  std::string decoded;
  if (w && decodeWidgetText(c, w->coding, file, &decoded)) setLine(c, id, decoded);
}

void SWGFOC(int id) {
  WidgetContext* c = widgetCheck("swgfoc");
  if (!c) return;
  if (!widgetRecord(c, id)) return widgetFault(c, "Not allowed ID");
  if (const WidgetSystem* system = widgetSystem()) system->setFocus(id);
}

int GWGINT(int id) {
  WidgetContext* c = widgetCheck("gwgint");
  std::string text;
  double value = 0.0;
  if (!readNumberText(c, id, &text) || !convert(c, text, &value)) return 0;
  constexpr double kMost = 2147483647.0;
  if (std::fabs(value) <= kMost && value == std::floor(value)) return static_cast<int>(value);
  widgetFault(c, "String does not match verify mask");
  return 0;
}

float GWGFLT(int id) {
  WidgetContext* c = widgetCheck("gwgflt");
  std::string text;
  double value = 0.0;
  if (!readNumberText(c, id, &text) || !convert(c, text, &value)) return 0.0F;
  return floatOf(value);
}

const char* GWGTXT(int id) {
  WidgetContext* c = widgetCheck("gwgtxt");
  const WidgetRecord* w = valueTarget(c, id, kTextKinds);
  return w ? giveText(c, w->coding, w->typed) : "";
}

const char* GWGFIL(int id) {
  WidgetContext* c = widgetCheck("gwgfil");
  const WidgetRecord* w = valueTarget(c, id, {kWidgetFileName});
  return w ? giveText(c, w->coding, w->typed) : "";
}

void GWGSIZ(int id, int* width, int* height) {
  WidgetContext* c = widgetCheck("gwgsiz");
  if (!c) return;
  const WidgetRecord* w = widgetRecord(c, id);
  if (!w) return widgetFault(c, "Not allowed ID");
  *width = w->place.width;
  *height = w->place.height;
}

int GWGXID(int id) {
  WidgetContext* c = widgetCheck("gwgxid");
  if (!c) return 0;
  if (!widgetRecord(c, id)) {
    widgetFault(c, "Not allowed ID");
    return 0;
  }
  const WidgetSystem* system = widgetSystem();
  return system ? static_cast<int>(system->nativeId(id)) : 0;
}
