// The state of lines and the clip rectangle.
#include <algorithm>

#include "device/device_point.h"
#include "device/ipe_driver.h"
#include "device/metafile_driver.h"
#include "device/pdf_driver.h"
#include "device/postscript_driver.h"
#include "device/raster_driver.h"
#include "device/sink.h"
#include "device/svg_driver.h"
#include "device/trace.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr float kLeastLineWidth = 5.0F; // sheet units
constexpr float kThinPen = 0.99F;       // PENWID below it may go under the least width

// Width on the sheet of a width in plot units.
float sheetLineWidth(const PlotState* s, float width) {
  if (!s->line.hardwareLines) return kLeastLineWidth;
  const float wanted = kSheetUnit * width * s->pageSetup.unitFactor;
  return wanted < kLeastLineWidth ? kLeastLineWidth : wanted;
}

float sheetPenWidth(const PlotState* s, float width) {
  if (s->line.hardwareLines && width < kThinPen) return width * kLeastLineWidth;
  return sheetLineWidth(s, width);
}

int psMiter(const PlotState* s, float width, float miter) { return deviceRound(sheetLineWidth(s, width) * miter); }

// Device units of a width in plot units, for devices that scale it with the page.
float scaledWidth(const PlotState* s, float width, float least) {
  return s->line.hardwareLines ? std::max(least, width * s->device.deviceScale) : least;
}

// Points of the thinnest line of IPE: 2.5 in 0.1 mm.
float thinIpePen(const PlotState* s) { return s->device.deviceScale / s->pageSetup.unitFactor * 2.5F; }

// Sends a width in plot units, or on the sheet; a sharp join needs its limit again. True if the device draws the width
// itself.
bool sendWidth(PlotState* s, float width, float sheetWidth) {
  const float scaled = sheetWidth * s->pageSetup.scaleFactor;
  const bool sharp = s->line.lineJoin == kJoinSharp;
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (!s->device.postScript) break;
    psLineWidth(s, scaled);
    if (sharp) psMiterLimit(s, psMiter(s, width, s->line.lineMiter));
    return s->line.hardwareLines;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) {
      pdfPen(*pdf, scaled * kPointsPerSheetUnit, 0.0F, kPdfLineWidth);
      if (sharp) pdfPen(*pdf, s->line.lineMiter, 0.0F, kPdfMiterLimit);
      return s->line.hardwareLines;
    }
    break;
  case DeviceFamily::kSvg:
    if (!s->device.vector) break;
    svgLineWidth(s, scaledWidth(s, width, 1.0F));
    return s->line.hardwareLines;
  case DeviceFamily::kIpe:
    if (!s->device.vector) break;
    ipeLineWidth(s, scaledWidth(s, width, thinIpePen(s)));
    return s->line.hardwareLines;
  case DeviceFamily::kMetafile:
    if (!s->device.metafile) break;
    metafilePlotWidth(s, deviceRound(scaledWidth(s, width, 1.0F)));
    return s->line.hardwareLines;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kRaster:
    if (!s->raster.canvas) break;
    rasterWidth(s, width);
    return s->line.hardwareLines;
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kJava: break;
  }
  return false;
}

} // namespace

bool sinkLineWidth(PlotState* s, int width) {
  if (s->device.trace) traceNumber(s, "width", width);
  const auto units = static_cast<float>(width);
  return sendWidth(s, units, sheetLineWidth(s, units));
}

bool sinkPenWidth(PlotState* s, float width) {
  if (s->device.trace) traceReals(s, "width", &width, 1);
  return sendWidth(s, width, sheetPenWidth(s, width));
}

namespace {

// Sends a cap or a join: the operator of PostScript, the code of PDF; rasters take both from the state.
void sendEnds(PlotState* s, int value, void (*postScript)(PlotState*, int), int pdfCode) {
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (s->device.postScript) postScript(s, value);
    break;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) pdfPen(*pdf, static_cast<float>(value), 0.0F, pdfCode);
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kRaster:
    if (s->raster.canvas) rasterEnds(s);
    break;
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  }
}

} // namespace

void sinkLineCap(PlotState* s, int cap) {
  if (s->device.trace) traceNumber(s, "cap", cap);
  sendEnds(s, cap, psLineCap, kPdfLineCap);
}

void sinkLineJoin(PlotState* s, int join) {
  if (s->device.trace) traceNumber(s, "join", join);
  sendEnds(s, join, psLineJoin, kPdfLineJoin);
}

void sinkMiterLimit(PlotState* s, float miter) {
  if (s->device.trace) traceReals(s, "miter", &miter, 1);
  const int setting = s->line.lineWidthSetting;
  const auto width = static_cast<float>(setting < 0 ? -setting : setting);
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (s->device.postScript) psMiterLimit(s, psMiter(s, width, miter));
    break;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) pdfPen(*pdf, miter, 0.0F, kPdfMiterLimit);
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kRaster:
    if (s->raster.canvas) rasterEnds(s);
    break;
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  }
}

void sinkClip(PlotState* s, bool on, float x0, float y0, float x1, float y1) {
  if (s->device.trace) {
    const float box[] = {x0, y0, x1, y1};
    traceReals(s, on ? "clip" : "unclip", box, on ? 4 : 0);
  }
  const DevicePoint a = pointOnSheet(s, x0, y0), b = pointOnSheet(s, x1, y1);
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (s->device.postScript) psClip(s, on, a.x, a.y, b.x, b.y);
    break;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) {
      pdfPen(*pdf, a.x, a.y, kPdfClipCorner1);
      pdfPen(*pdf, b.x, b.y, kPdfClipCorner2);
      pdfPen(*pdf, on ? 0.0F : 1.0F, 0.0F, kPdfClip);
    }
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kRaster:
    if (s->raster.canvas) {
      const DevicePoint c = devicePoint(s, x0, y0), d = devicePoint(s, x1, y1);
      rasterClip(s, on, c.x, c.y, d.x, d.y);
    }
    break;
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  }
}

} // namespace quilla
