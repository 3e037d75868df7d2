// Bar charts and candles.
#pragma once

namespace quilla {

inline constexpr int kBarGroups = 30;

enum BarType : int { kBarVertical = 0, kBarHorizontal = 1, kBarVertical3D = 2, kBarHorizontal3D = 3 };
enum FinancialType : int { kBarTicks = 0, kBarCandles = 1 };
enum ChartCycle : int { kChartCycleNone = 0, kChartCycleColor = 1, kChartCyclePattern = 2, kChartCycleBoth = 3 };
enum BarPosition : int { kBarAsGiven = 0, kBarAtTicks = 1, kBarFromAxis = 2, kBarTicksAndAxis = 3 };
enum BarLabel : int {
  kBarLabelNone = 0,
  kBarLabelSecond,
  kBarLabelFirst,
  kBarLabelGreater,
  kBarLabelLesser,
  kBarLabelDifference,
  kBarLabelPosition
};
// Place of a label: tens along the bar, units across it; 1 before, 2 in the middle, 3 behind.
enum BarLabelPlace : int {
  kBarLabelAuto = 0,
  kBarLabelOutside = 12,
  kBarLabelBefore = 21,
  kBarLabelInside = 22,
  kBarLabelBehind = 23,
  kBarLabelCenter = 32
};

// Run lifetime. The width (BARWTH) belongs to the curves, whose bars it sets as well.
struct BarGroup {
  int barType = kBarVertical;
  int fbarType = kBarCandles;
  bool barWidthVaries = false; // BARMOD "VARI"
  int barGroupCount = 1;
  float barGroupGap = 0.0F; // above 0 a fraction of a bar, else plot units
  int barPositionMode = kBarAsGiven;
  int barCycle = kChartCycleNone;
  int barColors[3] = {-1, -1,
                      -1}; // front, side, top; FBARS: line, falling body or left tick, rising body or right tick
  int barBorderColor = -1;
  float bar3dDepth = -1.0F; // plot units; negative: the width of the bars
  float bar3dAngle = 45.0F; // degrees
  int barLabelMode = kBarLabelNone;
  int barLabelPosition = kBarLabelAuto;
  int barLabelDigits = 1; // -2: as many as the values need
  int barLabelColor = -1;
};

// Working state.
struct BarState {
  int barGroupIndex = 1; // place of the next call of BARS in its group
};

} // namespace quilla
