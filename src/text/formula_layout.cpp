// Extents and places of the boxes of a formula.
#include <algorithm>
#include <cmath>

#include "text/formula.h"
#include "text/formula_marks.h"
#include "text/text_walk.h"

namespace quilla {
namespace {

// Distances as fractions of a height.
constexpr float kTexGap = 0.2F;           // on both sides of operators
constexpr float kScriptGap = 0.12F;       // between a base and its exponent, at most
constexpr float kScriptClearance = 0.25F; // between scripts above each other
constexpr float kLimitClearance = 0.4F;   // between an operator and its limits
constexpr float kTallBase = 1.2F;         // a base higher than this lifts its exponent

constexpr float kExponentRise = 1.1F, kExponentRiseAfterIndex = 0.9F, kExponentRiseAfterBig = 1.25F;
constexpr float kIndexFall = 0.6F;
constexpr float kUpperLimitRise = 2.3F, kLowerLimitFall = 1.8F; // of big operators in display style

constexpr float kFractionClearance = 0.2F; // the bar lies 1.2 of the height below the top of a plain numerator

struct Layout {
  PlotState* s;
  FormulaBox* boxes;
};

void measureBox(Layout& l, int index);

float heightOf(const FormulaBox& box) { return static_cast<float>(box.height); }

void take(FormulaBox& box, const CharacterExtent& e) {
  constexpr float kLeanTaken = 0.5F; // what follows keeps off half the lean
  box.width = e.width + kLeanTaken * e.lean;
  box.gap = e.gap;
  box.up = e.up;
  box.down = e.down;
  box.lean = e.lean;
}

// Space between neighbours beyond the gap of their characters, as a fraction of the height.
float spaceBetween(const FormulaBox& left, Atom leftAtom, Atom rightAtom) {
  if (left.style >= kStyleScript) return 0.0F;
  const auto needs = [](Atom a) { return a == Atom::Binary || a == Atom::Relation; };
  if (needs(leftAtom) || needs(rightAtom)) return kTexGap;
  if (leftAtom == Atom::Punctuation) return kTexGap;
  if (leftAtom == Atom::Operator && rightAtom != Atom::Open && rightAtom != Atom::Close) return kTexGap;
  if (rightAtom == Atom::Operator && (leftAtom == Atom::Ordinary || leftAtom == Atom::Close)) return kTexGap;
  return 0.0F;
}

// A sign before which nothing stands that it could join, or behind which nothing stands, is no binary operator.
Atom effectiveAtom(const FormulaBox& box, Atom before, bool first, bool last) {
  if (box.atom != Atom::Binary) return box.atom;
  const bool joined = !first && !last && (before == Atom::Ordinary || before == Atom::Close);
  return joined ? Atom::Binary : Atom::Ordinary;
}

constexpr int kSlashCode = 140; // "not": drawn over the sign that follows

void measureRow(Layout& l, FormulaBox& row) {
  float x = 0.0F;
  Atom before = Atom::Ordinary;
  const FormulaBox* left = nullptr;
  row.width = row.gap = row.up = row.down = 0.0F;
  for (int i = row.first; i >= 0; i = l.boxes[i].next) {
    measureBox(l, i);
    FormulaBox& box = l.boxes[i];
    const Atom atom = effectiveAtom(box, before, left == nullptr, box.next < 0);
    if (left && box.kind != BoxKind::Space && left->kind != BoxKind::Space)
      x += spaceBetween(*left, before, atom) * heightOf(box);
    box.x = x;
    row.up = std::max(row.up, box.up);
    row.down = std::max(row.down, box.down);
    row.width = std::max(row.width, x + box.width);
    row.gap = box.gap;
    left = &box;
    before = box.kind == BoxKind::Space ? before : atom;
    const bool slash = box.kind == BoxKind::Character && box.alphabet == kAlphabetMath && box.code == kSlashCode;
    if (slash && box.next >= 0 && l.boxes[box.next].kind == BoxKind::Character) {
      measureBox(l, box.next);
      box.x += std::max(0.0F, (l.boxes[box.next].width - box.width) / 2.0F);
      continue;
    }
    x += box.width + box.gap;
  }
  row.lean = left && row.first >= 0 && l.boxes[row.first].next < 0 ? left->lean : 0.0F;
}

void measureOperator(Layout& l, FormulaBox& box) {
  // Parts of the glyph's own height; an integral sign is higher than a sum.
  constexpr float kTextSize = 0.8F, kDisplaySize = 1.1F, kDisplayIntegral = 1.45F, kTextIntegral = 1.0F;
  const bool display = box.style == kStyleDisplay, integral = isIntegralCode(box.code);
  const float size = display ? (integral ? kDisplayIntegral : kDisplaySize) : (integral ? kTextIntegral : kTextSize);
  box.amount = size * l.s->text.texOperator;
  const int full = std::max(1, static_cast<int>(std::lround(heightOf(box) * box.amount)));
  changeHeight(l.s, full);
  const CharacterExtent e = measureCharacter(l.s, kAlphabetMath, box.code);
  box.width = e.width;
  box.gap = e.gap * heightOf(box) / static_cast<float>(l.s->text.textHeight);
  box.y = kMathAxis * heightOf(box) - (e.up - e.down) / 2.0F;
  box.up = e.up + box.y;
  box.down = e.down - box.y;
}

void measureBracket(Layout& l, FormulaBox& box) {
  const int full = std::max(1, static_cast<int>(std::lround(heightOf(box) * box.amount)));
  changeHeight(l.s, full);
  const CharacterExtent e = measureCharacter(l.s, kAlphabetStandard, box.code);
  take(box, e);
  box.y = kMathAxis * heightOf(box) - (e.up - e.down) / 2.0F;
  box.up = e.up + box.y;
  box.down = e.down - box.y;
}

// Exponent and index beside the base.
void placeBeside(const FormulaBox& base, FormulaBox* exponent, FormulaBox* index, bool indexFirst, FormulaBox& box) {
  const bool big = base.kind == BoxKind::Fence || base.kind == BoxKind::Bracket || base.kind == BoxKind::Operator;
  const bool display = base.kind == BoxKind::Operator && base.style == kStyleDisplay;
  const bool tall = base.up > kTallBase * heightOf(base);
  const float x = base.width + std::min(base.gap, kScriptGap * heightOf(base));
  box.width = base.width;
  box.up = base.up;
  box.down = base.down;
  if (exponent) {
    const float g = heightOf(*exponent);
    const float rise = display ? kUpperLimitRise
                       : big   ? kExponentRiseAfterBig
                               : (indexFirst ? kExponentRiseAfterIndex : kExponentRise);
    exponent->x = x;
    exponent->y = rise * g;
    if (tall && !display) exponent->y = std::max(exponent->y, base.up - 0.7F * g);
    // The foot of a deep exponent keeps off the base.
    exponent->y = std::max(exponent->y, exponent->down + 0.35F * g);
  }
  if (index) {
    const float g = heightOf(*index);
    index->x = display && isIntegralCode(base.code) ? base.width * 0.75F + kScriptGap * g : x;
    index->y = -(display ? kLowerLimitFall : kIndexFall) * g;
    if (!display) index->y = std::min(index->y, -(base.down - 0.1F * g));
    if (exponent) {
      const float overlap = index->y + index->up + kScriptClearance * g - (exponent->y - exponent->down);
      if (overlap > 0.0F) index->y -= overlap;
    }
  }
  for (FormulaBox* script : {exponent, index}) {
    if (!script) continue;
    box.width = std::max(box.width, script->x + script->width);
    box.up = std::max(box.up, script->y + script->up);
    box.down = std::max(box.down, script->down - script->y);
  }
}

// Exponent above and index below the base, centred.
void placeAsLimits(FormulaBox& base, FormulaBox* upper, FormulaBox* lower, FormulaBox& box) {
  const bool display = base.kind == BoxKind::Operator && base.style == kStyleDisplay;
  float width = base.width;
  for (const FormulaBox* script : {upper, lower}) {
    if (script) width = std::max(width, script->width);
  }
  base.x = (width - base.width) / 2.0F;
  box.width = width;
  box.up = base.up;
  box.down = base.down;
  if (upper) {
    const float g = heightOf(*upper);
    upper->x = (width - upper->width) / 2.0F;
    upper->y = std::max(display ? kUpperLimitRise * g : 0.0F, base.up + kLimitClearance * g + upper->down);
    box.up = std::max(box.up, upper->y + upper->up);
  }
  if (lower) {
    const float g = heightOf(*lower);
    lower->x = (width - lower->width) / 2.0F;
    lower->y = -std::max(display ? kLowerLimitFall * g : 0.0F, base.down + kLimitClearance * g + lower->up);
    box.down = std::max(box.down, lower->down - lower->y);
  }
}

void measureScripts(Layout& l, FormulaBox& box) {
  for (int i : {box.first, box.second, box.third}) {
    if (i >= 0) measureBox(l, i);
  }
  FormulaBox& base = l.boxes[box.first];
  FormulaBox* exponent = box.second >= 0 ? &l.boxes[box.second] : nullptr;
  FormulaBox* index = box.third >= 0 ? &l.boxes[box.third] : nullptr;
  base.x = 0.0F;
  const bool takesLimits = base.atom == Atom::Operator;
  const bool above =
      takesLimits && (base.limits > 0 || (base.limits == 0 && l.s->text.texLimits && base.style == kStyleDisplay));
  if (above) {
    placeAsLimits(base, exponent, index, box);
  } else {
    placeBeside(base, exponent, index, box.indexFirst, box);
  }
  box.gap = base.gap;
}

void measureFraction(Layout& l, FormulaBox& box) {
  measureBox(l, box.first);
  measureBox(l, box.second);
  FormulaBox &top = l.boxes[box.first], &bottom = l.boxes[box.second];
  const float h = heightOf(box), overhang = 0.1F * h;
  const float width = std::max(top.width, bottom.width) + 2.0F * overhang;
  const float clearance = kFractionClearance * h;
  top.x = (width - top.width) / 2.0F;
  bottom.x = (width - bottom.width) / 2.0F;
  top.y = kFractionBar * h + clearance + top.down;
  bottom.y = kFractionBar * h - clearance - bottom.up;
  box.width = width;
  box.gap = kTexGap * h;
  box.up = top.y + top.up;
  box.down = bottom.down - bottom.y;
}

void measureRoot(Layout& l, FormulaBox& box) {
  measureBox(l, box.first);
  FormulaBox& radicand = l.boxes[box.first];
  const float h = heightOf(box);
  float before = 0.0F;
  box.up = radicand.up + kRootRise * h;
  if (box.second >= 0) {
    measureBox(l, box.second);
    FormulaBox& index = l.boxes[box.second];
    before = std::max(0.0F, index.width - 0.45F * h);
    index.x = std::max(0.0F, 0.45F * h - index.width);
    index.y = 0.9F * h + index.down;
    box.up = std::max(box.up, index.y + index.up);
  }
  radicand.x = before + kRootSign * h;
  box.amount = before;
  box.width = before + radicand.width + kRootWidth * h;
  box.gap = kTexGap * h;
  box.down = std::max(0.0F, radicand.down);
}

void measureAccent(Layout& l, FormulaBox& box) {
  measureBox(l, box.first);
  const FormulaBox& inner = l.boxes[box.first];
  const AccentKind kind = static_cast<AccentKind>(box.code);
  const float h = heightOf(box);
  box.width = inner.width;
  box.gap = inner.gap;
  box.up = inner.up;
  box.down = inner.down;
  if (kind == AccentKind::Underline) {
    box.down += kLineDistance * h;
  } else {
    box.up += (kind == AccentKind::Overline ? kLineDistance : kLineDistance + kAccentHeight) * h;
  }
}

// Brackets around the inner box; their characters are scaled, or they are drawn by lines.
void measureFence(Layout& l, FormulaBox& box) {
  measureBox(l, box.first);
  FormulaBox& inner = l.boxes[box.first];
  float side[2];
  for (int k = 0; k < 2; ++k) {
    const int code = k == 0 ? box.code : static_cast<int>(box.amount);
    const FenceSide f = fenceSide(l.s, box, inner, code);
    side[k] = f.width;
    box.up = std::max(k == 0 ? inner.up : box.up, f.high);
    box.down = std::max(k == 0 ? inner.down : box.down, -f.low);
  }
  const float space = kFenceSpace * heightOf(box);
  inner.x = side[0] + (side[0] > 0.0F ? space : 0.0F);
  box.width = inner.x + inner.width + side[1] + (side[1] > 0.0F ? space : 0.0F);
  box.gap = kTexGap * heightOf(box);
  box.atom = Atom::Ordinary;
}

void measureBox(Layout& l, int index) {
  FormulaBox& box = l.boxes[index];
  switch (box.kind) {
  case BoxKind::Row: measureRow(l, box); break;
  case BoxKind::Character:
    changeHeight(l.s, box.height);
    take(box, measureCharacter(l.s, box.alphabet, box.code));
    break;
  case BoxKind::Space: box.width = box.amount / 18.0F * heightOf(box); break;
  case BoxKind::Scripts: measureScripts(l, box); break;
  case BoxKind::Fraction: measureFraction(l, box); break;
  case BoxKind::Root: measureRoot(l, box); break;
  case BoxKind::Accent: measureAccent(l, box); break;
  case BoxKind::Fence: measureFence(l, box); break;
  case BoxKind::Bracket: measureBracket(l, box); break;
  case BoxKind::Operator: measureOperator(l, box); break;
  case BoxKind::Copyright:
    box.width = box.up = heightOf(box);
    box.gap = kTexGap * heightOf(box);
    break;
  }
}

} // namespace

void measureFormula(PlotState* s, Formula* formula) {
  Layout l = {s, formula->boxes};
  measureBox(l, formula->root);
}

} // namespace quilla
