// Map databases: which one is drawn, and what of it.
#pragma once

namespace quilla {

inline constexpr int kMapFileLength = 256;

enum MapBase : int { kMapLow = 0, kMapShoresLow = 1, kMapShoresFull = 4, kMapUserFile = 5 };
enum MapLevels : int { kMapLevelsAll = 0, kMapLevelsLand = 1, kMapLevelsLake = 2, kMapLevelsRivers = 4 };
enum MapFormat : int { kMapFormatNone = 0, kMapFormatShores = 1, kMapFormatText = 2 };
enum WorldLines : int { kWorldCoasts = 0, kWorldBorders = 1, kWorldBoth = 2 };

// Run lifetime.
struct MapDataGroup {
  int mapBase = kMapLow;         // MAPBAS
  int mapLevels = kMapLevelsAll; // MAPLEV
  int userFormat = kMapFormatNone;
  char userFile[kMapFileLength + 1] = {};     // MAPFIL
  char mapDirectory[kMapFileLength + 1] = {}; // MAPDIR; empty: the folder of the library
  int worldLines = kWorldCoasts;              // MAPOPT: what WORLD draws
};

} // namespace quilla
