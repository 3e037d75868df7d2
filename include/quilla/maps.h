/* Maps. What levels and units mean is told in quilla.h. */
#ifndef QUILLA_MAPS_H
#define QUILLA_MAPS_H

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Maps ------------------------------------------------------------------------------------------------------ */

/* Longitudes and latitudes are degrees, to the east and to the north. In a map axis system they are the user values of
 * all routines. */
void PROJCT(
    const char* projection); /* 1: "CYLI" (none), "MERC", "EQUA", "AITO", "HAMM", "WINK", "SANS", "CONF",
                                "ALBE", "CONI", "GNOM", "ORTH", "STER", "AZIM", "LAMB", "MYPR", ...; default "CYLI" */
/* 1: opens a map axis system between two longitudes and two latitudes, with its labels at xor + i * xstp and yor + i *
 * ystp. An azimuthal projection shows the whole sphere as a circle if the latitudes span more than 90. Limits that do
 * not suit the projection give warning 2, falling ones 52. */
void GRAFMP(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp);
void GRIDMP(int perLonStep, int perLatStep);            /* 2, 3: lines of longitudes and latitudes per label step */
void CURVMP(const float* lon, const float* lat, int n); /* 2, 3: as CURVE, with lines as MAPMOD tells; POLCRV must be
                                                           "LINE", else warning 14 */
void MAPMOD(const char* mode);         /* setter: map lines "STRA", "INTE" (a point a degree), "GREA"; default "INTE" */
void MAPPOL(float lon, float lat);     /* 1: centre of azimuthal maps of the whole sphere; default 0, 0 */
void MAPREF(float lower, float upper); /* 1: standard parallels of conics; default a quarter inside the limits */
void MAPSPH(float angle);              /* 1: reach of azimuthal maps around the centre, up to 90; default 90 */
void MAPOPT(const char* value, const char* key); /* setter: "STAN", "AUTO" for "XAXI": the X axis as long as the map;
                                                    "COAS", "BORD", "BOTH" for "WORL"; default "STAN", "COAS" */
void MAPLAB(const char* value, const char* key); /* setter: latitudes beside world maps "NONE", "LEFT", "RIGH", "BOTH"
                                                    for "LATI"; default "NONE" */
/* 2, 3: axes at the open map, of the length of its own; it 0: labels below or to the right, 1: above or to the left */
void XAXMAP(float a, float b, float first, float step, const char* name, int it, int ny);
void YAXMAP(float a, float b, float first, float step, const char* name, int it, int nx);
/* any: the routine of "MYPR", which turns degrees into distances from the lower left corner in plot units, in place;
 * null: degrees are such distances. key "MYPR" */
void SETCBK(void (*routine)(float* x, float* y), const char* key);
void POS2PT(float x, float y, float* xp, float* yp); /* 2, 3: plot coordinates of a user point of any axis system */
void PT2POS(float xp, float yp, float* x, float* y); /* 2, 3: the inverse; off a map a place on its edge */
void MAPBAS(const char* database); /* setter: "QUIL", "GSHL", "GSHI", "GSHH", "GSHF", "MAPF"; default "QUIL" */
void MAPFIL(const char* name, const char* format); /* setter: file of "MAPF", format "GSHH" or "MAPG" (text) */
void MAPLEV(const char* levels);                   /* setter: "ALL", "LAND", "LAKE", "BOTH", "RIVE"; default "ALL" */
void MAPDIR(const char* directory);                /* setter: directory of map files; default that of the library */

void WORLD(void); /* 2, 3: coasts and, as MAPOPT tells, borders; warning 118 for "MAPF" without a file */
void MAP(const char* zone, const char* lines); /* 2, 3: "ALL", "ASIA", "AUST", "EURO", "NORT", "SOUT", "AFRI", "ANTA";
                                                  "COAS", "POLI" (borders), "ALL" */
/* 2, 3: fills with the current pattern: "ALL" land, "ANTA", "AFRI", "EURA" or "EURO", "AUST", "NORT", "SOUT", "LAKE",
 * "LAND" without its lakes, "SEA"; land and sea of the shorelines: "GSHL", "GSHI", "GSHH", "LSEA", "ISEA", "HSEA" */
void SHDMAP(const char* area);
/* 2, 3: fill n countries of a continent, or states of the USA, each with a pattern and a colour; docs/map_countries.md
 * lists their numbers */
void SHDAFR(const int* numbers, const int* patterns, const int* colors, int n);
void SHDASI(const int* numbers, const int* patterns, const int* colors, int n);
void SHDAUS(const int* numbers, const int* patterns, const int* colors, int n);
void SHDEUR(const int* numbers, const int* patterns, const int* colors, int n);
void SHDNOR(const int* numbers, const int* patterns, const int* colors, int n);
void SHDSOU(const int* numbers, const int* patterns, const int* colors, int n);
void SHDUSA(const int* numbers, const int* patterns, const int* colors, int n);

#ifdef __cplusplus
}
#endif

#endif
