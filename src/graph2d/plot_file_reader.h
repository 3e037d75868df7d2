// Readers of plot files that are drawn again: PLTM and CGM.
#pragma once

#include <cstdio>

#include "core/plot_state.h"

namespace quilla {

// Where a file is drawn, in plot coordinates.
struct FileBox {
  float x, y, width, height;
};

enum class FileReadResult { kFine, kNotComplete, kBadFormat };

// Draw the file in the box, its aspect kept; with colours of its own unless FILCLR forbids it. Whatever a file holds,
// nothing outside the clip window is drawn, and the time taken is that of reading it twice.
FileReadResult drawPltm(PlotState* s, std::FILE* file, const FileBox& box);
FileReadResult drawCgm(PlotState* s, std::FILE* file, const FileBox& box);

// The pen of a file: moves and draws that reach the device as they are inside the clip window, and cut at its edge.
struct FilePen {
  float x = 0.0F, y = 0.0F;
  bool inside = false; // the device's pen stands at (x, y)
};
void moveFilePen(PlotState* s, FilePen& pen, float x, float y, int code);

} // namespace quilla
