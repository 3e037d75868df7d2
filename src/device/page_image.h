// Images on the page of a document: PostScript and PDF hold them as they are, rasters take their pixels.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Rows of three bytes a pixel, from the top, asked for one by one.
struct PageImage {
  void (*read)(void* picture, int y, unsigned char* rgb);
  void* picture;
  int width, height;      // pixels
  float x, y, boxW, boxH; // rectangle on the page, plot coordinates, (x, y) its upper left corner
  bool masked;            // white pixels are left out
};

// True for PostScript and PDF, whose images lie in a rectangle of the page whatever their size in pixels.
bool holdsPageImages(PlotState* s);

// Puts the image into the document. False without memory.
bool sinkPageImage(PlotState* s, const PageImage& image);

void psImage(PlotState* s, const PageImage& image);
bool pdfImage(PlotState* s, PdfWriter& pdf, const PageImage& image);

// The picture of IMGINI on such a device: a raster that is painted by pixel routines, and put on the page at the end.
bool sinkOpenImage(PlotState* s);
void sinkCloseImage(PlotState* s);

} // namespace quilla
