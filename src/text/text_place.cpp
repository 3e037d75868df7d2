// Placing texts on the page: lengths, frames, backgrounds, MESSAG and its kin.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/shields.h"
#include "device/sink.h"
#include "quilla/quilla.h"
#include "text/coding.h"
#include "text/formula.h"
#include "text/text.h"
#include "text/text_walk.h"

namespace quilla {
namespace {

constexpr int kContinue = 999;         // both coordinates: at the text cursor
constexpr float kTextBoxFactor = 1.4F; // a box is wider than its text by (factor - 1) heights
constexpr int kOutOfPage = 193;

// Rectangle turned by the text angle; corners in order.
struct TextBox {
  float x[4], y[4];
};

struct TextExtent {
  float length;
  bool exponents, indices;
  float up, down; // of a formula, beyond the height of a line and below the baseline
};

// Measures count codes from the cursor's present place; the cursor and the fonts stay. False after a message of the
// formula mode.
bool measure(PlotState* s, int count, TextExtent* extent) {
  TextState& t = s->textState;
  const float x = t.textCursorX, y = t.textCursorY, startX = t.textStartX, startY = t.textStartY;
  const FontGroup font = s->font;
  t.textMeasure = true;
  t.textStartX = t.textCursorX = 0.0F;
  t.textStartY = t.textCursorY = 0.0F;
  beginWalk(s);
  bool good = true;
  if (s->text.texOn) {
    FormulaExtent formula = {};
    good = texLayout(s, count, true, &formula) == 0;
    const float line = static_cast<float>(s->text.textHeight) - 1.0F;
    *extent = {formula.width, false, false, std::max(0.0F, formula.up - line), formula.down};
  } else {
    walkText(s, count);
    *extent = {t.largestDistance, t.exponentSeen, t.indexSeen, 0.0F, 0.0F};
  }
  t.textMeasure = false;
  t.textCursorX = x;
  t.textCursorY = y;
  t.textStartX = startX;
  t.textStartY = startY;
  s->font = font;
  return good;
}

// Box of a text whose baseline starts at the text start, widened by margin on each side and grown by more.
TextBox boxAround(const PlotState* s, const TextExtent& extent, float more) {
  const float h = static_cast<float>(s->text.textHeight), c = s->text.textCos, n = s->text.textSin;
  const float margin = (kTextBoxFactor - 1.0F) * h / 2.0F + more;
  const float reach = h * (s->text.mixExpShift + s->text.mixExpSize - 1.0F);
  const float left = -margin, right = extent.length + margin;
  const float bottom = -margin - (extent.indices ? reach : 0.0F) - extent.down;
  const float top = h - 1.0F + margin + (extent.exponents ? reach : 0.0F) + extent.up;
  const float us[4] = {left, right, right, left}, vs[4] = {bottom, bottom, top, top};
  TextBox box;
  for (int i = 0; i < 4; ++i) {
    box.x[i] = s->textState.textStartX + us[i] * c - vs[i] * n;
    box.y[i] = s->textState.textStartY - us[i] * n - vs[i] * c;
  }
  return box;
}

void fillBackground(PlotState* s, const TextExtent& extent) {
  TextBox box = boxAround(s, extent, 0.0F);
  for (int i = 0; i < 4; ++i) {
    box.x[i] -= static_cast<float>(s->page.originX);
    box.y[i] -= static_cast<float>(s->page.originY);
  }
  const int color = s->color.currentColor;
  setColor(s, s->text.textBackground);
  fillSolid(s, box.x, box.y, 4);
  setColor(s, color);
}

// Lines of a frame lie one unit apart: inward of the box if the thickness is positive, outward otherwise.
void drawFrame(PlotState* s, const TextExtent& extent) {
  const int thickness = s->text.textBoxFrame;
  const int lines = std::min(std::abs(thickness), s->geometry.pageWidth);
  for (int i = 0; i < lines; ++i) {
    const TextBox box = boxAround(s, extent, static_cast<float>(thickness > 0 ? -i : i));
    pathMove(s, box.x[3], box.y[3]);
    for (int k = 0; k < 4; ++k) pathDraw(s, box.x[k], box.y[k]);
  }
}

// Lines that are drawn later keep out of the box of a text (SHIELD "MESS").
void shieldText(PlotState* s, const TextExtent& extent) {
  const TextBox box = boxAround(s, extent, 0.0F);
  const float width = std::hypot(box.x[1] - box.x[0], box.y[1] - box.y[0]);
  const float height = std::hypot(box.x[3] - box.x[0], box.y[3] - box.y[0]);
  const int angle = roundHalfUp(static_cast<float>(s->text.textAngle % 360) * kDegToRad * 1000.0F);
  const int data[] = {roundHalfUp(box.x[3]), roundHalfUp(box.y[3]), roundHalfUp(width), roundHalfUp(height), angle};
  const bool upright = angle == 0;
  addShield(s, upright ? kShieldRectangle : kShieldTurned, kShieldMessages, std::span(data).first(upright ? 4 : 5));
}

void warnOutOfPage(PlotState* s, const char* what, int x, int y) {
  if (s->textState.pageCheckOff) return;
  if (x >= 0 && x <= s->geometry.pageWidth && y >= 0 && y <= s->geometry.pageHeight) return;
  char text[64];
  std::snprintf(text, sizeof text, "%s (%5d/%5d) out of page", what, x, y);
  warnWithText(s, kOutOfPage, text);
}

// Puts the cursor to the baseline below the upper left corner (x, y), or leaves it where the last text ended.
void placeCursor(PlotState* s, int x, int y) {
  TextState& t = s->textState;
  const float up = static_cast<float>(s->text.textHeight) - 1.0F;
  if (x != kContinue || y != kContinue) {
    x = addCoordinates(x, s->page.originX);
    y = addCoordinates(y, s->page.originY);
    t.textCursorX = static_cast<float>(x) + up * s->text.textSin;
    t.textCursorY = static_cast<float>(y) + up * s->text.textCos;
    warnOutOfPage(s, "Startpoint", x, y);
  } else if (!t.cursorPlaced) {
    t.textCursorX = static_cast<float>(s->page.originX);
    t.textCursorY = static_cast<float>(s->page.originY);
  }
  t.cursorPlaced = true;
  t.textStartX = t.textCursorX;
  t.textStartY = t.textCursorY;
}

} // namespace

namespace {

// Length of a text; false if there is nothing to draw.
bool lengthOf(PlotState* s, const char* text, int* length) {
  *length = 0;
  const int count = decodeText(s, text);
  TextExtent extent;
  if (count == 0 || !measure(s, count, &extent)) return false;
  *length = roundHalfUp(extent.length);
  return true;
}

// Draws a formula that has been measured, and moves the cursor behind it.
void drawMeasuredFormula(PlotState* s, int count) {
  TextState& t = s->textState;
  FormulaExtent extent = {};
  texLayout(s, count, false, &extent);
  t.textCursorX = t.textStartX;
  t.textCursorY = t.textStartY;
  t.gap = extent.gap;
  moveForward(s, extent.width + extent.gap);
}

} // namespace

int textLength(PlotState* s, const char* text) {
  int length;
  lengthOf(s, text, &length);
  return length;
}

void textAt(PlotState* s, const char* text, int x, int y) {
  const int count = decodeText(s, text);
  if (count == 0) return;
  TextExtent extent = {};
  const bool shielded = s->shield.shieldAreaOn[kShieldMessages - 1];
  const bool grounded = s->text.textBackground >= 0 && s->area.backgroundsDrawn;
  const bool boxed = grounded || s->text.textBoxFrame != 0 || shielded;
  if ((s->text.texOn || boxed) && !measure(s, count, &extent)) return;
  placeCursor(s, x, y);
  if (grounded) fillBackground(s, extent);
  beginWalk(s);
  if (s->text.texOn) {
    drawMeasuredFormula(s, count);
  } else {
    walkText(s, count);
  }
  const TextState& t = s->textState;
  warnOutOfPage(s, "Endpoint", roundHalfUp(t.textCursorX - t.gap * s->text.textCos),
                roundHalfUp(t.textCursorY + t.gap * s->text.textSin));
  if (s->text.textBoxFrame != 0) drawFrame(s, extent);
  if (shielded) shieldText(s, extent);
}

void textAtWith(PlotState* s, const char* text, int x, int y, int angle, int height) {
  const int oldHeight = s->text.textHeight, oldAngle = s->text.textAngle;
  setTextHeight(s, height);
  setTextAngle(s, angle);
  textAt(s, text, x, y);
  setTextAngle(s, oldAngle);
  setTextHeight(s, oldHeight);
}

void placeText(PlotState* s, const char* text, int x, int y) {
  if (x == kContinue && y == kContinue) {
    textAt(s, text, x, y);
    return;
  }
  const TextGroup& g = s->text;
  int length = 0;
  if (g.textJustifyX != 0 && !lengthOf(s, text, &length)) return;
  const float dx = static_cast<float>(g.textJustifyX == 0 ? 0 : g.textJustifyX == 1 ? length / 2 : length);
  const float dy = static_cast<float>(g.textJustifyY == 0 ? 0 : g.textJustifyY == 1 ? g.textHeight / 2 : g.textHeight);
  const float fx = static_cast<float>(x), fy = static_cast<float>(userY(s, y));
  // Rounded downward, so that a place off the page stays where it is.
  auto nearest = [](float v) { return static_cast<int>(std::clamp(std::floor(v + 0.5F), -2.0e9F, 2.0e9F)); };
  textAt(s, text, nearest(fx - g.textCos * dx - g.textSin * dy), nearest(fy + g.textSin * dx - g.textCos * dy));
}

} // namespace quilla

using namespace quilla;

void MESSAG(const char* text, int nx, int ny) {
  PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, "messag");
  if (!s) return;
  placeText(s, text, nx, ny);
}

int NLMESS(const char* text) {
  PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, "nlmess");
  return s ? textLength(s, text) : 0;
}
