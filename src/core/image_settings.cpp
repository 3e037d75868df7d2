// Public routines that choose how pictures of pixels are made, written and placed.
#include <algorithm>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/raster_driver.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kBadParameter = 2;

// Both at least the low bound; else the lesser is reported.
bool areAtLeast(PlotState* s, int a, int b, int low) { return checkRange(s, std::min(a, b), low, low - 1) == 0; }

bool isBox(PlotState* s, int x, int y, int w, int h) { return areAtLeast(s, x, y, 0) && areAtLeast(s, w, h, 1); }

// "OFF" or "ON" for the key "TRAN".
void setTransparency(const char* name, const char* value, const char* key, bool RasterSetup::*setting) {
  PlotState* s = strictCheck(0, 0, name);
  if (!s || !matchKeyword(s, "TRAN", 1, key)) return;
  if (const int found = matchKeyword(s, "OFF +ON  ", 2, value)) s->rasterSetup.*setting = found == 2;
}

} // namespace

void IMGFMT(const char* format) {
  PlotState* s = strictCheck(0, 0, "imgfmt");
  if (!s) return;
  constexpr char kFormats[] = "IND +RGB +BIL ";
  char key[4];
  copyText(key, format, 3); // three characters decide
  int found = findKeyword(kFormats, 3, key);
  if (!found) found = matchKeyword(s, kFormats, 3, format);
  if (found) s->rasterSetup.imageFormat = found - 1;
}

void IMGMOD(const char* mode) {
  PlotState* s = setterCheck("imgmod");
  if (!s) return;
  constexpr int kFirstOrder = 3;
  const int found = matchKeyword(s, "IND +RGB +TOP +BOT ", 4, mode);
  if (!found) return;
  if (found < kFirstOrder) {
    s->image.imageDataMode = found - 1;
  } else {
    s->image.imageRowOrder = found - kFirstOrder;
  }
}

void IMGBOX(int nx, int ny, int nw, int nh) {
  PlotState* s = setterCheck("imgbox");
  if (s && isBox(s, nx, ny, nw, nh)) s->image.imageBox = {true, nx, userY(s, ny), nw, nh};
}

void IMGCLP(int nx, int ny, int nw, int nh) {
  PlotState* s = setterCheck("imgclp");
  if (!s || !isBox(s, nx, ny, nw, nh)) return;
  const RasterCanvas* canvas = s->raster.canvas;
  const int width = canvas ? canvas->width : s->device.pixelWidth;
  const int height = canvas ? canvas->height : s->device.pixelHeight;
  if (nx >= width || ny >= height || nw > width - nx || nh > height - ny) return warnPlain(s, kBadParameter);
  s->image.imageClip = {true, nx, ny, nw, nh};
}

void IMGSIZ(int nw, int nh) {
  PlotState* s = setterCheck("imgsiz");
  if (s && areAtLeast(s, nw, nh, 1)) s->image.imageSize = {true, 0, 0, nw, nh};
}

void IMGTPR(int color) {
  PlotState* s = setterCheck("imgtpr");
  if (!s) return;
  s->image.imageTransparent = color < 0 ? -1 : color;
  if (s->raster.canvas) rasterTransparentColor(s);
}

void TIFMOD(int n, const char* unit, const char* key) {
  PlotState* s = strictCheck(0, 0, "tifmod");
  if (!s || !matchKeyword(s, "RESO", 1, key)) return;
  const int found = matchKeyword(s, "INCH+CM  ", 2, unit);
  if (!found || checkRange(s, n, 1, 0)) return;
  s->rasterSetup.tiffResolution = n;
  s->rasterSetup.tiffResolutionUnit = found == 1 ? kTiffInch : kTiffCentimetre;
}

void BMPMOD(int n, const char* unit, const char* key) {
  PlotState* s = strictCheck(0, 0, "bmpmod");
  if (!s || !matchKeyword(s, "RESO", 1, key)) return;
  constexpr double kInchesOfMetre = 100.0 / 2.54;
  constexpr int kMostPerInch = 50000000; // still an int when counted by the metre
  const int found = matchKeyword(s, "METE+INCH", 2, unit);
  if (!found || (found == 1 ? checkRange(s, n, 1, 0) : checkRange(s, n, 1, kMostPerInch))) return;
  s->rasterSetup.bmpResolution = found == 1 ? n : static_cast<int>(n * kInchesOfMetre + 0.5);
}

void PNGMOD(const char* value, const char* key) { setTransparency("pngmod", value, key, &RasterSetup::pngTransparent); }
void GIFMOD(const char* value, const char* key) { setTransparency("gifmod", value, key, &RasterSetup::gifTransparent); }

void TIFORG(int nx, int ny) {
  PlotState* s = setterCheck("tiforg");
  if (!s || !areAtLeast(s, nx, ny, 0)) return;
  s->image.tiffOriginX = nx;
  s->image.tiffOriginY = ny;
}

void TIFWIN(int nx, int ny, int nw, int nh) {
  PlotState* s = setterCheck("tifwin");
  if (s && isBox(s, nx, ny, nw, nh)) s->image.tiffWindow = {true, nx, ny, nw, nh};
}
