#include "device/pdf_driver.h"

#include <cmath>
#include <cstdlib>
#include <new>

#include "device/latin_codes.h"
#include "device/pdf_writer.h"
#include "device/sheet.h"
#include "device/sink.h"

namespace quilla {
namespace {

constexpr float kDotHalf = 0.354F, kDotWidth = 0.708F; // a point is drawn this wide
constexpr float kThinnest = 0.01F;                     // sides of a rectangle up to this are widened
constexpr float kDefaultLineWidth = 0.709F;

void endText(PdfWriter& pdf) {
  if (!pdf.inText) return;
  pdfPut(pdf, "ET\n");
  pdf.inText = false;
}

void endPath(PdfWriter& pdf) {
  if (!pdf.pathOpen) return;
  pdfPut(pdf, "S\n");
  pdf.pathOpen = false;
  pdf.penState = 3;
}

// The operators of a path point. Written in place when the stream has room, as almost always.
void putPoint(PdfWriter& pdf, float x, float y, char operation) {
  constexpr int kPointSize = 2 * kFixedTextSize + 4;
  char piece[kPointSize];
  const bool inPlace = pdf.inStream && pdf.compress && pdf.streamLength + kPointSize <= kPdfStreamLimit;
  char* start = inPlace ? pdf.streamBuffer + pdf.streamLength : piece;
  char* p = putFixed2(start, static_cast<double>(x));
  *p++ = ' ';
  p = putFixed2(p, static_cast<double>(y));
  *p++ = ' ';
  *p++ = operation;
  *p++ = '\n';
  const int count = static_cast<int>(p - start);
  if (inPlace) {
    pdf.streamLength += count;
  } else {
    pdfPut(pdf, piece, count);
  }
}

void setLineWidth(PdfWriter& pdf, float width);

void drawTo(PdfWriter& pdf, float x, float y) {
  float half = 0.0F;
  if (x == pdf.lastX && y == pdf.lastY) {
    if (pdf.penState == 2) return;
    half = kDotHalf;
  }
  if (pdf.penState == 3) {
    if (pdf.paint.hairLine && !pdf.filling) setLineWidth(pdf, pdf.paint.lineWidth);
    putPoint(pdf, pdf.lastX - half, pdf.lastY, 'm');
  }
  putPoint(pdf, x + half, y, 'l');
  pdf.lastX = x;
  pdf.lastY = y;
  pdf.pathOpen = true;
  pdf.penState = 2;
}

void moveTo(PdfWriter& pdf, float x, float y) {
  pdf.penState = 3;
  pdf.lastX = x;
  pdf.lastY = y;
}

// Components 0 and 255 as whole numbers, others as a fraction with three decimals.
void putComponents(PdfWriter& pdf, int r, int g, int b, const char* operation) {
  TextLine line;
  for (int component : {r, g, b}) {
    char fraction[kNumberTextSize];
    if (component == 0) {
      addText(line, "0 ");
    } else if (component == 255) {
      addText(line, "1 ");
    } else {
      addText(line, {fraction, static_cast<std::size_t>(qqfcha(component / 255.0, 3, fraction, 5))});
      addText(line, " ");
    }
  }
  addText(line, operation);
  pdfPut(pdf, textOf(line));
}

void setStroke(PdfWriter& pdf, int r, int g, int b) {
  endPath(pdf);
  endText(pdf);
  putComponents(pdf, r, g, b, "RG\n");
  pdf.paint.strokeR = r;
  pdf.paint.strokeG = g;
  pdf.paint.strokeB = b;
}

void setFill(PdfWriter& pdf, int r, int g, int b) {
  endPath(pdf);
  endText(pdf);
  putComponents(pdf, r, g, b, "rg\n");
  pdf.paint.fillR = r;
  pdf.paint.fillG = g;
  pdf.paint.fillB = b;
}

// The current colour is that of strokes; a rectangle in a colour of its own leaves the fill colour behind.
void followStroke(PdfWriter& pdf) {
  const PdfPaint& paint = pdf.paint;
  if (paint.fillR == paint.strokeR && paint.fillG == paint.strokeG && paint.fillB == paint.strokeB) return;
  setFill(pdf, paint.strokeR, paint.strokeG, paint.strokeB);
}

void putNumber(PdfWriter& pdf, double value, int decimals, std::string_view operation) {
  TextLine line;
  addReal(line, value, decimals);
  addText(line, operation);
  pdfPut(pdf, textOf(line));
}

void putSetting(PdfWriter& pdf, int value, std::string_view operation) {
  TextLine line;
  addInteger(line, value);
  addText(line, operation);
  pdfPut(pdf, textOf(line));
}

void setLineWidth(PdfWriter& pdf, float width) {
  putNumber(pdf, static_cast<double>(width), 3, " w\n");
  pdf.paint.lineWidth = width;
  pdf.paint.hairLine = false;
}

void setLineCap(PdfWriter& pdf, int cap) {
  putSetting(pdf, cap, " J\n");
  pdf.paint.lineCap = cap;
}

void setLineJoin(PdfWriter& pdf, int join) {
  putSetting(pdf, join, " j\n");
  pdf.paint.lineJoin = join;
}

void setMiterLimit(PdfWriter& pdf, float limit) {
  putNumber(pdf, static_cast<double>(limit), 3, " M\n");
  pdf.paint.miterLimit = limit;
}

// Writes again what differs from the graphics state that is in force.
void restorePaint(PdfWriter& pdf, const PdfPaint& inForce) {
  const PdfPaint wanted = pdf.paint;
  pdf.paint.hairLine = inForce.hairLine;
  pdf.paint.fillR = inForce.fillR;
  pdf.paint.fillG = inForce.fillG;
  pdf.paint.fillB = inForce.fillB;
  if (wanted.lineWidth != inForce.lineWidth) setLineWidth(pdf, wanted.lineWidth);
  if (wanted.lineCap != inForce.lineCap) setLineCap(pdf, wanted.lineCap);
  if (wanted.lineJoin != inForce.lineJoin) setLineJoin(pdf, wanted.lineJoin);
  if (wanted.miterLimit != inForce.miterLimit) setMiterLimit(pdf, wanted.miterLimit);
}

void restoreStroke(PdfWriter& pdf) { setStroke(pdf, pdf.paint.strokeR, pdf.paint.strokeG, pdf.paint.strokeB); }

void liftClip(PdfWriter& pdf, bool another) {
  if (!pdf.clipOn) return;
  pdfPut(pdf, "Q\n");
  pdf.clipOn = false;
  const PdfPaint& before = pdf.paintBeforeClip;
  const PdfPaint& now = pdf.paint;
  const bool changed = before.strokeR != now.strokeR || before.strokeG != now.strokeG || before.strokeB != now.strokeB;
  if (another || changed) restoreStroke(pdf);
  restorePaint(pdf, before);
}

void setClip(PdfWriter& pdf) {
  liftClip(pdf, true);
  pdfPut(pdf, "q\n");
  putPoint(pdf, pdf.clipX1, pdf.clipY1, 'm');
  putPoint(pdf, pdf.clipX2, pdf.clipY1, 'l');
  putPoint(pdf, pdf.clipX2, pdf.clipY2, 'l');
  putPoint(pdf, pdf.clipX1, pdf.clipY2, 'l');
  pdfPut(pdf, "h W n\n");
  pdf.paintBeforeClip = pdf.paint;
  pdf.clipOn = true;
}

// A page begins with the graphics state of the format; the plot's own goes on.
void newPage(PdfWriter& pdf) {
  if (pdf.clipOn) pdfPut(pdf, "Q\n");
  pdf.clipOn = false;
  pdfCloseContent(pdf);
  pdfWritePage(pdf);
  pdf.firstPageObject = pdf.nextObject;
  ++pdf.pageNumber;
  pdf.contentStreams = 0;
  pdf.hasText = false;
  pdfOpenContent(pdf);
  pdf.penState = 3;
  setLineWidth(pdf, pdf.paint.lineWidth);
  setLineCap(pdf, pdf.paint.lineCap);
  setLineJoin(pdf, pdf.paint.lineJoin);
  if (pdf.paint.miterLimit > 0.0F) setMiterLimit(pdf, pdf.paint.miterLimit);
  restoreStroke(pdf);
  setFill(pdf, pdf.paint.strokeR, pdf.paint.strokeG, pdf.paint.strokeB);
}

// The sheet in whole points. Only the file's reader sees the rotation.
void setPageSize(const PlotState* s, PdfWriter& pdf) {
  const SheetSize sheet = sheetSize(s);
  pdf.pageWidth = deviceRound(sheet.width * kPointsPerSheetUnit);
  pdf.pageHeight = deviceRound(sheet.height * kPointsPerSheetUnit);
  pdf.rotated = pageAcrossSheet(s);
}

void closeDocument(PdfWriter& pdf) {
  if (pdf.clipOn) pdfPut(pdf, "Q\n");
  pdfCloseContent(pdf);
  pdfWritePage(pdf);
  pdfWriteEnd(pdf, readClock());
}

} // namespace

void pdfFreeTables(PdfWriter& pdf) {
  for (int i = 0; i < pdf.bookmarkCount; ++i) std::free(pdf.bookmarks[i].text);
  std::free(pdf.bookmarks);
  std::free(pdf.objectOffset);
  std::free(pdf.objectKind);
  std::free(pdf.streamBuffer);
  std::free(pdf.packBuffer);
  pdf.bookmarks = nullptr;
  pdf.bookmarkCount = 0;
  pdf.objectOffset = nullptr;
  pdf.objectKind = nullptr;
  pdf.streamBuffer = pdf.packBuffer = nullptr;
}

PdfOpenResult pdfOpen(PlotState* s) {
  PdfWriter* pdf = new (std::nothrow) PdfWriter;
  if (!pdf) return PdfOpenResult::kNoMemory;
  pdfFree(s);
  s->device.pdf = pdf;
  pdf->compressWanted = (s->deviceSetup.pdfMode & kPdfModeCompress) != 0;
  pdf->toMemory = (s->deviceSetup.pdfMode & kPdfModeMemory) != 0;
  setPageSize(s, *pdf);
  if (pdf->toMemory) {
    pdf->memory = static_cast<char*>(std::malloc(kPdfMemoryGrowth));
    if (!pdf->memory) return PdfOpenResult::kNoMemory;
    pdf->memoryLimit = kPdfMemoryGrowth;
  } else {
    pdf->stream = openOutput(s->deviceSetup.plotFileName, "wb");
    if (!pdf->stream) return PdfOpenResult::kNoFile;
  }
  pdf->documentOpen = true;
  pdfPut(*pdf, "%PDF-1.3\n");
  pdfOpenContent(*pdf);
  if (pdf->tableFailed) return PdfOpenResult::kNoMemory;
  setLineWidth(*pdf, kDefaultLineWidth);
  setLineCap(*pdf, 2);
  setLineJoin(*pdf, 2);
  return PdfOpenResult::kFine;
}

bool pdfClose(PlotState* s) {
  PdfWriter& pdf = *s->device.pdf;
  pdfPen(pdf, 0.0F, 0.0F, kPdfClose);
  pdf.documentOpen = false;
  bool written = !pdf.tableFailed;
  if (pdf.stream && !closeOutput(pdf.stream)) written = false;
  pdf.stream = nullptr;
  pdfFreeTables(pdf);
  return written;
}

PdfWriter* pdfDocument(PlotState* s) {
  PdfWriter* pdf = s->device.pdf;
  return pdf && pdf->documentOpen ? pdf : nullptr;
}

void pdfFree(PlotState* s) {
  PdfWriter* pdf = s->device.pdf;
  if (!pdf) return;
  if (pdf->stream) closeOutput(pdf->stream);
  pdfFreeTables(*pdf);
  std::free(pdf->memory);
  delete pdf;
  s->device.pdf = nullptr;
}

void pdfPen(PdfWriter& pdf, float x, float y, int code) {
  endText(pdf);
  if (code == kPenDraw) {
    drawTo(pdf, x, y);
    return;
  }
  if (code == kPdfFillPath) {
    pdfPut(pdf, "h\nf*\n");
    pdf.pathOpen = false;
    pdf.penState = 3;
    return;
  }
  endPath(pdf);
  switch (code) {
  case kPdfClose: closeDocument(pdf); break;
  case kPenMove: moveTo(pdf, x, y); break;
  case kPdfNewPage: newPage(pdf); break;
  case kPdfLineWidth: setLineWidth(pdf, x); break;
  case kPdfLineJoin: setLineJoin(pdf, deviceRound(x)); break;
  case kPdfLineCap: setLineCap(pdf, deviceRound(x)); break;
  case kPdfMiterLimit: setMiterLimit(pdf, x); break;
  case kPdfClipCorner1:
    pdf.clipX1 = x;
    pdf.clipY1 = y;
    break;
  case kPdfClipCorner2:
    pdf.clipX2 = x;
    pdf.clipY2 = y;
    break;
  case kPdfClip:
    if (deviceRound(x) == 0) {
      setClip(pdf);
    } else {
      liftClip(pdf, false);
    }
    break;
  default: break;
  }
}

void pdfColor(PdfWriter& pdf, int r, int g, int b) {
  setStroke(pdf, r, g, b);
  setFill(pdf, r, g, b);
}

namespace {

// The outline of a polygon in its own colour, as thin as the viewer can draw: it covers the seams that viewers leave
// between neighbours.
void strokeOutline(PdfWriter& pdf, const float* x, const float* y, int n) {
  if (!pdf.paint.hairLine) pdfPut(pdf, "0 w\n");
  pdf.paint.hairLine = true;
  putPoint(pdf, x[0], y[0], 'm');
  for (int i = 1; i < n; ++i) putPoint(pdf, x[i], y[i], 'l');
  pdfPut(pdf, "s\n");
}

} // namespace

void pdfFill(PdfWriter& pdf, const float* x, const float* y, int n) {
  pdfPen(pdf, x[0], y[0], kPenMove);
  followStroke(pdf);
  if (n > 2) strokeOutline(pdf, x, y, n);
  pdf.filling = true;
  for (int i = 1; i < n; ++i) drawTo(pdf, x[i], y[i]);
  if (pdf.pathOpen) pdfPen(pdf, 0.0F, 0.0F, kPdfFillPath);
  pdf.filling = false;
}

void pdfRectangle(PdfWriter& pdf, float x, float y, float width, float height, int r, int g, int b) {
  setFill(pdf, r, g, b);
  if (width <= kThinnest) {
    width = kDotWidth;
    x -= kDotHalf;
  }
  if (height <= kThinnest) {
    height = kDotWidth;
    y -= kDotHalf;
  }
  TextLine line;
  for (float value : {x, y, width, height}) addReal(line, static_cast<double>(value), 2);
  addText(line, " re\nf\n");
  pdfPut(pdf, textOf(line));
}

void pdfSelectFont(PdfWriter& pdf, int row, int size, int width) {
  if (row == pdf.fontRow && size == pdf.fontSize && width == pdf.fontWidth) return;
  endText(pdf);
  pdf.fontRow = row;
  pdf.fontSize = size;
  pdf.fontWidth = width;
}

namespace {

void beginText(PdfWriter& pdf) {
  endPath(pdf);
  pdf.hasText = true;
  if (pdf.fontUsed[pdf.fontRow] == 0) pdf.fontUsed[pdf.fontRow] = 1;
  if (pdf.inText) return;
  followStroke(pdf);
  char digits[kNumberTextSize];
  TextLine line;
  addText(line, "BT\n/F");
  addText(line, {digits, static_cast<std::size_t>(qqicha(pdf.fontRow + 1, digits, 0, false))});
  addReal(line, pdf.fontSize / 10.0, 1);
  addText(line, " Tf\n");
  addText(line, {digits, static_cast<std::size_t>(qqicha(pdf.fontWidth, digits, 0, false))});
  addText(line, " Tz\n");
  pdfPut(pdf, textOf(line));
  pdf.inText = true;
}

void addMatrix(TextLine& line, float x, float y, int angle) {
  const int turn = (angle % 360 + 360) % 360;
  if (turn == 0) {
    addText(line, "1 0 0 1");
  } else if (turn == 90) {
    addText(line, "0 1 -1 0");
  } else {
    const double radians = turn * 3.14159265358979323846 / 180.0;
    const double cosine = std::cos(radians), sine = std::sin(radians);
    for (double value : {cosine, sine, -sine, cosine}) addReal(line, value, 2);
  }
  addReal(line, static_cast<double>(x), 2);
  addReal(line, static_cast<double>(y), 2);
  addText(line, " Tm\n");
}

} // namespace

void pdfGlyph(PdfWriter& pdf, int code, float x, float y, int angle) {
  beginText(pdf);
  TextLine line;
  addMatrix(line, x, y, angle);
  if (code < ' ' || code > kLastPrivateCode) code = ' ';
  if (code >= kFirstAccentCode) code = kLatinOfPrivate[code - kFirstAccentCode];
  const auto character = static_cast<char>(code);
  addText(line, "(");
  if (code < kFirstAccentCode && character != '(' && character != ')' && character != '\\') {
    addText(line, {&character, 1});
  } else {
    char octal[] = {'\\', static_cast<char>('0' + (code >> 6)), static_cast<char>('0' + (code >> 3 & 7)),
                    static_cast<char>('0' + (code & 7))};
    if (code < 64) {
      addText(line, "\\");
      addText(line, {octal + 2, 2});
    } else {
      addText(line, {octal, 4});
    }
  }
  addText(line, ") Tj\n");
  pdfPut(pdf, textOf(line));
}

} // namespace quilla
