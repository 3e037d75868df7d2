#include "device/cgm_driver.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>

#include "core/clock.h"
#include "device/device_point.h"
#include "device/sink.h"
#include "device/writers.h"

namespace quilla {
namespace {

// Element heads: class in four bits, identity in seven, length of the parameters in five; 31 says that the length is
// the next word.
enum CgmElement : int {
  kEndMetafile = 0x0040,
  kBeginMetafile = 0x003F,
  kBeginPicture = 0x007F,
  kBeginPictureBody = 0x0080,
  kEndPicture = 0x00A0,
  kMetafileVersion = 0x1022,
  kMetafileDescription = 0x105F,
  kElementList = 0x1166,
  kScalingMode = 0x2026,
  kColorSelectionMode = 0x2042,
  kVdcExtent = 0x20C8,
  kBackgroundColor = 0x20E4,
  kPolyline = 0x403F,
  kLineColor = 0x5083
};

constexpr int kDirectColors = 1, kLastWordOfFactor = 0xCCC8;
constexpr double kVersion = 11.5;

char* putWordAt(char* p, int value) {
  *p++ = static_cast<char>(value >> 8 & 255);
  *p++ = static_cast<char>(value & 255);
  return p;
}

void putWords(PlotState* s, std::initializer_list<int> words) {
  char bytes[16];
  char* p = bytes;
  for (int word : words) p = putWordAt(p, word);
  qqsbuf(s, bytes, static_cast<int>(p - bytes));
}

// An element with one text: length in bytes with the count byte, count byte, text, and a zero byte if that is odd.
void putText(PlotState* s, int element, std::string_view text) {
  constexpr std::size_t kLongest = 254; // of a text with a count byte
  text = text.substr(0, kLongest);
  const int length = static_cast<int>(text.size());
  putWords(s, {element, length + 1});
  const char count = static_cast<char>(length);
  qqsbuf(s, &count, 1);
  qqsbuf(s, text.data(), length);
  if ((length + 1) % 2 != 0) qqsbuf(s, "", 1);
}

void putColor(PlotState* s, int element, int r, int g, int b) {
  putWords(s, {element});
  const char bytes[] = {static_cast<char>(r), static_cast<char>(g), static_cast<char>(b), 0};
  qqsbuf(s, bytes, sizeof bytes);
}

TextLine description(const PlotState* s) {
  const ClockReading clock = readClock();
  TextLine line;
  addText(line, "\"ProfileId:");
  addText(line, s->deviceSetup.cgmVersion == 1 ? "CALS" : "WebCGM");
  addText(line, "\",\"ProfileEd:1.0\",\"Source:QUILLA ");
  char digits[kNumberTextSize];
  addText(line, {digits, static_cast<std::size_t>(qqfcha(kVersion, 1, digits, 4))});
  addText(line, "\",\"Date:");
  joinInteger(line, clock.year);
  for (int part : {clock.month, clock.day})
    addText(line, {digits, static_cast<std::size_t>(qqicha(part, digits, 2, true))});
  addText(line, "\",\"ColourClass:colour\"");
  return line;
}

void beginPicture(PlotState* s) {
  DeviceSetup& setup = s->deviceSetup;
  TextLine name;
  if (setup.cgmPictureNameSet) {
    addText(name, setup.cgmPictureName);
    setup.cgmPictureNameSet = false;
  } else {
    addText(name, "Picture");
    joinInteger(name, s->device.cgm->cgmPictureNumber);
  }
  putText(s, kBeginPicture, textOf(name));
  // Metric, with the factor 0.05 as a real number of 32 bits.
  if (setup.cgmVersion != 1) putWords(s, {kScalingMode, 1, 0x3D4C, kLastWordOfFactor});
  putWords(s, {kColorSelectionMode, kDirectColors});
  const DeviceExtent page = deviceExtent(s);
  putWords(s, {kVdcExtent, 0, 0, deviceRound(page.width), deviceRound(page.height)});
  const int* ground = setup.cgmBackground;
  const bool given = setup.cgmBackgroundSet;
  putColor(s, kBackgroundColor, given ? ground[0] : 255, given ? ground[1] : 255, given ? ground[2] : 255);
  putWords(s, {kBeginPictureBody});
}

void writePolyline(PlotState* s) {
  constexpr int kPointBytes = 4;
  const CgmWriter& cgm = *s->device.cgm;
  char bytes[2 * kPointBytes + kCgmPolylineLimit * kPointBytes];
  char* p = putWordAt(bytes, kPolyline);
  p = putWordAt(p, cgm.cgmPolyCount * kPointBytes);
  for (int i = 0; i < cgm.cgmPolyCount; ++i) {
    p = putWordAt(p, cgm.cgmPolyX[i]);
    p = putWordAt(p, cgm.cgmPolyY[i]);
  }
  qqsbuf(s, bytes, static_cast<int>(p - bytes));
}

std::uint16_t coordinate(float value) {
  constexpr int kLargest = 65535;
  return static_cast<std::uint16_t>(std::clamp(deviceRound(value), 0, kLargest));
}

void addPoint(CgmWriter& cgm, std::uint16_t x, std::uint16_t y) {
  cgm.cgmPolyX[cgm.cgmPolyCount] = x;
  cgm.cgmPolyY[cgm.cgmPolyCount] = y;
  ++cgm.cgmPolyCount;
}

} // namespace

void cgmHeader(PlotState* s) {
  putText(s, kBeginMetafile, s->deviceSetup.plotFileName);
  putWords(s, {kMetafileVersion, s->deviceSetup.cgmVersion});
  const TextLine text = description(s);
  putText(s, kMetafileDescription, textOf(text));
  putWords(s, {kElementList, 1, 0xFFFF, 1}); // one pair: the set of drawing and control elements
  beginPicture(s);
}

void cgmTrailer(PlotState* s) {
  cgmPen(s, 0.0F, 0.0F, kCgmBreak);
  putWords(s, {kEndPicture, kEndMetafile});
}

void cgmNewPicture(PlotState* s) {
  cgmPen(s, 0.0F, 0.0F, kCgmBreak);
  putWords(s, {kEndPicture});
  ++s->device.cgm->cgmPictureNumber;
  beginPicture(s);
}

void cgmPen(PlotState* s, float x, float y, int code) {
  CgmWriter& cgm = *s->device.cgm;
  const std::uint16_t nextX = coordinate(x), nextY = coordinate(y);
  if (code == kPenDraw) {
    if (cgm.cgmPolyCount == 0) addPoint(cgm, cgm.cgmLastX, cgm.cgmLastY);
    addPoint(cgm, nextX, nextY);
    if (cgm.cgmPolyCount < kCgmPolylineLimit) return;
  }
  if (cgm.cgmPolyCount > 0) {
    cgm.cgmLastX = cgm.cgmPolyX[cgm.cgmPolyCount - 1];
    cgm.cgmLastY = cgm.cgmPolyY[cgm.cgmPolyCount - 1];
    if (cgm.cgmPolyCount > 1) writePolyline(s);
    cgm.cgmPolyCount = 0;
  }
  if (code == kPenMove) addPoint(cgm, nextX, nextY);
}

void cgmColor(PlotState* s, int r, int g, int b) {
  cgmPen(s, 0.0F, 0.0F, kCgmBreak);
  putColor(s, kLineColor, r, g, b);
}

} // namespace quilla
