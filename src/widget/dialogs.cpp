// Dialogs that are ready made: a message, a question, a line of text, a list, a file.
#include <algorithm>
#include <cstdio>

#include "core/levels.h"
#include "quilla/quilla.h"
#include "widget/file_dialog.h"
#include "widget/widget_events.h"
#include "widget/widget_maker.h"
#include "widget/widget_pass.h"

using namespace quilla;

namespace {

constexpr int kDialogCharacters = 40, kButtonCharacters = 10, kDialogRows = 8;

std::string dialogTitle(const WidgetContext* c, const char* standard) {
  return c->settings.titleSet ? c->settings.title : standard;
}

// The text with a line break for each separator. False after a message.
bool dialogText(const WidgetContext* c, const char* text, std::string* lines) {
  if (!decodeText(c, text, lines)) return false;
  std::replace(lines->begin(), lines->end(), c->state->widgetSetup.itemSeparator, '\n');
  return true;
}

void tellMessage(WidgetContext* c, const char* text, const std::string& title) {
  std::string lines;
  if (!dialogText(c, text, &lines)) return;
  c->dialogStatus = kStatusOk;
  if (const WidgetSystem* system = widgetSystem())
    return system->messageBox(title.c_str(), lines.c_str(), c->settings.options.dialogOnTop != 0);
  std::printf("%s\n", lines.c_str());
}

// What a dialog of the library puts aside: it runs beside the widgets of the program.
struct Aside {
  int count, root;
  bool active, finished, exitOnClose;
  WidgetSettings settings;
};

// A root with a label and OK and Cancel below a control of height h; place: of the control. False after a message.
bool openLibraryDialog(WidgetContext* c, const std::string& label, const char* title, int h, WidgetBox* place) {
  if (c->depth == kMostDepth) {
    widgetFault(c, "Too many nested widgets");
    return false;
  }
  if (!reserveWidgets(c, 5)) return false;
  const int gap = lineHeight(c) / 2, button = kButtonCharacters * c->metrics.characterWidth;
  const int width = kDialogCharacters * c->metrics.characterWidth;
  *place = {gap, 2 * gap + lineHeight(c), width, h};
  const int below = place->y + h + gap;
  const WidgetBox frame = {(c->metrics.screenWidth - width) / 2, c->metrics.screenHeight / 3, width + 2 * gap,
                           below + controlHeight(c) + gap};
  c->levels[++c->depth] = {};
  const int root = newPart(c, 0, kWidgetRoot, frame, "");
  c->levels[c->depth].root = c->root = root;
  c->active = true;
  c->finished = false;
  if (const WidgetSystem* system = widgetSystem())
    system->openFrame({root, title, frame, false, false, true, false, false, true, kNoWidgetColor});
  newLabel(c, root, {gap, gap, width, lineHeight(c)}, label);
  for (const bool ok : {true, false}) {
    const WidgetKind kind = ok ? kWidgetDialogOk : kWidgetDialogButton;
    const int x = gap + (ok ? width / 2 - button - gap : width / 2 + gap);
    const int id = newPart(c, root, kind, {x, below, button, controlHeight(c)}, ok ? "OK" : "Cancel");
    ControlWish wish = controlOf(c, id, ControlShape::kPush);
    wish.justification = kJustifyCenter;
    wish.takesFocus = true;
    openControl(c, wish);
  }
  return true;
}

Aside putAside(WidgetContext* c) {
  Aside aside = {static_cast<int>(c->records.size()), c->root, c->active, c->finished, c->exitOnClose, c->settings};
  c->settings.options.verify = c->settings.options.frame = c->settings.options.textKind = 0;
  c->settings.justifyLabel = kJustifyLeft;
  return aside;
}

void takeBack(WidgetContext* c, const Aside& aside) {
  c->settings = aside.settings;
  c->active = aside.active;
  c->finished = aside.finished;
  c->exitOnClose = aside.exitOnClose;
  c->root = aside.root;
}

// Shows the dialog until it ends. True if it ended by OK; its records are still there.
bool runLibraryDialog(WidgetContext* c, int focus, bool* alive) {
  const WidgetSystem* system = widgetSystem();
  const int depth = c->depth;
  c->dialogStatus = kStatusCancel;
  if (!system) {
    tellMissingDisplay(c);
    return false;
  }
  system->showFrame(c->root);
  system->setFocus(focus);
  *alive = waitForDialog(c, depth);
  return *alive && c->dialogStatus == kStatusOk;
}

void closeLibraryDialog(WidgetContext* c, const Aside& aside) {
  c->levels[c->depth--] = {};
  const WidgetSystem* system = widgetSystem();
  if (system) system->closeFrame(aside.count + 1);
  c->records.erase(c->records.begin() + aside.count, c->records.end());
  takeBack(c, aside);
}

} // namespace

void MSGBOX(const char* text) {
  WidgetContext* c = widgetCheck("msgbox");
  if (c) tellMessage(c, text, "Message");
}

void DWGMSG(const char* text) {
  WidgetContext* c = widgetCheck("dwgmsg");
  if (c) tellMessage(c, text, dialogTitle(c, "Message"));
}

int DWGBUT(const char* question, int answer) {
  WidgetContext* c = widgetCheck("dwgbut");
  std::string text;
  if (!c || !dialogText(c, question, &text)) return 0;
  c->dialogStatus = kStatusCancel;
  const WidgetSystem* system = widgetSystem();
  if (!system) {
    tellMissingDisplay(c);
    return 0;
  }
  c->dialogStatus = kStatusOk;
  return system->askYesNo(dialogTitle(c, "Question").c_str(), text.c_str(), answer == 1,
                          c->settings.options.dialogOnTop != 0);
}

const char* DWGTXT(const char* label, const char* text) {
  WidgetContext* c = widgetCheck("dwgtxt");
  if (!c) return "";
  std::string labelText, decoded;
  c->result = text ? text : "";
  if (!decodeText(c, label, &labelText) || !decodeText(c, text, &decoded)) return c->result.c_str();
  const Aside aside = putAside(c);
  WidgetBox place = {};
  if (!openLibraryDialog(c, labelText, dialogTitle(c, "Input").c_str(), controlHeight(c), &place)) {
    takeBack(c, aside);
    return c->result.c_str();
  }
  const int id = newLine(c, c->root, kWidgetDialogText, place, decoded);
  bool alive = true;
  if (runLibraryDialog(c, id, &alive))
    c->result = encodeWidgetText(aside.settings.options.coding, widgetRecord(c, id)->text);
  if (!alive) return "";
  closeLibraryDialog(c, aside);
  return c->result.c_str();
}

int DWGLIS(const char* label, const char* list, int selected) {
  WidgetContext* c = widgetCheck("dwglis");
  if (!c) return selected;
  std::string text;
  std::vector<std::string> items;
  if (!decodeText(c, label, &text) || !decodeItems(c, list, &items) || !isSelection(c, selected, items.size()))
    return selected;
  const Aside aside = putAside(c);
  WidgetBox place = {};
  if (!openLibraryDialog(c, text, dialogTitle(c, "Selection").c_str(), listHeight(c, kDialogRows), &place)) {
    takeBack(c, aside);
    return selected;
  }
  const int id = newPart(c, c->root, kWidgetList, place, "");
  c->records.back().items = std::move(items);
  c->records.back().value = selected;
  ControlWish wish = controlOf(c, id, ControlShape::kList);
  wish.takesFocus = true;
  openControl(c, wish);
  bool alive = true;
  const int chosen = runLibraryDialog(c, id, &alive) ? widgetRecord(c, id)->value : selected;
  if (alive) closeLibraryDialog(c, aside);
  return chosen;
}

const char* DWGFIL(const char* label, const char* file, const char* mask) {
  WidgetContext* c = widgetCheck("dwgfil");
  if (!c) return "";
  c->result = file ? file : "";
  c->dialogStatus = kStatusCancel;
  std::string title, name;
  if (!decodeText(c, label, &title) || !decodeText(c, file, &name)) return c->result.c_str();
  if (!widgetSystem()) tellMissingDisplay(c);
  if (!chooseWidgetFile(c, title.c_str(), mask, c->settings.options.fileSave != 0, &name)) return c->result.c_str();
  c->dialogStatus = kStatusOk;
  c->result = encodeWidgetText(c->settings.options.coding, firstCharacters(name, kWidgetTextLength + 1));
  return c->result.c_str();
}

int DWGERR(void) {
  const PlotState* s = strictCheck(0, 3, "dwgerr");
  return s && s->widgetSetup.context ? s->widgetSetup.context->dialogStatus : kStatusNone;
}
