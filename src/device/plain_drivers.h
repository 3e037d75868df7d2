// Formats of pen commands that need no record of their own: HPGL (401 to 405), Java (701) and PLTM (201).
#pragma once

#include "core/plot_state.h"

namespace quilla {

// HPGL: plotter units of 1/40 mm, origin at the lower left.
void hpglHeader(PlotState* s);
void hpglTrailer(PlotState* s);
void hpglPen(PlotState* s, float x, float y, int code);
void hpglColor(PlotState* s, int index);

// Java: the source of an applet that draws the plot; pixels, origin at the upper left.
void javaHeader(PlotState* s);
void javaTrailer(PlotState* s);
void javaPen(PlotState* s, float x, float y, int code);
void javaColor(PlotState* s, int r, int g, int b);
// Filled rectangle between two corners in the current colour.
void javaRectangle(PlotState* s, float x1, float y1, float x2, float y2);
void javaErase(PlotState* s);

// PLTM: fields of ten characters, coordinates from 0 to 1 of the longer page side, origin at the lower left.
void pltmHeader(PlotState* s);
void pltmTrailer(PlotState* s);
void pltmPen(PlotState* s, float x, float y, int code);
void pltmColor(PlotState* s, int index);

} // namespace quilla
