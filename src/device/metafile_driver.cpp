#include "device/metafile_driver.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include "device/device_point.h"
#include "device/sink.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr int kTwipsPerInch = 1440, kTenthMillimetresPerInch = 254;
constexpr int kWindowMargin = 20;
constexpr int kHairWidth = 1;

// Selects a pen of the current colour and of this width.
void usePen(MetafileWriter& w, int width) {
  if (w.penCurrent && w.penWidthInUse == width) return;
  const int before = w.pen;
  w.pen = metafilePen(*w.file, width, w.red, w.green, w.blue);
  metafileTextColor(*w.file, w.red, w.green, w.blue);
  metafileSelect(*w.file, w.pen);
  metafileDelete(*w.file, before);
  w.penWidthInUse = width;
  w.penCurrent = true;
}

void dropBrush(MetafileWriter& w, int brush) {
  metafileSelect(*w.file, w.paperBrush);
  metafileDelete(*w.file, brush);
}

// Fills a rectangle, right and bottom included, with a brush of its own.
void fillRectangle(MetafileWriter& w, int left, int top, int right, int bottom, int r, int g, int b) {
  const int brush = metafileBrush(*w.file, r, g, b);
  metafileSelect(*w.file, brush);
  metafileRectangle(*w.file, left, top, right + 1, bottom + 1);
  dropBrush(w, brush);
}

bool isWmf(const PlotState* s) { return s->deviceSetup.deviceNumber == kDeviceWmf; }

} // namespace

bool metafileOpen(PlotState* s) {
  MetafileWriter* w = new (std::nothrow) MetafileWriter;
  if (!w) return false;
  const DeviceExtent page = deviceExtent(s);
  const int width = deviceRound(page.width), height = deviceRound(page.height);
  const char* name = s->deviceSetup.plotFileName;
  if (isWmf(s)) {
    const float factor = s->pageSetup.unitFactor * s->pageSetup.scaleFactor;
    const bool tenthMillimetres = s->device.deviceScale == factor; // the page is too large for twips
    const PlaceableHeader header = {width, height, tenthMillimetres ? kTenthMillimetresPerInch : kTwipsPerInch};
    w->file = createMetafile(name, s->deviceSetup.wmfPlaceable ? &header : nullptr);
  } else {
    w->file = createEnhancedMetafile(name, "QUILLA");
  }
  if (!w->file) {
    delete w;
    return false;
  }
  s->device.metafile = w;
  if (isWmf(s)) {
    metafileMapMode(*w->file, kMapAnisotropic);
    metafileWindowOrigin(*w->file, 0, 0);
    metafileWindowExtent(*w->file, width + kWindowMargin, height + kWindowMargin);
  }
  w->paperBrush = metafileBrush(*w->file, 255, 255, 255);
  metafileSelect(*w->file, w->paperBrush);
  // Paper is white: the screen colours of a plot that is not reversed need a black page.
  if (!isWmf(s) && s->colorState.backgroundMode != kBackgroundReverse)
    fillRectangle(*w, 0, 0, width + 1, height + 1, 0, 0, 0);
  return true;
}

bool metafileClose(PlotState* s) {
  MetafileWriter* w = s->device.metafile;
  const bool written = closeMetafile(w->file);
  delete w;
  s->device.metafile = nullptr;
  return written;
}

void metafilePlotPen(PlotState* s, float x, float y, int code) {
  MetafileWriter& w = *s->device.metafile;
  const int toX = deviceRound(x), toY = deviceRound(y);
  if (code == kPenDraw) {
    usePen(w, w.penWidth);
    if (w.moved) metafileMoveTo(*w.file, w.lastX, w.lastY);
    metafileLineTo(*w.file, toX, toY);
  }
  w.moved = code != kPenDraw;
  w.lastX = toX;
  w.lastY = toY;
}

void metafilePlotColor(PlotState* s, int r, int g, int b) {
  MetafileWriter& w = *s->device.metafile;
  if (w.red != r || w.green != g || w.blue != b) w.penCurrent = false;
  w.red = r;
  w.green = g;
  w.blue = b;
}

void metafilePlotWidth(PlotState* s, int width) { s->device.metafile->penWidth = width; }

bool metafilePlotFill(PlotState* s, const float* x, const float* y, int n) {
  MetafileWriter& w = *s->device.metafile;
  auto* points = static_cast<MetafilePoint*>(std::malloc(sizeof(MetafilePoint) * static_cast<std::size_t>(n)));
  if (!points) return false;
  for (int i = 0; i < n; ++i) points[i] = {deviceRound(x[i]), deviceRound(y[i])};
  // The outline of a polygon is as thin as can be, so that a wide pen does not make it grow.
  usePen(w, kHairWidth);
  const int brush = metafileBrush(*w.file, w.red, w.green, w.blue);
  metafileSelect(*w.file, brush);
  metafilePolygon(*w.file, points, n);
  dropBrush(w, brush);
  std::free(points);
  return true;
}

void metafilePlotRectangle(PlotState* s, float x1, float y1, float x2, float y2, int r, int g, int b) {
  fillRectangle(*s->device.metafile, deviceRound(std::min(x1, x2)), deviceRound(std::min(y1, y2)),
                deviceRound(std::max(x1, x2)), deviceRound(std::max(y1, y2)), r, g, b);
}

} // namespace quilla
