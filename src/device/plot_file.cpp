#include "device/plot_file.h"

#include <cstring>

#include "core/file_version.h"
#include "core/messages.h"
#include "device/device_table.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr int kFileError = 36;

} // namespace

bool namePlotFile(PlotState* s) {
  DeviceSetup& setup = s->deviceSetup;
  if (setup.fileNameState == kFileNameGiven) {
    copyText(setup.userFileName, setup.plotFileName, kFileNameLength);
    setup.fileNameState = kFileNameReused;
  } else if (setup.fileNameState == kFileNameReused) {
    copyText(setup.plotFileName, setup.userFileName, kFileNameLength);
  } else {
    copyText(setup.plotFileName, "quilla.", kFileNameLength);
    std::strcat(setup.plotFileName, extensionOfDevice(setup.deviceNumber));
  }
  const int number = versionFileName(s, setup.plotFileName);
  if (number != kVersionFine) warnPlain(s, number);
  return number == kVersionFine;
}

bool openPlotFile(PlotState* s) {
  const DeviceFamily family = deviceFamily(s->deviceSetup.deviceNumber);
  const bool binary = family == DeviceFamily::kCgm || family == DeviceFamily::kRaster;
  s->device.lineUsed = 0;
  s->device.plotOutput = openOutput(s->deviceSetup.plotFileName, binary ? "wb" : "w");
  if (!s->device.plotOutput) reportFileError(s);
  return s->device.plotOutput != nullptr;
}

void closePlotFile(PlotState* s) {
  if (!s->device.plotOutput) return;
  if (s->device.lineUsed > 0) {
    if (deviceFamily(s->deviceSetup.deviceNumber) == DeviceFamily::kCgm) {
      // A record of CGM is always full.
      std::memset(s->device.lineBuffer + s->device.lineUsed, ' ',
                  static_cast<std::size_t>(kLineLimit - s->device.lineUsed));
      putBytes(s->device.plotOutput, s->device.lineBuffer, kLineLimit);
    } else {
      s->device.lineBuffer[s->device.lineUsed] = '\n';
      putBytes(s->device.plotOutput, s->device.lineBuffer, s->device.lineUsed + 1);
    }
    s->device.lineUsed = 0;
  }
  const bool written = closeOutput(s->device.plotOutput);
  s->device.plotOutput = nullptr;
  if (!written) reportFileError(s);
}

void reportFileError(PlotState* s) { warnWithString(s, kFileError, s->deviceSetup.plotFileName); }

} // namespace quilla
