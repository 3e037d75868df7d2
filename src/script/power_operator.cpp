// The power. Operands are not promoted: the result's type follows the base and the kind of the exponent.
#include <cmath>
#include <cstdlib>
#include <utility>

#include "script/interrupt.h"
#include "script/numbers.h"
#include "script/operand_stack.h"
#include "script/operators.h"
#include "script/report.h"

namespace qsl {
namespace {

enum PowerFault { kNoFault, kZeroBase, kNegativeBase };

// Product of exponent factors in 32 bits, by squaring: the low bits are those of the repeated product.
std::int32_t integer_power(std::int32_t base, std::int32_t exponent) {
  if (exponent == 0 || base == 1) return 1;
  if (exponent < 0) return 0;
  std::int32_t result = 1;
  for (; exponent > 0; exponent >>= 1) {
    if (exponent & 1) result = wrap_multiply(result, base);
    base = wrap_multiply(base, base);
  }
  return result;
}

double real_power_integer(double base, std::int32_t exponent, PowerFault& fault) {
  if (exponent == 0) return 1.0;
  if (base == 0.0 && exponent < 0) {
    fault = kZeroBase;
    return base;
  }
  return std::pow(base, exponent);
}

double real_power(double base, double exponent, PowerFault& fault) {
  if (exponent == 0.0) return 1.0;
  if (base == 0.0 && exponent < 0.0) {
    fault = kZeroBase;
    return base;
  }
  if (base < 0.0) {
    fault = kNegativeBase;
    return base;
  }
  return std::pow(base, exponent);
}

void report_fault(PowerFault fault) {
  if (fault == kZeroBase) report_error("Negative exponent with base zero");
  if (fault == kNegativeBase) report_error("Negative base with non integer exponent");
}

bool can_be_powered(int element) { return element == kInt || element == kFloat || element == kDouble; }

// Element type of the result. In an array of 32-bit numbers DOUBLE results are kept as FLOAT.
Tag result_element(int base, int exponent, bool base_is_array) {
  if (base != kInt || exponent == kInt) return static_cast<Tag>(base);
  return exponent == kDouble && !base_is_array ? kDouble : kFloat;
}

// Reads base i and exponent j, writes element i of the result.
struct PowerWork {
  int base, exponent, result; // element tags
};

void power_element(const PowerWork& w, const void* base, int i, const void* exponent, int j, void* result, int k,
                   PowerFault& fault) {
  if (w.base == kInt && w.exponent == kInt) {
    const std::int32_t x = static_cast<const std::int32_t*>(base)[i];
    const std::int32_t n = static_cast<const std::int32_t*>(exponent)[j];
    static_cast<std::int32_t*>(result)[k] = integer_power(x, n);
    return;
  }
  const double x = read_number(w.base, base, i);
  const double y = w.exponent == kInt ? real_power_integer(x, static_cast<const std::int32_t*>(exponent)[j], fault)
                                      : real_power(x, read_number(w.exponent, exponent, j), fault);
  write_number(w.result, result, k, y);
}

const void* data_of(const ScriptValue& v) { return is_array(v.type) ? v.value.data : &v.value; }

void apply_power(ScriptValue& a, ScriptValue& b) {
  const bool array_base = is_array(a.type), array_exponent = is_array(b.type);
  PowerWork w{element_of(a.type), element_of(b.type), 0};
  w.result = array_exponent && !array_base ? w.exponent : result_element(w.base, w.exponent, array_base);
  PowerFault fault = kNoFault;
  if (!array_base && !array_exponent) {
    ScriptValue result{};
    set_scalar(result, static_cast<Tag>(w.result));
    power_element(w, &a.value, 0, &b.value, 0, &result.value, 0, fault);
    a.type = result.type;
    a.value = result.value;
  } else {
    // The shape is the base's if it is an array, else the exponent's; the memory is new because widths may differ.
    const ScriptValue& shape = array_base ? a : b;
    void* data = allocate(std::int64_t{shape.count} * element_size(w.result));
    if (!data) return;
    for (int i = 0; i < shape.count && !interrupted(); ++i)
      power_element(w, data_of(a), array_base ? i : 0, data_of(b), array_exponent ? i : 0, data, i, fault);
    if (!array_base) std::swap(a, b);
    std::free(a.value.data);
    a.value.data = data;
    a.type = array_of(w.result);
  }
  report_fault(fault);
}

} // namespace

void power_operation() {
  if (interp.stack.overflow) return;
  if (operand_count() < 2) return report_error("Too few stack elements");
  const int left = operand_count() - 2;
  const bool usable = materialize(left) & materialize(left + 1);
  ScriptValue& a = operand(left);
  ScriptValue& b = operand(left + 1);
  if (!usable) {
    free_value(a);
  } else if (is_array(a.type) && is_array(b.type) && a.count != b.count) {
    report_error("Different dimension in array operands");
  } else if (a.type == kString || b.type == kString || !can_be_powered(element_of(a.type)) ||
             !can_be_powered(element_of(b.type))) {
    report_error("Not allowed operands in exponentiation");
  } else {
    apply_power(a, b);
  }
  drop_top();
}

} // namespace qsl
