// Public routines that ask the user for positions in the window.
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/device_point.h"
#include "device/screen.h"
#include "platform/window_system.h"
#include "quilla/quilla.h"

#include <utility>

using namespace quilla;

namespace {

constexpr int kFirstFileDevice = 101, kBadDevice = 161;

// The state for a routine that needs a window, or null after a message. What was drawn is sent.
PlotState* cursorCheck(const char* routine) {
  PlotState* s = strictCheck(1, 3, routine);
  if (!s) return nullptr;
  if (s->deviceSetup.deviceNumber >= kFirstFileDevice) {
    warnWithText(s, kBadDevice, "Bad output device");
    return nullptr;
  }
  flushPath(s);
  s->screen.cursor = CursorState{};
  return s;
}

int rounded(float value) { return static_cast<int>(value + 0.5F); }

// Pixels of the picture as the script counts: plot units from its origin, or pixels.
void toScript(const PlotState* s, int px, int py, int* x, int* y) {
  *x = px;
  *y = py;
  if (s->window.cursorInPixels) return;
  const float scale = s->device.deviceScale;
  int plotX = rounded(static_cast<float>(px) / scale), plotY = rounded(static_cast<float>(py) / scale);
  // A turned page stands on its side: across the picture runs its y.
  if (pageTurned(s)) plotX = s->geometry.pageWidth - std::exchange(plotY, plotX);
  *x = plotX - s->page.originX;
  *y = userY(s, plotY - s->page.originY);
}

void toPixels(const PlotState* s, int x, int y, int* px, int* py) {
  *px = x;
  *py = y;
  if (s->window.cursorInPixels) return;
  const float scale = s->device.deviceScale;
  const int plotX = addCoordinates(x, s->page.originX), plotY = addCoordinates(userY(s, y), s->page.originY);
  const bool turned = pageTurned(s);
  *px = rounded(static_cast<float>(turned ? plotY : plotX) * scale);
  *py = rounded(static_cast<float>(turned ? s->geometry.pageWidth - plotX : plotY) * scale);
}

// Points of clicks or moves; iret 1 if there was room for no more.
void collect(const char* routine, int mode, bool moves, int* xs, int* ys, int nmax, int* n, int* iret) {
  *n = *iret = 0;
  PlotState* s = cursorCheck(routine);
  if (!s || checkRange(s, nmax, 1, -1)) return;
  CursorState& c = s->screen.cursor;
  c = {.moves = moves, .pointsX = xs, .pointsY = ys, .pointLimit = nmax};
  runCursor(s, mode);
  *n = c.pointCount;
  *iret = c.pointCount >= nmax ? 1 : 0;
  for (int i = 0; i < c.pointCount; i++) toScript(s, xs[i], ys[i], &xs[i], &ys[i]);
  c = CursorState{};
}

void band(const char* routine, int mode, int* x1, int* y1, int* x2, int* y2) {
  *x1 = *y1 = *x2 = *y2 = 0;
  PlotState* s = cursorCheck(routine);
  if (!s) return;
  runCursor(s, mode);
  const CursorState& c = s->screen.cursor;
  if (!c.done) return;
  toScript(s, c.startX, c.startY, x1, y1);
  toScript(s, c.x, c.y, x2, y2);
}

int shapeOf(PlotState* s, const char* list, int n, int first, const char* shape) {
  const int found = matchKeyword(s, list, n, shape);
  return found ? found - 1 + first : -1;
}

} // namespace

int CSRPOS(int* x, int* y) {
  PlotState* s = cursorCheck("csrpos");
  const WindowSystem* system = windowSystem();
  if (!s || !system) return 0;
  CursorState& c = s->screen.cursor;
  const int handle = s->screen.windows[s->screen.currentWindow].handle, start = s->window.cursorStart;
  s->screen.lastKey = 0;
  toPixels(s, *x, *y, &c.x, &c.y);
  if (start == kCursorStandard || start == kCursorSet) system->placeMouse(handle, c.x, c.y);
  if (start == kCursorGet) system->askMouse(handle, &c.x, &c.y);
  if (start == kCursorStandard || start == kCursorRead) {
    runCursor(s, kCursorPosition);
    // A key has no place of its own: the position is that of the mouse.
    if (s->screen.lastKey != kMouseKey) system->askMouse(handle, &c.x, &c.y);
  }
  toScript(s, c.x, c.y, x, y);
  return s->screen.lastKey;
}

void CSRPT1(int* x, int* y) {
  *x = *y = 0;
  PlotState* s = cursorCheck("csrpt1");
  if (!s) return;
  runCursor(s, kCursorPoint);
  if (s->screen.cursor.done) toScript(s, s->screen.cursor.x, s->screen.cursor.y, x, y);
}

void CSRPTS(int* xs, int* ys, int nmax, int* n, int* iret) {
  collect("csrpts", kCursorPoints, false, xs, ys, nmax, n, iret);
}
void CSRMOV(int* xs, int* ys, int nmax, int* n, int* iret) {
  collect("csrmov", kCursorPoints, true, xs, ys, nmax, n, iret);
}
void CSRPOL(int* xs, int* ys, int nmax, int* n, int* iret) {
  collect("csrpol", kCursorPolygon, false, xs, ys, nmax, n, iret);
}

void CSRLIN(int* x1, int* y1, int* x2, int* y2) { band("csrlin", kCursorLine, x1, y1, x2, y2); }
void CSRREC(int* x1, int* y1, int* x2, int* y2) { band("csrrec", kCursorRectangle, x1, y1, x2, y2); }

int CSRKEY(void) {
  PlotState* s = cursorCheck("csrkey");
  return s ? s->screen.lastKey : 0;
}

void CSRUNI(const char* unit) {
  PlotState* s = setterCheck("csruni");
  if (!s) return;
  if (const int found = matchKeyword(s, "PLOT+PIXE", 2, unit)) s->window.cursorInPixels = found == 2;
}

void CSRTYP(const char* shape) {
  PlotState* s = setterCheck("csrtyp");
  if (!s) return;
  const int found = shapeOf(s, "NONE+CROS+ARRO+VARR", 4, kCursorPlain, shape);
  if (found >= 0) s->window.cursorShape = found;
}

void SETCSR(const char* shape) {
  PlotState* s = cursorCheck("setcsr");
  if (!s) return;
  const int found = shapeOf(s, "CROS+ARRO+VARR", 3, kCursorCross, shape);
  const WindowSystem* system = windowSystem();
  if (found >= 0 && system) system->setCursor(s->screen.windows[s->screen.currentWindow].handle, found);
}

void CSRMOD(const char* mode, const char* key) {
  PlotState* s = setterCheck("csrmod");
  if (!s) return;
  const int found = matchKeyword(s, "STAN+SET +READ+GET ", 4, mode);
  if (found && matchKeyword(s, "POS", 1, key)) s->window.cursorStart = found - 1;
}
