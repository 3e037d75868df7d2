// Lines in a three-dimensional axis system.
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/projection.h"
#include "core/stop_request.h"
#include "graph2d/symbols.h"
#include "graph3d/box.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// A symbol at each of the points that lie in the box.
void drawSymbols(PlotState* s, const float* x, const float* y, const float* z, int n) {
  const long long step = s->curve.markerStep < 0 ? -static_cast<long long>(s->curve.markerStep) : s->curve.markerStep;
  for (long long i = 0; i < n && !stopRequested(); i += step) {
    const BoxPoint p = transformedBox(s, boxOfUser(s, x[i], y[i], z[i]));
    boxMove(s, boxOfUser(s, x[i], y[i], z[i]));
    if (s->boxPen.outside || !s->boxPen.down) continue;
    const PagePoint page = pageOfBox(s, p.x, p.y, p.z);
    drawSymbol(s, s->curve.markerKind, s->curve.markerHeight, page.x, page.y);
  }
}

} // namespace

void CURV3D(const float* x, const float* y, const float* z, int n) {
  PlotState* s = boxCheck("curv3d");
  if (!s) return;
  if (s->curve.curveMode != kCurveLine && s->curve.markerStep >= 0) return warnPlain(s, 14);
  if (n < 1 || (n == 1 && s->curve.markerStep >= 0)) return warnPlain(s, 2);
  if (s->curve.markerStep != 0) drawSymbols(s, x, y, z, n);
  if (s->curve.markerStep >= 0) {
    resetDash(s);
    boxMove(s, boxOfUser(s, x[0], y[0], z[0]));
    for (int i = 1; i < n && !stopRequested(); i++) boxDraw(s, boxOfUser(s, x[i], y[i], z[i]));
  }
  flushPath(s);
}

void STRT3D(float x, float y, float z) {
  if (PlotState* s = boxCheck("strt3d")) boxMove(s, boxOfUser(s, x, y, z));
}

void CONN3D(float x, float y, float z) {
  if (PlotState* s = boxCheck("conn3d")) boxDraw(s, boxOfUser(s, x, y, z));
}
