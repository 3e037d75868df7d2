// The steps of the pipeline below the dash stage: the open path, its way to the sink, and the outline of wide lines.
#pragma once

#include "core/clipper.h"
#include "core/plot_state.h"
#include "device/sink.h"

namespace quilla {

// Begins a path, or adds a point to it, behind the transformation. The open path is sent when it is full.
void startPath(PlotState* s, float x, float y);
void appendPoint(PlotState* s, float x, float y);

// Sends the open path and clears it. The pattern colour of the device stays.
void sendPath(PlotState* s);

// The point as the transformation moves it.
void transformPoint(const PlotState* s, float& x, float& y);

// A segment in the current line pattern, whose phase runs on. continued: the path ends at its start.
void drawDashed(PlotState* s, float x0, float y0, float x1, float y1, bool continued);

// The outline of a line of n points that is wider than the device draws it.
void strokeOutline(PlotState* s, const float* x, const float* y, int n);

ClipRegion activeRegion(const PlotState* s);

// A pen whose segments are cut at the clip region.
struct ClippedPen {
  PlotState* s;
  ClipRegion region;
  float x, y;
  bool inside;   // (x, y) lies in the region
  bool down;     // the pen of the device stands at (x, y)
  bool shielded; // lines are cut at shields
};

// Lines do not enter the shields now.
inline bool isShielded(const PlotState* s) { return s->shield.shieldCount > 0 && !s->shieldingSuspended; }

// A segment of which at least one end lies outside, or that may meet a shield.
void drawAcrossEdge(ClippedPen& pen, float x, float y);

inline void moveClipped(ClippedPen& pen, float x, float y) {
  pen.x = x;
  pen.y = y;
  pen.inside = insideRegion(pen.region, x, y);
  pen.down = false;
}

inline void drawClipped(ClippedPen& pen, float x, float y) {
  bool inside = insideRegion(pen.region, x, y);
  if (inside && pen.inside && !pen.shielded) {
    if (!pen.down) qqpen(pen.s, pen.x, pen.y, kPenMove);
    qqpen(pen.s, x, y, kPenDraw);
    pen.down = true;
  } else {
    drawAcrossEdge(pen, x, y);
  }
  pen.inside = inside;
  pen.x = x;
  pen.y = y;
}

} // namespace quilla
