#include "script/decided_statement.h"

#include <cstdlib>
#include <cstring>

#include "script/arrays.h"
#include "script/assignment.h"
#include "script/binding.h"
#include "script/builtin_functions.h"
#include "script/control_structures.h"
#include "script/evaluator.h"
#include "script/statements.h"

namespace qsl {
namespace {

Decision* running_as_text; // its expressions are kept

// The tokeniser reads ahead without messages while a statement is decided.
int next_quietly() {
  interp.token.quiet = true;
  return next_token();
}
void set_quiet_source(const char* text) {
  set_token_source(text);
  interp.token.quiet = true;
}

bool is_word(const char* first, const char* word) { return std::strcmp(first, word) == 0; }

Decision* new_decision(const char* text) {
  Decision* d = static_cast<Decision*>(allocate_zeroed(1, sizeof(Decision)));
  if (!d) return nullptr;
  d->text = text;
  d->text_end = text + std::strlen(text);
  return d;
}

// name = ..., the tokeniser behind the '='.
DecisionKind decide_assignment(Decision& d, const char* first) {
  if (is_system_name(first)) return kAsText;
  const int kind = next_quietly();
  if (kind == kErrorToken || kind == '{') return kAsText;
  d.name = known_name(first);
  const char* right = std::strchr(d.text, '=') + 1;
  if (kind == kIdentifier && peek_character() == '(' && find_function(token_name()) < 0) {
    if (find_value_routine(token_name()) >= 0 || find_function(first) >= 0) return kAsText;
    char name[kNameLength + 1];
    set_name(name, token_name());
    d.call = plan_call(name, right);
    return d.call ? kCallFunction : kAsText;
  }
  if (find_function(first) >= 0) return kAsText;
  set_quiet_source(right);
  d.code = compile_list(false);
  return d.code ? kAssign : kAsText;
}

// name[...] = ..., the tokeniser behind the '['.
DecisionKind decide_elements(Decision& d, const char* first) {
  d.name = known_name(first);
  d.subscripts = compile_subscripts(first);
  if (!d.subscripts || !d.subscripts->clean || token() != '=') return kAsText;
  d.code = compile_list(false);
  return d.code ? kAssignElements : kAsText;
}

DecisionKind decide_call(Decision& d) {
  if (token() != kIdentifier) return kAsText;
  char name[kNameLength + 1];
  set_name(name, token_name());
  d.call = plan_call(name, d.text);
  return d.call ? kCallRoutine : kAsText;
}

DecisionKind decide_header(Decision& d) {
  d.header = plan_header();
  return d.header ? kHeader : kAsText;
}

// NAME(...) with a routine of the library, the tokeniser behind the '('.
DecisionKind decide_routine(Decision& d, const char* first) {
  d.row = find_routine(first);
  if (d.row < 0) return kAsText;
  if (peek_character() == ')') return kLibraryRoutine;
  d.code = compile_list(true);
  return d.code ? kLibraryRoutine : kAsText;
}

// A statement that is no construct, the tokeniser behind its second token.
DecisionKind decide_plain(Decision& d, const char* first) {
  if (token() == '=') return decide_assignment(d, first);
  if (token() == '[') return decide_elements(d, first);
  if (token() == '(') return decide_routine(d, first);
  if (token() == ':') return kAsText;
  if (is_word(first, "CALL")) return decide_call(d);
  if (is_word(first, "SUBROUTINE") || is_word(first, "FUNCTION")) return decide_header(d);
  return kAsText;
}

// What stands behind a one-line IF.
Decision* decide_then(const char* text) {
  Decision* d = new_decision(text);
  if (!d) return nullptr;
  set_quiet_source(text);
  if (next_quietly() != kIdentifier) return d;
  char first[kNameLength + 1];
  set_name(first, token_name());
  next_quietly();
  d->kind = decide_plain(*d, first);
  return d;
}

DecisionKind decide_if(Decision& d) {
  const char* open = std::strchr(d.text, '(');
  if (!open) return kAsText;
  set_quiet_source(open + 1);
  d.code = compile_list(false);
  if (!d.code || !d.code->clean || token() != ')') return kAsText;
  const char* rest = rest_of_text();
  if (peek_character() == 0) return kBlockIf;
  d.then = decide_then(rest);
  return d.then ? kLineIf : kAsText;
}

DecisionKind decide_do(Decision& d) {
  const char* equal = std::strchr(d.text, '=');
  if (token() != kIdentifier || !equal) return kAsText;
  d.name = known_name(token_name());
  set_quiet_source(equal + 1);
  d.code = compile_list(false);
  return d.code ? kDo : kAsText;
}

DecisionKind decide_while(Decision& d) {
  if (token() != '(') return kAsText;
  d.code = compile_list(false);
  return d.code ? kWhile : kAsText;
}

DecisionKind decide(Decision& d) {
  set_quiet_source(d.text);
  if (next_quietly() != kIdentifier) return kAsText;
  char first[kNameLength + 1];
  set_name(first, token_name());
  next_quietly();
  if (is_word(first, "IF")) return decide_if(d);
  if (is_word(first, "ELSE")) return token() == kEnd ? kElse : kAsText;
  if (is_word(first, "ENDIF") || ends_construct(first, "IF")) return kEndIf;
  if (is_word(first, "DO")) return decide_do(d);
  if (is_word(first, "WHILE")) return decide_while(d);
  if (ends_construct(first, "DO")) return kEndDo;
  if (ends_construct(first, "WHILE")) return kEndWhile;
  if (is_word(first, "END") && token() == kEnd) return kEndRoutine;
  for (const char* word : {"ELSEIF", "SWITCH", "CASE", "DEFAULT"})
    if (is_word(first, word)) return kAsText;
  if (ends_construct(first, "SWITCH")) return kAsText;
  return decide_plain(d, first);
}

// Statements that are passed over while skipping.
void run_plain(Decision& d) {
  switch (d.kind) {
  case kAssign: return assign_operand(d.name, run_list(*d.code));
  case kAssignElements: return assign_selected(d.name, *d.subscripts, *d.code);
  case kLibraryRoutine: return run_planned_routine(d.row, d.code);
  case kCallRoutine: return run_planned_call(*d.call, nullptr);
  case kCallFunction: return run_planned_call(*d.call, &d.name);
  default: return run_planned_header(*d.header);
  }
}

void run_line_if(const Decision& d) {
  if (!if_condition_holds(*d.code)) return;
  Decision* outer = running_as_text;
  running_as_text = d.then;
  if (d.then->kind == kAsText) {
    execute_plain(d.then->text);
  } else {
    run_plain(*d.then);
  }
  running_as_text = outer;
}

void run_decision(Decision& d) {
  switch (d.kind) {
  case kAsText: {
    Decision* outer = running_as_text;
    running_as_text = &d;
    execute_statement(d.text);
    running_as_text = outer;
    return;
  }
  case kLineIf: return run_line_if(d);
  case kBlockIf: return run_block_if(*d.code);
  case kElse: return run_plain_else();
  case kEndIf: return run_end_if();
  case kDo: return begin_do(d.name.text, *d.code);
  case kEndDo: return end_loop(kDoLoop);
  case kWhile: return begin_while(*d.code, d.text);
  case kEndWhile: return end_loop(kWhileLoop);
  case kEndRoutine: return end_called_routine();
  default:
    if (!skipping()) run_plain(d);
  }
}

} // namespace

void run_saved_statement(SavedStatement& statement) {
  ReaderState& r = interp.reader;
  if (!statement.decision) {
    statement.decision = new_decision(statement.text);
    if (!statement.decision) return;
    statement.decision->kind = decide(*statement.decision);
  }
  r.running = statement.text;
  r.last_saved = false;
  run_decision(*statement.decision);
}

void free_decision(Decision* d) {
  if (!d) return;
  free_code(d->code);
  free_code(d->subscripts);
  free_decision(d->then);
  free_call_plan(d->call);
  free_header_plan(d->header);
  while (KeptCode* kept = d->kept) {
    d->kept = kept->next;
    free_code(kept->code);
    std::free(kept);
  }
  if (running_as_text == d) running_as_text = nullptr;
  std::free(d);
}

namespace {

// Behind the list, as if it had been read.
void move_token_behind(const char* place, const Code& code) {
  TokenState& t = interp.token;
  t.position = static_cast<int>(place - t.text) + code.end_position;
  t.kind = code.end_kind;
  t.previous = code.end_previous;
}

bool is_kept(const Code* code) {
  if (running_as_text)
    for (const KeptCode* k = running_as_text->kept; k; k = k->next)
      if (k->code == code) return true;
  return false;
}

void keep_code(Decision& d, const char* place, int previous, Code* code) {
  KeptCode* kept = static_cast<KeptCode*>(allocate(sizeof(KeptCode)));
  if (!kept) return;
  *kept = {d.kept, place, previous, code->alias_mode, code};
  d.kept = kept;
}

} // namespace

Code* code_at_token(bool alias_mode) {
  Decision* d = running_as_text;
  const char* place = rest_of_text();
  const int previous = interp.token.previous;
  if (!d || place < d->text || place > d->text_end) return compile_list(alias_mode);
  for (const KeptCode* k = d->kept; k; k = k->next) {
    if (k->place != place || k->previous != previous || k->alias_mode != alias_mode) continue;
    move_token_behind(place, *k->code);
    return k->code;
  }
  Code* code = compile_list(alias_mode);
  if (code) keep_code(*d, place, previous, code);
  return code;
}

void release_code(Code* code) {
  if (!is_kept(code)) free_code(code);
}

} // namespace qsl
