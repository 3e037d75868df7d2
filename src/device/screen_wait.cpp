#include "device/screen_wait.h"

#include <chrono>
#include <cstdio>
#include <string>

#include "core/stop_request.h"
#include "device/device_table.h"
#include "device/screen.h"
#include "platform/window_system.h"

namespace quilla {

namespace {

constexpr int kTitleLength = 80;
constexpr double kPatience = 0.1; // seconds until an interrupt of the host is looked for
constexpr int kMillisecond = 1000;
constexpr int kCloseNow = -1;

int indexOf(const ScreenLayer& layer, int handle) {
  for (int i = 0; i < kPlotWindows; i++)
    if (layer.windows[i].open && layer.windows[i].handle == handle) return i;
  return kCloseNow;
}

// The window of the plot is gone; drawing goes on in memory.
void endWindow(PlotState* s, int index) {
  ScreenLayer& layer = s->screen;
  windowSystem()->closeWindow(layer.windows[index].handle);
  layer.windows[index].handle = 0;
  if (index == layer.currentWindow) layer.cursor.done = true;
  layer.quit = true;
}

void addPoint(CursorState& c, int x, int y) {
  c.x = x;
  c.y = y;
  if (c.pointCount >= c.pointLimit) return;
  c.pointsX[c.pointCount] = x;
  c.pointsY[c.pointCount++] = y;
}

int inside(int value, int size) { return value < 0 ? 0 : value >= size ? size - 1 : value; }

// The band from the start to the mouse, and the sides of a polygon so far.
void showBandTo(PlotState* s, const WindowEvent& e) {
  constexpr int kMostBand = 500;
  const CursorState& c = s->screen.cursor;
  int points[2 * kMostBand], n = 0;
  auto add = [&](int x, int y) {
    if (n >= kMostBand) return;
    points[2 * n] = x;
    points[2 * n++ + 1] = y;
  };
  if (c.mode == kCursorPolygon) {
    for (int i = 0; i < c.pointCount && i < kMostBand - 1; i++) add(c.pointsX[i], c.pointsY[i]);
    if (c.held) add(e.x, e.y);
  } else {
    add(c.startX, c.startY);
    if (c.mode == kCursorRectangle) add(e.x, c.startY);
    add(e.x, e.y);
    if (c.mode == kCursorRectangle) {
      add(c.startX, e.y);
      add(c.startX, c.startY);
    }
  }
  windowSystem()->showBand(e.window, points, n);
}

void leftDown(CursorState& c, const WindowEvent& e) {
  c.held = true;
  switch (c.mode) {
  case kCursorPoint:
  case kCursorPosition:
    c.x = e.x;
    c.y = e.y;
    c.done = true;
    break;
  case kCursorPolygon:
    if (c.pointCount == 0) addPoint(c, e.x, e.y);
    break;
  case kCursorLine:
  case kCursorRectangle:
    c.startX = e.x;
    c.startY = e.y;
    break;
  default: break;
  }
}

void leftUp(PlotState* s, const WindowEvent& e) {
  CursorState& c = s->screen.cursor;
  const bool held = c.held;
  c.held = false;
  switch (c.mode) {
  case kCursorPoints:
    if (!c.moves) addPoint(c, e.x, e.y);
    c.done = c.pointCount >= c.pointLimit;
    break;
  case kCursorLine:
  case kCursorRectangle:
    if (!held) break;
    c.x = inside(e.x, s->device.pixelWidth);
    c.y = inside(e.y, s->device.pixelHeight);
    c.done = true;
    break;
  case kCursorPolygon:
    if (held) addPoint(c, e.x, e.y);
    c.done = c.pointCount >= c.pointLimit;
    break;
  default: break;
  }
}

void mouseMoved(PlotState* s, const WindowEvent& e) {
  CursorState& c = s->screen.cursor;
  if (!c.held) return;
  if (c.mode >= kCursorLine) return showBandTo(s, e);
  if (c.mode == kCursorPoints && c.moves) addPoint(c, e.x, e.y);
}

void rightUp(PlotState* s) {
  ScreenLayer& layer = s->screen;
  layer.lastKey = kMouseEndKey;
  if (layer.cursor.mode == kCursorPoints || layer.cursor.mode == kCursorPolygon) {
    layer.cursor.done = true;
  } else if (layer.cursor.mode == kCursorOff) {
    if (layer.waitingPage || (layer.waiting && (layer.endMode == kEndFull || layer.endMode == kEndNoErase)))
      layer.quit = true;
  }
}

void keyPressed(ScreenLayer& layer, int key) {
  layer.lastKey = key;
  if (layer.cursor.mode == kCursorPosition) layer.cursor.done = true;
  if (layer.cursor.mode != kCursorOff) return;
  if ((layer.keyMode == kEndKeyReturn && key == kKeyReturn) || (layer.keyMode == kEndKeyEscape && key == kKeyEscape))
    layer.quit = true;
}

void windowClosed(PlotState* s, int index) {
  if (index == s->screen.currentWindow || index == s->screen.mainWindow) return endWindow(s, index);
  removeWindow(s, index);
}

void handleEvent(PlotState* s, const WindowEvent& e) {
  ScreenLayer& layer = s->screen;
  const int index = indexOf(layer, e.window);
  if (index < 0) return;
  if (e.kind == WindowEventKind::kClose) return windowClosed(s, index);
  const bool here = index == layer.currentWindow;
  switch (e.kind) {
  case WindowEventKind::kButtonDown:
    if (e.button != kButtonLeft || !here) break;
    layer.lastKey = kMouseKey;
    leftDown(layer.cursor, e);
    break;
  case WindowEventKind::kButtonUp:
    if (e.button == kButtonRight) {
      rightUp(s);
    } else if (here) {
      leftUp(s, e);
    }
    break;
  case WindowEventKind::kMove:
    if (here) mouseMoved(s, e);
    break;
  case WindowEventKind::kKey: keyPressed(layer, e.key); break;
  case WindowEventKind::kResize:
    if (layer.resized) layer.resized(index + 1, s->geometry.pageWidth + 1, s->geometry.pageHeight + 1, e.x, e.y);
    break;
  case WindowEventKind::kCharacter:
    layer.lastKey = e.key;
    if (layer.cursor.mode == kCursorPosition) layer.cursor.done = true;
    break;
  default: break;
  }
}

void setTitle(PlotState* s, const char* how) {
  const WindowRecord& record = s->screen.windows[s->screen.currentWindow];
  if (record.ownTitle) return;
  const bool openGl = s->deviceSetup.deviceNumber == kDeviceOpenGl;
  char title[kTitleLength];
  std::snprintf(title, sizeof title, "QUILLA%s %d%s", openGl ? " GL" : "", s->screen.currentWindow + 1, how);
  windowSystem()->setTitle(record.handle, title);
}

// How to go on, as the title tells it.
std::string endHint(const ScreenLayer& layer, int delay) {
  if (layer.endMode == kEndNone) return "";
  if (layer.endMode == kEndDelay) return " / Delay time " + std::to_string(delay / kMillisecond) + " seconds";
  const char* key = layer.keyMode == kEndKeyReturn ? "RETURN" : "ESC";
  if (layer.endMode == kEndNoButton)
    return layer.keyMode == kEndKeyNone ? "" : std::string(" / Press ") + key + " to continue ...";
  if (layer.keyMode == kEndKeyNone) return " / Click MB2 to continue ...";
  return std::string(" / Click MB2 or ") + key + " to continue ...";
}

void waitForQuit(PlotState* s) {
  while (!s->screen.quit && !stopRequested()) handleEvent(s, windowSystem()->nextEvent(kPatience));
}

void waitFor(PlotState* s, int milliseconds) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
  while (!s->screen.quit && !stopRequested()) {
    const double left = std::chrono::duration<double>(end - Clock::now()).count();
    if (left <= 0.0) return;
    handleEvent(s, windowSystem()->nextEvent(left < kPatience ? left : kPatience));
  }
}

} // namespace

void handleScreenEvents(PlotState* s) {
  const WindowSystem* system = windowSystem();
  if (!system || s->screen.currentWindow < 0) return;
  for (;;) {
    const WindowEvent event = system->nextEvent(0.0);
    if (event.kind == WindowEventKind::kNone || s->screen.currentWindow < 0) return;
    handleEvent(s, event);
  }
}

void pressEndButton(PlotState* s) { rightUp(s); }

void waitAtEnd(PlotState* s, int delay) {
  ScreenLayer& layer = s->screen;
  setTitle(s, endHint(layer, delay).c_str());
  if (layer.endMode == kEndNone || layer.endMode == kEndNoHold) return;
  layer.quit = false;
  layer.waiting = true;
  if (layer.endMode == kEndDelay) {
    waitFor(s, delay);
  } else {
    waitForQuit(s);
  }
  layer.waiting = false;
}

void waitForNextPage(PlotState* s) {
  ScreenLayer& layer = s->screen;
  refreshScreen(s);
  if (layer.currentWindow < 0 || !windowSystem() || !layer.windows[layer.currentWindow].handle) return;
  layer.endMode = s->window.endWanted;
  layer.keyMode = layer.endMode == kEndDelay ? kEndKeyNone : s->window.endKeyWanted;
  if (layer.endMode == kEndNone || layer.endMode == kEndNoHold) return;
  setTitle(s, " / Click MB2 for next page ...");
  layer.quit = false;
  layer.waitingPage = true;
  if (layer.endMode == kEndDelay) {
    waitFor(s, s->window.endDelay);
  } else {
    waitForQuit(s);
  }
  layer.waitingPage = layer.quit = false;
  if (layer.windows[layer.currentWindow].handle) setTitle(s, " / Working");
}

void runCursor(PlotState* s, int mode) {
  ScreenLayer& layer = s->screen;
  refreshScreen(s);
  if (layer.currentWindow < 0 || !windowSystem()) return;
  const int handle = layer.windows[layer.currentWindow].handle;
  if (!handle) return;
  layer.cursor.mode = mode;
  layer.cursor.done = layer.cursor.held = false;
  windowSystem()->setCursor(handle, s->window.cursorShape);
  while (!layer.cursor.done && !stopRequested()) handleEvent(s, windowSystem()->nextEvent(kPatience));
  layer.cursor.mode = kCursorOff;
  if (!layer.windows[layer.currentWindow].handle) return;
  windowSystem()->showBand(handle, nullptr, 0);
  windowSystem()->setCursor(handle, kCursorPlain);
}

} // namespace quilla
