// What the files of pie charts share.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// One segment. Angles in degrees, anticlockwise from the right, start 0 to 360, end above it.
struct PieSegment {
  float value, percent;
  float start, end;
  ShadingGroup shading;
  int color, sideColor;
  float moved; // out of the pie, as a fraction of the explosion distance
  int labelMode, labelPlace, labelJustify, labelColor;
};

// The pie on the page, in plot coordinates.
struct PieShape {
  const PieSegment* segments;
  int n;
  float x, y; // centre of the top
  float radiusX, radiusY;
  float thickness; // of a 3-D pie, downwards
  float explosion; // distance of a segment that is moved out
  int color;       // that was current before
  int borderColor;
};

struct PiePoint {
  float x, y;
};

// Point of the top of a segment, at an angle and a fraction of the radius.
PiePoint piePoint(const PieShape& pie, const PieSegment& segment, float angle, float fraction);

// A sector that goes all around, and is no sector any more.
bool isWholePie(const PieSegment& segment);

void drawFlatPie(PlotState* s, const PieShape& pie);
void drawSolidPie(PlotState* s, const PieShape& pie); // message 53 if there is no memory

// The texts in a legend buffer, so many lines for each segment.
struct PieTexts {
  const char* buffer;
  int linesPerSegment;
};

// Texts of one label: rows one below the other.
struct PieLabelSize {
  int rows, width, height;
};

// A label and its place: the upper left corner of its box. side: 0 inside its segment, else 1 on the right of the pie
// and -1 on the left, 2 for none at all.
struct PieLabel {
  PieLabelSize size;
  int side;
  float x, y;
};

// Sizes of the labels of all segments.
void measurePieLabels(PlotState* s, const PieShape& pie, const PieTexts& texts, PieLabel labels[]);

// Room beside, and above and below, the pie for those labels that do not stand inside; 0 if all do.
PiePoint pieLabelRoom(const PlotState* s, const PieShape& pie, const PieLabel labels[]);

// Gives every label its place: inside its segment where it is wanted there and fits, else beside the pie so that no
// two labels meet. Small segments for whose labels there is no room stay without. Message 53 if there is no memory.
void placePieLabels(PlotState* s, const PieShape& pie, PieLabel labels[]);

// Regions around the labels that lines do not enter (SHIELD), and the labels with their vectors.
void shieldPieLabels(PlotState* s, const PieShape& pie, const PieLabel labels[]);
void drawPieLabels(PlotState* s, const PieShape& pie, const PieTexts& texts, const PieLabel labels[]);

} // namespace quilla
