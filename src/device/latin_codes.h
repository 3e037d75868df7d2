// The private character codes as Latin-1.
#pragma once

namespace quilla {

inline constexpr int kFirstAccentCode = 127, kLastAccentCode = 186, kLastPrivateCode = 187;

inline constexpr unsigned char kLatinOfPrivate[kLastPrivateCode - kFirstAccentCode + 1] = {
    196, 214, 220, 228, 246, 252, 223, 197, 216, 198, 229, 248, 230, 209, 241, 199, 231, 203, 207, 235, 239,
    193, 201, 205, 211, 218, 225, 233, 237, 243, 250, 192, 200, 204, 210, 217, 224, 232, 236, 242, 249, 194,
    202, 206, 212, 219, 226, 234, 238, 244, 251, 195, 227, 213, 245, 221, 253, 255, 161, 191, 169};

// Latin-1 code of a private code; a blank for controls and above the accented letters.
constexpr int latinCode(int code) {
  if (code < ' ' || code > kLastAccentCode) return ' ';
  return code < kFirstAccentCode ? code : kLatinOfPrivate[code - kFirstAccentCode];
}

} // namespace quilla
