// Finding the plot state of the calling thread, and the level checks at the head of every public routine.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// State of the calling thread, created on first touch. A failed allocation ends the process, and so does a thread
// more than THRINI prepared.
PlotState* plotState();

// State of the calling thread, or null if there is none yet.
PlotState* existingPlotState();

// Frees the state of the calling thread, and its slot. For tests and hosts that end their use of the library.
void freePlotState();

// Slots for n threads, and their end (THRINI, THRFIN). Messages on the standard output.
void prepareThreads(int n);
void finishThreads();

// Strict check: stores the routine's lower-case name; null after warning 3 if the level lies outside low..high.
PlotState* strictCheck(int low, int high, const char* name);

// Setter check: levels 1 to 3 are accepted; warning 3 otherwise, but the state is returned all the same.
PlotState* setterCheck(const char* name);

// Held while files are named and opened and while the protocol is printed, so that two threads take neither the same
// version of a name nor each other's lines. Without THRINI it does nothing. May be held twice by one thread.
struct ProcessLock {
  bool held;
  ProcessLock();
  ~ProcessLock();
  ProcessLock(const ProcessLock&) = delete;
  ProcessLock& operator=(const ProcessLock&) = delete;
};

} // namespace quilla
