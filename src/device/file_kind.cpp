#include "device/file_kind.h"

#include <cstdio>
#include <string_view>

namespace quilla {
namespace {

constexpr int kHeadSize = 20;

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
  return kFilePltm;
}

} // namespace

FileKind probeFileKind(const char* name) {
  std::FILE* file = name ? std::fopen(name, "rb") : nullptr;
  if (!file) return kFileNotOpened;
  char head[kHeadSize];
  const std::size_t count = std::fread(head, 1, kHeadSize, file);
  const bool readable = std::ferror(file) == 0; // a directory opens, too
  std::fclose(file);
  return readable ? kindOfHead({head, count}) : kFileNotOpened;
}

} // namespace quilla
