// The grammar of expressions: a recursive descent over the tokens that writes the operations.
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "script/builtin_functions.h"
#include "script/expression_code.h"
#include "script/subscripts.h"
#include "script/tokenizer.h"

namespace qsl {
namespace {

// A statement has at most so many tokens, and no token makes more than four operations.
constexpr int kOperations = 4 * kStatementLength + 16;
constexpr int kNames = kStatementLength + 1;
constexpr int kTexts = 2 * kStatementLength + 2;

struct Compiler {
  Operation operations[kOperations];
  KnownName names[kNames];
  char texts[kTexts];
  int count, name_count, text_length;
  PushMode mode; // of identifiers
  bool clean;
};
Compiler compiler;

// Writes an operation and returns its position.
int emit(Action action) {
  Compiler& c = compiler;
  const int at = c.count < kOperations - 1 ? c.count++ : c.count;
  c.operations[at] = {};
  c.operations[at].action = action;
  return at;
}

Operation& operation(int at) { return compiler.operations[at]; }

void close_range(int at, bool complete) {
  operation(at).complete = complete;
  operation(at).end = static_cast<std::int16_t>(compiler.count);
}

std::int16_t add_name(const char* text) {
  Compiler& c = compiler;
  if (c.name_count < kNames) c.names[c.name_count++] = known_name(text);
  return static_cast<std::int16_t>(c.name_count - 1);
}

void say(const char* message) {
  operation(emit(kSay)).message = message;
  compiler.clean = false;
}

void advance() {
  if (next_token() == kErrorToken) say("Syntax error");
}

// The current token must be this character; reads the next one.
bool need(char character) {
  if (token() == character) {
    advance();
    return true;
  }
  compiler.clean = false;
  if (token() == kErrorToken) return false;
  const int at = emit(kSayChar);
  operation(at).message = "Syntax error - Expected";
  operation(at).count = static_cast<std::uint8_t>(character);
  return false;
}

void expression();
void unary();

// Arguments of a built-in function, then the function itself.
void function_call(int row) {
  advance();
  if (!need('(')) return;
  const int at = emit(kRunFunction);
  operation(at).index = static_cast<std::int16_t>(row);
  if (token() != ')') {
    for (;;) {
      compiler.mode = static_cast<PushMode>(function_mode(row));
      expression();
      if (token() != ',') break;
      advance();
    }
    compiler.mode = kByValue;
  }
  const bool complete = need(')');
  close_range(at, complete);
}

void bound(Action action) {
  const int at = emit(action);
  expression();
  close_range(at, true);
}

bool at_subscript_end() { return token() == ',' || token() == ']'; }

void subscript() {
  SubscriptKind kind = kIndex;
  if (token() == '*') {
    kind = kWholeExtent;
    advance();
  } else {
    if (token() != ':') bound(kLowerBound);
    if (token() == ':') {
      advance();
      kind = at_subscript_end() ? kOpenRange : kRange;
      if (kind == kRange) bound(kUpperBound);
    }
  }
  operation(emit(kCloseSubscript)).count = static_cast<std::uint8_t>(kind);
}

// Subscripts from the current token on, up to and with ']'.
void selection(const char* name) {
  const int at = emit(kSelect);
  operation(at).index = add_name(name);
  int number = 0;
  for (;;) {
    subscript();
    ++number;
    if (token() != ',') break;
    advance();
  }
  const bool fits = number <= kSubscripts;
  if (!fits) {
    compiler.clean = false;
    const int fault = emit(kSayName);
    operation(fault).message = "Too many subscripts in";
    operation(fault).index = operation(at).index;
  }
  operation(at).count = static_cast<std::uint8_t>(fits ? number : 0);
  const bool closed = need(']');
  close_range(at, closed && fits);
}

void identifier() {
  char name[kNameLength + 1];
  set_name(name, token_name());
  if (const int row = find_function(name); row >= 0) return function_call(row);
  advance();
  if (token() == '[') {
    const PushMode mode = compiler.mode;
    compiler.mode = kByValue;
    advance();
    selection(name);
    compiler.mode = mode;
    return;
  }
  const int at = emit(kPushVariable);
  operation(at).index = add_name(name);
  operation(at).mode = compiler.mode;
}

void constant() {
  Compiler& c = compiler;
  const ScriptValue& v = interp.token.current;
  switch (token()) {
  case kIntConstant: operation(emit(kPushInt)).integer = v.value.i; break;
  case kFloatConstant: operation(emit(kPushReal)).real = v.value.d; break;
  default:
    operation(emit(kPushText)).integer = c.text_length;
    std::memcpy(c.texts + c.text_length, v.value.data, static_cast<std::size_t>(v.count) + 1);
    c.text_length += v.count + 1;
  }
  advance();
}

void primary() {
  switch (token()) {
  case '(':
    advance();
    expression();
    need(')');
    break;
  case kIdentifier: identifier(); break;
  case kIntConstant:
  case kFloatConstant:
  case kStringConstant: constant(); break;
  case kErrorToken: break; // told already
  default: say("Syntax error");
  }
}

void power() {
  primary();
  if (token() != kPower) return;
  advance();
  unary();
  emit(kRaise);
}

void unary() {
  const int sign = token();
  if (sign != '!' && sign != kUnaryMinus && sign != kUnaryPlus) return power();
  advance();
  unary();
  if (sign == '!') emit(kLogicalNot);
  if (sign == kUnaryMinus) emit(kNegate);
}

// Binary levels, from loosest to tightest; all are left associative.
constexpr int kLevels = 4;
int level_of(int kind) {
  switch (kind) {
  case kAnd:
  case kOr: return 0;
  case kEqual:
  case kNotEqual:
  case kGreaterEqual:
  case kLessEqual:
  case kGreater:
  case kLess: return 1;
  case '+':
  case '-': return 2;
  case '%':
  case '*':
  case '/': return 3;
  default: return -1;
  }
}

bool is_plain_variable(int from, int to) {
  return to == from + 1 && operation(from).action == kPushVariable && operation(from).mode == kByValue;
}

// Functions that write into variables.
bool changes_variables(int from, int to) {
  constexpr std::string_view kWriters[] = {"FGETS", "FREAD", "FSCANF", "GETS", "SCANF", "SPRINTF", "SSCANF"};
  for (int i = from; i < to; ++i) {
    if (operation(i).action != kRunFunction) continue;
    for (std::string_view name : kWriters)
      if (name == kFunctions[operation(i).index].name) return true;
  }
  return false;
}

// An array that is an operand of its own is read where it is: nothing can change it before the operator takes it.
void borrow_operands(int left, int right) {
  const int end = compiler.count;
  if (is_plain_variable(left, right) && !changes_variables(right, end)) operation(left).mode = kBorrow;
  if (is_plain_variable(right, end)) operation(right).mode = kBorrow;
}

void binary(int level) {
  if (level == kLevels) return unary();
  const int left = compiler.count;
  binary(level + 1);
  while (level_of(token()) == level) {
    const int kind = token();
    const int right = compiler.count;
    advance();
    binary(level + 1);
    borrow_operands(left, right);
    operation(emit(kCombine)).index = static_cast<std::int16_t>(kind);
  }
}

void expression() { binary(0); }

// An identifier with nothing but the end of its operand behind it.
bool stands_alone() {
  if (token() != kIdentifier) return false;
  const char next = peek_character();
  return next == ',' || next == ')' || next == ':' || next == 0;
}

bool ends_list() { return token() == ')' || token() == ']' || token() == ':' || token() == kEnd; }

void list(bool alias_mode) {
  for (;;) {
    if (alias_mode && stands_alone()) {
      operation(emit(kPushName)).index = add_name(token_name());
      advance();
    } else {
      expression();
    }
    if (token() != ',') break;
    advance();
  }
  if (!ends_list() && token() != kErrorToken) say("Syntax error - Expected end of line");
}

void begin() {
  Compiler& c = compiler;
  c.count = c.name_count = c.text_length = 0;
  c.mode = kByValue;
  c.clean = true;
}

// What was compiled, in one block of memory.
Code* keep(int start) {
  const Compiler& c = compiler;
  const std::size_t operations = static_cast<std::size_t>(c.count) * sizeof(Operation);
  const std::size_t names = static_cast<std::size_t>(c.name_count) * sizeof(KnownName);
  const std::size_t texts = static_cast<std::size_t>(c.text_length);
  char* block = static_cast<char*>(allocate(static_cast<std::int64_t>(sizeof(Code) + operations + names + texts)));
  if (!block) return nullptr;
  Code* code = reinterpret_cast<Code*>(block);
  block += sizeof(Code);
  std::memcpy(block, c.operations, operations);
  std::memcpy(block + operations, c.names, names);
  std::memcpy(block + operations + names, c.texts, texts);
  *code = {};
  code->operations = reinterpret_cast<const Operation*>(block);
  code->names = reinterpret_cast<const KnownName*>(block + operations);
  code->texts = block + operations + names;
  code->count = c.count;
  code->clean = c.clean;
  code->end_kind = token();
  code->end_previous = interp.token.previous;
  code->end_position = interp.token.position - start;
  return code;
}

} // namespace

Code* compile_list(bool alias_mode) {
  const int start = interp.token.position;
  const bool quiet = interp.token.quiet;
  interp.token.quiet = true; // the code tells the faults
  begin();
  advance();
  const bool empty = token() == kEnd;
  if (!empty) list(alias_mode);
  interp.token.quiet = quiet;
  Code* code = keep(start);
  if (!code) return nullptr;
  code->alias_mode = alias_mode;
  code->empty = empty;
  return code;
}

Code* compile_subscripts(const char* name) {
  const int start = interp.token.position;
  const bool quiet = interp.token.quiet;
  interp.token.quiet = true;
  begin();
  advance();
  selection(name);
  interp.token.quiet = quiet;
  return keep(start);
}

void free_code(Code* code) { std::free(code); }

} // namespace qsl
