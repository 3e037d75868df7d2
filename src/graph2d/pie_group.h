// Pie charts.
#pragma once

namespace quilla {

inline constexpr int kPieColors = 30;
inline constexpr int kPieLabelPart = 20; // characters before and behind a value

enum PieLabelMode : int { kPieLabelNone = 0, kPieLabelPercent = 1, kPieLabelData = 2, kPieLabelBoth = 3 };
enum PieLabelPlace : int { kPieInternal = 0, kPieExternal = 1, kPieAligned = 2 };
enum PieLabelJustify : int {
  kPieCentered = 0,
  kPieLeft = 1,
  kPieRight = 2,
  kPieTypeset = 3, // as centred
  kPieOutwards = 4,
  kPieInwards = 5
};
enum PieVectorMode : int { kPieVectorBroken = 0, kPieVectorStraight = 1, kPieVectorNone = 2 };

// What PIECBK's routine may change of a segment before it is drawn.
using PieCallback = void (*)(int segment, float value, float percent, int* pattern, int* color, float* exploded,
                             int* labelMode, int* labelPlace, int* labelJustify, int* labelColor);

// Run lifetime.
struct PieGroup {
  int pieLabelMode = kPieLabelNone;
  int pieLabelPlace = kPieInternal;
  int pieLabelJustify = kPieCentered;
  int pieDataDigits = 1, piePercentDigits = 1;
  int pieLabelColor = -1;
  int pieCycle = 0; // ChartCycle
  int pieVectorMode = kPieVectorBroken;
  int pieVectorKind = 2301;
  bool pie3d = false;
  bool pieExplode = false;
  float pieAngle = 45.0F; // degrees over the plane of a 3-D pie
  float pieDepth = 0.2F;  // thickness as a fraction of the radius
  float pieRotation = 0.0F;
  float pieGap = 1.0F;      // least room between external labels, in character heights
  float pieDistance = 1.0F; // from the pie to external labels, in character heights
  int pieColors[kPieColors] = {}, pieSideColors[kPieColors] = {};
  int pieColorCount = 0;
  int pieBorderColor = -1;
  char pieLabelLeft[kPieLabelPart + 1] = "", pieLabelRight[kPieLabelPart + 1] = "";
  PieCallback pieCallback = nullptr;
};

} // namespace quilla
