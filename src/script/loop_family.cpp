// DO, END DO, WHILE and END WHILE. A loop runs again by moving the replay of the saved statements.
#include <bit>
#include <cstring>

#include "script/control_structures.h"
#include "script/evaluator.h"
#include "script/numbers.h"
#include "script/report.h"
#include "script/statement_reader.h"

namespace qsl {
namespace {

// The record of a loop that is about to be opened; null after a message.
LoopRecord* new_record(LoopKind kind) {
  ControlState& c = interp.control;
  if (c.loop_depth == kNestedLoops) {
    report_error("Max. number of nested loops is reached");
    return nullptr;
  }
  LoopRecord& record = c.loops[c.loop_depth];
  record.kind = kind;
  record.opened_skipping = true;
  record.if_depth = c.if_depth;
  record.switch_depth = c.switch_depth;
  return &record;
}

// Opens the level; a loop without a first pass is passed over.
void open_loop(LoopRecord& record, bool runs) {
  ControlState& c = interp.control;
  record.opened_skipping = false;
  c.jump_level = c.loop_depth++;
  c.skip.loop |= !runs;
  sum_skip_flags();
}

// A bound in a loop of DOUBLE numbers. Operands are not converted: an INT is read with the bits that it has.
double double_bits(const ScriptValue& v) {
  if (v.type == kDouble) return v.value.d;
  return std::bit_cast<double>(std::uint64_t{static_cast<std::uint32_t>(v.value.i)});
}

// The slot of the loop variable, its old value freed; -1 after a message.
int loop_variable(const char* name) {
  const int index = find_variable(name);
  if (index < 0) return new_variable(name, interp.variables.level);
  free_value(variable(index));
  set_int(variable(index), 0);
  return index;
}

// Start, limit and step from the operand stack. False after a message or when there are none.
bool check_bounds(int n, LoopRecord& record) {
  if (n == kNothing || n == 0) return false;
  if (n != 2 && n != 3) {
    report_error("Syntax error in DO statement");
    return false;
  }
  record.type = kInt;
  for (int i = 0; i < n; ++i) {
    const int type = operand(i).type;
    if (type == kFree) return false;
    if (type != kInt && type != kDouble) {
      report_error("DO expressions must be of type INT or DOUBLE");
      return false;
    }
    if (type == kDouble) record.type = kDouble;
  }
  return true;
}

template <typename T> bool passes_limit(T value, T limit, T step) {
  return step > T{0} ? value > limit : value < limit;
}

// Sets the loop variable and the bounds; whether there is a first pass.
bool begin_count(int n, LoopRecord& record) {
  ScriptValue& v = variable(record.variable);
  if (record.type == kInt) {
    set_int(v, operand(0).value.i);
    record.int_limit = operand(1).value.i;
    record.int_step = n == 3 ? operand(2).value.i : 1;
    return !passes_limit(v.value.i, record.int_limit, record.int_step);
  }
  set_double(v, double_bits(operand(0)));
  record.double_limit = double_bits(operand(1));
  record.double_step = n == 3 ? double_bits(operand(2)) : 1.0;
  return !passes_limit(v.value.d, record.double_limit, record.double_step);
}

// Adds the step; whether there is another pass. A variable that the body has freed or made something else than a
// number ends the loop.
bool count_on(const LoopRecord& record) {
  ScriptValue& v = variable(record.variable);
  const bool number = v.type >= kChar && v.type <= kDouble;
  if (!number || std::strcmp(v.name, record.name) != 0) {
    report_error_text("Loop variable is not a number", record.name);
    return false;
  }
  if (record.type == kInt) {
    if (v.type != kInt) set_int(v, to_int(number_of(v)));
    v.value.i = wrap_add(v.value.i, record.int_step);
    return !passes_limit(v.value.i, record.int_limit, record.int_step);
  }
  if (v.type != kDouble) set_double(v, number_of(v));
  v.value.d += record.double_step;
  return !passes_limit(v.value.d, record.double_limit, record.double_step);
}

// A loop record that may be opened; null while skipping, when the depth just grows, or after a message.
LoopRecord* running_record(LoopKind kind) {
  LoopRecord* record = new_record(kind);
  if (!record) return nullptr;
  if (skipping()) {
    ++interp.control.loop_depth;
    return nullptr;
  }
  interp.control.last_is_switch = false;
  return record;
}

// Frees or makes the loop variable. False after a message.
bool take_variable(LoopRecord& record, const char* name) {
  record.variable = loop_variable(name);
  if (record.variable < 0) return false;
  // By an alias the variable keeps the name that it has at its own level.
  set_name(record.name, variable(record.variable).name);
  return true;
}

// Opens the loop with the bounds on the operand stack.
void start_counting(LoopRecord& record, int n) {
  ReaderState& r = interp.reader;
  const bool good = check_bounds(n, record);
  if (good) open_loop(record, begin_count(n, record));
  clear_stack(0);
  if (!good) return release_slot(record.variable);
  record.start = r.saved_cursor + (replaying() ? 1 : 0);
  r.recording = true;
}

// The token behind DO has been read.
void run_do(const char* text) {
  LoopRecord* record = running_record(kDoLoop);
  if (!record) return;
  if (token() != kIdentifier) {
    if (token() != kErrorToken) report_error("Syntax error - expected loop variable");
    return;
  }
  if (!take_variable(*record, token_name())) return;
  const char* equal = std::strchr(text, '=');
  if (!equal) {
    report_error("Missing '=' in DO loop");
    return release_slot(record->variable);
  }
  set_token_source(equal + 1);
  start_counting(*record, evaluate(false));
}

// The condition from the operand stack. False after a message.
bool take_condition(int n, bool& truth) {
  bool good = false;
  if (n != 1) {
    if (n != 0) report_error("Syntax error in WHILE statement");
  } else if (operand(0).type == kInt) {
    truth = operand(0).value.i != 0;
    good = true;
  } else if (operand(0).type != kFree) {
    report_error("Expression in WHILE statement must be of type INT");
  }
  clear_stack(0);
  return good;
}

// Opens the loop with the condition on the operand stack. It begins with the WHILE statement itself.
void start_testing(LoopRecord& record, int n, const char* text) {
  ReaderState& r = interp.reader;
  bool truth = false;
  if (!take_condition(n, truth)) return;
  if (replaying()) {
    record.start = r.saved_cursor;
  } else {
    const bool saved = r.recording ? r.last_saved : save_statement(text);
    record.start = saved ? r.saved_cursor - 1 : -1;
    r.recording = true;
  }
  open_loop(record, truth);
}

// The token behind WHILE has been read.
void run_while(const char* text) {
  LoopRecord* record = running_record(kWhileLoop);
  if (!record) return;
  if (token() != '(') {
    if (token() != kErrorToken) report_error("Syntax error - expected '('");
    return;
  }
  start_testing(*record, evaluate(false), text);
}

// The saved statements go with the outermost loop unless a label needs them.
void close_loop(const LoopRecord& record) {
  ControlState& c = interp.control;
  if (record.if_depth != c.if_depth) report_error("Overlapping IF and Loop contructs");
  if (record.switch_depth != c.switch_depth) report_error("Overlapping SWITCH and Loop contructs");
  --c.loop_depth;
  if (c.loop_depth != 0 || !interp.reader.recording || labels_used_up_to(interp.variables.level)) return;
  if (record.start >= 0) forget_statements(record.start);
  interp.reader.recording = false;
}

// Moves to the next pass; false if there is none.
bool next_pass(const LoopRecord& record) {
  if (record.kind == kDoLoop && !count_on(record)) return false;
  if (record.start < 0) return false;
  if (record.kind == kWhileLoop) --interp.control.loop_depth; // the WHILE statement opens the level anew
  continue_at(record.start);
  return true;
}

} // namespace

void begin_do(const char* name, const Code& bounds) {
  LoopRecord* record = running_record(kDoLoop);
  if (record && take_variable(*record, name)) start_counting(*record, run_list(bounds));
}

void begin_while(const Code& condition, const char* text) {
  if (LoopRecord* record = running_record(kWhileLoop)) start_testing(*record, run_list(condition), text);
}

void end_loop(LoopKind kind) {
  ControlState& c = interp.control;
  const bool open = c.loop_depth > 0 && c.loops[c.loop_depth - 1].kind == kind;
  if (!open) {
    if (c.loop_depth == 0 && replaying()) return;
    return report_error(kind == kDoLoop ? "Missing DO statement before END DO"
                                        : "Missing WHILE statement before END WHILE");
  }
  const LoopRecord& record = c.loops[c.loop_depth - 1];
  if (c.pending_jump != kNoJump) {
    if (c.jump_level != c.loop_depth) return close_loop(record);
    const bool leaves = c.pending_jump == kBreakJump;
    c.skip.loop = false;
    c.pending_jump = kNoJump;
    sum_skip_flags();
    if (leaves) return close_loop(record);
  }
  if (record.opened_skipping) return static_cast<void>(--c.loop_depth);
  if (c.skip.loop) {
    if (c.jump_level == c.loop_depth - 1) c.skip.loop = false;
    sum_skip_flags();
    return close_loop(record);
  }
  if (skipping() || !next_pass(record)) close_loop(record);
}

bool run_loop_family(const char* text, const char* first) {
  if (std::strcmp(first, "DO") == 0) {
    run_do(text);
  } else if (std::strcmp(first, "WHILE") == 0) {
    run_while(text);
  } else if (ends_construct(first, "DO")) {
    end_loop(kDoLoop);
  } else if (ends_construct(first, "WHILE")) {
    end_loop(kWhileLoop);
  } else {
    return false;
  }
  return true;
}

} // namespace qsl
