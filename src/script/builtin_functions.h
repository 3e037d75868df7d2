// Built-in functions: reserved names that may stand anywhere in an expression.
#pragma once

namespace qsl {

struct FunctionRow {
  const char* name;
  const char* signature;
  int mode; // ArgumentMode of the arguments
  void (*run)(int first);
};

inline constexpr int kFunctionCount = 94;
extern const FunctionRow kFunctions[kFunctionCount];

// Row of a function, or -1.
int find_function(const char* name);
int function_mode(int row);

// Checks the arguments from position first on and runs the function.
void exec_builtin(int row, int first);

} // namespace qsl
