// Scaling of the open axis system: checks, automatic scaling, user values to plot coordinates and back.
#pragma once

#include <span>

#include "core/plot_state.h"

namespace quilla {

// Scaling of one axis as GRAF takes it: log10 values on a logarithmic axis.
struct AxisScale {
  float start, end, first, step;
};

// 0 if the scale can be drawn, else 1. Messages 9, 10, 11 (failures), 12 and 50 (warnings only).
int checkScale(PlotState* s, int axis, const AxisScale& scale);

// Automatic scaling from autoMin and autoMax. Gives the scale and the digits of labels; messages 23 and 24.
AxisScale automaticScale(PlotState* s, int axis, int& digits);

// After SETSCL the scale of the axis and, unless they are given, its digits are the automatic ones.
void takeAutomaticScale(PlotState* s, int axis, AxisScale& scale);

// Limits of a scale in user values, min not above max.
struct UserLimits {
  float min, max;
};
UserLimits userLimits(const PlotState* s, int axis, const AxisScale& scale);

// A value as a logarithmic axis counts it. One without a logarithm becomes that of NEGLOG.
float logarithmOf(const PlotState* s, float value);

// Takes the scale into use: factors, origin and the limits of user values.
void storeScale(PlotState* s, int axis, const AxisScale& scale);

// Every value has its place on the axis: on a logarithmic one it is positive, but for NEGLOG. False after message 27.
bool logarithmsExist(PlotState* s, int axis, std::span<const float> values);

// Plot coordinates of user values, counted from the top of the page, ORIGIN not included.
float plotX(const PlotState* s, float x);
float plotY(const PlotState* s, float y);

// Plot coordinates of a point in any axis system: x and y, or radius and angle in degrees.
struct PlotPoint {
  float x, y;
};
PlotPoint plotPoint(const PlotState* s, float x, float y);

// The same for a longitude and latitude in degrees, by the projection of the open map.
PlotPoint mapToPlot(const PlotState* s, float lon, float lat);

// The point lies within the edge of the open map: the limits of a world map, the reach of an azimuthal one.
bool isOnMap(const PlotState* s, float lon, float lat);

// Reflection coefficient (z - 1) / (z + 1) of an impedance, or (1 - y) / (1 + y) of an admittance, and back.
struct Complex {
  double re, im;
};
Complex reflectionOf(const PlotState* s, Complex z);
Complex impedanceOf(const PlotState* s, Complex reflection);

// Direction on the page, in radians anticlockwise from the right, of an angle of a polar system in degrees.
double polarDirection(const PlotState* s, double degrees);

// Both lengths of a round system become the smaller one; its centre follows from its corner or the other way round.
void placeRoundSystem(PlotState* s);

// Clip limits of curves from position, length, ORIGIN and GRACE.
void storeAxisClip(PlotState* s);

// Cuts what follows at the axis system; pairs must not be nested.
void axisClipOn(PlotState* s);
void axisClipOff(PlotState* s);

} // namespace quilla
