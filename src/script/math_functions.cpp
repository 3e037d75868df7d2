// ACOS to TANH, and the parts of complex numbers.
#include <cmath>
#include <cstdio>
#include <cstring>
#include <numbers>

#include "script/builtin_rows.h"
#include "script/interrupt.h"
#include "script/numbers.h"
#include "script/operand_stack.h"
#include "script/report.h"

namespace qsl {
namespace {

struct ComplexDouble {
  double re, im;
};

constexpr const char* kOutOfRange = "Operand out of range in";
constexpr const char* kNonPositive = "Non positive operand in";
constexpr const char* kNegative = "Negative operand in";

// A function of one number: its value, where it is defined, and its complex form. The complex form returns false
// where it is not defined.
struct MathFunction {
  const char* name;
  double (*value)(double);
  bool (*defined)(double);
  bool (*complex_value)(ComplexDouble z, ComplexDouble& result);
  const char* domain_fault;
};

bool everywhere(double) { return true; }
bool within_one(double x) { return x >= -1.0 && x <= 1.0; }
bool positive(double x) { return x > 0.0; }
bool not_negative(double x) { return x >= 0.0; }

bool complex_cos(ComplexDouble z, ComplexDouble& r) {
  r = {std::cos(z.re) * std::cosh(z.im), -std::sin(z.re) * std::sinh(z.im)};
  return true;
}
bool complex_sin(ComplexDouble z, ComplexDouble& r) {
  r = {std::sin(z.re) * std::cosh(z.im), std::cos(z.re) * std::sinh(z.im)};
  return true;
}
bool complex_cosh(ComplexDouble z, ComplexDouble& r) {
  r = {std::cosh(z.re) * std::cos(z.im), std::sinh(z.re) * std::sin(z.im)};
  return true;
}
bool complex_sinh(ComplexDouble z, ComplexDouble& r) {
  r = {std::sinh(z.re) * std::cos(z.im), std::cosh(z.re) * std::sin(z.im)};
  return true;
}
bool complex_exp(ComplexDouble z, ComplexDouble& r) {
  r = {std::exp(z.re) * std::cos(z.im), std::exp(z.re) * std::sin(z.im)};
  return true;
}
bool complex_log(ComplexDouble z, ComplexDouble& r) {
  const double magnitude = std::hypot(z.re, z.im);
  r = {std::log(magnitude), std::atan2(z.im, z.re)};
  return magnitude > 0.0;
}
bool complex_log10(ComplexDouble z, ComplexDouble& r) {
  const bool defined = complex_log(z, r);
  r = {r.re / std::numbers::ln10, r.im / std::numbers::ln10};
  return defined;
}

// tan(a + ib) = (sin 2a + i sinh 2b) / (cos 2a + cosh 2b)
bool complex_tan(ComplexDouble z, ComplexDouble& r) {
  const double denominator = std::cos(2.0 * z.re) + std::cosh(2.0 * z.im);
  if (denominator == 0.0) return false;
  r = {std::sin(2.0 * z.re) / denominator, std::sinh(2.0 * z.im) / denominator};
  return true;
}

// tanh(a + ib) = (sinh 2a + i sin 2b) / (cosh 2a + cos 2b)
bool complex_tanh(ComplexDouble z, ComplexDouble& r) {
  const double denominator = std::cosh(2.0 * z.re) + std::cos(2.0 * z.im);
  if (denominator == 0.0) return false;
  r = {std::sinh(2.0 * z.re) / denominator, std::sin(2.0 * z.im) / denominator};
  return true;
}

// Half-angle form that keeps its digits: the larger part is the base of the root.
bool complex_sqrt(ComplexDouble z, ComplexDouble& r) {
  const double t = std::fabs(z.re), u = std::fabs(z.im);
  r = {0.0, 0.0};
  if (t == 0.0 && u == 0.0) return true;
  const double large = t > u ? t : u, small = t > u ? u : t, q = small / large;
  const double root = std::sqrt(1.0 + q * q);
  const double w =
      t > u ? std::sqrt(large) * std::sqrt(0.5 * (1.0 + root)) : std::sqrt(large) * std::sqrt(0.5 * (q + root));
  if (z.re >= 0.0) {
    r = {w, z.im / (2.0 * w)};
  } else {
    r.im = z.im >= 0.0 ? w : -w;
    r.re = z.im / (2.0 * r.im);
  }
  return true;
}

void report_type(const char* name) {
  char text[64];
  std::snprintf(text, sizeof text, "Not allowed data type in %s", name);
  report_error(text);
}

// Makes an operand real: scalars become DOUBLE and an INT array a FLOAT array in place.
void make_real(ScriptValue& v) {
  if (v.type >= kChar && v.type <= kDouble) set_double(v, number_of(v));
  if (v.type != kIntArray) return;
  char* bytes = elements<char>(v);
  for (std::int64_t i = 0; i < v.count; ++i) {
    std::int32_t number;
    std::memcpy(&number, bytes + i * 4, 4);
    const float real = static_cast<float>(number);
    std::memcpy(bytes + i * 4, &real, 4);
  }
  v.type = kFloatArray;
}

template <typename T> bool apply_real(const MathFunction& f, T* x, int n) {
  bool good = true;
  for (int i = 0; i < n && !interrupted(); ++i) {
    if (f.defined(x[i])) {
      x[i] = static_cast<T>(f.value(x[i]));
    } else {
      good = false;
    }
  }
  return good;
}

bool apply_complex(const MathFunction& f, Complex* z, int n) {
  bool good = true;
  for (int i = 0; i < n && !interrupted(); ++i) {
    ComplexDouble result;
    if (f.complex_value({z[i].re, z[i].im}, result)) {
      z[i] = {to_float(result.re), to_float(result.im)};
    } else {
      good = false;
    }
  }
  return good;
}

void run_function(int first, const MathFunction& f) {
  clear_stack(first + 1);
  if (!materialize(first)) return;
  ScriptValue& v = operand(first);
  make_real(v);
  const bool complex = element_of(v.type) == kComplex;
  if (complex && !f.complex_value) return report_type(f.name);
  bool good = true;
  switch (v.type) {
  case kDouble: good = apply_real(f, &v.value.d, 1); break;
  case kFloatArray: good = apply_real(f, elements<float>(v), v.count); break;
  case kDoubleArray: good = apply_real(f, elements<double>(v), v.count); break;
  case kComplex: good = apply_complex(f, &v.value.z, 1); break;
  case kComplexArray: good = apply_complex(f, elements<Complex>(v), v.count); break;
  default: return report_type(f.name);
  }
  if (!good) report_error_text(f.domain_fault, f.name);
}

// A function of two numbers of one tag; the result takes the place of the first.
void run_function_of_two(int first, const char* name, double (*value)(double, double), const char* type_fault) {
  clear_stack(first + 2);
  if (!(materialize(first) & materialize(first + 1))) return;
  ScriptValue& a = operand(first);
  ScriptValue& b = operand(first + 1);
  make_real(a);
  make_real(b);
  if (a.type != b.type) return report_error_text("Different data types in", name);
  if (a.count != b.count) return report_error("Different dimension in array operands");
  switch (a.type) {
  case kDouble: a.value.d = value(a.value.d, b.value.d); break;
  case kFloatArray:
    for (int i = 0; i < a.count && !interrupted(); ++i)
      elements<float>(a)[i] = to_float(value(elements<float>(a)[i], elements<float>(b)[i]));
    break;
  case kDoubleArray:
    for (int i = 0; i < a.count && !interrupted(); ++i)
      elements<double>(a)[i] = value(elements<double>(a)[i], elements<double>(b)[i]);
    break;
  default: return report_error_text(type_fault, name);
  }
  clear_stack(first + 1);
}

double angle_of(Complex z) {
  constexpr double kHalfTurn = 3.141592654;
  if (z.im != 0.0F) return std::atan2(static_cast<double>(z.im), static_cast<double>(z.re));
  return z.re >= 0.0F ? 0.0 : kHalfTurn;
}
double magnitude_of(Complex z) {
  return std::sqrt(static_cast<double>(z.re) * z.re + static_cast<double>(z.im) * z.im);
}
double imaginary_of(Complex z) { return z.im; }

// A real number of each complex one, as a scalar or an array of the given element type. False: not complex.
bool run_part(int first, Tag element, double (*part)(Complex)) {
  const ScriptValue* v = resolve_operand(first);
  if (!v || v->type == kFree) return true;
  if (element_of(v->type) != kComplex) return false;
  ScriptValue result{};
  if (v->type == kComplex) {
    set_scalar(result, element);
    write_number(element, &result.value, 0, part(v->value.z));
  } else {
    if (!copy_value(result, *v)) return true;
    const Complex* z = elements<Complex>(*v);
    // An element of the result is never longer than a complex number.
    for (int i = 0; i < v->count; ++i) write_number(element, result.value.data, i, part(z[i]));
    result.type = array_of(element);
  }
  replace_operands(first, result);
  return true;
}

} // namespace

void fn_acos(int first) { run_function(first, {"ACOS", std::acos, within_one, nullptr, kOutOfRange}); }
void fn_asin(int first) { run_function(first, {"ASIN", std::asin, within_one, nullptr, kOutOfRange}); }
void fn_atan(int first) { run_function(first, {"ATAN", std::atan, everywhere, nullptr, kOutOfRange}); }
void fn_ceil(int first) { run_function(first, {"CEIL", std::ceil, everywhere, nullptr, kOutOfRange}); }
void fn_floor(int first) { run_function(first, {"FLOOR", std::floor, everywhere, nullptr, kOutOfRange}); }
void fn_cos(int first) { run_function(first, {"COS", std::cos, everywhere, complex_cos, kOutOfRange}); }
void fn_cosh(int first) { run_function(first, {"COSH", std::cosh, everywhere, complex_cosh, kOutOfRange}); }
void fn_exp(int first) { run_function(first, {"EXP", std::exp, everywhere, complex_exp, kOutOfRange}); }
void fn_log(int first) { run_function(first, {"LOG", std::log, positive, complex_log, kNonPositive}); }
void fn_log10(int first) { run_function(first, {"LOG10", std::log10, positive, complex_log10, kNonPositive}); }
void fn_sin(int first) { run_function(first, {"SIN", std::sin, everywhere, complex_sin, kOutOfRange}); }
void fn_sinh(int first) { run_function(first, {"SINH", std::sinh, everywhere, complex_sinh, kOutOfRange}); }
void fn_sqrt(int first) { run_function(first, {"SQRT", std::sqrt, not_negative, complex_sqrt, kNegative}); }
void fn_tan(int first) { run_function(first, {"TAN", std::tan, everywhere, complex_tan, kOutOfRange}); }
void fn_tanh(int first) { run_function(first, {"TANH", std::tanh, everywhere, complex_tanh, kOutOfRange}); }

void fn_atan2(int first) { run_function_of_two(first, "ATAN2", std::atan2, "Not allowed data type in"); }
void fn_fmod(int first) { run_function_of_two(first, "FMOD", std::fmod, "Not allowed data types in"); }

void fn_arg(int first) {
  if (!run_part(first, kDouble, angle_of)) report_error("Parameter in ARG must be of type COMPLEX");
}

void fn_imag(int first) {
  if (!run_part(first, kFloat, imaginary_of)) report_error("Parameter in IMAG must be of type COMPLEX");
}

void fn_conjg(int first) {
  clear_stack(first + 1);
  ScriptValue& v = operand(first);
  if (v.type == kFree) return;
  if (element_of(v.type) != kComplex) return report_error("Parameter in CONJG must be of type COMPLEX");
  if (v.type == kComplex) v.value.z.im = -v.value.z.im;
  if (v.type == kComplexArray)
    for (int i = 0; i < v.count; ++i) elements<Complex>(v)[i].im = -elements<Complex>(v)[i].im;
}

void fn_abs(int first) {
  clear_stack(first + 1);
  ScriptValue& v = operand(first);
  const int element = element_of(v.type);
  if (v.type == kFree || v.type == kChar || v.type == kCharArray) return;
  if (v.type == kString) return report_error("Not allowed parameter in ABS");
  if (element == kComplex) return static_cast<void>(run_part(first, kDouble, magnitude_of));
  void* data = is_array(v.type) ? v.value.data : &v.value;
  for (int i = 0; i < v.count; ++i) {
    const double x = read_number(element, data, i);
    // The magnitude of the most negative integer wraps to itself.
    if (element == kInt) {
      const std::int32_t n = static_cast<std::int32_t>(x);
      static_cast<std::int32_t*>(data)[i] = n < 0 ? wrap_negate(n) : n;
    } else {
      write_number(element, data, i, std::fabs(x));
    }
  }
}

} // namespace qsl
