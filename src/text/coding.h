// From the bytes of a text to private codes: decoding, shift characters of accented letters, code pages.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Decodes a text into textCodes, removes trailing blanks and combines shift characters with the letter behind them.
// Returns the count of codes, 0 after a message.
int decodeText(PlotState* s, const char* text);

inline constexpr int kFirstPrivateCode = 127;

enum UtfFault : int { kUtfSyntaxError = -1, kUtfNoSpace = -2, kUtfTooBig = -3, kUtfNoRoom = -4 };
inline constexpr int kUtfBytes = 4; // of one code, at most
// UTF-8 to codes: the count, or kUtfSyntaxError or kUtfNoSpace.
int decodeUtf8(const char* text, int* codes, int limit);
// Writes the bytes of a code; their count, 0 if the code is too big.
int encodeUtf8(int code, char* bytes);
// The message of a fault.
void warnUtf(PlotState* s, int fault);

struct PrivateCode {
  int code;
  int alphabet; // the alphabet that holds the sign, 0: the current one stays
};
// Private code of a character of the current coding.
PrivateCode mapToGlyph(const PlotState* s, int code);

// Unicode number of a character of the current coding, for fonts that have more letters than the private set; 0 for
// none.
int unicodeOf(const PlotState* s, int code);

} // namespace quilla
