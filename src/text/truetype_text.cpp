#include "text/truetype_text.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "quilla/quilla.h"
#include "text/coding.h"
#include "text/library_path.h"
#include "text/ring_fill.h"
#include "text/text.h"
#include "text/truetype.h"

namespace quilla {
namespace {

enum TrueTypeMessage : int {
  kFileMessage = 36,
  kMemoryMessage = 53,
  kReadMessage = 119,
  kEncodingMessage = 183,
  kFormatMessage = 184,
  kMissingMessage = 185,
  kSizeMessage = 186,
  kOverflowMessage = 187,
  kContoursMessage = 188,
  kIndexMessage = 189
};

void warnTable(PlotState* s, int number, const char* what, int fault) {
  constexpr const char* kNames[] = {"cmap", "loca", "head", "maxp"};
  constexpr int kTableCode = 10; // faults come as 11 to 14 and 21 to 24
  char text[40];
  std::snprintf(text, sizeof text, "%s%s", what, kNames[(fault - 1) % kTableCode]);
  warnWithText(s, number, text);
}

void warnFault(PlotState* s, int fault, const char* file) {
  switch (fault) {
  case kNoFontFile: warnWithString(s, kFileMessage, file); break;
  case kNoFontMemory: warnPlain(s, kMemoryMessage); break;
  case kFontReadError: warnWithText(s, kReadMessage, "Read error"); break;
  case kNoMicrosoftEncoding: warnWithText(s, kEncodingMessage, "No Microsoft encoding found in table cmap"); break;
  case kNoFormat4: warnWithText(s, kFormatMessage, "Format should be 4 in table cmap"); break;
  case kContourOverflow: warnWithText(s, kOverflowMessage, "Overflow for contour points"); break;
  case kBadContours: warnWithText(s, kContoursMessage, "Bad number of contours"); break;
  case kBadGlyphIndex: warnWithText(s, kIndexMessage, "Bad glyph index"); break;
  case kMissingCmap:
  case kMissingLoca:
  case kMissingHead:
  case kMissingMaxp: warnTable(s, kMissingMessage, "Missing table ", fault); break;
  default: warnTable(s, kSizeMessage, "Bad size in table ", fault); break;
  }
}

// Whole file in memory; the font is read from it.
int loadFile(const char* path, TrueTypeFont* font) {
  constexpr long kLargestFile = 256L * 1024 * 1024;
  std::FILE* file = std::fopen(path, "rb");
  if (!file) return kNoFontFile;
  int fault = kFontReadError;
  if (std::fseek(file, 0, SEEK_END) == 0) {
    const long size = std::ftell(file);
    if (size > 0 && size <= kLargestFile && std::fseek(file, 0, SEEK_SET) == 0) {
      const std::size_t bytes = static_cast<std::size_t>(size);
      std::unique_ptr<std::uint8_t[]> data(new (std::nothrow) std::uint8_t[bytes]);
      fault = kNoFontMemory;
      if (data)
        fault =
            std::fread(data.get(), 1, bytes, file) == bytes ? readTrueType(data.get(), bytes, font) : kFontReadError;
    }
  }
  std::fclose(file);
  return fault;
}

// Points of a glyph on their way to the page.
struct PageGlyph {
  float scale;             // plot units of a font unit
  float widthFactor;       // of characters
  float slant, left, lift; // smallest x and start of the cell; up shifts
};

void drawRings(PlotState* s, const TrueTypeFont* font, int k, long count, const PageGlyph& g) {
  constexpr long kOnStack = 512;
  float few[2 * kOnStack];
  std::unique_ptr<float[]> many;
  float* xs = few;
  if (count > kOnStack) {
    many.reset(new (std::nothrow) float[2 * static_cast<std::size_t>(count)]);
    xs = many.get();
    if (!xs) return warnPlain(s, kMemoryMessage);
  }
  float* const ys = xs + (count > kOnStack ? count : kOnStack);
  int ends[kGlyphContourLimit];
  int rings = 0, n = 0, last = -1;
  const float c = s->text.textCos, sine = s->text.textSin;
  flattenGlyph(font, k, [&](int contour, float x, float y) {
    const float v = y * g.scale;
    const float u = x * g.scale * g.widthFactor + g.slant * v - g.left;
    const float up = v + g.lift;
    if (contour != last) {
      if (last >= 0) ends[rings++] = n;
      last = contour;
    }
    xs[n] = s->textState.textCursorX + u * c - up * sine;
    ys[n++] = s->textState.textCursorY - up * c - u * sine;
  });
  if (last >= 0) ends[rings++] = n;
  for (int ring = 0, i = 0; ring < rings; ++ring) {
    constexpr int kSmallestRing = 4; // fonts have contours of one or two points, which show nothing
    if (ends[ring] - i >= kSmallestRing) {
      pathMove(s, xs[i], ys[i]);
      for (int point = i + 1; point < ends[ring]; ++point) pathDraw(s, xs[point], ys[point]);
    }
    i = ends[ring];
  }
  fillRings(s, xs, ys, ends, rings);
}

} // namespace

float drawOutlineGlyph(PlotState* s, int code, float cell) {
  TextState& t = s->textState;
  const float h = static_cast<float>(s->text.textHeight);
  const bool fixed = s->text.fixedSpacingOn;
  const float empty = fixed ? cell : h / 4.0F * s->text.charWidthFactor;
  if (t.measureInk) t.inkUp = t.inkDown = 0.0F;
  TrueTypeFont* font = t.trueType.get();
  if (code == ' ' || !font) return empty;
  int fault = kTrueTypeGood;
  const int glyph = trueTypeGlyph(font, unicodeOf(s, code), &fault);
  if (fault == kTrueTypeGood) fault = readGlyph(font, glyph);
  constexpr int kHeightsPerStep = 5, kFewestSteps = 5;
  const int k = std::max(s->text.textHeight / kHeightsPerStep, kFewestSteps);
  if (fault == kTrueTypeGood && static_cast<long>(font->pointCount + 2 * font->contourCount) * k > kFlatPointLimit)
    fault = kContourOverflow;
  if (fault != kTrueTypeGood) {
    if (!t.textMeasure) warnFault(s, fault, "");
    return empty;
  }
  const float scale = h / font->unitsPerEm;
  float low = 0.0F, high = 0.0F, left = 0.0F, right = 0.0F;
  bool any = false;
  const PageGlyph upright = {scale, s->text.charWidthFactor, s->text.charSlant, 0.0F, 0.0F};
  const long count = flattenGlyph(font, k, [&](int, float x, float y) {
    const float u = x * scale * upright.widthFactor, v = y * scale;
    left = any ? std::min(left, u) : u;
    right = any ? std::max(right, u) : u;
    low = any ? std::min(low, v) : v;
    high = any ? std::max(high, v) : v;
    any = true;
  });
  if (!any) return empty;
  if (t.measureInk) {
    t.inkUp = high;
    t.inkDown = -low;
  }
  const float width = right - left, advance = fixed ? cell : width;
  if (t.textMeasure) return advance;
  PageGlyph placed = upright;
  placed.left = left - (fixed ? (advance - width + 1.0F) / 2.0F : 0.0F);
  placed.lift = t.textUpShift + t.secondUpShift;
  drawRings(s, font, k, count, placed);
  return advance;
}

} // namespace quilla

using namespace quilla;

void TTFONT(const char* name) {
  PlotState* s = setterCheck("tffont");
  if (!s) return;
  if (!name) name = "";
  s->textState.trueType.reset();
  std::shared_ptr<TrueTypeFont> font(new (std::nothrow) TrueTypeFont);
  int fault = kNoFontMemory;
  if (font) {
    fault = loadFile(name, font.get());
    char path[kLibraryPathLength];
    if (fault == kNoFontFile && libraryFile(s, "fonts", name, path)) fault = loadFile(path, font.get());
  }
  if (fault != kTrueTypeGood && fault != kMissingGlyf) {
    warnFault(s, fault, name);
    return;
  }
  flushPath(s);
  s->textState.trueType = font;
  s->font.fontKind = kFontTrueType;
  copyText(s->font.fontName, name, kFontNameLength);
}
