#include "core/pipeline.h"

#include <cmath>

#include "core/page.h"
#include "core/path.h"
#include "core/projection.h"
#include "core/shields.h"
#include "core/stop_request.h"
#include "device/sink.h"

namespace quilla {

ClipRegion activeRegion(const PlotState* s) {
  const ClipGroup& c = s->clip;
  // A line of a conical map from edge to edge is a jump of longitudes; one that leaves a globe lies behind it.
  const int code = openMapCode(s);
  return {{static_cast<float>(c.clipX0), static_cast<float>(c.clipY0), static_cast<float>(c.clipX1),
           static_cast<float>(c.clipY1)},
          c.clipIsCircle,
          {c.clipCenterX, c.clipCenterY, c.clipRadius},
          isConical(code),
          isAzimuthal(code) && s->map.globe};
}

namespace {

// The parts of a segment outside the shields; down: the pen of the device stands at its start. True if it ends at its
// end.
bool drawOutsideShields(PlotState* s, const Segment& part, bool down) {
  Segment pieces[kShieldPieces];
  int count = piecesOutsideShields(s, part, pieces);
  for (int k = 0; k < count; k++) {
    bool continued = down && k == 0 && pieces[0].x0 == part.x0 && pieces[0].y0 == part.y0;
    if (!continued) penToSink(s, pieces[k].x0, pieces[k].y0, kPenMove);
    penToSink(s, pieces[k].x1, pieces[k].y1, kPenDraw);
  }
  return count > 0 && pieces[count - 1].x1 == part.x1 && pieces[count - 1].y1 == part.y1;
}

} // namespace

void drawAcrossEdge(ClippedPen& pen, float x, float y) {
  Segment part{pen.x, pen.y, x, y};
  ClipResult result = clipSegment(pen.region, part);
  if (result.visible && pen.shielded) {
    pen.down = drawOutsideShields(pen.s, part, pen.down && !result.firstMoved) && !result.secondMoved;
    return;
  }
  if (result.visible) {
    if (!pen.down || result.firstMoved) penToSink(pen.s, part.x0, part.y0, kPenMove);
    penToSink(pen.s, part.x1, part.y1, kPenDraw);
  }
  pen.down = result.visible && !result.secondMoved;
}

namespace {

void measurePath(PlotState* s) {
  const PathState& p = s->path;
  PathMeasure& m = s->measure;
  for (int i = 0; i < p.pathCount; i++) {
    m.x0 = std::fmin(m.x0, p.pathX[i]);
    m.y0 = std::fmin(m.y0, p.pathY[i]);
    m.x1 = std::fmax(m.x1, p.pathX[i]);
    m.y1 = std::fmax(m.y1, p.pathY[i]);
  }
}

} // namespace

void sendPath(PlotState* s) {
  PathState& p = s->path;
  if (s->measure.on) {
    measurePath(s);
    p.pathCount = 0;
  }
  if (p.pathCount > 1 && !p.flushRunning && !stopRequested()) {
    p.flushRunning = true;
    ClippedPen pen{s, activeRegion(s), 0.0F, 0.0F, false, false, isShielded(s)};
    moveClipped(pen, p.pathX[0], p.pathY[0]);
    for (int i = 1; i < p.pathCount; i++) drawClipped(pen, p.pathX[i], p.pathY[i]);
    // Behind hidden lines each visible piece has its outline already.
    if (s->line.lineWidthSetting > 1 && !s->horizon.on) strokeOutline(s, p.pathX, p.pathY, p.pathCount);
    p.flushRunning = false;
  }
  p.pathCount = 0;
}

void flushPath(PlotState* s) {
  sendPath(s);
  if (!s->dash.patternColorSent) return;
  s->dash.patternColorSent = false;
  qqcolor(s, s->color.currentColor);
}

void transformPoint(const PlotState* s, float& x, float& y) {
  const TransformGroup& t = s->transform;
  double px = static_cast<double>(x), py = static_cast<double>(y);
  x = static_cast<float>(t.xx * px + t.xy * py + t.x1);
  y = static_cast<float>(t.yx * px + t.yy * py + t.y1);
}

ClipRegion planeRegion(const PlotState* s) {
  if (s->plane.cutAtAxes) {
    const int* cut = s->scaling.axisClip;
    return {{static_cast<float>(cut[0]), static_cast<float>(cut[1]), static_cast<float>(cut[2]),
             static_cast<float>(cut[3])},
            false,
            {}};
  }
  // Far outside, a projected line is of no use and its dashes would have no end.
  constexpr float kReach = 4.0F;
  const float width = static_cast<float>(s->geometry.pageWidth), height = static_cast<float>(s->geometry.pageHeight);
  return {{-kReach * width, -kReach * height, kReach * width, kReach * height}, false, {}};
}

namespace {

void firstPoint(PlotState* s, float x, float y) {
  if (s->transform.transformOn) transformPoint(s, x, y);
  s->path.pathX[0] = x;
  s->path.pathY[0] = y;
  s->path.pathCount = 1;
}

// A path of two equal points is a visible dot. In longer ones a point that repeats the last adds nothing.
void nextPoint(PlotState* s, float x, float y) {
  PathState& p = s->path;
  if (s->transform.transformOn) transformPoint(s, x, y);
  int last = p.pathCount - 1;
  if (last > 0) {
    if (p.pathX[last] == x && p.pathY[last] == y) return;
    if (last == 1 && p.pathX[0] == p.pathX[1] && p.pathY[0] == p.pathY[1]) p.pathCount = 1;
  }
  p.pathX[p.pathCount] = x;
  p.pathY[p.pathCount] = y;
  if (++p.pathCount < kPathLimit) return;
  sendPath(s);
  p.pathX[0] = x;
  p.pathY[0] = y;
  p.pathCount = 1;
}

void startOnPlane(PlotState* s, float x, float y) {
  s->plane.penX = x;
  s->plane.penY = y;
  if (!insideRegion(planeRegion(s), x, y)) return;
  const PagePoint page = pageOfPlane(s, x, y);
  firstPoint(s, page.x, page.y);
}

// Lines on a plane are cut before they are projected.
void drawOnPlane(PlotState* s, float x, float y) {
  Segment part{s->plane.penX, s->plane.penY, x, y};
  s->plane.penX = x;
  s->plane.penY = y;
  const ClipResult result = clipSegment(planeRegion(s), part);
  if (!result.visible) return sendPath(s);
  if (s->path.pathCount == 0 || result.firstMoved) {
    sendPath(s);
    const PagePoint page = pageOfPlane(s, part.x0, part.y0);
    firstPoint(s, page.x, page.y);
  }
  const PagePoint page = pageOfPlane(s, part.x1, part.y1);
  nextPoint(s, page.x, page.y);
  if (result.secondMoved) sendPath(s);
}

} // namespace

void startPath(PlotState* s, float x, float y) {
  sendPath(s);
  if (s->plane.on) return startOnPlane(s, x, y);
  firstPoint(s, x, y);
}

void appendPoint(PlotState* s, float x, float y) {
  if (s->plane.on) return drawOnPlane(s, x, y);
  nextPoint(s, x, y);
}

void pathMove(PlotState* s, float x, float y) {
  flushPath(s);
  startPath(s, x, y);
}

void pathDraw(PlotState* s, float x, float y) { appendPoint(s, x, y); }

KeptLineStyle keepLineStyle(PlotState* s) {
  flushPath(s);
  return {s->line, s->dash};
}

void restoreLineStyle(PlotState* s, const KeptLineStyle& kept) {
  flushPath(s);
  s->line = kept.line;
  s->dash = kept.dash;
}

void setLineWidth(PlotState* s, int width) {
  flushPath(s);
  s->line.lineWidthSetting = sinkLineWidth(s, width) ? -width : width;
}

void setPenWidth(PlotState* s, float width) {
  flushPath(s);
  int rounded = roundHalfUp(width);
  if (rounded < 1) rounded = 1;
  s->line.lineWidthSetting = sinkPenWidth(s, width) ? -rounded : rounded;
}

void setClipRectangle(PlotState* s, int x0, int y0, int x1, int y1) {
  flushPath(s);
  int width = s->geometry.pageWidth, height = s->geometry.pageHeight;
  s->clip.clipX0 = x0 < 0 ? 0 : x0;
  s->clip.clipY0 = y0 < 0 ? 0 : y0;
  s->clip.clipX1 = x1 > width ? width : x1;
  s->clip.clipY1 = y1 > height ? height : y1;
}

void clipWholePage(PlotState* s) { setClipRectangle(s, 0, 0, s->geometry.pageWidth, s->geometry.pageHeight); }

void sendClip(PlotState* s, float margin) {
  const ClipGroup& c = s->clip;
  bool cut = c.clipX0 > 0 || c.clipY0 > 0 || c.clipX1 < s->geometry.pageWidth || c.clipY1 < s->geometry.pageHeight;
  if (!cut) return sinkClip(s, false, 0.0F, 0.0F, 0.0F, 0.0F);
  sinkClip(s, true, static_cast<float>(c.clipX0) - margin, static_cast<float>(c.clipY0) - margin,
           static_cast<float>(c.clipX1) + margin, static_cast<float>(c.clipY1) + margin);
}

} // namespace quilla
