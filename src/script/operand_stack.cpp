#include "script/operand_stack.h"

#include <cstring>

#include "script/report.h"

namespace qsl {

void report_full_stack() {
  StackState& s = interp.stack;
  if (!s.overflow) report_error("Maximal number of operands is reached");
  s.overflow = true;
}

void push_copy(const ScriptValue& source) {
  if (ScriptValue* v = push_operand(); v && !copy_value(*v, source)) --interp.stack.count;
}

void push_alias(int index, const char* name) {
  ScriptValue* v = push_operand();
  if (!v) return;
  v->type = kAlias;
  v->value.index = index;
  set_name(v->name, name);
}

ScriptValue* resolve_operand(int position) {
  ScriptValue* v = peek_operand(position);
  if (!v) report_error_text("Undefined identifier", operand(position).name);
  return v;
}

bool materialize(int position) {
  ScriptValue& v = operand(position);
  if (v.type != kAlias) return v.type != kFree;
  const ScriptValue* target = resolve_operand(position);
  v.name[0] = 0;
  if (target && copy_value(v, *target)) return true;
  set_scalar(v, kFree);
  return false;
}

void replace_operands(int first, ScriptValue& result) {
  ScriptValue value{};
  move_value(value, result);
  clear_stack(first);
  if (ScriptValue* v = push_operand()) {
    move_value(*v, value);
  } else {
    free_value(value);
  }
}

void replace_by_int(int first, std::int32_t number) {
  clear_stack(first);
  push_int(number);
}

void replace_by_double(int first, double number) {
  clear_stack(first);
  push_double(number);
}

void replace_by_string(int first, const char* text, std::int64_t length) {
  ScriptValue result{};
  if (set_string(result, text, length)) replace_operands(first, result);
}

} // namespace qsl
