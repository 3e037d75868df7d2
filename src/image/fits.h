// Headers and data of FITS files: runs of 80-byte cards, each header followed by its data.
#pragma once

#include <cstdio>

namespace quilla {

inline constexpr int kFitsCard = 80;
inline constexpr int kFitsKey = 8;        // bytes of a keyword, blank-padded
inline constexpr int kFitsMostAxes = 999; // NAXISn has at most three digits

enum FitsExtension : int { kFitsPrimary = 0, kFitsImage = 1, kFitsTable = 2, kFitsBinaryTable = 3 };
enum FitsClass : int {
  kFitsInteger = 0,
  kFitsReal = 1,
  kFitsEmptyString = 2,
  kFitsString = 3,
  kFitsTrue = 4,
  kFitsFalse = 5,
  kFitsComplexInteger = 6,
  kFitsComplexReal = 7,
  kFitsNothing = 8,
  kFitsBroken = 9 // a string without an end, or a card without "= "
};

// What a header tells of its data. -1: the keyword was not seen.
struct FitsHeader {
  int extensionKind = kFitsPrimary;
  int bitpix = -1, naxis = -1;
  int axisLengths[kFitsMostAxes] = {};
  long long length = 0; // bytes of the header, by the rule of readFitsHeader
  int cards = 0;
};

struct FitsFile {
  std::FILE* stream = nullptr;
  int hduNumber = 1;
  long long hduOffset = 0;
  FitsHeader header;
};

// Reads cards up to END or the end of the file. The header's length counts n cards and n mod 36 more, which are read
// too. extensions: look for their kind, by the keyword EXTENSIO.
void readFitsHeader(std::FILE* stream, bool extensions, FitsHeader& header);

// Bytes of the data: size of an element times all lengths; 0 without axes, -1 if they cannot be counted.
long long fitsDataSize(const FitsHeader& header);

// The card with a keyword in the current header; false if there is none. The text ends with a NUL.
bool findFitsCard(const FitsFile& file, const char* key, char card[kFitsCard + 1]);

// The text behind the first "= " of a card, null if there is none.
const char* fitsValueText(const char* card);
FitsClass fitsClass(const char* value);
int fitsInteger(const char* value); // 0 if there is no number

// Moves to a header, from 1; its offset. False if the file cannot be positioned.
bool seekFitsHdu(FitsFile& file, int n, FitsHeader& header, long long& offset);

// Copies a string value, doubled quotes as one; false if it was cut at size - 1 characters.
bool copyFitsString(const char* value, char* buffer, int size);

} // namespace quilla
