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
void assign_operand(const KnownName& name, int n) {
  ScriptValue& value = operand(0);
  if (n > 0 && value.type != kFree) {
    const int index = find_known(name);
    if (index >= 0 && !owns_memory(value.type) && !owns_memory(variable(index).type)) {
      ScriptValue& v = variable(index);
      v.type = value.type;
      v.value = value.value;
    } else {
      set_name(value.name, index < 0 ? name.text : "");
      store_value(value, index);
    }
  }
  clear_stack(0);
}

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
    set_token_source(std::strchr(text, '=') + 1);
    assign_operand(known_name(name), evaluate(false));
  }
  const int index = is_system_name(name) ? find_variable(name) : -1;
  if (index >= 0) apply_system_variables(index);
}

} // namespace qsl
