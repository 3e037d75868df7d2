// Lines typed at a terminal: editing, history, completion.
#pragma once

namespace qsl {

// Takes over the standard input of the prompt if it is a terminal and the program was built with a line editor.
void start_line_editor();

// Writes the history.
void end_line_editor();

} // namespace qsl
