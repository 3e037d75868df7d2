#include "image/fits.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "image/fits_group.h"

namespace quilla {

namespace {

constexpr int kCardsPerBlock = 36;
constexpr long long kBlock = 2880;
constexpr int kBitsPerByte = 8;
constexpr long long kMostBytes = LLONG_MAX / 4;

bool readCard(std::FILE* stream, char card[kFitsCard + 1]) {
  if (std::fread(card, 1, kFitsCard, stream) != kFitsCard) return false;
  card[kFitsCard] = 0;
  return true;
}

bool begins(const char* card, const char* word) { return std::strncmp(card, word, std::strlen(word)) == 0; }

bool isEnd(const char* card) { return begins(card, "END"); }

int integerOf(const char* card) {
  const char* value = fitsValueText(card);
  return value ? fitsInteger(value) : 0;
}

void takeAxes(const char* card, FitsHeader& header) {
  constexpr int kDigits = 3, kName = 5; // "NAXIS"
  if (card[kName] == ' ') {
    header.naxis = integerOf(card);
    std::fill_n(header.axisLengths, std::clamp(header.naxis, 0, kFitsMostAxes), -1);
    return;
  }
  int n = 0;
  for (int i = 0; i < kDigits && card[kName + i] >= '0' && card[kName + i] <= '9'; i++) {
    n = 10 * n + (card[kName + i] - '0');
  }
  if (n >= 1 && n <= header.naxis) header.axisLengths[n - 1] = integerOf(card);
}

int extensionOf(const char* card) {
  if (std::strstr(card, "IMAGE")) return kFitsImage;
  if (std::strstr(card, "BINTABLE")) return kFitsBinaryTable;
  return std::strstr(card, "TABLE") ? kFitsTable : kFitsPrimary;
}

int elementSize(const FitsHeader& header) {
  const int bytes = std::abs(header.bitpix / kBitsPerByte);
  return bytes == 0 ? 1 : bytes;
}

bool seek(std::FILE* stream, long long offset) { return fseeko(stream, offset, SEEK_SET) == 0; }

} // namespace

void FitsState::replace(FitsFile* next) {
  if (file) std::fclose(file->stream);
  delete file;
  file = next;
}

const char* fitsValueText(const char* card) {
  const char* equals = std::strstr(card, "= ");
  return equals ? equals + 2 : nullptr;
}

int fitsInteger(const char* value) {
  const long long number = std::strtoll(value, nullptr, 10);
  return static_cast<int>(std::clamp<long long>(number, INT_MIN, INT_MAX));
}

void readFitsHeader(std::FILE* stream, bool extensions, FitsHeader& header) {
  char card[kFitsCard + 1];
  header = FitsHeader{};
  int n = 0;
  while (readCard(stream, card)) {
    n++;
    if (isEnd(card)) break;
    if (begins(card, "BITPIX  ")) {
      header.bitpix = integerOf(card);
    } else if (begins(card, "NAXIS")) {
      takeAxes(card, header);
    } else if (extensions && begins(card, "EXTENSIO")) {
      header.extensionKind = extensionOf(card);
    }
  }
  const int more = n % kCardsPerBlock;
  for (int i = 0; i < more && readCard(stream, card); i++) {
  }
  header.cards = n;
  header.length = static_cast<long long>(kFitsCard) * (n + more);
}

long long fitsDataSize(const FitsHeader& header) {
  if (header.naxis <= 0) return 0;
  long long size = elementSize(header);
  for (int i = 0; i < header.naxis; i++) {
    if (i >= kFitsMostAxes || header.axisLengths[i] < 0) return -1;
    if (header.axisLengths[i] > 0 && size > kMostBytes / header.axisLengths[i]) return -1;
    size *= header.axisLengths[i];
  }
  return size;
}

bool seekFitsHdu(FitsFile& file, int n, FitsHeader& header, long long& offset) {
  offset = 0;
  std::rewind(file.stream);
  for (int i = 1;; i++) {
    readFitsHeader(file.stream, true, header);
    if (i == n || header.cards == 0) return true; // behind the end of the file every header is as empty
    const long long size = fitsDataSize(header);
    if (size < 0 || size > kMostBytes - offset - header.length - kBlock) return false;
    offset += header.length + (size + kBlock - 1) / kBlock * kBlock;
    if (!seek(file.stream, offset)) return false;
  }
}

bool findFitsCard(const FitsFile& file, const char* key, char card[kFitsCard + 1]) {
  char wanted[kFitsKey + 1];
  std::snprintf(wanted, sizeof wanted, "%-*.*s", kFitsKey, kFitsKey, key);
  if (!seek(file.stream, file.hduNumber == 1 ? 0 : file.hduOffset)) return false;
  while (readCard(file.stream, card)) {
    if (std::memcmp(card, wanted, kFitsKey) == 0) return true;
    if (isEnd(card)) return false;
  }
  return false;
}

FitsClass fitsClass(const char* value) {
  bool inString = false, dot = false, bracket = false;
  int inside = 0;
  char first = 0;
  for (const char* p = value; *p; p++) {
    if (inString) {
      if (*p == '\'' && p[1] != '\'') return inside == 0 ? kFitsEmptyString : kFitsString;
      if (*p == '\'') p++;
      inside++;
      continue;
    }
    if (*p == '/') break;
    if (*p == ' ') continue;
    inString = *p == '\'';
    if (first == 0) first = *p;
    dot = dot || *p == '.';
    bracket = bracket || *p == '(';
  }
  if (inString) return kFitsBroken;
  if (first == 0) return kFitsNothing;
  if (first == 'T') return kFitsTrue;
  if (first == 'F') return kFitsFalse;
  if (bracket) return dot ? kFitsComplexReal : kFitsComplexInteger;
  return dot ? kFitsReal : kFitsInteger;
}

bool copyFitsString(const char* value, char* buffer, int size) {
  const char* p = std::strchr(value, '\'');
  int n = 0;
  bool fits = true;
  for (p = p ? p + 1 : ""; *p; p++) {
    if (*p == '\'' && p[1] != '\'') break;
    if (*p == '\'') p++;
    if (n >= size - 1) {
      fits = false;
      break;
    }
    buffer[n++] = *p;
  }
  buffer[n] = 0;
  return fits;
}

} // namespace quilla
