// Java: the source of an applet that draws the plot.
#include <algorithm>
#include <cstring>
#include <initializer_list>

#include "core/clock.h"
#include "device/plain_drivers.h"
#include "device/sink.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr double kVersion = 11.5;
constexpr int kClassNameLength = 60;

void put(PlotState* s, const TextLine& line) { putText(s->device.plotOutput, textOf(line)); }

// The file name without its directories, up to its first point.
std::string_view className(const PlotState* s) {
  std::string_view name = s->deviceSetup.plotFileName;
  const std::size_t mark = name.find_last_of("\\:/");
  if (mark != std::string_view::npos) name.remove_prefix(mark + 1);
  name = name.substr(0, kClassNameLength);
  return name.substr(0, name.find('.'));
}

// "  g.<method> (a,b,...);"
void putCall(PlotState* s, std::string_view method, std::initializer_list<int> values, std::string_view end) {
  TextLine line;
  addText(line, "  g.");
  addText(line, method);
  const char* separator = "";
  for (int value : values) {
    addText(line, separator);
    joinInteger(line, value);
    separator = ",";
  }
  addText(line, end);
  put(s, line);
}

} // namespace

void javaHeader(PlotState* s) {
  const ClockReading clock = readClock();
  char date[11], time[9];
  formatDate(clock, date);
  formatTime(clock, time);
  TextLine line;
  addText(line, "// QUILLA Java Metafile\n// Creator: QUILLA ");
  joinReal(line, kVersion, 1);
  addText(line, "\n// Date   : ");
  addText(line, date);
  addText(line, ", ");
  addText(line, time);
  addText(line, "\n// Size   :");
  addInteger(line, s->device.pixelWidth);
  addInteger(line, s->device.pixelHeight);
  addText(line, "\n\nimport java.applet.*;\nimport java.awt.*;\n\npublic class ");
  addText(line, className(s));
  addText(line, " extends Applet {\npublic void paint(Graphics g) {\n");
  put(s, line);
}

void javaTrailer(PlotState* s) { putText(s->device.plotOutput, "  }\n}\n"); }

void javaPen(PlotState* s, float x, float y, int code) {
  DeviceGroup& device = s->device;
  const int toX = deviceRound(x), toY = deviceRound(y);
  if (code == kPenDraw) {
    char text[4 * kFixedTextSize + 24] = "  g.drawLine (";
    char* p = text + std::strlen(text);
    const int values[] = {device.javaLastX, device.javaLastY, toX, toY};
    for (int i = 0; i < 4; ++i) {
      p = putInteger(p, values[i]);
      *p++ = i < 3 ? ',' : ')';
    }
    *p++ = ';';
    *p++ = '\n';
    putBytes(device.plotOutput, text, static_cast<int>(p - text));
  }
  device.javaLastX = toX;
  device.javaLastY = toY;
}

void javaColor(PlotState* s, int r, int g, int b) { putCall(s, "setColor (new Color (", {r, g, b}, "));\n"); }

void javaRectangle(PlotState* s, float x1, float y1, float x2, float y2) {
  const int left = deviceRound(std::min(x1, x2)), right = deviceRound(std::max(x1, x2));
  const int top = deviceRound(std::min(y1, y2)), bottom = deviceRound(std::max(y1, y2));
  putCall(s, "fillRect (", {left, top, right - left + 1, bottom - top + 1}, ");\n");
}

void javaErase(PlotState* s) { putCall(s, "clearRect (0,0,", {s->device.pixelWidth, s->device.pixelHeight}, ");\n"); }

} // namespace quilla
