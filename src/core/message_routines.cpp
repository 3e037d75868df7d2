// Public routines of messages.
#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

void ERRDEV(const char* device) {
  PlotState* s = strictCheck(0, 0, "errdev");
  if (!s) return;
  if (int found = matchKeyword(s, "CONS+FILE+APPE", 3, device)) s->messageSetup.errorDevice = found - 1;
}

void ERRFIL(const char* name) {
  PlotState* s = strictCheck(0, 0, "errfil");
  if (!s) return;
  copyText(s->messageSetup.errorFileName, name, kFileNameLength);
  s->messageSetup.errorFileNameGiven = true;
}

void ERRMOD(const char* key, const char* mode) {
  constexpr int kWarnings = 1, kCheck = 2, kProtocol = 3, kAll = 4;
  PlotState* s = setterCheck("errmod");
  if (!s) return;
  int found = matchKeyword(s, "WARN+CHEC+PROT+ALL ", 4, key);
  if (!found) return;
  int value = matchKeyword(s, "OFF +ON  +FILE", found == kProtocol ? 3 : 2, mode);
  if (!value) return;
  if (found == kWarnings || found == kAll) s->message.warningsOn = value == 2;
  if (found == kCheck || found == kAll) s->message.dataCheckOn = value == 2;
  if (found == kProtocol || found == kAll) s->message.protocolMode = value - 1;
}

void NOCHEK(void) {
  if (PlotState* s = setterCheck("nochek")) s->message.dataCheckOn = false;
}

FILE* GETUNI(void) {
  PlotState* s = strictCheck(1, 3, "getuni");
  if (!s || s->message.messageUnit == kUnitNone) return nullptr;
  return s->streams.messageStream ? s->streams.messageStream : stdout;
}

void UNIT(FILE* stream) {
  PlotState* s = setterCheck("unit");
  if (!s) return;
  s->message.messageUnit = stream ? kUnitStream : kUnitNone;
  s->streams.messageStream = stream == stdout ? nullptr : stream;
}
