// Numbers as text: decimals, signs, groups and powers of ten.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "core/levels.h"
#include "core/messages.h"
#include "device/writers.h"
#include "quilla/quilla.h"
#include "text/text.h"

namespace quilla {
namespace {

constexpr int kDigitLimit = 100;
constexpr int kPlainSize = 128;    // sign, digits, leading zero and point of a number
constexpr int kNumberSize = 256;   // with group signs and a power of ten
constexpr float kEqualCell = 0.7F; // fixed spacing of NUMODE("EQUA")

// A text of limited size that stays ended by a zero byte.
struct TextBuffer {
  char* text;
  int size, length;
};

void put(TextBuffer& b, char c) {
  if (b.length + 1 >= b.size) return;
  b.text[b.length++] = c;
  b.text[b.length] = '\0';
}
void put(TextBuffer& b, const char* text) {
  for (; *text; ++text) put(b, *text);
}

TextBuffer startBuffer(char* out, int size) {
  if (size > 0) out[0] = '\0';
  return {out, size, 0};
}

bool allZero(const char* digits) {
  for (; *digits; ++digits) {
    if (*digits != '0' && *digits != '.') return false;
  }
  return true;
}

} // namespace

int numberText(const PlotState* s, double value, int digits, char* out, int size, int width) {
  char plain[kPlainSize];
  qqfcha(value, std::clamp(digits, -1, kDigitLimit), plain, 0);
  const char* p = plain;
  const bool negative = *p == '-';
  if (negative) ++p;
  const bool finite = *p >= '0' && *p <= '9';
  const bool zero = finite && allZero(p);

  char made[kNumberSize];
  TextBuffer b = startBuffer(made, kNumberSize);
  if (negative && !zero) put(b, '-');
  if (!negative && !zero && finite && s->text.plusChar) put(b, s->text.plusChar);
  const char* point = std::strchr(p, '.');
  const auto whole = finite ? (point ? point - p : static_cast<std::ptrdiff_t>(std::strlen(p))) : 0;
  for (std::ptrdiff_t i = 0; p[i]; ++i) {
    if (s->text.groupChar && i > 0 && i < whole && (whole - i) % 3 == 0) put(b, s->text.groupChar);
    put(b, p[i] == '.' && finite ? s->text.decimalChar : p[i]);
  }

  TextBuffer result = startBuffer(out, size);
  for (int i = b.length; i < width; ++i) put(result, ' ');
  put(result, made);
  return result.length;
}

int exponentText(const PlotState* s, double value, int digits, int format, char* out, int size) {
  TextBuffer b = startBuffer(out, size);
  char part[kNumberSize];
  if (format == kNumberLog) {
    numberText(s, std::log10(value), digits, part, kNumberSize, 0);
    put(b, "10");
    put(b, s->text.mixExp);
    put(b, part);
    put(b, s->text.mixReset);
    return b.length;
  }
  int exponent = 0;
  double mantissa = value;
  if (value != 0.0 && std::isfinite(value)) {
    exponent = static_cast<int>(std::floor(std::log10(std::fabs(value))));
    mantissa = value / std::pow(10.0, exponent);
  }
  // Rounding to the digits can reach ten; a logarithm just off a power of ten can give less than one.
  char rounded[kPlainSize];
  qqfcha(std::fabs(mantissa), std::clamp(digits, -1, kDigitLimit), rounded, 0);
  if (rounded[0] == '1' && rounded[1] == '0') {
    mantissa /= 10.0;
    ++exponent;
  }
  numberText(s, mantissa, digits, part, kNumberSize, 0);
  put(b, part);
  const bool power = format != kNumberFExp;
  put(b, format == kNumberXExp ? "{D}10" : power ? "*10" : "E");
  if (power) put(b, s->text.mixExp);
  qqicha(exponent, part, 0, false);
  put(b, part);
  if (power) put(b, s->text.mixReset);
  return b.length;
}

NumberMixing beginNumberMixing(PlotState* s) {
  const NumberMixing saved = {s->text.mixOn, s->text.texOn, s->text.alphabetShiftCount, s->text.alphabetShifts[0]};
  s->text.mixOn = true;
  s->text.texOn = false; // its control characters are not those of exponents
  if (s->text.alphabetShiftCount == 0) s->text.alphabetShiftCount = 1;
  s->text.alphabetShifts[0] = {kAlphabetMath, '{', '}'};
  return saved;
}

void endNumberMixing(PlotState* s, const NumberMixing& saved) {
  s->text.mixOn = saved.mixOn;
  s->text.texOn = saved.texOn;
  s->text.alphabetShiftCount = saved.alphabetShiftCount;
  s->text.alphabetShifts[0] = saved.first;
}

int formattedNumber(const PlotState* s, double value, int digits, char* out, int size) {
  const int format = s->text.numberFormat;
  return format == kNumberFloat ? numberText(s, value, digits, out, size, 0)
                                : exponentText(s, value, digits, format, out, size);
}

namespace {

// Equal cells for the digits while a number is drawn or measured.
struct NumberStyle {
  NumberMixing mixing;
  bool mixed, fixedOn;
  float fixed;
};

NumberStyle beginNumber(PlotState* s) {
  NumberStyle style = {{}, s->text.numberFormat != kNumberFloat, s->text.fixedSpacingOn, s->text.fixedSpacing};
  if (style.mixed) style.mixing = beginNumberMixing(s);
  if (s->text.equalMode) {
    s->text.fixedSpacingOn = true;
    s->text.fixedSpacing = kEqualCell;
  }
  return style;
}

void endNumber(PlotState* s, const NumberStyle& style) {
  if (style.mixed) endNumberMixing(s, style.mixing);
  s->text.fixedSpacingOn = style.fixedOn;
  s->text.fixedSpacing = style.fixed;
}

} // namespace

int numberLength(PlotState* s, const char* text) {
  const NumberStyle style = beginNumber(s);
  const int length = textLength(s, text);
  endNumber(s, style);
  return length;
}

void numberAt(PlotState* s, const char* text, int x, int y) {
  const NumberStyle style = beginNumber(s);
  placeText(s, text, x, y);
  endNumber(s, style);
}

} // namespace quilla

using namespace quilla;

void NUMBER(float value, int digits, int nx, int ny) {
  PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, "number");
  if (!s || checkRange(s, digits, -1, kDigitLimit) != 0) return;
  char text[kNumberSize];
  formattedNumber(s, static_cast<double>(value), digits, text, kNumberSize);
  numberAt(s, text, nx, ny);
}

int NLNUMB(float value, int digits) {
  PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, "nlnumb");
  if (!s || checkRange(s, digits, -1, kDigitLimit) != 0) return 0;
  char text[kNumberSize];
  formattedNumber(s, static_cast<double>(value), digits, text, kNumberSize);
  return numberLength(s, text);
}

void NUMFMT(const char* format) {
  PlotState* s = setterCheck("numfmt");
  if (!s) return;
  const int key = matchKeyword(s, "FLOA+EXP +FEXP+LOG +XEXP", 5, format);
  if (key != 0) s->text.numberFormat = key - 1;
}

void NUMODE(const char* decimal, const char* group, const char* plus, const char* fixed) {
  PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, "numode");
  if (!s) return;
  constexpr char kDecimals[] = {'.', ','}, kGroups[] = {'\0', ' ', '.', ','}, kSigns[] = {'\0', ' ', '+'};
  const int d = matchKeyword(s, "POIN+COMM", 2, decimal), g = matchKeyword(s, "NONE+SPAC+POIN+COMM", 4, group);
  const int p = matchKeyword(s, "NONE+SPAC+PLUS", 3, plus), f = matchKeyword(s, "NOEQ+EQUA", 2, fixed);
  if (d != 0) s->text.decimalChar = kDecimals[d - 1];
  if (g != 0) s->text.groupChar = kGroups[g - 1];
  if (p != 0) s->text.plusChar = kSigns[p - 1];
  if (f != 0) s->text.equalMode = f == 2;
}
