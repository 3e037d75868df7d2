// INT, FLOAT, DOUBLE, BYTE, SHORT, CHAR, STRING and COMPLEX.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "script/builtin_rows.h"
#include "script/interrupt.h"
#include "script/numbers.h"
#include "script/operand_stack.h"
#include "script/report.h"

namespace qsl {
namespace {

constexpr double kFloatLimit = 3.4e38;

struct Conversion {
  const char* name;
  Tag element; // of the result
  double low, high;
};

bool in_range(const Conversion& c, double x) {
  if (c.element == kDouble) return true;
  if (c.element == kFloat || c.element == kComplex) return !(x < c.low || x > c.high);
  return x >= c.low && x <= c.high;
}

void report_in(const char* text, const char* name) { report_error_text(text, name); }

// Numbers of a value: one character of a string counts as a scalar.
struct Numbers {
  int element;
  const void* data;
  int count;
  bool scalar;
};

Numbers numbers_of_value(const ScriptValue& v) {
  const bool scalar = v.type < kString || (v.type == kString && v.count == 1);
  return {element_of(v.type), v.type < kString ? &v.value : v.value.data, v.count, scalar};
}

// Room for a result of the shape of an argument, zeroed.
bool make_array(ScriptValue& result, const ScriptValue& shape, Tag type) {
  result.type = type;
  result.count = shape.count;
  result.ndim = 1;
  result.dims = nullptr;
  result.value.data = allocate_zeroed(std::int64_t{shape.count} + 1, element_size(type));
  if (!result.value.data) return false;
  if (shape.ndim < 2 || type == kString) return true;
  const std::size_t bytes = static_cast<std::size_t>(shape.ndim) * sizeof(std::int32_t);
  result.dims = static_cast<std::int32_t*>(allocate(static_cast<std::int64_t>(bytes)));
  if (!result.dims) {
    std::free(result.value.data);
    return false;
  }
  std::memcpy(result.dims, shape.dims, bytes);
  result.ndim = shape.ndim;
  return true;
}

// A value that has the wanted type already: passed on, or copied from its variable.
void pass_value(int first, ScriptValue& v, bool is_alias) {
  ScriptValue result{};
  if (!is_alias) return replace_operands(first, v);
  if (copy_value(result, v)) replace_operands(first, result);
}

bool has_type(const ScriptValue& v, Tag element, bool text) {
  if (text) return v.type == kString;
  return v.type == element || v.type == array_of(element);
}

// Converts the numbers; false if one was out of range.
bool convert_numbers(const Conversion& c, const Numbers& from, void* to) {
  bool good = true;
  for (int i = 0; i < from.count && !interrupted(); ++i) {
    const double x = read_number(from.element, from.data, i);
    if (in_range(c, x)) {
      write_number(c.element, to, i, x);
    } else {
      good = false;
    }
  }
  return good;
}

void convert(int first, const Conversion& c, bool text) {
  const int last = operand_count() - 1;
  ScriptValue* v = resolve_operand(last);
  if (!v || v->type == kFree) return;
  if (has_type(*v, c.element, text)) return pass_value(first, *v, operand(last).type == kAlias);
  const Numbers from = numbers_of_value(*v);
  ScriptValue result{};
  if (from.scalar && !text) {
    set_scalar(result, c.element);
    if (!convert_numbers(c, from, &result.value)) return report_in("Overflow in routine", c.name);
    return replace_operands(first, result);
  }
  if (!make_array(result, *v, text ? kString : array_of(c.element))) return;
  if (!convert_numbers(c, from, result.value.data)) {
    report_in("Overflow in routine", c.name);
    if (from.scalar) return free_value(result);
  }
  if (text) result.count = static_cast<std::int32_t>(std::strlen(text_of(result)));
  replace_operands(first, result);
}

constexpr Conversion kToComplex = {"COMPLEX", kComplex, -kFloatLimit, kFloatLimit};

void complex_of_one(int first) {
  ScriptValue* v = resolve_operand(first);
  if (!v || v->type == kFree) return;
  if (has_type(*v, kComplex, false)) return pass_value(first, *v, operand(first).type == kAlias);
  convert(first, kToComplex, false);
}

// Fills one part of complex numbers; false if a number was out of range.
bool fill_part(const Numbers& from, Complex* to, bool imaginary) {
  bool good = true;
  for (int i = 0; i < from.count && !interrupted(); ++i) {
    const double x = read_number(from.element, from.data, i);
    if (!in_range(kToComplex, x)) {
      good = false;
      continue;
    }
    (imaginary ? to[i].im : to[i].re) = to_float(x);
  }
  return good;
}

void complex_of_two(int first) {
  const ScriptValue* a = resolve_operand(first);
  const ScriptValue* b = resolve_operand(first + 1);
  if (!a || !b || a->type == kFree || b->type == kFree) return;
  if (a->type != b->type) return report_error("Parameters in COMPLEX must have identical types");
  const bool complex = element_of(a->type) == kComplex;
  if (complex || a->count != b->count) return report_error("Not allowed operands in COMPLEX");
  const Numbers re = numbers_of_value(*a), im = numbers_of_value(*b);
  ScriptValue result{};
  if (re.scalar) {
    set_scalar(result, kComplex);
  } else if (!make_array(result, *a, kComplexArray)) {
    return;
  }
  Complex* to = re.scalar ? &result.value.z : elements<Complex>(result);
  const bool good_re = fill_part(re, to, false), good_im = fill_part(im, to, true);
  if (!good_re) report_error("Overflow in parameter 1 of routine COMPLEX");
  if (!good_im) report_error("Overflow in parameter 2 of routine COMPLEX");
  if (re.scalar && !(good_re && good_im)) return;
  replace_operands(first, result);
}

} // namespace

void fn_int(int first) { convert(first, {"INT", kInt, -2147483648.0, 2147483647.0}, false); }
void fn_float(int first) { convert(first, {"FLOAT", kFloat, -kFloatLimit, kFloatLimit}, false); }
void fn_double(int first) { convert(first, {"DOUBLE", kDouble, 0.0, 0.0}, false); }
void fn_short(int first) { convert(first, {"SHORT", kShort, -32768.0, 32767.0}, false); }
void fn_byte(int first) { convert(first, {"BYTE", kByte, 0.0, 255.0}, false); }
void fn_char(int first) { convert(first, {"CHAR", kChar, -128.0, 127.0}, false); }
void fn_string(int first) { convert(first, {"STRING", kChar, -128.0, 127.0}, true); }

void fn_complex(int first) {
  switch (operand_count() - first) {
  case 1: return complex_of_one(first);
  case 2: return complex_of_two(first);
  default: return report_error("Bad number of parameters in COMPLEX");
  }
}

} // namespace qsl
