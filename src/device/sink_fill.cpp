// Filled polygons and rectangles.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/messages.h"
#include "device/device_point.h"
#include "device/ipe_driver.h"
#include "device/metafile_driver.h"
#include "device/pdf_driver.h"
#include "device/plain_drivers.h"
#include "device/polygon_clip.h"
#include "device/postscript_driver.h"
#include "device/raster_driver.h"
#include "device/sink.h"
#include "device/svg_driver.h"
#include "device/trace.h"

namespace quilla {
namespace {

constexpr int kPointsOnStack = 256;
constexpr int kNoMemory = 53;

// Hands the polygon's points on the device to a driver.
template <typename Fill> void fillOnDevice(PlotState* s, const float* xs, const float* ys, int n, Fill fill) {
  float few[2 * kPointsOnStack];
  float* many = nullptr;
  if (n > kPointsOnStack) {
    many = static_cast<float*>(std::malloc(2 * sizeof(float) * static_cast<std::size_t>(n)));
    if (!many) return warnPlain(s, kNoMemory);
  }
  float* points = many ? many : few;
  for (int i = 0; i < n; ++i) {
    const DevicePoint p = devicePoint(s, xs[i], ys[i]);
    points[i] = p.x;
    points[n + i] = p.y;
  }
  fill(points, points + n);
  std::free(many);
}

// The same for what lies in the clip window: for formats whose viewers know none.
template <typename Fill> void fillInWindow(PlotState* s, const float* xs, const float* ys, int n, Fill fill) {
  auto hand = [&fill](int count) { return [&fill, count](const float* x, const float* y) { fill(x, y, count); }; };
  if (polygonInClipWindow(s, xs, ys, n)) return fillOnDevice(s, xs, ys, n, hand(n));
  ClippedPolygon part;
  if (!clipPolygon(s, xs, ys, n, part)) return warnPlain(s, kNoMemory);
  if (part.count > 2) fillOnDevice(s, part.x, part.y, part.count, hand(part.count));
  std::free(part.x);
}

} // namespace

bool qqfill(PlotState* s, const float* xs, const float* ys, int n) {
  if (!s->line.hardwareShading || n < 1) return false;
  if (s->device.trace) traceFill(s, xs, ys, n);
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (!s->device.postScript) break;
    fillOnDevice(s, xs, ys, n, [s, n](const float* x, const float* y) { psFill(s, x, y, n); });
    return true;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) {
      fillOnDevice(s, xs, ys, n, [pdf, n](const float* x, const float* y) { pdfFill(*pdf, x, y, n); });
      return true;
    }
    break;
  case DeviceFamily::kSvg:
    if (!s->device.vector) break;
    fillInWindow(s, xs, ys, n, [s](const float* x, const float* y, int count) { svgFill(s, x, y, count); });
    return true;
  case DeviceFamily::kIpe:
    if (!s->device.vector || !polygonInClipWindow(s, xs, ys, n)) break;
    fillOnDevice(s, xs, ys, n, [s, n](const float* x, const float* y) { ipeFill(s, x, y, n); });
    return true;
  case DeviceFamily::kMetafile:
    if (!s->device.metafile) break;
    fillInWindow(s, xs, ys, n, [s](const float* x, const float* y, int count) {
      if (!metafilePlotFill(s, x, y, count)) warnPlain(s, kNoMemory);
    });
    return true;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kRaster:
    if (!s->raster.canvas) break;
    fillOnDevice(s, xs, ys, n, [s, n](const float* x, const float* y) { rasterFill(s, x, y, n); });
    return true;
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kJava: break;
  }
  return false;
}

namespace {

struct Bar {
  float x1, y1, x2, y2; // page origin added
};

// For devices without filled rectangles: horizontal lines, the last one on the lower edge. What lies outside the page
// is left out.
void hatchBar(PlotState* s, const Bar& bar, int color) {
  constexpr float kLineDistance = 1.4F; // 0.1 mm
  const auto width = static_cast<float>(s->geometry.pageWidth), height = static_cast<float>(s->geometry.pageHeight);
  const float left = std::max(std::min(bar.x1, bar.x2), 0.0F), right = std::min(std::max(bar.x1, bar.x2), width);
  const float top = std::max(std::min(bar.y1, bar.y2), 0.0F), bottom = std::min(std::max(bar.y1, bar.y2), height);
  if (!(left <= right && top <= bottom)) return;
  qqcolor(s, color);
  const float step = kLineDistance / s->pageSetup.unitFactor;
  const int count = static_cast<int>(std::ceil((bottom - top) / step));
  for (int i = 0; i <= count; ++i) {
    const float y = i < count ? top + static_cast<float>(i) * step : bottom;
    qqpen(s, left, y, kPenMove);
    qqpen(s, right, y, kPenDraw);
  }
  qqcolor(s, s->color.currentColor);
}

} // namespace

bool sinkSymbol(PlotState* s, int symbol, float x, float y, float height) {
  if (!s->raster.canvas || pageTurned(s)) return false;
  const float values[] = {static_cast<float>(symbol), x, y, height};
  if (s->device.trace) traceReals(s, "symbol", values, 4);
  const DevicePoint p = devicePoint(s, x, y);
  rasterSymbol(s, symbol, p.x, p.y, height * s->device.deviceScale);
  return true;
}

bool qqbar(PlotState* s, float x1, float y1, float x2, float y2, int color) {
  const auto originX = static_cast<float>(s->page.originX), originY = static_cast<float>(s->page.originY);
  const Bar bar = {x1 + originX, y1 + originY, x2 + originX, y2 + originY};
  if (s->device.trace) traceBar(s, bar.x1, bar.y1, bar.x2, bar.y2, color);
  const DevicePoint a = devicePoint(s, bar.x1, bar.y1), b = devicePoint(s, bar.x2, bar.y2);
  int red, green, blue;
  colorComponents(s, color, red, green, blue);
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (!s->device.postScript) break;
    psRectangle(s, a.x, a.y, b.x, b.y, red, green, blue);
    return true;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) {
      pdfRectangle(*pdf, std::min(a.x, b.x), std::min(a.y, b.y), std::fabs(b.x - a.x), std::fabs(b.y - a.y), red, green,
                   blue);
      return true;
    }
    break;
  case DeviceFamily::kSvg:
    if (!s->device.vector) break;
    svgRectangle(s, a.x, a.y, b.x, b.y, red, green, blue);
    return true;
  case DeviceFamily::kIpe:
    if (!s->device.vector) break;
    ipeRectangle(s, a.x, a.y, b.x, b.y, red, green, blue);
    return true;
  case DeviceFamily::kMetafile:
    if (!s->device.metafile) break;
    metafilePlotRectangle(s, a.x, a.y, b.x, b.y, red, green, blue);
    return true;
  case DeviceFamily::kJava:
    if (!s->device.plotOutput) break;
    qqcolor(s, color);
    javaRectangle(s, a.x, a.y, b.x, b.y);
    qqcolor(s, s->color.currentColor);
    return true;
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kHpgl:
    if (!s->device.plotOutput) break;
    hatchBar(s, bar, color);
    return true;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kRaster:
    if (!s->raster.canvas) break;
    rasterRectangle(s, a.x, a.y, b.x, b.y, color);
    return true;
  }
  return false;
}

} // namespace quilla
