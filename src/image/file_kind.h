// What kind of plot file or image a file is, by its first bytes.
#pragma once

namespace quilla {

enum FileKind : int {
  kFileNotOpened = -1,
  kFilePltm = 1, // whatever no other test claims
  kFileCgm = 2,
  kFileBmp = 3,
  kFileGif = 4,
  kFileWmf = 5,
  kFileHpgl = 6,
  kFilePostScript = 7,
  kFilePng = 8,
  kFileTiff = 9,
  kFileTiffSpecial = 10, // five samples a pixel, grey and not packed
  kFileRawImage = 11,
  kFilePdf = 12,
  kFilePlaceableWmf = 13,
  kFilePpm = 14
};

FileKind probeFileKind(const char* name);

// The kind and the size that the head of an image tells; 0 by 0 for kinds without one.
struct FileProbe {
  FileKind kind = kFileNotOpened;
  int width = 0, height = 0;
};
FileProbe probeFile(const char* name);

} // namespace quilla
