// The word writer of text formats and the block writer of records.
#include <cstring>

#include "core/messages.h"
#include "device/device_table.h"
#include "device/writers.h"

namespace quilla {
namespace {

constexpr int kBlockOverflow = 176;

void writeLine(DeviceGroup& device) {
  device.lineBuffer[device.lineUsed] = '\n';
  putBytes(device.plotOutput, device.lineBuffer, device.lineUsed + 1);
  device.lineUsed = 0;
}

} // namespace

void putWord(DeviceGroup& device, const char* word, int length) {
  if (device.lineUsed + length > kLineLimit) {
    writeLine(device);
    if (length > kLineLimit) {
      // Longer than any line: it gets one of its own, uncut.
      putBytes(device.plotOutput, word, length);
      putBytes(device.plotOutput, "\n", 1);
      return;
    }
  }
  std::memcpy(device.lineBuffer + device.lineUsed, word, static_cast<std::size_t>(length));
  device.lineUsed += length;
}

void qqtbuf(PlotState* s, const char* text, int count) {
  if (count < 0) {
    writeLine(s->device);
    return;
  }
  int start = 0;
  while (start < count) {
    const void* blank = std::memchr(text + start, ' ', static_cast<std::size_t>(count - start));
    const int end = blank ? static_cast<int>(static_cast<const char*>(blank) - text) + 1 : count;
    const bool loneBlank = end - start < 2 && end < count;
    if (!loneBlank) putWord(s->device, text + start, end - start);
    start = end;
  }
}

void qqsbuf(PlotState* s, const char* bytes, int count) {
  DeviceGroup& device = s->device;
  if (s->deviceSetup.deviceNumber == kDeviceCgm) {
    while (device.lineUsed + count > kLineLimit) {
      const int part = kLineLimit - device.lineUsed;
      std::memcpy(device.lineBuffer + device.lineUsed, bytes, static_cast<std::size_t>(part));
      putBytes(device.plotOutput, device.lineBuffer, kLineLimit);
      device.lineUsed = 0;
      bytes += part;
      count -= part;
    }
  } else if (device.lineUsed + count > kLineLimit) {
    writeLine(device);
  }
  if (device.lineUsed + count > kLineLimit) {
    warnWithText(s, kBlockOverflow, "Internal overflow in qqsbuf");
    return;
  }
  std::memcpy(device.lineBuffer + device.lineUsed, bytes, static_cast<std::size_t>(count));
  device.lineUsed += count;
}

} // namespace quilla
