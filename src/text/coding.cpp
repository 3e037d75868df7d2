// Decoding texts.
#include "text/coding.h"

#include <cstring>

#include "core/messages.h"
#include "text/code_pages.h"

namespace quilla {
namespace {

constexpr int kUtfMessage = 174;

// A letter behind a shift character and what the pair stands for in the codings; 32: no such letter.
struct ShiftRow {
  char key;
  std::uint8_t code; // private code
  std::uint8_t latin1, latin2, latin3;
};

constexpr ShiftRow kGerman[] = {{'A', 127, 196, 196, 196}, {'O', 128, 214, 214, 214}, {'U', 129, 220, 220, 220},
                                {'a', 130, 228, 228, 228}, {'o', 131, 246, 246, 246}, {'u', 132, 252, 252, 252},
                                {'s', 133, 223, 223, 223}};
constexpr ShiftRow kDanish[] = {{'A', 134, 197, 32, 32}, {'O', 135, 216, 32, 32}, {'E', 136, 198, 32, 32},
                                {'a', 137, 229, 32, 32}, {'o', 138, 248, 32, 32}, {'e', 139, 230, 32, 32}};
constexpr ShiftRow kSpanish[] = {
    {'N', 140, 209, 32, 209}, {'n', 141, 241, 32, 241}, {'!', 185, 161, 32, 32}, {'?', 186, 191, 32, 32}};
constexpr ShiftRow kFrench[] = {{'C', 142, 199, 199, 199}, {'c', 143, 231, 231, 231}, {'E', 144, 203, 203, 203},
                                {'I', 145, 207, 32, 207},  {'e', 146, 235, 235, 235}, {'i', 147, 239, 32, 239}};
constexpr ShiftRow kAcute[] = {{'A', 148, 193, 193, 193}, {'E', 149, 201, 201, 201}, {'I', 150, 205, 205, 205},
                               {'O', 151, 211, 211, 211}, {'U', 152, 218, 218, 218}, {'a', 153, 225, 225, 225},
                               {'e', 154, 233, 233, 233}, {'i', 155, 237, 237, 237}, {'o', 156, 243, 243, 243},
                               {'u', 157, 250, 250, 250}};
constexpr ShiftRow kGrave[] = {{'A', 158, 192, 32, 192}, {'E', 159, 200, 32, 200}, {'I', 160, 204, 32, 204},
                               {'O', 161, 210, 32, 210}, {'U', 162, 217, 32, 217}, {'a', 163, 224, 32, 224},
                               {'e', 164, 232, 32, 232}, {'i', 165, 236, 32, 236}, {'o', 166, 242, 32, 242},
                               {'u', 167, 249, 32, 249}};
constexpr ShiftRow kCircumflex[] = {{'A', 168, 194, 194, 194}, {'E', 169, 202, 32, 202},  {'I', 170, 206, 206, 206},
                                    {'O', 171, 212, 212, 212}, {'U', 172, 219, 32, 219},  {'a', 173, 226, 226, 226},
                                    {'e', 174, 234, 32, 234},  {'i', 175, 238, 238, 238}, {'o', 176, 244, 244, 244},
                                    {'u', 177, 251, 32, 251}};
constexpr ShiftRow kTurkish[] = {{'C', 142, 199, 199, 199}, {'c', 143, 231, 231, 231}, {'G', 241, 32, 32, 171},
                                 {'g', 243, 32, 32, 187},   {'I', 242, 32, 32, 169},   {'i', 244, 32, 32, 185},
                                 {'O', 128, 214, 214, 214}, {'o', 131, 246, 246, 246}, {'S', 196, 32, 170, 170},
                                 {'s', 206, 32, 186, 186},  {'U', 129, 220, 220, 220}, {'u', 132, 252, 252, 252}};

struct ShiftSet {
  const ShiftRow* rows;
  int count;
};
template <int N> constexpr ShiftSet setOf(const ShiftRow (&rows)[N]) { return {rows, N}; }
// In the order of EUSHFT's keywords.
constexpr ShiftSet kShiftSets[kShiftCount] = {setOf(kGerman), setOf(kDanish), setOf(kSpanish),    setOf(kFrench),
                                              setOf(kAcute),  setOf(kGrave),  setOf(kCircumflex), setOf(kTurkish)};

// Number of the shift set whose character is code, from 1; 0 if it is none.
int shiftSetOf(const PlotState* s, int code) {
  for (int i = 0; i < kShiftCount; ++i) {
    if (s->text.shiftChars[i] != 0 && s->text.shiftChars[i] == code) return i + 1;
  }
  return 0;
}

// Code of a pair, -1 if the letter is not in the set.
int shiftedCode(int set, int letter, int coding) {
  const ShiftSet& rows = kShiftSets[set - 1];
  for (int i = 0; i < rows.count; ++i) {
    const ShiftRow& row = rows.rows[i];
    if (row.key != letter) continue;
    switch (coding) {
    case kCodingStandard: return row.code;
    case kCodingLatin2: return row.latin2;
    case kCodingLatin3: return row.latin3;
    default: return row.latin1;
    }
  }
  return -1;
}

int combineShifts(PlotState* s, int count) {
  int* codes = s->textState.textCodes;
  int out = 0;
  for (int i = 0; i < count; ++i) {
    const int set = shiftSetOf(s, codes[i]);
    if (set == 0 || i + 1 == count) {
      codes[out++] = codes[i];
      continue;
    }
    const int next = codes[i + 1];
    const int combined = next == codes[i] ? next : shiftedCode(set, next, s->text.coding);
    if (combined < 0) {
      const char shown[2] = {static_cast<char>(next), '\0'};
      warnWithString(s, 18, shown);
      codes[out++] = codes[i];
    } else {
      codes[out++] = combined;
      ++i;
    }
  }
  return out;
}

int decodeBytes(const char* text, int* codes, int limit) {
  int count = 0;
  for (const char* p = text; *p; ++p) {
    if (count == limit) return kUtfNoSpace;
    codes[count++] = static_cast<unsigned char>(*p);
  }
  return count;
}

} // namespace

int decodeUtf8(const char* text, int* codes, int limit) {
  int count = 0;
  for (const unsigned char* p = reinterpret_cast<const unsigned char*>(text); *p;) {
    const int lead = *p++;
    const int more = lead < 128 ? 0 : lead < 192 ? -1 : lead < 224 ? 1 : lead < 240 ? 2 : lead < 248 ? 3 : -1;
    if (more < 0) return kUtfSyntaxError;
    int code = more == 0 ? lead : lead & (0x3F >> more);
    for (int i = 0; i < more; ++i, ++p) {
      if (*p < 128 || *p > 191) return kUtfSyntaxError;
      code = code << 6 | (*p & 0x3F);
    }
    if (count == limit) return kUtfNoSpace;
    codes[count++] = code;
  }
  return count;
}

int decodeText(PlotState* s, const char* text) {
  if (!text) return 0;
  int* codes = s->textState.textCodes;
  int count = s->text.coding == kCodingUtf8 ? decodeUtf8(text, codes, kTextCodeLimit)
                                            : decodeBytes(text, codes, kTextCodeLimit);
  if (count < 0) {
    warnUtf(s, count);
    return 0;
  }
  while (count > 0 && codes[count - 1] == ' ') --count;
  const int coding = s->text.coding;
  const bool latin = coding != kCodingIsoCyrillic && coding != kCodingKoi8 && coding != kCodingIsoGreek;
  return s->text.shiftCharsOn && latin ? combineShifts(s, count) : count;
}

namespace {

PrivateCode entryCode(PageEntry entry) { return {entry.code, entry.alphabet}; }

PrivateCode latin1Code(int code) {
  switch (code) {
  case 161: return {kInvertedExclamation, 0};
  case 164: return {kCurrencyCode, 0};
  case 169: return {kCopyrightCode, 0};
  default: break;
  }
  if (code < kFirstLatin1Letter) return {' ', 0};
  const int found = kLatin1Codes[code - kFirstLatin1Letter];
  return {found == 0 ? ' ' : found, 0};
}

PrivateCode unicodeCode(int code) {
  if (code <= kLastLatin1) return latin1Code(code);
  if (code >= kFirstLatinExtended && code <= kLastLatinExtended)
    return {kLatinExtendedCodes[code - kFirstLatinExtended], 0};
  if (code >= kFirstGreek && code <= kLastGreek) return entryCode(kGreekCodes[code - kFirstGreek]);
  if (code >= kFirstCyrillic && code <= kLastCyrillic) return entryCode(kCyrillicCodes[code - kFirstCyrillic]);
  return {' ', 0};
}

} // namespace

PrivateCode mapToGlyph(const PlotState* s, int code) {
  if (code < kFirstCode) return {' ', 0};
  const int coding = s->text.coding;
  if (code < kFirstPrivateCode || coding == kCodingStandard) return {code, 0};
  const int alphabet = s->font.currentAlphabet;
  if (alphabet == kAlphabetMath && code <= s->font.slots[alphabet - 1].alphaCount + kFirstCode - 1) return {code, 0};
  if (coding == kCodingUtf8) return unicodeCode(code);
  const int row = code - kFirstUpperCode;
  const bool upper = row >= 0 && row < kUpperHalf;
  switch (coding) {
  case kCodingLatin1: return upper ? latin1Code(code) : PrivateCode{' ', 0};
  case kCodingLatin2: return {upper ? kLatin2Codes[row] : ' ', 0};
  case kCodingLatin3: return {upper ? kLatin3Codes[row] : ' ', 0};
  case kCodingIsoCyrillic: return upper ? entryCode(kIsoCyrillicCodes[row]) : PrivateCode{' ', kAlphabetStandard};
  case kCodingKoi8: return upper ? entryCode(kKoi8Codes[row]) : PrivateCode{' ', kAlphabetStandard};
  default: return upper ? entryCode(kIsoGreekCodes[row]) : PrivateCode{' ', kAlphabetStandard};
  }
}

namespace {

// Latin-1 letter of a private code.
int unicodeOfPrivate(int code) {
  switch (code) {
  case kInvertedExclamation: return 161;
  case kCurrencyCode: return 164;
  case kDriverCopyrightCode:
  case kCopyrightCode: return 169;
  default: break;
  }
  for (int i = 0; i <= kLastLatin1 - kFirstLatin1Letter; ++i) {
    if (kLatin1Codes[i] == code) return kFirstLatin1Letter + i;
  }
  for (int i = 0; i <= kLastLatinExtended - kFirstLatinExtended; ++i) {
    if (kLatinExtendedCodes[i] == code) return kFirstLatinExtended + i;
  }
  return code;
}

} // namespace

int unicodeOf(const PlotState* s, int code) {
  if (code < kFirstPrivateCode) return code;
  const std::uint16_t* page = nullptr;
  switch (s->text.coding) {
  case kCodingStandard: return unicodeOfPrivate(code);
  case kCodingLatin2: page = kLatin2Unicode; break;
  case kCodingLatin3: page = kLatin3Unicode; break;
  case kCodingIsoCyrillic: page = kIsoCyrillicUnicode; break;
  case kCodingKoi8: page = kKoi8Unicode; break;
  case kCodingIsoGreek: page = kIsoGreekUnicode; break;
  default: return code;
  }
  const int row = code - kFirstUpperCode;
  return row >= 0 && row < kUpperHalf ? page[row] : 0;
}

int encodeUtf8(int code, char* bytes) {
  constexpr int kLimits[4] = {0x80, 0x800, 0x10000, 0x200000};
  constexpr int kLeads[4] = {0, 0xC0, 0xE0, 0xF0};
  if (code < 0 || code >= kLimits[3]) return 0;
  int more = 0;
  while (code >= kLimits[more]) ++more;
  bytes[0] = static_cast<char>(kLeads[more] | code >> (6 * more));
  for (int i = 1; i <= more; ++i) bytes[i] = static_cast<char>(0x80 | (code >> (6 * (more - i)) & 0x3F));
  return more + 1;
}

void warnUtf(PlotState* s, int result) {
  const char* text = "Syntax error in UTF string";
  if (result == kUtfNoSpace) text = "Not enough space in array";
  if (result == kUtfTooBig) text = "Number too big for UTF8 conversion";
  if (result == kUtfNoRoom) text = "Not enough space in string";
  warnWithText(s, kUtfMessage, text);
}

} // namespace quilla
