#include "script/assignment.h"

#include <cstring>

#include "script/arrays.h"
#include "script/binding.h"
#include "script/builtin_functions.h"
#include "script/evaluator.h"
#include "script/report.h"
#include "script/system_variables.h"
#include "script/user_routines.h"

namespace qsl {
namespace {

void assign_expression(const char* text, const char* name) {
  set_token_source(std::strchr(text, '=') + 1);
  const int n = evaluate(false);
  if (n > 0 && operand(0).type != kFree) {
    const int index = find_variable(name);
    set_name(operand(0).name, index < 0 ? name : "");
    store_value(operand(0), index);
  }
  clear_stack(0);
}

} // namespace

void run_assignment(const char* text, const char* name) {
  if (is_system_name(name) && find_system_variable(name) < 0)
    return report_error_text("Undefined system variable", name);
  next_token();
  if (token() == kErrorToken) return;
  if (token() == '{') {
    assign_array_literal(name);
  } else if (token() == kIdentifier && peek_character() == '(' && find_function(token_name()) < 0) {
    const int row = find_value_routine(token_name());
    if (row < 0) return run_function_call(text, name);
    run_value_routine(row, name);
  } else {
    assign_expression(text, name);
  }
  const int index = is_system_name(name) ? find_variable(name) : -1;
  if (index >= 0) apply_system_variables(index);
}

} // namespace qsl
