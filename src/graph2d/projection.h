// Mathematics of map projections. Angles are degrees where a name says lon or lat, else radians; results are projection
// units, x to the right and y upwards.
#pragma once

#include "graph2d/projection_group.h"

namespace quilla {

struct MapPlane {
  double x, y;
};

// Point of a projection of the cylindrical, world, conical or azimuthal group; of the plain one the degrees.
MapPlane projectPoint(const Projection& p, double lon, double lat);

// Degrees at a point of the plane; of a point off the map those of a place on its edge.
struct MapDegrees {
  double lon, lat;
};
MapDegrees unprojectPoint(const Projection& p, const MapPlane& at);

// Constants of a conic projection with standard parallels at two colatitudes, which may be equal.
ConicConstants conicConstants(double colatitude1, double colatitude2);

// Radius of a parallel of a conic projection, and the angle that a difference of longitudes becomes.
double conicRadius(const Projection& p, double colatitude);
double conicAngle(const Projection& p, double longitude);

// Colatitude in radians, counted from the south pole by a southern projection.
double colatitudeOf(const Projection& p, double lat);

// A point as an azimuthal projection sees it: distance c from the centre on the sphere, and direction on the map,
// anticlockwise from the right.
struct SpherePolar {
  double distance, direction;
};
SpherePolar polarAbout(const Projection& p, double lon, double lat);
MapPlane azimuthalPoint(int code, const SpherePolar& point);

// Distance from the centre on the sphere, by that on the map.
double azimuthalDistance(int code, double radius);

} // namespace quilla
