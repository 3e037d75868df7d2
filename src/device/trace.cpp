#include "device/trace.h"

#include <cstdlib>

#include "device/writers.h"

namespace quilla {
namespace {

void putTrace(const PlotState* s, TextLine& line) {
  std::fwrite(line.text, 1, static_cast<std::size_t>(line.length), s->device.trace);
}

void endTrace(const PlotState* s, TextLine& line) {
  addText(line, "\n");
  putTrace(s, line);
}

TextLine startTrace(const char* name) {
  TextLine line;
  addText(line, name);
  return line;
}

void addColor(TextLine& line, int color) {
  addText(line, " 0x");
  for (int shift = 28; shift >= 0; shift -= 4) addText(line, {"0123456789abcdef" + (color >> shift & 15), 1});
}

void addPoint(TextLine& line, float x, float y) {
  addReal(line, static_cast<double>(x), 2);
  addReal(line, static_cast<double>(y), 2);
}

} // namespace

void openTrace(PlotState* s) {
  const char* name = std::getenv("QUILLA_TRACE");
  if (name && *name && !s->device.trace) s->device.trace = std::fopen(name, "a");
}

void closeTrace(PlotState* s) {
  if (s->device.trace) std::fclose(s->device.trace);
  s->device.trace = nullptr;
}

void traceWord(const PlotState* s, const char* name) {
  TextLine line = startTrace(name);
  endTrace(s, line);
}

void traceNumber(const PlotState* s, const char* name, int value) {
  TextLine line = startTrace(name);
  addInteger(line, value);
  endTrace(s, line);
}

void traceReals(const PlotState* s, const char* name, const float* values, int n) {
  TextLine line = startTrace(name);
  for (int i = 0; i < n; ++i) addReal(line, static_cast<double>(values[i]), 2);
  endTrace(s, line);
}

void traceColor(const PlotState* s, const char* name, int color) {
  TextLine line = startTrace(name);
  addColor(line, color);
  endTrace(s, line);
}

void traceFill(const PlotState* s, const float* x, const float* y, int n) {
  TextLine line = startTrace("fill");
  addInteger(line, n);
  putTrace(s, line);
  for (int i = 0; i < n; ++i) {
    TextLine point;
    addPoint(point, x[i], y[i]);
    std::fputc(' ', s->device.trace);
    putTrace(s, point);
  }
  std::fputc('\n', s->device.trace);
}

void traceBar(const PlotState* s, float x1, float y1, float x2, float y2, int color) {
  TextLine line = startTrace("bar");
  addPoint(line, x1, y1);
  addPoint(line, x2, y2);
  addColor(line, color);
  endTrace(s, line);
}

void traceGlyph(const PlotState* s, const DriverGlyph& glyph) {
  TextLine line = startTrace("glyph");
  addInteger(line, glyph.code);
  addPoint(line, glyph.x, glyph.y);
  addInteger(line, glyph.angle);
  endTrace(s, line);
}

void traceFont(const PlotState* s) {
  TextLine line = startTrace("font");
  addInteger(line, s->font.psFontIndex);
  addInteger(line, s->text.textHeight);
  addReal(line, static_cast<double>(s->text.charWidthFactor), 2);
  endTrace(s, line);
}

} // namespace quilla
