#include "script/binding.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "script/builtin_functions.h"
#include "script/evaluator.h"
#include "script/numbers.h"
#include "script/report.h"

namespace qsl {
namespace {

constexpr int kMarksLength = kOperands * 3 + 1;

const char* mark_of(const ScriptValue* v) {
  if (!v) return "U";
  switch (v->type) {
  case kChar: return "C";
  case kByte: return "B";
  case kShort: return "H";
  case kInt: return "I";
  case kFloat: return "F";
  case kDouble: return "D";
  case kString:
  case kCharArray: return "S";
  case kByteArray: return "BR";
  case kShortArray: return "HR";
  case kIntArray: return "IR";
  case kFloatArray: return "FR";
  case kDoubleArray: return "DR";
  default: return "?";
  }
}

// Whether the operand of a position has what a field of one letter, or of one and an R, requires.
bool fits(std::string_view field, int position) {
  const ScriptValue* v = peek_operand(position);
  const bool alias = operand(position).type == kAlias;
  if (field == "U") return alias;
  if (field == "*") return true;
  if (!v || field.empty()) return false;
  const int type = v->type;
  if (field.size() == 2 && field[1] == 'R') {
    switch (field[0]) {
    case 'A': return is_array(type);
    case 'B': return type == kByteArray;
    case 'H': return type == kShortArray;
    case 'I': return type == kIntArray;
    case 'F': return type == kFloatArray;
    default: return false;
    }
  }
  if (field.size() != 1) return false;
  switch (field[0]) {
  case 'I': return type == kInt;
  case 'X': return type == kInt || type == kFloat || type == kDouble;
  case 'S': return type == kString || type == kCharArray;
  case 'F': return type == kFloat;
  case 'B': return type == kByte;
  case 'H': return type == kShort;
  case 'V': return alias;
  default: return false;
  }
}

// The undefined identifiers among the operands become INT variables. False after a message.
bool define_outputs() {
  for (int k = 0; k < operand_count(); ++k) {
    ScriptValue& v = operand(k);
    if (v.type != kAlias || peek_operand(k)) continue;
    v.value.index = find_variable(v.name);
    if (v.value.index < 0) v.value.index = new_variable(v.name, interp.variables.level);
    if (v.value.index < 0) return false;
  }
  return true;
}

// Evaluates the operands of a routine. False after a message.
bool evaluate_operands() {
  clear_stack(0);
  interp.stack.overflow = false;
  return peek_character() == ')' || evaluate(true) != 0;
}

// Checks them. False after a message.
bool check_routine_call(const RoutineRow& row) {
  return match_operands(row.name, row.signature, 0) && define_outputs();
}

// Integer operand of a position, 1 for none.
std::int64_t factor(int position) { return position == 0 ? 1 : operand_value(position - 1).value.i; }

// How many elements, or bytes, a call wants of an array. Cut where no array is long enough, so that three factors
// cannot overflow.
std::int64_t wanted_elements(const ArrayCount& c) {
  constexpr std::int64_t kBeyond = std::int64_t{1} << 31;
  if (c.count == 0) return c.extra;
  const std::int64_t two = std::clamp(factor(c.count) * factor(c.times), -kBeyond, kBeyond);
  return two * factor(c.times_too) + c.extra;
}

// No array may be shorter than the call says.
bool arrays_are_long_enough(const RoutineRow& row) {
  for (const ArrayCount& c : row.counts) {
    if (c.array == 0) break;
    const ScriptValue& v = operand_value(c.array - 1);
    const std::int64_t there = c.in_bytes ? std::int64_t{v.count} * element_size(v.type) : v.count;
    if (wanted_elements(c) <= there) continue;
    report_error_text("Not enough array elements in", row.name);
    return false;
  }
  return true;
}

// Memory for all arrays that a row gives out. False after a message.
bool take_output_memory(const RoutineRow& row, OutputMemory* arrays) {
  for (int i = 0; i < kArrayOutputs && row.outputs[i].operand != 0; ++i) {
    const ArrayOutput& o = row.outputs[i];
    arrays[i].data = output_memory(factor(o.count), factor(o.times), element_size(o.type));
    if (!arrays[i].data) {
      while (i > 0) std::free(arrays[--i].data);
      return false;
    }
    arrays[i].count = static_cast<std::int32_t>(factor(o.count) * factor(o.times));
  }
  return true;
}

// Calls the routine of a row whose operands have been checked. False if nothing was called.
bool exec_row(const RoutineRow& row, ScriptValue* result) {
  if (!row.run) {
    report_unavailable("Routine", row.name);
    return false;
  }
  if (!arrays_are_long_enough(row)) return false;
  OutputMemory arrays[kArrayOutputs];
  if (row.outputs[0].operand == 0) {
    row.run({row.name, result, &row, nullptr});
    return true;
  }
  if (!take_output_memory(row, arrays)) return false;
  row.run({row.name, result, &row, arrays});
  for (int i = 0; i < kArrayOutputs && row.outputs[i].operand != 0; ++i)
    write_array_output(operand_variable(row.outputs[i].operand - 1), row.outputs[i].type, arrays[i].data,
                       arrays[i].count);
  return true;
}

} // namespace

void report_mismatch(const char* name, const char* signature, int first) {
  char marks[kMarksLength] = "";
  for (int k = first; k < operand_count(); ++k) {
    if (k > first) std::strcat(marks, ",");
    std::strcat(marks, mark_of(peek_operand(k)));
  }
  report_error("Parameter mismatch");
  std::printf("      User   : %s (%s)\n", name, marks);
  std::printf("      Correct: %s (%s)\n", name, signature);
}

bool call_row(const RoutineRow& row, ScriptValue* result) {
  return evaluate_operands() && check_routine_call(row) && exec_row(row, result);
}

void run_planned_routine(int row, const Code* operands) {
  clear_stack(0);
  interp.stack.overflow = false;
  if ((!operands || run_list(*operands) != 0) && check_routine_call(kRoutines[row])) exec_row(kRoutines[row], nullptr);
  clear_stack(0);
}

// A routine of the script that the library has called may have freed an output variable.
static bool is_output(int index) { return index >= 0 && slot_in_use(index); }

void write_int_output(int index, int number) {
  if (!is_output(index)) return;
  ScriptValue& v = variable(index);
  if (owns_memory(v.type)) {
    free_value(v);
    set_int(v, 0);
  }
  const std::int32_t bits = number;
  std::memcpy(&v.value, &bits, sizeof bits);
}

void write_real_output(int index, double number) {
  if (!is_output(index)) return;
  free_value(variable(index));
  set_double(variable(index), number);
}

void write_text_output(int index, const char* text) {
  if (!is_output(index)) return;
  free_value(variable(index));
  if (!set_string(variable(index), text)) set_int(variable(index), 0);
}

void write_array_output(int index, Tag type, void* data, std::int32_t count) {
  if (!is_output(index)) return std::free(data);
  ScriptValue& v = variable(index);
  free_value(v);
  set_scalar(v, type);
  v.ndim = 1;
  v.count = count;
  v.value.data = data;
}

void* output_memory(std::int64_t n, std::int64_t m, int size) {
  if (n * m < 1) {
    report_error("Non positive parameter");
    return nullptr;
  }
  if (n * m <= std::numeric_limits<std::int32_t>::max()) return allocate_zeroed(n * m, size);
  report_error("Not enough memory");
  return nullptr;
}

bool match_operands(const char* name, const char* signature, int first) {
  int position = first;
  for (const char* p = signature; *p; ++position) {
    std::size_t length = 0;
    while (p[length] && p[length] != ',') ++length;
    const std::string_view field(p, length);
    if (field == ".") break;
    if (position >= operand_count() || !fits(field, position)) {
      report_mismatch(name, signature, first);
      return false;
    }
    p += length;
    if (*p == ',') ++p;
  }
  return true;
}

void run_routine_statement(const char* text, const char* name) {
  if (const int row = find_routine(name); row >= 0) {
    call_row(kRoutines[row], nullptr);
  } else if (find_function(name) >= 0) {
    set_token_source(text);
    evaluate(false);
  } else {
    report_error_text("Undefined routine", name);
  }
  clear_stack(0);
}

void run_value_routine(int row_number, const char* variable_name) {
  const RoutineRow& row = kValueRoutines[row_number];
  next_token();
  ScriptValue result{};
  set_int(result, 0);
  if (call_row(row, &result)) {
    const int old = find_variable(variable_name);
    const bool through_alias = old >= 0 && old != find_slot(variable_name, interp.variables.level);
    if (old >= 0 && !through_alias) free_variable(old);
    if (!through_alias) set_name(result.name, variable_name);
    if (store_value(result, through_alias ? old : -1) < 0) free_value(result);
  }
  clear_stack(0);
}

} // namespace qsl
