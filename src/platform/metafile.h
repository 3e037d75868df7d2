// Metafiles of the Windows kind, WMF and EMF, as operations on an open file. They write the published record formats
// themselves, so that they work on every system. Coordinates are whole device units, origin at the upper left; a WMF
// record holds 16 bits of each.
#pragma once

namespace quilla {

struct Metafile;

// The header that may stand before a WMF file and tells its size.
struct PlaceableHeader {
  int width, height;
  int unitsPerInch;
};

struct MetafilePoint {
  int x, y;
};

inline constexpr int kMapAnisotropic = 8;
inline constexpr int kNoMetafileObject = -1;

// Open the file; null if that fails. The placeable header may be null.
Metafile* createMetafile(const char* fileName, const PlaceableHeader* placeable);
Metafile* createEnhancedMetafile(const char* fileName, const char* description);

void metafileMapMode(Metafile& m, int mode);
void metafileWindowOrigin(Metafile& m, int x, int y);
void metafileWindowExtent(Metafile& m, int width, int height);

// Objects are known by a number from 0; kNoMetafileObject when there is no room for another.
int metafilePen(Metafile& m, int width, int r, int g, int b); // solid
int metafileBrush(Metafile& m, int r, int g, int b);          // solid
void metafileSelect(Metafile& m, int object);
void metafileDelete(Metafile& m, int object);

void metafileTextColor(Metafile& m, int r, int g, int b);
void metafileMoveTo(Metafile& m, int x, int y);
void metafileLineTo(Metafile& m, int x, int y);
// Filled with the selected brush, outlined with the selected pen.
void metafilePolygon(Metafile& m, const MetafilePoint* points, int n);
// Filled with the selected brush; right and bottom lie outside.
void metafileRectangle(Metafile& m, int left, int top, int right, int bottom);

// Hands what is buffered to the system.
void metafileFlush(Metafile& m);
// Ends and frees the metafile; false if it could not be written.
bool closeMetafile(Metafile* m);

} // namespace quilla
