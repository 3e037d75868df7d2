#include "script/operators.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "script/numbers.h"
#include "script/operand_stack.h"
#include "script/report.h"
#include "script/tokenizer.h"

namespace qsl {

void arithmetic_fault() {
  std::fflush(stdout);
  std::raise(SIGFPE);
  std::abort();
}

namespace {

constexpr const char* kNotAllowed = "Not allowed operands";

// Converts a scalar to a higher tag in place; false if there is no such conversion.
bool promote(ScriptValue& v, int tag) {
  if (v.type == tag) return true;
  const int source = v.type;
  const bool integer = source == kByte || source == kShort || source == kInt;
  const double number = is_number(source) ? number_of(v) : 0.0;
  switch (tag) {
  case kShort:
    if (source != kByte) return false;
    set_scalar(v, kShort);
    v.value.h = static_cast<std::int16_t>(number);
    return true;
  case kInt:
    if (source != kByte && source != kShort) return false;
    set_int(v, static_cast<std::int32_t>(number));
    return true;
  case kFloat:
    if (!integer) return false;
    set_scalar(v, kFloat);
    v.value.f = to_float(number);
    return true;
  case kDouble:
    if (!integer && source != kFloat) return false;
    set_double(v, number);
    return true;
  case kComplex:
    if (!integer && source != kDouble) return false;
    set_scalar(v, kComplex);
    v.value.z = {to_float(number), 0.0F};
    return true;
  default: return false;
  }
}

bool terminated(const ScriptValue& v) {
  return v.count > 0 && std::memchr(v.value.data, 0, static_cast<std::size_t>(v.count)) != nullptr;
}

// A terminated CHAR array becomes a STRING with the text before its zero byte.
bool char_array_to_string(ScriptValue& v) {
  if (!terminated(v)) {
    report_error("Non terminated character array");
    return false;
  }
  ScriptValue text{};
  if (!set_string(text, text_of(v))) return false;
  move_value(v, text);
  return true;
}

// Brings both operands to one tag; false after a message.
bool unify(ScriptValue& a, ScriptValue& b) {
  if (a.type == kCharArray || b.type == kCharArray) {
    const bool texts = a.type >= kString && b.type >= kString;
    if (!texts) {
      report_error(kNotAllowed);
      return false;
    }
    return (a.type == kString || char_array_to_string(a)) && (b.type == kString || char_array_to_string(b));
  }
  const int tag = std::max(a.type, b.type);
  if (promote(a.type < tag ? a : b, tag)) return true;
  report_error(kNotAllowed);
  return false;
}

int compare_texts(const ScriptValue& a, const ScriptValue& b) {
  const int shared = std::min(a.count, b.count);
  const int order = std::memcmp(a.value.data, b.value.data, static_cast<std::size_t>(shared));
  return order != 0 ? order : a.count - b.count;
}

template <typename T> bool compare(int kind, T a, T b) {
  switch (kind) {
  case kEqual: return a == b;
  case kNotEqual: return a != b;
  case kGreaterEqual: return a >= b;
  case kLessEqual: return a <= b;
  case kGreater: return a > b;
  default: return a < b;
  }
}

bool compare_complex(int kind, Complex a, Complex b) {
  const bool equal = a.re == b.re && a.im == b.im;
  return kind == kEqual ? equal : kind == kNotEqual && !equal;
}

void compare_operands(int kind, ScriptValue& a, ScriptValue& b) {
  bool result = false;
  switch (a.type) {
  case kByte:
  case kShort:
  case kInt:
  case kDouble: result = compare(kind, number_of(a), number_of(b)); break;
  case kFloat: result = compare(kind, a.value.f, b.value.f); break;
  case kComplex: result = compare_complex(kind, a.value.z, b.value.z); break;
  case kString: result = compare(kind, compare_texts(a, b), 0); break;
  default: report_error(kNotAllowed); return drop_top();
  }
  free_value(a);
  set_int(a, result);
  drop_top();
}

void logical_operation(int kind, ScriptValue& a, ScriptValue& b) {
  if (a.type != kInt) {
    report_error("AND operands must be of type INT");
  } else {
    const bool left = a.value.i != 0, right = b.value.i != 0;
    a.value.i = kind == kAnd ? left && right : kind == kOr ? left || right : left != right;
  }
  drop_top();
}

// Integers of every width are computed in 32 bits, of which the tag keeps the low ones. False: divisor zero.
bool integer_arithmetic(int kind, ScriptValue& a, const ScriptValue& b) {
  const std::int32_t x = to_int(number_of(a)), y = to_int(number_of(b));
  std::int32_t result = 0;
  switch (kind) {
  case '+': result = wrap_add(x, y); break;
  case '-': result = wrap_add(x, wrap_negate(y)); break;
  case '*': result = wrap_multiply(x, y); break;
  default:
    if (y == 0) return false;
    result = divide(x, y);
  }
  switch (a.type) {
  case kByte: a.value.b = low_byte(result); break;
  case kShort: a.value.h = low_short(result); break;
  default: a.value.i = result;
  }
  return true;
}

template <typename T> bool real_arithmetic(int kind, T& a, T b) {
  switch (kind) {
  case '+': a += b; return true;
  case '-': a -= b; return true;
  case '*': a *= b; return true;
  default:
    if (b == T{0}) return false;
    a /= b;
    return true;
  }
}

bool complex_arithmetic(int kind, Complex& a, Complex b) {
  switch (kind) {
  case '+': a = {a.re + b.re, a.im + b.im}; return true;
  case '-': a = {a.re - b.re, a.im - b.im}; return true;
  case '*': a = multiply_complex(a, b); return true;
  default:
    if (b.re == 0.0F && b.im == 0.0F) return false;
    a = divide_complex(a, b);
    return true;
  }
}

void concatenate(ScriptValue& a, const ScriptValue& b) {
  const std::int64_t length = std::int64_t{a.count} + b.count;
  char* text = static_cast<char*>(allocate(length > INT32_MAX ? -1 : length));
  if (!text) return;
  std::memcpy(text, a.value.data, static_cast<std::size_t>(a.count));
  std::memcpy(text + a.count, b.value.data, static_cast<std::size_t>(b.count));
  text[length] = 0;
  free_value(a);
  a.type = kString;
  a.ndim = 1;
  a.count = static_cast<std::int32_t>(length);
  a.value.data = text;
}

void arithmetic(int kind, ScriptValue& a, ScriptValue& b) {
  bool divided = true;
  switch (a.type) {
  case kByte:
  case kShort:
  case kInt: divided = integer_arithmetic(kind, a, b); break;
  case kFloat: divided = real_arithmetic(kind, a.value.f, b.value.f); break;
  case kDouble: divided = real_arithmetic(kind, a.value.d, b.value.d); break;
  case kComplex: divided = complex_arithmetic(kind, a.value.z, b.value.z); break;
  case kString:
    if (kind == '+') {
      concatenate(a, b);
      break;
    }
    [[fallthrough]];
  default: report_error(kNotAllowed);
  }
  if (!divided) report_error("Divide by zero");
  drop_top();
}

void modulo(ScriptValue& a, const ScriptValue& b) {
  if (a.type == kInt) {
    a.value.i = remainder(a.value.i, b.value.i);
  } else {
    report_error("Modulo operands must be of type integer");
  }
  drop_top();
}

// Both operands of a binary operation. Null: there are too few, or one has no usable value.
ScriptValue* left_of_two() {
  if (interp.stack.overflow) return nullptr;
  if (operand_count() < 2) {
    report_error("Too few stack elements");
    return nullptr;
  }
  const int left = operand_count() - 2;
  const bool usable = materialize(left) & materialize(left + 1);
  if (usable) return &operand(left);
  free_value(operand(left));
  drop_top();
  return nullptr;
}

} // namespace

void drop_top() { clear_stack(operand_count() - 1); }

Complex divide_complex(Complex x, Complex y) {
  const double a = x.re, b = x.im, c = y.re, d = y.im;
  const double n = c * c + d * d;
  return {to_float((d * b + c * a) / n), to_float((c * b - d * a) / n)};
}

void logical_not() {
  if (operand_count() == 0 || interp.stack.overflow || !materialize(operand_count() - 1)) return;
  ScriptValue& v = top_operand();
  if (v.type != kInt) return report_error("NOT operand must be of type integer");
  v.value.i = v.value.i == 0;
}

bool negate_value(ScriptValue& v) {
  const int n = v.count;
  switch (v.type) {
  case kByte: v.value.b = low_byte(-v.value.b); return true;
  case kShort: v.value.h = low_short(-v.value.h); return true;
  case kInt: v.value.i = wrap_negate(v.value.i); return true;
  case kFloat: v.value.f = -v.value.f; return true;
  case kDouble: v.value.d = -v.value.d; return true;
  case kComplex: v.value.z = {-v.value.z.re, -v.value.z.im}; return true;
  case kByteArray:
    for (int i = 0; i < n; ++i) elements<std::uint8_t>(v)[i] = low_byte(-elements<std::uint8_t>(v)[i]);
    return true;
  case kShortArray:
    for (int i = 0; i < n; ++i) elements<std::int16_t>(v)[i] = low_short(-elements<std::int16_t>(v)[i]);
    return true;
  case kIntArray:
    for (int i = 0; i < n; ++i) elements<std::int32_t>(v)[i] = wrap_negate(elements<std::int32_t>(v)[i]);
    return true;
  case kFloatArray:
    for (int i = 0; i < n; ++i) elements<float>(v)[i] = -elements<float>(v)[i];
    return true;
  case kDoubleArray:
    for (int i = 0; i < n; ++i) elements<double>(v)[i] = -elements<double>(v)[i];
    return true;
  case kComplexArray:
    for (int i = 0; i < n; ++i) elements<Complex>(v)[i] = {-elements<Complex>(v)[i].re, -elements<Complex>(v)[i].im};
    return true;
  default: return false;
  }
}

void negate_operand() {
  if (operand_count() == 0 || interp.stack.overflow || !materialize(operand_count() - 1)) return;
  if (!negate_value(top_operand())) report_error(kNotAllowed);
}

namespace {

// Whether the operands have values and one is an array of numbers. Borrowed arrays need no copy then.
bool array_takes_part() {
  if (interp.stack.overflow || operand_count() < 2) return false;
  const ScriptValue *a = peek_operand(operand_count() - 2), *b = peek_operand(operand_count() - 1);
  return a && b && a->type != kFree && b->type != kFree && (a->type >= kByteArray || b->type >= kByteArray);
}

} // namespace

void binary_operation(int kind) {
  if (array_takes_part()) return array_operation(kind);
  ScriptValue* left = left_of_two();
  if (!left) return;
  ScriptValue& a = *left;
  ScriptValue& b = *(left + 1);
  if (!unify(a, b)) {
    free_value(a); // no usable value is left of this expression
    return drop_top();
  }
  switch (kind) {
  case '+':
  case '-':
  case '*':
  case '/': return arithmetic(kind, a, b);
  case '%': return modulo(a, b);
  case kAnd:
  case kOr:
  case kExclusiveOr: return logical_operation(kind, a, b);
  default: return compare_operands(kind, a, b);
  }
}

} // namespace qsl
