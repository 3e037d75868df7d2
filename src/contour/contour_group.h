// Contour lines and their labels, bands between levels, grids made of points.
#pragma once

namespace quilla {

inline constexpr int kContourTextLength = 20;
inline constexpr int kContourColorLimit = 256;
inline constexpr int kAutomaticDigits = -2; // as many as the level needs

enum ContourLabel : int { kContourLabelNone = 0, kContourLabelLevel = 1, kContourLabelText = 2 };

// Run lifetime.
struct ContourGroup {
  int contourLabelMode = kContourLabelNone;
  char contourLabelText[kContourTextLength + 1] = ""; // CONLAB
  int contourLabelDistance = 500;                     // plot units of line between two labels
  int contourLabelDigits = 1;
  int contourLabelColor = -1;         // -1: the current one
  bool contourLabelAcross = false;    // LABTYP "VERT"
  float contourGapFactor = 0.5F;      // free space on each side of a label, in character heights
  float contourStretchFactor = 0.5F;  // line kept straight on each side of a label, in label widths
  float contourCurvatureLimit = 1.5F; // greatest ratio of arc to chord where a label stands
  float contourAngleTolerance = 5.0F; // degrees: greatest turn where the stretch of a label may start
};

// Run lifetime: CONCLR, colours of levels in place of those of the scale.
struct BandGroup {
  int bandColors[kContourColorLimit] = {};
  int bandColorCount = 0;
};

// Run lifetime: MDFMAT, the neighbourhood of GETMAT.
struct ScatteredGroup {
  int reachX = 2, reachY = 2; // grid steps that a point reaches
  float weightPower = 2.0F;   // weights fall with this power of the distance
};

} // namespace quilla
