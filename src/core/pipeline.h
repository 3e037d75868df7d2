// The one road of lines and polygons to the device: dash stage, transformation, path of 100 points, clip, sink.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Dashed move and draw in plot units; the page origin (ORIGIN) is added.
void penMove(PlotState* s, float x, float y);
void penDraw(PlotState* s, float x, float y);

// Undashed move and draw in plot units, without the page origin.
void pathMove(PlotState* s, float x, float y);
void pathDraw(PlotState* s, float x, float y);

// Points are moved on their way to the page, by TRFROT and its kin or by the plane of GRFINI: what a device draws by
// itself would not be.
inline bool isPageMoved(const PlotState* s) { return s->transform.transformOn || s->plane.on; }

// Sends the open path to the device. Every setter that changes pen, width, colour, clip or transformation calls it.
void flushPath(PlotState* s);

// Restarts the line pattern and its colours.
void resetDash(PlotState* s);

// Line type 0 to 7 of the table of LINTYP.
void setLineType(PlotState* s, int index);

// The line type and the phase of its pattern, put away for lines of another kind and given back.
struct KeptLineStyle {
  LineGroup line;
  DashState dash;
};
KeptLineStyle keepLineStyle(PlotState* s);
void restoreLineStyle(PlotState* s, const KeptLineStyle& kept);

// Width of lines. PENWID passes a real width; LINWID an integer.
void setLineWidth(PlotState* s, int width);
void setPenWidth(PlotState* s, float width);

// Polygon filled with the shading pattern or, whatever that is, in plain colour. Plot units, the page origin is added.
void fillPolygon(PlotState* s, const float* x, const float* y, int n);
void fillSolid(PlotState* s, const float* x, const float* y, int n);

// The same for a polygon of several rings that are joined by bridges, there and back: what lies inside an odd number
// of rings is filled. No outline is drawn.
void fillRings(PlotState* s, const float* x, const float* y, int n);

// Projection code of the open map axis system; 0 if no map is open.
inline int openMapCode(const PlotState* s) {
  bool open = s->axis.axisSystemKind == kSystemMap && s->level.plotLevel >= kLevelAxis2D;
  return open ? s->map.projection.code : kProjPlain;
}

// Active clip rectangle in plot coordinates, inclusive, cut to the page. The path is flushed first.
void setClipRectangle(PlotState* s, int x0, int y0, int x1, int y1);
void clipWholePage(PlotState* s);

// Tells a device with a clipper of its own the active rectangle, widened by a margin; the whole page is no clip.
void sendClip(PlotState* s, float margin);

} // namespace quilla
