#include "device/screen.h"

#include <cstdio>

#include "core/messages.h"
#include "device/device_point.h"
#include "device/device_table.h"
#include "device/raster_driver.h"
#include "device/screen_wait.h"
#include "platform/window_system.h"

namespace quilla {

namespace {

constexpr int kNoWindow = 161;
constexpr int kIndexedDepth = 8, kTrueColorDepth = 24;

WindowRecord& current(PlotState* s) { return s->screen.windows[s->screen.currentWindow]; }

// The corner of WINJUS, or the place of WINDOW.
WindowWish wishFor(const PlotState* s, int index) {
  const WindowSetup& w = s->windowSetup;
  WindowWish wish = {};
  wish.width = wish.pictureWidth = s->device.pixelWidth;
  wish.height = wish.pictureHeight = s->device.pixelHeight;
  if (w.scrolledWidth > 0) {
    const bool asked = w.windowPlacementMode != kWindowDefault, lying = wish.width > wish.height;
    wish.width = asked ? w.windowWidth : lying ? kScreenLongSide : kScreenShortSide;
    wish.height = asked ? w.windowHeight : lying ? kScreenShortSide : kScreenLongSide;
  }
  wish.parent = w.foreignWindow;
  wish.title = "QUILLA / Working";
  wish.popup = w.popupWindow;
  int screenWidth = 0, screenHeight = 0;
  windowSystem()->screenSize(&screenWidth, &screenHeight);
  const int right = screenWidth - wish.width, bottom = screenHeight - wish.height;
  wish.placed = true;
  switch (w.windowCorner) {
  case kCornerRightBottom: wish.x = right, wish.y = bottom; break;
  case kCornerRightTop: wish.x = right; break;
  case kCornerLeftTop: break;
  case kCornerLeftBottom: wish.y = bottom; break;
  case kWindowCentered: wish.x = right / 2, wish.y = bottom / 2; break;
  default:
    wish.placed = w.windowPlacementMode == kWindowPlaced && index == s->screen.mainWindow;
    wish.x = w.windowX;
    wish.y = w.windowY;
  }
  return wish;
}

void tellMissingDisplay(PlotState* s) {
  if (s->windowSetup.displayMissed) return;
  std::fputs("QUILLA: there is no display, plots for windows are drawn in memory\n", stderr);
  s->windowSetup.displayMissed = true;
}

// The canvas of the plot goes back into the record of its window.
void putAway(PlotState* s) {
  if (s->screen.currentWindow < 0) return;
  WindowRecord& record = current(s);
  if (s->raster.canvas) rasterEndLayer(s);
  record.canvas = s->raster.canvas;
  record.deviceScale = s->device.deviceScale;
  record.originX = s->page.originX;
  record.originY = s->page.originY;
  s->raster.canvas = nullptr;
}

// The picture of the window becomes the canvas of the plot, with the pen of the plot.
void takeOut(PlotState* s, int index) {
  s->screen.currentWindow = index;
  WindowRecord& record = current(s);
  s->raster.canvas = record.canvas;
  record.canvas = nullptr;
  s->device.pixelWidth = record.width;
  s->device.pixelHeight = record.height;
  s->device.deviceScale = record.deviceScale;
  s->page.originX = record.originX;
  s->page.originY = record.originY;
}

void sendPen(PlotState* s) {
  rasterPalette(s, 0, kColorTableSize - 1);
  rasterColor(s, s->color.currentColor);
  rasterWidth(s, static_cast<float>(s->line.lineWidthSetting < 0 ? -s->line.lineWidthSetting : 1));
  rasterEnds(s);
}

void closeRecord(WindowRecord& record) {
  const WindowSystem* system = windowSystem();
  if (system && record.handle) system->closeWindow(record.handle);
  freeCanvas(record.canvas);
  record = WindowRecord{};
}

bool anyOpen(const ScreenLayer& layer) {
  for (const WindowRecord& record : layer.windows)
    if (record.open) return true;
  return false;
}

// A picture as large as the window that was asked for, and the window before it.
bool makeWindow(PlotState* s, int index) {
  WindowRecord& record = s->screen.windows[index];
  const WindowSystem* system = windowSystem();
  const bool trueColour = system != nullptr || s->rasterSetup.imageFormat == kImageRgb;
  s->device.colourDepth = trueColour ? kTrueColorDepth : kIndexedDepth;
  if (!makeRaster(s, trueColour)) return false;
  record = {.open = true, .width = s->device.pixelWidth, .height = s->device.pixelHeight};
  record.deviceScale = s->device.deviceScale;
  if (s->screen.mainWindow < 0) s->screen.mainWindow = index;
  s->screen.currentWindow = index;
  if (!system) {
    tellMissingDisplay(s);
    return true;
  }
  record.handle = system->openWindow(wishFor(s, index));
  if (record.handle) return true;
  warnWithText(s, kNoWindow, "Window cannot be created");
  freeRaster(s);
  record = WindowRecord{};
  return false;
}

// Whether plots go into a draw widget of the program.
bool inWidget(const PlotState* s) {
  int width = 0, height = 0;
  const WindowSystem* system = windowSystem();
  return system && system->holderSize(s->windowSetup.foreignWindow, &width, &height);
}

// The picture of PAGWIN, the draw widget, or the window, and the scale of the page to it.
void chooseSize(PlotState* s) {
  choosePixels(s);
  if (s->windowSetup.scrolledWidth > 0) {
    s->device.pixelWidth = s->windowSetup.scrolledWidth;
    s->device.pixelHeight = s->windowSetup.scrolledHeight;
  } else if (inWidget(s)) {
    windowSystem()->holderSize(s->windowSetup.foreignWindow, &s->device.pixelWidth, &s->device.pixelHeight);
  }
  s->device.deviceScale = scaleOfDevice(s);
}

bool fitsPlot(const PlotState* s, const WindowRecord& record) {
  const WindowSystem* system = windowSystem();
  if (system && !system->isHeldBy(record.handle, s->windowSetup.foreignWindow)) return false;
  return record.open && record.canvas && record.width == s->device.pixelWidth && record.height == s->device.pixelHeight;
}

} // namespace

int windowOfDevice(int deviceNumber) {
  return deviceNumber < kDeviceWindow ? deviceNumber - kDeviceWindowFirst + 1 : 1;
}

bool openScreen(PlotState* s) {
  ScreenLayer& layer = s->screen;
  const int index = windowOfDevice(s->deviceSetup.deviceNumber) - 1;
  layer.endMode = kEndFull;
  layer.quit = false;
  layer.lastKey = 0;
  chooseSize(s);
  WindowRecord& record = layer.windows[index];
  if (fitsPlot(s, record)) {
    s->raster.canvas = record.canvas;
    record.canvas = nullptr;
    record.deviceScale = s->device.deviceScale;
    layer.currentWindow = index;
    s->device.colourDepth = s->raster.canvas->trueColour ? kTrueColorDepth : kIndexedDepth;
    s->raster.canvas->backgroundWhite =
        s->raster.canvas->trueColour && s->colorState.backgroundMode == kBackgroundReverse;
    if (s->colorState.backgroundMode != kBackgroundKeep) rasterErase(s);
    return true;
  }
  if (record.open) closeRecord(record);
  if (layer.mainWindow == index) layer.mainWindow = -1;
  return makeWindow(s, index);
}

bool addWindow(PlotState* s, int index) {
  const int before = s->screen.currentWindow;
  putAway(s);
  chooseSize(s);
  if (makeWindow(s, index)) {
    sendPen(s);
    return true;
  }
  takeOut(s, before);
  return false;
}

void selectWindow(PlotState* s, int index) {
  if (index == s->screen.currentWindow) return;
  putAway(s);
  takeOut(s, index);
  sendPen(s);
}

void removeWindow(PlotState* s, int index) {
  if (index == s->screen.currentWindow) selectWindow(s, s->screen.mainWindow);
  closeRecord(s->screen.windows[index]);
}

void hideWindow(PlotState* s, int index, bool hidden) {
  WindowRecord& record = s->screen.windows[index];
  record.hidden = hidden;
  const WindowSystem* system = windowSystem();
  if (system && record.handle) system->showWindow(record.handle, !hidden);
}

void titleWindow(PlotState* s, const char* title) {
  WindowRecord& record = current(s);
  record.ownTitle = true;
  const WindowSystem* system = windowSystem();
  if (system && record.handle) system->setTitle(record.handle, title);
}

void refreshScreen(PlotState* s) {
  const WindowSystem* system = windowSystem();
  RasterCanvas* canvas = s->raster.canvas;
  if (!canvas || s->screen.currentWindow < 0) return;
  flushCanvas(*canvas);
  if (!system || !canvas->trueColour) return;
  const WindowRecord& record = current(s);
  if (record.handle) system->showPicture(record.handle, canvas->basePixels, canvas->width, canvas->height);
}

void endScreen(PlotState* s) {
  ScreenLayer& layer = s->screen;
  if (layer.currentWindow < 0) return freeRaster(s);
  layer.endMode = s->window.endWanted;
  layer.keyMode = layer.endMode == kEndDelay ? kEndKeyNone : s->window.endKeyWanted;
  if (s->raster.canvas) rasterEndLayer(s);
  const int last = layer.currentWindow;
  for (int i = 0; i < kPlotWindows; i++) {
    if (!layer.windows[i].open || (i != last && !layer.windows[i].canvas)) continue;
    selectWindow(s, i);
    refreshScreen(s);
  }
  selectWindow(s, layer.mainWindow);
  const bool held = inWidget(s);
  if (windowSystem() && current(s).handle && !held) waitAtEnd(s, s->window.endDelay);
  putAway(s);
  const bool kept = held || s->window.endWanted == kEndNone;
  layer.endMode = kept ? kEndNone : kEndDone;
  s->raster = RasterState{};
}

void releaseScreen(PlotState* s) {
  if (s->screen.currentWindow < 0 || s->screen.endMode == kEndNone) return;
  freeScreen(s);
}

void freeScreen(PlotState* s) {
  if (!anyOpen(s->screen)) return;
  for (WindowRecord& record : s->screen.windows)
    if (record.open) closeRecord(record);
  const int lastKey = s->screen.lastKey;
  const WindowCallback resized = s->screen.resized;
  s->screen = ScreenLayer{};
  s->screen.lastKey = lastKey;
  s->screen.resized = resized;
}

} // namespace quilla
