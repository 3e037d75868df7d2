// The outer statement loop and the dispatch of statements.
#pragma once

namespace qsl {

// Reads and executes statements until the end of input.
void run_statements();

// Executes one statement. The text must stay as it is until the call returns.
void execute_statement(const char* text);

// The part of it behind the first token: the second token decides. first: the first token's text; the tokeniser
// stands behind the second token. Also runs the statement behind a one-line IF.
void execute_by_second_token(const char* text, const char* first);

} // namespace qsl
