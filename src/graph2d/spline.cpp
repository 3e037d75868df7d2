#include "graph2d/spline.h"

#include <cmath>
#include <memory>
#include <new>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

constexpr int kMostDegree = 10;
constexpr float kSmallestLogValue = 1e-6F; // results at or below 0 on a logarithmic axis

// Work arrays of one spline, in one allocation.
struct SplineWork {
  std::unique_ptr<double[]> memory;
  double *sites, *knots, *band, *xCoefficients, *yCoefficients;
};

bool allocateWork(PlotState* s, int n, int degree, SplineWork& w) {
  std::size_t count = static_cast<std::size_t>(n), knots = count + static_cast<std::size_t>(degree) + 1;
  std::size_t band = (2 * static_cast<std::size_t>(degree) + 1) * count;
  w.memory.reset(new (std::nothrow) double[3 * count + knots + band]);
  if (!w.memory) {
    warnPlain(s, 53);
    return false;
  }
  w.sites = w.memory.get();
  w.xCoefficients = w.sites + count;
  w.yCoefficients = w.xCoefficients + count;
  w.knots = w.yCoefficients + count;
  w.band = w.knots + knots;
  return true;
}

// Knots: order times each end site, data sites between them for even orders, means of neighbours for odd ones.
void notAKnot(const double* sites, int n, int degree, double* knots) {
  int order = degree + 1;
  for (int i = 0; i < order; i++) {
    knots[i] = sites[0];
    knots[n + i] = sites[n - 1];
  }
  for (int i = order; i < n; i++) {
    knots[i] = order % 2 == 0 ? sites[i - order / 2] : 0.5 * (sites[i - order / 2 - 1] + sites[i - order / 2]);
  }
}

// Span k with knots[k] <= t < knots[k + 1], degree <= k < n.
int spanOf(const double* knots, int n, int degree, double t) {
  int low = degree, high = n;
  while (high - low > 1) {
    int middle = (low + high) / 2;
    (t < knots[middle] ? high : low) = middle;
  }
  return low;
}

// The degree + 1 basis functions that do not vanish at t (recurrence of Cox and de Boor).
void basisAt(const double* knots, int span, int degree, double t, double values[kMostDegree + 1]) {
  double left[kMostDegree + 1], right[kMostDegree + 1];
  values[0] = 1.0;
  for (int j = 1; j <= degree; j++) {
    left[j] = t - knots[span + 1 - j];
    right[j] = knots[span + j] - t;
    double saved = 0.0;
    for (int r = 0; r < j; r++) {
      double width = right[r + 1] + left[j - r];
      double part = width != 0.0 ? values[r] / width : 0.0;
      values[r] = saved + right[r + 1] * part;
      saved = left[j - r] * part;
    }
    values[j] = saved;
  }
}

// Elimination without pivoting in a band of half width `half`; row i holds columns i - half .. i + half.
bool solveBand(double* band, int n, int half, double* rhs) {
  int width = 2 * half + 1;
  auto at = [&](int row, int column) -> double& {
    return band[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                static_cast<std::size_t>(column - row + half)];
  };
  for (int i = 0; i < n; i++) {
    double pivot = at(i, i);
    if (!(std::fabs(pivot) > 0.0)) return false;
    for (int row = i + 1; row <= i + half && row < n; row++) {
      double factor = at(row, i) / pivot;
      if (factor == 0.0) continue;
      for (int column = i; column <= i + half && column < n; column++) at(row, column) -= factor * at(i, column);
      rhs[row] -= factor * rhs[i];
    }
  }
  for (int i = n - 1; i >= 0; i--) {
    for (int column = i + 1; column <= i + half && column < n; column++) rhs[i] -= at(i, column) * rhs[column];
    rhs[i] /= at(i, i);
    if (!std::isfinite(rhs[i])) return false;
  }
  return true;
}

bool enoughPoints(PlotState* s, int n) {
  if (n > s->curve.splineDegree) return true;
  warnWithNumber(s, 31, n);
  return false;
}

bool warned(PlotState* s, int number) {
  warnPlain(s, number);
  return false;
}

// On a logarithmic axis results at or below 0 are raised.
float visibleY(const PlotState* s, float y) {
  return s->axis.axisLogScale[kAxisY] != 0 && !(y > 0.0F) ? kSmallestLogValue : y;
}

void drawSplinePoint(PlotState* s, float x, float y, int i) {
  PlotPoint p = plotPoint(s, x, y);
  if (i == 0) {
    penMove(s, p.x, p.y);
  } else {
    penDraw(s, p.x, p.y);
  }
}

} // namespace

bool splineCoefficients(const double* sites, const float* values, int n, int degree, double* knots, double* band,
                        double* coefficients) {
  notAKnot(sites, n, degree, knots);
  int width = 2 * degree + 1;
  for (std::size_t i = 0, count = static_cast<std::size_t>(width) * static_cast<std::size_t>(n); i < count; i++)
    band[i] = 0.0;
  double basis[kMostDegree + 1];
  for (int i = 0; i < n; i++) {
    int span = spanOf(knots, n, degree, sites[i]);
    basisAt(knots, span, degree, sites[i], basis);
    for (int r = 0; r <= degree; r++) {
      int offset = span - degree + r - i + degree;
      if (offset < 0 || offset >= width) continue;
      band[static_cast<std::size_t>(i) * static_cast<std::size_t>(width) + static_cast<std::size_t>(offset)] = basis[r];
    }
    coefficients[i] = static_cast<double>(values[i]);
  }
  return solveBand(band, n, degree, coefficients);
}

double splineValue(const double* knots, const double* coefficients, int n, int degree, double t) {
  double basis[kMostDegree + 1], sum = 0.0;
  int span = spanOf(knots, n, degree, t);
  basisAt(knots, span, degree, t, basis);
  for (int r = 0; r <= degree; r++) sum += basis[r] * coefficients[span - degree + r];
  return sum;
}

namespace {

// The points of a spline, y over x, in their order: emit(x, y, index). The last one is the data point itself. False
// after a warning, before any point.
template <class Emit> bool splineOverX(PlotState* s, const CurveData& d, Emit emit) {
  int degree = s->curve.splineDegree, n = d.n, points = s->curve.splinePoints;
  SplineWork w;
  if (!enoughPoints(s, n)) return false;
  for (int i = 1; i < n; i++) {
    if (!(d.x[i] > d.x[i - 1])) return warned(s, 32);
  }
  if (!allocateWork(s, n, degree, w)) return false;
  for (int i = 0; i < n; i++) w.sites[i] = static_cast<double>(d.x[i]);
  if (!splineCoefficients(w.sites, d.y, n, degree, w.knots, w.band, w.yCoefficients)) return warned(s, 38);
  bool logarithmic = s->axis.axisLogScale[kAxisX] != 0;
  double from = w.sites[0], to = w.sites[n - 1];
  if (logarithmic) {
    from = std::log10(from);
    to = std::log10(to);
  }
  for (int i = 0; i + 1 < points; i++) {
    double t = from + (to - from) * i / (points - 1);
    if (logarithmic) t = std::pow(10.0, t);
    emit(static_cast<float>(t), visibleY(s, static_cast<float>(splineValue(w.knots, w.yCoefficients, n, degree, t))),
         i);
  }
  emit(d.x[n - 1], visibleY(s, d.y[n - 1]), points - 1);
  return true;
}

// x and y as splines over the length of the chord, in the same way.
template <class Emit> bool splineOverChord(PlotState* s, const CurveData& d, Emit emit) {
  int degree = s->curve.splineDegree, n = d.n, points = s->curve.splinePoints;
  SplineWork w;
  if (!enoughPoints(s, n) || !allocateWork(s, n, degree, w)) return false;
  w.sites[0] = 0.0;
  for (int i = 1; i < n; i++) {
    double dx = static_cast<double>(d.x[i]) - d.x[i - 1], dy = static_cast<double>(d.y[i]) - d.y[i - 1];
    w.sites[i] = w.sites[i - 1] + std::hypot(dx, dy);
  }
  if (!splineCoefficients(w.sites, d.x, n, degree, w.knots, w.band, w.xCoefficients) ||
      !splineCoefficients(w.sites, d.y, n, degree, w.knots, w.band, w.yCoefficients)) {
    return warned(s, 38);
  }
  for (int i = 0; i + 1 < points; i++) {
    double t = w.sites[n - 1] * i / (points - 1);
    emit(static_cast<float>(splineValue(w.knots, w.xCoefficients, n, degree, t)),
         visibleY(s, static_cast<float>(splineValue(w.knots, w.yCoefficients, n, degree, t))), i);
  }
  emit(d.x[n - 1], visibleY(s, d.y[n - 1]), points - 1);
  return true;
}

} // namespace

void drawSpline(PlotState* s, const CurveData& d) {
  splineOverX(s, d, [s](float x, float y, int i) { drawSplinePoint(s, x, y, i); });
}

void drawParametricSpline(PlotState* s, const CurveData& d) {
  splineOverChord(s, d, [s](float x, float y, int i) { drawSplinePoint(s, x, y, i); });
}

} // namespace quilla

using namespace quilla;

void SPLINE(const float* x, const float* y, int n, float* xray, float* yray, int* nray) {
  constexpr long long kWorkLimit = 1000; // elements of the band system
  PlotState* s = strictCheck(1, 3, "spline");
  *nray = 0;
  if (!s) return;
  if ((2LL * s->curve.splineDegree + 1) * n > kWorkLimit) return warnWithNumber(s, 31, n);
  CurveData data{x, y, n};
  auto store = [&](float px, float py, int i) {
    xray[i] = px;
    yray[i] = py;
  };
  bool done = s->curve.curveMode == kCurvePSpline ? splineOverChord(s, data, store) : splineOverX(s, data, store);
  if (done) *nray = s->curve.splinePoints;
}
