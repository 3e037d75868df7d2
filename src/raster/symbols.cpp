// Symbols of a size in pixels.
#include <cmath>

#include "raster/areas.h"
#include "raster/painter.h"

namespace quilla {
namespace {

// What a symbol is made of, as bits.
enum Element : unsigned {
  kPlus = 1U << 0,
  kCross = 1U << 1,
  kSquare = 1U << 2,
  kOctagon = 1U << 3,
  kTriangleUp = 1U << 4,
  kTriangleDown = 1U << 5,
  kDiamond = 1U << 6,
  kCircle = 1U << 7,
  kDiameter = 1U << 8,
  kDisc = 1U << 9,
  kHalfDisc = 1U << 10,
  kFilled = 1U << 11 // the outlines are filled
};

constexpr unsigned kSymbolElements[] = {
    kSquare,
    kOctagon,
    kTriangleUp,
    kPlus,
    kCross,
    kDiamond,
    kTriangleDown,
    kSquare | kCross,
    kPlus | kCross,
    kPlus | kDiamond,
    kPlus | kOctagon,
    kTriangleUp | kTriangleDown,
    kPlus | kSquare,
    kCross | kOctagon,
    kSquare | kTriangleUp,
    kCircle,
    kSquare | kFilled,
    kOctagon | kFilled,
    kTriangleUp | kFilled,
    kDiamond | kFilled,
    kTriangleDown | kFilled,
    kDisc,
    kCircle | kDiameter,
    kHalfDisc | kCircle,
};
constexpr int kSymbolCount = sizeof kSymbolElements / sizeof kSymbolElements[0];

struct Corner {
  float x, y; // in half sizes
};
constexpr Corner kSquareCorners[] = {{-1, -1}, {-1, 1}, {1, 1}, {1, -1}};
constexpr Corner kOctagonCorners[] = {{-0.5F, -1}, {-1, -0.5F}, {-1, 0.5F}, {-0.5F, 1},
                                      {0.5F, 1},   {1, 0.5F},   {1, -0.5F}, {0.5F, -1}};
constexpr Corner kUpCorners[] = {{0, -1}, {1, 1}, {-1, 1}};
constexpr Corner kDownCorners[] = {{0, 1}, {-1, -1}, {1, -1}};
constexpr Corner kDiamondCorners[] = {{0, -1}, {-1, 0}, {0, 1}, {1, 0}};
constexpr int kCircleSteps = 36, kMostCorners = kCircleSteps;

struct Place {
  int x, y, half;
};

int shifted(int middle, float offset, int half) {
  return middle + static_cast<int>(std::lround(offset * static_cast<float>(half)));
}

void drawLine(RasterCanvas& canvas, const Place& p, float x1, float y1, float x2, float y2) {
  canvasLine(canvas, shifted(p.x, x1, p.half), shifted(p.y, y1, p.half), kCanvasMove);
  canvasLine(canvas, shifted(p.x, x2, p.half), shifted(p.y, y2, p.half), kCanvasDraw);
}

void drawOutline(RasterCanvas& canvas, const Place& p, const Corner* corners, int n, bool filled) {
  float xs[kMostCorners], ys[kMostCorners];
  for (int i = 0; i <= n; ++i) {
    const Corner c = corners[i % n];
    const int x = shifted(p.x, c.x, p.half), y = shifted(p.y, c.y, p.half);
    canvasLine(canvas, x, y, i == 0 ? kCanvasMove : kCanvasDraw);
    xs[i % n] = static_cast<float>(x);
    ys[i % n] = static_cast<float>(y);
  }
  flushCanvas(canvas);
  if (filled) fillArea(canvas, xs, ys, n);
}

void drawCircle(RasterCanvas& canvas, const Place& p) {
  constexpr float kStep = 6.2831853F / static_cast<float>(kCircleSteps);
  Corner corners[kCircleSteps];
  for (int i = 0; i < kCircleSteps; ++i) {
    const float angle = static_cast<float>(i) * kStep;
    corners[i] = {std::cos(angle), std::sin(angle)};
  }
  drawOutline(canvas, p, corners, kCircleSteps, false);
}

// The left half of a disc.
void fillHalfDisc(RasterCanvas& canvas, const Place& p) {
  const PixelBox clip = canvas.clip;
  canvas.clip.x2 = clip.x2 < p.x ? clip.x2 : p.x;
  fillDisc(canvas, p.x, p.y, static_cast<float>(p.half));
  canvas.clip = clip;
}

} // namespace

void canvasSymbol(RasterCanvas& canvas, int number, int x, int y, int size) {
  if (number < 0 || number >= kSymbolCount) return;
  const unsigned has = kSymbolElements[number];
  const bool filled = (has & kFilled) != 0;
  const Place p = {x, y, size / 2};
  if (has & kPlus) {
    drawLine(canvas, p, -1, 0, 1, 0);
    drawLine(canvas, p, 0, -1, 0, 1);
  }
  if (has & kCross) {
    drawLine(canvas, p, -1, -1, 1, 1);
    drawLine(canvas, p, -1, 1, 1, -1);
  }
  if (has & kSquare) drawOutline(canvas, p, kSquareCorners, 4, filled);
  if (has & kOctagon) drawOutline(canvas, p, kOctagonCorners, 8, filled);
  if (has & kTriangleUp) drawOutline(canvas, p, kUpCorners, 3, filled);
  if (has & kTriangleDown) drawOutline(canvas, p, kDownCorners, 3, filled);
  if (has & kDiamond) drawOutline(canvas, p, kDiamondCorners, 4, filled);
  if (has & kCircle) drawCircle(canvas, p);
  if (has & kDiameter) drawLine(canvas, p, -1, 0, 1, 0);
  flushCanvas(canvas);
  if (has & kDisc) fillDisc(canvas, x, y, static_cast<float>(p.half));
  if (has & kHalfDisc) fillHalfDisc(canvas, p);
}

} // namespace quilla
