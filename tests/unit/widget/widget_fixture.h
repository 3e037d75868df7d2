// Dialogs on a toolkit of paper: what is asked of it becomes lines of text, what the user does comes from a list. The
// screen has 1000 x 800 pixels, a character 10 x 20, so that gaps are 40 and 10; a frame has 3 and 5.
#pragma once

#include <deque>
#include <map>

#include "platform/widget_system.h"
#include "platform/window_system.h"
#include "plot_fixture.h"
#include "widget/widget_table.h"

namespace widget_test {

using namespace quilla;

struct Desk {
  std::vector<std::string> lines;
  std::deque<WidgetEvent> events;
  std::map<int, std::string> texts;
  std::map<int, int> values;
  bool answer = false, picks = false;
  std::string file, mask;
  int waits = 0;
};
inline Desk desk;

inline void note(const std::string& line) { desk.lines.push_back(line); }
inline std::string boxText(const WidgetBox& b) {
  return std::to_string(b.x) + "," + std::to_string(b.y) + " " + std::to_string(b.width) + "x" +
         std::to_string(b.height);
}

inline const WidgetSystem kPaper = {
    .metrics = [](WidgetMetrics* m) { *m = {1000, 800, 10, 20, 3, 5}; },
    .setFont =
        [](const char* name, int points, bool bold, bool italic) {
          note("font " + std::string(name) + " " + std::to_string(points) + (bold ? " bold" : "") +
               (italic ? " italic" : ""));
          return std::string(name) != "Missing";
        },
    .openFrame = [](const FrameWish& w) { note("frame " + std::to_string(w.widget) + " " + w.title); },
    .addMenu = [](const MenuWish& w) { note("menu " + std::string(w.text)); },
    .addControl =
        [](const ControlWish& w) {
          desk.texts[w.widget] = w.text;
          desk.values[w.widget] = w.value;
          return true;
        },
    .placeFrame = [](int frame, const WidgetBox& b) { note("place " + std::to_string(frame) + " " + boxText(b)); },
    .showFrame = [](int frame) { note("show " + std::to_string(frame)); },
    .closeFrame = [](int frame) { note("close " + std::to_string(frame)); },
    .setText = [](int widget, const char* text) { desk.texts[widget] = text; },
    .setValue = [](int widget, int value) { desk.values[widget] = value; },
    .setState = [](int widget, int state) { note("state " + std::to_string(widget) + " " + std::to_string(state)); },
    .setItemState = [](int, int item,
                       int state) { note("item " + std::to_string(item) + " " + std::to_string(state)); },
    .setColors = [](int, int back, int fore) { note("colors " + std::to_string(back) + " " + std::to_string(fore)); },
    .setCell = [](int, int, int, const char*, const CellStyle&) {},
    .setIcon = [](int, const char*) {},
    .setFocus = [](int widget) { note("focus " + std::to_string(widget)); },
    .nativeId = [](int widget) { return 4000UL + static_cast<unsigned long>(widget); },
    .nextEvent =
        [](double seconds) {
          if (desk.events.empty()) {
            // A dialog that nobody closes would wait for ever.
            if (seconds > 0 && ++desk.waits > 100) std::abort();
            return WidgetEvent{};
          }
          WidgetEvent event = desk.events.front();
          desk.events.pop_front();
          return event;
        },
    .messageBox = [](const char* title, const char* text, bool) { note(std::string(title) + ": " + text); },
    .askYesNo =
        [](const char* title, const char* text, bool yesFirst, bool) {
          note(std::string(title) + "? " + text + (yesFirst ? " Yes" : " No"));
          return desk.answer;
        },
    .chooseFile =
        [](const FileWish& w, std::string* name) {
          note(std::string("file ") + w.title + " folder " + w.folder + " name " + w.name);
          desk.mask = w.mask;
          if (desk.picks) *name = desk.file;
          return desk.picks;
        },
};

class WidgetTest : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    desk = {};
    useWindowSystem(nullptr);
    useWidgetSystem(&kPaper);
  }
  void TearDown() override {
    PlotTest::TearDown();
    useWidgetSystem(nullptr);
  }
  static std::string fault() {
    const std::string last = desk.lines.empty() ? "" : desk.lines.back();
    desk.lines.clear();
    return last;
  }
  WidgetContext* context() { return state()->widgetSetup.context; }
  std::string place(int id) { return boxText(widgetRecord(context(), id)->place); }
  static void press(int id, int value = 0) {
    desk.events.push_back({.kind = WidgetEventKind::kPress, .widget = id, .value = value});
  }
  static void type(int id, const char* text) {
    desk.events.push_back({.kind = WidgetEventKind::kText, .widget = id, .text = text});
  }
  static void send(WidgetEventKind kind, int id, int value = 0, int where = 0) {
    desk.events.push_back({.kind = kind, .widget = id, .value = value, .place = where});
  }
};

} // namespace widget_test
