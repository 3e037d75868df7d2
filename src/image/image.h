// Images in memory and the decoders of image files. A decoder works on the bytes of a whole file and knows nothing of
// plots. Whatever a file holds, it reads and writes inside its arrays, and takes no more memory than the limits below.
#pragma once

#include <cstddef>
#include <span>

#include "image/file_kind.h"

namespace quilla {

using FileBytes = std::span<const unsigned char>;

enum ImageStatus : int {
  kImageFine = 0,
  kImageNotOpened = -1,
  kImageNoMemory = -2,
  kImageBadFormat = -3,
  kImageInflateError = -4,
  kImageBadIndex = -5, // a pixel's index lies beyond the palette
  kImageInflateEndError = -6,
  kImageNotSupported = -11, // a feature of TIFF that is not read
  kImageOverrun = -12       // packed data give more or less than fits
};

inline constexpr int kColorBytes = 3; // r, g, b

// Limits of an image. What a header asks for beyond kFreePixels must be backed by the length of the file: each format
// knows how much a byte of it can stand for. Beyond kPixelLimit there is no memory.
inline constexpr long long kFreePixels = 1LL << 22;
inline constexpr long long kPixelLimit = 1LL << 28;

// Rows from the top, 3 bytes a pixel, and alpha of 1 byte a pixel if the file has any. Owned: see freeImage.
struct Image {
  int width = 0, height = 0;
  unsigned char* pixels = nullptr;
  unsigned char* alpha = nullptr;
  unsigned char* rowDone = nullptr; // 1 for a row that the decoder finished: of a damaged file, these are shown
  bool alphaApplied = false;        // alpha is blended into the pixels already
};

void freeImage(Image& image);

// Takes memory for the rows, all black and none done. possible: the most pixels that a file of this length may hold.
// kImageBadFormat for sizes below 1 or beyond what is possible, kImageNoMemory beyond the limit.
ImageStatus startImage(Image& image, long long width, long long height, bool withAlpha, long long possible);

inline unsigned char* imageRow(const Image& image, int y) {
  return image.pixels + static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) * kColorBytes;
}
inline unsigned char* alphaRow(const Image& image, int y) {
  return image.alpha + static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width);
}

// The size of a GIF is that of its screen, of which the image covers the upper left part, or that of the image alone.
enum class GifExtent { kScreen, kImage };

// Decode a file of the format. After a failure the image holds the rows done so far, if any.
ImageStatus decodePng(FileBytes file, Image& image);
ImageStatus decodeGif(FileBytes file, GifExtent extent, Image& image);
ImageStatus decodeBmp(FileBytes file, Image& image);
ImageStatus decodeTiff(FileBytes file, Image& image);
ImageStatus decodePpm(FileBytes file, Image& image);

// The samples of a TIFF of five samples a pixel, row by row, pixel by pixel; samples holds width * height * 5 words.
ImageStatus decodeTiffSamples(FileBytes file, unsigned short* samples, std::size_t count);

// Reads a file and decodes it by its kind.
ImageStatus readImage(const char* name, FileKind kind, GifExtent extent, Image& image);
bool isImageKind(FileKind kind);

// A part of an image. kImageBadFormat if it does not lie inside.
ImageStatus cutImage(const Image& image, int x, int y, int width, int height, Image& part);
// The image in another size, interpolated between its pixels; corners fall on corners.
ImageStatus scaleImage(const Image& image, int width, int height, Image& scaled);
// Blends the image over one colour, r, g, b.
void blendOver(Image& image, const unsigned char* ground);

} // namespace quilla
