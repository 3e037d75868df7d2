// Pen and colours: each operation branches on the family of the device.
#include "device/sink.h"

#include <cstdlib>
#include <limits>

#include "device/cgm_driver.h"
#include "device/device_point.h"
#include "device/ipe_driver.h"
#include "device/metafile_driver.h"
#include "device/pdf_driver.h"
#include "device/plain_drivers.h"
#include "device/postscript_driver.h"
#include "device/raster_driver.h"
#include "device/svg_driver.h"
#include "device/trace.h"

namespace quilla {

void qqpen(PlotState* s, float x, float y, int code) {
  if (code == kPenDraw) ++s->counters.vectorCount;
  if (s->device.trace) {
    const float point[] = {x, y};
    traceReals(s, code == kPenDraw ? "draw" : "move", point, 2);
  }
  const DevicePoint p = devicePoint(s, x, y);
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (s->device.postScript) psPolyline(s, p.x, p.y, code);
    break;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) pdfPen(*pdf, p.x, p.y, code);
    break;
  case DeviceFamily::kSvg:
    if (s->device.vector) svgPen(s, p.x, p.y, code);
    break;
  case DeviceFamily::kIpe:
    if (s->device.vector) ipePen(s, p.x, p.y, code);
    break;
  case DeviceFamily::kHpgl:
    if (s->device.plotOutput) hpglPen(s, p.x, p.y, code);
    break;
  case DeviceFamily::kJava:
    if (s->device.plotOutput) javaPen(s, p.x, p.y, code);
    break;
  case DeviceFamily::kPltm:
    if (s->device.plotOutput) pltmPen(s, p.x, p.y, code);
    break;
  case DeviceFamily::kCgm:
    if (s->device.cgm) cgmPen(s, p.x, p.y, code);
    break;
  case DeviceFamily::kMetafile:
    if (s->device.metafile) metafilePlotPen(s, p.x, p.y, code);
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kRaster:
    if (s->raster.canvas) rasterPen(s, p.x, p.y, code);
    break;
  }
}

void colorComponents(const PlotState* s, int color, int& r, int& g, int& b) {
  if ((color & 0xFF000000) == kDirectColor) {
    r = color & 255;
    g = color >> 8 & 255;
    b = color >> 16 & 255;
  } else {
    const int entry = s->color.colorTable[color & (kColorTableSize - 1)];
    r = entry >> 16 & 255;
    g = entry >> 8 & 255;
    b = entry & 255;
  }
}

int indexOfRgb(const PlotState* s, int r, int g, int b) {
  // The small tables have their kind plus nine entries.
  constexpr int kSmallTableBase = 9;
  const int kind = s->color.tableKind;
  const int count = kind == kTableSmall || kind == kTableVga ? kind + kSmallTableBase : kColorTableSize;
  int best = 0, bestDistance = std::numeric_limits<int>::max();
  for (int i = 0; i < count && bestDistance > 0; ++i) {
    const int entry = s->color.colorTable[i];
    const int distance =
        std::abs((entry >> 16 & 255) - r) + std::abs((entry >> 8 & 255) - g) + std::abs((entry & 255) - b);
    if (distance < bestDistance) {
      best = i;
      bestDistance = distance;
    }
  }
  return best;
}

namespace {

// The entry of the colour table that a device of indexed colours shows.
int shownIndex(const PlotState* s, int color) {
  if ((color & 0xFF000000) != kDirectColor) return color & (kColorTableSize - 1);
  return indexOfRgb(s, color & 255, color >> 8 & 255, color >> 16 & 255);
}

} // namespace

void qqcolor(PlotState* s, int color) {
  if (s->device.trace) traceColor(s, "color", color);
  constexpr int kIndexedDepth = 8;
  if (s->device.colourDepth <= kIndexedDepth) color = shownIndex(s, color);
  int red, green, blue;
  colorComponents(s, color, red, green, blue);
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (s->device.postScript) psColor(s, red, green, blue);
    break;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) pdfColor(*pdf, red, green, blue);
    break;
  case DeviceFamily::kSvg:
    if (s->device.vector) svgColor(s, red, green, blue);
    break;
  case DeviceFamily::kIpe:
    if (s->device.vector) ipeColor(s, red, green, blue);
    break;
  case DeviceFamily::kHpgl:
    if (s->device.plotOutput) hpglColor(s, color);
    break;
  case DeviceFamily::kJava:
    if (s->device.plotOutput) javaColor(s, red, green, blue);
    break;
  case DeviceFamily::kPltm:
    if (s->device.plotOutput) pltmColor(s, color);
    break;
  case DeviceFamily::kCgm:
    if (s->device.cgm) cgmColor(s, red, green, blue);
    break;
  case DeviceFamily::kMetafile:
    if (s->device.metafile) metafilePlotColor(s, red, green, blue);
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kRaster:
    if (s->raster.canvas) rasterColor(s, color);
    break;
  }
}

// Devices without a table of their own ask for components when a colour is set.
void sinkColorTable(PlotState* s, int first, int last) {
  if (s->device.trace) {
    const float range[] = {static_cast<float>(first), static_cast<float>(last)};
    traceReals(s, "table", range, 2);
  }
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
  case DeviceFamily::kPdf:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kRaster:
    if (s->raster.canvas) rasterPalette(s, first, last);
    break;
  }
}

} // namespace quilla
