// Public routines that read FITS files. Failures are told and give negative results.
#include <climits>
#include <cstdlib>
#include <new>

#include "core/levels.h"
#include "core/messages.h"
#include "image/fits.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kOpenError = 195, kNoBitpix = 196, kNoNaxis = 197, kNoLengths = 198, kNoFile = 199, kNoKeyword = 200,
              kWrongType = 201, kSyntax = 202, kTooLong = 204, kNoMemory = 53;
constexpr int kOpenFailed = -1, kMemoryFailed = -2, kBitpixFailed = -3, kNaxisFailed = -4, kLengthFailed = -5,
              kClosed = -6;

PlotState* fitsCheck(const char* routine) { return strictCheck(0, 3, routine); }

bool hasFile(PlotState* s) {
  if (s->fits.file) return true;
  warnWithText(s, kNoFile, "No open FITS file");
  return false;
}

// 0, or the result of the keyword that the header lacks.
int checkHeader(PlotState* s, const FitsHeader& header) {
  if (header.bitpix == -1) {
    warnWithText(s, kNoBitpix, "Keyword BITPIX is not defined");
    return kBitpixFailed;
  }
  if (header.naxis == -1) {
    warnWithText(s, kNoNaxis, "Keyword NAXIS is not defined");
    return kNaxisFailed;
  }
  for (int i = 0; i < header.naxis; i++) {
    if (i < kFitsMostAxes && header.axisLengths[i] != -1) continue;
    warnWithText(s, kNoLengths, "Some NAXISn are not defined");
    return kLengthFailed;
  }
  return 0;
}

// The value of a keyword and its class; null after a message.
const char* lookUp(PlotState* s, const char* key, char card[kFitsCard + 1], FitsClass* kind) {
  if (!hasFile(s)) return nullptr;
  if (!findFitsCard(*s->fits.file, key, card)) {
    warnWithText(s, kNoKeyword, "Keyword is not defined in FITS file");
    return nullptr;
  }
  const char* value = fitsValueText(card);
  *kind = value ? fitsClass(value) : kFitsBroken;
  return value ? value : "";
}

void refuseType(PlotState* s) { warnWithText(s, kWrongType, "Keyword does not match type in FITS file"); }

} // namespace

int FITSOPN(const char* name) {
  PlotState* s = fitsCheck("fitsopn");
  if (!s) return kOpenFailed;
  std::FILE* stream = std::fopen(name, "rb");
  if (!stream) {
    warnWithText(s, kOpenError, "Open error in FITS file");
    return kOpenFailed;
  }
  auto* file = new (std::nothrow) FitsFile{};
  if (!file) {
    std::fclose(stream);
    warnPlain(s, kNoMemory);
    return kMemoryFailed;
  }
  s->fits.replace(file);
  file->stream = stream;
  readFitsHeader(stream, false, file->header);
  return checkHeader(s, file->header);
}

void FITSCLS(void) {
  PlotState* s = fitsCheck("fitscls");
  if (s && hasFile(s)) s->fits.replace(nullptr);
}

int FITSHDU(int n) {
  PlotState* s = fitsCheck("fitshdu");
  if (!s || checkRange(s, n, 1, -1)) return -1;
  if (!hasFile(s)) return kClosed;
  FitsFile& file = *s->fits.file;
  FitsHeader header;
  long long offset = 0;
  if (!seekFitsHdu(file, n, header, offset)) {
    warnWithText(s, kWrongType, "No HDU in FITS file");
    return -1;
  }
  file.hduNumber = n;
  file.hduOffset = offset;
  file.header = header;
  const int fault = checkHeader(s, header);
  return fault != 0 ? fault : header.extensionKind;
}

int FITSVAL(const char* key) {
  PlotState* s = fitsCheck("fitsval");
  char card[kFitsCard + 1];
  FitsClass kind = kFitsBroken;
  const char* value = s ? lookUp(s, key, card, &kind) : nullptr;
  if (!value) return -1;
  switch (kind) {
  case kFitsInteger: return fitsInteger(value);
  case kFitsTrue: return 1;
  case kFitsFalse: return 0;
  default: refuseType(s); return -1;
  }
}

double FITSFLT(const char* key) {
  PlotState* s = fitsCheck("fitsflt");
  char card[kFitsCard + 1];
  FitsClass kind = kFitsBroken;
  const char* value = s ? lookUp(s, key, card, &kind) : nullptr;
  if (!value) return -1.0;
  if (kind == kFitsInteger || kind == kFitsReal) return std::strtod(value, nullptr);
  refuseType(s);
  return -1.0;
}

int FITSTYP(const char* key) {
  PlotState* s = fitsCheck("fitstyp");
  char card[kFitsCard + 1];
  FitsClass kind = kFitsBroken;
  return s && lookUp(s, key, card, &kind) ? static_cast<int>(kind) : -1;
}

void FITSSTR(const char* key, char* text, int size) {
  PlotState* s = fitsCheck("fitsstr");
  if (!s || checkRange(s, size, 1, -1)) return;
  text[0] = 0;
  char card[kFitsCard + 1];
  FitsClass kind = kFitsBroken;
  const char* value = lookUp(s, key, card, &kind);
  if (!value) return;
  if (kind != kFitsEmptyString && kind != kFitsString) return refuseType(s);
  if (!copyFitsString(value, text, size)) warnWithText(s, kTooLong, "String does not fit into buffer");
}

int FITSIMG(unsigned char* data, int size) {
  PlotState* s = fitsCheck("fitsimg");
  if (!s || checkRange(s, size, 0, -1)) return -2;
  if (!hasFile(s)) return -3;
  const FitsFile& file = *s->fits.file;
  const long long needed = fitsDataSize(file.header);
  if (needed == 0 || (size == 0 && needed > 0 && needed <= INT_MAX)) return static_cast<int>(needed);
  if (needed > size) {
    warnWithText(s, kWrongType, "Not enough space in array for FITS image");
    return -1;
  }
  // The data are sought behind a header as long as this one at the start of the file.
  const bool read =
      needed > 0 && fseeko(file.stream, file.header.length, SEEK_SET) == 0 &&
      std::fread(data, 1, static_cast<std::size_t>(needed), file.stream) == static_cast<std::size_t>(needed);
  if (read) return static_cast<int>(needed);
  warnWithText(s, kSyntax, "Syntax error in FITS file");
  return -2;
}
