// Filled and outlined polygons of bars, pies and legends, and the pen attributes that they change.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Colour, line and shading that a routine changes and gives back.
struct KeptPen {
  int color;
  LineGroup line;
  DashState dash;
  ShadingGroup shading;
};
KeptPen keepPen(PlotState* s);
void restorePen(PlotState* s, const KeptPen& kept);

// Fills the polygon with the current pattern in the fill colour and draws its outline, closed, in the border colour.
// Plot units; the page origin is added. The colour that is current afterwards is the border colour.
void drawArea(PlotState* s, const float* x, const float* y, int n, int fillColor, int borderColor);

// Colour of a label on an area in a fill colour: as set, or -1 the current one; but that on a solid area too much like
// it becomes black or white.
int visibleColor(const PlotState* s, int setting, int current, int fill);

// Filled rectangle in a plain colour, corners included.
void fillBox(PlotState* s, int x0, int y0, int x1, int y1, int color);

// Chords with which a circle of a radius in plot units is drawn: as many as CIRCSP asks for, within limits.
inline constexpr int kMostChords = 720;
int chordsOfTurn(const PlotState* s, float radius);

// Rectangle between two corners in a plain colour, cut at the clip window.
void fillCut(PlotState* s, float x0, float y0, float x1, float y1, int color);

// Defaults of the settings: the pattern cycle begins with the predefined patterns.
AreaGroup defaultAreaGroup();

} // namespace quilla
