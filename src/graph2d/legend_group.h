// Legends: settings, and what curves, bars and areas leave behind for their lines.
#pragma once

#include "core/line_group.h"
#include "core/shading_group.h"

namespace quilla {

inline constexpr int kLegendLines = 80;       // lines of a legend, and records of curves
inline constexpr int kLegendLineLength = 256; // characters of a line
inline constexpr int kLegendTitleLength = 80;
inline constexpr int kLegendSelections = 30;

enum LegendType : int { kLegendVertical = 0, kLegendHorizontal = 1, kLegendTable = 2 };

// Run lifetime. Sizes are in units of the character height; a negative one is a distance in plot units.
struct LegendGroup {
  bool legendReady = false;      // LEGINI was called
  bool legendInProgress = false; // and no axis system has ended since
  bool legendColorFromCurve = false;
  bool legendAutoPosition = true;
  bool legendMultipleLines = false; // MIXLEG
  int legendLines = 0, legendLineLength = 0;
  int legendX = 0, legendY = 0; // LEGPOS
  char legendTitle[kLegendTitleLength + 1] = "Legende";
  int legendType = kLegendVertical;
  int legendTableCount = 3;
  bool legendTableByRows = false; // LEGTBL "HORI"
  float legendPatternLength = 4.0F;
  float legendMargin = 0.5F;
  float legendLineGap = 1.0F; // between title and lines
  float legendSymbolScale = 0.8F;
  float legendColumnGap = 2.0F;
  float legendSampleDistance = 1.0F;
  int legendBackground = -1;
  int legendSelection[kLegendSelections] = {};
  int legendSelectionCount = -1; // -1: all lines
};

// Attributes of one line of a legend.
struct LegendRecord {
  bool given = false;
  bool lineDrawn = false;
  bool lineByType = false; // LEGPAT: only the style index of `line` counts
  LineGroup line;
  int thickness = 1;
  int symbol = -1;      // -1: none
  int symbolColor = -1; // -1: color
  int color = -1;       // -1: the current one
  bool shaded = false;
  ShadingGroup shading;
};

// Working state.
struct LegendState {
  LegendRecord drawn[kLegendLines];  // by curves, bars and areas of the axis system, in their order
  int drawnCount = 0;                // highest number of them
  LegendRecord byHand[kLegendLines]; // LEGPAT
  bool handMode = false;             // LEGPAT was called: its records count, not those of curves
};

} // namespace quilla
