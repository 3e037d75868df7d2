// PLTM files: fields of ten characters, eight to a line.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "core/colors.h"
#include "core/stop_request.h"
#include "device/sink.h"
#include "graph2d/plot_file_reader.h"

namespace quilla {

namespace {

constexpr int kFieldWidth = 10, kLineSize = 82; // a line is eight fields, a line end and an end mark
constexpr int kEndField = 9, kMoreColorField = 99, kColorBase = 89, kColorOffset = 9, kIndexOfZero = 256;

struct Reader {
  FilePen pen;
  float scale;
  float boxX, baseY;
  int code = kPenMove;
  int heldCount = 0; // 1: x, 2: a pair that waits for its pen code
  float heldX = 0.0F, heldY = 0.0F;
  int moreColors = 0;
};

// A plain number in ten characters; 0 if it is none.
double headerNumber(const char* text) {
  char copy[kFieldWidth + 1];
  std::memcpy(copy, text, kFieldWidth);
  copy[kFieldWidth] = 0;
  char* end = copy;
  const double value = std::strtod(copy, &end);
  while (*end == ' ' || *end == '\n' || *end == '\r') end++;
  return end == copy || *end != 0 || !std::isfinite(value) ? 0.0 : value;
}

// Width and height in 1/100 cm. The second number may be shorter than its field.
bool readHeader(std::FILE* file, double& width, double& height) {
  constexpr double kLargestSide = 1e7;
  char line[kLineSize];
  if (!std::fgets(line, sizeof line, file)) return false;
  const std::size_t length = std::strlen(line);
  if (length < 2 * kFieldWidth) return false;
  width = headerNumber(line) * 100.0;
  height = headerNumber(line + kFieldWidth) * 100.0;
  return width > 0.0 && height > 0.0 && width <= kLargestSide && height <= kLargestSide;
}

struct Field {
  int whole;
  double value;
};

bool digit(char c, int& value) {
  if (c < '0' || c > '9') return false;
  value = 10 * value + (c - '0');
  return true;
}

// Two columns of the whole number, of which blanks may stand in front, the point, and seven decimals.
bool readField(const char* text, Field& field) {
  int whole = 0, decimals = 0;
  if (text[0] != ' ' && !digit(text[0], whole)) return false;
  if ((text[1] != ' ' || text[0] != ' ') && !digit(text[1], whole)) return false;
  if (text[2] != '.') return false;
  for (int i = 3; i < kFieldWidth; i++) {
    if (!digit(text[i], decimals)) return false;
  }
  field = {whole, whole + decimals / 1e7};
  return true;
}

void sendPair(PlotState* s, Reader& r) {
  if (r.heldCount == 2) moveFilePen(s, r.pen, r.heldX * r.scale + r.boxX, r.baseY - r.heldY * r.scale, r.code);
  r.heldCount = 0;
}

// A reversed table on a device of true colours: black and white trade places, so that the picture stays readable.
int readableColor(const PlotState* s, int color) {
  const int kind = s->color.tableKind;
  if (kind < kTableReverseRain || kind > kTableReverseGrey || s->device.colourDepth <= 8) return color;
  return color == 0 ? 255 : color == 255 ? 0 : color;
}

void takeColor(PlotState* s, Reader& r, int whole) {
  int color = whole + r.moreColors - kColorOffset;
  r.moreColors = 0;
  if (color < 0 || s->include.ignoreFileColors) return;
  if (color == kIndexOfZero) color = 0;
  setColor(s, readableColor(s, color & (kColorTableSize - 1)));
}

// False at the end of the picture.
bool takeField(PlotState* s, Reader& r, const Field& field) {
  const auto value = static_cast<float>(field.value);
  switch (field.whole) {
  case 0:
  case 1:
    if (r.heldCount == 2) sendPair(s, r);
    (r.heldCount == 0 ? r.heldX : r.heldY) = value;
    r.heldCount++;
    return true;
  case kPenDraw:
  case kPenMove: r.code = field.whole; return true;
  case kEndField: sendPair(s, r); return false;
  case kMoreColorField: r.moreColors = std::min(r.moreColors + kColorBase, kIndexOfZero); return true;
  default:
    sendPair(s, r);
    takeColor(s, r, field.whole);
    return true;
  }
}

} // namespace

FileReadResult drawPltm(PlotState* s, std::FILE* file, const FileBox& box) {
  double width = 0.0, height = 0.0;
  if (!readHeader(file, width, height)) return FileReadResult::kBadFormat;
  const double factor = std::min(static_cast<double>(box.width) / width, static_cast<double>(box.height) / height);
  Reader r{};
  r.code = kPenMove;
  r.scale = static_cast<float>(std::max(width, height) * factor);
  r.boxX = box.x;
  r.baseY = static_cast<float>(height * factor) + box.y;
  char line[kLineSize];
  while (!stopRequested() && std::fgets(line, sizeof line, file)) {
    const char* text = line;
    for (std::size_t left = std::strcspn(line, "\r\n"); left >= kFieldWidth; left -= kFieldWidth, text += kFieldWidth) {
      Field field{};
      if (!readField(text, field)) return FileReadResult::kNotComplete;
      if (!takeField(s, r, field)) return FileReadResult::kFine;
    }
  }
  sendPair(s, r);
  return stopRequested() ? FileReadResult::kFine : FileReadResult::kNotComplete;
}

} // namespace quilla
