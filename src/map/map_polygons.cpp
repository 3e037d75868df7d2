#include "map/map_polygons.h"

#include "core/messages.h"

namespace quilla {

namespace {

constexpr int kMostKeyword = 16, kCountryCodes = 8000;

void takeTag(LowPolygon& p, int code) {
  if (code <= kCodeCountry && code > kCodeCountry - kCountryCodes) p.country = kCodeCountry - code;
  if (code <= kCodeKeyword && code >= kCodeKeyword - kMostKeyword) p.keyword = kCodeKeyword - code;
}

} // namespace

bool nextLowPolygon(PlotState* s, LowPolygonReader& r, LowPolygon& p) {
  for (;;) {
    p.n = 0;
    p.keyword = -1;
    p.country = 0;
    bool overflow = false;
    while (r.hasPending || nextLowPoint(r.points, r.pending)) {
      if (!r.hasPending && r.pending.move && p.n > 0) {
        r.hasPending = true;
        break;
      }
      r.hasPending = false;
      overflow = overflow || p.n == kPolygonPoints;
      if (overflow) continue;
      takeTag(p, r.pending.code);
      p.lon[p.n] = r.pending.lon;
      p.lat[p.n] = r.pending.lat;
      p.code[p.n++] = r.pending.code;
    }
    if (!overflow) return p.n > 0;
    warnWithText(s, 114, "Internal error: Overflow of map coordinates");
  }
}

} // namespace quilla
