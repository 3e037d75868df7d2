// Data files: tables of numbers and header items behind the DAT functions. Messages here name the data file and carry
// no script record.
#pragma once

#include "script/script_value.h"

namespace qsl {

// Each returns 0, or -1 after a message (close_data_file without one).
int open_data_file(const char* name);
int close_data_file();
int select_data_block(int number);
int print_data_header();

// Rows, columns or blocks by keyword; 0 after a message.
int count_data(const char* keyword);

// A header item as INT, DOUBLE or STRING; false after a message.
bool read_data_variable(const char* name, ScriptValue& result);

// The current block as a matrix, or one column of it, from 1; false after a message.
bool read_data_matrix(ScriptValue& result);
bool read_data_column(int column, ScriptValue& result);

} // namespace qsl
