// The outer statement loop and the dispatch of statements.
#pragma once

namespace qsl {

// Reads and executes statements until the end of input.
void run_statements();

// Executes one statement. The text must stay as it is until the call returns.
void execute_statement(const char* text);

// Executes the statement behind a one-line IF: it may be anything that the second token decides, but no construct.
void execute_plain(const char* text);

} // namespace qsl
