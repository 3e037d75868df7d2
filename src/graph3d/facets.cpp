#include "graph3d/facets.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/colors.h"
#include "core/projection.h"
#include "device/depth_raster.h"
#include "device/sink.h"
#include "graph3d/depth_list.h"

namespace quilla {

namespace {

constexpr float kFull = 255.0F;
constexpr float kSlack = 1.0F + 1e-5F; // corners that rounding has moved off a face of the box still lie on it
constexpr int kBoxFaces = 6;
constexpr int kMostCorners = kFacetCorners + kBoxFaces; // each cut of a polygon without dents adds one at most

bool isFinite(const BoxPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

float coordinate(const BoxPoint& p, int axis) { return axis == kAxisX ? p.x : axis == kAxisY ? p.y : p.z; }

FacetPoint between(const FacetPoint& a, const FacetPoint& b, float t) {
  auto mix = [t](float from, float to) { return from + t * (to - from); };
  return {{mix(a.at.x, b.at.x), mix(a.at.y, b.at.y), mix(a.at.z, b.at.z)},
          {mix(a.shade.r, b.shade.r), mix(a.shade.g, b.shade.g), mix(a.shade.b, b.shade.b)}};
}

// A polygon while it is cut.
struct Piece {
  FacetPoint corners[kMostCorners];
  int n = 0;
};

// The part on the inner side of one face of the box (I. Sutherland, G. Hodgman, 1974).
Piece cutAtFace(const Piece& in, int axis, float sign, float half) {
  auto inside = [&](const FacetPoint& p) { return half - sign * coordinate(p.at, axis); };
  Piece out;
  for (int i = 0; i < in.n; i++) {
    const FacetPoint &a = in.corners[i], &b = in.corners[(i + 1) % in.n];
    const float da = inside(a), db = inside(b);
    if (da >= 0.0F) out.corners[out.n++] = a;
    if ((da >= 0.0F) != (db >= 0.0F) && out.n < kMostCorners) out.corners[out.n++] = between(a, b, da / (da - db));
  }
  return out;
}

void cutAtBox(const PlotState* s, Piece& piece) {
  for (int axis = 0; axis < 3 && piece.n > 2; axis++) {
    const float half = s->viewState.box[axis] / 2.0F * kSlack;
    for (const float sign : {1.0F, -1.0F}) {
      const bool beyond = std::any_of(piece.corners, piece.corners + piece.n,
                                      [&](const FacetPoint& p) { return sign * coordinate(p.at, axis) > half; });
      if (beyond) piece = cutAtFace(piece, axis, sign, half);
    }
  }
}

bool inView(const ClipPoint& p) {
  return p.x + p.w >= 0.0F && p.w - p.x >= 0.0F && p.y + p.w >= 0.0F && p.w - p.y >= 0.0F && p.z >= 0.0F &&
         p.w - p.z >= 0.0F;
}

// Lines between the corners, or the corners as points. The user transformation has moved them already.
void drawCorners(PlotState* s, const BoxPoint* corners, int n, bool points, int color) {
  if (color != s->color.currentColor) setColor(s, color);
  const bool transformed = std::exchange(s->boxTransform.on, false);
  boxMove(s, corners[n - 1]);
  for (int i = 0; i < n; i++) {
    if (points) boxMove(s, corners[i]);
    boxDraw(s, corners[i]);
  }
  s->boxTransform.on = transformed;
}

// The outline, a little nearer to the eye than the facet, so that the facet does not hide it.
void drawMeshLine(PlotState* s, const RawFacet& f, int color) {
  constexpr float kNearer = 0.002F; // of the way to the eye
  const float(&eye)[3] = s->viewState.eye;
  const float(&box)[3] = s->viewState.box;
  BoxPoint nearer[kFacetCorners];
  bool inside = true;
  for (int i = 0; i < f.n; i++) {
    const BoxPoint& p = f.corners[i];
    nearer[i] = {p.x + kNearer * (eye[0] - p.x), p.y + kNearer * (eye[1] - p.y), p.z + kNearer * (eye[2] - p.z)};
    for (int axis = 0; axis < 3; axis++) inside = inside && std::fabs(coordinate(p, axis)) <= box[axis] / 2.0F * kSlack;
  }
  const int clip = s->view.boxClip;
  if (clip == kClipWorld && inside) s->view.boxClip = kClipNothing;
  drawCorners(s, nearer, f.n, false, color);
  s->view.boxClip = clip;
}

// Colours of the corners; one for all where facets are flat.
void shadeFacet(const PlotState* s, const FacetStyle& style, const RawFacet& raw, const BoxPoint& normal, Facet& out) {
  out.n = raw.n;
  out.color = raw.colors[0];
  for (int i = 0; i < raw.n; i++) {
    const BoxPoint& n = style.smooth ? raw.normals[i] : normal;
    const bool top = looksAtEye(s, raw.corners[i], n);
    out.corners[i].at = raw.corners[i];
    out.corners[i].shade = style.lit ? shadeVertex(s, s->light.faces[top ? kFaceTop : kFaceBottom], raw.corners[i],
                                                   top ? n : BoxPoint{-n.x, -n.y, -n.z})
                                     : shadeOfColor(s, raw.colors[i]);
    if (style.lit || raw.colors[i] != raw.colors[0]) out.color = kMixedColors;
  }
  if (style.smooth || out.color != kMixedColors) return;
  Shade sum{};
  for (int i = 0; i < raw.n; i++) {
    sum.r += out.corners[i].shade.r;
    sum.g += out.corners[i].shade.g;
    sum.b += out.corners[i].shade.b;
  }
  const auto n = static_cast<float>(raw.n);
  for (int i = 0; i < raw.n; i++) out.corners[i].shade = {sum.r / n, sum.g / n, sum.b / n};
}

} // namespace

BoxPoint difference(const BoxPoint& a, const BoxPoint& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
BoxPoint crossProduct(const BoxPoint& a, const BoxPoint& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
float dotProduct(const BoxPoint& a, const BoxPoint& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
BoxPoint unitVector(const BoxPoint& v) {
  const float length = std::sqrt(dotProduct(v, v));
  return length > kTiny ? BoxPoint{v.x / length, v.y / length, v.z / length} : v;
}

bool facetNormal(const BoxPoint* corners, int n, BoxPoint& normal) {
  constexpr float kFlat = 1e-12F;
  for (int i = 0; i < n - 2; i++) {
    normal = crossProduct(difference(corners[i + 1], corners[i]), difference(corners[i + 2], corners[i + 1]));
    if (dotProduct(normal, normal) > kFlat * kFlat) {
      normal = unitVector(normal);
      return true;
    }
  }
  return false;
}

bool looksAtEye(const PlotState* s, const BoxPoint& at, const BoxPoint& normal) {
  const float(&eye)[3] = s->viewState.eye;
  const float(&focus)[3] = s->viewState.focus;
  const bool parallel = s->view.orthographic;
  const BoxPoint from = parallel ? BoxPoint{focus[0], focus[1], focus[2]} : at;
  return dotProduct(difference({eye[0], eye[1], eye[2]}, from), normal) >= 0.0F;
}

Shade shadeOfColor(const PlotState* s, int color) {
  int r = 0, g = 0, b = 0;
  colorComponents(s, color, r, g, b);
  return {static_cast<float>(r) / kFull, static_cast<float>(g) / kFull, static_cast<float>(b) / kFull};
}

int colorOfShade(const Shade& c) {
  auto component = [](float v) { return static_cast<int>(std::clamp(v, 0.0F, 1.0F) * kFull + 0.5F); };
  return directColor(component(c.r), component(c.g), component(c.b));
}

FacetStyle facetStyle(const PlotState* s) {
  enum Cull : int { kCullBack = 1, kCullFront = 2 };
  return {s->light.lightingOn,
          s->shadeModes.surfaceMode == 1,
          s->depth.surfaceMesh,
          s->depth.meshColor >= 0 ? s->depth.meshColor : s->color.currentColor,
          s->shadeModes.cullMode == kCullBack,
          s->shadeModes.cullMode == kCullFront};
}

void paintFacet(PlotState* s, const Facet& facet) {
  Piece piece;
  for (int i = 0; i < facet.n; i++) {
    if (!isFinite(facet.corners[i].at)) return;
    piece.corners[i] = facet.corners[i];
  }
  piece.n = facet.n;
  if (s->view.boxClip == kClipWorld) cutAtBox(s, piece);
  if (piece.n < 3) return;
  const auto originX = static_cast<float>(s->page.originX), originY = static_cast<float>(s->page.originY);
  ShadedPoint points[kMostCorners];
  for (int i = 0; i < piece.n; i++) {
    const FacetPoint& p = piece.corners[i];
    const ClipPoint c = clipSpace(s, p.at.x, p.at.y, p.at.z);
    if (s->view.boxClip == kClipEye && !inView(c)) return;
    const PagePoint page = pageOfClipSpace(s, c);
    if (!std::isfinite(page.x) || !std::isfinite(page.y) || !std::isfinite(c.z / c.w)) return;
    points[i] = {page.x + originX, page.y + originY, c.z / c.w, p.shade.r, p.shade.g, p.shade.b};
  }
  if (s->depthState.bufferOn) {
    for (int i = 2; i < piece.n; i++) sinkTriangle(s, {points[0], points[i - 1], points[i]});
  } else if (s->depthState.list) {
    appendToDepthList(s, points, piece.n, facet.color);
  }
}

void drawFacet(PlotState* s, const FacetStyle& style, const RawFacet& given) {
  RawFacet raw = given;
  for (int i = 0; i < raw.n; i++)
    if (!isFinite(raw.corners[i])) return;
  BoxPoint normal{};
  if (!facetNormal(raw.corners, raw.n, normal)) return;
  const bool towards = looksAtEye(s, raw.corners[0], normal);
  if (towards ? style.culledFront : style.culledBack) return;
  if (!towards && raw.backColor != kMixedColors) std::fill_n(raw.colors, raw.n, raw.backColor);
  if (style.mesh == kMeshLines || style.mesh == kMeshPoints)
    return drawCorners(s, raw.corners, raw.n, style.mesh == kMeshPoints, raw.colors[0]);
  Facet facet{};
  shadeFacet(s, style, raw, normal, facet);
  if (style.mesh == kMeshOnly) { // hides what is behind, in the colour of the page
    for (int i = 0; i < facet.n; i++) facet.corners[i].shade = shadeOfColor(s, s->color.backgroundColor);
    facet.color = s->color.backgroundColor;
  }
  paintFacet(s, facet);
  if (style.mesh != kMeshOff && s->depthState.bufferOn) drawMeshLine(s, raw, style.meshColor);
}

} // namespace quilla
