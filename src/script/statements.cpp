#include "script/statements.h"

#include <cstdio>
#include <cstring>

#include "script/arrays.h"
#include "script/assignment.h"
#include "script/binding.h"
#include "script/control_structures.h"
#include "script/keywords.h"
#include "script/report.h"
#include "script/script_files.h"
#include "script/statement_reader.h"
#include "script/tokenizer.h"
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

// Executes the statement just read, then the saved ones below the cursor.
void execute_and_replay() {
  ReaderState& r = interp.reader;
  execute_statement(r.statement);
  while (r.saved_cursor < r.saved_count && !interp.driver.ended) {
    execute_statement(r.saved[r.saved_cursor]);
    ++r.saved_cursor;
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

void run_statements() {
  ReaderState& r = interp.reader;
  DriverState& d = interp.driver;
  while (!d.ended) {
    if (d.interactive_mode) {
      std::fputs("QSL> ", stdout);
      std::fflush(stdout);
    }
    if (!read_record()) {
      if (!go_on_after_end_of_source()) return;
      continue;
    }
    if (d.interactive_mode && d.log_active) std::fputs(r.record, d.log_file);
    if (r.record[0] == '$') {
      run_command(r.record + 1);
      if (d.interactive_mode) std::putchar('\n');
      continue;
    }
    if (!is_comment_record(r.record) && assemble_record(r.record)) execute_and_replay();
  }
}

void execute_by_second_token(const char* text, const char* first) {
  if (token() == ':') return run_label(first);
  if (interp.control.skip_sum != 0) return;
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

void execute_statement(const char* text) {
  ReaderState& r = interp.reader;
  set_token_source(text);
  if (next_token() == kEnd || token() == kErrorToken) return;
  char first[kNameLength + 1];
  keep_first_token(text, first);
  const bool identifier = token() == kIdentifier;
  if (identifier && std::strcmp(first, "INCLUDE") == 0) return run_include();
  if (r.recording && r.saved_cursor == r.saved_count) save_statement(text);
  next_token();
  if (identifier && (run_if_family(text, first) || run_loop_family(text, first) || run_switch_family(text, first) ||
                     run_routine_end(first)))
    return;
  if (!identifier && (token() == '(' || token() == '=' || token() == '[' || token() == ':')) {
    if (interp.control.skip_sum == 0) report_error("Syntax error");
    return;
  }
  execute_by_second_token(text, first);
}

} // namespace qsl
