#include "core/messages.h"

#include <atomic>
#include <cstring>
#include <string_view>

#include "core/file_version.h"
#include "core/levels.h"

namespace quilla {

namespace {

constexpr int kReportLength = 132; // characters of a report, the line feed included
constexpr int kLastTableMessage = 58;
constexpr int kLastBlankMessage = 100;

constexpr const char* kMessages[kLastTableMessage + 1] = {
    " ",
    "Negative parameter",
    "Incorrect parameter",
    "Incorrect level",
    "X coordinate out of page",
    "Y coordinate out of page",
    "Same tick number as in a call before",
    "First radius greater than second radius",
    "Start angle greater/equal end angle",
    "Step equal zero",
    "Begin and end of scaling are equal",
    "Axis length < 2",
    "Startlabel out of scaling",
    "Linear scaling must be used",
    "Linear interpolation must be used",
    "No call to legini before",
    "Too long string for legend line",
    "Not enough store for the legend buffer",
    "Incorrect character after the eushft operator",
    "The basealphabet cannot be used",
    "No metafile",
    "The routine must be called after quifin",
    "The metafile is deleted before",
    "Non positive minimum for log scaling (set to 0.1)",
    "Non positive maximum for log scaling (set to 1.0)",
    "Minimum equal maximum (added -1 and +1)",
    "Too many intersections",
    "Non positive values for log scaling",
    "Number of bars unequal number of main ticks",
    "Sum of data is zero",
    "Incorrect number of points",
    "Incorrect number of points for spline interpolation",
    "No increasing x coordinates for spline interpolation",
    "Incorrect viewpoint",
    "No call to grfini before",
    "Confusion of graf3d and graf3",
    "File error",
    "Incorrect filename",
    "Singular matrix",
    "Too many pages for CGM file (max. length 327 cm)",
    "File format and output device are incompatible",
    "Incorrect device for HPGL file",
    "More legend lines than calls to curve",
    "Instruction code: incorrect parameter",
    "Instruction code: incorrect tabulator index",
    "Instruction code: no integer value",
    "Instruction code: unknown command",
    "Blanking buffer overflow",
    "No call to psfont",
    "Fileformat is not PostScript",
    "Incorrect sign for step",
    "Non positive parameter",
    "Hiddenline overflow",
    "Not enough memory",
    "No call to imgfin",
    "No call to imgini",
    "Incorrect file format",
    "Control characters must be different",
    "Array is out of screen",
};

std::atomic<int> processWarnings{0};

// A line of limited length; what goes beyond is cut.
struct Report {
  char text[kReportLength + 1];
  int length = 0;

  void add(const char* piece) {
    for (; *piece && length < kReportLength - 1; piece++) text[length++] = *piece;
  }
  void addNumber(int value) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%d", value);
    add(digits);
  }
  void end() {
    text[length++] = '\n';
    text[length] = 0;
  }
};

bool countReport(PlotState* s) {
  s->counters.warningCount++;
  processWarnings.fetch_add(1, std::memory_order_relaxed);
  return s->message.messageUnit != kUnitNone && s->message.warningsOn;
}

void begin(PlotState* s, Report& r, int number, const char* text) {
  r.add(" <<<< Warning ");
  r.addNumber(number);
  r.add(": ");
  r.add(text);
  r.add(" in ");
  r.add(s->level.routineName);
}

void print(PlotState* s, Report& r) {
  r.end();
  openErrorFile(s);
  std::FILE* stream = s->streams.messageStream ? s->streams.messageStream : stdout;
  std::fputs(r.text, stream);
}

const char* messageText(const PlotState* s, int number) {
  if (number > kLastBlankMessage) return s->streams.customMessage;
  return kMessages[number >= 0 && number <= kLastTableMessage ? number : 0];
}

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

} // namespace

int totalWarnings() { return processWarnings.load(std::memory_order_relaxed); }

void warnWithString(PlotState* s, int number, const char* text) {
  if (!countReport(s)) return;
  Report r;
  begin(s, r, number, messageText(s, number));
  r.add("!   (");
  r.add(text ? text : "");
  r.add(")");
  print(s, r);
}

void warnWithNumber(PlotState* s, int number, int value) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "%d", value);
  warnWithString(s, number, digits);
}

void warnWithText(PlotState* s, int number, const char* text) {
  Report r;
  if (number < 0) {
    if (s->message.messageUnit == kUnitNone) return;
    r.add(" <<<< ");
    r.add(text);
    r.add(" in ");
    r.add(s->level.routineName);
  } else {
    if (!countReport(s)) return;
    begin(s, r, number, text);
  }
  r.add("!");
  print(s, r);
}

void warnPlain(PlotState* s, int number) { warnWithText(s, number, messageText(s, number)); }

void setCustomMessage(PlotState* s, const char* text) {
  copyText(s->streams.customMessage, text, kCustomMessageLength);
}

void copyText(char* target, const char* source, int limit) {
  int n = 0;
  for (; source && source[n] && n < limit; n++) target[n] = source[n];
  target[n] = 0;
}

void keyOf(const char* text, char key[5]) {
  int n = 0;
  for (; text && n < 4 && text[n]; n++) key[n] = upper(text[n]);
  for (; n < 4; n++) key[n] = ' ';
  key[4] = 0;
}

int findKeyword(const char* list, int count, const char* text) {
  char key[5], entry[5];
  keyOf(text, key);
  std::size_t length = std::strlen(list);
  for (int i = 0; i < count; i++) {
    std::size_t start = static_cast<std::size_t>(i) * 5;
    if (start >= length) break;
    keyOf(list + start, entry);
    if (std::memcmp(key, entry, 4) == 0) return i + 1;
  }
  return 0;
}

int matchKeyword(PlotState* s, const char* list, int count, const char* text) {
  int found = findKeyword(list, count, text);
  if (!found) warnWithString(s, 2, text);
  return found;
}

int checkRange(PlotState* s, int value, int low, int high) {
  if (value >= low && (high < low || value <= high)) return 0;
  warnWithNumber(s, 2, value);
  return 1;
}

int checkDate(PlotState* s, int day, int month, int year) {
  constexpr int kDays[12] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  int bad = 0;
  if (year < 1000) {
    bad = year;
  } else if (month < 1 || month > 12) {
    bad = month;
  } else if (day < 1 || day > kDays[month - 1] || (month == 2 && day == 29 && !leap)) {
    bad = day;
  } else {
    return 0;
  }
  warnWithNumber(s, 2, bad);
  return 1;
}

void openErrorFile(PlotState* s) {
  constexpr std::string_view kNullDevice = "/dev/null";
  MessageSetup& setup = s->messageSetup;
  MessageStreams& streams = s->streams;
  if ((setup.errorDevice == kErrorConsole && !s->windowSetup.windowsApplication) || streams.errorFileOpen) return;
  ProcessLock lock;
  if (!setup.errorFileNameGiven) copyText(setup.errorFileName, "quilla.err", kFileNameLength);
  bool nullDevice = std::string_view(setup.errorFileName).substr(0, kNullDevice.size()) == kNullDevice;
  if (!nullDevice && setup.errorDevice == kErrorFile && versionFileName(s, setup.errorFileName) != kVersionFine) return;
  std::FILE* file = std::fopen(setup.errorFileName, setup.errorDevice == kErrorAppend ? "a" : "w");
  if (!file) return;
  streams.errorFileStream = streams.messageStream = file;
  streams.errorFileOpen = true;
}

} // namespace quilla
