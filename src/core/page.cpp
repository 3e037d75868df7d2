#include "core/page.h"

#include <limits>
#include <string_view>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/device_table.h"
#include "device/sink.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

struct PageFormat {
  char name[5];
  int width, height; // landscape
};

constexpr PageFormat kPageFormats[] = {
    {"DA4L", 2969, 2099},  {"DA3L", 4199, 2969}, {"DA2L", 5939, 4199}, {"DA1L", 8409, 5939},
    {"DA0L", 11889, 8409}, {"HP4L", 2716, 1899}, {"HP3L", 3989, 2716}, {"HP2L", 5339, 3359},
    {"HP1L", 7569, 5339},  {"KY4L", 2869, 1999}, {"PS4L", 2799, 1949}, {"USAL", 2789, 2159},
    {"USBL", 4319, 2789},  {"USCL", 5589, 4319}, {"USDL", 8639, 5589}, {"USEL", 11179, 8639},
};

constexpr float kUnitFactors[] = {1.0F, 2.54F, 0.352778F, 0.176389F};

// The largest page side; beyond it plot coordinates would leave the grain of a float.
constexpr int kLargestPage = 1 << 22;

int roundedPage(float units, float factor) {
  float side = units / factor + 0.5F;
  return side < static_cast<float>(kLargestPage) ? static_cast<int>(side) : kLargestPage;
}

} // namespace

int roundHalfUp(float value) {
  constexpr float kLimit = 2.0e9F;
  float shifted = value + 0.5F;
  if (!(shifted > -kLimit)) return static_cast<int>(-kLimit);
  return static_cast<int>(shifted < kLimit ? shifted : kLimit);
}

int limitedDistance(int distance) {
  return distance > kLargestPage ? kLargestPage : distance < -kLargestPage ? -kLargestPage : distance;
}

int addCoordinates(int a, int b) {
  long long sum = static_cast<long long>(a) + b;
  constexpr int kLow = std::numeric_limits<int>::min(), kHigh = std::numeric_limits<int>::max();
  return sum < kLow ? kLow : sum > kHigh ? kHigh : static_cast<int>(sum);
}

int plotUnits(const PlotState* s, int distance) {
  return static_cast<int>(static_cast<float>(distance) / s->pageSetup.unitFactor + 0.5F);
}

float userY(const PlotState* s, float y) {
  return s->page.originAtTop && !s->internalCoordinates ? static_cast<float>(s->geometry.pageHeight) - y : y;
}

int userY(const PlotState* s, int y) {
  if (!s->page.originAtTop || s->internalCoordinates) return y;
  return y == std::numeric_limits<int>::min() ? std::numeric_limits<int>::max()
                                              : addCoordinates(s->geometry.pageHeight, -y);
}

void startPage(PlotState* s) {
  const PageSetup& p = s->pageSetup;
  s->geometry.pageWidth = roundedPage(p.pageWidthUnits, p.unitFactor);
  s->geometry.pageHeight = roundedPage(p.pageHeightUnits, p.unitFactor);
  s->geometry.pageNumber = 1;
}

} // namespace quilla

using namespace quilla;

namespace {

// A plot point as it stands on screens and rasters, in pixels; false after a message on other devices.
bool pixelOf(const char* name, int nx, int ny, int& column, int& row) {
  constexpr int kFirstFile = 101;
  PlotState* s = strictCheck(1, 3, name);
  if (!s) return false;
  int device = s->deviceSetup.deviceNumber;
  if (device >= kFirstFile && deviceFamily(device) != DeviceFamily::kRaster) {
    warnWithText(s, 161, "Bad output device");
    return false;
  }
  float x = static_cast<float>(nx) + static_cast<float>(s->page.originX);
  float y = static_cast<float>(userY(s, ny)) + static_cast<float>(s->page.originY), scale = s->device.deviceScale;
  bool turned = s->pageSetup.pageRotation == kPageTurned;
  column = roundHalfUp((turned ? y : x) * scale);
  row = roundHalfUp((turned ? static_cast<float>(s->geometry.pageWidth) - x : y) * scale);
  return true;
}

} // namespace

int NXPIXL(int nx, int ny) {
  int column = 0, row = 0;
  return pixelOf("nxpixl", nx, ny, column, row) ? column : 0;
}

int NYPIXL(int nx, int ny) {
  int column = 0, row = 0;
  return pixelOf("nypixl", nx, ny, column, row) ? row : 0;
}

void SETPAG(const char* format) {
  PlotState* s = strictCheck(0, 0, "setpag");
  if (!s) return;
  char key[5], row[5];
  keyOf(format, key);
  copyText(row, key, 4);
  bool portrait = key[3] == 'P';
  if (portrait) row[3] = 'L';
  for (const PageFormat& f : kPageFormats) {
    if (std::string_view(f.name) != row) continue;
    int width = portrait ? f.height : f.width, height = portrait ? f.width : f.height;
    s->pageSetup.pageWidthUnits = static_cast<float>(width);
    s->pageSetup.pageHeightUnits = static_cast<float>(height);
    copyText(s->pageSetup.pageFormatName, key, 4);
    if (s->deviceSetup.deviceChosen) return;
    s->deviceSetup.deviceNumber = 201;
    copyText(s->deviceSetup.deviceKeyword, "PLTM", 4);
    return;
  }
  warnWithString(s, 2, format);
}

void PAGE(int nx, int ny) {
  PlotState* s = strictCheck(0, 0, "page");
  if (!s) return;
  if (nx < 1 || ny < 1) return warnPlain(s, 2);
  s->pageSetup.pageWidthUnits = static_cast<float>(nx - 1) * s->pageSetup.unitFactor;
  s->pageSetup.pageHeightUnits = static_cast<float>(ny - 1) * s->pageSetup.unitFactor;
  copyText(s->pageSetup.pageFormatName, "PAGE", 4);
}

void UNITS(const char* unit) {
  PlotState* s = strictCheck(0, 0, "units");
  if (!s) return;
  if (int found = matchKeyword(s, "CM  +INCH+POIN+TWIP", 4, unit)) s->pageSetup.unitFactor = kUnitFactors[found - 1];
}

void SCLFAC(float factor) {
  PlotState* s = strictCheck(0, 0, "sclfac");
  if (!s) return;
  if (!(factor > 0.0F)) return warnPlain(s, 2);
  s->pageSetup.scaleFactor = factor;
  s->pageSetup.scaleMode = kScaleDown;
}

void SCLMOD(const char* mode) {
  PlotState* s = strictCheck(0, 0, "sclmod");
  if (!s) return;
  if (int found = matchKeyword(s, "DOWN+FULL+NONE", 3, mode)) s->pageSetup.scaleMode = found - 1;
}

void PAGMOD(const char* mode) {
  constexpr int kRotations[] = {kPageAsIs, kPageTurned, kPageAsIs, kPageTurned, kPageNever};
  PlotState* s = strictCheck(0, 0, "pagmod");
  if (!s) return;
  if (int found = matchKeyword(s, "COMI+MOVI+LAND+PORT+NONE", 5, mode))
    s->pageSetup.pageRotation = kRotations[found - 1];
}

void HWORIG(int nx, int ny) {
  PlotState* s = strictCheck(0, 0, "hworig");
  if (!s) return;
  s->pageSetup.hardwareOriginSet = true;
  s->pageSetup.hardwareOriginX = nx;
  s->pageSetup.hardwareOriginY = ny;
}

void HWPAGE(int nw, int nh) {
  PlotState* s = strictCheck(0, 0, "hwpage");
  if (!s) return;
  if (nw < 1 || nh < 1) return warnPlain(s, 2);
  s->pageSetup.hardwarePageSet = true;
  s->pageSetup.hardwarePageWidth = roundHalfUp(static_cast<float>(nw) * s->pageSetup.unitFactor);
  s->pageSetup.hardwarePageHeight = roundHalfUp(static_cast<float>(nh) * s->pageSetup.unitFactor);
}

void HWSCAL(float factor) {
  PlotState* s = strictCheck(0, 0, "hwscal");
  if (!s) return;
  if (!(factor > 0.0F)) return warnPlain(s, 2);
  s->pageSetup.hardwareScale = factor;
}

void PAGORG(const char* corner) {
  PlotState* s = strictCheck(1, 3, "pagorg");
  if (!s) return;
  if (int found = matchKeyword(s, "TOP +BOTT", 2, corner)) s->page.originAtTop = found == 2;
}

void ORIGIN(int nx, int ny) {
  PlotState* s = strictCheck(1, 1, "origin");
  if (!s) return;
  s->page.originX = limitedDistance(nx);
  s->page.originY = s->page.originAtTop ? -limitedDistance(ny) : limitedDistance(ny);
}

void PAGERA(void) {
  PlotState* s = strictCheck(1, 3, "pagera");
  if (!s) return;
  float width = static_cast<float>(s->geometry.pageWidth), height = static_cast<float>(s->geometry.pageHeight);
  pathMove(s, 0.0F, 0.0F);
  pathDraw(s, 0.0F, height);
  pathDraw(s, width, height);
  pathDraw(s, width, 0.0F);
  pathDraw(s, 0.0F, 0.0F);
  flushPath(s);
}

void PAGFLL(int color) {
  PlotState* s = strictCheck(1, 3, "pagfll");
  if (!s || checkRange(s, color, 0, -1)) return;
  flushPath(s);
  // The whole page, wherever its origin stands.
  float x = -static_cast<float>(s->page.originX), y = -static_cast<float>(s->page.originY);
  qqbar(s, x, y, x + static_cast<float>(s->geometry.pageWidth), y + static_cast<float>(s->geometry.pageHeight), color);
}

void NEWPAG(void) {
  PlotState* s = strictCheck(1, 1, "newpag");
  if (!s) return;
  flushPath(s);
  s->geometry.pageNumber++;
  sinkNewPage(s);
  if (s->clip.clipBorderMode == kBorderWindow) sendClip(s, 0.0F);
}

void ERASE(void) {
  PlotState* s = strictCheck(1, 3, "erase");
  if (!s) return;
  flushPath(s);
  sinkErase(s);
}

void SENDBF(void) {
  PlotState* s = strictCheck(0, 3, "sendbf");
  if (!s || s->level.plotLevel == kLevelNone) return;
  flushPath(s);
  sinkFlush(s);
}

void GETPAG(int* nx, int* ny) {
  PlotState* s = strictCheck(1, 3, "getpag");
  if (!s) return;
  *nx = s->geometry.pageWidth + 1;
  *ny = s->geometry.pageHeight + 1;
}

void GETOR(int* nx, int* ny) {
  PlotState* s = strictCheck(1, 3, "getor");
  if (!s) return;
  *nx = s->page.originX;
  *ny = s->page.originAtTop ? -s->page.originY : s->page.originY;
}
