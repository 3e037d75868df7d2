// Public routines of colours.
#include <cmath>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "device/sink.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr const char* kTableKeywords = "SMAL+RAIN+SPEC+GREY+RRAI+RSPE+RGRE+VGA +TEMP";
constexpr int kTableCount = 9;
constexpr const char* kTableNames[kTableCount] = {"SMALL", "RAIN",  "SPEC", "GREY", "RRAIN",
                                                  "RSPEC", "RGREY", "VGA",  "TEMP"};
constexpr float kRgbSlack = 0.001F;
constexpr float kHsvSlack = 0.0001F;

bool isComponent(float v, float slack) { return v >= -slack && v <= 1.0F + slack; }

bool areComponents(float a, float b, float c, float slack) {
  return isComponent(a, slack) && isComponent(b, slack) && isComponent(c, slack);
}

int toByte(float component) {
  int value = static_cast<int>(component * 255.0F + 0.5F);
  return value < 0 ? 0 : value > 255 ? 255 : value;
}

int directOf(float r, float g, float b) { return directColor(toByte(r), toByte(g), toByte(b)); }

void components(const PlotState* s, int color, float* r, float* g, float* b) {
  int red = 0, green = 0, blue = 0;
  colorComponents(s, color, red, green, blue);
  *r = static_cast<float>(red) / 255.0F;
  *g = static_cast<float>(green) / 255.0F;
  *b = static_cast<float>(blue) / 255.0F;
}

int halfWayToBackground(const PlotState* s) {
  int r = 0, g = 0, b = 0, r2 = 0, g2 = 0, b2 = 0;
  colorComponents(s, s->color.currentColor, r, g, b);
  colorComponents(s, s->color.backgroundColor, r2, g2, b2);
  return directColor((r + r2) / 2, (g + g2) / 2, (b + b2) / 2);
}

} // namespace

void COLOR(const char* name) {
  constexpr int kFore = 10, kBack = 11, kGray = 12, kHalf = 13;
  PlotState* s = strictCheck(1, 3, "color");
  if (!s) return;
  int found = matchKeyword(s, "WHIT+RED +GREE+YELL+BLUE+ORAN+CYAN+MAGE+BLAC+FORE+BACK+GRAY+HALF", 13, name);
  switch (found) {
  case 0: return;
  case kFore: return setColor(s, s->color.foregroundColor);
  case kBack: return setColor(s, s->color.backgroundColor);
  case kGray: return setColor(s, directOf(0.5F, 0.5F, 0.5F));
  case kHalf: return setColor(s, halfWayToBackground(s));
  default: return setColor(s, s->color.namedColors[found - 1]);
  }
}

void SETCLR(int color) {
  PlotState* s = strictCheck(1, 3, "setclr");
  if (s && !checkRange(s, color, 0, -1)) setColor(s, color);
}

void SETRGB(float r, float g, float b) {
  PlotState* s = strictCheck(1, 3, "setrgb");
  if (!s) return;
  if (!areComponents(r, g, b, kRgbSlack)) return warnPlain(s, 2);
  setColor(s, directOf(r, g, b));
}

int INTRGB(float r, float g, float b) {
  PlotState* s = strictCheck(1, 3, "intrgb");
  if (!s) return 0;
  if (areComponents(r, g, b, kRgbSlack)) return directOf(r, g, b);
  warnPlain(s, 2);
  return 0;
}

int INDRGB(float r, float g, float b) {
  PlotState* s = strictCheck(1, 3, "indrgb");
  if (!s) return -1;
  if (areComponents(r, g, b, kRgbSlack)) return indexOfRgb(s, toByte(r), toByte(g), toByte(b));
  warnPlain(s, 2);
  return -1;
}

void SETIND(int i, float r, float g, float b) {
  PlotState* s = strictCheck(1, 3, "setind");
  if (!s || checkRange(s, i, 0, kColorTableSize - 1)) return;
  if (!areComponents(r, g, b, kTiny)) return warnPlain(s, 2);
  flushPath(s);
  s->color.colorTable[i] = (toByte(r) << 16) | (toByte(g) << 8) | toByte(b);
  constexpr int kFirstFile = 101;
  bool screen = s->deviceSetup.deviceNumber < kFirstFile;
  sinkColorTable(s, screen ? 0 : i, screen ? kColorTableSize - 1 : i);
}

void GETIND(int i, float* r, float* g, float* b) {
  if (PlotState* s = strictCheck(1, 3, "getind")) components(s, i, r, g, b);
}

void GETRGB(float* r, float* g, float* b) {
  if (PlotState* s = strictCheck(1, 3, "getrgb")) components(s, s->color.currentColor, r, g, b);
}

int GETCLR(void) {
  PlotState* s = strictCheck(1, 3, "getclr");
  return s ? s->color.currentColor : 0;
}

const char* GETVLT(void) {
  PlotState* s = strictCheck(1, 3, "getvlt");
  return s ? kTableNames[s->color.tableKind] : "";
}

void SETVLT(const char* table) {
  PlotState* s = strictCheck(1, 3, "setvlt");
  if (!s) return;
  if (int found = matchKeyword(s, kTableKeywords, kTableCount, table)) loadColorTable(s, found - 1);
}

void MYVLT(const float* r, const float* g, const float* b, int n) {
  PlotState* s = strictCheck(0, 3, "myvlt");
  if (!s || checkRange(s, n, 1, kColorTableSize)) return;
  for (int i = 0; i < n; i++) {
    if (!areComponents(r[i], g[i], b[i], kTiny)) return warnPlain(s, 2);
  }
  bool open = s->level.plotLevel > kLevelNone;
  if (open) flushPath(s);
  for (int i = 0; i < n; i++) s->color.colorTable[i] = (toByte(r[i]) << 16) | (toByte(g[i]) << 8) | toByte(b[i]);
  if (open) {
    sinkColorTable(s, 0, n - 1);
  } else {
    s->colorSetup.userTablePending = true;
  }
}

void HSVRGB(float h, float s, float v, float* r, float* g, float* b) {
  constexpr int kSectors = 6;
  PlotState* state = strictCheck(0, 3, "hsvrgb");
  if (!state) return;
  if (!(h >= -kHsvSlack && h <= 360.0F + kHsvSlack) || !isComponent(s, kHsvSlack) || !isComponent(v, kHsvSlack)) {
    return warnPlain(state, 2);
  }
  float f = h / 60.0F;
  int sector = f > 0.0F ? static_cast<int>(f) : 0;
  float rest = f - static_cast<float>(sector);
  float low = v * (1.0F - s);
  float values[kSectors] = {v, v, v * (1.0F - rest * s), low, low, v * (1.0F - (1.0F - rest) * s)};
  // Red, green and blue read the table two places apart; it starts one place further in each sector.
  int start = sector % kSectors;
  *r = values[(start + 1) % kSectors];
  *g = values[(start + 5) % kSectors];
  *b = values[(start + 3) % kSectors];
}

void RGBHSV(float r, float g, float b, float* h, float* s, float* v) {
  PlotState* state = strictCheck(0, 3, "rgbhsv");
  if (!state) return;
  if (!areComponents(r, g, b, kHsvSlack)) return warnPlain(state, 2);
  float high = std::fmax(r, std::fmax(g, b)), low = std::fmin(r, std::fmin(g, b));
  *v = high;
  *s = high != 0.0F ? (high - low) / high : 0.0F;
  *h = 0.0F;
  if (*s == 0.0F) return;
  float span = high - low, rc = (high - r) / span, gc = (high - g) / span, bc = (high - b) / span;
  float sextant = 0.0F;
  if (r == high) {
    sextant = g == low ? 5.0F + bc : 1.0F - gc;
  } else if (g == high) {
    sextant = b == low ? 1.0F + rc : 3.0F - bc;
  } else {
    sextant = r == low ? 3.0F + gc : 5.0F - rc;
  }
  *h = 60.0F * sextant;
}

void REVSCR(void) {
  PlotState* s = strictCheck(1, 3, "revscr");
  if (!s) return;
  flushPath(s);
  int last = lastTableEntry(s->color.tableKind);
  int kept = s->color.colorTable[0];
  s->color.colorTable[0] = s->color.colorTable[last];
  s->color.colorTable[last] = kept;
  sinkColorTable(s, 0, last);
}

void CLRMOD(const char* mode) {
  PlotState* s = strictCheck(0, 0, "clrmod");
  if (!s) return;
  if (int found = matchKeyword(s, "NONE+FULL+CONT", 3, mode)) s->colorSetup.colorMode = found - 1;
}

void GETRAN(int* low, int* high) {
  PlotState* s = strictCheck(1, 3, "getran");
  if (!s) return;
  *low = s->color.colorRangeLow;
  *high = s->color.colorRangeHigh;
}

void COLRAN(int low, int high) {
  PlotState* s = setterCheck("colran");
  if (!s || checkRange(s, low, 0, kColorTableSize - 1) || checkRange(s, high, 0, kColorTableSize - 1)) return;
  s->color.colorRangeLow = low;
  s->color.colorRangeHigh = high;
}
