// Lines: the pending polyline, thin lines by integer steps, smooth lines, lines of two and three pixels.
#include <algorithm>
#include <cstdlib>

#include "raster/areas.h"
#include "raster/ink.h"
#include "raster/painter.h"

namespace quilla {
namespace {

constexpr int kThickWidth = 4; // from here on lines are polygons

// A line in steps of its longer axis. After i steps the shorter axis has made ceil((i * shorter - longer / 2) / longer)
// steps, none while that is negative: what an error term gives that starts at -longer / 2 and steps above 0.
struct Steps {
  long long longer, shorter;
  int longSign, shortSign;
  bool steep; // the longer axis is y

  long long shortSteps(long long i) const {
    const long long sum = i * shorter - longer / 2;
    return sum > 0 ? (sum + longer - 1) / longer : 0;
  }
  // Fewest steps after which the shorter axis has made k of its own, or one more than there are.
  long long stepsFor(long long k) const {
    if (k <= 0) return 0;
    if (shorter == 0) return longer + 1;
    return ((k - 1) * longer + longer / 2) / shorter + 1;
  }
};

Steps stepsOf(int x1, int y1, int x2, int y2) {
  const long long dx = static_cast<long long>(x2) - x1, dy = static_cast<long long>(y2) - y1;
  const long long width = std::llabs(dx), height = std::llabs(dy);
  const int signX = dx < 0 ? -1 : 1, signY = dy < 0 ? -1 : 1;
  if (height > width) return {height, width, signY, signX, true};
  return {width, height, signX, signY, false};
}

// Steps from first to last of a line.
struct StepRange {
  long long first, last;
};

// Steps on which a coordinate that starts at `start` and moves by sign lies in low..high.
StepRange axisRange(long long start, int sign, long long low, long long high) {
  return sign > 0 ? StepRange{low - start, high - start} : StepRange{start - high, start - low};
}

// The steps of a line that lie in the clip rectangle, or no further than a margin beside it.
StepRange visibleSteps(const Steps& s, int x1, int y1, int x2, int y2, const PixelBox& clip, int margin) {
  auto inside = [&clip](int x, int y) { return x >= clip.x1 && x <= clip.x2 && y >= clip.y1 && y <= clip.y2; };
  if (inside(x1, y1) && inside(x2, y2)) return {0, s.longer};
  const StepRange ofX = axisRange(x1, s.steep ? s.shortSign : s.longSign, clip.x1 - margin, clip.x2 + margin);
  const StepRange ofY = axisRange(y1, s.steep ? s.longSign : s.shortSign, clip.y1 - margin, clip.y2 + margin);
  StepRange range = s.steep ? ofY : ofX;
  const StepRange across = s.steep ? ofX : ofY;
  if (across.last < 0) return {0, -1};
  range.first = std::max({range.first, 0LL, s.stepsFor(across.first)});
  range.last = std::min({range.last, s.longer, s.stepsFor(across.last + 1) - 1});
  return range;
}

template <typename Pixel> void thinLine(const RasterCanvas& canvas, int x1, int y1, int x2, int y2, Pixel value) {
  const Steps s = stepsOf(x1, y1, x2, y2);
  const StepRange range = visibleSteps(s, x1, y1, x2, y2, canvas.clip, 0);
  if (range.first > range.last) return;
  const long long along = range.first * s.longSign, across = s.shortSteps(range.first) * s.shortSign;
  const int x = static_cast<int>(x1 + (s.steep ? across : along)),
            y = static_cast<int>(y1 + (s.steep ? along : across));
  Pixel* pixel = pixelAt<Pixel>(canvas, x, y);
  long long count = range.last - range.first;
  const std::ptrdiff_t row = canvas.width;
  if (s.shorter == 0 && !s.steep) {
    if (s.longSign < 0) pixel -= count;
    std::fill_n(pixel, count + 1, value);
    return;
  }
  const std::ptrdiff_t step = s.steep ? row * s.longSign : s.longSign;
  *pixel = value;
  if (s.shorter == 0) {
    for (; count > 0; --count) *(pixel += step) = value;
    return;
  }
  const std::ptrdiff_t sideStep = s.steep ? s.shortSign : row * s.shortSign;
  long long error = range.first * s.shorter - s.longer / 2 - s.shortSteps(range.first) * s.longer;
  for (; count > 0; --count) {
    pixel += step;
    error += s.shorter;
    if (error > 0) {
      pixel += sideStep;
      error -= s.longer;
    }
    *pixel = value;
  }
}

// Pixels x1 to x2 of a row, cut at the clip rectangle.
template <typename Pixel> void putSpan(const RasterCanvas& canvas, int y, int x1, int x2, Pixel value) {
  if (y >= canvas.clip.y1 && y <= canvas.clip.y2) fillSpan(canvas, y, x1, x2, value);
}

// Weights of blended pixels are in fixed point.
constexpr int kWeightPlaces = 16;
constexpr std::int64_t kWholeWeight = 1LL << kWeightPlaces;

// old + (new - old) * weight + 0.5, truncated.
unsigned char blend(unsigned char old, unsigned char now, std::int64_t weight) {
  return static_cast<unsigned char>((old * kWholeWeight + (now - old) * weight + kWholeWeight / 2) >> kWeightPlaces);
}

void blendPixel(const RasterCanvas& canvas, int x, int y, std::int64_t weight) {
  const PixelBox& clip = canvas.clip;
  if (weight == 0 || x < clip.x1 || x > clip.x2 || y < clip.y1 || y > clip.y2) return;
  unsigned char* pixel = reinterpret_cast<unsigned char*>(pixelAt<std::uint32_t>(canvas, x, y));
  pixel[0] = blend(pixel[0], canvas.colour.r, weight);
  pixel[1] = blend(pixel[1], canvas.colour.g, weight);
  pixel[2] = blend(pixel[2], canvas.colour.b, weight);
  pixel[3] = canvas.alpha;
}

// Two neighbours across the line share the colour by their distance from it; ends have it in full, and so have lines
// that go straight through the middle of all their pixels.
void smoothLine(const RasterCanvas& canvas, int x1, int y1, int x2, int y2) {
  constexpr int kPlaces = 32;
  constexpr std::int64_t kFraction = (1LL << kPlaces) - 1;
  const std::uint32_t value = packPixel(canvas.colour, canvas.alpha);
  const Steps s = stepsOf(x1, y1, x2, y2);
  if (s.shorter == 0 || s.shorter == s.longer) return thinLine(canvas, x1, y1, x2, y2, value);
  putSpan(canvas, y1, x1, x1, value);
  putSpan(canvas, y2, x2, x2, value);
  const StepRange range = visibleSteps(s, x1, y1, x2, y2, canvas.clip, 1);
  const long long first = std::max(range.first, 1LL), last = std::min(range.last, s.longer - 1);
  // The place across the line in fixed point; both products stay below 2^63.
  const std::int64_t slope = (s.shorter << kPlaces) / s.longer, product = first * s.shorter;
  std::int64_t place = (product / s.longer << kPlaces) + (product % s.longer << kPlaces) / s.longer;
  for (long long i = first; i <= last; ++i, place += slope) {
    const long long along = i * s.longSign, across = (place >> kPlaces) * s.shortSign;
    const std::int64_t weight = (place & kFraction) >> (kPlaces - kWeightPlaces);
    const int x = static_cast<int>(x1 + (s.steep ? across : along));
    const int y = static_cast<int>(y1 + (s.steep ? along : across));
    blendPixel(canvas, x, y, kWholeWeight - weight);
    blendPixel(canvas, s.steep ? x + s.shortSign : x, s.steep ? y : y + s.shortSign, weight);
  }
}

// Lines of two or three pixels: thin lines side by side.
template <typename Pixel> void widerLine(const RasterCanvas& canvas, int x1, int y1, int x2, int y2, Pixel value) {
  const bool steep = stepsOf(x1, y1, x2, y2).steep;
  for (int i = 0; i < canvas.lineWidth; ++i) {
    const int aside = i - canvas.lineWidth / 2;
    const int dx = steep ? aside : 0, dy = steep ? 0 : aside;
    thinLine(canvas, x1 + dx, y1 + dy, x2 + dx, y2 + dy, value);
  }
}

// A square of the line width around a point.
template <typename Pixel> void putSquare(const RasterCanvas& canvas, int x, int y, Pixel value) {
  const int left = x - canvas.lineWidth / 2, top = y - canvas.lineWidth / 2;
  for (int row = top; row < top + canvas.lineWidth; ++row)
    putSpan(canvas, row, left, left + canvas.lineWidth - 1, value);
}

template <typename Pixel> void putDot(RasterCanvas& canvas, int x, int y, Pixel value) {
  if (canvas.lineWidth == 1 || canvas.lineCap == kCanvasCapCut) return putSpan(canvas, y, x, x, value);
  if (canvas.lineCap == kCanvasCapLong) return putSquare(canvas, x, y, value);
  fillDisc(canvas, x, y, static_cast<float>(canvas.lineWidth) * 0.5F);
}

template <typename Pixel> void drawPath(RasterCanvas& canvas, Pixel value) {
  const int *x = canvas.polyX, *y = canvas.polyY;
  const int n = canvas.polyCount;
  if (n == 1) return putDot(canvas, x[0], y[0], value);
  if (canvas.lineWidth >= kThickWidth) return thickPolyline(canvas, x, y, n);
  if (canvas.lineWidth > 1) {
    for (int i = 1; i < n; ++i) widerLine(canvas, x[i - 1], y[i - 1], x[i], y[i], value);
    for (int i = 1; i + 1 < n; ++i) putSquare(canvas, x[i], y[i], value);
    if (n > 2 && x[0] == x[n - 1] && y[0] == y[n - 1]) return putSquare(canvas, x[0], y[0], value);
    putDot(canvas, x[0], y[0], value);
    return putDot(canvas, x[n - 1], y[n - 1], value);
  }
  // In a transparency layer there is nothing yet with which a smooth line could be blended.
  if (canvas.trueColour && canvas.antialias && canvas.layer == CanvasLayer::kPicture) {
    for (int i = 1; i < n; ++i) smoothLine(canvas, x[i - 1], y[i - 1], x[i], y[i]);
    return;
  }
  for (int i = 1; i < n; ++i) thinLine(canvas, x[i - 1], y[i - 1], x[i], y[i], value);
}

void notePath(RasterCanvas& canvas) {
  if (canvas.layer != CanvasLayer::kTransparent) return;
  const auto [left, right] = std::minmax_element(canvas.polyX, canvas.polyX + canvas.polyCount);
  const auto [top, bottom] = std::minmax_element(canvas.polyY, canvas.polyY + canvas.polyCount);
  const int w = canvas.lineWidth;
  noteDrawn(canvas, cutBox(canvas.clip, {*left - w, *top - w, *right + w, *bottom + w}));
}

} // namespace

void flushCanvas(RasterCanvas& canvas) {
  const int n = canvas.polyCount;
  if (n > 1 || (n == 1 && !canvas.polyHasMove)) {
    notePath(canvas);
    withPenInk(canvas, [&canvas](auto value) { drawPath(canvas, value); });
  }
  if (n == 0) return;
  canvas.polyX[0] = canvas.polyX[n - 1];
  canvas.polyY[0] = canvas.polyY[n - 1];
  canvas.polyCount = 1;
  canvas.polyHasMove = true;
}

void canvasLine(RasterCanvas& canvas, int x, int y, int code) {
  const int n = canvas.polyCount;
  if (code == kCanvasDraw) {
    if (n > 0 && (x != canvas.polyX[n - 1] || y != canvas.polyY[n - 1])) {
      canvas.polyX[n] = x;
      canvas.polyY[n] = y;
      ++canvas.polyCount;
    }
    canvas.polyHasMove = false;
    if (canvas.polyCount < kCanvasPathLimit) return;
  }
  flushCanvas(canvas);
  canvas.polyX[0] = x;
  canvas.polyY[0] = y;
  canvas.polyCount = 1;
  canvas.polyHasMove = true;
}

void setCanvasColour(RasterCanvas& canvas, int index, Rgb colour) {
  flushCanvas(canvas);
  canvas.colourIndex = static_cast<unsigned char>(index);
  canvas.colour = colour;
}

void setCanvasAlpha(RasterCanvas& canvas, int alpha) {
  flushCanvas(canvas);
  canvas.alpha = static_cast<unsigned char>(std::clamp(alpha, 0, 255));
}

void setCanvasPen(RasterCanvas& canvas, int width, int cap, int join) {
  flushCanvas(canvas);
  canvas.lineWidth = std::max(width, 1);
  canvas.lineCap = cap;
  canvas.lineJoin = join;
}

} // namespace quilla
