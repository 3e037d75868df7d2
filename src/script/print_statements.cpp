#include "script/print_statements.h"

#include <cmath>
#include <cstdio>

#include "script/evaluator.h"
#include "script/interrupt.h"
#include "script/numbers.h"

namespace qsl {
namespace {

constexpr int kColumns = 4; // values in a line
constexpr double kLargeNumber = 1000000.0, kSmallNumber = 0.000001;

bool needs_exponent(double x) {
  const double magnitude = std::fabs(x);
  return magnitude > kLargeNumber || (magnitude != 0.0 && magnitude < kSmallNumber);
}

void print_wide_double(double x) { std::printf(needs_exponent(x) ? "%15le " : "%15lf ", x); }
void print_wide_int(int i) { std::printf("%15d ", i); }

bool is_integer_element(int element) {
  return element == kChar || element == kByte || element == kShort || element == kInt;
}

void print_wide_number(int element, const void* data, int i) {
  const double x = read_number(element, data, i);
  if (is_integer_element(element)) {
    print_wide_int(static_cast<int>(x));
  } else {
    print_wide_double(x);
  }
}

int characters_before_zero(const ScriptValue& v) {
  int n = 0;
  while (n < v.count && elements<char>(v)[n] != 0) ++n;
  return n;
}

// Where PRINT stands in a line of scalars. An array of numbers counts as a column but leaves the mark alone.
struct PrintLine {
  int column = 0;
  bool open = false;
};

void close_line(PrintLine& line) {
  if (line.open) std::putchar('\n');
  line.open = false;
}

void count_value(PrintLine& line) {
  if (++line.column < kColumns) return;
  std::putchar('\n');
  line = {};
}

void print_complex(Complex z) { std::printf("     (%f, %f)\n", static_cast<double>(z.re), static_cast<double>(z.im)); }

void print_number_array(const ScriptValue& v, const PrintLine& line) {
  if (line.open) std::putchar('\n');
  const int element = element_of(v.type);
  for (int i = 0; i < v.count && !interrupted(); ++i) {
    print_wide_number(element, v.value.data, i);
    if (i % kColumns == kColumns - 1) std::putchar('\n');
  }
  if (v.count % kColumns != 0) std::putchar('\n');
}

void print_value(const ScriptValue& v, PrintLine& line) {
  switch (v.type) {
  case kChar:
  case kByte:
  case kShort:
  case kInt:
  case kFloat:
  case kDouble:
    print_wide_number(v.type, &v.value, 0);
    line.open = true;
    return count_value(line);
  case kComplex:
    close_line(line);
    print_complex(v.value.z);
    line.column = 0;
    return;
  case kString:
  case kCharArray:
    close_line(line);
    std::printf("     %.*s\n", characters_before_zero(v), text_of(v));
    line.column = 0;
    return;
  case kByteArray:
  case kShortArray:
  case kIntArray:
  case kFloatArray:
  case kDoubleArray: print_number_array(v, line); return count_value(line);
  case kComplexArray:
    close_line(line);
    for (int i = 0; i < v.count && !interrupted(); ++i) print_complex(elements<Complex>(v)[i]);
    line.column = 0;
    return;
  default: return;
  }
}

void print_narrow_number(int element, const void* data, int i) {
  if (element == kComplex) {
    const Complex z = static_cast<const Complex*>(data)[i];
    std::printf("%f %f ", static_cast<double>(z.re), static_cast<double>(z.im));
    return;
  }
  const double x = read_number(element, data, i);
  if (is_integer_element(element)) {
    std::printf("%d ", static_cast<int>(x));
  } else {
    std::printf(needs_exponent(x) ? "%le " : "%lf ", x);
  }
}

void print_in_line(const ScriptValue& v) {
  if (v.type == kFree) return;
  if (v.type == kString || v.type == kCharArray) {
    std::printf("%.*s ", characters_before_zero(v), text_of(v));
  } else if (is_array(v.type)) {
    for (int i = 0; i < v.count && !interrupted(); ++i) print_narrow_number(element_of(v.type), v.value.data, i);
  } else {
    print_narrow_number(v.type, &v.value, 0);
  }
}

} // namespace

void run_print() {
  const int n = evaluate(false);
  PrintLine line;
  for (int i = 0; i < n; ++i) print_value(operand(i), line);
  if (n > 0 && !is_array(operand(n - 1).type)) close_line(line);
  clear_stack(0);
}

void run_print_line() {
  const int n = evaluate(false);
  for (int i = 0; i < n; ++i) print_in_line(operand(i));
  if (n != 0) std::putchar('\n');
  clear_stack(0);
}

} // namespace qsl
