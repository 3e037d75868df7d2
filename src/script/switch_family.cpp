// SWITCH, CASE, DEFAULT and END SWITCH, and BREAK and CONTINUE.
#include <cstring>

#include "script/control_structures.h"
#include "script/evaluator.h"
#include "script/numbers.h"
#include "script/report.h"

namespace qsl {
namespace {

// The selector from the list behind '('. False after a message.
bool evaluate_selector(std::int32_t& selector) {
  if (token() != '(') {
    if (token() != kErrorToken) report_error("Syntax error - expected '('");
    return false;
  }
  const int n = evaluate(false);
  bool good = false;
  if (n != 1) {
    if (n != 0) report_error("Syntax error in SWITCH statement");
  } else if (operand(0).type == kInt) {
    selector = operand(0).value.i;
    good = true;
  } else if (operand(0).type != kFree) {
    report_error("Expression in SWITCH statement must be of type INT");
  }
  clear_stack(0);
  return good;
}

void run_switch() {
  ControlState& c = interp.control;
  if (c.switch_depth == kNestedSwitches) return report_error("Max. number of nested SWITCH statements is reached");
  SwitchRecord& record = c.switches[c.switch_depth];
  record.if_depth = c.if_depth;
  record.loop_depth = c.loop_depth;
  if (!skipping()) {
    c.last_is_switch = true;
    if (!evaluate_selector(record.selector)) return;
    c.skip.no_case = true;
    sum_skip_flags();
  }
  ++c.switch_depth;
}

void match_case() {
  interp.control.skip.no_case = false;
  sum_skip_flags();
}

// The colon and the end behind CASE n or DEFAULT.
void expect_colon(const char* no_colon, const char* no_end) {
  if (token() != ':') {
    if (token() != kErrorToken) report_error(no_colon);
    return;
  }
  if (next_token() != kEnd && token() != kErrorToken) report_error(no_end);
}

// The token behind CASE has been read.
void run_case() {
  ControlState& c = interp.control;
  if (c.switch_depth == 0) return report_error("CASE must be used in a SWITCH construct");
  const bool negative = token() == '-' || token() == kUnaryMinus;
  if (negative) next_token();
  if (token() != kIntConstant) {
    if (token() != kErrorToken) report_error("The CASE parameter must be an INT constant");
    return;
  }
  const std::int32_t n = interp.token.current.value.i;
  if ((negative ? wrap_negate(n) : n) == c.switches[c.switch_depth - 1].selector) match_case();
  next_token();
  expect_colon("Expected ':' in CASE statement", "Expected end of line in CASE statement");
}

void run_default() {
  if (interp.control.switch_depth == 0) return report_error("DEFAULT must be used in a SWITCH construct");
  match_case();
  expect_colon("Expected ':' in DEFAULT statement", "Expected end of line in DEFAULT statement");
}

void run_end_switch() {
  ControlState& c = interp.control;
  if (c.switch_depth == 0) return report_error("Missing SWITCH statement before END SWITCH");
  c.skip.no_case = false;
  if (c.break_switch_level == c.switch_depth) c.skip.rest_of_switch = false;
  sum_skip_flags();
  const SwitchRecord& record = c.switches[--c.switch_depth];
  if (record.if_depth != c.if_depth) report_error("Overlapping SWITCH and IF contructs");
  if (record.loop_depth != c.loop_depth) report_error("Overlapping SWITCH and Loop contructs");
}

// BREAK and CONTINUE pass over the rest of a loop's body.
void leave_pass(Jump jump) {
  ControlState& c = interp.control;
  c.pending_jump = jump;
  c.jump_level = c.loop_depth;
  c.skip.loop = true;
  sum_skip_flags();
}

} // namespace

bool run_switch_family(const char*, const char* first) {
  if (std::strcmp(first, "SWITCH") == 0) {
    run_switch();
  } else if (std::strcmp(first, "CASE") == 0) {
    run_case();
  } else if (std::strcmp(first, "DEFAULT") == 0) {
    run_default();
  } else if (ends_construct(first, "SWITCH")) {
    run_end_switch();
  } else {
    return false;
  }
  return true;
}

// The kind of the construct last opened decides, not the innermost that is still open.
void run_break() {
  ControlState& c = interp.control;
  if (c.loop_depth == 0 && c.switch_depth == 0) return report_error("BREAK must be used in a loop or SWITCH construct");
  if (!c.last_is_switch) return leave_pass(kBreakJump);
  c.break_switch_level = c.switch_depth;
  c.skip.rest_of_switch = true;
  sum_skip_flags();
}

void run_continue() {
  if (interp.control.loop_depth == 0) return report_error("CONTINUE must be used in a loop construct");
  leave_pass(kContinueJump);
}

} // namespace qsl
