// The files that a script opens, and the numbers by which it knows them.
#pragma once

#include <initializer_list>

#include "script/interpreter.h"

namespace qsl {

// The entry of a file number; null after a message with the function's name.
ScriptFile* find_file(std::int32_t number, const char* function);

// The same for a function that needs one of these classes.
ScriptFile* find_file_for(std::int32_t number, const char* function, std::initializer_list<FileClass> classes);

void close_script_files();

} // namespace qsl
