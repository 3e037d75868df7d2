#include <cstdlib>
#include <cstring>

#ifdef QUILLA_LIBDEFLATE
#include <libdeflate.h>
#else
#include <zlib.h>
#endif

#include "device/pdf_writer.h"

namespace quilla {
namespace {

constexpr int kPackLimit = kPdfStreamLimit + kPdfStreamLimit / 100 + 13; // what deflate may make of a full stream

void putMemory(PdfWriter& pdf, const char* bytes, int count) {
  constexpr long long kLargest = 0x7FFFFFFF; // PDFBUF tells the size as an int
  if (pdf.memoryFailed) return;
  if (pdf.memorySize + count > kLargest) {
    pdf.memoryFailed = true;
    return;
  }
  if (pdf.memorySize + count > pdf.memoryLimit) {
    long long limit = pdf.memoryLimit;
    while (pdf.memorySize + count > limit) limit += kPdfMemoryGrowth;
    void* grown = std::realloc(pdf.memory, static_cast<std::size_t>(limit));
    if (!grown) {
      pdf.memoryFailed = true;
      return;
    }
    pdf.memory = static_cast<char*>(grown);
    pdf.memoryLimit = limit;
  }
  std::memcpy(pdf.memory + pdf.memorySize, bytes, static_cast<std::size_t>(count));
  pdf.memorySize += count;
}

void putOutput(PdfWriter& pdf, const char* bytes, int count) {
  pdf.position += count;
  if (pdf.toMemory) {
    putMemory(pdf, bytes, count);
  } else {
    putBytes(pdf.stream, bytes, count);
  }
}

bool growTables(PdfWriter& pdf) {
  const int limit = pdf.tableLimit + kPdfTableGrowth;
  const auto count = static_cast<std::size_t>(limit);
  void* offsets = std::realloc(pdf.objectOffset, count * sizeof *pdf.objectOffset);
  if (!offsets) return false;
  pdf.objectOffset = static_cast<long long*>(offsets);
  void* kinds = std::realloc(pdf.objectKind, count);
  if (!kinds) return false;
  pdf.objectKind = static_cast<unsigned char*>(kinds);
  for (int i = pdf.tableLimit; i < limit; ++i) {
    pdf.objectOffset[i] = 0;
    pdf.objectKind[i] = kPdfGeneric;
  }
  pdf.tableLimit = limit;
  return true;
}

void putObjectHead(PdfWriter& pdf, int number) {
  TextLine line;
  addInteger(line, number);
  addText(line, " 0 obj\n");
  pdfPut(pdf, textOf(line));
}

// Length of the deflated stream in packBuffer, or -1.
int packStream(PdfWriter& pdf) {
  if (!pdf.packBuffer) pdf.packBuffer = static_cast<char*>(std::malloc(kPackLimit));
  if (!pdf.packBuffer) return -1;
#ifdef QUILLA_LIBDEFLATE
  // The least level whose streams are no longer than those of zlib at its default.
  constexpr int kLevel = 5;
  libdeflate_compressor* compressor = libdeflate_alloc_compressor(kLevel);
  if (!compressor) return -1;
  const std::size_t packed = libdeflate_zlib_compress(
      compressor, pdf.streamBuffer, static_cast<std::size_t>(pdf.streamLength), pdf.packBuffer, kPackLimit);
  libdeflate_free_compressor(compressor);
  return packed > 0 ? static_cast<int>(packed) : -1;
#else
  z_stream z{};
  if (deflateInit(&z, Z_DEFAULT_COMPRESSION) != Z_OK) return -1;
  z.next_in = reinterpret_cast<Bytef*>(pdf.streamBuffer);
  z.avail_in = static_cast<uInt>(pdf.streamLength);
  z.next_out = reinterpret_cast<Bytef*>(pdf.packBuffer);
  z.avail_out = kPackLimit;
  const bool done = deflate(&z, Z_FINISH) == Z_STREAM_END;
  const int packed = kPackLimit - static_cast<int>(z.avail_out);
  deflateEnd(&z);
  return done ? packed : -1;
#endif
}

void writePackedContent(PdfWriter& pdf) {
  const int packed = packStream(pdf);
  TextLine head;
  addText(head, "<< /Length");
  if (packed >= 0) {
    addInteger(head, packed);
    addText(head, "\n/Filter /FlateDecode\n>>\nstream\n");
  } else {
    addInteger(head, pdf.streamLength);
    addText(head, " >>\nstream\n");
  }
  pdfPut(pdf, textOf(head));
  if (packed >= 0) {
    pdfPut(pdf, pdf.packBuffer, packed);
  } else {
    pdfPut(pdf, pdf.streamBuffer, pdf.streamLength);
  }
}

} // namespace

void pdfPut(PdfWriter& pdf, const char* bytes, int count) {
  if (!pdf.inStream) {
    putOutput(pdf, bytes, count);
    return;
  }
  if (!pdf.compress) {
    pdf.streamLength += count;
    putOutput(pdf, bytes, count);
    return;
  }
  if (pdf.streamLength + count > kPdfStreamLimit) {
    pdfCloseContent(pdf);
    pdfOpenContent(pdf);
    if (!pdf.compress) {
      pdfPut(pdf, bytes, count);
      return;
    }
  }
  std::memcpy(pdf.streamBuffer + pdf.streamLength, bytes, static_cast<std::size_t>(count));
  pdf.streamLength += count;
}

int pdfStartObject(PdfWriter& pdf, int kind) {
  const int number = pdf.nextObject;
  while (number >= pdf.tableLimit && !pdf.tableFailed) pdf.tableFailed = !growTables(pdf);
  if (!pdf.tableFailed) {
    pdf.objectKind[number] = static_cast<unsigned char>(kind);
    pdf.objectOffset[number] = pdf.position;
    ++pdf.nextObject;
  }
  putObjectHead(pdf, number);
  return number;
}

void pdfStartReserved(PdfWriter& pdf, int number) {
  pdf.objectOffset[number] = pdf.position;
  putObjectHead(pdf, number);
}

void pdfEndObject(PdfWriter& pdf) { pdfPut(pdf, "endobj\n"); }

void pdfOpenContent(PdfWriter& pdf) {
  pdf.compress = pdf.compressWanted;
  if (pdf.compress && !pdf.streamBuffer) pdf.streamBuffer = static_cast<char*>(std::malloc(kPdfStreamLimit));
  if (!pdf.streamBuffer) pdf.compress = false;
  pdf.lastContent = pdfStartObject(pdf, kPdfContent);
  ++pdf.contentStreams;
  if (!pdf.compress) {
    TextLine head;
    addText(head, "<< /Length");
    addInteger(head, pdf.nextObject);
    addText(head, " 0 R >>\nstream\n");
    pdfPut(pdf, textOf(head));
  }
  pdf.inStream = true;
  pdf.streamLength = 0;
}

void pdfCloseContent(PdfWriter& pdf) {
  pdf.inStream = false;
  if (pdf.compress) writePackedContent(pdf);
  pdfPut(pdf, "endstream\nendobj\n");
  if (pdf.compress) return;
  pdfStartObject(pdf, kPdfGeneric);
  TextLine length;
  addInteger(length, pdf.streamLength);
  addText(length, "\n");
  pdfPut(pdf, textOf(length));
  pdfEndObject(pdf);
}

} // namespace quilla
