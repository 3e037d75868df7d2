// Rasters in memory: devices 601 to 607. Coordinates are pixels, origin at the upper left.
#pragma once

#include "core/plot_state.h"
#include "raster/encoders.h"
#include "raster/painter.h"

namespace quilla {

// Number of the file format of a raster device, as EXPIMG counts them.
enum RasterFormat : int {
  kRasterNone = 0,
  kRasterTiff = 1,
  kRasterImage = 2,
  kRasterPng = 4,
  kRasterPpm = 5,
  kRasterBmp = 6,
  kRasterGif = 7,
  kRasterPs = 8,
  kRasterPdf = 9
};

// Opens the plot file, if the device has one, and the canvas. False after a message.
bool openRaster(PlotState* s);
// Writes the picture and frees the canvas; a file that could not be written is reported.
void closeRaster(PlotState* s);
void freeRaster(PlotState* s);

// A canvas of the plot's size in the format of IMGFMT, with the colour table as its palette. Null after message 53.
RasterCanvas* makeRaster(PlotState* s, bool trueColour);

void rasterPen(PlotState* s, float x, float y, int code);
// Filled polygon in device coordinates; overflow and missing memory are reported.
void rasterFill(PlotState* s, const float* xs, const float* ys, int n);
void rasterRectangle(PlotState* s, float x1, float y1, float x2, float y2, int color);
void rasterSymbol(PlotState* s, int symbol, float x, float y, float size);
void rasterColor(PlotState* s, int color);
void rasterPalette(PlotState* s, int first, int last);
void rasterWidth(PlotState* s, float width);
void rasterEnds(PlotState* s); // caps, joins and their limit have changed
void rasterClip(PlotState* s, bool on, float x1, float y1, float x2, float y2);
void rasterErase(PlotState* s);
// The colour that images leave out (IMGTPR) has changed.
void rasterTransparentColor(PlotState* s);

// The open transparency layer is laid over the picture.
void rasterEndLayer(PlotState* s);

// Writes the part of the canvas that IMGCLP chose, in one of the formats 1 to 7, to a target.
EncodeResult encodeRaster(PlotState* s, int format, ByteTarget& out);
// The same into a file of this name; what fails is reported.
void writeRasterFile(PlotState* s, int format, const char* name);
// Reports what an encoder came back with; name: the file.
void reportEncoder(PlotState* s, EncodeResult result, const char* name);

} // namespace quilla
