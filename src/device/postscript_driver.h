// PostScript and EPS: devices 501 to 504. Coordinates here are device units of 1/20 mm, origin at the lower left of the
// sheet, x and y already exchanged on a page that lies across the sheet.
#pragma once

#include "core/plot_state.h"

namespace quilla {

inline constexpr int kPsPolylineLimit = 100; // points of one stroke

struct PostScriptWriter {
  int polyX[kPsPolylineLimit], polyY[kPsPolylineLimit];
  int polyCount = 0;
  int polyLastX = 0, polyLastY = 0; // end of the line flushed last
};

// The head of the file.
void psHeader(PlotState* s);
// True if the page is painted black: a colour device without reversed screen mode.
bool psPaintsPage(const PlotState* s);

// Codes of psPolyline besides those of the pen.
enum PsPolylineCode : int { kPsBreak = 9, kPsEnd = 999 };

// Adds a point to the polyline (code 2), or writes it out: code 3 starts the next one at the point, kPsBreak makes room
// for another operator, kPsEnd is for the end of the file.
void psPolyline(PlotState* s, float x, float y, int code);

void psColor(PlotState* s, int r, int g, int b);
void psFill(PlotState* s, const float* x, const float* y, int n);
void psRectangle(PlotState* s, float x1, float y1, float x2, float y2, int r, int g, int b);
void psLineWidth(PlotState* s, double width); // device units
void psLineCap(PlotState* s, int cap);
void psLineJoin(PlotState* s, int join);
void psMiterLimit(PlotState* s, int limit); // device units
void psClip(PlotState* s, bool on, float x1, float y1, float x2, float y2);
void psGlyph(PlotState* s, int code, float x, float y, int angle); // (x, y): middle of the baseline
void psFont(PlotState* s, bool recode);
void psNewPage(PlotState* s);
void psTrailer(PlotState* s);

} // namespace quilla
