// Where the parts of a legend stand inside its box.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// One line of the legend: its cell, and its texts (more than one with MIXLEG).
struct LegendCell {
  int line; // from 1
  int x, y; // upper left corner of the sample, from the inner corner of the box
  int textX;
  int rows;   // text rows of the line
  int height; // of the cell's row of cells, for the sample in its middle
};

// All lengths in plot units. The box is what lies inside the frame.
struct LegendLayout {
  int count = 0;
  LegendCell cells[kLegendLines];
  int margin = 0;
  int frame = 0;
  int sampleWidth = 0; // 0: no samples
  int rowStep = 0;     // from text row to text row
  int titleX = 0;
  int boxWidth = 0, boxHeight = 0;
};

void layOutLegend(PlotState* s, const char* buffer, LegendLayout& layout);

// Next piece of a text at MIXLEG's control character: ends it with a zero byte and moves on; null behind the last.
char* nextLegendPiece(const PlotState* s, char*& rest);

} // namespace quilla
