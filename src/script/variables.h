// The table of variables of all routine levels, and memory of values.
#pragma once

#include <cstddef>
#include <cstring>

#include "script/interpreter.h"

namespace qsl {

// Memory; "Not enough memory" and null when there is none. A size of 0 gives a block all the same.
void* allocate(std::int64_t size);
void* allocate_zeroed(std::int64_t count, int size);

// Operands of a statement that waits while the library calls a routine of the script, and the memory of the variables
// that they stand for. If the routine frees such a variable, its memory goes to the operand: the library still uses it.
struct PinnedOperands {
  PinnedOperands* outer;
  StackState* stack;
  void* memory[kOperands];
};
void pin_operands(PinnedOperands& pinned, StackState& stack);
inline void unpin_operands(const PinnedOperands& pinned) { interp.variables.pinned = pinned.outer; }

// Frees what a value owns; its tag becomes 0.
void free_value(ScriptValue& v);
// Copies a value with private memory; false after a message.
bool copy_value(ScriptValue& target, const ScriptValue& source);
// Makes the target own a copy of a text; false after a message. What it owned before is not freed.
bool set_string(ScriptValue& v, const char* text, std::int64_t length);
bool set_string(ScriptValue& v, const char* text);

// First used slot, in table order, of that name at the current level or of a system variable; the target of an
// alias, which may be -1; -1 if there is none.
int find_variable(const char* name);
// A name with the place where it is looked for.
struct KnownName {
  char text[kNameLength + 1]; // filled up with zeros
  std::uint16_t bucket;
  bool system;
};
KnownName known_name(const char* text);
// Finds a variable by such a name; what find_variable() returns.
int find_known(const KnownName& name);
// Names that are filled up with zeros.
inline bool same_name(const char* a, const char* b) {
  std::uint64_t x[2], y[2];
  static_assert(sizeof x == kNameLength + 1);
  std::memcpy(x, a, sizeof x);
  std::memcpy(y, b, sizeof y);
  return x[0] == y[0] && x[1] == y[1];
}
// The slot without following an alias.
int find_slot(const char* name, int level);
// Lowest free slot, now used by an INT 0 of that name, or -1 after a message.
int new_variable(const char* name, int level);
void rename_variable(int index, const char* name);
void free_variable(int index);
// Gives up a slot whose value may have been freed already.
void release_slot(int index);
// The target takes type, shape and memory of a value, which has none of them afterwards.
void move_value(ScriptValue& target, ScriptValue& value);
void free_level(int level);
// Moves a value into a variable. Index -1: a new one of the value's name at the current level. The value gives up
// its memory. A name of a built-in function is refused. Returns the index or -1 after a message.
int store_value(ScriptValue& value, int index);

inline ScriptValue& variable(int index) { return interp.variables.slots[index]; }
inline bool slot_in_use(int index) { return variable(index).type != kFree; }
inline bool is_system_name(const char* name) { return name[0] == '%'; }

// Copies a name, cut to its length and filled up with zeros.
void set_name(char* target, const char* name);

} // namespace qsl
