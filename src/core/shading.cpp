#include "core/shading.h"

#include <iterator>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// Codes of the pattern numbers 0 to 17: angle, type, density and crossing as decimal digits, the angle in front.
constexpr int kPatternCodes[] = {0,     45150, 150450, 135150, 45450, 45151, 135210, 45451, 30140,
                                 45211, 151,   45310,  70470,  45311, 451,   45210,  100,   550};
constexpr int kLargestAngle = 179, kLargestType = 7, kLargestDensity = 9;

} // namespace

namespace quilla {

void selectPattern(PlotState* s, int number) {
  int code = number < static_cast<int>(std::size(kPatternCodes)) ? kPatternCodes[number] : number;
  ShadingGroup& p = s->shading;
  p.shadePattern = number;
  p.shadeAngle = code / 1000 % (kLargestAngle + 1);
  p.shadeType = code % 1000 / 100;
  p.shadeDensity = code % 100 / 10;
  p.shadeCross = code % 2;
}

} // namespace quilla

void SHDPAT(int pattern) {
  PlotState* s = setterCheck("shdpat");
  if (s && !checkRange(s, pattern, 0, -1)) selectPattern(s, pattern);
}

void MYPAT(int angle, int type, int density, int cross) {
  PlotState* s = setterCheck("mypat");
  if (!s) return;
  if (checkRange(s, angle, 0, kLargestAngle) || checkRange(s, type, 0, kLargestType) ||
      checkRange(s, density, 0, kLargestDensity) || checkRange(s, cross, 0, 1)) {
    return;
  }
  s->shading.shadeAngle = angle;
  s->shading.shadeType = type;
  s->shading.shadeDensity = density;
  s->shading.shadeCross = cross;
  s->shading.shadePattern = cross + 10 * (density + 10 * (type + 10 * angle));
}

void SHDFAC(float factor) {
  PlotState* s = setterCheck("shdfac");
  if (!s) return;
  if (!(factor > 0.0F)) return warnPlain(s, 2);
  s->shading.shadeFactor = factor;
}

int GETPAT(void) {
  PlotState* s = strictCheck(1, 3, "getpat");
  return s ? s->shading.shadePattern : 0;
}
