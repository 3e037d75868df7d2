// Plot windows on the screen: what a script wishes, and the windows that are open.
#pragma once

namespace quilla {

struct RasterCanvas;

inline constexpr int kPlotWindows = 8;

// What QUIFIN does on a window (WINMOD).
enum WindowEnd : int {
  kEndFull = 0,     // waits; the right button or closing the window goes on
  kEndNoErase = 1,  // the same, the button ends the wait only
  kEndNone = 2,     // no wait, the windows stay
  kEndNoHold = 3,   // no wait, the windows close
  kEndDelay = 4,    // waits for a time
  kEndNoButton = 5, // waits for a key, or for the window to be closed
  kEndDone = 10     // the wait is over
};
enum WindowEndKey : int { kEndKeyNone = 0, kEndKeyReturn = 1, kEndKeyEscape = 2 };

enum CursorMode : int {
  kCursorOff = 0,
  kCursorPoints = 2,   // CSRPTS, CSRMOV
  kCursorPoint = 3,    // CSRPT1
  kCursorPosition = 4, // CSRPOS
  kCursorLine = 5,
  kCursorRectangle = 6,
  kCursorPolygon = 7
};
// Codes of the mouse buttons in lastKey, beside those of keys.
inline constexpr int kMouseKey = 5, kMouseEndKey = 6;

enum CursorStart : int { kCursorStandard = 0, kCursorSet = 1, kCursorRead = 2, kCursorGet = 3 }; // CSRMOD

// Run lifetime.
struct ScreenGroup {
  int endWanted = kEndFull;       // WINMOD
  int endKeyWanted = kEndKeyNone; // WINKEY
  int endDelay = 1000;            // WINOPT: milliseconds
  bool cursorInPixels = false;    // CSRUNI
  int cursorShape = 0;            // CSRTYP: while a cursor routine runs
  int cursorStart = kCursorStandard;
};

// One window. The picture of the current window is the canvas of the plot; canvas here is that of another one.
struct WindowRecord {
  bool open = false, hidden = false, ownTitle = false;
  int handle = 0; // in the window system, 0 without one
  int width = 0, height = 0;
  RasterCanvas* canvas = nullptr; // owned
  float deviceScale = 1.0F;
  int originX = 0, originY = 0;
};

// What the user does while a routine waits for him.
struct CursorState {
  int mode = kCursorOff;
  bool moves = false; // CSRMOV: points come from moves, too
  bool held = false;  // the left button is down
  bool done = false;
  int* pointsX = nullptr; // of the caller
  int* pointsY = nullptr;
  int pointCount = 0, pointLimit = 0;
  int x = 0, y = 0;           // last position, pixels
  int startX = 0, startY = 0; // of a rubber band
};

// The host's routine for windows that the user has resized (WINCBK): window number, page width and
// height in plot units, width and height of the window in pixels.
using WindowCallback = void (*)(int window, int pageWidth, int pageHeight, int width, int height);

// From the first window to the end of the last one.
struct ScreenLayer {
  WindowRecord windows[kPlotWindows];
  int currentWindow = -1, mainWindow = -1; // indices
  int endMode = kEndFull, keyMode = kEndKeyNone;
  bool waiting = false;     // at QUIFIN
  bool waitingPage = false; // at NEWPAG
  bool quit = false;        // the wait is over
  WindowCallback resized = nullptr;
  int lastKey = 0; // WindowKey, kMouseKey, kMouseEndKey, or the character
  CursorState cursor;
};

} // namespace quilla
