// Public routines that place the window and choose the kind of application.
#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// Both at least the low bound; else the lesser is reported.
bool areAtLeast(PlotState* s, int a, int b, int low) { return checkRange(s, a < b ? a : b, low, low - 1) == 0; }

} // namespace

void WINDOW(int nx, int ny, int nw, int nh) {
  PlotState* s = strictCheck(0, 3, "window");
  if (!s || !areAtLeast(s, nx, ny, 0) || !areAtLeast(s, nw, nh, 1)) return;
  WindowSetup& w = s->windowSetup;
  w.windowPlacementMode = kWindowPlaced;
  w.windowX = nx;
  w.windowY = ny;
  w.windowWidth = nw;
  w.windowHeight = nh;
  w.windowCorner = kCornerNone;
}

void WINSIZ(int nw, int nh) {
  PlotState* s = strictCheck(0, 3, "winsiz");
  if (!s || !areAtLeast(s, nw, nh, 1)) return;
  s->windowSetup.windowPlacementMode = kWindowSized;
  s->windowSetup.windowWidth = nw;
  s->windowSetup.windowHeight = nh;
}

void GETWIN(int* nx, int* ny, int* nw, int* nh) {
  PlotState* s = strictCheck(1, 3, "getwin");
  if (!s) return;
  *nx = s->windowSetup.windowX;
  *ny = s->windowSetup.windowY;
  *nw = s->device.pixelWidth;
  *nh = s->device.pixelHeight;
}

void WINJUS(const char* corner) {
  PlotState* s = strictCheck(0, 3, "winjus");
  if (!s) return;
  int found = matchKeyword(s, "RBOT+RTOP+LTOP+LBOT+CENT", 5, corner);
  if (!found) return;
  s->windowSetup.windowCorner = found;
  if (s->windowSetup.windowPlacementMode == kWindowPlaced) s->windowSetup.windowPlacementMode = kWindowDefault;
}

void WINAPP(const char* mode) {
  PlotState* s = strictCheck(0, 0, "winapp");
  if (!s) return;
  if (int found = matchKeyword(s, "CONS+WIND", 2, mode)) s->windowSetup.windowsApplication = found == 2;
}

void X11MOD(const char* mode) {
  PlotState* s = strictCheck(0, 0, "x11mod");
  if (!s) return;
  if (int found = matchKeyword(s, "STOR+NOST+AUTO+PIXM", 4, mode)) s->windowSetup.backingStore = found - 1;
}
