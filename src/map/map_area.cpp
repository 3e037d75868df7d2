#include "map/map_area.h"

#include <algorithm>

namespace quilla {

namespace {

constexpr int kBands = 1024;

// A stroke in the list of a band of heights: its first point, and the next entry.
struct BandEntry {
  int point, next;
};

// The growing polygon as a list of points, each with its next one, and its strokes by their height.
struct Joint {
  MapRing points;
  MapList<int> next;
  MapList<BandEntry> entries;
  int heads[kBands];
  float low = 0.0F, scale = 0.0F;
};

int bandOf(const Joint& j, float y) {
  const float band = (y - j.low) * j.scale;
  return band < 0.0F ? 0 : band >= kBands ? kBands - 1 : static_cast<int>(band);
}

int addPoint(Joint& j, float x, float y, int next) {
  j.points.add(x, y);
  j.next.add(next);
  return j.points.n - 1;
}

void addStroke(Joint& j, int point, float y0, float y1) {
  const int last = bandOf(j, std::max(y0, y1));
  for (int band = bandOf(j, std::min(y0, y1)); band <= last; band++) {
    j.entries.add({point, j.heads[band]});
    j.heads[band] = j.entries.n - 1;
  }
}

bool failed(const Joint& j) { return j.points.failed || j.next.failed || j.entries.failed; }

struct Hit {
  int point; // of the stroke, or -1
  float x;
};

// The nearest stroke to the left of a point. The end of a stroke is the point that followed it first.
Hit strokeLeftOf(const Joint& j, const MapList<int>& ends, float x, float y) {
  Hit hit{-1, 0.0F};
  for (int e = j.heads[bandOf(j, y)]; e >= 0; e = j.entries.items[e].next) {
    const int a = j.entries.items[e].point, b = ends.items[a];
    const float ya = j.points.y[a], yb = j.points.y[b];
    if ((ya > y) == (yb > y)) continue;
    const float at = j.points.x[a] + (y - ya) / (yb - ya) * (j.points.x[b] - j.points.x[a]);
    if (at <= x && (hit.point < 0 || at > hit.x)) hit = {a, at};
  }
  return hit;
}

// Points and strokes of a ring, whose first point closes it; the index of the first.
int takeRing(Joint& j, MapList<int>& ends, const float* x, const float* y, int n) {
  const int first = j.points.n;
  for (int i = 0; i < n; i++) {
    const int next = first + (i + 1 < n ? i + 1 : 0);
    addPoint(j, x[i], y[i], next);
    ends.add(next);
  }
  if (failed(j) || ends.failed) return first;
  for (int i = 0; i < n; i++) addStroke(j, first + i, y[i], y[i + 1 < n ? i + 1 : 0]);
  return first;
}

// From the stroke behind a point over the bridge, which begins at (x, y), round the ring from its leftmost point, and
// back.
void hangRing(Joint& j, MapList<int>& ends, int point, float x, float y, int leftmost, int before) {
  const int follower = j.next.items[point];
  const int back = addPoint(j, x, y, follower), close = addPoint(j, j.points.x[leftmost], j.points.y[leftmost], back);
  const int bridge = addPoint(j, x, y, leftmost);
  for (int k = 0; k < 3; k++) ends.add(0); // bridges are no strokes
  if (failed(j) || ends.failed) return;
  j.next.items[before] = close;
  j.next.items[point] = bridge;
}

struct RingPlace {
  int ring;
  float left;
  int leftmost; // point of the area
};

int ringEnd(const RingArea& area, int ring) {
  return ring + 1 < area.starts.n ? area.starts.items[ring + 1] : area.points.n;
}

RingPlace placeOf(const RingArea& area, int ring) {
  const int first = area.starts.items[ring], end = ringEnd(area, ring);
  int best = first;
  for (int i = first; i < end; i++) {
    if (area.points.x[i] < area.points.x[best]) best = i;
  }
  return {ring, area.points.x[best], best};
}

// A line without width far to the left of the page: there is always something to hang on.
void beginJoint(const RingArea& area, Joint& j, MapList<int>& ends) {
  std::fill_n(j.heads, kBands, -1);
  const MapRing& p = area.points;
  float low = p.y[0], high = p.y[0], left = p.x[0];
  for (int i = 1; i < p.n; i++) {
    low = std::min(low, p.y[i]);
    high = std::max(high, p.y[i]);
    left = std::min(left, p.x[i]);
  }
  constexpr float kMargin = 1.0F, kBesidePage = 10000.0F;
  j.low = low - kMargin;
  j.scale = kBands / (high - low + 2.0F * kMargin);
  if (area.enclosed) return;
  const float beside = std::min(left, 0.0F) - kBesidePage;
  const float x[] = {beside, beside}, y[] = {low - kMargin, high + kMargin};
  takeRing(j, ends, x, y, 2);
}

bool hangAll(const RingArea& area, const MapList<RingPlace>& places, Joint& j, MapList<int>& ends) {
  for (int k = 0; k < places.n; k++) {
    const RingPlace& place = places.items[k];
    const int start = area.starts.items[place.ring], n = ringEnd(area, place.ring) - start;
    const Hit hit = strokeLeftOf(j, ends, place.left, area.points.y[place.leftmost]);
    const int first = takeRing(j, ends, area.points.x + start, area.points.y + start, n);
    if (failed(j) || ends.failed) return false;
    if (first == 0) continue; // the ring that holds all others
    const int leftmost = place.leftmost - start;
    const int before = first + (leftmost + n - 1) % n;
    if (hit.point < 0) { // level with the end of all strokes
      hangRing(j, ends, 0, j.points.x[0], j.points.y[0], first + leftmost, before);
    } else {
      hangRing(j, ends, hit.point, hit.x, j.points.y[first + leftmost], first + leftmost, before);
    }
    if (failed(j) || ends.failed) return false;
  }
  return true;
}

} // namespace

void addRing(RingArea& area, const MapRing& ring) {
  area.starts.add(area.points.n);
  for (int i = 0; i < ring.n; i++) area.points.add(ring.x[i], ring.y[i]);
}

bool joinRings(const RingArea& area, MapRing& polygon) {
  polygon.n = 0;
  if (area.points.failed || area.starts.failed) return false;
  if (area.starts.n == 0) return true;
  MapList<RingPlace> places;
  for (int ring = 0; ring < area.starts.n; ring++) places.add(placeOf(area, ring));
  if (places.failed) return false;
  std::sort(places.items, places.items + places.n, [](const RingPlace& a, const RingPlace& b) {
    return a.left != b.left ? a.left < b.left : a.ring < b.ring;
  });
  Joint j;
  MapList<int> ends;
  beginJoint(area, j, ends);
  if (failed(j) || ends.failed || !hangAll(area, places, j, ends)) return false;
  int point = 0;
  do {
    polygon.add(j.points.x[point], j.points.y[point]);
    point = j.next.items[point];
  } while (point != 0);
  return !polygon.failed;
}

} // namespace quilla
