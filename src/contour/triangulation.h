// Delaunay triangulation of points in the plane.
#pragma once

namespace quilla {

enum class Triangulated { kFine, kBadSize, kNoMemory, kManyEdges, kCollinear, kManyTriangles };

// The triangles of n points by the numbers of their corners, from 1; count: how many. x and y have room for three more
// points, the triangle around all. most: room for triangles, at least 2 n + 1. Points that are no numbers and second
// points of one place are part of no triangle.
Triangulated triangulate(float* x, float* y, int n, int* i1, int* i2, int* i3, int most, int& count);

} // namespace quilla
