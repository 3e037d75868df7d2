#include "core/pipeline.h"

#include <cmath>
#include <memory>
#include <new>

#include "core/clipper.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/shields.h"
#include "device/sink.h"

namespace quilla {

namespace {

// Line types in 0.1 mm: lengths drawn and not drawn in turn.
struct LineType {
  int count;
  int lengths[4];
};
constexpr LineType kLineTypes[kLineTypeCount] = {
    {1, {1}},      {2, {1, 10}}, {2, {10, 10}}, {4, {30, 15, 10, 15}}, {4, {1, 15, 15, 15}},
    {2, {20, 15}}, {2, {1, 20}}, {2, {30, 20}},
};

ClipBox activeBox(const PlotState* s) {
  const ClipGroup& c = s->clip;
  return {static_cast<float>(c.clipX0), static_cast<float>(c.clipY0), static_cast<float>(c.clipX1),
          static_cast<float>(c.clipY1)};
}

bool isShielded(const PlotState* s) { return s->shield.shieldCount > 0 && !s->shieldingSuspended; }

// The open path without its parts in shields: each segment is cut at the window, then at the regions.
void sendShieldedPath(PlotState* s) {
  const PathState& p = s->path;
  ClipBox box = activeBox(s);
  Segment pieces[kShieldPieces];
  bool placed = false;
  float penX = 0.0F, penY = 0.0F;
  for (int i = 1; i < p.pathCount; i++) {
    Segment part{p.pathX[i - 1], p.pathY[i - 1], p.pathX[i], p.pathY[i]};
    if (!clipSegment(box, part).visible) continue;
    int count = piecesOutsideShields(s, part, pieces);
    for (int k = 0; k < count; k++) {
      if (!placed || pieces[k].x0 != penX || pieces[k].y0 != penY) qqpen(s, pieces[k].x0, pieces[k].y0, kPenMove);
      penX = pieces[k].x1;
      penY = pieces[k].y1;
      placed = true;
      qqpen(s, penX, penY, kPenDraw);
    }
  }
}

// The open path to the sink. The pen follows the visible parts: down at (x, y) while the path stays inside.
void sendPath(PlotState* s) {
  const PathState& p = s->path;
  ClipBox box = activeBox(s);
  bool down = insideBox(box, p.pathX[0], p.pathY[0]);
  if (down) qqpen(s, p.pathX[0], p.pathY[0], kPenMove);
  for (int i = 1; i < p.pathCount; i++) {
    float x = p.pathX[i], y = p.pathY[i];
    if (down && insideBox(box, x, y)) {
      qqpen(s, x, y, kPenDraw);
      continue;
    }
    Segment part{p.pathX[i - 1], p.pathY[i - 1], x, y};
    ClipResult result = clipSegment(box, part);
    if (result.visible) {
      if (!down || result.firstMoved) qqpen(s, part.x0, part.y0, kPenMove);
      qqpen(s, part.x1, part.y1, kPenDraw);
    }
    down = result.visible && !result.secondMoved;
  }
}

void appendPoint(PlotState* s, float x, float y) {
  PathState& p = s->path;
  if (p.pathCount > 0 && p.pathX[p.pathCount - 1] == x && p.pathY[p.pathCount - 1] == y) return;
  p.pathX[p.pathCount] = x;
  p.pathY[p.pathCount] = y;
  if (++p.pathCount < kPathLimit) return;
  flushPath(s);
  p.pathX[0] = x;
  p.pathY[0] = y;
  p.pathCount = 1;
}

void startPath(PlotState* s, float x, float y) {
  flushPath(s);
  s->path.pathX[0] = x;
  s->path.pathY[0] = y;
  s->path.pathCount = 1;
}

void nextElement(PlotState* s) {
  DashState& d = s->dash;
  d.dashElement = d.dashElement >= s->line.linePatternCount ? 1 : d.dashElement + 1;
  d.dashGap = 1 - d.dashGap;
  d.dashRemaining = static_cast<float>(s->line.linePattern[d.dashElement - 1]);
}

// Advances the phase by a length of which nothing is visible.
void skipDashes(PlotState* s, double length) {
  double period = 0.0;
  for (int i = 0; i < s->line.linePatternCount; i++) period += s->line.linePattern[i];
  if (s->line.linePatternCount % 2 != 0) period *= 2.0;
  double rest = std::fmod(length, period);
  while (s->dash.dashRemaining <= rest) {
    rest -= static_cast<double>(s->dash.dashRemaining);
    nextElement(s);
  }
  s->dash.dashRemaining -= static_cast<float>(rest);
}

// Dashes along a segment from distance `from` to `to` of its start; the pen enters it with a move.
void dashAlong(PlotState* s, float x0, float y0, double ux, double uy, double from, double to, bool continued) {
  DashState& d = s->dash;
  auto at = [&](double t, bool draw) {
    float x = static_cast<float>(x0 + ux * t), y = static_cast<float>(y0 + uy * t);
    if (draw) {
      appendPoint(s, x, y);
    } else {
      startPath(s, x, y);
    }
  };
  double t = from;
  if (!continued || s->path.pathCount == 0) at(t, false);
  while (d.dashRemaining <= to - t) {
    t += static_cast<double>(d.dashRemaining);
    at(t, d.dashGap == 0);
    nextElement(s);
  }
  at(to, d.dashGap == 0);
  d.dashRemaining -= static_cast<float>(to - t);
}

void drawDashed(PlotState* s, float x0, float y0, float x1, float y1, bool continued) {
  double dx = static_cast<double>(x1) - x0, dy = static_cast<double>(y1) - y0, length = std::hypot(dx, dy);
  if (!std::isfinite(length) || length == 0.0) return;
  double ux = dx / length, uy = dy / length, from = 0.0, to = length;
  ClipBox box = activeBox(s);
  if (!insideBox(box, x0, y0) || !insideBox(box, x1, y1)) {
    // Only the visible part is dashed, so that the cost does not grow with lengths far off the page.
    Segment part{x0, y0, x1, y1};
    if (!clipSegment(box, part).visible) return skipDashes(s, length);
    from = std::hypot(static_cast<double>(part.x0) - x0, static_cast<double>(part.y0) - y0);
    to = from + std::hypot(static_cast<double>(part.x1) - part.x0, static_cast<double>(part.y1) - part.y0);
    if (from > 0.0) skipDashes(s, from);
  }
  dashAlong(s, x0, y0, ux, uy, from, to, continued && from == 0.0);
  if (to < length) skipDashes(s, length - to);
}

} // namespace

void flushPath(PlotState* s) {
  PathState& p = s->path;
  if (p.pathCount > 1 && !p.flushRunning) {
    p.flushRunning = true;
    if (isShielded(s)) {
      sendShieldedPath(s);
    } else {
      sendPath(s);
    }
    p.flushRunning = false;
  }
  p.pathCount = 0;
}

void pathMove(PlotState* s, float x, float y) { startPath(s, x, y); }

void pathDraw(PlotState* s, float x, float y) { appendPoint(s, x, y); }

void penMove(PlotState* s, float x, float y) {
  DashState& d = s->dash;
  d.pathPenX = x + static_cast<float>(s->page.originX);
  d.pathPenY = y + static_cast<float>(s->page.originY);
  d.gapMovePending = d.lineGapSize != 0.0F;
  if (d.gapMovePending) {
    flushPath(s);
  } else {
    startPath(s, d.pathPenX, d.pathPenY);
  }
}

void penDraw(PlotState* s, float x, float y) {
  DashState& d = s->dash;
  float toX = x + static_cast<float>(s->page.originX), toY = y + static_cast<float>(s->page.originY);
  float fromX = d.pathPenX, fromY = d.pathPenY;
  d.pathPenX = toX;
  d.pathPenY = toY;
  if (s->line.linePatternCount == 1 && d.lineGapSize == 0.0F) {
    if (s->path.pathCount == 0) startPath(s, fromX, fromY);
    return appendPoint(s, toX, toY);
  }
  bool continued = !d.gapMovePending;
  if (d.lineGapSize != 0.0F) {
    double dx = static_cast<double>(toX) - fromX, dy = static_cast<double>(toY) - fromY, length = std::hypot(dx, dy);
    if (!std::isfinite(length) || length == 0.0) return;
    float shiftX = static_cast<float>(-dy / length) * d.lineGapSize,
          shiftY = static_cast<float>(dx / length) * d.lineGapSize;
    fromX += shiftX;
    fromY += shiftY;
    toX += shiftX;
    toY += shiftY;
    d.gapMovePending = false;
  }
  if (s->line.linePatternCount == 1) {
    if (continued && s->path.pathCount > 0) {
      appendPoint(s, fromX, fromY);
    } else {
      startPath(s, fromX, fromY);
    }
    return appendPoint(s, toX, toY);
  }
  drawDashed(s, fromX, fromY, toX, toY, continued);
}

void resetDash(PlotState* s) {
  s->dash.dashElement = 1;
  s->dash.dashGap = 0;
  s->dash.dashRemaining = static_cast<float>(s->line.linePattern[0]);
}

void setLineType(PlotState* s, int index) {
  flushPath(s);
  const LineType& type = kLineTypes[index];
  s->line.lineStyleIndex = index;
  s->line.linePatternCount = type.count;
  for (int i = 0; i < type.count; i++) {
    int length = plotUnits(s, type.lengths[i]);
    s->line.linePattern[i] = length < 1 ? 1 : length;
  }
  resetDash(s);
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

void fillPolygon(PlotState* s, const float* x, const float* y, int n) {
  constexpr int kOnStack = 64;
  if (n < 3) return;
  flushPath(s);
  float originX = static_cast<float>(s->page.originX), originY = static_cast<float>(s->page.originY);
  if (originX == 0.0F && originY == 0.0F) {
    qqfill(s, x, y, n);
    return;
  }
  float few[2 * kOnStack];
  std::unique_ptr<float[]> many;
  float* shifted = few;
  if (n > kOnStack) {
    many.reset(new (std::nothrow) float[2 * static_cast<std::size_t>(n)]);
    shifted = many.get();
    if (!shifted) return warnPlain(s, 53);
  }
  for (int i = 0; i < n; i++) {
    shifted[i] = x[i] + originX;
    shifted[n + i] = y[i] + originY;
  }
  qqfill(s, shifted, shifted + n, n);
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

} // namespace quilla
