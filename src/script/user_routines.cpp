// Calls of user routines, their frames and their end. A call opens a frame and the routine's file; the statement loop
// goes on reading there until END.
#include "script/user_routines.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "script/builtin_functions.h"
#include "script/control_structures.h"
#include "script/evaluator.h"
#include "script/report.h"
#include "script/script_files.h"
#include "script/statement_reader.h"
#include "script/statements.h"
#include "script/system_variables.h"

namespace qsl {
namespace {

constexpr int kCallbackValues = 10; // the library passes no more

// Added, for each level, to the positions of statements that wait behind a call.
constexpr int kWaitingOffset = 1 << 20;

// One argument of a call as it is cut from the text.
struct ArgumentText {
  char key[kStatementLength + 1];
  char text[kStatementLength + 1];
  bool has_key;
  char end; // what ended it: ',', ')' or 0
};

// Cuts an argument at the next ',' or ')' outside quotes, whatever other brackets are open. An '=' ends a keyword.
const char* cut_argument(const char* p, ArgumentText& a) {
  int length = 0;
  char quote = 0;
  a.has_key = false;
  for (; *p && (quote || (*p != ',' && *p != ')')); ++p) {
    if (quote) {
      if (*p == quote) quote = 0;
    } else if (*p == '\'' || *p == '"') {
      quote = *p;
    } else if (*p == '=') {
      a.text[length] = 0;
      std::memcpy(a.key, a.text, sizeof a.key);
      a.has_key = true;
      length = 0;
      continue;
    }
    if (length < kStatementLength) a.text[length++] = *p;
  }
  a.text[length] = 0;
  a.end = *p;
  return *p ? p + 1 : p;
}

bool is_blank(const char* text) { return text[std::strspn(text, " \t")] == 0; }

// Placeholder of an argument until the header renames it. False after a message.
bool placeholder_name(const ArgumentText& a, int number, char* name) {
  if (!a.has_key) {
    std::snprintf(name, kNameLength + 1, "$%d", number);
    return true;
  }
  set_token_source(a.key);
  if (next_token() != kIdentifier) {
    if (token() != kErrorToken) report_error("Syntax error - Expected indentifier as keyword");
    return false;
  }
  char keyed[kNameLength + 2];
  std::snprintf(keyed, sizeof keyed, "!%s", token_name());
  set_name(name, keyed);
  if (next_token() == kEnd) return true;
  if (token() != kErrorToken) report_error_text("Syntax error in keyword", a.key);
  return false;
}

// A text that is exactly one identifier, which is then the current token.
bool is_plain_name(const char* text) {
  set_token_source(text);
  interp.token.quiet = true;
  const bool plain = next_token() == kIdentifier && peek_character() == 0;
  interp.token.quiet = false;
  return plain;
}

// The argument's value into its slot: an alias for a name alone, else a copy. False after a message.
bool pass_argument(const ArgumentText& a, int slot) {
  if (is_blank(a.text)) {
    report_error("Syntax error - Expected variable");
    return false;
  }
  if (is_plain_name(a.text)) {
    ScriptValue& v = variable(slot);
    v.value.index = find_variable(token_name());
    v.type = kAlias;
    return true;
  }
  set_token_source(a.text);
  const int n = evaluate(false);
  const bool good = n > 0 && operand(0).type != kFree;
  if (good) move_value(variable(slot), operand(0));
  clear_stack(0);
  return good;
}

void free_arguments() {
  ControlState& c = interp.control;
  for (int i = 0; i < c.argument_count; ++i) free_variable(c.arguments[i]);
  c.argument_count = 0;
}

// Puts the arguments behind the '(' of a text into slots one level up. False after a message.
bool pass_arguments(const char* text, RoutineFrame& frame) {
  ControlState& c = interp.control;
  c.argument_count = 0;
  const char* p = std::strchr(text, '(');
  if (!p) return true;
  ++p;
  ArgumentText argument;
  do {
    p = cut_argument(p, argument);
    if (c.argument_count == 0 && !argument.has_key && argument.end == ')' && is_blank(argument.text)) return true;
    char name[kNameLength + 1];
    if (!placeholder_name(argument, frame.passed - frame.keywords + 1, name)) return false;
    const int slot = new_variable(name, interp.variables.level + 1);
    if (slot < 0) return false;
    c.arguments[c.argument_count++] = static_cast<std::int16_t>(slot);
    if (!pass_argument(argument, slot)) return false;
    ++frame.passed;
    frame.keywords += argument.has_key;
  } while (argument.end == ',');
  return true;
}

// Positions in the statement buffer from a statement on move by a distance.
void move_positions(int from, int to, int distance) {
  ControlState& c = interp.control;
  for (Label& l : c.labels)
    if (l.in_use && l.position >= from && l.position < to) l.position += distance;
  for (int level = 1; level <= interp.variables.level; ++level)
    if (c.frames[level].start > from && c.frames[level].start <= to) c.frames[level].start += distance;
}

// The saved statements behind the one that runs wait until the routine's text stands in front of them.
bool set_waiting(RoutineFrame& frame, int level) {
  ReaderState& r = interp.reader;
  const int first = r.saved_cursor + 1, count = r.saved_count - first;
  SavedStatement* copy = static_cast<SavedStatement*>(allocate(std::int64_t{count} * int{sizeof(SavedStatement)}));
  if (!copy) return false;
  std::copy_n(r.saved + first, count, copy);
  move_positions(first, r.saved_count, kWaitingOffset * level);
  frame.waiting = copy;
  frame.waiting_count = count;
  r.saved_count = r.saved_cursor = first;
  return true;
}

// Puts them back behind what was saved meanwhile; the replay goes on with the first of them.
void end_waiting(const RoutineFrame& frame, int level) {
  ReaderState& r = interp.reader;
  if (!frame.waiting) return;
  if (r.saved_count + frame.waiting_count > kSavedStatements) free_saved_statements(frame.call + 1);
  const int first = r.saved_count, offset = kWaitingOffset * level;
  const int old_first = offset + frame.call + 1;
  std::copy_n(frame.waiting, frame.waiting_count, r.saved + first);
  r.saved_count += frame.waiting_count;
  r.saved_cursor = first;
  std::free(frame.waiting);
  move_positions(old_first, old_first + frame.waiting_count, first - old_first);
  const int inserted = first - (frame.call + 1);
  for (int i = 0; i < frame.call; ++i)
    if (r.saved[i].expansion > 0 && i + r.saved[i].expansion >= frame.call) r.saved[i].expansion += inserted;
}

// Opens the routine's text: a replay has it behind the call, otherwise its file is pushed. False after a message.
bool open_text(RoutineFrame& frame, int level) {
  ReaderState& r = interp.reader;
  const bool replay = replaying();
  frame.call = replay ? r.saved_cursor : r.last_saved ? r.saved_count - 1 : -1;
  frame.from_file = !replay || r.saved[r.saved_cursor].expansion == 0;
  if (frame.from_file) {
    char file[kFileNameLength + 1];
    std::snprintf(file, sizeof file, "%s.qsl", interp.control.routine_name);
    for (char* p = file; *p; ++p)
      if (*p >= 'A' && *p <= 'Z') *p = static_cast<char>(*p - 'A' + 'a');
    if (!push_source(file)) return false;
    if (replay && !set_waiting(frame, level)) {
      pop_source();
      return false;
    }
    interp.driver.interactive_mode = false;
  }
  frame.start = r.saved_count;
  return true;
}

// An argument that is the variable which takes the result becomes a copy: the variable is emptied before the routine
// runs.
void copy_result_arguments(int index) {
  const ControlState& c = interp.control;
  for (int i = 0; i < c.argument_count; ++i) {
    ScriptValue& v = variable(c.arguments[i]);
    if (v.type != kAlias || v.value.index != index) continue;
    ScriptValue copy{};
    if (copy_value(copy, variable(index))) move_value(v, copy);
  }
}

// Empties or makes the variable that takes the result. False after a message.
bool take_result_variable(const char* name, RoutineFrame& frame) {
  frame.kind = kFunctionFrame;
  frame.result = find_variable(name);
  if (frame.result >= 0) {
    copy_result_arguments(frame.result);
    free_value(variable(frame.result));
  } else {
    frame.result = new_variable(name, interp.variables.level);
    if (frame.result < 0) return false;
  }
  set_int(variable(frame.result), 0);
  return true;
}

bool level_is_free() {
  if (interp.variables.level < kRoutineLevels) return true;
  report_error("Too many nested routine calls");
  return false;
}

// Opens the routine when its arguments stand in their slots.
void enter_routine(RoutineFrame& frame, const char* result) {
  const int level = interp.variables.level + 1;
  if ((result && !take_result_variable(result, frame)) || !open_text(frame, level)) return free_arguments();
  interp.control.frames[level] = frame;
  interp.variables.level = level;
  interp.control.call_made = true;
}

void call_routine(const char* text, const char* result) {
  if (!level_is_free()) return;
  RoutineFrame frame{};
  if (!pass_arguments(text, frame)) return free_arguments();
  enter_routine(frame, result);
}

} // namespace

void run_call(const char* text) {
  if (next_token() != kIdentifier) {
    if (token() != kErrorToken) report_error("Routine name expected after CALL");
    return;
  }
  set_name(interp.control.routine_name, token_name());
  call_routine(text, nullptr);
}

void run_function_call(const char* text, const char* name) {
  if (find_function(name) >= 0) return report_error_text("Reserved identifier", name);
  set_name(interp.control.routine_name, token_name());
  call_routine(std::strchr(text, '=') + 1, name);
}

// One argument of a plan.
struct PlannedArgument {
  char slot_name[kNameLength + 1];
  bool has_key;
  bool by_reference;
  KnownName name; // by reference
  Code* code;     // by value
};

struct CallPlan {
  char routine[kNameLength + 1];
  int count;
  PlannedArgument* arguments;
};

namespace {

// One argument; false if its text has a fault, which is told when the text is read again.
bool plan_argument(const ArgumentText& text, int number, PlannedArgument& a) {
  a.has_key = text.has_key;
  if (is_blank(text.text)) return false;
  if (text.has_key) {
    if (!is_plain_name(text.key)) return false;
    char keyed[kNameLength + 2];
    std::snprintf(keyed, sizeof keyed, "!%s", token_name());
    set_name(a.slot_name, keyed);
  } else {
    std::snprintf(a.slot_name, sizeof a.slot_name, "$%d", number);
  }
  a.by_reference = is_plain_name(text.text);
  if (a.by_reference) {
    a.name = known_name(token_name());
    return true;
  }
  set_token_source(text.text);
  a.code = compile_list(false);
  return a.code != nullptr;
}

bool plan_arguments(const char* p, CallPlan& plan) {
  int keywords = 0;
  ArgumentText text;
  do {
    p = cut_argument(p, text);
    if (plan.count == 0 && !text.has_key && text.end == ')' && is_blank(text.text)) return true;
    const int number = plan.count - keywords + 1;
    if (!plan_argument(text, number, plan.arguments[plan.count++])) return false;
    keywords += text.has_key;
  } while (text.end == ',');
  return true;
}

bool pass_planned(const CallPlan& plan, RoutineFrame& frame) {
  ControlState& c = interp.control;
  c.argument_count = 0;
  for (int i = 0; i < plan.count; ++i) {
    const PlannedArgument& a = plan.arguments[i];
    const int slot = new_variable(a.slot_name, interp.variables.level + 1);
    if (slot < 0) return false;
    c.arguments[c.argument_count++] = static_cast<std::int16_t>(slot);
    ScriptValue& v = variable(slot);
    if (a.by_reference) {
      v.value.index = find_known(a.name);
      v.type = kAlias;
    } else {
      const int n = run_list(*a.code);
      const bool good = n > 0 && operand(0).type != kFree;
      if (good) move_value(v, operand(0));
      clear_stack(0);
      if (!good) return false;
    }
    ++frame.passed;
    frame.keywords += a.has_key;
  }
  return true;
}

} // namespace

CallPlan* plan_call(const char* routine, const char* text) {
  const char* open = std::strchr(text, '(');
  const std::int64_t most = open ? 1 + std::count(open, open + std::strlen(open), ',') : 0;
  CallPlan* plan = static_cast<CallPlan*>(allocate_zeroed(1, sizeof(CallPlan)));
  if (!plan) return nullptr;
  set_name(plan->routine, routine);
  plan->arguments = static_cast<PlannedArgument*>(allocate_zeroed(most, sizeof(PlannedArgument)));
  if (plan->arguments && (!open || plan_arguments(open + 1, *plan))) return plan;
  free_call_plan(plan);
  return nullptr;
}

void free_call_plan(CallPlan* plan) {
  if (!plan) return;
  for (int i = 0; i < plan->count && plan->arguments; ++i) free_code(plan->arguments[i].code);
  std::free(plan->arguments);
  std::free(plan);
}

void run_planned_call(const CallPlan& plan, const KnownName* result) {
  std::memcpy(interp.control.routine_name, plan.routine, sizeof plan.routine);
  if (!level_is_free()) return;
  RoutineFrame frame{};
  if (!pass_planned(plan, frame)) return free_arguments();
  enter_routine(frame, result ? result->text : nullptr);
}

bool run_routine_end(const char* first) {
  if (std::strcmp(first, "END") != 0 || token() != kEnd) return false;
  end_called_routine();
  return true;
}

void end_called_routine() {
  if (interp.variables.level > 0) end_routine(true);
}

namespace {

bool is_callback(const RoutineFrame& frame) {
  return frame.kind == kCallbackFrame || frame.kind == kValueCallbackFrame;
}

// The saved statements of a routine whose labels are erased now.
void release_labelled(const RoutineFrame& frame, int level) {
  erase_labels(level);
  if (interp.control.loop_depth > 0) return;
  const bool lower = labels_used_up_to(level - 1);
  if (!lower || is_callback(frame)) forget_statements(frame.start);
  if (!lower) interp.reader.recording = false;
}

// Notes how many statements behind the call are the routine's text. Part of it is of no use for a replay.
void note_expansion(const RoutineFrame& frame, bool whole) {
  ReaderState& r = interp.reader;
  if (is_callback(frame)) return forget_statements(frame.start); // each one is read again
  if (!frame.from_file) {
    if (!whole) r.saved_cursor = frame.call + r.saved[frame.call].expansion;
    return;
  }
  if (frame.call < 0 || frame.call >= r.saved_count) return;
  if (!whole) forget_statements(frame.call + 1);
  r.saved[frame.call].expansion = r.saved_count - 1 - frame.call;
}

} // namespace

void end_routine(bool whole) {
  ControlState& c = interp.control;
  const int level = interp.variables.level;
  const RoutineFrame frame = current_frame();
  if (frame.kind == kFunctionFrame && whole && !c.skip.rest_of_routine)
    report_error("Functions must have a RETURN statement");
  if (is_callback(frame)) c.callback_ended = true;
  free_level(level);
  if (c.labels_in_use[level]) {
    release_labelled(frame, level);
  } else if (is_callback(frame)) {
    forget_statements(frame.start);
  }
  note_expansion(frame, whole);
  if (frame.from_file) pop_source();
  end_waiting(frame, level);
  current_frame() = {};
  interp.variables.level = level - 1;
  c.skip.rest_of_routine = false;
  sum_skip_flags();
}

bool end_of_source() {
  ControlState& c = interp.control;
  if (interp.variables.level == 0) {
    if (c.if_depth > 0) report_error("Missing END IF");
    return false;
  }
  report_error("Missing END statement");
  if (interp.reader.recording && current_frame().from_file) save_statement("END");
  end_routine(true);
  return true;
}

namespace {

// What a statement needs again when another one has run in its middle.
struct StatementState {
  StackState stack;
  PinnedOperands pinned;
  TokenState token;
  char statement[kStatementLength + 1];
  const char* running;
  int saved_cursor;
  bool last_saved;
};

void keep_statement(StatementState& s) {
  const ReaderState& r = interp.reader;
  s.stack = interp.stack;
  s.token = interp.token;
  std::memcpy(s.statement, r.statement, sizeof s.statement);
  s.running = r.running;
  s.saved_cursor = r.saved_cursor;
  s.last_saved = r.last_saved;
  interp.stack.count = 0;
  pin_operands(s.pinned, s.stack);
}

void restore_statement(const StatementState& s) {
  ReaderState& r = interp.reader;
  clear_stack(0);
  unpin_operands(s.pinned);
  interp.stack = s.stack;
  interp.token = s.token;
  std::memcpy(r.statement, s.statement, sizeof s.statement);
  r.running = s.running;
  r.saved_cursor = s.saved_cursor;
  r.last_saved = s.last_saved;
  interp.control.call_made = false;
  interp.control.callback_ended = false;
}

// Variables of the caller that hold the values while the routine runs, which knows them by reference. A value that is
// an alias needs none.
bool pass_values(const ScriptValue* values, int count, int* holders) {
  ControlState& c = interp.control;
  c.argument_count = 0;
  for (int i = 0; i < count; ++i) {
    char name[kNameLength + 1];
    std::snprintf(name, sizeof name, "$%d", i + 1);
    const bool alias = values[i].type == kAlias;
    if (!alias) holders[i] = new_variable(name, interp.variables.level);
    const int slot = !alias && holders[i] < 0 ? -1 : new_variable(name, interp.variables.level + 1);
    if (slot < 0 || (!alias && !copy_value(variable(holders[i]), values[i]))) return false;
    c.arguments[c.argument_count++] = static_cast<std::int16_t>(slot);
    variable(slot).value.index = alias ? values[i].value.index : holders[i];
    variable(slot).type = kAlias;
  }
  return true;
}

} // namespace

bool call_back(const char* routine, ScriptValue* values, int count, bool wants_value) {
  ControlState& c = interp.control;
  if (count > kCallbackValues || !level_is_free()) return false;
  StatementState outer;
  keep_statement(outer);
  set_name(c.routine_name, routine);
  for (char* p = c.routine_name; *p; ++p) *p = upper_case(*p);
  RoutineFrame frame{};
  frame.kind = wants_value ? kValueCallbackFrame : kCallbackFrame;
  frame.passed = count;
  int holders[kCallbackValues];
  std::fill_n(holders, kCallbackValues, -1);
  bool good = pass_values(values, count, holders);
  if (!good) free_arguments();
  if (good) {
    c.call_made = false;
    enter_routine(frame, nullptr);
    good = c.call_made;
    if (good) run_statements();
  }
  for (int i = 0; i < count; ++i) {
    if (good && holders[i] >= 0) move_value(values[i], variable(holders[i]));
    if (holders[i] >= 0) release_slot(holders[i]);
  }
  restore_statement(outer);
  return good;
}

void drop_routines() {
  for (; interp.variables.level > 0; --interp.variables.level) {
    const RoutineFrame& frame = current_frame();
    free_level(interp.variables.level);
    if (frame.from_file) pop_source();
    for (int i = 0; i < frame.waiting_count; ++i) free_statement(frame.waiting[i]);
    std::free(frame.waiting);
    current_frame() = {};
  }
}

} // namespace qsl
