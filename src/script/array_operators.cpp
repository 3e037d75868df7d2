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

template <typename T> void integer_with_scalar(int kind, T* a, int n, std::int32_t s, ScalarSide side) {
  for (int i = 0; i < n; ++i) {
    if (side.left && kind == '/' && a[i] == 0) return report_error(kDivideByZero);
    a[i] = narrow<T>(side.left ? integer_result(kind, s, a[i]) : integer_result(kind, a[i], s));
  }
}

template <typename T> void real_with_scalar(int kind, T* a, int n, double s, ScalarSide side) {
  for (int i = 0; i < n; ++i) {
    if (side.left && kind == '/' && a[i] == T{0}) return report_error(kDivideByZero);
    a[i] = static_cast<T>(side.left ? real_result(kind, s, a[i]) : real_result(kind, a[i], s));
  }
}

// The integers are replaced in place by 32-bit floats. After a zero divisor the rest keeps its numbers, as floats.
void int_array_to_float(int kind, ScriptValue& a, double s, ScalarSide side) {
  const bool divides = side.left && kind != '+'; // a scalar times an array is computed as a quotient here
  char* bytes = static_cast<char*>(a.value.data);
  bool faulty = false;
  for (int i = 0; i < a.count; ++i) {
    std::int32_t element;
    std::memcpy(&element, bytes + std::int64_t{i} * 4, 4);
    if (divides && element == 0 && !faulty) {
      report_error(kDivideByZero);
      faulty = true;
    }
    double x = element;
    if (!faulty) x = divides ? s / x : real_result(kind, x, s);
    const float result = to_float(x);
    std::memcpy(bytes + std::int64_t{i} * 4, &result, 4);
  }
  a.type = kFloatArray;
}

void complex_with_scalar(int kind, Complex* a, int n, Complex s, ScalarSide side) {
  for (int i = 0; i < n; ++i) {
    if (side.left && kind == '/' && is_zero(a[i])) return report_error(kDivideByZero);
    a[i] = side.left ? complex_result(kind, s, a[i]) : complex_result(kind, a[i], s);
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

void combine_with_scalar(int kind, ScriptValue& a, const ScriptValue& scalar, ScalarSide side) {
  double s = scalar.type == kComplex ? 0.0 : number_of(scalar);
  if (kind == '/' && !side.left) {
    if (scalar.type == kComplex ? is_zero(scalar.value.z) : s == 0.0) return report_error(kDivideByZero);
    if (scalar.type == kDouble && a.type != kComplexArray) {
      s = 1.0 / s;
      kind = '*';
    }
  }
  switch (a.type) {
  case kByteArray: return integer_with_scalar(kind, elements<std::uint8_t>(a), a.count, scalar.value.i, side);
  case kShortArray: return integer_with_scalar(kind, elements<std::int16_t>(a), a.count, scalar.value.i, side);
  case kIntArray:
    if (scalar.type == kDouble) return int_array_to_float(kind, a, s, side);
    return integer_with_scalar(kind, elements<std::int32_t>(a), a.count, scalar.value.i, side);
  case kFloatArray: return real_with_scalar(kind, elements<float>(a), a.count, s, side);
  case kDoubleArray: return real_with_scalar(kind, elements<double>(a), a.count, s, side);
  default: return complex_with_scalar(kind, elements<Complex>(a), a.count, as_complex(scalar), side);
  }
}

void widen_scalar(ScriptValue& v) {
  if (v.type == kByte || v.type == kShort) set_int(v, static_cast<std::int32_t>(number_of(v)));
  if (v.type == kFloat) set_double(v, v.value.f);
}

void scalar_with_array(int kind, ScriptValue& a, ScriptValue& b) {
  const bool left = !is_array(a.type);
  ScriptValue& scalar = left ? a : b;
  ScriptValue& array = left ? b : a;
  widen_scalar(scalar);
  if (!scalar_accepted(array.type, scalar.type)) {
    report_error("Illegal Operands");
    return drop_top();
  }
  combine_with_scalar(kind, array, scalar, {left});
  if (left) std::swap(a, b);
  drop_top();
}

// Converts an array to a higher tag by element into new memory; false after a message.
bool promote_array(ScriptValue& v, int tag) {
  if (v.type == tag) return true;
  if (v.type < kByteArray) {
    report_error("Not allowed operands");
    return false;
  }
  void* data = allocate(std::int64_t{v.count} * element_size(tag));
  if (!data) return false;
  const int source = element_of(v.type), target = element_of(tag);
  for (int i = 0; i < v.count; ++i) write_number(target, data, i, read_number(source, v.value.data, i));
  std::free(v.value.data);
  v.value.data = data;
  v.type = static_cast<Tag>(tag);
  return true;
}

template <typename T> void integer_with_array(int kind, T* a, const T* b, int n) {
  for (int i = 0; i < n; ++i) {
    if (kind == '/' && b[i] == 0) return report_error(kDivideByZero);
    a[i] = narrow<T>(integer_result(kind, a[i], b[i]));
  }
}

template <typename T> void real_with_array(int kind, T* a, const T* b, int n) {
  for (int i = 0; i < n; ++i) {
    if (kind == '/' && b[i] == T{0}) return report_error(kDivideByZero);
    a[i] = static_cast<T>(real_result(kind, a[i], b[i]));
  }
}

void complex_with_array(int kind, Complex* a, const Complex* b, int n) {
  for (int i = 0; i < n; ++i) {
    if (kind == '/' && is_zero(b[i])) return report_error(kDivideByZero);
    a[i] = complex_result(kind, a[i], b[i]);
  }
}

void array_with_array(int kind, ScriptValue& a, ScriptValue& b) {
  if (a.count != b.count) {
    report_error("Different dimension in array operands");
    return drop_top();
  }
  const int tag = a.type > b.type ? a.type : b.type;
  if (promote_array(a, tag) && promote_array(b, tag)) {
    const int n = a.count;
    switch (tag) {
    case kByteArray: integer_with_array(kind, elements<std::uint8_t>(a), elements<std::uint8_t>(b), n); break;
    case kShortArray: integer_with_array(kind, elements<std::int16_t>(a), elements<std::int16_t>(b), n); break;
    case kIntArray: integer_with_array(kind, elements<std::int32_t>(a), elements<std::int32_t>(b), n); break;
    case kFloatArray: real_with_array(kind, elements<float>(a), elements<float>(b), n); break;
    case kDoubleArray: real_with_array(kind, elements<double>(a), elements<double>(b), n); break;
    default: complex_with_array(kind, elements<Complex>(a), elements<Complex>(b), n);
    }
  }
  drop_top();
}

} // namespace

void array_operation(int kind) {
  ScriptValue& a = operand(operand_count() - 2);
  ScriptValue& b = top_operand();
  if (kind != '+' && kind != '-' && kind != '*' && kind != '/') {
    report_error_char("Not allowed array operand", operator_character(kind));
    return drop_top();
  }
  if (kind == '-') {
    if (!negate_value(b)) {
      report_error("Not allowed operands");
      return drop_top();
    }
    kind = '+';
  }
  if (is_array(a.type) && is_array(b.type)) return array_with_array(kind, a, b);
  scalar_with_array(kind, a, b);
}

} // namespace qsl
