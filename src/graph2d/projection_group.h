// Map projections: the settings of PROJCT and its kin, and what an open map axis system keeps.
#pragma once

namespace quilla {

// Codes of PROJCT. The tens are the group, which decides how a map behaves.
enum ProjectionCode : int {
  kProjPlain = 0, // a linear axis system in degrees
  kProjMercator = 1,
  kProjExact = 2,
  kProjCorrected = 3,
  kProjUtm = 4,
  kProjOblique = 5,
  kProjEqualArea = 6,
  kProjMollweide = 10,
  kProjAitoff = 11,
  kProjHammer = 12,
  kProjWinkel = 13,
  kProjSanson = 14,
  kProjElliptical = 15,
  kProjConformal = 20,
  kProjAlbers = 21,
  kProjPolyconic = 22,
  kProjConicEquidistant = 23,
  kProjGnomonic = 30,
  kProjOrthographic = 31,
  kProjStereographic = 32,
  kProjAzimuthalEquidistant = 33,
  kProjLambertAzimuthal = 34,
  kProjUser = 100
};

inline bool isCylindrical(int code) { return code >= 1 && code <= 9; }
inline bool isWorld(int code) { return code >= 10 && code <= 19; }
inline bool isConical(int code) { return code >= 20 && code <= 29; }
inline bool isAzimuthal(int code) { return code >= 30 && code <= 39; }

enum MapLineMode : int { kMapStraight = 0, kMapInterpolated = 1, kMapGreatCircle = 2 };
enum MapLabelSides : int { kMapLabelsNone = 0, kMapLabelsLeft = 1, kMapLabelsRight = 2, kMapLabelsBoth = 3 };

// Radius and angle of a conic projection, by its two standard parallels given as colatitudes in radians.
struct ConicConstants {
  bool oneParallel = false;
  double parallel = 0.0; // the first one
  double c0 = 0.0, c1 = 0.0, c2 = 0.0, c3 = 0.0, c4 = 0.0, c5 = 0.0, c6 = 0.0;
};

// All that a projection needs to turn degrees into projection units.
struct Projection {
  int code = kProjPlain;
  double centerLon = 0.0, centerLat = 0.0; // degrees: the middle meridian; of azimuthal ones the projection centre
  ConicConstants conic;
  double conicCenter = 0.0; // radius of a conic projection that lies in the middle of the map
  bool southern = false;    // a conic projection counts from the south pole
};

using UserProjection = void (*)(float* x, float* y);

// Run lifetime.
struct ProjectionGroup {
  int projectionCode = kProjPlain;
  float poleLon = 0.0F, poleLat = 0.0F; // MAPPOL: centre of azimuthal projections
  float lowerReference = 0.0F, upperReference = 0.0F;
  bool referencesGiven = false;    // MAPREF was called
  float maximumAngle = 1.5707964F; // MAPSPH: reach of azimuthal maps of the whole sphere, radians
  int mapLineMode = kMapInterpolated;
  bool mapAxisAuto = false;            // MAPOPT: the X axis shrinks to the width of the map
  int latitudeLabels = kMapLabelsNone; // MAPLAB: where latitudes of world maps stand
};

// Process lifetime: the callback of SETCBK.
struct ProjectionSetup {
  UserProjection userProjection = nullptr;
};

// Working state of an open map axis system, set by GRAFMP.
struct ProjectionState {
  Projection projection;
  float mapScale = 1.0F; // plot units per projection unit
  float mapOriginX = 0.0F, mapOriginY = 0.0F;
  float plainLon = 0.0F, plainLat = 0.0F;       // without a projection: degrees at the origin
  float plainScaleX = 1.0F, plainScaleY = 1.0F; // and plot units per degree
  float edgeLon = 0.0F, edgeLat = 0.0F;         // lower left corner in degrees
  bool curvedFrame = false;                     // the edge of the map is no rectangle
  bool globe = false;                           // an azimuthal map of the whole sphere, inside a circle
  float globeRadius = 0.0F;                     // of its clip circle
  float lastLon = 0.0F, lastLat = 0.0F;         // where the pen of map lines stands, degrees
};

} // namespace quilla
