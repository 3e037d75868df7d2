#include "image/file_kind.h"

#include <cstdio>
#include <string_view>

#include "image/bytes.h"
#include "image/ppm_head.h"
#include "image/tiff_directory.h"

namespace quilla {
namespace {

constexpr int kHeadSize = 512; // room for the comments of a PPM

// TIFF: the byte order, and the number 42 in it.
bool isTiff(std::string_view head) {
  return head.starts_with(std::string_view("II\x2A\0", 4)) || head.starts_with(std::string_view("MM\0\x2A", 4));
}

// The first element of a CGM is BEGIN METAFILE: class 0 in the upper four bits, identity 1 in the next seven.
bool isCgm(std::string_view head) {
  if (head.size() < 2) return false;
  const unsigned word = static_cast<unsigned char>(head[0]) << 8U | static_cast<unsigned char>(head[1]);
  return word >> 5 == 1;
}

bool isPpm(std::string_view head) {
  PpmHead ppm;
  return readPpmHead({reinterpret_cast<const unsigned char*>(head.data()), head.size()}, ppm);
}

FileKind kindOfHead(std::string_view head) {
  if (head.starts_with("BM")) return kFileBmp;
  if (head.starts_with("GIF8")) return kFileGif;
  if (head.starts_with("\x89PNG\r\n")) return kFilePng;
  if (isTiff(head)) return kFileTiff;
  if (head.starts_with("\xD7\xCD")) return kFilePlaceableWmf;
  if (head.starts_with(std::string_view("\1\0\x9\0\0\3", 6))) return kFileWmf;
  if (head.starts_with("!Bitmap")) return kFileRawImage;
  if (isCgm(head)) return kFileCgm;
  if (head.starts_with(" SP1")) return kFileHpgl;
  if (head.starts_with("%!PS-Adobe")) return kFilePostScript;
  if (head.starts_with("%PDF-")) return kFilePdf;
  if (isPpm(head)) return kFilePpm;
  return kFilePltm;
}

void setSize(FileProbe& probe, unsigned width, unsigned height) {
  probe.width = static_cast<int>(width);
  probe.height = static_cast<int>(height);
}

// A number in five characters; what is none counts as 0.
int fiveDigits(std::string_view text) {
  int value = 0;
  for (char c : text.substr(0, 5)) {
    if (c >= '0' && c <= '9') value = 10 * value + (c - '0');
  }
  return value;
}

// The sizes stand behind a head of 20 characters, in fields of five with a blank between.
void readRawSize(std::string_view head, FileProbe& probe) {
  constexpr std::size_t kWidthPlace = 20, kHeightPlace = 26, kFieldsEnd = 31;
  if (head.size() < kFieldsEnd) return;
  probe.width = fiveDigits(head.substr(kWidthPlace));
  probe.height = fiveDigits(head.substr(kHeightPlace));
}

// The directory of a TIFF may stand anywhere in the file.
void readTiffHead(const char* name, FileProbe& probe) {
  LoadedFile file = loadFile(name);
  TiffDirectory d;
  if (file.bytes && readTiffDirectory({file.bytes, file.size}, true, d) == kImageFine) {
    setSize(probe, d.width, d.height);
    if (isTiffSpecial(d)) probe.kind = kFileTiffSpecial;
  }
  freeFile(file);
}

// Sizes in the first bytes of a file of a known kind.
void readSize(const char* name, std::string_view head, FileProbe& probe) {
  const auto* p = reinterpret_cast<const unsigned char*>(head.data());
  constexpr std::size_t kBmpSizes = 26, kGifSizes = 10, kPngSizes = 24;
  switch (probe.kind) {
  case kFileBmp:
    if (head.size() < kBmpSizes) return;
    setSize(probe, littleLong(p + 18), littleLong(p + 22));
    if (probe.height < 0 && probe.height != -0x7FFFFFFF - 1) probe.height = -probe.height; // rows from the top
    return;
  case kFileGif:
    if (head.size() >= kGifSizes) setSize(probe, littleWord(p + 6), littleWord(p + 8));
    return;
  case kFilePng:
    if (head.size() >= kPngSizes) setSize(probe, bigLong(p + 16), bigLong(p + 20));
    return;
  case kFilePpm: {
    PpmHead ppm;
    if (readPpmHead({p, head.size()}, ppm))
      setSize(probe, static_cast<unsigned>(ppm.width), static_cast<unsigned>(ppm.height));
    return;
  }
  case kFileTiff: return readTiffHead(name, probe);
  case kFileRawImage: return readRawSize(head, probe);
  default: return;
  }
}

} // namespace

FileProbe probeFile(const char* name) {
  FileProbe probe;
  std::FILE* file = name ? std::fopen(name, "rb") : nullptr;
  if (!file) return probe;
  char head[kHeadSize];
  const std::size_t count = std::fread(head, 1, kHeadSize, file);
  const bool readable = std::ferror(file) == 0; // a directory opens, too
  std::fclose(file);
  if (!readable) return probe;
  probe.kind = kindOfHead({head, count});
  readSize(name, {head, count}, probe);
  return probe;
}

FileKind probeFileKind(const char* name) { return probeFile(name).kind; }

} // namespace quilla
