// IPE: device 802. Coordinates are points, origin at the lower left of the page.
#pragma once

#include "core/plot_state.h"

namespace quilla {

void ipeHeader(PlotState* s);
void ipeTrailer(PlotState* s);
void ipeNewPage(PlotState* s);
void ipePen(PlotState* s, float x, float y, int code);
void ipeColor(PlotState* s, int r, int g, int b);
void ipeLineWidth(PlotState* s, float width); // points
void ipeFill(PlotState* s, const float* x, const float* y, int n);
// Filled rectangle between two corners in a colour of its own.
void ipeRectangle(PlotState* s, float x1, float y1, float x2, float y2, int r, int g, int b);
void ipeGlyph(PlotState* s, int code, float x, float y, int angle); // (x, y): left end of the baseline

} // namespace quilla
