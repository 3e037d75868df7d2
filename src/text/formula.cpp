// The engine of the formula mode, and its routines.
#include "text/formula.h"

#include <cmath>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"
#include "text/formula_marks.h"
#include "text/text.h"
#include "text/text_walk.h"

namespace quilla {
namespace {

void drawCharacterAt(PlotState* s, int alphabet, int code, float x, float y) {
  TextState& t = s->textState;
  t.textCursorX = t.textStartX;
  t.textCursorY = t.textStartY;
  moveForward(s, x);
  moveUp(s, y);
  drawTextCharacter(s, alphabet, code);
}

void drawFenceSide(PlotState* s, const FormulaBox& fence, const FormulaBox& inner, int code, float x, float y) {
  if (code == '.') return;
  const FenceSide f = fenceSide(s, fence, inner, code);
  if (s->text.texBracket == kBracketVector) {
    drawVectorBracket(s, code, x, f.width, y + f.low, y + f.high);
    return;
  }
  const float routineWidth = s->text.charWidthFactor;
  changeHeight(s, f.height);
  changeWidthFactor(s, f.widthFactor);
  drawCharacterAt(s, kAlphabetStandard, code, x, y + f.y);
  changeWidthFactor(s, routineWidth);
}

void drawBox(PlotState* s, const Formula* formula, int index, float x, float y) {
  const FormulaBox& box = formula->boxes[index];
  const auto child = [&](int i) -> const FormulaBox& { return formula->boxes[i]; };
  const auto drawChild = [&](int i) { drawBox(s, formula, i, x + child(i).x, y + child(i).y); };
  const float h = static_cast<float>(box.height);
  if (box.kind != BoxKind::Row && box.color != s->color.currentColor) setColor(s, box.color);
  switch (box.kind) {
  case BoxKind::Row:
    for (int i = box.first; i >= 0; i = child(i).next) drawBox(s, formula, i, x + child(i).x, y);
    break;
  case BoxKind::Character:
    changeHeight(s, box.height);
    drawCharacterAt(s, box.alphabet, box.code, x, y);
    break;
  case BoxKind::Space: break;
  case BoxKind::Scripts:
    drawBox(s, formula, box.first, x + child(box.first).x, y);
    if (box.second >= 0) drawChild(box.second);
    if (box.third >= 0) drawChild(box.third);
    break;
  case BoxKind::Fraction:
    drawFractionBar(s, x, y + kFractionBar * h, box.width);
    drawChild(box.first);
    drawChild(box.second);
    break;
  case BoxKind::Root: {
    const FormulaBox& radicand = child(box.first);
    drawRootSign(s, x + box.amount, y, h, radicand.width, radicand.up, radicand.down);
    drawChild(box.first);
    if (box.second >= 0) drawChild(box.second);
    break;
  }
  case BoxKind::Accent:
    drawBox(s, formula, box.first, x, y);
    if (child(box.first).color != box.color) setColor(s, box.color);
    drawAccent(s, static_cast<AccentKind>(box.code), x, y, h, child(box.first));
    break;
  case BoxKind::Fence: {
    const FormulaBox& inner = child(box.first);
    const int right = static_cast<int>(box.amount);
    drawFenceSide(s, box, inner, box.code, x, y);
    drawBox(s, formula, box.first, x + inner.x, y);
    if (box.color != s->color.currentColor) setColor(s, box.color);
    const FenceSide f = fenceSide(s, box, inner, right);
    drawFenceSide(s, box, inner, right, x + box.width - f.width, y);
    break;
  }
  case BoxKind::Bracket:
  case BoxKind::Operator:
    changeHeight(s, static_cast<int>(std::fmax(1.0F, std::round(h * box.amount))));
    drawCharacterAt(s, box.kind == BoxKind::Operator ? kAlphabetMath : kAlphabetStandard, box.code, x, y + box.y);
    break;
  case BoxKind::Copyright: drawCopyright(s, x, y, h); break;
  }
}

} // namespace

void drawFormula(PlotState* s, const Formula* formula) { drawBox(s, formula, formula->root, 0.0F, 0.0F); }

int texLayout(PlotState* s, int count, bool measure, FormulaExtent* extent) {
  Formula formula;
  if (!parseFormula(s, count, &formula)) return 1;
  const WalkSettings saved = beginSettings(s);
  const bool measuring = s->textState.textMeasure;
  s->textState.textMeasure = true;
  measureFormula(s, &formula);
  s->textState.textMeasure = measuring;
  const FormulaBox& root = formula.boxes[formula.root];
  *extent = {root.width, root.gap, root.up, root.down};
  if (!measure) drawFormula(s, &formula);
  endSettings(s, saved);
  return 0;
}

} // namespace quilla

using namespace quilla;

void TEXMOD(const char* mode) {
  PlotState* s = setterCheck("texmod");
  if (!s) return;
  const int key = matchKeyword(s, "OFF +ON  ", 2, mode);
  if (key != 0) s->text.texOn = key == 2;
}

void TEXOPT(const char* value, const char* option) {
  PlotState* s = setterCheck("texopt");
  if (!s) return;
  const int key = matchKeyword(s, "LIMI+ITAL+BRAC", 3, option);
  if (key == 0) return;
  const int chosen = key == 3 ? matchKeyword(s, "STAN+VECT", 2, value) : matchKeyword(s, "OFF +ON  ", 2, value);
  if (chosen == 0) return;
  if (key == 1) s->text.texLimits = chosen == 2;
  if (key == 2) s->text.texItalic = chosen == 2;
  if (key == 3) s->text.texBracket = chosen == 2 ? kBracketVector : kBracketGlyph;
}

void TEXVAL(float x, const char* option) {
  PlotState* s = setterCheck("texval");
  if (!s) return;
  TextGroup& t = s->text;
  float* const targets[] = {&t.texExpFactor, &t.texH1Bracket, &t.texH2Bracket,
                            &t.texVBracket,  &t.texOperator,  &t.texWBracket};
  constexpr int kVerticalKey = 4, kWidthKey = 6;
  const int key = matchKeyword(s, "EXP +H1BR+H2BR+VBRA+OPER+WBRA", 6, option);
  if (key == 0) return;
  if ((key == kVerticalKey || key == kWidthKey) && !(x > 0.0F)) {
    char text[64];
    numberText(s, static_cast<double>(x), 2, text, sizeof text, 0);
    warnWithString(s, 2, text);
    return;
  }
  *targets[key - 1] = x;
}
