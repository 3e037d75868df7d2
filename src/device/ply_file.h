// PLY: the mesh of three-dimensional solids, collected between PLYINI and PLYFIN.
#pragma once

#include "core/plot_state.h"

namespace quilla {

struct PlyVertex {
  float x, y, z;
  unsigned char r, g, b;
};

struct PlyMesh {
  PlyVertex* vertices = nullptr;
  int vertexCount = 0, vertexLimit = 0;
  int* faces = nullptr; // for each face the count of its corners and their numbers
  int faceWords = 0, faceLimit = 0;
  int faceCount = 0;
};

// True while a mesh is collected.
inline bool plyCollects(const PlotState* s) { return s->device.ply != nullptr; }

// Add a vertex, and a face of vertices that were added. The number of the vertex, from 0; -1 and false after
// message 53.
int plyVertex(PlotState* s, const PlyVertex& vertex);
bool plyFace(PlotState* s, const int* corners, int n);

// Writes the file under a free name and ends the collection.
void plyWrite(PlotState* s, const char* name, const char* object);
// Ends the collection.
void plyFree(PlotState* s);

} // namespace quilla
