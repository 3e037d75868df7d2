// Characters of driver fonts.
#include <algorithm>
#include <cmath>

#include "device/device_point.h"
#include "device/ipe_driver.h"
#include "device/pdf_driver.h"
#include "device/postscript_driver.h"
#include "device/ps_fonts.h"
#include "device/sink.h"
#include "device/svg_driver.h"
#include "device/trace.h"
#include "device/writers.h"

namespace quilla {

namespace {

constexpr int kFullTurn = 360; // degrees

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

// The point a distance along the baseline from the glyph's left end, on the device.
DevicePoint alongBaseline(const PlotState* s, const DriverGlyph& glyph, float distance) {
  const float radians = static_cast<float>(glyph.angle) * kDegToRad;
  return devicePoint(s, glyph.x + distance * std::cos(radians), glyph.y - distance * std::sin(radians));
}

} // namespace

void qqglyph(PlotState* s, const DriverGlyph& glyph) {
  if (s->device.trace) traceGlyph(s, glyph);
  const int turned = glyph.angle + deviceTurn(s);
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
  case DeviceFamily::kSvg:
    if (s->device.vector) {
      const DevicePoint p = alongBaseline(s, glyph, cellMargin(s, glyph));
      svgGlyph(s, glyph.code, p.x, p.y, turned % kFullTurn);
    }
    break;
  case DeviceFamily::kIpe:
    if (s->device.vector) {
      const DevicePoint p = alongBaseline(s, glyph, cellMargin(s, glyph));
      ipeGlyph(s, glyph.code, p.x, p.y, (turned % kFullTurn + kFullTurn) % kFullTurn);
    }
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava: break;
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
  case DeviceFamily::kSvg:
    if (s->device.vector) svgFont(s);
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava:
  case DeviceFamily::kIpe: break; // each character of IPE tells its size
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
