// Streamlines through given seeds, or placed at even distances (B. Jobard, W. Lefer, 1997).
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "contour/stream_placing.h"
#include "contour/streamline.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph2d/color_graph.h"
#include "graph2d/scaling.h"
#include "graph2d/vectors.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// Room for the two arms of a line.
struct LineRoom {
  std::unique_ptr<StreamPoint[]> memory;
  Streamline line = {};

  bool create(const PlotState* s) {
    const auto size = static_cast<std::size_t>(s->streamlines.mostPoints);
    memory.reset(new (std::nothrow) StreamPoint[2 * size]);
    line = {memory.get(), memory.get() + size, 0, 0};
    return memory != nullptr;
  }
};

PlotPoint pagePoint(const PlotState* s, const FieldFrame& f, StreamPoint p) {
  return plotPoint(s, static_cast<float>(f.x(static_cast<double>(p.u))),
                   static_cast<float>(f.y(static_cast<double>(p.v))));
}

// Heads along a line, the first one half a distance from its begin.
void drawHeads(PlotState* s, const FieldFrame& f, const Streamline& line) {
  const double distance = static_cast<double>(s->streamlines.arrowDistance);
  double wanted = distance / 2.0, length = 0.0;
  for (int i = 1; i < line.count(); i++) {
    const StreamPoint a = line.point(i - 1), b = line.point(i);
    length += std::hypot(static_cast<double>(b.u) - a.u, static_cast<double>(b.v) - a.v);
    if (length < wanted) continue;
    wanted = length + distance;
    const PlotPoint p = pagePoint(s, f, a), q = pagePoint(s, f, b);
    const float size = std::hypot(q.x - p.x, q.y - p.y);
    if (!(size > 0.0F) || !std::isfinite(size)) continue;
    drawVectorHead(s, q.x, q.y, (q.x - p.x) / size, (q.y - p.y) / size, s->streamlines.arrowCode,
                   static_cast<float>(s->text.textHeight));
  }
}

void drawStreamline(PlotState* s, const FieldFrame& f, const Streamline& line) {
  if (line.count() < 2) return;
  resetDash(s);
  bool moves = true;
  for (int i = 0; i < line.count(); i++) {
    const PlotPoint p = pagePoint(s, f, line.point(i));
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) {
      moves = true;
    } else if (moves) {
      penMove(s, p.x, p.y);
      moves = false;
    } else {
      penDraw(s, p.x, p.y);
    }
  }
  if (s->streamlines.arrows) drawHeads(s, f, line);
}

void drawThroughSeeds(PlotState* s, const FieldFrame& f, const float* xs, const float* ys, int n, LineRoom& room) {
  for (int i = 0; i < n && !stopRequested(); i++) {
    const auto x = static_cast<double>(xs[i]), y = static_cast<double>(ys[i]);
    if (!f.sampler.extent.holds(x, y)) {
      warnWithText(s, 180, "Starting point is outside");
      continue;
    }
    followStreamline(s, f, f.u(x), f.v(y), {}, room.line);
    drawStreamline(s, f, room.line);
  }
}

// Lines at even distances, one after the other.
struct LinePlacer {
  PlotState* s;
  const FieldFrame& frame;
  LineRoom& room;
  PlacedPoints placed = {};
  double seedDistance = 0.0, lineDistance = 0.0;
  int lines = 0;
  bool enough = true;

  bool create() {
    // The seed beside a line lies at the distance itself, but for rounding.
    constexpr double kRounding = 0.999;
    const StreamGroup& g = s->streamlines;
    const FieldExtent& e = frame.sampler.extent;
    seedDistance = kRounding * static_cast<double>(g.lineDistance);
    lineDistance = std::min(static_cast<double>(g.testDistance), seedDistance);
    return placed.create(frame.u(e.x1), frame.v(e.y1), static_cast<double>(g.lineDistance));
  }

  static bool endsNear(const void* data, double u, double v) {
    const LinePlacer& p = *static_cast<const LinePlacer*>(data);
    return p.placed.isNear(u, v, p.lineDistance);
  }

  // Draws the line through a seed and keeps it; false if there is none.
  bool place(double u, double v) {
    if (!frame.sampler.extent.holds(frame.x(u), frame.y(v)) || placed.isNear(u, v, seedDistance)) return false;
    Streamline& line = room.line;
    followStreamline(s, frame, u, v, {this, endsNear}, line);
    if (line.count() < 2) return false;
    for (int i = 0; i < line.count() && enough; i++) enough = placed.add(line.point(i));
    if (!enough) return false;
    drawStreamline(s, frame, line);
    lines++;
    return true;
  }

  // Through the seed of STRTPT if it lies inside, else near the middle: places where the field stands still are passed
  // over.
  bool placeFirst() {
    const StreamGroup& g = s->streamlines;
    if (g.seedGiven && place(frame.u(static_cast<double>(g.seedX)), frame.v(static_cast<double>(g.seedY)))) return true;
    const FieldExtent& e = frame.sampler.extent;
    constexpr double kGoldenTurn = 2.399963;
    constexpr int kTries = 500;
    for (int k = 0; k < kTries && enough; k++) {
      const double r = std::sqrt((k + 0.5) / kTries) * 0.75;
      const double u = frame.u(e.x1) * (0.5 + r * std::cos(k * kGoldenTurn));
      const double v = frame.v(e.y1) * (0.5 + r * std::sin(k * kGoldenTurn));
      if (place(u, v)) return true;
    }
    return false;
  }

  // Seeds on both sides of all points, in the order in which they were placed.
  void placeOthers() {
    const auto d = static_cast<double>(s->streamlines.lineDistance);
    for (int i = 0; i + 1 < placed.count && lines < s->streamlines.mostLines && enough && !stopRequested(); i++) {
      const StreamPoint a = placed.points[i], b = placed.points[i + 1];
      const double du = static_cast<double>(b.u) - a.u, dv = static_cast<double>(b.v) - a.v,
                   length = std::hypot(du, dv);
      if (!(length > static_cast<double>(kTiny))) continue;
      for (double side : {-d, d}) {
        if (lines < s->streamlines.mostLines) place(a.u + side * dv / length, a.v - side * du / length);
      }
    }
  }
};

// Lines of a field: through seeds, or without any at even distances.
void drawStreamlines(PlotState* s, const FieldSampler& sampler, const float* xs, const float* ys, int seeds) {
  LineRoom room;
  if (!room.create(s)) return warnPlain(s, 53);
  const FieldFrame frame = frameOf(s, sampler);
  const Painter painter = beginPainting(s);
  bool enough = true;
  if (seeds > 0) {
    drawThroughSeeds(s, frame, xs, ys, seeds, room);
  } else {
    LinePlacer placer{s, frame, room};
    enough = placer.create();
    if (enough && placer.placeFirst()) placer.placeOthers();
    enough = enough && placer.enough;
  }
  endPainting(painter);
  if (!enough) warnPlain(s, 53);
}

bool isMonotonic(PlotState* s, const float* v, int n) {
  const bool rises = v[n - 1] > v[0];
  bool good = std::isfinite(v[0]) && std::isfinite(v[n - 1]);
  for (int i = 1; i < n && good; i++) good = rises ? v[i] > v[i - 1] : v[i] < v[i - 1];
  if (!good) warnWithText(s, 124, "Arrays must be monoton");
  return good;
}

bool isFieldGrid(PlotState* s, const GridField& f) {
  if (checkRange(s, f.n, 2, -1) || checkRange(s, f.m, 2, -1)) return false;
  return isMonotonic(s, f.x, f.n) && isMonotonic(s, f.y, f.m);
}

} // namespace

void STREAM(const float* xmat, const float* ymat, int n, int m, const float* x, const float* y, const float* xseeds,
            const float* yseeds, int nseeds) {
  PlotState* s = strictCheck(2, 3, "stream");
  const GridField field{xmat, ymat, n, m, x, y};
  if (!s || !isFieldGrid(s, field)) return;
  drawStreamlines(s, samplerOf(field), xseeds, yseeds, nseeds);
}

void STMTRI(const float* xvec, const float* yvec, const float* x, const float* y, int n, const int* i1, const int* i2,
            const int* i3, int ntri, const float* xseeds, const float* yseeds, int nseeds) {
  PlotState* s = strictCheck(2, 3, "stmtri");
  if (!s || checkRange(s, n, 3, -1) || checkRange(s, ntri, 1, -1)) return;
  for (int k = 0; k < ntri; k++) {
    for (int corner : {i1[k], i2[k], i3[k]}) {
      if (checkRange(s, corner, 1, n)) return;
    }
  }
  TriangleField field{xvec, yvec, x, y, n, i1, i2, i3, ntri};
  if (!prepareField(field)) return warnPlain(s, 53);
  drawStreamlines(s, samplerOf(field), xseeds, yseeds, nseeds);
}

void STMPTS(const float* xmat, const float* ymat, int n, int m, const float* x, const float* y, float x0, float y0,
            float* xpts, float* ypts, int nmax, int* npts) {
  PlotState* s = strictCheck(1, 3, "stmpts");
  if (!s) return;
  *npts = 0;
  const GridField field{xmat, ymat, n, m, x, y};
  if (!isFieldGrid(s, field)) return;
  const FieldFrame frame = frameOf(s, samplerOf(field));
  if (!frame.sampler.extent.holds(static_cast<double>(x0), static_cast<double>(y0)))
    return warnWithText(s, 180, "Starting point is outside");
  LineRoom room;
  if (!room.create(s)) return warnPlain(s, 53);
  followStreamline(s, frame, frame.u(static_cast<double>(x0)), frame.v(static_cast<double>(y0)), {}, room.line);
  const int count = std::min(room.line.count(), nmax);
  for (int i = 0; i < count; i++) {
    const StreamPoint p = room.line.point(i);
    xpts[i] = static_cast<float>(frame.x(static_cast<double>(p.u)));
    ypts[i] = static_cast<float>(frame.y(static_cast<double>(p.v)));
  }
  *npts = std::max(count, 0);
  if (room.line.count() > nmax) warnWithText(s, 112, "Too many points");
}
