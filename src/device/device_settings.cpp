// The public routines that choose the output format, the plot file and the screen mode.
#include "core/levels.h"
#include "core/messages.h"
#include "device/device_table.h"
#include "platform/window_system.h"
#include "quilla/quilla.h"

namespace quilla {
namespace {

constexpr int kBadParameter = 2, kNoOpenGl = 181;

bool isNumberedWindow(const char* key) {
  return key[0] == 'M' && key[1] == 'E' && key[2] == 'T' && key[3] >= '1' && key[3] <= '9';
}

} // namespace
} // namespace quilla

using namespace quilla;

void METAFL(const char* format) {
  PlotState* s = strictCheck(0, 0, "metafl");
  if (!s) return;
  char key[5];
  keyOf(format, key);
  int number = isNumberedWindow(key) ? static_cast<int>(kDeviceWindow) : deviceOfKeyword(key);
  if (number == 0) {
    warnWithString(s, kBadParameter, format);
    return;
  }
  if (number == kDeviceConsole) number = kDeviceWindow;
  if (number == kDeviceOpenGl) {
    // There is no window layer with OpenGL.
    warnWithText(s, kNoOpenGl, "OPENGL is not supported");
    number = kDeviceWindow;
  }
  s->deviceSetup.deviceNumber = number;
  s->deviceSetup.deviceChosen = true;
  copyText(s->deviceSetup.deviceKeyword, key, 4);
}

void SETFIL(const char* name) {
  PlotState* s = strictCheck(0, 0, "setfil");
  if (!s) return;
  copyText(s->deviceSetup.plotFileName, name, kFileNameLength);
  s->deviceSetup.fileNameState = kFileNameGiven;
}

void FILMOD(const char* mode) {
  PlotState* s = strictCheck(0, 3, "filmod");
  if (!s) return;
  if (const int found = matchKeyword(s, "COUN+DELE+BREA+VERS", 4, mode)) s->deviceSetup.fileMode = found - 1;
}

void FILOPT(const char* value, const char* key) {
  PlotState* s = strictCheck(0, 3, "filopt");
  if (!s) return;
  DeviceSetup& setup = s->deviceSetup;
  switch (matchKeyword(s, "SEPA+NUMB+DIGI+SCAL", 4, key)) {
  case 1:
    if (const int found = matchKeyword(s, "UNDE+HYPH+NONE", 3, value)) setup.versionSeparator = found - 1;
    break;
  case 2:
    if (const int found = matchKeyword(s, "SHOR+LONG", 2, value)) setup.versionStyle = found - 1;
    break;
  case 3:
    if (const int found = matchKeyword(s, "2   +3   +4   +5   +6   ", 5, value)) setup.versionDigits = found + 1;
    break;
  case 4:
    // "ON" is another word for "PAGE".
    if (const int found = matchKeyword(s, "OFF +PAGE+VIEW+ON  ", 4, value))
      setup.includeScaling = found == 4 ? 1 : found - 1;
    break;
  default: break;
  }
}

void SCRMOD(const char* mode) {
  PlotState* s = strictCheck(0, 0, "scrmod");
  if (!s) return;
  const int found = matchKeyword(s, "ERAS+NOER+REVE+NORE+AUTO", 5, mode);
  if (found == 0) return;
  constexpr int kNoReverse = 4;
  s->colorSetup.screenModeWanted = found == kNoReverse ? static_cast<int>(kBackgroundErase) : found - 1;
}

void BUFMOD(const char* value, const char* key) {
  PlotState* s = setterCheck("bufmod");
  if (!s) return;
  const int found = matchKeyword(s, "OFF +ON  ", 2, value);
  if (found && matchKeyword(s, "SEND", 1, key)) s->device.sendAfterPicture = found == 2;
}

const char* GETFIL(void) {
  PlotState* s = strictCheck(1, 3, "getfil");
  return s ? s->deviceSetup.plotFileName : "";
}

const char* GETMFL(void) {
  PlotState* s = strictCheck(1, 3, "getmfl");
  return s ? s->deviceSetup.deviceKeyword : "";
}

const char* GETDSP(void) { return windowSystem() ? "XWIN" : "NONE"; }
