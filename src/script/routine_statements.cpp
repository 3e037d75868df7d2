// What stands in a user routine: its header, EXTERN and RETURN.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "script/control_structures.h"
#include "script/evaluator.h"
#include "script/report.h"
#include "script/system_variables.h"
#include "script/user_routines.h"

namespace qsl {
namespace {

struct TypeWord {
  const char* word;
  Tag tag;
};
constexpr TypeWord kTypeWords[] = {{"INT", kInt},       {"FLOAT", kFloat}, {"DOUBLE", kDouble}, {"BYTE", kByte},
                                   {"STRING", kString}, {"CHAR", kChar},   {"SHORT", kShort},   {"COMPLEX", kComplex}};

// What is wrong with a header: a message and its word. The routine ends before it is printed.
struct HeaderFault {
  char text[80];
  char word[kNameLength + 1];
  bool has_word;
};

bool fail(HeaderFault& fault, const char* text) {
  std::snprintf(fault.text, sizeof fault.text, "%s", text);
  return false;
}
bool fail(HeaderFault& fault, const char* text, const char* word) {
  fault.has_word = true;
  set_name(fault.word, word);
  return fail(fault, text);
}

constexpr int kMostPlanned = 16; // parameters; a longer list is read again each time

// One parameter of the list.
struct Parameter {
  char name[kNameLength + 1];
  char key[kNameLength + 2]; // "!" and the keyword, empty for a positional one
  int type;                  // 0: any
};

bool find_type(const char* word, int& type) {
  for (const TypeWord& t : kTypeWords) {
    if (std::strcmp(t.word, word) != 0) continue;
    type = t.tag;
    return true;
  }
  return false;
}

// Reads a parameter from the current token on, up to ',' or ')'.
bool read_parameter(Parameter& p, HeaderFault& fault) {
  p = {};
  for (;; next_token()) {
    switch (token()) {
    case kIdentifier:
      if (p.name[0]) return fail(fault, "Syntax error - Expected variable");
      set_name(p.name, token_name());
      break;
    case ':':
      if (!p.name[0]) return fail(fault, "Syntax error - Expected variable");
      if (!find_type(p.name, p.type)) return fail(fault, "Undefined type", p.name);
      p.name[0] = 0;
      break;
    case '=':
      if (!p.name[0] || p.key[0]) return fail(fault, "Syntax error - Expected keyword");
      std::snprintf(p.key, sizeof p.key, "!%s", p.name);
      p.name[0] = 0;
      break;
    case '[':
      if (!p.name[0] || next_token() != ']') return fail(fault, "Syntax error - Expected variable");
      if (p.type != 0) p.type += kArrayOffset;
      break;
    case ',':
    case ')':
      if (p.name[0]) return true;
      [[fallthrough]];
    default: return fail(fault, "Syntax error - Expected variable");
    }
  }
}

// The slot of the argument that the parameter takes, or -1.
int find_argument(const Parameter& p) {
  char key[kNameLength + 1];
  set_name(key, p.key);
  const ControlState& c = interp.control;
  for (int i = 0; i < c.argument_count; ++i) {
    const int slot = c.arguments[i];
    const ScriptValue& v = variable(slot);
    if (!slot_in_use(slot) || v.level != interp.variables.level) continue;
    if (p.key[0] ? std::strcmp(v.name, key) == 0 : v.name[0] == '$') return slot;
  }
  return -1;
}

int type_of_slot(int slot) {
  const ScriptValue& v = variable(slot);
  if (v.type != kAlias) return v.type;
  const int target = v.value.index;
  return target >= 0 && slot_in_use(target) ? variable(target).type : kFree;
}

bool take_argument(const Parameter& p, int position, HeaderFault& fault) {
  const int slot = find_argument(p);
  if (slot < 0) return true; // the parameter is not defined
  rename_variable(slot, p.name);
  if (p.type == 0 || type_of_slot(slot) == p.type) return true;
  fail(fault, "", interp.control.routine_name);
  std::snprintf(fault.text, sizeof fault.text, "Mismatch of parameter %d in CALL to", position);
  return false;
}

// A keyword that no parameter has taken.
bool all_keywords_taken(HeaderFault& fault) {
  const ControlState& c = interp.control;
  for (int i = 0; i < c.argument_count; ++i) {
    const ScriptValue& v = variable(c.arguments[i]);
    if (slot_in_use(c.arguments[i]) && v.level == interp.variables.level && v.name[0] == '!')
      return fail(fault, "Undefined keyword", v.name + 1);
  }
  return true;
}

// What is checked behind the last parameter.
bool finish_header(int count, HeaderFault& fault) {
  if (!all_keywords_taken(fault)) return false;
  if (current_frame().passed <= count) return true;
  return fail(fault, "Too many parameters in CALL to", interp.control.routine_name);
}

bool is_called(const char* name, HeaderFault& fault) {
  const char* called = interp.control.routine_name;
  return std::strcmp(name, called) == 0 || fail(fault, "Expected routine name", called);
}

// The name behind the keyword and the list. False after a fault.
bool read_header(bool function, HeaderFault& fault) {
  if (next_token() != kIdentifier)
    return fail(fault, function ? "Identifier expected after FUNCTION" : "Identifier expected after SUBROUTINE");
  if (!is_called(token_name(), fault)) return false;
  int count = 0;
  if (next_token() == '(' && next_token() != ')') {
    for (;;) {
      Parameter p;
      if (!read_parameter(p, fault) || !take_argument(p, ++count, fault)) return false;
      if (token() == ')') break;
      next_token();
    }
  }
  return finish_header(count, fault);
}

void end_faulty_routine(const HeaderFault& fault) {
  if (interp.variables.level > 0) end_routine(false);
  if (fault.has_word) return report_error_text(fault.text, fault.word);
  report_error(fault.text);
}

} // namespace

void run_header(bool function) {
  HeaderFault fault{};
  if (!read_header(function, fault)) end_faulty_routine(fault);
}

struct HeaderPlan {
  char routine[kNameLength + 1];
  int count;
  Parameter parameters[kMostPlanned];
};

HeaderPlan* plan_header() {
  HeaderFault fault{};
  HeaderPlan plan{};
  if (token() != kIdentifier) return nullptr;
  set_name(plan.routine, token_name());
  if (next_token() == '(' && next_token() != ')') {
    for (;;) {
      if (plan.count == kMostPlanned || !read_parameter(plan.parameters[plan.count++], fault)) return nullptr;
      if (token() == ')') break;
      next_token();
    }
  }
  HeaderPlan* kept = static_cast<HeaderPlan*>(allocate(sizeof(HeaderPlan)));
  if (kept) *kept = plan;
  return kept;
}

void free_header_plan(HeaderPlan* plan) { std::free(plan); }

void run_planned_header(const HeaderPlan& plan) {
  HeaderFault fault{};
  bool good = is_called(plan.routine, fault);
  for (int i = 0; good && i < plan.count; ++i) good = take_argument(plan.parameters[i], i + 1, fault);
  if (!good || !finish_header(plan.count, fault)) end_faulty_routine(fault);
}

void run_extern() {
  const int level = interp.variables.level;
  if (level == 0) return report_error("EXTERN statement must be used in a subroutine of function");
  while (next_token() != kEnd) {
    if (token() != kIdentifier) {
      if (token() != kErrorToken) report_error("Syntax error - Expected indentifier");
      return;
    }
    if (const int target = find_slot(token_name(), 0); target < 0) {
      report_error_text("Cannot find extern variable", token_name());
    } else if (target != find_variable(token_name())) {
      free_variable(find_slot(token_name(), level));
      const int slot = new_variable(token_name(), level);
      if (slot < 0) return;
      variable(slot).value.index = target;
      variable(slot).type = kAlias;
    }
    if (next_token() == kEnd) return;
    if (token() != ',') {
      if (token() != kErrorToken) report_error("Syntax error - Expected end of statement");
      return;
    }
  }
}

namespace {

// The value of a FUNCTION goes to the variable that its caller assigns.
void keep_function_value(RoutineFrame& frame) {
  if (!slot_in_use(frame.result)) return;
  move_value(variable(frame.result), operand(0));
  if (is_system_name(variable(frame.result).name)) apply_system_variables(frame.result);
}

void keep_callback_value() {
  const ScriptValue& v = operand(0);
  if (v.type != kInt && v.type != kDouble) return report_error("RETURN statement must return a floatingpoint value");
  interp.control.callback_result = v.type == kInt ? v.value.i : v.value.d;
}

} // namespace

void run_return() {
  ControlState& c = interp.control;
  if (interp.variables.level == 0) return report_error("RETURN statement outside of subroutine or function");
  RoutineFrame& frame = current_frame();
  if (frame.kind == kFunctionFrame || frame.kind == kValueCallbackFrame) {
    const int n = evaluate(false);
    if (n == kNothing) {
      report_error("RETURN statement must return a value");
    } else if (n > 0 && operand(0).type != kFree) {
      if (frame.kind == kFunctionFrame) {
        keep_function_value(frame);
      } else {
        keep_callback_value();
      }
    }
    clear_stack(0);
  } else if (next_token() != kEnd) {
    if (token() != kErrorToken) report_error("RETURN statement cannot return a value");
  }
  c.skip.rest_of_routine = true;
  sum_skip_flags();
}

} // namespace qsl
