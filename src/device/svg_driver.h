// SVG: device 801. Coordinates are pixels, origin at the upper left of the page.
#pragma once

#include "core/plot_state.h"

namespace quilla {

void svgHeader(PlotState* s);
void svgTrailer(PlotState* s);
void svgPen(PlotState* s, float x, float y, int code);
void svgColor(PlotState* s, int r, int g, int b);
void svgLineWidth(PlotState* s, float width); // pixels
void svgFill(PlotState* s, const float* x, const float* y, int n);
// Filled rectangle between two corners in a colour of its own.
void svgRectangle(PlotState* s, float x1, float y1, float x2, float y2, int r, int g, int b);
// The font, its size or the text height has changed.
void svgFont(PlotState* s);
void svgGlyph(PlotState* s, int code, float x, float y, int angle); // (x, y): left end of the baseline

} // namespace quilla
