// Ctrl-C. At the prompt it stops what runs and leads back to the prompt; in a script it ends the program.
// A statement that takes long looks for it in its loops over elements and gives up what is left of them; the list of
// operands is then empty, and nothing more is told until the statement ends.
#pragma once

#include <csignal>

namespace qsl {

inline constexpr int kInterruptStatus = 130;

// From here on an interrupt is kept until the statement has ended. prompt: input comes from a prompt.
void watch_interrupts(bool prompt);

extern volatile std::sig_atomic_t interrupt_requests; // since the last clear

inline bool interrupted() { return interrupt_requests != 0; }
void clear_interrupt();
// Notes that a command that ran for the script was interrupted.
void note_interrupt();

// Gives up everything that runs: constructs, routines, included files. A script run ends.
void stop_at_interrupt();

} // namespace qsl
