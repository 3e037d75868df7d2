// The protocol at the end of a run: a frame of lines for a console, a text for a message box.
#include <cstdio>
#include <cstring>

#include "core/clock.h"
#include "core/levels.h"
#include "core/messages.h"

namespace quilla {

namespace {

constexpr double kVersion = 11.5;
constexpr int kPatch = 2;
constexpr int kShownNameLength = 48;
constexpr int kRuleLength = 69;
constexpr int kErrorFileOpen = 10; // of the mode; the rest of it is 1 with a plot file

struct Facts {
  char date[11], time[9], patch[4];
};

Facts collectFacts() {
  Facts f{};
  ClockReading now = readClock();
  formatDate(now, f.date);
  formatTime(now, f.time);
  std::snprintf(f.patch, sizeof f.patch, kPatch != 0 ? ".%-2d" : "   ", kPatch);
  return f;
}

void printFrameLine(std::FILE* out, const char* label, const char* name) {
  char line[80];
  std::snprintf(line, sizeof line, "%s%.*s", label, kShownNameLength, name);
  std::fprintf(out, "\n <<  %-58s  <<", line);
}

// Text of limited length; what goes beyond is cut.
struct BoxText {
  char text[1024];
  std::size_t length = 0;

  template <typename... Values> void add(const char* format, Values... values) {
    int n = std::snprintf(text + length, sizeof text - length, format, values...);
    length += n > 0 ? static_cast<std::size_t>(n) : 0;
    if (length >= sizeof text) length = sizeof text - 1;
  }
};

} // namespace

void printProtocol(PlotState* s, int mode) {
  ProcessLock lock;
  const Facts facts = collectFacts();
  std::FILE* out = s->streams.messageStream ? s->streams.messageStream : stdout;
  char rule[kRuleLength + 1], vectors[16], warnings[16], nans[16];
  std::memset(rule, '<', kRuleLength);
  rule[kRuleLength] = 0;
  std::snprintf(vectors, sizeof vectors, "%d", s->counters.vectorCount);
  std::snprintf(warnings, sizeof warnings, "%d", s->counters.warningCount);
  std::snprintf(nans, sizeof nans, "%d", s->counters.nanCount);
  std::fprintf(out, "\n %s", rule);
  std::fprintf(out, "\n <<                END OF QUILLA / VERSION %4.1f%s               <<", kVersion, facts.patch);
  std::fprintf(out, "\n <<  Date    : %10s  Time    : %8s  Pageformat: %4s  <<", facts.date, facts.time,
               s->pageSetup.pageFormatName);
  std::fprintf(out, "\n <<  Vectors : %-10s  Warnings: %-8s  Fileformat: %4s  <<", vectors, warnings,
               s->deviceSetup.deviceKeyword);
  if (s->counters.nanCount != 0) std::fprintf(out, "\n <<  NaN     : %-48s  <<", nans);
  if (mode != kErrorFileOpen) printFrameLine(out, "Metafile: ", mode != 0 ? s->deviceSetup.plotFileName : "");
  if (mode >= kErrorFileOpen) printFrameLine(out, "Err-file: ", s->messageSetup.errorFileName);
  std::fprintf(out, "\n %s\n\n", rule);
}

void showProtocol(PlotState* s, int mode) {
  const Facts facts = collectFacts();
  BoxText box;
  box.add("           END OF QUILLA / VERSION %4.1f%s", kVersion, facts.patch);
  box.add("\n Date          : %s", facts.date);
  box.add("\n Time          : %s", facts.time);
  box.add("\n Pageformat: %s", s->pageSetup.pageFormatName);
  box.add("\n Vectors      : %d", s->counters.vectorCount);
  if (s->counters.nanCount != 0) box.add("\n NaN          : %d", s->counters.nanCount);
  box.add("\n Warnings  : %d", s->counters.warningCount);
  box.add("\n Fileformat  : %s", s->deviceSetup.deviceKeyword);
  if (mode % kErrorFileOpen == 1) box.add("\n Metafile     : %.*s", kShownNameLength, s->deviceSetup.plotFileName);
  if (mode >= kErrorFileOpen) box.add("\n Error file    : %s", s->messageSetup.errorFileName);
  ProcessLock lock;
  if (s->windowSetup.messageBox) return s->windowSetup.messageBox("quifin", box.text);
  std::fprintf(s->streams.messageStream ? s->streams.messageStream : stdout, "%s\n", box.text);
}

} // namespace quilla
