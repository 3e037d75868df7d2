// Colour graphs: the scale from values to colours, the bar that shows it, and how points are painted.
#pragma once

namespace quilla {

enum ColorBarPlace : int { kBarAtRight = 0, kBarAtLeft = 1, kBarAtTop = 2, kBarAtBottom = 3 };
enum ColorBarJustify : int { kBarAtStart = 0, kBarAtCenter = 1, kBarAtEnd = 2 };

// Run lifetime. Plot units.
struct ColorBarGroup {
  bool barHidden = false; // NOBAR
  int barWidth = 85;
  int barDistance = 85;
  int barShiftX = 0, barShiftY = 0;
  int barPlace = kBarAtRight;
  int barJustify = kBarAtStart;
  bool firstOpen = false, lastOpen = false; // EXPZLB: values beyond the bar have its end colours
  int barFrame = 1;                         // lines around the bar, outward if negative
};

enum AutoResolution : int { kResolutionGiven = 0, kResolutionOfPoints = 1, kResolutionOfMatrix = 2 };

// Run lifetime: size of the rectangles that CURVE3 and its kin paint.
struct ResolutionGroup {
  int cellWidth = 1, cellHeight = 1;     // plot units
  int autoResolution = kResolutionGiven; // AUTRES
  int autoCountX = 0, autoCountY = 0;    // negative: cells side by side instead of points on the ends
};

enum PaintMode : int { kPaintRectangles = 0, kPaintSymbols = 1, kPaintPixels = 2 };

// Run lifetime: SHDMOD, each the number of its keyword from 0.
struct ShadeModeGroup {
  int surfaceMode = 0;              // "SURF": flat, smooth
  int contourMethod = 0;            // "CONT": cells, polygons
  int paintMode = kPaintRectangles; // "CURV"
  bool curvesInSpace = false;       // "CURV" "3D"
  int openBands = 0;                // "CELL": both, upper, lower, none
  int bandColor = 0;                // "COLO": lower, middle, upper level
  int cullMode = 0;                 // "CULL": off, back, front
  bool symbolsInSpace = false;      // "SYMB" "3D"
  bool colorByScale = true;         // "ZSCA"
};

// Working state: colour (z - start) * factor + low, z a logarithm on a logarithmic axis.
struct ColorScaleState {
  bool barOpen = false; // GRAF3 gave the scale
  bool logarithmic = false;
  float start = 0.0F, end = 0.0F;
  float userMin = 0.0F, userMax = 0.0F; // user values, min not above max
  int low = 1, high = 254;              // COLRAN
  float factor = 0.0F;
};

} // namespace quilla
