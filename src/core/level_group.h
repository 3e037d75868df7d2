// Level and counters of a plot.
#pragma once

namespace quilla {

// Level of a plot: what stands open.
enum PlotLevel : int { kLevelNone = 0, kLevelPlot = 1, kLevelAxis2D = 2, kLevelAxis3D = 3 };

// Mathematical constants as the library uses them: single precision, reals are compared against kTiny and not 0.
inline constexpr float kPi = 3.1415927F;
inline constexpr float kDegToRad = 0.017453292F;
inline constexpr float kTiny = 1e-35F;

inline constexpr int kRoutineNameLength = 8;

struct LevelGroup {
  int plotLevel = kLevelNone;
  char routineName[kRoutineNameLength + 1] = ""; // routine now running, lower case
};

// Cleared at QUIINI.
struct CounterGroup {
  int vectorCount = 0;     // line segments sent to the device
  int warningCount = 0;    // reports, printed or not
  int nanCount = 0;        // points with a NaN coordinate met by curves
  int outOfScaleCount = 0; // points outside the axis scaling
  int runFinished = 0;     // 0 during a run, 1 after QUIFIN, -1 after the plot file was deleted or sent
};

} // namespace quilla
