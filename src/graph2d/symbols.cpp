#include "graph2d/symbols.h"

#include <cmath>
#include <span>

#include "core/page.h"
#include "core/pipeline.h"
#include "core/shields.h"
#include "device/sink.h"

namespace quilla {

namespace {

// Outlines in a square of -50 to 50, y downwards.
struct Point {
  signed char x, y;
};
constexpr Point kSquare[] = {{-50, -50}, {-50, 50}, {50, 50}, {50, -50}, {-50, -50}};
constexpr Point kOctagon[] = {{-20, -50}, {-50, -20}, {-50, 20}, {-20, 50}, {20, 50},
                              {50, 20},   {50, -20},  {20, -50}, {-20, -50}};
constexpr Point kTriangleUp[] = {{0, -50}, {50, 50}, {-50, 50}, {0, -50}};
constexpr Point kTriangleDown[] = {{0, 50}, {-50, -50}, {50, -50}, {0, 50}};
constexpr Point kDiamond[] = {{0, -50}, {-50, 0}, {0, 50}, {50, 0}, {0, -50}};
constexpr Point kHorizontal[] = {{-50, 0}, {50, 0}};
constexpr Point kVertical[] = {{0, -50}, {0, 50}};
constexpr Point kFalling[] = {{-50, -50}, {50, 50}};
constexpr Point kRising[] = {{-50, 50}, {50, -50}};
constexpr Point kCircle[] = {{49, 0},    {49, -9},  {42, -27}, {27, -42}, {9, -49},  {-9, -49}, {-27, -42},
                             {-42, -27}, {-49, -9}, {-49, 0},  {-49, 9},  {-42, 27}, {-27, 42}, {-9, 49},
                             {9, 49},    {27, 42},  {42, 27},  {49, 9},   {49, -9}};
constexpr Point kHalfCircle[] = {{49, 0},    {49, -9},   {42, -27}, {27, -42}, {9, -49}, {-9, -49},
                                 {-27, -42}, {-42, -27}, {-49, -9}, {-49, 0},  {49, 0}};

using Outline = std::span<const Point>;
constexpr int kOutlines = 3;
struct SymbolShape {
  Outline outlines[kOutlines];
  bool filled;
};
constexpr SymbolShape kSymbols[kHighestSymbol + 1] = {
    {{kSquare}, false},
    {{kOctagon}, false},
    {{kTriangleUp}, false},
    {{kHorizontal, kVertical}, false},
    {{kFalling, kRising}, false},
    {{kDiamond}, false},
    {{kTriangleDown}, false},
    {{kSquare, kFalling, kRising}, false},
    {{}, false}, // plus with cross: four lines, see below
    {{kDiamond, kHorizontal, kVertical}, false},
    {{kOctagon, kHorizontal, kVertical}, false},
    {{kTriangleUp, kTriangleDown}, false},
    {{kSquare, kHorizontal, kVertical}, false},
    {{kOctagon, kFalling, kRising}, false},
    {{kSquare, kTriangleUp}, false},
    {{kCircle}, false},
    {{kSquare}, true},
    {{kOctagon}, true},
    {{kTriangleUp}, true},
    {{kDiamond}, true},
    {{kTriangleDown}, true},
    {{kCircle}, true},
    {{kHalfCircle}, false},
    {{kHalfCircle}, true},
};
constexpr int kPlusWithCross = 8;
constexpr Outline kStar[] = {kHorizontal, kVertical, kFalling, kRising};

struct Frame {
  float x, y, scale, cosine, sine;
};

Frame frameOf(const PlotState* s, int height, float x, float y) {
  float angle = s->curve.symbolAngle * kDegToRad;
  bool turned = s->curve.symbolAngle != 0.0F;
  return {x, y, static_cast<float>(height) / 100.0F, turned ? std::cos(angle) : 1.0F, turned ? std::sin(angle) : 0.0F};
}

struct Spot {
  float x, y;
};

Spot placeAt(const Frame& f, float px, float py) {
  float x = px * f.scale, y = py * f.scale;
  return {f.x + x * f.cosine + y * f.sine, f.y + y * f.cosine - x * f.sine};
}

Spot place(const Frame& f, Point p) { return placeAt(f, static_cast<float>(p.x), static_cast<float>(p.y)); }

// Below the dash stage: a symbol is solid under every line type.
void penTo(PlotState* s, Spot spot, bool move) {
  float x = spot.x + static_cast<float>(s->page.originX), y = spot.y + static_cast<float>(s->page.originY);
  if (move) {
    pathMove(s, x, y);
  } else {
    pathDraw(s, x, y);
  }
}

void strokeOutline(PlotState* s, const Frame& f, Outline outline) {
  for (std::size_t i = 0; i < outline.size(); i++) penTo(s, place(f, outline[i]), i == 0);
}

void fillOutline(PlotState* s, const Frame& f, Outline outline) {
  constexpr std::size_t kMostPoints = 32;
  float xs[kMostPoints], ys[kMostPoints];
  std::size_t n = outline.size() - 1; // without the closing point
  for (std::size_t i = 0; i < n; i++) {
    Spot spot = place(f, outline[i]);
    xs[i] = spot.x;
    ys[i] = spot.y;
  }
  fillSolid(s, xs, ys, static_cast<int>(n));
}

// The outline of MYSYMB in the same square as the others, closed by its last point if it repeats the first.
void drawUserSymbol(PlotState* s, const Frame& f) {
  const CurveGroup& c = s->curve;
  float xs[kUserSymbolLimit], ys[kUserSymbolLimit];
  for (int i = 0; i < c.userSymbolN; i++) {
    Spot spot = placeAt(f, c.userSymbolX[i], c.userSymbolY[i]);
    xs[i] = spot.x;
    ys[i] = spot.y;
    if (!c.userSymbolFilled) penTo(s, spot, i == 0);
  }
  if (c.userSymbolFilled) fillSolid(s, xs, ys, c.userSymbolN);
}

} // namespace

namespace {

void drawShape(PlotState* s, int symbol, const Frame& f) {
  if (symbol == kPlusWithCross) {
    for (Outline outline : kStar) strokeOutline(s, f, outline);
    return;
  }
  const SymbolShape& shape = kSymbols[symbol];
  for (Outline outline : shape.outlines) {
    if (outline.empty()) continue;
    if (shape.filled) {
      fillOutline(s, f, outline);
    } else {
      strokeOutline(s, f, outline);
    }
  }
}

// Upright symbols on a device with symbols of its own.
bool drawnByDevice(PlotState* s, int symbol, int height, float x, float y) {
  if (s->curve.symbolAngle != 0.0F || s->shield.shieldCount != 0 || isPageMoved(s) || s->clip.clipIsCircle)
    return false;
  flushPath(s);
  return sinkSymbol(s, symbol, x + static_cast<float>(s->page.originX), y + static_cast<float>(s->page.originY),
                    static_cast<float>(height));
}

// Lines that are drawn later keep out of the circle around a symbol (SHIELD "SYMB").
void shieldSymbol(PlotState* s, int height, float x, float y) {
  const int data[] = {roundHalfUp(x) + s->page.originX, roundHalfUp(y) + s->page.originY, height / 2};
  addShield(s, kShieldCircle, kShieldSymbols, data);
}

} // namespace

void drawSymbol(PlotState* s, int symbol, int height, float x, float y) {
  Frame f = frameOf(s, height, x, y);
  if (s->curve.userSymbolOn && symbol == s->curve.userSymbolId) {
    drawUserSymbol(s, f);
  } else if (symbol >= 0 && symbol <= kHighestSymbol) {
    if (!drawnByDevice(s, symbol, height, x, y)) drawShape(s, symbol, f);
  } else {
    return;
  }
  if (s->shield.shieldAreaOn[kShieldSymbols - 1]) shieldSymbol(s, height, x, y);
}

} // namespace quilla
