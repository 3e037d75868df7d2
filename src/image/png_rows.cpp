#include "image/png_rows.h"

#include <cstdlib>
#include <cstring>

namespace quilla {

int pngChannels(int colorType) {
  switch (colorType) {
  case kPngRgb: return 3;
  case kPngGreyAlpha: return 2;
  case kPngRgbAlpha: return 4;
  default: return 1;
  }
}

bool pngHasAlpha(const PngHead& head) {
  return head.colorType == kPngGreyAlpha || head.colorType == kPngRgbAlpha || head.transparent;
}

std::size_t pngRowBytes(const PngHead& head, std::size_t width) {
  return (width * static_cast<std::size_t>(pngChannels(head.colorType) * head.depth) + 7) / 8;
}

int pngPixelDistance(const PngHead& head) {
  const int bytes = pngChannels(head.colorType) * head.depth / 8;
  return bytes < 1 ? 1 : bytes;
}

unsigned char pngGrey(unsigned sample, int depth) {
  constexpr unsigned kSpread[] = {0, 255, 85, 0, 17}; // 255 / (2^depth - 1)
  if (depth == 16) return static_cast<unsigned char>(sample >> 8U);
  return static_cast<unsigned char>(depth == 8 ? sample : sample * kSpread[depth]);
}

namespace {

// The neighbour nearest to left + up - corner, on ties left before up before corner. Said without distances: the corner
// between the two others chooses itself, beyond them the one farther from it.
inline int paeth(int left, int up, int corner) {
  const int low = left < up ? left : up, high = left < up ? up : left;
  const int turned = 3 * corner - (left + up);
  const int upper = high <= turned ? low : corner;
  return turned <= low ? high : upper;
}

// The bytes of a pixel stay in registers while the row is walked.
template <int distance> void undoSub(unsigned char* row, std::size_t count) {
  unsigned char left[distance] = {};
  for (std::size_t i = 0; i + distance <= count; i += distance) {
    for (int c = 0; c < distance; ++c)
      row[i + static_cast<std::size_t>(c)] = left[c] =
          static_cast<unsigned char>(row[i + static_cast<std::size_t>(c)] + left[c]);
  }
}

template <int distance> void undoAverage(unsigned char* row, const unsigned char* above, std::size_t count) {
  unsigned left[distance] = {};
  for (std::size_t i = 0; i + distance <= count; i += distance) {
    for (int c = 0; c < distance; ++c) {
      const std::size_t k = i + static_cast<std::size_t>(c);
      row[k] = static_cast<unsigned char>(row[k] + ((left[c] + above[k]) >> 1U));
      left[c] = row[k];
    }
  }
}

template <int distance> void undoPaeth(unsigned char* row, const unsigned char* above, std::size_t count) {
  int left[distance] = {}, corner[distance] = {};
  for (std::size_t i = 0; i + distance <= count; i += distance) {
    for (int c = 0; c < distance; ++c) {
      const std::size_t k = i + static_cast<std::size_t>(c);
      const int up = above[k];
      row[k] = static_cast<unsigned char>(row[k] + paeth(left[c], up, corner[c]));
      left[c] = row[k];
      corner[c] = up;
    }
  }
}

template <int distance> void unfilter(int filter, unsigned char* row, const unsigned char* above, std::size_t count) {
  switch (filter) {
  case 1: return undoSub<distance>(row, count);
  case 2:
    for (std::size_t i = 0; i < count; ++i) row[i] = static_cast<unsigned char>(row[i] + above[i]);
    return;
  case 3: return undoAverage<distance>(row, above, count);
  case 4: return undoPaeth<distance>(row, above, count);
  default: return; // 0 and unknown filters leave the row as it is
  }
}

} // namespace

void pngUnfilter(int filter, unsigned char* row, const unsigned char* above, std::size_t count, int distance) {
  switch (distance) {
  case 1: return unfilter<1>(filter, row, above, count);
  case 2: return unfilter<2>(filter, row, above, count);
  case 3: return unfilter<3>(filter, row, above, count);
  case 4: return unfilter<4>(filter, row, above, count);
  case 6: return unfilter<6>(filter, row, above, count);
  default: return unfilter<8>(filter, row, above, count);
  }
}

namespace {

// Samples below a byte, most significant bits first.
inline unsigned packedSample(const unsigned char* row, int i, int depth) {
  const int perByte = 8 / depth;
  const int shift = 8 - depth * (i % perByte + 1);
  return static_cast<unsigned>(row[i / perByte]) >> shift & ((1U << depth) - 1U);
}

inline unsigned wholeSample(const unsigned char* p, int depth) {
  return depth == 16 ? static_cast<unsigned>(p[0]) << 8U | p[1] : p[0];
}

void convertGrey(const PngHead& head, const unsigned char* row, int count, unsigned char* rgb, unsigned char* alpha) {
  const int depth = head.depth, bytes = depth / 8;
  for (int i = 0; i < count; ++i, rgb += kColorBytes) {
    const unsigned sample = depth < 8 ? packedSample(row, i, depth) : wholeSample(row + i * bytes, depth);
    rgb[0] = rgb[1] = rgb[2] = pngGrey(sample, depth);
    if (alpha) alpha[i] = sample == head.transparentColor[0] ? 0 : 255;
  }
}

void convertRgb(const PngHead& head, const unsigned char* row, int count, unsigned char* rgb, unsigned char* alpha) {
  const int bytes = head.depth / 8;
  if (bytes == 1 && !alpha) {
    std::memcpy(rgb, row, static_cast<std::size_t>(count) * kColorBytes);
    return;
  }
  for (int i = 0; i < count; ++i, rgb += kColorBytes, row += kColorBytes * bytes) {
    bool same = true;
    for (int c = 0; c < kColorBytes; ++c) {
      rgb[c] = row[c * bytes];
      same = same && wholeSample(row + c * bytes, head.depth) == head.transparentColor[c];
    }
    if (alpha) alpha[i] = same ? 0 : 255;
  }
}

// True if all indices of a row lie in the palette.
bool indicesFit(const PngHead& head, const unsigned char* row, int count) {
  if (head.paletteCount >= 1 << head.depth) return true;
  unsigned largest = 0;
  for (int i = 0; i < count; ++i) {
    const unsigned index = head.depth == 8 ? row[i] : packedSample(row, i, head.depth);
    largest = index > largest ? index : largest;
  }
  return static_cast<int>(largest) < head.paletteCount;
}

// A pixel is written with a fourth byte, which the next one overwrites; the last is not.
template <class IndexAt> void putColors(const PngHead& head, int count, unsigned char* rgb, IndexAt indexAt) {
  const int last = count - 1;
  for (int i = 0; i < last; ++i, rgb += kColorBytes) std::memcpy(rgb, head.palette[indexAt(i)], kPngPaletteEntry);
  std::memcpy(rgb, head.palette[indexAt(last)], kColorBytes);
}

void convertPalette(const PngHead& head, const unsigned char* row, int count, unsigned char* rgb,
                    unsigned char* alpha) {
  const int depth = head.depth;
  if (depth == 8) {
    putColors(head, count, rgb, [row](int i) { return row[i]; });
  } else {
    putColors(head, count, rgb, [row, depth](int i) { return packedSample(row, i, depth); });
  }
  if (!alpha) return;
  for (int i = 0; i < count; ++i) alpha[i] = head.paletteAlpha[depth == 8 ? row[i] : packedSample(row, i, depth)];
}

// Grey or RGB with alpha behind: channels samples a pixel.
template <int channels>
void convertWithAlpha(int depth, const unsigned char* row, int count, unsigned char* rgb, unsigned char* alpha) {
  const int bytes = depth / 8;
  for (int i = 0; i < count; ++i, rgb += kColorBytes, row += channels * bytes) {
    if constexpr (channels == 2) {
      rgb[0] = rgb[1] = rgb[2] = row[0];
    } else {
      for (int c = 0; c < kColorBytes; ++c) rgb[c] = row[c * bytes];
    }
    alpha[i] = row[(channels - 1) * bytes];
  }
}

} // namespace

bool pngConvert(const PngHead& head, const unsigned char* row, int count, unsigned char* rgb, unsigned char* alpha) {
  switch (head.colorType) {
  case kPngGrey: convertGrey(head, row, count, rgb, alpha); return true;
  case kPngRgb: convertRgb(head, row, count, rgb, alpha); return true;
  case kPngGreyAlpha: convertWithAlpha<2>(head.depth, row, count, rgb, alpha); return true;
  case kPngRgbAlpha: convertWithAlpha<4>(head.depth, row, count, rgb, alpha); return true;
  default:
    convertPalette(head, row, count, rgb, alpha); // entries beyond the palette are black
    return indicesFit(head, row, count);
  }
}

} // namespace quilla
