#include "device/svg_driver.h"

#include <algorithm>
#include <cmath>

#include "core/clock.h"
#include "device/device_point.h"
#include "device/latin_codes.h"
#include "device/ps_fonts.h"
#include "device/sink.h"
#include "device/vector_path.h"
#include "device/writers.h"

namespace quilla {
namespace {

// Elements stand in groups that carry their attributes. A fill group is a line group with a hair line: the outline of a
// polygon in its own colour covers the seams that viewers leave between neighbours.
enum SvgGroup : int { kNoGroup = 0, kLineGroup = 1, kTextGroup = 2, kFillGroup = 3 };

constexpr float kSeamWidth = 0.5F; // pixels
constexpr int kPointsPerRow = 5;
constexpr double kVersion = 11.5;

void addColor(TextLine& line, int r, int g, int b) {
  constexpr char kHex[] = "0123456789abcdef";
  addText(line, "#");
  for (int component : {r, g, b}) {
    const char digits[] = {kHex[component >> 4 & 15], kHex[component & 15]};
    addText(line, {digits, 2});
  }
}

void put(PlotState* s, const TextLine& line) { putText(s->device.plotOutput, textOf(line)); }

void closeGroup(PlotState* s) {
  VectorWriter& v = *s->device.vector;
  if (v.group != kNoGroup) putText(s->device.plotOutput, "</g>\n");
  v.group = kNoGroup;
}

void openStrokeGroup(PlotState* s, int group) {
  VectorWriter& v = *s->device.vector;
  const float width = group == kFillGroup ? kSeamWidth : v.strokeWidth;
  if (v.group == group) return;
  closeGroup(s);
  TextLine line;
  addText(line, "<g fill=\"none\" stroke=\"");
  addColor(line, v.red, v.green, v.blue);
  addText(line, "\" stroke-width=\"");
  joinReal(line, static_cast<double>(width), 3);
  addText(line, "\">\n");
  put(s, line);
  v.group = group;
}

void addAttribute(TextLine& line, std::string_view name, float value) {
  addText(line, name);
  addText(line, "=\"");
  joinReal(line, static_cast<double>(value), 2);
  addText(line, "\"");
}

void writeLine(PlotState* s) {
  const VectorWriter& v = *s->device.vector;
  TextLine line;
  addText(line, "<line");
  addAttribute(line, " x1", v.vecX[0]);
  addAttribute(line, " y1", v.vecY[0]);
  addAttribute(line, " x2", v.vecX[1]);
  addAttribute(line, " y2", v.vecY[1]);
  addText(line, "/>\n");
  put(s, line);
}

// " x, y"
char* putPoint(char* p, float x, float y) {
  *p++ = ' ';
  p = putFixed2(p, static_cast<double>(x));
  *p++ = ',';
  *p++ = ' ';
  return putFixed2(p, static_cast<double>(y));
}
constexpr int kPointSize = 2 * kFixedTextSize + 4;

void writePolyline(PlotState* s) {
  const VectorWriter& v = *s->device.vector;
  openStrokeGroup(s, kLineGroup);
  if (v.vecCount == 2) return writeLine(s);
  char text[kVectorPathLimit * kPointSize];
  char* p = text;
  for (int i = 0; i < v.vecCount; ++i) {
    p = putPoint(p, v.vecX[i], v.vecY[i]);
    if ((i + 1) % kPointsPerRow == 0 && i + 1 < v.vecCount) *p++ = '\n';
  }
  putText(s->device.plotOutput, "<polyline points=\"\n");
  putBytes(s->device.plotOutput, text, static_cast<int>(p - text));
  putText(s->device.plotOutput, "\"/>\n");
}

void breakPath(PlotState* s) { svgPen(s, 0.0F, 0.0F, kVectorBreak); }

struct SvgFont {
  const char *family, *weight, *style;
};

// The generic families of viewers; fonts without one look like Times.
SvgFont fontOfRow(int row) {
  constexpr int kLastTimes = 3, kFirstHelvetica = 4, kLastHelvetica = 11, kFirstCourier = 18, kLastCourier = 21;
  constexpr int kSymbol = 34;
  if (row <= kLastTimes) return {"Times", row % 2 == 1 ? "bold" : "normal", row >= 2 ? "italic" : "normal"};
  if (row >= kFirstHelvetica && row <= kLastHelvetica) {
    const bool oblique = row == 6 || row == 7 || row == 10 || row == 11;
    return {"Helvetica", row % 2 == 1 ? "bold" : "normal", oblique ? "oblique" : "normal"};
  }
  if (row >= kFirstCourier && row <= kLastCourier)
    return {"Courier", row % 2 == 1 ? "bold" : "normal", row >= 20 ? "oblique" : "normal"};
  return {row == kSymbol ? "Symbol" : "Times", "normal", "normal"};
}

int fontSize(const PlotState* s) {
  constexpr double kSizeOfHeight = 22.0 / 15.0; // of a font whose capitals are as high as the text
  return static_cast<int>(s->text.textHeight * kSizeOfHeight * static_cast<double>(s->device.deviceScale) + 0.5);
}

void openTextGroup(PlotState* s) {
  VectorWriter& v = *s->device.vector;
  if (v.group == kTextGroup) return;
  closeGroup(s);
  const SvgFont font = fontOfRow(v.fontRow);
  TextLine line;
  addText(line, "<g font-family=\"");
  addText(line, font.family);
  addText(line, "\" font-weight=\"");
  addText(line, font.weight);
  addText(line, "\" font-style=\"");
  addText(line, font.style);
  addText(line, "\"\nfont-size=\"");
  joinInteger(line, fontSize(s));
  addText(line, "\" stroke=\"none\" fill=\"");
  addColor(line, v.red, v.green, v.blue);
  addText(line, "\">\n");
  put(s, line);
  v.group = kTextGroup;
}

TextLine comment() {
  const ClockReading clock = readClock();
  char date[11], time[9];
  formatDate(clock, date);
  formatTime(clock, time);
  TextLine line;
  addText(line, "<!-- Creator: QUILLA\nVersion: ");
  joinReal(line, kVersion, 1);
  addText(line, "\nDate   : ");
  addText(line, date);
  addText(line, " ");
  addText(line, time);
  addText(line, "\n-->\n");
  return line;
}

} // namespace

void svgHeader(PlotState* s) {
  OutputBuffer* out = s->device.plotOutput;
  const DeviceExtent page = deviceExtent(s);
  const int width = static_cast<int>(page.width + 1.5F), height = static_cast<int>(page.height + 1.5F);
  putText(out, "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"no\"?>\n"
               "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 20010904//EN\"\n"
               "\"http://www.w3.org/TR/2001/REC-SVG-20010904/DTD/svg10.dtd\">\n");
  put(s, comment());
  TextLine line;
  addText(line, "<svg width=\"");
  joinInteger(line, width);
  addText(line, "\" height=\"");
  joinInteger(line, height);
  addText(line, "\"\nxmlns=\"http://www.w3.org/2000/svg\"\nxmlns:xlink=\"http://www.w3.org/1999/xlink\">\n\n");
  put(s, line);
  // Paper is white: the screen colours of a plot that is not reversed need a black page.
  if (s->colorState.backgroundMode != kBackgroundReverse)
    svgRectangle(s, 0.0F, 0.0F, static_cast<float>(width), static_cast<float>(height), 0, 0, 0);
}

void svgTrailer(PlotState* s) {
  breakPath(s);
  closeGroup(s);
  putText(s->device.plotOutput, "</svg>\n");
}

void svgPen(PlotState* s, float x, float y, int code) {
  vectorPolyline(*s->device.vector, x, y, code, [s] { writePolyline(s); });
}

void svgColor(PlotState* s, int r, int g, int b) {
  VectorWriter& v = *s->device.vector;
  breakPath(s);
  if (v.red == r && v.green == g && v.blue == b) return;
  closeGroup(s);
  v.red = r;
  v.green = g;
  v.blue = b;
}

void svgLineWidth(PlotState* s, float width) {
  VectorWriter& v = *s->device.vector;
  breakPath(s);
  if (v.strokeWidth == width) return;
  closeGroup(s);
  v.strokeWidth = width;
}

void svgFill(PlotState* s, const float* x, const float* y, int n) {
  const VectorWriter& v = *s->device.vector;
  breakPath(s);
  openStrokeGroup(s, kFillGroup);
  TextLine head;
  addText(head, "<polygon fill=\"");
  addColor(head, v.red, v.green, v.blue);
  addText(head, "\" points=\"\n");
  put(s, head);
  for (int i = 0; i < n; ++i) {
    char text[kPointSize + 1];
    char* p = putPoint(text, x[i], y[i]);
    if ((i + 1) % kPointsPerRow == 0) *p++ = '\n';
    putBytes(s->device.plotOutput, text, static_cast<int>(p - text));
  }
  putText(s->device.plotOutput, "\n\"/>\n");
}

void svgRectangle(PlotState* s, float x1, float y1, float x2, float y2, int r, int g, int b) {
  breakPath(s);
  if (s->device.vector->group != kFillGroup) openStrokeGroup(s, kLineGroup);
  TextLine line;
  addText(line, "<rect");
  addAttribute(line, " x", std::min(x1, x2));
  addAttribute(line, " y", std::min(y1, y2));
  addAttribute(line, " width", std::fabs(x2 - x1));
  addAttribute(line, " height", std::fabs(y2 - y1));
  addText(line, "\n fill=\"");
  addColor(line, r, g, b);
  addText(line, "\" stroke=\"none\"/>\n");
  put(s, line);
}

void svgFont(PlotState* s) {
  VectorWriter& v = *s->device.vector;
  breakPath(s);
  if (v.group == kTextGroup) closeGroup(s);
  v.fontRow = s->font.psFontIndex;
}

void svgGlyph(PlotState* s, int code, float x, float y, int angle) {
  breakPath(s);
  openTextGroup(s);
  TextLine line;
  addText(line, "<text");
  addAttribute(line, " x", x);
  addAttribute(line, " y", y);
  if (angle != 0) {
    addText(line, " rotate=\"");
    joinInteger(line, -angle);
    addText(line, "\"");
  }
  addText(line, ">");
  const char character = static_cast<char>(latinCode(code));
  switch (character) {
  case '&': addText(line, "&amp;"); break;
  case '<': addText(line, "&lt;"); break;
  case '>': addText(line, "&gt;"); break;
  default: addText(line, {&character, 1}); break;
  }
  addText(line, "</text>\n");
  put(s, line);
}

} // namespace quilla
