// Tables from characters to private codes.
#pragma once

#include <cstdint>

namespace quilla {

inline constexpr int kFirstLatin1Letter = 191; // inverted question mark
inline constexpr int kCurrencyCode = 263, kCopyrightCode = 264;
inline constexpr int kInvertedExclamation = 185;

// Private codes of Latin-1 191 to 255; 0: no such sign.
inline constexpr std::uint8_t kLatin1Codes[65] = {
    186,                                                                            // inverted question mark
    158, 148, 168, 178, 127, 134, 136, 142, 159, 149, 169, 144, 160, 150, 170, 145, // A grave to I dieresis
    32,  140, 161, 151, 171, 180, 128, 0,   135, 162, 152, 172, 129, 182, 32,  133, // Eth to germandbls
    163, 153, 173, 179, 130, 137, 139, 143, 164, 154, 174, 146, 165, 155, 175, 147, // a grave to i dieresis
    32,  141, 166, 156, 176, 181, 131, 0,   138, 167, 157, 177, 132, 183, 32,  184, // eth to y dieresis
};

// Code and alphabet of a character outside Latin-1.
struct PageEntry {
  std::uint8_t code, alphabet;
};

// Unicode 902 to 974: Greek letters at the keys of alphabet 2, with accents from 127 on in the order of Unicode.
inline constexpr int kFirstGreek = 902, kLastGreek = 974;
inline constexpr PageEntry kGreekCodes[kLastGreek - kFirstGreek + 1] = {
    {127, 2}, {46, 1},  {128, 2}, {129, 2}, {130, 2}, {32, 1},  {131, 2}, {32, 1},  {132, 2}, {133, 2}, {134, 2}, // 902
    {'A', 2}, {'B', 2}, {'C', 2}, {'D', 2}, {'E', 2}, {'Z', 2}, {'H', 2}, {'Q', 2}, {'I', 2}, {'K', 2},           // 913
    {'L', 2}, {'M', 2}, {'N', 2}, {'X', 2}, {'O', 2}, {'P', 2}, {'R', 2}, {32, 1},  {'S', 2}, {'T', 2},           // 923
    {'Y', 2}, {'F', 2}, {'G', 2}, {'U', 2}, {'W', 2}, {135, 2}, {136, 2}, {137, 2}, {138, 2}, {139, 2},           // 933
    {140, 2}, {141, 2}, {'a', 2}, {'b', 2}, {'c', 2}, {'d', 2}, {'e', 2}, {'z', 2}, {'h', 2}, {'q', 2},           // 943
    {'i', 2}, {'k', 2}, {'l', 2}, {'m', 2}, {'n', 2}, {'x', 2}, {'o', 2}, {'p', 2}, {'r', 2}, {142, 2},           // 953
    {'s', 2}, {'t', 2}, {'y', 2}, {'f', 2}, {'g', 2}, {'u', 2}, {'w', 2}, {143, 2}, {144, 2}, {145, 2},           // 963
    {146, 2}, {147, 2},                                                                                           // 973
};

// Unicode 1024 to 1119: Russian letters at the keys of alphabet 6.
inline constexpr int kFirstCyrillic = 1024, kLastCyrillic = 1119;
constexpr PageEntry cyrillicCode(int unicode) {
  constexpr char kCapitals[] = "ABVGDE[ZIJKLMNOPRSTUFHC^W]&YX\\%Q"; // from A on
  constexpr char kSmall[] = "abvgde{zijklmnoprstufhc~w}>yx|=q";
  constexpr int kCapitalIo = 1025, kSmallIo = 1105, kCapitalA = 1040, kSmallA = 1072, kEnd = 1104;
  if (unicode == kCapitalIo) return {'$', 6};
  if (unicode == kSmallIo) return {'<', 6};
  if (unicode < kCapitalA || unicode >= kEnd) return {32, 1};
  return {static_cast<std::uint8_t>(unicode < kSmallA ? kCapitals[unicode - kCapitalA] : kSmall[unicode - kSmallA]), 6};
}

} // namespace quilla
