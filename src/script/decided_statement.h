// What the text of a saved statement decides: its kind, the names in it and its expressions as operations. A replay
// runs that instead of reading the text again; nothing that a script can observe changes.
#pragma once

#include "script/expression_code.h"
#include "script/user_routines.h"

namespace qsl {

enum DecisionKind : std::uint8_t {
  kAsText, // is read again; only its expressions are kept
  kAssign,
  kAssignElements,
  kLineIf,
  kBlockIf,
  kElse,
  kEndIf,
  kDo,
  kEndDo,
  kWhile,
  kEndWhile,
  kLibraryRoutine,
  kCallRoutine,
  kCallFunction,
  kHeader,
  kEndRoutine
};

// An expression list that evaluate() has met in a statement that is read as text.
struct KeptCode {
  KeptCode* next;
  const char* place; // in the text
  int previous;      // kind of the token in front of it
  bool alias_mode;
  Code* code;
};

struct Decision {
  DecisionKind kind;
  const char* text; // the statement, or what stands behind a one-line IF
  const char* text_end;
  KnownName name; // what is assigned, or the loop variable
  Code* code;     // right side, condition or bounds
  Code* subscripts;
  Decision* then; // behind a one-line IF
  CallPlan* call;
  int row; // of the library's routine
  HeaderPlan* header;
  KeptCode* kept;
};

// Runs a saved statement; the decision is made at its first replay.
void run_saved_statement(SavedStatement& statement);
void free_decision(Decision* decision);

// The list at the tokeniser's place as code: kept with the saved statement that is read as text, or new. Null after a
// message. release_code() frees what was not kept.
Code* code_at_token(bool alias_mode);
void release_code(Code* code);

} // namespace qsl
