// Pictures of true colours as pictures of at most 256: an octree over the colours, merged where it grows too large.
#pragma once

#include "raster/encoders.h"

namespace quilla {

struct Octree;

// Rows of entries of a palette, whatever the canvas holds.
struct IndexedRows {
  PixelSource source;
  Octree* tree = nullptr; // owned; null on an indexed canvas
  Rgb palette[kPaletteSize] = {};
  int paletteCount = kPaletteSize;
};

// False without memory for the octree.
bool openIndexedRows(IndexedRows& rows, const PixelSource& source);
void closeIndexedRows(IndexedRows& rows);
// Row y of the box, from 0: in the canvas itself, or made in the buffer of a row.
const unsigned char* indexedRow(IndexedRows& rows, int y, unsigned char* buffer);

} // namespace quilla
