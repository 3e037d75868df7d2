// The one road of lines and polygons to the device: dash stage, path of 100 points, clip, sink.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Dashed move and draw in plot units; the page origin (ORIGIN) is added.
void penMove(PlotState* s, float x, float y);
void penDraw(PlotState* s, float x, float y);

// Undashed move and draw in plot units, without the page origin.
void pathMove(PlotState* s, float x, float y);
void pathDraw(PlotState* s, float x, float y);

// Sends the open path to the device. Every setter that changes pen, width, colour, clip or transformation calls it.
void flushPath(PlotState* s);

// Restarts the line pattern.
void resetDash(PlotState* s);

// Line type 0 to 7 of the table of LINTYP.
void setLineType(PlotState* s, int index);

// Width of lines. PENWID passes a real width; LINWID an integer.
void setLineWidth(PlotState* s, int width);
void setPenWidth(PlotState* s, float width);

// Filled polygon in plot units, the page origin is added.
void fillPolygon(PlotState* s, const float* x, const float* y, int n);

// Active clip rectangle in plot coordinates, inclusive, cut to the page. The path is flushed first.
void setClipRectangle(PlotState* s, int x0, int y0, int x1, int y1);
void clipWholePage(PlotState* s);

} // namespace quilla
