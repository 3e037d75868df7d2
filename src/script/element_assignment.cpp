// name[subscripts] = expression, with its table of conversions.
#include "script/arrays.h"
#include "script/evaluator.h"
#include "script/numbers.h"
#include "script/report.h"
#include "script/subscripts.h"

namespace qsl {
namespace {

bool integer_source(int element) { return element == kByte || element == kShort || element == kInt; }
bool real_source(int element) { return element == kFloat || element == kDouble; }

// Whether a number of one element type may be stored in another; characters come as INT.
bool can_convert(int source, int target) {
  switch (target) {
  case kInt:
  case kFloat:
  case kDouble: return integer_source(source) || real_source(source);
  case kComplex: return source == kComplex;
  default: return integer_source(source);
  }
}

void report_illegal(int target) {
  const bool plain = target == kInt || target == kFloat || target == kDouble;
  report_error(plain ? "Illegal expression value" : "Illegal expression value - use conversion function");
}

// Element j of the source to element i of the target.
void store_element(int target, void* to, std::int64_t i, int source, const void* from, std::int64_t j) {
  if (target == kComplex) {
    static_cast<Complex*>(to)[i] = static_cast<const Complex*>(from)[j];
    return;
  }
  write_number(target, to, i, read_number(source, from, j));
}

void store_selection(ScriptValue& v, const SubscriptList& list, const ScriptValue& right) {
  const int source = right.type == kString ? kString : element_of(right.type), target = element_of(v.type);
  const bool convertible = can_convert(source, target);
  if (list.count == 1 && !convertible) return report_illegal(target);
  if (list.count != right.count && (right.count != 1 || right.type == kString))
    return report_error("Mismatch of arrays");
  if (!convertible) return report_illegal(target);
  const void* from = is_array(right.type) ? right.value.data : &right.value;
  const bool spread = right.count == 1;
  SelectionWalk walk = begin_walk(v, list);
  for (std::int32_t i = 0; i < list.count; ++i, step(walk))
    store_element(target, v.value.data, walk.flat, source, from, spread ? 0 : i);
}

// What a target may be besides readable: the end mark of a string stays, and a string takes single elements only.
bool can_be_target(const ScriptValue& v, const char* name, const SubscriptList& list) {
  if (v.type != kString) return true;
  if (list.count > 1) {
    report_error_text("Non array variable", name);
    return false;
  }
  if (list.lower[0] < v.count) return true;
  report_error_text("Subscript out of range in", name);
  return false;
}

// The elements that the subscripts select take the value of the expression.
void assign_selection(int index, const char* name, SubscriptList& list, const Code& expression) {
  const ScriptValue before = variable(index);
  if (!check_selection(variable(index), name, list) || !can_be_target(variable(index), name, list)) return;
  const int n = run_list(expression);
  ScriptValue& v = variable(index);
  // A function on the right side may have replaced the variable.
  const bool same = v.type == before.type && v.value.data == before.value.data && v.count == before.count;
  if (n > 0 && operand(0).type != kFree && (same || check_selection(v, name, list)))
    store_selection(v, list, operand(0));
  clear_stack(0);
}

} // namespace

void assign_elements(const char* name) {
  const int index = find_variable(name);
  if (index < 0) return report_error_text("Undefined variable", name);
  Code* subscripts = compile_subscripts(name);
  if (!subscripts) return;
  const TokenState behind = interp.token;
  SubscriptList list{};
  const bool good = run_subscripts(*subscripts, list);
  free_code(subscripts);
  interp.token = behind;
  if (!good) return;
  if (token() != '=') {
    if (token() != kErrorToken) report_error_char("Syntax error - Expected", '=');
    return;
  }
  if (Code* expression = compile_list(false)) {
    assign_selection(index, name, list, *expression);
    free_code(expression);
  }
}

void assign_selected(const KnownName& name, const Code& subscripts, const Code& expression) {
  const int index = find_known(name);
  if (index < 0) return report_error_text("Undefined variable", name.text);
  SubscriptList list;
  if (run_subscripts(subscripts, list)) assign_selection(index, name.text, list, expression);
}

} // namespace qsl
