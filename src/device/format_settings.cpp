// The public routines of HPGL, CGM and WMF files.
#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kBadParameter = 2;

// Component 0..255 of one from 0 to 1; -1 outside.
int byteOf(float component) {
  constexpr float kSlack = 0.001F;
  if (!(component >= -kSlack && component <= 1.0F + kSlack)) return -1;
  const int value = static_cast<int>(component * 255.0F + 0.5F);
  return value < 0 ? 0 : value > 255 ? 255 : value;
}

} // namespace

void HPGMOD(const char* mode, const char* key) {
  PlotState* s = strictCheck(0, 0, "hpgmod");
  if (!s || !matchKeyword(s, "PLOT", 1, key)) return;
  if (const int found = matchKeyword(s, "STAN+ARIS", 2, mode)) s->deviceSetup.hpglAris = found == 2;
}

void WMFMOD(const char* mode, const char* key) {
  PlotState* s = strictCheck(0, 0, "wmfmod");
  if (!s || !matchKeyword(s, "FORM", 1, key)) return;
  if (const int found = matchKeyword(s, "STAN+PLAC", 2, mode)) s->deviceSetup.wmfPlaceable = found == 2;
}

void CGMVER(int version) {
  PlotState* s = strictCheck(0, 0, "cgmver");
  if (!s) return;
  if (version != 1 && version != 4) return warnWithNumber(s, kBadParameter, version);
  s->deviceSetup.cgmVersion = version;
}

void CGMPIC(const char* name) {
  PlotState* s = strictCheck(0, 3, "cgmpic");
  if (!s) return;
  copyText(s->deviceSetup.cgmPictureName, name, kCgmNameLength);
  s->deviceSetup.cgmPictureNameSet = true;
}

void CGMBGD(float r, float g, float b) {
  PlotState* s = strictCheck(0, 3, "cgmbgd");
  if (!s) return;
  const int ground[] = {byteOf(r), byteOf(g), byteOf(b)};
  if (ground[0] < 0 || ground[1] < 0 || ground[2] < 0) return warnPlain(s, kBadParameter);
  for (int i = 0; i < 3; ++i) s->deviceSetup.cgmBackground[i] = ground[i];
  s->deviceSetup.cgmBackgroundSet = true;
}
