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
  kFileTiffSpecial = 10,
  kFileRawImage = 11,
  kFilePdf = 12,
  kFilePlaceableWmf = 13
};

FileKind probeFileKind(const char* name);

} // namespace quilla
