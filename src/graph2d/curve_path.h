// The line of a curve, by its mode.
#pragma once

#include "core/plot_state.h"

namespace quilla {

struct CurveData {
  const float *x, *y;
  int n;
};

// Draws the line of the curve once in the current colour and line type, by curveMode. A point that is no number breaks
// the line while nanMode is on; so does a gap beyond the limits of GAPSIZ.
void drawCurveLine(PlotState* s, const CurveData& data);

// A whole curve: checks, attributes, symbols, and the line as often as it is thick.
using CurveLine = void (*)(PlotState* s, const CurveData& data);
void drawCurve(PlotState* s, const CurveData& data, CurveLine line);
// A thick curve is drawn several times, side by side: at 0, +1, -1, +2, -2, ... Passes count from 1; each begins with
// the line pattern anew.
int curvePasses(const PlotState* s);
void beginCurvePass(PlotState* s, int pass);
void endCurvePasses(PlotState* s);

// Points outside the axes are looked for (NOCHEK, ERRMOD); such a point; its report and its count.
bool isDataChecked(const PlotState* s);
bool isOutside(const PlotState* s, float x, float y);
void reportOutOfScale(PlotState* s, float x, float y);

// The point is a number, as far as nanMode asks.
bool isDrawable(const PlotState* s, const CurveData& data, int i);

// Point i continues the line from point i - 1.
bool continues(const PlotState* s, const CurveData& data, int i);

} // namespace quilla
