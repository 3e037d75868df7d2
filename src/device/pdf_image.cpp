// Images inside PDF: an object of its own, between two content streams of the page.
#include "device/page_image.h"
#include "device/pdf_driver.h"
#include "device/pdf_writer.h"
#include "device/sheet.h"
#include "device/sink.h"
#include "raster/pack.h"
#include "raster/row_buffer.h"

namespace quilla {
namespace {

constexpr std::size_t kRgbBytes = 3;

// The head of the object up to the length of its data.
void putHead(PdfWriter& pdf, const PageImage& image) {
  TextLine line;
  addText(line, "<< /Type /XObject /Subtype /Image\n   /ColorSpace /DeviceRGB\n");
  if (image.masked) addText(line, "   /Mask [255 255 255 255 255 255]\n");
  addText(line, "   /Width");
  addInteger(line, image.width);
  addText(line, " /Height");
  addInteger(line, image.height);
  addText(line, " /BitsPerComponent 8\n   /Length");
  pdfPut(pdf, textOf(line));
}

void putLength(PdfWriter& pdf, std::size_t length, std::string_view tail) {
  TextLine line;
  addText(line, " ");
  joinInteger(line, static_cast<int>(length));
  addText(line, tail);
  pdfPut(pdf, textOf(line));
}

void putPlainRows(PdfWriter& pdf, const PageImage& image, const RowBuffer& row) {
  putLength(pdf, row.size * static_cast<std::size_t>(image.height), ">>\nstream\n");
  for (int y = 0; y < image.height; ++y) {
    image.read(image.picture, y, row.bytes);
    pdfPut(pdf, reinterpret_cast<const char*>(row.bytes), static_cast<int>(row.size));
  }
}

// Moves, turns and stretches the unit square, whose origin is the lower left corner, and paints the image in it.
void paint(PlotState* s, PdfWriter& pdf, const PageImage& image) {
  const DevicePoint corner = pointOnSheet(s, image.x, image.y + image.boxH);
  const float scale = s->device.deviceScale;
  TextLine line;
  addText(line, "q\n1 0 0 1");
  addReal(line, static_cast<double>(corner.x), 2);
  addReal(line, static_cast<double>(corner.y), 2);
  addText(line, " cm\n");
  if (pageAcrossSheet(s)) addText(line, "0 1 -1 0 0 0 cm\n");
  joinReal(line, static_cast<double>(image.boxW * scale), 2);
  addText(line, " 0 0");
  addReal(line, static_cast<double>(image.boxH * scale), 2);
  addText(line, " 0 0 cm\n/Image");
  joinInteger(line, pdf.imageCount);
  addText(line, " Do\nQ\n");
  pdfPut(pdf, textOf(line));
}

} // namespace

bool pdfImage(PlotState* s, PdfWriter& pdf, const PageImage& image) {
  const RowBuffer row(image.width, kRgbBytes);
  if (!row.bytes) return false;
  const auto rowBytes = static_cast<std::size_t>(image.width) * kRgbBytes;
  PackedRows packed;
  const bool isPacked = pdf.compressWanted &&
                        packRows({image.read, image.picture, image.height, rowBytes, 0}, packed) == EncodeResult::kFine;
  pdfPen(pdf, pdf.lastX, pdf.lastY, kPenMove); // ends what is open
  pdfCloseContent(pdf);
  pdfStartObject(pdf, kPdfImage);
  putHead(pdf, image);
  if (isPacked) {
    putLength(pdf, packed.size, "\n   /Filter /FlateDecode\n>>\nstream\n");
    pdfPut(pdf, reinterpret_cast<const char*>(packed.bytes), static_cast<int>(packed.size));
  } else {
    putPlainRows(pdf, image, row);
  }
  pdfPut(pdf, "endstream\n");
  pdfEndObject(pdf);
  ++pdf.imageCount;
  pdfOpenContent(pdf);
  paint(s, pdf, image);
  return true;
}

} // namespace quilla
