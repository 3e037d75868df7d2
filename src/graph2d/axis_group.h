// Axis systems, axes, labels and titles. Arrays of three stand for X, Y and Z.
#pragma once

namespace quilla {

enum AxisIndex : int { kAxisX = 0, kAxisY = 1, kAxisZ = 2, kAxisCount = 3 };
enum AxisSide : int { kSideBottom = 0, kSideLeft = 1, kSideTop = 2, kSideRight = 3, kSideCount = 4 };
enum AxisSystemKind : int {
  kSystemRectangular = 0,
  kSystemPolar = 1,
  kSystemMap = 2,
  kSystemBox = 3,
  kSystemRealImaginary = 4
};
enum AxisPart : int { kPartNone = 0, kPartLine = 1, kPartTicks = 2, kPartLabels = 3, kPartName = 4 };
enum LabelKind : int {
  kLabelNone = 0,
  kLabelFloat,
  kLabelExp,
  kLabelLog,
  kLabelCLog,
  kLabelELog,
  kLabelMap,
  kLabelDMap,
  kLabelLMap,
  kLabelTime,
  kLabelHour,
  kLabelSeconds,
  kLabelMine,
  kLabelFExp,
  kLabelDate,
  kLabelMapNoDegree,
  kLabelXExp
};
enum LabelClass : int { kClassNumeric = 0, kClassTime = 1, kClassMap = 2, kClassDate = 3 };

inline constexpr int kLabelTextLimit = 132;
inline constexpr int kMyLabelCount = 100;
inline constexpr int kMyLabelLength = 32;
inline constexpr int kTitleLines = 4;
inline constexpr int kLabelBuffer = 81;

enum DateStep : int {
  kStepDays = 0,
  kStepMonth,
  kStepQuarter,
  kStepHalf,
  kStepYear,
  kStepTwoMonths,
  kStepTwoYears,
  kStepFourYears
};

// Dates of one axis (LABMOD).
struct DateStyle {
  int dateLanguage = 0; // 0 English, 1 German, 2 Spanish
  int dateOrder = 0;    // DMY, DYM, MDY, MYD, YDM, YMD
  int dateYear = 0;     // 0 four digits, 1 two, 2 none
  int dateMonth = 0;    // 0 three letters, 1 number, 2 none, 3 name, 4 two digits, 5 first letter
  int dateDay = 1;      // 0 short name, 1 number, 2 none, 3 name, 4 two digits
  bool dateUpperCase = false;
  char dateSeparator = '-';
  int dateLabelStep = kStepDays;
};

// Process lifetime: the day from which date axes count.
struct DateSetup {
  bool baseDateSet = false;
  int baseDay = 1, baseMonth = 1, baseYear = 1970;
};

// Run lifetime: settings of the axis system.
struct AxisGroup {
  int axisLength[kAxisCount] = {};   // plot units
  int axisLogScale[kAxisCount] = {}; // 0 linear, 1 logarithmic
  int axisPosX = 0, axisPosY = 0;    // lower left corner
  int axisCrossX = 0, axisCrossY = 0;
  bool axisOriginGiven = false; // AXSORG
  int axisSystemKind = kSystemRectangular;
  bool axisCrossed = false;    // AXSTYP "CROS"
  bool axisAdmittance = false; // AXSTYP "ADMI"
  int polarStart = 0;          // POLMOD: 0 right, 1 top, 2 left, 3 bottom
  bool polarClockwise = false; // POLMOD
  bool noAxesDrawn = false;
  bool twoAxesOnly = false;
  int frameThickness = 1;
  int frameColor = -1;
  int centerState = 0; // 0 off, 1 asked, 2 done
  int axisBackgroundColor = -1;
  int graceMargin = 0;
  int axisPartDrawn[kSideCount] = {kPartName, kPartName, kPartTicks, kPartTicks};
  bool autoScaled[kAxisCount] = {};
  float autoMin[kAxisCount] = {}, autoMax[kAxisCount] = {};

  bool axisLineOn[kAxisCount] = {true, true, true};
  int tickCount[kAxisCount] = {2, 2, 2};
  int tickLengthMajor = 24, tickLengthMinor = 16;
  int tickPosition[kAxisCount] = {};
  int tickCalendarMode[kAxisCount] = {};
  int logTickMode = 0;
  DateStyle dates[kAxisCount];
  bool timeColon = false;        // TIMOPT
  bool negativeLogOn = false;    // NEGLOG
  float negativeLogValue = 1.0F; // stands for values that have no logarithm
  int labelKind[kAxisCount] = {kLabelFloat, kLabelFloat, kLabelFloat};
  int labelClass[kAxisCount] = {};
  int labelDigits[kAxisCount] = {1, 1, 1};
  bool labelAutoDigits[kAxisCount] = {};
  bool labelDigitsGiven[kAxisCount] = {}; // by LABDIG: automatic scaling leaves them alone
  int labelType[kAxisCount] = {2, 2, 2};  // 1 value as exponent, 2 plain, 3 natural
  int labelPosition[kAxisCount] = {};
  int labelJustify[kAxisCount] = {};
  int labelOrientation[kAxisCount] = {};
  int labelDistance[kAxisCount] = {24, 24, 24};
  int axisEndsMode[kAxisCount] = {};
  char axisName[kAxisCount][kLabelTextLimit + 1] = {};
  int nameDistance[kAxisCount] = {30, 30, 30};
  int nameJustify[kAxisCount] = {};
  int nameHeight = 36;
  int myLabelCount[kAxisCount] = {}; // the highest number given
  bool rightJustifyLabels = false;
  bool reverseYName = false;
  int axisColors[kAxisCount][4] = {{-1, -1, -1, -1}, {-1, -1, -1, -1}, {-1, -1, -1, -1}}; // line, ticks, labels, name
  char titleLine[kTitleLines][kLabelTextLimit + 1] = {};
  bool titleUnderlined[kTitleLines] = {};
  int titleJustify = 0;
  int titlePosition = 0;
  int titleHeight = 0; // 0: current height
  int titleDistance = 0;
  float lineSpacing = 1.5F;
};

// Run lifetime: labels of MYLAB, apart from the group above because of their size.
struct MyLabelGroup {
  char myLabels[kAxisCount][kMyLabelCount][kMyLabelLength + 1] = {};
};

// Working state: the scaling in use; log10 values on a logarithmic axis.
struct ScalingState {
  float axisStart[kAxisCount] = {}, axisEnd[kAxisCount] = {}, axisFirstLabel[kAxisCount] = {},
        axisStep[kAxisCount] = {};
  float axisFactorX = 1.0F, axisFactorY = 1.0F;
  float axisOriginPlotX = 0.0F, axisOriginPlotY = 0.0F;
  float userMinX = 0.0F, userMaxX = 0.0F, userMinY = 0.0F, userMaxY = 0.0F; // user values, min not above max
  int axisClip[4] = {}; // x0, y0, x1, y1 of the curve clip in plot coordinates
  int axisRightX = 0, axisTopY = 0;
  float axisCenterX = 0.0F, axisCenterY = 0.0F, axisRadius = 0.0F; // of the circular clip
  int longestLabel[kAxisCount] = {};                               // plot units, of the labels last drawn
};

} // namespace quilla
