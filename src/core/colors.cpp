#include "core/colors.h"

#include "core/pipeline.h"
#include "device/sink.h"

namespace quilla {

namespace {

constexpr int kWhite = 0, kBlack = 8; // places of the named colours
constexpr int kDirectBlack = 0x01000000, kDirectWhite = 0x01FFFFFF;

constexpr int kNamedInColor[kNamedColorCount] = {0x01FFFFFF, 0x010000FF, 0x0100FF00, 0x0100FFFF, 0x01FF0000,
                                                 0x010080FF, 0x01FFFF00, 0x01FF00FF, 0x01000000};
constexpr int kNamedInGrey[kNamedColorCount] = {0x01FFFFFF, 0x01E6E6E6, 0x01B9B9B9, 0x01969696, 0x015F5F5F,
                                                0x01D7D7D7, 0x01AFAFAF, 0x016E6E6E, 0x01000000};

constexpr int kSmallTable[] = {0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF,
                               0xFFFF00, 0xFF8000, 0x00FFFF, 0xFF00FF};
constexpr int kVgaTable[] = {0x000000, 0x0000AA, 0x00AA00, 0x00AAAA, 0xAA0000, 0xAA00AA, 0xAA5500, 0xAAAAAA,
                             0x555555, 0x5555FF, 0x55FF55, 0x55FFFF, 0xFF5555, 0xFF55FF, 0xFFFF55, 0xFFFFFF};

struct Stop {
  int index, r, g, b;
};
constexpr int kStopCount = 17;
constexpr Stop kRainbow[kStopCount] = {{1, 34, 0, 68},     {16, 41, 0, 190},   {32, 0, 8, 255},    {48, 0, 68, 255},
                                       {64, 0, 132, 255},  {80, 0, 192, 255},  {96, 0, 255, 255},  {112, 0, 255, 191},
                                       {128, 0, 255, 82},  {144, 51, 255, 0},  {160, 123, 255, 0}, {176, 191, 255, 0},
                                       {192, 255, 255, 0}, {208, 255, 187, 0}, {224, 255, 123, 0}, {240, 255, 58, 0},
                                       {254, 255, 0, 0}};
constexpr Stop kSpectrum[kStopCount] = {{1, 255, 0, 255},   {16, 179, 0, 255},  {32, 99, 0, 255},   {48, 18, 0, 255},
                                        {64, 0, 62, 255},   {80, 0, 143, 255},  {96, 0, 224, 255},  {112, 0, 255, 206},
                                        {128, 0, 255, 125}, {144, 0, 255, 44},  {160, 36, 255, 0},  {176, 117, 255, 0},
                                        {192, 198, 255, 0}, {208, 255, 232, 0}, {224, 255, 151, 0}, {240, 255, 71, 0},
                                        {254, 255, 0, 0}};

constexpr int packRgb(int r, int g, int b) { return (r << 16) | (g << 8) | b; }

int blend(int from, int to, int step, int steps) {
  int difference = to - from;
  return from + (2 * difference * step + (difference < 0 ? -steps : steps)) / (2 * steps);
}

// Linear steps between the stops; black at the low end, white at the high one.
void fillFromStops(int table[], const Stop stops[]) {
  table[0] = 0x000000;
  table[kColorTableSize - 1] = 0xFFFFFF;
  for (int k = 0; k + 1 < kStopCount; k++) {
    const Stop &a = stops[k], &b = stops[k + 1];
    int steps = b.index - a.index;
    for (int i = 0; i <= steps; i++) {
      table[a.index + i] = packRgb(blend(a.r, b.r, i, steps), blend(a.g, b.g, i, steps), blend(a.b, b.b, i, steps));
    }
  }
}

void fillGrey(int table[]) {
  for (int i = 0; i < kColorTableSize; i++) table[i] = packRgb(i, i, i);
}

void fillTemperature(int table[]) {
  auto ramp = [](int i, int from, double slope) {
    if (i < from) return 0;
    int value = static_cast<int>((i - from) * slope + 0.5);
    return value > 255 ? 255 : value;
  };
  for (int i = 0; i < kColorTableSize; i++) {
    int red = i < 150 ? ramp(i, 0, 1.7) : 255;
    table[i] = packRgb(red, ramp(i, 120, 1.8888888888888888), ramp(i, 190, 3.923076923076923));
  }
}

void reverse(int table[]) {
  for (int i = 0, k = kColorTableSize - 1; i < k; i++, k--) {
    int kept = table[i];
    table[i] = table[k];
    table[k] = kept;
  }
}

void swapInts(int& a, int& b) {
  int kept = a;
  a = b;
  b = kept;
}

bool isMetafileOrPost(int device) { return device == 501 || device == 211 || device == 221; }

void fillTable(PlotState* s, int kind) {
  int* table = s->color.colorTable;
  bool paper = isMetafileOrPost(s->deviceSetup.deviceNumber);
  switch (kind) {
  case kTableSmall:
    for (int i = 0; i < 9; i++) table[i] = kSmallTable[i];
    if (paper) swapInts(table[0], table[1]);
    break;
  case kTableVga:
    for (int i = 0; i < 16; i++) table[i] = kVgaTable[i];
    if (paper) swapInts(table[0], table[15]);
    break;
  case kTableRain:
  case kTableReverseRain: fillFromStops(table, kRainbow); break;
  case kTableSpectrum:
  case kTableReverseSpectrum: fillFromStops(table, kSpectrum); break;
  case kTableGrey:
  case kTableReverseGrey: fillGrey(table); break;
  case kTableTemperature: fillTemperature(table); break;
  default: break;
  }
  if (kind == kTableReverseRain || kind == kTableReverseSpectrum || kind == kTableReverseGrey) reverse(table);
}

bool isReversedTable(int kind) {
  return kind == kTableReverseRain || kind == kTableReverseSpectrum || kind == kTableReverseGrey;
}

// Black and white trade places, or fall together, so that both stay visible on the device's background.
void adjustNamedColors(PlotState* s, int kind) {
  int* named = s->color.namedColors;
  int device = s->deviceSetup.deviceNumber;
  if (kind == kTableSmall || kind == kTableGrey || kind == kTableReverseGrey) named[kBlack] = named[kWhite];
  if (isReversedTable(kind)) {
    if (isMetafileOrPost(device)) {
      named[kWhite] = named[kBlack] = kDirectBlack;
    } else if (s->device.colourDepth <= 8) {
      swapInts(named[kWhite], named[kBlack]);
    }
    return;
  }
  if (kind == kTableSmall && isMetafileOrPost(device)) named[kWhite] = named[kBlack] = kDirectBlack;
  if (kind == kTableVga && isMetafileOrPost(device)) {
    named[kBlack] = kDirectWhite;
    named[kWhite] = kDirectBlack;
  }
  bool plain = kind == kTableRain || kind == kTableSpectrum || kind == kTableGrey || kind == kTableTemperature;
  if (plain && (device == 221 || device == 211)) named[kWhite] = kDirectBlack;
}

void setGroundColors(PlotState* s, int kind) {
  ColorGroup& c = s->color;
  int device = s->deviceSetup.deviceNumber;
  int top = kColorTableSize - 1;
  c.foregroundColor = 255;
  c.backgroundColor = 0;
  bool plain = kind == kTableRain || kind == kTableSpectrum || kind == kTableGrey || kind == kTableTemperature;
  bool paper = isMetafileOrPost(device) || device == 701;
  // The page of a metafile is white. Unless the table is turned for it, the last entry of a reversed one is black.
  bool plainMetafile = device == 231 && s->colorState.backgroundMode != kBackgroundReverse;
  if (plain && paper) {
    c.foregroundColor = 0;
    c.backgroundColor = 255;
  } else if (kind == kTableSmall) {
    top = 9;
    c.foregroundColor = 1;
  } else if (kind == kTableVga) {
    top = 15;
    c.foregroundColor = 15;
  } else if (isReversedTable(kind) && s->device.colourDepth > 8 && !isMetafileOrPost(device) && !plainMetafile) {
    c.foregroundColor = 0;
    c.backgroundColor = 255;
  }
  c.colorRangeLow = 1;
  c.colorRangeHigh = top - 1;
}

bool isReversible(int device) {
  return device < 101 || device == 231 || (device >= 502 && device <= 504) || device == 511 || device > 600;
}

void reverseForWhitePaper(PlotState* s, int kind) {
  if (s->colorState.backgroundMode != kBackgroundReverse || !isReversible(s->deviceSetup.deviceNumber)) return;
  int* named = s->color.namedColors;
  int top = lastTableEntry(kind);
  swapInts(s->color.colorTable[0], s->color.colorTable[top]);
  if (kind == kTableSmall || kind == kTableGrey || kind == kTableReverseGrey) {
    named[kWhite] = named[kBlack] = kDirectBlack;
  } else {
    swapInts(named[kWhite], named[kBlack]);
  }
}

} // namespace

int lastTableEntry(int kind) {
  if (kind == kTableSmall) return 1;
  return kind == kTableVga ? 15 : kColorTableSize - 1;
}

void setColor(PlotState* s, int value) {
  flushPath(s);
  s->color.currentColor = value;
  qqcolor(s, value);
}

void loadColorTable(PlotState* s, int kind) {
  constexpr int kCycleColors = 8; // "WHIT" to "MAGE"
  ColorGroup& c = s->color;
  int device = s->deviceSetup.deviceNumber;
  if (device >= 301 && device <= 400) kind = kTableSmall;
  c.tableKind = kind;
  c.tableFile[0] = 0;
  const int* named = kind == kTableGrey || kind == kTableReverseGrey ? kNamedInGrey : kNamedInColor;
  for (int i = 0; i < kNamedColorCount; i++) c.namedColors[i] = named[i];
  adjustNamedColors(s, kind);
  if (!s->colorSetup.userTablePending) fillTable(s, kind);
  s->colorSetup.userTablePending = false;
  setGroundColors(s, kind);
  reverseForWhitePaper(s, kind);
  for (int i = 0; i < kCycleLength; i++) c.colorCycle[i] = c.namedColors[i % kCycleColors];
  sinkColorTable(s, 0, kColorTableSize - 1);
  setColor(s, c.foregroundColor);
}

} // namespace quilla
