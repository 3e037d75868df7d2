// The stack of operands of a statement. An entry with a string or an array owns a private copy.
#pragma once

#include "script/variables.h"

namespace qsl {

inline int operand_count() { return interp.stack.count; }
inline ScriptValue& operand(int position) { return interp.stack.entries[position]; }
inline ScriptValue& top_operand() { return operand(operand_count() - 1); }

// The stack is full: reported once a statement.
void report_full_stack();

// A new unnamed INT 0 on top, or null if the stack is full.
inline ScriptValue* push_operand() {
  StackState& s = interp.stack;
  if (s.count == kOperands) {
    report_full_stack();
    return nullptr;
  }
  ScriptValue* v = &s.entries[s.count++];
  set_int(*v, 0);
  v->name[0] = 0;
  v->level = 0;
  return v;
}
inline void push_int(std::int32_t number) {
  if (ScriptValue* v = push_operand()) v->value.i = number;
}
inline void push_double(double number) {
  if (ScriptValue* v = push_operand()) set_double(*v, number);
}
// The value of an INT or DOUBLE.
inline void push_number(const ScriptValue& number) {
  if (ScriptValue* v = push_operand()) {
    v->type = number.type;
    v->value = number.value;
  }
}
void push_copy(const ScriptValue& v);
void push_alias(int index, const char* name);
// The same by a name that is filled up with zeros.
inline void push_alias(int index, const KnownName& name) {
  ScriptValue* v = push_operand();
  if (!v) return;
  v->type = kAlias;
  v->value.index = index;
  std::memcpy(v->name, name.text, sizeof name.text);
}

// Frees the entries from keep on.
inline void clear_stack(int keep) {
  StackState& s = interp.stack;
  while (s.count > keep) {
    ScriptValue& v = s.entries[--s.count];
    if (owns_memory(v.type)) free_value(v);
  }
}

// The operand or the variable that it stands for; null after "Undefined identifier" for an alias without target.
ScriptValue* resolve_operand(int position);
// The same without a message.
inline ScriptValue* peek_operand(int position) {
  ScriptValue& v = operand(position);
  if (v.type != kAlias) return &v;
  const int target = v.value.index;
  return target >= 0 && slot_in_use(target) ? &variable(target) : nullptr;
}
// Replaces an alias by a copy of its variable. False after a message; the entry then has no usable value.
bool materialize(int position);

// Replaces the entries from first on by one. The result takes the memory of the value.
void replace_operands(int first, ScriptValue& result);
void replace_by_int(int first, std::int32_t number);
void replace_by_double(int first, double number);
void replace_by_string(int first, const char* text, std::int64_t length);

} // namespace qsl
