// PLTM: the library's own metafile. Every value is a field of ten characters, eight to a line.
#include <algorithm>
#include <cmath>
#include <utility>

#include "device/device_point.h"
#include "device/plain_drivers.h"
#include "device/sink.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr int kFieldWidth = 10, kFieldDecimals = 7;
constexpr int kEndField = 9;
constexpr int kColorBase = 89, kMoreColorField = 99, kColorOffset = 9;
constexpr int kIndexOfZero = 256;

// The value in ten characters with seven decimals; it lies between 0 and 99.
void putField(PlotState* s, double value) {
  constexpr unsigned kUnit = 10000000;
  auto scaled = static_cast<unsigned>(value * kUnit + 0.5);
  char field[kFieldWidth];
  for (int i = kFieldWidth - 1; i > kFieldWidth - 1 - kFieldDecimals; --i, scaled /= 10)
    field[i] = static_cast<char>('0' + scaled % 10);
  field[2] = '.';
  field[1] = static_cast<char>('0' + scaled % 10);
  field[0] = scaled >= 10 ? static_cast<char>('0' + scaled / 10) : ' ';
  qqsbuf(s, field, kFieldWidth);
}

// Coordinates beyond the page have no form in the file.
void putCoordinate(PlotState* s, float value) {
  putField(s, value > 0.0F ? std::min(static_cast<double>(value), 1.0) : 0.0);
}

} // namespace

void pltmHeader(PlotState* s) {
  const double centimetres =
      static_cast<double>(s->pageSetup.unitFactor) * static_cast<double>(s->pageSetup.scaleFactor) / 100.0;
  double width = s->geometry.pageWidth * centimetres, height = s->geometry.pageHeight * centimetres;
  if (pageTurned(s)) std::swap(width, height);
  char text[kNumberTextSize];
  for (double side : {width, height}) {
    const int length = qqfcha(side, 1, text, kFieldWidth);
    putBytes(s->device.plotOutput, text, length);
  }
  putText(s->device.plotOutput, "\n");
  s->device.pltmPenCode = 0;
}

void pltmTrailer(PlotState* s) { putField(s, kEndField); }

void pltmPen(PlotState* s, float x, float y, int code) {
  putCoordinate(s, x);
  putCoordinate(s, y);
  if (code == s->device.pltmPenCode) return;
  putField(s, code);
  s->device.pltmPenCode = code;
}

void pltmColor(PlotState* s, int index) {
  if (index == 0) index = kIndexOfZero;
  int rest = index % kColorBase, whole = index / kColorBase;
  if (rest == 0) {
    rest = kColorBase;
    --whole;
  }
  for (int i = 0; i < whole; ++i) putField(s, kMoreColorField);
  putField(s, rest + kColorOffset);
}

} // namespace quilla
