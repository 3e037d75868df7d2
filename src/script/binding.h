// The binding of library routines: rows of name, signature and what to call.
//
// A signature is a list of fields, one for each operand: I INT, H SHORT, B BYTE, F FLOAT, X a real number of any kind
// or an INT, S a text, FR IR BR HR an array of that type, AR any array, U an output variable, V a defined variable,
// * anything, '.' the rest is free.
#pragma once

#include <string_view>

#include "script/expression_code.h"
#include "script/operand_stack.h"

namespace qsl {

// An array operand and the operands that tell how many of its elements the routine uses: the product of up to three
// integers, and some more. Positions count from 1; 0 for none. Without integers the number is extra alone.
struct ArrayCount {
  unsigned char array, count, times, times_too, extra;
  bool in_bytes; // the integers count bytes, not elements
};
inline constexpr int kCountedArrays = 9;

// An output operand that receives an array, whose size is an integer operand or the product of two.
struct ArrayOutput {
  unsigned char operand;
  Tag type;
  unsigned char count, times;
};
inline constexpr int kArrayOutputs = 3;

// The arrays that a call gives out while its routine runs: zeroed memory, and how many elements.
struct OutputMemory {
  void* data;
  std::int32_t count;
};

// A call whose operands fit the signature. Operand 0 is the first.
struct RoutineRow;
struct Call {
  const char* name;
  ScriptValue* result = nullptr; // of a value routine
  const RoutineRow* row = nullptr;
  const OutputMemory* arrays = nullptr; // of the row's outputs
};

struct RoutineRow {
  const char* name;
  const char* signature;
  void (*run)(const Call&); // null: the routine does not exist yet
  ArrayCount counts[kCountedArrays];
  ArrayOutput outputs[kArrayOutputs];
};

inline constexpr int kRoutineCount = 658;
inline constexpr int kValueRoutineCount = 129;
extern const RoutineRow kRoutines[kRoutineCount];
extern const RoutineRow kValueRoutines[kValueRoutineCount];
int find_routine(const char* name);
int find_value_routine(const char* name);

// Field k of a signature, from 0; an empty field behind the last. (Loops, because string_view::find is no constant
// expression on template arguments when the compiler checks for null pointers.)
constexpr std::string_view signature_field(std::string_view signature, int k) {
  std::size_t begin = 0;
  for (; k > 0 && begin < signature.size(); ++begin) k -= signature[begin] == ',';
  if (k > 0) return {};
  std::size_t end = begin;
  while (end < signature.size() && signature[end] != ',') ++end;
  return signature.substr(begin, end - begin);
}
constexpr int signature_length(std::string_view signature) {
  int n = signature.empty() ? 0 : 1;
  for (char c : signature) n += c == ',';
  return n;
}

// Holds the operands from position first on against a signature; false after "Parameter mismatch" and its two lines.
bool match_operands(const char* name, const char* signature, int first);

// "Parameter mismatch" and the two lines with the operands from position first on and the signature.
void report_mismatch(const char* name, const char* signature, int first);

// Evaluates operands up to the closing parenthesis, checks them against a row and calls its routine. The result goes
// to a value routine's. False if nothing was called.
bool call_row(const RoutineRow& row, ScriptValue* result);

// NAME(...) as a statement; the tokeniser stands behind the parenthesis.
void run_routine_statement(const char* text, const char* name);

// The same with the operands as code; null: there are none.
void run_planned_routine(int row, const Code* operands);

// variable = NAME(...) with a value routine; the tokeniser stands behind its name.
void run_value_routine(int row, const char* variable_name);

// The value of operand k, which an alias takes from its variable.
inline const ScriptValue& operand_value(int k) { return *peek_operand(k); }
// The variable that operand k stands for, or -1.
inline int operand_variable(int k) { return operand(k).type == kAlias ? operand(k).value.index : -1; }

// Writes outputs. An integer is put into the variable's place without a change of its tag; a variable that owns
// memory gives it up and becomes INT. A real makes the variable DOUBLE.
void write_int_output(int variable_index, int number);
void write_real_output(int variable_index, double number);
void write_text_output(int variable_index, const char* text);
// Gives memory to a variable; what it owned before is freed.
void write_array_output(int variable_index, Tag type, void* data, std::int32_t count);

// Zeroed memory of n times m elements for an array output; null after "Non positive parameter" if that is below 1,
// or "Not enough memory".
void* output_memory(std::int64_t n, std::int64_t m, int element_size);

} // namespace qsl
