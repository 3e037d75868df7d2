// Sums, differences, products and quotients with arrays of numbers. The result takes the array's memory.
#include <cstdlib>
#include <cstring>
#include <utility>

#include "script/numbers.h"
#include "script/operand_stack.h"
#include "script/operators.h"
#include "script/report.h"
#include "script/tokenizer.h"

namespace qsl {
namespace {

char operator_character(int kind) {
  switch (kind) {
  case kEqual: return '=';
  case kNotEqual: return '!';
  case kGreaterEqual:
  case kGreater: return '>';
  case kLessEqual:
  case kLess: return '<';
  case kAnd: return '&';
  case kOr: return '|';
  default: return static_cast<char>(kind);
  }
}

constexpr const char* kDivideByZero = "Divide by zero";

// One operation in integers; the caller keeps the low bits. The divisor is not zero.
std::int32_t integer_result(int kind, std::int32_t a, std::int32_t b) {
  switch (kind) {
  case '+': return wrap_add(a, b);
  case '*': return wrap_multiply(a, b);
  default: return divide(a, b);
  }
}

double real_result(int kind, double a, double b) {
  switch (kind) {
  case '+': return a + b;
  case '-': return a - b;
  case '*': return a * b;
  default: return a / b;
  }
}

Complex complex_result(int kind, Complex a, Complex b) {
  switch (kind) {
  case '+': return {a.re + b.re, a.im + b.im};
  case '*': return multiply_complex(a, b);
  default: return divide_complex(a, b);
  }
}

bool is_zero(Complex z) { return z.re == 0.0F && z.im == 0.0F; }

template <typename T> T narrow(std::int32_t i);
template <> std::uint8_t narrow(std::int32_t i) { return low_byte(i); }
template <> std::int16_t narrow(std::int32_t i) { return low_short(i); }
template <> std::int32_t narrow(std::int32_t i) { return i; }

// How a scalar meets the elements: on which side it stands.
struct ScalarSide {
  bool left;
};

// The elements from a zero divisor on stay as they were.
template <typename T> void stop_at_zero(T* to, const T* from, int i, int n) {
  report_error(kDivideByZero);
  if (to != from) std::memmove(to + i, from + i, static_cast<std::size_t>(n - i) * sizeof(T));
}

template <typename T> void integer_with_scalar(int kind, T* to, const T* a, int n, std::int32_t s, ScalarSide side) {
  for (int i = 0; i < n; ++i) {
    if (side.left && kind == '/' && a[i] == 0) return stop_at_zero(to, a, i, n);
    to[i] = narrow<T>(side.left ? integer_result(kind, s, a[i]) : integer_result(kind, a[i], s));
  }
}

template <typename T> void real_with_scalar(int kind, T* to, const T* a, int n, double s, ScalarSide side) {
  if (kind == '+') {
    for (int i = 0; i < n; ++i) to[i] = static_cast<T>(a[i] + s);
  } else if (kind == '*') {
    for (int i = 0; i < n; ++i) to[i] = static_cast<T>(a[i] * s);
  } else if (!side.left) {
    for (int i = 0; i < n; ++i) to[i] = static_cast<T>(a[i] / s);
  } else {
    for (int i = 0; i < n; ++i) {
      if (a[i] == T{0}) return stop_at_zero(to, a, i, n);
      to[i] = static_cast<T>(s / a[i]);
    }
  }
}

// The integers become 32-bit floats. After a zero divisor the rest keeps its numbers, as floats.
void int_array_to_float(int kind, void* to, const ScriptValue& a, double s, ScalarSide side) {
  const bool divides = side.left && kind != '+'; // a scalar times an array is computed as a quotient here
  const char* from = elements<char>(a);
  bool faulty = false;
  for (int i = 0; i < a.count; ++i) {
    std::int32_t element;
    std::memcpy(&element, from + std::int64_t{i} * 4, 4);
    if (divides && element == 0 && !faulty) {
      report_error(kDivideByZero);
      faulty = true;
    }
    double x = element;
    if (!faulty) x = divides ? s / x : real_result(kind, x, s);
    const float result = to_float(x);
    std::memcpy(static_cast<char*>(to) + std::int64_t{i} * 4, &result, 4);
  }
}

void complex_with_scalar(int kind, Complex* to, const Complex* a, int n, Complex s, ScalarSide side) {
  for (int i = 0; i < n; ++i) {
    if (side.left && kind == '/' && is_zero(a[i])) return stop_at_zero(to, a, i, n);
    to[i] = side.left ? complex_result(kind, s, a[i]) : complex_result(kind, a[i], s);
  }
}

Complex as_complex(const ScriptValue& s) {
  return s.type == kComplex ? s.value.z : Complex{to_float(number_of(s)), 0.0F};
}

bool scalar_accepted(int array, int scalar) {
  switch (array) {
  case kByteArray:
  case kShortArray: return scalar == kInt;
  case kIntArray:
  case kFloatArray:
  case kDoubleArray: return scalar == kInt || scalar == kDouble;
  default: return scalar == kInt || scalar == kDouble || scalar == kComplex;
  }
}

template <typename T> T* target(void* to) { return static_cast<T*>(to); }

// Combines the elements of a with a scalar; the results go to a block of the same size, which may be a's own.
void combine_with_scalar(int kind, void* to, const ScriptValue& a, const ScriptValue& scalar, ScalarSide side) {
  double s = scalar.type == kComplex ? 0.0 : number_of(scalar);
  const int n = a.count;
  if (kind == '/' && !side.left && scalar.type == kDouble && a.type != kComplexArray) {
    s = 1.0 / s;
    kind = '*';
  }
  switch (a.type) {
  case kByteArray:
    return integer_with_scalar(kind, target<std::uint8_t>(to), elements<std::uint8_t>(a), n, scalar.value.i, side);
  case kShortArray:
    return integer_with_scalar(kind, target<std::int16_t>(to), elements<std::int16_t>(a), n, scalar.value.i, side);
  case kIntArray:
    if (scalar.type == kDouble) return int_array_to_float(kind, to, a, s, side);
    return integer_with_scalar(kind, target<std::int32_t>(to), elements<std::int32_t>(a), n, scalar.value.i, side);
  case kFloatArray: return real_with_scalar(kind, target<float>(to), elements<float>(a), n, s, side);
  case kDoubleArray: return real_with_scalar(kind, target<double>(to), elements<double>(a), n, s, side);
  default: return complex_with_scalar(kind, target<Complex>(to), elements<Complex>(a), n, as_complex(scalar), side);
  }
}

bool is_zero_divisor(const ScriptValue& scalar) {
  return scalar.type == kComplex ? is_zero(scalar.value.z) : number_of(scalar) == 0.0;
}

void widen_scalar(ScriptValue& v) {
  if (v.type == kByte || v.type == kShort) set_int(v, static_cast<std::int32_t>(number_of(v)));
  if (v.type == kFloat) set_double(v, v.value.f);
}

// An array on the operand stack: its own entry, or the variable behind a borrowed one.
struct ArrayOperand {
  int position;
  const ScriptValue* value;
  bool owned;
};

ArrayOperand array_at(int position) { return {position, peek_operand(position), operand(position).type != kAlias}; }

// The entry becomes an array of its own with this shape: the array's memory or a new block. Null after a message.
void* result_block(const ArrayOperand& a) {
  if (a.owned) return a.value->value.data;
  return allocate(std::int64_t{a.value->count} * element_size(a.value->type));
}

// Enters the block as the array of the entry.
void settle_result(const ArrayOperand& a, void* block, Tag type) {
  ScriptValue& entry = operand(a.position);
  if (!a.owned) {
    ScriptValue result{};
    result.ndim = a.value->ndim;
    result.count = a.value->count;
    if (a.value->ndim > 1) {
      const std::size_t bytes = static_cast<std::size_t>(a.value->ndim) * sizeof(std::int32_t);
      result.dims = static_cast<std::int32_t*>(allocate(static_cast<std::int64_t>(bytes)));
      if (result.dims) {
        std::memcpy(result.dims, a.value->dims, bytes);
      } else {
        result.ndim = 1;
      }
    }
    result.type = type;
    result.value.data = block;
    move_value(entry, result);
    entry.name[0] = 0;
  }
  entry.type = type;
}

// After a fault the left operand stays.
void keep_left() {
  materialize(operand_count() - 2);
  drop_top();
}

void scalar_with_array(int kind) {
  const int left = operand_count() - 2;
  const bool scalar_left = !is_array(peek_operand(left)->type);
  const int scalar_at = scalar_left ? left : left + 1;
  if (!materialize(scalar_at)) return keep_left();
  const ArrayOperand array = array_at(scalar_left ? left + 1 : left);
  ScriptValue& scalar = operand(scalar_at);
  widen_scalar(scalar);
  if (!scalar_accepted(array.value->type, scalar.type)) {
    report_error("Illegal Operands");
    return keep_left();
  }
  if (kind == '/' && !scalar_left && is_zero_divisor(scalar)) {
    report_error(kDivideByZero);
    return keep_left();
  }
  void* block = result_block(array);
  if (!block) return keep_left();
  const Tag type = array.value->type == kIntArray && scalar.type == kDouble ? kFloatArray : array.value->type;
  combine_with_scalar(kind, block, *array.value, scalar, {scalar_left});
  settle_result(array, block, type);
  if (scalar_left) std::swap(operand(left), operand(left + 1));
  drop_top();
}

// Makes the entry an array of a higher tag, by element into new memory; false after a message.
bool promote_array(int position, int tag) {
  const ScriptValue* v = peek_operand(position);
  if (v->type == tag) return true;
  if (v->type < kByteArray) {
    report_error("Not allowed operands");
    return false;
  }
  void* data = allocate(std::int64_t{v->count} * element_size(tag));
  if (!data) return false;
  const int source = element_of(v->type), element = element_of(tag);
  for (int i = 0; i < v->count; ++i) write_number(element, data, i, read_number(source, v->value.data, i));
  const ArrayOperand array = array_at(position);
  void* old = array.owned ? v->value.data : nullptr;
  settle_result(array, data, static_cast<Tag>(tag));
  operand(position).value.data = data;
  std::free(old);
  return true;
}

template <typename T> void integer_with_array(int kind, T* to, const T* a, const T* b, int n) {
  for (int i = 0; i < n; ++i) {
    if (kind == '/' && b[i] == 0) return stop_at_zero(to, a, i, n);
    to[i] = narrow<T>(integer_result(kind, a[i], b[i]));
  }
}

template <typename T> void real_with_array(int kind, T* to, const T* a, const T* b, int n) {
  switch (kind) {
  case '+':
    for (int i = 0; i < n; ++i) to[i] = a[i] + b[i];
    return;
  case '-':
    for (int i = 0; i < n; ++i) to[i] = a[i] - b[i];
    return;
  case '*':
    for (int i = 0; i < n; ++i) to[i] = a[i] * b[i];
    return;
  default:
    for (int i = 0; i < n; ++i) {
      if (b[i] == T{0}) return stop_at_zero(to, a, i, n);
      to[i] = a[i] / b[i];
    }
  }
}

void complex_with_array(int kind, Complex* to, const Complex* a, const Complex* b, int n) {
  for (int i = 0; i < n; ++i) {
    if (kind == '/' && is_zero(b[i])) return stop_at_zero(to, a, i, n);
    to[i] = complex_result(kind, a[i], b[i]);
  }
}

template <typename T> struct Blocks {
  T* to;
  const T* a;
  const T* b;
};
template <typename T> Blocks<T> blocks(void* to, const ScriptValue& a, const ScriptValue& b) {
  return {static_cast<T*>(to), elements<T>(a), elements<T>(b)};
}

void combine_arrays(int kind, void* to, const ScriptValue& a, const ScriptValue& b) {
  const int n = a.count;
  const auto integers = [kind, n](auto x) { integer_with_array(kind, x.to, x.a, x.b, n); };
  const auto reals = [kind, n](auto x) { real_with_array(kind, x.to, x.a, x.b, n); };
  switch (a.type) {
  case kByteArray: return integers(blocks<std::uint8_t>(to, a, b));
  case kShortArray: return integers(blocks<std::int16_t>(to, a, b));
  case kIntArray: return integers(blocks<std::int32_t>(to, a, b));
  case kFloatArray: return reals(blocks<float>(to, a, b));
  case kDoubleArray: return reals(blocks<double>(to, a, b));
  default: {
    const auto x = blocks<Complex>(to, a, b);
    return complex_with_array(kind, x.to, x.a, x.b, n);
  }
  }
}

void array_with_array(int kind) {
  const int left = operand_count() - 2;
  const ScriptValue *x = peek_operand(left), *y = peek_operand(left + 1);
  if (x->count != y->count) {
    report_error("Different dimension in array operands");
    return keep_left();
  }
  const int tag = x->type > y->type ? x->type : y->type;
  if (!promote_array(left, tag) || !promote_array(left + 1, tag)) return keep_left();
  const ArrayOperand a = array_at(left), b = array_at(left + 1);
  // A block that the right operand owns serves as well when the left one is borrowed.
  const bool into_right = !a.owned && b.owned && a.value->ndim < 2 && b.value->ndim < 2 && kind != '/';
  void* block = result_block(into_right ? b : a);
  if (!block) return keep_left();
  combine_arrays(kind, block, *a.value, *b.value);
  if (into_right) {
    std::swap(operand(left), operand(left + 1));
  } else {
    settle_result(a, block, static_cast<Tag>(tag));
  }
  drop_top();
}

// A difference is the sum with the negated right operand. Between reals of one type that is the same as subtracting.
bool subtracts_directly(const ScriptValue& a, const ScriptValue& b) {
  return a.type == b.type && (a.type == kFloatArray || a.type == kDoubleArray);
}

} // namespace

void array_operation(int kind) {
  const int left = operand_count() - 2;
  if (kind != '+' && kind != '-' && kind != '*' && kind != '/') {
    report_error_char("Not allowed array operand", operator_character(kind));
    return keep_left();
  }
  if (kind == '-' && !subtracts_directly(*peek_operand(left), *peek_operand(left + 1))) {
    if (!materialize(left + 1) || !negate_value(operand(left + 1))) {
      report_error("Not allowed operands");
      return keep_left();
    }
    kind = '+';
  }
  if (is_array(peek_operand(left)->type) && is_array(peek_operand(left + 1)->type)) return array_with_array(kind);
  scalar_with_array(kind);
}

} // namespace qsl
