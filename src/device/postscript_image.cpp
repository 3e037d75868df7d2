// Images inside PostScript: rows of hexadecimal digits behind the image operator.
#include <cstdlib>

#include "core/messages.h"
#include "device/page_image.h"
#include "device/postscript_driver.h"
#include "device/sheet.h"
#include "device/writers.h"
#include "raster/row_buffer.h"

namespace quilla {
namespace {

constexpr int kNoMemory = 53, kRgbBytes = 3;

void putLine(PlotState* s, const TextLine& line) {
  qqtbuf(s, textOf(line));
  endLine(s);
}
void putLine(PlotState* s, std::string_view text) {
  qqtbuf(s, text);
  endLine(s);
}

void putNumberLine(PlotState* s, std::string_view label, int value) {
  TextLine line;
  addText(line, label);
  addInteger(line, value);
  addText(line, " ");
  putLine(s, line);
}

// From the unit square of the image, whose origin is its lower left corner, to points on the sheet.
void putPlacement(PlotState* s, const PageImage& image) {
  const DevicePoint corner = pointOnSheet(s, image.x, image.y + image.boxH);
  const float points = s->device.deviceScale * kPointsPerSheetUnit;
  TextLine line;
  addText(line, "gsave");
  addReal(line, static_cast<double>(corner.x * kPointsPerSheetUnit), 3);
  addReal(line, static_cast<double>(corner.y * kPointsPerSheetUnit), 3);
  addText(line, " translate ");
  if (pageAcrossSheet(s)) addText(line, "90 rotate ");
  joinReal(line, static_cast<double>(image.boxW * points), 3);
  addReal(line, static_cast<double>(image.boxH * points), 3);
  addText(line, " scale ");
  putLine(s, line);
}

void putDictionary(PlotState* s, const PageImage& image) {
  putLine(s, "<< ");
  putLine(s, image.masked ? "/ImageType 4 " : "/ImageType 1 ");
  if (image.masked) putLine(s, "/MaskColor [255 255 255] ");
  putNumberLine(s, "/Width", image.width);
  putNumberLine(s, "/Height", image.height);
  putLine(s, "/BitsPerComponent 8 ");
  putLine(s, "/Decode [0 1 0 1 0 1] ");
  TextLine line;
  addText(line, "/ImageMatrix [");
  joinInteger(line, image.width);
  addText(line, " 0 0");
  addInteger(line, -image.height);
  addText(line, " 0");
  addInteger(line, image.height);
  addText(line, "] ");
  putLine(s, line);
  putLine(s, "/DataSource currentfile /ASCIIHexDecode filter ");
  putLine(s, ">> image ");
}

// Lines are full: bytes are handed to the word writer 40 at a time, whatever the rows.
struct HexWords {
  DeviceGroup& device;
  int used = 0;
  char word[kLineLimit];

  void add(const unsigned char* bytes, std::size_t count) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (std::size_t i = 0; i < count; ++i) {
      word[used++] = kDigits[bytes[i] >> 4];
      word[used++] = kDigits[bytes[i] & 15];
      if (used == kLineLimit) flush();
    }
  }
  void flush() {
    if (used > 0) putWord(device, word, used);
    used = 0;
  }
};

} // namespace

void psImage(PlotState* s, const PageImage& image) {
  const RowBuffer row(image.width, kRgbBytes);
  if (!row.bytes) return warnPlain(s, kNoMemory);
  psPolyline(s, 0.0F, 0.0F, kPsBreak);
  qqtbuf(s, "/DeviceRGB setcolorspace ");
  putPlacement(s, image);
  putDictionary(s, image);
  HexWords hex = {s->device, 0, {}};
  for (int y = 0; y < image.height; ++y) {
    image.read(image.picture, y, row.bytes);
    hex.add(row.bytes, row.size);
  }
  hex.flush();
  endLine(s);
  qqtbuf(s, "> grestore ");
}

} // namespace quilla
