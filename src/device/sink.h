// The primitive sink: how the plot core reaches a driver. Coordinates are floats in plot units, x to the right, y down
// from the top of the page; the sink transforms them for the device. No operation here flushes the path of the
// pipeline: the caller has done that.
#pragma once

#include "core/plot_state.h"

namespace quilla {

enum PenCode : int { kPenDraw = 2, kPenMove = 3 };

// Opens the plot file and the driver, writes the header, sets deviceScale and colourDepth. False after a message.
bool sinkOpen(PlotState* s);
// Ends the document, closes the file and frees what the driver holds. Reports a file that could not be written.
void sinkClose(PlotState* s);

// Pen move or draw.
void qqpen(PlotState* s, float x, float y, int code);

// Filled polygon in the current colour; true if the device took it, false if it must be hatched in software.
bool qqfill(PlotState* s, const float* xs, const float* ys, int n);

// A symbol of a height in plot units that the device draws itself, in the current colour. False: it has none.
bool sinkSymbol(PlotState* s, int symbol, float x, float y, float height);

// Filled rectangle between two corners in a colour of its own; the current colour stays. The page origin (ORIGIN) is
// added here. True if the device took it.
bool qqbar(PlotState* s, float x1, float y1, float x2, float y2, int color);

// Tells the device the colour value that is current now.
void qqcolor(PlotState* s, int color);
// Components 0 to 255 of a colour value as a device of true colours shows it.
void colorComponents(const PlotState* s, int color, int& r, int& g, int& b);
// Nearest entry of the colour table, smallest sum of absolute differences, lower index on ties.
int indexOfRgb(const PlotState* s, int r, int g, int b);
// The colour table has changed: entry first to last.
void sinkColorTable(PlotState* s, int first, int last);

// Line state. Width in plot units. sinkLineWidth returns true if the device draws the width itself.
bool sinkLineWidth(PlotState* s, int width);
bool sinkPenWidth(PlotState* s, float width);
void sinkLineCap(PlotState* s, int cap);
void sinkLineJoin(PlotState* s, int join);
void sinkMiterLimit(PlotState* s, float miter);

// Clip rectangle of the device, on or off, in plot units.
void sinkClip(PlotState* s, bool on, float x0, float y0, float x1, float y1);

// One character of a driver font. (x, y): left end of its baseline in plot units, the up shift included.
struct DriverGlyph {
  int code; // private code 32 to 187
  float x, y;
  float advance; // width of the character along the baseline, plot units
  int angle;     // degrees
};
void qqglyph(PlotState* s, const DriverGlyph& glyph);
// The driver font, its size or its width factor has changed. recode: the font is new to the document.
void sinkFont(PlotState* s, bool recode);
// True if the device has driver fonts of the PostScript kind: 501 to 600, 801, 802.
bool sinkHasFonts(const PlotState* s);

void sinkNewPage(PlotState* s); // pageNumber is counted already
void sinkErase(PlotState* s);
void sinkFlush(PlotState* s); // SENDBF

} // namespace quilla
