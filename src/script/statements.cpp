#include "script/statements.h"

#include <cstdio>
#include <cstring>

#include "script/arrays.h"
#include "script/assignment.h"
#include "script/binding.h"
#include "script/control_structures.h"
#include "script/decided_statement.h"
#include "script/interrupt.h"
#include "script/keywords.h"
#include "script/report.h"
#include "script/script_files.h"
#include "script/statement_reader.h"
#include "script/tokenizer.h"
#include "script/user_routines.h"
#include "script/user_statements.h"
#include "script/variables.h"

namespace qsl {
namespace {

// What the end of a source means.
bool go_on_after_end_of_source() {
  ReaderState& r = interp.reader;
  if (r.include_pending) {
    r.include_pending = false;
    return pop_source();
  }
  return end_of_source();
}

// Executes the saved statements below the cursor. The text of a routine behind a call that was not made is left out.
void replay_statements() {
  ReaderState& r = interp.reader;
  while (replaying() && !interp.driver.ended && !interp.control.callback_ended && !interrupted()) {
    if (interp.driver.harmless && --interp.driver.replays_left < 0) interp.driver.ended = true;
    const int at = r.saved_cursor, expansion = r.saved[at].expansion;
    interp.control.call_made = false;
    run_saved_statement(r.saved[at]);
    const bool leave_out = expansion > 0 && !interp.control.call_made && r.saved_cursor == at;
    if (leave_out) r.saved_cursor += expansion;
    if (!interp.control.call_made || replaying()) ++r.saved_cursor;
  }
}

// Text of the first token as messages show it.
void keep_first_token(const char* text, char* first) {
  if (token() == kIdentifier) return set_name(first, token_name());
  while (*text == ' ') ++text;
  const int length = static_cast<int>(rest_of_text() - text);
  std::snprintf(first, kNameLength + 1, "%.*s", length < kNameLength ? length : kNameLength, text);
}

// Behind the first blank that follows a non-blank character.
const char* behind_keyword(const char* text) {
  while (*text == ' ') ++text;
  while (*text && *text != ' ') ++text;
  return text;
}

} // namespace

namespace {

// Reads one record and runs what it completes. False: the loop ends.
bool run_record() {
  ReaderState& r = interp.reader;
  DriverState& d = interp.driver;
  if (d.interactive_mode && !d.read_typed) {
    std::fputs("QSL> ", stdout);
    std::fflush(stdout);
  }
  if (!read_record()) {
    if (interrupted()) return true;
    if (!go_on_after_end_of_source()) return false;
    replay_statements();
    return true;
  }
  if (d.interactive_mode && d.log_active) std::fputs(r.record, d.log_file);
  if (r.record[0] == '$') {
    run_command(r.record + 1);
    if (d.interactive_mode) std::putchar('\n');
    return true;
  }
  if (is_comment_record(r.record) || !assemble_record(r.record)) return true;
  execute_statement(r.statement);
  replay_statements();
  return true;
}

} // namespace

void run_statements() {
  ControlState& c = interp.control;
  ++c.nesting;
  while (!interp.driver.ended && !c.callback_ended) {
    if (interrupted()) {
      if (c.nesting > 1) break; // the outermost loop stops everything
      stop_at_interrupt();
    } else if (!run_record()) {
      break;
    }
  }
  --c.nesting;
}

namespace {

// What the second token decides. first: the first token's text; the tokeniser stands behind the second token.
void execute_by_second_token(const char* text, const char* first, bool identifier) {
  if (!identifier && (token() == '(' || token() == '=' || token() == '[' || token() == ':')) {
    if (!skipping()) report_error("Syntax error");
    return;
  }
  if (token() == ':') return run_label(first);
  if (skipping()) return;
  switch (token()) {
  case '(': return run_routine_statement(text, first);
  case '=': return run_assignment(text, first);
  case '[': return assign_elements(first);
  case kErrorToken: return;
  default: break;
  }
  const int keyword = find_keyword(first);
  if (keyword < 0) return report_error_text("Undefined command", first);
  set_token_source(behind_keyword(text));
  run_keyword(keyword, text);
}

} // namespace

void execute_plain(const char* text) {
  set_token_source(text);
  if (next_token() == kEnd || token() == kErrorToken) return;
  char first[kNameLength + 1];
  keep_first_token(text, first);
  const bool identifier = token() == kIdentifier;
  next_token();
  execute_by_second_token(text, first, identifier);
}

void execute_statement(const char* text) {
  ReaderState& r = interp.reader;
  r.running = text;
  r.last_saved = false;
  set_token_source(text);
  if (next_token() == kEnd || token() == kErrorToken) return;
  char first[kNameLength + 1];
  keep_first_token(text, first);
  const bool identifier = token() == kIdentifier;
  if (identifier && std::strcmp(first, "INCLUDE") == 0) return run_include();
  if (r.recording && !replaying()) r.last_saved = save_statement(text);
  next_token();
  if (identifier && (run_if_family(text, first) || run_loop_family(text, first) || run_switch_family(text, first) ||
                     run_routine_end(first)))
    return;
  execute_by_second_token(text, first, identifier);
}

} // namespace qsl
