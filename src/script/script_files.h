// Script files: search, header, the input stack and INCLUDE.
#pragma once

#include <cstdio>

#include "script/script_limits.h"

namespace qsl {

// Opens a plain file; a directory cannot be opened. Null on failure.
std::FILE* open_file(const char* name, const char* mode);

// Appends the extension unless the name has one: a '.' behind its first ']', else behind its first '/'. The name
// keeps at most limit characters.
void add_default_extension(char* name, int limit, const char* extension);

// directory, the separator unless the directory ends in one, name; at most limit characters.
void join_path(char* path, int limit, const char* directory, const char* name);

// Opens the main script and reads its header; null after a message. The name becomes the name that was opened.
std::FILE* open_script(char* name);

// Puts an open stream on the empty input stack.
void start_source(std::FILE* stream, const char* name);

// Opens an included or routine file and makes it the current source; false after a message.
bool push_source(const char* name);

// Closes the current source and returns to the one below; false if there is none below.
bool pop_source();

std::FILE* current_stream();

// Makes the script file the current source, with the usual extension added to its name.
void include_file(char name[kFileNameLength + 1]);

// INCLUDE: the tokeniser stands behind the keyword.
void run_include();

} // namespace qsl
