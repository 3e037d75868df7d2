// The sheet of PostScript and PDF: an upright page of paper on which a plot page wider than high lies across.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Sheet units are 1/20 mm.
inline constexpr float kSheetUnit = 2.0F; // of 0.1 mm
inline constexpr float kPointsPerSheetUnit = 72.0F / 254.0F / kSheetUnit;
inline constexpr float kSheetWidth = 3900.0F, kSheetHeight = 5600.0F; // unless HWPAGE was called

struct SheetSize {
  float width, height; // sheet units
};

inline SheetSize sheetSize(const PlotState* s) {
  const PageSetup& page = s->pageSetup;
  if (!page.hardwarePageSet) return {kSheetWidth, kSheetHeight};
  return {kSheetUnit * static_cast<float>(page.hardwarePageWidth),
          kSheetUnit * static_cast<float>(page.hardwarePageHeight)};
}

// True if the plot page lies across the sheet, so that x and y are exchanged.
inline bool pageAcrossSheet(const PlotState* s) {
  return s->geometry.pageWidth > s->geometry.pageHeight && s->pageSetup.pageRotation != kPageNever;
}

struct DevicePoint {
  float x, y;
};

// A plot point in device units, origin at the lower left of the sheet.
inline DevicePoint pointOnSheet(const PlotState* s, float x, float y) {
  const float scale = s->device.deviceScale;
  if (pageAcrossSheet(s)) return {scale * y, scale * x};
  return {scale * x, scale * (static_cast<float>(s->geometry.pageHeight) - y)};
}

} // namespace quilla
