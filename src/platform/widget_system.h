// What the library needs of a toolkit for dialogs, as a table of plain functions, from the module of the windows.
//
// A dialog is a frame with controls at places that the caller has computed. Frames and controls are known by the
// numbers of the caller's widgets. Texts are UTF-8. What the user does comes as events, in its order.
#pragma once

#include <span>
#include <string>

namespace quilla {

// In pixels. Characters are those of the font in force.
struct WidgetMetrics {
  int screenWidth, screenHeight;
  int characterWidth; // on average
  int characterHeight;
  int frameWidth, frameHeight; // of a window's frame: part of the size of a frame
};

struct WidgetBox {
  int x, y, width, height;
};

inline constexpr int kNoWidgetColor = -1; // else red, green, blue in 24 bits

struct FrameWish {
  int widget;
  const char* title;
  WidgetBox place;
  bool resizable, scrolled, hasClose, hasMinimize, hasMaximize, modal;
  int background;
};

enum class ControlShape {
  kLabel,
  kCheck,
  kPush,
  kRadio,
  kList,
  kDropList,
  kLine,
  kLines,
  kScale,
  kProgress,
  kDraw,
  kTable,
  kSeparator
};
enum WidgetState : int { kWidgetActive = 0, kWidgetGrey = 1, kWidgetInvisible = 2 };
enum WidgetJustification : int { kJustifyLeft = 0, kJustifyCenter = 1, kJustifyRight = 2 };

struct ControlWish {
  int widget;
  int frame; // widget that is the frame
  ControlShape shape;
  WidgetBox place; // inside the frame, below its menu
  const char* text = "";
  std::span<const std::string> items = {};
  int value = 0; // selected item from 1, state of a button, position of a scale, thousandths of a progress bar
  int range = 0; // last position of a scale
  bool vertical = false, readOnly = false, password = false, takesFocus = false, framed = false, smooth = false;
  int justification = kJustifyLeft;
  int background = kNoWidgetColor, foreground = kNoWidgetColor;
  int lineStyle = 0;                      // of a separator
  const unsigned char* picture = nullptr; // red, green, blue
  int pictureWidth = 0, pictureHeight = 0;
  const char* pictureFile = nullptr; // in place of picture
  const char* hint = nullptr;        // shown under the mouse
  int rows = 0, columns = 0;         // of a table, without its headers
  bool headRow = false, headColumn = false, rowLines = true, columnLines = true;
  std::span<const int> columnWidths = {}; // of a table, with that of its head
};

enum class WidgetEventKind {
  kNone,
  kPress,  // of a button or menu item; a check button: value is its new state
  kChoice, // value: item from 1
  kText,   // text: what stands in the line now
  kReturn, // the key, in a line
  kLeave,  // the user has left a line
  kScroll, // value: a ScrollAction, place: the thumb
  kCell,   // row, column from 1, text
  kMouse,  // value: number of the button
  kResize, // row, column: width and height of the frame
  kClose   // of a frame
};
enum ScrollAction : int {
  kScrollLineUp,
  kScrollLineDown,
  kScrollPageUp,
  kScrollPageDown,
  kScrollThumb,
  kScrollTrack,
  kScrollTop,
  kScrollBottom,
  kScrollEnd
};
// The items of a dialog's own menu come as kPress of its frame, with these values.
enum MenuItem : int { kMenuQuit = 900, kMenuOk = 901, kMenuHelp = 999 };

struct WidgetEvent {
  WidgetEventKind kind = WidgetEventKind::kNone;
  int widget = 0;
  int value = 0, place = 0, row = 0, column = 0;
  std::string text = {};
};

// An item of the bar above a dialog, or of one of its menus.
struct MenuWish {
  int frame, widget;
  int menu;         // widget that is the menu, 0: the bar itself
  const char* text; // with '/' between a menu and its item, '&' before the key
  int value;        // told with the event
  bool isMenu;      // it takes items
  const unsigned char* picture;
  int pictureWidth, pictureHeight;
};

struct FileWish {
  const char* title;
  const char* folder; // to begin with, or an empty text
  const char* name;
  const char* mask; // shell patterns: "*.dat", "*.{a,b}"
  bool save, onTop;
};

struct CellStyle {
  bool editable;
  int justification;
};

struct WidgetSystem {
  void (*metrics)(WidgetMetrics* metrics);
  // False if there is no such font. An empty name: that of the system.
  bool (*setFont)(const char* name, int points, bool bold, bool italic);
  void (*openFrame)(const FrameWish& wish); // not yet shown
  void (*addMenu)(const MenuWish& wish);
  bool (*addControl)(const ControlWish& wish); // false if a picture cannot be loaded
  void (*placeFrame)(int frame, const WidgetBox& place);
  void (*showFrame)(int frame);
  void (*closeFrame)(int frame); // and its controls
  void (*setText)(int widget, const char* text);
  void (*setValue)(int widget, int value);
  void (*setState)(int widget, int state);               // WidgetState
  void (*setItemState)(int widget, int item, int state); // of a list or box
  void (*setColors)(int widget, int background, int foreground);
  void (*setCell)(int widget, int row, int column, const char* text, const CellStyle& style); // 0: of the head
  void (*setIcon)(int frame, const char* file);
  void (*setFocus)(int widget);
  unsigned long (*nativeId)(int widget); // number in the window system; 0 of what has no window of its own
  // Waits for an event, at most so many seconds; kNone if there was none.
  WidgetEvent (*nextEvent)(double seconds);
  void (*messageBox)(const char* title, const char* text, bool onTop);
  bool (*askYesNo)(const char* title, const char* text, bool yesFirst, bool onTop);
  bool (*chooseFile)(const FileWish& wish, std::string* name); // false: cancelled
};

// The table, or null where there is no module or no display. Looked for once.
const WidgetSystem* widgetSystem();

// Another table in its place, for tests; null: there is no display.
void useWidgetSystem(const WidgetSystem* system);

using WidgetSystemEntry = const WidgetSystem* (*)();
inline constexpr const char* kWidgetSystemSymbol = "quillaWidgetSystem";

} // namespace quilla
