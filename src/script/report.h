// The messages of the interpreter. All go to the standard output, in interactive mode to the log as well, and are
// counted; none stops a script.
#pragma once

namespace qsl {

// " >>>> TEXT in record N (FILE)", in interactive mode " >>>> TEXT".
void report_error(const char* text);
// The same with "TEXT WORD".
void report_error_text(const char* text, const char* word);
// The same with "TEXT 'C'".
void report_error_char(const char* text, char character);

// A message of file handling, without a record. The format is printed as it stands.
[[gnu::format(printf, 1, 2)]] void report_file_error(const char* format, ...);

// " >>>> KIND NAME is not available in record N (FILE)": a part of the language that does not exist yet.
void report_unavailable(const char* kind, const char* name);

} // namespace qsl
