// Polygons of the low-resolution files.
#pragma once

#include "map/map_files.h"

namespace quilla {

inline constexpr int kPolygonPoints = 4000;

struct LowPolygon {
  float lon[kPolygonPoints], lat[kPolygonPoints];
  int code[kPolygonPoints]; // control codes
  int n;
  int keyword; // of SHDMAP that it belongs to, or -1
  int country; // 1000 * family + number, or 0
};

struct LowPolygonReader {
  LowMapReader points;
  MapPoint pending{};
  bool hasPending = false;
};

// The next polygon; false at the end of the file. One of more points than there is room for gives warning 114 and is
// left out.
bool nextLowPolygon(PlotState* s, LowPolygonReader& reader, LowPolygon& polygon);

} // namespace quilla
