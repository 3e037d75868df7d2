#include "map/map_shading.h"

#include <cmath>
#include <memory>
#include <new>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/shading.h"
#include "core/stop_request.h"
#include "map/map_fill.h"
#include "map/map_polygons.h"
#include "map/map_strokes.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

constexpr int kAreaRings = 500, kAreaPoints = 25000;

// Calls an action with each polygon of a low-resolution file on each of the copies; the file is read again for each.
template <class Action> void eachLowPolygon(PlotState* s, int file, const MapCopies& copies, Action action) {
  const std::unique_ptr<LowPolygon> polygon(new (std::nothrow) LowPolygon);
  if (!polygon) return warnPlain(s, 53);
  for (int i = 0; i < copies.count && !stopRequested(); i++) {
    LowPolygonReader reader{{openMapFile(s, file)}};
    if (!reader.points.file) return;
    while (!stopRequested() && nextLowPolygon(s, reader, *polygon)) action(*polygon, copies.items[i]);
    std::fclose(reader.points.file);
  }
}

bool belongsTo(const LowPolygon& p, int area) {
  const bool lake = p.keyword == kAreaLakes;
  if (area == kAreaLand) return true; // lakes are cut out of it
  if (area == kAreaAll || area == kAreaSea) return !lake;
  return p.keyword == area;
}

// Collects what an action paints, within the edge of the map for the sea, and fills it. Where copies of the world stand
// side by side, each is an area of its own.
template <class Paint> void shadeArea(PlotState* s, bool sea, int mostRings, int mostPoints, Paint paint) {
  const MapCopies copies = mapCopies(s);
  const bool apart = openMapCode(s) < kProjMollweide;
  for (int i = 0; i < (apart ? copies.count : 1) && !stopRequested(); i++) {
    RingArea rings;
    MapPainter painter{s, &rings, mostRings, mostPoints};
    const MapWindow window = copyWindow(s, copies.items[i]);
    if (apart && (window.x0 >= window.x1 || window.y0 >= window.y1)) continue; // beside the axis system
    if (apart) painter.window = &window;
    if (sea) beginWithMapEdge(painter);
    paint(painter, apart ? MapCopies{{copies.items[i]}, 1} : copies);
    fillArea(painter);
  }
}

void shadeLow(PlotState* s, int area) {
  const auto paint = [s, area](MapPainter& painter, const MapCopies& copies) {
    eachLowPolygon(s, kFilePolygons, copies, [&](const LowPolygon& p, const MapCopy& copy) {
      if (belongsTo(p, area)) paintOnMap(painter, p.lon, p.lat, p.n, copy);
    });
  };
  if (area == kAreaLand || area == kAreaSea) return shadeArea(s, area == kAreaSea, kAreaRings, kAreaPoints, paint);
  MapPainter painter{s};
  paint(painter, mapCopies(s));
}

// ---- Databases of shorelines ----

enum class ShoreRead { kFine, kShort, kNoMemory };

// The points of a polygon with continuous longitudes; a polygon round the south pole is closed there.
ShoreRead readShore(std::FILE* file, int count, MapRing& ring) {
  constexpr float kHalf = 180.0F, kPole = -90.0F;
  ring.n = 0;
  float turn = 0.0F, last = 0.0F;
  for (int i = 0; i < count; i++) {
    MapPoint p;
    if (!nextShorePoint(file, p)) return ShoreRead::kShort;
    if (i > 0 && p.lon - last > kHalf) turn -= 2.0F * kHalf;
    if (i > 0 && p.lon - last < -kHalf) turn += 2.0F * kHalf;
    last = p.lon;
    ring.add(p.lon + turn, p.lat);
  }
  if (ring.n > 1 && std::fabs(ring.x[ring.n - 1] - ring.x[0]) > kHalf) {
    const float first = ring.x[0];
    ring.add(ring.x[ring.n - 1], kPole);
    ring.add(first, kPole);
  }
  return ring.failed ? ShoreRead::kNoMemory : ShoreRead::kFine;
}

// The polygon is cut at the date line, so that a copy of the map holds each of its parts once.
void paintShore(MapPainter& painter, const MapRing& ring, const MapCopy& copy) {
  constexpr float kHalf = 180.0F;
  float low = ring.x[0], high = ring.x[0];
  for (int i = 1; i < ring.n; i++) {
    low = std::fmin(low, ring.x[i]);
    high = std::fmax(high, ring.x[i]);
  }
  for (float shift : {-4.0F * kHalf, -2.0F * kHalf, 0.0F, 2.0F * kHalf, 4.0F * kHalf}) {
    if (low + shift > kHalf || high + shift < -kHalf) continue;
    MapRing part;
    for (int i = 0; i < ring.n; i++) part.add(ring.x[i] + shift, ring.y[i]);
    cutRingAtWindow(part, {-kHalf, -90.0F, kHalf, 90.0F});
    if (part.n >= 3 || part.failed) paintOnMap(painter, part.x, part.y, part.n, copy);
  }
}

// False if there is no memory.
bool paintShores(MapPainter& painter, std::FILE* file, int level, const MapCopy& copy) {
  MapRing shore;
  ShoreHeader header;
  while (!stopRequested() && nextShore(file, header) == ShoreStatus::kPolygon) {
    const ShoreRead status = readShore(file, header.count, shore);
    if (status == ShoreRead::kNoMemory) return false;
    if (status == ShoreRead::kShort) {
      warnWithText(painter.s, 119, "Read error");
      return true;
    }
    if (header.level == level && shore.n >= 3) paintShore(painter, shore, copy);
  }
  return true;
}

void shadeShores(PlotState* s, int area) {
  const bool sea = area >= kAreaShoresSeaLow;
  const int file = kFileShores + (sea ? area - kAreaShoresSeaLow : area - kAreaShoresLow);
  const int levels = s->mapData.mapLevels, level = levels == kMapLevelsLake && !sea ? 2 : 1;
  const auto paint = [=](MapPainter& painter, const MapCopies& copies) {
    for (int i = 0; i < copies.count && !stopRequested(); i++) {
      s->mapData.mapLevels = kMapLevelsAll; // rivers have no area
      std::FILE* stream = openMapFile(s, file);
      s->mapData.mapLevels = levels;
      if (!stream) return;
      const bool fine = paintShores(painter, stream, level, copies.items[i]);
      std::fclose(stream);
      if (!fine) return warnPlain(s, 53);
    }
  };
  if (sea) return shadeArea(s, true, 0, 0, paint);
  MapPainter painter{s};
  paint(painter, mapCopies(s));
}

// ---- Countries ----

struct CountryList {
  const int *numbers, *patterns, *colors;
  int n;
};

// Fills the countries of a family, each with its pattern and colour. A number that the family does not have fills
// nothing.
void shadeCountries(const char* routine, int family, const CountryList& list) {
  constexpr int kFamily = 1000, kStates = 7;
  PlotState* s = strictCheck(2, 3, routine);
  if (!s || checkRange(s, list.n, 1, -1)) return;
  const ShadingGroup keptShading = s->shading;
  const int keptColor = s->color.currentColor;
  MapPainter painter{s};
  eachLowPolygon(s, family == kStates ? kFileStates : kFileCountries, mapCopies(s),
                 [&](const LowPolygon& p, const MapCopy& copy) {
                   if (p.country / kFamily != family) return;
                   for (int i = 0; i < list.n; i++) {
                     if (list.numbers[i] != p.country % kFamily) continue;
                     if (list.patterns[i] >= 0) selectPattern(s, list.patterns[i]);
                     if (s->color.currentColor != list.colors[i]) setColor(s, list.colors[i]);
                     return paintOnMap(painter, p.lon, p.lat, p.n, copy);
                   }
                 });
  s->shading = keptShading;
  if (s->color.currentColor != keptColor) setColor(s, keptColor);
}

} // namespace

void outlineCoasts(PlotState* s) {
  const int levels = s->mapData.mapLevels;
  mapClipOn(s);
  eachLowPolygon(s, kFilePolygons, mapCopies(s), [&](const LowPolygon& p, const MapCopy& copy) {
    const bool lake = p.keyword == kAreaLakes;
    if ((levels == kMapLevelsLand && lake) || (levels == kMapLevelsLake && !lake)) return;
    MapStroke stroke{s, copy};
    for (int i = 0; i < p.n; i++) strokeTo(stroke, p.lon[i], p.lat[i], i == 0 || p.code[i] == kCodeNoCoast);
  });
  mapClipOff(s);
}

} // namespace quilla

using namespace quilla;

void SHDMAP(const char* area) {
  PlotState* s = strictCheck(2, 3, "shdmap");
  if (!s) return;
  constexpr const char* kAreas = "ALL +ANTA+AFRI+EURA+AUST+EURO+NORT+SOUT+LAKE+LAND+SEA +GSHL+GSHI+GSHH+LSEA+ISEA+HSEA";
  const int found = matchKeyword(s, kAreas, kAreaCount, area);
  if (!found) return;
  const int wanted = found - 1 == kAreaEurope ? static_cast<int>(kAreaEurasia) : found - 1;
  if (wanted >= kAreaShoresLow) return shadeShores(s, wanted);
  shadeLow(s, wanted);
}

void SHDAFR(const int* numbers, const int* patterns, const int* colors, int n) {
  shadeCountries("shdafr", 1, {numbers, patterns, colors, n});
}
void SHDASI(const int* numbers, const int* patterns, const int* colors, int n) {
  shadeCountries("shdasi", 2, {numbers, patterns, colors, n});
}
void SHDAUS(const int* numbers, const int* patterns, const int* colors, int n) {
  shadeCountries("shdaus", 3, {numbers, patterns, colors, n});
}
void SHDEUR(const int* numbers, const int* patterns, const int* colors, int n) {
  shadeCountries("shdeur", 4, {numbers, patterns, colors, n});
}
void SHDNOR(const int* numbers, const int* patterns, const int* colors, int n) {
  shadeCountries("shdnor", 5, {numbers, patterns, colors, n});
}
void SHDSOU(const int* numbers, const int* patterns, const int* colors, int n) {
  shadeCountries("shdsou", 6, {numbers, patterns, colors, n});
}
void SHDUSA(const int* numbers, const int* patterns, const int* colors, int n) {
  shadeCountries("shdusa", 7, {numbers, patterns, colors, n});
}
