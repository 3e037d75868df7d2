// An area of many rings as one polygon.
#pragma once

#include <cstdlib>

#include "map/map_ring.h"

namespace quilla {

// A list of plain values that grows.
template <class T> struct MapList {
  T* items = nullptr;
  int n = 0, room = 0;
  bool failed = false; // no memory for all

  MapList() = default;
  ~MapList() { std::free(items); }
  MapList(const MapList&) = delete;
  MapList& operator=(const MapList&) = delete;

  void add(const T& value) {
    if (n == room && !grow()) return;
    items[n++] = value;
  }

private:
  bool grow() {
    constexpr int kMost = 1 << 28;
    const int wanted = room < 64 ? 128 : room + room / 2;
    void* memory =
        failed || wanted > kMost ? nullptr : std::realloc(items, sizeof(T) * static_cast<std::size_t>(wanted));
    failed = !memory;
    if (!memory) return false;
    items = static_cast<T*>(memory);
    room = wanted;
    return true;
  }
};

struct RingArea {
  MapRing points;
  MapList<int> starts;   // first point of each ring
  bool enclosed = false; // the first ring holds all others
};
void addRing(RingArea& area, const MapRing& ring);

// One polygon of all rings: each hangs on the nearest stroke to its left, by a level bridge that is walked there and
// back. What lies inside an odd number of rings lies inside it. False if there is no memory.
bool joinRings(const RingArea& area, MapRing& polygon);

} // namespace quilla
