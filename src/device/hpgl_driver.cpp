// HPGL: pen commands of plotters.
#include "device/plain_drivers.h"
#include "device/sink.h"
#include "device/writers.h"

namespace quilla {

void hpglHeader(PlotState* s) {
  if (s->deviceSetup.hpglAris) putText(s->device.plotOutput, "IN;SP1;LT;PU;\n");
  putText(s->device.plotOutput, " SP1;\n");
}

void hpglTrailer(PlotState* s) { qqsbuf(s, "PU0,0;", 6); }

void hpglPen(PlotState* s, float x, float y, int code) {
  char command[2 * kFixedTextSize + 4];
  char* p = command;
  *p++ = 'P';
  *p++ = code == kPenDraw ? 'D' : 'U';
  p = putInteger(p, deviceRound(x));
  *p++ = ',';
  p = putInteger(p, deviceRound(y));
  *p++ = ';';
  qqsbuf(s, command, static_cast<int>(p - command));
}

void hpglColor(PlotState* s, int index) {
  char command[kFixedTextSize + 3] = "SP";
  char* p = putInteger(command + 2, index);
  *p++ = ';';
  qqsbuf(s, command, static_cast<int>(p - command));
}

} // namespace quilla
