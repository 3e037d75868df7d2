#include "text/library_path.h"

#include <cstdio>
#include <cstdlib>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

namespace quilla {

const char* libraryDirectory(const PlotState* s) {
  const char* directory = std::getenv("QUILLA");
  if (directory && *directory) return directory;
  return *s->librarySetup.libraryDirectory ? s->librarySetup.libraryDirectory : QUILLA_SHARE_DIR;
}

bool libraryFile(const PlotState* s, const char* folder, const char* name, char path[kLibraryPathLength]) {
  const int n = std::snprintf(path, kLibraryPathLength, "%s/%s/%s", libraryDirectory(s), folder, name);
  return n > 0 && n < kLibraryPathLength;
}

} // namespace quilla

using namespace quilla;

void QUIENV(const char* directory) {
  PlotState* s = strictCheck(kLevelNone, kLevelAxis3D, "quienv");
  if (!s) return;
  const bool none = findKeyword("NONE", 1, directory ? directory : "") == 1;
  copyText(s->librarySetup.libraryDirectory, none ? "" : directory, kDirectoryLength);
}
