#include "script/interpreter.h"

#include <cstdlib>
#include <cstring>

#include "script/data_file.h"
#include "script/file_functions.h"
#include "script/operand_stack.h"
#include "script/statement_reader.h"
#include "script/variables.h"

namespace qsl {

constinit Interpreter interp = {};

void reset_interpreter() {
  clear_stack(0);
  for (int i = 0; i < kVariables; ++i) free_variable(i);
  free_saved_statements(0);
  for (RoutineFrame& frame : interp.control.frames) {
    for (int i = 0; i < frame.waiting_count; ++i) free_statement(frame.waiting[i]);
    std::free(frame.waiting);
  }
  close_data_file();
  close_script_files();
  std::memset(static_cast<void*>(&interp), 0, sizeof interp);
  interp.data.block = 1;
  interp.functions.random = 1;
}

} // namespace qsl
