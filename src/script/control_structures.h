// What steers the flow of statements: IF, loops, SWITCH, labels. Each recogniser is given the whole statement and its
// first token, with the tokeniser behind the second, and claims the statement or passes it on.
#pragma once

#include "script/expression_code.h"

namespace qsl {

bool run_if_family(const char* text, const char* first);
bool run_loop_family(const char* text, const char* first);
bool run_switch_family(const char* text, const char* first);

// The statement NAME:
void run_label(const char* name);

// Keyword statements; the tokeniser stands behind the keyword.
void run_goto();
void run_break();
void run_continue();

// The same constructs with what their text decides: conditions and bounds as code.
// A one-line IF: whether the statement behind it runs.
bool if_condition_holds(const Code& condition);
void run_block_if(const Code& condition);
void run_plain_else();
void run_end_if();
void begin_do(const char* name, const Code& bounds);
void begin_while(const Code& condition, const char* text);
void end_loop(LoopKind kind);

// END and the word behind it, which has just been read.
bool ends_construct(const char* first, const char* word);

// Sums up the skip flags.
void sum_skip_flags();
inline bool skipping() { return interp.control.skip_sum != 0; }

// A saved statement runs, not one that was just read.
inline bool replaying() { return interp.reader.saved_cursor < interp.reader.saved_count; }
// Moves the replay so that the statement at this position is the next.
void continue_at(int position);
// Frees the saved statements from a position on; a replay that has come so far ends.
void forget_statements(int from);
// Whether labels keep the saved statements of some level up to this one.
bool labels_used_up_to(int level);
void erase_labels(int level);

// Gives up all constructs, skips, labels and saved statements of the level that runs, after an interrupt.
void drop_constructs();

} // namespace qsl
