// PDF: device 511. Coordinates are points, origin at the lower left of the sheet, x and y already exchanged on a page
// that lies across it.
#pragma once

#include "core/plot_state.h"

namespace quilla {

struct PdfWriter;

// Codes of pdfPen besides those of the pen.
enum PdfPenCode : int {
  kPdfClose = 1,
  kPdfNewPage = 4,
  kPdfFillPath = 5,
  kPdfLineWidth = 6,
  kPdfLineJoin = 7,
  kPdfLineCap = 8,
  kPdfMiterLimit = 9,
  kPdfClipCorner1 = 16,
  kPdfClipCorner2 = 17,
  kPdfClip = 18 // x 0 sets it, any other value lifts it
};

// What ends badly when a document is opened.
enum class PdfOpenResult { kFine, kNoFile, kNoMemory };

// Opens the document, in memory or under plotFileName.
PdfOpenResult pdfOpen(PlotState* s);
// Ends the document; false if the file could not be written.
bool pdfClose(PlotState* s);
// The document that is being drawn, or null.
PdfWriter* pdfDocument(PlotState* s);
// Frees the record and a document kept in memory.
void pdfFree(PlotState* s);

void pdfPen(PdfWriter& pdf, float x, float y, int code);
void pdfColor(PdfWriter& pdf, int r, int g, int b); // stroke and fill
void pdfFill(PdfWriter& pdf, const float* x, const float* y, int n);
// Rectangle in a colour of its own; (x, y) is the lower left corner.
void pdfRectangle(PdfWriter& pdf, float x, float y, float width, float height, int r, int g, int b);
void pdfSelectFont(PdfWriter& pdf, int row, int size, int width); // tenths of a point, percent
void pdfGlyph(PdfWriter& pdf, int code, float x, float y, int angle);

} // namespace quilla
