#include "device/raster_driver.h"

#include <cstdio>

#include "core/messages.h"
#include "device/device_table.h"
#include "device/plot_file.h"
#include "device/sink.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr int kTooManyCrossings = 26, kNoMemory = 53;
constexpr int kIndexedDepth = 8, kTrueColorDepth = 24;

// The entry that an indexed canvas shows, and the components that one of true colours does.
struct ShownColor {
  int index;
  Rgb rgb;
};
ShownColor shownColor(const PlotState* s, int color) {
  int red, green, blue;
  colorComponents(s, color, red, green, blue);
  const Rgb rgb = {static_cast<unsigned char>(red), static_cast<unsigned char>(green),
                   static_cast<unsigned char>(blue)};
  const bool direct = (color & 0xFF000000) == kDirectColor;
  const bool search = direct && !s->raster.canvas->trueColour;
  return {search ? nearestIndex(*s->raster.canvas, rgb) : color & (kColorTableSize - 1), rgb};
}

// Entries among which the nearest colour is searched.
int knownEntries(const PlotState* s) {
  constexpr int kSmallTableEntries = 9, kVgaTableEntries = 16;
  const int kind = s->color.tableKind;
  return kind == kTableSmall ? kSmallTableEntries : kind == kTableVga ? kVgaTableEntries : kColorTableSize;
}

void reportFill(PlotState* s, FillResult result) {
  switch (result) {
  case FillResult::kFine: return;
  case FillResult::kTooManyCrossings: return warnPlain(s, kTooManyCrossings);
  case FillResult::kNoMemory: return warnPlain(s, kNoMemory);
  }
}

// Figures of a layer are laid over the picture one by one when TPRMOD asks for it, so that they show through each
// other.
void endFigure(PlotState* s) {
  RasterCanvas& canvas = *s->raster.canvas;
  if (s->image.autoTransparency && canvas.layer == CanvasLayer::kTransparent)
    mergeLayer(canvas, s->image.blendBackground);
}

} // namespace

RasterCanvas* makeRaster(PlotState* s, bool trueColour) {
  // Paper is white where the screen mode is reversed; an index finds it in the colour table.
  const bool white =
      s->rasterSetup.imageFormat == kImageBilevel || (trueColour && s->colorState.backgroundMode == kBackgroundReverse);
  s->raster.canvas = createCanvas(s->device.pixelWidth, s->device.pixelHeight, trueColour, white);
  if (!s->raster.canvas) {
    warnPlain(s, kNoMemory);
    return nullptr;
  }
  s->raster.canvas->antialias = trueColour && s->image.smoothLines;
  rasterPalette(s, 0, kColorTableSize - 1);
  rasterTransparentColor(s);
  return s->raster.canvas;
}

bool openRaster(PlotState* s) {
  const int device = s->deviceSetup.deviceNumber;
  const bool toFile = device != kDeviceVirtual;
  const bool trueColour = s->rasterSetup.imageFormat == kImageRgb || device == kDevicePpm;
  s->device.colourDepth = trueColour ? kTrueColorDepth : kIndexedDepth;
  if (toFile && (!namePlotFile(s) || !openPlotFile(s))) return false;
  if (makeRaster(s, trueColour)) return true;
  closePlotFile(s);
  return false;
}

void closeRaster(PlotState* s) {
  if (!s->raster.canvas) return;
  rasterEndLayer(s);
  if (s->device.plotOutput) {
    ByteTarget out = bytesTo(s->device.plotOutput);
    const EncodeResult result = encodeRaster(s, s->deviceSetup.deviceNumber - kDeviceTiff + kRasterTiff, out);
    // A failed write is told when the file is closed.
    if (result != EncodeResult::kWriteFailed || !s->device.plotOutput->failed)
      reportEncoder(s, result, s->deviceSetup.plotFileName);
    closePlotFile(s);
  }
  freeRaster(s);
}

void freeRaster(PlotState* s) {
  freeCanvas(s->raster.canvas);
  s->raster = RasterState{};
}

void rasterPen(PlotState* s, float x, float y, int code) {
  canvasLine(*s->raster.canvas, deviceRound(x), deviceRound(y), code);
}

void rasterFill(PlotState* s, const float* xs, const float* ys, int n) {
  reportFill(s, canvasFill(*s->raster.canvas, xs, ys, n));
  endFigure(s);
}

void rasterRectangle(PlotState* s, float x1, float y1, float x2, float y2, int color) {
  const ShownColor shown = shownColor(s, color);
  canvasRectangle(*s->raster.canvas, deviceRound(x1), deviceRound(y1), deviceRound(x2), deviceRound(y2), shown.index,
                  shown.rgb);
  endFigure(s);
}

void rasterSymbol(PlotState* s, int symbol, float x, float y, float size) {
  flushCanvas(*s->raster.canvas);
  canvasSymbol(*s->raster.canvas, symbol, deviceRound(x), deviceRound(y), deviceRound(size));
  endFigure(s);
}

void rasterColor(PlotState* s, int color) {
  const ShownColor shown = shownColor(s, color);
  setCanvasColour(*s->raster.canvas, shown.index, shown.rgb);
}

void rasterPalette(PlotState* s, int first, int last) {
  Rgb entries[kColorTableSize];
  for (int i = first; i <= last; ++i) {
    const int entry = s->color.colorTable[i];
    entries[i] = {static_cast<unsigned char>(entry >> 16 & 255), static_cast<unsigned char>(entry >> 8 & 255),
                  static_cast<unsigned char>(entry & 255)};
  }
  flushCanvas(*s->raster.canvas);
  setPalette(*s->raster.canvas, first, entries + first, last - first + 1, knownEntries(s));
}

void rasterWidth(PlotState* s, float width) {
  RasterCanvas& canvas = *s->raster.canvas;
  const int pixels = s->line.hardwareLines ? deviceRound(width * s->device.deviceScale) : 1;
  setCanvasPen(canvas, pixels, canvas.lineCap, canvas.lineJoin);
}

void rasterEnds(PlotState* s) {
  RasterCanvas& canvas = *s->raster.canvas;
  setCanvasPen(canvas, canvas.lineWidth, s->line.lineCap, s->line.lineJoin);
  canvas.lineMiter = s->line.lineMiter;
}

void rasterClip(PlotState* s, bool on, float x1, float y1, float x2, float y2) {
  RasterCanvas& canvas = *s->raster.canvas;
  flushCanvas(canvas);
  const PixelBox box = {deviceRound(x1), deviceRound(y1), deviceRound(x2), deviceRound(y2)};
  setCanvasClip(canvas, on ? box : wholeCanvas(canvas));
}

void rasterErase(PlotState* s) {
  flushCanvas(*s->raster.canvas);
  eraseCanvas(*s->raster.canvas);
}

void rasterTransparentColor(PlotState* s) {
  RasterCanvas& canvas = *s->raster.canvas;
  canvas.transparentColour = -1;
  if (s->image.imageTransparent < 0) return;
  const ShownColor shown = shownColor(s, s->image.imageTransparent);
  canvas.transparentColour = shown.index;
  canvas.transparent = shown.rgb;
}

void rasterEndLayer(PlotState* s) {
  flushCanvas(*s->raster.canvas);
  closeLayer(*s->raster.canvas, s->image.blendBackground);
  s->raster.transparencyDepth = 0;
}

} // namespace quilla
