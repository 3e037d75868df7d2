// Bytes out: the buffered file, the block writer, the word writer and the number helpers that the formats define.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/plot_state.h"
#include "raster/byte_target.h"

namespace quilla {

inline constexpr int kOutputBufferSize = 65536;

// A buffered file with one sticky status: after a failed write everything else is dropped.
struct OutputBuffer {
  std::FILE* file = nullptr;
  bool failed = false;
  int used = 0;
  long long position = 0; // bytes handed in since the file was opened
  char bytes[kOutputBufferSize];
};

OutputBuffer* openOutput(const char* name, const char* mode); // null on failure
void putBytes(OutputBuffer* out, const char* bytes, int count);
void putText(OutputBuffer* out, std::string_view text);
void flushOutput(OutputBuffer* out);   // hands what is buffered to the system
bool closeOutput(OutputBuffer* out);   // frees it; false if anything could not be written
ByteTarget bytesTo(OutputBuffer* out); // for encoders of pictures

// Word writer of text formats: lines of at most 80 characters, broken at blanks. Count -1 ends the line.
void qqtbuf(PlotState* s, const char* text, int count);
inline void qqtbuf(PlotState* s, std::string_view text) { qqtbuf(s, text.data(), static_cast<int>(text.size())); }
inline void endLine(PlotState* s) { qqtbuf(s, "", -1); }
// One word of the word writer as it stands, its trailing blank included: no scan for blanks, none is dropped.
void putWord(DeviceGroup& device, const char* word, int length);
// Block writer of records of fixed width.
void qqsbuf(PlotState* s, const char* bytes, int count);

// Number helpers; each returns the length and ends the text with a zero byte. A text needs kNumberTextSize bytes,
// or width + 1 if that is more.
inline constexpr int kNumberDigitLimit = 100;
inline constexpr int kNumberTextSize = 112;

// A real number: value * 10^decimals + 0.5, truncated, by magnitude. decimals -1: an integer, 0: a trailing point.
// width > 0 pads on the left with blanks. A zero result has no sign unless a width is given. At most 100 digits:
// decimals are given up first, and a magnitude of 1e100 or more prints 100 nines. Not a number and infinity print as
// "NaN", "Inf" and "-Inf".
int qqfcha(double value, int decimals, char* out, int width);
// An integer, padded on the left to the width with blanks, or with zeros behind the sign.
int qqicha(int value, char* out, int width, bool zeros);
// Append to a text of the given length, preceded by one blank if the text is not empty.
int qqappi(char* text, int length, int value);
int qqappf(char* text, int length, double value, int decimals);

// A line put together from pieces; what does not fit is cut. Numbers are preceded by one blank unless the line is
// empty.
struct TextLine {
  char text[400];
  int length = 0;
};
void addText(TextLine& line, std::string_view piece);
void addInteger(TextLine& line, int value);
void addReal(TextLine& line, double value, int decimals);
// The same without the blank.
void joinInteger(TextLine& line, int value);
void joinReal(TextLine& line, double value, int decimals);
inline std::string_view textOf(const TextLine& line) { return {line.text, static_cast<std::size_t>(line.length)}; }

// value + 0.5, truncated; kept within +-1e9, not a number counts as 0.
inline int deviceRound(float value) {
  constexpr float kLimit = 1e9F;
  const float shifted = value + 0.5F;
  if (shifted > -kLimit && shifted < kLimit) return static_cast<int>(shifted);
  return static_cast<int>(shifted > 0.0F ? kLimit : shifted < 0.0F ? -kLimit : 0.0F);
}

// For paths of many points: writes at p what qqfcha writes without a width, without a zero byte, and returns the end.
// Not a number counts as 0, magnitudes above 1e12 as 1e12. At most kFixedTextSize bytes.
inline constexpr int kFixedTextSize = 24;
char* putInteger(char* p, int value);
char* putFixed1(char* p, double value);
char* putFixed2(char* p, double value);
char* putFixed3(char* p, double value);

} // namespace quilla
