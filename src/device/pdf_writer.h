// The record of a PDF document, and its bytes: numbered objects, content streams, output to a file or to memory.
#pragma once

#include <cstddef>
#include <string_view>

#include "core/clock.h"
#include "device/ps_fonts.h"
#include "device/writers.h"

namespace quilla {

inline constexpr int kPdfStreamLimit = 300000; // bytes of one content stream
inline constexpr int kPdfTableGrowth = 100;    // entries by which the tables grow
inline constexpr int kPdfMemoryGrowth = 512000;
inline constexpr int kPdfFirstObject = 3; // 1 is the catalog, 2 the page tree
inline constexpr int kPdfBookmarkLevels = 5;

enum PdfObjectKind : unsigned char {
  kPdfGeneric = 0,
  kPdfContent = 1,
  kPdfPage = 2,
  kPdfImage = 3,
  kPdfForm = 4,
  kPdfOutline = 5,
  kPdfFont = 10 // plus the row of the font table
};

struct PdfBookmark {
  int level; // 0 chapter to 4 subparagraph
  int pageNumber;
  char* text; // owned
};

// What a clip's Q takes back: the graphics state as the content stream has set it.
struct PdfPaint {
  float lineWidth = 0.0F, miterLimit = 0.0F; // 0: never set
  int lineCap = 2, lineJoin = 2;
  int strokeR = 0, strokeG = 0, strokeB = 0;
  int fillR = -1, fillG = -1, fillB = -1; // -1: never set
  bool hairLine = false;                  // the width in force is 0, for outlines of polygons
};

struct PdfWriter {
  OutputBuffer* stream = nullptr; // null in buffer mode
  bool documentOpen = false;
  bool toMemory = false, memoryFailed = false;
  char* memory = nullptr; // buffer mode: kept until PDFBUF takes it
  long long memorySize = 0, memoryLimit = 0;
  long long position = 0; // bytes written

  int nextObject = kPdfFirstObject;
  int tableLimit = 0;
  bool tableFailed = false; // no memory for another object
  long long* objectOffset = nullptr;
  unsigned char* objectKind = nullptr;
  int firstPageObject = kPdfFirstObject;
  int contentStreams = 0;
  int lastContent = 0;
  int pageNumber = 1;

  char* streamBuffer = nullptr; // kPdfStreamLimit bytes
  char* packBuffer = nullptr;   // what deflate makes of it
  int streamLength = 0;
  bool compress = false, compressWanted = false;
  bool inStream = false;

  int pageWidth = 0, pageHeight = 0; // MediaBox, points
  bool rotated = false;              // /Rotate 90

  bool pathOpen = false; // a path awaits S
  bool inText = false;
  bool hasText = false; // on this page
  bool clipOn = false;
  bool filling = false; // the path is that of a polygon
  int penState = 3;     // 3 after a move, 2 after a draw
  float lastX = 0.0F, lastY = 0.0F;
  PdfPaint paint, paintBeforeClip;
  float clipX1 = 0.0F, clipY1 = 0.0F, clipX2 = 0.0F, clipY2 = 0.0F;

  int fontRow = 0, fontSize = 0, fontWidth = 100; // size in tenths of a point, width in percent
  unsigned char fontUsed[kPsFontCount] = {};      // 0 unused, 1 used on this page, 2 object written
  int imageCount = 0;

  PdfBookmark* bookmarks = nullptr;
  int bookmarkCount = 0;
};

// Bytes to the content stream if one is open, else to the output. A full content stream is closed and another opened.
void pdfPut(PdfWriter& pdf, const char* bytes, int count);
inline void pdfPut(PdfWriter& pdf, std::string_view text) { pdfPut(pdf, text.data(), static_cast<int>(text.size())); }

// Starts the next object, of the given kind, and returns its number.
int pdfStartObject(PdfWriter& pdf, int kind);
// Starts an object whose number was set aside.
void pdfStartReserved(PdfWriter& pdf, int number);
void pdfEndObject(PdfWriter& pdf);

void pdfOpenContent(PdfWriter& pdf);
void pdfCloseContent(PdfWriter& pdf);

// Frees what the record holds, but for the output.
void pdfFreeTables(PdfWriter& pdf);

// The objects that end a page: its fonts and the page itself.
void pdfWritePage(PdfWriter& pdf);
// Page tree, outlines, catalog, information, cross-reference table and trailer.
void pdfWriteEnd(PdfWriter& pdf, const ClockReading& clock);

} // namespace quilla
