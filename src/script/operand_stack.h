// The stack of operands of a statement. An entry with a string or an array owns a private copy.
#pragma once

#include "script/variables.h"

namespace qsl {

inline int operand_count() { return interp.stack.count; }
inline ScriptValue& operand(int position) { return interp.stack.entries[position]; }
inline ScriptValue& top_operand() { return operand(operand_count() - 1); }

// A new unnamed INT 0 on top, or null: the stack is full, which is reported once a statement.
ScriptValue* push_operand();
void push_int(std::int32_t number);
void push_double(double number);
// The value of an INT or DOUBLE.
void push_number(const ScriptValue& v);
void push_copy(const ScriptValue& v);
void push_alias(int index, const char* name);

// Frees the entries from keep on.
void clear_stack(int keep);

// The operand or the variable that it stands for; null after "Undefined identifier" for an alias without target.
ScriptValue* resolve_operand(int position);
// The same without a message.
ScriptValue* peek_operand(int position);
// Replaces an alias by a copy of its variable. False after a message; the entry then has no usable value.
bool materialize(int position);

// Replaces the entries from first on by one. The result takes the memory of the value.
void replace_operands(int first, ScriptValue& result);
void replace_by_int(int first, std::int32_t number);
void replace_by_double(int first, double number);
void replace_by_string(int first, const char* text, std::int64_t length);

} // namespace qsl
