// The standard fonts: names, cap heights, width groups.
#include "device/ps_fonts.h"

#include <cstring>

namespace quilla {

const PsFont kPsFonts[kPsFontCount] = {
    {"Times-Roman", 683, 1},
    {"Times-Bold", 676, 2},
    {"Times-Italic", 683, 3},
    {"Times-BoldItalic", 699, 4},
    {"Helvetica", 718, 5},
    {"Helvetica-Bold", 718, 6},
    {"Helvetica-Oblique", 718, 5},
    {"Helvetica-BoldOblique", 718, 6},
    {"Helvetica-Narrow", 718, 7},
    {"Helvetica-Narrow-Bold", 718, 8},
    {"Helvetica-Narrow-Oblique", 718, 7},
    {"Helvetica-Narrow-BoldOblique", 718, 8},
    {"NewCenturySchlbk-Roman", 737, 9},
    {"NewCenturySchlbk-Italic", 737, 10},
    {"NewCenturySchlbk-Bold", 737, 11},
    {"NewCenturySchlbk-BoldItalic", 737, 12},
    {"ZapfChancery-MediumItalic", 748, 13},
    {"ZapfDingbats", 685, 14},
    {"Courier", 629, 0},
    {"Courier-Bold", 626, 0},
    {"Courier-Oblique", 629, 0},
    {"Courier-BoldOblique", 626, 0},
    {"AvantGarde-Book", 740, 15},
    {"AvantGarde-Demi", 740, 16},
    {"AvantGarde-BookOblique", 740, 15},
    {"AvantGarde-DemiOblique", 740, 16},
    {"Bookman-Light", 717, 22},
    {"Bookman-LightItalic", 717, 23},
    {"Bookman-Demi", 725, 24},
    {"Bookman-DemiItalic", 732, 25},
    {"Palatino-Roman", 726, 17},
    {"Palatino-Italic", 733, 18},
    {"Palatino-Bold", 720, 19},
    {"Palatino-BoldItalic", 726, 20},
    {"Symbol", 685, 21},
};

namespace {

constexpr int kNameLimit = 30;
constexpr int kAllCodes = 156;
constexpr int kFirstCopied = 134 - 32; // codes 134 to 186 are as wide as a base letter
constexpr char kBaseLetters[] = "AOAaoaNnCcEIeiAEIOUaeiouAEIOUaeiouAEIOUaeiouAaOoYyy!?";
static_assert(sizeof kBaseLetters - 1 == 53);

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

} // namespace

int findPsFont(const char* name) {
  if (!name) return -1;
  std::size_t length = std::strlen(name);
  if (length > kNameLimit) length = kNameLimit;
  while (length > 0 && name[length - 1] == ' ') --length;
  for (int row = 0; row < kPsFontCount; ++row) {
    const char* other = kPsFonts[row].name;
    if (std::strlen(other) != length) continue;
    std::size_t i = 0;
    while (i < length && upper(name[i]) == upper(other[i])) ++i;
    if (i == length) return row;
  }
  return -1;
}

void fillPsWidths(int row, std::int16_t widths[156]) {
  const int group = kPsFonts[row].group;
  if (group == 0) {
    for (int i = 0; i < kAllCodes; ++i) widths[i] = kPsFixedWidth;
    return;
  }
  const std::uint8_t* w = kPsWidths[group - 1];
  for (int i = 0; i < kPsWidthCodes; ++i) widths[i] = w[i];
  for (int i = 0; kBaseLetters[i]; ++i) widths[kFirstCopied + i] = w[kBaseLetters[i] - 32];
  constexpr int kBigAe = 136 - 32, kSmallAe = 139 - 32, kSign = 187 - 32;
  widths[kBigAe] = static_cast<std::int16_t>(w['A' - 32] / 2 + w['E' - 32]);
  widths[kSmallAe] = static_cast<std::int16_t>(w['a' - 32] * 2 / 3 + w['e' - 32]);
  widths[kSign] = static_cast<std::int16_t>(w['C' - 32] * 5 / 4);
}

} // namespace quilla
