// Device units per plot unit.
#include <algorithm>

#include "device/device_point.h"

namespace quilla {
namespace {

constexpr float kPointsPerPlotUnit = 72.0F / 254.0F;
constexpr float kTwipsPerPlotUnit = 5.6692914962768555F;
constexpr float kLargestMetafileSide = 32700.0F; // of a WMF page: its coordinates have 16 bits
constexpr float kHpglPerPlotUnit = 4.0F, kCgmPerPlotUnit = 2.0F;

struct Page {
  float width, height; // at least 1
  float longSide() const { return std::max(width, height); }
  float shortSide() const { return std::min(width, height); }
};

Page pageOf(const PlotState* s) {
  return {static_cast<float>(std::max(s->geometry.pageWidth, 1)),
          static_cast<float>(std::max(s->geometry.pageHeight, 1))};
}

// Without SCLMOD a page keeps its size or shrinks.
float limitedFit(const PlotState* s, float fit, float natural) {
  return s->pageSetup.scaleMode == kScaleDown ? std::min(fit, natural) : fit;
}

// The page fits the sheet.
float sheetScale(const PlotState* s, float factor) {
  const SheetSize sheet = sheetSize(s);
  const Page page = pageOf(s);
  const bool across = pageAcrossSheet(s);
  const float fit =
      std::min(sheet.width / (across ? page.height : page.width), sheet.height / (across ? page.width : page.height));
  return limitedFit(s, fit, kSheetUnit * factor);
}

// The page fills the raster; the default page does so exactly.
float rasterScale(const PlotState* s, float factor) {
  Page page = pageOf(s);
  if (pageTurned(s)) std::swap(page.width, page.height);
  const auto width = static_cast<float>(s->device.pixelWidth - 1);
  const auto height = static_cast<float>(s->device.pixelHeight - 1);
  const float fit = std::min(width / page.width, height / page.height);
  return limitedFit(s, fit, std::max(width, height) * factor / kDefaultPageWidth);
}

// Sheets A4 to A1 of plotters.
float plotterScale(const PlotState* s, float factor) {
  struct Sheet {
    float shortSide, longSide;
  };
  constexpr Sheet kSheets[] = {{7600.0F, 10870.0F}, {10870.0F, 15970.0F}, {13440.0F, 21360.0F}, {21360.0F, 30280.0F}};
  const Sheet& sheet = kSheets[std::clamp(s->deviceSetup.deviceNumber - kDeviceHpglA4, 0, 3)];
  const Page page = pageOf(s);
  const float fit = std::min(sheet.shortSide / page.shortSide(), sheet.longSide / page.longSide());
  return limitedFit(s, fit, kHpglPerPlotUnit * factor);
}

float metafileScale(const PlotState* s, float factor) {
  const float scale = factor * kTwipsPerPlotUnit;
  return pageOf(s).longSide() * scale > kLargestMetafileSide ? factor : scale;
}

} // namespace

void choosePixels(PlotState* s) {
  const WindowSetup& w = s->windowSetup;
  const bool lying = s->geometry.pageWidth > s->geometry.pageHeight;
  const bool asked = w.windowPlacementMode != kWindowDefault;
  s->device.pixelWidth = asked ? w.windowWidth : lying ? kScreenLongSide : kScreenShortSide;
  s->device.pixelHeight = asked ? w.windowHeight : lying ? kScreenShortSide : kScreenLongSide;
}

float scaleOfDevice(const PlotState* s) {
  const float factor = s->pageSetup.unitFactor * s->pageSetup.scaleFactor;
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPltm: return 1.0F / pageOf(s).longSide();
  case DeviceFamily::kCgm: return kCgmPerPlotUnit * factor;
  case DeviceFamily::kMetafile:
    return s->deviceSetup.deviceNumber == kDeviceWmf ? metafileScale(s, factor) : rasterScale(s, factor);
  case DeviceFamily::kHpgl:
    return s->deviceSetup.deviceNumber == kDeviceHpgl ? kHpglPerPlotUnit * factor : plotterScale(s, factor);
  case DeviceFamily::kPostScript: return sheetScale(s, factor);
  case DeviceFamily::kPdf: return sheetScale(s, factor) * kPointsPerSheetUnit;
  case DeviceFamily::kIpe: return factor * kPointsPerPlotUnit;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg: break;
  }
  return rasterScale(s, factor);
}

} // namespace quilla
