#include "script/statement_reader.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "script/decided_statement.h"
#include "script/report.h"
#include "script/script_files.h"
#include "script/variables.h"

namespace qsl {
namespace {

// Stores a character, which ends a pending continuation.
void store(char c) {
  ReaderState& r = interp.reader;
  r.continued = false;
  if (r.statement_length == kStatementLength) {
    r.overflow = true;
    return;
  }
  r.statement[r.statement_length++] = c;
}

// Takes the characters of a record; the quote still open at its end, or 0.
char take_characters(const char* record) {
  ReaderState& r = interp.reader;
  char quote = 0;
  bool blank_run = false;
  for (const char* p = record; *p && *p != '\n'; ++p) {
    const char c = *p;
    if (quote) {
      if (c == quote) quote = 0;
      store(c);
      continue;
    }
    if (c == '\r') continue;
    if (c == '#' || (c == '/' && p[1] == '/')) break;
    if (c == '@') {
      r.continued = true;
      continue;
    }
    const bool blank = c == ' ' || c == '\t';
    if (blank && blank_run) continue;
    blank_run = blank;
    if (c == '(') ++r.parenthesis_depth;
    if (c == ')') --r.parenthesis_depth;
    if (c == '\'' || c == '"') quote = c;
    store(blank ? ' ' : c);
  }
  return quote;
}

} // namespace

bool read_record() {
  ReaderState& r = interp.reader;
  if (!std::fgets(r.record, kRecordSize, current_stream())) return false;
  ++r.record_counter;
  return true;
}

bool is_comment_record(const char* record) { return record[0] == '#' || (record[0] == '/' && record[1] == '/'); }

bool assemble_record(const char* record) {
  ReaderState& r = interp.reader;
  if (!r.continued) {
    r.statement_length = 0;
    r.parenthesis_depth = 0;
    r.overflow = false;
  }
  r.continued = false;
  const char quote = take_characters(record);
  r.statement[r.statement_length] = 0;
  if (r.continued) return false;
  if (quote) {
    report_error("Missing Apostroph or Quotation mark");
    return false;
  }
  if (r.parenthesis_depth != 0) {
    report_error("Missing '(' or ')'");
    return false;
  }
  if (r.overflow) {
    report_error("Statement overflow");
    return false;
  }
  return r.statement_length > 0;
}

bool save_statement(const char* text) {
  ReaderState& r = interp.reader;
  const std::size_t length = std::strlen(text);
  if (length == 0) return false;
  if (r.saved_count == kSavedStatements) {
    report_error("Too many statements in the statement buffer");
    return false;
  }
  char* copy = static_cast<char*>(allocate(static_cast<std::int64_t>(length)));
  if (!copy) return false;
  std::memcpy(copy, text, length + 1);
  r.saved[r.saved_count++] = {copy, 0, nullptr};
  ++r.saved_cursor;
  return true;
}

void free_statement(SavedStatement& statement) {
  free_decision(statement.decision);
  std::free(statement.text);
  statement = {};
}

void free_saved_statements(int first) {
  ReaderState& r = interp.reader;
  while (r.saved_count > first) free_statement(r.saved[--r.saved_count]);
}

} // namespace qsl
