// Settings of texts: heights, angles, spacing, alphabets and control characters.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/sink.h"
#include "quilla/quilla.h"
#include "text/coding.h"
#include "text/text.h"

namespace quilla {
namespace {

constexpr char kAlphabetKeys[] = "STAN+GREE+MATH+ITAL+SCRI+RUSS+INST";
constexpr int kInstructionKeys = 7;

// Sine and cosine of whole degrees, exact at multiples of 90.
void sineCosine(int degrees, float* sine, float* cosine) {
  constexpr float kExact[4][2] = {{0.0F, 1.0F}, {1.0F, 0.0F}, {0.0F, -1.0F}, {-1.0F, 0.0F}};
  const int turn = ((degrees % 360) + 360) % 360;
  if (turn % 90 == 0) {
    *sine = kExact[turn / 90][0];
    *cosine = kExact[turn / 90][1];
    return;
  }
  const double radians = static_cast<double>(turn) * 3.14159265358979323846 / 180.0;
  *sine = static_cast<float>(std::sin(radians));
  *cosine = static_cast<float>(std::cos(radians));
}

void chooseFont(const char* name, int fontId) {
  PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, name);
  if (!s) return;
  installFont(s, fontId);
  s->font.fontKind = kFontStroke;
}

// Warning 2 with a real value.
void refuseReal(PlotState* s, double value) {
  char text[64];
  numberText(s, value, 2, text, sizeof text, 0);
  warnWithString(s, 2, text);
}

} // namespace

void setTextHeight(PlotState* s, int height) {
  s->text.textHeight = height;
  s->textState.lastAlphabet = 0;
  if (s->font.fontKind == kFontPostScript) sinkFont(s, false);
}

void setTextAngle(PlotState* s, int angle) {
  s->text.textAngle = angle;
  sineCosine(angle, &s->text.textSin, &s->text.textCos);
}

} // namespace quilla

using namespace quilla;

void QUIALF() { chooseFont("quialf", kQuialf); }
void SIMPLX() { chooseFont("simplx", kSimplx); }
void COMPLX() { chooseFont("complx", kComplx); }
void DUPLX() { chooseFont("duplx", kDuplx); }
void TRIPLX() { chooseFont("triplx", kTriplx); }
void GOTHIC() { chooseFont("gothic", kGothic); }

void HELVE() { chooseFont("helve", kHelve); }
void HELVES() { chooseFont("helves", kHelves); }
void HELVET() { chooseFont("helvet", kHelvet); }
void SERIF() { chooseFont("serif", kSerif); }

void SHDCHA() {
  PlotState* s = setterCheck("shdcha");
  if (s) s->text.shadeCharacters = true;
}

void TXTMOD(const char* mode) {
  PlotState* s = setterCheck("txtmod");
  if (!s) return;
  if (const int found = matchKeyword(s, "OUTL+FILL", 2, mode)) s->text.shadeCharacters = found == 2;
}

void TXTOPT(const char* mode, const char* key) {
  PlotState* s = setterCheck("txtopt");
  if (!s) return;
  const int found = matchKeyword(s, "ON  +OFF ", 2, mode), which = matchKeyword(s, "MIXA+SHDC+FIXS", 3, key);
  if (found == 0 || which == 0) return;
  bool* const switches[] = {&s->text.mixOn, &s->text.shadeCharacters, &s->text.fixedSpacingOn};
  *switches[which - 1] = found == 1;
}

int GETBLK() {
  PlotState* s = strictCheck(1, 3, "getblk");
  return s ? textLength(s, " ") : 0;
}

void HEIGHT(int height) {
  PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, "height");
  if (!s || checkRange(s, height, 1, kHighestHeight) != 0) return;
  setTextHeight(s, height);
}

void ANGLE(int degrees) {
  PlotState* s = setterCheck("angle");
  if (!s) return;
  setTextAngle(s, degrees);
}

void IANGLE(int degrees) {
  PlotState* s = setterCheck("iangle");
  if (s) setTextAngle(s, degrees);
}

void TXTJUS(const char* justification) {
  PlotState* s = setterCheck("txtjus");
  if (!s) return;
  const int key = matchKeyword(s, "LEFT+CENT+RIGH+TOP +MIDD+BOTT", 6, justification);
  if (key == 0) return;
  if (key <= 3) {
    s->text.textJustifyX = key - 1;
  } else {
    s->text.textJustifyY = key - 4;
  }
}

void FIXSPC(float factor) {
  PlotState* s = setterCheck("fixspc");
  if (!s) return;
  if (!(factor > 0.0F)) {
    refuseReal(s, factor);
    return;
  }
  s->text.fixedSpacingOn = true;
  s->text.fixedSpacing = factor;
}

void CHASPC(float spacing) {
  PlotState* s = setterCheck("chaspc");
  if (!s) return;
  s->text.charSpacing = spacing;
}

void CHAWTH(float factor) {
  PlotState* s = setterCheck("chawth");
  if (!s) return;
  if (!(factor > 0.0F && factor < 2.0F)) {
    refuseReal(s, factor);
    return;
  }
  s->text.charWidthFactor = factor;
  if (s->font.fontKind == kFontPostScript) sinkFont(s, false);
}

void CHAANG(float degrees) {
  PlotState* s = setterCheck("chaang");
  if (!s) return;
  if (!(degrees >= -60.0F && degrees <= 60.0F)) {
    refuseReal(s, degrees);
    return;
  }
  s->text.charSlant = std::tan(degrees * kDegToRad);
}

void BASALF(const char* alphabet) {
  PlotState* s = setterCheck("basalf");
  if (!s) return;
  const int key = matchKeyword(s, kAlphabetKeys, kAlphabetSlots, alphabet);
  if (key == 0) return;
  s->font.baseAlphabet = s->font.currentAlphabet = key;
}

void SMXALF(const char* alphabet, const char* in, const char* out, int index) {
  PlotState* s = setterCheck("smxalf");
  if (!s) return;
  const int key = matchKeyword(s, kAlphabetKeys, kInstructionKeys, alphabet);
  if (key == 0 || checkRange(s, index, 1, kAlphabetShiftLimit) != 0) return;
  if (key == s->font.baseAlphabet) {
    warnPlain(s, 19);
    return;
  }
  for (int i = s->text.alphabetShiftCount; i < index; ++i) s->text.alphabetShifts[i] = AlphabetShift();
  if (index > s->text.alphabetShiftCount) s->text.alphabetShiftCount = index;
  s->text.alphabetShifts[index - 1] = {key, in ? in[0] : '\0', out ? out[0] : '\0'};
}

void MIXALF() {
  PlotState* s = setterCheck("mixalf");
  if (!s) return;
  s->text.mixOn = true;
}

void NEWMIX() {
  PlotState* s = setterCheck("newmix");
  if (!s) return;
  s->text.mixExp = '^';
  s->text.mixIndex = '_';
  s->text.mixReset = '%';
}

void SETMIX(const char* character, const char* key) {
  PlotState* s = setterCheck("setmix");
  if (!s) return;
  char* targets[] = {&s->text.mixExp, &s->text.mixIndex, &s->text.mixReset, &s->text.mixLegend, &s->text.mixTex};
  const int number = matchKeyword(s, "EXP +IND +RES +LEG +TEX ", 5, key);
  if (number != 0 && character) *targets[number - 1] = character[0];
}

void SETEXP(float size) {
  PlotState* s = setterCheck("setexp");
  if (!s) return;
  s->text.mixExpSize = size;
}

void SETBAS(float shift) {
  PlotState* s = setterCheck("setbas");
  if (!s) return;
  s->text.mixExpShift = shift;
}

void EUSHFT(const char* set, const char* character) {
  PlotState* s = setterCheck("eushft");
  if (!s) return;
  const int key = matchKeyword(s, "GERM+DANI+SPAN+FREN+ACUT+GRAV+CIRC+TURK", kShiftCount, set);
  if (key == 0) return;
  TextGroup& text = s->text;
  if (!text.shiftCharsOn) {
    for (int& c : text.shiftChars) c = 0;
  }
  const int code = character ? static_cast<unsigned char>(character[0]) : 0;
  for (int i = 0; i < kShiftCount; ++i) {
    if (i != key - 1 && text.shiftChars[i] == code && code != 0) {
      warnPlain(s, 57);
      return;
    }
  }
  text.shiftChars[key - 1] = code;
  text.shiftCharsOn = true;
}

void CHACOD(const char* coding) {
  PlotState* s = setterCheck("chacod");
  if (!s) return;
  const int key = matchKeyword(s, "STAN+ISO1+ISO2+ISO3+ISO5+KOI8+UTF8+ISO7", 8, coding);
  if (key != 0) s->text.coding = key - 1;
}

int UTFINT(const char* text, int* codes, int size) {
  PlotState* s = strictCheck(kLevelNone, kLevelAxis3D, "utfint");
  if (!s || !text || (size > 0 && !codes)) return 0;
  const int count = decodeUtf8(text, codes, size);
  if (count < 0) warnUtf(s, count);
  return count;
}

int INTUTF(const int* codes, int count, char* text, int size) {
  PlotState* s = strictCheck(kLevelNone, kLevelAxis3D, "intutf");
  if (!s || !text) return 0;
  int length = 0;
  for (int i = 0; i < count; ++i) {
    char bytes[kUtfBytes];
    const int more = encodeUtf8(codes[i], bytes);
    const int fault = more == 0 ? kUtfTooBig : length > size - more ? kUtfNoRoom : 0;
    if (fault != 0) {
      warnUtf(s, fault);
      return fault == kUtfTooBig ? -1 : -2;
    }
    for (int k = 0; k < more; ++k) text[length++] = bytes[k];
  }
  if (length < size) text[length] = '\0';
  return length;
}

void FRMESS(int thickness) {
  PlotState* s = setterCheck("frmess");
  if (!s) return;
  s->text.textBoxFrame = limitedDistance(thickness);
}

void TXTBGD(int color) {
  PlotState* s = setterCheck("txtbgd");
  if (!s || checkRange(s, color, -1, -2) != 0) return;
  s->text.textBackground = color;
}

int GETHGT() {
  const PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, "gethgt");
  return s ? s->text.textHeight : 0;
}

int GETANG() {
  const PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, "getang");
  return s ? s->text.textAngle : 0;
}

const char* GETALF() {
  static constexpr const char* kNames[] = {"STAN", "GREE", "MATH", "ITAL", "SCRI", "RUSS"};
  const PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, "getalf");
  return s ? kNames[s->font.baseAlphabet - 1] : "";
}
