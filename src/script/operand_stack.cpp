#include "script/operand_stack.h"

#include <cstring>

#include "script/report.h"

namespace qsl {

ScriptValue* push_operand() {
  StackState& s = interp.stack;
  if (s.count == kOperands) {
    if (!s.overflow) report_error("Maximal number of operands is reached");
    s.overflow = true;
    return nullptr;
  }
  ScriptValue* v = &s.entries[s.count++];
  set_int(*v, 0);
  v->name[0] = 0;
  v->level = 0;
  return v;
}

void push_int(std::int32_t number) {
  if (ScriptValue* v = push_operand()) v->value.i = number;
}

void push_double(double number) {
  if (ScriptValue* v = push_operand()) set_double(*v, number);
}

void push_number(const ScriptValue& number) {
  if (ScriptValue* v = push_operand()) {
    v->type = number.type;
    v->value = number.value;
  }
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

void clear_stack(int keep) {
  StackState& s = interp.stack;
  while (s.count > keep) free_value(s.entries[--s.count]);
}

ScriptValue* peek_operand(int position) {
  ScriptValue& v = operand(position);
  if (v.type != kAlias) return &v;
  const int target = v.value.index;
  return target >= 0 && slot_in_use(target) ? &variable(target) : nullptr;
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
