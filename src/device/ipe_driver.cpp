#include "device/ipe_driver.h"

#include "core/clock.h"
#include "device/device_point.h"
#include "device/latin_codes.h"
#include "device/vector_path.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr double kVersion = 11.5;

void put(PlotState* s, const TextLine& line) { putText(s->device.plotOutput, textOf(line)); }

// Three numbers from 0 to 1.
void addColor(TextLine& line, int r, int g, int b) {
  const char* gap = "";
  for (int component : {r, g, b}) {
    addText(line, gap);
    if (component == 0 || component == 255) {
      addText(line, component == 0 ? "0" : "1");
    } else {
      joinReal(line, component / 255.0, 3);
    }
    gap = " ";
  }
}

void putPoint(PlotState* s, float x, float y, char operation) {
  char text[2 * kFixedTextSize + 4];
  char* p = putFixed1(text, static_cast<double>(x));
  *p++ = ' ';
  p = putFixed1(p, static_cast<double>(y));
  *p++ = ' ';
  *p++ = operation;
  *p++ = '\n';
  putBytes(s->device.plotOutput, text, static_cast<int>(p - text));
}

void putPath(PlotState* s, const float* x, const float* y, int n) {
  putPoint(s, x[0], y[0], 'm');
  for (int i = 1; i < n; ++i) putPoint(s, x[i], y[i], 'l');
  putText(s->device.plotOutput, "</path>\n");
}

void writePolyline(PlotState* s) {
  const VectorWriter& v = *s->device.vector;
  TextLine line;
  addText(line, "<path layer=\"alpha\" stroke=\"");
  addColor(line, v.red, v.green, v.blue);
  addText(line, "\" pen=\"");
  joinReal(line, static_cast<double>(v.strokeWidth), 3);
  addText(line, "\">\n");
  put(s, line);
  putPath(s, v.vecX, v.vecY, v.vecCount);
}

void breakPath(PlotState* s) { ipePen(s, 0.0F, 0.0F, kVectorBreak); }

void addDate(TextLine& line, const ClockReading& clock) {
  addText(line, "D:");
  joinInteger(line, clock.year);
  for (int part : {clock.month, clock.day, clock.hour, clock.minute, clock.second}) {
    char digits[kNumberTextSize];
    addText(line, {digits, static_cast<std::size_t>(qqicha(part, digits, 2, true))});
  }
}

// The size of a page as "width height".
void addSize(TextLine& line, int width, int height) {
  joinInteger(line, width);
  addInteger(line, height);
}

// A character of a text that LaTeX sets. Its own signs are written as commands, '&' once more for XML.
void addCharacter(TextLine& line, int code) {
  const auto character = static_cast<char>(code);
  switch (character) {
  case '>': return addText(line, "\\textgreater");
  case '<': return addText(line, "\\textless");
  case '\\': return addText(line, "\\textbackslash");
  case '~': return addText(line, "\\textasciitilde");
  case '^': return addText(line, "\\textasciicircum");
  case '&': return addText(line, "\\&amp;");
  case '{':
  case '}':
  case '$':
  case '%':
  case '#':
  case '_': addText(line, "\\"); break;
  default: break;
  }
  if (code < kFirstAccentCode) return addText(line, {&character, 1});
  const char bytes[] = {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
  addText(line, {bytes, 2}); // UTF-8
}

// Points at which capitals are as high as the text.
double fontSize(const PlotState* s) {
  return static_cast<double>(s->text.textHeight) * static_cast<double>(s->device.deviceScale) *
         (1000.0 / s->font.fontCapHeight);
}

} // namespace

void ipeHeader(PlotState* s) {
  const DeviceExtent page = deviceExtent(s);
  const int width = deviceRound(page.width), height = deviceRound(page.height);
  const ClockReading clock = readClock();
  TextLine head;
  addText(head, "<?xml version=\"1.0\"?>\n<!DOCTYPE ipe SYSTEM \"ipe.dtd\">\n<ipe version=\"70010\" creator=\"Quilla ");
  joinReal(head, kVersion, 1);
  addText(head, "\">\n<info created=\"");
  addDate(head, clock);
  addText(head, "\" modified=\"");
  addDate(head, clock);
  addText(head, "\"/>\n<preamble>\\usepackage{times,graphicx}</preamble>\n");
  put(s, head);
  TextLine style;
  addText(style, "<ipestyle name=\"basic\">\n<layout paper=\"");
  addSize(style, width, height);
  addText(style, "\" frame=\"");
  addSize(style, width, height);
  addText(style, "\" origin=\"0 0\"/>\n</ipestyle>\n");
  addText(style, "<page>\n<layer name=\"alpha\"/>\n<view layers=\"alpha\" active=\"alpha\"/>\n");
  put(s, style);
}

void ipeTrailer(PlotState* s) {
  breakPath(s);
  putText(s->device.plotOutput, "</page>\n</ipe>\n");
}

void ipeNewPage(PlotState* s) {
  breakPath(s);
  putText(s->device.plotOutput, "</page>\n<page>\n");
}

void ipePen(PlotState* s, float x, float y, int code) {
  vectorPolyline(*s->device.vector, x, y, code, [s] { writePolyline(s); });
}

void ipeColor(PlotState* s, int r, int g, int b) {
  VectorWriter& v = *s->device.vector;
  breakPath(s);
  v.red = r;
  v.green = g;
  v.blue = b;
}

void ipeLineWidth(PlotState* s, float width) {
  breakPath(s);
  s->device.vector->strokeWidth = width;
}

void ipeFill(PlotState* s, const float* x, const float* y, int n) {
  const VectorWriter& v = *s->device.vector;
  breakPath(s);
  TextLine line;
  addText(line, "<path layer=\"alpha\" fill=\"");
  addColor(line, v.red, v.green, v.blue);
  addText(line, "\" stroke=\"");
  addColor(line, v.red, v.green, v.blue);
  addText(line, "\">\n");
  put(s, line);
  putPath(s, x, y, n);
}

void ipeRectangle(PlotState* s, float x1, float y1, float x2, float y2, int r, int g, int b) {
  breakPath(s);
  TextLine line;
  addText(line, "<path layer=\"alpha\" fill=\"");
  addColor(line, r, g, b);
  addText(line, "\">\n");
  put(s, line);
  const float x[] = {x1, x2, x2, x1, x1}, y[] = {y1, y1, y2, y2, y1};
  putPath(s, x, y, 5);
}

void ipeGlyph(PlotState* s, int code, float x, float y, int angle) {
  const VectorWriter& v = *s->device.vector;
  breakPath(s);
  TextLine line;
  addText(line, "<text pos=\"");
  joinReal(line, static_cast<double>(x), 1);
  addReal(line, static_cast<double>(y), 1);
  addText(line, "\" type=\"label\" valign=\"baseline\" ");
  if ((v.red | v.green | v.blue) != 0) {
    addText(line, "stroke=\"");
    addColor(line, v.red, v.green, v.blue);
    addText(line, "\" ");
  }
  addText(line, "size=\"");
  joinReal(line, fontSize(s), 1);
  addText(line, "\"");
  if (angle != 0) {
    addText(line, " ");
    if (angle == 90 || angle == 180) addText(line, "halign=\"right\" ");
    addText(line, ">\\rotatebox{");
    joinInteger(line, angle);
    addText(line, "}");
  } else {
    addText(line, ">");
  }
  addCharacter(line, latinCode(code));
  addText(line, "</text>\n");
  put(s, line);
}

} // namespace quilla
