#include "script/interpreter.h"

#include <cstring>

#include "script/data_file.h"
#include "script/operand_stack.h"
#include "script/statement_reader.h"
#include "script/variables.h"

namespace qsl {

constinit Interpreter interp = {};

namespace {

constexpr double kAxisLength = 2.0;
constexpr double kView[3] = {4.0, -5.0, 4.0};

} // namespace

void reset_interpreter() {
  clear_stack(0);
  for (int i = 0; i < kVariables; ++i) free_variable(i);
  free_saved_statements(0);
  close_data_file();
  std::memset(static_cast<void*>(&interp), 0, sizeof interp);
  interp.data.block = 1;
  for (int i = 0; i < 3; ++i) {
    interp.quick.length[i] = kAxisLength;
    interp.quick.view[i] = kView[i];
  }
}

} // namespace qsl
