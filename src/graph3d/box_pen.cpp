// The pen in three dimensions: lines are cut at the box, at the view volume or not at all, projected, and go on through
// the line pipeline.
#include <cmath>

#include "core/pipeline.h"
#include "core/projection.h"
#include "device/depth_raster.h"
#include "graph3d/facets.h"

namespace quilla {

namespace {

constexpr int kPlanes = 6; // of the view volume
enum SideClass : int { kBelow = 1, kInside = 2, kAbove = 3 };

bool isFinite(const BoxPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

// The pen of the z-buffer.
void depthMove(PlotState* s, const PagePoint& page, const ClipPoint& p) {
  s->boxPen.pageX = page.x;
  s->boxPen.pageY = page.y;
  s->boxPen.pageDepth = p.z / p.w;
}

void depthDraw(PlotState* s, const PagePoint& page, const ClipPoint& p) {
  const BoxPen from = s->boxPen;
  depthMove(s, page, p);
  const auto originX = static_cast<float>(s->page.originX), originY = static_cast<float>(s->page.originY);
  const Shade c = shadeOfColor(s, s->color.currentColor);
  sinkDepthLine(s, {from.pageX + originX, from.pageY + originY, from.pageDepth, c.r, c.g, c.b},
                {page.x + originX, page.y + originY, s->boxPen.pageDepth, c.r, c.g, c.b});
}

void lineMove(PlotState* s, const PagePoint& page, const ClipPoint& p) {
  if (s->depthState.bufferOn) return depthMove(s, page, p);
  penMove(s, page.x, page.y);
}

// The pen of the page. What projects to no finite number is left out.
void pageMove(PlotState* s, const ClipPoint& p) {
  const PagePoint page = pageOfClipSpace(s, p);
  s->boxPen.down = std::isfinite(page.x) && std::isfinite(page.y);
  if (s->boxPen.down) lineMove(s, page, p);
}

void pageDraw(PlotState* s, const ClipPoint& p) {
  const PagePoint page = pageOfClipSpace(s, p);
  const bool finite = std::isfinite(page.x) && std::isfinite(page.y);
  if (finite && !s->boxPen.down) lineMove(s, page, p);
  if (finite && s->boxPen.down) {
    if (s->depthState.bufferOn) {
      depthDraw(s, page, p);
    } else {
      penDraw(s, page.x, page.y);
    }
  }
  s->boxPen.down = finite;
}

// ---- The box ------------------------------------------------------------------------------------------------------

// A point that rounding has moved off a face still lies on it: edges of surfaces that end at the box are drawn.
SideClass sideClass(float v, float half) {
  constexpr float kSlack = 1.0F + 1e-5F;
  return v < -half * kSlack ? kBelow : v > half * kSlack ? kAbove : kInside;
}

bool outsideBox(const PlotState* s, const float p[3]) {
  const float(&box)[3] = s->viewState.box;
  for (int axis = 0; axis < 3; axis++)
    if (sideClass(p[axis], box[axis] / 2.0F) != kInside) return true;
  return false;
}

// Replaces the outer end by the intersection with the plane where the axis has a value. False: there is none.
bool cutAt(int axis, float value, const float inner[3], float outer[3]) {
  const float span = outer[axis] - inner[axis];
  if (std::fabs(span) < kTiny) return std::fabs(inner[axis] - value) < kTiny;
  const float t = (value - inner[axis]) / span;
  for (int i = 0; i < 3; i++) outer[i] = i == axis ? value : inner[i] + t * (outer[i] - inner[i]);
  return true;
}

// Cuts the segment at the faces of the box. False: nothing of it is left.
bool clipAtBox(const PlotState* s, float a[3], float b[3]) {
  const float(&box)[3] = s->viewState.box;
  bool aOutside = outsideBox(s, a), bOutside = outsideBox(s, b);
  for (int turn = 0; (aOutside || bOutside) && turn < 2 * kPlanes; turn++) {
    float* outer = aOutside ? a : b;
    const float* inner = aOutside ? b : a;
    for (int axis = 0; axis < 3; axis++) {
      const SideClass ca = sideClass(a[axis], box[axis] / 2.0F);
      if (ca != kInside && ca == sideClass(b[axis], box[axis] / 2.0F)) return false;
    }
    int axis = 0;
    while (axis < 2 && sideClass(outer[axis], box[axis] / 2.0F) == kInside) axis++;
    const float half = box[axis] / 2.0F;
    if (!cutAt(axis, outer[axis] < 0.0F ? -half : half, inner, outer)) return false;
    (aOutside ? aOutside : bOutside) = outsideBox(s, outer);
  }
  return !aOutside && !bOutside;
}

ClipPoint clipOf(const PlotState* s, const float p[3]) { return clipSpace(s, p[0], p[1], p[2]); }

void drawInBox(PlotState* s, const BoxPoint& p) {
  BoxPen& pen = s->boxPen;
  float a[3] = {pen.x, pen.y, pen.z}, b[3] = {p.x, p.y, p.z};
  const bool fromOutside = pen.outside, outside = outsideBox(s, b);
  if ((fromOutside || outside) ? clipAtBox(s, a, b) : true) {
    if (fromOutside || !pen.down) pageMove(s, clipOf(s, a));
    pageDraw(s, clipOf(s, b));
  }
  pen.outside = outside;
}

// ---- The view volume ----------------------------------------------------------------------------------------------

// Distance inside a plane of the view volume; negative outside.
float insidePlane(int plane, const ClipPoint& p) {
  switch (plane) {
  case 0: return p.x + p.w;
  case 1: return p.w - p.x;
  case 2: return p.y + p.w;
  case 3: return p.w - p.y;
  case 4: return p.z;
  default: return p.w - p.z;
  }
}

int outcode(const ClipPoint& p) {
  int code = 0;
  for (int plane = 0; plane < kPlanes; plane++)
    if (insidePlane(plane, p) < 0.0F) code |= 1 << plane;
  return code;
}

ClipPoint between(const ClipPoint& a, const ClipPoint& b, float t) {
  return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y), a.z + t * (b.z - a.z), a.w + t * (b.w - a.w)};
}

bool clipAtView(ClipPoint& a, ClipPoint& b) {
  const int codeA = outcode(a), codeB = outcode(b);
  if ((codeA & codeB) != 0) return false;
  float from = 0.0F, to = 1.0F;
  for (int plane = 0; plane < kPlanes; plane++) {
    if (((codeA | codeB) >> plane & 1) == 0) continue;
    const float da = insidePlane(plane, a), db = insidePlane(plane, b), t = da / (da - db);
    if (da < 0.0F) {
      from = std::fmax(from, t);
    } else {
      to = std::fmin(to, t);
    }
  }
  if (from > to) return false;
  const ClipPoint start = a, end = b;
  if (from > 0.0F) a = between(start, end, from);
  if (to < 1.0F) b = between(start, end, to);
  return true;
}

void drawInView(PlotState* s, const ClipPoint& p) {
  BoxPen& pen = s->boxPen;
  ClipPoint a{pen.x, pen.y, pen.z, pen.w}, b = p;
  const bool fromOutside = pen.outside, outside = outcode(p) != 0;
  if ((fromOutside || outside) ? clipAtView(a, b) : true) {
    if (fromOutside || !pen.down) pageMove(s, a);
    pageDraw(s, b);
  }
  pen.outside = outside;
}

void recordPen(PlotState* s, const BoxPoint& p, const ClipPoint& c) {
  BoxPen& pen = s->boxPen;
  if (s->view.boxClip == kClipEye) {
    pen.x = c.x;
    pen.y = c.y;
    pen.z = c.z;
    pen.w = c.w;
  } else {
    pen.x = p.x;
    pen.y = p.y;
    pen.z = p.z;
  }
}

} // namespace

void boxMove(PlotState* s, const BoxPoint& user) {
  const BoxPoint p = transformedBox(s, user);
  const ClipPoint c = clipSpace(s, p.x, p.y, p.z);
  const float xyz[3] = {p.x, p.y, p.z};
  recordPen(s, p, c);
  BoxPen& pen = s->boxPen;
  pen.outside = false;
  pen.down = false;
  if (!isFinite(p)) return; // no line begins here
  if (s->view.boxClip == kClipWorld) pen.outside = outsideBox(s, xyz);
  if (s->view.boxClip == kClipEye) pen.outside = outcode(c) != 0;
  if (!pen.outside) pageMove(s, c);
}

void boxDraw(PlotState* s, const BoxPoint& user) {
  const BoxPen& pen = s->boxPen;
  const BoxPoint p = transformedBox(s, user);
  if (!isFinite(p) || !isFinite({pen.x, pen.y, pen.z})) return boxMove(s, user);
  const ClipPoint c = clipSpace(s, p.x, p.y, p.z);
  switch (s->view.boxClip) {
  case kClipWorld: drawInBox(s, p); break;
  case kClipEye: drawInView(s, c); break;
  default: pageDraw(s, c);
  }
  recordPen(s, p, c);
}

} // namespace quilla
