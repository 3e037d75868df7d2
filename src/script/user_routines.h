// User routines: script files that are called by name, and what stands in them.
#pragma once

#include "script/expression_code.h"

namespace qsl {

// CALL NAME(...): the tokeniser stands behind CALL; text is the statement.
void run_call(const char* text);

// name = ROUTINE(...) with a user FUNCTION, whose name the tokeniser has just read.
void run_function_call(const char* text, const char* name);

// SUBROUTINE NAME(...) and FUNCTION NAME(...): the tokeniser stands behind the keyword.
void run_header(bool function);

// What the text of a call decides: the routine and its arguments. Null if the text is not plain.
struct CallPlan;
CallPlan* plan_call(const char* routine, const char* text);
void run_planned_call(const CallPlan& plan, const KnownName* result);
void free_call_plan(CallPlan* plan);

// The same for a header.
struct HeaderPlan;
HeaderPlan* plan_header();
void run_planned_header(const HeaderPlan& plan);
void free_header_plan(HeaderPlan* plan);

void run_extern();
void run_return();

// END as a statement of its own. The main script ignores it.
bool run_routine_end(const char* first);
// The same when the text has been read before.
void end_called_routine();

// The end of the routine that runs. whole: its text has been read or replayed up to its END.
void end_routine(bool whole);

// The end of a source that INCLUDE has not opened. False: the statement loop ends.
bool end_of_source();

// Runs a script routine for the library, in the middle of a statement: the values are its arguments and take what the
// routine leaves in them; an alias among them stands for its variable. wants_value: the routine is a FUNCTION, whose
// value is then interp.control.callback_result. False after a message.
bool call_back(const char* routine, ScriptValue* values, int count, bool wants_value);

// Ends all routines at once, after an interrupt.
void drop_routines();

// The frame of the level that runs.
inline RoutineFrame& current_frame() { return interp.control.frames[interp.variables.level]; }

} // namespace qsl
