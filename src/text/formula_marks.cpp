#include "text/formula_marks.h"

#include <algorithm>
#include <cmath>

#include "core/pipeline.h"
#include "text/text_walk.h"

namespace quilla {
namespace {

struct Spot {
  float x, y;
};

// Page point of a point of the formula: x along the baseline from the start of the line, y above it.
Spot onPage(const PlotState* s, float x, float y) {
  const float c = s->text.textCos, n = s->text.textSin;
  return {s->textState.textStartX + x * c - y * n, s->textState.textStartY - x * n - y * c};
}

void moveTo(PlotState* s, float x, float y) {
  const Spot p = onPage(s, x, y);
  pathMove(s, p.x, p.y);
}
void drawTo(PlotState* s, float x, float y) {
  const Spot p = onPage(s, x, y);
  pathDraw(s, p.x, p.y);
}

constexpr int kCurveSteps = 16;
constexpr float kHalfTurn = 3.14159265F;

// The bow of a parenthesis or half a brace, as the distance from the outer side at t from 0 (low) to 1 (high).
float bow(float t) {
  const float d = 2.0F * t - 1.0F;
  return d * d;
}

// Half a brace from the tip in the middle to one end: out of the tip, straight, and round at the end.
void drawBraceHalf(PlotState* s, float tip, float stem, float end, float middle, float to) {
  const float size =
      std::min(std::fabs(to - middle) / 2.0F, std::fabs(end - tip) * 1.2F) * (to > middle ? 1.0F : -1.0F);
  moveTo(s, tip, middle);
  for (int i = 1; i <= kCurveSteps; ++i) {
    const float a = static_cast<float>(i) / kCurveSteps * kHalfTurn / 2.0F;
    drawTo(s, tip + (stem - tip) * std::sin(a), middle + size * (1.0F - std::cos(a)));
  }
  for (int i = 0; i <= kCurveSteps; ++i) {
    const float a = static_cast<float>(i) / kCurveSteps * kHalfTurn / 2.0F;
    drawTo(s, stem + (end - stem) * (1.0F - std::cos(a)), to - size * (1.0F - std::sin(a)));
  }
}

} // namespace

bool isIntegralCode(int code) {
  const Command plain = findCommand("int"), closed = findCommand("oint");
  return code == plain.value || code == closed.value;
}

FenceSide fenceSide(PlotState* s, const FormulaBox& fence, const FormulaBox& inner, int code) {
  constexpr float kVectorWidth = 0.3F, kVectorOvershoot = 0.1F, kGlyphOvershoot = 1.05F;
  FenceSide f;
  if (code == '.') return f;
  const float h = static_cast<float>(fence.height), middle = (inner.up - inner.down) / 2.0F;
  const float half = (inner.up + inner.down) / 2.0F;
  const TextGroup& text = s->text;
  if (text.texBracket == kBracketVector) {
    f.width = code == '|' ? 0.0F : kVectorWidth * h * text.texWBracket;
    f.high = middle + half * text.texVBracket + kVectorOvershoot * h * text.texH1Bracket;
    f.low = middle - half * text.texVBracket - kVectorOvershoot * h * text.texH2Bracket;
    return f;
  }
  changeHeight(s, fence.height);
  const float routineWidth = s->text.charWidthFactor;
  const CharacterExtent natural = measureCharacter(s, kAlphabetStandard, code);
  const float size = natural.up + natural.down;
  const float scale = size > 0.0F ? std::max(1.0F, 2.0F * half * kGlyphOvershoot / size) : 1.0F;
  f.height = std::clamp(static_cast<int>(std::lround(h * scale)), 1, kHighestHeight);
  f.widthFactor = scale > 1.0F ? routineWidth * text.texWBracket / std::sqrt(scale) : routineWidth;
  changeHeight(s, f.height);
  changeWidthFactor(s, f.widthFactor);
  const CharacterExtent grown = measureCharacter(s, kAlphabetStandard, code);
  changeWidthFactor(s, routineWidth);
  f.width = grown.width;
  f.y = scale > 1.0F ? middle - (grown.up - grown.down) / 2.0F : 0.0F;
  f.high = grown.up + f.y;
  f.low = f.y - grown.down;
  return f;
}

void drawVectorBracket(PlotState* s, int code, float x, float width, float low, float high) {
  const bool left = code == '(' || code == '[' || code == '{' || code == '<';
  const float outer = left ? x : x + width, innerX = left ? x + width : x, middle = (low + high) / 2.0F;
  switch (code) {
  case '(':
  case ')':
    moveTo(s, innerX, low);
    for (int i = 1; i <= kCurveSteps; ++i) {
      const float t = static_cast<float>(i) / kCurveSteps;
      drawTo(s, outer + (innerX - outer) * bow(t), low + t * (high - low));
    }
    break;
  case '[':
  case ']':
    moveTo(s, innerX, low);
    drawTo(s, outer, low);
    drawTo(s, outer, high);
    drawTo(s, innerX, high);
    break;
  case '{':
  case '}':
    drawBraceHalf(s, outer, (outer + innerX) / 2.0F, innerX, middle, high);
    drawBraceHalf(s, outer, (outer + innerX) / 2.0F, innerX, middle, low);
    break;
  case '<':
  case '>':
    moveTo(s, innerX, low);
    drawTo(s, outer, middle);
    drawTo(s, innerX, high);
    break;
  case '/':
    moveTo(s, x, low);
    drawTo(s, x + width, high);
    break;
  default:
    moveTo(s, x, low);
    drawTo(s, x, high);
    break;
  }
}

void drawFractionBar(PlotState* s, float x, float y, float width) {
  moveTo(s, x, y);
  drawTo(s, x + width, y);
}

void drawRootSign(PlotState* s, float x, float y, float h, float width, float up, float down) {
  constexpr float kStart = 0.5F, kTick = 0.25F; // of the height: where the hook starts, and how far it goes up
  constexpr float kTickTop = 0.18F, kFoot = 0.5F, kShoulder = 0.85F;
  moveTo(s, x, y + (kStart)*h);
  drawTo(s, x + kTickTop * h, y + (kStart + kTick / 2.0F) * h);
  drawTo(s, x + kFoot * h, y - down);
  drawTo(s, x + kShoulder * h, y + up + kRootRise * h);
  drawTo(s, x + width + kRootWidth * h, y + up + kRootRise * h);
}

void drawAccent(PlotState* s, AccentKind kind, float x, float y, float h, const FormulaBox& inner) {
  const float foot = y + inner.up + kLineDistance * h, size = kAccentHeight * h;
  // Over a slanted letter accents stand over its top.
  if (kind != AccentKind::Underline) x += inner.lean / 2.0F;
  const float right = x + inner.width - inner.lean / 2.0F;
  const float middle = (x + right) / 2.0F;
  switch (kind) {
  case AccentKind::Underline:
    moveTo(s, x, y - inner.down - kLineDistance * h);
    drawTo(s, right, y - inner.down - kLineDistance * h);
    break;
  case AccentKind::Overline:
    moveTo(s, x, foot);
    drawTo(s, right, foot);
    break;
  case AccentKind::Vector: {
    constexpr float kHead = 0.2F;
    const float line = foot + size / 2.0F, head = std::min(kHead * h, inner.width / 2.0F);
    moveTo(s, x, line);
    drawTo(s, right, line);
    moveTo(s, right - head, line + size / 2.0F);
    drawTo(s, right, line);
    drawTo(s, right - head, line - size / 2.0F);
    break;
  }
  case AccentKind::Hat:
    moveTo(s, x, foot);
    drawTo(s, middle, foot + size);
    drawTo(s, right, foot);
    break;
  case AccentKind::Tilde:
    moveTo(s, x, foot);
    for (int i = 1; i <= kCurveSteps; ++i) {
      const float t = static_cast<float>(i) / kCurveSteps;
      drawTo(s, x + t * inner.width, foot + size * (0.5F + 0.4F * std::sin(2.0F * kHalfTurn * t)));
    }
    break;
  case AccentKind::Dot: {
    constexpr float kRadius = 0.06F;
    for (int ring = 2; ring >= 1; --ring) {
      const float radius = kRadius * h * static_cast<float>(ring) / 2.0F;
      for (int i = 0; i <= kCurveSteps; ++i) {
        const float a = static_cast<float>(i) / kCurveSteps * 2.0F * kHalfTurn;
        const float px = middle + radius * std::cos(a), py = foot + size / 2.0F + radius * std::sin(a);
        if (i == 0) {
          moveTo(s, px, py);
        } else {
          drawTo(s, px, py);
        }
      }
    }
    break;
  }
  }
}

void drawCopyright(PlotState* s, float x, float y, float h) {
  const float r = h / 2.0F;
  moveTo(s, x + 2.0F * r, y + r);
  for (int i = 1; i <= 2 * kCurveSteps; ++i) {
    const float a = static_cast<float>(i) / kCurveSteps * kHalfTurn;
    drawTo(s, x + r + r * std::cos(a), y + r + r * std::sin(a));
  }
  constexpr float kLetter = 0.55F, kOpening = 0.9F; // of the circle; radians
  for (int i = 0; i <= 2 * kCurveSteps; ++i) {
    const float a = kOpening + static_cast<float>(i) / (2.0F * kCurveSteps) * 2.0F * (kHalfTurn - kOpening);
    const float px = x + r + kLetter * r * std::cos(a), py = y + r + kLetter * r * std::sin(a);
    if (i == 0) {
      moveTo(s, px, py);
    } else {
      drawTo(s, px, py);
    }
  }
}

} // namespace quilla
