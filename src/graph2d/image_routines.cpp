// Public routines that read image files: their kind and size, their pixels as data, and images in user coordinates.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/sink.h"
#include "graph2d/area.h"
#include "graph2d/include_image.h"
#include "graph2d/scaling.h"
#include "image/bytes.h"
#include "image/tiff_directory.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kBadParameter = 2, kNoPlane = 34, kFileError = 36, kNoMemory = 53, kBadFormat = 56, kNoSpace = 123;

// Reports a file that cannot be opened or is no image.
bool probeImage(PlotState* s, const char* name, FileProbe& probe) {
  probe = probeFile(name);
  if (probe.kind == kFileNotOpened) {
    warnWithString(s, kFileError, name);
    return false;
  }
  if (isImageKind(probe.kind)) return true;
  warnPlain(s, kBadFormat);
  return false;
}

struct HeldImage {
  Image image;
  ~HeldImage() { freeImage(image); }
};

// What LDIMG stores of each row.
enum LoadMode : int { kBytesPacked = -1, kPlanes = 0, kFirstChannel = 1 };

long long elementsOf(const FileProbe& probe, int mode) {
  const long long pixels = static_cast<long long>(probe.width) * probe.height;
  if (mode >= kFirstChannel) return pixels;
  if (mode == kBytesPacked) return (pixels * kColorBytes + 1) / 2;
  return pixels * (probe.kind == kFileTiffSpecial ? static_cast<int>(kTiffManySamples) : kColorBytes);
}

// One row as planes, one behind the other, or one of its channels. Channels are counted from 0.
template <class T> short* storeRow(const T* row, int width, int channels, int mode, short* out) {
  const int first = mode >= kFirstChannel ? mode - kFirstChannel : 0;
  const int last = mode >= kFirstChannel ? first : channels - 1;
  for (int c = first; c <= last; ++c) {
    for (int i = 0; i < width; ++i) *out++ = static_cast<short>(row[static_cast<std::size_t>(i) * channels + c]);
  }
  return out;
}

void storeImage(const Image& image, int mode, short* out) {
  if (mode != kBytesPacked) {
    for (int y = 0; y < image.height; ++y) out = storeRow(imageRow(image, y), image.width, kColorBytes, mode, out);
    return;
  }
  const std::size_t count =
      static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * kColorBytes;
  const unsigned char* p = image.pixels;
  for (std::size_t i = 0; i + 1 < count; i += 2) *out++ = static_cast<short>(littleWord(p + i));
  if (count % 2 != 0) *out = p[count - 1];
}

// The samples of the special kind of TIFF.
ImageStatus loadSamples(const char* name, const FileProbe& probe, int mode, short* out) {
  constexpr auto kSamples = static_cast<int>(kTiffManySamples);
  LoadedFile file = loadFile(name);
  if (!file.opened) return kImageNotOpened;
  const auto width = static_cast<std::size_t>(probe.width), height = static_cast<std::size_t>(probe.height);
  // Not packed: the file is as long as its samples.
  const bool possible = file.size / height >= width;
  const std::size_t count = possible ? width * height * kTiffManySamples : 0;
  auto* samples = static_cast<unsigned short*>(std::malloc(count * sizeof(unsigned short) + 1));
  ImageStatus status = !possible ? kImageBadFormat : samples ? kImageFine : kImageNoMemory;
  if (status == kImageFine) status = decodeTiffSamples({file.bytes, file.size}, samples, count);
  if (status == kImageFine) {
    const unsigned short* row = samples;
    for (std::size_t y = 0; y < height; ++y, row += width * kTiffManySamples)
      out = storeRow(row, probe.width, kSamples, mode, out);
  }
  std::free(samples);
  freeFile(file);
  return status;
}

ImageStatus loadPixels(const char* name, const FileProbe& probe, int mode, short* out) {
  if (probe.kind == kFileTiffSpecial && mode != kBytesPacked) return loadSamples(name, probe, mode, out);
  HeldImage held;
  const ImageStatus status = readImage(name, probe.kind, GifExtent::kScreen, held.image);
  if (status != kImageFine) return status;
  if (held.image.width != probe.width || held.image.height != probe.height) return kImageBadFormat;
  storeImage(held.image, mode, out);
  return kImageFine;
}

} // namespace

int FILTYP(const char* name) {
  PlotState* s = strictCheck(0, 3, "filtyp");
  if (!s) return 0;
  const FileKind kind = probeFileKind(name);
  switch (kind) {
  case kFileNotOpened: warnWithString(s, kFileError, name); return -1;
  case kFileBmp: return 1;
  case kFileGif: return 2;
  case kFileTiff:
  case kFileTiffSpecial: return 3;
  case kFilePng: return 4;
  case kFileRawImage: return 5;
  case kFilePltm: return 6;
  case kFileCgm: return 7;
  case kFileWmf: return 8;
  case kFileHpgl: return 9;
  case kFilePostScript: return 10;
  case kFilePdf: return 11;
  case kFilePlaceableWmf: return 12;
  case kFilePpm: return 13;
  }
  return 0;
}

int FILSIZ(const char* name, int* width, int* height) {
  *width = *height = 0;
  PlotState* s = strictCheck(0, 3, "filsiz");
  if (!s) return -1;
  const FileProbe probe = probeFile(name);
  if (probe.kind == kFileNotOpened) {
    warnWithString(s, kFileError, name);
    return -1;
  }
  *width = probe.width;
  *height = probe.height;
  return probe.width > 0 && probe.height > 0 ? 0 : -1;
}

int LDIMG(const char* name, short* array, int size, int mode) {
  constexpr long long kMostElements = 0x7FFFFFFF;
  PlotState* s = strictCheck(0, 3, "ldimg");
  FileProbe probe;
  if (!s || checkRange(s, size, 0, -1) || !probeImage(s, name, probe)) return 0;
  const int channels = probe.kind == kFileTiffSpecial ? static_cast<int>(kTiffManySamples) : kColorBytes;
  if (checkRange(s, mode, kBytesPacked, channels)) return 0;
  const long long count = probe.width > 0 && probe.height > 0 ? elementsOf(probe, mode) : 0;
  if (count > kMostElements) {
    warnPlain(s, kNoMemory);
    return 0;
  }
  if (size == 0) return static_cast<int>(count);
  if (size < count) {
    warnWithText(s, kNoSpace, "Not enough space in array");
    return 0;
  }
  const ImageStatus status = count == 0 ? kImageBadFormat : loadPixels(name, probe, mode, array);
  reportImage(s, status, name);
  return status == kImageFine ? static_cast<int>(count) : 0;
}

namespace {

// X = a i + b j + e, Y = c i + d j + f of column i and row j.
struct AffineMap {
  float a, b, c, d, e, f;
};

PlotPoint placeOf(const PlotState* s, const AffineMap& m, float i, float j) {
  return plotPoint(s, m.a * i + m.b * j + m.e, m.c * i + m.d * j + m.f);
}

bool isFinite(const PlotPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

// All corners of the pixel lie on the open map.
bool pixelOnMap(const PlotState* s, const AffineMap& m, float i, float j) {
  for (float di : {-0.5F, 0.5F}) {
    for (float dj : {-0.5F, 0.5F}) {
      const float x = i + di, y = j + dj;
      if (!isOnMap(s, m.a * x + m.b * y + m.e, m.c * x + m.d * y + m.f)) return false;
    }
  }
  return true;
}

// Two triangles: the pixel is turned.
void fillTurned(PlotState* s, const AffineMap& m, float i, float j, int color) {
  const PlotPoint corners[] = {placeOf(s, m, i - 0.5F, j - 0.5F), placeOf(s, m, i + 0.5F, j - 0.5F),
                               placeOf(s, m, i + 0.5F, j + 0.5F), placeOf(s, m, i - 0.5F, j + 0.5F)};
  float xs[4], ys[4];
  for (int k = 0; k < 4; ++k) {
    if (!isFinite(corners[k])) return;
    xs[k] = corners[k].x;
    ys[k] = corners[k].y;
  }
  if (s->color.currentColor != color) setColor(s, color);
  const float secondX[] = {xs[0], xs[2], xs[3]}, secondY[] = {ys[0], ys[2], ys[3]};
  fillSolid(s, xs, ys, 3);
  fillSolid(s, secondX, secondY, 3);
}

void drawPixels(PlotState* s, const Image& image, const AffineMap& m) {
  constexpr float kTiny = 1e-35F;
  // Of rectangles only those stay rectangles that no projection bends.
  const int code = openMapCode(s);
  const bool straight = std::fabs(m.b) < kTiny && std::fabs(m.c) < kTiny && code < kProjMollweide;
  const bool edged = (isWorld(code) || isAzimuthal(code)) && s->clip.clipMode != kClipNone;
  const int kept = s->color.currentColor;
  flushPath(s);
  for (int y = 0; y < image.height; ++y) {
    const unsigned char* rgb = imageRow(image, y);
    const auto j = static_cast<float>(y);
    for (int x = 0; x < image.width; ++x, rgb += kColorBytes) {
      const auto i = static_cast<float>(x);
      const int color = directColor(rgb[0], rgb[1], rgb[2]);
      if (!straight) {
        if (!edged || pixelOnMap(s, m, i, j)) fillTurned(s, m, i, j, color);
        continue;
      }
      const PlotPoint a = placeOf(s, m, i - 0.5F, j - 0.5F), b = placeOf(s, m, i + 0.5F, j + 0.5F);
      if (isFinite(a) && isFinite(b)) fillCut(s, a.x, a.y, b.x, b.y, color);
    }
  }
  if (s->color.currentColor != kept) setColor(s, kept);
}

} // namespace

void MAPIMG(const char* name, float a, float b, float c, float d, float e, float f) {
  PlotState* s = strictCheck(2, 3, "mapimg");
  FileProbe probe;
  if (!s || !probeImage(s, name, probe)) return;
  for (float value : {a, b, c, d, e, f}) {
    if (!std::isfinite(value)) return warnPlain(s, kBadParameter);
  }
  HeldImage held;
  const ImageStatus status = readImage(name, probe.kind, GifExtent::kScreen, held.image);
  if (status == kImageFine) drawPixels(s, held.image, {a, b, c, d, e, f});
  reportImage(s, status, name);
}

// There is no plane before GRFINI.
void GRFIMG(const char*) {
  if (PlotState* s = strictCheck(1, 3, "grfimg")) warnPlain(s, kNoPlane);
}
