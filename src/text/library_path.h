// The directory of the library's fonts and maps.
#pragma once

#include "core/plot_state.h"

namespace quilla {

inline constexpr int kLibraryPathLength = 1024;

// The environment variable QUILLA, else the directory of QUIENV, else where the library was installed.
const char* libraryDirectory(const PlotState* s);

// Path of a file in a folder of that directory; false if it is too long.
bool libraryFile(const PlotState* s, const char* folder, const char* name, char path[kLibraryPathLength]);

} // namespace quilla
