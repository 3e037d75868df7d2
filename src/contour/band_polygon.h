// The parts of cells and triangles whose values lie between two levels. A value at a level belongs to the band below.
#pragma once

#include "contour/contour_trace.h"

namespace quilla {

// Part of a cell, in user coordinates: of a triangle up to 5 corners, of a cell up to 12.
struct BandPolygon {
  static constexpr int kMost = 16;
  float x[kMost], y[kMost];
  int n = 0;

  void add(float px, float py) {
    if (n == kMost) return;
    x[n] = px;
    y[n++] = py;
  }
  // The point of a level between two nodes of different values.
  void cross(const GridNode& a, const GridNode& b, float level) {
    const Crossing c = a.z > b.z ? crossingOf(a, b, level, true) : crossingOf(b, a, level, true);
    add(c.x, c.y);
  }
};

// Values above low, up to high.
struct Band {
  float low, high;
  int sideOf(float z) const { return z > high ? 1 : z < low ? -1 : 0; }

  // Where the side from a to b comes into the band or leaves it, in this order.
  void addCrossings(BandPolygon& part, const GridNode& a, const GridNode& b) const {
    const int from = sideOf(a.z), to = sideOf(b.z);
    if (from == to) return;
    if (from != 0) part.cross(a, b, from > 0 ? high : low);
    if (to != 0) part.cross(a, b, to > 0 ? high : low);
  }
};

// The part of a triangle; fewer than three corners if there is none.
inline void cutTriangle(const GridNode (&corner)[3], const Band& band, BandPolygon& part) {
  const float least = std::min({corner[0].z, corner[1].z, corner[2].z});
  const float most = std::max({corner[0].z, corner[1].z, corner[2].z});
  if (least < most && !(least < band.high && most > band.low)) return;
  for (int c = 0; c < 3; c++) {
    if (band.sideOf(corner[c].z) == 0) part.add(corner[c].x, corner[c].y);
    band.addCrossings(part, corner[c], corner[(c + 1) % 3]);
  }
}

// A cell is four triangles round its centre: from there to each corner values rise or fall steadily.
struct CutCell {
  GridNode corner[4], center;

  // The part that holds the centre.
  void cutAround(const Band& band, BandPolygon& part) const {
    for (int c = 0; c < 4; c++) {
      const int side = band.sideOf(corner[c].z);
      if (side == 0) {
        part.add(corner[c].x, corner[c].y);
      } else {
        part.cross(center, corner[c], side > 0 ? band.high : band.low);
      }
      band.addCrossings(part, corner[c], corner[(c + 1) % 4]);
    }
  }

  // A part away from the centre, along the corners from the first one that lies beyond the band's nearer level.
  void cutBeyond(int first, float near, float far, bool upwards, BandPolygon& part) const {
    auto beyond = [upwards](const GridNode& p, float level) { return upwards ? p.z > level : p.z < level; };
    const GridNode* before = &corner[(first + 3) % 4];
    part.cross(*before, corner[first], near);
    int last = first;
    for (int k = first; beyond(corner[k % 4], near); k++) {
      const GridNode& p = corner[k % 4];
      if (beyond(*before, far) != beyond(p, far)) part.cross(*before, p, far);
      if (beyond(p, far)) {
        part.cross(center, p, far);
      } else {
        part.add(p.x, p.y);
      }
      before = &p;
      last = k;
    }
    const GridNode& next = corner[(last + 1) % 4];
    if (beyond(*before, far)) part.cross(*before, next, far);
    part.cross(*before, next, near);
    for (int k = last; k >= first; k--) part.cross(center, corner[k % 4], near);
  }

  // Gives all parts of a band to fill.
  template <class Fill> void cut(const Band& band, Fill fill) const {
    if (center.z > band.low && center.z <= band.high) {
      BandPolygon part;
      cutAround(band, part);
      return fill(part);
    }
    const bool upwards = center.z <= band.low;
    const float near = upwards ? band.low : band.high, far = upwards ? band.high : band.low;
    auto beyond = [&](int k) { return upwards ? corner[k].z > near : corner[k].z < near; };
    for (int k = 0; k < 4; k++) {
      if (!beyond(k) || beyond((k + 3) % 4)) continue;
      BandPolygon part;
      cutBeyond(k, near, far, upwards, part);
      fill(part);
    }
  }
};

} // namespace quilla
