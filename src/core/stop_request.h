// A host that takes interrupts lets a long routine of the library end early. The host tells where its flag stands;
// loops over data ask for it. A routine that is stopped leaves out the rest of its drawing; the plot stays usable.
#pragma once

#include <csignal>

namespace quilla {

extern const volatile std::sig_atomic_t* stopFlag;

inline bool stopRequested() { return *stopFlag != 0; }

} // namespace quilla
