// From the bytes of a text to private codes: decoding, shift characters of accented letters, code pages.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Decodes a text into textCodes, removes trailing blanks and combines shift characters with the letter behind them.
// Returns the count of codes, 0 after a message.
int decodeText(PlotState* s, const char* text);

// UTF-8 to codes: the count, or -1 for a syntax error and -2 for too many codes.
int decodeUtf8(const char* text, int* codes, int limit);

struct PrivateCode {
  int code;
  int alphabet; // the alphabet that holds the sign, 0: the current one stays
};
// Private code of a character of the current coding.
PrivateCode mapToGlyph(const PlotState* s, int code);

} // namespace quilla
