#include "core/rectangle.h"

#include <algorithm>
#include <cmath>

#include "core/page.h"
#include "core/pipeline.h"

namespace quilla {

void qqrect(PlotState* s, int x, int y, int width, int height, int lines, int angle) {
  const float radians = static_cast<float>(angle % 360) * kDegToRad;
  const float cosine = angle % 360 == 0 ? 1.0F : std::cos(radians), sine = angle % 360 == 0 ? 0.0F : std::sin(radians);
  const float cornerX = static_cast<float>(limitedDistance(x) + s->page.originX);
  const float cornerY = static_cast<float>(limitedDistance(y) + s->page.originY);
  auto pen = [&](float right, float down, bool draw) {
    const float px = cornerX + right * cosine + down * sine, py = cornerY - right * sine + down * cosine;
    if (draw) {
      pathDraw(s, px, py);
    } else {
      pathMove(s, px, py);
    }
  };
  const int sideX = limitedDistance(width) - 1, sideY = limitedDistance(height) - 1;
  const int step = lines < 0 ? -1 : 1;
  int count = std::abs(limitedDistance(lines));
  // Beyond the middle, and beyond the page, there is nothing to add.
  if (step > 0) count = std::min(count, std::min(sideX, sideY) / 2 + 1);
  count = std::min(count, std::max(s->geometry.pageWidth, s->geometry.pageHeight) + 1);
  for (int i = 0; i < count; i++) {
    const auto low = static_cast<float>(i * step);
    const float right = static_cast<float>(sideX) - low, down = static_cast<float>(sideY) - low;
    pen(low, low, false);
    pen(right, low, true);
    pen(right, down, true);
    pen(low, down, true);
    pen(low, low, true);
  }
  flushPath(s);
}

} // namespace quilla
