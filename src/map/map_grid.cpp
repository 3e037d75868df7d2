// Grids of longitudes and latitudes.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/scaling.h"
#include "map/map_lines.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kMostLines = 10000; // in each direction
constexpr double kSlack = 1e-4;   // of a step

struct GridLimits {
  float low, high;
};

GridLimits gridLimits(const PlotState* s, int axis) {
  const int code = openMapCode(s);
  if (code < kProjConformal) return {s->scaling.axisStart[axis], s->scaling.axisEnd[axis]};
  if (axis == kAxisY) return {-90.0F, 90.0F};
  return {-180.0F, isAzimuthal(code) ? 179.9F : 180.0F};
}

void strokeLine(PlotState* s, int axis, float value, const GridLimits& along) {
  auto at = [&](float v, auto draw) { draw(s, axis == kAxisX ? value : v, axis == kAxisX ? v : value); };
  at(along.low, mapMove);
  if (openMapCode(s) >= kProjMollweide) {
    const int degrees = static_cast<int>(along.high - along.low);
    for (int i = 1; i <= degrees; i++) at(along.low + static_cast<float>(i), mapDraw);
  }
  at(along.high, mapDraw);
}

// Lines of equal longitude (axis X) or latitude (Y), from the first label on to both sides.
void gridLines(PlotState* s, int axis, int perStep) {
  if (perStep < 1) return;
  const GridLimits across = gridLimits(s, axis), along = gridLimits(s, axis == kAxisX ? kAxisY : kAxisX);
  const double first = static_cast<double>(s->scaling.axisFirstLabel[axis]);
  const double step = std::fabs(static_cast<double>(s->scaling.axisStep[axis])) / perStep;
  const double low = static_cast<double>(across.low), high = static_cast<double>(across.high);
  const double up = std::fmax((high - first) / step + kSlack, -1.0);
  const double down = std::fmax((first - low) / step + kSlack, -1.0);
  if (!(up < kMostLines && down < kMostLines)) return warnCutTicks(s);
  auto line = [&](int i) {
    const double value = first + i * step;
    if (value <= high + kSlack * step && value >= low - kSlack * step)
      strokeLine(s, axis, static_cast<float>(value), along);
  };
  for (int i = 0; i <= static_cast<int>(up) && !stopRequested(); i++) line(i);
  for (int i = 1; i <= static_cast<int>(down) && !stopRequested(); i++) line(-i);
}

} // namespace

void GRIDMP(int perLonStep, int perLatStep) {
  PlotState* s = strictCheck(2, 3, "gridmp");
  if (!s) return;
  checkRange(s, perLonStep, 0, -1);
  checkRange(s, perLatStep, 0, -1);
  const bool clipped = !isWorld(openMapCode(s));
  if (clipped) axisClipOn(s);
  gridLines(s, kAxisY, perLatStep);
  gridLines(s, kAxisX, perLonStep);
  flushPath(s);
  if (clipped) axisClipOff(s);
}
