// Where the lines of a level go: to the pen, or to arrays of the caller.
#pragma once

#include "contour/contour_pen.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph2d/curve_path.h"
#include "graph2d/legend.h"
#include "graph2d/scaling.h"
#include "text/text.h"

namespace quilla {

// Lines of a walk go to the pen.
struct DrawnLine {
  ContourPen& pen;
  static constexpr bool snaps = true;
  void start() const { startContourLine(pen); }
  void point(float x, float y) const { contourPoint(pen, x, y); }
};

// Draws a level as often as THKCRV tells, cut at the axis system. Labels are written the first time; each time the gaps
// for them are left. trace: gives the points of all lines to the pen; false if there was not enough memory.
template <class Trace> void drawLevel(PlotState* s, float level, Trace trace) {
  const int markers = s->curve.markerStep, angle = s->text.textAngle;
  const bool internal = s->internalCoordinates;
  s->curve.markerStep = 0;
  s->internalCoordinates = true;
  recordContour(s);
  axisClipOn(s);
  const int passes = curvePasses(s);
  bool enough = true;
  for (int k = 1; k <= passes && enough && !stopRequested(); k++) {
    beginCurvePass(s, k);
    ContourPen pen;
    openContourPen(s, pen, level, k == 1);
    enough = trace(pen);
    closeContourPen(pen);
  }
  endCurvePasses(s);
  flushPath(s);
  axisClipOff(s);
  setTextAngle(s, angle);
  s->internalCoordinates = internal;
  s->curve.markerStep = markers;
  if (!enough) warnPlain(s, 53);
}

// Points of the lines go to arrays, one line behind the other, as many as there is room for.
struct ListedLine {
  PlotState* s;
  float *x, *y;
  int points;
  int* counts;
  int lines;
  int* lineCount;
  long long total = 0;

  static constexpr bool snaps = false;

  void start() {
    if (*lineCount < lines) {
      counts[(*lineCount)++] = 0;
    } else {
      warnWithText(s, 117, "Overflow - Too many contour lines");
    }
  }
  void point(float px, float py) {
    if (++total <= points && *lineCount > 0) {
      x[total - 1] = px;
      y[total - 1] = py;
      counts[*lineCount - 1]++;
    } else if (total == points + 1LL) {
      warnWithText(s, 116, "Overflow - Too many contour points");
    }
  }
};

} // namespace quilla
