// The pen of contour lines: it takes their points one by one and leaves gaps for the labels that it writes.
#pragma once

#include "core/plot_state.h"
#include "graph2d/scaling.h"

namespace quilla {

inline constexpr int kLabelStretchPoints = 500; // of a line kept back until a label has found its place
inline constexpr int kContourLabelSize = 256;

// One level, for the time of one routine call. Coordinates are plot coordinates.
struct ContourPen {
  PlotState* s = nullptr;
  bool lineStarts = true; // the next point starts a line

  bool labelled = false; // gaps are left
  bool textWanted = false;
  bool textIsNumber = false;
  float labelWidth = 0.0F, labelGap = 0.0F; // room along the line, and how much of it is free
  char text[kContourLabelSize] = "";

  bool stretching = false;                // points are kept back, a label may stand along them
  PlotPoint last = {}, stretchStart = {}; // last point taken, and where the stretch began
  float length = 0.0F, arc = 0.0F;        // of line since the last label, and of the stretch
  float threshold = 0.0F;                 // length from which a stretch may begin
  float previousAngle = 0.0F;             // of the last segment, in degrees
  int count = 0;                          // points kept back
  PlotPoint kept[kLabelStretchPoints];
};

// A pen for a level with the labels that the settings ask for. withText false: labels leave gaps, but no text.
void openContourPen(PlotState* s, ContourPen& pen, float level, bool withText);

// The next point begins a new line.
inline void startContourLine(ContourPen& pen) { pen.lineStarts = true; }

// A point in user coordinates. One that is no number breaks the line.
void contourPoint(ContourPen& pen, float x, float y);

// Draws what is kept back.
void closeContourPen(ContourPen& pen);

// Label of a line that runs from a to b, the gap in its middle.
void writeContourLabel(const ContourPen& pen, PlotPoint a, PlotPoint b);

} // namespace quilla
