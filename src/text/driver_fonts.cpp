// PSFONT, HWFONT and the fonts that stand in for alphabets.
#include "text/driver_fonts.h"

#include <cstring>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/ps_fonts.h"
#include "device/sink.h"
#include "quilla/quilla.h"
#include "text/text.h"

namespace quilla {
namespace {

constexpr int kDevicePdf = 511, kDeviceSvg = 801, kDeviceIpe = 802;
constexpr int kSymbolRow = 34;
constexpr int kLastIpeRow = 3;
constexpr int kNotStandardFont = 192;

// Row of the italic partner of a font row, -1 if there is none.
int italicPartner(int row) {
  struct Pair {
    int upright, italic;
  };
  constexpr Pair kPartners[] = {{0, 2},   {1, 3},   {4, 6},   {5, 7},   {8, 10},  {9, 11},  {12, 13}, {14, 15},
                                {18, 20}, {19, 21}, {22, 24}, {23, 25}, {26, 27}, {28, 29}, {30, 31}, {32, 33}};
  for (const Pair& p : kPartners) {
    if (p.upright == row) return p.italic;
  }
  return -1;
}

} // namespace

void loadPsFont(PlotState* s, int row) {
  FontGroup& font = s->font;
  flushPath(s);
  copyText(font.fontName, kPsFonts[row].name, kFontNameLength);
  font.psFontIndex = row;
  font.fontCapHeight = kPsFonts[row].capHeight;
  fillPsWidths(row, font.charWidths);
  font.fontKind = kFontPostScript;
  if (s->textState.textMeasure) return;
  sinkFont(s, true);
  const int device = s->deviceSetup.deviceNumber;
  if (device != kDevicePdf && device != kDeviceSvg && device != kDeviceIpe) std::strcat(font.fontName, "-German");
}

void shiftDriverFont(PlotState* s, int alphabet) {
  FontGroup& font = s->font;
  const int mode = s->text.psShiftFonts;
  if (font.fontKind != kFontPostScript || mode == 0) return;
  int row = -1;
  if (alphabet == kAlphabetGreek && mode != 2) row = kSymbolRow;
  if (alphabet == kAlphabetItalic && mode != 1)
    row = italicPartner(font.fontShifted ? font.psSavedIndex : font.psFontIndex);
  if (alphabet == kAlphabetStandard && font.fontShifted) row = font.psSavedIndex;
  if (row < 0) return;
  loadPsFont(s, row);
  font.fontShifted = alphabet != kAlphabetStandard;
}

void saveDriverFont(PlotState* s) {
  s->font.fontShifted = false;
  s->font.psSavedIndex = s->font.psFontIndex;
}

void restoreDriverFont(PlotState* s) {
  if (!s->font.fontShifted) return;
  s->font.fontShifted = false;
  loadPsFont(s, s->font.psSavedIndex);
}

} // namespace quilla

using namespace quilla;

void PSFONT(const char* name) {
  PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, "psfont");
  if (!s) return;
  if (!sinkHasFonts(s)) {
    warnPlain(s, 49);
    return;
  }
  int row = findPsFont(name);
  if (row < 0) {
    setCustomMessage(s, "Not a standard PostScript font");
    warnWithString(s, kNotStandardFont, name);
    row = 0;
  }
  if (s->deviceSetup.deviceNumber == kDeviceIpe && row > kLastIpeRow) {
    warnPlain(s, 49);
    return;
  }
  installFont(s, kComplx);
  loadPsFont(s, row);
}

void HWFONT() {
  PlotState* s = strictCheck(kLevelPlot, kLevelAxis3D, "hwfont");
  if (!s) return;
  if (sinkHasFonts(s)) {
    PSFONT("Times-Roman");
  } else {
    COMPLX();
  }
}
