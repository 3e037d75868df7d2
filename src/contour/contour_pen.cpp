#include "contour/contour_pen.h"

#include <cmath>

#include "core/pipeline.h"

namespace quilla {

namespace {

constexpr float kFirstLength = 100.0F; // of line before the first label
constexpr float kShortSegment = 0.5F;  // shorter ones do not count where labels are wanted

float distanceOf(PlotPoint a, PlotPoint b) { return std::hypot(b.x - a.x, b.y - a.y); }

// Inclination of a segment in degrees, from -90 to 90.
float inclination(float dx, float dy) { return std::fabs(dx) < kTiny ? 90.0F : -std::atan(dy / dx) / kDegToRad; }

void drawKept(ContourPen& pen, int from) {
  for (int i = from; i < pen.count; i++) penDraw(pen.s, pen.kept[i].x, pen.kept[i].y);
  pen.count = 0;
}

void startLine(ContourPen& pen, PlotPoint p) {
  drawKept(pen, 0);
  pen.length = 0.0F;
  pen.stretching = false;
  pen.threshold = kFirstLength;
  pen.last = p;
  pen.lineStarts = false;
  penMove(pen.s, p.x, p.y);
}

// The stretch is long enough: the line up to the label, the label, and the line behind it.
void placeLabel(ContourPen& pen) {
  PlotState* s = pen.s;
  const float width = pen.labelWidth, before = s->contour.contourStretchFactor * width;
  PlotPoint a = pen.stretchStart;
  int end = pen.count - 1;
  for (int i = 0; i < pen.count; i++) {
    const float d = distanceOf(pen.stretchStart, pen.kept[i]);
    if (d < before) {
      a = pen.kept[i];
      penDraw(s, a.x, a.y);
    } else if (d >= before + width) {
      end = i;
      break;
    }
  }
  const PlotPoint b = pen.kept[end];
  const float size = distanceOf(a, b), ux = (b.x - a.x) / size, uy = (b.y - a.y) / size;
  const float gapStart = (size - width) / 2.0F, gapEnd = gapStart + width;
  penDraw(s, a.x + gapStart * ux, a.y + gapStart * uy);
  if (pen.textWanted) writeContourLabel(pen, a, b);
  penMove(s, a.x + gapEnd * ux, a.y + gapEnd * uy);
  drawKept(pen, end);
  pen.stretching = false;
  pen.length = 0.0F;
}

// A point of a stretch is kept back until the stretch is long and straight enough, or bent.
void stretchPoint(ContourPen& pen, PlotPoint p, float segment) {
  const ContourGroup& c = pen.s->contour;
  if (pen.count < kLabelStretchPoints) pen.count++;
  pen.kept[pen.count - 1] = p;
  const float chord = distanceOf(pen.stretchStart, p);
  const bool reached = chord >= (2.0F * c.contourStretchFactor + 1.0F) * pen.labelWidth;
  if (reached && pen.count > 1) return placeLabel(pen);
  if (!reached) {
    pen.arc += segment;
    if (!(pen.arc > c.contourCurvatureLimit * chord)) return;
  }
  // Bent, or a single long segment: another stretch begins here.
  drawKept(pen, 0);
  pen.stretchStart = p;
  pen.arc = 0.0F;
}

void labelledPoint(ContourPen& pen, PlotPoint p) {
  if (pen.lineStarts) return startLine(pen, p);
  const float segment = distanceOf(pen.last, p);
  if (segment < kShortSegment) return;
  const PlotPoint last = pen.last;
  pen.last = p;
  if (pen.stretching) return stretchPoint(pen, p, segment);
  const ContourGroup& c = pen.s->contour;
  const float angle = inclination(p.x - last.x, p.y - last.y), turn = std::fabs(angle - pen.previousAngle);
  pen.previousAngle = angle;
  pen.length += segment;
  if (!(pen.length >= pen.threshold && turn <= c.contourAngleTolerance)) return penDraw(pen.s, p.x, p.y);
  pen.stretching = true;
  pen.stretchStart = last;
  pen.arc = 0.0F;
  pen.threshold = static_cast<float>(c.contourLabelDistance);
  stretchPoint(pen, p, segment);
}

} // namespace

void contourPoint(ContourPen& pen, float x, float y) {
  const PlotPoint p = plotPoint(pen.s, x, y);
  if (!std::isfinite(p.x) || !std::isfinite(p.y)) {
    drawKept(pen, 0);
    pen.lineStarts = true;
    return;
  }
  if (pen.labelled) return labelledPoint(pen, p);
  if (!pen.lineStarts) return penDraw(pen.s, p.x, p.y);
  pen.lineStarts = false;
  penMove(pen.s, p.x, p.y);
}

void closeContourPen(ContourPen& pen) { drawKept(pen, 0); }

} // namespace quilla
