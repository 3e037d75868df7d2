// TIFF: strips or tiles, plain or packed, turned into rows of pixels.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "image/tiff_packing.h"

namespace quilla {
namespace {

// A strip or a tile: where it stands in the image and its unpacked rows.
struct Segment {
  unsigned x = 0, y = 0;
  unsigned columns = 0, rows = 0; // that lie in the image
  std::size_t rowBytes = 0;       // of the unpacked rows, the columns outside included
  const unsigned char* bytes = nullptr;
  std::size_t count = 0; // bytes that are there
};

struct TiffReader {
  TiffDirectory d;
  unsigned across = 0, count = 0;  // segments
  std::size_t rowBytes = 0;        // of a segment
  unsigned char* buffer = nullptr; // a segment, unpacked; none is needed for plain ones
  std::size_t budget = 0;          // packed bytes that may still be read
};

unsigned bytesOfSample(const TiffDirectory& d) { return d.bits / 8; }

void startSegments(TiffReader& r) {
  const TiffDirectory& d = r.d;
  r.across = (d.width - 1) / d.segmentWidth + 1;
  r.count = r.across * ((d.height - 1) / d.segmentHeight + 1);
  r.rowBytes = (static_cast<std::size_t>(d.segmentWidth) * d.bits * d.samples + 7) / 8;
  // Strips may share bytes, but not so that a short file takes long.
  constexpr std::size_t kSharing = 16;
  r.budget = kSharing * d.file.size();
}

// Memory of a segment; false if there is none. A segment is no larger than the file can make it.
ImageStatus takeBuffer(TiffReader& r) {
  constexpr std::size_t kFreeBytes = std::size_t{1} << 24, kLimit = std::size_t{1} << 31;
  if (r.d.compression == kTiffPlain) return kImageFine;
  const std::size_t size = r.rowBytes * r.d.segmentHeight;
  if (r.rowBytes > kLimit || size > kLimit) return kImageNoMemory;
  const long long possible = tiffUnpackedLimit(r.d.compression, r.d.file.size());
  if (size > kFreeBytes && static_cast<long long>(size) > possible) return kImageBadFormat;
  r.buffer = static_cast<unsigned char*>(std::malloc(size));
  return r.buffer ? kImageFine : kImageNoMemory;
}

// Differences to the pixel before, of bytes.
void addDifferences(const TiffDirectory& d, Segment& segment, unsigned char* bytes) {
  const std::size_t distance = d.samples;
  for (std::size_t start = 0; start + segment.rowBytes <= segment.count; start += segment.rowBytes) {
    unsigned char* row = bytes + start;
    for (std::size_t i = distance; i < segment.rowBytes; ++i)
      row[i] = static_cast<unsigned char>(row[i] + row[i - distance]);
  }
}

// Segment i, unpacked. After a failure it holds the bytes that are there.
ImageStatus openSegment(TiffReader& r, unsigned i, Segment& segment) {
  const TiffDirectory& d = r.d;
  segment.x = i % r.across * d.segmentWidth;
  segment.y = i / r.across * d.segmentHeight;
  segment.columns = std::min(d.segmentWidth, d.width - segment.x);
  segment.rows = std::min(d.segmentHeight, d.height - segment.y);
  segment.rowBytes = r.rowBytes;
  const std::size_t wanted = r.rowBytes * segment.rows;
  const std::size_t place = tiffListValue(d, d.offsets, i);
  if (place > d.file.size()) return kImageBadFormat;
  const std::size_t told = d.sizes.count > 0 ? tiffListValue(d, d.sizes, i) : wanted;
  const FileBytes packed = d.file.subspan(place, std::min(told, d.file.size() - place));
  if (packed.size() > r.budget) return kImageBadFormat;
  r.budget -= packed.size();
  if (d.compression == kTiffPlain) {
    segment.bytes = packed.data();
    segment.count = std::min(packed.size(), wanted);
    return segment.count == wanted ? kImageFine : kImageBadFormat;
  }
  const std::size_t size = r.rowBytes * d.segmentHeight;
  ImageStatus status = d.compression == kTiffLzw ? unpackTiffLzw(packed, r.buffer, size, segment.count)
                                                 : unpackTiffBits(packed, r.buffer, size, segment.count);
  if (status == kImageFine && segment.count < wanted) status = kImageBadFormat;
  segment.bytes = r.buffer;
  if (d.predictor) addDifferences(d, segment, r.buffer);
  return status;
}

unsigned wholeRows(const Segment& segment) {
  return static_cast<unsigned>(std::min<std::size_t>(segment.count / segment.rowBytes, segment.rows));
}

inline void putGrey(unsigned char* rgb, unsigned value) {
  rgb[0] = rgb[1] = rgb[2] = static_cast<unsigned char>(value);
}

inline unsigned packedSample(const unsigned char* row, unsigned i, unsigned bits) {
  const unsigned bit = i * bits;
  return static_cast<unsigned>(row[bit / 8]) >> (8 - bits - bit % 8) & ((1U << bits) - 1U);
}

// Samples of 1, 2, 4 or 8 bits: the colour of every value is known before.
struct ValueColors {
  unsigned char rgb[256][kColorBytes] = {};
  unsigned count = 0; // values behind it have the colour of 0 and are a fault
};

ValueColors colorsOfValues(const TiffDirectory& d) {
  ValueColors colors;
  const unsigned all = 1U << d.bits;
  if (d.photometric == kTiffPalette) {
    colors.count = std::min(d.paletteCount, all);
    for (unsigned i = 0; i < all; ++i) std::memcpy(colors.rgb[i], d.palette[i < colors.count ? i : 0], kColorBytes);
    return colors;
  }
  colors.count = all;
  for (unsigned i = 0; i < all; ++i) {
    const unsigned grey = i * 255U / (all - 1U);
    putGrey(colors.rgb[i], d.photometric == kTiffWhiteIsZero ? 255U - grey : grey);
  }
  return colors;
}

bool convertValues(const TiffDirectory& d, const ValueColors& colors, const unsigned char* row, unsigned count,
                   unsigned char* rgb) {
  unsigned largest = 0;
  for (unsigned i = 0; i < count; ++i, rgb += kColorBytes) {
    const unsigned value = d.bits == 8 ? row[i] : packedSample(row, i, d.bits);
    const unsigned char* color = colors.rgb[value];
    rgb[0] = color[0];
    rgb[1] = color[1];
    rgb[2] = color[2];
    largest = std::max(largest, value);
  }
  return largest < colors.count;
}

// Grey of 16 bits: the high byte.
void convertGreyWords(const TiffDirectory& d, const unsigned char* row, unsigned count, unsigned char* rgb) {
  const unsigned high = d.little ? 1 : 0;
  const unsigned inverted = d.photometric == kTiffWhiteIsZero ? 255 : 0;
  for (unsigned i = 0; i < count; ++i, rgb += kColorBytes) putGrey(rgb, row[2 * i + high] ^ inverted);
}

// The first three samples of a pixel.
void convertRgb(const TiffDirectory& d, const unsigned char* row, unsigned count, unsigned char* rgb) {
  if (d.bits == 8 && d.samples == kColorBytes) {
    std::memcpy(rgb, row, static_cast<std::size_t>(count) * kColorBytes);
    return;
  }
  const unsigned bytes = bytesOfSample(d), high = bytes == 2 && d.little ? 1 : 0;
  for (unsigned i = 0; i < count; ++i, row += d.samples * bytes, rgb += kColorBytes) {
    for (unsigned c = 0; c < kColorBytes; ++c) rgb[c] = row[c * bytes + high];
  }
}

// Floating grey from its smallest to its largest value.
struct GreyRange {
  float low = 0.0F, high = 0.0F;
  bool found = false;
};

inline float floatAt(const TiffDirectory& d, const unsigned char* p) { return std::bit_cast<float>(tiffLong(d, p)); }

void findRange(TiffReader& r, GreyRange& range) {
  for (unsigned i = 0; i < r.count; ++i) {
    Segment segment;
    openSegment(r, i, segment); // what is wrong with it is told by the second pass
    const unsigned rows = wholeRows(segment);
    for (unsigned y = 0; y < rows; ++y) {
      const unsigned char* row = segment.bytes + y * segment.rowBytes;
      for (unsigned x = 0; x < segment.columns; ++x) {
        const float value = floatAt(r.d, row + 4 * static_cast<std::size_t>(x));
        if (!std::isfinite(value)) continue;
        range.low = range.found ? std::min(range.low, value) : value;
        range.high = range.found ? std::max(range.high, value) : value;
        range.found = true;
      }
    }
  }
}

void convertFloats(const TiffDirectory& d, const GreyRange& range, const unsigned char* row, unsigned count,
                   unsigned char* rgb) {
  const double low = static_cast<double>(range.low), extent = static_cast<double>(range.high) - low;
  const double factor = extent > 0.0 ? 255.0 / extent : 0.0;
  const unsigned inverted = d.photometric == kTiffWhiteIsZero ? 255 : 0;
  for (unsigned i = 0; i < count; ++i, rgb += kColorBytes) {
    const double grey = (static_cast<double>(floatAt(d, row + 4 * static_cast<std::size_t>(i))) - low) * factor + 0.5;
    putGrey(rgb, (grey >= 255.0 ? 255U : grey > 0.0 ? static_cast<unsigned>(grey) : 0U) ^ inverted);
  }
}

// All that the conversion of a row needs.
struct Conversion {
  ValueColors colors;
  GreyRange range;
};

bool convertRow(const TiffDirectory& d, const Conversion& c, const unsigned char* row, unsigned count,
                unsigned char* rgb) {
  if (d.samples > 1) {
    convertRgb(d, row, count, rgb);
  } else if (d.bits == 32) {
    convertFloats(d, c.range, row, count, rgb);
  } else if (d.bits == 16) {
    convertGreyWords(d, row, count, rgb);
  } else {
    return convertValues(d, c.colors, row, count, rgb);
  }
  return true;
}

ImageStatus readSegments(TiffReader& r, const Conversion& conversion, Image& image) {
  bool badIndex = false;
  for (unsigned i = 0; i < r.count; ++i) {
    Segment segment;
    const ImageStatus status = openSegment(r, i, segment);
    const unsigned rows = wholeRows(segment);
    for (unsigned y = 0; y < rows; ++y) {
      const int row = static_cast<int>(segment.y + y);
      unsigned char* rgb = imageRow(image, row) + kColorBytes * static_cast<std::size_t>(segment.x);
      if (!convertRow(r.d, conversion, segment.bytes + y * segment.rowBytes, segment.columns, rgb)) badIndex = true;
      image.rowDone[row] = 1;
    }
    if (status != kImageFine) return status;
  }
  return badIndex ? kImageBadIndex : kImageFine;
}

ImageStatus startReader(FileBytes file, TiffReader& r) {
  const ImageStatus status = readTiffDirectory(file, false, r.d);
  if (status != kImageFine) return status;
  startSegments(r);
  return takeBuffer(r);
}

} // namespace

ImageStatus decodeTiff(FileBytes file, Image& image) {
  TiffReader r;
  ImageStatus status = startReader(file, r);
  if (status != kImageFine) return status;
  const long long possible = tiffUnpackedLimit(r.d.compression, file.size()) * 8 / (r.d.bits * r.d.samples);
  status = startImage(image, r.d.width, r.d.height, false, possible);
  if (status == kImageFine) {
    Conversion conversion;
    if (r.d.bits <= 8 && r.d.samples == 1) conversion.colors = colorsOfValues(r.d);
    if (r.d.bits == 32) findRange(r, conversion.range);
    status = readSegments(r, conversion, image);
  }
  std::free(r.buffer);
  return status;
}

ImageStatus decodeTiffSamples(FileBytes file, unsigned short* samples, std::size_t count) {
  TiffReader r;
  const ImageStatus started = startReader(file, r);
  if (started != kImageFine) return started;
  const std::size_t perRow = static_cast<std::size_t>(r.d.width) * r.d.samples;
  const unsigned bytes = bytesOfSample(r.d);
  std::free(r.buffer); // the special kind is not packed
  if (!isTiffSpecial(r.d) || bytes == 0 || count / r.d.height < perRow) return kImageBadFormat;
  for (unsigned i = 0; i < r.count; ++i) {
    Segment segment;
    const ImageStatus status = openSegment(r, i, segment);
    if (status != kImageFine) return status;
    for (unsigned y = 0; y < segment.rows; ++y) {
      const unsigned char* from = segment.bytes + y * segment.rowBytes;
      unsigned short* to = samples + (segment.y + y) * perRow + static_cast<std::size_t>(segment.x) * r.d.samples;
      for (std::size_t k = 0; k < static_cast<std::size_t>(segment.columns) * r.d.samples; ++k, from += bytes)
        to[k] = static_cast<unsigned short>(bytes == 2 ? tiffWord(r.d, from) : *from);
    }
  }
  return kImageFine;
}

} // namespace quilla
