// Decoding texts.
#include "text/coding.h"

#include <cstring>

#include "core/messages.h"
#include "text/code_pages.h"

namespace quilla {
namespace {

constexpr int kUtfMessage = 174;
constexpr int kUtfSyntaxError = -1, kUtfNoSpace = -2;

// A letter behind a shift character and what the pair stands for.
struct ShiftRow {
  char key;
  std::uint8_t code;   // private code
  std::uint8_t latin1; // Latin-1 and Unicode; 32: no such letter
};

constexpr ShiftRow kGerman[] = {{'A', 127, 196}, {'O', 128, 214}, {'U', 129, 220}, {'a', 130, 228},
                                {'o', 131, 246}, {'u', 132, 252}, {'s', 133, 223}};
constexpr ShiftRow kDanish[] = {{'A', 134, 197}, {'O', 135, 216}, {'E', 136, 198},
                                {'a', 137, 229}, {'o', 138, 248}, {'e', 139, 230}};
constexpr ShiftRow kSpanish[] = {{'N', 140, 209}, {'n', 141, 241}, {'!', 185, 161}, {'?', 186, 191}};
constexpr ShiftRow kFrench[] = {{'C', 142, 199}, {'c', 143, 231}, {'E', 144, 203},
                                {'I', 145, 207}, {'e', 146, 235}, {'i', 147, 239}};
constexpr ShiftRow kAcute[] = {{'A', 148, 193}, {'E', 149, 201}, {'I', 150, 205}, {'O', 151, 211}, {'U', 152, 218},
                               {'a', 153, 225}, {'e', 154, 233}, {'i', 155, 237}, {'o', 156, 243}, {'u', 157, 250}};
constexpr ShiftRow kGrave[] = {{'A', 158, 192}, {'E', 159, 200}, {'I', 160, 204}, {'O', 161, 210}, {'U', 162, 217},
                               {'a', 163, 224}, {'e', 164, 232}, {'i', 165, 236}, {'o', 166, 242}, {'u', 167, 249}};
constexpr ShiftRow kCircumflex[] = {{'A', 168, 194}, {'E', 169, 202}, {'I', 170, 206}, {'O', 171, 212},
                                    {'U', 172, 219}, {'a', 173, 226}, {'e', 174, 234}, {'i', 175, 238},
                                    {'o', 176, 244}, {'u', 177, 251}};
constexpr ShiftRow kTurkish[] = {{'C', 142, 199}, {'c', 143, 231}, {'G', 241, 32},  {'g', 243, 32},
                                 {'I', 242, 32},  {'i', 244, 32},  {'O', 128, 214}, {'o', 131, 246},
                                 {'S', 196, 32},  {'s', 206, 32},  {'U', 129, 220}, {'u', 132, 252}};

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
    if (rows.rows[i].key == letter) return coding == kCodingStandard ? rows.rows[i].code : rows.rows[i].latin1;
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
    warnWithText(s, kUtfMessage, count == kUtfNoSpace ? "Not enough space in array" : "Syntax error in UTF string");
    return 0;
  }
  while (count > 0 && codes[count - 1] == ' ') --count;
  const int coding = s->text.coding;
  const bool latin = coding != kCodingIsoCyrillic && coding != kCodingKoi8 && coding != kCodingIsoGreek;
  return s->text.shiftCharsOn && latin ? combineShifts(s, count) : count;
}

PrivateCode mapToGlyph(const PlotState* s, int code) {
  if (code < 32) return {32, 0};
  const int coding = s->text.coding;
  if (code < 127 || coding == kCodingStandard) return {code, 0};
  const int alphabet = s->font.currentAlphabet;
  if (alphabet == kAlphabetMath && code <= s->font.slots[alphabet - 1].alphaCount + 31) return {code, 0};
  if (coding == kCodingLatin1 || (coding == kCodingUtf8 && code < 256)) {
    switch (code) {
    case 161: return {kInvertedExclamation, 0};
    case 164: return {kCurrencyCode, 0};
    case 169: return {kCopyrightCode, 0};
    default: break;
    }
    if (code < kFirstLatin1Letter || code > 255) return {32, 0};
    const int found = kLatin1Codes[code - kFirstLatin1Letter];
    return {found == 0 ? 32 : found, 0};
  }
  if (coding == kCodingUtf8 && code >= kFirstGreek && code <= kLastGreek) {
    const PageEntry e = kGreekCodes[code - kFirstGreek];
    return {e.code, e.alphabet};
  }
  if (coding == kCodingUtf8 && code >= kFirstCyrillic && code <= kLastCyrillic) {
    const PageEntry e = cyrillicCode(code);
    return {e.code, e.alphabet};
  }
  return {32, 0};
}

} // namespace quilla
