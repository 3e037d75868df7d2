// Public routines that read text settings back.
#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kMixCharacters = 5;
constexpr int kAlphabets = 7; // with the instructions

// A character as a text of its own; nothing for a zero byte.
const char* characterText(PlotState* s, int code) {
  s->textState.readCharacter[0] = static_cast<char>(code);
  s->textState.readCharacter[1] = '\0';
  return s->textState.readCharacter;
}

} // namespace

const char* GETMIX(const char* key) {
  PlotState* s = strictCheck(1, 3, "getmix");
  const int number = s ? matchKeyword(s, "EXP +IND +RES +LEG +TEX ", kMixCharacters, key) : 0;
  if (number == 0) return "";
  const TextGroup& t = s->text;
  const char characters[kMixCharacters] = {t.mixExp, t.mixIndex, t.mixReset, t.mixLegend, t.mixTex};
  return characterText(s, characters[number - 1]);
}

const char* GETSHF(const char* set) {
  PlotState* s = strictCheck(1, 3, "getshf");
  const int number = s ? matchKeyword(s, "GERM+DANI+SPAN+FREN+ACUT+GRAV+CIRC+TURK", kShiftCount, set) : 0;
  return number == 0 ? "" : characterText(s, s->text.shiftCharsOn ? s->text.shiftChars[number - 1] : 0);
}

int GMXALF(const char* alphabet, char* in, char* out) {
  PlotState* s = strictCheck(1, 3, "gmxalf");
  in[0] = in[1] = out[0] = out[1] = '\0';
  const int key = s ? matchKeyword(s, "STAN+GREE+MATH+ITAL+SCRI+RUSS+INST", kAlphabets, alphabet) : 0;
  for (int i = 0; key != 0 && i < s->text.alphabetShiftCount; ++i) {
    const AlphabetShift& shift = s->text.alphabetShifts[i];
    if (shift.alphabet != key) continue;
    in[0] = shift.in;
    out[0] = shift.out;
    return i + 1;
  }
  return 0;
}
