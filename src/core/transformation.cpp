// Public routines of the transformation of plot coordinates. Each acts after the earlier ones, in the coordinates of
// the user: with the page's origin at the bottom, y counts upwards from there.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// x' = xx x + xy y + x1, y' = yx x + yy y + y1.
struct Matrix {
  double xx, xy, x1, yx, yy, y1;
};

void applyAfter(PlotState* s, const Matrix& m) {
  flushPath(s);
  const TransformGroup old = s->transform;
  TransformGroup& t = s->transform;
  t.transformOn = true;
  t.xx = m.xx * old.xx + m.xy * old.yx;
  t.xy = m.xx * old.xy + m.xy * old.yy;
  t.x1 = m.xx * old.x1 + m.xy * old.y1 + m.x1;
  t.yx = m.yx * old.xx + m.yy * old.yx;
  t.yy = m.yx * old.xy + m.yy * old.yy;
  t.y1 = m.yx * old.x1 + m.yy * old.y1 + m.y1;
}

} // namespace

void TRFSHF(int nx, int ny) {
  PlotState* s = setterCheck("trfshf");
  if (!s) return;
  double down = s->page.originAtTop ? -static_cast<double>(ny) : static_cast<double>(ny);
  applyAfter(s, {1.0, 0.0, static_cast<double>(nx), 0.0, 1.0, down});
}

void TRFSCL(float xscl, float yscl) {
  PlotState* s = setterCheck("trfscl");
  if (!s) return;
  if (!std::isfinite(xscl) || !std::isfinite(yscl)) return warnPlain(s, 2);
  double origin = static_cast<double>(userY(s, 0.0F)), factor = static_cast<double>(yscl);
  applyAfter(s, {static_cast<double>(xscl), 0.0, 0.0, 0.0, factor, origin * (1.0 - factor)});
}

void TRFROT(float degrees, int nx, int ny) {
  PlotState* s = setterCheck("trfrot");
  if (!s) return;
  if (!std::isfinite(degrees)) return warnPlain(s, 2);
  double angle = std::fmod(static_cast<double>(degrees), 360.0) * static_cast<double>(kDegToRad);
  double c = std::cos(angle), n = std::sin(angle);
  double x = static_cast<double>(limitedDistance(nx)), y = static_cast<double>(userY(s, limitedDistance(ny)));
  // Anticlockwise on the page, whose y points down.
  applyAfter(s, {c, n, x - c * x - n * y, -n, c, y + n * x - c * y});
}

void TRFRES(void) {
  PlotState* s = setterCheck("trfres");
  if (!s) return;
  flushPath(s);
  s->transform = TransformGroup{};
}
