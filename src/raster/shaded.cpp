#include "raster/shaded.h"

#include <cmath>
#include <cstdlib>
#include <utility>

#include "raster/ink.h"

namespace quilla {
namespace {

constexpr double kSameDepth = 1e-6;
constexpr float kFarAway = 1.0e6F; // pixels; no page reaches so far

bool usable(const ShadedPixel& p) {
  return std::isfinite(p.depth) && std::fabs(p.x) < kFarAway && std::fabs(p.y) < kFarAway;
}

int rounded(double v) { return static_cast<int>(std::floor(v + 0.5)); }

unsigned char component(double v) { return static_cast<unsigned char>(std::clamp(v, 0.0, 255.0) + 0.5); }

// One place on the edge of a triangle.
struct Crossing {
  double x, depth, r, g, b;
};

Crossing crossingOf(const ShadedPixel& a, const ShadedPixel& b, double y) {
  const double span = static_cast<double>(b.y) - static_cast<double>(a.y);
  const double t = span > 0.0 ? std::clamp((y - static_cast<double>(a.y)) / span, 0.0, 1.0) : 0.0;
  auto mix = [t](float from, float to) {
    return static_cast<double>(from) + t * (static_cast<double>(to) - static_cast<double>(from));
  };
  return {mix(a.x, b.x), mix(a.depth, b.depth), mix(a.r, b.r), mix(a.g, b.g), mix(a.b, b.b)};
}

// True, and the depth is taken, if nothing nearer stands at the pixel.
bool takesPixel(float* depth, double z) {
  if (!depth) return true;
  if (!(static_cast<double>(*depth) >= z - kSameDepth)) return false;
  *depth = static_cast<float>(z);
  return true;
}

float* depthRow(const RasterCanvas& canvas, int y) {
  return canvas.depths ? canvas.depths + static_cast<std::ptrdiff_t>(y) * canvas.width : nullptr;
}

void putPixel(RasterCanvas& canvas, int x, int y, Rgb colour) {
  if (canvas.trueColour) {
    *pixelAt<std::uint32_t>(canvas, x, y) = packPixel(colour, canvas.alpha);
  } else {
    *pixelAt<std::uint8_t>(canvas, x, y) = static_cast<std::uint8_t>(nearestIndex(canvas, colour));
  }
}

// One row, from the left crossing to the right one.
void paintSpan(RasterCanvas& canvas, int y, const Crossing& left, const Crossing& right) {
  const int first = rounded(left.x), last = rounded(right.x);
  const int from = std::max(first, canvas.clip.x1), to = std::min(last, canvas.clip.x2);
  const double slope = first != last ? 1.0 / (right.x - left.x) : 0.0;
  const double dz = (right.depth - left.depth) * slope;
  const double dr = (right.r - left.r) * slope, dg = (right.g - left.g) * slope, db = (right.b - left.b) * slope;
  float* depths = depthRow(canvas, y);
  for (int x = from; x <= to; ++x) {
    const double along = std::clamp(x - left.x, 0.0, right.x - left.x);
    if (!takesPixel(depths ? depths + x : nullptr, left.depth + along * dz)) continue;
    putPixel(canvas, x, y,
             {component(left.r + along * dr), component(left.g + along * dg), component(left.b + along * db)});
  }
}

} // namespace

bool openDepths(RasterCanvas& canvas) {
  closeDepths(canvas);
  const std::size_t count = static_cast<std::size_t>(canvas.width) * static_cast<std::size_t>(canvas.height);
  canvas.depths = static_cast<float*>(std::malloc(count * sizeof(float)));
  clearDepths(canvas);
  return canvas.depths != nullptr;
}

void clearDepths(RasterCanvas& canvas) {
  const std::size_t count = static_cast<std::size_t>(canvas.width) * static_cast<std::size_t>(canvas.height);
  if (canvas.depths) std::fill_n(canvas.depths, count, kFarDepth);
}

void closeDepths(RasterCanvas& canvas) {
  std::free(canvas.depths);
  canvas.depths = nullptr;
}

void canvasTriangle(RasterCanvas& canvas, const ShadedPixel (&corners)[3]) {
  const ShadedPixel *a = &corners[0], *b = &corners[1], *c = &corners[2];
  if (!usable(*a) || !usable(*b) || !usable(*c)) return;
  if (a->y > b->y) std::swap(a, b);
  if (b->y > c->y) std::swap(b, c);
  if (a->y > b->y) std::swap(a, b);
  const int top = std::max(rounded(static_cast<double>(a->y)), canvas.clip.y1);
  const int bottom = std::min(rounded(static_cast<double>(c->y)), canvas.clip.y2);
  if (top > bottom) return;
  const auto least = static_cast<double>(std::min({a->x, b->x, c->x}));
  const auto most = static_cast<double>(std::max({a->x, b->x, c->x}));
  noteDrawn(canvas, {rounded(least), top, rounded(most), bottom});
  for (int y = top; y <= bottom; ++y) {
    Crossing left = crossingOf(*a, *c, y);
    Crossing right = y < static_cast<double>(b->y) ? crossingOf(*a, *b, y) : crossingOf(*b, *c, y);
    if (left.x > right.x) std::swap(left, right);
    paintSpan(canvas, y, left, right);
  }
}

void canvasDepthLine(RasterCanvas& canvas, const ShadedPixel& from, const ShadedPixel& to) {
  if (!usable(from) || !usable(to)) return;
  int x = rounded(static_cast<double>(from.x)), y = rounded(static_cast<double>(from.y));
  const int endX = rounded(static_cast<double>(to.x)), endY = rounded(static_cast<double>(to.y));
  const int dx = std::abs(endX - x), dy = std::abs(endY - y), steps = std::max(dx, dy);
  const int stepX = endX < x ? -1 : 1, stepY = endY < y ? -1 : 1;
  const Rgb colour = {component(static_cast<double>(from.r)), component(static_cast<double>(from.g)),
                      component(static_cast<double>(from.b))};
  const auto start = static_cast<double>(from.depth);
  const double dz = steps > 0 ? (static_cast<double>(to.depth) - start) / steps : 0.0;
  const PixelBox& clip = canvas.clip;
  noteDrawn(canvas, {std::min(x, endX), std::min(y, endY), std::max(x, endX), std::max(y, endY)});
  int error = 2 * std::min(dx, dy) - steps;
  for (int k = 0; k <= steps; ++k) {
    const bool inside = x >= clip.x1 && x <= clip.x2 && y >= clip.y1 && y <= clip.y2;
    if (inside && takesPixel(canvas.depths ? depthRow(canvas, y) + x : nullptr, start + k * dz))
      putPixel(canvas, x, y, colour);
    const bool both = error >= 0;
    if (both || dx >= dy) x += stepX;
    if (both || dx < dy) y += stepY;
    error += both ? 2 * (std::min(dx, dy) - steps) : 2 * std::min(dx, dy);
  }
}

} // namespace quilla
