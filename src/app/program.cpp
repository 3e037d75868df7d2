// Start, run and end of the program.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "app/command_line.h"
#include "app/line_editor.h"
#include "core/messages.h"
#include "script/data_file.h"
#include "script/interpreter.h"
#include "script/interrupt.h"
#include "script/script_files.h"
#include "script/statements.h"

namespace qsl {
namespace {

constexpr const char* kVersion = "11.5.2"; // also in the version box
constexpr const char* kFrame = "     +--------------------------------------------------------+\n";

constexpr const char* kHelp =
    "Usage: QSLRUN [option ...] [script [argument ...]]\n"
    "\n"
    "Runs a script of the plotting language QSL, or reads statements at a prompt if nothing is given.\n"
    "\n"
    "  -V            show the version at the end of the run\n"
    "  -F=name       open a data file at the start, as DATFIL does\n"
    "  -F            take the script's name as it stands, without the extension .qsl\n"
    "  -I=name       file for the first INCLUDE statement\n"
    "  -D=dev        output device for the QUIINI of the script; also -D dev\n"
    "  -O            accepted, without effect\n"
    "  --strict      end with status 1 if anything was reported\n"
    "  --help        show this text\n"
    "  --version     show the version\n"
    "\n"
    "Environment: QSL_PATH (scripts), QSL_DATA (data files), QUILLA (directory of the library).\n";

int final_status() {
  if (interp.driver.exit_status != 0) return interp.driver.exit_status;
  const bool reported = interp.driver.diagnostics > 0 || quilla::totalWarnings() > 0;
  return interp.driver.strict && reported ? 1 : 0;
}

// Colour is for terminals, unless the user wants none.
bool terminal_shows_colors() {
  const char* terminal = std::getenv("TERM");
  return isatty(STDIN_FILENO) && isatty(STDOUT_FILENO) && !std::getenv("NO_COLOR") && terminal &&
         std::strcmp(terminal, "dumb") != 0;
}

// Input from the keyboard.
void run_prompt() {
  DriverState& d = interp.driver;
  d.interactive_start = true;
  d.interactive_mode = true;
  std::printf("QSLRUN %s, the interpreter of the plotting language QSL\n", kVersion);
  start_source(stdin, "");
  watch_interrupts(true);
  d.color = terminal_shows_colors();
  start_line_editor();
  run_statements();
  end_line_editor();
}

void run_script(CommandLine& line) {
  std::FILE* file = open_script(line.script_name);
  if (!file) return;
  start_source(file, line.script_name);
  watch_interrupts(false);
  run_statements();
  std::fclose(file);
}

} // namespace

void print_version_box() {
  constexpr const char* kBox[] = {"\n",
                                  kFrame,
                                  "     |                  QSL",
                                  "   Version 11.5.2                  |\n",
                                  "     |        Interpreter of the plotting language QSL        |\n",
                                  "     |      with the scientific plotting library QUILLA       |\n",
                                  kFrame,
                                  "\n"};
  for (const char* text : kBox) std::fputs(text, stdout);
}

int run_program(int count, char** arguments) {
  reset_interpreter();
  CommandLine line = read_command_line(count, arguments);
  if (line.show_help) {
    std::fputs(kHelp, stdout);
    return 0;
  }
  if (line.show_version) {
    std::printf("QSLRUN %s\n", kVersion);
    return 0;
  }
  if (line.show_box && !line.script_given) {
    print_version_box();
    return 0;
  }
  if (line.data_file_given && open_data_file(line.data_file_name) != 0) return 1;
  if (line.interactive) {
    run_prompt();
  } else {
    run_script(line);
  }
  if (line.show_box && !interp.driver.ended) print_version_box();
  return final_status();
}

} // namespace qsl
