// Commands of the instruction alphabet.
#include "text/instructions.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "core/colors.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "text/stroke_font.h"
#include "text/text_walk.h"

namespace quilla {
namespace {

enum InstructionMessage : int { kBadParameter = 43, kBadTab = 44, kNoInteger = 45, kUnknownCommand = 46 };
constexpr int kHighestTextSymbol = 21;
constexpr float kScriptSize = 0.6F;

enum ArgumentKind { kArgNone, kArgDefault, kArgInteger, kArgReal, kArgBad };
struct Argument {
  ArgumentKind kind = kArgNone;
  bool negative = false;
  float value = 0.0F;
};

// "X" alone, or an optional sign, digits, and an optional point with more digits.
Argument parseArgument(const char* text) {
  Argument a;
  if (!*text) return a;
  if ((text[0] == 'X' || text[0] == 'x') && !text[1]) {
    a.kind = kArgDefault;
    return a;
  }
  a.kind = kArgBad;
  const char* p = text;
  a.negative = *p == '-';
  if (a.negative) ++p;
  double value = 0.0, place = 1.0;
  int digits = 0;
  bool point = false;
  for (; *p; ++p) {
    if (*p == '.' && !point) {
      point = true;
    } else if (*p >= '0' && *p <= '9') {
      ++digits;
      if (point) place /= 10.0;
      value = point ? value + (*p - '0') * place : value * 10.0 + (*p - '0');
    } else {
      return a;
    }
  }
  if (digits == 0) return a;
  a.kind = point ? kArgReal : kArgInteger;
  a.value = static_cast<float>(a.negative ? -value : value);
  return a;
}

void report(PlotState* s, int number) {
  const TextState& t = s->textState;
  if (t.textMeasure) return;
  char text[kCommandLength + 2];
  text[0] = t.command.letter;
  std::memcpy(text + 1, t.command.argument, static_cast<std::size_t>(t.command.length));
  text[t.command.length + 1] = '\0';
  warnWithString(s, number, text);
}

// Real argument or its default; false after a message.
bool realArgument(PlotState* s, const Argument& a, float standard, float* value) {
  if (a.kind == kArgBad) {
    report(s, kBadParameter);
    return false;
  }
  *value = a.kind == kArgNone || a.kind == kArgDefault ? standard : a.value;
  return true;
}

bool integerArgument(PlotState* s, const Argument& a, int low, int high, int standard, int badRange, int* value) {
  if (a.kind == kArgBad || a.kind == kArgReal) {
    report(s, a.kind == kArgReal ? kNoInteger : kBadParameter);
    return false;
  }
  const float v = a.kind == kArgInteger ? a.value : static_cast<float>(standard);
  if (v < static_cast<float>(low) || v > static_cast<float>(high)) {
    report(s, badRange);
    return false;
  }
  *value = static_cast<int>(v);
  return true;
}

// Lines from a tab to the cursor at heights above the baseline.
void drawTextLine(PlotState* s, float from, float to, float height) {
  const TextState& t = s->textState;
  const float c = s->text.textCos, n = s->text.textSin;
  const float h = height * static_cast<float>(s->text.textHeight);
  pathMove(s, t.textStartX + from * c - h * n, t.textStartY - from * n - h * c);
  pathDraw(s, t.textStartX + to * c - h * n, t.textStartY - to * n - h * c);
}

void lineCommand(PlotState* s, const Argument& a, char letter) {
  int tab;
  if (!integerArgument(s, a, 1, kTabCount, 1, kBadTab, &tab) || s->textState.textMeasure) return;
  const float from = s->textState.tabs[tab - 1], to = lineDistance(s);
  if (letter == 'V') {
    drawTextLine(s, from, to, 0.5F);
    return;
  }
  drawTextLine(s, from, to, -0.2F);
  if (letter == 'J') drawTextLine(s, from, to, -0.4F);
}

// Moves by counts of gaps and blanks, to tabs and distances.
void moveCommand(PlotState* s, const Argument& a, char letter) {
  constexpr int kFarthest = 100000;
  TextState& t = s->textState;
  int n;
  float x;
  const float h = static_cast<float>(s->text.textHeight);
  switch (letter) {
  case 'P':
    if (integerArgument(s, a, 1, kTabCount, 1, kBadTab, &n)) t.tabs[n - 1] = lineDistance(s);
    break;
  case 'G':
    if (integerArgument(s, a, 1, kTabCount, 1, kBadTab, &n)) moveForward(s, t.tabs[n - 1] - lineDistance(s));
    break;
  case 'T':
    if (integerArgument(s, a, -kFarthest, kFarthest, 0, kBadParameter, &n)) {
      moveForward(s, static_cast<float>(n) - lineDistance(s));
    }
    break;
  case 'A':
    if (realArgument(s, a, 1.0F, &x)) moveForward(s, x * h);
    break;
  case 'C':
    if (integerArgument(s, a, -kFarthest, kFarthest, 1, kBadParameter, &n)) {
      setAlphabet(s, t.returnAlphabet);
      moveForward(s, static_cast<float>(n) * t.gap);
    }
    break;
  default:
    if (integerArgument(s, a, -kFarthest, kFarthest, 1, kBadParameter, &n)) {
      setAlphabet(s, t.returnAlphabet);
      const float cell = s->text.fixedSpacingOn
                             ? s->text.fixedSpacing * kFixedSpacingCell * s->text.charWidthFactor * (h - 1.0F)
                             : static_cast<float>(s->font.blankWidth) * t.scaleX;
      moveForward(s, static_cast<float>(n) * (cell + t.gap));
    }
    break;
  }
}

// Up shifts and heights.
void shiftCommand(PlotState* s, const Argument& a, char letter) {
  TextState& t = s->textState;
  const float h = static_cast<float>(s->text.textHeight), original = static_cast<float>(t.originalHeight);
  float x;
  switch (letter) {
  case 'U':
  case 'D':
    if (!realArgument(s, a, 1.0F, &x)) return;
    t.textUpShift = a.kind == kArgDefault ? 0.0F : x * (a.negative ? original : h) * (letter == 'U' ? 1.0F : -1.0F);
    break;
  case 'O':
    if (!realArgument(s, a, 1.0F, &x)) return;
    t.secondUpShift = a.kind == kArgDefault ? 0.0F : x * h;
    break;
  case 'H':
    if (!realArgument(s, a, kScriptSize, &x)) return;
    if (a.kind == kArgDefault) {
      changeHeight(s, t.originalHeight);
    } else {
      changeHeight(s, roundHalfUp(a.negative ? -x * original : x * h));
    }
    break;
  case 'R':
    t.textUpShift = 0.0F;
    changeHeight(s, t.originalHeight);
    break;
  default:
    if (a.kind != kArgNone && a.kind != kArgDefault) {
      report(s, kBadParameter);
      return;
    }
    if (a.kind == kArgDefault) {
      t.textUpShift = 0.0F;
      changeHeight(s, t.originalHeight);
    } else {
      t.textUpShift += (letter == 'E' ? 0.75F : -0.35F) * h;
      changeHeight(s, roundHalfUp(kScriptSize * h));
    }
    break;
  }
}

// Spacing, width, slant, alphabet and colour of what follows.
void styleCommand(PlotState* s, const Argument& a, char letter) {
  TextState& t = s->textState;
  const bool standard = a.kind == kArgDefault;
  float x;
  int n;
  switch (letter) {
  case 'K':
    if (!realArgument(s, a, 0.8F, &x)) return;
    s->text.fixedSpacingOn = !standard;
    s->text.fixedSpacing = x;
    t.lastAlphabet = 0;
    break;
  case 'W':
    if (!realArgument(s, a, 1.0F, &x)) return;
    if (!standard && (x <= 0.0F || x >= 2.0F)) {
      report(s, kBadParameter);
      return;
    }
    changeWidthFactor(s, standard ? t.routineWidth : x);
    break;
  case 'Y':
    if (!realArgument(s, a, 0.0F, &x)) return;
    s->text.charSpacing = standard ? t.routineSpacing : x;
    t.lastAlphabet = 0;
    break;
  case 'Z':
    if (!realArgument(s, a, 0.0F, &x)) return;
    if (std::fabs(x) > 60.0F) {
      report(s, kBadParameter);
      return;
    }
    s->text.charSlant = standard ? t.routineSlant : std::fabs(x) < 0.5F ? 0.0F : std::tan(x * kDegToRad);
    break;
  case 'M':
    if (integerArgument(s, a, 1, kAlphabetSlots, 1, kBadParameter, &n)) {
      t.returnAlphabet = standard ? s->font.baseAlphabet : n;
    }
    break;
  default:
    if (integerArgument(s, a, 0, kColorTableSize - 1, 1, kBadParameter, &n) && !t.textMeasure) {
      setColor(s, standard ? t.originalColor : n);
    }
    break;
  }
}

void symbolCommand(PlotState* s, const Argument& a) {
  TextState& t = s->textState;
  int n;
  if (!integerArgument(s, a, 0, kHighestTextSymbol, 0, kBadParameter, &n)) return;
  const float h = static_cast<float>(s->text.textHeight);
  if (!t.textMeasure && t.symbolDrawer) {
    const float along = h / 2.0F, up = h / 2.0F + t.textUpShift + t.secondUpShift;
    const float x = t.textCursorX + along * s->text.textCos - up * s->text.textSin;
    const float y = t.textCursorY - along * s->text.textSin - up * s->text.textCos;
    t.symbolDrawer(s, n, x, y, h, static_cast<float>(s->text.textAngle));
  }
  setAlphabet(s, t.returnAlphabet);
  moveForward(s, h);
  t.largestDistance = std::fmax(t.largestDistance, lineDistance(s));
  moveForward(s, t.gap);
}

void runCommand(PlotState* s) {
  const Argument a = parseArgument(s->textState.command.argument);
  char letter = s->textState.command.letter;
  if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  switch (letter) {
  case 0: break;
  case 'P':
  case 'G':
  case 'T':
  case 'A':
  case 'C':
  case 'F': moveCommand(s, a, letter); break;
  case 'U':
  case 'D':
  case 'I':
  case 'E':
  case 'R':
  case 'H':
  case 'O': shiftCommand(s, a, letter); break;
  case 'L':
  case 'J':
  case 'V': lineCommand(s, a, letter); break;
  case 'S': symbolCommand(s, a); break;
  case 'K':
  case 'M':
  case 'N':
  case 'W':
  case 'Y':
  case 'Z': styleCommand(s, a, letter); break;
  default: report(s, kUnknownCommand); break;
  }
}

} // namespace

void readInstruction(PlotState* s, int code) {
  TextCommand& command = s->textState.command;
  if (code == ' ') return;
  const bool argument = (code >= '0' && code <= '9') || code == '.' || code == '-' || code == 'x' || code == 'X';
  if (argument) {
    if (command.length < kCommandLength) command.argument[command.length++] = static_cast<char>(code);
    command.argument[command.length] = '\0';
    return;
  }
  runCommand(s);
  command = TextCommand();
  command.letter = static_cast<char>(code);
}

void finishInstructions(PlotState* s) {
  runCommand(s);
  s->textState.command = TextCommand();
}

} // namespace quilla
