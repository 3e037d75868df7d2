#include "device/depth_raster.h"

#include "core/messages.h"
#include "device/device_point.h"
#include "device/page_image.h"
#include "device/raster_driver.h"
#include "raster/shaded.h"

namespace quilla {
namespace {

constexpr int kNoMemory = 53;
constexpr float kFull = 255.0F;

bool isDocument(const PlotState* s) {
  const DeviceFamily family = deviceFamily(s->deviceSetup.deviceNumber);
  return family == DeviceFamily::kPostScript || family == DeviceFamily::kPdf;
}

// Pixels per plot unit of the raster of a document: 72 in an inch of the sheet, times ZBFSCL.
float pixelsOfDocument(const PlotState* s) {
  constexpr float kPointsPerSheetUnit = 0.14173229F;
  const bool pdf = deviceFamily(s->deviceSetup.deviceNumber) == DeviceFamily::kPdf;
  return s->device.deviceScale * (pdf ? 1.0F : kPointsPerSheetUnit) * s->depth.rasterFactor;
}

bool openOwnRaster(PlotState* s) {
  const float scale = pixelsOfDocument(s);
  const int keptWidth = s->device.pixelWidth, keptHeight = s->device.pixelHeight;
  s->device.pixelWidth = static_cast<int>(static_cast<float>(s->geometry.pageWidth) * scale + 0.5F);
  s->device.pixelHeight = static_cast<int>(static_cast<float>(s->geometry.pageHeight) * scale + 0.5F);
  s->depthState.ownRaster = makeRaster(s, true) != nullptr;
  s->device.pixelWidth = keptWidth;
  s->device.pixelHeight = keptHeight;
  return s->depthState.ownRaster;
}

// Pixels that nothing was painted on are left out as white ones.
void readPaintedRow(void* picture, int y, unsigned char* rgb) {
  const auto* canvas = static_cast<const RasterCanvas*>(picture);
  readRgbRow(*canvas, 0, y, rgb, canvas->width);
  const unsigned char* alpha = canvasRow(*canvas, y) + 3;
  for (int x = 0; x < canvas->width; ++x)
    if (alpha[4 * x] == 0) rgb[3 * x] = rgb[3 * x + 1] = rgb[3 * x + 2] = 255;
}

void closeOwnRaster(PlotState* s) {
  RasterCanvas* canvas = s->raster.canvas;
  flushCanvas(*canvas);
  sinkPageImage(s, {readPaintedRow, canvas, canvas->width, canvas->height, 0.0F, 0.0F,
                    static_cast<float>(s->geometry.pageWidth), static_cast<float>(s->geometry.pageHeight), true});
  freeRaster(s);
  s->depthState.ownRaster = false;
}

ShadedPixel pixelOf(const PlotState* s, const ShadedPoint& p) {
  DevicePoint at{};
  if (s->depthState.ownRaster) {
    const float scale = pixelsOfDocument(s);
    at = {p.x * scale, p.y * scale};
  } else {
    at = devicePoint(s, p.x, p.y);
  }
  return {at.x, at.y, p.depth, p.r * kFull, p.g * kFull, p.b * kFull};
}

} // namespace

bool takesDepths(const PlotState* s) {
  const int device = s->deviceSetup.deviceNumber;
  return !(device >= 101 && device <= 500) && device < 701;
}

bool sinkOpenDepths(PlotState* s) {
  if (isDocument(s) && !s->raster.canvas && !openOwnRaster(s)) return false;
  RasterCanvas* canvas = s->raster.canvas;
  if (!canvas) return false;
  flushCanvas(*canvas);
  if (!s->depth.depthsKept || openDepths(*canvas)) return true;
  warnPlain(s, kNoMemory);
  if (s->depthState.ownRaster) freeRaster(s);
  s->depthState.ownRaster = false;
  return false;
}

void sinkCloseDepths(PlotState* s) {
  RasterCanvas* canvas = s->raster.canvas;
  if (!canvas) return;
  closeDepths(*canvas);
  if (s->depthState.ownRaster) closeOwnRaster(s);
}

void sinkTriangle(PlotState* s, const ShadedPoint (&corners)[3]) {
  if (!s->raster.canvas) return;
  canvasTriangle(*s->raster.canvas, {pixelOf(s, corners[0]), pixelOf(s, corners[1]), pixelOf(s, corners[2])});
}

void sinkDepthLine(PlotState* s, const ShadedPoint& from, const ShadedPoint& to) {
  if (s->raster.canvas) canvasDepthLine(*s->raster.canvas, pixelOf(s, from), pixelOf(s, to));
}

} // namespace quilla
