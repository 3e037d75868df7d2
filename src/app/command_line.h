// The command line of QSLRUN.
#pragma once

#include "script/script_limits.h"

namespace qsl {

struct CommandLine {
  bool interactive;  // no argument was given
  bool show_help;    // --help
  bool show_version; // --version
  bool show_box;     // -V
  bool plain_name;   // -F: no extension is added to the script's name
  bool script_given;
  bool data_file_given; // -F=
  char script_name[kFileNameLength + 1];
  char data_file_name[kFileNameLength + 1];
};

// Reads the arguments. Script arguments become the variables %ARGn and %NARGS, -I=, -D and --strict go to the
// interpreter's state.
CommandLine read_command_line(int count, char** arguments);

// Runs the program; its status.
int run_program(int count, char** arguments);

void print_version_box();

} // namespace qsl
