// Pen, fills, colours and characters: each operation branches on the family of the device.
#include "device/sink.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/messages.h"
#include "device/device_table.h"
#include "device/pdf_driver.h"
#include "device/postscript_driver.h"
#include "device/ps_fonts.h"
#include "device/sheet.h"
#include "device/trace.h"
#include "device/writers.h"

namespace quilla {

void qqpen(PlotState* s, float x, float y, int code) {
  if (code == kPenDraw) ++s->counters.vectorCount;
  if (s->device.trace) {
    const float point[] = {x, y};
    traceReals(s, code == kPenDraw ? "draw" : "move", point, 2);
  }
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (s->device.postScript) {
      const DevicePoint p = pointOnSheet(s, x, y);
      psPolyline(s, p.x, p.y, code);
    }
    break;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) {
      const DevicePoint p = pointOnSheet(s, x, y);
      pdfPen(*pdf, p.x, p.y, code);
    }
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  }
}

namespace {

constexpr int kPointsOnStack = 256;
constexpr int kNoMemory = 53;

// Hands the polygon's points on the sheet to a driver.
template <typename Fill> void fillOnSheet(PlotState* s, const float* xs, const float* ys, int n, Fill fill) {
  float few[2 * kPointsOnStack];
  float* many = nullptr;
  if (n > kPointsOnStack) {
    many = static_cast<float*>(std::malloc(2 * sizeof(float) * static_cast<std::size_t>(n)));
    if (!many) return warnPlain(s, kNoMemory);
  }
  float* points = many ? many : few;
  for (int i = 0; i < n; ++i) {
    const DevicePoint p = pointOnSheet(s, xs[i], ys[i]);
    points[i] = p.x;
    points[n + i] = p.y;
  }
  fill(points, points + n);
  std::free(many);
}

} // namespace

bool qqfill(PlotState* s, const float* xs, const float* ys, int n) {
  if (!s->line.hardwareShading || n < 1) return false;
  if (s->device.trace) traceFill(s, xs, ys, n);
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (!s->device.postScript) break;
    fillOnSheet(s, xs, ys, n, [s, n](const float* x, const float* y) { psFill(s, x, y, n); });
    return true;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) {
      fillOnSheet(s, xs, ys, n, [pdf, n](const float* x, const float* y) { pdfFill(*pdf, x, y, n); });
      return true;
    }
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  }
  return false;
}

bool qqbar(PlotState* s, float x1, float y1, float x2, float y2, int color) {
  const auto originX = static_cast<float>(s->page.originX), originY = static_cast<float>(s->page.originY);
  if (s->device.trace) traceBar(s, x1 + originX, y1 + originY, x2 + originX, y2 + originY, color);
  const DevicePoint a = pointOnSheet(s, x1 + originX, y1 + originY);
  const DevicePoint b = pointOnSheet(s, x2 + originX, y2 + originY);
  int red, green, blue;
  colorComponents(s, color, red, green, blue);
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (!s->device.postScript) break;
    psRectangle(s, a.x, a.y, b.x, b.y, red, green, blue);
    return true;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) {
      pdfRectangle(*pdf, std::min(a.x, b.x), std::min(a.y, b.y), std::fabs(b.x - a.x), std::fabs(b.y - a.y), red, green,
                   blue);
      return true;
    }
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  }
  return false;
}

void colorComponents(const PlotState* s, int color, int& r, int& g, int& b) {
  if ((color & 0xFF000000) == kDirectColor) {
    r = color & 255;
    g = color >> 8 & 255;
    b = color >> 16 & 255;
  } else {
    const int entry = s->color.colorTable[color & (kColorTableSize - 1)];
    r = entry >> 16 & 255;
    g = entry >> 8 & 255;
    b = entry & 255;
  }
}

int indexOfRgb(const PlotState* s, int r, int g, int b) {
  // The small tables have their kind plus nine entries.
  constexpr int kSmallTableBase = 9;
  const int kind = s->color.tableKind;
  const int count = kind == kTableSmall || kind == kTableVga ? kind + kSmallTableBase : kColorTableSize;
  int best = 0, bestDistance = std::numeric_limits<int>::max();
  for (int i = 0; i < count && bestDistance > 0; ++i) {
    const int entry = s->color.colorTable[i];
    const int distance =
        std::abs((entry >> 16 & 255) - r) + std::abs((entry >> 8 & 255) - g) + std::abs((entry & 255) - b);
    if (distance < bestDistance) {
      best = i;
      bestDistance = distance;
    }
  }
  return best;
}

void qqcolor(PlotState* s, int color) {
  if (s->device.trace) traceColor(s, "color", color);
  int red, green, blue;
  colorComponents(s, color, red, green, blue);
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (s->device.postScript) psColor(s, red, green, blue);
    break;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) pdfColor(*pdf, red, green, blue);
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  }
}

// No device without a table of its own has anything to do: it asks for components when a colour is set.
void sinkColorTable(PlotState* s, int first, int last) {
  if (s->device.trace) {
    const float range[] = {static_cast<float>(first), static_cast<float>(last)};
    traceReals(s, "table", range, 2);
  }
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
  case DeviceFamily::kPdf:
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  }
}

namespace {

// Half of what a cell of fixed width has more than its character.
float cellMargin(const PlotState* s, const DriverGlyph& glyph) {
  constexpr float kPointsOfUnit = 0.28346458F / 40.0F; // a width unit at a cap height of the text height, in 1/1000 em
  constexpr float kGrain = 0.01F;                      // below it the widths are equal
  const int code = std::clamp(glyph.code, static_cast<int>(' '), ' ' + kCharWidthCount - 1);
  const float own = static_cast<float>(s->font.charWidths[code - ' ']) * kPointsOfUnit *
                    static_cast<float>(s->text.textHeight) * (1000.0F / static_cast<float>(s->font.fontCapHeight)) *
                    s->text.charWidthFactor;
  const float margin = 0.5F * (glyph.advance - own);
  return std::fabs(margin) < kGrain ? 0.0F : margin;
}

// The point a distance along the baseline from the glyph's left end, on the sheet.
DevicePoint alongBaseline(const PlotState* s, const DriverGlyph& glyph, float distance) {
  const float radians = static_cast<float>(glyph.angle) * kDegToRad;
  return pointOnSheet(s, glyph.x + distance * std::cos(radians), glyph.y - distance * std::sin(radians));
}

} // namespace

void qqglyph(PlotState* s, const DriverGlyph& glyph) {
  if (s->device.trace) traceGlyph(s, glyph);
  const int turned = pageAcrossSheet(s) ? glyph.angle + 90 : glyph.angle;
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (s->device.postScript) {
      const DevicePoint p = alongBaseline(s, glyph, 0.5F * glyph.advance);
      psGlyph(s, glyph.code, p.x, p.y, turned);
    }
    break;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) {
      const DevicePoint p = alongBaseline(s, glyph, cellMargin(s, glyph));
      pdfGlyph(*pdf, glyph.code, p.x, p.y, turned);
    }
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  }
}

namespace {

// Tenths of a point at which capitals are as high as the text.
int pdfFontSize(const PlotState* s) {
  return deviceRound(static_cast<float>(s->text.textHeight) * s->device.deviceScale * 10.0F *
                     (1000.0F / static_cast<float>(s->font.fontCapHeight)));
}

} // namespace

void sinkFont(PlotState* s, bool recode) {
  if (s->device.trace) traceFont(s);
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (s->device.postScript) psFont(s, recode);
    break;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) {
      pdfSelectFont(*pdf, s->font.psFontIndex, pdfFontSize(s), static_cast<int>(s->text.charWidthFactor * 100.0F));
    }
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  }
}

bool sinkHasFonts(const PlotState* s) {
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
  case DeviceFamily::kPdf:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: return true;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava: break;
  }
  return false;
}

} // namespace quilla
