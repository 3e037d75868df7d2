// IF, ELSEIF, ELSE and END IF.
#include <cstring>

#include "script/control_structures.h"
#include "script/evaluator.h"
#include "script/report.h"
#include "script/statements.h"

namespace qsl {
namespace {

IfRecord& innermost() { return interp.control.ifs[interp.control.if_depth - 1]; }

// A branch runs only if the branches of all open IFs are active.
void settle_branches() {
  ControlState& c = interp.control;
  c.skip.branch = false;
  for (int i = 0; i < c.if_depth; ++i) c.skip.branch |= c.ifs[i].branch_active != 1;
  sum_skip_flags();
}

void compare_depths(const IfRecord& record) {
  const ControlState& c = interp.control;
  if (record.loop_depth != c.loop_depth) report_error("Overlapping IF and Loop constructs");
  if (record.switch_depth != c.switch_depth) report_error("Overlapping IF and SWITCH constructs");
}

void open_level(int taken, int active) {
  ControlState& c = interp.control;
  c.ifs[c.if_depth++] = {taken, active, c.loop_depth, c.switch_depth};
}

// Points the tokeniser behind the first '(' of the statement. False after a message.
bool enter_condition(const char* text) {
  const char* open = std::strchr(text, '(');
  if (!open) {
    report_error("Syntax error");
    return false;
  }
  set_token_source(open + 1);
  return true;
}

// Follows the tokens to the ')' that belongs to the condition. False after a message.
bool pass_condition() {
  for (int depth = 1; depth > 0;) {
    const int kind = next_token();
    if (kind == '(') ++depth;
    if (kind == ')') --depth;
    if (kind == kErrorToken) return false;
    if (kind == kEnd) {
      report_error("Syntax error");
      return false;
    }
  }
  return true;
}

// The truth of the condition on the operand stack. False after a message.
bool take_condition(int n, bool& truth) {
  bool good = n > 0 && operand(0).type != kFree;
  if (good && operand(0).type != kInt) {
    report_error("Non integer value of logical expression");
    good = false;
  }
  truth = good && operand(0).value.i != 0;
  clear_stack(0);
  return good;
}

// Evaluates the condition; its ')' is the current token. False after a message.
bool evaluate_condition(bool& truth) {
  if (!take_condition(evaluate(false), truth)) return false;
  if (token() == ')') return true;
  if (token() != kErrorToken) report_error_char("Syntax error - Expected", ')');
  return false;
}

// Whether one more IF fits. False after a message.
bool may_nest() {
  if (interp.control.if_depth < kNestedIfs) return true;
  report_error("Max. number of nested IF statements is reached");
  return false;
}

void run_if(const char* text) {
  if (!may_nest() || !enter_condition(text)) return;
  if (skipping()) {
    // No ELSE of a construct that is passed over may become active.
    if (pass_condition() && peek_character() == 0) open_level(1, 1);
    return;
  }
  bool truth = false;
  if (!evaluate_condition(truth)) return;
  if (peek_character() != 0) {
    if (truth) execute_plain(rest_of_text());
    return;
  }
  open_level(truth, truth);
  settle_branches();
}

// False after a message.
bool is_open(const char* message) {
  if (interp.control.if_depth > 0) return true;
  report_error(message);
  return false;
}

void run_else_if(const char* text) {
  if (!is_open("Missing IF statement before ELSEIF")) return;
  IfRecord& record = innermost();
  if (record.branch_taken == 1) {
    record.branch_active = 0;
  } else {
    bool truth = false;
    if (!enter_condition(text) || !evaluate_condition(truth)) return;
    record.branch_active = truth;
    if (truth) record.branch_taken = 1;
    if (peek_character() != 0) report_error("Expected end of line");
  }
  compare_depths(record);
  settle_branches();
}

// The token behind ELSE has been read.
void run_else(const char* text) {
  if (token() == kIdentifier && std::strcmp(token_name(), "IF") == 0) return run_else_if(text);
  if (token() != kEnd) return report_error("Expected IF or End of Line");
  run_plain_else();
}

} // namespace

bool if_condition_holds(const Code& condition) {
  bool truth = false;
  return may_nest() && !skipping() && take_condition(run_list(condition), truth) && truth;
}

void run_block_if(const Code& condition) {
  if (!may_nest()) return;
  if (skipping()) return open_level(1, 1);
  bool truth = false;
  if (!take_condition(run_list(condition), truth)) return;
  open_level(truth, truth);
  settle_branches();
}

void run_plain_else() {
  if (!is_open("Missing IF statement before ELSE")) return;
  IfRecord& record = innermost();
  record.branch_active = record.branch_taken == 0;
  compare_depths(record);
  settle_branches();
}

void run_end_if() {
  ControlState& c = interp.control;
  if (!is_open("Missing IF statement before END IF")) return;
  --c.if_depth;
  compare_depths(c.ifs[c.if_depth]);
  settle_branches();
}

bool run_if_family(const char* text, const char* first) {
  if (std::strcmp(first, "IF") == 0) {
    run_if(text);
  } else if (std::strcmp(first, "ELSEIF") == 0) {
    run_else_if(text);
  } else if (std::strcmp(first, "ELSE") == 0) {
    run_else(text);
  } else if (std::strcmp(first, "ENDIF") == 0 || ends_construct(first, "IF")) {
    run_end_if();
  } else {
    return false;
  }
  return true;
}

} // namespace qsl
