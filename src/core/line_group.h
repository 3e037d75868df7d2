// Line style, width, the open path and clipping.
#pragma once

namespace quilla {

inline constexpr int kPathLimit = 100;        // points of the open path
inline constexpr int kLinePatternLimit = 10;  // elements of a line pattern
inline constexpr int kLineTypeCount = 8;      // line types of LINTYP
inline constexpr int kPatternColorLimit = 30; // colours along a line pattern

enum LineCap : int { kCapCut = 0, kCapRound = 1, kCapLong = 2 };
enum LineJoin : int { kJoinSharp = 0, kJoinRound = 1, kJoinTruncated = 2 };
enum ClipMode : int { kClipAuto = 0, kClipNone = 1, kClipCircle = 2, kClipRectangle = 3 };
enum ClipBorder : int { kBorderPage = 0, kBorderWindow = 1, kBorderAxis = 2 };

// Run lifetime.
struct LineGroup {
  int lineStyleIndex = 0;
  int linePattern[kLinePatternLimit] = {1};       // lengths in plot units: drawn, gap, drawn, ...
  int linePatternCount = 1;                       // 1: solid
  int linePatternColors[kPatternColorLimit] = {}; // colours of the drawn elements in turn
  int linePatternColorCount = 0;                  // 0: the current colour
  int lineWidthSetting = 1;                       // plot units; negative when the device draws the width
  int lineCap = kCapLong;
  int lineJoin = kJoinTruncated;
  float lineMiter = 2.0F;
  bool hardwareLines = true;   // HWMODE
  bool hardwareShading = true; // HWMODE
};

// Working state of the dash stage.
struct DashState {
  float dashRemaining = 0.0F;             // what is left of the current element
  int dashGap = 0;                        // 0 drawing, 1 in a gap
  int dashElement = 1;                    // from 1
  int colorCycleElement = 1;              // from 1: colour of the drawn element
  bool patternColorSent = false;          // the device draws in a pattern colour, not in the current one
  float lineGapSize = 0.0F;               // offset of thick curves, along the normal of a segment
  bool gapMovePending = false;            // with lineGapSize: the move to pathPen was postponed
  float pathPenX = 0.0F, pathPenY = 0.0F; // last point given to the dash stage, origin added
};

// Transformation of plot coordinates (TRFSHF, TRFSCL, TRFROT). Run lifetime.
struct TransformGroup {
  bool transformOn = false;
  double xx = 1.0, xy = 0.0, x1 = 0.0; // x' = xx x + xy y + x1
  double yx = 0.0, yy = 1.0, y1 = 0.0; // y' = yx x + yy y + y1
};

// Working state of the open path, transformed.
struct PathState {
  int pathCount = 0;
  float pathX[kPathLimit] = {}, pathY[kPathLimit] = {};
  bool flushRunning = false;
};

// Working state: while it is on, paths draw nothing but widen the rectangle that holds them.
struct PathMeasure {
  bool on = false;
  float x0 = 0.0F, y0 = 0.0F, x1 = 0.0F, y1 = 0.0F; // plot coordinates, ORIGIN included
};

// Clip rectangle, and circle inside it, in plot coordinates, inclusive. Set to the whole page at QUIINI.
struct ClipGroup {
  int clipX0 = 0, clipY0 = 0, clipX1 = 0, clipY1 = 0;
  int clipPageX0 = 0, clipPageY0 = 0, clipPageX1 = 0, clipPageY1 = 0; // CLPWIN
  int clipBorderMode = kBorderPage;
  int clipMode = kClipAuto;
  int savedClip[4] = {};       // rectangle under the clip at the axis system
  bool axisClipActive = false; // the rectangle is cut at the axis system
  bool clipIsCircle = false;
  float clipCenterX = 0.0F, clipCenterY = 0.0F, clipRadius = 0.0F;
};

} // namespace quilla
