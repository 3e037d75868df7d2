// Solids: spheres and their kin, made of quadrangles over two parameters; boxes, pyramids and the regular solids.
#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "core/colors.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/projection.h"
#include "core/stop_request.h"
#include "device/raster_driver.h"
#include "graph3d/facet_call.h"
#include "graph3d/solids.h"
#include "quilla/quilla.h"

using namespace quilla;

float quilla::boxLength(const PlotState* s, int axis, float length) {
  const ViewState& v = s->viewState;
  return std::fabs(length * v.box[axis] / (v.end[axis] - v.start[axis]));
}

namespace {

constexpr int kMostParts = 10000; // of a count of a solid

// The solid that a routine draws: its middle and reach in box coordinates, and where its points lie.
struct SolidFrame {
  PlotState* s;
  BoxPoint middle;
  float reach;
  FacetStyle style{};
  int color = 0; // of its faces
  bool reversed = false;
};

// A height keeps its sign on an axis that runs upwards.
float boxHeight(const PlotState* s, float height) { return std::copysign(boxLength(s, kAxisZ, height), height); }

BoxPoint plus(const BoxPoint& a, const BoxPoint& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
BoxPoint times(const BoxPoint& a, float f) { return {a.x * f, a.y * f, a.z * f}; }

// The vector after the turns of ROT3D, about X, then Y, then Z.
BoxPoint turned(const PlotState* s, BoxPoint p) {
  const float(&degrees)[3] = s->depth.solidTurn;
  auto turn = [](float angle, float& a, float& b) {
    if (angle == 0.0F) return;
    const float c = std::cos(angle * kDegToRad), d = std::sin(angle * kDegToRad), before = a;
    a = before * c - b * d;
    b = before * d + b * c;
  };
  turn(degrees[0], p.y, p.z);
  turn(degrees[1], p.z, p.x);
  turn(degrees[2], p.x, p.y);
  return p;
}

// A point of the solid, counted from its middle: the user transformation turns it about the middle.
BoxPoint placed(const SolidFrame& f, const BoxPoint& local) {
  return plus(f.middle, transformedBox(f.s, turned(f.s, local)));
}

BoxPoint turnedNormal(const PlotState* s, BoxPoint n) {
  n = turned(s, n);
  if (!s->boxTransform.on) return n;
  const BoxPoint zero = transformedBox(s, {0.0F, 0.0F, 0.0F});
  return unitVector(difference(transformedBox(s, n), zero));
}

// True if no part of the solid can leave the box.
bool liesInBox(const SolidFrame& f) {
  const float(&box)[3] = f.s->viewState.box;
  const bool moved = f.s->boxTransform.on;
  return !moved && std::fabs(f.middle.x) + f.reach <= box[kAxisX] / 2.0F &&
         std::fabs(f.middle.y) + f.reach <= box[kAxisY] / 2.0F && std::fabs(f.middle.z) + f.reach <= box[kAxisZ] / 2.0F;
}

// With a value of TPRVAL that lets something through, a solid of the z-buffer is a picture of its own, laid over what
// stands. True if one was opened.
bool openSolidLayer(PlotState* s) {
  constexpr int kOpaque = 255;
  RasterCanvas* canvas = s->raster.canvas;
  if (s->image.transparencyValue >= kOpaque || !s->depthState.bufferOn || !canvas || !canvas->trueColour) return false;
  if (s->raster.transparencyDepth > 0) return false; // TPRINI has opened one
  setCanvasAlpha(*canvas, s->image.transparencyValue);
  return openLayer(*canvas);
}

// Draws the faces as SURVIS asks: the lower side with the corners in reversed order and the colours and materials of
// both sides exchanged, then the upper side.
template <class Faces> void drawSolid(SolidFrame& f, Faces faces) {
  PlotState* s = f.s;
  flushPath(s);
  const int side = s->surface.visibleSide, current = s->color.currentColor;
  const int upper = s->surface.upperColor >= 0 ? s->surface.upperColor : current;
  const int lower = s->surface.lowerColor >= 0 ? s->surface.lowerColor : current;
  const int clip = s->view.boxClip;
  if (clip == kClipWorld && liesInBox(f)) s->view.boxClip = kClipNothing;
  const bool layered = openSolidLayer(s);
  f.style = facetStyle(s);
  if (side != kVisibleAuto) f.style.culledBack = true;
  if (side == kVisibleBottom || side == kVisibleBoth) {
    std::swap(s->light.faces[kFaceTop], s->light.faces[kFaceBottom]);
    f.color = lower;
    f.reversed = true;
    faces(f);
    std::swap(s->light.faces[kFaceTop], s->light.faces[kFaceBottom]);
  }
  if (side != kVisibleBottom) {
    f.color = upper;
    f.reversed = false;
    faces(f);
  }
  flushPath(s);
  if (layered) rasterEndLayer(s);
  s->view.boxClip = clip;
  if (s->color.currentColor != current) setColor(s, current);
}

// One face from corners and normals counted from the middle.
void drawFace(const SolidFrame& f, const BoxPoint* corners, const BoxPoint* normals, int n) {
  RawFacet raw{};
  raw.n = n;
  raw.backColor = kMixedColors;
  for (int i = 0; i < n; i++) {
    const int k = f.reversed ? n - 1 - i : i;
    raw.corners[i] = placed(f, corners[k]);
    const BoxPoint normal = turnedNormal(f.s, normals[k]);
    raw.normals[i] = f.reversed ? times(normal, -1.0F) : normal;
    raw.colors[i] = f.color;
  }
  drawFacet(f.s, f.style, raw);
}

// A face whose normals are its own.
void drawFlatFace(const SolidFrame& f, const BoxPoint* corners, int n) {
  BoxPoint normal{};
  if (!facetNormal(corners, n, normal)) return;
  const BoxPoint normals[kFacetCorners] = {normal, normal, normal, normal};
  drawFace(f, corners, normals, n);
}

// A surface of revolution: a profile of radius and height, with its normal, turned about an axis.
struct ProfilePoint {
  float radius, height;
  float outward, upward; // normal
};
struct Turning {
  BoxPoint u, v, axis; // unit vectors, u x v = axis
  float from, to;      // radians
};
constexpr float kTurn = 2.0F * kPi;
constexpr Turning kUpright = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, 0.0F, kTurn};

struct RingPoint {
  BoxPoint at, normal;
};
RingPoint ringPoint(const Turning& t, const ProfilePoint& p, float angle) {
  const BoxPoint out = plus(times(t.u, std::cos(angle)), times(t.v, std::sin(angle)));
  return {plus(times(out, p.radius), times(t.axis, p.height)), plus(times(out, p.outward), times(t.axis, p.upward))};
}

// profile(k): point k of 0 to stripes, from below if the outer side shall be the upper one.
template <class Profile>
void drawTurned(const SolidFrame& f, const Turning& t, int segments, int stripes, Profile profile) {
  const float step = (t.to - t.from) / static_cast<float>(segments);
  for (int i = 0; i < stripes && !stopRequested(); i++) {
    const ProfilePoint low = profile(i), high = profile(i + 1);
    for (int j = 0; j < segments; j++) {
      const float g0 = t.from + static_cast<float>(j) * step;
      const float g1 = j + 1 == segments ? t.to : g0 + step;
      const RingPoint ring[] = {ringPoint(t, low, g0), ringPoint(t, low, g1), ringPoint(t, high, g1),
                                ringPoint(t, high, g0)};
      const BoxPoint corners[] = {ring[0].at, ring[1].at, ring[2].at, ring[3].at};
      const BoxPoint normals[] = {ring[0].normal, ring[1].normal, ring[2].normal, ring[3].normal};
      drawFace(f, corners, normals, kFacetCorners);
    }
  }
}

// A straight side from one ring to another.
void drawSide(const SolidFrame& f, const Turning& t, int segments, int stripes, float r1, float h1, float r2,
              float h2) {
  const float length = std::hypot(h2 - h1, r2 - r1);
  if (!(length > kTiny)) return;
  const float outward = (h2 - h1) / length, upward = (r1 - r2) / length;
  drawTurned(f, t, segments, stripes, [&](int k) {
    const float share = static_cast<float>(k) / static_cast<float>(stripes);
    return ProfilePoint{r1 + share * (r2 - r1), h1 + share * (h2 - h1), outward, upward};
  });
}

// False after message 2.
bool countsFit(PlotState* s, int n, int m = 1) {
  return !checkRange(s, n, 1, kMostParts) && !checkRange(s, m, 1, kMostParts);
}

// Unit vectors across an axis.
Turning turningAbout(const BoxPoint& axis) {
  const bool upright = std::fabs(axis.x) < 1e-6F && std::fabs(axis.y) < 1e-6F;
  const BoxPoint u = upright ? BoxPoint{1, 0, 0} : unitVector({-axis.y, axis.x, 0.0F});
  return {u, crossProduct(axis, u), axis, 0.0F, kTurn};
}

} // namespace

namespace quilla {

void drawBall(PlotState* s, const BoxPoint& middle, float r, int segments, int stripes) {
  if (!(r > kTiny)) return;
  SolidFrame frame{s, middle, r};
  drawSolid(frame, [&](const SolidFrame& f) {
    drawTurned(f, kUpright, segments, stripes, [&](int k) {
      const float latitude = kPi * (static_cast<float>(k) / static_cast<float>(stripes) - 0.5F);
      const bool pole = k == 0 || k == stripes;
      const float c = pole ? 0.0F : std::cos(latitude), d = std::sin(latitude);
      return ProfilePoint{r * c, r * d, c, d};
    });
  });
}

} // namespace quilla

void SPHE3D(float x, float y, float z, float radius, int segments, int stripes) {
  PlotState* s = solidCheck("sphe3d");
  if (s && countsFit(s, segments, stripes))
    drawBall(s, boxOfUser(s, x, y, z), boxLength(s, kAxisX, radius), segments, stripes);
}

void CYLI3D(float x, float y, float z, float radius, float height, int segments, int stripes) {
  PlotState* s = solidCheck("cyli3d");
  if (!s || !countsFit(s, segments, stripes)) return;
  const float r = boxLength(s, kAxisX, radius), h = boxHeight(s, height);
  if (!(r > kTiny)) return;
  SolidFrame frame{s, boxOfUser(s, x, y, z), std::hypot(r, h)};
  drawSolid(frame, [&](const SolidFrame& f) { drawSide(f, kUpright, segments, stripes, r, 0.0F, r, h); });
}

void CONE3D(float x, float y, float z, float radius, float height, float cut, int segments, int stripes) {
  PlotState* s = solidCheck("cone3d");
  if (!s || !countsFit(s, segments, stripes)) return;
  const float r = boxLength(s, kAxisX, radius), h = boxHeight(s, height), top = boxHeight(s, cut);
  if (!(r > kTiny) || !(std::fabs(h) > kTiny)) return;
  const float share = std::clamp(top / h, 0.0F, 1.0F);
  SolidFrame frame{s, boxOfUser(s, x, y, z), std::hypot(r, h)};
  drawSolid(frame, [&](const SolidFrame& f) {
    drawSide(f, kUpright, segments, stripes, r, 0.0F, r * (1.0F - share), h * share);
  });
}

void DISK3D(float x, float y, float z, float inner, float outer, int segments, int rings) {
  PlotState* s = solidCheck("disk3d");
  if (!s || !countsFit(s, segments, rings)) return;
  const float r1 = boxLength(s, kAxisX, inner), r2 = boxLength(s, kAxisX, outer);
  if (!(r2 > kTiny)) return;
  SolidFrame frame{s, boxOfUser(s, x, y, z), std::fmax(r1, r2)};
  drawSolid(frame, [&](const SolidFrame& f) {
    drawSide(f, kUpright, segments, rings, std::fmax(r1, r2), 0.0F, std::fmin(r1, r2), 0.0F);
  });
}

void TORUS3D(float x, float y, float z, float inner, float outer, float height, float from, float to, int segments,
             int parts) {
  PlotState* s = solidCheck("torus3d");
  if (!s || !countsFit(s, segments, parts)) return;
  const float r1 = boxLength(s, kAxisX, inner), r2 = boxLength(s, kAxisX, outer), h = boxLength(s, kAxisZ, height);
  const float middle = (r1 + r2) / 2.0F, half = std::fabs(r2 - r1) / 2.0F;
  if (!(half > kTiny) || !(h > kTiny) || !std::isfinite(from) || !std::isfinite(to)) return;
  SolidFrame frame{s, boxOfUser(s, x, y, z), std::fmax(r1, r2) + h};
  Turning turning = kUpright;
  turning.from = from * kDegToRad;
  turning.to = to * kDegToRad;
  drawSolid(frame, [&](const SolidFrame& f) {
    drawTurned(f, turning, segments, parts, [&](int k) {
      const float angle = kTurn * static_cast<float>(k) / static_cast<float>(parts);
      const float c = std::cos(angle), d = std::sin(angle);
      const BoxPoint normal = unitVector({c / half, 0.0F, 2.0F * d / h});
      return ProfilePoint{middle + half * c, h / 2.0F * d, normal.x, normal.z};
    });
  });
}

namespace quilla {

void drawTube(PlotState* s, const BoxPoint& a, const BoxPoint& b, float radiusA, float radiusB, int segments,
              int stripes) {
  const float r1 = boxLength(s, kAxisX, radiusA), r2 = boxLength(s, kAxisX, radiusB);
  const BoxPoint way = difference(b, a);
  const float length = std::sqrt(dotProduct(way, way)), widest = std::fmax(r1, r2);
  if (!(widest > kTiny) || !(length > kTiny)) return;
  SolidFrame frame{s, a, std::hypot(length, widest)};
  const Turning turning = turningAbout(unitVector(way));
  drawSolid(frame, [&](const SolidFrame& f) { drawSide(f, turning, segments, stripes, r1, 0.0F, r2, length); });
}

} // namespace quilla

namespace {

// A side between two points, with the radius at each.
void drawBetween(const char* routine, const float (&from)[3], const float (&to)[3], float radius, bool pointed,
                 int segments, int stripes) {
  PlotState* s = solidCheck(routine);
  if (!s || !countsFit(s, segments, stripes)) return;
  drawTube(s, boxOfUser(s, from[0], from[1], from[2]), boxOfUser(s, to[0], to[1], to[2]), radius,
           pointed ? 0.0F : radius, segments, stripes);
}

} // namespace

void TUBE3D(float x1, float y1, float z1, float x2, float y2, float z2, float radius, int segments, int stripes) {
  drawBetween("tube3d", {x1, y1, z1}, {x2, y2, z2}, radius, false, segments, stripes);
}

void PIKE3D(float x1, float y1, float z1, float x2, float y2, float z2, float radius, int segments, int stripes) {
  drawBetween("pike3d", {x1, y1, z1}, {x2, y2, z2}, radius, true, segments, stripes);
}

void PYRA3D(float x, float y, float z, float radius, float height, float cut, int sides) {
  constexpr int kMostSides = 1000;
  PlotState* s = solidCheck("pyra3d");
  if (!s || checkRange(s, sides, 3, kMostSides)) return;
  const float r = boxLength(s, kAxisX, radius), h = boxHeight(s, height);
  if (!(r > kTiny) || !(std::fabs(h) > kTiny)) return;
  const float share = std::clamp(boxHeight(s, cut) / h, 0.0F, 1.0F);
  SolidFrame frame{s, boxOfUser(s, x, y, z), std::hypot(r, h)};
  drawSolid(frame, [&](const SolidFrame& f) {
    const float half = kPi / static_cast<float>(sides), topR = r * (1.0F - share), topH = h * share;
    auto at = [&](int k, float radiusThere, float heightThere) {
      const float angle = half * static_cast<float>(2 * k - 1);
      return BoxPoint{radiusThere * std::cos(angle), radiusThere * std::sin(angle), heightThere};
    };
    const BoxPoint foot{0.0F, 0.0F, 0.0F}, top{0.0F, 0.0F, topH};
    for (int k = 0; k < sides; k++) {
      const BoxPoint side[] = {at(k, r, 0.0F), at(k + 1, r, 0.0F), at(k + 1, topR, topH), at(k, topR, topH)};
      const BoxPoint base[] = {foot, side[1], side[0]}, lid[] = {top, side[3], side[2]};
      drawFlatFace(f, side, kFacetCorners);
      drawFlatFace(f, base, 3);
      drawFlatFace(f, lid, 3);
    }
  });
}

namespace {

// Corner k of a box has the bits of k as the signs of x, y and z. Faces are seen anticlockwise from outside.
void drawBox(const SolidFrame& f, float lx, float ly, float lz) {
  constexpr int kFaces[6][kFacetCorners] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                            {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
  for (const auto& face : kFaces) {
    BoxPoint corners[kFacetCorners];
    for (int i = 0; i < kFacetCorners; i++)
      corners[i] = {(face[i] & 1 ? 0.5F : -0.5F) * lx, (face[i] & 2 ? 0.5F : -0.5F) * ly,
                    (face[i] & 4 ? 0.5F : -0.5F) * lz};
    drawFlatFace(f, corners, kFacetCorners);
  }
}

} // namespace

namespace quilla {

void drawBlock(PlotState* s, const BoxPoint& middle, float lx, float ly, float lz) {
  SolidFrame frame{s, middle, std::hypot(lx, ly, lz) / 2.0F};
  drawSolid(frame, [&](const SolidFrame& f) { drawBox(f, lx, ly, lz); });
}

} // namespace quilla

void QUAD3D(float x, float y, float z, float lx, float ly, float lz) {
  PlotState* s = solidCheck("quad3d");
  if (!s) return;
  drawBlock(s, boxOfUser(s, x, y, z), boxLength(s, kAxisX, lx), boxLength(s, kAxisY, ly), boxLength(s, kAxisZ, lz));
}

namespace {

constexpr float kGolden = 1.618034F;

// A regular solid by its corners; its faces are all planes through corners that have no corner beyond them. edge: of
// the corners given, as a length.
struct RegularSolid {
  std::span<const BoxPoint> corners;
  float edge;
};

constexpr BoxPoint kTetrahedron[] = {{1, 1, 1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, 1}};
constexpr BoxPoint kOctahedron[] = {{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0, 0, 1}, {0, 0, -1}};
constexpr float kShort = 1.0F / kGolden;
constexpr BoxPoint kDodecahedron[] = {{1, 1, 1},
                                      {1, 1, -1},
                                      {1, -1, 1},
                                      {1, -1, -1},
                                      {-1, 1, 1},
                                      {-1, 1, -1},
                                      {-1, -1, 1},
                                      {-1, -1, -1},
                                      {0, kShort, kGolden},
                                      {0, kShort, -kGolden},
                                      {0, -kShort, kGolden},
                                      {0, -kShort, -kGolden},
                                      {kShort, kGolden, 0},
                                      {kShort, -kGolden, 0},
                                      {-kShort, kGolden, 0},
                                      {-kShort, -kGolden, 0},
                                      {kGolden, 0, kShort},
                                      {kGolden, 0, -kShort},
                                      {-kGolden, 0, kShort},
                                      {-kGolden, 0, -kShort}};
constexpr BoxPoint kIcosahedron[] = {{0, 1, kGolden}, {0, 1, -kGolden}, {0, -1, kGolden}, {0, -1, -kGolden},
                                     {1, kGolden, 0}, {1, -kGolden, 0}, {-1, kGolden, 0}, {-1, -kGolden, 0},
                                     {kGolden, 0, 1}, {kGolden, 0, -1}, {-kGolden, 0, 1}, {-kGolden, 0, -1}};
constexpr float kTetrahedronEdge = 2.828427F, kOctahedronEdge = 1.414214F, kDodecahedronEdge = 1.236068F,
                kIcosahedronEdge = 2.0F;

// The corners in the plane with this outward normal, in order around it, as a fan of triangles about their middle.
void drawFaceOfPlane(const SolidFrame& f, const RegularSolid& solid, const BoxPoint& normal, float distance,
                     float scale) {
  constexpr int kMostSides = 5;
  constexpr float kNear = 1e-3F;
  const Turning plane = turningAbout(normal);
  struct Around {
    float angle;
    BoxPoint at;
  } around[kMostSides];
  int n = 0;
  for (const BoxPoint& p : solid.corners) {
    if (std::fabs(dotProduct(p, normal) - distance) >= kNear || n == kMostSides) continue;
    const Around next{std::atan2(dotProduct(p, plane.v), dotProduct(p, plane.u)), times(p, scale)};
    int k = n++;
    for (; k > 0 && around[k - 1].angle > next.angle; k--) around[k] = around[k - 1];
    around[k] = next;
  }
  const BoxPoint middle = times(normal, distance * scale);
  if (n == 3) {
    const BoxPoint face[] = {around[0].at, around[1].at, around[2].at};
    return drawFlatFace(f, face, n);
  }
  for (int i = 0; i < n; i++) {
    const BoxPoint face[] = {middle, around[i].at, around[(i + 1) % n].at};
    drawFlatFace(f, face, 3);
  }
}

// Each three neighbouring corners may span a face; a face is drawn at its first three.
void drawRegular(const SolidFrame& f, const RegularSolid& solid, float scale) {
  constexpr float kNear = 1e-3F;
  const int n = static_cast<int>(solid.corners.size());
  const auto& p = solid.corners;
  auto corner = [&](int i) { return p[static_cast<std::size_t>(i)]; };
  for (int i = 0; i < n; i++) {
    for (int j = i + 1; j < n; j++) {
      for (int k = j + 1; k < n; k++) {
        BoxPoint normal = crossProduct(difference(corner(j), corner(i)), difference(corner(k), corner(i)));
        if (dotProduct(normal, normal) < kNear) continue;
        normal = unitVector(dotProduct(normal, corner(i)) < 0.0F ? times(normal, -1.0F) : normal);
        const float distance = dotProduct(normal, corner(i));
        bool outer = true;
        for (int q = 0; q < n && outer; q++) {
          const float there = dotProduct(normal, corner(q)) - distance;
          const bool earlier = std::fabs(there) < kNear && q < k && q != i && q != j;
          outer = there < kNear && !earlier;
        }
        if (outer) drawFaceOfPlane(f, solid, normal, distance, scale);
      }
    }
  }
}

} // namespace

namespace quilla {

void drawPlatonic(PlotState* s, const BoxPoint& middle, int kind, float length) {
  if (!(length > kTiny)) return;
  if (kind == kSolidCube) return drawBlock(s, middle, length, length, length);
  SolidFrame frame{s, middle, 2.0F * length};
  const RegularSolid solids[] = {{kTetrahedron, kTetrahedronEdge},
                                 {kOctahedron, kOctahedronEdge},
                                 {kDodecahedron, kDodecahedronEdge},
                                 {kIcosahedron, kIcosahedronEdge}};
  const RegularSolid& solid = solids[kind - 1];
  drawSolid(frame, [&](const SolidFrame& f) { drawRegular(f, solid, length / solid.edge); });
}

} // namespace quilla

void PLAT3D(float x, float y, float z, float size, const char* kind) {
  PlotState* s = solidCheck("plat3d");
  if (!s) return;
  if (const int found = matchKeyword(s, "CUBE+TETR+OCTA+DODE+ICOS", 5, kind))
    drawPlatonic(s, boxOfUser(s, x, y, z), found - 1, boxLength(s, kAxisX, size));
}

void BARS3D(const float* x, const float* y, const float* z1, const float* z2, const float* wx, const float* wy,
            const int* colors, int n) {
  PlotState* s = solidCheck("bars3d");
  if (!s || checkRange(s, n, 1, -1)) return;
  const SurfaceGroup kept = s->surface;
  const int current = s->color.currentColor;
  for (int i = 0; i < n && !stopRequested(); i++) {
    const BoxPoint foot = boxOfUser(s, x[i], y[i], z1[i]), top = boxOfUser(s, x[i], y[i], z2[i]);
    const float a = boxLength(s, kAxisX, wx[i]), b = boxLength(s, kAxisY, wy[i]), c = std::fabs(top.z - foot.z);
    SolidFrame frame{s, {foot.x, foot.y, (foot.z + top.z) / 2.0F}, std::hypot(a, b, c) / 2.0F};
    s->surface.upperColor = colors[i] >= 0 ? colors[i] : current;
    drawSolid(frame, [&](const SolidFrame& f) { drawBox(f, a, b, c); });
  }
  s->surface = kept;
}
