#include "contour/streamline.h"

#include <algorithm>
#include <cmath>

#include "graph2d/scaling.h"

namespace quilla {

namespace {

struct Direction {
  double u, v;
};

// The unit vector of the field at a point; false outside and where the field is zero.
bool directionAt(const FieldFrame& f, double u, double v, double sign, Direction& d) {
  const double x = f.x(u), y = f.y(v);
  FieldVector field;
  if (!f.sampler.extent.holds(x, y) || !f.sampler.at(f.sampler.field, x, y, field)) return false;
  const double du = field.x * f.scaleX, dv = field.y * f.scaleY, length = std::hypot(du, dv);
  if (!(length > static_cast<double>(kTiny)) || !std::isfinite(length)) return false;
  d = {sign * du / length, sign * dv / length};
  return true;
}

// One step from a point, by the method of STMMOD; false where the field ends on the way.
bool stepFrom(const FieldFrame& f, int method, double h, double sign, double& u, double& v) {
  Direction a, b, c, d;
  if (!directionAt(f, u, v, sign, a)) return false;
  if (method == kEuler) {
    u += h * a.u;
    v += h * a.v;
    return true;
  }
  if (!directionAt(f, u + h / 2.0 * a.u, v + h / 2.0 * a.v, sign, b)) return false;
  if (method == kRungeKutta2) {
    u += h * b.u;
    v += h * b.v;
    return true;
  }
  if (!directionAt(f, u + h / 2.0 * b.u, v + h / 2.0 * b.v, sign, c)) return false;
  if (!directionAt(f, u + h * c.u, v + h * c.v, sign, d)) return false;
  u += h / 6.0 * (a.u + 2.0 * b.u + 2.0 * c.u + d.u);
  v += h / 6.0 * (a.v + 2.0 * b.v + 2.0 * c.v + d.v);
  return true;
}

// Of the points since the last test, the one that has come back to the seed; 0 if none has.
int pointAtSeed(const StreamGroup& g, const StreamPoint* points, int count) {
  const float closing = g.closingDistance;
  const int away = static_cast<int>(std::fmin(2.0F * closing / g.step + 1.0F, static_cast<float>(count)));
  for (int k = std::max(away, count - g.closingInterval); k < count; k++) {
    if (std::hypot(points[k].u - points[0].u, points[k].v - points[0].v) < closing) return k;
  }
  return 0;
}

// Returns whether the line is closed.
bool followArm(const PlotState* s, const FieldFrame& f, double sign, const StreamStop& stop, StreamPoint* points,
               int& count) {
  const StreamGroup& g = s->streamlines;
  auto u = static_cast<double>(points[0].u), v = static_cast<double>(points[0].v);
  for (count = 1; count < g.mostPoints;) {
    if (!stepFrom(f, g.integration, static_cast<double>(g.step), sign, u, v)) return false;
    if (!f.sampler.extent.holds(f.x(u), f.y(v))) return false;
    if (stop.isNear && stop.isNear(stop.data, u, v)) return false;
    points[count++] = {static_cast<float>(u), static_cast<float>(v)};
    if (!g.closingTest || count % g.closingInterval != 0) continue;
    const int back = pointAtSeed(g, points, count);
    if (back == 0) continue;
    points[back] = points[0];
    count = back + 1;
    return true;
  }
  return false;
}

} // namespace

FieldFrame frameOf(const PlotState* s, const FieldSampler& sampler) {
  const FieldExtent& e = sampler.extent;
  const double width = e.x1 - e.x0, height = e.y1 - e.y0;
  double pageWidth = 1.0, pageHeight = 1.0;
  if (s->level.plotLevel >= kLevelAxis2D && s->axis.axisSystemKind == kSystemRectangular) {
    pageWidth = std::fabs(static_cast<double>(plotX(s, static_cast<float>(e.x1))) - plotX(s, static_cast<float>(e.x0)));
    pageHeight =
        std::fabs(static_cast<double>(plotY(s, static_cast<float>(e.y1))) - plotY(s, static_cast<float>(e.y0)));
  }
  if (!(pageWidth > 0.0) || !(pageHeight > 0.0) || !std::isfinite(pageWidth + pageHeight)) pageWidth = pageHeight = 1.0;
  const double longer = std::fmax(pageWidth, pageHeight);
  return {sampler, width > 0.0 ? pageWidth / longer / width : 1.0, height > 0.0 ? pageHeight / longer / height : 1.0};
}

void followStreamline(const PlotState* s, const FieldFrame& frame, double u, double v, const StreamStop& stop,
                      Streamline& line) {
  line.forward[0] = line.backward[0] = {static_cast<float>(u), static_cast<float>(v)};
  line.backwardCount = 1;
  if (!followArm(s, frame, 1.0, stop, line.forward, line.forwardCount))
    followArm(s, frame, -1.0, stop, line.backward, line.backwardCount);
}

} // namespace quilla
