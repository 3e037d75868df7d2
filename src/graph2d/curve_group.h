// Curves, symbols and attribute cycles.
#pragma once

#include "core/color_group.h"

namespace quilla {

inline constexpr int kHighestSymbol = 23;
inline constexpr int kUserSymbolLimit = 200; // points of a symbol of MYSYMB

enum CurveMode : int {
  kCurveLine = 0,
  kCurveStep,
  kCurveBars,
  kCurveSpline,
  kCurvePSpline,
  kCurveStem,
  kCurveStairs,
  kCurveFilledBars,
  kCurveCurved
};
enum CycleMode : int { kCycleNone = 0, kCycleColor = 1, kCycleLine = 2, kCycleBoth = 3 };

// Run lifetime.
struct CurveGroup {
  int curveMode = kCurveLine;
  int splineDegree = 3, splinePoints = 200;
  int curveThickness = 1;
  int markerKind = 0;
  int markerHeight = 36;
  int markerColor = -1;
  int markerStep = 0; // 0 line only; n > 0 line and every n-th symbol; n < 0 every n-th symbol, no line
  int curvesPerCycle = 1;
  int cycleMode = kCycleNone;
  int lineCycle[kCycleLength] = {};
  bool gapLimitOn[3] = {};
  float gapLimit[3] = {};
  int nanMode = 0;
  float barWidth = 0.75F;
  bool errorBarHorizontal = false; // BARTYP
  float symbolAngle = 0.0F;
  bool userSymbolOn = false, userSymbolFilled = false; // MYSYMB
  int userSymbolId = 0, userSymbolN = 0;
  float userSymbolX[kUserSymbolLimit] = {}, userSymbolY[kUserSymbolLimit] = {};
};

// Working state of the cycles; reset by ENDGRF.
struct CycleState {
  int cycleIndex = 1;
  int curveCounter = 1;
  int curveInCycle = 1;
  bool legendEntryPending = true;
};

} // namespace quilla
