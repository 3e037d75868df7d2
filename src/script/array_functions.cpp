// Built-in functions that make arrays or look through them.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "script/builtin_rows.h"
#include "script/numbers.h"
#include "script/operand_stack.h"
#include "script/report.h"

namespace qsl {
namespace {

// The element types that the array functions work on.
bool is_plain_array(const ScriptValue& v) {
  return v.type == kByteArray || v.type == kIntArray || v.type == kFloatArray || v.type == kDoubleArray;
}

// A one-dimensional array without elements set. False after a message.
bool make_plain(ScriptValue& result, Tag type, std::int64_t count) {
  result.value.data = count > INT32_MAX ? allocate(-1) : allocate(count * element_size(type));
  if (!result.value.data) return false;
  result.type = type;
  result.ndim = 1;
  result.count = static_cast<std::int32_t>(count);
  result.dims = nullptr;
  return true;
}

// The same with two extents.
bool make_matrix(ScriptValue& result, Tag type, std::int32_t rows, std::int32_t columns) {
  if (!make_plain(result, type, std::int64_t{rows} * columns)) return false;
  result.dims = static_cast<std::int32_t*>(allocate(2 * static_cast<int>(sizeof(std::int32_t))));
  if (!result.dims) {
    free_value(result);
    return false;
  }
  result.ndim = 2;
  result.dims[0] = rows;
  result.dims[1] = columns;
  return true;
}

void copy_elements(ScriptValue& to, std::int64_t at, const ScriptValue& from, std::int64_t start, std::int64_t n) {
  const int size = element_size(to.type);
  std::memcpy(elements<char>(to) + at * size, elements<char>(from) + start * size, static_cast<std::size_t>(n * size));
}

// 0, 1, ..., n-1
template <typename T> void count_up(int first, Tag type) {
  const ScriptValue* n = resolve_operand(first);
  ScriptValue result{};
  if (!n || !make_plain(result, type, n->value.i)) return;
  for (int i = 0; i < result.count; ++i) elements<T>(result)[i] = static_cast<T>(i);
  replace_operands(first, result);
}

void extreme(int first, const char* name, bool largest) {
  const ScriptValue* v = resolve_operand(first);
  if (!v) return;
  const int element = element_of(v->type);
  const bool integer = element == kByte || element == kShort || element == kInt;
  const bool real = element == kFloat || element == kDouble;
  if (!is_array(v->type) || v->count == 0 || (!integer && !real))
    return report_error_text("Illegal parameter in", name);
  double best = read_number(element, v->value.data, 0);
  for (int i = 1; i < v->count; ++i) {
    const double x = read_number(element, v->value.data, i);
    if (largest ? x > best : x < best) best = x;
  }
  if (integer) return replace_by_int(first, static_cast<std::int32_t>(best));
  replace_by_double(first, best);
}

} // namespace

void fn_ialloc(int first) { count_up<std::int32_t>(first, kIntArray); }
void fn_falloc(int first) { count_up<float>(first, kFloatArray); }
void fn_dalloc(int first) { count_up<double>(first, kDoubleArray); }

void fn_minarr(int first) { extreme(first, "MINARR", false); }
void fn_maxarr(int first) { extreme(first, "MAXARR", true); }

void fn_catarr(int first) {
  const ScriptValue* a = resolve_operand(first);
  const ScriptValue* b = resolve_operand(first + 1);
  if (!a || !b) return;
  if (!is_plain_array(*a) || !is_plain_array(*b)) return report_error("Parameters in CATARR must be arrays");
  if (a->type != b->type) return report_error("Arrays must have identical types in CATARR");
  ScriptValue result{};
  if (!make_plain(result, a->type, std::int64_t{a->count} + b->count)) return;
  copy_elements(result, 0, *a, 0, a->count);
  copy_elements(result, a->count, *b, 0, b->count);
  replace_operands(first, result);
}

void fn_subarr(int first) {
  const ScriptValue* a = resolve_operand(first);
  if (!a) return;
  if (!is_plain_array(*a)) return report_error("Parameter 1 in SUBARR must be an array");
  const std::int64_t start = operand(first + 1).value.i;
  std::int64_t n = operand(first + 2).value.i;
  if (start < 0 || start >= a->count) return report_error("Parameter 2 is out of range in SUBARR");
  if (n < 0) return report_error("Parameter 3 is negative in SUBARR");
  // A part that reaches the end loses the last element.
  if (start + n >= a->count) n = a->count - start - 1;
  ScriptValue result{};
  if (!make_plain(result, a->type, n)) return;
  copy_elements(result, 0, *a, start, n);
  replace_operands(first, result);
}

void fn_submat(int first) {
  const ScriptValue* a = resolve_operand(first);
  const ScriptValue* wanted = resolve_operand(first + 1);
  if (!a || !wanted) return;
  if (!is_plain_array(*a) || a->ndim != 2) return report_error("Parameter 1 in SUBMAT must be a two-dimensional array");
  if (wanted->type != kIntArray) return report_error("Parameter 2 in SUBMAT must be an integer array");
  const std::int32_t rows = a->dims[0], columns = a->dims[1], n = wanted->count;
  const std::int32_t* column = elements<std::int32_t>(*wanted);
  for (int j = 0; j < n; ++j)
    if (column[j] < 0 || column[j] >= columns) return report_error("Undefined column numbers in SUBMAT");
  ScriptValue result{};
  if (!make_matrix(result, a->type, rows, n)) return;
  for (std::int64_t i = 0; i < rows; ++i)
    for (std::int64_t j = 0; j < n; ++j) copy_elements(result, i * n + j, *a, i * columns + column[j], 1);
  replace_operands(first, result);
}

void fn_trpmat(int first) {
  const ScriptValue* a = resolve_operand(first);
  if (!a) return;
  if (!is_array(a->type) || a->ndim != 2) return report_error("Parameter in TRPMAT must be a two-dimensional array");
  const std::int32_t rows = a->dims[0], columns = a->dims[1];
  ScriptValue result{};
  if (!make_matrix(result, a->type, columns, rows)) return;
  for (std::int64_t i = 0; i < rows; ++i)
    for (std::int64_t j = 0; j < columns; ++j) copy_elements(result, j * rows + i, *a, i * columns + j, 1);
  replace_operands(first, result);
}

} // namespace qsl
