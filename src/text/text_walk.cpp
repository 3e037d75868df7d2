// The walk over a text: alphabet shifts, exponents, and each character by its font.
#include "text/text_walk.h"

#include <algorithm>
#include <cstring>

#include "core/colors.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/sink.h"
#include "text/code_pages.h"
#include "text/coding.h"
#include "text/driver_fonts.h"
#include "text/instructions.h"
#include "text/stroke_font.h"
#include "text/truetype_text.h"

namespace quilla {
namespace {

constexpr int kDevicePdf = 511;
constexpr int kLastDriverCode = 186;

// True if the character is drawn in the driver's font.
bool byDriver(const PlotState* s, int alphabet) {
  if (s->font.fontKind != kFontPostScript || s->plane.on) return false; // no device projects its characters
  const int mode = s->text.psShiftFonts;
  if (alphabet == kAlphabetGreek) return mode == 1 || mode == 3;
  if (alphabet == kAlphabetItalic) return mode == 2 || mode == 3;
  return alphabet == kAlphabetStandard;
}

// The keys of the Greek alphabet as those of the Symbol font.
int symbolKey(int code) {
  switch (code) {
  case 'C': return 'G';
  case 'G': return 'C';
  case 'U': return 'Y';
  case 'Y': return 'U';
  case 'c': return 'g';
  case 'g': return 'c';
  case 'u': return 'y';
  case 'y': return 'u';
  default: return code;
  }
}

float fixedCell(const PlotState* s) {
  return s->text.fixedSpacing * kFixedSpacingCell * s->text.charWidthFactor *
         (static_cast<float>(s->text.textHeight) - 1.0F);
}

void advance(PlotState* s, float width, float gap) {
  TextState& t = s->textState;
  t.largestDistance = std::max(t.largestDistance, lineDistance(s) + width);
  t.gap = t.lastGap = gap;
  t.lastWidth = width;
  moveForward(s, width + gap);
}

// Heights of the characters of driver fonts, whose outlines are not known here, by their kind.
void estimateInk(PlotState* s, int code) {
  constexpr float kXHeight = 0.7F, kDescender = 0.3F, kBracketUp = 1.05F;
  TextState& t = s->textState;
  const float h = static_cast<float>(s->text.textHeight) - 1.0F;
  const char c = code < 127 ? static_cast<char>(code) : 'A';
  t.inkUp = std::strchr("acegmnopqrsuvwxyz", c) ? kXHeight * h : h;
  t.inkDown = std::strchr("gjpqy", c) ? kDescender * h : 0.0F;
  if (std::strchr("()[]{}|/", c)) {
    t.inkUp = kBracketUp * h;
    t.inkDown = kDescender * h;
  }
  if (c == ' ') t.inkUp = t.inkDown = 0.0F;
}

// Heights of a stroke glyph.
void measureStrokes(PlotState* s, const AlphabetSlot& slot, const std::int16_t* record, float unit) {
  TextState& t = s->textState;
  t.inkUp = t.inkDown = 0.0F;
  if (!record) return;
  const GlyphHeights heights = recordHeights(slot, record, unit);
  t.inkUp = heights.high * t.scaleY;
  t.inkDown = -heights.low * t.scaleY;
}

void driverCharacter(PlotState* s, int code) {
  TextState& t = s->textState;
  if (code == kCopyrightCode) {
    code = kDriverCopyrightCode;
  } else if (code > kLastDriverCode) {
    code = ' ';
  }
  constexpr float kPointsPerTenthMillimetre = 0.28346458F, kWidthUnits = 40.0F, kDriverGap = 0.1F;
  const float h = static_cast<float>(s->text.textHeight);
  const float width = static_cast<float>(s->font.charWidths[code - kFirstCode]) / kWidthUnits * h *
                      kPointsPerTenthMillimetre * (1000.0F / static_cast<float>(s->font.fontCapHeight)) *
                      s->text.charWidthFactor;
  if (t.measureInk) estimateInk(s, code);
  const bool fixed = s->text.fixedSpacingOn;
  const float cell = fixed ? fixedCell(s) : width;
  if (!t.textMeasure && !s->measure.on) {
    const float inset = (cell - width) / 2.0F, up = t.textUpShift + t.secondUpShift;
    DriverGlyph glyph;
    glyph.code = code;
    glyph.x = t.textCursorX + s->text.textCos * inset - s->text.textSin * up;
    glyph.y = t.textCursorY - s->text.textSin * inset - s->text.textCos * up;
    glyph.advance = width;
    glyph.angle = s->text.textAngle % 360;
    qqglyph(s, glyph);
  }
  advance(s, cell, h * (fixed ? s->text.charSpacing : s->text.charSpacing + kDriverGap));
}

void trueTypeCharacter(PlotState* s, int code) {
  constexpr float kOutlineGap = 0.18F;
  const float h = static_cast<float>(s->text.textHeight);
  const float width = drawOutlineGlyph(s, code, fixedCell(s));
  advance(s, width, h * (s->text.fixedSpacingOn ? s->text.charSpacing : s->text.charSpacing + kOutlineGap));
}

// Alphabet 4 of fonts that share slot 1's tables there is slot 1, slanted.
bool slantedStandard(const PlotState* s, int alphabet) {
  return alphabet == kAlphabetItalic && s->font.fontId != kComplx && s->font.fontId != kGothic;
}

void strokeCharacter(PlotState* s, int alphabet, int ordinal) {
  TextState& t = s->textState;
  const int fontId = s->font.fontId;
  GlyphChoice choice = {ordinal, false};
  if (slantedStandard(s, alphabet)) {
    t.italicFlag = true;
  } else {
    choice = remapOrdinal(alphabet, fontId, s->font.slots[kAlphabetMath - 1].alphaCount, ordinal);
  }
  if (choice.fromStandard) {
    setAlphabet(s, kAlphabetStandard);
    if (alphabet == kAlphabetScript && fontId != kGothic) {
      t.italicFlag = true;
      if (t.lastSentToStan == 0 && choice.ordinal != kBlankOrdinal) moveForward(s, t.gap);
    }
    if (alphabet == kAlphabetItalic && fontId == kComplx) t.italicFlag = true;
  }
  t.lastSentToStan = choice.fromStandard ? 1 : 0;

  const AlphabetSlot& slot = s->font.slots[s->font.currentAlphabet - 1];
  const std::int16_t* record = glyphRecord(slot, choice.ordinal);
  const float unit = slot.alphaPacked ? kLineFontUnit : kOutlineFontUnit;
  const float width = record ? glyphWidth(s, slot, record, unit) : static_cast<float>(s->font.blankWidth) * t.scaleX;
  if (t.measureInk) measureStrokes(s, slot, record, unit);
  const float cell = s->text.fixedSpacingOn ? fixedCell(s) : width;
  const float before = (cell - width) / 2.0F;
  moveForward(s, before);
  if (record && !t.textMeasure) drawGlyph(s, slot, record, unit);
  moveForward(s, -before);
  advance(s, cell, t.gap);
}

// One character after shifts and instructions.
void drawCharacter(PlotState* s, int code) {
  TextState& t = s->textState;
  int alphabet = t.textAlphabet;
  setAlphabet(s, alphabet);
  if (s->font.fontKind == kFontTrueType && s->textState.trueType && alphabet == kAlphabetStandard)
    return trueTypeCharacter(s, code);
  const PrivateCode mapped = mapToGlyph(s, code);
  code = mapped.code;
  if (mapped.alphabet != 0) alphabet = mapped.alphabet;
  bool driver = byDriver(s, alphabet);
  if (driver && code == kCopyrightCode) {
    const int device = s->deviceSetup.deviceNumber;
    if (device >= 501 && device <= 600 && device != kDevicePdf) driver = false;
  }
  if (driver && alphabet == kAlphabetGreek) code = symbolKey(code);
  int ordinal = code - (kFirstCode - 1);
  t.italicFlag = false;
  if (ordinal > s->font.slots[alphabet - 1].alphaCount) {
    ordinal = kBlankOrdinal;
    if (driver) code = ' ';
  }
  setAlphabet(s, alphabet);
  if (driver) {
    driverCharacter(s, code);
  } else {
    strokeCharacter(s, alphabet, ordinal);
  }
  setAlphabet(s, t.textAlphabet);
}

// Takes the characters that open and close alphabet shifts, and instructions; true if the code is used up.
bool takeAlphabetShift(PlotState* s, int code) {
  if (s->text.alphabetShiftCount == 0) return false;
  TextState& t = s->textState;
  if (t.openShift == 0) {
    for (int i = 0; i < s->text.alphabetShiftCount; ++i) {
      const AlphabetShift& shift = s->text.alphabetShifts[i];
      if (shift.alphabet == 0 || static_cast<unsigned char>(shift.in) != code) continue;
      t.openShift = i + 1;
      t.returnAlphabet = t.textAlphabet;
      if (shift.alphabet == kAlphabetInstructions) {
        t.command = TextCommand();
      } else {
        t.textAlphabet = shift.alphabet;
      }
      return true;
    }
    return false;
  }
  const AlphabetShift& shift = s->text.alphabetShifts[t.openShift - 1];
  const bool instructions = shift.alphabet == kAlphabetInstructions;
  if (static_cast<unsigned char>(shift.out) == code) {
    if (instructions) finishInstructions(s);
    t.openShift = 0;
    t.textAlphabet = t.returnAlphabet;
    return true;
  }
  if (instructions) readInstruction(s, code);
  return instructions;
}

// Raises an exponent or lowers an index. An index reaches as far below the line as an exponent reaches above it.
void mixStep(PlotState* s, bool exponent) {
  TextState& t = s->textState;
  const float h = static_cast<float>(s->text.textHeight);
  const float reach = s->text.mixExpShift + s->text.mixExpSize - 1.0F;
  const float rise = h * (exponent ? s->text.mixExpShift : -reach);
  (exponent ? t.exponentSeen : t.indexSeen) = true;
  changeHeight(s, roundHalfUp(h * s->text.mixExpSize));
  moveUp(s, rise);
  t.mixShift += rise;
}

void mixBack(PlotState* s) {
  TextState& t = s->textState;
  changeHeight(s, t.originalHeight);
  moveUp(s, -t.mixShift);
  t.mixShift = 0.0F;
}

// Exponent and index characters of MIXALF; true if the code is used up.
bool takeMixCharacter(PlotState* s, int code) {
  if (!s->text.mixOn || s->textState.openShift != 0) return false;
  if (code == static_cast<unsigned char>(s->text.mixExp)) {
    mixStep(s, true);
  } else if (code == static_cast<unsigned char>(s->text.mixIndex)) {
    mixStep(s, false);
  } else if (code == static_cast<unsigned char>(s->text.mixReset)) {
    mixBack(s);
  } else {
    return false;
  }
  return true;
}

} // namespace

float lineDistance(const PlotState* s) {
  const TextState& t = s->textState;
  return (t.textCursorX - t.textStartX) * s->text.textCos - (t.textCursorY - t.textStartY) * s->text.textSin;
}

void moveForward(PlotState* s, float distance) {
  s->textState.textCursorX += distance * s->text.textCos;
  s->textState.textCursorY -= distance * s->text.textSin;
}

void moveUp(PlotState* s, float distance) {
  s->textState.textCursorX -= distance * s->text.textSin;
  s->textState.textCursorY -= distance * s->text.textCos;
}

void changeHeight(PlotState* s, int height) {
  height = std::clamp(height, 1, kHighestHeight);
  if (height == s->text.textHeight) return;
  s->text.textHeight = height;
  s->textState.lastAlphabet = 0;
  if (s->font.fontKind == kFontPostScript && !s->textState.textMeasure) sinkFont(s, false);
}

void changeWidthFactor(PlotState* s, float factor) {
  if (factor == s->text.charWidthFactor) return;
  s->text.charWidthFactor = factor;
  s->textState.lastAlphabet = 0;
  if (s->font.fontKind == kFontPostScript && !s->textState.textMeasure) sinkFont(s, false);
}

void beginWalk(PlotState* s) {
  TextState& t = s->textState;
  t.textUpShift = t.secondUpShift = 0.0F;
  t.largestDistance = 0.0F;
  t.lastSentToStan = -1;
  t.lastAlphabet = 0;
  t.italicFlag = false;
  t.openShift = 0;
  t.textAlphabet = t.returnAlphabet = s->font.baseAlphabet;
  t.command = TextCommand();
  for (float& tab : t.tabs) tab = 0.0F;
  t.originalHeight = s->text.textHeight;
  t.originalColor = s->color.currentColor;
  t.routineWidth = s->text.charWidthFactor;
  t.routineSpacing = s->text.charSpacing;
  t.routineSlant = s->text.charSlant;
  t.mixShift = 0.0F;
  t.exponentSeen = t.indexSeen = false;
}

WalkSettings beginSettings(PlotState* s) {
  saveDriverFont(s);
  return {s->text};
}

void endSettings(PlotState* s, const WalkSettings& saved) {
  TextState& t = s->textState;
  changeHeight(s, saved.text.textHeight);
  changeWidthFactor(s, saved.text.charWidthFactor);
  s->text = saved.text;
  if (!t.textMeasure && s->color.currentColor != t.originalColor) setColor(s, t.originalColor);
  restoreDriverFont(s);
  t.lastAlphabet = 0;
  s->font.currentAlphabet = s->font.baseAlphabet;
}

void walkText(PlotState* s, int count) {
  const WalkSettings saved = beginSettings(s);
  for (int i = 0; i < count; ++i) {
    const int code = s->textState.textCodes[i];
    if (takeMixCharacter(s, code) || takeAlphabetShift(s, code)) continue;
    drawCharacter(s, code);
  }
  mixBack(s);
  endSettings(s, saved);
}

void drawTextCharacter(PlotState* s, int alphabet, int code) {
  s->textState.textAlphabet = alphabet;
  s->textState.lastSentToStan = -1;
  drawCharacter(s, code);
}

CharacterExtent measureCharacter(PlotState* s, int alphabet, int code) {
  TextState& t = s->textState;
  const bool measuring = t.textMeasure;
  const float x = t.textCursorX, y = t.textCursorY;
  t.textMeasure = t.measureInk = true;
  drawTextCharacter(s, alphabet, code);
  t.measureInk = false;
  t.textMeasure = measuring;
  t.textCursorX = x;
  t.textCursorY = y;
  return {t.lastWidth, t.lastGap, t.inkUp, t.inkDown, t.italicFlag ? t.inkUp / s->font.italicSlant : 0.0F};
}

} // namespace quilla
