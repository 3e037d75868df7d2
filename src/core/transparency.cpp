// Public routines of the transparency layer.
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/device_table.h"
#include "device/raster_driver.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kBadParameter = 2, kNoMemory = 53;
constexpr int kNotRaster = 169, kNotRgb = 170, kInImage = 172, kNotInUse = 174;

bool mayOpenLayer(PlotState* s) {
  const int device = s->deviceSetup.deviceNumber;
  if (device >= kDeviceConsole && deviceFamily(device) != DeviceFamily::kRaster) {
    warnWithText(s, kNotRaster, "Output format must be a raster format");
  } else if (!s->raster.canvas || !s->raster.canvas->trueColour) {
    warnWithText(s, kNotRgb, "Output format must be in RGB mode");
  } else if (s->raster.imageOpen) {
    warnWithText(s, kInImage, "Routine cannot be used between IMGINI and IMGFIN");
  } else {
    return true;
  }
  return false;
}

} // namespace

void TPRINI(void) {
  PlotState* s = setterCheck("tprini");
  if (!s || !mayOpenLayer(s)) return;
  flushPath(s);
  if (s->raster.transparencyDepth == 0 && !openLayer(*s->raster.canvas)) return warnPlain(s, kNoMemory);
  ++s->raster.transparencyDepth;
}

void TPRFIN(void) {
  PlotState* s = setterCheck("tprfin");
  if (!s) return;
  if (s->raster.transparencyDepth == 0) return warnWithText(s, kNotInUse, "Transparency is not in use");
  flushPath(s);
  if (--s->raster.transparencyDepth == 0) rasterEndLayer(s);
}

void TPRVAL(float value) {
  PlotState* s = setterCheck("tprval");
  if (!s) return;
  constexpr float kOpaque = 255.0F;
  const float alpha = value * kOpaque + 0.5F;
  if (!(value >= 0.0F && alpha < kOpaque + 1.0F)) return warnPlain(s, kBadParameter);
  flushPath(s);
  s->image.transparencyValue = static_cast<int>(alpha);
  if (s->raster.canvas) setCanvasAlpha(*s->raster.canvas, s->image.transparencyValue);
}

void TPRMOD(const char* value, const char* key) {
  PlotState* s = setterCheck("tprmod");
  if (!s) return;
  const int found = matchKeyword(s, "FIGU+BACK", 2, key);
  if (found == 1) {
    if (const int mode = matchKeyword(s, "NOAU+AUTO", 2, value)) s->image.autoTransparency = mode == 2;
  } else if (found == 2) {
    if (const int mode = matchKeyword(s, "OPAQ+NOOP", 2, value)) s->image.blendBackground = mode == 2;
  }
}
