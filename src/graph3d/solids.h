// Solids at a place of the box, as settings of colours, lights and transformations tell. A z-buffer or a depth list is
// open.
#pragma once

#include "graph3d/box.h"

namespace quilla {

// A length in user units of an axis, in box coordinates; not negative.
float boxLength(const PlotState* s, int axis, float length);

enum PlatonicSolid : int { kSolidCube = 0, kSolidTetrahedron, kSolidOctahedron, kSolidDodecahedron, kSolidIcosahedron };
// length: of an edge, in box coordinates.
void drawPlatonic(PlotState* s, const BoxPoint& middle, int kind, float length);
void drawBall(PlotState* s, const BoxPoint& middle, float radius, int segments, int stripes);
void drawBlock(PlotState* s, const BoxPoint& middle, float lx, float ly, float lz);

// The side of a tube or cone; radii in user units of X.
void drawTube(PlotState* s, const BoxPoint& from, const BoxPoint& to, float radiusFrom, float radiusTo, int segments,
              int stripes);

} // namespace quilla
