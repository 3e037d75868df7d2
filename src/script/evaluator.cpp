#include "script/evaluator.h"

#include "script/builtin_functions.h"
#include "script/decided_statement.h"
#include "script/interrupt.h"
#include "script/numbers.h"
#include "script/operators.h"
#include "script/report.h"
#include "script/subscripts.h"

namespace qsl {
namespace {

const Operation* run(const Code& code, const Operation* op, const Operation* end);

const Operation* end_of(const Code& code, const Operation* op) { return code.operations + op->end; }

// A CHAR is an INT in expressions.
void push_value(const ScriptValue& v) {
  if (v.type == kChar) return push_int(v.value.c);
  push_copy(v);
}

void push_variable(const KnownName& name, int mode) {
  const int index = find_known(name);
  if (index < 0) {
    if (mode == kByValue || mode == kBorrow) return report_error_text("Undefined identifier", name.text);
    return push_alias(index, name);
  }
  const ScriptValue& v = variable(index);
  if (v.type == kInt || v.type == kDouble) {
    if (mode == kAliasAlways) return push_alias(index, name);
    return push_number(v);
  }
  const bool alias = mode == kAliasAlways || (mode == kAliasArrays && owns_memory(v.type)) ||
                     (mode == kBorrow && v.type >= kByteArray);
  if (alias) return push_alias(index, name);
  push_value(v);
}

void push_text(const char* text) {
  ScriptValue* v = push_operand();
  if (v && !set_string(*v, text)) clear_stack(operand_count() - 1);
}

// An expression as a bound, taken from the stack. False after a message.
bool run_bound(const Code& code, const Operation* op, std::int32_t& number) {
  const int depth = operand_count();
  run(code, op + 1, end_of(code, op));
  const bool valued = operand_count() == depth + 1 && top_operand().type != kFree;
  const bool integer = valued && top_operand().type == kInt;
  if (integer) number = top_operand().value.i;
  if (valued && !integer) report_error("Subscripts must be of type integer");
  clear_stack(depth);
  return integer;
}

// The bounds of a selection. False after a message.
bool run_bounds(const Code& code, const Operation* op, SubscriptList& list) {
  const Operation* end = end_of(code, op);
  std::int32_t lower = 0, upper = 0;
  bool good = op->complete;
  int k = 0;
  list.number = op->count;
  for (const Operation* p = op + 1; p < end;) {
    switch (p->action) {
    case kLowerBound:
      good &= run_bound(code, p, lower);
      p = end_of(code, p);
      break;
    case kUpperBound:
      good &= run_bound(code, p, upper);
      p = end_of(code, p);
      break;
    case kCloseSubscript:
      if (k < kSubscripts) {
        list.kinds[k] = static_cast<SubscriptKind>(p->count);
        list.lower[k] = lower;
        list.upper[k] = p->count == kRange ? upper : lower;
        ++k;
      }
      lower = upper = 0;
      ++p;
      break;
    default: p = run(code, p, p + 1);
    }
  }
  return good;
}

void run_selection(const Code& code, const Operation* op) {
  const KnownName& name = code.names[op->index];
  const int index = find_known(name);
  if (index < 0) report_error_text("Undefined identifier", name.text);
  SubscriptList list;
  if (run_bounds(code, op, list) && index >= 0) push_selection(index, name.text, list);
}

void run_function(const Code& code, const Operation* op) {
  const int first = operand_count();
  run(code, op + 1, end_of(code, op));
  if (op->complete && !interp.stack.overflow && !interrupted()) exec_builtin(op->index, first);
}

// The operators between an INT or DOUBLE and another. False: nothing was done, and the general operation decides.
template <typename T> bool combine_numbers(int kind, ScriptValue& a, T x, T y) {
  bool truth = false;
  switch (kind) {
  case kLess: truth = x < y; break;
  case kGreater: truth = x > y; break;
  case kLessEqual: truth = x <= y; break;
  case kGreaterEqual: truth = x >= y; break;
  case kEqual: truth = x == y; break;
  case kNotEqual: truth = x != y; break;
  default: return false;
  }
  a.type = kInt;
  a.value.d = 0.0;
  a.value.i = truth;
  return true;
}

bool combine_reals(int kind, ScriptValue& a, double x, double y) {
  switch (kind) {
  case '+': a.value.d = x + y; break;
  case '-': a.value.d = x - y; break;
  case '*': a.value.d = x * y; break;
  case '/':
    if (y == 0.0) return false;
    a.value.d = x / y;
    break;
  default: return combine_numbers(kind, a, x, y);
  }
  a.type = kDouble;
  return true;
}

bool combine_integers(int kind, ScriptValue& a, std::int32_t x, std::int32_t y) {
  switch (kind) {
  case '+': a.value.i = wrap_add(x, y); return true;
  case '-': a.value.i = wrap_add(x, wrap_negate(y)); return true;
  case '*': a.value.i = wrap_multiply(x, y); return true;
  case '%':
    if (y <= 0) return false;
    a.value.i = x % y;
    return true;
  case kAnd: a.value.i = x != 0 && y != 0; return true;
  case kOr: a.value.i = x != 0 || y != 0; return true;
  default: return combine_numbers(kind, a, x, y);
  }
}

void combine(int kind) {
  StackState& s = interp.stack;
  if (s.count >= 2 && !s.overflow) {
    ScriptValue& a = s.entries[s.count - 2];
    const ScriptValue& b = s.entries[s.count - 1];
    const bool done = a.type == kInt && b.type == kInt         ? combine_integers(kind, a, a.value.i, b.value.i)
                      : a.type == kDouble && b.type == kDouble ? combine_reals(kind, a, a.value.d, b.value.d)
                      : a.type == kDouble && b.type == kInt    ? combine_reals(kind, a, a.value.d, b.value.i)
                      : a.type == kInt && b.type == kDouble    ? combine_reals(kind, a, a.value.i, b.value.d)
                                                               : false;
    if (done) {
      --s.count;
      return;
    }
  }
  binary_operation(kind);
}

// Runs operations; returns the end.
const Operation* run(const Code& code, const Operation* op, const Operation* end) {
  while (op < end) {
    switch (op->action) {
    case kPushInt: push_int(op->integer); break;
    case kPushReal: push_double(op->real); break;
    case kPushText: push_text(code.texts + op->integer); break;
    case kPushVariable: push_variable(code.names[op->index], op->mode); break;
    case kPushName: push_alias(find_known(code.names[op->index]), code.names[op->index].text); break;
    case kSelect:
      run_selection(code, op);
      op = end_of(code, op);
      continue;
    case kRunFunction:
      run_function(code, op);
      op = end_of(code, op);
      continue;
    case kLogicalNot: logical_not(); break;
    case kNegate: negate_operand(); break;
    case kCombine: combine(op->index); break;
    case kRaise: power_operation(); break;
    case kSay: report_error(op->message); break;
    case kSayChar: report_error_char(op->message, static_cast<char>(op->count)); break;
    case kSayName: report_error_text(op->message, code.names[op->index].text); break;
    case kLowerBound:
    case kUpperBound:
    case kCloseSubscript: break; // belong to their selection
    }
    ++op;
  }
  return op;
}

// Aliases that a failed function has left are no values.
void settle_operands() {
  for (int i = 0; i < operand_count(); ++i) {
    if (operand(i).type != kAlias) continue;
    if (peek_operand(i)) {
      materialize(i);
    } else {
      free_value(operand(i));
    }
  }
}

} // namespace

int run_list(const Code& code) {
  clear_stack(0);
  interp.stack.overflow = false;
  if (code.empty) return kNothing;
  run(code, code.operations, code.operations + code.count);
  if (interp.stack.overflow || interrupted()) clear_stack(0);
  if (!code.alias_mode) settle_operands();
  return operand_count();
}

bool run_subscripts(const Code& code, SubscriptList& list) {
  clear_stack(0);
  interp.stack.overflow = false;
  return run_bounds(code, code.operations, list);
}

int evaluate(bool alias_mode) {
  Code* code = code_at_token(alias_mode);
  if (!code) {
    clear_stack(0);
    return 0;
  }
  const TokenState behind = interp.token;
  const int n = run_list(*code);
  interp.token = behind;
  release_code(code);
  return n;
}

} // namespace qsl
