// Tables from the characters of codings to private codes.
#pragma once

#include <cstdint>

namespace quilla {

inline constexpr int kCurrencyCode = 263, kCopyrightCode = 264;
inline constexpr int kDriverCopyrightCode = 187; // of driver fonts
inline constexpr int kInvertedExclamation = 185;

inline constexpr int kFirstUpperCode = 160, kUpperHalf = 96; // bytes 160 to 255
inline constexpr int kFirstLatin1Letter = 191, kLastLatin1 = 255;
inline constexpr int kFirstLatinExtended = 256, kLastLatinExtended = 383;
inline constexpr int kFirstGreek = 902, kLastGreek = 974;
inline constexpr int kFirstCyrillic = 1024, kLastCyrillic = 1119;

// Private codes; 32 for what the private set lacks, 0 for the signs of multiplication and division.
extern const std::uint16_t kLatin1Codes[kLastLatin1 - kFirstLatin1Letter + 1];
extern const std::uint16_t kLatin2Codes[kUpperHalf], kLatin3Codes[kUpperHalf];
extern const std::uint16_t kLatinExtendedCodes[kLastLatinExtended - kFirstLatinExtended + 1];

// Unicode numbers of the bytes of codings, 0 for none.
extern const std::uint16_t kLatin2Unicode[kUpperHalf], kLatin3Unicode[kUpperHalf];
extern const std::uint16_t kIsoCyrillicUnicode[kUpperHalf], kKoi8Unicode[kUpperHalf], kIsoGreekUnicode[kUpperHalf];

// Code and alphabet (slot 1, 2 or 6) of a character of another script: Greek and Cyrillic letters stand at the keys of
// their alphabets, Greek letters with accents from 127 on in the order of Unicode.
struct PageEntry {
  std::uint16_t code, alphabet;
};
extern const PageEntry kIsoCyrillicCodes[kUpperHalf], kKoi8Codes[kUpperHalf], kIsoGreekCodes[kUpperHalf];
extern const PageEntry kCyrillicCodes[kLastCyrillic - kFirstCyrillic + 1];
extern const PageEntry kGreekCodes[kLastGreek - kFirstGreek + 1];

} // namespace quilla
