// A list of points that grows: a polygon in degrees or plot coordinates.
#pragma once

namespace quilla {

struct MapRing {
  float *x = nullptr, *y = nullptr;
  int n = 0, room = 0;
  bool failed = false; // no memory for all points

  MapRing() = default;
  ~MapRing();
  MapRing(const MapRing&) = delete;
  MapRing& operator=(const MapRing&) = delete;

  bool reserve(int points);
  void add(float px, float py) {
    if (n < room || reserve(n < 64 ? 128 : n + n / 2)) {
      x[n] = px;
      y[n++] = py;
    }
  }
};

// What of a ring lies at or above a limit of x or y, or below it. Parts hang together along the limit.
enum class RingAxis { kX, kY };
void cutRing(const MapRing& ring, RingAxis axis, float limit, bool above, MapRing& part);

// The ring inside a rectangle.
struct MapWindow {
  float x0, y0, x1, y1;
};
void cutRingAtWindow(MapRing& ring, const MapWindow& window);

// Twice the signed area; positive if the ring runs anticlockwise with y upwards.
double ringArea(const MapRing& ring);
void reverseRing(MapRing& ring);
bool ringHolds(const MapRing& ring, float x, float y);

void swapRings(MapRing& a, MapRing& b);

} // namespace quilla
