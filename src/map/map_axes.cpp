#include "map/map_axes.h"

#include <cmath>
#include <cstdlib>
#include <numbers>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/axis_labels.h"
#include "graph2d/axis_system.h"
#include "graph2d/projection.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"
#include "text/text.h"

namespace quilla {

namespace {

constexpr int kCircleChords = 360;

// The offset, if it lies on the axis.
int withinAxis(const PlotState* s, const AxisPlace& p, float offset) {
  if (!(offset >= -0.5F && offset < static_cast<float>(s->axis.axisLength[p.axis]) - 0.5F)) return kOffAxis;
  return roundHalfUp(offset);
}

float fromStart(const AxisPlace& p, const PlotPoint& at) {
  return p.axis == kAxisX ? at.x - static_cast<float>(p.x) : static_cast<float>(p.y) - at.y;
}

// Without a curve in it, a map has its longitudes and latitudes where the edge has them.
int straightOffset(const PlotState* s, const AxisPlace& p, double value) {
  const float v = static_cast<float>(value), lon = s->map.edgeLon, lat = s->map.edgeLat;
  return withinAxis(s, p, fromStart(p, p.axis == kAxisX ? mapToPlot(s, v, lat) : mapToPlot(s, lon, v)));
}

// On an azimuthal map the far side of the sphere is not drawn.
bool isDrawn(const PlotState* s, float lon, float lat) {
  const Projection& p = s->map.projection;
  if (!isAzimuthal(p.code)) return true;
  return polarAbout(p, static_cast<double>(lon), static_cast<double>(lat)).distance < std::numbers::pi / 2.0;
}

// A curved meridian or parallel is walked in degrees until it crosses the line of the axis.
int crossingOffset(const PlotState* s, const AxisPlace& p, double value) {
  const bool meridian = p.axis == kAxisX;
  const int reach = meridian ? 90 : 180;
  const float v = static_cast<float>(value), middle = static_cast<float>(s->map.projection.centerLon);
  const float line = static_cast<float>(meridian ? p.y : p.x);
  PlotPoint last{};
  bool started = false;
  for (int degree = -reach; degree <= reach; degree++) {
    const float along = static_cast<float>(degree);
    const float lon = meridian ? v : middle + along, lat = meridian ? along : v;
    const bool drawn = isDrawn(s, lon, lat);
    const PlotPoint at = mapToPlot(s, lon, lat);
    const float before = (meridian ? last.y : last.x) - line, behind = (meridian ? at.y : at.x) - line;
    if (started && drawn && before * behind <= 0.0F && before != behind) {
      const float f = before / (before - behind);
      const int offset = withinAxis(s, p, fromStart(p, {last.x + f * (at.x - last.x), last.y + f * (at.y - last.y)}));
      if (offset != kOffAxis) return offset;
    }
    last = at;
    started = drawn;
  }
  return kOffAxis;
}

OffsetOnAxis mapOffset(const PlotState* s) {
  return s->map.projection.code < kProjMollweide ? straightOffset : crossingOffset;
}

// The left edge of a world map upwards and the right one back, a point for each degree.
void worldOutline(const PlotState* s, MapOutline& edge) {
  const ScalingState& c = s->scaling;
  const float low = c.axisStart[kAxisY], high = c.axisEnd[kAxisY];
  const int n = static_cast<int>(high - low + 1.5F);
  auto latitude = [&](int i) { return i == n - 1 ? high : low + static_cast<float>(i); };
  for (int i = 0; i < n; i++) edge.add(mapToPlot(s, c.axisStart[kAxisX], latitude(i)));
  for (int i = n - 1; i >= 0; i--) edge.add(mapToPlot(s, c.axisEnd[kAxisX], latitude(i)));
}

void circleOutline(const PlotState* s, float radius, MapOutline& edge) {
  for (int i = 0; i < kCircleChords; i++) {
    const double angle = 2.0 * std::numbers::pi * i / kCircleChords;
    edge.add({s->map.mapOriginX + radius * static_cast<float>(std::cos(angle)),
              s->map.mapOriginY - radius * static_cast<float>(std::sin(angle))});
  }
}
static_assert(kCircleChords <= kOutlinePoints);

void drawOutline(PlotState* s, const MapOutline& edge) {
  penMove(s, edge.x[0], edge.y[0]);
  for (int i = 1; i < edge.n; i++) penDraw(s, edge.x[i], edge.y[i]);
  penDraw(s, edge.x[0], edge.y[0]);
}

float circleRadius(const PlotState* s) {
  const int* length = s->axis.axisLength;
  return static_cast<float>(length[kAxisX] < length[kAxisY] ? length[kAxisX] : length[kAxisY]) / 2.0F;
}

} // namespace

void mapOutline(const PlotState* s, float growth, MapOutline& edge) {
  if (s->map.globe) return circleOutline(s, circleRadius(s) + growth, edge);
  worldOutline(s, edge);
}

namespace {

// One line inside the other; a negative thickness grows inwards.
void drawCurvedFrame(PlotState* s) {
  const int thickness = s->axis.frameThickness,
            lines = std::abs(thickness) < s->geometry.pageWidth ? std::abs(thickness) : s->geometry.pageWidth;
  const int kept = s->color.currentColor;
  if (s->axis.frameColor >= 0) setColor(s, s->axis.frameColor);
  for (int k = 0; k < lines; k++) {
    const float growth = static_cast<float>(thickness < 0 ? -k : k);
    MapOutline edge;
    mapOutline(s, growth, edge);
    // The edges of a world map run clockwise: outside is to the left of the pen.
    if (!s->map.globe) s->dash.lineGapSize = -growth / s->pageSetup.unitFactor;
    drawOutline(s, edge);
    s->dash.lineGapSize = 0.0F;
  }
  if (s->axis.frameColor >= 0) setColor(s, kept);
}

void fillCurvedBackground(PlotState* s) {
  const int kept = s->color.currentColor;
  MapOutline edge;
  mapOutline(s, 0.0F, edge);
  setColor(s, s->axis.axisBackgroundColor);
  fillSolid(s, edge.x, edge.y, edge.n);
  setColor(s, kept);
}

// The outermost place of a world map's edge between two heights on the page.
float outermost(const PlotState* s, const MapOutline& edge, int side, float start, float top, float bottom) {
  const int half = edge.n / 2, first = side == kSideLeft ? 0 : half;
  for (int i = first; i < first + half; i++) {
    if (edge.y[i] < top || edge.y[i] > bottom) continue;
    if (side == kSideLeft ? edge.x[i] < start : edge.x[i] > start) start = edge.x[i];
  }
  const float frame = static_cast<float>(s->axis.frameThickness > 0 ? s->axis.frameThickness : 0);
  return side == kSideLeft ? start - frame : start + frame;
}

// A latitude beside the edge of a world map; side: kSideLeft or kSideRight.
void drawLatitudeLabel(PlotState* s, const MapOutline& edge, int side, const char* text, float lat) {
  const ScalingState& c = s->scaling;
  const PlotPoint at = mapToPlot(s, side == kSideLeft ? c.axisStart[kAxisX] : c.axisEnd[kAxisX], lat);
  const int distance = s->axis.labelDistance[kAxisY], height = s->text.textHeight;
  const float reach = static_cast<float>(height) / 2.0F;
  const int x = roundHalfUp(outermost(s, edge, side, at.x, at.y - reach, at.y + reach));
  const int y = roundHalfUp(at.y - reach);
  textAtWith(s, text, side == kSideLeft ? x - distance - textLength(s, text) : x + distance, y, 0, height);
}

void drawLatitudeLabels(PlotState* s) {
  const int where = s->projection.latitudeLabels;
  if (where == kMapLabelsNone || s->axis.labelKind[kAxisY] == kLabelNone) return;
  const LabelRun run = labelRun(s, kAxisY);
  const int digits = labelDigitsOf(s, kAxisY);
  const bool exponents = labelsHoldExponents(s, kAxisY);
  NumberMixing saved{};
  if (exponents) saved = beginNumberMixing(s);
  char text[kLabelBuffer];
  MapOutline edge;
  worldOutline(s, edge);
  for (int i = run.first; i >= 0 && i <= run.last; i += run.stride) {
    const double value = labelValue(s, kAxisY, i);
    labelText(s, value, i, kAxisY, digits, text);
    if (where != kMapLabelsRight) drawLatitudeLabel(s, edge, kSideLeft, text, static_cast<float>(value));
    if (where != kMapLabelsLeft) drawLatitudeLabel(s, edge, kSideRight, text, static_cast<float>(value));
  }
  if (exponents) endNumberMixing(s, saved);
}

} // namespace

void drawMapSystem(PlotState* s) {
  if (!s->map.curvedFrame) return drawFourSidedSystem(s, mapOffset(s), mapOffset(s));
  if (s->axis.axisBackgroundColor >= 0 && s->area.backgroundsDrawn) fillCurvedBackground(s);
  const KeptLineStyle kept = keepLineStyle(s);
  setLineType(s, 0);
  s->internalCoordinates = true;
  drawCurvedFrame(s);
  if (!s->map.globe) drawLatitudeLabels(s);
  s->internalCoordinates = false;
  restoreLineStyle(s, kept);
}

} // namespace quilla

using namespace quilla;

namespace {

// An axis along the side of the open map: the scale tells where ticks and labels are wanted, the map where they stand.
void drawMapAxis(const char* routine, int axis, const AxisScale& scale, const char* name, int it, int distance) {
  PlotState* s = strictCheck(2, 3, routine);
  if (!s) return;
  AxisPlace p{axis, 0, s->axis.axisPosX, s->axis.axisPosY, kPartName, false, nullptr};
  if (s->axis.axisSystemKind == kSystemMap) p.offsetOf = mapOffset(s);
  if (axis == kAxisX) {
    p.y = userY(s, distance);
    const int onPage = addCoordinates(p.y, s->page.originY);
    if (onPage < 0 || onPage > s->geometry.pageHeight) return warnWithNumber(s, 5, distance);
  } else {
    p.x = distance;
    const int onPage = addCoordinates(p.x, s->page.originX);
    if (onPage < 0 || onPage > s->geometry.pageWidth) return warnWithNumber(s, 4, distance);
  }
  if (checkRange(s, it, 0, 1) || checkScale(s, axis, scale)) return;
  constexpr int kSides[2][2] = {{kSideBottom, kSideTop}, {kSideRight, kSideLeft}};
  p.side = kSides[axis][it];
  const AxisGroup keptAxis = s->axis;
  const ScalingState keptScaling = s->scaling;
  copyText(s->axis.axisName[axis], name, kLabelTextLimit);
  s->scaling.axisStart[axis] = scale.start;
  s->scaling.axisEnd[axis] = scale.end;
  s->scaling.axisFirstLabel[axis] = scale.first;
  s->scaling.axisStep[axis] = scale.step;
  const bool internal = s->internalCoordinates;
  s->internalCoordinates = true;
  drawAxis(s, p);
  s->internalCoordinates = internal;
  flushPath(s);
  s->axis = keptAxis;
  s->scaling = keptScaling;
}

} // namespace

void XAXMAP(float a, float b, float first, float step, const char* name, int it, int ny) {
  drawMapAxis("xaxmap", kAxisX, {a, b, first, step}, name, it, ny);
}

void YAXMAP(float a, float b, float first, float step, const char* name, int it, int nx) {
  drawMapAxis("yaxmap", kAxisY, {a, b, first, step}, name, it, nx);
}
