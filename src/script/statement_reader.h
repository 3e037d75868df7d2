// Records and how they make statements.
#pragma once

#include "script/interpreter.h"

namespace qsl {

// Reads one record of the current source into interp.reader.record; false at the end of input.
bool read_record();

bool is_comment_record(const char* record);

// Takes a record into interp.reader.statement. True if the statement is complete and has any text.
bool assemble_record(const char* record);

// Appends a text to the statement buffer. False if nothing was saved.
bool save_statement(const char* text);
void free_statement(SavedStatement& statement);
// Frees the saved statements from position first on.
void free_saved_statements(int first);

} // namespace qsl
