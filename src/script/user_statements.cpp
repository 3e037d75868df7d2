#include "script/user_statements.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "core/clock.h"
#include "core/file_version.h"
#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"
#include "script/data_file.h"
#include "script/evaluator.h"
#include "script/file_functions.h"
#include "script/report.h"
#include "script/script_files.h"

namespace qsl {
namespace {

constexpr const char* kMenu = "\n                   QSL Online Help\n \n"
                              "           1: QUILLA Manual\n"
                              "           2: QSL Manual\n"
                              "           3: Alphabetical List of QUILLA Routines\n"
                              "           4: Alphabetical List of QSL Routines\n"
                              "           5: EXIT\n\n"
                              "           Option: ";
constexpr int kMenuExit = 5;
constexpr const char* kHelpCommands[] = {"quiman", "qslman", "quihlp ?", "qslhlp ?"};

void close_log() {
  DriverState& d = interp.driver;
  if (d.log_file) std::fclose(d.log_file);
  d.log_file = nullptr;
  d.log_active = false;
}

// An existing log is treated as an existing plot file is.
void open_log(const char* name) {
  DriverState& d = interp.driver;
  std::snprintf(d.log_file_name, sizeof d.log_file_name, "%s", name);
  close_log();
  if (d.harmless) return;
  quilla::PlotState* state = quilla::plotState();
  if (const int refusal = quilla::versionFileName(state, d.log_file_name); refusal != quilla::kVersionFine)
    return quilla::warnPlain(state, refusal);
  d.log_file = open_file(d.log_file_name, "w");
  if (!d.log_file) return report_error_text("Cannot open file", d.log_file_name);
  d.log_active = true;
  char date[11], time[9];
  const quilla::ClockReading now = quilla::readClock();
  quilla::formatDate(now, date);
  quilla::formatTime(now, time);
  std::fprintf(d.log_file, "%%QSL\n// QSL Log File, %s, %s\n", date, time);
}

} // namespace

int run_processor(const char* command) {
  std::fflush(stdout);
  return interp.driver.harmless ? -1 : std::system(command);
}

void run_command(const char* text) {
  char command[kRecordSize];
  int length = 0;
  for (; *text; ++text)
    if (*text != '\n' && *text != '\r') command[length++] = *text;
  command[length] = 0;
  run_processor(command);
}

void run_help() {
  if (!interp.driver.interactive_mode) return;
  if (std::strncmp(GETDSP(), "XWIN", 4) == 0) return static_cast<void>(run_processor("qslhelp"));
  for (;;) {
    std::fputs(kMenu, stdout);
    std::fflush(stdout);
    char answer[kRecordSize];
    if (!std::fgets(answer, sizeof answer, stdin)) return;
    const long option = std::strtol(answer, nullptr, 10);
    if (option == kMenuExit) return;
    if (option >= 1 && option < kMenuExit) return static_cast<void>(run_processor(kHelpCommands[option - 1]));
    report_error("Not allowed option");
  }
}

void run_logon() {
  if (!interp.driver.interactive_mode) return;
  const int n = evaluate(false);
  if (n == kNothing) return report_error("Missing file parameter in LOGON");
  if (n > 0 && operand(0).type != kFree) {
    if (operand(0).type == kString) {
      open_log(text_of(operand(0)));
    } else {
      report_error("Parameter mismatch in LOGON");
    }
  }
  clear_stack(0);
}

void run_logoff() {
  if (interp.driver.interactive_mode) close_log();
}

void run_exit() {
  close_log();
  close_data_file();
  close_script_files();
  interp.driver.ended = true;
}

} // namespace qsl
