#include "image/image.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "image/bytes.h"

namespace quilla {

void freeImage(Image& image) {
  std::free(image.pixels);
  std::free(image.alpha);
  std::free(image.rowDone);
  image = Image{};
}

ImageStatus startImage(Image& image, long long width, long long height, bool withAlpha, long long possible) {
  freeImage(image);
  if (width < 1 || height < 1 || width > kPixelLimit || height > kPixelLimit) return kImageBadFormat;
  const long long count = width * height;
  if (count > kFreePixels && count > possible) return kImageBadFormat;
  if (count > kPixelLimit) return kImageNoMemory;
  const auto pixels = static_cast<std::size_t>(count);
  image.pixels = static_cast<unsigned char*>(std::calloc(pixels, kColorBytes));
  image.rowDone = static_cast<unsigned char*>(std::calloc(static_cast<std::size_t>(height), 1));
  if (withAlpha) image.alpha = static_cast<unsigned char*>(std::calloc(pixels, 1));
  if (!image.pixels || !image.rowDone || (withAlpha && !image.alpha)) {
    freeImage(image);
    return kImageNoMemory;
  }
  image.width = static_cast<int>(width);
  image.height = static_cast<int>(height);
  return kImageFine;
}

LoadedFile loadFile(const char* name) {
  constexpr std::size_t kFirstSize = 65536;
  LoadedFile loaded;
  std::FILE* file = name ? std::fopen(name, "rb") : nullptr;
  if (!file) return loaded;
  loaded.opened = true;
  std::size_t limit = 0;
  for (std::size_t got = 1; got > 0;) {
    if (loaded.size == limit) {
      limit = limit == 0 ? kFirstSize : 2 * limit;
      void* grown = std::realloc(loaded.bytes, limit);
      if (!grown) {
        freeFile(loaded);
        break;
      }
      loaded.bytes = static_cast<unsigned char*>(grown);
    }
    got = std::fread(loaded.bytes + loaded.size, 1, limit - loaded.size, file);
    loaded.size += got;
  }
  std::fclose(file);
  return loaded;
}

void freeFile(LoadedFile& file) {
  std::free(file.bytes);
  file.bytes = nullptr;
  file.size = 0;
}

bool isImageKind(FileKind kind) {
  return kind == kFileBmp || kind == kFileGif || kind == kFilePng || kind == kFileTiff || kind == kFileTiffSpecial ||
         kind == kFilePpm;
}

namespace {

ImageStatus decodeKind(FileBytes bytes, FileKind kind, GifExtent extent, Image& image) {
  switch (kind) {
  case kFileBmp: return decodeBmp(bytes, image);
  case kFileGif: return decodeGif(bytes, extent, image);
  case kFilePng: return decodePng(bytes, image);
  case kFileTiff:
  case kFileTiffSpecial: return decodeTiff(bytes, image);
  case kFilePpm: return decodePpm(bytes, image);
  case kFileNotOpened:
  case kFilePltm:
  case kFileCgm:
  case kFileWmf:
  case kFileHpgl:
  case kFilePostScript:
  case kFileRawImage:
  case kFilePdf:
  case kFilePlaceableWmf: break;
  }
  return kImageBadFormat;
}

} // namespace

ImageStatus readImage(const char* name, FileKind kind, GifExtent extent, Image& image) {
  LoadedFile file = loadFile(name);
  if (!file.opened) return kImageNotOpened;
  if (!file.bytes) return kImageNoMemory;
  const ImageStatus status = decodeKind({file.bytes, file.size}, kind, extent, image);
  freeFile(file);
  return status;
}

ImageStatus cutImage(const Image& image, int x, int y, int width, int height, Image& part) {
  const bool inside = x >= 0 && y >= 0 && width > 0 && height > 0 && x < image.width && y < image.height &&
                      width <= image.width - x && height <= image.height - y;
  if (!inside) return kImageBadFormat;
  const ImageStatus status = startImage(part, width, height, image.alpha != nullptr, kPixelLimit);
  if (status != kImageFine) return status;
  part.alphaApplied = image.alphaApplied;
  const auto count = static_cast<std::size_t>(width);
  for (int i = 0; i < height; ++i) {
    std::memcpy(imageRow(part, i), imageRow(image, y + i) + kColorBytes * x, kColorBytes * count);
    if (image.alpha) std::memcpy(alphaRow(part, i), alphaRow(image, y + i) + x, count);
    part.rowDone[i] = 1;
  }
  return kImageFine;
}

namespace {

// Where a pixel of the target falls on a side of the source: the left of two neighbours, and the part of the right one
// in 1/65536.
struct Between {
  int first, second;
  unsigned part;
};

constexpr unsigned kWhole = 1U << 16U;

Between placeBetween(int i, int source, int target) {
  if (source < 2) return {0, 0, 0};
  if (target < 2) return {0, 1, 0};
  const long long number = static_cast<long long>(source - 1) * i;
  const int first = std::min(static_cast<int>(number / (target - 1)), source - 2);
  const long long rest = number - static_cast<long long>(first) * (target - 1);
  return {first, first + 1, static_cast<unsigned>(rest * kWhole / (target - 1))};
}

// Four neighbours, one byte of each `step` bytes a pixel.
template <int step>
void scaleRow(const unsigned char* upper, const unsigned char* lower, unsigned down, const Between* columns, int width,
              unsigned char* out) {
  constexpr unsigned long long kHalf = 1ULL << 31U;
  for (int i = 0; i < width; ++i) {
    const int a = columns[i].first * step, b = columns[i].second * step;
    const unsigned right = columns[i].part, left = kWhole - right;
    for (int c = 0; c < step; ++c) {
      const unsigned long long top = upper[a + c] * left + upper[b + c] * right;
      const unsigned long long bottom = lower[a + c] * left + lower[b + c] * right;
      *out++ = static_cast<unsigned char>((top * (kWhole - down) + bottom * down + kHalf) >> 32U);
    }
  }
}

} // namespace

ImageStatus scaleImage(const Image& image, int width, int height, Image& scaled) {
  const bool withAlpha = image.alpha && !image.alphaApplied;
  const ImageStatus status = startImage(scaled, width, height, withAlpha, kPixelLimit);
  if (status != kImageFine) return status;
  scaled.alphaApplied = image.alphaApplied;
  auto* columns = static_cast<Between*>(std::malloc(sizeof(Between) * static_cast<std::size_t>(width)));
  if (!columns) {
    freeImage(scaled);
    return kImageNoMemory;
  }
  for (int i = 0; i < width; ++i) columns[i] = placeBetween(i, image.width, width);
  for (int j = 0; j < height; ++j) {
    const Between row = placeBetween(j, image.height, height);
    scaleRow<kColorBytes>(imageRow(image, row.first), imageRow(image, row.second), row.part, columns, width,
                          imageRow(scaled, j));
    if (withAlpha)
      scaleRow<1>(alphaRow(image, row.first), alphaRow(image, row.second), row.part, columns, width,
                  alphaRow(scaled, j));
    scaled.rowDone[j] = 1;
  }
  std::free(columns);
  return kImageFine;
}

void blendOver(Image& image, const unsigned char* ground) {
  if (!image.alpha || image.alphaApplied) return;
  const std::size_t count = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
  unsigned char* pixel = image.pixels;
  for (std::size_t i = 0; i < count; ++i, pixel += kColorBytes) {
    const unsigned a = image.alpha[i];
    if (a == 255) continue;
    for (int c = 0; c < kColorBytes; ++c)
      pixel[c] = static_cast<unsigned char>((2 * (pixel[c] * a + ground[c] * (255 - a)) + 255) / 510);
  }
  image.alphaApplied = true;
}

} // namespace quilla
