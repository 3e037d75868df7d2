// The public routines of PDF documents.
#include <cstdlib>
#include <cstring>

#include "core/levels.h"
#include "core/messages.h"
#include "device/device_table.h"
#include "device/pdf_driver.h"
#include "device/pdf_writer.h"
#include "quilla/quilla.h"

namespace quilla {
namespace {

constexpr int kNoSize = 51, kNoMemory = 53;
constexpr int kNotPdf = 127, kNotBuffered = 128, kBufferEmpty = 129, kBufferSmall = 130, kBadBookmark = 131;

bool reportUnlessPdf(PlotState* s) {
  if (s->deviceSetup.deviceNumber == kDevicePdf) return true;
  warnWithText(s, kNotPdf, "Output format is not PDF");
  return false;
}

bool hasBookmark(const PdfWriter& pdf, int level) {
  for (int i = 0; i < pdf.bookmarkCount; ++i) {
    if (pdf.bookmarks[i].level == level) return true;
  }
  return false;
}

// False if there is no memory.
bool addBookmark(PdfWriter& pdf, const char* text, int level) {
  const std::size_t size = std::strlen(text) + 1, count = static_cast<std::size_t>(pdf.bookmarkCount) + 1;
  void* grown = std::realloc(pdf.bookmarks, count * sizeof *pdf.bookmarks);
  if (!grown) return false;
  pdf.bookmarks = static_cast<PdfBookmark*>(grown);
  char* copy = static_cast<char*>(std::malloc(size));
  if (!copy) return false;
  std::memcpy(copy, text, size);
  pdf.bookmarks[pdf.bookmarkCount++] = {level, pdf.pageNumber, copy};
  return true;
}

} // namespace
} // namespace quilla

using namespace quilla;

void PDFMOD(const char* value, const char* key) {
  PlotState* s = strictCheck(0, 0, "pdfmod");
  if (!s) return;
  const int bits[] = {0, kPdfModeCompress, kPdfModeMemory};
  const int bit = bits[matchKeyword(s, "COMP+BUFF", 2, key)];
  if (bit == 0) return;
  const int found = matchKeyword(s, "OFF +ON  ", 2, value);
  if (found == 1) s->deviceSetup.pdfMode &= ~bit;
  if (found == 2) s->deviceSetup.pdfMode |= bit;
}

int PDFBUF(unsigned char* bytes, int size) {
  PlotState* s = strictCheck(0, 0, "pdfbuf");
  if (!s || !reportUnlessPdf(s)) return 0;
  if ((s->deviceSetup.pdfMode & kPdfModeMemory) == 0) {
    warnWithText(s, kNotBuffered, "Buffer output is not enabled for PDF");
    return 0;
  }
  PdfWriter* pdf = s->device.pdf;
  if (pdf && pdf->memoryFailed) {
    warnPlain(s, kNoSize);
    return 0;
  }
  if (!pdf || !pdf->memory) {
    warnWithText(s, kBufferEmpty, "Internal PDF buffer is empty");
    return 0;
  }
  const int length = static_cast<int>(pdf->memorySize);
  if (size == 0) return length;
  if (size < length) {
    warnWithText(s, kBufferSmall, "Buffer too small for PDF file");
    return 0;
  }
  std::memcpy(bytes, pdf->memory, static_cast<std::size_t>(length));
  std::free(pdf->memory);
  pdf->memory = nullptr;
  return length;
}

void PDFMRK(const char* text, const char* level) {
  PlotState* s = strictCheck(1, 3, "pdfmrk");
  if (!s || !reportUnlessPdf(s)) return;
  const int found = matchKeyword(s, "CHAP+SECT+SUBS+PARA+SUBP", kPdfBookmarkLevels, level);
  PdfWriter* pdf = pdfDocument(s);
  if (found == 0 || !pdf) return;
  for (int above = 0; above < found - 1; ++above) {
    if (hasBookmark(*pdf, above)) continue;
    warnWithText(s, kBadBookmark, "Bad structure for bookmarks");
    return;
  }
  if (!addBookmark(*pdf, text, found - 1)) warnPlain(s, kNoMemory);
}
