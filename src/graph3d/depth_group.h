// Shaded output in three dimensions: the z-buffer, the depth list, meshes of shaded surfaces.
#pragma once

namespace quilla {

enum SurfaceMesh : int { kMeshOff = 0, kMeshOn = 1, kMeshOnly = 2, kMeshLines = 3, kMeshPoints = 4 }; // SURMSH

// Run lifetime.
struct DepthGroup {
  bool depthsKept = true;     // ZBFMOD: off, triangles are painted in the order given
  float rasterFactor = 1.0F;  // ZBFSCL: of the raster in documents
  bool listCollects = true;   // DBFMOD
  int surfaceMesh = kMeshOff; // SURMSH
  int meshColor = -1;         // MSHCLR; -1: the current colour
  bool scaleGiven = false;    // ZSCALE: colours run between these values instead of the limits of the Z axis
  float scaleStart = 0.0F, scaleEnd = 0.0F;
  float symbolHeight = -1.0F; // HSYM3D, user coordinates of X; -1: a twentieth of the box
  float solidTurn[3] = {};    // ROT3D: degrees about X, Y and Z, of solids about their own middle
  float cellSize[3] = {};     // SETRES3D: user coordinates; 0: a twentieth of the box
  int tubeSides = 16;         // MSHCRV
  float tubeRadius = 0.0F;    // THKC3D: of curves drawn as tubes, user coordinates of X; 0: lines
};

struct DepthList;
struct PlotState;

// Working state.
struct DepthState {
  bool bufferOn = false;                    // between ZBFINI and ZBFFIN
  bool ownRaster = false;                   // opened for a document by ZBFINI
  DepthList* list = nullptr;                // between DBFINI and DBFFIN
  void (*freeList)(PlotState* s) = nullptr; // for a state that is given up; set with list
};

} // namespace quilla
