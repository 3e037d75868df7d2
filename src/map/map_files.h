// Map files: where they stand, and their three formats read point by point.
#pragma once

#include <cstdint>
#include <cstdio>

#include "core/plot_state.h"

namespace quilla {

enum MapFileId : int {
  kFileBorders = 0,    // of all countries
  kFilePolygons = 1,   // coasts as polygons
  kFileCountries = 16, // polygons of countries
  kFileStates = 17,    // polygons of the states of the United States
  kFileShores = 21,    // to 24: the coasts of MAPBAS, or the rivers of MAPLEV
  kFileUser = 25       // the file of MAPFIL
};

// Opens a map file for reading; null after message 36 with its name.
std::FILE* openMapFile(PlotState* s, int id);

// One point of a file in degrees.
struct MapPoint {
  float lon, lat;
  bool move; // a line or polygon begins here
  int code;  // what follows the point in a low-resolution file: a control code, or 0
};

// ---- The library's own files: 32-bit integers in records of 20 ----

inline constexpr int kMapRecord = 20;

enum MapCode : int {
  kCodeKeyword = -4000, // minus k: the polygon belongs to keyword k of SHDMAP
  kCodeNoCoast = -5000, // the stroke to the point is no coast
  kCodeCountry = -20000 // minus 1000 * family and number: the polygon belongs to a country
};

struct LowMapReader {
  std::FILE* file;
  bool borders = false; // code -1000 stands before a point and is skipped
  std::int32_t record[kMapRecord] = {};
  int count = 0, next = 0;
  int state = 0; // 0 longitude, 1 latitude, 2 control
  std::int32_t lon = 0, lat = 0;
  bool drawing = false, ended = false;
};
// The next point; false at the end of the file.
bool nextLowPoint(LowMapReader& reader, MapPoint& point);

// ---- Shorelines in their published format: big-endian polygons of micro-degrees ----

struct ShoreHeader {
  int count; // points
  int level; // 1 land, 2 lake, 3 island in a lake, ...
};
enum class ShoreStatus { kPolygon, kEnd };
ShoreStatus nextShore(std::FILE* file, ShoreHeader& header);
// False if the file ends before the point.
bool nextShorePoint(std::FILE* file, MapPoint& point);

// ---- Text: a point a line, "#" before a new line ----

struct TextMapReader {
  std::FILE* file;
  bool move = true; // the next point begins a line
};
bool nextTextPoint(TextMapReader& reader, MapPoint& point);

} // namespace quilla
