// WMF and EMF: devices 221 and 231, through the metafile operations of the platform. Coordinates are device units,
// origin at the upper left of the page.
#pragma once

#include "core/plot_state.h"
#include "platform/metafile.h"

namespace quilla {

struct MetafileWriter {
  Metafile* file = nullptr;
  int red = 0, green = 0, blue = 0;
  int penWidth = 1;
  int pen = kNoMetafileObject;
  int penWidthInUse = 0; // of the pen that is selected; 0 when there is none
  bool penCurrent = false;
  int paperBrush = kNoMetafileObject; // white; selected while nothing is filled
  int lastX = 0, lastY = 0;
  bool moved = false; // the move to the last point is still to be written
};

// Opens the file under plotFileName; false if that fails.
bool metafileOpen(PlotState* s);
// Ends the file and frees the record; false if it could not be written.
bool metafileClose(PlotState* s);

void metafilePlotPen(PlotState* s, float x, float y, int code);
void metafilePlotColor(PlotState* s, int r, int g, int b);
void metafilePlotWidth(PlotState* s, int width); // device units
// False if there is no memory.
bool metafilePlotFill(PlotState* s, const float* x, const float* y, int n);
// Filled rectangle between two corners in a colour of its own.
void metafilePlotRectangle(PlotState* s, float x1, float y1, float x2, float y2, int r, int g, int b);

} // namespace quilla
