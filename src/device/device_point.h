// From plot coordinates to those of a device.
#pragma once

#include "core/plot_state.h"
#include "device/device_table.h"
#include "device/sheet.h"

namespace quilla {

inline bool pageTurned(const PlotState* s) { return s->pageSetup.pageRotation == kPageTurned; }

// A plot point in device units. Metafiles, plotters and IPE have their origin at the lower left, rasters, Java, SVG
// and the metafiles of Windows at the upper left; a turned page is read from its right side.
inline DevicePoint devicePoint(const PlotState* s, float x, float y) {
  const float scale = s->device.deviceScale;
  const auto width = static_cast<float>(s->geometry.pageWidth), height = static_cast<float>(s->geometry.pageHeight);
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
  case DeviceFamily::kPdf: return pointOnSheet(s, x, y);
  case DeviceFamily::kHpgl:
    if (s->deviceSetup.deviceNumber != kDeviceHpgl) {
      // The long side of a sheet is the plotter's x axis, whatever PAGMOD says.
      if (width > height) return {scale * x, scale * (height - y)};
      return {scale * (height - y), scale * (width - x)};
    }
    [[fallthrough]];
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kIpe:
    if (pageTurned(s)) return {scale * y, scale * x};
    return {scale * x, scale * (height - y)};
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg: break;
  }
  if (pageTurned(s)) return {scale * y, scale * (width - x)};
  return {scale * x, scale * y};
}

// Degrees that the device adds to the angle of a text.
inline int deviceTurn(const PlotState* s) {
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
  case DeviceFamily::kPdf: return pageAcrossSheet(s) ? 90 : 0;
  case DeviceFamily::kHpgl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kIpe:
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg: break;
  }
  return pageTurned(s) ? 90 : 0;
}

// Pixels of screens and rasters: as WINDOW or WINSIZ asked for, else lying or upright like the page.
void choosePixels(PlotState* s);

// deviceScale of the device that is being opened; the page geometry and the raster size are known.
float scaleOfDevice(const PlotState* s);

// The page in device units, its sides exchanged on a turned page.
struct DeviceExtent {
  float width, height;
};
inline DeviceExtent deviceExtent(const PlotState* s) {
  const float width = static_cast<float>(s->geometry.pageWidth) * s->device.deviceScale;
  const float height = static_cast<float>(s->geometry.pageHeight) * s->device.deviceScale;
  return pageTurned(s) ? DeviceExtent{height, width} : DeviceExtent{width, height};
}

} // namespace quilla
