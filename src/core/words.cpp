// Public routines on words and letters of the user.
#include <cstdint>

#include "quilla/quilla.h"

namespace {

// The target with n bits from one place of the source copied to another place; what lies outside a word is left out.
template <typename Word> Word copiedBits(int n, Word source, int from, Word target, int to) {
  constexpr int kBits = static_cast<int>(sizeof(Word)) * 8;
  for (int i = 0; i < n && i < kBits; i++) {
    if (from < 0 || to < 0 || from > kBits - 1 - i || to > kBits - 1 - i) break;
    const Word bit = static_cast<Word>(1U << (to + i));
    const bool set = (source >> (from + i) & 1U) != 0;
    target = static_cast<Word>(set ? target | bit : target & static_cast<Word>(~bit));
  }
  return target;
}

} // namespace

void SWAPI2(short* values, int n) {
  for (int i = 0; i < n; i++) {
    const auto v = static_cast<std::uint16_t>(values[i]);
    values[i] = static_cast<short>(static_cast<std::uint16_t>(v << 8 | v >> 8));
  }
}

void SWAPI4(int* values, int n) {
  for (int i = 0; i < n; i++) {
    const auto v = static_cast<std::uint32_t>(values[i]);
    values[i] = static_cast<int>(v << 24 | (v << 8 & 0xFF0000U) | (v >> 8 & 0xFF00U) | v >> 24);
  }
}

short BITSI2(int n, short source, int from, short target, int to) {
  return static_cast<short>(
      copiedBits(n, static_cast<std::uint16_t>(source), from, static_cast<std::uint16_t>(target), to));
}

int BITSI4(int n, int source, int from, int target, int to) {
  return static_cast<int>(
      copiedBits(n, static_cast<std::uint32_t>(source), from, static_cast<std::uint32_t>(target), to));
}

void TXTURE(int* values, int nx, int ny) {
  // A linear congruential generator (D. Knuth, H. W. Lewis), of which the highest bit is taken.
  std::uint32_t random = 1;
  const std::int64_t n = nx < 1 || ny < 1 ? 0 : static_cast<std::int64_t>(nx) * ny;
  for (std::int64_t i = 0; i < n; i++) {
    random = random * 1664525U + 1013904223U;
    values[i] = random >> 31 != 0 ? 255 : 0;
  }
}

// Each caller owns its memory: there is nothing to free.
void FREEPTR(void) {}

void UPSTR(char* text) {
  for (; text && *text; text++)
    if (*text >= 'a' && *text <= 'z') *text = static_cast<char>(*text - 'a' + 'A');
}
