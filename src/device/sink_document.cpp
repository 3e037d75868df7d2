// A document from its opening to its end: the file and its driver, pages, erasing, closing.
#include <algorithm>
#include <new>

#include "core/messages.h"
#include "device/cgm_driver.h"
#include "device/device_point.h"
#include "device/ipe_driver.h"
#include "device/metafile_driver.h"
#include "device/page_image.h"
#include "device/pdf_driver.h"
#include "device/plain_drivers.h"
#include "device/plot_file.h"
#include "device/ply_file.h"
#include "device/postscript_driver.h"
#include "device/raster_driver.h"
#include "device/screen.h"
#include "device/sink.h"
#include "device/svg_driver.h"
#include "device/trace.h"
#include "device/vector_path.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr int kNoMemory = 53, kBadDevice = 161;
constexpr int kIndexedDepth = 8, kTrueColorDepth = 24;

bool openPostScript(PlotState* s) {
  if (!namePlotFile(s) || !openPlotFile(s)) return false;
  s->device.postScript = new (std::nothrow) PostScriptWriter{};
  if (!s->device.postScript) {
    warnPlain(s, kNoMemory);
    closePlotFile(s);
    return false;
  }
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

// Opens the plot file and the record of a driver, if it has one.
template <class Writer> bool openWithRecord(PlotState* s, Writer*& record) {
  if (!namePlotFile(s) || !openPlotFile(s)) return false;
  record = new (std::nothrow) Writer{};
  if (record) return true;
  warnPlain(s, kNoMemory);
  closePlotFile(s);
  return false;
}

bool openVector(PlotState* s) {
  if (!openWithRecord(s, s->device.vector)) return false;
  if (s->deviceSetup.deviceNumber == kDeviceIpe) {
    ipeHeader(s);
  } else {
    svgHeader(s);
  }
  return true;
}

void closeVector(PlotState* s) {
  if (!s->device.vector) return;
  if (s->deviceSetup.deviceNumber == kDeviceIpe) {
    ipeTrailer(s);
  } else {
    svgTrailer(s);
  }
  delete s->device.vector;
  s->device.vector = nullptr;
  closePlotFile(s);
}

bool openCgm(PlotState* s) {
  if (!openWithRecord(s, s->device.cgm)) return false;
  cgmHeader(s);
  return true;
}

void closeCgm(PlotState* s) {
  if (!s->device.cgm) return;
  cgmTrailer(s);
  delete s->device.cgm;
  s->device.cgm = nullptr;
  closePlotFile(s);
}

bool openPlain(PlotState* s, void (*header)(PlotState*)) {
  if (!namePlotFile(s) || !openPlotFile(s)) return false;
  header(s);
  return true;
}

void closePlain(PlotState* s, void (*trailer)(PlotState*)) {
  if (!s->device.plotOutput) return;
  trailer(s);
  closePlotFile(s);
}

bool openMetafile(PlotState* s) {
  if (!namePlotFile(s)) return false;
  if (metafileOpen(s)) return true;
  reportFileError(s);
  return false;
}

void closeMetafilePlot(PlotState* s) {
  if (s->device.metafile && !metafileClose(s)) reportFileError(s);
}

// For a state that is given up: an open plot stays unfinished.
void freeDrivers(PlotState* s) {
  delete s->device.postScript;
  s->device.postScript = nullptr;
  delete s->device.vector;
  s->device.vector = nullptr;
  delete s->device.cgm;
  s->device.cgm = nullptr;
  if (s->device.metafile) metafileClose(s);
  if (s->device.plotOutput) closeOutput(s->device.plotOutput);
  s->device.plotOutput = nullptr;
  pdfFree(s);
  freeRaster(s);
  freeScreen(s);
  plyFree(s);
  closeTrace(s);
}

bool openDriver(PlotState* s) {
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript: return openPostScript(s);
  case DeviceFamily::kPdf: return openPdf(s);
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: return openVector(s);
  case DeviceFamily::kHpgl: return openPlain(s, hpglHeader);
  case DeviceFamily::kJava: return openPlain(s, javaHeader);
  case DeviceFamily::kPltm: return openPlain(s, pltmHeader);
  case DeviceFamily::kCgm: return openCgm(s);
  case DeviceFamily::kMetafile: return openMetafile(s);
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl: return openScreen(s);
  case DeviceFamily::kRaster: return openRaster(s);
  }
  warnWithText(s, kBadDevice, "Bad output device");
  return false;
}

bool hasTrueColors(int deviceNumber) {
  switch (deviceFamily(deviceNumber)) {
  case DeviceFamily::kPostScript:
  case DeviceFamily::kPdf:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: return true;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kPltm:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kRaster:
  case DeviceFamily::kJava: break;
  }
  return false;
}

} // namespace

bool sinkOpen(PlotState* s) {
  s->device.lineUsed = 0;
  choosePixels(s);
  s->device.deviceScale = scaleOfDevice(s);
  s->device.colourDepth = hasTrueColors(s->deviceSetup.deviceNumber) ? kTrueColorDepth : kIndexedDepth;
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
  if (plyCollects(s)) plyWrite(s, "quilla.ply", "quilla");
  if (s->raster.imageOpen && holdsPageImages(s)) sinkCloseImage(s); // IMGFIN was forgotten
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript: closePostScript(s); break;
  case DeviceFamily::kPdf: closePdf(s); break;
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: closeVector(s); break;
  case DeviceFamily::kHpgl: closePlain(s, hpglTrailer); break;
  case DeviceFamily::kJava: closePlain(s, javaTrailer); break;
  case DeviceFamily::kPltm:
    qqpen(s, 0.0F, 0.0F, kPenMove);
    closePlain(s, pltmTrailer);
    break;
  case DeviceFamily::kCgm:
    qqpen(s, 0.0F, 0.0F, kPenMove);
    closeCgm(s);
    break;
  case DeviceFamily::kMetafile: closeMetafilePlot(s); break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl: endScreen(s); break;
  case DeviceFamily::kRaster: closeRaster(s); break;
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
  case DeviceFamily::kCgm:
    if (!s->device.cgm) break;
    cgmNewPicture(s);
    qqcolor(s, s->color.currentColor);
    break;
  case DeviceFamily::kIpe:
    if (s->device.vector) ipeNewPage(s);
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl: waitForNextPage(s); [[fallthrough]];
  case DeviceFamily::kRaster:
    if (s->raster.canvas) rasterErase(s);
    break;
  case DeviceFamily::kPltm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg: break;
  }
}

// Paper cannot be erased.
void sinkErase(PlotState* s) {
  if (s->device.trace) traceWord(s, "erase");
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kJava:
    if (s->device.plotOutput) javaErase(s);
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl:
  case DeviceFamily::kRaster:
    if (s->raster.canvas) rasterErase(s);
    break;
  case DeviceFamily::kPostScript:
  case DeviceFamily::kPdf:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kMetafile:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe: break;
  }
}

// A PDF page is one deflated stream: nothing of it can be sent before it ends.
void sinkFlush(PlotState* s) {
  if (s->device.trace) traceWord(s, "flush");
  switch (deviceFamily(s->deviceSetup.deviceNumber)) {
  case DeviceFamily::kPostScript:
  case DeviceFamily::kPltm:
  case DeviceFamily::kCgm:
  case DeviceFamily::kHpgl:
  case DeviceFamily::kJava:
  case DeviceFamily::kSvg:
  case DeviceFamily::kIpe:
    if (s->device.plotOutput) flushOutput(s->device.plotOutput);
    break;
  case DeviceFamily::kMetafile:
    if (s->device.metafile) metafileFlush(*s->device.metafile->file);
    break;
  case DeviceFamily::kWindow:
  case DeviceFamily::kOpenGl: refreshScreen(s); break;
  case DeviceFamily::kRaster:
    if (s->raster.canvas) flushCanvas(*s->raster.canvas);
    break;
  case DeviceFamily::kPdf: break;
  }
}

} // namespace quilla
