// CGM files in the binary encoding: polylines and line colours.
#include <algorithm>

#include "core/colors.h"
#include "core/stop_request.h"
#include "device/sink.h"
#include "graph2d/plot_file_reader.h"

namespace quilla {

namespace {

constexpr int kMetafileClass = 0, kPictureClass = 2, kPrimitiveClass = 4, kAttributeClass = 5;
constexpr int kEndMetafile = 2, kColorSelection = 2, kPolyline = 1, kLineColor = 4;
constexpr int kIndexedOffset = 32767; // of the coordinates of an older form
constexpr float kPlotUnit = 0.5F;     // of a coordinate

enum ColorMode : int { kIndexed = 1, kDirect = 2 };

// An element: the words that are left of it.
struct Reader {
  std::FILE* file;
  bool ended = false;
  int elementClass = 0, element = 0;
  int wordsLeft = 0;
  bool partitioned = false; // another part of the same element follows
  ColorMode mode = kIndexed;
};

int rawWord(Reader& r) {
  const int high = std::getc(r.file), low = std::getc(r.file);
  if (low == EOF || high == EOF) r.ended = true;
  return r.ended ? 0 : high << 8 | low;
}

// The length of a part: in bytes, with a mark when another part follows.
void readLength(Reader& r, int length) {
  constexpr int kLongForm = 31, kPartition = 0x8000;
  if (length == kLongForm) length = rawWord(r);
  r.partitioned = (length & kPartition) != 0;
  r.wordsLeft = ((length & ~kPartition) + 1) / 2;
}

bool nextElement(Reader& r) {
  const int word = rawWord(r);
  r.elementClass = word >> 12;
  r.element = word >> 5 & 127;
  readLength(r, word & 31);
  return !r.ended && !(r.elementClass == kMetafileClass && r.element == kEndMetafile);
}

// The next word of the element; false at its end.
bool nextWord(Reader& r, int& word) {
  constexpr int kLong = 31;
  while (r.wordsLeft == 0 && r.partitioned && !r.ended) readLength(r, kLong);
  if (r.wordsLeft == 0 || r.ended) return false;
  word = rawWord(r);
  r.wordsLeft--;
  return !r.ended;
}

void skipElement(Reader& r) {
  int word = 0;
  while (nextWord(r, word)) {
  }
}

bool is(const Reader& r, int elementClass, int element) {
  return r.elementClass == elementClass && r.element == element;
}

int coordinate(const Reader& r, int word) {
  const int value = word >= 0x8000 ? word - 0x10000 : word;
  return r.mode == kDirect ? value : value + kIndexedOffset;
}

bool nextPoint(Reader& r, int& x, int& y) {
  if (!nextWord(r, x) || !nextWord(r, y)) return false;
  x = coordinate(r, x);
  y = coordinate(r, y);
  return true;
}

void takeColorSelection(Reader& r) {
  int word = 0;
  if (nextWord(r, word) && word == 1) r.mode = kDirect;
}

int wholeUnits(int c) { return static_cast<int>(static_cast<float>(c) * kPlotUnit + 0.5F); }

// First pass: the greatest coordinates, in plot units.
void findSize(Reader& r, int& width, int& height) {
  while (!stopRequested() && nextElement(r)) {
    if (is(r, kPictureClass, kColorSelection)) takeColorSelection(r);
    if (is(r, kPrimitiveClass, kPolyline)) {
      for (int x = 0, y = 0; nextPoint(r, x, y);) {
        width = std::max(width, wholeUnits(x));
        height = std::max(height, wholeUnits(y));
      }
    }
    skipElement(r);
  }
}

void takeLineColor(PlotState* s, Reader& r) {
  int first = 0, second = 0;
  if (!nextWord(r, first) || (r.mode == kDirect && !nextWord(r, second)) || s->include.ignoreFileColors) return;
  if (r.mode == kIndexed) return setColor(s, first >> 8);
  const int red = first >> 8, green = first & 255, blue = second >> 8;
  if ((red & green & blue) == 255) return setColor(s, s->color.backgroundColor);
  if ((red | green | blue) == 0) return setColor(s, s->color.foregroundColor);
  setColor(s, directColor(red, green, blue));
}

} // namespace

FileReadResult drawCgm(PlotState* s, std::FILE* file, const FileBox& box) {
  Reader r{.file = file};
  int width = 0, height = 0;
  findSize(r, width, height);
  std::rewind(file);
  const float factorX = width > 0 ? box.width / static_cast<float>(width) : box.width;
  const float factorY = height > 0 ? box.height / static_cast<float>(height) : box.height;
  const float factor = std::min(factorX, factorY), unit = kPlotUnit * factor;
  const float baseY = static_cast<float>(height) * factor + box.y;
  r = Reader{.file = file};
  FilePen pen;
  while (!stopRequested() && nextElement(r)) {
    if (is(r, kPictureClass, kColorSelection)) takeColorSelection(r);
    if (is(r, kAttributeClass, kLineColor)) takeLineColor(s, r);
    if (is(r, kPrimitiveClass, kPolyline)) {
      int code = kPenMove;
      for (int x = 0, y = 0; nextPoint(r, x, y); code = kPenDraw)
        moveFilePen(s, pen, box.x + static_cast<float>(x) * unit, baseY - static_cast<float>(y) * unit, code);
    }
    skipElement(r);
  }
  return r.ended ? FileReadResult::kNotComplete : FileReadResult::kFine;
}

} // namespace quilla
