#include "script/arrays.h"

#include <cstdlib>
#include <cstring>

#include "script/evaluator.h"
#include "script/numbers.h"
#include "script/report.h"

namespace qsl {
namespace {

// Extents from the operand stack. False after a message.
bool read_extents(const char* name, ScriptValue& array) {
  const int n = operand_count();
  if (n > kSubscripts) {
    report_error_text("Too many subscripts in", name);
    return false;
  }
  std::int64_t count = 1;
  for (int i = 0; i < n; ++i) {
    const ScriptValue& v = operand(i);
    if (v.type == kFree) return false;
    if (v.type != kInt) {
      report_error("Dimension parameter must be of type integer");
      return false;
    }
    if (v.value.i < 0) {
      report_error("Dimension parameter must not be negative");
      return false;
    }
    count *= v.value.i;
    if (count > INT32_MAX) {
      report_error("Not enough memory");
      return false;
    }
  }
  array.count = static_cast<std::int32_t>(count);
  array.ndim = static_cast<std::int8_t>(n);
  return true;
}

// Memory of a declared array and its extents. False after a message.
bool allocate_array(ScriptValue& array) {
  array.value.data = allocate_zeroed(array.count, element_size(array.type));
  if (!array.value.data) return false;
  if (array.ndim < 2) return true;
  array.dims = static_cast<std::int32_t*>(allocate(array.ndim * static_cast<int>(sizeof(std::int32_t))));
  if (!array.dims) {
    std::free(array.value.data);
    return false;
  }
  for (int i = 0; i < array.ndim; ++i) array.dims[i] = operand(i).value.i;
  return true;
}

// Extents up to ']' and the memory for them. False after a message.
bool read_array(ScriptValue& array) {
  const int n = peek_character() == ']' ? kNothing : evaluate(false);
  if (n == kNothing) report_error("Missing parameters");
  if (n <= 0 || !read_extents(array.name, array)) return false;
  if (token() != ']') {
    report_error_char("Syntax error - Expected", ']');
    return false;
  }
  return allocate_array(array);
}

// One array from its name on. False ends the statement.
bool declare_array(Tag element) {
  if (next_token() != kIdentifier) {
    if (token() != kErrorToken) report_error("Syntax error");
    return false;
  }
  ScriptValue array{};
  set_name(array.name, token_name());
  array.type = array_of(element);
  if (next_token() != '[') {
    if (token() != kErrorToken) report_error("Syntax error");
    return false;
  }
  const int old = find_variable(array.name);
  if (old >= 0) free_value(variable(old));
  const bool good = read_array(array);
  const int index = old >= 0 ? old : good ? new_variable(array.name, interp.variables.level) : -1;
  if (!good || index < 0) {
    if (good) free_value(array);
    if (old >= 0) release_slot(old);
    return false;
  }
  move_value(variable(index), array);
  return true;
}

// Pass 1 over a literal: counts and checks the elements. The count, or 0 after a message.
int count_elements(bool& floating) {
  int count = 0;
  for (;;) {
    int kind = next_token();
    if (kind == kUnaryMinus) kind = next_token();
    if (kind != kIntConstant && kind != kFloatConstant) {
      report_error("Integer or floatingpoint number expected");
      return 0;
    }
    floating |= kind == kFloatConstant;
    ++count;
    kind = next_token();
    if (kind == '}') break;
    if (kind != ',') {
      report_error("'}' is missing");
      return 0;
    }
  }
  if (next_token() == kEnd) return count;
  report_error("End of statement expected");
  return 0;
}

// Pass 2: stores the elements.
void read_elements(ScriptValue& array) {
  for (int i = 0; i < array.count; ++i) {
    const bool negative = next_token() == kUnaryMinus;
    if (negative) next_token();
    ScriptValue element = interp.token.current;
    if (negative && element.type == kInt) element.value.i = wrap_negate(element.value.i);
    if (negative && element.type == kDouble) element.value.d = -element.value.d;
    if (array.type == kIntArray) {
      elements<std::int32_t>(array)[i] = element.value.i;
    } else {
      elements<float>(array)[i] = to_float(number_of(element));
    }
    next_token();
  }
}

} // namespace

void declare_arrays(Tag element) {
  while (declare_array(element)) {
    next_token();
    if (token() == kEnd) break;
    if (token() != ',') {
      if (token() != kErrorToken) report_error("Syntax error");
      break;
    }
  }
  clear_stack(0);
}

void assign_array_literal(const char* name) {
  const TokenState start = interp.token;
  bool floating = false;
  const int count = count_elements(floating);
  if (count == 0) return;
  ScriptValue array{};
  set_name(array.name, name);
  array.type = floating ? kFloatArray : kIntArray;
  array.ndim = 1;
  array.count = count;
  array.value.data = allocate(std::int64_t{count} * 4);
  if (!array.value.data) return;
  interp.token = start;
  read_elements(array);
  const int old = find_variable(name);
  if (old >= 0) array.name[0] = 0;
  if (store_value(array, old) < 0) free_value(array);
}

void free_names() {
  while (next_token() != kEnd) {
    if (token() == ',') continue;
    if (token() != kIdentifier) {
      if (token() != kErrorToken) report_error("Syntax error - Expected identifier");
      return;
    }
    const int slot = find_slot(token_name(), interp.variables.level);
    if (slot < 0) {
      report_error_text("Undefined variable", token_name());
    } else {
      free_variable(slot);
    }
  }
}

} // namespace qsl
