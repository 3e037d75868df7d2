// What the library needs of a window system, as a table of plain functions.
//
// The functions live in a module of their own, which is opened when a window is first asked for: programs that write
// files neither load nor need the libraries of a display. One thread at a time may use the table.
#pragma once

namespace quilla {

// Sizes and positions in pixels of the screen, origin at its upper left corner.
struct WindowWish {
  const char* title;
  bool placed; // x and y hold; else the window manager chooses
  int x, y, width, height;
  int pictureWidth, pictureHeight; // larger than the window: it scrolls
  bool popup;                      // without a frame, above others
  unsigned long parent;            // number in the window system of a window that holds this one, 0 none
};

enum class WindowEventKind { kNone, kButtonDown, kButtonUp, kMove, kKey, kCharacter, kClose, kResize };
enum WindowButton : int { kButtonLeft = 1, kButtonRight = 2 };
enum WindowKey : int { kKeyLeft = 1, kKeyUp = 2, kKeyRight = 3, kKeyDown = 4, kKeyReturn = 13, kKeyEscape = 27 };

struct WindowEvent {
  WindowEventKind kind;
  int window; // handle
  int x, y;   // of the mouse, on the picture; of a resized window its size
  int button; // WindowButton
  int key;    // WindowKey, or the character
};

enum WindowCursor : int { kCursorPlain = 0, kCursorCross, kCursorArrow, kCursorUpArrow };

// A window is known by its handle, a number from 1 on.
struct WindowSystem {
  void (*screenSize)(int* width, int* height);
  int (*openWindow)(const WindowWish& wish); // 0 on failure
  void (*closeWindow)(int window);
  void (*showWindow)(int window, bool shown);
  void (*setTitle)(int window, const char* title);
  bool (*setIcon)(int window, const char* file); // false if the file cannot be loaded
  void (*setCursor)(int window, int cursor);
  // Copies red, green and blue of the picture; four bytes a pixel, the last one is not looked at.
  void (*showPicture)(int window, const unsigned char* pixels, int width, int height);
  // Lines over the picture, inverted or dashed, until the next call: n points as x, y pairs; n 0 takes them away.
  void (*showBand)(int window, const int* points, int n);
  void (*placeMouse)(int window, int x, int y);
  bool (*askMouse)(int window, int* x, int* y); // where the mouse stands, false outside the picture
  // Waits for an event, at most so many seconds; kNone if there was none.
  WindowEvent (*nextEvent)(double seconds);
  void (*messageBox)(const char* title, const char* text);
  unsigned long (*nativeId)(int window); // number of the window in the window system
  // Size of a widget of ours that holds plots, by its number in the window system; false: it is none.
  bool (*holderSize)(unsigned long holder, int* width, int* height);
  bool (*isHeldBy)(int window, unsigned long holder); // 0: by none of ours
};

// The table, or null where there is no module or no display. Looked for once.
const WindowSystem* windowSystem();

// Another table in its place, for tests; null: there is no display.
void useWindowSystem(const WindowSystem* system);

// Name of the function that a module exports; it gives the table, or null without a display.
using WindowSystemEntry = const WindowSystem* (*)();
inline constexpr const char* kWindowSystemSymbol = "quillaWindowSystem";

} // namespace quilla
