// System variables: names with a leading %, whose values go to the library or steer quick plots.
#pragma once

#include "script/script_value.h"

namespace qsl {

struct SystemVariableRow {
  const char* name; // without the %
  Tag type;
  void (*apply)(const ScriptValue&); // null: nothing happens on assignment
};

inline constexpr int kSystemVariableCount = 66;
extern const SystemVariableRow kSystemVariables[kSystemVariableCount];

// Row of a name with its %, or -1.
int find_system_variable(const char* name);

// True if the variable has the type; INT and FLOAT become DOUBLE in place where that is required. Else a message.
bool require_type(int index, Tag tag);

// Carries out the effect of one variable, or of all in the order of their slots. Nothing happens without a plot.
void apply_system_variables(int index);
void apply_all_system_variables();

} // namespace qsl
