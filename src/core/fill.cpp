// Filled polygons: by the device where it can, else hatched.
#include <cmath>
#include <memory>
#include <new>

#include "core/hatch.h"
#include "core/messages.h"
#include "core/path.h"
#include "core/pipeline.h"
#include "core/projection.h"
#include "device/sink.h"

namespace quilla {

namespace {

constexpr int kPointsOnStack = 64;
constexpr ShadingGroup kSolid{.shadePattern = kPatternSolid, .shadeType = 1};

// The plain colour of a device that cannot fill: the outline, and hatch lines without room between them.
void paintSolid(PlotState* s, const float* x, const float* y, int n, bool outlined) {
  KeptLineStyle kept = keepLineStyle(s);
  setLineType(s, 0);
  // Wide lines would grow out of the polygon. A negative width is the device's.
  if (s->line.lineWidthSetting > 1) s->line.lineWidthSetting = 1;
  const bool transformed = s->transform.transformOn;
  s->transform.transformOn = false;
  if (outlined) {
    pathMove(s, x[n - 1], y[n - 1]);
    for (int i = 0; i < n; i++) pathDraw(s, x[i], y[i]);
  }
  hatchPolygon(s, x, y, n);
  s->transform.transformOn = transformed;
  restoreLineStyle(s, kept);
}

void fillOnPage(PlotState* s, const float* x, const float* y, int n, bool outlined) {
  if (s->shading.shadePattern != kPatternSolid) return hatchPolygon(s, x, y, n);
  // Devices know no circles to cut at, as the edge of azimuthal maps is.
  const bool onDevice = s->line.hardwareShading && !isShielded(s) && !isAzimuthal(openMapCode(s));
  if (onDevice && qqfill(s, x, y, n)) return;
  paintSolid(s, x, y, n, outlined);
}

void fillPoints(PlotState* s, const float* x, const float* y, int n, bool outlined) {
  flushPath(s);
  if (n < 3 || s->shading.shadePattern == kPatternNone || s->measure.on) return;
  float few[2 * kPointsOnStack];
  std::unique_ptr<float[]> many;
  float* points = few;
  if (n > kPointsOnStack) {
    many.reset(new (std::nothrow) float[2 * static_cast<std::size_t>(n)]);
    points = many.get();
    if (!points) return warnPlain(s, 53);
  }
  float originX = static_cast<float>(s->page.originX), originY = static_cast<float>(s->page.originY);
  for (int i = 0; i < n; i++) {
    float px = x[i] + originX, py = y[i] + originY;
    if (s->plane.on) {
      const PagePoint page = pageOfPlane(s, px, py);
      px = page.x;
      py = page.y;
    }
    if (s->transform.transformOn) transformPoint(s, px, py);
    if (!std::isfinite(px) || !std::isfinite(py)) return;
    points[i] = px;
    points[n + i] = py;
  }
  // What follows draws on the page.
  const bool onPlane = s->plane.on;
  s->plane.on = false;
  fillOnPage(s, points, points + n, n, outlined);
  s->plane.on = onPlane;
}

} // namespace

void fillPolygon(PlotState* s, const float* x, const float* y, int n) { fillPoints(s, x, y, n, true); }

void fillRings(PlotState* s, const float* x, const float* y, int n) { fillPoints(s, x, y, n, false); }

void fillSolid(PlotState* s, const float* x, const float* y, int n) {
  ShadingGroup kept = s->shading;
  s->shading = kSolid;
  fillPolygon(s, x, y, n);
  s->shading = kept;
}

} // namespace quilla
