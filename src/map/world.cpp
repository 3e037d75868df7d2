// Coasts and borders as lines.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/stop_request.h"
#include "map/map_shading.h"
#include "map/map_strokes.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr float kLongestStroke = 15.0F; // degrees of longitude; a polygon over the date line is broken there

// Lines of a low-resolution file, drawn on each copy of the map.
void drawLowLines(PlotState* s, int id) {
  const MapCopies copies = mapCopies(s);
  mapClipOn(s);
  for (int i = 0; i < copies.count && !stopRequested(); i++) {
    LowMapReader reader{openMapFile(s, id)};
    if (!reader.file) break;
    reader.borders = id == kFileBorders;
    MapStroke stroke{s, copies.items[i]};
    MapPoint p;
    while (!stopRequested() && nextLowPoint(reader, p)) strokeTo(stroke, p.lon, p.lat, p.move);
    std::fclose(reader.file);
  }
  mapClipOff(s);
}

// False after a read error.
bool drawShore(MapStroke& stroke, std::FILE* file, const ShoreHeader& header) {
  const int levels = stroke.s->mapData.mapLevels;
  const bool wanted = levels == kMapLevelsAll || levels == kMapLevelsRivers || levels == header.level;
  stroke.broken = true;
  for (int i = 0; i < header.count && !stopRequested(); i++) {
    MapPoint p;
    if (!nextShorePoint(file, p)) return false;
    if (!wanted) continue;
    const bool far = std::fabs(p.lon + stroke.copy.shift - stroke.lastLon) >= kLongestStroke;
    strokeTo(stroke, p.lon, p.lat, far);
  }
  return true;
}

void drawShores(MapStroke& stroke, std::FILE* file) {
  ShoreHeader header;
  while (!stopRequested() && nextShore(file, header) == ShoreStatus::kPolygon) {
    if (!drawShore(stroke, file, header)) return warnWithText(stroke.s, 119, "Read error");
  }
}

void drawText(MapStroke& stroke, std::FILE* file) {
  TextMapReader reader{file};
  MapPoint p;
  while (!stopRequested() && nextTextPoint(reader, p)) strokeTo(stroke, p.lon, p.lat, p.move);
}

void drawDatabase(PlotState* s) {
  const int base = s->mapData.mapBase;
  const bool text = base == kMapUserFile && s->mapData.userFormat == kMapFormatText;
  const MapCopies copies = mapCopies(s);
  mapClipOn(s);
  for (int i = 0; i < copies.count && !stopRequested(); i++) {
    std::FILE* file = openMapFile(s, base == kMapUserFile ? static_cast<int>(kFileUser) : kFileShores + base - 1);
    if (!file) break;
    MapStroke stroke{s, copies.items[i]};
    if (text) {
      drawText(stroke, file);
    } else {
      drawShores(stroke, file);
    }
    std::fclose(file);
  }
  mapClipOff(s);
}

} // namespace

void WORLD(void) {
  PlotState* s = strictCheck(2, 3, "world");
  if (!s) return;
  const MapDataGroup& m = s->mapData;
  if (m.worldLines == kWorldBorders) return drawLowLines(s, kFileBorders);
  if (m.mapBase == kMapUserFile && m.userFormat == kMapFormatNone) {
    return warnWithText(s, 118, "No call to MAPFIL before");
  }
  if (m.mapBase == kMapLow) {
    outlineCoasts(s);
  } else {
    drawDatabase(s);
  }
  if (m.worldLines == kWorldBoth) drawLowLines(s, kFileBorders);
}

void MAP(const char* zone, const char* lines) {
  // By zone: all, Asia, Australia, Europe, North America, South America, Africa, Antarctica.
  constexpr int kZones = 8, kAsia = 1, kCoasts = 1, kBorders = 2, kFirstCoasts = 3, kLastCoasts = 9;
  constexpr int kFirstBorders = 10, kLastBorders = 15, kAsianBorders = 2;
  constexpr int kBordersOf[kZones] = {0, kAsianBorders, 10, 11, 12, 14, 13, 9};
  PlotState* s = strictCheck(2, 3, "map");
  if (!s) return;
  const int found = matchKeyword(s, "ALL +ASIA+AUST+EURO+NORT+SOUT+AFRI+ANTA", kZones, zone) - 1;
  const int kind = matchKeyword(s, "COAS+POLI+ALL ", 3, lines);
  if (found < 0 || !kind) return;
  if (kind != kBorders) {
    const int first = found == 0 ? kFirstCoasts : found + 2, last = found == 0 ? kLastCoasts : found + 2;
    for (int id = first; id <= last; id++) drawLowLines(s, id);
  }
  if (kind == kCoasts || (found == kAsia && kind != kBorders)) return;
  const int first = found == 0 ? kFirstBorders : kBordersOf[found], last = found == 0 ? kLastBorders : first;
  for (int id = first; id <= last; id++) drawLowLines(s, id);
}
