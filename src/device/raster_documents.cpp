#include "device/raster_documents.h"

#include <algorithm>
#include <memory>
#include <new>

#include "device/pdf_writer.h"
#include "device/sheet.h"
#include "raster/pack.h"
#include "raster/row_buffer.h"

namespace quilla {
namespace {

constexpr double kVersion = 10.3;
constexpr int kRgbBytes = 3;

// Points. The picture lies on the sheet as it is seen when the sheet is turned to it.
struct Placement {
  float sheetWidth, sheetHeight, width, height;
  bool across;
};

Placement placeOf(const PlotState* s, const PixelSource& source) {
  const SheetSize sheet = sheetSize(s);
  Placement p{};
  p.sheetWidth = sheet.width * kPointsPerSheetUnit;
  p.sheetHeight = sheet.height * kPointsPerSheetUnit;
  const auto columns = static_cast<float>(source.width()), rows = static_cast<float>(source.height());
  p.across = columns > rows;
  const float scale = p.across ? std::min(p.sheetHeight / columns, p.sheetWidth / rows)
                               : std::min(p.sheetWidth / columns, p.sheetHeight / rows);
  p.width = columns * scale;
  p.height = rows * scale;
  return p;
}

void addNumber(TextLine& line, float value) { addReal(line, static_cast<double>(value), 3); }

void putPsHead(const PlotState* s, const Placement& p, const PixelSource& source, OutputBuffer* out) {
  constexpr float kPoint = 0.1417322835F; // of a sheet unit
  constexpr float kOriginX = 150.0F, kOriginY = 200.0F;
  const PageSetup& page = s->pageSetup;
  const float x = page.hardwareOriginSet ? kSheetUnit * static_cast<float>(page.hardwareOriginX) : kOriginX;
  const float y = page.hardwareOriginSet ? kSheetUnit * static_cast<float>(page.hardwareOriginY) : kOriginY;
  const SheetSize sheet = sheetSize(s);
  TextLine line;
  addText(line, "%!PS-Adobe-2.0\n%%BoundingBox: ");
  joinInteger(line, static_cast<int>(x * kPoint));
  addInteger(line, static_cast<int>(y * kPoint));
  addInteger(line, static_cast<int>((sheet.width + x) * kPoint + 1.0F));
  addInteger(line, static_cast<int>((sheet.height + y) * kPoint + 1.0F));
  addText(line, "\n%%Creator: QUILLA  ");
  joinReal(line, kVersion, 1);
  addText(line, "\n");
  joinReal(line, static_cast<double>(x * kPoint), 3);
  addNumber(line, y * kPoint);
  addText(line, " translate\n/DeviceRGB setcolorspace\ngsave");
  if (p.across) {
    addNumber(line, p.sheetWidth);
    addText(line, " 0 translate 90 rotate");
  }
  addText(line, "\n");
  joinReal(line, static_cast<double>(p.width), 3);
  addNumber(line, p.height);
  addText(line, " scale\n");
  putText(out, textOf(line));
  line.length = 0;
  addText(line, "<<\n/ImageType 1\n/Width");
  addInteger(line, source.width());
  addText(line, "\n/Height");
  addInteger(line, source.height());
  addText(line, "\n/BitsPerComponent 8\n/Decode [0 1 0 1 0 1]\n/ImageMatrix [");
  joinInteger(line, source.width());
  addText(line, " 0 0");
  addInteger(line, -source.height());
  addText(line, " 0");
  addInteger(line, source.height());
  addText(line, "]\n/DataSource currentfile /ASCIIHexDecode filter\n>> image\n");
  putText(out, textOf(line));
}

// Hexadecimal digits in lines of 80.
struct HexLines {
  OutputBuffer* out;
  int used = 0;
  char line[kLineLimit + 1];

  void add(unsigned char byte) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    line[used++] = kDigits[byte >> 4];
    line[used++] = kDigits[byte & 15];
    if (used == kLineLimit) flush();
  }
  void flush() {
    if (used == 0) return;
    line[used] = '\n';
    putBytes(out, line, used + 1);
    used = 0;
  }
};

void readRgb(void* picture, int y, unsigned char* to) {
  const auto* source = static_cast<const PixelSource*>(picture);
  readRgbRow(*source->canvas, source->box.x1, source->box.y1 + y, to, source->width());
}

void putImageObject(PdfWriter& pdf, const PixelSource& source, const PackedRows& packed) {
  pdfStartObject(pdf, kPdfImage);
  TextLine line;
  addText(line, "<< /Type /XObject /Subtype /Image\n   /ColorSpace /DeviceRGB\n   /Width");
  addInteger(line, source.width());
  addText(line, " /Height");
  addInteger(line, source.height());
  addText(line, " /BitsPerComponent 8\n   /Length");
  addInteger(line, static_cast<int>(packed.size));
  addText(line, "\n   /Filter /FlateDecode\n>>\nstream\n");
  pdfPut(pdf, textOf(line));
  pdfPut(pdf, reinterpret_cast<const char*>(packed.bytes), static_cast<int>(packed.size));
  pdfPut(pdf, "\nendstream\n");
  pdfEndObject(pdf);
  ++pdf.imageCount;
}

void putImageContent(PdfWriter& pdf, const Placement& p) {
  TextLine line;
  addText(line, "q\n");
  if (p.across) {
    addText(line, "0");
    addNumber(line, p.width);
    addNumber(line, -p.height);
    addText(line, " 0");
    addNumber(line, p.height);
    addText(line, " 0");
  } else {
    joinReal(line, static_cast<double>(p.width), 3);
    addText(line, " 0 0");
    addNumber(line, p.height);
    addText(line, " 0");
    addNumber(line, p.sheetHeight - p.height);
  }
  addText(line, " cm\n/Image1 Do\nQ\n");
  pdfOpenContent(pdf);
  pdfPut(pdf, textOf(line));
  pdfCloseContent(pdf);
}

} // namespace

EncodeResult writePsImage(const PlotState* s, const PixelSource& source, OutputBuffer* out) {
  const RowBuffer row(source.width(), kRgbBytes);
  if (!row.bytes) return EncodeResult::kNoMemory;
  putPsHead(s, placeOf(s, source), source, out);
  HexLines hex{out, 0, {}};
  for (int y = 0; y < source.height() && !out->failed; ++y) {
    readRgbRow(*source.canvas, source.box.x1, source.box.y1 + y, row.bytes, source.width());
    for (std::size_t i = 0; i < row.size; ++i) hex.add(row.bytes[i]);
  }
  hex.flush();
  putText(out, "\n> grestore showpage\n");
  return out->failed ? EncodeResult::kWriteFailed : EncodeResult::kFine;
}

EncodeResult writePdfImage(const PlotState* s, const PixelSource& source, OutputBuffer* out) {
  PackedRows packed;
  PixelSource picture = source;
  const auto rowBytes = static_cast<std::size_t>(source.width()) * kRgbBytes;
  const EncodeResult result = packRows({readRgb, &picture, source.height(), rowBytes, 0}, packed);
  if (result != EncodeResult::kFine) return result;
  const std::unique_ptr<PdfWriter> pdf(new (std::nothrow) PdfWriter);
  if (!pdf) return EncodeResult::kNoMemory;
  const Placement place = placeOf(s, source);
  pdf->stream = out;
  pdf->compressWanted = true;
  pdf->pageWidth = deviceRound(place.sheetWidth);
  pdf->pageHeight = deviceRound(place.sheetHeight);
  pdf->rotated = place.across;
  pdfPut(*pdf, "%PDF-1.3\n");
  putImageObject(*pdf, source, packed);
  putImageContent(*pdf, place);
  pdfWritePage(*pdf);
  pdfWriteEnd(*pdf, readClock());
  const bool complete = !pdf->tableFailed;
  pdfFreeTables(*pdf);
  if (!complete) return EncodeResult::kNoMemory;
  return out->failed ? EncodeResult::kWriteFailed : EncodeResult::kFine;
}

} // namespace quilla
