// Splines through the points of a curve.
#pragma once

#include "graph2d/curve_path.h"

namespace quilla {

// y as a spline over x. Warnings 31 (too few points), 32 (x does not rise), 38 (singular), 53 (no memory): no line.
void drawSpline(PlotState* s, const CurveData& data);

// x and y as splines over the length of the chord.
void drawParametricSpline(PlotState* s, const CurveData& data);

// B-spline of degree 2 to 10 that interpolates values at rising sites, knots by the not-a-knot rule.
// sites, values: n each; coefficients: n; knots: n + degree + 1; band: (2 * degree + 1) * n of working space.
// False if the system is singular.
bool splineCoefficients(const double* sites, const float* values, int n, int degree, double* knots, double* band,
                        double* coefficients);

// Value of the spline at t, between the first and the last site.
double splineValue(const double* knots, const double* coefficients, int n, int degree, double t);

} // namespace quilla
