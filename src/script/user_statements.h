// Statements that talk to the user: HELP, LOGON, LOGOFF, EXIT and the shell escape.
#pragma once

namespace qsl {

// Runs a command by the command processor, behind all output so far; its result.
int run_processor(const char* command);

// Hands a text without its line ends to the command processor.
void run_command(const char* text);

void run_help();
void run_logon();
void run_logoff();
void run_exit();

} // namespace qsl
