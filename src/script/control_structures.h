// What steers the flow of statements: IF, loops, SWITCH, labels, user routines. Each recogniser is given the whole
// statement and its first token, with the tokeniser behind the second, and claims the statement or passes it on.
#pragma once

namespace qsl {

bool run_if_family(const char* text, const char* first);
bool run_loop_family(const char* text, const char* first);
bool run_switch_family(const char* text, const char* first);
bool run_routine_end(const char* first);

void run_label(const char* name);

// name = ROUTINE(...) with a user FUNCTION.
void run_function_call(const char* text, const char* name);

// The end of a source that INCLUDE has not opened. False: the statement loop ends.
bool end_of_source();

} // namespace qsl
