#include "script/evaluator.h"

#include "script/builtin_functions.h"
#include "script/operators.h"
#include "script/report.h"
#include "script/subscripts.h"

namespace qsl {
namespace {

void parse_unary();

// Arguments of a built-in function, then the function itself.
void parse_function(int row) {
  next_token();
  if (!expect('(')) return;
  const int first = operand_count();
  if (token() != ')') {
    const int mode = function_mode(row);
    for (;;) {
      interp.stack.argument_mode = mode;
      parse_expression();
      if (token() != ',') break;
      next_token();
    }
    interp.stack.argument_mode = kByValue;
  }
  if (!expect(')') || interp.stack.overflow) return;
  exec_builtin(row, first);
}

// Pushes a value as an expression sees it: a CHAR is an INT.
void push_value(const ScriptValue& v) {
  if (v.type == kChar) return push_int(v.value.c);
  push_copy(v);
}

void push_variable(int index, const char* name) {
  const int mode = interp.stack.argument_mode;
  if (index < 0 && mode == kByValue) return report_error_text("Undefined identifier", name);
  const bool alias = index < 0 || mode == kAliasAlways || (mode == kAliasArrays && owns_memory(variable(index).type));
  if (alias) return push_alias(index, name);
  push_value(variable(index));
}

void parse_identifier() {
  char name[kNameLength + 1];
  set_name(name, token_name());
  if (const int row = find_function(name); row >= 0) return parse_function(row);
  const int index = find_variable(name);
  next_token();
  if (token() != '[') return push_variable(index, name);
  if (index < 0) report_error_text("Undefined identifier", name);
  const int mode = interp.stack.argument_mode;
  interp.stack.argument_mode = kByValue;
  next_token();
  push_selection(index, name);
  interp.stack.argument_mode = mode;
}

void parse_primary() {
  switch (token()) {
  case '(':
    next_token();
    parse_expression();
    expect(')');
    break;
  case kIdentifier: parse_identifier(); break;
  case kIntConstant:
  case kFloatConstant:
  case kStringConstant:
    push_copy(interp.token.current);
    next_token();
    break;
  case kErrorToken: break; // told by the tokeniser
  default: report_error("Syntax error");
  }
}

void parse_power() {
  parse_primary();
  if (token() != kPower) return;
  next_token();
  parse_unary();
  power_operation();
}

void parse_unary() {
  const int sign = token();
  if (sign != '!' && sign != kUnaryMinus && sign != kUnaryPlus) return parse_power();
  next_token();
  parse_unary();
  if (sign == '!') logical_not();
  if (sign == kUnaryMinus) negate_operand();
}

// Binary levels, from loosest to tightest; all are left associative.
constexpr int kLevels = 4;
constexpr int kLevelOperators[kLevels][6] = {
    {kAnd, kOr}, {kEqual, kNotEqual, kGreaterEqual, kLessEqual, kGreater, kLess}, {'+', '-'}, {'%', '*', '/'}};

bool belongs_to(int kind, int level) {
  for (int op : kLevelOperators[level])
    if (op != 0 && op == kind) return true;
  return false;
}

void parse_level(int level) {
  if (level == kLevels) return parse_unary();
  parse_level(level + 1);
  while (belongs_to(token(), level)) {
    const int kind = token();
    next_token();
    parse_level(level + 1);
    binary_operation(kind);
  }
}

// An identifier with nothing but the end of its operand behind it.
bool stands_alone() {
  if (token() != kIdentifier) return false;
  const char next = peek_character();
  return next == ',' || next == ')' || next == ':' || next == 0;
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

bool ends_list() { return token() == ')' || token() == ']' || token() == ':' || token() == kEnd; }

} // namespace

bool expect(char character) {
  if (token() == character) {
    next_token();
    return true;
  }
  if (token() != kErrorToken) report_error_char("Syntax error - Expected", character);
  return false;
}

void parse_expression() { parse_level(0); }

int evaluate(bool alias_mode) {
  clear_stack(0);
  interp.stack.overflow = false;
  interp.stack.argument_mode = kByValue;
  if (next_token() == kEnd) return kNothing;
  for (;;) {
    if (alias_mode && stands_alone()) {
      push_alias(find_variable(token_name()), token_name());
      next_token();
    } else {
      parse_expression();
    }
    if (token() != ',') break;
    next_token();
  }
  if (!ends_list() && token() != kErrorToken) report_error("Syntax error - Expected end of line");
  if (interp.stack.overflow) clear_stack(0);
  if (!alias_mode) settle_operands();
  return operand_count();
}

} // namespace qsl
