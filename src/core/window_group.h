// Wishes for the window on the screen and for windows applications.
#pragma once

namespace quilla {

enum WindowPlacement : int { kWindowDefault = 0, kWindowPlaced = 1, kWindowSized = 2 };
enum WindowCorner : int { kCornerNone = 0, kCornerRightBottom, kCornerRightTop, kCornerLeftTop, kCornerLeftBottom };
inline constexpr int kWindowCentered = 5;

// Size of screens and rasters in pixels when nothing else was asked for.
inline constexpr int kScreenLongSide = 853, kScreenShortSide = 603;

// Process lifetime.
struct WindowSetup {
  int windowPlacementMode = kWindowDefault;
  int windowX = 0, windowY = 0;              // WINDOW
  int windowWidth = 0, windowHeight = 0;     // WINDOW, WINSIZ
  int windowCorner = kCornerNone;            // WINJUS: 1 "RBOT" to 5 "CENT"
  int backingStore = 0;                      // X11MOD
  bool windowsApplication = false;           // WINAPP
  unsigned long foreignWindow = 0;           // SETXID: the window of another program that holds ours, 0 none
  bool popupWindow = false;                  // WINTYP
  int scrolledWidth = 0, scrolledHeight = 0; // PAGWIN: the picture behind a window that scrolls, 0 none
  bool displayMissed = false;                // it was told that there is no display
  // Shows the protocol of a windows application; null while there is no window layer: it is printed.
  void (*messageBox)(const char* title, const char* text) = nullptr;
};

} // namespace quilla
