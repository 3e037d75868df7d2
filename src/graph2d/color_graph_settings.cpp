// Setters of colour graphs: the bar, the size of what is painted, and the modes of SHDMOD.
#include <cstdlib>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kLargestDimension = 10000;

} // namespace

void NOBAR(void) {
  if (PlotState* s = setterCheck("nobar")) s->colorBar.barHidden = true;
}

void WIDBAR(int width) {
  PlotState* s = setterCheck("widbar");
  if (s && !checkRange(s, width, 0, kLargestDimension)) s->colorBar.barWidth = width;
}

void SPCBAR(int distance) {
  if (PlotState* s = setterCheck("spcbar")) s->colorBar.barDistance = limitedDistance(distance);
}

void VKXBAR(int shift) {
  if (PlotState* s = setterCheck("vkxbar")) s->colorBar.barShiftX = limitedDistance(shift);
}

void VKYBAR(int shift) {
  if (PlotState* s = setterCheck("vkybar")) s->colorBar.barShiftY = limitedDistance(shift);
}

void FRMBAR(int lines) {
  if (PlotState* s = setterCheck("frmbar")) s->colorBar.barFrame = limitedDistance(lines);
}

void POSBAR(const char* side) {
  PlotState* s = setterCheck("posbar");
  if (!s) return;
  if (int found = matchKeyword(s, "RIGH+LEFT+TOP +BOTT", 4, side)) s->colorBar.barPlace = found - 1;
}

void JUSBAR(const char* mode) {
  PlotState* s = setterCheck("jusbar");
  if (!s) return;
  if (int found = matchKeyword(s, "STAR+CENT+END ", 3, mode)) s->colorBar.barJustify = found - 1;
}

void SETRES(int width, int height) {
  PlotState* s = setterCheck("setres");
  if (!s) return;
  if (width < 0 || height < 0) return warnWithNumber(s, 1, width < 0 ? width : height);
  s->resolution = {limitedDistance(width), limitedDistance(height), kResolutionGiven, 0, 0};
}

void GETRES(int* width, int* height) {
  PlotState* s = strictCheck(1, 3, "getres");
  if (!s) return;
  *width = s->resolution.cellWidth;
  *height = s->resolution.cellHeight;
}

void AUTRES(int nx, int ny) {
  PlotState* s = strictCheck(1, 3, "autres");
  if (!s) return;
  if (nx == 0 && ny == 0) {
    s->resolution.autoResolution = kResolutionOfMatrix;
    return;
  }
  auto fits = [](int n) { return (n >= 2 && n <= kLargestDimension) || (n <= -2 && n >= -kLargestDimension); };
  if (!fits(nx)) return warnWithNumber(s, 2, nx);
  if (!fits(ny)) return warnWithNumber(s, 2, ny);
  s->resolution.autoResolution = kResolutionOfPoints;
  s->resolution.autoCountX = nx;
  s->resolution.autoCountY = ny;
}

namespace {

enum ShadeKey : int { kSurf = 1, kCont, kCurv, kCell, kColo, kCull, kSymb, kZsca };

// Stores the number of a keyword from 0.
void storeMode(PlotState* s, const char* list, int count, const char* value, int& field) {
  if (int found = matchKeyword(s, list, count, value)) field = found - 1;
}

} // namespace

void SHDMOD(const char* value, const char* key) {
  PlotState* s = setterCheck("shdmod");
  if (!s) return;
  ShadeModeGroup& m = s->shadeModes;
  switch (matchKeyword(s, "SURF+CONT+CURV+CELL+COLO+CULL+SYMB+ZSCA", 8, key)) {
  case kSurf: return storeMode(s, "FLAT+SMOO", 2, value, m.surfaceMode);
  case kCont: return storeMode(s, "CELL+POLY", 2, value, m.contourMethod);
  case kCurv:
    if (int found = matchKeyword(s, "RECT+SYMB+PIXE+2D  +3D  ", 5, value)) {
      if (found <= kPaintPixels + 1) m.paintMode = found - 1;
      if (found > kPaintPixels + 1) m.curvesInSpace = found == kPaintPixels + 3;
    }
    return;
  case kCell: return storeMode(s, "BOTH+UPPE+LOWE+NONE", 4, value, m.openBands);
  case kColo: return storeMode(s, "LOWE+MIDD+UPPE", 3, value, m.bandColor);
  case kCull: return storeMode(s, "OFF +ON  +FRON", 3, value, m.cullMode);
  case kSymb:
    if (int found = matchKeyword(s, "2D  +3D  ", 2, value)) m.symbolsInSpace = found == 2;
    return;
  case kZsca:
    if (int found = matchKeyword(s, "ON  +OFF ", 2, value)) m.colorByScale = found == 1;
    return;
  default: return;
  }
}

void GETVK(int* title, int* barX, int* barY) {
  PlotState* s = strictCheck(1, 3, "getvk");
  if (!s) return;
  *title = s->axis.titleDistance;
  *barX = s->colorBar.barShiftX;
  *barY = s->colorBar.barShiftY;
}

int GETWID(void) {
  PlotState* s = strictCheck(1, 3, "getwid");
  return s ? s->colorBar.barWidth : 0;
}

void EXPZLB(const char* ends) {
  PlotState* s = setterCheck("expzlb");
  const int found = s ? matchKeyword(s, "NONE+FIRS+LAST+BOTH", 4, ends) : 0;
  if (found == 0) return;
  s->colorBar.firstOpen = found == 2 || found == 4;
  s->colorBar.lastOpen = found >= 3;
}
