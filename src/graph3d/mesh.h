// Meshes in the order in which the floating horizon hides them: from the front to the back.
#pragma once

#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph3d/box.h"

namespace quilla {

// Hidden lines for one surface: on, empty, with the colours of its sides; afterwards as SHLSUR says.
void beginHidden(PlotState* s);
void endHidden(PlotState* s);

// True if the eye stands on the side of the higher box coordinates of an axis.
inline bool eyeIsHigh(const PlotState* s, int axis) { return s->viewState.eye[axis] >= 0.0F; }

// Cells of a mesh counted from the corner before the eye, and the parts of one cell's sides.
struct MeshShape {
  int cellsX, cellsY;
  int partsX, partsY;
};

// Lines along X at the ends of the cells, or along Y. at(a, b): node or part a along X and b along Y, from the front.
template <class At> void drawMeshLines(PlotState* s, const MeshShape& shape, bool alongX, At at) {
  const int lines = alongX ? shape.cellsY : shape.cellsX, apart = alongX ? shape.partsY : shape.partsX;
  const int last = alongX ? shape.cellsX * shape.partsX : shape.cellsY * shape.partsY;
  for (int line = 0; line <= lines && !stopRequested(); line++) {
    auto point = [&](int k) { return alongX ? at(k, line * apart) : at(line * apart, k); };
    boxMove(s, point(0));
    for (int k = 1; k <= last; k++) boxDraw(s, point(k));
  }
}

// The two sides of each cell that lie away from the eye, cell by cell; before them the two front lines.
template <class At> void drawMeshCells(PlotState* s, const MeshShape& shape, At at) {
  const int px = shape.partsX, py = shape.partsY;
  boxMove(s, at(0, 0));
  for (int a = 1; a <= shape.cellsX * px; a++) boxDraw(s, at(a, 0));
  boxMove(s, at(0, 0));
  for (int b = 1; b <= shape.cellsY * py; b++) boxDraw(s, at(0, b));
  for (int j = 1; j <= shape.cellsY && !stopRequested(); j++) {
    for (int i = 1; i <= shape.cellsX; i++) {
      boxMove(s, at(i * px, (j - 1) * py));
      for (int b = (j - 1) * py + 1; b <= j * py; b++) boxDraw(s, at(i * px, b));
      for (int a = i * px - 1; a >= (i - 1) * px; a--) boxDraw(s, at(a, j * py));
    }
  }
}

// Both families of lines, or one of them. Interleaved cell by cell where lines are hidden.
template <class At> void drawMesh(PlotState* s, const MeshShape& shape, bool alongX, bool alongY, At at) {
  if (alongX && alongY && s->horizon.on) return drawMeshCells(s, shape, at);
  if (alongX) drawMeshLines(s, shape, true, at);
  if (alongY) drawMeshLines(s, shape, false, at);
}

} // namespace quilla
