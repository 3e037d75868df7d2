// IMGINI and IMGFIN: between them pixels are read and written.
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/page_image.h"
#include "device/raster_driver.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kIncompatible = 40, kImageOpen = 54, kImageNotOpen = 55;

} // namespace

void IMGINI(void) {
  PlotState* s = strictCheck(1, 3, "imgini");
  if (!s) return;
  if (s->raster.imageOpen) return warnPlain(s, kImageOpen);
  if (!s->raster.canvas && !holdsPageImages(s)) return warnPlain(s, kIncompatible);
  flushPath(s);
  if (!s->raster.canvas && !sinkOpenImage(s)) return;
  s->raster.imageOpen = true;
}

void IMGFIN(void) {
  PlotState* s = strictCheck(1, 3, "imgfin");
  if (!s) return;
  if (!s->raster.imageOpen) return warnPlain(s, kImageNotOpen);
  flushPath(s);
  if (holdsPageImages(s) && !s->depthState.ownRaster) sinkCloseImage(s);
  s->raster.imageOpen = false;
}
