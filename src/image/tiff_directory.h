// The first directory of a TIFF file.
#pragma once

#include "image/image.h"

namespace quilla {

enum TiffCompression : unsigned { kTiffPlain = 1, kTiffLzw = 5, kTiffPackBits = 32773 };
enum TiffPhotometric : unsigned { kTiffWhiteIsZero = 0, kTiffBlackIsZero = 1, kTiffRgb = 2, kTiffPalette = 3 };

inline constexpr unsigned kTiffPaletteSize = 256;
inline constexpr unsigned kTiffManySamples = 5; // of the special kind

// Values of a tag that stand in the file: offsets of strips, their sizes.
struct TiffList {
  unsigned count = 0;
  unsigned type = 0;
  std::size_t place = 0;
};

struct TiffDirectory {
  FileBytes file;
  bool little = true;
  unsigned width = 0, height = 0;
  unsigned bits = 1, samples = 1; // of a sample, of a pixel
  unsigned compression = kTiffPlain, photometric = kTiffWhiteIsZero;
  bool floating = false;
  bool predictor = false;
  unsigned segmentWidth = 0, segmentHeight = 0; // of a strip or a tile
  bool tiled = false;
  TiffList offsets, sizes; // of strips or tiles
  unsigned paletteCount = 0;
  unsigned char palette[kTiffPaletteSize][kColorBytes] = {};
};

unsigned tiffWord(const TiffDirectory& d, const unsigned char* p);
unsigned tiffLong(const TiffDirectory& d, const unsigned char* p);
// Value i of a list whose bytes are known to be in the file.
unsigned tiffListValue(const TiffDirectory& d, const TiffList& list, unsigned i);

// kImageNotSupported for a feature outside the list, kImageBadFormat for a directory that is none. With mere head true
// only what the kind and the size need is looked at, and nothing is refused.
ImageStatus readTiffDirectory(FileBytes file, bool mereHead, TiffDirectory& d);

// Five samples a pixel, grey and not packed: data rather than a picture.
bool isTiffSpecial(const TiffDirectory& d);

} // namespace quilla
