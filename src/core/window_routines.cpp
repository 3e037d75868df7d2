// Public routines of plot windows: which are open, their titles, and what the end of a plot does.
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/device_table.h"
#include "device/screen.h"
#include "platform/window_system.h"
#include "quilla/quilla.h"

#include <cstdio>

using namespace quilla;

namespace {

constexpr int kBadDevice = 56, kFirstFileDevice = 101;
constexpr int kAlreadyOpen = 133, kNotClosable = 134, kNotOpen = 135;
constexpr int kMessageLength = 80;

// The state for a routine on window n, or null after a message. The path is flushed.
PlotState* windowCheck(const char* routine, int n) {
  PlotState* s = strictCheck(1, 3, routine);
  if (!s) return nullptr;
  const int device = s->deviceSetup.deviceNumber;
  if (device < kDeviceWindowFirst || device >= kFirstFileDevice) {
    warnPlain(s, kBadDevice);
    return nullptr;
  }
  if (checkRange(s, n, 1, kPlotWindows)) return nullptr;
  flushPath(s);
  return s;
}

void warnWindow(PlotState* s, int number, const char* before, int n, const char* behind) {
  char text[kMessageLength];
  std::snprintf(text, sizeof text, "%s %d%s", before, n, behind);
  warnWithText(s, number, text);
}

bool isOpen(PlotState* s, int n) {
  if (s->screen.windows[n - 1].open) return true;
  warnWindow(s, kNotOpen, "Window", n, " is not open");
  return false;
}

} // namespace

void OPNWIN(int n) {
  PlotState* s = windowCheck("opnwin", n);
  if (!s) return;
  if (s->screen.windows[n - 1].open) return warnWindow(s, kAlreadyOpen, "Window", n, " is already open");
  addWindow(s, n - 1);
}

void CLSWIN(int n) {
  PlotState* s = windowCheck("clswin", n);
  if (!s) return;
  if (n - 1 == s->screen.mainWindow) return warnWindow(s, kNotClosable, "The Main Window", n, " cannot be closed");
  if (isOpen(s, n)) removeWindow(s, n - 1);
}

void SELWIN(int n) {
  PlotState* s = windowCheck("selwin", n);
  if (s && isOpen(s, n)) selectWindow(s, n - 1);
}

void HIDWIN(int n, const char* mode) {
  PlotState* s = windowCheck("hidwin", n);
  if (!s) return;
  const int found = matchKeyword(s, "NO  +YES ", 2, mode);
  if (found && isOpen(s, n)) hideWindow(s, n - 1, found == 2);
}

int WINID(void) {
  PlotState* s = windowCheck("winid", 1);
  return s ? s->screen.currentWindow + 1 : 0;
}

void PAGWIN(int nw, int nh) {
  PlotState* s = setterCheck("pagwin");
  if (!s || checkRange(s, nw < nh ? nw : nh, 1, -1)) return;
  s->windowSetup.scrolledWidth = nw;
  s->windowSetup.scrolledHeight = nh;
}

void WINTIT(const char* title) {
  PlotState* s = windowCheck("wintit", 1);
  if (s) titleWindow(s, title);
}

void WINICO(const char* file) {
  PlotState* s = windowCheck("winico", 1);
  const WindowSystem* system = windowSystem();
  if (!s || !system) return;
  const int handle = s->screen.windows[s->screen.currentWindow].handle;
  if (handle && !system->setIcon(handle, file)) warnWithText(s, kBadDevice, "Icon file could not be loaded");
}

void WINCBK(void (*routine)(int, int, int, int, int), const char* key) {
  PlotState* s = strictCheck(1, 3, "wincbk");
  if (s && matchKeyword(s, "SIZE", 1, key)) s->screen.resized = routine;
}

void WINTYP(const char* type) {
  PlotState* s = strictCheck(0, 0, "wintyp");
  if (!s) return;
  if (const int found = matchKeyword(s, "STAN+POPU", 2, type)) s->windowSetup.popupWindow = found == 2;
}

void WINMOD(const char* mode) {
  PlotState* s = setterCheck("winmod");
  if (!s) return;
  if (const int found = matchKeyword(s, "FULL+NOER+NONE+NOHO+DELA+NOMB", 6, mode)) s->window.endWanted = found - 1;
}

void WINKEY(const char* key) {
  PlotState* s = setterCheck("winkey");
  if (!s) return;
  if (const int found = matchKeyword(s, "NONE+RETU+ESCA", 3, key)) s->window.endKeyWanted = found - 1;
}

void WINOPT(int value, const char* key) {
  PlotState* s = setterCheck("winopt");
  if (!s || checkRange(s, value, 0, -1)) return;
  if (matchKeyword(s, "DELA+MDEL", 2, key)) s->window.endDelay = value;
}

void GETSCR(int* width, int* height) {
  PlotState* s = strictCheck(0, 3, "getscr");
  if (!s) return;
  *width = kScreenLongSide;
  *height = kScreenShortSide;
  if (const WindowSystem* system = windowSystem()) system->screenSize(width, height);
}

void SETXID(int id, const char* kind) {
  PlotState* s = strictCheck(0, 3, "setxid");
  if (!s) return;
  const int found = matchKeyword(s, "NONE+WIND+PIXM+WIDG", 4, kind);
  if (found) s->windowSetup.foreignWindow = found == 1 ? 0 : static_cast<unsigned long>(static_cast<unsigned>(id));
}

int GETXID(const char* kind) {
  PlotState* s = strictCheck(1, 3, "getxid");
  if (!s || !matchKeyword(s, "WIND+PIXM+WIDG", 3, kind) || s->screen.currentWindow < 0) return 0;
  const WindowSystem* system = windowSystem();
  const int handle = s->screen.windows[s->screen.currentWindow].handle;
  return system && handle ? static_cast<int>(system->nativeId(handle)) : 0;
}
