// Beginning and end of a run: QUIINI and QUIFIN.
#include <cstdio>

#include "core/horizon.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/device_table.h"
#include "device/screen.h"
#include "device/sink.h"
#include "graph3d/facets.h"
#include "quilla/quilla.h"
#include "run/default_settings.h"

using namespace quilla;

namespace {

constexpr int kDefaultDevice = 201;
constexpr int kFirstFileDevice = 101;
constexpr int kIndexedDepth = 8; // bits of a pixel
constexpr int kMemoryRaster = 603, kPdf = 511;
constexpr int kPdfToMemory = 2; // bit of pdfMode

// On paper the default screen mode is white.
int resolvedBackground(const PlotState* s) {
  int wanted = s->colorSetup.screenModeWanted;
  if (wanted != kBackgroundAuto) return wanted;
  switch (s->deviceSetup.deviceNumber) {
  case 511:
  case 503:
  case 504:
  case 801:
  case 802:
  case 231: return kBackgroundReverse;
  default: return kBackgroundErase;
  }
}

// The plot file gets its name and is opened before another thread may look for a name.
bool openDevice(PlotState* s) {
  ProcessLock lock;
  return sinkOpen(s);
}

int protocolLayout(const PlotState* s) {
  int device = s->deviceSetup.deviceNumber;
  bool inMemory = device == kPdf && (s->deviceSetup.pdfMode & kPdfToMemory) != 0;
  bool toFile = device >= kFirstFileDevice && device != kMemoryRaster && !inMemory;
  return (toFile ? 1 : 0) + (s->streams.errorFileOpen ? 10 : 0);
}

void closeErrorFile(PlotState* s) {
  if (!s->streams.errorFileOpen) return;
  std::fclose(s->streams.errorFileStream);
  s->streams.errorFileStream = s->streams.messageStream = nullptr;
  s->streams.errorFileOpen = false;
  if (s->message.messageUnit == kUnitFile) s->message.messageUnit = kUnitConsole;
}

void endProtocol(PlotState* s) {
  const bool boxed = s->windowSetup.windowsApplication;
  bool wanted = s->message.messageUnit != kUnitNone && s->message.protocolMode != kProtocolOff;
  bool printed = false;
  if (boxed || s->messageSetup.errorDevice != kErrorConsole) {
    if (wanted && s->message.protocolMode == kProtocolFile) {
      openErrorFile(s);
      printProtocol(s, protocolLayout(s));
      printed = true;
    }
    int layout = protocolLayout(s);
    closeErrorFile(s);
    if (!wanted || printed) return;
    return boxed ? showProtocol(s, layout) : printProtocol(s, layout);
  }
  if (wanted) printProtocol(s, protocolLayout(s));
}

} // namespace

void QUIINI(void) {
  PlotState* s = strictCheck(0, 0, "quiini");
  if (!s) return;
  s->level.plotLevel = kLevelPlot;
  s->counters = CounterGroup{};
  if (s->deviceSetup.deviceNumber == 0) {
    s->deviceSetup.deviceNumber = kDefaultDevice;
    copyText(s->deviceSetup.deviceKeyword, "PLTM", 4);
  }
  s->colorState.backgroundMode = resolvedBackground(s);
  startPage(s);
  s->device = DeviceGroup{.postScript = s->device.postScript, .pdf = s->device.pdf, .ply = s->device.ply};
  s->path = PathState{};
  s->dash = DashState{};
  if (!openDevice(s)) {
    s->level.plotLevel = kLevelNone;
    return;
  }
  if (s->messageSetup.errorDevice == kErrorConsole && !s->windowSetup.windowsApplication)
    s->streams.errorFileStream = nullptr;
  applyDefaultSettings(s);
  ColorSetup& c = s->colorSetup;
  if (c.lastBackground == -1) {
    c.lastBackground = s->colorState.backgroundMode;
  } else if (s->deviceSetup.deviceNumber < kFirstFileDevice && s->device.colourDepth > kIndexedDepth &&
             c.lastBackground != s->colorState.backgroundMode) {
    sinkErase(s); // the window of an earlier plot stands in the other colours
  }
}

void QUIFIN(void) {
  PlotState* s = strictCheck(1, 3, "quifin");
  if (!s) return;
  flushPath(s);
  if (s->depthState.list) endDepthList(s);
  if (s->depthState.bufferOn) endDepthBuffer(s);
  horizonFree(s);
  sinkClose(s);
  s->level.plotLevel = kLevelNone;
  s->counters.runFinished = 1;
  endProtocol(s);
  releaseScreen(s);
}

int GETLEV(void) {
  PlotState* s = strictCheck(0, 3, "getlev");
  return s ? s->level.plotLevel : 0;
}

double GETVER(void) { return 11.5; }

void DELGLB(void) {
  if (strictCheck(0, 0, "delglb")) freePlotState();
}

void INCQSL(const char*) {
  PlotState* s = strictCheck(0, 3, "incqsl");
  if (s) warnWithText(s, 161, "Scripts are run by QSLRUN only");
}

int GETDFL(void) {
  PlotState* s = strictCheck(1, 3, "getdfl");
  if (!s) return 0;
  const int device = s->deviceSetup.deviceNumber;
  return device >= kDevicePltm && device != kDeviceVirtual ? 1 : 0;
}

int GETPLV(void) { return 2; }
