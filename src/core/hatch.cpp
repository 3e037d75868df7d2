#include "core/hatch.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "core/messages.h"
#include "core/path.h"
#include "core/pipeline.h"
#include "core/stop_request.h"

namespace quilla {

namespace {

constexpr float kLeastStep = 0.05F; // plot units; SHDFAC makes no hatch denser than this
constexpr int kWmfDevice = 221;
constexpr int kDoubleLines = 2, kTripleLines = 3, kThickLines = 8;
constexpr int kChainDotType = 4, kDashMiddleType = 5, kDotLongType = 6; // of LINTYP

// Coordinates turned so that the hatch lines lie along u. Angles count anticlockwise on the page, whose y points down.
struct Turn {
  double cosine, sine;

  double u(double x, double y) const { return x * cosine - y * sine; }
  double v(double x, double y) const { return x * sine + y * cosine; }
  float x(double u, double v) const { return static_cast<float>(u * cosine + v * sine); }
  float y(double u, double v) const { return static_cast<float>(v * cosine - u * sine); }
};

// Side of the polygon, from its upper end on; it meets the hatch lines with top <= v < bottom.
struct Side {
  double top, bottom, u, slope;
  double at(double v) const { return u + (v - top) * slope; }
};

// Work arrays of one polygon.
struct HatchWork {
  std::unique_ptr<Side[]> sides;
  std::unique_ptr<int[]> active; // sides that meet the current line
  std::unique_ptr<double[]> crossings;
  int sideCount = 0;
};

bool takeWork(HatchWork& work, int n) {
  std::size_t count = static_cast<std::size_t>(n);
  work.sides.reset(new (std::nothrow) Side[count]);
  work.active.reset(new (std::nothrow) int[count]);
  work.crossings.reset(new (std::nothrow) double[count]);
  return work.sides && work.active && work.crossings;
}

void collectSides(HatchWork& work, const Turn& turn, const float* x, const float* y, int n) {
  work.sideCount = 0;
  for (int i = 0; i < n; i++) {
    int k = i + 1 < n ? i + 1 : 0;
    double ax = static_cast<double>(x[i]), ay = static_cast<double>(y[i]);
    double bx = static_cast<double>(x[k]), by = static_cast<double>(y[k]);
    double u0 = turn.u(ax, ay), v0 = turn.v(ax, ay), u1 = turn.u(bx, by), v1 = turn.v(bx, by);
    if (v0 == v1) continue;
    if (v0 > v1) {
      std::swap(u0, u1);
      std::swap(v0, v1);
    }
    work.sides[static_cast<std::size_t>(work.sideCount++)] = {v0, v1, u0, (u1 - u0) / (v1 - v0)};
  }
  std::sort(work.sides.get(), work.sides.get() + work.sideCount,
            [](const Side& a, const Side& b) { return a.top < b.top; });
}

// The v of the clip rectangle's corners: no line beyond them can be seen.
void visibleRange(const PlotState* s, const Turn& turn, double& low, double& high) {
  ClipBox b = activeRegion(s).box;
  const float xs[] = {b.x0, b.x1, b.x1, b.x0}, ys[] = {b.y0, b.y0, b.y1, b.y1};
  low = high = turn.v(static_cast<double>(xs[0]), static_cast<double>(ys[0]));
  for (int i = 1; i < 4; i++) {
    double v = turn.v(static_cast<double>(xs[i]), static_cast<double>(ys[i]));
    low = std::min(low, v);
    high = std::max(high, v);
  }
}

void drawHatchLine(PlotState* s, const Turn& turn, double u0, double u1, double v) {
  float x0 = turn.x(u0, v), y0 = turn.y(u0, v), x1 = turn.x(u1, v), y1 = turn.y(u1, v);
  if (s->line.linePatternCount > 1) return drawDashed(s, x0, y0, x1, y1, false);
  startPath(s, x0, y0);
  appendPoint(s, x1, y1);
}

// The scan: hatch lines in the order of v, each with the sides that it meets.
struct Scan {
  PlotState* s;
  HatchWork& work;
  const Turn& turn;
  int next = 0, activeCount = 0;

  void line(double v) {
    const Side* sides = work.sides.get();
    int* active = work.active.get();
    double* crossings = work.crossings.get();
    while (next < work.sideCount && sides[next].top <= v) active[activeCount++] = next++;
    int kept = 0;
    for (int i = 0; i < activeCount; i++) {
      if (sides[active[i]].bottom <= v) continue;
      // The order along the line changes little from line to line, so that each crossing finds its place soon.
      double u = sides[active[i]].at(v);
      int side = active[i], k = kept++;
      for (; k > 0 && crossings[k - 1] > u; k--) {
        crossings[k] = crossings[k - 1];
        active[k] = active[k - 1];
      }
      crossings[k] = u;
      active[k] = side;
    }
    activeCount = kept;
    for (int i = 0; i + 1 < kept; i += 2) drawHatchLine(s, turn, crossings[i], crossings[i + 1], v);
  }
};

void hatchPass(PlotState* s, HatchWork& work, int angle, const float* x, const float* y, int n) {
  double radians = static_cast<double>(angle) * static_cast<double>(kDegToRad);
  Turn turn{std::cos(radians), std::sin(radians)};
  if (angle == 0) turn = {1.0, 0.0};
  if (angle == 90) turn = {0.0, 1.0};
  collectSides(work, turn, x, y, n);
  if (work.sideCount == 0) return;
  double top = work.sides[0].top, bottom = top, low = 0.0, high = 0.0;
  for (int i = 0; i < work.sideCount; i++) bottom = std::max(bottom, work.sides[static_cast<std::size_t>(i)].bottom);
  visibleRange(s, turn, low, high);
  bottom = std::min(bottom, high);
  HatchLines hatch = hatchLines(s);
  double step = static_cast<double>(hatch.step), period = step * (hatch.lines - 1 + hatch.gap);
  double start = top + step / 2.0;
  if (start + period < low) start += std::floor((low - start) / period) * period;
  Scan scan{s, work, turn};
  for (long long group = 0; start + static_cast<double>(group) * period < bottom && !stopRequested(); group++) {
    for (int k = 0; k < hatch.lines; k++) {
      double v = start + static_cast<double>(group) * period + k * step;
      if (v < bottom) scan.line(v);
    }
  }
}

} // namespace

HatchLines hatchLines(const PlotState* s) {
  const ShadingGroup& p = s->shading;
  const float density = static_cast<float>(p.shadeDensity);
  HatchLines hatch{1, density * 5.0F + 1.9999F, 1};
  switch (p.shadeType) {
  case kShadeDouble: hatch = {kDoubleLines, 20.0F, p.shadeDensity}; break;
  case kShadeTriple: hatch = {kTripleLines, 15.0F, p.shadeDensity}; break;
  case kShadeThick: hatch = {kThickLines, 1.0F, p.shadeDensity * 5 + 4}; break;
  default:
    if (p.shadeDensity == 0) hatch.step = s->deviceSetup.deviceNumber == kWmfDevice ? 0.39999F : 0.99999F;
    break;
  }
  hatch.step = p.shadeFactor * hatch.step / s->pageSetup.unitFactor;
  if (!(hatch.step >= kLeastStep)) hatch.step = kLeastStep;
  hatch.gap = std::max(hatch.gap, 1);
  return hatch;
}

void hatchPolygon(PlotState* s, const float* x, const float* y, int n) {
  HatchWork work;
  if (!takeWork(work, n)) return warnPlain(s, 53);
  KeptLineStyle kept = keepLineStyle(s);
  s->line.linePatternColorCount = 0;
  switch (s->shading.shadeType) {
  case kShadeDotted: setLineType(s, kDotLongType); break;
  case kShadeDashed: setLineType(s, kDashMiddleType); break;
  case kShadeChained: setLineType(s, kChainDotType); break;
  default: setLineType(s, 0); break;
  }
  // The polygon is transformed already.
  const bool transformed = s->transform.transformOn;
  s->transform.transformOn = false;
  const int angle = s->shading.shadeAngle;
  hatchPass(s, work, angle, x, y, n);
  if (s->shading.shadeCross != 0) hatchPass(s, work, angle < 90 ? angle + 90 : 180 - angle, x, y, n);
  flushPath(s);
  s->transform.transformOn = transformed;
  restoreLineStyle(s, kept);
}

} // namespace quilla
