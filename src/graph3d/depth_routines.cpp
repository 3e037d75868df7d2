// The z-buffer and the depth list.
#include <cmath>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/depth_raster.h"
#include "device/raster_driver.h"
#include "graph3d/facets.h"
#include "quilla/quilla.h"
#include "raster/shaded.h"

using namespace quilla;

namespace {

constexpr int kIncompatible = 40, kNotInitialised = 115, kInUse = 120;
constexpr float kLeastFactor = 1.0F, kMostFactor = 10.0F; // of ZBFSCL

// The state between ZBFINI and ZBFFIN; null after a message.
PlotState* bufferOf(PlotState* s) {
  if (!s || s->depthState.bufferOn) return s;
  warnWithText(s, kNotInitialised, "No initialization of z-buffer");
  return nullptr;
}

FacetPoint cornerOf(const PlotState* s, float x, float y, float z, int color) {
  return {transformedBox(s, boxOfUser(s, x, y, z)), shadeOfColor(s, color)};
}

} // namespace

namespace quilla {

void endDepthBuffer(PlotState* s) {
  s->depthState.bufferOn = false;
  sinkCloseDepths(s);
}

} // namespace quilla

int ZBFINI(void) {
  PlotState* s = strictCheck(1, 3, "zbfini");
  if (!s) return 1;
  if (s->depthState.bufferOn) {
    warnWithText(s, kInUse, "z-buffer is already in use");
    return 1;
  }
  if (!takesDepths(s)) {
    warnPlain(s, kIncompatible);
    return 1;
  }
  flushPath(s);
  s->depthState.bufferOn = sinkOpenDepths(s);
  return s->depthState.bufferOn ? 0 : 1;
}

void ZBFFIN(void) {
  PlotState* s = bufferOf(strictCheck(1, 3, "zbffin"));
  if (!s) return;
  flushPath(s);
  endDepthBuffer(s);
}

void ZBFRES(void) {
  PlotState* s = bufferOf(strictCheck(1, 3, "zbfres"));
  if (s && s->raster.canvas) clearDepths(*s->raster.canvas);
}

void ZBFERS(void) {
  PlotState* s = bufferOf(strictCheck(1, 3, "zbfers"));
  if (!s) return;
  flushPath(s);
  if (s->raster.canvas) rasterErase(s);
}

void ZBFMOD(const char* mode) {
  PlotState* s = setterCheck("zbfmod");
  if (!s) return;
  if (int found = matchKeyword(s, "OFF +ON  ", 2, mode)) s->depth.depthsKept = found == 2;
}

void ZBFSCL(float factor) {
  PlotState* s = setterCheck("zbfscl");
  if (!s) return;
  if (!(factor >= kLeastFactor && factor <= kMostFactor)) return warnPlain(s, 2);
  s->depth.rasterFactor = factor;
}

void ZBFTRI(const float* x, const float* y, const float* z, const int* colors) {
  PlotState* s = bufferOf(boxCheck("zbftri"));
  if (!s) return;
  flushPath(s);
  Facet facet{};
  facet.n = 3;
  facet.color = kMixedColors;
  for (int i = 0; i < facet.n; i++) facet.corners[i] = cornerOf(s, x[i], y[i], z[i], colors[i]);
  paintFacet(s, facet);
}

void ZBFLIN(float x1, float y1, float z1, float x2, float y2, float z2) {
  PlotState* s = bufferOf(boxCheck("zbflin"));
  if (!s) return;
  flushPath(s);
  boxMove(s, boxOfUser(s, x1, y1, z1));
  boxDraw(s, boxOfUser(s, x2, y2, z2));
}

int DBFINI(void) {
  PlotState* s = strictCheck(1, 3, "dbfini");
  if (!s) return 1;
  if (s->depthState.list) {
    warnWithText(s, kInUse, "Depth buffer is already in use");
    return 1;
  }
  flushPath(s);
  return beginDepthList(s) ? 0 : 1;
}

void DBFFIN(void) {
  PlotState* s = strictCheck(1, 3, "dbffin");
  if (!s) return;
  if (!s->depthState.list) return warnWithText(s, kNotInitialised, "No initialization of depth buffer");
  endDepthList(s);
}

void DBFMOD(const char* mode) {
  PlotState* s = setterCheck("dbfmod");
  if (!s) return;
  if (int found = matchKeyword(s, "OFF +ON  ", 2, mode)) s->depth.listCollects = found == 2;
}

void SURMSH(const char* mode) {
  PlotState* s = setterCheck("surmsh");
  if (!s) return;
  if (int found = matchKeyword(s, "OFF +ON  +ONLY+LINE+POIN", 5, mode)) s->depth.surfaceMesh = found - 1;
}

void MSHCLR(int color) {
  PlotState* s = setterCheck("mshclr");
  if (s && !checkRange(s, color, -1, -2)) s->depth.meshColor = color;
}

void ZSCALE(float start, float end) {
  PlotState* s = setterCheck("zscale");
  if (!s) return;
  if (!std::isfinite(start) || !std::isfinite(end)) return warnPlain(s, 2);
  s->depth.scaleGiven = true;
  s->depth.scaleStart = start;
  s->depth.scaleEnd = end;
}
