// Bytes out: the buffered file, the block writer, the word writer and the number helpers that the formats define.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/plot_state.h"

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
bool closeOutput(OutputBuffer* out); // frees it; false if anything could not be written

// Word writer of text formats: lines of at most 80 characters, broken at blanks. Count -1 ends the line.
void qqtbuf(PlotState* s, const char* text, int count);
inline void qqtbuf(PlotState* s, std::string_view text) { qqtbuf(s, text.data(), static_cast<int>(text.size())); }
inline void endLine(PlotState* s) { qqtbuf(s, "", -1); }
// Block writer of records of fixed width.
void qqsbuf(PlotState* s, const char* bytes, int count);

// Number helpers; each returns the length and ends the text with a zero byte.
// qqfcha: float with decimals (-1: integer, 0: trailing point), half up on the magnitude, width > 0 pads with blanks.
int qqfcha(double value, int decimals, char* out, int width);
int qqicha(int value, char* out, int width, bool zeros);
// Append to a text, preceded by one blank if the text is not empty.
int qqappi(char* text, int length, int value);
int qqappf(char* text, int length, double value, int decimals);

} // namespace quilla
