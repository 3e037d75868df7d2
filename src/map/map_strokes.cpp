#include "map/map_strokes.h"

#include "core/pipeline.h"
#include "graph2d/scaling.h"
#include "map/map_lines.h"

namespace quilla {

void strokeTo(MapStroke& m, float lon, float lat, bool move) {
  const float x = lon + m.copy.shift, y = lat * m.copy.factor + m.copy.offset;
  if (isWorld(openMapCode(m.s)) && !isOnMap(m.s, x, y)) {
    m.broken = true;
    return;
  }
  if (move || m.broken) {
    mapMove(m.s, x, y);
  } else {
    mapDraw(m.s, x, y);
  }
  m.broken = false;
  m.lastLon = x;
}

void mapClipOn(PlotState* s) {
  if (!isWorld(openMapCode(s))) axisClipOn(s);
}

void mapClipOff(PlotState* s) {
  flushPath(s);
  if (!isWorld(openMapCode(s))) axisClipOff(s);
}

} // namespace quilla
