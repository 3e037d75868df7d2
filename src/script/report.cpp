#include "script/report.h"

#include <cstdarg>
#include <cstdio>

#include "script/interpreter.h"
#include "script/interrupt.h"

namespace qsl {
namespace {

// What an interrupted statement meets on its way out is no fault of the script.
bool begin_report() {
  if (interrupted()) return false;
  ++interp.driver.diagnostics;
  return true;
}

int record_shown() { return interp.reader.record_counter + 1; }

const char* file_shown() {
  const ReaderState& r = interp.reader;
  return r.source_count > 0 ? r.sources[r.source_count - 1].name : "";
}

// Where a message goes besides the standard output: the log, at the prompt only.
std::FILE* log_of_messages() {
  const DriverState& d = interp.driver;
  return d.interactive_mode && d.log_active ? d.log_file : nullptr;
}

// Escapes that colour a message at a terminal.
const char* color_on() { return interp.driver.color ? "\033[31m" : ""; }
const char* color_off() { return interp.driver.color ? "\033[0m" : ""; }

} // namespace

void report_error(const char* text) {
  if (!begin_report()) return;
  if (!interp.driver.interactive_mode) {
    std::printf(" >>>> %s in record %d (%s)\n", text, record_shown(), file_shown());
    return;
  }
  std::printf("%s >>>> %s%s\n", color_on(), text, color_off());
  if (std::FILE* log = log_of_messages()) std::fprintf(log, " // >>>> %s\n", text);
}

void report_error_text(const char* text, const char* word) {
  if (!begin_report()) return;
  if (!interp.driver.interactive_mode) {
    std::printf(" >>>> %s %s in record %d (%s)\n", text, word, record_shown(), file_shown());
    return;
  }
  std::printf("%s >>>> %s %s%s\n", color_on(), text, word, color_off());
  if (std::FILE* log = log_of_messages()) std::fprintf(log, " // >>>> %s %s\n", text, word);
}

void report_error_char(const char* text, char character) {
  if (!begin_report()) return;
  if (!interp.driver.interactive_mode) {
    std::printf(" >>>> %s '%c' in record %d (%s)\n", text, character, record_shown(), file_shown());
    return;
  }
  std::printf("%s >>>> %s '%c'%s\n", color_on(), text, character, color_off());
  if (std::FILE* log = log_of_messages()) std::fprintf(log, " // >>>> %s '%c'\n", text, character);
}

void report_file_error(const char* format, ...) {
  if (!begin_report()) return;
  std::va_list arguments;
  va_start(arguments, format);
  std::vprintf(format, arguments);
  va_end(arguments);
}

void report_unavailable(const char* kind, const char* name) {
  char text[kNameLength + 32];
  std::snprintf(text, sizeof text, "%s %s is not available", kind, name);
  report_error(text);
}

} // namespace qsl
