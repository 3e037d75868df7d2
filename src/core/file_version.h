// What happens to a file of the wanted name that exists already (FILMOD, FILOPT).
#pragma once

#include "core/plot_state.h"

namespace quilla {

enum FileVersionResult : int {
  kVersionFine = 0,
  kVersionNotDeleted = 168, // "Plotfile cannot be deleted"
  kVersionExists = 169,     // "Plotfile does exist"
  kVersionsTaken = 170      // "Too many file versions"
};

// Makes name (kFileNameLength + 1 bytes) the name of a file that may be written: as it is if no such file exists, else
// deleted, refused or numbered by fileMode. The name of a device stands. On a refusal the text is put into
// customMessage and its number returned; the caller reports it.
int versionFileName(PlotState* s, char* name);

} // namespace quilla
