// Settings of projections and maps.
#include <cmath>
#include <numbers>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr float kPoleLonLimit = 180.1F, kLatLimit = 90.1F, kEquatorSlack = 0.1F, kLargestReach = 90.0F;
constexpr const char* kOffOn = "STAN+AUTO";

constexpr const char* kProjections = "CYLI+MERC+EXAC+CORR+UTM +OBLI+EQUA+MOLL+AITO+HAMM+WINK+SANS+ELLI+CONF+ALBE+POLY+"
                                     "CONI+GNOM+ORTH+STER+AZIM+LAMB+MYPR";
constexpr int kCodes[] = {kProjPlain,
                          kProjMercator,
                          kProjExact,
                          kProjCorrected,
                          kProjUtm,
                          kProjOblique,
                          kProjEqualArea,
                          kProjMollweide,
                          kProjAitoff,
                          kProjHammer,
                          kProjWinkel,
                          kProjSanson,
                          kProjElliptical,
                          kProjConformal,
                          kProjAlbers,
                          kProjPolyconic,
                          kProjConicEquidistant,
                          kProjGnomonic,
                          kProjOrthographic,
                          kProjStereographic,
                          kProjAzimuthalEquidistant,
                          kProjLambertAzimuthal,
                          kProjUser};
constexpr int kProjectionCount = 23;
static_assert(sizeof kCodes / sizeof kCodes[0] == kProjectionCount);

} // namespace

void PROJCT(const char* projection) {
  PlotState* s = strictCheck(1, 1, "projct");
  if (!s) return;
  if (const int found = matchKeyword(s, kProjections, kProjectionCount, projection)) {
    s->projection.projectionCode = kCodes[found - 1];
  }
}

void MAPPOL(float lon, float lat) {
  PlotState* s = strictCheck(1, 1, "mappol");
  if (!s) return;
  if (!(std::fabs(lon) <= kPoleLonLimit && std::fabs(lat) <= kLatLimit)) return warnPlain(s, 2);
  s->projection.poleLon = lon;
  s->projection.poleLat = lat;
}

void MAPREF(float lower, float upper) {
  PlotState* s = strictCheck(1, 1, "mapref");
  if (!s) return;
  const bool acrossEquator = lower < -kEquatorSlack && upper > kEquatorSlack;
  if (!(std::fabs(lower) <= kLatLimit && std::fabs(upper) <= kLatLimit) || acrossEquator) return warnPlain(s, 2);
  s->projection.lowerReference = lower;
  s->projection.upperReference = upper;
  s->projection.referencesGiven = true;
}

void MAPSPH(float angle) {
  PlotState* s = strictCheck(1, 1, "mapsph");
  if (!s) return;
  if (!(angle > 0.0F && angle <= kLargestReach)) return warnPlain(s, 2);
  s->projection.maximumAngle = static_cast<float>(static_cast<double>(angle) * std::numbers::pi / 180.0);
}

void MAPMOD(const char* mode) {
  PlotState* s = setterCheck("mapmod");
  if (!s) return;
  if (const int found = matchKeyword(s, "STRA+INTE+GREA", 3, mode)) s->projection.mapLineMode = found - 1;
}

void MAPOPT(const char* value, const char* key) {
  PlotState* s = setterCheck("mapopt");
  if (!s) return;
  constexpr int kAxis = 1, kWorld = 2;
  const int setting = matchKeyword(s, "XAXI+WORL", 2, key);
  if (setting == kAxis) {
    if (const int found = matchKeyword(s, kOffOn, 2, value)) s->projection.mapAxisAuto = found == 2;
  } else if (setting == kWorld) {
    if (const int found = matchKeyword(s, "COAS+BORD+BOTH", 3, value)) s->mapData.worldLines = found - 1;
  }
}

void MAPLAB(const char* value, const char* key) {
  PlotState* s = setterCheck("maplab");
  if (!s) return;
  const int found = matchKeyword(s, "NONE+LEFT+RIGH+BOTH", 4, value);
  if (found && matchKeyword(s, "LATI", 1, key)) s->projection.latitudeLabels = found - 1;
}

void MAPBAS(const char* database) {
  PlotState* s = setterCheck("mapbas");
  if (!s) return;
  if (const int found = matchKeyword(s, "QUIL+GSHL+GSHI+GSHH+GSHF+MAPF", 6, database)) s->mapData.mapBase = found - 1;
}

void MAPFIL(const char* name, const char* format) {
  PlotState* s = setterCheck("mapfil");
  if (!s) return;
  const int found = matchKeyword(s, "GSHH+MAPG", 2, format);
  if (!found) return;
  copyText(s->mapData.userFile, name, kMapFileLength);
  s->mapData.userFormat = found;
}

void MAPLEV(const char* levels) {
  PlotState* s = setterCheck("maplev");
  if (!s) return;
  constexpr int kBoth = 4;
  const int found = matchKeyword(s, "ALL +LAND+LAKE+BOTH+RIVE", 5, levels);
  if (found) s->mapData.mapLevels = found == kBoth ? kMapLevelsAll : found - 1;
}

void MAPDIR(const char* directory) {
  if (PlotState* s = setterCheck("mapdir")) copyText(s->mapData.mapDirectory, directory, kMapFileLength);
}

void SETCBK(void (*routine)(float* x, float* y), const char* key) {
  PlotState* s = strictCheck(0, 3, "setcbk");
  if (s && matchKeyword(s, "MYPR", 1, key)) s->projectionSetup.userProjection = routine;
}
