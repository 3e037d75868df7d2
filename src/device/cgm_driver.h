// CGM: device 211, the binary encoding of the Computer Graphics Metafile. Coordinates are whole numbers of 1/20 mm,
// origin at the lower left of the page.
#pragma once

#include <cstdint>

#include "core/plot_state.h"

namespace quilla {

inline constexpr int kCgmPolylineLimit = 100; // points of one element

struct CgmWriter {
  std::uint16_t cgmPolyX[kCgmPolylineLimit], cgmPolyY[kCgmPolylineLimit];
  int cgmPolyCount = 0;
  std::uint16_t cgmLastX = 0, cgmLastY = 0; // end of the line flushed last
  int cgmPictureNumber = 1;
};

// Codes of cgmPen besides those of the pen.
enum CgmPenCode : int { kCgmBreak = 9 };

void cgmHeader(PlotState* s);
void cgmTrailer(PlotState* s);
void cgmNewPicture(PlotState* s);
void cgmPen(PlotState* s, float x, float y, int code);
void cgmColor(PlotState* s, int r, int g, int b);

} // namespace quilla
