// Public routines that write numbers as texts.
#include <algorithm>

#include "device/writers.h"
#include "quilla/quilla.h"

namespace {

constexpr int kMostDecimals = 100;

} // namespace

int INTCHA(int value, char* text) { return quilla::qqicha(value, text, 0, false); }

int INTLEN(int value) {
  char text[QUILLA_TEXT_SIZE];
  return INTCHA(value, text);
}

int FCHA(float value, int digits, char* text) {
  return quilla::qqfcha(static_cast<double>(value), std::clamp(digits, -1, kMostDecimals), text, 0);
}

int FLEN(float value, int digits) {
  char text[QUILLA_TEXT_SIZE];
  return FCHA(value, digits, text);
}
