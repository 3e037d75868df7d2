// The objects around the content: fonts, pages, outlines, catalog, cross-reference table.
#include <cstring>

#include "device/pdf_writer.h"

namespace quilla {
namespace {

constexpr int kRowDingbats = 17, kRowSymbol = 34; // fonts with an encoding of their own

// "number 0 R" behind what the line holds, and a line end.
void addReference(TextLine& line, int number) {
  addInteger(line, number);
  addText(line, " 0 R\n");
}

void putLine(PdfWriter& pdf, std::string_view label, int number, std::string_view tail) {
  TextLine line;
  addText(line, label);
  addInteger(line, number);
  addText(line, tail);
  pdfPut(pdf, textOf(line));
}

void putReference(PdfWriter& pdf, std::string_view label, int number) { putLine(pdf, label, number, " 0 R\n"); }

// A name with its own number joined to it, and the object it stands for: "/F1 5 0 R".
void putNamedReference(PdfWriter& pdf, std::string_view name, int index, int number) {
  char digits[kNumberTextSize];
  TextLine line;
  addText(line, name);
  addText(line, {digits, static_cast<std::size_t>(qqicha(index, digits, 0, false))});
  addReference(line, number);
  pdfPut(pdf, textOf(line));
}

void writeNewFonts(PdfWriter& pdf) {
  for (int row = 0; row < kPsFontCount; ++row) {
    if (pdf.fontUsed[row] != 1) continue;
    pdf.fontUsed[row] = 2;
    pdfStartObject(pdf, kPdfFont + row);
    pdfPut(pdf, "<< /Type /Font\n/Subtype /Type1\n/BaseFont /");
    pdfPut(pdf, kPsFonts[row].name);
    pdfPut(pdf, "\n");
    if (row != kRowDingbats && row != kRowSymbol) pdfPut(pdf, "/Encoding /WinAnsiEncoding\n");
    pdfPut(pdf, ">>\n");
    pdfEndObject(pdf);
  }
}

void writeResources(PdfWriter& pdf) {
  int images = 0, forms = 0;
  for (int i = pdf.firstPageObject; i < pdf.nextObject; ++i) {
    if (pdf.objectKind[i] == kPdfImage) ++images;
    if (pdf.objectKind[i] == kPdfForm) ++forms;
  }
  if (pdf.hasText) {
    pdfPut(pdf, images > 0 ? "/Resources << /ProcSet [/PDF /Text /ImageC]\n" : "/Resources << /ProcSet [/PDF /Text]\n");
    pdfPut(pdf, "/Font <<\n");
    for (int i = kPdfFirstObject; i < pdf.nextObject; ++i) {
      if (pdf.objectKind[i] >= kPdfFont) putNamedReference(pdf, "/F", pdf.objectKind[i] - kPdfFont + 1, i);
    }
    pdfPut(pdf, ">>\n");
  } else {
    pdfPut(pdf, images > 0 ? "/Resources << /ProcSet [/PDF /ImageC]\n" : "/Resources << /ProcSet [/PDF]\n");
  }
  if (images + forms > 0) {
    int image = pdf.imageCount - images, form = 0;
    pdfPut(pdf, "/XObject <<\n");
    for (int i = pdf.firstPageObject; i < pdf.nextObject; ++i) {
      if (pdf.objectKind[i] == kPdfImage) putNamedReference(pdf, "/Image", ++image, i);
      if (pdf.objectKind[i] == kPdfForm) putNamedReference(pdf, "/Form", ++form, i);
    }
    pdfPut(pdf, ">>\n");
  }
  pdfPut(pdf, ">>\n");
}

void writeContents(PdfWriter& pdf) {
  if (pdf.contentStreams == 1) {
    putReference(pdf, "/Contents", pdf.lastContent);
    return;
  }
  pdfPut(pdf, "/Contents [\n");
  for (int i = pdf.firstPageObject; i < pdf.nextObject; ++i) {
    if (pdf.objectKind[i] == kPdfContent) putReference(pdf, "", i);
  }
  pdfPut(pdf, "]\n");
}

void writePageTree(PdfWriter& pdf) {
  pdfStartReserved(pdf, 2);
  pdfPut(pdf, "<< /Type /Pages /Kids [\n");
  int pages = 0;
  for (int i = kPdfFirstObject; i < pdf.nextObject; ++i) {
    if (pdf.objectKind[i] != kPdfPage) continue;
    putReference(pdf, "", i);
    ++pages;
  }
  putLine(pdf, "] /Count", pages, "\n>>\n");
  pdfEndObject(pdf);
}

int objectOfPage(const PdfWriter& pdf, int page) {
  for (int i = kPdfFirstObject; i < pdf.nextObject; ++i) {
    if (pdf.objectKind[i] == kPdfPage && --page == 0) return i;
  }
  return 0;
}

// Where an entry stands among the bookmarks, counted from 1; 0 means none, for the parent the root.
struct OutlinePlace {
  int parent = 0, previous = 0, next = 0, descendants = 0;
};

OutlinePlace placeOf(const PdfWriter& pdf, int entry) {
  auto levelOf = [&pdf](int i) { return pdf.bookmarks[i - 1].level; };
  const int level = levelOf(entry);
  OutlinePlace place;
  for (int i = entry - 1; i > 0 && place.parent == 0; --i) {
    if (levelOf(i) < level) place.parent = i;
    if (levelOf(i) == level && place.previous == 0) place.previous = i;
  }
  while (entry + place.descendants < pdf.bookmarkCount && levelOf(entry + place.descendants + 1) > level) {
    ++place.descendants;
  }
  const int behind = entry + place.descendants + 1;
  if (behind <= pdf.bookmarkCount && levelOf(behind) == level) place.next = behind;
  return place;
}

void writeBookmark(PdfWriter& pdf, int root, int entry) {
  const PdfBookmark& bookmark = pdf.bookmarks[entry - 1];
  const OutlinePlace place = placeOf(pdf, entry);
  pdfStartObject(pdf, kPdfOutline);
  pdfPut(pdf, "<< /Title (");
  pdfPut(pdf, bookmark.text);
  pdfPut(pdf, ")\n");
  putReference(pdf, "   /Parent", root + place.parent);
  if (place.previous > 0) putReference(pdf, "   /Prev", root + place.previous);
  if (place.next > 0) putReference(pdf, "   /Next", root + place.next);
  if (place.descendants > 0) {
    putReference(pdf, "   /First", root + entry + 1);
    putReference(pdf, "   /Last", root + entry + place.descendants);
    putLine(pdf, "   /Count", place.descendants, "\n");
  }
  if (const int page = objectOfPage(pdf, bookmark.pageNumber)) {
    TextLine line;
    addText(line, "   /Dest [");
    addInteger(line, page);
    addText(line, " 0 R /XYZ 0");
    addInteger(line, pdf.pageHeight);
    addText(line, " 0]\n");
    pdfPut(pdf, textOf(line));
  }
  pdfPut(pdf, ">>\n");
  pdfEndObject(pdf);
}

int writeOutlines(PdfWriter& pdf) {
  const int root = pdfStartObject(pdf, kPdfOutline);
  pdfPut(pdf, "<< /Type /Outlines\n");
  putReference(pdf, "   /First", root + 1);
  putReference(pdf, "   /Last", root + pdf.bookmarkCount);
  putLine(pdf, "   /Count", pdf.bookmarkCount, "\n");
  pdfPut(pdf, ">>\n");
  pdfEndObject(pdf);
  for (int entry = 1; entry <= pdf.bookmarkCount; ++entry) writeBookmark(pdf, root, entry);
  return root;
}

void writeCatalog(PdfWriter& pdf, int outlines) {
  pdfStartReserved(pdf, 1);
  pdfPut(pdf, "<< /Type /Catalog /Pages 2 0 R\n");
  if (outlines > 0) {
    putReference(pdf, "   /Outlines", outlines);
    pdfPut(pdf, "   /PageMode /UseOutlines\n");
  }
  pdfPut(pdf, ">>\n");
  pdfEndObject(pdf);
}

int writeInformation(PdfWriter& pdf, const ClockReading& clock) {
  const int number = pdfStartObject(pdf, kPdfGeneric);
  TextLine line;
  char digits[kNumberTextSize];
  addText(line, "<< /CreationDate (D:");
  addText(line, {digits, static_cast<std::size_t>(qqicha(clock.year, digits, 0, false))});
  for (int part : {clock.month, clock.day, clock.hour, clock.minute, clock.second}) {
    addText(line, {digits, static_cast<std::size_t>(qqicha(part, digits, 2, true))});
  }
  addText(line, ")\n/Producer (QUILLA 10.5)\n>>\n");
  pdfPut(pdf, textOf(line));
  pdfEndObject(pdf);
  return number;
}

void writeTrailer(PdfWriter& pdf, int information) {
  const long long start = pdf.position;
  putLine(pdf, "xref\n0", pdf.nextObject, "\n0000000000 65535 f \n");
  for (int i = 1; i < pdf.nextObject; ++i) {
    // An entry is exactly 20 bytes: ten digits, a generation, its kind, a blank and a line end.
    char entry[] = "0000000000 00000 n \n";
    long long rest = pdf.objectOffset[i];
    for (int k = 9; k >= 0; --k, rest /= 10) entry[k] = static_cast<char>('0' + rest % 10);
    pdfPut(pdf, entry);
  }
  putLine(pdf, "trailer\n<< /Size", pdf.nextObject, " /Root 1 0 R");
  putReference(pdf, " /Info", information);
  TextLine line;
  char digits[kNumberTextSize];
  addText(line, ">>\nstartxref\n");
  addText(line, {digits, static_cast<std::size_t>(qqfcha(static_cast<double>(start), -1, digits, 0))});
  addText(line, "\n%%EOF\n");
  pdfPut(pdf, textOf(line));
}

} // namespace

void pdfWritePage(PdfWriter& pdf) {
  writeNewFonts(pdf);
  pdfStartObject(pdf, kPdfPage);
  pdfPut(pdf, "<<\n/Type /Page\n");
  TextLine box;
  addText(box, "/MediaBox [0 0");
  addInteger(box, pdf.pageWidth);
  addInteger(box, pdf.pageHeight);
  addText(box, "]\n/Parent 2 0 R\n");
  pdfPut(pdf, textOf(box));
  if (pdf.rotated) pdfPut(pdf, "/Rotate 90\n");
  writeResources(pdf);
  writeContents(pdf);
  pdfPut(pdf, ">>\n");
  pdfEndObject(pdf);
}

void pdfWriteEnd(PdfWriter& pdf, const ClockReading& clock) {
  writePageTree(pdf);
  const int outlines = pdf.bookmarkCount > 0 ? writeOutlines(pdf) : 0;
  writeCatalog(pdf, outlines);
  const int information = writeInformation(pdf, clock);
  writeTrailer(pdf, information);
}

} // namespace quilla
