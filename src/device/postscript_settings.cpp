// The public routines of PostScript files.
#include <cstdlib>
#include <cstring>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

void PSMODE(const char* mode) {
  constexpr int kMultiplePages = 5;
  PlotState* s = strictCheck(0, 3, "psmode");
  if (!s) return;
  const int found = matchKeyword(s, "NONE+GREE+ITAL+BOTH+MULT+SING", 6, mode);
  if (found == 0) return;
  if (found < kMultiplePages) {
    s->text.psShiftFonts = found - 1;
  } else if (strictCheck(0, 0, "psmode")) {
    s->deviceSetup.psSinglePage = found - kMultiplePages;
  }
}

void PSMETA(const char* text, const char* key) {
  constexpr int kNoMemory = 53;
  PlotState* s = strictCheck(0, 0, "psmeta");
  if (!s || !matchKeyword(s, "INFO", 1, key)) return;
  std::free(s->deviceSetup.psInfoText);
  const std::size_t size = std::strlen(text) + 1;
  s->deviceSetup.psInfoText = static_cast<char*>(std::malloc(size));
  if (!s->deviceSetup.psInfoText) {
    warnPlain(s, kNoMemory);
    return;
  }
  std::memcpy(s->deviceSetup.psInfoText, text, size);
}
