// Axes along the projected edges of the box. Ticks leave an axis in the direction of a neighbouring one, away from the
// box; labels and names keep clear of the axis.
#include <algorithm>
#include <cmath>

#include "core/messages.h"
#include "core/pipeline.h"
#include "core/projection.h"
#include "graph2d/axis_drawing.h"
#include "graph2d/axis_labels.h"
#include "graph3d/box.h"
#include "graph3d/box_axes.h"
#include "text/text.h"

namespace quilla {

namespace {

constexpr double kDegrees = 180.0 / 3.14159265358979323846;

struct Vector {
  double x, y; // plot coordinates, y downwards
};

double lengthOf(Vector v) { return std::hypot(v.x, v.y); }

// One axis on the page.
struct Edge {
  int axis;
  BoxPoint from, to; // its ends, at the start and at the end of the scaling
  Vector along;      // unit vector from start to end
  Vector out;        // unit vector of the ticks
  int labelAngle;    // degrees
};

Vector pagePoint(const PlotState* s, const BoxPoint& p) {
  const PagePoint page = pageOfBox(s, p.x, p.y, p.z);
  return {static_cast<double>(page.x), static_cast<double>(page.y)};
}

Vector unitVector(Vector from, Vector to, Vector otherwise) {
  const Vector d{to.x - from.x, to.y - from.y};
  const double length = lengthOf(d);
  return length > 0.0 && std::isfinite(length) ? Vector{d.x / length, d.y / length} : otherwise;
}

// Angle of a direction in degrees, truncated, turned so that texts along it can be read.
int readableAngle(Vector v) {
  constexpr int kSteepest = 105; // an axis that leans a little is read upwards
  int angle = static_cast<int>(std::atan2(-v.y, v.x) * kDegrees);
  if (angle > kSteepest) angle -= 180;
  if (angle <= kSteepest - 180) angle += 180;
  return angle < 0 ? angle + 360 : angle;
}

// Sides of the box at which the axes stand: -1 at the lower, 1 at the higher box coordinate.
struct Places {
  int xAtY, yAtX, zAtX, zAtY;
  bool xFlag, yFlag; // side flags
  int neighbourOfZ;
};

Places placesOf(const PlotState* s) {
  const float x = s->viewState.eye[0], y = s->viewState.eye[1];
  if (x >= 0.0F && y < 0.0F) return {-1, 1, -1, -1, false, true, kAxisX};
  if (x >= 0.0F) return {1, 1, 1, -1, true, false, kAxisY};
  if (y >= 0.0F) return {1, -1, 1, 1, false, true, kAxisX};
  return {-1, -1, -1, 1, true, false, kAxisY};
}

// Ends of the three axes. X and Y stand at the bottom.
void placeEdges(const PlotState* s, const Places& p, Edge (&edges)[kAxisCount]) {
  const float(&box)[3] = s->viewState.box;
  const float hx = box[0] / 2.0F, hy = box[1] / 2.0F, hz = box[2] / 2.0F;
  const float xAtY = static_cast<float>(p.xAtY) * hy, yAtX = static_cast<float>(p.yAtX) * hx;
  const float zAtX = static_cast<float>(p.zAtX) * hx, zAtY = static_cast<float>(p.zAtY) * hy;
  edges[kAxisX].from = {-hx, xAtY, -hz};
  edges[kAxisX].to = {hx, xAtY, -hz};
  edges[kAxisY].from = {yAtX, -hy, -hz};
  edges[kAxisY].to = {yAtX, hy, -hz};
  edges[kAxisZ].from = {zAtX, zAtY, -hz};
  edges[kAxisZ].to = {zAtX, zAtY, hz};
}

Edge makeEdge(const PlotState* s, int axis, const Edge& ends, const Edge& neighbour, double outwards) {
  const Vector right{1.0, 0.0};
  Edge e = ends;
  e.axis = axis;
  e.along = unitVector(pagePoint(s, ends.from), pagePoint(s, ends.to), right);
  const Vector n = unitVector(pagePoint(s, neighbour.from), pagePoint(s, neighbour.to), right);
  e.out = {n.x * outwards, n.y * outwards};
  e.labelAngle = 0;
  return e;
}

void drawEdgeLine(PlotState* s, Vector from, Vector to) {
  penMove(s, static_cast<float>(from.x), static_cast<float>(from.y));
  penDraw(s, static_cast<float>(to.x), static_cast<float>(to.y));
}

// Plot point of the axis at an offset of its two-dimensional length.
Vector edgePoint(const PlotState* s, const Edge& e, int offset) {
  const float t = static_cast<float>(offset) / static_cast<float>(s->axis.axisLength[e.axis] - 1);
  return pagePoint(
      s, {e.from.x + t * (e.to.x - e.from.x), e.from.y + t * (e.to.y - e.from.y), e.from.z + t * (e.to.z - e.from.z)});
}

struct TickContext {
  PlotState* s;
  const Edge* edge;
};

void drawTick(void* context, int offset, int length) {
  const TickContext& c = *static_cast<TickContext*>(context);
  const Vector p = edgePoint(c.s, *c.edge, offset), d = c.edge->out;
  const int position = c.s->axis.tickPosition[c.edge->axis];
  const double inner = position == 0 ? 0.0 : position == 1 ? -length : -length / 2.0;
  const double outer = position == 1 ? 0.0 : position == 2 ? length / 2.0 : length;
  drawEdgeLine(c.s, {p.x + d.x * inner, p.y + d.y * inner}, {p.x + d.x * outer, p.y + d.y * outer});
}

int tickRoom(const PlotState* s, int axis) {
  const int position = s->axis.tickPosition[axis], length = s->axis.tickLengthMajor;
  return s->axis.tickCount[axis] == 0 || position == 1 ? 0 : position == 2 ? length / 2 : length;
}

// Unit vector across the axis on the side of the ticks.
Vector acrossEdge(const Edge& e) {
  const Vector n{-e.along.y, e.along.x};
  return n.x * e.out.x + n.y * e.out.y < 0.0 ? Vector{-n.x, -n.y} : n;
}

// How far a text of a size reaches from its middle across the axis.
double reachAcross(const Edge& e, double width, double height, int angle) {
  const double a = angle / kDegrees;
  const Vector n = acrossEdge(e), u{std::cos(a), -std::sin(a)}, v{std::sin(a), std::cos(a)};
  return std::fabs(u.x * n.x + u.y * n.y) * width / 2.0 + std::fabs(v.x * n.x + v.y * n.y) * height / 2.0;
}

// Distance along the ticks at which something is so far across the axis. Ticks nearly along the axis are not followed
// for ever.
double alongTicks(const Edge& e, double across) {
  constexpr double kLeast = 0.3;
  const Vector n = acrossEdge(e);
  return across / std::fmax(n.x * e.out.x + n.y * e.out.y, kLeast);
}

// Text with its middle at a point.
void textAround(PlotState* s, const char* text, Vector middle, int width, int height, int angle) {
  const double a = angle / kDegrees;
  const Vector u{std::cos(a), -std::sin(a)}, v{std::sin(a), std::cos(a)}; // along and down the text
  const double x = middle.x - u.x * width / 2.0 - v.x * height / 2.0;
  const double y = middle.y - u.y * width / 2.0 - v.y * height / 2.0;
  if (!(std::fabs(x) < 1e6 && std::fabs(y) < 1e6)) return;
  textAtWith(s, text, static_cast<int>(std::floor(x + 0.5)), static_cast<int>(std::floor(y + 0.5)), angle, height);
}

// Draws the labels and gives the distance across the axis at which they end.
double drawEdgeLabels(PlotState* s, const Edge& e) {
  const int axis = e.axis, height = s->text.textHeight, digits = labelDigitsOf(s, axis);
  const double start = tickRoom(s, axis) + s->axis.labelDistance[axis];
  const LabelRun run = labelRun(s, axis);
  const bool exponents = labelsHoldExponents(s, axis);
  NumberMixing saved{};
  if (exponents) saved = beginNumberMixing(s);
  double end = start;
  char text[kLabelBuffer];
  for (int i = run.first; i >= 0 && i <= run.last; i += run.stride) {
    double value = labelValue(s, axis, i), at = value;
    if (s->axis.labelPosition[axis] == 1) at += 0.5 * static_cast<double>(s->scaling.axisStep[axis]);
    const int offset = axisOffset(s, axis, at);
    if (offset < 0 || offset >= s->axis.axisLength[axis]) continue;
    labelText(s, value, i, axis, digits, text);
    const int width = textLength(s, text);
    const double reach = reachAcross(e, width, height, e.labelAngle), away = alongTicks(e, start + reach);
    const Vector p = edgePoint(s, e, offset);
    textAround(s, text, {p.x + e.out.x * away, p.y + e.out.y * away}, width, height, e.labelAngle);
    end = std::fmax(end, start + 2.0 * reach);
  }
  if (exponents) endNumberMixing(s, saved);
  return end;
}

// The name along the axis, past the labels.
void drawEdgeName(PlotState* s, const Edge& e, double labelsEnd) {
  const char* name = s->axis.axisName[e.axis];
  if (!name[0]) return;
  const int height = s->text.textHeight, nameHeight = s->axis.nameHeight;
  setTextHeight(s, nameHeight);
  const int width = textLength(s, name);
  setTextHeight(s, height);
  const int angle = readableAngle(e.along);
  const double across = labelsEnd + s->axis.nameDistance[e.axis] + nameHeight / 2.0;
  const Vector n = acrossEdge(e), p = edgePoint(s, e, (s->axis.axisLength[e.axis] - 1) / 2);
  textAround(s, name, {p.x + n.x * across, p.y + n.y * across}, width, nameHeight, angle);
}

void drawEdge(PlotState* s, const Edge& e) {
  const int axis = e.axis;
  if (s->axis.axisLineOn[axis])
    inAxisColor(s, axis, kColorLine, [&] { drawEdgeLine(s, pagePoint(s, e.from), pagePoint(s, e.to)); });
  TickContext context{s, &e};
  if (s->axis.tickCount[axis] > 0) inAxisColor(s, axis, kColorTicks, [&] { eachTick(s, axis, drawTick, &context); });
  double end = tickRoom(s, axis);
  if (s->axis.labelKind[axis] != kLabelNone) inAxisColor(s, axis, kColorLabels, [&] { end = drawEdgeLabels(s, e); });
  inAxisColor(s, axis, kColorName, [&] { drawEdgeName(s, e, end); });
}

int labelAngleOf(const PlotState* s, const Edge& e, bool sideFlag) {
  switch (s->view.axisStyle) {
  case kAxesParallel: return readableAngle(e.along);
  case kAxesOther: return readableAngle(sideFlag ? e.out : e.along);
  default: return 0;
  }
}

} // namespace

void drawAxesOnEdges(PlotState* s) {
  const Places p = placesOf(s);
  Edge ends[kAxisCount] = {};
  placeEdges(s, p, ends);
  int& lengthZ = s->axis.axisLength[kAxisZ];
  const int keptLength = lengthZ;
  lengthZ = s->axis.axisLength[kAxisY];
  // Outwards: X stands at a side of Y, and so on.
  Edge x = makeEdge(s, kAxisX, ends[kAxisX], ends[kAxisY], p.xAtY);
  Edge y = makeEdge(s, kAxisY, ends[kAxisY], ends[kAxisX], p.yAtX);
  const bool besideX = p.neighbourOfZ == kAxisX;
  const Edge z = makeEdge(s, kAxisZ, ends[kAxisZ], ends[p.neighbourOfZ], besideX ? p.zAtX : p.zAtY);
  x.labelAngle = labelAngleOf(s, x, p.xFlag);
  y.labelAngle = labelAngleOf(s, y, p.yFlag);
  drawEdge(s, x);
  drawEdge(s, y);
  drawEdge(s, z);
  lengthZ = keptLength;
}

} // namespace quilla
