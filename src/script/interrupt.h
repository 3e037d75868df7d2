// Ctrl-C. At the prompt it stops what runs and leads back to the prompt; in a script it ends the program.
#pragma once

namespace qsl {

inline constexpr int kInterruptStatus = 130;

// From here on an interrupt is kept until a statement ends. prompt: input comes from a prompt.
void watch_interrupts(bool prompt);

bool interrupted();
void clear_interrupt();
// Notes that a command that ran for the script was interrupted.
void note_interrupt();

// Gives up everything that runs: constructs, routines, included files. A script run ends.
void stop_at_interrupt();

} // namespace qsl
