// A document from its opening to its end: the scale of the device, pages, erasing, closing.
#include <algorithm>
#include <new>

#include "core/messages.h"
#include "device/device_table.h"
#include "device/pdf_driver.h"
#include "device/plot_file.h"
#include "device/postscript_driver.h"
#include "device/sheet.h"
#include "device/sink.h"
#include "device/trace.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr int kNoMemory = 53, kBadDevice = 161;
constexpr int kIndexedDepth = 8, kTrueColorDepth = 24;

// Sheet units per plot unit: the page fits the sheet, and without SCLMOD keeps its size or shrinks.
float sheetScale(const PlotState* s) {
  const SheetSize sheet = sheetSize(s);
  const auto width = static_cast<float>(std::max(s->geometry.pageWidth, 1));
  const auto height = static_cast<float>(std::max(s->geometry.pageHeight, 1));
  const bool across = pageAcrossSheet(s);
  const float fit = std::min(sheet.width / (across ? height : width), sheet.height / (across ? width : height));
  const float natural = kSheetUnit * s->pageSetup.unitFactor * s->pageSetup.scaleFactor;
  return s->pageSetup.scaleMode == kScaleDown ? std::min(fit, natural) : fit;
}

bool openPostScript(PlotState* s) {
  if (!namePlotFile(s) || !openPlotFile(s)) return false;
  s->device.postScript = new (std::nothrow) PostScriptWriter{};
  if (!s->device.postScript) {
    warnPlain(s, kNoMemory);
    closePlotFile(s);
    return false;
  }
  s->device.deviceScale = sheetScale(s);
  s->device.colourDepth = kTrueColorDepth;
  psHeader(s);
  return true;
}

void closePostScript(PlotState* s) {
  if (!s->device.postScript) return;
  psTrailer(s);
  delete s->device.postScript;
  s->device.postScript = nullptr;
  closePlotFile(s);
}

// Paper is white: the screen colours of a plot that is not reversed need a black page.
void paintPdfPage(PlotState* s, PdfWriter& pdf) {
  if (s->colorState.backgroundMode == kBackgroundReverse) return;
  const DevicePoint a = pointOnSheet(s, 0.0F, static_cast<float>(s->geometry.pageHeight));
  const DevicePoint b = pointOnSheet(s, static_cast<float>(s->geometry.pageWidth), 0.0F);
  pdfRectangle(pdf, std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y), 0, 0, 0);
}

bool openPdf(PlotState* s) {
  const bool toMemory = (s->deviceSetup.pdfMode & kPdfModeMemory) != 0;
  if (!toMemory && !namePlotFile(s)) return false;
  s->device.deviceScale = sheetScale(s) * kPointsPerSheetUnit;
  s->device.colourDepth = kTrueColorDepth;
  const PdfOpenResult result = pdfOpen(s);
  if (result != PdfOpenResult::kFine) {
    pdfFree(s);
    if (result == PdfOpenResult::kNoFile) {
      reportFileError(s);
    } else {
      warnPlain(s, kNoMemory);
    }
    return false;
  }
  paintPdfPage(s, *pdfDocument(s));
  return true;
}

void closePdf(PlotState* s) {
  if (pdfDocument(s) && !pdfClose(s)) reportFileError(s);
}

// For a state that is given up: an open plot stays unfinished.
void freeDrivers(PlotState* s) {
  delete s->device.postScript;
  s->device.postScript = nullptr;
  if (s->device.plotOutput) closeOutput(s->device.plotOutput);
  s->device.plotOutput = nullptr;
  pdfFree(s);
  closeTrace(s);
}

bool openDriver(PlotState* s) {
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript: return openPostScript(s);
  case DeviceFamily::kPdf: return openPdf(s);
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
  warnWithText(s, kBadDevice, "Bad output device");
  return false;
}

} // namespace

bool sinkOpen(PlotState* s) {
  s->device.lineUsed = 0;
  s->device.deviceScale = 1.0F;
  s->device.colourDepth = kIndexedDepth;
  s->device.freeDrivers = freeDrivers;
  openTrace(s);
  if (s->device.trace) traceNumber(s, "open", s->deviceSetup.deviceNumber);
  if (openDriver(s)) return true;
  closeTrace(s);
  s->level.plotLevel = kLevelNone;
  return false;
}

void sinkClose(PlotState* s) {
  if (s->device.trace) traceWord(s, "close");
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript: closePostScript(s); break;
  case DeviceFamily::kPdf: closePdf(s); break;
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
  closeTrace(s);
}

void sinkNewPage(PlotState* s) {
  if (s->device.trace) traceWord(s, "newpage");
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (!s->device.postScript || s->deviceSetup.deviceNumber == kDeviceEps) break; // EPS is a picture of one page
    psNewPage(s);
    qqcolor(s, s->color.currentColor);
    break;
  case DeviceFamily::kPdf:
    if (PdfWriter* pdf = pdfDocument(s)) {
      pdfPen(*pdf, 0.0F, 0.0F, kPdfNewPage);
      paintPdfPage(s, *pdf);
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

// Paper cannot be erased.
void sinkErase(PlotState* s) {
  if (s->device.trace) traceWord(s, "erase");
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

// A PDF page is one deflated stream: nothing of it can be sent before it ends.
void sinkFlush(PlotState* s) {
  if (s->device.trace) traceWord(s, "flush");
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
    if (s->device.plotOutput) flushOutput(s->device.plotOutput);
    break;
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

} // namespace quilla
