#include "graph3d/facet_call.h"

#include "core/colors.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/depth_raster.h"

namespace quilla {

FacetCall beginSurface(PlotState* s) {
  flushPath(s);
  FacetCall call{s, facetStyle(s), s->color.currentColor, !s->depthState.bufferOn && !s->depthState.list};
  if (s->surface.visibleSide == kVisibleTop) call.style.culledBack = true;
  if (s->surface.visibleSide == kVisibleBottom) call.style.culledFront = true;
  if (call.ownList && !beginDepthList(s)) call.s = nullptr;
  return call;
}

void endSurface(const FacetCall& call) {
  flushPath(call.s);
  if (call.s->color.currentColor != call.color) setColor(call.s, call.color);
  if (call.ownList) endDepthList(call.s);
}

PlotState* solidCheck(const char* routine) {
  constexpr int kIncompatible = 40, kNotInitialised = 115;
  PlotState* s = boxCheck(routine);
  if (!s || s->depthState.bufferOn || s->depthState.list) return s;
  if (!takesDepths(s)) {
    warnPlain(s, kIncompatible);
  } else {
    warnWithText(s, kNotInitialised, "No initialization of z-buffer");
  }
  return nullptr;
}

} // namespace quilla
