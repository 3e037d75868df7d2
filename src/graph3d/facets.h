// Facets: the small polygons of which surfaces and solids are made, painted through the z-buffer, collected in the
// depth list, or drawn as lines and points.
#pragma once

#include "graph3d/box.h"
#include "graph3d/lighting.h"

namespace quilla {

inline constexpr int kFacetCorners = 4;

// A corner in box coordinates, already moved by the user transformation.
struct FacetPoint {
  BoxPoint at;
  Shade shade;
};

// A triangle or a quadrangle without dents. color: the colour value that all corners share, or kMixedColors.
inline constexpr int kMixedColors = -1;
struct Facet {
  FacetPoint corners[kFacetCorners];
  int n;
  int color;
};

// Cuts the facet as CLIP3D says and paints it: through the z-buffer, or into the depth list.
void paintFacet(PlotState* s, const Facet& facet);

// Colour components, 0 to 1, of a colour value; and the other way round.
Shade shadeOfColor(const PlotState* s, int color);
int colorOfShade(const Shade& shade);

BoxPoint difference(const BoxPoint& a, const BoxPoint& b);
BoxPoint crossProduct(const BoxPoint& a, const BoxPoint& b);
float dotProduct(const BoxPoint& a, const BoxPoint& b);
// Of length 1; a vector without length stays.
BoxPoint unitVector(const BoxPoint& v);

// Normal of a facet, from its first corners that span a plane. False if there are none.
bool facetNormal(const BoxPoint* corners, int n, BoxPoint& normal);
// True if the normal at a point looks towards the eye.
bool looksAtEye(const PlotState* s, const BoxPoint& at, const BoxPoint& normal);

// What a surface or a solid is painted with, from the settings at the call. Culling is that of SHDMOD; what SURVIS adds
// is told by the routine.
struct FacetStyle {
  bool lit;
  bool smooth;
  int mesh;        // SurfaceMesh
  int meshColor;   // colour value of lines upon the facets
  bool culledBack; // facets that look away are dropped
  bool culledFront;
};
FacetStyle facetStyle(const PlotState* s);

// A facet before it is coloured: corners with their normals, on the upper side. A colour value for each corner.
struct RawFacet {
  BoxPoint corners[kFacetCorners];
  BoxPoint normals[kFacetCorners];
  int colors[kFacetCorners];
  int backColor; // of the lower side, kMixedColors for those of the upper one
  int n;
};
// Colours the facet, by the lights if they are on, drops it if it is culled, and paints it or draws its lines or
// points.
void drawFacet(PlotState* s, const FacetStyle& style, const RawFacet& facet);

// The depth list. beginDepthList: false after message 53.
bool beginDepthList(PlotState* s);
void endDepthList(PlotState* s); // paints what it holds, from the farthest on, and frees it
void dropDepthList(PlotState* s);

// The z-buffer ends; its picture enters the document.
void endDepthBuffer(PlotState* s);

} // namespace quilla
